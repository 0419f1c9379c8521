#include "json_writer.hpp"

namespace documents {

void json_writer::take_spare(size_t length) {
  const size_t free = room_ - length_;
  const size_t written = length < free ? length : free;
  if (written > 0) {
    memcpy(out_ + length_, spare_, written);
  }
  length_ += written;
  left_out_ += length - written;
}

int json_writer::finish() {
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
  int length = 0;
  for (unsigned left = value; left > 0; left /= 10) {
    ++length;
  }
  for (int i = length - 1; i >= 0; --i) {
    at[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  return at + length;
}

} // namespace documents
