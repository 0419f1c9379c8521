// JSON into a room that may be too small.
//
// It is written piece by piece. A piece is put together without a look at the room, by functions that write
// at a place and return where they ended; the writer gives each a place with room enough.
#ifndef VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP
#define VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "../view.hpp"
#include "../words.hpp"

namespace documents {

// Writes what fits and counts what the whole needs.
class json_writer {
public:
  static constexpr size_t PIECE = 640; // bytes that a piece has at most

  // Room for `size` bytes, the terminating NUL included; where that is 0 nothing is written to `out`.
  // cppcheck-suppress uninitMemberVar // the spare piece is read as far as it was written
  json_writer(char *out, size_t size)
      : out_(size > 0 ? out : nullptr), room_(size > 0 ? size - 1 : 0),
        last_(room_ >= PIECE ? out + (room_ - PIECE) : spare_) {}

  // Where the first piece is to be written.
  char *begin() { return last_ == spare_ ? spare_ : out_; }

  // Where the piece after one that ended at `end` is to be written.
  char *next(char *end) { return end <= last_ ? end : take(end); }

  // Ends the text after the last piece, and returns the length of the whole.
  int finish(const char *end);

private:
  char *take(const char *end);

  char *out_;           // null where not even the NUL has room
  size_t room_;         // for text, the NUL left out
  char *last_;          // where a piece may begin, at the latest: in the text, then in the spare piece
  size_t length_ = 0;   // of the text without its last pieces, never more than the room
  size_t left_out_ = 0; // what found no room
  char spare_[PIECE];   // a piece for which there may be no room
};

// Eight characters of a literal; NUL after its end. Without a loop, so that compilers make a constant of it.
template <size_t First, size_t Size> VARNEL_INLINE uint64_t word_of(const char (&literal)[Size]) {
  const auto character = [&](size_t i) {
    const char c = First + i < Size ? literal[First + i] : '\0';
    return uint64_t{static_cast<unsigned char>(c)} << 8 * i;
  };
  return character(0) | character(1) | character(2) | character(3) | character(4) | character(5) |
         character(6) | character(7);
}

// A literal, without its NUL. Whole words are written: the fewer stores, the faster.
template <size_t First = 0, size_t Size> VARNEL_INLINE char *put(char *at, const char (&literal)[Size]) {
  words::store(word_of<First>(literal), at + First);
  if constexpr (First + words::SIZE < Size - 1) {
    put<First + words::SIZE>(at, literal);
  }
  return at + Size - 1;
}

inline char *put(char *at, char c) {
  *at = c;
  return at + 1;
}

// A text of so many characters, of which all of its array may be copied.
template <size_t Size> char *put_text(char *at, const char (&text)[Size], size_t length) {
  constexpr size_t MOST_ARE_SHORTER = 16;
  if constexpr (Size > MOST_ARE_SHORTER) {
    memcpy(at, text, MOST_ARE_SHORTER);
    if (length > MOST_ARE_SHORTER) {
      memcpy(at + MOST_ARE_SHORTER, text + MOST_ARE_SHORTER, Size - MOST_ARE_SHORTER);
    }
  } else {
    memcpy(at, text, Size);
  }
  return at + length;
}

// The same as a string; no character may need a backslash.
template <size_t Size> char *put_string(char *at, const char (&text)[Size], size_t length) {
  return put(put_text(put(at, '"'), text, length), '"');
}

// A string of which no character needs a backslash; null for a null pointer.
char *put_string_or_null(char *at, const char *text);

// Any string without control characters.
char *put_escaped_string(char *at, const char *text);

// The digits of the numbers below 100.
struct digit_pairs {
  char of[100][2] = {};

  constexpr digit_pairs() {
    for (int i = 0; i < 100; ++i) {
      of[i][0] = static_cast<char>('0' + i / 10);
      of[i][1] = static_cast<char>('0' + i % 10);
    }
  }
};

inline constexpr digit_pairs DIGIT_PAIRS;

// The two digits of a number below 100.
inline char *put_two_digits(char *at, unsigned value) {
  memcpy(at, DIGIT_PAIRS.of[value], 2);
  return at + 2;
}

inline char *put_four_digits(char *at, unsigned value) {
  return put_two_digits(put_two_digits(at, value / 100), value % 100);
}

// A number of three digits or more.
char *put_long_number(char *at, unsigned value);

inline char *put_number(char *at, unsigned value) {
  return value < 10    ? put(at, static_cast<char>('0' + value))
         : value < 100 ? put_two_digits(at, value) // nearly every place in a zone
                       : put_long_number(at, value);
}

inline char *put_number_or_null(char *at, int value, bool is_null) {
  return is_null ? put(at, "null") : put_number(at, static_cast<unsigned>(value));
}

inline char *put_boolean(char *at, bool value) { return value ? put(at, "true") : put(at, "false"); }

} // namespace documents

#endif
