// JSON into a room that may be too small.
//
// It is written piece by piece. A piece is put together without a look at the room, by functions that write
// at a place and return where they ended; the writer gives each a place with room enough.
#ifndef VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP
#define VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP

#include <stddef.h>
#include <string.h>

namespace documents {

// Writes what fits and counts what the whole needs.
class json_writer {
public:
  static constexpr size_t PIECE = 640; // bytes that a piece has at most

  // Room for `size` bytes, the terminating NUL included; where that is 0 nothing is written to `out`.
  // cppcheck-suppress uninitMemberVar // the spare piece is read as far as it was written
  json_writer(char *out, size_t size) : out_(size > 0 ? out : nullptr), room_(size > 0 ? size - 1 : 0) {}

  // Where the next piece is to be written.
  char *begin() { return room_ - length_ >= PIECE ? out_ + length_ : spare_; }

  // Takes over the piece up to `end`.
  void take(const char *end) {
    if (room_ - length_ >= PIECE) {
      length_ = static_cast<size_t>(end - out_);
    } else {
      take_spare(static_cast<size_t>(end - spare_));
    }
  }

  // Ends the text, and returns the length of the whole.
  int finish();

private:
  void take_spare(size_t length);

  char *out_;           // null where not even the NUL has room
  size_t room_;         // for text, the NUL left out
  size_t length_ = 0;   // of what was written, never more than the room
  size_t left_out_ = 0; // what found no room
  char spare_[PIECE];   // a piece for which there may be no room
};

// A literal, without its NUL.
template <size_t Size> char *put(char *at, const char (&literal)[Size]) {
  memcpy(at, literal, Size - 1);
  return at + Size - 1;
}

inline char *put(char *at, char c) {
  *at = c;
  return at + 1;
}

// A text of so many characters as a string; none may need a backslash. All of its array is copied.
template <size_t Size> char *put_string(char *at, const char (&text)[Size], size_t length) {
  memcpy(at + 1, text, Size);
  at[0] = at[length + 1] = '"';
  return at + length + 2;
}

template <size_t Size> char *put_string(char *at, const char (&text)[Size]) {
  return put_string(at, text, strlen(text));
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
