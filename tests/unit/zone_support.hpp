// What the tests of the layouts share: zones, buffer images and column tables, all written as literals.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Varnel/Varnel.h>

#include "support.hpp"

namespace zone_support {

using parser = int (*)(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

// The reference date of the entry.
inline const CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

// A zone in memory of exactly its size, so that the address sanitizer sees every read past it.
inline int parse(parser parse_layout, std::string_view zone, PARSE_RESULT *record,
                 const CONTEXT &context = REFERENCE) {
  const support::Exact exact(zone);
  return parse_layout(exact.data(), exact.size(), record, &context);
}

// A zone with some of its characters replaced, counted from 0 over all lines.
inline std::string with(std::string_view zone, std::size_t at, std::string_view text) {
  return std::string(zone).replace(at, text.size(), text);
}

// The filled slots of a record and their texts.
inline std::map<int, std::string> filled(const PARSE_RESULT &record) {
  std::map<int, std::string> texts;
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const STRING &value = record.fields[field].value;
    if (value.str != nullptr && value.len > 0) {
      texts[field] = support::text(value);
    }
  }
  return texts;
}

// The filled slots in the order in which their texts lie in the buffer, which is the order of writing.
inline std::vector<int> written_order(const PARSE_RESULT &record) {
  std::map<const char *, int> by_place;
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const STRING &value = record.fields[field].value;
    if (value.str != nullptr && value.len > 0) {
      by_place[value.str] = field;
    }
  }
  std::vector<int> order;
  for (const auto &placed : by_place) {
    order.push_back(placed.second);
  }
  return order;
}

// The used part of a record's buffer, NUL shown as '~', behind which everything must still be NUL.
inline std::string image(support::Record &record) {
  const std::string shown = record.shown();
  const std::size_t used = static_cast<std::size_t>(record->data_size);
  EXPECT_EQ(shown.substr(used), std::string(shown.size() - used, '~')) << "bytes behind data_size";
  EXPECT_TRUE(record.guards_intact());
  return shown.substr(0, used);
}

// Where each column of a zone goes, as a map drawn under the zone:
//   i issuing state, l last name, f first name, m middle name, d document number, n nationality,
//   b date of birth, s sex, e date of expiry, p personal number: the column is a character of that slot;
//   . nothing: any character of the set does; ! refused when changed; ' ' not changed here.
inline int slot_of(char letter) {
  switch (letter) {
  case 'i':
    return FIELD_COUNTRY_CODE;
  case 'l':
    return FIELD_FAMILY_NAME;
  case 'f':
    return FIELD_FIRST_NAME;
  case 'm':
    return FIELD_MIDDLE_NAME;
  case 'd':
    return FIELD_DOCUMENT_NUMBER;
  case 'n':
    return FIELD_NATIONALITY;
  case 'b':
    return FIELD_BIRTH_DATE;
  case 's':
    return FIELD_SEX;
  case 'e':
    return FIELD_EXPIRATION_DATE;
  case 'p':
    return FIELD_PERSONAL_NUMBER;
  default:
    return 0;
  }
}

// Another character of the same class, so that the field stays readable: the next digit or letter.
inline char neighbour(char c) {
  if (c == '<') {
    return 'Q';
  }
  if (c == '9') {
    return '0';
  }
  return c == 'Z' ? 'A' : static_cast<char>(c + 1);
}

// Changes each column of a zone in turn and expects that exactly the slot of the map changes, at exactly
// that character.
inline void expect_columns(parser parse_layout, std::string_view zone, std::string_view map) {
  ASSERT_EQ(zone.size(), map.size());
  support::Record untouched;
  ASSERT_EQ(parse(parse_layout, zone, untouched.get()), ERR_OK);
  const std::map<int, std::string> before = filled(*untouched.get());

  for (std::size_t column = 0; column < zone.size(); ++column) {
    const char letter = map[column];
    if (letter == ' ') {
      continue;
    }
    const char changed = neighbour(zone[column]);
    SCOPED_TRACE("column " + std::to_string(column) + ", " + zone[column] + " changed to " + changed);
    support::Record record;
    const int status = parse(parse_layout, with(zone, column, std::string(1, changed)), record.get());
    if (letter == '!') {
      EXPECT_EQ(status, ERR_INVALID_FORMAT);
      EXPECT_TRUE(filled(*record.get()).empty());
      continue;
    }
    std::map<int, std::string> expected = before;
    if (letter == 's') {
      expected.erase(FIELD_SEX); // "F" became "G", which is no sex that is stored
    } else if (letter != '.') {
      const bool date = letter == 'b' || letter == 'e';
      const std::size_t century = date ? 2 : 0; // a date of six columns is written with a century in front
      const std::size_t place = century + column - map.find(letter);
      expected[slot_of(letter)].at(place) = changed;
    }
    EXPECT_EQ(status, ERR_OK);
    EXPECT_EQ(filled(*record.get()), expected);
  }
}

