// The interface: bad arguments, room for the JSON, clean-up of text, where a zone is found.
#include "../cases.hpp"
#include "plain_inspection.hpp"
#include "support.hpp"

#include <nlohmann/json.hpp>

#include <cstring>

namespace {

using json = nlohmann::ordered_json;
using support::inspect;
using support::inspected;
using support::TODAY;

static_assert(sizeof(varnel_inspection) <= 4096, "a record is small enough for any stack");

const std::string SPECIMEN = support::SPECIMENS[2].zone;

// ---- arguments --------------------------------------------------------------------------------------

TEST(Arguments, BadOnesAreRefusedAndNothingIsWritten) {
  const auto refused = [](const char *text, size_t size, const varnel_inspect_options *options) {
    varnel_inspection inspection;
    varnel_inspection untouched;
    std::memset(&inspection, 0xA5, sizeof inspection);
    std::memset(&untouched, 0xA5, sizeof untouched);
    const int code = varnel_inspect(text, size, options, &inspection);
    const int code_of_all = varnel_inspect_all(text, size, options, &inspection, 1);
    EXPECT_EQ(code, code_of_all);
    EXPECT_EQ(std::memcmp(&inspection, &untouched, sizeof inspection), 0);
    return code == ERR_INVALID_ARGS;
  };
  const char *text = SPECIMEN.c_str();
  const size_t size = SPECIMEN.size();
  EXPECT_TRUE(refused(nullptr, size, &TODAY));
  EXPECT_TRUE(refused(text, size, nullptr));
  const std::string large(VARNEL_TEXT_MAX + 1, ' ');
  EXPECT_TRUE(refused(large.data(), large.size(), &TODAY));
  EXPECT_TRUE(refused(large.data(), SIZE_MAX, &TODAY));
  for (const varnel_inspect_options &options :
       {varnel_inspect_options{2026, 2, 29, 0}, varnel_inspect_options{1900, 2, 29, 0},
        varnel_inspect_options{2026, 0, 1, 0}, varnel_inspect_options{2026, 13, 1, 0},
        varnel_inspect_options{2026, 1, 0, 0}, varnel_inspect_options{2026, 4, 31, 0},
        varnel_inspect_options{0, 1, 1, 0}, varnel_inspect_options{10000, 1, 1, 0},
        varnel_inspect_options{-2026, 1, 1, 0}, varnel_inspect_options{2026, 1, 1, -1},
        varnel_inspect_options{2026, 1, 1, VARNEL_REPAIR_DIGITS + 1}}) {
    EXPECT_TRUE(refused(text, size, &options))
        << options.year << options.month << options.day << options.repair;
  }
  varnel_inspection inspection;
  EXPECT_EQ(varnel_inspect(text, size, &TODAY, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_inspect_all(text, size, &TODAY, nullptr, 1), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_inspect_all(text, size, &TODAY, &inspection, 0), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_inspect_all(text, size, &TODAY, &inspection, -1), ERR_INVALID_ARGS);
}

TEST(Arguments, DatesThatExist) {
  for (const varnel_inspect_options &options :
       {varnel_inspect_options{2024, 2, 29, 0}, varnel_inspect_options{2000, 2, 29, 0},
        varnel_inspect_options{1, 1, 1, 0}, varnel_inspect_options{9999, 12, 31, 0}}) {
    varnel_inspection inspection;
    EXPECT_EQ(varnel_inspect(SPECIMEN.data(), SPECIMEN.size(), &options, &inspection), ERR_OK);
  }
  EXPECT_EQ(inspected("", {1, 2, 3, 0})["date"], "0001-02-03");
}

TEST(Arguments, TheAnswerSaysHowFarRepairMayGo) {
  const std::vector<std::pair<int, std::string>> rows = {
      {VARNEL_REPAIR_OFF, "off"}, {VARNEL_REPAIR_COLUMNS, "columns"}, {VARNEL_REPAIR_DIGITS, "digits"}};
  for (const auto &[repair, name] : rows) {
    EXPECT_EQ(inspected(SPECIMEN, {2026, 11, 21, repair})["repair"], name);
    EXPECT_EQ(inspected("no zone", {2026, 11, 21, repair})["repair"], name);
  }
}

TEST(Arguments, AnEmptyTextIsRefusedAsATextWithoutAZone) {
  varnel_inspection inspection;
  EXPECT_EQ(varnel_inspect(nullptr, 0, &TODAY, &inspection), ERR_OK);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_REFUSED);
  EXPECT_EQ(inspection.findings[0].code, VARNEL_FINDING_NO_ZONE);
}

TEST(Arguments, TheLargestText) {
  std::string text(VARNEL_TEXT_MAX - SPECIMEN.size(), '\n');
  text += SPECIMEN;
  const json read = inspected(text);
  EXPECT_EQ(read["verdict"], "valid");
  EXPECT_EQ(read["source"][1]["end"], VARNEL_TEXT_MAX - 1);
}

TEST(Json, RoomIsAsSnprintfHasIt) {
  const varnel_inspection inspection = inspect(SPECIMEN);
  const std::string whole = support::to_json(inspection);
  const int length = static_cast<int>(whole.size());
  EXPECT_EQ(varnel_inspection_json(&inspection, nullptr, 0), length);
  for (size_t room = 1; room <= whole.size() + 2; ++room) {
    std::string out(room + 1, '#');
    ASSERT_EQ(varnel_inspection_json(&inspection, out.data(), room), length);
    const size_t written = std::min(room - 1, whole.size());
    ASSERT_EQ(out.substr(0, written), whole.substr(0, written));
    ASSERT_EQ(out[written], '\0');
    ASSERT_EQ(out[room], '#') << "nothing is written beyond the room";
  }
  char out[4] = "###";
  EXPECT_EQ(varnel_inspection_json(&inspection, out, 0), length);
  EXPECT_STREQ(out, "###");
  EXPECT_EQ(varnel_inspection_json(nullptr, out, sizeof out), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_inspection_json(&inspection, nullptr, 1), ERR_INVALID_ARGS);
}

TEST(Json, NumbersOfEveryLength) {
  varnel_inspection inspection = inspect(SPECIMEN);
  inspection.source_count = 1;
  for (const uint32_t number : {0u, 7u, 10u, 42u, 100u, 105u, 999u, 1000u, 1999u, 10000u, 65536u, 123456u,
                                1000000u, 10203040u, 999999999u, 1000000000u, 4294967295u}) {
    inspection.source[0].end = number;
    const std::string written = R"("source":[{"start":0,"end":)" + std::to_string(number) + "}],";
    EXPECT_NE(support::to_json(inspection).find(written), std::string::npos) << number;
  }
}

TEST(Json, ChangesAndOtherVerdicts) {
  varnel_inspection inspection = inspect(SPECIMEN);
  inspection.verdict = VARNEL_VERDICT_REPAIRED;
  inspection.repair = VARNEL_REPAIR_DIGITS;
  inspection.changes[0] = {1, 9, VARNEL_CHANGE_CLASS, "O", "0"};
  inspection.changes[1] = {0, 43, VARNEL_CHANGE_FILLER, "«", ""};
  inspection.changes[2] = {0, 43, VARNEL_CHANGE_TWIN, "\"", "\\"};
  inspection.changes[3] = {1, 2, VARNEL_CHANGE_DIGIT, "", "I"};
  inspection.change_count = 4;
  json read = json::parse(support::to_json(inspection));
  EXPECT_EQ(read["verdict"], "repaired");
  EXPECT_EQ(read["repair"], "digits");
  EXPECT_EQ(read["changes"].dump(), R"([{"line":1,"column":9,"from":"O","to":"0","reason":"class"},)"
                                    R"({"line":0,"column":43,"from":"«","to":"","reason":"filler"},)"
                                    R"({"line":0,"column":43,"from":"\"","to":"\\","reason":"twin"},)"
                                    R"({"line":1,"column":2,"from":"","to":"I","reason":"digit"}])");
  inspection.verdict = VARNEL_VERDICT_VOTED;
  inspection.source_count = 0;
  inspection.repair = VARNEL_REPAIR_COLUMNS;
  read = json::parse(support::to_json(inspection));
  EXPECT_EQ(read["verdict"], "voted");
  EXPECT_EQ(read["repair"], "columns");
  EXPECT_EQ(read["source"].dump(), "[]");
}

