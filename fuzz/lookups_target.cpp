// Calendar dates, Soundex, the character classes and the element tables: a sequence of questions decoded
// from the input, each answered by the library and by the plain reading.
#include "harness.hpp"

#include <predicates.hpp>
#include <reference.hpp>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;

fuzz::behaviour year_first("a date is read year first");
fuzz::behaviour month_first("a date is read month first");
fuzz::behaviour date_refused("a text of eight characters is no date");
fuzz::behaviour date_valid("a date is valid");
fuzz::behaviour date_invalid("a date is not valid");
fuzz::behaviour day_clamped("a day is clamped to its month");
fuzz::behaviour leap_day("the last day of a February has the number 29");
fuzz::behaviour day_zero("a day count of 0 gives the eve of the year 1000");
fuzz::behaviour month_thirteen("a day count falls into month 13");
fuzz::behaviour beyond_calendar("a day count lies beyond the years of four digits");
fuzz::behaviour encoded("a name of three digits is encoded");
fuzz::behaviour encoded_short("a short name is filled up with zeros");
fuzz::behaviour not_encoded("a name is refused after its first letter");
fuzz::behaviour element_found("an element is found");
fuzz::behaviour element_found_again("an element is found a second time, in another slot");
fuzz::behaviour element_missing("an element is in no row");

constexpr DATETIME UNTOUCHED = {-1, -2, -3, -4, -5, -6};

// ---- dates ----

void parse_date(fuzz::input &in) {
  const memory text(in.text(12));
  STRING view = {text.data(), text.size()};
  if (in.number(0, 31) == 0) {
    view.str = nullptr;
  }
  DATETIME ours = UNTOUCHED;
  DATETIME expected = UNTOUCHED;
  const int code = utils_parse_date(&view, &ours);
  equal("utils_parse_date", code, reference::utils_parse_date(&view, &expected));
  equal("the date read", ours, expected);
  equal("no text", utils_parse_date(nullptr, &ours), -1);
  holds(code != 0 || utils_validate_date(&ours) == 0, "a date that was read is valid");
  const bool is_year_first = code == 0 && text.text().substr(4, 2) == text.text().substr(0, 2)
                                 ? false
                                 : code == 0 && ours.year / 1000 == text.data()[0] - '0';
  year_first.seen(is_year_first);
  month_first.seen(code == 0 && !is_year_first);
  date_refused.seen(code == -1 && view.str != nullptr && view.len >= 8);
}

void validate_date(fuzz::input &in) {
  DATETIME date = {in.number(990, 2100), in.number(0, 13),  in.number(0, 32),
                   in.number(-1, 24),    in.number(-1, 60), in.number(-1, 60)};
  int *const members[] = {&date.year, &date.month, &date.day, &date.hr, &date.min, &date.sec};
  if (in.flag()) {
    *members[in.number(0, 5)] = in.any_int();
  }
  const int code = fuzz::same(FUZZ_BOTH(utils_validate_date), &date);
  date_valid.seen(code == 0);
  date_invalid.seen(code == -1);
}

void clamp_day(fuzz::input &in) {
  const int year = in.flag() ? in.number(1890, 2110) : in.any_int();
  const int month = in.number(0, 15) == 0 ? in.any_int() : in.number(0, 13);
  const int day = in.number(0, 3) == 0 ? in.any_int() : in.number(0, 40);
  const int clamped = fuzz::same(FUZZ_BOTH(utils_validate_days_in_month), year, month, day);
  holds(month < 1 || month > 12 || (clamped >= 1 && clamped <= 31), "a clamped day is a day of a month");
  day_clamped.seen(clamped < day);
  leap_day.seen(month == 2 && clamped == 29);
}

uint64_t any_day_count(fuzz::input &in) {
  if (in.flag()) {
    const uint64_t hundreds = static_cast<uint64_t>(in.number(0, 32767));
    return hundreds * 100 + in.byte();
  }
#ifdef VARNEL_CORE_ROUNDS_TWICE
  return in.any_uint64() >> 9;
#else
  return in.any_uint64();
#endif
}

void count_days(fuzz::input &in) {
  const uint64_t days = any_day_count(in);
  DATETIME ours = UNTOUCHED;
  DATETIME expected = UNTOUCHED;
  equal("utils_days2date", utils_days2date(days, &ours), reference::utils_days2date(days, &expected));
  equal("the date counted", ours, expected);
  equal("no date", utils_days2date(days, nullptr), ERR_INVALID_ARGS);
  // Up to three million days the answer is a day of the calendar, or the first day of a leap year that
  // comes out as month 13 of the year before: those years leave 104 to 132 or 304 to 332 modulo 400.
  const int late = (ours.year + 1) % 400;
  const bool thirteen = ours.month == 13 && ours.day == 1 && late % 4 == 0;
  holds(days == 0 || days > 3000000 || utils_validate_date(&ours) == 0 ||
            (thirteen && late >= 104 && late <= 332),
        "a day count gives a day of the calendar or a known month 13");
  day_zero.seen(days == 0 && ours.year == 999);
  month_thirteen.seen(ours.month == 13);
  beyond_calendar.seen(days > 3300000);
}

// ---- Soundex ----

