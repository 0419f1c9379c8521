#include "clean_text.hpp"

#include <stddef.h>
#include <string.h>

#include "../utf8.hpp"
#include "../words.hpp"
#include "text_reader.hpp"

namespace documents {

namespace {

using kind = character_kind;

constexpr unsigned char byte(char c) { return static_cast<unsigned char>(c); }

// The letters of other scripts that look like Latin ones.
struct look_alike {
  uint16_t code_point;
  char letter;
};

// In the order of their code points.
constexpr look_alike LOOK_ALIKES[] = {
    // Greek capitals
    {0x391, 'A'},
    {0x392, 'B'},
    {0x395, 'E'},
    {0x396, 'Z'},
    {0x397, 'H'},
    {0x399, 'I'},
    {0x39A, 'K'},
    {0x39C, 'M'},
    {0x39D, 'N'},
    {0x39F, 'O'},
    {0x3A1, 'P'},
    {0x3A4, 'T'},
    {0x3A5, 'Y'},
    {0x3A7, 'X'},
    // Cyrillic capitals
    {0x405, 'S'},
    {0x406, 'I'},
    {0x408, 'J'},
    {0x410, 'A'},
    {0x412, 'B'},
    {0x415, 'E'},
    {0x41A, 'K'},
    {0x41C, 'M'},
    {0x41D, 'H'},
    {0x41E, 'O'},
    {0x420, 'P'},
    {0x421, 'C'},
    {0x422, 'T'},
    {0x423, 'Y'},
    {0x425, 'X'},
    // Cyrillic small letters
    {0x430, 'A'},
    {0x435, 'E'},
    {0x43E, 'O'},
    {0x440, 'P'},
    {0x441, 'C'},
    {0x443, 'Y'},
    {0x445, 'X'},
    {0x455, 'S'},
    {0x456, 'I'},
    {0x458, 'J'},
};

constexpr uint32_t FIRST_LOOK_ALIKE = LOOK_ALIKES[0].code_point;
constexpr uint32_t LAST_LOOK_ALIKE = LOOK_ALIKES[sizeof LOOK_ALIKES / sizeof *LOOK_ALIKES - 1].code_point;

// The letter that each code point from the first to the last looks like, or NUL.
struct look_alike_table {
  char letters[LAST_LOOK_ALIKE - FIRST_LOOK_ALIKE + 1] = {};

