// Check digits of ICAO Doc 9303-3, section 4.9: values weighted 7, 3, 1, the sum modulo ten.
#ifndef VARNEL_SRC_DOCUMENTS_CHECK_DIGIT_HPP
#define VARNEL_SRC_DOCUMENTS_CHECK_DIGIT_HPP

#include "../mrz/check_digits.hpp"
#include "layouts.hpp"

namespace documents {

namespace detail {

struct check_values {
  unsigned char of[256] = {};

  constexpr check_values() {
    for (int c = 0; c < 128; ++c) {
      of[c] = static_cast<unsigned char>(check_value(static_cast<char>(c)));
    }
  }
};

inline constexpr check_values CHECK_VALUES;

} // namespace detail

// A sum that goes on from stretch to stretch, as the composite needs it.
class check_sum {
public:
  constexpr void add(char c) {
    sum_ += value(c) * weight_;
    weight_ = after(weight_);
  }

  constexpr void add(const char *text, int length) {
    // After three characters the weights come round.
    const unsigned second = after(weight_);
    const unsigned third = after(second);
    int i = 0;
    for (; i + 3 <= length; i += 3) {
      sum_ += value(text[i]) * weight_ + value(text[i + 1]) * second + value(text[i + 2]) * third;
    }
    for (; i < length; ++i) {
      add(text[i]);
    }
  }

  // The digit, '0' to '9'.
  constexpr char digit() const { return static_cast<char>('0' + sum_ % 10); }

private:
  static constexpr unsigned value(char c) { return detail::CHECK_VALUES.of[static_cast<unsigned char>(c)]; }

  static constexpr unsigned after(unsigned weight) { return weight == 7 ? 3 : weight == 3 ? 1 : 7; }

  unsigned sum_ = 0;
  unsigned weight_ = 7;
};

constexpr char check_digit(const char *text, int length) {
  check_sum sum;
  sum.add(text, length);
  return sum.digit();
}

// The digit that belongs in a check's place. `columns` says of a stretch of the zone where its text begins.
template <class Columns> char expected_digit(const check_place &check, Columns columns) {
  check_sum sum;
  for (int i = 0; i < check.covered_count; ++i) {
    sum.add(columns(check.covered[i]), check.covered[i].length);
  }
  return sum.digit();
}

} // namespace documents

#endif
