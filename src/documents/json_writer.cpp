#include "json_writer.hpp"

namespace documents {

void json_writer::raw(const char *text, size_t length) {
  const size_t free = room_ - length_;
  const size_t written = length < free ? length : free;
  if (written > 0) {
    memcpy(out_ + length_, text, written);
  }
  length_ += written;
  left_out_ += length - written;
}

void json_writer::character(char c) {
  if (length_ < room_) {
    out_[length_++] = c;
  } else {
    ++left_out_;
  }
}

void json_writer::number(unsigned value) {
  if (value < 10) {
    character(static_cast<char>('0' + value));
    return;
  }
  if (value < 100 && room_ - length_ >= 2) { // nearly every place in a zone
    out_[length_++] = static_cast<char>('0' + value / 10);
    out_[length_++] = static_cast<char>('0' + value % 10);
    return;
  }
  char digits[10];
  size_t first = sizeof digits;
  for (; value > 0; value /= 10) {
    digits[--first] = static_cast<char>('0' + value % 10);
  }
  raw(digits + first, sizeof digits - first);
}

void json_writer::number_or_null(int value, bool is_null) {
  if (is_null) {
    raw("null");
  } else {
    number(static_cast<unsigned>(value));
  }
}

void json_writer::padded(int value, int width) {
  char digits[4];
  for (int i = width - 1; i >= 0; --i) {
    digits[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  raw(digits, static_cast<size_t>(width));
}

void json_writer::boolean(bool value) {
  if (value) {
    raw("true");
  } else {
    raw("false");
  }
}

void json_writer::string(const char *text) {
  if (text == nullptr) {
    raw("null");
    return;
  }
  raw("\"");
  raw(text, strlen(text));
  raw("\"");
}

void json_writer::escaped_string(const char *text) {
  if (text == nullptr) {
    raw("null");
    return;
  }
  raw("\"");
  const char *begin = text;
  for (; *text != '\0'; ++text) {
    if (*text == '"' || *text == '\\') {
      raw(begin, static_cast<size_t>(text - begin));
      raw("\\");
      begin = text;
    }
  }
  raw(begin, static_cast<size_t>(text - begin));
  raw("\"");
}

int json_writer::finish() {
  if (out_ != nullptr) {
    out_[length_] = '\0';
  }
  return static_cast<int>(length_ + left_out_);
}

} // namespace documents
