#include <Varnel/Varnel.h>

#include <string.h>

#include "../zeroing.hpp"

int result_init(PARSE_RESULT *pResult, char *buffer, int buffer_size) {
  if (pResult == nullptr || buffer == nullptr || buffer_size < 1) {
    return ERR_INVALID_ARGS;
  }
  pResult->buffer = buffer;
  pResult->buffer_size = buffer_size;
  return result_clear(pResult);
}

int result_clear(PARSE_RESULT *pResult) {
  if (pResult == nullptr || pResult->buffer == nullptr || pResult->buffer_size <= 0) {
    return ERR_INVALID_ARGS;
  }
  pResult->parser_type = PARSER_TYPE_MAX;
  pResult->parser = PARSER_MAX;
  pResult->data_size = 0;
  set_to_zero(pResult->fields, sizeof pResult->fields);
  memset(pResult->buffer, 0, static_cast<size_t>(pResult->buffer_size));
  return ERR_OK;
}
