#include <Varnel/mrz/visa.h>

#include "layout_driver.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result, const CONTEXT *) {
  return write_issuer_and_names(result, *track);
}

static int _parse_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  return write_holder(result, *track, context);
}

int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::zone_of<mrz::MRV_A, mrz::MRV_B>::read<_parse_track1, _parse_track2>(input, i_len, result,
                                                                                  context);
}
