// Sets of ASCII characters, asked one character or one block at a time.
#ifndef VARNEL_SRC_CHARACTER_SET_HPP
#define VARNEL_SRC_CHARACTER_SET_HPP

#include "blocks.hpp"
#include "view.hpp"

template <char Low, char High = Low> struct range {
  static constexpr bool contains(int c) { return c >= Low && c <= High; }
  template <class Block> static Block marks(Block characters) {
    return blocks::in_range(characters, Low, High);
  }
};

// The ranges are the only place where a set is written down; both ways of asking follow from them.
template <class... Ranges> struct character_set {
  static constexpr bool contains(int c) { return (Ranges::contains(c) || ...); }

  // Marks the characters of the block that are in the set.
  template <class Block> static Block marks(Block characters) { return (Ranges::marks(characters) | ...); }

  template <class Block> static bool contains_all(Block characters) { return blocks::all(marks(characters)); }

  // Whether every character of the view is in the set.
  static bool covers(STRING view) {
    if (view.len < blocks::SIZE) {
      for (int i = 0; i < view.len; ++i) {
        if (!contains(char_value(view.str[i]))) {
          return false;
        }
      }
      return true;
    }
    const int last = view.len - blocks::SIZE; // the last block may overlap the one before
    blocks::block inside = marks(blocks::load<blocks::block>(view.str + last));
    for (int i = 0; i < last; i += blocks::SIZE) {
      inside &= marks(blocks::load<blocks::block>(view.str + i));
    }
    return blocks::all(inside);
  }
};

#endif
