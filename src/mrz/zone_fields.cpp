#include "zone_fields.hpp"

#include "name_parts.hpp"

namespace {

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

// Copies a text without runs of fillers with every filler as a space.
int copy_with_spaces(char *out, int o_len, filled_text text) {
  const int kept = smaller(text.len, o_len);
  if (kept < 1) {
    return 0;
  }
  memcpy(out, text.str, static_cast<size_t>(kept));
  for (places::set fillers = text.fillers & places::before(kept); fillers != 0; fillers &= fillers - 1) {
    out[places::first(fillers)] = ' ';
  }
  return kept;
}

// As utils_write_field() with fillers to be replaced by spaces and runs of spaces to be collapsed.
void write_text(appender &record, int field, filled_text text) {
  if (text.fillers == 0) {
    record.write(field, text.view());
  } else if (!text.has_runs()) {
    record.fill(field, copy_with_spaces(record.end(), record.room(), text));
  } else {
    record.fill(field, copy_words(record.end(), record.room(), text.view()));
  }
}

// As utils_write_field_date() of a date whose last six digits stand in the zone.
void write_date(appender &record, int field, int year, STRING digits) {
  constexpr int length = 8;
  if (record.room() < length) {
    return;
  }
  char *out = record.end();
  memcpy(out, year < 2000 ? "19" : "20", 2);
  memcpy(out + 2, digits.str, 6);
  record.fill(field, length);
}

filled_text number_without_outer_fillers(STRING number) {
  uint64_t outside = 0;
  return find_fillers<mrz_characters>(number, outside).trimmed();
}

// Reads the year of a date in the 1900s.
bool read_year(STRING date, int &year) {
  const uint64_t word = words::load<uint64_t>(date.str);
  constexpr uint64_t six = UINT64_C(0x0000808080808080);
  if ((mrz_date_characters::marks(word) & six) != six) {
    return false;
  }
  year = 1900 + (date.str[0] - '0') * 10 + (date.str[1] - '0');
  return true;
}

} // namespace

bool has_mrz_characters(const char *zone, int length) { return mrz_characters::covers(STRING{zone, length}); }

int write_country_code(appender &record, int field, STRING code) {
  constexpr uint64_t three = UINT64_C(0x808080);
  const uint64_t word = words::load<uint64_t>(code.str);
  if ((range<'A', 'Z'>::marks(word) & three) == three && record.room() > 3) {
    memcpy(record.end(), code.str, 3);
    record.fill(field, 3);
    return ERR_OK;
  }
  if (!mrz_code_characters::covers_short(code)) {
    return ERR_INVALID_FORMAT;
  }
  record.write(field, code_letters(code));
  return ERR_OK;
}

int write_names(appender &record, STRING name) {
  uint64_t outside = 0;
  const filled_text trimmed = find_fillers<mrz_name_characters>(name, outside).trimmed();
  if ((outside & words::MARKS) != 0 || trimmed.len == 0) {
    return ERR_INVALID_FORMAT;
  }
  const name_parts<filled_text> parts = split_name(trimmed);
  write_text(record, FIELD_FAMILY_NAME, parts.last);
  write_text(record, FIELD_FIRST_NAME, parts.first);
  write_text(record, FIELD_MIDDLE_NAME, parts.middle);
  return ERR_OK;
}

void write_sex(appender &record, char sex) {
  if (sex == 'M' || sex == 'F') {
    record.write(FIELD_SEX, STRING{&sex, 1});
  }
}

void write_document_number(appender &record, STRING number) {
  write_text(record, FIELD_DOCUMENT_NUMBER, number_without_outer_fillers(number));
}

void write_personal_number(appender &record, STRING number) {
  const filled_text trimmed = number_without_outer_fillers(number);
  if (trimmed.len > 0) {
    write_text(record, FIELD_PERSONAL_NUMBER, trimmed);
  }
}

int write_birth_date(appender &record, STRING date, const CONTEXT *context, int *birth_year) {
  if (!read_year(date, *birth_year)) {
    return ERR_INVALID_FORMAT;
  }
  if (*birth_year + 100 < context->date.year) {
    *birth_year += 100;
  }
  write_date(record, FIELD_BIRTH_DATE, *birth_year, date);
  return ERR_OK;
}

int write_expiration_date(appender &record, STRING date, int birth_year) {
  int year = 0;
  if (!read_year(date, year)) {
    return ERR_INVALID_FORMAT;
  }
  if (year < birth_year) {
    year += 100;
  }
  write_date(record, FIELD_EXPIRATION_DATE, year, date);
  return ERR_OK;
}

int write_issuer_and_names(appender &record, STRING line) {
  const int status = write_country_code(record, FIELD_COUNTRY_CODE, cut(line, zone::ISSUING_STATE));
  if (status != ERR_OK) {
    return status;
  }
  return write_names(record, cut_from(line, two_line::NAME_START));
}

int write_holder(appender &record, STRING line, const CONTEXT *context) {
  write_document_number(record, cut(line, two_line::DOCUMENT_NUMBER));
  int status = write_country_code(record, FIELD_NATIONALITY, cut(line, two_line::NATIONALITY));
  if (status != ERR_OK) {
    return status;
  }
  int birth_year = 0;
  status = write_birth_date(record, cut(line, two_line::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(record, line.str[two_line::SEX]);
  return write_expiration_date(record, cut(line, two_line::EXPIRATION_DATE), birth_year);
}
