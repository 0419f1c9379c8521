#include <Varnel/mrz/mrz_common.h>

#include "../ascii.hpp"
#include "../view.hpp"
#include "character_sets.hpp"
#include "check_weights.hpp"

namespace {

// What a character without a value counts: more than the values of a stretch together.
constexpr int STRETCH = 3 * 256;
constexpr unsigned NO_VALUE = 0x4000;
static_assert(35 * STRETCH / 3 < NO_VALUE, "Z has the largest value");

// The value of every byte in a check-digit sum.
struct check_values {
  uint16_t of[256] = {};

  constexpr check_values() {
    for (int c = 0; c < 256; ++c) {
      of[c] = static_cast<uint16_t>(value(c));
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

// The weights from any position in their cycle on.
constexpr unsigned CYCLE[5] = {CHECK_WEIGHTS[0], CHECK_WEIGHTS[1], CHECK_WEIGHTS[2], CHECK_WEIGHTS[0],
                               CHECK_WEIGHTS[1]};

unsigned check_value(char c) { return CHECK_VALUES.of[static_cast<unsigned char>(c)]; }

// Sums of every third value, from the first, the second and the third character on: each is weighted once.
struct sums {
  unsigned first = 0;
  unsigned second = 0;
  unsigned third = 0;

  bool has_all_values() const { return (first | second | third) < NO_VALUE; }

  void operator+=(const sums &other) {
    first += other.first;
    second += other.second;
    third += other.third;
  }
};

// Of a stretch of at most STRETCH characters.
sums sums_of(const char *str, int len) {
  sums sums;
  int i = 0;
  for (; i + 3 <= len; i += 3) {
    sums.first += check_value(str[i]);
    sums.second += check_value(str[i + 1]);
    sums.third += check_value(str[i + 2]);
  }
  if (i < len) {
    sums.first += check_value(str[i]);
  }
  if (i + 1 < len) {
    sums.second += check_value(str[i + 1]);
  }
  return sums;
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
  sums total;
  for (int done = 0, left = larger(len, 0); left > 0;) {
    const int length = smaller(left, STRETCH); // a multiple of 3 wherever another follows
    const sums stretch = sums_of(str + done, length);
    if (!stretch.has_all_values()) {
      return -1;
    }
    total += stretch;
    done += length;
    left -= length;
  }
  // Unsigned, so that no length and no position can overflow.
  const unsigned position = pos != nullptr ? static_cast<unsigned>(*pos) : 0;
  if (pos != nullptr) {
    *pos = static_cast<int>(position + static_cast<unsigned>(larger(len, 0)));
  }
  const unsigned *const weights = CYCLE + position % 3;
  return static_cast<int>(total.first * weights[0] + total.second * weights[1] + total.third * weights[2]);
}

int MRZ_common_validate_control_sum(int sum, char c) {
  const int digit = c == FILLER ? '0' : c;
  return ascii::is_digit(digit) && sum % 10 == digit - '0';
}
