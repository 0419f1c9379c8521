// Small helpers over STRING views, shared by the modules of the core.
#ifndef VARNEL_SRC_VIEW_HPP
#define VARNEL_SRC_VIEW_HPP

#include <Varnel/defines.h>

#include <limits.h>
#include <string.h>

// Inlined wherever it is called: for the few small functions that a profile shows to cost their calls.
// The others keep what seldom runs out of the way of what does.
#if defined(__GNUC__)
#define VARNEL_INLINE inline __attribute__((always_inline))
#define VARNEL_SELDOM __attribute__((noinline, cold))
#elif defined(_MSC_VER)
#define VARNEL_INLINE __forceinline
#define VARNEL_SELDOM __declspec(noinline)
#else
#define VARNEL_INLINE inline
#define VARNEL_SELDOM
#endif

// A character as the predicates and comparisons see it: sign-extended, whatever the signedness of char.
constexpr int char_value(char c) { return static_cast<signed char>(c); }

constexpr bool is_empty(STRING view) { return view.len < 1 || view.str == nullptr; }

constexpr int smaller(int a, int b) { return a < b ? a : b; }

constexpr int larger(int a, int b) { return a > b ? a : b; }

// The length of a NUL-terminated text; null counts as empty, more than an int holds as INT_MAX.
inline int text_length(const char *text) {
  const size_t length = text != nullptr ? strlen(text) : 0;
  return length < INT_MAX ? static_cast<int>(length) : INT_MAX;
}

// A NUL-terminated list of characters used as a set.
class char_set {
public:
  explicit char_set(const char *chars) : chars_(chars), size_(text_length(chars)) {}

  bool contains(char c) const {
    for (int i = 0; i < size_; ++i) {
      if (chars_[i] == c) {
        return true;
      }
    }
    return false;
  }

private:
  const char *chars_;
  int size_;
};

#endif
