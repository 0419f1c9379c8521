#include <Varnel/mrz/mrz_common.h>

#include "../ascii.hpp"
#include "../view.hpp"
#include "character_sets.hpp"
#include "check_digits.hpp"

namespace {

// Stands for the value of a character that has none; the values are 0 to 35.
constexpr unsigned NO_VALUE = 0x80;

// The value of every byte in a check-digit sum.
struct check_values {
  unsigned char of[256] = {};

  constexpr check_values() {
    for (int c = 0; c < 256; ++c) {
      of[c] = static_cast<unsigned char>(value(c));
    }
  }

private:
  static constexpr unsigned value(int c) {
    if (ascii::is_digit(c)) {
      return static_cast<unsigned>(c - '0');
    }
    if (ascii::is_upper(c)) {
      return static_cast<unsigned>(c - 'A' + 10);
    }
    return c == FILLER ? 0 : NO_VALUE;
  }
};

constexpr check_values CHECK_VALUES;

// So many characters of a wide word count at a time that the next ones begin at the same place in the cycle
// of weights.
constexpr int STEP = words::WIDE_SIZE / 3 * 3;

// Their weights, from each place in the cycle on. What stands before and after them weighs nothing.
struct step_weights {
  static constexpr int BEGIN = words::WIDE_SIZE;
  char of[3][BEGIN + words::WIDE_SIZE] = {};

  constexpr step_weights() {
    for (int place = 0; place < 3; ++place) {
      for (int i = 0; i < STEP; ++i) {
        of[place][BEGIN + i] = static_cast<char>(CHECK_WEIGHTS[(place + i) % 3]);
      }
    }
  }
};

constexpr step_weights STEP_WEIGHTS;

// The sum of a text shorter than a wide word, or NO_SUM.
constexpr int64_t NO_SUM = -1;

int64_t sum_of_short(const char *str, int len, const char *weights) {
  unsigned sum = 0;
  unsigned values = 0; // the bits of all
  for (; len > 0; --len, ++str, ++weights) {
    const unsigned value = CHECK_VALUES.of[static_cast<unsigned char>(*str)];
    sum += value * static_cast<unsigned>(*weights);
    values |= value;
  }
  return values < NO_VALUE ? sum : NO_SUM;
}

// The same, of a text of a wide word or more.
int64_t sum_of_long(const char *str, int len, const char *weights) {
  words::sums sums = {};
  words::wide inside = ~words::wide{};
  for (; len > 0; len -= STEP, str += STEP) {
    // The last word begins before what is left of the text, where nothing has any weight.
    if (len < words::WIDE_SIZE) {
      str -= words::WIDE_SIZE - len;
      weights -= words::WIDE_SIZE - len;
    }
    const words::wide word = words::load<words::wide>(str);
    inside &= mrz_characters::marks(word);
    const words::wide values =
        check_values_of(word, words::in_range(word, 'A', 'Z'), words::in_range(word, FILLER, FILLER));
    words::add_products(values, words::load<words::wide>(weights), sums);
  }
  return words::all(inside) ? words::total(sums) : NO_SUM;
}

} // namespace

int MRZ_common_pattern_valid_mrz(int c) { return mrz_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_date(int c) { return mrz_date_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_name(int c) { return mrz_name_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_cc(int c) { return mrz_code_characters::contains(c); }

int MRZ_common_calc_control_sum(const char *str, int len, int *pos) {
  if (str == nullptr) {
    return -1;
  }
  // Unsigned, so that no length and no position can overflow.
  const unsigned position = pos != nullptr ? static_cast<unsigned>(*pos) : 0;
  len = larger(len, 0);
  const char *const weights = STEP_WEIGHTS.of[position % 3] + step_weights::BEGIN;
  const int64_t sum =
      len < words::WIDE_SIZE ? sum_of_short(str, len, weights) : sum_of_long(str, len, weights);
  if (sum == NO_SUM) {
    return -1;
  }
  if (pos != nullptr) {
    *pos = static_cast<int>(position + static_cast<unsigned>(len));
  }
  return static_cast<int>(static_cast<unsigned>(sum));
}

int MRZ_common_validate_control_sum(int sum, char c) {
  const int digit = c == FILLER ? '0' : c;
  return ascii::is_digit(digit) && sum % 10 == digit - '0';
}
