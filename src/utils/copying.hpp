// The one copying loop of every copier and slot writer, open to the compiler's inlining.
#ifndef VARNEL_SRC_UTILS_COPYING_HPP
#define VARNEL_SRC_UTILS_COPYING_HPP

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

#endif