TEST(Json, NamesWithQuotes) {
  std::string zone = SPECIMEN;
  zone.replace(2, 3, "XCT");
  EXPECT_EQ(inspected(zone)["fields"]["issuingState"]["name"], "\"Turkish Republic of Northern Cyprus\"");
}

// ---- names ------------------------------------------------------------------------------------------

template <class Function> std::vector<std::string> names(Function name_of, int first, int end) {
  std::vector<std::string> all;
  for (int i = first; i < end; ++i) {
    const char *name = name_of(i);
    all.push_back(name != nullptr ? name : "(none)");
  }
  return all;
}

TEST(Names, EveryNumber) {
  using list = std::vector<std::string>;
  EXPECT_EQ(
      names(varnel_field_name, -1, VARNEL_DOCUMENT_FIELD_END + 1),
      (list{"(none)", "(none)", "documentCode", "issuingState", "documentNumber", "nationality", "birthDate",
            "sex", "expiryDate", "primaryIdentifier", "secondaryIdentifier", "optionalData1", "optionalData2",
            "optionalData", "personalNumber", "officeCode", "composite", "(none)"}));
  EXPECT_EQ(names(varnel_finding_name, -1, VARNEL_NOTICE_DROPPED + 2),
            (list{"(none)",          "(none)",      "empty",       "badCharacters",  "notADate",
                  "unknown",         "checkFailed", "datesOrder",  "unproven",       "looksDiffer",
                  "length",          "noZone",      "digitInCode", "codeNotAllowed", "codeNotListed",
                  "nationalLetters", "sexX",        "fillerDigit", "dropped",        "(none)"}));
  EXPECT_EQ(names(varnel_layout_name, -1, 8),
            (list{"(none)", "(none)", "TD1", "TD2", "TD3", "MRV-A", "MRV-B", "FRA-ID", "(none)"}));
  EXPECT_EQ(names(varnel_kind_name, -1, 8),
            (list{"(none)", "(none)", "card", "card", "passport", "visa", "visa", "card", "(none)"}));
  EXPECT_EQ(names(varnel_verdict_name, -1, 6),
            (list{"(none)", "refused", "doubtful", "valid", "repaired", "voted", "(none)"}));
  EXPECT_EQ(names(varnel_status_name, -1, 7),
            (list{"(none)", "empty", "badCharacters", "notADate", "unknown", "checkFailed", "ok", "(none)"}));
  EXPECT_EQ(names(varnel_proof_name, -1, 6),
            (list{"(none)", "none", "list", "composite", "digit", "digits", "(none)"}));
  EXPECT_EQ(names(varnel_repair_name, -1, 4), (list{"(none)", "off", "columns", "digits", "(none)"}));
  EXPECT_EQ(names(varnel_change_name, -1, 6),
            (list{"(none)", "(none)", "class", "filler", "digit", "twin", "(none)"}));
  EXPECT_EQ(names(varnel_rule_name, -1, 4), (list{"(none)", "(none)", "plain", "filler", "(none)"}));
  std::string shapes;
  for (int layout = -1; layout <= VARNEL_LAYOUT_FRA_ID + 1; ++layout) {
    shapes +=
        std::to_string(varnel_layout_lines(layout)) + "x" + std::to_string(varnel_layout_width(layout)) + " ";
  }
  EXPECT_EQ(shapes, "0x0 0x0 3x30 2x36 2x44 2x44 2x36 2x36 0x0 ");
  EXPECT_EQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD3, nullptr), nullptr);
  EXPECT_EQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD3, ""), nullptr);
  const std::vector<char> exact = {'P', '\0'}; // nothing is read beyond it
  EXPECT_EQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD3, exact.data()), nullptr);
  EXPECT_EQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD3, "PPP"), nullptr);
  EXPECT_STREQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD3, "PD"), "diplomatic passport");
  EXPECT_STREQ(varnel_document_code_meaning(VARNEL_LAYOUT_TD1, "AC"), "crew member certificate");
  EXPECT_EQ(varnel_document_code_meaning(VARNEL_LAYOUT_MRV_A, "PP"), nullptr);
}

