#include <Varnel/mrz/passport.h>

#include "zone_fields.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result) {
  return write_issuer_and_names(result, *track);
}

static int _parse_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  int birth_year = 0;
  int status = write_birth_date(result, cut(*track, two_line::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  status = write_expiration_date(result, cut(*track, two_line::EXPIRATION_DATE), birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(result, track->str[two_line::SEX]);
  status = write_country_code(result, FIELD_NATIONALITY, cut(*track, two_line::NATIONALITY));
  if (status != ERR_OK) {
    return status;
  }
  write_document_number(result, cut(*track, two_line::DOCUMENT_NUMBER));
  write_personal_number(result, cut(*track, td3::PERSONAL_NUMBER));
  return ERR_OK;
}

int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  constexpr int line_length = td3::LINE_LENGTH;
  if (input == nullptr || result == nullptr || context == nullptr || i_len < 0) {
    return ERR_INVALID_ARGS;
  }
  const bool is_passport =
      i_len == 2 * line_length && input[0] == 'P' && mrz_characters::covers(STRING{input, i_len});
  if (!is_passport) {
    return ERR_INVALID_FORMAT;
  }
  const STRING track1 = {input, line_length};
  const STRING track2 = {input + line_length, line_length};
  int status = _parse_track1(&track1, result);
  if (status == ERR_OK) {
    status = _parse_track2(&track2, result, context);
  }
  if (status == ERR_OK) {
    write_document_type(result, STRING{"PASSPORT", 8});
  }
  return status;
}
