#include <Varnel/mrz/td1.h>

#include "layout_driver.hpp"

static int _parse_track1(appender &record, STRING track, const CONTEXT *) {
  const int status = write_country_code(record, FIELD_COUNTRY_CODE, cut(track, zone::ISSUING_STATE));
  if (status != ERR_OK) {
    return status;
  }
  write_document_number(record, cut(track, td1::DOCUMENT_NUMBER));
  return ERR_OK;
}

static int _parse_track2(appender &record, STRING track, const CONTEXT *context) {
  int birth_year = 0;
  int status = write_birth_date(record, cut(track, td1::BIRTH_DATE), context, &birth_year);
  if (status != ERR_OK) {
    return status;
  }
  write_sex(record, track.str[td1::SEX]);
  status = write_expiration_date(record, cut(track, td1::EXPIRATION_DATE), birth_year);
  if (status != ERR_OK) {
    return status;
  }
  return write_country_code(record, FIELD_NATIONALITY, cut(track, td1::NATIONALITY));
}

static int _parse_track3(appender &record, STRING track, const CONTEXT *) {
  return write_names(record, track);
}

int mrz::read_td1(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context,
                  characters known) {
  return zone_of<TD1>::read<_parse_track1, _parse_track2, _parse_track3>(zone, length, result, context,
                                                                         known);
}

int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::read_td1(input, i_len, result, context, mrz::characters::ANY);
}