// ---- clean-up ---------------------------------------------------------------------------------------

// What a character is read as within a zone: every code point of Unicode, at the place of the first filler
// in a passport's name.
TEST(CleanUp, EveryCodePoint) {
  const std::string before = SPECIMEN.substr(0, 13);
  support::every_nth turn;
  for (long c = 1; c <= 0x10FFFF; c += c < 0x3200 || (c >= 0xF000 && c < 0x10000) ? 1 : 97) {
    // Nothing where nearly every look-alike is, nor around the full-width letters.
    const bool may_be_left_out = c >= 0x500 && (c < 0xFF00 || c > 0xFF60);
    if ((c >= 0xD800 && c <= 0xDFFF) || (may_be_left_out && !turn.is_next())) {
      continue;
    }
    std::string utf8;
    if (c < 0x80) {
      utf8 = {static_cast<char>(c)};
    } else if (c < 0x800) {
      utf8 = {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 0x3F))};
    } else if (c < 0x10000) {
      utf8 = {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 0x3F)),
              static_cast<char>(0x80 | (c & 0x3F))};
    } else {
      utf8 = {static_cast<char>(0xF0 | c >> 18), static_cast<char>(0x80 | (c >> 12 & 0x3F)),
              static_cast<char>(0x80 | (c >> 6 & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
    }
    const std::string read = plain::ends_line(c) ? "" : plain::read_as(c);
    // One kept character takes the place of one filler, two that of two.
    const std::string text = before + utf8 + SPECIMEN.substr(13 + read.size());
    if (!plain::ends_line(c)) {
      const varnel_inspection inspection = inspect(text);
      ASSERT_EQ(inspection.zone[0], before + read + SPECIMEN.substr(13 + read.size(), 31 - read.size()))
          << std::hex << c;
      ASSERT_EQ(inspection.notice_count > 0 &&
                    inspection.notices[inspection.notice_count - 1].code == VARNEL_NOTICE_DROPPED,
                read.empty() && !plain::is_white(c) && c != 0xFEFF)
          << std::hex << c;
    }
  }
}

TEST(CleanUp, LineEnds) {
  for (const char *end : {"\n", "\r", "\r\n", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9",
                          "\n\r\n\n", "\n ** \n", "\n \t \n"}) {
    std::string text = SPECIMEN;
    text.replace(44, 1, end);
    const json read = inspected(text);
    EXPECT_EQ(read["verdict"], "valid") << end;
    EXPECT_EQ(read["notices"].size(), 0u) << end;
    EXPECT_EQ(read["source"][1]["start"], 44 + std::strlen(end)) << end;
  }
}

// Unicode's property White_Space but for line ends: nothing of it is kept, and no notice is given.
TEST(CleanUp, WhiteSpaceWithinALine) {
  for (const char *space :
       {"\t", " ", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
        "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"}) {
    const json read = inspected(SPECIMEN.substr(0, 50) + space + SPECIMEN.substr(50));
    EXPECT_EQ(read["verdict"], "valid") << space;
    EXPECT_EQ(read["notices"].size(), 0u) << space;
    EXPECT_EQ(read["source"][1]["end"], 89 + std::strlen(space)) << space;
  }
  for (const char *dropped :
       {"\u167F", "\u1681", "\u1FFF", "\u200B", "\u202E", "\u2030", "\u205E", "\u2060"}) {
    const json read = inspected(SPECIMEN.substr(0, 50) + dropped + SPECIMEN.substr(50));
    EXPECT_EQ(read["notices"][0]["code"], "dropped") << dropped;
  }
}

TEST(CleanUp, DroppedCharactersOfALineAreOneNotice) {
  const auto dropped_lines = [](const std::string &text) {
    std::vector<int> lines;
    const varnel_inspection inspection = inspect(text);
    for (int i = 0; i < inspection.notice_count; ++i) {
      EXPECT_EQ(inspection.notices[i].code, VARNEL_NOTICE_DROPPED);
      EXPECT_EQ(inspection.notices[i].field, VARNEL_FIELD_NONE);
      EXPECT_EQ(inspection.notices[i].column, -1);
      lines.push_back(inspection.notices[i].line);
    }
    return lines;
  };
  using lines = std::vector<int>;
  EXPECT_EQ(dropped_lines(SPECIMEN), lines());
  EXPECT_EQ(dropped_lines("**" + SPECIMEN), lines()); // before the first kept character
  EXPECT_EQ(dropped_lines(SPECIMEN.substr(0, 44) + "**" + SPECIMEN.substr(44)), lines()); // after the last
  EXPECT_EQ(dropped_lines(SPECIMEN.substr(0, 1) + "*" + SPECIMEN.substr(1)), lines{0});
  EXPECT_EQ(dropped_lines(SPECIMEN.substr(0, 1) + "*" + SPECIMEN.substr(1, 60) + "*.*" + SPECIMEN.substr(61)),
            (lines{0, 1}));
  // In a zone of one run the lines are those of the zone.
  const std::string run = SPECIMEN.substr(0, 44) + SPECIMEN.substr(45, 44);
  EXPECT_EQ(dropped_lines(run.substr(0, 44) + "*" + run.substr(44)), lines());
  EXPECT_EQ(dropped_lines(run.substr(0, 45) + "*" + run.substr(45)), lines{1});
  EXPECT_EQ(dropped_lines(SPECIMEN.substr(0, 10) + "\xEF\xBB\xBF" + SPECIMEN.substr(10)), lines());
  EXPECT_EQ(dropped_lines(SPECIMEN.substr(0, 10) + "\x80" + SPECIMEN.substr(10)), lines{0});
}

// A byte above ASCII before one that begins a character: neither adds anything to its line.
TEST(CleanUp, BytesThatAreNoCharacter) {
  for (int first = 0x80; first <= 0xFF; ++first) {
    std::string text;
    for (size_t i = 0; i < SPECIMEN.size(); ++i) {
      const int second = 0xC0 + static_cast<int>(i % 64);
      text += SPECIMEN[i];
      text += {static_cast<char>(first), static_cast<char>(second)};
    }
    const varnel_inspection inspection = inspect(text);
    EXPECT_EQ(support::zone_of(inspection), SPECIMEN) << first;
    EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VALID) << first;
  }
}

