#include <Varnel/mrz/visa.h>

#include "zone_fields.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result) {
  return write_issuer_and_names(result, *track);
}

static int _parse_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  return write_holder(result, *track, context);
}

int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  if (input == nullptr || result == nullptr || context == nullptr || i_len < 0) {
    return ERR_INVALID_ARGS;
  }
  const int line_length = i_len / 2;
  const bool fits = i_len == 2 * visa::SHORT_LINE_LENGTH || i_len == 2 * visa::LONG_LINE_LENGTH;
  const bool is_visa = fits && input[0] == 'V' && mrz_characters::covers(STRING{input, i_len});
  if (!is_visa) {
    return ERR_INVALID_FORMAT;
  }
  const STRING track1 = {input, line_length};
  const STRING track2 = {input + line_length, line_length};
  int status = _parse_track1(&track1, result);
  if (status == ERR_OK) {
    status = _parse_track2(&track2, result, context);
  }
  if (status == ERR_OK) {
    write_document_type(result, STRING{"TD", 2}); // a visa is typed like a card
  }
  return status;
}
