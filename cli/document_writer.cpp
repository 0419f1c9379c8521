#include "document_writer.hpp"

#include "slots.hpp"

#include <algorithm>
#include <charconv>

namespace varnel::cli {

namespace {

constexpr std::string_view HEADING_COLOUR = "\033[1m";
constexpr std::string_view NAME_COLOUR = "\033[36m";
constexpr std::string_view REFUSED_COLOUR = "\033[31m";
constexpr std::string_view NO_COLOUR = "\033[0m";

// Every value of a document lies in the record's buffer.
constexpr std::size_t LONGEST_VALUE = VARNEL_BUFFER_SIZE;

std::string_view view(const STRING &text) {
  return std::string_view(text.str, static_cast<std::size_t>(text.len));
}

// The keys, in export order, as the library has them.
std::array<VARNEL_PAIR, VARNEL_VALUE_COUNT> exported(const PARSE_RESULT &result) {
  std::array<VARNEL_PAIR, VARNEL_VALUE_COUNT> pairs;
  varnel_export(&result, pairs.data());
  return pairs;
}

std::string_view filled_slot(const PARSE_RESULT &result, const named_slot &slot) {
  return result.fields[slot.number].value.str == nullptr ? std::string_view()
                                                         : view(varnel_value(&result, slot.number));
}

// Characters that stand for themselves within a JSON string. No others can come from a machine-readable
// zone, but a slot may hold any bytes: those that are not ASCII are not known to be UTF-8.
constexpr bool is_plain_json(char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

void put_json_escaped(output &out, std::string_view text) {
  constexpr char HEX[] = "0123456789abcdef";
  for (const char c : text) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (is_plain_json(c)) {
      out.put(c);
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
  }
}

// The inside of a JSON string.
void put_json_text(output &out, std::string_view text) {
  char *end = out.room(LONGEST_VALUE);
  bool plain = text.size() <= LONGEST_VALUE;
  for (std::size_t i = 0; plain && i < text.size(); ++i) {
    plain = is_plain_json(text[i]);
    *end++ = text[i];
  }
  if (plain) {
    out.commit(end);
  } else {
    put_json_escaped(out, text);
  }
}

constexpr bool needs_quotes(char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; }

// A CSV cell as RFC 4180 has it.
void put_csv_cell(output &out, std::string_view text) {
  if (std::none_of(text.begin(), text.end(), needs_quotes)) {
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

// Text for a terminal: whatever could steer it is made visible.
void put_printable(output &out, std::string_view text) {
  for (const char c : text) {
    const unsigned char byte = static_cast<unsigned char>(c);
    out.put(byte < 0x20 || byte == 0x7F ? '?' : c);
  }
}

} // namespace

document_writer::document_writer(output &out, format how, bool with_slots, bool coloured)
    : out_(out), format_(how), with_slots_(with_slots), coloured_(coloured) {
  const PARSE_RESULT empty = {};
  std::string lead = "{\"";
  std::size_t position = 0;
  for (const VARNEL_PAIR &pair : exported(empty)) {
    json_leads_[position++] = lead + pair.key + "\":\"";
    lead = "\",\"";
  }
}

void document_writer::begin() {
  if (format_ != format::csv) {
    return;
  }
  const PARSE_RESULT empty = {};
  out_.put("document");
  for (const VARNEL_PAIR &pair : exported(empty)) {
    out_.put(',');
    out_.put(pair.key);
  }
  out_.put(with_slots_ ? ",slots\n" : "\n");
}

void document_writer::accepted(std::uint64_t number, const PARSE_RESULT &result, std::string_view title) {
  switch (format_) {
  case format::json:
    json(result);
    break;
  case format::csv:
    csv(number, result);
    break;
  case format::table:
    heading(title);
    table(result);
    break;
  }
}

void document_writer::refused(std::uint64_t number, std::string_view title) {
  switch (format_) {
  case format::json:
    out_.put("null\n");
    break;
  case format::csv:
    put_number(out_, number);
    for (int cells = VARNEL_VALUE_COUNT + (with_slots_ ? 1 : 0); cells > 0; --cells) {
      out_.put(',');
    }
    out_.put('\n');
    break;
  case format::table:
    heading(title);
    out_.put(coloured_ ? REFUSED_COLOUR : "");
    out_.put("refused");
    out_.put(coloured_ ? NO_COLOUR : "");
    out_.put('\n');
    break;
  }
}

void document_writer::json(const PARSE_RESULT &result) {
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  varnel_export(&result, pairs);
  for (std::size_t i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    out_.put(json_leads_[i]);
    put_json_text(out_, view(pairs[i].value));
  }
  if (with_slots_) {
    json_slots(result);
  }
  out_.put(with_slots_ ? "}}\n" : "\"}\n");
}

void document_writer::json_slots(const PARSE_RESULT &result) {
  out_.put("\",\"slots\":{");
  bool first = true;
  for (const named_slot &slot : NAMED_SLOTS) {
    const std::string_view value = filled_slot(result, slot);
    if (!value.empty()) {
      out_.put(first ? "\"" : ",\"");
      out_.put(slot.name);
      out_.put("\":\"");
      put_json_text(out_, value);
      out_.put('"');
      first = false;
    }
  }
}

void document_writer::csv(std::uint64_t number, const PARSE_RESULT &result) {
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  varnel_export(&result, pairs);
  put_number(out_, number);
  for (const VARNEL_PAIR &pair : pairs) {
    out_.put(',');
    put_csv_cell(out_, view(pair.value));
  }
  if (with_slots_) {
    csv_slots(result);
  }
  out_.put('\n');
}

void document_writer::csv_slots(const PARSE_RESULT &result) {
  std::string cell;
  for (const named_slot &slot : NAMED_SLOTS) {
    const std::string_view value = filled_slot(result, slot);
    if (!value.empty()) {
      cell += cell.empty() ? "" : ";";
      cell += slot.name;
      cell += '=';
      cell += value;
    }
  }
  out_.put(',');
  put_csv_cell(out_, cell);
}

void document_writer::table(const PARSE_RESULT &result) {
  for (const VARNEL_PAIR &pair : exported(result)) {
    table_row(pair.key, view(pair.value));
  }
  for (const named_slot &slot : NAMED_SLOTS) {
    const std::string_view value = with_slots_ ? filled_slot(result, slot) : std::string_view();
    if (!value.empty()) {
      table_row(slot.name, value);
    }
  }
}

void document_writer::table_row(std::string_view name, std::string_view value) {
  constexpr std::size_t LONGEST_KEY = std::string_view("jurisdictionCode").size();
  const std::size_t width = with_slots_ ? longest_slot_name() : LONGEST_KEY;
  out_.put(coloured_ ? NAME_COLOUR : "");
  out_.put(name);
  out_.put(coloured_ ? NO_COLOUR : "");
  for (std::size_t column = name.size(); !value.empty() && column < width + 2; ++column) {
    out_.put(' ');
  }
  put_printable(out_, value);
  out_.put('\n');
}

void document_writer::heading(std::string_view title) {
  if (!first_table_) {
    out_.put('\n');
  }
  first_table_ = false;
  if (!title.empty()) {
    out_.put(coloured_ ? HEADING_COLOUR : "");
    put_printable(out_, title);
    out_.put(coloured_ ? NO_COLOUR : "");
    out_.put('\n');
  }
}

} // namespace varnel::cli
