#include <Varnel/Varnel.h>

#include <stdint.h>
#include <string.h>

#include "exported_values.h"
#include "utf8.hpp"
#include "view.hpp"
#include "words.hpp"

const double VarnelVersionNumber = 1.0;
const unsigned char VarnelVersionString[] = "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n";

namespace {

// The reference date is fixed, not today: the same zone gives the same birth year in every year.
constexpr CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

// Offers the zone to the layouts in order; the first that accepts wins. The record is not cleared in
// between: slots that a refusing parser wrote before it refused stay.
int parse_zone(const char *zone, int length, PARSE_RESULT *result) {
  const bool accepted = MRZ_td1_parse(zone, length, result, &REFERENCE) == ERR_OK ||
                        MRZ_td2_parse(zone, length, result, &REFERENCE) == ERR_OK ||
                        MRZ_passport_parse(zone, length, result, &REFERENCE) == ERR_OK ||
                        MRZ_visa_parse(zone, length, result, &REFERENCE) == ERR_OK;
  return accepted ? ERR_OK : ERR_INVALID_FORMAT;
}

// strnlen() for short texts: a word at a time, without a call.
int length_up_to(const char *text, size_t size) {
  size_t length = 0;
  for (; length + words::SIZE <= size; length += words::SIZE) {
    const uint64_t nul = words::nul(words::load<uint64_t>(text + length));
    if (nul != 0) {
      return static_cast<int>(length) + words::first(nul);
    }
  }
  while (length < size && text[length] != '\0') {
    ++length;
  }
  return static_cast<int>(length);
}

// The lent buffer of a record, as bounds for reading the texts in it.
struct text_bounds {
  uintptr_t begin;
  size_t size;

  explicit text_bounds(const PARSE_RESULT &result)
      : begin(reinterpret_cast<uintptr_t>(result.buffer)),
        size(result.buffer_size > 0 ? static_cast<size_t>(result.buffer_size) : 0) {}

  // The text of a slot up to its first NUL, never null. A text that fills the buffer to its end has no
  // NUL behind it; one that the caller put into the slot from elsewhere must have.
  STRING read(const FIELD &slot) const {
    const char *text = slot.value.str;
    if (text == nullptr) {
      return STRING{"", 0};
    }
    const uintptr_t offset = reinterpret_cast<uintptr_t>(text) - begin;
    return STRING{text, offset < size ? length_up_to(text, size - offset) : text_length(text)};
  }
};

} // namespace

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

int varnel_utf16_length(const char *text, size_t size) {
  if (text == nullptr) {
    return 0;
  }
  const int prefix = size < VARNEL_EXAMINED_MAX ? static_cast<int>(size) : VARNEL_EXAMINED_MAX;
  if (utf8::ascii_characters::covers(STRING{text, prefix})) {
    return prefix; // the usual text: a unit for every byte
  }
  int units = 0;
  for (size_t at = 0; at < size && units < VARNEL_EXAMINED_MAX;) {
    const int bytes = utf8::sequence_length(text + at, size - at);
    units += bytes == 4 ? 2 : 1; // beyond the basic plane: a surrogate pair
    at += static_cast<size_t>(bytes);
  }
  return units < VARNEL_EXAMINED_MAX ? units : VARNEL_EXAMINED_MAX;
}

int varnel_parse_mrz(const char *text, int length, PARSE_RESULT *result, char *buffer, int buffer_size) {
  if (result_init(result, buffer, buffer_size) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  char zone[VARNEL_EXAMINED_MAX + 1];
  int zone_length = 0;
  if (normalize_mrz(text, length, zone, sizeof zone, &zone_length) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  return parse_zone(zone, zone_length, result);
}

STRING varnel_value(const PARSE_RESULT *result, int field) {
  if (!has_slot(result, field)) {
    return STRING{"", 0};
  }
  return text_bounds(*result).read(result->fields[field]);
}

int varnel_export(const PARSE_RESULT *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]) {
  static_assert(sizeof EXPORTED_VALUES / sizeof *EXPORTED_VALUES == VARNEL_VALUE_COUNT, "twelve values");
  if (result == nullptr || pairs == nullptr) {
    return ERR_INVALID_ARGS;
  }
  const text_bounds bounds(*result);
  for (const EXPORTED_VALUE &exported : EXPORTED_VALUES) {
    STRING value = bounds.read(result->fields[exported.slots[0]]);
    for (int i = 1; value.len == 0 && exported.slots[i] != EXPORTED_END; ++i) {
      value = bounds.read(result->fields[exported.slots[i]]);
    }
    *pairs++ = VARNEL_PAIR{exported.key, value};
  }
  return ERR_OK;
}
