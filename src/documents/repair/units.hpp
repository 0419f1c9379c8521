// The units of a zone, read one after the other from a noisy line: what stands there, what it costs to say
// so, and whether it can be relied on.
//
// Units follow one another, so that a filler that was lost or doubled does not move what stands after it.
#ifndef VARNEL_SRC_DOCUMENTS_REPAIR_UNITS_HPP
#define VARNEL_SRC_DOCUMENTS_REPAIR_UNITS_HPP

#include <Varnel/documents/inspect.h>

#include <stdint.h>

#include "noisy_lines.hpp"

namespace documents::repair {

// In place of the index of a character: a filler that was not read.
constexpr uint8_t NOT_READ = UINT8_MAX;

// Characters as they stand in the zone, each with the index in its noisy line that it was read from.
struct characters {
  uint8_t size;
  char text[VARNEL_ZONE_WIDTH];
  uint8_t from[VARNEL_ZONE_WIDTH];

  void put(char c, int index) {
    if (size < VARNEL_ZONE_WIDTH) {
      text[size] = c;
      from[size++] = static_cast<uint8_t>(index);
    }
  }

  void put(const characters &other) {
    for (int i = 0; i < other.size; ++i) {
      put(other.text[i], other.from[i]);
    }
  }

  void fill(int width) {
    while (size < width) {
      put('<', NOT_READ);
    }
  }
};

// Costs: how far a reading is from the characters that were read.
namespace cost {
constexpr int LENGTH = 10;         // for each character of names too many or too few
constexpr int LENGTH_OF_DATA = 15; // and of optional data,
constexpr int UNEVEN = 30;         // once there are any
constexpr int STATES_AGREE = -30;
constexpr int HEAD_DROPPED = 40;
constexpr int LOOKALIKE = 50;
constexpr int FILLER = 80; // one more or less within a unit
constexpr int INNER_FILLER = 120;
constexpr int WRONG = 150; // a character that cannot stand there
constexpr int TWIN = 200;  // a character dropped
constexpr int COMPOSITE_FAILS = 300;
constexpr int FAILS = 1000; // a date: only where there is no other reading
} // namespace cost

// How far the reading may go, and what is printed beside the zone.
struct surroundings {
  int level; // VARNEL_REPAIR_…
  passage page;
  uint32_t begin; // the zone's own bytes, which prove nothing about themselves
  uint32_t end;

  // Whether the word, in capitals, is printed near the zone, in letters of any case.
  bool print(const char *word, int length) const;
};

// Six digits or fillers and their check digit.
struct date_unit {
  bool holds;
  bool is_empty; // of fillers, and holds
  int cost;
  characters text;
};

// Reads a date from seven characters, or from eight with a twin among them where its digit holds then; the
// line has so many from there.
// Letters become digits; a digit never becomes another. Holds where it exists and its digit holds.
bool read_date(const noisy_line &line, int at, int length, date_unit &date);

// Appends the three letters of a listed code, from three characters, or from two or four with a filler or a
// twin too few or too many. `issuer` settles what is one look-alike away from it; null where there is none.
bool read_state(const noisy_line &line, int at, int length, const char *issuer, int level, characters &state,
                int &cost);

// M, F or a filler; NUL for anything else.
char read_sex(char c, int &cost);

// Nine characters and their check digit.
struct number_unit {
  bool holds;
  bool unproven;
  bool changed;   // for its digit
  uint8_t column; // of what was changed, and what was read there
  char read;
  int cost;
  characters text;
};

// Reads from ten characters, from fewer where fillers were lost, from eleven with one too many; the line has
// so many from there.
bool read_number(const noisy_line &line, int at, int length, bool may_have_twin, const surroundings &around,
                 number_unit &number);

// Says what is known about a number: changes it where one look-alike alone makes its digit hold.
void judge_number(number_unit &number, const surroundings &around);

// Up to three letters, then digits, then fillers: as most states print it. A look-alike would stand out.
bool is_plain_number(const char *number, int length);

// Whether a number whose digit holds would hold as well with likely look-alikes in it, and is printed nowhere
// else.
bool is_unproven(const char *number, int length, const surroundings &around);

constexpr int MOST_WAYS = 2;

// Writes the ways to read optional data of `width` characters from those at `begin` to before `end`, the
// likelier first: as they stand, and with fillers from where the text ends. Returns how many there are.
int read_optional_data(const noisy_line &line, int begin, int end, int width, characters (&ways)[MOST_WAYS]);

// A field of names.
struct names_unit {
  int cost;
  int length_cost;
  uint32_t doubts; // 1 << field
  characters text;
};

// `noisy`: something in the zone was not read as any of its characters.
void read_names(const noisy_line &line, int at, int width, bool noisy, const surroundings &around,
                names_unit &names);

// Whether three characters are a code that may stand in a zone.
bool is_state(const char *code);

} // namespace documents::repair

#endif
