#include "json_writer.hpp"

namespace documents {

// What was written in the text stays there; what was written in the spare piece is copied as far as it fits.
char *json_writer::take(const char *end) {
  if (last_ != spare_) {
    length_ = static_cast<size_t>(end - out_);
    last_ = spare_;
    return spare_;
  }
  const size_t length = static_cast<size_t>(end - spare_);
  const size_t free = room_ - length_;
  const size_t written = length < free ? length : free;
  if (written > 0) {
    memcpy(out_ + length_, spare_, written);
  }
  length_ += written;
  left_out_ += length - written;
  return spare_;
}

int json_writer::finish(const char *end) {
  take(end);
  if (out_ != nullptr) {
    out_[length_] = '\0';
  }
  return static_cast<int>(length_ + left_out_);
}

char *put_string_or_null(char *at, const char *text) {
  if (text == nullptr) {
    return put(at, "null");
  }
  const size_t length = strlen(text);
  memcpy(at + 1, text, length);
  at[0] = at[length + 1] = '"';
  return at + length + 2;
}

char *put_escaped_string(char *at, const char *text) {
  at = put(at, '"');
  for (; *text != '\0'; ++text) {
    if (*text == '"' || *text == '\\') {
      at = put(at, '\\');
    }
    at = put(at, *text);
  }
  return put(at, '"');
}

char *put_long_number(char *at, unsigned value) {
  char pairs[10];
  size_t begin = sizeof pairs;
  for (; value >= 100; value /= 100) {
    begin -= 2;
    put_two_digits(pairs + begin, value % 100);
  }
  at = put_number(at, value);
  memcpy(at, pairs + begin, sizeof pairs - begin);
  return at + (sizeof pairs - begin);
}

} // namespace documents
