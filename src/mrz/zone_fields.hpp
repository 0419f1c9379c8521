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

// The slots to be written, and where the room for their text ends.
struct slots {
  FIELD *fields;
  char *limit;

  STRING &operator[](int field) const { return fields[field].value; }
  int room(const char *end) const { return static_cast<int>(limit - end); }
};

// ---- values of one slot: written to `end`, and returned is where the text ends then
// --------------------------

// As utils_write_field() with fillers to be replaced by spaces and runs of spaces to be collapsed.
char *append_text(STRING &slot, char *end, char *limit, const char *text, int length, places::set fillers);

// The same for any room, one character at a time.
char *append_slowly(STRING &slot, char *end, char *limit, const char *text, int length);

// Writes a text without fillers, of a length that the compiler knows.
VARNEL_INLINE char *append_known(slots to, int field, char *end, const char *text, int length) {
  if (to.room(end) <= length + 1) {
    return append_slowly(to[field], end, to.limit, text, length);
  }
  memcpy(end, text, static_cast<size_t>(length));
  end[length] = '\0';
  to[field] = STRING{end, length};
  return end + length + 1;
}

VARNEL_INLINE char *append_document_type(slots to, char *end, const layout &layout) {
  return append_known(to, FIELD_DOCUMENT_TYPE, end, layout.document_type, text_length(layout.document_type));
}

// A number of fillers only empties the slot, or leaves it alone.
enum class fillers_only { EMPTY_THE_SLOT, LEAVE_THE_SLOT };

// A number without its outer fillers, inner ones as spaces.
VARNEL_INLINE char *append_number(slots to, int field, char *end, STRING number, fillers_only effect) {
  uint64_t digits = 0;
  filled_text found = find_letters(number, digits);
  if (found.fillers() == 0) {
    return append_known(to, field, end, number.str, number.len);
  }
  if (found.letters == 0 && effect == fillers_only::LEAVE_THE_SLOT) {
    return end;
  }
  found = found.trimmed();
  return append_text(to[field], end, to.limit, found.str, found.len, found.fillers());
}

// ---- several values, or one that may be refused
// --------------------------------------------------------------

progress append_code_slowly(STRING &slot, char *end, char *limit, const char *code);

// The letters of a country code of three characters.
VARNEL_INLINE progress append_country_code(slots to, int field, char *end, const char *code) {
  constexpr int LETTER = 0x40; // of the characters of a zone, letters alone have this bit
  if ((code[0] & code[1] & code[2] & LETTER) == 0) {
    return append_code_slowly(to[field], end, to.limit, code);
  }
  return {append_known(to, field, end, code, 3), true};
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
