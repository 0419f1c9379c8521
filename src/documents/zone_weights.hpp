// Check digits of ICAO Doc 9303-3, section 4.9, over a whole zone: what its characters count, times what they
// weigh. The same as `check_sum`, many characters at a time.
#ifndef VARNEL_SRC_DOCUMENTS_ZONE_WEIGHTS_HPP
#define VARNEL_SRC_DOCUMENTS_ZONE_WEIGHTS_HPP

#include <Varnel/documents/inspect.h>

#include "../mrz/check_digits.hpp"
#include "../words.hpp"
#include "layouts.hpp"

namespace documents {

// Room for a line in which whole words of either size can be read and written.
constexpr int room_for_line(int width) { return (width + 15) / 16 * 16; }
static_assert(16 % words::WIDE_SIZE == 0);

constexpr int ZONE_ROOM = VARNEL_ZONE_LINES * room_for_line(td1::LINE_LENGTH);
static_assert(ZONE_ROOM >= 2 * room_for_line(td3::LINE_LENGTH));

// What of a zone, its lines one after the other, a check digit covers some characters of, and where their
// weights are.
struct weighed_stretch {
  uint8_t begin = 0;
  uint8_t end = 0;
  uint16_t weights = 0;
};

// Of every check digit of every layout. Characters that it does not cover weigh nothing.
struct zone_weights {
  weighed_stretch checks[LAYOUT_COUNT][VARNEL_CHECKS] = {};
  uint8_t covered_lines[LAYOUT_COUNT] = {}; // 1 << line
  char weights[640] = {};

  constexpr zone_weights() {
    int used = 0;
    for (int id = 0; id < LAYOUT_COUNT; ++id) {
      for (int i = 0; i < LAYOUTS[id].check_count; ++i) {
        checks[id][i].weights = static_cast<uint16_t>(used);
        weigh(LAYOUTS[id], LAYOUTS[id].checks[i], checks[id][i]);
        used += checks[id][i].end - checks[id][i].begin;
      }
    }
  }

private:
  // The stretches that a digit covers are in the order of the zone.
  constexpr void weigh(const layout &form, const check_place &check, weighed_stretch &its) {
    int weighed = 0;
    for (int i = 0; i < check.covered_count; ++i) {
      const stretch covered = check.covered[i];
      const int first = covered.line * room_for_line(form.width) + covered.column;
      covered_lines[form.id] = static_cast<uint8_t>(covered_lines[form.id] | 1 << covered.line);
      its.begin = i == 0 ? static_cast<uint8_t>(first / 16 * 16) : its.begin;
      its.end = static_cast<uint8_t>(room_for_line(first + covered.length));
      for (int place = first; place < first + covered.length; ++place) {
        weights[its.weights + place - its.begin] = static_cast<char>(CHECK_WEIGHTS[weighed++ % 3]);
      }
    }
  }
};

inline constexpr zone_weights ZONE_WEIGHTS;

// The digit, '0' to '9', from what the characters of the zone count.
inline char digit_of(weighed_stretch weighed, const char *counts) {
  const char *weights = ZONE_WEIGHTS.weights + weighed.weights;
  words::sums sums = {};
  for (int i = weighed.begin; i < weighed.end; i += words::WIDE_SIZE, weights += words::WIDE_SIZE) {
    words::add_products(words::load<words::wide>(counts + i), words::load<words::wide>(weights), sums);
  }
  return static_cast<char>('0' + words::total(sums) % 10);
}

} // namespace documents

#endif
