// What characters count in a check-digit sum, and what they weigh, ICAO Doc 9303-3, section 4.9.
#ifndef VARNEL_SRC_MRZ_CHECK_DIGITS_HPP
#define VARNEL_SRC_MRZ_CHECK_DIGITS_HPP

#include "../words.hpp"
#include "character_sets.hpp"

// By position modulo 3.
constexpr int CHECK_WEIGHTS[3] = {7, 3, 1};

// What each character of a word counts: a digit itself, letters from 10 on, a filler 0. Of letters and
// fillers the marks are given; for a character that is neither nor a digit the number is of no meaning.
template <class Word> Word check_values_of(Word word, Word letters, Word fillers) {
  return words::less(word, '0') - words::bits(letters, 'A' - '0' - 10) - words::bits(fillers, FILLER - '0');
}

#endif
