// The library against the plain inspection: the same JSON, character by character, of zones clean and
// damaged, of pages, and of every specimen with every character changed to every other one.
#include "../cases.hpp"
#include "plain_inspection.hpp"
#include "support.hpp"

#include <cstdint>

namespace {

using support::inspect_to_json;
using support::TODAY;

constexpr plain::reference_date PLAIN_TODAY = {TODAY.year, TODAY.month, TODAY.day};
const std::string ALPHABET = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ<";

void expect_the_same(const std::string &text, plain::reference_date today = PLAIN_TODAY) {
  const varnel_inspect_options options = {today.year, today.month, today.day, VARNEL_REPAIR_OFF};
  ASSERT_EQ(inspect_to_json(text, options), plain::inspect(text, today)) << text;
}

// The same numbers on every machine.
class dice {
public:
  explicit dice(uint64_t seed) : state_(seed * 2 + 1) {}

  unsigned below(unsigned bound) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<unsigned>((state_ >> 33) % bound);
  }

  bool one_in(unsigned count) { return below(count) == 0; }

  template <class List> const auto &pick(const List &list) {
    return list[below(static_cast<unsigned>(std::size(list)))];
  }

private:
  uint64_t state_;
};

std::string filled(std::string text, size_t width) {
  text.resize(width, '<');
  return text;
}

std::string word(dice &d, size_t most) {
  std::string text;
  for (size_t length = 1 + d.below(static_cast<unsigned>(most)); length > 0; --length) {
    text += ALPHABET[10 + d.below(26)];
  }
  return text;
}

std::string state(dice &d) {
  static const std::vector<std::string> others = {"D<<", "UTO", "XXK", "XXA", "RUS", "<<<", "ZZZ",
                                                  "DDR", "FRA", "WSA", "U<O", "1TO", "XCT", "DE<"};
  if (d.one_in(4)) {
    return d.pick(others);
  }
  auto at = plain::known_states().begin();
  std::advance(at, d.below(static_cast<unsigned>(plain::known_states().size())));
  return filled(at->first, 3);
}

std::string number(dice &d, size_t most) {
  std::string text;
  for (size_t length = d.below(static_cast<unsigned>(most + 1)); length > 0; --length) {
    text += d.one_in(12) ? '<' : ALPHABET[d.below(36)];
  }
  return filled(text, most);
}

std::string date(dice &d) {
  static const std::vector<std::string> others = {"<<<<<<", "74<<<<", "7408<<", "740230", "000229", "010229",
                                                  "261121", "261122", "7400<<", "740800", "74<<12", "76<<<<",
                                                  "77<<<<", "26<<<<", "2611<<", "2612<<", "A40812"};
  if (d.one_in(3)) {
    return d.pick(others);
  }
  const auto two = [&d](unsigned bound) { return plain::padded(static_cast<int>(d.below(bound)), 2); };
  return two(100) + two(14) + two(33);
}

std::string with_digit(dice &d, const std::string &text) {
  const char digit = plain::check_digit(text);
  return text + (plain::is_filled(text) && d.one_in(2) ? '<' : d.one_in(12) ? d.pick(ALPHABET) : digit);
}

std::string names(dice &d, size_t width) {
  static const std::vector<std::string> partings = {"<<", "<<", "<<", "<<", "<<<", "<", "<<<<"};
  std::string text = d.one_in(10) ? "" : word(d, 12);
  text += d.pick(partings) + (d.one_in(8) ? "" : word(d, 9));
  while (d.one_in(3)) {
    text += d.pick(partings) + word(d, 9);
  }
  return filled(text, width);
}

std::string sex(dice &d) {
  static const std::string sexes = "MF<XMFQ1";
  return std::string(1, d.pick(sexes));
}

std::string code(dice &d, const char *first) {
  const std::string letters = first;
  return std::string(1, d.one_in(20) ? d.pick(ALPHABET) : d.pick(letters)) +
         (d.one_in(2) ? '<' : d.pick(ALPHABET));
}

// A number with its digit and the optional data after it, perhaps a long one.
std::pair<std::string, std::string> number_and_rest(dice &d, size_t room) {
  const std::string nine = number(d, 9);
  if (!d.one_in(3) || nine.find('<') != std::string::npos) {
    return {with_digit(d, nine), number(d, room)};
  }
  std::string continuation = word(d, room - 2);
  const std::string covered = nine + (d.one_in(2) ? "" : "<") + continuation;
  continuation += d.one_in(9) ? d.pick(ALPHABET) : plain::check_digit(covered);
  if (continuation.size() < room) {
    continuation += "<" + number(d, room - continuation.size() - 1);
  }
  return {nine + "<", filled(continuation, room)};
}