// A text is as long as its size says, though what follows in memory would be read as one more character, by
// itself or with the text's last bytes.
TEST(CleanUp, WhatFollowsTheTextIsNotRead) {
  const struct {
    const char *end;
    const char *following;
  } rows[] = {
      {"", "A"},    {"", "\u0410"},   {"\xCE", "\x91"},     {"\xD0", "\x90"},     {"\xD1", "\x81"},
      {"&", "lt;"}, {"\xC2", "\xAB"}, {"\xE2\x80", "\xB9"}, {"\xE2", "\x80\xB9"},
  };
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string zone = s.zone;
    const size_t last_line = zone.rfind('\n', zone.size() - 2) + 1;
    for (const auto &row : rows) {
      for (const char *begin : {"", "\u00E9", "\u0416", "\u3042"}) { // each is passed over in another way
        for (size_t spaces = 0; spaces < 32; ++spaces) {
          std::string text = zone.substr(0, zone.size() - 1) + row.end;
          text.insert(last_line, begin + std::string(spaces, ' '));
          const std::string memory = text + row.following + std::string(32, 'A');
          const varnel_inspection inspection = inspect(std::string_view(memory.data(), text.size()));
          EXPECT_EQ(support::zone_of(inspection), zone) << memory;
        }
      }
    }
  }
}