// A zone spoiled in one place: the code, and what the buffer then holds.
struct refusal {
  const char *what;
  std::size_t at;
  const char *text;
  const char *image;
};

inline void expect_refusals(parser parse_layout, std::string_view zone, const std::vector<refusal> &rows) {
  for (const refusal &row : rows) {
    SCOPED_TRACE(row.what);
    support::Record record;
    EXPECT_EQ(parse(parse_layout, with(zone, row.at, row.text), record.get()), ERR_INVALID_FORMAT);
    EXPECT_EQ(image(record), row.image);
    EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
    EXPECT_EQ(record->parser, PARSER_MAX);
  }
}

// A text that a layout refuses before it writes anything.
inline void expect_untouched(parser parse_layout, std::string_view text, const char *what) {
  SCOPED_TRACE(what);
  support::Record record;
  EXPECT_EQ(parse(parse_layout, text, record.get()), ERR_INVALID_FORMAT);
  EXPECT_EQ(image(record), "");
  EXPECT_TRUE(filled(*record.get()).empty());
}

// Null pointers and negative lengths; a length of 0 is no bad argument but a wrong length.
inline void expect_bad_arguments(parser parse_layout, std::string_view zone) {
  const int length = static_cast<int>(zone.size());
  support::Record record;
  EXPECT_EQ(parse_layout(nullptr, length, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(zone.data(), length, nullptr, &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(zone.data(), length, record.get(), nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(zone.data(), -1, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(zone.data(), -length, record.get(), &REFERENCE), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(nullptr, -1, nullptr, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(parse_layout(zone.data(), 0, record.get(), &REFERENCE), ERR_INVALID_FORMAT);
  EXPECT_EQ(image(record), "");
}

// Every length but the layout's own is refused before anything is written.
inline void expect_only_lengths(parser parse_layout, std::string_view zone, const std::vector<int> &lengths) {
  const std::string longer = std::string(zone) + std::string(100, '<');
  for (int length = 0; length <= 120; ++length) {
    bool fits = false;
    for (const int accepted : lengths) {
      fits = fits || length == accepted;
    }
    if (!fits) {
      expect_untouched(parse_layout, std::string_view(longer).substr(0, static_cast<std::size_t>(length)),
                       ("length " + std::to_string(length)).c_str());
    }
  }
}

// The bytes next to the MRZ character set, and some far from it.
inline const std::string &bytes_outside() {
  static const std::string bytes("\0\x01\n\r ,-./:;=>?@[\\^_`amz{~\x7F\x80\x8F\xB0\xBA\xBC\xC1\xDA\xFF", 34);
  return bytes;
}

// Every byte outside the MRZ character set is refused, before anything is written, wherever it stands.
inline void expect_only_mrz_characters(parser parse_layout, std::string_view zone) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool in_set = byte == '<' || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z');
    if (in_set) {
      continue;
    }
    for (const std::size_t at : {std::size_t{0}, std::size_t{1}, zone.size() / 2, zone.size() - 1}) {
      const std::string character(1, static_cast<char>(byte));
      expect_untouched(parse_layout, with(zone, at, character),
                       ("byte " + std::to_string(byte) + " at " + std::to_string(at)).c_str());
    }
  }
  for (std::size_t at = 0; at < zone.size(); ++at) {
    for (const char byte : bytes_outside()) {
      expect_untouched(parse_layout, with(zone, at, std::string(1, byte)),
                       ("byte " + std::to_string(byte) + " at " + std::to_string(at)).c_str());
    }
  }
}

// The digit columns of a zone each changed: nothing but the sums would notice, and no sum is compared.
inline void expect_digits_unchecked(parser parse_layout, std::string_view zone,
                                    const std::vector<std::size_t> &check_digits) {
  support::Record right;
  ASSERT_EQ(parse(parse_layout, zone, right.get()), ERR_OK);
  const std::string expected = image(right);
  for (const char *wrong : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "A", "Z", "<"}) {
    SCOPED_TRACE(std::string("all check digits are ") + wrong);
    std::string spoiled(zone);
    for (const std::size_t at : check_digits) {
      spoiled = with(spoiled, at, wrong);
    }
    support::Record record;
    EXPECT_EQ(parse(parse_layout, spoiled, record.get()), ERR_OK);
    EXPECT_EQ(image(record), expected);
  }
}

// What fits into a buffer of a size.
struct capacity {
  int size;
  const char *image;
};

inline void expect_capacities(parser parse_layout, std::string_view zone, const std::vector<capacity> &rows) {
  for (const capacity &row : rows) {
    SCOPED_TRACE("buffer of " + std::to_string(row.size));
    support::Record record(row.size);
    EXPECT_EQ(parse(parse_layout, zone, record.get()), ERR_OK);
    EXPECT_EQ(image(record), row.image);
  }
}

// In a buffer of any size the library writes what the plain reading writes, and no byte beside.
inline void expect_as_reference(parser parse_layout, parser reference, std::string_view zone) {
  for (int size = 1; size <= 120; ++size) {
    SCOPED_TRACE("buffer of " + std::to_string(size));
    support::Record ours(size);
    support::Record plain(size);
    EXPECT_EQ(parse(parse_layout, zone, ours.get()), ERR_OK);
    EXPECT_EQ(parse(reference, zone, plain.get()), ERR_OK);
    EXPECT_EQ(image(ours), image(plain));
    EXPECT_EQ(ours->data_size, plain->data_size);
    for (int field = 0; field < FIELD_COUNT; ++field) {
      EXPECT_EQ(ours.value(field), plain.value(field)) << "slot " << field;
      EXPECT_EQ(ours.offset(field), plain.offset(field)) << "slot " << field;
    }
  }
}

// Years of birth around the borders of the century, placed by the reference year, and years of expiry
// placed by the year of birth.
inline void expect_centuries(parser parse_layout, std::string_view zone, std::size_t birth_at,
                             std::size_t expiration_at) {
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
    const std::string dated = with(with(zone, birth_at, row.birth), expiration_at, row.expiration);
    // The first moment of the reference year, one within it and the last: month, day and time do not count.
    const int year = row.reference_year;
    for (const DATETIME &date : {DATETIME{year, 1, 1, 0, 0, 0}, DATETIME{year, 7, 15, 12, 30, 30},
                                 DATETIME{year, 12, 31, 23, 59, 59}}) {
      SCOPED_TRACE("reference month " + std::to_string(date.month));
      support::Record record;
      EXPECT_EQ(parse(parse_layout, dated, record.get(), CONTEXT{date}), ERR_OK);
      EXPECT_EQ(record.value(FIELD_BIRTH_DATE), row.written_birth);
      EXPECT_EQ(record.value(FIELD_EXPIRATION_DATE), row.written_expiration);
    }
  }
}

// "M" and "F" are written; with any other character the slot keeps what it held.
inline void expect_sexes(parser parse_layout, std::string_view zone, std::size_t at) {
  for (const char sex : std::string("<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ")) {
    SCOPED_TRACE(std::string("sex ") + sex);
    const std::string character(1, sex);
    const bool stored = sex == 'M' || sex == 'F';

    support::Record record;
    EXPECT_EQ(parse(parse_layout, with(zone, at, character), record.get()), ERR_OK);
    EXPECT_EQ(record.value(FIELD_SEX), stored ? character : "");
    EXPECT_EQ(record.slot(FIELD_SEX)->value.str == nullptr, !stored);

    support::Record held;
    utils_write_field_s(held.get(), FIELD_SEX, "KEPT");
    EXPECT_EQ(parse(parse_layout, with(zone, at, character), held.get()), ERR_OK);
    EXPECT_EQ(held.value(FIELD_SEX), stored ? character : "KEPT");
  }
}

// A country code ends at its first filler, and letters behind that are lost.
inline void expect_country_codes(parser parse_layout, std::string_view zone, std::size_t at, int field) {
  struct row {
    const char *columns;
    const char *written;
  };
  const row rows[] = {
      {"UTO", "UTO"}, {"D<<", "D"}, {"UT<", "UT"}, {"U<O", "U"},
      {"<AB", ""},    {"<<B", ""},  {"<<<", ""},   {"XXX", "XXX"}, // no list of countries is consulted
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.columns);
    support::Record record;
    utils_write_field_s(record.get(), field, "DROPPED");
    EXPECT_EQ(parse(parse_layout, with(zone, at, row.columns), record.get()), ERR_OK);
    EXPECT_EQ(record.value(field), row.written);
  }
  for (const char *digit : {"1TO", "U1O", "UT0", "D<1", "<<9", "123"}) {
    SCOPED_TRACE(digit);
    support::Record record;
    EXPECT_EQ(parse(parse_layout, with(zone, at, digit), record.get()), ERR_INVALID_FORMAT);
    EXPECT_EQ(record.value(field), "");
  }
}

// Outer fillers of a document number go, inner ones become one blank; a number of fillers only empties
// the slot, whatever it held.
inline void expect_document_numbers(parser parse_layout, std::string_view zone, std::size_t at) {
  struct row {
    const char *columns;
    const char *written;
  };
  const row rows[] = {
      {"L898902C3", "L898902C3"}, {"123456789", "123456789"}, {"L898902<<", "L898902"},
      {"<<L898902", "L898902"},   {"<L8989<2<", "L8989 2"},   {"L8<<<<<2C", "L8 2C"},
      {"A<B<C<D<E", "A B C D E"}, {"X<<<<<<<<", "X"},         {"<<<<<<<<X", "X"},
      {"<<<<<<<<<", ""},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.columns);
    support::Record record;
    utils_write_field_s(record.get(), FIELD_DOCUMENT_NUMBER, "DROPPED");
    EXPECT_EQ(parse(parse_layout, with(zone, at, row.columns), record.get()), ERR_OK);
    EXPECT_EQ(record.value(FIELD_DOCUMENT_NUMBER), row.written);
    EXPECT_EQ(record.slot(FIELD_DOCUMENT_NUMBER)->value.str == nullptr, *row.written == '\0');
  }
}

