// Lines of a text as an optical reader made it.
#ifndef VARNEL_SRC_DOCUMENTS_REPAIR_NOISY_LINES_HPP
#define VARNEL_SRC_DOCUMENTS_REPAIR_NOISY_LINES_HPP

#include <stdint.h>

#include "../clean_text.hpp"

namespace documents::repair {

constexpr int SHORTEST_LINE = 20;
constexpr int LONGEST_LINE = 60;

// What a line of a zone may have been read as. Kept are 0-9, A-Z and the filler, and a small letter where the
// reader was unsure: it wrote one, or a symbol that looks like one.
struct noisy_line {
  uint8_t size;
  bool has_noise;            // characters that stand for nothing in a zone
  uint8_t head;              // length of the first word where it has two characters at most; else 0
  uint64_t gaps;             // bit i: white space stood before character i
  uint64_t noise_before;     // bit i: noise stood before character i
  char text[LONGEST_LINE];   // not terminated
  uint16_t at[LONGEST_LINE]; // where each character begins in the text
  uint32_t begin;            // the line's bytes
  uint32_t end;

  bool has_gap(int i) const { return (gaps >> i & 1) != 0; }
};

// The bytes of a line that may be one of a zone, and which of its lines it may be.
struct line_span {
  uint32_t begin;
  uint32_t end;
  bool has_fillers; // as names have
  bool has_dates;   // so many digits as two dates, of which one may be unknown, and their check digits
};

// Reads the line that these bytes are; false where it cannot be one of a zone.
bool read_line(const char *text, const line_span &span, noisy_line &line);

// Walks the lines of a passage that may be lines of a zone.
class line_finder {
public:
  explicit line_finder(passage p) : passage_(p), at_(p.begin) {}

  // False when there is no other.
  bool next(line_span &span);

private:
  passage passage_;
  uint32_t at_;
};

} // namespace documents::repair

#endif
