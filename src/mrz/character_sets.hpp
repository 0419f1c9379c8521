// The character sets of machine-readable zones, ICAO Doc 9303.
#ifndef VARNEL_SRC_MRZ_CHARACTER_SETS_HPP
#define VARNEL_SRC_MRZ_CHARACTER_SETS_HPP

#include "../character_set.hpp"

constexpr char FILLER = '<';

// A type of its own, so that the loops that are asked with it inline it.
constexpr auto is_filler = [](char c) { return c == FILLER; };

using mrz_characters = character_set<range<'A', 'Z'>, range<'0', '9'>, range<FILLER>>;
using mrz_date_characters = character_set<range<'0', '9'>>;
using mrz_name_characters = character_set<range<'A', 'Z'>, range<FILLER>>;
using mrz_code_characters = character_set<range<'A', 'Z'>, range<FILLER>>;

#endif
