// The filler of machine-readable zones, ICAO Doc 9303.
#ifndef VARNEL_SRC_MRZ_FILLER_HPP
#define VARNEL_SRC_MRZ_FILLER_HPP

constexpr char FILLER = '<';
constexpr char FILLER_SET[] = "<";

constexpr bool is_filler(char c) { return c == FILLER; }

#endif
