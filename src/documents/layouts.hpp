// The layouts of machine-readable zones as one table: where each field stands, what may stand in it, and
// which characters each check digit covers. Reading, composing, drawing and testing walk this table.
//
// Sources: ICAO Doc 9303-4 (TD3), 9303-5 (TD1), 9303-6 (TD2), 9303-7 (MRV-A, MRV-B). FRA-ID is the French
// identity card issued until 2021. What the core knows too is taken from it: columns, the shape of a zone and
// the letters it begins with. All is plain data without pointers, so that the table needs no relocation.
#ifndef VARNEL_SRC_DOCUMENTS_LAYOUTS_HPP
#define VARNEL_SRC_DOCUMENTS_LAYOUTS_HPP

#include <Varnel/documents/defines.h>

#include <stdint.h>

#include "../mrz/layouts.hpp"

namespace documents {

constexpr char FILLER = '<';

// What may stand in a field, and how its value is read from it.
enum class field_kind : uint8_t {
  code,        // a letter, then a letter, digit or filler
  state,       // one to three letters, then fillers
  names,       // letters and fillers
  number,      // letters, digits and fillers
  birth_date,  // YYMMDD, unknown parts as fillers from the right
  expiry_date, // YYMMDD or fillers
  sex          // M, F or a filler
};

// A stretch of a line, counted from 0.
struct stretch {
  uint8_t line;
  uint8_t column;
  uint8_t length;
};

struct field_place {
  uint8_t field; // VARNEL_DOCUMENT_CODE and so on
  field_kind kind;
  stretch place;
};

// A check digit and the characters that it covers, in the order in which they are weighted.
struct check_place {
  uint8_t field; // the field that it covers, or VARNEL_COMPOSITE
  uint8_t line;
  uint8_t column;
  uint8_t covered_count;
  stretch covered[4];
};

struct layout {
  uint8_t id;              // VARNEL_LAYOUT_…
  uint8_t lines;           // how many
  uint8_t width;           // of each line
  uint8_t field_count;     // entries of `fields`
  uint8_t check_count;     // entries of `checks`
  char first_letters[4];   // letters that its document code begins with
  field_place fields[11];  // in the order of the zone: by line, then by column
  check_place checks[5];   // number, birth date, expiry date, personal number, composite, as it has them
  stretch optional_data;   // TD1, TD2: where a long document number goes on; else of length 0
  bool one_field_of_names; // primary and secondary identifier share a field, split at its first "<<"
  // By field: one more than its entry in `fields` and in `checks`, 0 where the layout lacks it.
  uint8_t field_entries[VARNEL_DOCUMENT_FIELD_END];
  uint8_t check_entries[VARNEL_DOCUMENT_FIELD_END];

  // Of a character of a zone, which is never NUL.
  constexpr bool has_first_letter(char c) const {
    return c == first_letters[0] || c == first_letters[1] || c == first_letters[2];
  }

  // Null where the layout lacks the field.
  constexpr const field_place *find(int field) const {
    return field_entries[field] != 0 ? &fields[field_entries[field] - 1] : nullptr;
  }

