#include "noisy_lines.hpp"

#include "../../ascii.hpp"

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

constexpr bool ends_line(unsigned char c) { return c >= '\n' && c <= '\r'; }

// The last bytes of the signs that stand in for a filler, in UTF-8, and what closes "&lt;".
constexpr bool may_end_filler(unsigned char c) {
  return c == '<' || c == ';' || c == 0x88 || c == 0x9C || c == 0xA4 || c == 0xA8 || c == 0xA9 || c == 0xAB ||
         c == 0xB9 || c == 0xBA || c == 0xBB;
}

// What a byte adds to the counts of a line: small letters, capitals, digits and fillers, of 16 bits each.
struct count_table {
  uint64_t adds[256] = {};

  static constexpr int SMALL = 0;
  static constexpr int CAPITAL = 16;
  static constexpr int DIGIT = 32;
  static constexpr int LIKE_FILLER = 48;

  constexpr count_table() {
    for (int c = 0; c < 256; ++c) {
      adds[c] = ascii::is_lower(c)                              ? uint64_t{1} << SMALL
                : ascii::is_upper(c)                            ? uint64_t{1} << CAPITAL
                : ascii::is_digit(c)                            ? uint64_t{1} << DIGIT
                : may_end_filler(static_cast<unsigned char>(c)) ? uint64_t{1} << LIKE_FILLER
                                                                : 0;
    }
  }
};

constexpr count_table COUNTS;

constexpr uint32_t LONGEST_IN_BYTES = 1024; // with all the noise and white space in it

// Whether a line of these counts may be one of a zone: neither prose nor too long or short.
bool may_be_zone(uint64_t counts) {
  const auto count = [counts](int of) { return static_cast<int>(counts >> of & 0xFFFF); };
  const int small = count(count_table::SMALL);
  const int capitals = count(count_table::CAPITAL);
  const int digits = count(count_table::DIGIT);
  const int fillers = count(count_table::LIKE_FILLER);
  constexpr int fewest_digits = 6;
  const bool prose = capitals > 0 && small > 2 * (capitals + digits + fillers);
  return !prose && (digits >= fewest_digits || fillers > 0) && small + capitals + digits <= LONGEST_LINE;
}

} // namespace

bool noisy_line_reader::next(noisy_line &line) {
  const unsigned char *bytes = reinterpret_cast<const unsigned char *>(passage_.text);
  while (at_ < passage_.end) {
    const uint32_t begin = at_;
    uint32_t end = begin;
    uint64_t counts = 0;
    for (; end < passage_.end && !ends_line(bytes[end]); ++end) {
      counts += COUNTS.adds[bytes[end]];
    }
    at_ = end + 1;
    const bool may_fit = end - begin >= SHORTEST_LINE / 2 && end - begin <= LONGEST_IN_BYTES;
    if (may_fit && may_be_zone(counts) && read(begin, end, line)) {
      return true;
    }
  }
  return false;
}

bool noisy_line_reader::read(uint32_t begin, uint32_t end, noisy_line &line) const {
  line = noisy_line{};
  line.begin = begin;
  line.end = end;
  bool gap = false;
  bool noise = false;
  bool capitals = false;
  for (uint32_t i = begin; i < end;) {
    const char *text = passage_.text + i;
    const character found = read_character(text, end - i);
    int count = 0;
    char as = found.as;
    switch (found.kind) {
    case character_kind::kept:
      count = 1;
      as = found.length == 1 && ascii::is_lower(*text) ? *text : found.as;
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
      as = read_symbol(text, found.length);
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
