// UTF-8 text, character by character, with the place of each.
#ifndef VARNEL_SRC_DOCUMENTS_TEXT_READER_HPP
#define VARNEL_SRC_DOCUMENTS_TEXT_READER_HPP

#include <stddef.h>
#include <string.h>

#include "../utf8.hpp"

namespace documents {

struct text_position {
  size_t character; // from 0
  size_t offset;    // in bytes
};

// What a byte that cannot be decoded reads as: no character.
constexpr char32_t NOT_A_CHARACTER = 0xFFFFFFFF;

// The character that these bytes are, as many as utf8::sequence_length says.
inline char32_t decode(const char *at, int length) {
  const char32_t lead = static_cast<unsigned char>(at[0]);
  if (length == 1) {
    return lead < 0x80 ? lead : NOT_A_CHARACTER;
  }
  char32_t c = lead & (0x7FU >> length);
  for (int i = 1; i < length; ++i) {
    c = c << 6 | (static_cast<unsigned char>(at[i]) & 0x3F);
  }
  return c;
}

class text_reader {
public:
  // A NUL-terminated text; null is an empty one.
  explicit text_reader(const char *text) : text_(text), size_(text != nullptr ? strlen(text) : 0) {}

  bool at_end() const { return next_.offset == size_; }

  // Where the next character stands.
  text_position position() const { return next_; }

  // Whether no character beyond ASCII comes next.
  bool is_plain_next() const { return at_end() || static_cast<unsigned char>(text_[next_.offset]) < 0x80; }

  // Must not be called at the end.
  char32_t next() {
    const char *at = text_ + next_.offset;
    const int length = utf8::sequence_length(at, size_ - next_.offset);
    next_.offset += static_cast<size_t>(length);
    ++next_.character;
    return decode(at, length);
  }

private:
  const char *text_;
  size_t size_;
  text_position next_ = {0, 0};
};

} // namespace documents

#endif
