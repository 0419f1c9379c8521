#include "copying.hpp"

#include <Varnel/utils.h>

namespace {

// The character of a digit, 0 to 9.
constexpr char digit_character(int value) { return static_cast<char>('0' + value); }

// Adds the terminator that the strwrite family keeps a byte for; nothing at all for an empty copy.
int terminated(char *out, int copied) {
  if (copied < 1) {
    return 0;
  }
  out[copied] = '\0';
  return copied + 1;
}

// The room for text when one byte is kept for the terminator.
int room_for_text(int o_len) { return o_len > 0 ? o_len - 1 : 0; }

uint64_t magnitude(int64_t num) {
  const uint64_t bits = static_cast<uint64_t>(num);
  return num < 0 ? 0 - bits : bits;
}

int decimal_digits(uint64_t value) {
  int digits = 1;
  for (; value > 9; value /= 10) {
    ++digits;
  }
  return digits;
}

} // namespace

int utils_strcpy(char *out, int o_len, const STRING *src, const char *removed_chars,
                 const char *duplicate_chars, char rep) {
  const char_set removed(removed_chars);
  const char_set duplicate(duplicate_chars);
  return copy_filtered(
      out, o_len, src, [&](char c) { return removed.contains(c); },
      [&](char c) { return duplicate.contains(c); }, rep);
}

int utils_strcpy_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                   _t_predicate_func duplicate, char rep) {
  const auto passes = [](_t_predicate_func f, char c) { return f != nullptr && f(char_value(c)) != 0; };
  return copy_filtered(
      out, o_len, src, [&](char c) { return passes(removed, c); },
      [&](char c) { return passes(duplicate, c); }, rep);
}

int utils_strcpy_array(char *out, int o_len, const STRING *src, int count, char sep,
                       const char *removed_chars, const char *duplicate_chars, char rep) {
  if (src == nullptr) {
    return 0;
  }
  int written = 0;
  for (int i = 0; i < count && written < o_len; ++i) {
    if (is_empty(src[i])) {
      continue;
    }
    if (written > 0) {
      out[written++] = sep;
    }
    written += utils_strcpy(out + written, o_len - written, &src[i], removed_chars, duplicate_chars, rep);
  }
  return written;
}

int utils_strwrite(char *out, int o_len, const STRING *src, const char *removed_chars,
                   const char *duplicate_chars, char rep) {
  return terminated(out, utils_strcpy(out, room_for_text(o_len), src, removed_chars, duplicate_chars, rep));
}

int utils_strwrite_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                     _t_predicate_func duplicate, char rep) {
  return terminated(out, utils_strcpy_f(out, room_for_text(o_len), src, removed, duplicate, rep));
}

int utils_strwrite_s(char *out, int o_len, const char *text) {
  const STRING view = {text, text_length(text)};
  return utils_strwrite(out, o_len, &view, nullptr, nullptr, '\0');
}

int utils_strwrite_array(char *out, int o_len, const STRING *src, int count, char sep,
                         const char *removed_chars, const char *duplicate_chars, char rep) {
  return terminated(out, utils_strcpy_array(out, room_for_text(o_len), src, count, sep, removed_chars,
                                            duplicate_chars, rep));
}

int utils_itoa(int64_t num, char *out, int o_len, int pad) {
  if (out == nullptr) {
    return 0;
  }
  uint64_t rest = magnitude(num);
  const int needed = decimal_digits(rest) + (num < 0 ? 1 : 0);
  if (needed > o_len) {
    return 0;
  }
  const int width = (pad & 1) != 0 ? o_len : needed;
  for (int i = width; i-- > 0; rest /= 10) {
    out[i] = digit_character(static_cast<int>(rest % 10));
  }
  if (num < 0) {
    out[0] = '-';
  }
  return width;
}

char utils_itoch(int n) { return n < 0 || n > 9 ? ' ' : digit_character(n); }
