#include <Varnel/mrz/passport.h>

#include "layout_driver.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result, const CONTEXT *) {
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
  return mrz::zone_of<mrz::TD3>::read<_parse_track1, _parse_track2>(input, i_len, result, context);
}
