#include "zone_fields.hpp"

#include <Varnel/utils.h>

#include "name_parts.hpp"

namespace {

// Copies a short text. Pieces of fixed sizes, of which the last may overlap the one before, cost less than a
// call.
void copy_short(char *out, const char *text, int length) {
  if (length >= 8) {
    for (int i = 0; i < length - 8; i += 8) {
      memcpy(out + i, text + i, 8);
    }
    memcpy(out + length - 8, text + length - 8, 8);
  } else if (length >= 4) {
    memcpy(out, text, 4);
    memcpy(out + length - 4, text + length - 4, 4);
  } else {
    out[0] = text[0];
    out[length / 2] = text[length / 2];
    out[length - 1] = text[length - 1];
  }
}

// Copies a text of the zone with every run of fillers as one space.
int copy_words(char *out, STRING text) {
  int written = 0;
  for (int i = 0; i < text.len; ++i) {
    if (!is_filler(text.str[i])) {
      out[written++] = text.str[i];
    } else if (i == 0 || !is_filler(text.str[i - 1])) {
      out[written++] = ' ';
    }
  }
  return written;
}

// Reads the year of a date in the 1900s. Of the characters of a zone, digits are those below 0x3A.
bool read_year(uint64_t date, int &year) {
  constexpr uint64_t six = UINT64_C(0x0000808080808080);
  if (((date + words::every(0x80 - 0x3A)) & six) != 0) {
    return false;
  }
  year = 1900 + static_cast<int>((date & 0xF) * 10 + (date >> 8 & 0xF));
  return true;
}

// As utils_write_field_date() of a date whose last six digits stand in the zone.
VARNEL_INLINE char *append_date(STRING &slot, char *end, int year, uint64_t date) {
  const uint64_t century = words::load<uint64_t>(year < 2000 ? "19\0\0\0\0\0" : "20\0\0\0\0\0");
  words::store(century | date << 16, end);
  return mrz::fill(slot, end, 8);
}

// append_part() at once. Runs of fillers and empty parts are rare.
VARNEL_INLINE char *append_here(STRING &slot, char *end, const char *field, filled_part part) {
  const char *const text = field + part.start;
  const int length = part.end - part.start;
  if ((part.fillers & part.fillers >> 1) != 0 || length == 0) {
    return mrz::append_slowly(slot, end, STRING{text, length});
  }
  copy_short(end, text, length);
  for (places::set left = part.fillers; left != 0; left &= left - 1) {
    end[places::first(left) - part.start] = ' ';
  }
  return mrz::fill(slot, end, length);
}

} // namespace

char *mrz::append_part(STRING &slot, char *end, const char *field, filled_part part) {
  return append_here(slot, end, field, part);
}

VARNEL_SELDOM char *mrz::append_slowly(STRING &slot, char *end, STRING text) {
  const int written = copy_words(end, text);
  if (written < 1) {
    slot = STRING{nullptr, 0};
    return end;
  }
  return fill(slot, end, written);
}

VARNEL_SELDOM mrz::progress mrz::append_code_slowly(STRING &slot, char *end, const char *code) {
  const STRING whole = {code, 3};
  if (!mrz_code_characters::covers_short(whole)) {
    return {end, false};
  }
  return {append_slowly(slot, end, code_letters(whole)), true};
}

mrz::progress mrz::append_names(slots to, char *end, STRING name) {
  uint64_t digits = 0;
  const filled_text field = find_letters(name, digits);
  if ((digits & words::MARKS) != 0 || field.letters == 0) {
    return {end, false};
  }
  const name_places parts = split_name(field);
  end = append_here(to[FIELD_FAMILY_NAME], end, name.str, parts.last);
  end = append_here(to[FIELD_FIRST_NAME], end, name.str, parts.first);
  return {append_here(to[FIELD_MIDDLE_NAME], end, name.str, parts.middle), true};
}

mrz::progress mrz::append_dates_and_sex(slots to, char *end, const char *dates, int reference_year,
                                        sex place) {
  const uint64_t birth_date = words::load<uint64_t>(dates);
  const uint64_t expiry_date = words::load<uint64_t>(dates + 8);
  const char letter = dates[7];
  const auto append_sex = [&] {
    if (letter == 'M' || letter == 'F') {
      end = append_known(to[FIELD_SEX], end, &letter, 1);
    }
  };
  int birth_year = 0;
  if (!read_year(birth_date, birth_year)) {
    return {end, false};
  }
  birth_year += birth_year + 100 < reference_year ? 100 : 0;
  end = append_date(to[FIELD_BIRTH_DATE], end, birth_year, birth_date);
  if (place == sex::BETWEEN_THE_DATES) {
    append_sex();
  }
  int expiry_year = 0;
  if (!read_year(expiry_date, expiry_year)) {
    return {end, false};
  }
  expiry_year += expiry_year < birth_year ? 100 : 0;
  end = append_date(to[FIELD_EXPIRATION_DATE], end, expiry_year, expiry_date);
  if (place == sex::LAST) {
    append_sex();
  }
  return {end, true};
}

VARNEL_SELDOM char *mrz::little_room::lend(const PARSE_RESULT *result) {
  birth_date = result->fields[FIELD_BIRTH_DATE];
  expiration_date = result->fields[FIELD_EXPIRATION_DATE];
  return text;
}

// Texts stand here in the order in which they were written, each with the NUL after it.
VARNEL_SELDOM void mrz::little_room::move_to(PARSE_RESULT *result, const char *end) const {
  for (const char *value = text; value < end; value += text_length(value) + 1) {
    for (int field = 0; field < FIELD_COUNT; ++field) {
      if (result->fields[field].value.str == value) {
        move(result, field, value);
      }
    }
  }
}

VARNEL_SELDOM void mrz::little_room::move(PARSE_RESULT *result, int field, const char *value) const {
  const bool is_date = field == FIELD_BIRTH_DATE || field == FIELD_EXPIRATION_DATE;
  if (is_date && record::free_size(result) < text_length(value)) {
    result->fields[field] = field == FIELD_BIRTH_DATE ? birth_date : expiration_date;
  } else {
    utils_write_field_s(result, field, value);
  }
}
