#include <Varnel/utils.h>

#include "../ascii.hpp"
#include "../view.hpp"

namespace {

constexpr int FLAG_IGNORE_CASE = 1;

int clamped_difference(int a, int b) {
  const int64_t difference = static_cast<int64_t>(a) - b;
  if (difference < INT_MIN) {
    return INT_MIN;
  }
  return difference > INT_MAX ? INT_MAX : static_cast<int>(difference);
}

// The order of two texts of equal length, as signed characters: 0 equal, 1 first greater, else -1.
int order(const char *a, const char *b, int len, bool ignore_case) {
  for (int i = 0; i < len; ++i) {
    int left = char_value(a[i]);
    int right = char_value(b[i]);
    if (ignore_case && ascii::is_alpha(left) && ascii::is_alpha(right)) {
      left = ascii::to_upper(left);
      right = ascii::to_upper(right);
    }
    if (left != right) {
      return left > right ? 1 : -1;
    }
  }
  return 0;
}

} // namespace

int utils_strcmp(const STRING *s, const char *str) {
  if (s == nullptr || s->str == nullptr) {
    return str != nullptr ? -1 : 0;
  }
  if (str == nullptr) {
    return 1;
  }
  const int length = text_length(str);
  if (s->len != length) {
    return clamped_difference(s->len, length); // by length alone, never by the characters
  }
  return order(s->str, str, length, false);
}

int utils_tokcmp(const STRING *tok1, const STRING *tok2, int flags) {
  const bool has_second = tok2 != nullptr && tok2->str != nullptr;
  if (tok1 == nullptr || tok1->str == nullptr) {
    return has_second ? -1 : 0;
  }
  if (!has_second) {
    return 1;
  }
  if (tok1->len != tok2->len) {
    return clamped_difference(tok1->len, tok2->len);
  }
  return order(tok1->str, tok2->str, tok1->len, (flags & FLAG_IGNORE_CASE) != 0);
}
