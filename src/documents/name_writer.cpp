#include "name_writer.hpp"

#include "../ascii.hpp"
#include "characters.hpp"

namespace documents {

namespace {

constexpr bool is_ascii_letter(char32_t c) { return c < 0x80 && ascii::is_alpha(static_cast<int>(c)); }

// Holds each letter back until what follows it is known: its marks, and whether it ends its component.
class name_writer {
public:
  name_writer(language of, zone_text &out) : of_(of), out_(out) {}

  // Returns whether there are letters of the zone for the letter held back; so do all that return a bool.
  bool add(char32_t c, text_position at) {
    switch (kind_of(c)) {
    case character_kind::separator:
      return separate();
    case character_kind::dropped:
      takes_marks_ = false;
      return true;
    case character_kind::mark:
      add_mark(c);
      return true;
    default:
      return add_letter(capital_of(c), at);
    }
  }

  bool add_letter(char32_t capital, text_position at) {
    if (!write_letter(false)) {
      return false;
    }
    letter_ = marked_letter(capital);
    at_ = at;
    times_ = 1;
    takes_marks_ = true;
    return true;
  }

  // A letter that no mark can follow.
  bool add_plain(char capital) {
    if (!write_letter(false)) {
      return false;
    }
    out_.put(capital);
    return true;
  }

  bool separate() {
    const bool written = end_component();
    out_.separate();
    return written;
  }

  bool end_component() { return write_letter(true); }

  // The letter that could not be written.
  text_position bad() const { return at_; }

private:
  void add_mark(char32_t mark) {
    if (times_ == 0) {
      return; // a mark on nothing
    }
    if (mark == SHADDA) {
      ++times_;
    } else if (takes_marks_) {
      letter_.add_mark(mark);
    }
  }

  bool write_letter(bool is_last) {
    const size_t times = times_;
    times_ = 0;
    if (times == 0) {
      return true;
    }
    const char32_t composed = letter_.composed();
    if (is_ascii_letter(composed)) {
      return write_ascii(composed, times);
    }
    const component_place place = {!out_.in_component(), is_last};
    const char *zone = zone_letters(composed, of_, place);
    if (zone == nullptr) {
      const char32_t bare = letter_.bare();
      if (is_ascii_letter(bare)) {
        return write_ascii(bare, times);
      }
      zone = zone_letters(bare, of_, place);
    }
    if (zone == nullptr) {
      return false;
    }
    for (size_t i = 0; i < times; ++i) {
      for (const char *c = zone; *c != '\0'; ++c) {
        out_.put(*c);
      }
    }
    return true;
  }

  bool write_ascii(char32_t letter, size_t times) {
    for (size_t i = 0; i < times; ++i) {
      out_.put(static_cast<char>(letter));
    }
    return true;
  }

  language of_;
  zone_text &out_;
  marked_letter letter_;
  text_position at_ = {0, 0};
  size_t times_ = 0; // how often the letter is written; 0 while none is held back
  bool takes_marks_ = false;
};

} // namespace

bool write_name(const char *text, language of, zone_text &out, text_position &bad) {
  name_writer writer(of, out);
  text_reader reader(text);
  bool written = true;
  while (written && !reader.at_end()) {
    const text_position at = reader.position();
    const char32_t c = reader.next();
    if (!is_ascii_letter(c)) {
      written = writer.add(c, at);
      continue;
    }
    const int capital = ascii::to_upper(static_cast<int>(c));
    written = reader.is_plain_next() ? writer.add_plain(static_cast<char>(capital))
                                     : writer.add_letter(static_cast<char32_t>(capital), at);
  }
  written = written && writer.end_component();
  if (!written) {
    bad = writer.bad();
  }
  return written;
}

} // namespace documents