std::string composite(dice &d, const std::string &layout, const std::vector<std::string> &lines) {
  const char digit = plain::check_digit(plain::digits_of(layout, lines).back().covered);
  return std::string(1, d.one_in(15) ? d.pick(ALPHABET) : digit);
}

std::string random_zone(dice &d) {
  const unsigned which = d.below(6);
  if (which == 0) {
    const auto [number, rest] = number_and_rest(d, 15);
    std::vector<std::string> z = {code(d, "ACI") + state(d) + number + rest,
                                  with_digit(d, date(d)) + sex(d) + with_digit(d, date(d)) + state(d) +
                                      plain::string(d.one_in(2) ? "<<<<<<<<<<<" : "12345<6<<<<"),
                                  names(d, 30)};
    z[1] += composite(d, "TD1", {z[0], z[1] + "0"});
    return z[0] + "\n" + z[1] + "\n" + z[2] + "\n";
  }
  if (which == 1) {
    std::string first = "IDFRA" + filled(names(d, 25), 25) + number(d, 6);
    std::string second = with_digit(d, number(d, 12)) + names(d, 14) + with_digit(d, date(d)) + sex(d);
    second += composite(d, "FRA-ID", {first, second + "0"});
    return first + "\n" + second + "\n";
  }
  const size_t width = which == 2 || which == 4 ? 44 : 36;
  const bool visa = which >= 4;
  const auto [number_digit, rest] = number_and_rest(d, visa ? width - 28 : width - 29);
  const bool russian = which == 2 && d.one_in(8);
  std::string first = (russian ? "PNRUS"
                               : code(d, visa         ? "V"
                                         : which == 2 ? "P"
                                                      : "ACI") +
                                     state(d)) +
                      names(d, width - 5);
  if (d.one_in(12) || russian) {
    first[5 + d.below(30)] = '8';
  }
  std::string second = number_digit + state(d) + with_digit(d, date(d)) + sex(d) + with_digit(d, date(d));
  if (which == 2) {
    second += with_digit(d, number(d, 14));
    if (d.one_in(6)) {
      second[42] = '<';
    }
    second += composite(d, "TD3", {first, second + "0"});
  } else if (which == 3) {
    second += rest;
    second += composite(d, "TD2", {first, second + "0"});
  } else {
    second += rest;
  }
  return first + "\n" + second + "\n";
}

// As texts come: small letters, look-alikes, other line ends, white space and noise.
std::string disguised(dice &d, const std::string &zone) {
  static const std::vector<std::string> line_ends = {"\n",   "\r\n",     "\r",           "\v",
                                                     "\f",   "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9",
                                                     "\n\n", " \n \t\n", "\n--- \n",     ""};
  static const std::vector<std::string> fillers = {"&lt;",         "\xEF\xBC\x9C", "\xE2\x80\xB9",
                                                   "\xE2\x80\xBA", "\xE2\x89\xA4", "\xE3\x80\x88",
                                                   "\xE2\x9F\xA8", "\xE2\x8C\xA9"};
  static const std::vector<std::string> pairs = {"\xC2\xAB", "\xC2\xBB", "\xE3\x80\x8A"};
  static const std::vector<std::string> noise = {" ",
                                                 "\t",
                                                 "\xC2\xA0",
                                                 "\xE2\x80\x8B",
                                                 "\xEF\xBB\xBF",
                                                 "*",
                                                 "\xFF",
                                                 "\xC3",
                                                 "&",
                                                 "\xF0\x9F\x98\x80",
                                                 "\xED\xA0\x80",
                                                 "\xC0\xAF",
                                                 "\xE3\x80\x80",
                                                 "&lt"};
  static const std::map<char, std::string> alikes = {
      {'A', "\xD0\x90"},     {'E', "\xD0\xB5"},     {'O', "\xCE\x9F"},    {'S', "\xD0\x85"},
      {'X', "\xCE\xA7"},     {'N', "\xCE\x9D"},     {'I', "\xD1\x96"},    {'Y', "\xD1\x83"},
      {'M', "\xEF\xBC\xAD"}, {'T', "\xEF\xBD\x94"}, {'4', "\xEF\xBC\x94"}};
  const unsigned rate = d.one_in(2) ? 1000 : 12;
  std::string text;
  for (size_t i = 0; i < zone.size(); ++i) {
    const char c = zone[i];
    if (c == '\n') {
      text += d.one_in(3) ? d.pick(line_ends) : "\n";
    } else if (c == '<' && zone.compare(i, 2, "<<") == 0 && d.one_in(rate)) {
      text += d.pick(pairs);
      ++i;
    } else if (c == '<' && d.one_in(rate)) {
      text += d.pick(fillers);
    } else if (alikes.count(c) == 1 && d.one_in(rate)) {
      text += alikes.at(c);
    } else if (c >= 'A' && c <= 'Z' && d.one_in(rate)) {
      text += static_cast<char>(c + ('a' - 'A'));
    } else {
      text += c;
    }
    if (d.one_in(rate)) {
      text += d.pick(noise);
    }
  }
  return text;
}

