// Small helpers the unit tests share.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <Varnel/Varnel.h>

namespace support {

// A view of a literal, which outlives every test.
inline STRING view(std::string_view text) { return STRING{text.data(), static_cast<int>(text.size())}; }

// What a view shows; an empty string for an empty view.
inline std::string text(const STRING &view) {
  return view.str == nullptr || view.len < 1 ? std::string()
                                             : std::string(view.str, static_cast<std::size_t>(view.len));
}

// Bytes as a table can hold them: NUL shown as '~'.
inline std::string shown(std::string bytes) {
  for (char &c : bytes)
    if (c == '\0')
      c = '~';
  return bytes;
}

// Predicates. noted<f> answers as f does, and notes what it was asked.
inline int is_filler(int c) { return c == '<'; }
inline int is_space(int c) { return c == ' '; }
inline int is_digit(int c) { return c >= '0' && c <= '9'; }
inline int is_letter(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
inline int is_negative(int c) { return c < 0 ? -1 : 0; }
inline int yes(int) { return 1; }
inline int yes_minus_one(int) { return -1; }
inline int yes_256(int) { return 256; }
inline int no(int) { return 0; }
inline std::vector<int> asked;
template <_t_predicate_func f> int noted(int c) {
  asked.push_back(c);
  return f(c);
}

// A copy of a text in memory of exactly its size, so that the address sanitizer sees every read past it.
class Exact {
public:
  explicit Exact(std::string_view text)
      : memory_(new char[text.size()]), size_(static_cast<int>(text.size())) {
    text.copy(memory_.get(), text.size());
  }
  STRING view() const { return STRING{memory_.get(), size_}; }
  const char *data() const { return memory_.get(); }
  int size() const { return size_; }

private:
  std::unique_ptr<char[]> memory_;
  int size_;
};

// Memory to lend, filled with '.', between guard bytes that nobody may touch.
class Lent {
public:
  explicit Lent(int size, char fill = '.') : bytes_(static_cast<std::size_t>(size) + 2 * margin, guard) {
    for (int i = 0; i < size; i += 1)
      data()[i] = fill;
  }
  char *data() { return bytes_.data() + margin; }
  const char *data() const { return bytes_.data() + margin; }
  int size() const { return static_cast<int>(bytes_.size() - 2 * margin); }
  std::string bytes() const { return std::string(data(), static_cast<std::size_t>(size())); }
  std::string shown() const { return support::shown(bytes()); }
  bool guards_intact() const {
    const std::string expected(margin, guard);
    return std::string(bytes_.data(), margin) == expected && std::string(data() + size(), margin) == expected;
  }

private:
  static constexpr std::size_t margin = 16;
  static constexpr char guard = '\x5A';
  std::vector<char> bytes_;
};

// A record over a buffer of its own between guard bytes, cleared and ready.
class Record {
public:
  explicit Record(int buffer_size = VARNEL_BUFFER_SIZE) : buffer_(buffer_size) {
    result_init(&result_, buffer_.data(), buffer_size);
  }
  Record(const Record &) = delete;
  Record &operator=(const Record &) = delete;

  PARSE_RESULT *get() { return &result_; }
  PARSE_RESULT *operator->() { return &result_; }
  FIELD *slot(int field) { return &result_.fields[field]; }
  std::string value(int field) const { return text(result_.fields[field].value); }
  // Where a slot's text starts in the buffer, or -1 for an empty slot.
  int offset(int field) const {
    const char *str = result_.fields[field].value.str;
    return str == nullptr ? -1 : static_cast<int>(str - buffer_.data());
  }
  // The whole buffer, NUL shown as '~'.
  std::string shown() const { return buffer_.shown(); }
  std::string bytes() const { return buffer_.bytes(); }
  bool guards_intact() const { return buffer_.guards_intact(); }

private:
  Lent buffer_;
  PARSE_RESULT result_;
};

} // namespace support
