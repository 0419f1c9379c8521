#include <Varnel/Varnel.h>

#include "exported_values.h"
#include "slots.hpp"

STRING varnel_value(const PARSE_RESULT *result, int field) {
  if (!record::has_slot(result, field)) {
    return STRING{"", 0};
  }
  return record::text_bounds(*result).read(result->fields[field]);
}

int varnel_export(const PARSE_RESULT *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]) {
  static_assert(sizeof EXPORTED_VALUES / sizeof *EXPORTED_VALUES == VARNEL_VALUE_COUNT, "twelve values");
  if (result == nullptr || pairs == nullptr) {
    return ERR_INVALID_ARGS;
  }
  const record::text_bounds bounds(*result);
  for (const EXPORTED_VALUE &exported : EXPORTED_VALUES) {
    STRING value;
    const unsigned char *slot = exported.slots;
    do {
      value = bounds.read(result->fields[*slot++]);
    } while (value.len == 0 && *slot != EXPORTED_END);
    *pairs++ = VARNEL_PAIR{exported.key, value};
  }
  return ERR_OK;
}
