#include <Varnel/Varnel.h>

#include <stdint.h>
#include <string.h>

#include "exported_values.h"
#include "utf8.hpp"
#include "view.hpp"

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

// How far a slot's text may be read: to the end of the record's buffer, in which no NUL need follow a
// text that fills it. Text that a caller put into a slot from elsewhere must be NUL-terminated.
size_t readable_size(const PARSE_RESULT *result, const char *text) {
  const uintptr_t buffer = reinterpret_cast<uintptr_t>(result->buffer);
  const uintptr_t at = reinterpret_cast<uintptr_t>(text);
  const size_t size = result->buffer_size > 0 ? static_cast<size_t>(result->buffer_size) : 0;
  const bool inside = at >= buffer && at - buffer < size;
  return inside ? size - (at - buffer) : INT_MAX;
}

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
  memset(pResult->fields, 0, sizeof pResult->fields);
  memset(pResult->buffer, 0, static_cast<size_t>(pResult->buffer_size));
  return ERR_OK;
}

int varnel_utf16_length(const char *text, size_t size) {
  int units = 0;
  size_t at = 0;
  while (text != nullptr && at < size && units < VARNEL_EXAMINED_MAX) {
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
  if (result == nullptr || field < 0 || field >= FIELD_COUNT || result->fields[field].value.str == nullptr) {
    return STRING{"", 0};
  }
  const char *text = result->fields[field].value.str;
  return STRING{text, static_cast<int>(strnlen(text, readable_size(result, text)))};
}

int varnel_export(const PARSE_RESULT *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]) {
  static_assert(sizeof EXPORTED_VALUES / sizeof *EXPORTED_VALUES == VARNEL_VALUE_COUNT, "twelve values");
  if (result == nullptr || pairs == nullptr) {
    return ERR_INVALID_ARGS;
  }
  for (const EXPORTED_VALUE &exported : EXPORTED_VALUES) {
    STRING value = {"", 0};
    for (int i = 0; value.len == 0 && exported.slots[i] != EXPORTED_END; ++i) {
      value = varnel_value(result, exported.slots[i]);
    }
    *pairs++ = VARNEL_PAIR{exported.key, value};
  }
  return ERR_OK;
}
