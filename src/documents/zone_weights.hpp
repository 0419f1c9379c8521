// Check digits of ICAO Doc 9303-3, section 4.9, over a zone as words of eight characters: what the characters
// count, times what they weigh. The same as `check_sum`, a word at a time.
#ifndef VARNEL_SRC_DOCUMENTS_ZONE_WEIGHTS_HPP
#define VARNEL_SRC_DOCUMENTS_ZONE_WEIGHTS_HPP

#include <Varnel/documents/inspect.h>

#include "../words.hpp"
#include "layouts.hpp"

namespace documents {

// Numbers for eight characters, every other one together, each in 16 bits. Weights stand in the opposite
// order of the characters: the highest 16 bits of a product are the sum over its four.
struct eight_numbers {
  uint64_t even;
  uint64_t odd;
};

// How many words a line takes, of which two are read at once. The words of a zone are those of its lines, one
// line after the other.
constexpr int words_of_line(int width) { return (width + 2 * words::SIZE - 1) / (2 * words::SIZE) * 2; }

constexpr int ZONE_WORDS = VARNEL_ZONE_LINES * words_of_line(td1::LINE_LENGTH);
static_assert(ZONE_WORDS >= 2 * words_of_line(td3::LINE_LENGTH));

// The words of a zone that a check digit covers characters of, and where their weights are.
struct weighed_words {
  uint8_t first = 0;
  uint8_t end = 0;
  uint8_t weights = 0;
};

// Of every check digit of every layout. Characters that it does not cover weigh nothing.
struct zone_weights {
  weighed_words checks[LAYOUT_COUNT][VARNEL_CHECKS] = {};
  uint8_t covered_lines[LAYOUT_COUNT] = {}; // 1 << line
  eight_numbers weights[72] = {};

  constexpr zone_weights() {
    int used = 0;
    for (int id = 0; id < LAYOUT_COUNT; ++id) {
      for (int i = 0; i < LAYOUTS[id].check_count; ++i) {
        checks[id][i].weights = static_cast<uint8_t>(used);
        weigh(LAYOUTS[id], LAYOUTS[id].checks[i], checks[id][i]);
        used += checks[id][i].end - checks[id][i].first;
      }
    }
  }

private:
  // Its stretches are in the order of the zone.
  constexpr void weigh(const layout &form, const check_place &check, weighed_words &its) {
    constexpr uint64_t cycle[] = {7, 3, 1};
    const int words_each = words_of_line(form.width);
    int weighed = 0;
    for (int i = 0; i < check.covered_count; ++i) {
      const stretch covered = check.covered[i];
      const int first = covered.line * words_each;
      covered_lines[form.id] = static_cast<uint8_t>(covered_lines[form.id] | 1 << covered.line);
      for (int column = covered.column; column < covered.column + covered.length; ++column) {
        const int word = first + column / words::SIZE;
        its.first = weighed == 0 ? static_cast<uint8_t>(word) : its.first;
        its.end = static_cast<uint8_t>(word + 1);
        eight_numbers &eight = weights[its.weights + word - its.first];
        const int place = column % words::SIZE;
        (place % 2 == 0 ? eight.even : eight.odd) |= cycle[weighed++ % 3] << 16 * (3 - place / 2);
      }
    }
  }
};

inline constexpr zone_weights ZONE_WEIGHTS;

// The digit, '0' to '9'; of the values are read those of the words.
inline char digit_of(weighed_words words, const eight_numbers *values) {
  const eight_numbers *weights = ZONE_WEIGHTS.weights + words.weights;
  uint64_t sum = 0; // of a whole zone it stays far below 2^16 in each 16 bits
  for (int i = words.first; i < words.end; ++i, ++weights) {
    sum += values[i].even * weights->even + values[i].odd * weights->odd;
  }
  return static_cast<char>('0' + (sum >> 48) % 10);
}

} // namespace documents

#endif
