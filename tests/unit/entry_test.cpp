#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Varnel/Varnel.hpp>

#include "mrz/zone_fields.hpp"
#include "reference.hpp"
#include "support.hpp"
#include "vectors.hpp"
#include "zone_support.hpp"

namespace {

using namespace std::string_view_literals;
using namespace zone_support;

// One parse through the entry, the text in memory of exactly its size.
struct reading {
  support::Lent buffer{VARNEL_BUFFER_SIZE};
  PARSE_RESULT record = {};
  int status = 0;

  explicit reading(std::string_view text) {
    const support::Exact exact(text);
    const int length = varnel_utf16_length(exact.data(), text.size());
    status = varnel_parse_mrz(exact.data(), length, &record, buffer.data(), buffer.size());
    EXPECT_TRUE(buffer.guards_intact());
  }
  std::string image() const { return buffer.shown().substr(0, static_cast<std::size_t>(record.data_size)); }
};

// Keys and values as the vectors have them: one line of JSON. No value holds what JSON would escape.
template <class Pairs> std::string json_of(const Pairs &pairs) {
  std::string line = "{";
  for (const auto &[key, value] : pairs)
    line.append(line == "{" ? "\"" : ",\"").append(key).append("\":\"").append(value).append("\"");
  return line + "}\n";
}

std::string answer(const VARNEL_PAIR (&pairs)[VARNEL_VALUE_COUNT]) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const VARNEL_PAIR &pair : pairs)
    texts.emplace_back(pair.key, support::text(pair.value));
  return json_of(texts);
}

std::string answer(const PARSE_RESULT &record) {
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  EXPECT_EQ(varnel_export(&record, pairs), ERR_OK);
  return answer(pairs);
}

