#include <Varnel/Varnel.h>

#include <string.h>

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
  // In two pieces: for 2 KiB and more at once, glibc on x86-64 takes a way that starts slowly.
  constexpr int half = FIELD_COUNT / 2;
  memset(pResult->fields, 0, half * sizeof(FIELD));
  memset(pResult->fields + half, 0, (FIELD_COUNT - half) * sizeof(FIELD));
  memset(pResult->buffer, 0, static_cast<size_t>(pResult->buffer_size));
  return ERR_OK;
}
