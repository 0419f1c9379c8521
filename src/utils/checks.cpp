#include <Varnel/utils.h>

#include "../view.hpp"

namespace {

// The 1-based position of the first character that fails the test, 0 when all pass.
int first_refused(STRING view, _t_predicate_func f) {
  for (int i = 0; i < view.len; ++i) {
    if (f(char_value(view.str[i])) == 0) {
      return i + 1;
    }
  }
  return 0;
}

} // namespace

int utils_strcheck_f(const STRING *source, _t_predicate_func f) {
  if (source == nullptr || f == nullptr || source->str == nullptr) {
    return -1;
  }
  return first_refused(*source, f);
}

int utils_cstrcheck_f(const char *str, _t_predicate_func f) {
  if (str == nullptr || f == nullptr) {
    return -1;
  }
  return first_refused(STRING{str, text_length(str)}, f);
}