std::string filled_slots(const PARSE_RESULT &record) {
  std::vector<std::pair<std::string, std::string>> slots;
#define VARNEL_SLOT_TEXT(number, constant, meaning)                                                          \
  if (utils_is_valid_field(&record, constant) == ERR_OK) {                                                   \
    slots.emplace_back(#constant, support::text(record.fields[constant].value));                             \
  }
  VARNEL_FIELDS(VARNEL_SLOT_TEXT)
#undef VARNEL_SLOT_TEXT
  return json_of(slots);
}

// ---- the vectors ----

TEST(Vectors, CoverAllLayouts) {
  std::map<std::string, int> count;
  for (const vectors::vector &vector : vectors::load()) {
    count[vector.name.substr(0, vector.name.find('/'))] += 1;
  }
  for (const char *folder : {"td1", "td2", "td3", "mrv-a", "mrv-b"}) {
    EXPECT_GE(count[folder], 5) << folder;
  }
  EXPECT_GE(count["refused"], 40);
}

// Step by step, by the one call, and from C++.
TEST(Vectors, AreReadAsTheySay) {
  for (const vectors::vector &vector : vectors::load()) {
    SCOPED_TRACE(vector.name);
    const reading read(vector.text);
    EXPECT_EQ(read.status == ERR_OK ? answer(read.record) : "null\n", vector.answer);
    if (vector.slots) {
      EXPECT_EQ(filled_slots(read.record), *vector.slots);
    }
    const support::Exact text(vector.text);
    varnel_document document;
    std::memset(&document, 0x5A, sizeof document);
    EXPECT_EQ(varnel_read(text.data(), vector.text.size(), &document), read.status);
    if (read.status == ERR_OK) {
      EXPECT_EQ(answer(document.values), vector.answer);
      EXPECT_EQ(std::string(document.text, sizeof document.text), read.buffer.bytes());
    }
    const auto in_cpp = varnel::parse_mrz({text.data(), vector.text.size()});
    EXPECT_EQ(in_cpp ? json_of(*in_cpp) : "null\n", vector.answer);
  }
}

// What the entry accepts holds values of the accepting layout only: for that text no other wrote anything.
TEST(Vectors, AreReadAsByTheAcceptingLayoutAlone) {
  int accepted = 0;
  for (const vectors::vector &vector : vectors::load()) {
    SCOPED_TRACE(vector.name);
    const reading read(vector.text);
    if (read.status != ERR_OK) {
      continue;
    }
    char zone[VARNEL_EXAMINED_MAX + 1];
    int length = 0;
    const int units = varnel_utf16_length(vector.text.data(), vector.text.size());
    ASSERT_EQ(normalize_mrz(vector.text.data(), units, zone, sizeof zone, &length), ERR_OK);
    int parsers = 0;
    for (const parser parse_layout : {MRZ_td1_parse, MRZ_td2_parse, MRZ_passport_parse, MRZ_visa_parse}) {
      support::Record record;
      if (parse_layout(zone, length, record.get(), &REFERENCE) == ERR_OK) {
        ++parsers;
        EXPECT_EQ(record.bytes(), read.buffer.bytes());
        EXPECT_EQ(filled(*record.get()), filled(read.record));
      } else {
        EXPECT_EQ(record->data_size, 0);
      }
    }
    EXPECT_EQ(parsers, 1);
    ++accepted;
  }
  EXPECT_GT(accepted, 0);
}

// ---- the version ----

TEST(Version, IsThatOfTheInterface) {
  EXPECT_EQ(VarnelVersionNumber, 1.0);
  EXPECT_STREQ(reinterpret_cast<const char *>(VarnelVersionString), "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n");
}

// ---- the order of attempts ----

TEST(Entry, OffersTheZoneToTheLayoutOfItsLength) {
  struct row {
    const std::string &zone;
    std::vector<int> order; // of writing, by which each layout is known
    const char *type;
  };
  const row rows[] = {
      {PASSPORT, {125, 25, 26, 27, 78, 10, 12, 138, 6, 55, 87}, "PASSPORT"},
      {TD2_CARD, {125, 25, 26, 27, 6, 138, 78, 12, 10, 87}, "TD"},
      {TD1_CARD, {125, 6, 78, 12, 10, 138, 25, 26, 27, 87}, "TD"},
      {LONG_VISA, {125, 25, 26, 27, 6, 138, 78, 12, 10, 87}, "TD"},
      {SHORT_VISA, {125, 25, 26, 27, 6, 138, 78, 12, 10, 87}, "TD"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.zone);
    const reading read(row.zone);
    EXPECT_EQ(read.status, ERR_OK);
    EXPECT_EQ(written_order(read.record), row.order);
    EXPECT_EQ(support::text(varnel_value(&read.record, FIELD_DOCUMENT_TYPE)), row.type);
    EXPECT_EQ(read.record.parser_type, PARSER_TYPE_MAX);
    EXPECT_EQ(read.record.parser, PARSER_MAX);
    EXPECT_EQ(read.record.buffer, read.buffer.data());
    EXPECT_EQ(read.record.buffer_size, VARNEL_BUFFER_SIZE);
  }
}

TEST(Entry, RefusesWhatNoLayoutAccepts) {
  EXPECT_EQ(reading("I<UTOD231458907<<<<<<<<<<<<<<<").status, ERR_INVALID_FORMAT); // one line of 30
  EXPECT_EQ(reading(" \n\t-").status, ERR_INVALID_FORMAT);                         // nothing is left
  EXPECT_EQ(reading(PASSPORT + "<").status, ERR_INVALID_FORMAT);
  EXPECT_EQ(reading("X" + PASSPORT.substr(1)).status, ERR_INVALID_FORMAT);
}

TEST(Entry, NamesBadArguments) {
  char buffer[VARNEL_BUFFER_SIZE] = "untouched";
  PARSE_RESULT record = {};
  record.data_size = 7;
  const int length = static_cast<int>(PASSPORT.size());
  EXPECT_EQ(varnel_parse_mrz(PASSPORT.data(), length, nullptr, buffer, sizeof buffer), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_parse_mrz(PASSPORT.data(), length, &record, nullptr, sizeof buffer), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_parse_mrz(PASSPORT.data(), length, &record, buffer, 0), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_parse_mrz(PASSPORT.data(), length, &record, buffer, -1), ERR_INVALID_ARGS);
  EXPECT_STREQ(buffer, "untouched");
  EXPECT_EQ(record.data_size, 7);

  // Without a text, the record is empty, whatever it was before.
  struct row {
    const char *text;
    int length;
  };
  for (const row &row :
       {row{nullptr, 5}, row{nullptr, 0}, row{"", 0}, row{"P", 0}, row{"P", -1}, row{"P", INT_MIN}}) {
    ASSERT_EQ(varnel_parse_mrz(PASSPORT.data(), length, &record, buffer, sizeof buffer), ERR_OK);
    EXPECT_EQ(varnel_parse_mrz(row.text, row.length, &record, buffer, sizeof buffer), ERR_INVALID_ARGS);
    EXPECT_TRUE(filled(record).empty());
    EXPECT_EQ(record.data_size, 0);
  }
}

// Nothing of one text is left for the next.
TEST(Entry, StartsEveryTextWithAnEmptyRecord) {
  char buffer[VARNEL_BUFFER_SIZE];
  PARSE_RESULT record;
  const int length = static_cast<int>(PASSPORT.size());
  ASSERT_EQ(varnel_parse_mrz(PASSPORT.data(), length, &record, buffer, sizeof buffer), ERR_OK);
  const std::string refused(88, '<');
  EXPECT_EQ(varnel_parse_mrz(refused.data(), 88, &record, buffer, sizeof buffer), ERR_INVALID_FORMAT);
  EXPECT_TRUE(filled(record).empty());
  EXPECT_EQ(record.data_size, 0);
  EXPECT_EQ(std::string(buffer, sizeof buffer), std::string(sizeof buffer, '\0'));
}

// Zones of which every value is as long as it can be, and the name a single one.
const std::string LONGEST_VALUES[] = {
    with(with(PASSPORT, 5, std::string(39, 'A')), 44 + 28, "ZE184226BZE184"),
    with(TD2_CARD, 5, std::string(31, 'A')),
    with(TD1_CARD, 60, std::string(30, 'A')),
    with(LONG_VISA, 5, std::string(39, 'A')),
    with(SHORT_VISA, 5, std::string(31, 'A')),
};

TEST(Entry, AcceptsABufferOfAnySize) {
  std::vector<std::string> zones = {PASSPORT, TD2_CARD, TD1_CARD, LONG_VISA, SHORT_VISA};
  zones.insert(zones.end(), std::begin(LONGEST_VALUES), std::end(LONGEST_VALUES));
  for (const std::string &zone : zones) {
    for (int size = 1; size <= 120; ++size) {
      SCOPED_TRACE(zone + " in a buffer of " + std::to_string(size));
      support::Lent ours(size);
      support::Lent plain(size);
      PARSE_RESULT record;
      PARSE_RESULT expected;
      const int length = static_cast<int>(zone.size());
      EXPECT_EQ(varnel_parse_mrz(zone.data(), length, &record, ours.data(), size), ERR_OK);
      EXPECT_EQ(reference::parse_mrz(zone.data(), length, &expected, plain.data(), size), ERR_OK);
      EXPECT_EQ(ours.shown(), plain.shown());
      EXPECT_EQ(record.data_size, expected.data_size);
      EXPECT_EQ(filled(record), filled(expected));
      EXPECT_TRUE(ours.guards_intact());
    }
  }
}

// With as much room as that, a zone is read without a look at what is left of it.
TEST(Entry, NeedsNoMoreRoomThanTheLongestPassport) {
  EXPECT_EQ(reading(LONGEST_VALUES[0]).record.data_size, 102);
  EXPECT_EQ(mrz::MOST_TEXT, 102);
  for (const std::string &zone : LONGEST_VALUES) {
    EXPECT_LE(reading(zone).record.data_size, mrz::MOST_TEXT) << zone;
  }
}

// The widest values of each layout: no text needs more than a small part of the usual buffer.
TEST(Entry, NeverFillsTheUsualBuffer) {
  for (const vectors::vector &vector : vectors::load()) {
    EXPECT_LT(reading(vector.text).record.data_size, 200) << vector.name;
  }
}

// ---- the cut, and lengths of text ----

TEST(Entry, CutsTheTextAt1023) {
  struct row {
    std::size_t spaces; // in front of a zone of 88
    int status;
  };
  const row rows[] = {
      {0, ERR_OK}, {934, ERR_OK}, {935, ERR_OK}, {936, ERR_INVALID_FORMAT}, {5000, ERR_INVALID_FORMAT}};
  for (const row &row : rows) {
    SCOPED_TRACE(row.spaces);
    EXPECT_EQ(reading(std::string(row.spaces, ' ') + PASSPORT).status, row.status);
  }
  // What stands after the cut does not matter, and what stands before it does.
  EXPECT_EQ(reading(PASSPORT + std::string(935, ' ') + "ABC").status, ERR_OK);
  EXPECT_EQ(reading(PASSPORT + std::string(934, ' ') + "ABC").status, ERR_INVALID_FORMAT);
}

// The caller's length may be more than is ever examined.
TEST(Entry, ReadsNoMoreThan1023Bytes) {
  const support::Exact text(PASSPORT + std::string(1023 - 88, ' '));
  char buffer[VARNEL_BUFFER_SIZE];
  PARSE_RESULT record;
  EXPECT_EQ(varnel_parse_mrz(text.data(), INT_MAX, &record, buffer, sizeof buffer), ERR_OK);
}

// A text is measured in UTF-16 units and examined in bytes, so what is not ASCII hides the end of the text.
TEST(Entry, ExaminesAsManyBytesAsTheTextHasUnits) {
  struct row {
    const char *what;
    std::string before;
    std::string after;
    int status;
  };
  const row rows[] = {
      {"nothing hidden", "", "", ERR_OK},
      {"2 bytes, 1 unit, nothing after", "\xC3\x89", "", ERR_INVALID_FORMAT},
      {"2 bytes, 1 unit, 1 byte after", "\xC3\x89", "\n", ERR_OK},
      {"3 bytes, 1 unit, 1 byte after", "\xEF\xBB\xBF", "\n", ERR_INVALID_FORMAT},
      {"3 bytes, 1 unit, 2 bytes after", "\xEF\xBB\xBF", "\r\n", ERR_OK},
      {"4 bytes, 2 units, 1 byte after", "\xF0\x9F\x98\x80", " ", ERR_INVALID_FORMAT},
      {"4 bytes, 2 units, 2 bytes after", "\xF0\x9F\x98\x80", "  ", ERR_OK},
      {"undecodable bytes hide nothing", "\xFF\xFE\x80\xC3", "", ERR_OK},
      {"a letter of the zone among what is hidden", "\xC3\x89", "<", ERR_OK},
      {"the hidden end is cut within a character", "\xC3\x89", "\xC3\x89", ERR_OK},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(reading(row.before + PASSPORT + row.after).status, row.status);
  }
}

TEST(Utf16Length, CountsUnits) {
  struct row {
    const char *what;
    std::string_view text;
    int units;
  };
  const row rows[] = {
      {"nothing", "", 0},
      {"ASCII", "P<UTO", 5},
      {"NUL", "A\0B\0"sv, 4},
      {"U+007F", "\x7F", 1},
      {"U+0080, first of two bytes", "\xC2\x80", 1},
      {"U+07FF, last of two bytes", "\xDF\xBF", 1},
      {"U+0800, first of three bytes", "\xE0\xA0\x80", 1},
      {"U+D7FF, last before the surrogates", "\xED\x9F\xBF", 1},
      {"U+E000, first after the surrogates", "\xEE\x80\x80", 1},
      {"U+FEFF, byte order mark", "\xEF\xBB\xBF", 1},
      {"U+FFFF, last of three bytes", "\xEF\xBF\xBF", 1},
      {"U+10000, first surrogate pair", "\xF0\x90\x80\x80", 2},
      {"U+1F600", "\xF0\x9F\x98\x80", 2},
      {"U+10FFFF, last of all", "\xF4\x8F\xBF\xBF", 2},
      {"one of each length", "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 5},
      // Bytes that cannot be decoded count one each.
      {"lone tail", "\x80", 1},
      {"lone tails", "\x80\xBF\x80", 3},
      {"lead of two, alone", "\xC3", 1},
      {"lead of two before ASCII",
       "\xC3"
       "A",
       2},
      {"lead of two before a lead", "\xC3\xC3\xA9", 2},
      {"lead of three, alone", "\xE2", 1},
      {"two of three", "\xE2\x82", 2},
      {"two of three before ASCII",
       "\xE2\x82"
       "A",
       3},
      {"two of three before a whole character", "\xE2\x82\xC3\xA9", 3},
      {"one of four", "\xF0", 1},
      {"two of four", "\xF0\x9F", 2},
      {"three of four", "\xF0\x9F\x98", 3},
      {"three of four before ASCII",
       "\xF0\x9F\x98"
       "A",
       4},
      {"overlong two, C0", "\xC0\x80", 2},
      {"overlong two, C1", "\xC1\xBF", 2},
      {"overlong three", "\xE0\x80\x80", 3},
      {"longest overlong three", "\xE0\x9F\xBF", 3},
      {"overlong four", "\xF0\x80\x80\x80", 4},
      {"longest overlong four", "\xF0\x8F\xBF\xBF", 4},
      {"first high surrogate", "\xED\xA0\x80", 3},
      {"last low surrogate", "\xED\xBF\xBF", 3},
      {"a surrogate pair as six bytes", "\xED\xA0\xBD\xED\xB8\x80", 6},
      {"U+110000", "\xF4\x90\x80\x80", 4},
      {"above every lead", "\xF5\x80\x80\x80", 4},
      {"lead of five", "\xF8\x88\x80\x80\x80", 5},
      {"lead of six", "\xFC\x84\x80\x80\x80\x80", 6},
      {"FE and FF", "\xFE\xFF", 2},
      {"tail after a whole character", "\xC3\xA9\x80", 2},
      {"bad last byte of four", "\xF0\x9F\x98\xC0", 4},
      {"bad last byte of three", "\xE2\x82\x7F", 3},
      // Bytes around the continuations end a sequence.
      {"bad middle byte of three", "\xE1\x7F\x80", 3},
      {"first continuations of three", "\xE1\x80\x80", 1},
      {"bad second byte of four", "\xF1\x7F\x80\x80", 4},
      {"first continuations of four", "\xF1\x80\x80\x80", 2},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.what);
    const support::Exact text(row.text);
    EXPECT_EQ(varnel_utf16_length(text.data(), row.text.size()), row.units);
  }
}

TEST(Utf16Length, OfNullIsNothing) {
  EXPECT_EQ(varnel_utf16_length(nullptr, 0), 0);
  EXPECT_EQ(varnel_utf16_length(nullptr, 5), 0);
  EXPECT_EQ(varnel_utf16_length("ABC", 0), 0);
  EXPECT_EQ(varnel_utf16_length("ABC", 2), 2);
}

TEST(Utf16Length, CountsUnitsAtEveryPlace) {
  for (std::size_t size = 0; size <= 40; ++size) {
    for (std::size_t at = 0; at <= size; ++at) {
      const int ascii = static_cast<int>(size);
      for (const auto &[character, units] : {std::pair<const char *, int>{"\xC3\xA9", 1},
                                             {"\xE2\x82\xAC", 1},
                                             {"\xF0\x9F\x98\x80", 2},
                                             {"\x80", 1},
                                             {"\xFF", 1},
                                             {"\xE2\x82", 2}}) {
        const support::Exact text(std::string(size, 'A').insert(at, character));
        EXPECT_EQ(varnel_utf16_length(text.data(), static_cast<std::size_t>(text.size())), ascii + units)
            << size << ", " << at;
      }
    }
  }
}

// More than is ever examined is not counted, however long the text is.
TEST(Utf16Length, IsAtMost1023) {
  const std::string emoji = "\xF0\x9F\x98\x80";
  EXPECT_EQ(varnel_utf16_length(std::string(1022, 'A').data(), 1022), 1022);
  EXPECT_EQ(varnel_utf16_length(std::string(1023, 'A').data(), 1023), 1023);
  EXPECT_EQ(varnel_utf16_length(std::string(1024, 'A').data(), 1024), 1023);
  EXPECT_EQ(varnel_utf16_length(std::string(100000, 'A').data(), 100000), 1023);
  const std::string pair_at_the_end = std::string(1022, 'A') + emoji;
  EXPECT_EQ(varnel_utf16_length(pair_at_the_end.data(), pair_at_the_end.size()), 1023);
  EXPECT_EQ(varnel_utf16_length((std::string(1023, 'A') + emoji).data(), 1027), 1023);
  EXPECT_EQ(varnel_utf16_length((std::string(1022, 'A') + "\xC3\xA9").data(), 1024), 1023);
  EXPECT_EQ(varnel_utf16_length((std::string(1022, 'A') + "\xC3").data(), 1023), 1023);
  EXPECT_EQ(varnel_utf16_length((emoji + std::string(1020, 'A')).data(), 1024), 1022);
  const std::string pair_before_it = std::string(1021, 'A') + emoji;
  EXPECT_EQ(varnel_utf16_length(pair_before_it.data(), pair_before_it.size()), 1023);
}

// ---- slots left over ----
//
// The record is not cleared between attempts: what a parser wrote before it refused stays, for the next
// parser to overwrite or not. Within one text this shows only in the record of a refused one. A layout
// writes nothing until length and document code fit, and no two layouts share both: of the texts of 72, I, A
// and C are the card's and V is the visa's; of those of 88, P is the passport's and V the visa's; those of 90
// are the TD1 card's alone. So no parser that refused late is ever followed by one that accepts, and the
// sequences below call the parsers one by one.

TEST(Leftovers, ShowInTheRecordOfARefusedText) {
  struct row {
    const char *what;
    std::string zone;
    const char *image;
  };
  const row rows[] = {
      {"card with a digit in the nationality", with(TD2_CARD, 36 + 10, "UT0"),
       "UTO~ERIKSSON~ANNA~MARIA~D23145890~"},
      {"card with a letter in the date of expiry", with(TD2_CARD, 36 + 21, "12O415"),
       "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"},
      {"passport with a letter in the date of expiry", with(PASSPORT, 44 + 21, "12O415"),
       "UTO~ERIKSSON~ANNA~MARIA~19740812~"},
      {"passport with a digit in the nationality", with(PASSPORT, 44 + 10, "UT0"),
       "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~"},
      {"passport without a name", with(PASSPORT, 5, std::string(39, '<')), "UTO~"},
      {"TD1 card without a name", with(TD1_CARD, 60, std::string(30, '<')),
       "UTO~D23145890~19740812~F~20120415~UTO~"},
      {"long visa with a letter in the date of birth", with(LONG_VISA, 44 + 13, "4OO907"),
       "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~"},
      {"short visa with a letter in the date of expiry", with(SHORT_VISA, 36 + 21, "96121O"),
       "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~"},
      {"TD2 card whose code a visa's letter spoils", with(TD2_CARD, 0, "IV"), ""},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.what);
    const reading read(row.zone);
    EXPECT_EQ(read.status, ERR_INVALID_FORMAT);
    EXPECT_EQ(read.image(), row.image);
    EXPECT_EQ(support::text(varnel_value(&read.record, FIELD_DOCUMENT_TYPE)), "");
  }
}

