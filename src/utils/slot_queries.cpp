#include <Varnel/utils.h>

#include "../view.hpp"

int utils_is_valid_field(const PARSE_RESULT *pResult, int field) {
  if (!has_slot(pResult, field)) {
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
