// The record's own rules, in one place: which slots there are, where the next text goes, how a slot is filled
// and how it is read. Whatever writes to a record or reads from one goes through here.
//
// 0 <= data_size <= buffer_size always holds, and every filled slot lies in buffer[0 .. data_size).
#ifndef VARNEL_SRC_RECORD_SLOTS_HPP
#define VARNEL_SRC_RECORD_SLOTS_HPP

#include <Varnel/defines.h>

#include <stddef.h>
#include <stdint.h>

#include "../view.hpp"
#include "../words.hpp"

namespace record {

constexpr bool has_slot(const PARSE_RESULT *result, int field) {
  return result != nullptr && field >= 0 && field < FIELD_COUNT;
}

// ---- filling ----------------------------------------------------------------------------------------

inline char *free_space(const PARSE_RESULT *result) {
  return result->buffer != nullptr ? result->buffer + result->data_size : nullptr;
}

inline int free_size(const PARSE_RESULT *result) {
  return result->buffer != nullptr ? result->buffer_size - result->data_size : 0;
}

// Stores a NUL after the text, unless that would take the buffer's last byte.
inline void terminate(PARSE_RESULT *result) {
  if (result->data_size < result->buffer_size - 1) {
    result->buffer[result->data_size++] = '\0';
  }
}

// Points a slot at the `length` characters just written to the free space, of which the record then
// uses `used` bytes; the slot becomes empty when there are none.
inline FIELD *fill_slot(PARSE_RESULT *result, int field, int length, int used) {
  FIELD *slot = &result->fields[field];
  if (length < 1) {
    slot->value = STRING{nullptr, 0};
    return slot;
  }
  slot->value = STRING{free_space(result), length};
  result->data_size += used;
  terminate(result);
  return slot;
}

// The same for a plain copy, whose text is all that it used.
inline FIELD *fill_slot(PARSE_RESULT *result, int field, int length) {
  return fill_slot(result, field, length, length);
}

// The free space as it is before code of the caller's runs, which may use the record itself.
struct room {
  char *text;
  int size;

  explicit room(const PARSE_RESULT *result) : text(free_space(result)), size(free_size(result)) {}
};

// Points a slot at the `length` characters that were written to `room` while code of the caller's ran. The
// text stays where it was written; what of it lies outside the buffer that the record has by now is cut.
FIELD *fill_slot_from(const room &room, PARSE_RESULT *result, int field, int length);

// ---- reading ----------------------------------------------------------------------------------------

// The length of a text up to its first NUL, or `size` where there is none before. A word at a time, without a
// call.
inline int length_up_to(const char *text, size_t size) {
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

  // The number of bytes from `text` to the end of the buffer; 0 for a text outside it.
  size_t left_from(const char *text) const {
    const uintptr_t offset = reinterpret_cast<uintptr_t>(text) - begin;
    return offset < size ? size - offset : 0;
  }

  // The text of a slot up to its first NUL, never null. A text that fills the buffer to its end has no
  // NUL after it; one that the caller put into the slot from elsewhere must have.
  STRING read(const FIELD &slot) const {
    const char *const text = slot.value.str;
    if (text == nullptr) {
      return STRING{"", 0};
    }
    const size_t left = left_from(text);
    return STRING{text, left > 0 ? length_up_to(text, left) : text_length(text)};
  }
};

} // namespace record

#endif
