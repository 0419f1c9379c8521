#include <Varnel/utils.h>

#include "slots.hpp"

using record::fill_slot;
using record::fill_slot_from;
using record::free_size;
using record::free_space;
using record::has_slot;

FIELD *utils_write_field(PARSE_RESULT *pResult, int field, const STRING *src, const char *removed_chars,
                         const char *duplicate_chars, char rep) {
  if (!has_slot(pResult, field)) {
    return nullptr;
  }
  return fill_slot(
      pResult, field,
      utils_strcpy(free_space(pResult), free_size(pResult), src, removed_chars, duplicate_chars, rep));
}

FIELD *utils_write_field_f(PARSE_RESULT *pResult, int field, const STRING *src, _t_predicate_func removed,
                           _t_predicate_func duplicate, char rep) {
  if (!has_slot(pResult, field)) {
    return nullptr;
  }
  const record::room room(pResult);
  const int written = utils_strcpy_f(room.text, room.size, src, removed, duplicate, rep);
  return fill_slot_from(room, pResult, field, written);
}

FIELD *utils_write_field_s(PARSE_RESULT *pResult, int field, const char *text) {
  if (text == nullptr) {
    return nullptr;
  }
  const STRING view = {text, text_length(text)};
  return utils_write_field(pResult, field, &view, nullptr, nullptr, '\0');
}

FIELD *utils_write_field_w(PARSE_RESULT *pResult, int field, void *data, _t_writer_func wf) {
  if (!has_slot(pResult, field) || wf == nullptr) {
    return nullptr;
  }
  const record::room room(pResult);
  const int written = wf(data, room.text, room.size);
  return fill_slot_from(room, pResult, field, written);
}

FIELD *utils_write_field_array(PARSE_RESULT *pResult, int field, const STRING *src, int count, char sep,
                               const char *removed_chars, const char *duplicate_chars, char rep) {
  if (!has_slot(pResult, field)) {
    return nullptr;
  }
  // The copy brings its own NUL, and filling the slot adds another: two terminators for each value.
  const int used = utils_strwrite_array(free_space(pResult), free_size(pResult), src, count, sep,
                                        removed_chars, duplicate_chars, rep);
  return fill_slot(pResult, field, used - 1, used);
}

FIELD *utils_write_field_date(PARSE_RESULT *pResult, int field, const DATETIME *pDate) {
  constexpr int length = 8;
  if (!has_slot(pResult, field) || pDate == nullptr || free_size(pResult) < length) {
    return nullptr;
  }
  char *out = free_space(pResult);
  utils_itoa(pDate->year, out, 4, 1);
  utils_itoa(pDate->month, out + 4, 2, 1);
  utils_itoa(pDate->day, out + 6, 2, 1);
  return fill_slot(pResult, field, length);
}