// Two fillers made of one sign share its bytes.
TEST(CleanUp, SourcesOfSharedBytes) {
  std::string text = SPECIMEN;
  text.replace(13, 2, "\xC2\xAB"); // the "<<" after the primary identifier
  const json fields = inspected(text)["fields"];
  EXPECT_EQ(fields["primaryIdentifier"]["source"], json({{"start", 5}, {"end", 13}}));
  EXPECT_EQ(fields["secondaryIdentifier"]["source"]["start"], 15);
  text = SPECIMEN;
  text.replace(24, 2, "\xE3\x80\x8A");
  EXPECT_EQ(inspected(text)["fields"]["secondaryIdentifier"]["source"], json({{"start", 15}, {"end", 45}}));
}

// ---- where a zone is found --------------------------------------------------------------------------

TEST(Search, OfEqualZonesTheLastOnThePageWins) {
  const json read = inspected(SPECIMEN + "page 2\n" + SPECIMEN);
  EXPECT_EQ(read["source"][0]["start"], SPECIMEN.size() + 7);
}

TEST(Search, TheBetterZoneWinsWhereverItStands) {
  std::string damaged = SPECIMEN;
  damaged[45 + 9] = '5';
  EXPECT_EQ(inspected(SPECIMEN + damaged)["source"][0]["start"], 0);
  EXPECT_EQ(inspected(damaged + SPECIMEN)["source"][0]["start"], SPECIMEN.size());
  // All of a visa's three digits are a greater share than four of a passport's five.
  const std::string visa = support::SPECIMENS[4].zone;
  EXPECT_EQ(inspected(visa + damaged)["layout"], "MRV-B");
  // Shares equal, the greater number wins; then the fewer findings.
  EXPECT_EQ(inspected(SPECIMEN + visa)["layout"], "TD3");
  std::string unknown_state = SPECIMEN;
  unknown_state.replace(2, 3, "ZZZ");
  EXPECT_EQ(inspected(SPECIMEN + unknown_state)["source"][0]["start"], 0);
}

