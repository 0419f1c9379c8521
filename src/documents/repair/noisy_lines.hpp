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
  uint8_t noise;             // characters that stand for nothing in a zone
  uint8_t head;              // length of the first word where it has two characters at most; else 0
  uint64_t gaps;             // bit i: white space stood before character i
  uint64_t noise_before;     // bit i: noise stood before character i
  char text[LONGEST_LINE];   // not terminated
  uint16_t at[LONGEST_LINE]; // where each character begins in the text
  uint32_t begin;            // the line's bytes
  uint32_t end;

  bool has_gap(int i) const { return (gaps >> i & 1) != 0; }
};

// Walks the lines of a passage that may be lines of a zone.
class noisy_line_reader {
public:
  explicit noisy_line_reader(passage p) : passage_(p), at_(p.begin) {}

  // False when there is no other.
  bool next(noisy_line &line);

private:
  bool read(uint32_t begin, uint32_t end, noisy_line &line) const;

  passage passage_;
  uint32_t at_;
};

} // namespace documents::repair

#endif
