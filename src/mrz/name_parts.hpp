// A name field split into its parts, as MRZ_common_extract_name() documents it.
#ifndef VARNEL_SRC_MRZ_NAME_PARTS_HPP
#define VARNEL_SRC_MRZ_NAME_PARTS_HPP

#include "filled_text.hpp"
#include "fillers.hpp"

// The parts of a name, as views or with their fillers.
template <class Text> struct name_parts {
  Text last;   // the primary identifier
  Text first;  // the first of the secondary identifiers
  Text middle; // the others
};

// Takes the text up to the first filler, and that one filler, off the start of `rest`, which does not
// begin with a filler. The rest of a text without a filler is empty.
inline filled_text take_word(filled_text &rest) {
  if (rest.fillers == 0) {
    const filled_text word = rest;
    rest = rest.from(rest.len);
    return word;
  }
  const int end = places::first(rest.fillers);
  const filled_text word = rest.first(end);
  rest = rest.from(end + 1);
  return word;
}

// Splits a name that begins and ends with a letter.
inline name_parts<filled_text> split_name(filled_text name) {
  filled_text last;
  filled_text given_names = name;
  const places::set pairs = name.fillers & name.fillers >> 1; // the first filler of every "<<"
  if (pairs != 0) {
    const int separator = places::first(pairs);
    last = name.first(separator);
    given_names = name.from(separator).trimmed();
  } else {
    last = take_word(given_names); // one run of words: the first is the primary identifier
  }
  const filled_text first = take_word(given_names);
  return {last, first, given_names};
}

// ---- the same for a name of any length, character by character ------------------------------------------

inline STRING take_word(STRING &rest) {
  STRING word = {rest.str, 0};
  while (word.len < rest.len && !is_filler(word.str[word.len])) {
    ++word.len;
  }
  const int taken = word.len < rest.len ? word.len + 1 : word.len;
  rest = STRING{rest.str + taken, rest.len - taken};
  return word;
}

// The position of the second filler of the first "<<", which separates the primary identifier from the
// secondary; the view's length when there is none.
inline int find_separator(STRING name) {
  int i = 1;
  while (i < name.len && !(name.str[i] == FILLER && name.str[i - 1] == FILLER)) {
    ++i;
  }
  return i;
}

inline name_parts<STRING> split_name(STRING name) {
  STRING last;
  STRING given_names = name;
  const int separator = find_separator(name);
  if (separator < name.len) {
    last = STRING{name.str, separator - 1};
    given_names = without_outer_fillers(STRING{name.str + separator, name.len - separator});
  } else {
    last = take_word(given_names);
  }
  const STRING first = take_word(given_names);
  return {last, first, given_names};
}

#endif
