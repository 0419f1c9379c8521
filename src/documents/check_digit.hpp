// Check digits of ICAO Doc 9303-3, section 4.9: values weighted 7, 3, 1, the sum modulo ten.
#ifndef VARNEL_SRC_DOCUMENTS_CHECK_DIGIT_HPP
#define VARNEL_SRC_DOCUMENTS_CHECK_DIGIT_HPP

#include "../ascii.hpp"

namespace documents {

// What a character of a zone counts: digits themselves, A to Z 10 to 35, the filler (and anything else) 0.
constexpr int check_value(char c) {
  return ascii::is_digit(c) ? c - '0' : ascii::is_upper(c) ? c - 'A' + 10 : 0;
}

// A sum that goes on from stretch to stretch, as the composite needs it.
class check_sum {
public:
  constexpr void add(char c) {
    constexpr int weights[3] = {7, 3, 1};
    sum_ += check_value(c) * weights[position_];
    position_ = position_ == 2 ? 0 : position_ + 1;
  }

  constexpr void add(const char *text, int length) {
    for (int i = 0; i < length; ++i) {
      add(text[i]);
    }
  }

  // The digit, '0' to '9'.
  constexpr char digit() const { return static_cast<char>('0' + sum_ % 10); }

private:
  int sum_ = 0;
  int position_ = 0;
};

constexpr char check_digit(const char *text, int length) {
  check_sum sum;
  sum.add(text, length);
  return sum.digit();
}

} // namespace documents

#endif