std::string damaged(dice &d, std::string zone) {
  for (unsigned count = d.below(4); count > 0; --count) {
    const size_t at = d.below(static_cast<unsigned>(zone.size()));
    if (zone[at] == '\n') {
      continue;
    }
    if (d.one_in(5)) {
      zone.erase(at, 1);
    } else if (d.one_in(5)) {
      zone.insert(at, 1, d.pick(ALPHABET));
    } else {
      zone[at] = d.pick(ALPHABET);
    }
  }
  return zone;
}

TEST(Comparison, SpecimensWithEveryCharacterChangedToEveryOther) {
  support::every_nth turn;
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string zone = s.zone;
    const varnel_inspection whole = support::inspect(zone);
    ASSERT_EQ(whole.verdict, VARNEL_VERDICT_VALID) << zone;
    ASSERT_STREQ(varnel_layout_name(whole.layout), s.layout);
    for (size_t i = 0; i < zone.size(); ++i) {
      for (const char c : ALPHABET) {
        std::string changed = zone;
        if (changed[i] == '\n' || changed[i] == c || !turn.is_next()) {
          continue;
        }
        changed[i] = c;
        expect_the_same(changed);
      }
    }
  }
}

bool is_name(int field) { return field == VARNEL_PRIMARY_IDENTIFIER || field == VARNEL_SECONDARY_IDENTIFIER; }

// Null where the field is not there or has no value.
const char *value_of(const varnel_inspection &inspection, int field) {
  for (int i = 0; i < inspection.field_count; ++i) {
    if (inspection.fields[i].field == field && inspection.fields[i].has_value != 0) {
      return inspection.fields[i].value;
    }
  }
  return nullptr;
}

// One wrong character costs its own field and the digits over it, and no other value. A changed first
// letter may turn a passport into a visa, and a filler may part names elsewhere.
TEST(Comparison, NoOtherFieldIsLostToAChangedCharacter) {
  support::every_nth turn;
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string zone = s.zone;
    const varnel_inspection whole = support::inspect(zone);
    for (size_t i = 1; i < zone.size(); ++i) {
      for (const char c : ALPHABET) {
        std::string changed = zone;
        if (changed[i] == '\n' || changed[i] == c || !turn.is_next()) {
          continue;
        }
        changed[i] = c;
        const varnel_inspection read = support::inspect(changed);
        ASSERT_STREQ(varnel_layout_name(read.layout), s.layout) << changed;
        int hit = VARNEL_FIELD_NONE; // the field that the changed character is in
        for (int f = 0; f < whole.field_count; ++f) {
          if (whole.fields[f].source.start <= i && i < whole.fields[f].source.end) {
            hit = whole.fields[f].field;
          }
        }
        for (int f = 0; f < whole.field_count; ++f) {
          const int field = whole.fields[f].field;
          const bool in_names = hit == VARNEL_FIELD_NONE || is_name(hit);
          if (field != hit && !(is_name(field) && in_names)) {
            EXPECT_STREQ(value_of(read, field), value_of(whole, field)) << varnel_field_name(field) << '\n'
                                                                        << changed;
          }
        }
      }
    }
  }
}

