// What The Unicode Standard says of the characters that names are written with: which are separators, marks
// or of no account, what their capitals are, and how letters and marks compose.
#ifndef VARNEL_SRC_DOCUMENTS_CHARACTERS_HPP
#define VARNEL_SRC_DOCUMENTS_CHARACTERS_HPP

#include <stdint.h>

namespace documents {

enum class character_kind : uint8_t {
  other,     // a letter, or nothing that a name may hold
  separator, // white space, dashes, commas
  dropped,   // all other punctuation, apostrophes of any kind, format characters
  mark       // a combining mark
};

character_kind kind_of(char32_t c);

// The capital of a Latin or Cyrillic letter; any other character itself.
char32_t capital_of(char32_t c);

// A letter and the marks on it, as canonical composition (Unicode's form NFC) joins them: marks may be added
// in any order, before or after composed ones. Only capitals compose.
class marked_letter {
public:
  // cppcheck-suppress uninitMemberVar // of the marks only `count_` are read, here and below
  marked_letter() = default;
  // cppcheck-suppress uninitMemberVar
  explicit marked_letter(char32_t capital) : first_(capital) {}

  void add_mark(char32_t mark);

  // The letter, composed with as many of its marks as there is a letter for; marks left over are ignored.
  char32_t composed() const;

  // The letter without any marks.
  char32_t bare() const;

private:
  void decompose();

  // As many marks as text may carry in a row by the Stream-Safe Text Format (UAX #15); more are ignored.
  static constexpr int MOST_MARKS = 30;

  char32_t first_ = 0;
  int count_ = 0;
  char16_t marks_[MOST_MARKS];
};

} // namespace documents

#endif
