// JSON into a room that may be too small.
#ifndef VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP
#define VARNEL_SRC_DOCUMENTS_JSON_WRITER_HPP

#include <stddef.h>
#include <string.h>

namespace documents {

// Writes what fits and counts what the whole needs.
class json_writer {
public:
  // Room for `size` bytes, the terminating NUL included; where that is 0 nothing is written to `out`.
  json_writer(char *out, size_t size) : out_(size > 0 ? out : nullptr), room_(size > 0 ? size - 1 : 0) {}

  // A literal, without its NUL.
  template <size_t Size> void raw(const char (&literal)[Size]) {
    if (room_ - length_ >= Size - 1) {
      memcpy(out_ + length_, literal, Size - 1);
      length_ += Size - 1;
    } else {
      raw(literal, Size - 1);
    }
  }

  void raw(const char *text, size_t length);

  void character(char c);

  void number(unsigned value);

  void number_or_null(int value, bool is_null);

  // Exactly `width` digits, at most 4, with leading zeros.
  void padded(int value, int width);

  void boolean(bool value);

  // A string of which no character needs a backslash; null for a null pointer.
  void string(const char *text);

  // The same for a text in an array: the whole array is copied where there is room, at once.
  template <size_t Size> void array(const char (&text)[Size]) {
    const size_t length = strlen(text);
    if (room_ - length_ >= Size + 2) {
      char *out = out_ + length_;
      memcpy(out + 1, text, Size);
      out[0] = out[length + 1] = '"';
      length_ += length + 2;
    } else {
      string(text);
    }
  }

  // Any string without control characters; null for a null pointer.
  void escaped_string(const char *text);

  // Ends the text, and returns the length of the whole.
  int finish();

private:
  char *out_;           // null where not even the NUL has room
  size_t room_;         // for text, the NUL left out
  size_t length_ = 0;   // of what was written, never more than the room
  size_t left_out_ = 0; // what found no room
};

} // namespace documents

#endif
