// A name field split into its parts, as MRZ_common_extract_name() documents it.
#ifndef VARNEL_SRC_MRZ_NAME_PARTS_HPP
#define VARNEL_SRC_MRZ_NAME_PARTS_HPP

#include "filled_text.hpp"
#include "fillers.hpp"

// Where the parts of a name stand in its field.
struct name_places {
  filled_part last;   // the primary identifier
  filled_part first;  // the first of the secondary identifiers
  filled_part middle; // the others
};

// Splits a name field that is not of fillers only. Sets of places are cut by arithmetic, which costs less
// than by shifts.
inline name_places split_name(filled_text field) {
  const places::set letters = field.letters;
  const places::set start = places::lowest(letters);
  const places::set pairs = ~(letters | letters >> 1); // the first fillers of every "<<", after the name too
  const places::set separator = places::lowest(pairs & places::from(start));
  const int end = places::last(letters) + 1;
  name_places parts;
  parts.last = {places::first(start), places::first(separator), ~letters & (separator - start)};
  places::set first = places::lowest(letters & places::from(separator));
  if (first == 0) { // one run of words: the first is the primary identifier
    const places::set last_end = places::lowest(~letters & places::from(start));
    parts.last = {parts.last.start, places::first(last_end), 0};
    first = places::lowest(letters & places::from(last_end));
  }
  const places::set first_end = places::lowest(~letters & places::from(first));
  parts.first =
      first != 0 ? filled_part{places::first(first), places::first(first_end), 0} : filled_part{end, end, 0};
  parts.middle = {smaller(parts.first.end + 1, end), end,
                  ~letters & places::from(first_end << 1) & places::before(end)};
  return parts;
}

// ---- the same for a name of any length, character by character ------------------------------------------

struct name_parts {
  STRING last;
  STRING first;
  STRING middle;
};

// Takes the text up to the first filler, and that one filler, off the start of `rest`, which does not
// begin with a filler. The rest of a text without a filler is empty.
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

// Splits a name that begins and ends with a letter.
inline name_parts split_name(STRING name) {
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
