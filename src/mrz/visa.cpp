#include <Varnel/mrz/visa.h>

#include "parsers.hpp"

// A visa is read as a card of two lines is, whatever its size.
int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return mrz::parse_zone<VARNEL_LAYOUT_MRV_A, VARNEL_LAYOUT_MRV_B>(input, i_len, result, context);
}
