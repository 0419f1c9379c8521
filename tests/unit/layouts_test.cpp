// The five layouts, each held to a table: where its values lie, what it refuses, and what a buffer holds
// then.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <Varnel/Varnel.h>

#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;
using std::size_t;

// Where the fields of a zone begin, counted from 0 over all lines.
struct places {
  size_t state, names, names_length, number, nationality, birth, sex, expiration;
  size_t code = 0;
};

// A zone spoiled in one place, and what the buffer then holds.
struct refusal {
  const char *what;
  size_t places::*at;
  const char *text; // null for fillers only
  const char *image;
};

// What fits into a buffer of a size.
struct capacity {
  int size;
  const char *image;
};

// A name field, written with its length filled up, and the three slots it fills.
struct written_name {
  const char *columns;
  const char *last;
  const char *first;
  const char *middle;
};

struct layout {
  const char *name;
  parser parse_layout;
  std::string zone; // the specimen of ICAO Doc 9303
  places at;
  std::string first_letters; // of the document code
  std::string refused_second_letters;
  std::vector<int> lengths;
  std::vector<size_t> check_digits;
  const char *image;      // of the specimen's values
  std::vector<int> order; // and their slots, as they are written
  // Another zone, which fills its names, and where each of its columns goes: see slot_of().
  std::string columns;
  std::string map;
  std::vector<refusal> refusals;
  std::vector<written_name> longest_names;
  std::string without_personal_number; // the specimen with other optional data, which nothing reads, or none
  std::vector<capacity> capacities;
};

void PrintTo(const layout &l, std::ostream *out) { *out << l.name; }

