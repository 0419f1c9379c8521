// Well-formed UTF-8, as The Unicode Standard's table of well-formed byte sequences has it.
#ifndef VARNEL_SRC_UTF8_HPP
#define VARNEL_SRC_UTF8_HPP

#include <stddef.h>

#include "character_set.hpp"

namespace utf8 {

constexpr bool in_range(char c, int low, int high) {
  return static_cast<unsigned char>(c) >= low && static_cast<unsigned char>(c) <= high;
}

using ascii_characters = character_set<range<0, 0x7F>>;

constexpr bool is_tail(char c) { return in_range(c, 0x80, 0xBF); }

// The number of bytes of the character that `text` begins with; 1 for a byte that cannot be decoded.
// `size` is at least 1. Overlong forms, surrogates and values above U+10FFFF cannot be decoded.
constexpr int sequence_length(const char *text, size_t size) {
  const unsigned char lead = static_cast<unsigned char>(text[0]);
  if (lead < 0xC2 || lead > 0xF4) {
    return 1;
  }
  if (lead < 0xE0) {
    return size >= 2 && is_tail(text[1]) ? 2 : 1;
  }
  if (lead < 0xF0) {
    const int low = lead == 0xE0 ? 0xA0 : 0x80;
    const int high = lead == 0xED ? 0x9F : 0xBF;
    return size >= 3 && in_range(text[1], low, high) && is_tail(text[2]) ? 3 : 1;
  }
  const int low = lead == 0xF0 ? 0x90 : 0x80;
  const int high = lead == 0xF4 ? 0x8F : 0xBF;
  return size >= 4 && in_range(text[1], low, high) && is_tail(text[2]) && is_tail(text[3]) ? 4 : 1;
}

} // namespace utf8

#endif
