// The values that the layouts share, read from a zone of MRZ characters and written to a record.
#ifndef VARNEL_SRC_MRZ_ZONE_FIELDS_HPP
#define VARNEL_SRC_MRZ_ZONE_FIELDS_HPP

#include "../record/slots.hpp"
#include "filled_text.hpp"
#include "layouts.hpp"

namespace mrz {

inline STRING cut(const char *line, columns c) { return STRING{line + c.start, c.length}; }

// Where the text of a record ends, and whether the zone has been accepted so far. Values are written one
// after the other, and the record is brought up to date in the end. Small enough to be returned in registers.
struct progress {
  char *end;
  bool accepted;
};

// The slots to be written.
struct slots {
  FIELD *fields;

  STRING &operator[](int field) const { return fields[field].value; }
};

// No zone gives more text than a passport may: its state, name, dates, sex, nationality, numbers and type,
// each with the NUL after it.
constexpr int MOST_TEXT = 4 + 40 + 2 * 9 + 2 + 4 + 10 + 15 + 9;

// Takes the text of a zone where the record has no more room than that, and moves it there as far as it fits:
// the last NUL would not.
struct little_room {
  char text[MOST_TEXT];
  FIELD birth_date; // as they were
  FIELD expiration_date;

  // Where to write what the slots of this record will point to.
  char *lend(const PARSE_RESULT *result);
  bool is_lent(const char *start) const { return start == text; }

  // Each value in turn takes as much as is left, as utils_write_field() and utils_write_field_date() do: a
  // text is cut, a date that does not fit leaves its slot as it was.
  void move_to(PARSE_RESULT *result, const char *end) const;
  void move(PARSE_RESULT *result, int field, const char *value) const;
};

// ---- values of one slot --------------------------------------------------------------------------------
//
// They are written to `end`, and returned is where the text ends then. There is room for MOST_TEXT from where
// the text of the zone begins.

// Points the slot at the characters just written, and stores the NUL after them.
VARNEL_INLINE char *fill(STRING &slot, char *end, int length) {
  slot = STRING{end, length};
  end[length] = '\0';
  return end + length + 1;
}

// As utils_write_field() with fillers to be replaced by spaces and runs of spaces to be collapsed.
char *append_part(STRING &slot, char *end, const char *field, filled_part part);

// The same of any text, one character at a time.
char *append_slowly(STRING &slot, char *end, STRING text);

// Writes a text without fillers, of a length that the compiler knows.
VARNEL_INLINE char *append_known(STRING &slot, char *end, const char *text, int length) {
  memcpy(end, text, static_cast<size_t>(length));
  return fill(slot, end, length);
}

VARNEL_INLINE char *append_document_type(slots to, char *end, const layout &layout) {
  return append_known(to[FIELD_DOCUMENT_TYPE], end, layout.document_type, text_length(layout.document_type));
}

// A number of fillers only empties the slot, or leaves it alone.
enum class fillers_only { EMPTY_THE_SLOT, LEAVE_THE_SLOT };

// A number without its outer fillers, inner ones as spaces.
VARNEL_INLINE char *append_number(slots to, int field, char *end, STRING number, fillers_only effect) {
  uint64_t digits = 0;
  const filled_text found = find_letters(number, digits);
  if (found.fillers() == 0) {
    return append_known(to[field], end, number.str, number.len);
  }
  if (found.letters != 0) {
    return append_part(to[field], end, number.str, trimmed(found));
  }
  if (effect == fillers_only::EMPTY_THE_SLOT) {
    to[field] = STRING{nullptr, 0};
  }
  return end;
}

// ---- several values, or one that may be refused --------------------------------------------------------

progress append_code_slowly(STRING &slot, char *end, const char *code);

// The letters of a country code of three characters.
VARNEL_INLINE progress append_country_code(slots to, int field, char *end, const char *code) {
  constexpr int LETTER = 0x40; // of the characters of a zone, letters alone have this bit
  if ((code[0] & code[1] & code[2] & LETTER) == 0) {
    return append_code_slowly(to[field], end, code);
  }
  return {append_known(to[field], end, code, 3), true};
}

// Family name, first name and middle name, in that order.
progress append_names(slots to, char *end, STRING name);

// The issuing state and the names: line 1 of two.
VARNEL_INLINE progress append_issuer_and_names(slots to, char *end, const char *line, int width) {
  const progress code = append_country_code(to, FIELD_COUNTRY_CODE, end, line + zone::ISSUING_STATE.start);
  if (!code.accepted) {
    return code;
  }
  return append_names(to, code.end, STRING{line + two_line::NAME_START, width - two_line::NAME_START});
}

// Date of birth, sex and date of expiry stand one after the other in every layout, each date with its check
// digit. They are written in one of two orders. The year of birth is moved from 19YY to 20YY when that leaves
// it strictly before the reference year; the year of expiry when 19YY is strictly before the year of birth. A
// sex other than "M" and "F" leaves its slot alone.
enum class sex { BETWEEN_THE_DATES, LAST };
progress append_dates_and_sex(slots to, char *end, const char *dates, int reference_year, sex place);

} // namespace mrz

#endif
