#include <Varnel/utils.h>

#include <string.h>

#include "../view.hpp"

namespace {

// With the character test open to the compiler's inlining.
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

auto in_set(const char_set &set) {
  return [&set](char c) { return set.contains(c); };
}

auto in_class(_t_predicate_func f) {
  return [f](char c) { return f(char_value(c)) != 0; };
}

} // namespace

void utils_strtrim_start(STRING *source, const char *chars) {
  if (source != nullptr) {
    trim_start(*source, in_set(char_set(chars)));
  }
}

void utils_strtrim_end(STRING *source, const char *chars) {
  if (source != nullptr) {
    trim_end(*source, in_set(char_set(chars)));
  }
}

void utils_strtrim(STRING *source, const char *chars) {
  utils_strtrim_start(source, chars);
  utils_strtrim_end(source, chars);
}

void utils_strtrim_start_f(STRING *source, _t_predicate_func f) {
  if (source != nullptr && f != nullptr) {
    trim_start(*source, in_class(f));
  }
}

void utils_strtrim_end_f(STRING *source, _t_predicate_func f) {
  if (source != nullptr && f != nullptr) {
    trim_end(*source, in_class(f));
  }
}

void utils_strtrim_f(STRING *source, _t_predicate_func f) {
  utils_strtrim_start_f(source, f);
  utils_strtrim_end_f(source, f);
}

void utils_strtrim_begin(STRING *s, int begin) {
  if (s == nullptr || s->len == 0 || s->str == nullptr || begin <= 0) {
    return;
  }
  if (s->len <= begin) {
    // An emptied view stays on its last character, not past its end.
    s->str += static_cast<ptrdiff_t>(s->len) - 1;
    s->len = 0;
    return;
  }
  s->str += begin;
  s->len -= begin;
}

int utils_cstrtrim(char *str, int len, const char *chars) {
  if (str == nullptr || len < 1 || chars == nullptr) {
    return len;
  }
  STRING kept = {str, len};
  utils_strtrim(&kept, chars);
  memmove(str, kept.str, static_cast<size_t>(kept.len));
  return kept.len;
}
