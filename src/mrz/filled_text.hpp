// A field of a zone and where its letters are. Found once, a word at a time, they say where a name is split
// and what becomes a space.
#ifndef VARNEL_SRC_MRZ_FILLED_TEXT_HPP
#define VARNEL_SRC_MRZ_FILLED_TEXT_HPP

#include "../places.hpp"
#include "character_sets.hpp"

struct filled_text {
  const char *str;
  int len;             // up to places::MAX
  places::set letters; // and digits: all but fillers

  places::set fillers() const { return ~letters & places::before(len); }
};

// A part of a field. It ends with a letter, or has nothing in it.
struct filled_part {
  int start;
  int end;             // the place after its last character
  places::set fillers; // those in it, by their places in the field
};

// The field without the fillers at both ends; there must be a letter.
inline filled_part trimmed(filled_text field) {
  return {places::first(field.letters), places::last(field.letters) + 1, places::inner(field.letters)};
}

// Where the letters of eight characters of a zone are, in the highest byte. Adds to `digits`, as marks,
// whether there are digits among them.
//
// Of the characters of a zone, a filler differs from '<' by 0, a digit by less than 0x40 and a letter by
// more; no sum of two such bytes reaches the next.
inline uint64_t letters_of_word(const char *text, uint64_t &digits) {
  const uint64_t difference = words::load<uint64_t>(text) ^ words::every(FILLER);
  const uint64_t letter_or_digit = difference + words::every(0x7F);
  const uint64_t letter = difference + words::every(0x40);
  digits |= letter_or_digit ^ letter;
  return words::places_on_top(letter_or_digit);
}

// Finds the letters of a text of 8 to places::MAX characters of a zone.
VARNEL_INLINE filled_text find_letters(STRING text, uint64_t &digits) {
  constexpr int TOP = 64 - words::SIZE;
  const int last = text.len - words::SIZE; // the last word may overlap the one before
  places::set letters = 0;
  int unused = 64;
  for (int i = 0; i < last; i += words::SIZE) {
    letters = letters >> words::SIZE | letters_of_word(text.str + i, digits) >> TOP << TOP;
    unused -= words::SIZE;
  }
  if (unused < 64) {
    letters >>= unused;
  }
  letters |= letters_of_word(text.str + last, digits) >> TOP << last;
  return {text.str, text.len, letters};
}

#endif