  // Null where the field has no check digit.
  constexpr const check_place *find_check(int field) const {
    return check_entries[field] != 0 ? &checks[check_entries[field] - 1] : nullptr;
  }
};

namespace detail {

constexpr stretch on_line(uint8_t line, columns c) {
  return {line, static_cast<uint8_t>(c.start), static_cast<uint8_t>(c.length)};
}

constexpr stretch on_line(uint8_t line, int start, int length) {
  return on_line(line, columns{start, length});
}

// The digit that follows a field directly.
constexpr check_place digit_after(uint8_t field, stretch place) {
  return {field, place.line, static_cast<uint8_t>(place.column + place.length), 1, {place}};
}

constexpr void add(layout &l, int field, field_kind kind, stretch place) {
  l.fields[l.field_count++] = {static_cast<uint8_t>(field), kind, place};
  l.field_entries[field] = l.field_count;
}

constexpr void add(layout &l, check_place check) {
  l.checks[l.check_count++] = check;
  l.check_entries[check.field] = l.check_count;
}

constexpr stretch CODE = on_line(0, 0, 2);
constexpr stretch STATE = on_line(0, zone::ISSUING_STATE);

constexpr void add_code_and_state(layout &l) {
  add(l, VARNEL_DOCUMENT_CODE, field_kind::code, CODE);
  add(l, VARNEL_ISSUING_STATE, field_kind::state, STATE);
}

constexpr void add_names(layout &l, stretch place) {
  add(l, VARNEL_PRIMARY_IDENTIFIER, field_kind::names, place);
  add(l, VARNEL_SECONDARY_IDENTIFIER, field_kind::names, place);
  l.one_field_of_names = true;
}

// A layout of the core as yet without fields.
constexpr layout shaped_as(const mrz::layout &known) {
  layout l = {};
  l.id = static_cast<uint8_t>(known.id);
  l.lines = static_cast<uint8_t>(known.lines);
  l.width = static_cast<uint8_t>(known.width);
  for (int i = 0; i < 4; ++i) {
    l.first_letters[i] = known.first_letters[i];
  }
  return l;
}

// What the two-line layouts share: all but what stands after the expiry date's digit.
constexpr layout two_lines(const mrz::layout &known) {
  layout l = shaped_as(known);
  constexpr stretch number = on_line(1, two_line::DOCUMENT_NUMBER);
  constexpr stretch birth = on_line(1, two_line::BIRTH_DATE);
  constexpr stretch expiry = on_line(1, two_line::EXPIRATION_DATE);
  add_code_and_state(l);
  add_names(l, on_line(0, two_line::NAME_START, known.width - two_line::NAME_START));
  add(l, VARNEL_DOCUMENT_NUMBER, field_kind::number, number);
  add(l, VARNEL_NATIONALITY, field_kind::state, on_line(1, two_line::NATIONALITY));
  add(l, VARNEL_BIRTH_DATE, field_kind::birth_date, birth);
  add(l, VARNEL_SEX, field_kind::sex, on_line(1, two_line::SEX, 1));
  add(l, VARNEL_EXPIRY_DATE, field_kind::expiry_date, expiry);
  add(l, digit_after(VARNEL_DOCUMENT_NUMBER, number));
  add(l, digit_after(VARNEL_BIRTH_DATE, birth));
  add(l, digit_after(VARNEL_EXPIRY_DATE, expiry));
  return l;
}

constexpr int AFTER_EXPIRY = two_line::EXPIRATION_DATE.start + two_line::EXPIRATION_DATE.length + 1;

// The composite of TD2 and TD3: number, birth date and expiry date, each with its digit, then all that
// follows up to the composite itself in the last column.
constexpr check_place two_line_composite(int width) {
  const int last = width - 1;
  return {VARNEL_COMPOSITE,
          1,
          static_cast<uint8_t>(last),
          3,
          {on_line(1, 0, 10), on_line(1, 13, 7), on_line(1, 21, last - 21)}};
}

constexpr layout td3_layout() {
  layout l = two_lines(mrz::TD3);
  const stretch personal_number = on_line(1, td3::PERSONAL_NUMBER);
  add(l, VARNEL_PERSONAL_NUMBER, field_kind::number, personal_number);
  add(l, digit_after(VARNEL_PERSONAL_NUMBER, personal_number));
  add(l, two_line_composite(td3::LINE_LENGTH));
  return l;
}

constexpr layout td2_layout() {
  layout l = two_lines(mrz::TD2);
  l.optional_data = on_line(1, AFTER_EXPIRY, td2::LINE_LENGTH - 1 - AFTER_EXPIRY);
  add(l, VARNEL_OPTIONAL_DATA, field_kind::number, l.optional_data);
  add(l, two_line_composite(td2::LINE_LENGTH));
  return l;
}

constexpr layout visa_layout(const mrz::layout &known) {
  layout l = two_lines(known);
  add(l, VARNEL_OPTIONAL_DATA, field_kind::number, on_line(1, AFTER_EXPIRY, known.width - AFTER_EXPIRY));
  return l;
}

constexpr layout td1_layout() {
  layout l = shaped_as(mrz::TD1);
  const stretch number = on_line(0, td1::DOCUMENT_NUMBER);
  const stretch birth = on_line(1, td1::BIRTH_DATE);
  const stretch expiry = on_line(1, td1::EXPIRATION_DATE);
  l.optional_data = on_line(0, 15, 15);
  const stretch optional_data_2 = on_line(1, 18, 11);
  add_code_and_state(l);
  add(l, VARNEL_DOCUMENT_NUMBER, field_kind::number, number);
  add(l, VARNEL_OPTIONAL_DATA_1, field_kind::number, l.optional_data);
  add(l, VARNEL_BIRTH_DATE, field_kind::birth_date, birth);
  add(l, VARNEL_SEX, field_kind::sex, on_line(1, td1::SEX, 1));
  add(l, VARNEL_EXPIRY_DATE, field_kind::expiry_date, expiry);
  add(l, VARNEL_NATIONALITY, field_kind::state, on_line(1, td1::NATIONALITY));
  add(l, VARNEL_OPTIONAL_DATA_2, field_kind::number, optional_data_2);
  add_names(l, on_line(2, 0, td1::LINE_LENGTH));
  add(l, digit_after(VARNEL_DOCUMENT_NUMBER, number));
  add(l, digit_after(VARNEL_BIRTH_DATE, birth));
  add(l, digit_after(VARNEL_EXPIRY_DATE, expiry));
  add(l,
      {VARNEL_COMPOSITE, 1, 29, 4, {on_line(0, 5, 25), on_line(1, 0, 7), on_line(1, 8, 7), optional_data_2}});
  return l;
}

// The French identity card issued until 2021. Its number has twelve characters; given names have a field
// of their own; there is neither a nationality nor an expiry date.
constexpr layout french_card_layout() {
  layout l = {};
  l.id = VARNEL_LAYOUT_FRA_ID;
  l.lines = 2;
  l.width = td2::LINE_LENGTH;
  l.first_letters[0] = 'I';
  const stretch number = on_line(1, 0, 12);
  const stretch birth = on_line(1, 27, 6);
  add_code_and_state(l);
  add(l, VARNEL_PRIMARY_IDENTIFIER, field_kind::names, on_line(0, 5, 25));
  add(l, VARNEL_OFFICE_CODE, field_kind::number, on_line(0, 30, 6));
  add(l, VARNEL_DOCUMENT_NUMBER, field_kind::number, number);
  add(l, VARNEL_SECONDARY_IDENTIFIER, field_kind::names, on_line(1, 13, 14));
  add(l, VARNEL_BIRTH_DATE, field_kind::birth_date, birth);
  add(l, VARNEL_SEX, field_kind::sex, on_line(1, 34, 1));
  add(l, digit_after(VARNEL_DOCUMENT_NUMBER, number));
  add(l, digit_after(VARNEL_BIRTH_DATE, birth));
  add(l, {VARNEL_COMPOSITE, 1, 35, 2, {on_line(0, 0, 36), on_line(1, 0, 35)}});
  return l;
}

} // namespace detail

// By number: LAYOUTS[VARNEL_LAYOUT_TD1] and so on; the first, VARNEL_LAYOUT_NONE, is empty.
inline constexpr layout LAYOUTS[] = {
    layout{},
    detail::td1_layout(),
    detail::td2_layout(),
    detail::td3_layout(),
    detail::visa_layout(mrz::MRV_A),
    detail::visa_layout(mrz::MRV_B),
    detail::french_card_layout(),
};

constexpr int LAYOUT_COUNT = static_cast<int>(sizeof LAYOUTS / sizeof LAYOUTS[0]);

namespace detail {

constexpr bool in_place(int id) { return LAYOUTS[id].id == id; }
static_assert(in_place(VARNEL_LAYOUT_TD1) && in_place(VARNEL_LAYOUT_TD2) && in_place(VARNEL_LAYOUT_TD3) &&
              in_place(VARNEL_LAYOUT_MRV_A) && in_place(VARNEL_LAYOUT_MRV_B) &&
              in_place(VARNEL_LAYOUT_FRA_ID));

} // namespace detail

// The layout of a zone in lines of a width that zones have, by the first five characters of its first line.
constexpr int layout_of(int width, const char *first) {
  if (width == td1::LINE_LENGTH) {
    return VARNEL_LAYOUT_TD1;
  }
  if (width == td3::LINE_LENGTH) {
    return first[0] == 'V' ? VARNEL_LAYOUT_MRV_A : VARNEL_LAYOUT_TD3;
  }
  if (first[0] == 'V') {
    return VARNEL_LAYOUT_MRV_B;
  }
  const bool french =
      first[0] == 'I' && first[1] == 'D' && first[2] == 'F' && first[3] == 'R' && first[4] == 'A';
  return french ? VARNEL_LAYOUT_FRA_ID : VARNEL_LAYOUT_TD2;
}

} // namespace documents

#endif
