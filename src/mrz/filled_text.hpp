// A field of a zone, or a part of one, and where its fillers are. Found once, a word at a time, they say
// where a name is split and what becomes a space.
#ifndef VARNEL_SRC_MRZ_FILLED_TEXT_HPP
#define VARNEL_SRC_MRZ_FILLED_TEXT_HPP

#include "../places.hpp"
#include "character_sets.hpp"

struct filled_text {
  const char *str;
  int len; // up to places::MAX
  places::set fillers;

  STRING view() const { return STRING{str, len}; }

  filled_text from(int start) const { return {str + start, len - start, fillers >> start}; }
  filled_text first(int length) const { return {str, length, fillers & places::before(length)}; }

  // Without the fillers at both ends; of fillers only, nothing is left.
  filled_text trimmed() const {
    const places::set letters = ~fillers & places::before(len);
    if (letters == 0) {
      return first(0);
    }
    return first(places::last(letters) + 1).from(places::first(letters));
  }

  // Whether a filler follows another.
  bool has_runs() const { return (fillers & fillers >> 1) != 0; }
};

// Finds the fillers of a text of at most places::MAX characters. Adds to `outside`, as marks of a word,
// whether a character is not in the set.
template <class Set> inline filled_text find_fillers(STRING text, uint64_t &outside) {
  using filler = range<FILLER>;
  places::set fillers = 0;
  const auto look_at = [&](int i) {
    const uint64_t word = words::load<uint64_t>(text.str + i);
    outside |= ~Set::marks(word);
    fillers |= places::set{words::places(filler::marks(word))} << i;
  };
  if (text.len < words::SIZE) {
    for (int i = 0; i < text.len; ++i) {
      outside |= Set::contains(char_value(text.str[i])) ? 0 : words::MARKS;
      fillers |= places::set{is_filler(text.str[i])} << i;
    }
    return {text.str, text.len, fillers};
  }
  const int last = text.len - words::SIZE; // the last word may overlap the one before
  for (int i = 0; i < last; i += words::SIZE) {
    look_at(i);
  }
  look_at(last);
  return {text.str, text.len, fillers};
}

#endif
