#include <Varnel/mrz/passport.h>

#include "layout_driver.hpp"

static int _parse_track1(appender &record, STRING track, const CONTEXT *) {
  return write_issuer_and_names(record, track);
}

static int _parse_track2(appender &record, STRING track, const CONTEXT *context) {
  int birth_year = 0;
  int status = write_birth_date(record, cut(track, two_line::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  status = write_expiration_date(record, cut(track, two_line::EXPIRATION_DATE), birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(record, track.str[two_line::SEX]);
  status = write_country_code(record, FIELD_NATIONALITY, cut(track, two_line::NATIONALITY));
  if (status != ERR_OK) {
    return status;
  }
  write_document_number(record, cut(track, two_line::DOCUMENT_NUMBER));
  write_personal_number(record, cut(track, td3::PERSONAL_NUMBER));
  return ERR_OK;
}

int mrz::read_td3(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context,
                  characters known) {
  return zone_of<TD3>::read<_parse_track1, _parse_track2>(zone, length, result, context, known);
}

int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::read_td3(input, i_len, result, context, mrz::characters::ANY);
}
