// From text to lines of the characters that a zone is made of, each remembering its bytes.
//
// Kept are A to Z, 0 to 9 and the filler, and what looks like them: small and full-width letters, the
// letters of other scripts that share their shape, and the signs that stand in for the filler. All else is
// dropped, white space silently.
#ifndef VARNEL_SRC_DOCUMENTS_CLEAN_TEXT_HPP
#define VARNEL_SRC_DOCUMENTS_CLEAN_TEXT_HPP

#include <Varnel/documents/inspect.h>

#include <stdint.h>

#include "../ascii.hpp"
#include "layouts.hpp"

namespace documents {

enum class character_kind : uint8_t {
  kept,       // one character of a zone
  two_kept,   // two fillers that share their bytes
  space,      // white space within a line
  line_end,   // LF, CR, VT, FF, NEL, LS or PS; CR LF are two, with nothing between them
  order_mark, // U+FEFF, dropped without a word
  dropped     // anything else; malformed UTF-8 is dropped byte by byte
};

struct character {
  character_kind kind;
  char as;        // what a kept character is read as; NUL for any other
  uint8_t length; // in bytes
};

// What single bytes are in a text of UTF-8.
//
// Of the bytes above ASCII only those need a closer look that begin a character which is kept or ends a line;
// all others add nothing, whatever stands around them.
struct byte_table {
  enum : uint8_t { ADDS_NONE = 0, ADDS_ONE = 1, LOOK_CLOSER = 32 };

  uint8_t adds[256] = {}; // to the kept characters of its line, where the byte alone says so
  char as[256] = {};      // what it is read as; NUL unless it is a kept character by itself

  constexpr byte_table() {
    for (int c = 0; c < 128; ++c) {
      const int capital = ascii::to_upper(c);
      if (c == '&' || (c >= '\n' && c <= '\r')) {
        adds[c] = LOOK_CLOSER;
      } else if (ascii::is_digit(c) || ascii::is_upper(capital) || c == FILLER) {
        adds[c] = ADDS_ONE;
        as[c] = static_cast<char>(capital);
      }
    }
    // U+0080 to U+00BF, Greek, Cyrillic, U+2000 to U+2FFF, U+3000 to U+3FFF, U+F000 to U+FFFF.
    constexpr int leads[] = {0xC2, 0xCE, 0xD0, 0xD1, 0xE2, 0xE3, 0xEF};
    for (const int lead : leads) {
      adds[lead] = LOOK_CLOSER;
    }
  }
};

inline constexpr byte_table BYTES;

// The character that the text begins with; `size` is at least 1.
character read_character(const char *text, uint32_t size);

// A stretch of the text that is to be read: offsets count from `text`, whatever part of it is meant.
struct passage {
  const char *text;
  uint32_t begin;
  uint32_t end;
};

enum class presence : uint8_t { unknown, none, some };

// A line of the text: its bytes, without its line end, and how many characters of it are kept.
struct text_line {
  uint32_t begin;
  uint32_t end;
  uint32_t kept;
  bool is_plain; // every byte is a kept character
  presence fillers;
};

// Passes over bytes up to one that begins something to be read as a character, or to the end, and adds how
// many characters of them are kept. Words of ASCII have been passed over before: most lines hold nothing
// else.
const char *pass_others(const char *at, const char *end, uint32_t &kept);

// Whether a filler is among the kept characters of a line, which remembers it.
bool has_filler(const char *text, text_line &line);

// Walks the lines of a passage of which something is kept.
class line_reader {
public:
  explicit line_reader(passage p) : passage_(p), at_(p.begin) {}

  // The next line that keeps a character; false when there is none.
  bool next(text_line &line);

private:
  void read(text_line &line);

  passage passage_;
  uint32_t at_;
};

// A kept character of a line.
struct kept_character {
  char c;
  bool after_dropped; // something other than white space was dropped since the one before it
  varnel_source source;
};

// Walks the kept characters of a line.
class character_reader {
public:
  character_reader(const char *text, text_line line) : text_(text), at_(line.begin), end_(line.end) {}

  // False at the line's end.
  bool next(kept_character &kept) {
    if (at_ < end_ && !has_second_) {
      const char as = BYTES.as[static_cast<unsigned char>(text_[at_])];
      if (as != '\0') {
        kept = {as, false, {at_, at_ + 1}};
        ++at_;
        return true;
      }
    }
    return next_of_many(kept);
  }

private:
  // The same where more than one byte may have to be looked at.
  bool next_of_many(kept_character &kept);

  const char *text_;
  uint32_t at_;
  uint32_t end_;
  bool has_second_ = false; // the second of two fillers is still to come
  varnel_source pair_ = {};
};

} // namespace documents

#endif
