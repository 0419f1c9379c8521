#include <Varnel/mrz/td2.h>

#include "zone_fields.hpp"

static int _parse_track1(const STRING *track, PARSE_RESULT *result) {
  return write_issuer_and_names(result, *track);
}

static int _parse_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  return write_holder(result, *track, context);
}

int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  constexpr int line_length = td2::LINE_LENGTH;
  if (input == nullptr || result == nullptr || context == nullptr || i_len < 0) {
    return ERR_INVALID_ARGS;
  }
  const bool is_td2 =
      i_len == 2 * line_length && has_card_code(input) && mrz_characters::covers(STRING{input, i_len});
  if (!is_td2) {
    return ERR_INVALID_FORMAT;
  }
  const STRING track1 = {input, line_length};
  const STRING track2 = {input + line_length, line_length};
  int status = _parse_track1(&track1, result);
  if (status == ERR_OK) {
    status = _parse_track2(&track2, result, context);
  }
  if (status == ERR_OK) {
    write_document_type(result, STRING{"TD", 2});
  }
  return status;
}
