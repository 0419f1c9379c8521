#include <Varnel/mrz/mrz_common.h>

#include "../ascii.hpp"
#include "../view.hpp"
#include "character_sets.hpp"
#include "check_digits.hpp"

namespace {

// How many characters are added up at a time: so many that the next ones begin at the same place in the cycle
// of weights.
constexpr int STEP = 15;

// Stands for what a character adds that has no value: more than all others of a step together.
constexpr uint16_t NO_VALUE = 0x1000;
static_assert(STEP * 35 * 7 < NO_VALUE && STEP * NO_VALUE <= UINT16_MAX);

// What every byte adds to a check-digit sum, by its place in the cycle of weights.
struct weighted_values {
  uint16_t of[3][256] = {};

  constexpr weighted_values() {
    for (int place = 0; place < 3; ++place) {
      for (int c = 0; c < 256; ++c) {
        of[place][c] = has_value(c) ? static_cast<uint16_t>(check_value(c) * CHECK_WEIGHTS[place]) : NO_VALUE;
      }
    }
  }

private:
  static constexpr bool has_value(int c) { return ascii::is_digit(c) || ascii::is_upper(c) || c == FILLER; }
};

constexpr weighted_values WEIGHTED;

// The sum of the first STEP characters, or of all if there are fewer, at least one; the first weighs 7. It is
// not below NO_VALUE where one has no value. Straight from the last character to the first: a loop would take
// half as long again.
unsigned sum_of_step(const unsigned char *text, int length) {
  uint16_t sum = WEIGHTED.of[0][text[0]];
  const auto add = [&](int i) { sum = static_cast<uint16_t>(sum + WEIGHTED.of[i % 3][text[i]]); };
  switch (length) {
  // clang-format off
  default: add(14); [[fallthrough]];
  case 14: add(13); [[fallthrough]];
  case 13: add(12); [[fallthrough]];
  case 12: add(11); [[fallthrough]];
  case 11: add(10); [[fallthrough]];
  case 10: add(9); [[fallthrough]];
  case  9: add(8); [[fallthrough]];
  case  8: add(7); [[fallthrough]];
  case  7: add(6); [[fallthrough]];
  case  6: add(5); [[fallthrough]];
  case  5: add(4); [[fallthrough]];
  case  4: add(3); [[fallthrough]];
  case  3: add(2); [[fallthrough]];
  case  2: add(1); [[fallthrough]];
  case  1: return sum;
    // clang-format on
  }
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
  const auto *text = reinterpret_cast<const unsigned char *>(str);
  // Unsigned, so that no length and no position can overflow.
  const unsigned position = pos != nullptr ? static_cast<unsigned>(*pos) : 0;
  unsigned sum = 0;
  int left = len;
  for (unsigned place = position % 3; place != 0 && left > 0; place = place == 2 ? 0 : 2, --left) {
    const unsigned added = WEIGHTED.of[place][*text++];
    if (added >= NO_VALUE) {
      return -1;
    }
    sum += added;
  }
  for (; left > 0; left -= STEP, text += STEP) {
    const unsigned added = sum_of_step(text, left);
    if (added >= NO_VALUE) {
      return -1;
    }
    sum += added;
  }
  if (pos != nullptr) {
    *pos = static_cast<int>(position + static_cast<unsigned>(larger(len, 0)));
  }
  return static_cast<int>(sum);
}

int MRZ_common_validate_control_sum(int sum, char c) {
  const int digit = c == FILLER ? '0' : c;
  return ascii::is_digit(digit) && sum % 10 == digit - '0';
}
