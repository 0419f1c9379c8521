#include "document_writer.hpp"

#include "plain_text.hpp"
#include "quoting.hpp"
#include "slots.hpp"

namespace varnel::cli {

namespace {

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

} // namespace

document_writer::document_writer(output &out, const document_rows &rows, bool with_slots)
    : out_(out), rows_(rows), with_slots_(with_slots) {
  const PARSE_RESULT empty = {};
  std::string before = rows_.with_source() ? "\"" : "{\"";
  std::size_t position = 0;
  for (const VARNEL_PAIR &pair : exported(empty)) {
    lead &next = json_leads_[position++];
    next.size = (before + pair.key + "\":\"").copy(next.text.data(), next.text.size());
    before = "\",\"";
  }
}

void document_writer::begin() {
  if (rows_.how() != format::csv) {
    return;
  }
  const PARSE_RESULT empty = {};
  rows_.begin_header();
  for (const VARNEL_PAIR &pair : exported(empty)) {
    out_.put(',');
    out_.put(pair.key);
  }
  out_.put(with_slots_ ? ",slots\n" : "\n");
}

void document_writer::accepted(const document &from, const PARSE_RESULT &result, std::string_view more) {
  switch (rows_.how()) {
  case format::json:
    json(from, result, more);
    break;
  case format::csv:
    csv(from, result);
    break;
  case format::table:
    rows_.begin_table(from);
    table(result);
    break;
  }
}

void document_writer::refused(const document &from) {
  rows_.refused(from, VARNEL_VALUE_COUNT + (with_slots_ ? 1 : 0));
}

// All values, each after its lead: at once where they are plain, otherwise one by one.
template <class Plain, class LeadOf>
void document_writer::values(const PARSE_RESULT &result, LeadOf lead_of,
                             void (*put_one)(output &, std::string_view)) {
  constexpr std::size_t room = VARNEL_VALUE_COUNT * (lead::ROOM + LONGEST_TEXTS + PIECE);
  static_assert(room < output::SIZE, "the output has room for one document");
  const std::array<VARNEL_PAIR, VARNEL_VALUE_COUNT> pairs = exported(result);
  if (has_plain_texts<Plain>(result)) {
    char *end = out_.room(room);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      end = copy_in_pieces(view(pairs[i].value), lead_of(i).copy(end));
    }
    out_.commit(end);
    return;
  }
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    out_.put(lead_of(i).view());
    put_one(out_, view(pairs[i].value));
  }
}

void document_writer::json(const document &from, const PARSE_RESULT &result, std::string_view more) {
  if (rows_.with_source()) {
    rows_.begin_object(from);
  }
  values<plain_json>(
      result, [this](std::size_t i) -> const lead & { return json_leads_[i]; }, put_json_text);
  if (!with_slots_ && more.empty()) {
    out_.put("\"}\n");
    return;
  }
  out_.put('"');
  if (with_slots_) {
    json_slots(result);
  }
  out_.put(more);
  out_.put("}\n");
}

void document_writer::json_slots(const PARSE_RESULT &result) {
  out_.put(",\"slots\":{");
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
  out_.put('}');
}

void document_writer::csv(const document &from, const PARSE_RESULT &result) {
  static constexpr lead COMMA = {{','}, 1};
  rows_.begin_row(from);
  values<plain_csv>(
      result, [](std::size_t) -> const lead & { return COMMA; }, put_csv_cell);
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
  constexpr std::size_t LONGEST_KEY = std::string_view("jurisdictionCode").size();
  const std::size_t width = with_slots_ ? longest_slot_name() : LONGEST_KEY;
  for (const VARNEL_PAIR &pair : exported(result)) {
    rows_.table_row(pair.key, view(pair.value), width);
  }
  for (const named_slot &slot : NAMED_SLOTS) {
    const std::string_view value = with_slots_ ? filled_slot(result, slot) : std::string_view();
    if (!value.empty()) {
      rows_.table_row(slot.name, value, width);
    }
  }
}

} // namespace varnel::cli