SOUNDEX_CODE *as_code(memory &block) { return reinterpret_cast<SOUNDEX_CODE *>(block.data()); }

// The code's four characters, and the library's answer.
template <class Library, class Plain, class Name>
std::pair<int, std::string> encode(const char *what, Library library, Plain plain, Name name) {
  memory ours(sizeof(SOUNDEX_CODE));
  memory expected(sizeof(SOUNDEX_CODE));
  const int code = library(name, as_code(ours));
  equal(what, code, plain(name, as_code(expected)));
  equal("the Soundex code", std::string(ours.text()), std::string(expected.text()));
  holds(ours.intact(), "nothing is written outside the Soundex code");
  equal("no name", library(nullptr, as_code(ours)), ERR_INVALID_ARGS);
  equal("no code", library(name, nullptr), ERR_INVALID_ARGS);
  return {code, std::string(expected.text())};
}

void soundex(fuzz::input &in) {
  const memory text(in.text(24));
  STRING view = {text.data(), text.size()};
  if (in.number(0, 31) == 0) {
    view.str = nullptr;
  }
  const STRING *name = &view;
  const auto [code, digits] = encode(FUZZ_BOTH(utils_soundex_encode), name);
  encoded.seen(code == ERR_OK && digits[3] != '0');
  encoded_short.seen(code == ERR_OK && digits[3] == '0');
  not_encoded.seen(code != ERR_OK && digits[1] != static_cast<char>(memory::JUNK) && digits[1] != '0');
  const memory terminated(std::string(text.text()) + '\0');
  encode(FUZZ_BOTH(utils_soundex_encode_str), terminated.data());
}

// ---- character classes ----

// Also of values that are no characters: they belong to no class.
void classify(fuzz::input &in) {
  const int c = in.flag() ? in.number(-128, 127) : in.any_int();
  for (const reference::predicate &tested : reference::PREDICATES) {
    const int answer = tested.library(c);
    equal(tested.name, answer, tested.plain(c));
    holds(answer == 0 || answer == 1, "a character class answers 0 or 1");
  }
}

// ---- element tables ----

struct table {
  const char *name;
  const MAPPING *rows;
  int size;
};

const table TABLES[] = {
    {"MAP_AAMVA_2D01", MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE},
    {"MAP_AAMVA_2D03", MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE},
    {"MAP_AAMVA_2D04_HAWAII", MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE},
    {"MAP_AAMVA_2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE},
    {"MAP_AAMVA_2D08", MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE},
};

// Three characters packed as an element's key.
int any_key(fuzz::input &in) {
  const std::string id = in.text(3) + "???";
  int key = 0;
  for (size_t i = 0; i < 3; ++i) {
    key = key << 8 | static_cast<unsigned char>(id[i]);
  }
  return key;
}

void look_up(fuzz::input &in) {
  const table &searched = TABLES[in.number(0, std::size(TABLES) - 1)];
  const int key = in.flag() ? any_key(in) : searched.rows[in.number(0, searched.size - 1)].key;
  const int start = in.number(0, 3) == 0 ? in.number(0, 100) : 0;
  // A table of exactly the size that is given, so that a row too many is seen to be read.
  const int size = in.number(0, 7) == 0 ? in.number(0, searched.size) : searched.size;
  const std::unique_ptr<MAPPING[]> rows(new MAPPING[static_cast<size_t>(size)]);
  std::copy(searched.rows, searched.rows + size, rows.get());

  int ours = start;
  int expected = start;
  const int slot = utils_barcode2fieldtype(key, rows.get(), size, &ours);
  equal(searched.name, slot, reference::utils_barcode2fieldtype(key, rows.get(), size, &expected));
  equal("the row", ours, expected);
  fuzz::same(FUZZ_BOTH(utils_barcode2fieldtype), key, rows.get(), size, nullptr);
  holds(slot >= -1 && slot < FIELD_COUNT, "a slot or none");
  holds(slot == -1 || rows[static_cast<size_t>(ours)].key == key, "the row is the element's");
  element_found.seen(slot > 0);
  element_missing.seen(slot == -1);
  if (slot != -1) {
    int next = ours + 1;
    int plain_next = next;
    const int second = utils_barcode2fieldtype(key, rows.get(), size, &next);
    equal("a second row", second, reference::utils_barcode2fieldtype(key, rows.get(), size, &plain_next));
    equal("the second row's number", next, plain_next);
    element_found_again.seen(second > 0 && second != slot);
  }
}

struct question {
  const char *name;
  void (*ask)(fuzz::input &);
};

constexpr question QUESTIONS[] = {
    {"utils_parse_date", parse_date},
    {"utils_validate_date", validate_date},
    {"utils_validate_days_in_month", clamp_day},
    {"utils_days2date", count_days},
    {"Soundex", soundex},
    {"character classes", classify},
    {"utils_barcode2fieldtype", look_up},
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::input in(data, size);
  while (!in.empty()) {
    const question &asked = QUESTIONS[in.number(0, std::size(QUESTIONS) - 1)];
    try {
      asked.ask(in);
    } catch (const fuzz::difference &found) {
      throw fuzz::difference(std::string(asked.name) + ": " + found.what());
    }
  }
  return 0;
}
