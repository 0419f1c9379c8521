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
  // In two pieces: for 2 KiB and more at once, glibc on x86-64 takes a way that starts slowly. Of a size that
  // the compiler does not see: it would put such a slow start in place of the call.
  const volatile size_t half = (FIELD_COUNT + 1) / 2 * sizeof(FIELD);
  char *const fields = reinterpret_cast<char *>(pResult->fields);
  const size_t first = half;
  memset(fields, 0, first);
  memset(fields + first, 0, sizeof pResult->fields - first);
  memset(pResult->buffer, 0, static_cast<size_t>(pResult->buffer_size));
  return ERR_OK;
}