TEST(Comparison, RandomZones) {
  std::map<std::string, int> seen;
  for (unsigned seed = 0; seed < support::cases(8000u); ++seed) {
    dice d(seed);
    const std::string zone = random_zone(d);
    expect_the_same(zone);
    const varnel_inspection read = support::inspect(zone);
    ++seen[varnel_verdict_name(read.verdict)];
    ++seen[read.chip_access[0] == '\0' ? "chip access no" : "chip access yes"];
    for (int i = 0; i < read.field_count; ++i) {
      ++seen[std::string("status ") + varnel_status_name(read.fields[i].status)];
      ++seen[std::string("proof ") + varnel_proof_name(read.fields[i].proof)];
    }
    for (int i = 0; i < read.check_count; ++i) {
      const char *rule = varnel_rule_name(read.checks[i].rule);
      ++seen[std::string("rule ") + (rule != nullptr ? rule : "none")];
    }
    for (int i = 0; i < read.finding_count; ++i) {
      ++seen[varnel_finding_name(read.findings[i].code)];
    }
    for (int i = 0; i < read.notice_count; ++i) {
      ++seen[varnel_finding_name(read.notices[i].code)];
    }
  }
  if (support::one_case_in() > 1) {
    return; // what all of them reach, which are the same on every machine, a few need not
  }
  // Zones that reach nothing would prove nothing.
  for (const char *reached : {"valid",           "doubtful",       "chip access no",
                              "chip access yes", "status empty",   "status badCharacters",
                              "status notADate", "status unknown", "status checkFailed",
                              "status ok",       "proof digits",   "proof digit",
                              "proof composite", "proof list",     "proof none",
                              "rule none",       "rule plain",     "rule filler",
                              "empty",           "badCharacters",  "notADate",
                              "unknown",         "checkFailed",    "datesOrder",
                              "digitInCode",     "codeNotAllowed", "codeNotListed",
                              "nationalLetters", "sexX",           "fillerDigit"}) {
    EXPECT_GT(seen[reached], 5) << reached;
  }
}

TEST(Comparison, DamagedZones) {
  for (unsigned seed = 0; seed < support::cases(4000u); ++seed) {
    dice d(seed);
    expect_the_same(damaged(d, random_zone(d)));
  }
}

TEST(Comparison, DisguisedZones) {
  for (unsigned seed = 0; seed < support::cases(4000u); ++seed) {
    dice d(seed);
    expect_the_same(disguised(d, damaged(d, random_zone(d))));
  }
}

// A script: characters that keep nothing, and a few that a zone's may be read from.
struct script {
  std::vector<std::string> plain;
  std::vector<std::string> kept;
};

std::string run_of_a_script(dice &d) {
  static const std::vector<script> scripts = {
      {{"\xCE\xB1", "\xCE\xAF", "\xCF\x80", "\xCF\x8E", "\xCE\xA9", " "}, {"\xCE\x91", "\xCE\xA7"}},
      {{"\xD0\xB1", "\xD1\x8F", "\xD0\x91", " "}, {"\xD0\x90", "\xD1\x83"}},
      {{"\xD8\xA7", "\xD9\x84", "\xDB\x8C", "\xD7\xA9", "\xD5\xA1", " "}, {"7"}},
      {{"\xC3\xA4", "\xC5\x82", "\xC4\x99", "\xC2\xA7", ",", " "}, {"\xC2\xAB", "\xC2\xBB", "&lt;"}},
      {{"\xE6\x97\x85", "\xE3\x81\x8B", "\xE3\x80\x82"}, {"\xE3\x80\x88", "\xE3\x80\x8A", "\xEF\xBC\xA1"}},
      {{"\xE0\xA4\x95", "\xE1\x83\x90", "\xEA\xB0\x80", "\xF0\x9F\x98\x80"}, {"\xEF\xBC\x9C"}},
      {{"\xE2\x80\x99", "\xE2\x82\xAC", "\xE2\x96\x88", "\xEF\xBF\xBD"}, {"\xE2\x80\xB9", "\xE2\x89\xA4"}},
      {{"\xCE", "\xD0", "\xE2\x80", "\xC2", "\xE3\x80", "\x80", "\xFF", "-"},
       {"\xCE\xCE\x91", "\xC2\xC2\xAB"}}};
  const script &its = d.pick(scripts);
  std::string text;
  for (unsigned count = d.below(d.one_in(4) ? 300 : 40); count > 0; --count) {
    text += d.pick(d.one_in(40) ? its.kept : its.plain);
  }
  return text;
}

