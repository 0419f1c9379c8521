// What distinguishes the layouts of ICAO Doc 9303: their names, the shape of their zones and the letters that
// they begin with. Line lengths and columns are those of columns.hpp.
#ifndef VARNEL_SRC_MRZ_LAYOUTS_HPP
#define VARNEL_SRC_MRZ_LAYOUTS_HPP

#include <Varnel/defines.h>

#include "columns.hpp"

namespace mrz {

// Plain data without pointers, so that the table needs no relocation.
struct layout {
  int id;                // VARNEL_LAYOUT_…
  char name[6];          // as the standard calls it
  int lines;             // how many
  int width;             // of each line, in characters
  char first_letters[4]; // one of which the document code begins with, up to three
  char refused_second;   // no document code goes on with it; NUL where any letter will do
  char document_type[9]; // what is written to FIELD_DOCUMENT_TYPE

  constexpr int length() const { return lines * width; }

  constexpr bool has_code(const char *zone) const {
    const char c = zone[0];
    const bool begins = c == first_letters[0] || c == first_letters[1] || c == first_letters[2];
    return begins && c != '\0' && (zone[1] != refused_second || refused_second == '\0');
  }

  constexpr bool fits(const char *zone, int size) const { return size == length() && has_code(zone); }
};

// A card whose code goes on with V would be a visa; a visa is typed like a card.
constexpr layout TD1 = {VARNEL_LAYOUT_TD1, "TD1", 3, td1::LINE_LENGTH, "ACI", 'V', "TD"};
constexpr layout TD2 = {VARNEL_LAYOUT_TD2, "TD2", 2, td2::LINE_LENGTH, "ACI", 'V', "TD"};
constexpr layout TD3 = {VARNEL_LAYOUT_TD3, "TD3", 2, td3::LINE_LENGTH, "P", '\0', "PASSPORT"};
constexpr layout MRV_A = {VARNEL_LAYOUT_MRV_A, "MRV-A", 2, visa::LONG_LINE_LENGTH, "V", '\0', "TD"};
constexpr layout MRV_B = {VARNEL_LAYOUT_MRV_B, "MRV-B", 2, visa::SHORT_LINE_LENGTH, "V", '\0', "TD"};

// By number: LAYOUTS[VARNEL_LAYOUT_TD1] and so on. The first is none.
inline constexpr layout LAYOUTS[] = {
    {VARNEL_LAYOUT_NONE, "", 0, 0, "", '\0', ""}, TD1, TD2, TD3, MRV_A, MRV_B};
constexpr int LAYOUT_COUNT = sizeof LAYOUTS / sizeof *LAYOUTS;

constexpr bool is_numbered(int id) {
  return id == LAYOUT_COUNT || (LAYOUTS[id].id == id && is_numbered(id + 1));
}
static_assert(is_numbered(0), "a layout stands at its own number");

// The layout that a zone of this length and with this code has; VARNEL_LAYOUT_NONE when there is none.
constexpr int layout_of(const char *zone, int length) {
  for (int id = VARNEL_LAYOUT_NONE + 1; id < LAYOUT_COUNT; ++id) {
    if (LAYOUTS[id].fits(zone, length)) {
      return id;
    }
  }
  return VARNEL_LAYOUT_NONE;
}

} // namespace mrz

#endif
