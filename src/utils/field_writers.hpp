// The one copying loop behind every copier and slot writer, open to the compiler's inlining.
#ifndef VARNEL_SRC_UTILS_FIELD_WRITERS_HPP
#define VARNEL_SRC_UTILS_FIELD_WRITERS_HPP

#include <Varnel/utils.h>

#include "../view.hpp"

// Copies `src` to `out`, at most `o_len` characters. A removed character is replaced by `rep`, or left
// out when `rep` is NUL; after that, a character that repeats the last one written and is in the
// duplicate class is left out. Returns the number of characters written; there is no terminator.
template <class Removed, class Duplicate>
int copy_filtered(char *out, int o_len, const STRING *src, Removed is_removed, Duplicate is_duplicate,
                  char rep) {
  if (out == nullptr || src == nullptr || is_empty(*src)) {
    return 0;
  }
  const STRING text = *src; // read once: the compiler cannot know that `out` lies elsewhere
  int written = 0;
  char last = '\0';
  for (int i = 0; i < text.len && written < o_len; ++i) {
    char c = text.str[i];
    if (is_removed(c)) {
      if (rep == '\0') {
        continue;
      }
      c = rep;
    }
    if (c == last && written > 0 && is_duplicate(c)) {
      continue;
    }
    out[written++] = last = c;
  }
  return written;
}

inline char *free_space(const PARSE_RESULT *result) {
  return result->buffer != nullptr ? result->buffer + result->data_size : nullptr;
}

inline int free_size(const PARSE_RESULT *result) {
  return result->buffer != nullptr ? result->buffer_size - result->data_size : 0;
}

// Stores a NUL behind the text, unless that would take the buffer's last byte.
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

#endif
