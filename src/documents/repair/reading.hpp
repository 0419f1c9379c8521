// The search for a zone among noisy lines, and what it reads there.
#ifndef VARNEL_SRC_DOCUMENTS_REPAIR_READING_HPP
#define VARNEL_SRC_DOCUMENTS_REPAIR_READING_HPP

#include "../layouts.hpp"
#include "noisy_lines.hpp"
#include "units.hpp"

namespace documents::repair {

// A zone as it was read, its errors put right as far as that can be known.
struct reading {
  uint8_t layout;   // VARNEL_LAYOUT_NONE: there is none
  uint8_t failures; // dates, numbers, personal numbers and composites that do not hold
  int cost;
  int excused; // of it: for fillers lost or doubled at the ends of lines, and dates and composites that fail
  uint32_t doubts; // 1 << field: the value may have been misread
  characters lines[VARNEL_ZONE_LINES];
};

// A reading and the lines that it was read from.
struct found_zone {
  reading zone;
  noisy_line lines[VARNEL_ZONE_LINES];

  uint32_t begin() const { return lines[0].begin; }
  uint32_t end() const { return lines[LAYOUTS[zone.layout].lines - 1].end; }
};

enum class extent : uint8_t {
  whole_passage, // the best zone of the passage
  first_zone     // the best of those that overlap the first
};

// Finds the zone that needs the fewest changes. What another reading that is about as good says otherwise is
// doubted. `page` is what may print a name or number once more. False when there is none.
bool find_reading(passage p, passage page, extent within, int level, found_zone &found);

} // namespace documents::repair

#endif
