#include "zone_fields.hpp"

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
  } else if (length > 0) {
    out[0] = text[0];
    out[length / 2] = text[length / 2];
    out[length - 1] = text[length - 1];
  }
}

// Copies a text of the zone with every run of fillers as one space.
int copy_words(char *out, int o_len, STRING text) {
  int written = 0;
  int i = 0;
  while (true) {
    const int end = i + smaller(text.len - i, o_len - written);
    while (i < end && !is_filler(text.str[i])) {
      out[written++] = text.str[i++];
    }
    if (i >= end) {
      return written;
    }
    out[written++] = ' ';
    while (i < text.len && is_filler(text.str[i])) {
      ++i;
    }
  }
}

// Stores a NUL after a text, unless that would take the last byte.
char *terminated(char *end, const char *limit) {
  if (limit - end > 1) {
    *end++ = '\0';
  }
  return end;
}

// Writes the characters of a field from `from` to `to`, which begin and end with a letter.
char *append_part(STRING &slot, char *end, char *limit, filled_text field, int from, int to) {
  const int length = to - from;
  return mrz::append_text(slot, end, limit, field.str + from, length,
                          ~field.letters >> from & places::before(length));
}

// The same of a word, which has no fillers.
char *append_word(STRING &slot, char *end, char *limit, filled_text field, int from, int to) {
  return mrz::append_text(slot, end, limit, field.str + from, to - from, 0);
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
VARNEL_INLINE char *append_date(STRING &slot, char *end, char *limit, int year, uint64_t date) {
  constexpr int length = 8;
  if (limit - end < length) {
    return end;
  }
  const uint64_t century = words::load<uint64_t>(year < 2000 ? "19\0\0\0\0\0" : "20\0\0\0\0\0");
  words::store(century | date << 16, end);
  slot = STRING{end, length};
  return terminated(end + length, limit);
}

} // namespace

// Runs of fillers are rare, and so is a buffer that the values do not fit.
char *mrz::append_text(STRING &slot, char *end, char *limit, const char *text, int length,
                       places::set fillers) {
  if ((fillers & fillers >> 1) != 0 || limit - end < length + 2 || length == 0) {
    return append_slowly(slot, end, limit, text, length);
  }
  copy_short(end, text, length);
  for (; fillers != 0; fillers &= fillers - 1) {
    end[places::first(fillers)] = ' ';
  }
  slot = STRING{end, length};
  end[length] = '\0';
  return end + length + 1;
}

VARNEL_SELDOM char *mrz::append_slowly(STRING &slot, char *end, char *limit, const char *text, int length) {
  const int room = static_cast<int>(limit - end);
  const int written = copy_words(end, room, STRING{text, length});
  if (written < 1) {
    slot = STRING{nullptr, 0};
    return end;
  }
  slot = STRING{end, written};
  return terminated(end + written, limit);
}

mrz::progress mrz::append_code_slowly(STRING &slot, char *end, char *limit, const char *code) {
  const STRING whole = {code, 3};
  if (!mrz_code_characters::covers_short(whole)) {
    return {end, false};
  }
  return {append_slowly(slot, end, limit, code, code_letters(whole).len), true};
}

mrz::progress mrz::append_names(slots to, char *end, STRING name) {
  uint64_t digits = 0;
  const filled_text field = find_letters(name, digits);
  if ((digits & words::MARKS) != 0 || field.letters == 0) {
    return {end, false};
  }
  const name_places at = split_name(field);
  end = append_part(to[FIELD_FAMILY_NAME], end, to.limit, field, at.last, at.last_end);
  end = append_word(to[FIELD_FIRST_NAME], end, to.limit, field, at.first, at.first_end);
  return {append_part(to[FIELD_MIDDLE_NAME], end, to.limit, field, at.middle, at.end), true};
}

mrz::progress mrz::append_dates_and_sex(slots to, char *end, const char *dates, int reference_year,
                                        sex place) {
  const uint64_t birth_date = words::load<uint64_t>(dates);
  const uint64_t expiry_date = words::load<uint64_t>(dates + 8);
  const char letter = dates[7];
  const auto append_sex = [&] {
    if (letter != 'M' && letter != 'F') {
      return;
    }
    if (end >= to.limit) {
      to[FIELD_SEX] = STRING{nullptr, 0};
      return;
    }
    to[FIELD_SEX] = STRING{end, 1};
    *end++ = letter;
    end = terminated(end, to.limit);
  };
  int birth_year = 0;
  if (!read_year(birth_date, birth_year)) {
    return {end, false};
  }
  birth_year += birth_year + 100 < reference_year ? 100 : 0;
  end = append_date(to[FIELD_BIRTH_DATE], end, to.limit, birth_year, birth_date);
  if (place == sex::BETWEEN_THE_DATES) {
    append_sex();
  }
  int expiry_year = 0;
  if (!read_year(expiry_date, expiry_year)) {
    return {end, false};
  }
  expiry_year += expiry_year < birth_year ? 100 : 0;
  end = append_date(to[FIELD_EXPIRATION_DATE], end, to.limit, expiry_year, expiry_date);
  if (place == sex::LAST) {
    append_sex();
  }
  return {end, true};
}
