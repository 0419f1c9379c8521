#include <Varnel/mrz/td2.h>

#include "layout_driver.hpp"

static int _parse_track1(appender &record, STRING track, const CONTEXT *) {
  return write_issuer_and_names(record, track);
}

static int _parse_track2(appender &record, STRING track, const CONTEXT *context) {
  return write_holder(record, track, context);
}

int mrz::read_td2(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context,
                  characters known) {
  return zone_of<TD2>::read<_parse_track1, _parse_track2>(zone, length, result, context, known);
}

int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::read_td2(input, i_len, result, context, mrz::characters::ANY);
}
