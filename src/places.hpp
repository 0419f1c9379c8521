// Sets of places in a text of up to 63 characters: bit i of a number stands for the character at i.
#ifndef VARNEL_SRC_PLACES_HPP
#define VARNEL_SRC_PLACES_HPP

#include <stdint.h>

namespace places {

using set = uint64_t;

constexpr int MAX = 63; // so that every shift by a place or a length is defined

// The places before `end`.
constexpr set before(int end) { return (set{1} << end) - 1; }

// The first place of a set as a set; of none, none.
constexpr set lowest(set places) { return places & (~places + 1); }

// A place, given as a set, and all after it.
constexpr set from(set place) { return ~place + 1; }

// The number of places in a set.
constexpr int count(set places) {
  places -= places >> 1 & UINT64_C(0x5555555555555555);
  places = (places & UINT64_C(0x3333333333333333)) + (places >> 2 & UINT64_C(0x3333333333333333));
  places = (places + (places >> 4)) & UINT64_C(0x0F0F0F0F0F0F0F0F);
  return static_cast<int>(places * UINT64_C(0x0101010101010101) >> 56);
}

// The first and the last place in a set, which must not be empty.
constexpr int first_by_count(set places) { return count(lowest(places) - 1); }

constexpr int last_by_count(set places) {
  for (int width = 1; width < 64; width *= 2) {
    places |= places >> width;
  }
  return count(places) - 1;
}

// The same by one instruction, where the compiler offers it.
#if defined(__GNUC__)
constexpr int first(set places) { return __builtin_ctzll(places); }
constexpr int last(set places) { return 63 - __builtin_clzll(places); }
#else
constexpr int first(set places) { return first_by_count(places); }
constexpr int last(set places) { return last_by_count(places); }
#endif

// The places between the first and the last of a set, which must not be empty, that are not in it. Mostly
// there are none: adding to the first of a row of places carries beyond the last of them.
constexpr set inner(set places) {
  const set start = lowest(places);
  return ((places + start) & places) == 0 ? 0 : ~places & from(start) & before(last(places));
}

} // namespace places

#endif
