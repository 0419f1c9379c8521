#include "noisy_lines.hpp"

#include <string.h>

#include "../../ascii.hpp"
#include "../../words.hpp"
#include "../text_reader.hpp"

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
  const char32_t code_point = decode(text, length);
  for (const symbol &s : SYMBOLS) {
    if (s.code_point == code_point) {
      return s.as;
    }
  }
  return '\0';
}

constexpr uint32_t SHORTEST_IN_BYTES = SHORTEST_LINE; // two fillers that share theirs have two
constexpr uint32_t LONGEST_IN_BYTES = 1024;           // with all the noise and white space in it
constexpr int MOST_BEYOND_ASCII = LONGEST_LINE;       // a text of another script has more
constexpr int FEWEST_DIGITS = 7;                      // of the dates, in a line without fillers

// What a line is made of.
struct line_counts {
  int small;
  int capitals;
  int digits;
  int fillers; // or what may be one
  int beyond_ascii;
  int kept; // at least; of a line of ASCII just so many

  // Neither prose nor too long, and with fillers or the digits of dates.
  bool may_be_zone() const {
    const bool is_prose = capitals > 0 && small > 2 * (capitals + digits + fillers);
    return !is_prose && beyond_ascii <= MOST_BEYOND_ASCII && (digits >= FEWEST_DIGITS || fillers > 0) &&
           kept <= LONGEST_LINE;
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

// Marks the bytes that begin a sign for a filler, as « and full-width <, in UTF-8, or a line end.
constexpr uint64_t mark_signs(uint64_t word) {
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

// The first of the signs in the word at `at` that ends a line; none of them: 0.
uint64_t find_line_end(const char *text, uint32_t at, uint32_t end, uint64_t signs) {
  for (; signs != 0; signs &= signs - 1) {
    const uint32_t place = at + static_cast<uint32_t>(words::first(signs));
    if (read_character(text + place, end - place).kind == character_kind::line_end) {
      return signs;
    }
  }
  return 0;
}

// How far a line goes, and the little that rules most lines out.
struct first_look {
  uint32_t end;
  uint32_t next;    // where the next line begins
  int digits;       // of a line that is not too long
  bool has_fillers; // or what only a closer look can say
  bool is_ascii;    // and has no name of a character, as "&lt;"
};

first_look look_at_line(const char *text, uint32_t begin, uint32_t end) {
  mark_counter digits;
  uint64_t fillers = 0;
  uint64_t others = 0;
  uint32_t at = begin;
  uint32_t next = end;
  for (bool is_last = false; !is_last; at += WORD) {
    uint64_t word = load(text, at, end);
    is_last = end - at <= WORD;
    uint64_t line_ends = mark(word, '\n', '\r');
    if ((word & MARKS) != 0) {
      const uint64_t signs = mark_signs(word);
      line_ends |= find_line_end(text, at, end, signs);
      fillers |= signs;
    }
    if (line_ends != 0) {
      const uint32_t size = static_cast<uint32_t>(words::first(line_ends));
      word = first_bytes(word, size);
      next = at + size + read_character(text + at + size, end - at - size).length;
      end = at + size;
      is_last = true;
    }
    digits.add(mark(word, '0', '9'));
    fillers |= mark(word, ';', '<');
    others |= mark(word, ';', ';') | (word & MARKS);
  }
  return {end, next, digits.sum(), fillers != 0, others == 0};
}

// Of a line that is not ASCII fillers are as many as there may be: signs for two of them are of several
// bytes. Not counted as kept are two letters for each semicolon, as "&lt;" has them.
line_counts count_at_most(const char *text, uint32_t begin, uint32_t end, const first_look &look) {
  mark_counter small;
  mark_counter capitals;
  mark_counter fillers;
  mark_counter semicolons;
  mark_counter beyond_ascii;
  for (uint32_t at = begin; at < end; at += WORD) {
    const uint64_t word = load(text, at, end);
    small.add(mark(word, 'a', 'z'));
    capitals.add(mark(word, 'A', 'Z'));
    fillers.add(mark(word, FILLER, FILLER));
    if (!look.is_ascii) {
      semicolons.add(mark(word, ';', ';'));
      beyond_ascii.add(word & word << 1 & MARKS); // the bytes that begin a character
    }
  }
  const int kept = small.sum() + capitals.sum() + look.digits + fillers.sum() - 2 * semicolons.sum();
  const int most_fillers = fillers.sum() + semicolons.sum() + 2 * beyond_ascii.sum();
  return {small.sum(), capitals.sum(), look.digits, most_fillers, beyond_ascii.sum(), kept};
}

// Counts by reading it what no look at its bytes can count. False where the line cannot be one of a zone.
bool count_read(const char *text, const line_span &span, line_counts &counts) {
  noisy_line line;
  if (!read_line(text, span, line)) {
    return false;
  }
  counts.digits = counts.fillers = 0;
  for (int i = 0; i < line.size; ++i) {
    counts.digits += ascii::is_digit(line.text[i]);
    counts.fillers += line.text[i] == FILLER;
  }
  return counts.may_be_zone();
}

} // namespace

bool line_finder::next(line_span &span) {
  while (at_ < passage_.end) {
    const uint32_t begin = at_;
    const first_look look = look_at_line(passage_.text, begin, passage_.end);
    at_ = look.next;
    const uint32_t size = look.end - begin;
    if (size < SHORTEST_IN_BYTES || size > LONGEST_IN_BYTES ||
        (look.digits < FEWEST_DIGITS && !look.has_fillers)) {
      continue;
    }
    line_counts counts = count_at_most(passage_.text, begin, look.end, look);
    span = {begin, look.end, false, false};
    if (!counts.may_be_zone() ||
        !(look.is_ascii ? counts.kept >= SHORTEST_LINE : count_read(passage_.text, span, counts))) {
      continue;
    }
    span.has_fillers = counts.fillers > 0;
    span.has_dates = counts.digits >= FEWEST_DIGITS;
    return true;
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
    int count = found.kind == character_kind::two_kept ? 2 : found.kind == character_kind::kept ? 1 : 0;
    char as = ascii::is_lower(*bytes) ? *bytes : found.as;
    if (found.kind == character_kind::dropped) {
      as = read_symbol(bytes, found.length);
      count = as != '\0' ? 1 : 0;
      noise = noise || count == 0;
      line.has_noise = line.has_noise || noise;
    }
    gap = gap || found.kind == character_kind::space;
    capitals = capitals || ascii::is_upper(as);
    for (; count > 0; --count) {
      const int size = line.size;
      if (size == LONGEST_LINE) {
        return false;
      }
      if (gap) {
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