TEST(Comparison, ZonesAmongOtherScripts) {
  for (unsigned seed = 0; seed < support::cases(8000u); ++seed) {
    dice d(seed);
    std::string text;
    for (const char c : random_zone(d)) {
      text += c == '\n' || d.one_in(200) ? run_of_a_script(d) + c : std::string(1, c);
      text += c == '\n' && d.one_in(3) ? run_of_a_script(d) + "\n" : "";
    }
    expect_the_same(text);
  }
}

// Its last bytes are fewer than a word, or none.
TEST(Comparison, TextsOfAnyLength) {
  for (unsigned seed = 0; seed < support::cases(2000u); ++seed) {
    dice d(seed);
    const std::string zone = disguised(d, random_zone(d));
    const size_t begin = d.one_in(2) ? 0 : d.below(static_cast<unsigned>(zone.size()));
    expect_the_same(zone.substr(begin, 1 + d.below(static_cast<unsigned>(zone.size()))));
    expect_the_same(zone.substr(0, zone.size() - 1));
    expect_the_same(zone + std::string(d.below(40), ' '));
  }
}

TEST(Comparison, ZonesInOneRun) {
  for (unsigned seed = 0; seed < support::cases(4000u); ++seed) {
    dice d(seed);
    std::string zone = random_zone(d);
    zone.erase(std::remove(zone.begin(), zone.end(), '\n'), zone.end());
    expect_the_same(disguised(d, damaged(d, zone)));
  }
}

TEST(Comparison, AnyReferenceDate) {
  for (unsigned seed = 0; seed < support::cases(4000u); ++seed) {
    dice d(seed);
    const int year = static_cast<int>(d.one_in(4) ? 1 + d.below(9999) : 1990 + d.below(70));
    const int month = static_cast<int>(1 + d.below(12));
    const int day = static_cast<int>(1 + d.below(28));
    expect_the_same(random_zone(d), {year, month, day});
  }
}

std::string page(dice &d) {
  static const std::vector<std::string> lines = {"PASSPORT",
                                                 "Type / Code",
                                                 "Surname: ERIKSSON",
                                                 "",
                                                 "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<",
                                                 "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<",
                                                 "ERIKSSON<<ANNA<MARIA<<<<<<<<<<",
                                                 "A line of text that keeps forty-four characters here",
                                                 "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<"};
  std::string text;
  for (unsigned count = 1 + d.below(4); count > 0; --count) {
    while (d.one_in(2)) {
      text += d.pick(lines) + "\n";
    }
    text += d.one_in(3) ? damaged(d, random_zone(d)) : random_zone(d);
  }
  return text;
}

TEST(Comparison, Pages) {
  for (unsigned seed = 0; seed < support::cases(2000u); ++seed) {
    dice d(seed);
    expect_the_same(page(d));
  }
}

TEST(Comparison, AllZonesOfAPage) {
  std::vector<varnel_inspection> records(64);
  for (unsigned seed = 0; seed < support::cases(2000u); ++seed) {
    dice d(seed);
    const std::string text = d.one_in(2) ? page(d) : page(d) + page(d);
    const int found = varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), 64);
    const std::vector<std::string> expected = plain::inspect_all(text, PLAIN_TODAY);
    ASSERT_EQ(found, static_cast<int>(expected.size())) << text;
    for (size_t i = 0; i < expected.size(); ++i) {
      ASSERT_EQ(support::to_json(records[i]), expected[i]) << text;
    }
  }
}

// Lines that pair with each other in more than one way: many zones overlap.
TEST(Comparison, AllZonesOfLinesThatPairInManyWays) {
  std::vector<varnel_inspection> records(64);
  for (unsigned seed = 0; seed < support::cases(1200u); ++seed) {
    dice d(seed);
    std::string text;
    const size_t s = d.below(5);
    for (unsigned count = 2 + d.below(24); count > 0; --count) {
      const std::string zone = support::SPECIMENS[s].zone;
      const size_t width = zone.find('\n') + 1;
      const size_t line = d.below(static_cast<unsigned>(zone.size() / width));
      text += damaged(d, zone.substr(line * width, width));
    }
    const int found = varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), 64);
    const std::vector<std::string> expected = plain::inspect_all(text, PLAIN_TODAY);
    ASSERT_EQ(found, static_cast<int>(expected.size())) << text;
    for (size_t i = 0; i < expected.size(); ++i) {
      ASSERT_EQ(support::to_json(records[i]), expected[i]) << text;
    }
    expect_the_same(text);
  }
}

} // namespace
