#include <Varnel/mrz/td1.h>

#include "zone_fields.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result) {
  const int status = write_country_code(result, FIELD_COUNTRY_CODE, cut(*track, zone::ISSUING_STATE));
  if (status != ERR_OK) {
    return status;
  }
  write_document_number(result, cut(*track, td1::DOCUMENT_NUMBER));
  return ERR_OK;
}

static int _parse_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  int birth_year = 0;
  int status = write_birth_date(result, cut(*track, td1::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(result, track->str[td1::SEX]);
  status = write_expiration_date(result, cut(*track, td1::EXPIRATION_DATE), birth_year);
  if (status != ERR_OK) {
    return status;
  }
  return write_country_code(result, FIELD_NATIONALITY, cut(*track, td1::NATIONALITY));
}

static int _parse_track3(const STRING *track, PARSE_RESULT *result) { return write_names(result, *track); }

int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  constexpr int line_length = td1::LINE_LENGTH;
  if (input == nullptr || result == nullptr || context == nullptr || i_len < 0) {
    return ERR_INVALID_ARGS;
  }
  const bool is_td1 =
      i_len == 3 * line_length && has_card_code(input) && mrz_characters::covers(STRING{input, i_len});
  if (!is_td1) {
    return ERR_INVALID_FORMAT;
  }
  const STRING track1 = {input, line_length};
  const STRING track2 = {input + line_length, line_length};
  const STRING track3 = {input + 2 * line_length, line_length};
  int status = _parse_track1(&track1, result);
  if (status == ERR_OK) {
    status = _parse_track2(&track2, result, context);
  }
  if (status == ERR_OK) {
    status = _parse_track3(&track3, result);
  }
  if (status == ERR_OK) {
    write_document_type(result, STRING{"TD", 2});
  }
  return status;
}
