#include <Varnel/Varnel.h>

#include "exported_values.h"
#include "slots.hpp"

namespace {

// As text_bounds::read(), for any text.
VARNEL_SELDOM STRING read_slowly(const PARSE_RESULT &result, const FIELD &slot) {
  return record::text_bounds(result).read(slot);
}

// The same. The usual text is short and not at the end of the buffer, so that two words can be looked at: one
// that begins in the first `starts` bytes.
STRING read(const PARSE_RESULT &result, size_t starts, const FIELD &slot) {
  const char *const text = slot.value.str;
  if (text == nullptr) {
    return STRING{"", 0};
  }
  if (reinterpret_cast<uintptr_t>(text) - reinterpret_cast<uintptr_t>(result.buffer) < starts) {
    const uint64_t first = words::nul(words::load<uint64_t>(text));
    if (first != 0) {
      return STRING{text, words::first(first)};
    }
    const uint64_t second = words::nul(words::load<uint64_t>(text + words::SIZE));
    if (second != 0) {
      return STRING{text, words::SIZE + words::first(second)};
    }
  }
  return read_slowly(result, slot);
}

} // namespace

STRING varnel_value(const PARSE_RESULT *result, int field) {
  if (!record::has_slot(result, field)) {
    return STRING{"", 0};
  }
  return read_slowly(*result, result->fields[field]);
}

int varnel_export(const PARSE_RESULT *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]) {
  static_assert(sizeof EXPORTED_VALUES / sizeof *EXPORTED_VALUES == VARNEL_VALUE_COUNT, "twelve values");
  if (result == nullptr || pairs == nullptr) {
    return ERR_INVALID_ARGS;
  }
  constexpr int looked_at = 2 * words::SIZE;
  const size_t starts = static_cast<size_t>(larger(result->buffer_size, looked_at - 1)) - (looked_at - 1);
  for (const EXPORTED_VALUE &exported : EXPORTED_VALUES) {
    STRING value;
    const unsigned char *slot = exported.slots;
    do {
      value = read(*result, starts, result->fields[*slot++]);
    } while (value.len == 0 && *slot != EXPORTED_END);
    *pairs++ = VARNEL_PAIR{exported.key, value};
  }
  return ERR_OK;
}
