#include "reasons.hpp"

#include <Varnel/Varnel.h>

#include <cstring>

namespace varnel::cli {

namespace {

// The lengths of a zone after clean-up, by ICAO Doc 9303.
struct zone_kind {
  int length;
  const char *documents;
  const char *letters; // with which their document codes begin
};
constexpr zone_kind ZONE_KINDS[] = {
    {72, "TD2 card, short visa", "IACV"}, {88, "passport, long visa", "PV"}, {90, "TD1 card", "IAC"}};
constexpr int SHORTEST_ZONE = 72;
constexpr int LONGEST_ZONE = 90;

// Whether a layout of this length has the document code of the zone. Behind the letter of a card no V may
// stand, which marks a visa.
bool has_document_code(const zone_kind &kind, const char *zone) {
  const bool of_a_card = zone[0] != 'P' && zone[0] != 'V';
  return std::strchr(kind.letters, zone[0]) != nullptr && !(of_a_card && zone[1] == 'V');
}

// Units are counted in the text, but as many bytes of it are examined: a text with characters beyond ASCII
// is not examined to its end. Line breaks there go unmentioned, because they would be dropped anyhow.
std::string unexamined(std::string_view text, std::size_t units) {
  const std::size_t count = text.size() - units;
  if (units == VARNEL_EXAMINED_MAX || text.find_first_not_of("\r\n", units) == std::string_view::npos) {
    return "";
  }
  return "; " + std::to_string(count) + (count == 1 ? " byte at the end was" : " bytes at the end were") +
         " not examined, because the text has characters beyond ASCII";
}

} // namespace

std::string reason_of_refusal(std::string_view text) {
  char zone[VARNEL_EXAMINED_MAX + 1];
  int length = 0;
  const int units = varnel_utf16_length(text.data(), text.size());
  normalize_mrz(text.data(), units, zone, sizeof zone, &length);
  const std::string found = "not a machine-readable zone: " + std::to_string(length) +
                            (length == 1 ? " character" : " characters") + " after clean-up" +
                            (units == VARNEL_EXAMINED_MAX ? " of its first 1023, " : ", ");
  const std::string rest = unexamined(text, static_cast<std::size_t>(units));
  std::string expected;
  for (const zone_kind &kind : ZONE_KINDS) {
    if (length == kind.length) {
      const char *reason = has_document_code(kind, zone) ? "the content was refused"
                                                         : "no layout of this length has its document code";
      return (found + "as expected (" + kind.documents + "), but " + reason).append(rest);
    }
    expected += expected.empty() ? "expected " : kind.length == LONGEST_ZONE ? " or " : ", ";
    expected += std::to_string(kind.length) + " (" + kind.documents + ")";
  }
  const bool many = length >= 2 * SHORTEST_ZONE;
  return found + expected + rest +
         (many ? "; several documents are read with --each line or --each block" : "");
}

} // namespace varnel::cli
