#include "reasons.hpp"

#include "../src/mrz/layouts.hpp"
#include "advice.hpp"

#include <Varnel/Varnel.h>

#include <algorithm>

namespace varnel::cli {

namespace {

// What has to stand in a field for a zone to be read. What other fields hold is never a reason to refuse.
enum class content { letters, name, digits };

struct checked_field {
  int line;
  columns where; // a length of 0 reaches to the end of the line
  content expected;
  const char *name;
};

constexpr columns TWO_LINE_NAME = {two_line::NAME_START, 0};
constexpr columns WHOLE_LINE = {0, 0};

constexpr checked_field TWO_LINE_FIELDS[] = {
    {1, zone::ISSUING_STATE, content::letters, "issuing state"},
    {1, TWO_LINE_NAME, content::name, "name"},
    {2, two_line::NATIONALITY, content::letters, "nationality"},
    {2, two_line::BIRTH_DATE, content::digits, "birth date"},
    {2, two_line::EXPIRATION_DATE, content::digits, "expiry date"},
};

constexpr checked_field TD1_FIELDS[] = {
    {1, zone::ISSUING_STATE, content::letters, "issuing state"},
    {2, td1::BIRTH_DATE, content::digits, "birth date"},
    {2, td1::EXPIRATION_DATE, content::digits, "expiry date"},
    {2, td1::NATIONALITY, content::letters, "nationality"},
    {3, WHOLE_LINE, content::name, "name"},
};

// The layouts of one length, of which one is named: with it go the document codes of the others.
struct zone_shape {
  const mrz::layout &layout;
  const char *documents;
  const checked_field *fields;

  constexpr int length() const { return layout.length(); }
};

constexpr zone_shape SHAPES[] = {
    {mrz::TD2, "TD2 card, short visa", TWO_LINE_FIELDS},
    {mrz::TD3, "passport, long visa", TWO_LINE_FIELDS},
    {mrz::TD1, "TD1 card", TD1_FIELDS},
};
constexpr std::size_t FIELD_COUNT = 5; // of both

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter_or_filler(char c) { return (c >= 'A' && c <= 'Z') || c == '<'; }
bool is_filler(char c) { return c == '<'; }

// What is wrong with the text of a field, or null.
const char *fault(content expected, std::string_view text) {
  if (expected == content::digits) {
    return std::all_of(text.begin(), text.end(), is_digit) ? nullptr : "expected digits";
  }
  if (!std::all_of(text.begin(), text.end(), is_letter_or_filler)) {
    return "expected letters or <";
  }
  const bool empty = std::all_of(text.begin(), text.end(), is_filler);
  return expected == content::name && empty ? "expected a name" : nullptr;
}

std::string place(int line, int start, int length, const char *name) {
  return "line " + std::to_string(line) + ", columns " + std::to_string(start + 1) + "-" +
         std::to_string(start + length) + " (" + name + "): ";
}

// The letters with which the document codes of all layouts of a length begin, as "A, C or I".
std::string first_letters(int length) {
  std::string letters;
  for (const mrz::layout &layout : mrz::LAYOUTS) {
    letters += layout.length() == length ? layout.first_letters : "";
  }
  std::string words(1, letters[0]);
  for (std::size_t i = 1; i < letters.size(); ++i) {
    words += std::string(i + 1 < letters.size() ? ", " : " or ") + letters[i];
  }
  return words;
}

// The layout of a length whose document codes begin with a letter, or null.
const mrz::layout *layout_with(char letter, int length) {
  for (const mrz::layout &layout : mrz::LAYOUTS) {
    if (layout.length() == length &&
        std::string_view(layout.first_letters).find(letter) != std::string_view::npos) {
      return &layout;
    }
  }
  return nullptr;
}

// The faults of a zone that is as long as its layout wants, one after the other.
std::string faults(const zone_shape &shape, std::string_view zone) {
  const mrz::layout *layout = layout_with(zone[0], shape.length());
  if (layout == nullptr) {
    return place(1, 0, 2, "document code") + "expected " + first_letters(shape.length()) + " first (" +
           shape.documents + ")";
  }
  if (!layout->has_code(zone.data())) {
    return place(1, 0, 2, "document code") + "expected no V after the letter of a card";
  }
  std::string found;
  for (std::size_t i = 0; i < FIELD_COUNT; ++i) {
    const checked_field &field = shape.fields[i];
    const int start = field.where.start;
    const int length = field.where.length > 0 ? field.where.length : shape.layout.width - start;
    const int at = (field.line - 1) * shape.layout.width + start;
    const char *wrong =
        fault(field.expected, zone.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(length)));
    if (wrong != nullptr) {
      found += (found.empty() ? "" : "; ") + place(field.line, start, length, field.name) + wrong;
    }
  }
  return found;
}

std::string expected_lengths() {
  std::string list = "expected ";
  for (const zone_shape &shape : SHAPES) {
    list += &shape == SHAPES ? "" : &shape == std::end(SHAPES) - 1 ? " or " : ", ";
    list += std::to_string(shape.length()) + " (" + shape.documents + ")";
  }
  return list;
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

std::string reason_of_refusal(std::string_view text, split read_by) {
  char zone[VARNEL_EXAMINED_MAX + 1];
  int length = 0;
  const int units = varnel_utf16_length(text.data(), text.size());
  normalize_mrz(text.data(), units, zone, sizeof zone, &length);
  const std::string rest = unexamined(text, static_cast<std::size_t>(units));
  for (const zone_shape &shape : SHAPES) {
    if (length == shape.length()) {
      return faults(shape, std::string_view(zone, static_cast<std::size_t>(length))) + rest;
    }
  }
  return "not a machine-readable zone: " + std::to_string(length) +
         (length == 1 ? " character" : " characters") + " after clean-up" +
         (units == VARNEL_EXAMINED_MAX ? " of its first 1023, " : ", ") + expected_lengths() + rest +
         (read_by == split::whole ? advice(text, read_by) : "");
}

} // namespace varnel::cli