const std::vector<refusal> VISA_REFUSALS = {
    {"document code P", &places::code, "P", ""},
    {"document code I", &places::code, "I", ""},
    {"document code filler", &places::code, "<", ""},
    {"digit in the issuing state", &places::state, "UT0", ""},
    {"empty name", &places::names, nullptr, "UTO~"},
    {"digit in the name", &places::names, "ER1KSSON", "UTO~"},
    // The document number is written before anything of line 2 is looked at.
    {"digit in the nationality", &places::nationality, "UT0", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~"},
    {"filler in the date of birth", &places::birth, "40<<<<", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~"},
    {"letter in the date of birth", &places::birth, "4OO907", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~"},
    {"filler in the date of expiry", &places::expiration, "<<<<<<",
     "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~"},
    {"letter in the date of expiry", &places::expiration, "96121O",
     "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~"}};

const std::vector<capacity> VISA_CAPACITIES = {
    {1, "U"},
    {4, "UTOE"},
    {18, "UTO~ERIKSSON~ANNAM"},
    {24, "UTO~ERIKSSON~ANNA~MARIAL"},
    {34, "UTO~ERIKSSON~ANNA~MARIA~L8988901CX"},
    {38, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXXF"},
    {40, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~FT"},
    {45, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~F~TD~"}, // neither date fits
    {46, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907"},
    {61, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD"},
    {62, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD~"}};

// A full buffer is no failure. Every value has a NUL after it unless that would take the last byte: with one
// byte left, the next value takes it. A date needs all its eight bytes.
const layout LAYOUTS[] = {
    {"Td1",
     MRZ_td1_parse,
     TD1_CARD,
     {2, 60, 30, 5, 45, 30, 37, 38},
     "IAC",
     "V",
     {90},
     {14, 36, 44, 59},
     "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD~",
     {125, 6, 78, 12, 10, 138, 25, 26, 27, 87},
     "I<UTOA1B2C3D4E5OPTIONAL1234567"
     "7408122F1204159UTOMORE<DATA<76"
     "HOLLINGWORTH<<PENELOPE<ANGELIQ",
     "!.iiiddddddddd................"
     "bbbbbb.seeeeee.nnn............"
     "llllllllllll  ffffffff mmmmmmm",
     {{"document code P", &places::code, "P", ""},
      {"document code V", &places::code, "V", ""},
      {"document code IV", &places::code, "IV", ""},
      {"document code AV", &places::code, "AV", ""},
      {"document code CV", &places::code, "CV", ""},
      {"digit in the issuing state", &places::state, "UT0", ""},
      {"filler in the date of birth", &places::birth, "74<<<<", "UTO~D23145890~"},
      {"letter in the date of birth", &places::birth, "74O812", "UTO~D23145890~"},
      {"filler in the date of expiry", &places::expiration, "<<<<<<", "UTO~D23145890~19740812~F~"},
      {"letter in the date of expiry", &places::expiration, "12041S", "UTO~D23145890~19740812~F~"},
      {"digit in the nationality", &places::nationality, "UT0", "UTO~D23145890~19740812~F~20120415~"},
      {"empty name", &places::names, nullptr, "UTO~D23145890~19740812~F~20120415~UTO~"},
      {"digit in the name", &places::names, "ER1KSSON", "UTO~D23145890~19740812~F~20120415~UTO~"}},
     {},
     "I<UTOD231458907OPTIONAL1234567"
     "7408122F1204159UTOMORE<DATA<76"
     "ERIKSSON<<ANNA<MARIA<<<<<<<<<<",
     {{1, "U"},
      {3, "UTO"},
      {4, "UTOD"},
      {5, "UTO~D"},
      {13, "UTO~D23145890"},
      {14, "UTO~D23145890F"},
      {15, "UTO~D23145890~F"},
      {16, "UTO~D23145890~FU"},
      {19, "UTO~D23145890~F~UTO"},
      {20, "UTO~D23145890~F~UTOE"},
      {21, "UTO~D23145890~F~UTO~E"},
      {22, "UTO~D23145890~19740812"},
      {23, "UTO~D23145890~19740812F"},
      {24, "UTO~D23145890~19740812~F"},
      {32, "UTO~D23145890~19740812~F~UTO~ERI"},
      {33, "UTO~D23145890~19740812~F~20120415"},
      {34, "UTO~D23145890~19740812~F~20120415U"},
      {38, "UTO~D23145890~19740812~F~20120415~UTOE"},
      {40, "UTO~D23145890~19740812~F~20120415~UTO~ER"},
      {60, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD"},
      {61, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD"},
      {62, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD~"}}},
    {"Td2",
     MRZ_td2_parse,
     TD2_CARD,
     {2, 5, 31, 36, 46, 49, 56, 57},
     "IAC",
     "V",
     {72},
     {45, 55, 63, 71},
     "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD~",
     {125, 25, 26, 27, 6, 138, 78, 12, 10, 87},
     "I<UTOHOLLINGWORTH<<PENELOPE<ANGELIQU"
     "A1B2C3D4E5UTO7408122F1204159ZE184226",
     "!.iiillllllllllll  ffffffff mmmmmmmm"
     "ddddddddd.nnnbbbbbb.seeeeee.........",
     {{"document code P", &places::code, "P", ""},
      {"document code V", &places::code, "V", ""},
      {"document code X", &places::code, "X", ""},
      {"document code IV", &places::code, "IV", ""},
      {"document code AV", &places::code, "AV", ""},
      {"document code CV", &places::code, "CV", ""},
      {"digit in the issuing state", &places::state, "UT0", ""},
      {"empty name", &places::names, nullptr, "UTO~"},
      {"digit in the name", &places::names, "ER1KSSON", "UTO~"},
      // The document number is written before anything of line 2 is looked at.
      {"digit in the nationality", &places::nationality, "UT0", "UTO~ERIKSSON~ANNA~MARIA~D23145890~"},
      {"filler in the date of birth", &places::birth, "74<<<<", "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~"},
      {"letter in the date of birth", &places::birth, "74O812", "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~"},
      {"filler in the date of expiry", &places::expiration, "<<<<<<",
       "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"},
      {"letter in the date of expiry", &places::expiration, "12041S",
       "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"}},
     {{"SCHLEGELSTEINHAUSEN<<PENELOPE<A", "SCHLEGELSTEINHAUSEN", "PENELOPE", "A"}},
     "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
     "D231458907UTO7408122F1204159ZE184226",
     {{1, "U"},
      {3, "UTO"},
      {4, "UTOE"},
      {5, "UTO~E"},
      {18, "UTO~ERIKSSON~ANNAM"},
      {24, "UTO~ERIKSSON~ANNA~MARIAD"},
      {33, "UTO~ERIKSSON~ANNA~MARIA~D23145890"},
      {34, "UTO~ERIKSSON~ANNA~MARIA~D23145890U"},
      {37, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO"},
      {38, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTOF"},
      {39, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~F"},
      {40, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~FT"},
      {45, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~F~TD~"}, // neither date fits
      {46, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812"},
      {47, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812F"},
      {60, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD"},
      {61, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD"},
      {62, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD~"}}},
    {"Passport",
     MRZ_passport_parse,
     PASSPORT,
     {2, 5, 39, 44, 54, 57, 64, 65},
     "P",
     "",
     {88},
     {53, 63, 71, 86, 87},
     "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~",
     {125, 25, 26, 27, 78, 10, 12, 138, 6, 55, 87},
     "PQUTOHOLLINGWORTH<<PENELOPE<ANGELIQUEESMERAL"
     "A1B2C3D4E5UTO7408122F1204159ZE184226BZE18430",
     "!.iiillllllllllll  ffffffff mmmmmmmmmmmmmmmm"
     "ddddddddd.nnnbbbbbb.seeeeee.pppppppppppppp..",
     {{"document code I", &places::code, "I", ""},
      {"document code V", &places::code, "V", ""},
      {"document code filler", &places::code, "<", ""},
      {"digit in the issuing state", &places::state, "UT0", ""},
      {"empty name", &places::names, nullptr, "UTO~"},
      {"digit in the name", &places::names, "ER1KSSON", "UTO~"},
      {"filler in the date of birth", &places::birth, "74<<<<", "UTO~ERIKSSON~ANNA~MARIA~"},
      {"letter in the date of birth", &places::birth, "74O812", "UTO~ERIKSSON~ANNA~MARIA~"},
      {"filler in the date of expiry", &places::expiration, "<<<<<<", "UTO~ERIKSSON~ANNA~MARIA~19740812~"},
      {"letter in the date of expiry", &places::expiration, "12041S", "UTO~ERIKSSON~ANNA~MARIA~19740812~"},
      {"digit in the nationality", &places::nationality, "U7O",
       "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~"}},
     {{"MOUNTBATTENVONDRUNTEN<<ALEXANDRINA<OCTA", "MOUNTBATTENVONDRUNTEN", "ALEXANDRINA", "OCTA"}},
     "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
     "L898902C36UTO7408122F1204159<<<<<<<<<<<<<<00",
     {{1, "U"},
      {2, "UT"},
      {3, "UTO"},
      {4, "UTOE"},
      {5, "UTO~E"},
      {11, "UTO~ERIKSSO"},
      {12, "UTO~ERIKSSON"},
      {13, "UTO~ERIKSSONA"},
      {14, "UTO~ERIKSSON~A"},
      {17, "UTO~ERIKSSON~ANNA"},
      {18, "UTO~ERIKSSON~ANNAM"},
      {24, "UTO~ERIKSSON~ANNA~MARIAF"}, // 6 bytes before it, too few for a date
      {25, "UTO~ERIKSSON~ANNA~MARIA~F"},
      {26, "UTO~ERIKSSON~ANNA~MARIA~FU"},
      {30, "UTO~ERIKSSON~ANNA~MARIA~F~UTOL"},
      {31, "UTO~ERIKSSON~ANNA~MARIA~F~UTO~L"},
      {32, "UTO~ERIKSSON~ANNA~MARIA~19740812"},
      {33, "UTO~ERIKSSON~ANNA~MARIA~19740812F"},
      {34, "UTO~ERIKSSON~ANNA~MARIA~19740812~F"},
      {40, "UTO~ERIKSSON~ANNA~MARIA~19740812~F~UTO~L"},
      {41, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415"},
      {42, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415F"},
      {75, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPOR"},
      {76, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT"},
      {77, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT"},
      {78, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~"}}},
    {"MrvA",
     MRZ_visa_parse,
     LONG_VISA,
     {2, 5, 39, 44, 54, 57, 64, 65},
     "V",
     "",
     {72, 88},
     {53, 63, 71},
     "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD~",
     {125, 25, 26, 27, 6, 138, 78, 12, 10, 87},
     "V<UTOHOLLINGWORTH<<PENELOPE<ANGELIQUEESMERAL"
     "A1B2C3D4E5UTO7408122F1204159ZE184226BZE18430",
     "!.iiillllllllllll  ffffffff mmmmmmmmmmmmmmmm"
     "ddddddddd.nnnbbbbbb.seeeeee.................",
     VISA_REFUSALS,
     {{"CHRISTODOULOPOULOU<<KONSTANTINA<EVANGEL", "CHRISTODOULOPOULOU", "KONSTANTINA", "EVANGEL"}},
     "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
     "L8988901C4XXX4009078F9612109ZE184226ZE184226",
     VISA_CAPACITIES},
    {"MrvB",
     MRZ_visa_parse,
     SHORT_VISA,
     {2, 5, 31, 36, 46, 49, 56, 57},
     "V",
     "",
     {72, 88},
     {45, 55, 63},
     "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD~",
     {125, 25, 26, 27, 6, 138, 78, 12, 10, 87},
     "V<UTOHOLLINGWORTH<<PENELOPE<ANGELIQU"
     "A1B2C3D4E5UTO7408122F1204159ZE184226",
     "!.iiillllllllllll  ffffffff mmmmmmmm"
     "ddddddddd.nnnbbbbbb.seeeeee.........",
     VISA_REFUSALS,
     {{"PAPADOPOULOS<<CONSTANTINE<ALEXI", "PAPADOPOULOS", "CONSTANTINE", "ALEXI"}},
     "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
     "L8988901C4XXX4009078F9612109ZE184226",
     VISA_CAPACITIES},
};

// The slot that a letter of a map stands for: the column is a character of that slot. Besides these, '.' is
// any character of the set, which nothing reads; '!' is refused when changed; ' ' is not changed here.
int slot_of(char letter) {
  const std::map<char, int> slots = {{'i', FIELD_COUNTRY_CODE},    {'l', FIELD_FAMILY_NAME},
                                     {'f', FIELD_FIRST_NAME},      {'m', FIELD_MIDDLE_NAME},
                                     {'d', FIELD_DOCUMENT_NUMBER}, {'n', FIELD_NATIONALITY},
                                     {'b', FIELD_BIRTH_DATE},      {'s', FIELD_SEX},
                                     {'e', FIELD_EXPIRATION_DATE}, {'p', FIELD_PERSONAL_NUMBER}};
  return slots.at(letter);
}

// Another character of the same class, so that the field stays readable: the next digit or letter.
char neighbour(char c) { return c == '<' ? 'Q' : c == '9' ? '0' : c == 'Z' ? 'A' : static_cast<char>(c + 1); }

const std::string CHARACTER_SET = "<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// The bytes next to the MRZ character set, and some far from it.
const std::string BYTES_OUTSIDE("\0\x01\n\r ,-./:;=>?@[\\^_`amz{~\x7F\x80\x8F\xB0\xBA\xBC\xC1\xDA\xFF", 34);

class Layout : public testing::TestWithParam<layout> {
protected:
  const layout &l = GetParam();
  support::Record record;

  int parsed(std::string_view zone, support::Record &into, const CONTEXT &context = REFERENCE) const {
    return parse(l.parse_layout, zone, into.get(), context);
  }
  int parsed(std::string_view zone) { return parsed(zone, record); }

  // The specimen with the text of a field changed, read into a record whose slot held something else.
  int parsed_with(size_t at, std::string_view text, support::Record &into, int held, const char *kept) const {
    utils_write_field_s(into.get(), held, kept);
    return parsed(with(l.zone, at, text), into);
  }

  void refuses_untouched(std::string_view text, const std::string &what) const {
    SCOPED_TRACE(what);
    support::Record untouched;
    EXPECT_EQ(parsed(text, untouched), ERR_INVALID_FORMAT);
    EXPECT_EQ(image(untouched), "");
    EXPECT_TRUE(filled(*untouched.get()).empty());
  }
};

INSTANTIATE_TEST_SUITE_P(Of, Layout, testing::ValuesIn(LAYOUTS),
                         [](const auto &instance) { return std::string(instance.param.name); });

TEST_P(Layout, WritesTheSpecimensValuesInItsOwnOrder) {
  ASSERT_EQ(parsed(l.zone), ERR_OK);
  EXPECT_EQ(image(record), l.image);
  EXPECT_EQ(written_order(*record.get()), l.order);
  std::map<int, std::string> expected;
  std::istringstream values(l.image);
  for (const int slot : l.order)
    std::getline(values, expected[slot], '~');
  EXPECT_EQ(filled(*record.get()), expected);
  EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(record->parser, PARSER_MAX);
}

// Each column is changed in turn: exactly the slot of the map changes, at exactly that character.
TEST_P(Layout, TakesEachValueFromItsColumns) {
  ASSERT_EQ(l.columns.size(), l.map.size());
  ASSERT_EQ(parsed(l.columns), ERR_OK);
  const std::map<int, std::string> before = filled(*record.get());
  for (size_t column = 0; column < l.columns.size(); ++column) {
    const char letter = l.map[column];
    if (letter == ' ')
      continue;
    const char changed = neighbour(l.columns[column]);
    SCOPED_TRACE("column " + std::to_string(column) + ", " + l.columns[column] + " changed to " + changed);
    support::Record other;
    const int status = parsed(with(l.columns, column, std::string(1, changed)), other);
    if (letter == '!') {
      EXPECT_EQ(status, ERR_INVALID_FORMAT);
      EXPECT_TRUE(filled(*other.get()).empty());
      continue;
    }
    std::map<int, std::string> expected = before;
    if (letter == 's') {
      expected.erase(FIELD_SEX); // "F" became "G", which is no sex that is stored
    } else if (letter != '.') {
      const size_t century =
          letter == 'b' || letter == 'e' ? 2 : 0; // written in front of a date's six columns
      expected[slot_of(letter)].at(century + column - l.map.find(letter)) = changed;
    }
    EXPECT_EQ(status, ERR_OK);
    EXPECT_EQ(filled(*other.get()), expected);
  }
}

TEST_P(Layout, AcceptsTheCodesOfItsDocuments) {
  for (const char first : CHARACTER_SET)
    for (const char second : CHARACTER_SET) {
      const std::string code = {first, second};
      SCOPED_TRACE(code);
      const bool accepted = l.first_letters.find(first) != std::string::npos &&
                            l.refused_second_letters.find(second) == std::string::npos;
      support::Record other;
      EXPECT_EQ(parsed(with(l.zone, 0, code), other), accepted ? ERR_OK : ERR_INVALID_FORMAT);
      EXPECT_EQ(other->data_size > 0, accepted);
    }
}

TEST_P(Layout, KeepsWhatItWroteBeforeItRefused) {
  for (const refusal &row : l.refusals) {
    SCOPED_TRACE(row.what);
    support::Record other;
    const std::string text = row.text == nullptr ? std::string(l.at.names_length, '<') : row.text;
    EXPECT_EQ(parsed(with(l.zone, l.at.*row.at, text), other), ERR_INVALID_FORMAT);
    EXPECT_EQ(image(other), row.image);
    EXPECT_EQ(other->parser_type, PARSER_TYPE_MAX);
    EXPECT_EQ(other->parser, PARSER_MAX);
  }
}

TEST_P(Layout, NeedsDigitsInDates) {
  for (const auto &[at, field] :
       {std::pair{l.at.birth, FIELD_BIRTH_DATE}, {l.at.expiration, FIELD_EXPIRATION_DATE}})
    for (size_t column = at; column < at + 6; ++column)
      for (const char *wrong : {"<", "A", "O", "Z"}) {
        SCOPED_TRACE("column " + std::to_string(column) + " is " + wrong);
        support::Record other;
        EXPECT_EQ(parsed(with(l.zone, column, wrong), other), ERR_INVALID_FORMAT);
        EXPECT_EQ(other.value(field), "");
        EXPECT_EQ(other.value(FIELD_DOCUMENT_TYPE), "");
      }
}

// Null pointers and negative lengths; a length of 0 is no bad argument but a wrong length.
TEST_P(Layout, NamesBadArguments) {
  const char *zone = l.zone.data();
  const int length = static_cast<int>(l.zone.size());
  EXPECT_EQ(l.parse_layout(nullptr, length, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(zone, length, nullptr, &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(zone, length, record.get(), nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(zone, -1, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(zone, -length, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(nullptr, -1, nullptr, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(l.parse_layout(zone, 0, record.get(), &REFERENCE), ERR_INVALID_FORMAT);
  EXPECT_EQ(image(record), "");
}

// Padded to the other visa's length, a visa is read with that one's lines: so both lengths are left out.
TEST_P(Layout, RefusesOtherLengths) {
  const std::string longer = l.zone + std::string(100, '<');
  for (int length = 0; length <= 120; ++length)
    if (std::find(l.lengths.begin(), l.lengths.end(), length) == l.lengths.end())
      refuses_untouched(std::string_view(longer).substr(0, static_cast<size_t>(length)),
                        "length " + std::to_string(length));
}

TEST_P(Layout, RefusesOtherCharactersWhereverTheyStand) {
  for (size_t at = 0; at < l.zone.size(); ++at) {
    const bool every_byte = at < 2 || at == l.zone.size() / 2 || at == l.zone.size() - 1;
    for (int byte = 0; byte < 256; ++byte) {
      const char c = static_cast<char>(byte);
      if (CHARACTER_SET.find(c) == std::string::npos &&
          (every_byte || BYTES_OUTSIDE.find(c) != std::string::npos))
        refuses_untouched(with(l.zone, at, std::string(1, c)),
                          "byte " + std::to_string(byte) + " at " + std::to_string(at));
    }
  }
}

TEST_P(Layout, ComparesNoCheckDigit) {
  for (const char *wrong : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "A", "Z", "<"}) {
    SCOPED_TRACE(std::string("all check digits are ") + wrong);
    std::string spoiled = l.zone;
    for (const size_t at : l.check_digits)
      spoiled = with(spoiled, at, wrong);
    support::Record other;
    EXPECT_EQ(parsed(spoiled, other), ERR_OK);
    EXPECT_EQ(image(other), l.image);
  }
}

// Years of birth around the borders of the century, placed by the reference year, and years of expiry placed
// by the year of birth.
TEST_P(Layout, PlacesYearsInACentury) {
  struct row {
    int reference_year;
    const char *birth;
    const char *expiration;
    const char *written_birth;
    const char *written_expiration;
  };
  const row rows[] = {
      // With the reference year 2018, 00 to 17 are 2000 to 2017 and 18 to 99 are 1918 to 1999.
      {2018, "000101", "200101", "20000101", "20200101"},
      {2018, "160101", "260101", "20160101", "20260101"},
      {2018, "170101", "270101", "20170101", "20270101"},
      {2018, "171231", "271231", "20171231", "20271231"},
      {2018, "180101", "280101", "19180101", "19280101"}, // the reference year's own digits stay
      {2018, "180215", "280101", "19180215", "19280101"}, // whatever month and day are
      {2018, "190101", "290101", "19190101", "19290101"},
      {2018, "990101", "090101", "19990101", "20090101"},
      // Only the year of the reference date counts, and it must be strictly later.
      {1900, "000101", "100101", "19000101", "19100101"},
      {1999, "000101", "100101", "19000101", "19100101"},
      {2000, "000101", "100101", "19000101", "19100101"},
      {2001, "000101", "100101", "20000101", "20100101"},
      {2001, "010101", "100101", "19010101", "19100101"},
      {2099, "990101", "990101", "19990101", "19990101"},
      {2100, "990101", "990101", "20990101", "20990101"},
      {9999, "180101", "280101", "20180101", "20280101"}, // never by more than one century
      {0, "000101", "100101", "19000101", "19100101"},
      {-1, "000101", "100101", "19000101", "19100101"},
      // The year of expiry follows the year of birth, not the reference date.
      {2018, "740812", "120415", "19740812", "20120415"},
      {2018, "740812", "990415", "19740812", "19990415"},
      {2018, "740812", "740101", "19740812", "19740101"}, // the same year is not before, whatever the day
      {2018, "740812", "731231", "19740812", "20731231"},
      {2018, "500101", "450101", "19500101", "20450101"},
      {2018, "500101", "600101", "19500101", "19600101"},
      {2018, "100203", "991231", "20100203", "20991231"},
      {2018, "100203", "100101", "20100203", "20100101"},
      {2018, "170101", "160101", "20170101", "20160101"}, // once moved up, it may still lie before the birth
      // No date of the calendar is needed.
      {2018, "991399", "000000", "19991399", "20000000"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(std::string("born ") + row.birth + ", expires " + row.expiration + ", reference year " +
                 std::to_string(row.reference_year));
    const std::string dated = with(with(l.zone, l.at.birth, row.birth), l.at.expiration, row.expiration);
    // The first moment of the reference year, one within it and the last: month, day and time do not count.
    const int year = row.reference_year;
    for (const DATETIME &date : {DATETIME{year, 1, 1, 0, 0, 0}, DATETIME{year, 7, 15, 12, 30, 30},
                                 DATETIME{year, 12, 31, 23, 59, 59}}) {
      SCOPED_TRACE("reference month " + std::to_string(date.month));
      support::Record other;
      EXPECT_EQ(parsed(dated, other, CONTEXT{date}), ERR_OK);
      EXPECT_EQ(other.value(FIELD_BIRTH_DATE), row.written_birth);
      EXPECT_EQ(other.value(FIELD_EXPIRATION_DATE), row.written_expiration);
    }
  }
}

// "M" and "F" are written; with any other character the slot keeps what it held.
TEST_P(Layout, ReadsSex) {
  for (const char sex : CHARACTER_SET) {
    const std::string character(1, sex);
    SCOPED_TRACE("sex " + character);
    const bool stored = sex == 'M' || sex == 'F';
    support::Record empty;
    EXPECT_EQ(parsed(with(l.zone, l.at.sex, character), empty), ERR_OK);
    EXPECT_EQ(empty.value(FIELD_SEX), stored ? character : "");
    EXPECT_EQ(empty.slot(FIELD_SEX)->value.str == nullptr, !stored);
    support::Record held;
    EXPECT_EQ(parsed_with(l.at.sex, character, held, FIELD_SEX, "KEPT"), ERR_OK);
    EXPECT_EQ(held.value(FIELD_SEX), stored ? character : "KEPT");
  }
}

// A country code ends at its first filler, and letters after that are lost.
TEST_P(Layout, ReadsCountryCodes) {
  const std::pair<const char *, const char *> rows[] = {
      {"UTO", "UTO"}, {"D<<", "D"}, {"UT<", "UT"}, {"U<O", "U"},
      {"<AB", ""},    {"<<B", ""},  {"<<<", ""},   {"XXX", "XXX"}, // no list of countries is consulted
  };
  for (const auto &[at, field] :
       {std::pair{l.at.state, FIELD_COUNTRY_CODE}, {l.at.nationality, FIELD_NATIONALITY}}) {
    for (const auto &[columns, written] : rows) {
      SCOPED_TRACE(columns);
      support::Record other;
      EXPECT_EQ(parsed_with(at, columns, other, field, "DROPPED"), ERR_OK);
      EXPECT_EQ(other.value(field), written);
    }
    for (const char *digit : {"1TO", "U1O", "UT0", "D<1", "<<9", "123"}) {
      SCOPED_TRACE(digit);
      support::Record other;
      EXPECT_EQ(parsed(with(l.zone, at, digit), other), ERR_INVALID_FORMAT);
      EXPECT_EQ(other.value(field), "");
    }
  }
}

// Outer fillers of a document number go, inner ones become one space; a number of fillers only empties the
// slot, whatever it held.
TEST_P(Layout, ReadsTheDocumentNumber) {
  const std::pair<const char *, const char *> rows[] = {
      {"L898902C3", "L898902C3"}, {"123456789", "123456789"}, {"L898902<<", "L898902"},
      {"<<L898902", "L898902"},   {"<L8989<2<", "L8989 2"},   {"L8<<<<<2C", "L8 2C"},
      {"A<B<C<D<E", "A B C D E"}, {"X<<<<<<<<", "X"},         {"<<<<<<<<X", "X"},
      {"<<<<<<<<<", ""},
  };
  for (const auto &[columns, written] : rows) {
    SCOPED_TRACE(columns);
    support::Record other;
    EXPECT_EQ(parsed_with(l.at.number, columns, other, FIELD_DOCUMENT_NUMBER, "DROPPED"), ERR_OK);
    EXPECT_EQ(other.value(FIELD_DOCUMENT_NUMBER), written);
    EXPECT_EQ(other.slot(FIELD_DOCUMENT_NUMBER)->value.str == nullptr, *written == '\0');
  }
}

TEST_P(Layout, ReadsNames) {
  std::vector<written_name> rows = {
      {"ERIKSSON<<ANNA<MARIA", "ERIKSSON", "ANNA", "MARIA"},
      {"ERIKSSON<<ANNA", "ERIKSSON", "ANNA", ""},
      {"ERIKSSON", "ERIKSSON", "", ""},
      {"VAN<DER<BERG<<ANNA<MARIA<LUI", "VAN DER BERG", "ANNA", "MARIA LUI"},
      {"SMITH<JOHN<PAUL", "SMITH", "JOHN", "PAUL"}, // no separator: word by word
      {"VAN<DER<BERG", "VAN", "DER", "BERG"},       // so too for a primary identifier alone
      {"VAN<DER<BERG<<", "VAN", "DER", "BERG"},     // whose separator is but outer filler
      {"<<ANNA", "ANNA", "", ""},                   // as it is in front
      {"<ERIKSSON<<ANNA", "ERIKSSON", "ANNA", ""},
      {"LEE<<<<KIM", "LEE", "KIM", ""},
      {"A<<B<<C", "A", "B", " C"}, // a space for the second filler
      {"A<<B<<<C<<D", "A", "B", " C D"},
      {"A<<B<C<<<D", "A", "B", "C D"},
      {"A<<B<C<D<E<F", "A", "B", "C D E F"},
      {"A<B<<C", "A B", "C", ""},
      {"O", "O", "", ""},
      {"ABERNATHY<SMYTHE<<JOSEPHINE<LO", "ABERNATHY SMYTHE", "JOSEPHINE", "LO"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZABCD", "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD", "", ""},
  };
  rows.insert(rows.end(), l.longest_names.begin(), l.longest_names.end());
  for (const written_name &row : rows) {
    SCOPED_TRACE(row.columns);
    std::string columns = row.columns;
    ASSERT_LE(columns.size(), l.at.names_length);
    columns.resize(l.at.names_length, '<');
    support::Record other;
    EXPECT_EQ(parsed_with(l.at.names, columns, other, FIELD_MIDDLE_NAME, "DROPPED"), ERR_OK);
    EXPECT_EQ(other.value(FIELD_FAMILY_NAME), row.last);
    EXPECT_EQ(other.value(FIELD_FIRST_NAME), row.first);
    EXPECT_EQ(other.value(FIELD_MIDDLE_NAME), row.middle);
    EXPECT_EQ(other.value(FIELD_FULL_NAME), "");
  }
  for (size_t column = 0; column < l.at.names_length; ++column) {
    SCOPED_TRACE("digit in column " + std::to_string(column) + " of the name");
    support::Record other;
    EXPECT_EQ(parsed(with(l.zone, l.at.names + column, "0"), other), ERR_INVALID_FORMAT);
    EXPECT_EQ(other.value(FIELD_FAMILY_NAME), "");
  }
}

// Up to the last column: on a card of three lines nothing of the zone follows it.
TEST_P(Layout, ReadsAMiddleNameOfEveryLengthToTheEndOfTheLine) {
  for (size_t length = 1; length < l.at.names_length - 4; ++length) {
    SCOPED_TRACE(length);
    const std::string middle = std::string("BCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOP").substr(0, length);
    const std::string last = std::string(l.at.names_length - 4 - length, 'A');
    support::Record other;
    EXPECT_EQ(parsed(with(l.zone, l.at.names, last + "<<C<" + middle), other), ERR_OK);
    EXPECT_EQ(other.value(FIELD_MIDDLE_NAME), middle);
  }
}

TEST_P(Layout, CutsWhatDoesNotFit) {
  for (const capacity &row : l.capacities) {
    SCOPED_TRACE("buffer of " + std::to_string(row.size));
    support::Record small(row.size);
    EXPECT_EQ(parsed(l.zone, small), ERR_OK);
    EXPECT_EQ(image(small), row.image);
  }
}

// A passport alone has one; the optional data of the others is not kept.
TEST_P(Layout, LeavesThePersonalNumberAloneWhereThereIsNone) {
  utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
  ASSERT_EQ(parsed(l.without_personal_number), ERR_OK);
  EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), "KEPT");
}

TEST(Passport, ReadsThePersonalNumber) {
  const layout &passport = LAYOUTS[2];
  const std::pair<const char *, const char *> rows[] = {
      {"ZE184226B<<<<<", "ZE184226B"},
      {"<<<<<ZE184226B", "ZE184226B"},
      {"ZE184226BZE184", "ZE184226BZE184"},
      {"<A<<B<C<<<<<<<", "A B C"},
      {"<<<<<<7<<<<<<<", "7"},
      {"<<<<<<<<<<<<<<", "KEPT"}, // unlike the document number
  };
  for (const auto &[columns, written] : rows) {
    SCOPED_TRACE(columns);
    support::Record record;
    utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
    EXPECT_EQ(parse(MRZ_passport_parse, with(passport.zone, 44 + 28, columns), record.get()), ERR_OK);
    EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), written);
  }
  support::Record record;
  ASSERT_EQ(parse(MRZ_passport_parse, with(passport.zone, 44 + 28, "<<<<<<<<<<<<<<"), record.get()), ERR_OK);
  EXPECT_EQ(record.slot(FIELD_PERSONAL_NUMBER)->value.str, nullptr);
  EXPECT_EQ(image(record), "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~PASSPORT~");
}

} // namespace
