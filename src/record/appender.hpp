// Writes values to a record one after the other. It keeps the end of the text and the room that is left to
// itself and tells the record in the end, so that a value costs its copy and its slot and no more.
#ifndef VARNEL_SRC_RECORD_APPENDER_HPP
#define VARNEL_SRC_RECORD_APPENDER_HPP

#include "slots.hpp"

namespace record {

class appender {
public:
  explicit appender(PARSE_RESULT *result)
      : result_(result), end_(free_space(result)), room_(free_size(result)) {}
  appender(const appender &) = delete;
  appender &operator=(const appender &) = delete;
  ~appender() { result_->data_size += free_size(result_) - room_; }

  // Where the next value is written, and how many characters it may have.
  char *end() const { return end_; }
  int room() const { return room_; }

  // Points a slot at the `length` characters that were just written to the end; the slot becomes empty when
  // there are none.
  void fill(int field, int length) {
    STRING &value = result_->fields[field].value;
    if (length < 1) {
      value = STRING{nullptr, 0};
      return;
    }
    value = STRING{end_, length};
    end_ += length;
    room_ -= length;
    if (room_ > 1) { // the last byte is never given to a terminator
      *end_++ = '\0';
      --room_;
    }
  }

  // Writes as much of a text as there is room for.
  void write(int field, STRING text) {
    const int kept = smaller(text.len, room_);
    if (kept > 0) {
      memcpy(end_, text.str, static_cast<size_t>(kept));
    }
    fill(field, kept);
  }

private:
  PARSE_RESULT *result_;
  char *end_;
  int room_;
};

} // namespace record

#endif