// One attempt of a sequence on one record, what it answers, and the buffer after it.
struct attempt {
  parser parse_layout;
  std::string zone;
  int status;
  std::string image;
};

void expect_sequence(const std::vector<attempt> &attempts, const std::map<int, std::string> &expected,
                     int buffer_size = VARNEL_BUFFER_SIZE) {
  support::Record record(buffer_size);
  for (const attempt &attempt : attempts) {
    SCOPED_TRACE(attempt.zone);
    EXPECT_EQ(parse(attempt.parse_layout, attempt.zone, record.get()), attempt.status);
    EXPECT_EQ(image(record), attempt.image);
  }
  EXPECT_EQ(filled(*record.get()), expected);
}

// The card's sex stays where the visa tells none.
TEST(Leftovers, OfACardInAVisa) {
  expect_sequence({{MRZ_td2_parse, with(TD2_CARD, 36 + 21, "12O415"), ERR_INVALID_FORMAT,
                    "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"},
                   {MRZ_visa_parse, with(SHORT_VISA, 36 + 20, "<"), ERR_OK,
                    "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"
                    "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~19961210~TD~"}},
                  {{FIELD_COUNTRY_CODE, "UTO"},
                   {FIELD_FAMILY_NAME, "ERIKSSON"},
                   {FIELD_FIRST_NAME, "ANNA"},
                   {FIELD_MIDDLE_NAME, "MARIA"},
                   {FIELD_DOCUMENT_NUMBER, "L8988901C"},
                   {FIELD_NATIONALITY, "XXX"},
                   {FIELD_BIRTH_DATE, "19400907"},
                   {FIELD_SEX, "F"}, // of the card
                   {FIELD_EXPIRATION_DATE, "19961210"},
                   {FIELD_DOCUMENT_TYPE, "TD"}});
}

