#include "noisy_lines.hpp"

#include <string.h>

#include "../../ascii.hpp"
#include "../../words.hpp"

namespace documents::repair {

namespace {

// A symbol that readers write for a character of the zone, as the small letter that it looks like. U+00E9 is
// what they make of a 6, which a small b stands for here.
struct symbol {
  uint16_t code_point;
  char as;
};

constexpr symbol SYMBOLS[] = {
    {'!', 'i'},  {'$', 's'},  {'&', 'e'},  {'(', 'c'},  {'?', 'z'},  {'@', 'q'},
    {'[', 'i'},  {']', 'i'},  {'{', 'c'},  {'|', 'i'},  {0xA2, 'c'}, {0xA3, 'e'},
    {0xA5, 'y'}, {0xA7, 's'}, {0xA9, 'c'}, {0xE8, 'e'}, {0xE9, 'b'}, {0x20AC, 'e'},
};

// The symbol that the text begins with, as a letter; NUL when it is none.
char read_symbol(const char *text, int length) {
  const unsigned char *bytes = reinterpret_cast<const unsigned char *>(text);
  const int code_point = length == 1   ? bytes[0]
                         : length == 2 ? (bytes[0] & 0x1F) << 6 | (bytes[1] & 0x3F)
                         : length == 3 ? (bytes[0] & 0x0F) << 12 | (bytes[1] & 0x3F) << 6 | (bytes[2] & 0x3F)
                                       : 0;
  for (const symbol &s : SYMBOLS) {
    if (s.code_point == code_point) {
      return s.as;
    }
  }
  return '\0';
}

// The last bytes of the signs that stand in for a filler, in UTF-8, and what closes "&lt;".
constexpr bool may_end_filler(unsigned char c) {
  return c == '<' || c == ';' || c == 0x88 || c == 0x9C || c == 0xA4 || c == 0xA8 || c == 0xA9 || c == 0xAB ||
         c == 0xB9 || c == 0xBA || c == 0xBB;
}

constexpr uint32_t SHORTEST_IN_BYTES = SHORTEST_LINE / 2; // two fillers may share theirs
constexpr uint32_t LONGEST_IN_BYTES = 1024;               // with all the noise and white space in it
constexpr int MOST_BEYOND_ASCII = LONGEST_LINE;           // a text of another script has more
constexpr int FEWEST_DIGITS = 6;                          // of a date, in a line without fillers

// What a line is made of.
struct line_counts {
  int small;
  int capitals;
  int digits;
  int fillers; // or what may be one
  int beyond_ascii;

  int letters_and_digits() const { return small + capitals + digits; }

  // Neither prose nor too long, and with fillers or the digits of a date.
  bool may_be_zone() const {
    const bool is_prose = capitals > 0 && small > 2 * (capitals + digits + fillers);
    return !is_prose && beyond_ascii <= MOST_BEYOND_ASCII && (digits >= FEWEST_DIGITS || fillers > 0) &&
           letters_and_digits() <= LONGEST_LINE;
  }
};

// ---- eight bytes at a time -------------------------------------------------------------------------

using words::MARKS;

constexpr uint32_t WORD = words::SIZE;

// The first bytes of a word of fewer than eight; NUL, which is none of what is counted, in the place of the
// rest.
constexpr uint64_t first_bytes(uint64_t word, uint32_t size) {
  return word & ((uint64_t{1} << 8 * size) - 1);
}

// The bytes from `at` to before `end`, up to eight.
uint64_t load(const char *text, uint32_t at, uint32_t end) {
  if (end - at >= WORD) {
    return words::load<uint64_t>(text + at);
  }
  char bytes[WORD] = {};
  memcpy(bytes, text + at, end - at);
  return words::load<uint64_t>(bytes);
}

// Marks the bytes of ASCII from `first` to `last`, and no others.
constexpr uint64_t mark(uint64_t word, char first, char last) {
  return words::of_ascii(words::in_range(word & ~MARKS, first, last), word) & MARKS;
}

// Marks the bytes that begin a sign for a filler, as « and full-width <, in UTF-8.
constexpr uint64_t mark_filler_signs(uint64_t word) {
  const uint64_t low = word & ~MARKS;
  return (mark(low, 0xC2 & 0x7F, 0xC2 & 0x7F) | mark(low, 0xE2 & 0x7F, 0xE3 & 0x7F) |
          mark(low, 0xEF & 0x7F, 0xEF & 0x7F)) &
         word;
}

// Counts marks, of up to 255 words, byte by byte.
class mark_counter {
public:
  void add(uint64_t marks) { counts_ += marks >> 7; }

