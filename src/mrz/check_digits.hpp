// Check digits of ICAO Doc 9303-3, section 4.9.
#ifndef VARNEL_SRC_MRZ_CHECK_DIGITS_HPP
#define VARNEL_SRC_MRZ_CHECK_DIGITS_HPP

#include "../ascii.hpp"

// What a sum's characters weigh, by position modulo 3.
constexpr int CHECK_WEIGHTS[3] = {7, 3, 1};

// What a character of a zone counts: digits themselves, A to Z 10 to 35, the filler (and anything else) 0.
constexpr int check_value(int c) {
  return ascii::is_digit(c) ? c - '0' : ascii::is_upper(c) ? c - 'A' + 10 : 0;
}

#endif
