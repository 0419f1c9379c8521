#include "slots.hpp"

#include <Varnel/utils.h>

FIELD *record::fill_slot_from(const room &room, PARSE_RESULT *result, int field, int length) {
  FIELD *slot = &result->fields[field];
  const text_bounds bounds(*result);
  const int left = static_cast<int>(bounds.left_from(room.text));
  const int kept = smaller(smaller(length, room.size), left);
  if (kept < 1) {
    slot->value = STRING{nullptr, 0};
    return slot;
  }
  slot->value = STRING{room.text, kept};
  // What the caller's code appended is in use too: the text counts once more, as far as there is room, and
  // everything up to its own end is in use in any case.
  const int end = result->buffer_size - left + kept;
  result->data_size += smaller(kept, result->buffer_size - result->data_size);
  result->data_size = larger(result->data_size, end);
  terminate(result);
  return slot;
}

int utils_is_valid_field(const PARSE_RESULT *pResult, int field) {
  if (!record::has_slot(pResult, field)) {
    return ERR_FAILED;
  }
  return is_empty(pResult->fields[field].value) ? ERR_FAILED : ERR_OK;
}

int utils_get_valid_field(const PARSE_RESULT *pResult, const int *fields, int count, STRING *value) {
  for (int i = 0; i < count; ++i) {
    if (utils_is_valid_field(pResult, fields[i]) == ERR_OK) {
      *value = pResult->fields[fields[i]].value;
      return ERR_OK;
    }
  }
  return ERR_NOT_FOUND;
}
