#include "zone_fields.hpp"

#include <Varnel/mrz/mrz_common.h>
#include <Varnel/utils.h>

#include "../utils/field_writers.hpp"
#include "../utils/trim_checks.hpp"
#include "filler.hpp"

namespace {

// Every filler becomes a blank, and runs of blanks collapse to one.
void write_text(PARSE_RESULT *result, int field, const STRING &text) {
  utils_write_field(result, field, &text, FILLER_SET, " ", ' ');
}

} // namespace

bool is_zone(const char *input, int i_len) {
  return first_refused(STRING{input, i_len}, MRZ_common_pattern_valid_mrz) == 0;
}

bool has_card_code(const STRING &line) {
  const char first = line.str[0];
  return (first == 'I' || first == 'A' || first == 'C') && line.str[1] != 'V';
}

int write_country_code(PARSE_RESULT *result, int field, const STRING &code) {
  char letters[4] = {};
  const int status = MRZ_common_extract_cc(&code, letters);
  if (status == ERR_OK) {
    utils_write_field_s(result, field, letters);
  }
  return status;
}

int write_names(PARSE_RESULT *result, const STRING &name) {
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
    const char text[2] = {sex, '\0'};
    utils_write_field_s(result, FIELD_SEX, text);
  }
}

void write_document_number(PARSE_RESULT *result, const STRING &number) {
  STRING trimmed = number;
  trim(trimmed, is_filler);
  write_text(result, FIELD_DOCUMENT_NUMBER, trimmed);
}

void write_personal_number(PARSE_RESULT *result, const STRING &number) {
  STRING trimmed = number;
  trim(trimmed, is_filler);
  if (!is_empty(trimmed)) {
    write_text(result, FIELD_PERSONAL_NUMBER, trimmed);
  }
}

int write_birth_date(PARSE_RESULT *result, const STRING &date, const CONTEXT *context, int *birth_year) {
  DATETIME birth;
  const int status = MRZ_common_extract_date(&date, &birth);
  if (status != ERR_OK) {
    return status;
  }
  if (birth.year + 100 < context->date.year) {
    birth.year += 100;
  }
  *birth_year = birth.year;
  utils_write_field_date(result, FIELD_BIRTH_DATE, &birth);
  return ERR_OK;
}

int write_expiration_date(PARSE_RESULT *result, const STRING &date, int birth_year) {
  DATETIME expiration;
  const int status = MRZ_common_extract_date(&date, &expiration);
  if (status != ERR_OK) {
    return status;
  }
  if (expiration.year < birth_year) {
    expiration.year += 100;
  }
  utils_write_field_date(result, FIELD_EXPIRATION_DATE, &expiration);
  return ERR_OK;
}

void write_document_type(PARSE_RESULT *result, const char *type) {
  utils_write_field_s(result, FIELD_DOCUMENT_TYPE, type);
}

int write_issuer_and_names(PARSE_RESULT *result, const STRING &line) {
  const int status = write_country_code(result, FIELD_COUNTRY_CODE, cut(line, zone::ISSUING_STATE));
  if (status != ERR_OK) {
    return status;
  }
  return write_names(result, cut_from(line, two_line::NAME_START));
}

int write_holder(PARSE_RESULT *result, const STRING &line, const CONTEXT *context) {
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