  int sum() const {
    constexpr uint64_t pairs = 0x00FF00FF00FF00FF;
    const uint64_t sums = (counts_ & pairs) + (counts_ >> 8 & pairs);
    return static_cast<int>(sums * 0x0001000100010001 >> 48);
  }

private:
  uint64_t counts_ = 0;
};

// How far a line goes, and the little that rules most lines out.
struct first_look {
  uint32_t end;
  int digits;       // of a line that is not too long
  bool has_fillers; // or what only a closer look can say
  bool is_ascii;    // and has no name of a character, as "&lt;"
};

first_look look_at_line(const char *text, uint32_t begin, uint32_t end) {
  mark_counter digits;
  uint64_t fillers = 0;
  uint64_t others = 0;
  uint32_t at = begin;
  for (bool is_last = false; !is_last; at += WORD) {
    uint64_t word = load(text, at, end);
    is_last = end - at <= WORD;
    const uint64_t line_ends = mark(word, '\n', '\r');
    if (line_ends != 0) {
      const uint32_t size = static_cast<uint32_t>(words::first(line_ends));
      word = first_bytes(word, size);
      end = at + size;
      is_last = true;
    }
    digits.add(mark(word, '0', '9'));
    fillers |= mark(word, ';', '<');
    others |= mark(word, ';', ';') | (word & MARKS);
    if ((word & MARKS) != 0) {
      fillers |= mark_filler_signs(word);
    }
  }
  return {end, digits.sum(), fillers != 0, others == 0};
}

// The bytes that begin a character beyond ASCII.
int count_beyond_ascii(const char *text, uint32_t begin, uint32_t end) {
  mark_counter counter;
  for (uint32_t at = begin; at < end; at += WORD) {
    const uint64_t word = load(text, at, end);
    counter.add(word & word << 1 & MARKS);
  }
  return counter.sum();
}

// Fillers are as many as there may be: readers' signs for two of them are of several bytes.
line_counts count_at_most(const char *text, uint32_t begin, uint32_t end, const first_look &look) {
  mark_counter small;
  mark_counter capitals;
  mark_counter fillers;
  for (uint32_t at = begin; at < end; at += WORD) {
    const uint64_t word = load(text, at, end);
    small.add(mark(word, 'a', 'z'));
    capitals.add(mark(word, 'A', 'Z'));
    fillers.add(mark(word, ';', '<'));
  }
  const int beyond_ascii = look.is_ascii ? 0 : count_beyond_ascii(text, begin, end);
  return {small.sum(), capitals.sum(), look.digits, fillers.sum() + 2 * beyond_ascii, beyond_ascii};
}

// What is counted exactly, byte by byte.
line_counts count_any(const char *text, uint32_t begin, uint32_t end) {
  line_counts counts = {};
  for (uint32_t at = begin; at < end; ++at) {
    const char c = text[at];
    counts.small += ascii::is_lower(c);
    counts.capitals += ascii::is_upper(c);
    counts.digits += ascii::is_digit(c);
    counts.fillers += may_end_filler(static_cast<unsigned char>(c));
  }
  return counts;
}

} // namespace

bool line_finder::next(line_span &span) {
  while (at_ < passage_.end) {
    const uint32_t begin = at_;
    const first_look look = look_at_line(passage_.text, begin, passage_.end);
    at_ = look.end + 1;
    const uint32_t size = look.end - begin;
    if (size < SHORTEST_IN_BYTES || size > LONGEST_IN_BYTES ||
        (look.digits < FEWEST_DIGITS && !look.has_fillers)) {
      continue;
    }
    line_counts counts = count_at_most(passage_.text, begin, look.end, look);
    if (!counts.may_be_zone()) {
      continue;
    }
    if (!look.is_ascii) {
      counts = count_any(passage_.text, begin, look.end);
    }
    constexpr int fewest_digits_of_dates = 7;
    span = {begin, look.end, counts.fillers > 0, counts.digits >= fewest_digits_of_dates};
    const int kept = counts.letters_and_digits() + counts.fillers;
    noisy_line line;
    if (look.is_ascii ? kept >= SHORTEST_LINE && kept <= LONGEST_LINE
                      : counts.may_be_zone() && read_line(passage_.text, span, line)) {
      return true;
    }
  }
  return false;
}

bool read_line(const char *text, const line_span &span, noisy_line &line) {
  line = noisy_line{};
  line.begin = span.begin;
  line.end = span.end;
  bool gap = false;
  bool noise = false;
  bool capitals = false;
  for (uint32_t i = span.begin; i < span.end;) {
    const char *bytes = text + i;
    const character found = read_character(bytes, span.end - i);
    int count = 0;
    char as = found.as;
    switch (found.kind) {
    case character_kind::kept:
      count = 1;
      as = found.length == 1 && ascii::is_lower(*bytes) ? *bytes : found.as;
      break;
    case character_kind::two_kept:
      count = 2;
      break;
    case character_kind::space:
    case character_kind::line_end:
      gap = true;
      break;
    case character_kind::order_mark:
      break;
    case character_kind::dropped:
      as = read_symbol(bytes, found.length);
      count = as != '\0' ? 1 : 0;
      if (count == 0) {
        noise = true;
        line.noise = static_cast<uint8_t>(line.noise + (line.noise < UINT8_MAX));
      }
      break;
    }
    capitals = capitals || (count > 0 && ascii::is_upper(as));
    for (; count > 0; --count) {
      const int size = line.size;
      if (size == LONGEST_LINE) {
        return false;
      }
      if (gap && size > 0) {
        line.gaps |= uint64_t{1} << size;
        line.head = line.head == 0 ? line.size : line.head;
      }
      line.noise_before |= static_cast<uint64_t>(noise) << size;
      gap = noise = false;
      line.at[size] = static_cast<uint16_t>(i);
      line.text[size] = as;
      ++line.size;
    }
    i += found.length;
  }
  line.head = line.head <= 2 ? line.head : 0;
  // Small letters throughout are how the text was written, not what a reader was unsure of.
  for (int i = 0; i < line.size && !capitals; ++i) {
    line.text[i] = static_cast<char>(ascii::to_upper(line.text[i]));
  }
  return line.size >= SHORTEST_LINE;
}

} // namespace documents::repair
