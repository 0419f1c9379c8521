// Sets of ASCII characters, asked one character or one word at a time.
#ifndef VARNEL_SRC_CHARACTER_SET_HPP
#define VARNEL_SRC_CHARACTER_SET_HPP

#include "view.hpp"
#include "words.hpp"

template <char Low, char High = Low> struct range {
  static constexpr bool contains(int c) { return c >= Low && c <= High; }
  template <class Word> static constexpr Word marks(Word word) { return words::in_range(word, Low, High); }
};

// The ranges are the only place where a set is written down; both ways of asking follow from them.
template <class... Ranges> struct character_set {
  static constexpr bool contains(int c) { return (Ranges::contains(c) || ...); }

  // Marks the characters of the word that are in the set. In a plain word, the marks are right up to the
  // first character that is not.
  template <class Word> static constexpr Word marks(Word word) {
    return words::of_ascii((Ranges::marks(word) | ...), word);
  }

  template <class Word> static bool contains_all(Word word) { return words::all(marks(word)); }

  // Whether every character of the view is in the set.
  template <class Word = words::wide> static bool covers(STRING view) {
    return view.len < static_cast<int>(sizeof(Word)) ? covers_short(view) : covers_long<Word>(view);
  }

  // The same, of a view of at least a word.
  template <class Word = words::wide> static bool covers_long(STRING view) {
    constexpr int size = sizeof(Word);
    const int last = view.len - size; // the last word may overlap the one before
    Word inside = marks(words::load<Word>(view.str + last));
    for (int i = 0; i < last; i += size) {
      inside &= marks(words::load<Word>(view.str + i));
    }
    return words::all(inside);
  }

  // The same, one character at a time.
  static constexpr bool covers_short(STRING view) {
    for (int i = 0; i < view.len; ++i) {
      if (!contains(char_value(view.str[i]))) {
        return false;
      }
    }
    return true;
  }
};

#endif