// The passport's personal number stays in the record of any later document.
TEST(Leftovers, OfAPassportInACard) {
  expect_sequence({{MRZ_passport_parse, PASSPORT, ERR_OK,
                    "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~"},
                   {MRZ_td1_parse, with(TD1_CARD, 60, "SVENSSON<<TOVE<<<<<<"), ERR_OK,
                    "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~"
                    "UTO~D23145890~19740812~F~20120415~UTO~SVENSSON~TOVE~TD~"}},
                  {{FIELD_COUNTRY_CODE, "UTO"},
                   {FIELD_FAMILY_NAME, "SVENSSON"},
                   {FIELD_FIRST_NAME, "TOVE"}, // and the middle name is gone: an absent one empties its slot
                   {FIELD_DOCUMENT_NUMBER, "D23145890"},
                   {FIELD_NATIONALITY, "UTO"},
                   {FIELD_BIRTH_DATE, "19740812"},
                   {FIELD_SEX, "F"},
                   {FIELD_EXPIRATION_DATE, "20120415"},
                   {FIELD_PERSONAL_NUMBER, "ZE184226B"}, // of the passport
                   {FIELD_DOCUMENT_TYPE, "TD"}});
}

// A refused passport leaves both dates and the sex; a second passport without sex takes the sex over.
TEST(Leftovers, OfAPassportInAPassport) {
  expect_sequence({{MRZ_passport_parse, with(PASSPORT, 44 + 10, "UT0"), ERR_INVALID_FORMAT,
                    "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~"},
                   {MRZ_passport_parse, with(with(PASSPORT, 44 + 20, "X"), 44 + 28, "<<<<<<<<<"), ERR_OK,
                    "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~"
                    "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~UTO~L898902C3~PASSPORT~"}},
                  {{FIELD_COUNTRY_CODE, "UTO"},
                   {FIELD_FAMILY_NAME, "ERIKSSON"},
                   {FIELD_FIRST_NAME, "ANNA"},
                   {FIELD_MIDDLE_NAME, "MARIA"},
                   {FIELD_BIRTH_DATE, "19740812"},
                   {FIELD_EXPIRATION_DATE, "20120415"},
                   {FIELD_SEX, "F"}, // of the refused one
                   {FIELD_NATIONALITY, "UTO"},
                   {FIELD_DOCUMENT_NUMBER, "L898902C3"},
                   {FIELD_DOCUMENT_TYPE, "PASSPORT"}});
}

