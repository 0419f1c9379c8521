#include <Varnel/mrz/td1.h>

#include "layout_driver.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result, const CONTEXT *) {
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

static int _parse_track3(const STRING *track, PARSE_RESULT *result, const CONTEXT *) {
  return write_names(result, *track);
}

int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::zone_of<mrz::TD1>::read<_parse_track1, _parse_track2, _parse_track3>(input, i_len, result,
                                                                                   context);
}