  constexpr look_alike_table() {
    for (const look_alike &l : LOOK_ALIKES) {
      letters[l.code_point - FIRST_LOOK_ALIKE] = l.letter;
    }
  }
};

constexpr look_alike_table LETTERS;

constexpr bool is_filler_sign(uint32_t c) {
  return c == 0xFF1C || c == 0x2039 || c == 0x203A || c == 0x2264 || c == 0x3008 || c == 0x27E8 ||
         c == 0x2329;
}

constexpr bool is_double_filler_sign(uint32_t c) { return c == 0xAB || c == 0xBB || c == 0x300A; }

constexpr bool is_line_end(uint32_t c) {
  return (c >= '\n' && c <= '\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Unicode's property White_Space, without the line ends.
constexpr bool is_space(uint32_t c) {
  return c == ' ' || c == '\t' || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
         c == 0x205F || c == 0x3000;
}

constexpr char full_width_as(uint32_t c) {
  if (c >= 0xFF10 && c <= 0xFF19) {
    return static_cast<char>('0' + (c - 0xFF10));
  }
  if (c >= 0xFF21 && c <= 0xFF3A) {
    return static_cast<char>('A' + (c - 0xFF21));
  }
  return c >= 0xFF41 && c <= 0xFF5A ? static_cast<char>('A' + (c - 0xFF41)) : '\0';
}

constexpr character read_code_point(uint32_t c, uint8_t length) {
  if (is_line_end(c)) {
    return {kind::line_end, '\0', length};
  }
  if (is_space(c)) {
    return {kind::space, '\0', length};
  }
  if (is_filler_sign(c)) {
    return {kind::kept, FILLER, length};
  }
  if (is_double_filler_sign(c)) {
    return {kind::two_kept, FILLER, length};
  }
  const char letter = c >= FIRST_LOOK_ALIKE && c <= LAST_LOOK_ALIKE ? LETTERS.letters[c - FIRST_LOOK_ALIKE]
                                                                    : full_width_as(c);
  if (letter != '\0') {
    return {kind::kept, letter, length};
  }
  return {c == 0xFEFF ? kind::order_mark : kind::dropped, '\0', length};
}

// Reads a character of more than one byte, or a byte that is none.
character read_sequence(const char *text, uint32_t size) {
  const int length = utf8::sequence_length(text, size);
  return length > 1 ? read_code_point(decode(text, length), static_cast<uint8_t>(length))
                    : character{kind::dropped, '\0', 1};
}

constexpr char FILLER_ENTITY[] = {'&', 'l', 't', ';'};

bool begins_with_filler_entity(const char *text, uint32_t size) {
  return size >= sizeof FILLER_ENTITY && memcmp(text, FILLER_ENTITY, sizeof FILLER_ENTITY) == 0;
}

} // namespace

character read_character(const char *text, uint32_t size) {
  const unsigned char c = byte(text[0]);
  if (c >= 128) {
    return read_sequence(text, size);
  }
  if (BYTES.as[c] != '\0') {
    return {kind::kept, BYTES.as[c], 1};
  }
  if (c == '&' && begins_with_filler_entity(text, size)) {
    return {kind::kept, FILLER, sizeof FILLER_ENTITY};
  }
  return {is_line_end(c) ? kind::line_end : is_space(c) ? kind::space : kind::dropped, '\0', 1};
}

namespace {

constexpr bool is_line_end_of_ascii(char c) { return c >= '\n' && c <= '\r'; }

// What a byte adds to the kept characters of its line, by the byte before it: a row for each byte that begins
// characters of two or three bytes which are kept or end a line, and a row for all other bytes. LOOK_CLOSER
// says that such a character begins with the byte before, or that a byte of ASCII wants to be looked at.
struct pair_table {
  static constexpr unsigned char LEADS[] = {0xC2, 0xCE, 0xD0, 0xD1, 0xE2, 0xE3, 0xEF};
  static constexpr int ROW = 256;
  static constexpr int ROWS = 1 + static_cast<int>(sizeof LEADS);

  uint16_t row_after[256] = {}; // where the row begins
  uint8_t adds[ROWS * ROW] = {};

  template <size_t Count> constexpr void look_closer(int lead, const unsigned char (&second)[Count]) {
    for (const unsigned char c : second) {
      adds[row_after[lead] + c] = byte_table::LOOK_CLOSER;
    }
  }

  constexpr pair_table() {
    for (int row = 0; row < ROWS; ++row) {
      for (int c = 0; c < 128; ++c) {
        adds[row * ROW + c] = BYTES.adds[c];
      }
    }
    for (int i = 1; i < ROWS; ++i) {
      row_after[LEADS[i - 1]] = static_cast<uint16_t>(i * ROW);
    }
    look_closer(0xC2, {0x85, 0xAB, 0xBB});       // NEL and the double signs
    look_closer(0xE2, {0x80, 0x89, 0x8C, 0x9F}); // line ends and signs for the filler
    look_closer(0xE3, {0x80});
    look_closer(0xEF, {0xBC, 0xBD}); // full-width forms
    for (const look_alike &l : LOOK_ALIKES) {
      adds[row_after[0xC0 | l.code_point >> 6] + (0x80 | (l.code_point & 0x3F))] = byte_table::ADDS_ONE;
    }
  }
};

constexpr pair_table PAIRS;

// Marks characters of ASCII that are kept.
words::wide mark_kept(words::wide word) {
  return words::in_range(words::with_bits(word, 'a' ^ 'A'), 'a', 'z') | words::in_range(word, '0', '9') |
         words::in_range(word, FILLER, FILLER);
}

// Marks line ends (and what else comes before CR) and what may begin the filler's entity.
words::wide mark_special(words::wide word) {
  return words::in_range(word, '\0', '\r') | words::in_range(word, '&', '&');
}

// Marks bytes above ASCII that may begin a character which is kept or ends a line, by the bytes after them.
// All others add nothing.
words::wide mark_leads(words::wide word, words::wide next) {
  if constexpr (words::WIDE_SIZE == words::SIZE) {
    return word; // plain words tell apart characters of ASCII only
  } else {
    const auto is = [](words::wide bytes, int c) {
      return words::in_range(bytes, static_cast<char>(c), static_cast<char>(c));
    };
    const words::wide pairs = word & 0xFE; // of two that follow each other the first
    const words::wide greek_capitals = is(word, 0xCE) & words::in_range(next, '\x80', '\xA7');
    const words::wide cyrillic = is(pairs, 0xD0);
    const words::wide signs = is(word, 0xC2) | is(pairs, 0xE2) | is(word, 0xEF);
    return greek_capitals | cyrillic | signs;
  }
}

// Where the line ends or something is to be read as a character: not ASCII, or the entity of the filler.
bool is_stop(const char *at, const char *end) {
  return byte(*at) >= 128 || is_line_end_of_ascii(*at) ||
         begins_with_filler_entity(at, static_cast<uint32_t>(end - at));
}

// The first of these places of a plain word that is a stop; null where none is. Adds what is kept before it,
// or in the whole word.
inline const char *find_stop_in_part(const char *at, const char *end, uint64_t places, uint64_t marks,
                                     uint32_t &kept) {
  for (uint64_t stops = places & words::MARKS; stops != 0; stops &= stops - 1) {
    const char *stop = at + words::first(stops);
    if (is_stop(stop, end)) {
      kept += words::count(marks & (stops - 1) & ~stops);
      return stop;
    }
  }
  kept += words::count(marks);
  return nullptr;
}

// The same of a wide word.
inline const char *find_stop(const char *at, const char *end, words::wide places, words::wide marks,
                             uint32_t &kept) {
  const char *stop = find_stop_in_part(at, end, words::plain(places, 0), words::plain(marks, 0), kept);
  constexpr int second = words::WIDE_SIZE - words::SIZE;
  if (stop == nullptr && second > 0) {
    stop =
        find_stop_in_part(at + second, end, words::plain(places, second), words::plain(marks, second), kept);
  }
  return stop;
}

// Where the words end that are passed over at once.
const char *end_of_words(const char *at, const char *end) {
  constexpr ptrdiff_t most = words::MOST_TALLIED * words::WIDE_SIZE;
  return end - at < most ? end - (end - at) % words::WIDE_SIZE : at + most;
}

// What keeps the last bytes of a word, from the place of their number on.
struct last_bytes {
  char keep[2 * words::WIDE_SIZE] = {};

  constexpr last_bytes() {
    for (int i = words::WIDE_SIZE; i < 2 * words::WIDE_SIZE; ++i) {
      keep[i] = '\xFF';
    }
  }
};

constexpr last_bytes LAST;

// Passes over the last bytes of a text, fewer than a word, where they are of ASCII. What the word that they
// end has before them, which was passed over already, counts as spaces.
const char *pass_end(const char *&at, const char *end, uint32_t &kept) {
  const words::wide keep = words::load<words::wide>(LAST.keep + (end - at));
  const words::wide last = words::load<words::wide>(end - words::WIDE_SIZE) & keep;
  const words::wide word = last | words::bits(~keep, ' ');
  if (words::any(word)) {
    return nullptr;
  }
  at = end;
  return find_stop(end - words::WIDE_SIZE, end, mark_special(word), mark_kept(word), kept);
}

// Passes over ASCII up to a stop. Returns whether it came to one; else it came to a byte that is not of
// ASCII, or as far as words reach.
bool pass_ascii(const char *begin, const char *&at, const char *end, uint32_t &kept) {
  words::wide counts = {};
  const char *stop = nullptr;
  for (const char *const last = end_of_words(at, end); at < last; at += words::WIDE_SIZE) {
    const words::wide word = words::load<words::wide>(at);
    const words::wide marks = mark_kept(word);
    const words::wide special = mark_special(word);
    if (!words::any(special | word)) {
      counts = words::tally(counts, marks);
      continue;
    }
    if (words::any(word)) {
      break;
    }
    stop = find_stop(at, end, special, marks, kept);
    if (stop != nullptr) {
      break;
    }
  }
  if (stop == nullptr && end - at < words::WIDE_SIZE && end - begin >= words::WIDE_SIZE) {
    stop = pass_end(at, end, kept);
  }
  kept += words::sum(counts);
  at = stop != nullptr ? stop : at;
  return stop != nullptr;
}

// Passes over words of any characters up to a stop. Returns whether it came to one.
bool pass_words(const char *&at, const char *end, uint32_t &kept) {
  words::wide counts = {};
  const char *stop = nullptr;
  for (const char *const last = end_of_words(at, end - 1); at < last; at += words::WIDE_SIZE) {
    const words::wide word = words::load<words::wide>(at);
    const words::wide marks = mark_kept(word);
    const words::wide places = mark_special(word) | mark_leads(word, words::load<words::wide>(at + 1));
    if (!words::any(places)) {
      counts = words::tally(counts, marks);
      continue;
    }
    stop = find_stop(at, end, places, marks, kept);
    if (stop != nullptr) {
      break;
    }
  }
  kept += words::sum(counts);
  at = stop != nullptr ? stop : at;
  return stop != nullptr;
}

// Passes over bytes, eight at a time where none of them asks for a closer look, up to one that begins
// something to be read as a character, or to the end of the stretch and of its last character. Returns
// whether it came to the former.
bool pass_bytes(const char *&at, const char *stretch_end, const char *end, uint32_t &kept) {
  const auto adds = [&at](unsigned row, int i) { return 0u + PAIRS.adds[row + byte(at[i])]; };
  const auto row_after = [&at](int i) { return 0u + PAIRS.row_after[byte(at[i])]; };
  unsigned row = 0;
  for (; stretch_end - at >= 8; at += 8) {
    const unsigned sum = adds(row, 0) + adds(row_after(0), 1) + adds(row_after(1), 2) +
                         adds(row_after(2), 3) + adds(row_after(3), 4) + adds(row_after(4), 5) +
                         adds(row_after(5), 6) + adds(row_after(6), 7);
    if (sum >= byte_table::LOOK_CLOSER) {
      break;
    }
    kept += sum;
    row = row_after(7);
  }
  for (; at < stretch_end || (at < end && row != 0); ++at) {
    const unsigned added = adds(row, 0);
    if (added >= byte_table::LOOK_CLOSER) {
      at -= byte(*at) >= 128 ? 1 : 0; // from a second byte back to the first
      return true;
    }
    kept += added;
    row = row_after(0);
  }
  return false;
}

// Whether words that are passed over from this byte on would come to another stop soon: plain words at
// anything that is not ASCII, wide ones at every other letter of Cyrillic.
constexpr bool stops_soon(char c) {
  return words::WIDE_SIZE == words::SIZE || byte(c) == 0xD0 || byte(c) == 0xD1;
}

} // namespace

const char *pass_others(const char *at, const char *end, uint32_t &kept) {
  int stretch = words::SIZE; // to be passed over byte by byte after a stop; the further, the more stops
  while (at < end) {
    const bool stopped = pass_words(at, end, kept);
    if (stopped && byte(*at) < 128) {
      break;
    }
    if (!stopped && end - at > words::WIDE_SIZE) {
      continue;
    }
    const char *const stretch_end = stops_soon(*at) || end - at < stretch ? end : at + stretch;
    if (pass_bytes(at, stretch_end, end, kept)) {
      break;
    }
    stretch *= 2;
  }
  return at;
}

namespace {

// Passes over bytes up to one that begins something to be read as a character, or to the end.
inline const char *pass(const char *begin, const char *at, const char *end, uint32_t &kept) {
  return pass_ascii(begin, at, end, kept) || at == end ? at : pass_others(at, end, kept);
}

} // namespace

// The next line, whether something of it is kept or not.
inline void line_reader::read(text_line &line) {
  const char *const end = passage_.text + passage_.end;
  const char *at = passage_.text + at_;
  uint32_t kept = 0;
  bool single_bytes = true;
  line.begin = at_;
  line.end = at_ = passage_.end;
  while ((at = pass(passage_.text, at, end, kept)) < end) {
    const character c = is_line_end_of_ascii(*at) ? character{kind::line_end, '\0', 1}
                                                  : read_character(at, static_cast<uint32_t>(end - at));
    if (c.kind == kind::line_end) {
      line.end = static_cast<uint32_t>(at - passage_.text);
      at_ = line.end + c.length;
      break;
    }
    at += c.length;
    single_bytes = false;
    kept += c.kind == kind::kept ? 1u : c.kind == kind::two_kept ? 2u : 0u;
  }
  line.kept = kept;
  line.is_plain = single_bytes && kept == line.end - line.begin;
  line.fillers = presence::unknown;
}

bool line_reader::next(text_line &line) {
  while (at_ < passage_.end) {
    read(line);
    if (line.kept > 0) {
      return true;
    }
  }
  return false;
}

namespace {

// The bytes that a filler, or what stands in for it, may begin with.
struct filler_table {
  bool may_begin[256] = {};

  constexpr filler_table() {
    constexpr int first_bytes[] = {FILLER, '&', 0xC2, 0xE2, 0xE3, 0xEF};
    for (const int c : first_bytes) {
      may_begin[c] = true;
    }
  }
};

constexpr filler_table FILLERS;

// The first byte of a filler stands in no other character: all that follow a first byte are of another kind.
bool find_filler(const char *text, const text_line &line) {
  for (uint32_t at = line.begin; at < line.end; ++at) {
    if (FILLERS.may_begin[byte(text[at])] && read_character(text + at, line.end - at).as == FILLER) {
      return true;
    }
  }
  return false;
}

} // namespace

bool has_filler(const char *text, text_line &line) {
  if (line.fillers == presence::unknown) {
    line.fillers = find_filler(text, line) ? presence::some : presence::none;
  }
  return line.fillers == presence::some;
}

bool character_reader::next_of_many(kept_character &kept) {
  if (has_second_) {
    has_second_ = false;
    kept = {FILLER, false, pair_};
    return true;
  }
  bool after_dropped = false;
  while (at_ < end_) {
    const character c = read_character(text_ + at_, end_ - at_);
    const varnel_source source = {at_, at_ + c.length};
    at_ += c.length;
    if (c.kind == kind::kept || c.kind == kind::two_kept) {
      has_second_ = c.kind == kind::two_kept;
      pair_ = source;
      kept = {c.as, after_dropped, source};
      return true;
    }
    after_dropped = after_dropped || c.kind == kind::dropped;
  }
  return false;
}

} // namespace documents