// A name field, written with its length filled up, and the three slots it fills.
struct written_name {
  const char *columns;
  const char *last;
  const char *first;
  const char *middle;
};

inline const std::vector<written_name> &names_of_30() {
  static const std::vector<written_name> rows = {
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
      {"A<<B<<C", "A", "B", " C"}, // a blank for the second filler
      {"A<<B<<<C<<D", "A", "B", " C D"},
      {"A<<B<C<<<D", "A", "B", "C D"},
      {"A<<B<C<D<E<F", "A", "B", "C D E F"},
      {"A<B<<C", "A B", "C", ""},
      {"O", "O", "", ""},
      {"ABERNATHY<SMYTHE<<JOSEPHINE<LO", "ABERNATHY SMYTHE", "JOSEPHINE", "LO"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZABCD", "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD", "", ""},
  };
  return rows;
}

inline void expect_names(parser parse_layout, std::string_view zone, std::size_t at, std::size_t length,
                         const std::vector<written_name> &rows) {
  for (const written_name &row : rows) {
    SCOPED_TRACE(row.columns);
    std::string columns = row.columns;
    ASSERT_LE(columns.size(), length);
    columns.resize(length, '<');
    support::Record record;
    utils_write_field_s(record.get(), FIELD_MIDDLE_NAME, "DROPPED");
    EXPECT_EQ(parse(parse_layout, with(zone, at, columns), record.get()), ERR_OK);
    EXPECT_EQ(record.value(FIELD_FAMILY_NAME), row.last);
    EXPECT_EQ(record.value(FIELD_FIRST_NAME), row.first);
    EXPECT_EQ(record.value(FIELD_MIDDLE_NAME), row.middle);
    EXPECT_EQ(record.value(FIELD_FULL_NAME), "");
  }
  for (std::size_t column = 0; column < length; ++column) {
    SCOPED_TRACE("digit in column " + std::to_string(column) + " of the name");
    support::Record record;
    EXPECT_EQ(parse(parse_layout, with(zone, at + column, "0"), record.get()), ERR_INVALID_FORMAT);
    EXPECT_EQ(record.value(FIELD_FAMILY_NAME), "");
  }
  support::Record record;
  EXPECT_EQ(parse(parse_layout, with(zone, at, std::string(length, '<')), record.get()), ERR_INVALID_FORMAT);
}

// Every column of a date must be a digit.
inline void expect_date_digits(parser parse_layout, std::string_view zone, std::size_t at, int field) {
  for (std::size_t column = at; column < at + 6; ++column) {
    for (const char *wrong : {"<", "A", "O", "Z"}) {
      SCOPED_TRACE("column " + std::to_string(column) + " is " + wrong);
      support::Record record;
      EXPECT_EQ(parse(parse_layout, with(zone, column, wrong), record.get()), ERR_INVALID_FORMAT);
      EXPECT_EQ(record.value(field), "");
      EXPECT_EQ(record.value(FIELD_DOCUMENT_TYPE), "");
    }
  }
}

// Which first and second letters of the document code a layout accepts.
inline void expect_codes(parser parse_layout, std::string_view zone, std::string_view first_letters,
                         std::string_view refused_second_letters) {
  const std::string character_set = "<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const char first : character_set) {
    for (const char second : character_set) {
      const std::string code = {first, second};
      SCOPED_TRACE(code);
      const bool accepted = first_letters.find(first) != std::string_view::npos &&
                            refused_second_letters.find(second) == std::string_view::npos;
      support::Record record;
      EXPECT_EQ(parse(parse_layout, with(zone, 0, code), record.get()),
                accepted ? ERR_OK : ERR_INVALID_FORMAT);
      EXPECT_EQ(record->data_size > 0, accepted);
    }
  }
}

} // namespace zone_support