// What it takes to be a zone: a date that is right, two digits that hold, or the first letter, a listed
// state and a filler in the names.
TEST(Search, WhatCountsAsAZone) {
  const auto verdict = [](const std::string &first, const std::string &second) {
    return inspected(first + "\n" + second + "\n")["verdict"];
  };
  const std::string names = "ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<";
  const std::string full = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLM";
  const std::string nothing(44, 'A');                       // no letter holds as a digit
  EXPECT_EQ(verdict("P<UTO" + names, nothing), "doubtful"); // letter, state, filler
  EXPECT_EQ(verdict("Q<UTO" + names, nothing), "refused");  // another letter
  EXPECT_EQ(verdict("P<ZZZ" + names, nothing), "refused");  // a state that is not listed
  EXPECT_EQ(verdict("P<XXK" + names, nothing), "refused");  // permitted, yet not listed
  EXPECT_EQ(verdict("P<UTO" + full, nothing), "refused");   // no filler
  std::string birth = nothing;
  EXPECT_EQ(verdict("Q<ZZZ" + names, birth.replace(13, 7, "7408122")), "doubtful"); // a date that is right
  EXPECT_EQ(verdict("Q<ZZZ" + names, birth.replace(13, 7, "7402304")), "refused");  // one digit
  std::string two = birth;
  EXPECT_EQ(verdict("Q<ZZZ" + names, two.replace(0, 10, "L898902C36")), "doubtful"); // two digits
  std::string empty = birth;
  EXPECT_EQ(verdict("Q<ZZZ" + names, empty.replace(0, 10, "<<<<<<<<<0")),
            "refused"); // one of them of nothing
}

