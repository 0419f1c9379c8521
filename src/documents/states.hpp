// The codes of issuing states, organizations and nationalities.
#ifndef VARNEL_SRC_DOCUMENTS_STATES_HPP
#define VARNEL_SRC_DOCUMENTS_STATES_HPP

#include <stdint.h>

namespace documents {

// Who lists a code.
enum class listing : uint8_t {
  none,
  iso,      // ISO 3166-1, which ICAO Doc 9303-3 section 5 takes over
  icao,     // what Doc 9303-3 section 5 adds
  seen,     // not permitted, yet seen on documents
  withdrawn // withdrawn from ISO 3166-1; documents that carry it have long expired
};

// Whether Doc 9303 permits it.
constexpr bool is_permitted(listing by) { return by == listing::iso || by == listing::icao; }

struct state {
  const char *name;   // UTF-8; null where there is no such code
  const char *alpha2; // two letters; "" where it has none
  const char *code;   // one to three letters
  listing listed_by;

  constexpr bool is_listed() const { return is_permitted(listed_by); }
};

// How many codes Doc 9303 permits, and how many are known with those that it does not.
constexpr int LISTED_STATES = 279;
constexpr int KNOWN_STATES = 298;

// The state of a code of `length` capitals, without fillers.
state find_state(const char *code, int length);

// Whether Doc 9303 permits it.
bool is_listed_state(const char *code, int length);

// The known states in alphabetical order of their codes; `index` from 0 to KNOWN_STATES - 1.
state state_at(int index);

// Residence permits print this code for Kosovo; Doc 9303 does not list it.
constexpr bool is_residence_permit_code(const char *code, int length) {
  return length == 3 && code[0] == 'X' && code[1] == 'X' && code[2] == 'K';
}

} // namespace documents

#endif