// The order of the entry on one record: three refuse, each leaving what it wrote, and the last accepts.
TEST(Leftovers, OfThreeRefusalsInAVisa) {
  expect_sequence(
      {{MRZ_td1_parse, with(TD1_CARD, 30 + 8, "A20415"), ERR_INVALID_FORMAT, "UTO~D23145890~19740812~F~"},
       {MRZ_td2_parse, with(TD2_CARD, 5, std::string(31, '<')), ERR_INVALID_FORMAT,
        "UTO~D23145890~19740812~F~UTO~"},
       {MRZ_passport_parse, with(PASSPORT, 44 + 13, "A40812"), ERR_INVALID_FORMAT,
        "UTO~D23145890~19740812~F~UTO~UTO~ERIKSSON~ANNA~MARIA~"},
       {MRZ_visa_parse, with(with(LONG_VISA, 2, "<<<"), 44 + 20, "X"), ERR_OK,
        "UTO~D23145890~19740812~F~UTO~UTO~ERIKSSON~ANNA~MARIA~"
        "ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~19961210~TD~"}},
      {// the issuing state is gone: an empty code empties its slot
       {FIELD_FAMILY_NAME, "ERIKSSON"},
       {FIELD_FIRST_NAME, "ANNA"},
       {FIELD_MIDDLE_NAME, "MARIA"},
       {FIELD_DOCUMENT_NUMBER, "L8988901C"},
       {FIELD_NATIONALITY, "XXX"},
       {FIELD_BIRTH_DATE, "19400907"},
       {FIELD_SEX, "F"}, // of the TD1 card
       {FIELD_EXPIRATION_DATE, "19961210"},
       {FIELD_DOCUMENT_TYPE, "TD"}});
}