TEST(Search, RefusalsForALength) {
  const auto nearest = [](const std::string &text) { return inspected(text)["nearest"].dump(); };
  const auto line = [](size_t width, const std::string &begin = "QQQQQ<") {
    std::string text = begin;
    text.resize(width, 'Q');
    return text + "\n";
  };
  const auto expected = [](const char *layout, int width, const std::vector<int> &found) {
    json lines = json::array();
    for (const int f : found) {
      lines.push_back({{"expected", width}, {"found", f}});
    }
    return json({{"layout", layout}, {"lines", lines}}).dump();
  };
  EXPECT_EQ(nearest(line(44) + line(43)), expected("TD3", 44, {44, 43}));
  EXPECT_EQ(nearest(line(44) + line(44)), expected("TD3", 44, {44, 44})); // exact widths, and no zone
  EXPECT_EQ(nearest(line(48) + line(40)), expected("TD3", 44, {48, 40}));
  EXPECT_EQ(nearest(line(49) + line(44)), "null");
  EXPECT_EQ(nearest(line(44) + line(39)), "null");
  EXPECT_EQ(nearest(line(44, "V<UTO") + line(43)), expected("MRV-A", 44, {44, 43}));
  EXPECT_EQ(nearest(line(36, "V<UTO") + line(35)), expected("MRV-B", 36, {36, 35}));
  EXPECT_EQ(nearest(line(36, "IDFRA<") + line(35)), expected("FRA-ID", 36, {36, 35}));
  EXPECT_EQ(nearest(line(36) + line(35)), expected("TD2", 36, {36, 35}));
  EXPECT_EQ(nearest(line(30) + line(29) + line(31)), expected("TD1", 30, {30, 29, 31}));
  EXPECT_EQ(nearest(line(30) + line(29)), "null");
  EXPECT_EQ(nearest(line(26) + line(34) + line(30)), expected("TD1", 30, {26, 34, 30}));
  EXPECT_EQ(nearest(line(30) + line(30) + line(26)), expected("TD1", 30, {30, 30, 26}));
  EXPECT_EQ(nearest(line(25) + line(30) + line(30)), "null");
  EXPECT_EQ(nearest(line(30) + line(30) + line(25)), "null");
  // A filler among the lines.
  EXPECT_EQ(nearest(line(44, "Q") + line(43, "Q")), "null");
  EXPECT_EQ(nearest("<<<<<\n" + line(44, "Q") + line(43, "Q")), "null");
  EXPECT_EQ(nearest(line(44, "Q") + line(43, "<")), expected("TD3", 44, {44, 43}));
  // The least sum; of equal ones the last on the page; then the wider.
  EXPECT_EQ(nearest(line(44) + line(43) + "x\n" + line(36) + line(33)), expected("TD3", 44, {44, 43}));
  EXPECT_EQ(nearest(line(44) + line(43) + "x\n" + line(36) + line(35)), expected("TD2", 36, {36, 35}));
  EXPECT_EQ(nearest(line(40) + line(40)), expected("TD3", 44, {40, 40}));
  EXPECT_EQ(nearest(line(44) + "\n\n" + line(43)), expected("TD3", 44, {44, 43}));
  EXPECT_EQ(nearest(line(44) + "noise\n" + line(43)), "null");
}

