// How letters are written in a zone: ICAO Doc 9303-3, section 6, tables A (Latin), B (Cyrillic) and C
// (Arabic).
#ifndef VARNEL_SRC_DOCUMENTS_TRANSLITERATION_HPP
#define VARNEL_SRC_DOCUMENTS_TRANSLITERATION_HPP

#include <stdint.h>

namespace documents {

// Languages for which table B has exceptions.
enum class language : uint8_t { none, belarusian, bulgarian, macedonian, serbian, ukrainian, unknown };

// The language of an ISO 639-1 code: "be", "bg", "mk", "sr" or "uk"; `none` for null or "", `unknown` for any
// other text.
language language_of(const char *code);

// Where a letter stands in its component of a name.
struct component_place {
  bool is_first;
  bool is_last;
};

// The letters of the zone for a capital other than A to Z, the first of those that the standard allows:
// NUL-terminated, and empty for a letter that is left out. Null where the tables have no such letter.
const char *zone_letters(char32_t capital, language of, component_place place);

constexpr char32_t SHADDA = 0x0651; // the Arabic mark that doubles the letter before it

} // namespace documents

#endif
