#include "zone_fields.hpp"

#include <Varnel/mrz/mrz_common.h>
#include <Varnel/utils.h>

#include "../record/slots.hpp"
#include "../utils/copying.hpp"
#include "fillers.hpp"

using record::fill_slot;
using record::free_size;
using record::free_space;

namespace {

// The tests that the copying loop is asked with, as types of their own so that they are inlined.
constexpr auto is_nothing = [](char) { return false; };

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

// As utils_write_field() with fillers to be replaced by spaces and runs of spaces to be collapsed.
void write_text(PARSE_RESULT *result, int field, STRING text) {
  fill_slot(result, field, copy_words(free_space(result), free_size(result), text));
}

// As utils_write_field() with every character kept.
void write_plain(PARSE_RESULT *result, int field, STRING text) {
  fill_slot(result, field,
            copy_filtered(free_space(result), free_size(result), &text, is_nothing, is_nothing, '\0'));
}

// As utils_write_field_date() of a date whose last six digits stand in the zone.
void write_date(PARSE_RESULT *result, int field, int year, STRING digits) {
  constexpr int length = 8;
  if (free_size(result) < length) {
    return;
  }
  char *out = free_space(result);
  memcpy(out, year < 2000 ? "19" : "20", 2);
  memcpy(out + 2, digits.str, 6);
  fill_slot(result, field, length);
}

} // namespace

bool has_mrz_characters(const char *zone, int length) { return mrz_characters::covers(STRING{zone, length}); }

int write_country_code(PARSE_RESULT *result, int field, STRING code) {
  if (!mrz_code_characters::covers_short(code)) {
    return ERR_INVALID_FORMAT;
  }
  write_plain(result, field, code_letters(code));
  return ERR_OK;
}

int write_names(PARSE_RESULT *result, STRING name) {
  STRING full_name;
  STRING last_name;
  STRING first_name;
  STRING middle_name;
  const int status = MRZ_common_extract_name(&name, &full_name, &last_name, &first_name, &middle_name);
  if (status == ERR_OK) {
    write_text(result, FIELD_FAMILY_NAME, last_name);
    write_text(result, FIELD_FIRST_NAME, first_name);
    write_text(result, FIELD_MIDDLE_NAME, middle_name);
  }
  return status;
}

void write_sex(PARSE_RESULT *result, char sex) {
  if (sex == 'M' || sex == 'F') {
    write_plain(result, FIELD_SEX, STRING{&sex, 1});
  }
}

void write_document_number(PARSE_RESULT *result, STRING number) {
  write_text(result, FIELD_DOCUMENT_NUMBER, without_outer_fillers(number));
}

void write_personal_number(PARSE_RESULT *result, STRING number) {
  const STRING trimmed = without_outer_fillers(number);
  if (!is_empty(trimmed)) {
    write_text(result, FIELD_PERSONAL_NUMBER, trimmed);
  }
}

int write_birth_date(PARSE_RESULT *result, STRING date, const CONTEXT *context, int *birth_year) {
  DATETIME birth;
  const int status = MRZ_common_extract_date(&date, &birth);
  if (status != ERR_OK) {
    return status;
  }
  if (birth.year + 100 < context->date.year) {
    birth.year += 100;
  }
  *birth_year = birth.year;
  write_date(result, FIELD_BIRTH_DATE, birth.year, date);
  return ERR_OK;
}

int write_expiration_date(PARSE_RESULT *result, STRING date, int birth_year) {
  DATETIME expiration;
  const int status = MRZ_common_extract_date(&date, &expiration);
  if (status != ERR_OK) {
    return status;
  }
  if (expiration.year < birth_year) {
    expiration.year += 100;
  }
  write_date(result, FIELD_EXPIRATION_DATE, expiration.year, date);
  return ERR_OK;
}

void write_document_type(PARSE_RESULT *result, STRING type) {
  write_plain(result, FIELD_DOCUMENT_TYPE, type);
}

int write_issuer_and_names(PARSE_RESULT *result, STRING line) {
  const int status = write_country_code(result, FIELD_COUNTRY_CODE, cut(line, zone::ISSUING_STATE));
  if (status != ERR_OK) {
    return status;
  }
  return write_names(result, cut_from(line, two_line::NAME_START));
}

int write_holder(PARSE_RESULT *result, STRING line, const CONTEXT *context) {
  write_document_number(result, cut(line, two_line::DOCUMENT_NUMBER));
  int status = write_country_code(result, FIELD_NATIONALITY, cut(line, two_line::NATIONALITY));
  if (status != ERR_OK) {
    return status;
  }
  int birth_year = 0;
  status = write_birth_date(result, cut(line, two_line::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(result, line.str[two_line::SEX]);
  return write_expiration_date(result, cut(line, two_line::EXPIRATION_DATE), birth_year);
}