// Lines of letters that are nearly a zone where one of them has a filler, or what stands for one or two.
TEST(Search, AFillerOfAnyKindTellsANearMiss) {
  const auto code_of = [](const std::string &in_first_line) {
    const std::string text = std::string(40, 'Q') + in_first_line + "\n" + std::string(42, 'Q') + "\n";
    return inspected(text)["findings"][0]["code"].get<std::string>();
  };
  for (const char *filler :
       {"<", "&lt;", "\uFF1C", "\u2039", "\u203A", "\u2264", "\u3008", "\u27E8", "\u2329", "\u00AB", "\u00BB",
        "\u300A", "\u00E9\u0416\u3042<", "\xE3\x80<", "\xC2&lt;"}) {
    EXPECT_EQ(code_of(filler), "length") << filler;
  }
  for (const char *other :
       {"", ">", "&gt;", "&lt", "\uFF1D", "\u2038", "\u2265", "\u3007", "\u27E9", "\u00AA", "\u300B",
        "\uFF2C", "\u0416\u041C", "\xE3\x80", "\xEF\xBC", "\x9C\xBC\xEF", "\xC2"}) {
    EXPECT_EQ(code_of(other), "noZone") << other;
  }
  const std::string letters = std::string(44, 'Q') + "\n" + std::string(40, 'Q');
  EXPECT_EQ(inspected(letters + "<Q")["findings"][0]["code"], "length"); // in the last line
  // After the text there is none, though it goes on in memory.
  for (const auto &[end, following] :
       {std::pair("", "<"), std::pair("&lt", ";"), std::pair("\xC2", "\xAB")}) {
    const std::string text = letters + end;
    const std::string memory = text + following;
    EXPECT_EQ(inspected(std::string_view(memory.data(), text.size()))["findings"][0]["code"], "noZone")
        << end;
  }
}

// ---- all zones --------------------------------------------------------------------------------------

TEST(All, InTheOrderOfThePageUpToTheRoom) {
  const std::string card = support::SPECIMENS[0].zone;
  const std::string text = SPECIMEN + card + "text\n" + SPECIMEN;
  for (int room = 1; room <= 5; ++room) {
    std::vector<varnel_inspection> records(static_cast<size_t>(room)); // nothing is written beyond them
    ASSERT_EQ(varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), room), std::min(room, 3));
    const std::vector<size_t> starts = {0, SPECIMEN.size(), SPECIMEN.size() + card.size() + 5};
    for (size_t i = 0; i < static_cast<size_t>(std::min(room, 3)); ++i) {
      EXPECT_EQ(records[i].source[0].start, starts[i]);
      EXPECT_EQ(records[i].verdict, VARNEL_VERDICT_VALID);
    }
  }
}

TEST(All, ZonesWithoutLineBreaks) {
  std::string run = SPECIMEN;
  run.erase(44, 1);
  const std::string text = run + run + "text\n" + run;
  std::vector<varnel_inspection> records(5);
  ASSERT_EQ(varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), 5), 3);
  EXPECT_EQ(records[0].source[0].start, 0u);
  EXPECT_EQ(records[1].source[0].start, run.size());
  EXPECT_EQ(records[2].source[0].start, 2 * run.size() + 5);
}

TEST(All, ATextWithoutAZoneIsARefusal) {
  varnel_inspection record;
  const std::string text = "Q<ZZZ\n";
  EXPECT_EQ(varnel_inspect_all(text.data(), text.size(), &TODAY, &record, 1), 0);
  EXPECT_EQ(support::to_json(record), support::inspect_to_json(text));
}

// The most zones that a text can hold, and lines of which each pairs with the next.
TEST(All, AFullText) {
  std::vector<varnel_inspection> records(1000);
  std::string text;
  const std::string card = support::SPECIMENS[0].zone;
  while (text.size() + card.size() <= VARNEL_TEXT_MAX) {
    text += card;
  }
  EXPECT_EQ(varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), 1000),
            static_cast<int>(text.size() / card.size()));
  for (const size_t width : {size_t{30}, size_t{36}, size_t{44}}) {
    const std::string line = std::string("I<UTO").append(width - 5, '<') + "\n";
    text.clear();
    while (text.size() + line.size() <= VARNEL_TEXT_MAX) {
      text += width == 44 ? "P" + line.substr(1) : line;
    }
    const int lines = static_cast<int>(text.size() / line.size());
    EXPECT_EQ(varnel_inspect_all(text.data(), text.size(), &TODAY, records.data(), 1000),
              lines / (width == 30 ? 3 : 2));
  }
}

} // namespace