// A full buffer keeps what the earlier attempt wrote: a later date does not fit and leaves its slot, while a
// later text does not fit and empties its slot.
TEST(Leftovers, InAFullBuffer) {
  expect_sequence(
      {{MRZ_td1_parse, with(TD1_CARD, 30 + 8, "A20415"), ERR_INVALID_FORMAT, "UTO~D23145890~19740812~F~"},
       {MRZ_visa_parse, SHORT_VISA, ERR_OK, "UTO~D23145890~19740812~F~U"}},
      {{FIELD_COUNTRY_CODE, "U"}, {FIELD_BIRTH_DATE, "19740812"}}, 26);
}

// The same for both dates.
TEST(Leftovers, InABufferThatIsFullAfterBothDates) {
  expect_sequence(
      {{MRZ_td1_parse, with(TD1_CARD, 30 + 15, "UT0"), ERR_INVALID_FORMAT,
        "UTO~D23145890~19740812~F~20120415~"},
       {MRZ_visa_parse, SHORT_VISA, ERR_OK, "UTO~D23145890~19740812~F~20120415~U"}},
      {{FIELD_COUNTRY_CODE, "U"}, {FIELD_BIRTH_DATE, "19740812"}, {FIELD_EXPIRATION_DATE, "20120415"}}, 35);
}

} // namespace
