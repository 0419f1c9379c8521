#include "quoting.hpp"

#include "../src/utf8.hpp"
#include "plain_text.hpp"

#include <algorithm>
#include <charconv>

namespace varnel::cli {

namespace {

void put_json_escaped(output &out, std::string_view text) {
  constexpr char HEX[] = "0123456789abcdef";
  while (!text.empty()) {
    const char c = text.front();
    const unsigned char byte = static_cast<unsigned char>(c);
    const std::size_t length = static_cast<std::size_t>(utf8::sequence_length(text.data(), text.size()));
    if (plain_json::contains(c) || length > 1) {
      out.put(text.substr(0, length));
    } else if (c == '"' || c == '\\') {
      out.put('\\');
      out.put(c);
    } else if (byte < 0x80) {
      out.put("\\u00");
      out.put(HEX[byte >> 4]);
      out.put(HEX[byte & 0xF]);
    } else {
      out.put("\\ufffd");
    }
    text.remove_prefix(length);
  }
}

constexpr bool needs_quotes(char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; }

// The number of a character of two or three bytes; 0 for any other, of which none is masked.
constexpr unsigned character_number(std::string_view character) {
  const auto bits = [character](std::size_t i) { return static_cast<unsigned char>(character[i]) & 0x3FU; };
  switch (character.size()) {
  case 2:
    return ((bits(0) & 0x1FU) << 6) | bits(1);
  case 3:
    return ((bits(0) & 0xFU) << 12) | (bits(1) << 6) | bits(2);
  default:
    return 0;
  }
}

constexpr bool is_direction_mark(unsigned number) {
  return number == 0x61C || number == 0x200E || number == 0x200F || (number >= 0x2028 && number <= 0x202E) ||
         (number >= 0x2066 && number <= 0x2069);
}

// `character` is one well-formed character, or a byte that cannot be decoded.
constexpr bool steers_terminal(std::string_view character) {
  const unsigned char byte = static_cast<unsigned char>(character.front());
  if (character.size() == 1) {
    return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
  }
  const unsigned number = character_number(character);
  return (number >= 0x80 && number < 0xA0) || is_direction_mark(number);
}

bool is_letter_or_digit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

void put_json_text(output &out, std::string_view text) {
  if (is_plain<plain_json>(text)) {
    out.put(text);
  } else {
    put_json_escaped(out, text);
  }
}

void put_csv_cell(output &out, std::string_view text) {
  if (is_plain<plain_csv>(text) || std::none_of(text.begin(), text.end(), needs_quotes)) {
    out.put(text);
    return;
  }
  out.put('"');
  for (const char c : text) {
    if (c == '"') {
      out.put('"');
    }
    out.put(c);
  }
  out.put('"');
}

void put_number(output &out, std::uint64_t number) {
  char digits[20];
  const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
  out.put(std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
}

std::string printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = static_cast<std::size_t>(utf8::sequence_length(text.data(), text.size()));
    const std::string_view character = text.substr(0, length);
    shown += steers_terminal(character) ? std::string_view("?") : character;
    text.remove_prefix(length);
  }
  return shown;
}

std::size_t printed_width(std::string_view text) {
  std::size_t width = 0;
  for (; !text.empty(); ++width) {
    text.remove_prefix(static_cast<std::size_t>(utf8::sequence_length(text.data(), text.size())));
  }
  return width;
}

bool looks_like_a_zone(std::string_view argument) {
  constexpr std::size_t LENGTHS[] = {30, 36, 44, 72, 88, 90}; // of lines and of whole zones
  const bool of_that_length =
      std::find(std::begin(LENGTHS), std::end(LENGTHS), argument.size()) != std::end(LENGTHS);
  return argument.find('<') != std::string_view::npos ||
         (of_that_length && std::all_of(argument.begin(), argument.end(), is_letter_or_digit));
}

std::string in_quotes(std::string_view argument) {
  return looks_like_a_zone(argument) ? "(not repeated: it looks like a zone)"
                                     : std::string("'").append(argument) + "'";
}

} // namespace varnel::cli
