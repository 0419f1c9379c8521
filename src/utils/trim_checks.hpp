// Trimming and checking with the character test open to the compiler's inlining.
#ifndef VARNEL_SRC_UTILS_TRIM_CHECKS_HPP
#define VARNEL_SRC_UTILS_TRIM_CHECKS_HPP

#include "../view.hpp"

template <class Drop> void trim_start(STRING &view, Drop drops) {
  if (view.str == nullptr) {
    return;
  }
  while (view.len > 0 && drops(view.str[0])) {
    ++view.str;
    --view.len;
  }
}

template <class Drop> void trim_end(STRING &view, Drop drops) {
  if (view.str == nullptr) {
    return;
  }
  while (view.len > 0 && drops(view.str[view.len - 1])) {
    --view.len;
  }
}

// The 1-based position of the first character that fails the test, 0 when all pass.
template <class Test> int first_refused(STRING view, Test passes) {
  for (int i = 0; i < view.len; ++i) {
    if (!passes(char_value(view.str[i]))) {
      return i + 1;
    }
  }
  return 0;
}

#endif
