// Fields without the fillers around their text.
#ifndef VARNEL_SRC_MRZ_FILLERS_HPP
#define VARNEL_SRC_MRZ_FILLERS_HPP

#include "../words.hpp"
#include "character_sets.hpp"

// The view without the fillers at both ends. Fields end with many of them: whole words of fillers go
// first.
inline STRING without_outer_fillers(STRING view) {
  while (view.len > 0 && is_filler(view.str[0])) {
    ++view.str;
    --view.len;
  }
  constexpr int word = words::SIZE;
  while (view.len >= word && words::load<uint64_t>(view.str + view.len - word) == words::every(FILLER)) {
    view.len -= word;
  }
  while (view.len > 0 && is_filler(view.str[view.len - 1])) {
    --view.len;
  }
  return view;
}

// The letters of a country code: its first three characters, or as many as stand before a filler.
inline STRING code_letters(STRING code) {
  int letters = 0;
  while (letters < 3 && !is_filler(code.str[letters])) {
    ++letters;
  }
  return STRING{code.str, letters};
}

#endif
