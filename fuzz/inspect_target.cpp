// Inspecting any bytes: an input is the reference date (two bytes of year, month, day), the level of repair,
// the room for the JSON (two bytes), then the text.
#include "harness.hpp"

#include <Varnel/documents/inspect.h>

#include <algorithm>
#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;

fuzz::behaviour of_layout[] = {
    fuzz::behaviour("a text is refused"),          fuzz::behaviour("a TD1 is inspected"),
    fuzz::behaviour("a TD2 is inspected"),         fuzz::behaviour("a TD3 is inspected"),
    fuzz::behaviour("an MRV-A is inspected"),      fuzz::behaviour("an MRV-B is inspected"),
    fuzz::behaviour("a French card is inspected"),
};
fuzz::behaviour valid("a document is valid");
fuzz::behaviour length("a text is refused for its length");
fuzz::behaviour long_number("a long number holds");
fuzz::behaviour dropped("a zone's line lost characters");
fuzz::behaviour many("a text has several zones");
fuzz::behaviour no_such_date("a reference date does not exist");
fuzz::behaviour repaired("a document is repaired");
fuzz::behaviour cut("the JSON has no room");

bool is_text_of_zone(const char *text, size_t most) {
  const size_t size = strnlen(text, most + 1);
  return size <= most && std::all_of(text, text + size, [](char c) {
           return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '<';
         });
}

void check_source(varnel_source source, const memory &text) {
  holds(source.start <= source.end && source.end <= static_cast<uint32_t>(text.size()),
        "offsets lie inside the text");
}

void check_findings(const varnel_finding *findings, int count, const varnel_inspection &inspection) {
  for (int i = 0; i < count; ++i) {
    holds(varnel_finding_name(findings[i].code) != nullptr, "a finding has a name");
    holds(findings[i].field == VARNEL_FIELD_NONE || varnel_field_name(findings[i].field) != nullptr,
          "a finding's field has a name");
    holds(findings[i].line < inspection.line_count, "a finding's line is one of the zone");
  }
}

void check_record(const varnel_inspection &inspection, const memory &text) {
  holds(varnel_verdict_name(inspection.verdict) != nullptr, "a verdict has a name");
  holds((inspection.verdict == VARNEL_VERDICT_REFUSED) == (inspection.layout == VARNEL_LAYOUT_NONE),
        "what is refused has no layout");
  holds(inspection.repair != VARNEL_REPAIR_OFF || inspection.change_count == 0, "no change without repair");
  equal("a source for each line", inspection.source_count, inspection.line_count);
  const bool approved =
      inspection.verdict == VARNEL_VERDICT_VALID || inspection.verdict == VARNEL_VERDICT_REPAIRED;
  holds(approved == (inspection.finding_count == 0), "what is approved has no finding");
  holds(inspection.verdict != VARNEL_VERDICT_VALID || inspection.change_count == 0,
        "what is valid is as read");
  for (int i = 0; i < inspection.line_count; ++i) {
    holds(is_text_of_zone(inspection.zone[i], VARNEL_ZONE_WIDTH), "a zone is made of its alphabet");
    check_source(inspection.source[i], text);
  }
  for (int i = 0; i < inspection.field_count; ++i) {
    const varnel_inspected_field &field = inspection.fields[i];
    check_source(field.source, text);
    holds(is_text_of_zone(field.text, VARNEL_ZONE_WIDTH), "a field is made of the zone's alphabet");
    holds(field.line < inspection.line_count, "a field's line is one of the zone");
    const char *line = inspection.zone[field.line];
    holds(field.text_length == strlen(field.text) && field.value_length == strlen(field.value),
          "lengths are those of the texts");
    holds(field.column + strlen(field.text) <= strlen(line) &&
              std::memcmp(line + field.column, field.text, strlen(field.text)) == 0,
          "a field's text stands in the zone");
    holds(field.has_value || field.value[0] == '\0', "no value is an empty one");
    holds(field.has_value == (field.status >= VARNEL_STATUS_UNKNOWN), "a field has a value by its status");
  }
  for (int i = 0; i < inspection.check_count; ++i) {
    const varnel_check &check = inspection.checks[i];
    equal("the digit found", check.found, inspection.zone[check.line][check.column]);
    long_number.seen(check.rule != VARNEL_RULE_NONE);
  }
  check_findings(inspection.findings, inspection.finding_count, inspection);
  check_findings(inspection.notices, inspection.notice_count, inspection);
}

// A JSON reader of no more than is needed to say that a text is JSON.
class json_checker {
public:
  explicit json_checker(std::string_view text) : text_(text) {}

  bool is_valid() { return value() && at_ == text_.size(); }

private:
  bool take(std::string_view expected) {
    const bool there = text_.substr(at_, expected.size()) == expected;
    at_ += there ? expected.size() : 0;
    return there;
  }

  bool value() {
    if (take("{")) {
      return take("}") || members("}", true);
    }
    if (take("[")) {
      return take("]") || members("]", false);
    }
    return string() || take("null") || take("true") || take("false") || number();
  }

  bool members(std::string_view end, bool with_key) {
    do {
      if ((with_key && !(string() && take(":"))) || !value()) {
        return false;
      }
    } while (take(","));
    return take(end);
  }

  bool string() {
    if (!take("\"")) {
      return false;
    }
    while (at_ < text_.size() && text_[at_] != '"') {
      const unsigned char c = static_cast<unsigned char>(text_[at_]);
      if (c < 0x20) {
        return false;
      }
      at_ += c == '\\' ? 2 : 1;
    }
    return take("\"");
  }

  bool number() {
    const size_t begin = at_;
    while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') {
      ++at_;
    }
    return at_ > begin && (text_[begin] != '0' || at_ == begin + 1);
  }

  std::string_view text_;
  size_t at_ = 0;
};

std::string whole_json(const varnel_inspection &inspection) {
  const int size = varnel_inspection_json(&inspection, nullptr, 0);
  memory out(size + 1);
  equal("the JSON's length", varnel_inspection_json(&inspection, out.data(), static_cast<size_t>(size) + 1),
        size);
  holds(out.intact() && out.data()[size] == '\0', "the JSON ends where it says");
  const std::string text(out.data(), static_cast<size_t>(size));
  holds(json_checker(text).is_valid(), "what is written is JSON");
  return text;
}

void check_json(const varnel_inspection &inspection, int room) {
  const std::string whole = whole_json(inspection);
  memory out(room);
  const int size =
      varnel_inspection_json(&inspection, room > 0 ? out.data() : nullptr, static_cast<size_t>(room));
  equal("the JSON's length whatever the room", size, static_cast<int>(whole.size()));
  holds(out.intact(), "nothing is written outside the room");
  if (room > 0) {
    equal("the beginning of the JSON", std::string(out.data()),
          whole.substr(0, static_cast<size_t>(room) - 1));
  }
  cut.seen(room <= size);
}

void check_all(const memory &text, const varnel_inspect_options &options) {
  constexpr int capacity = 8;
  varnel_inspection all[capacity];
  const int found =
      varnel_inspect_all(text.data(), static_cast<size_t>(text.size()), &options, all, capacity);
  holds(found >= 0 && found <= capacity, "as many zones as there is room for");
  for (int i = 0; i < std::max(found, 1); ++i) {
    check_record(all[i], text);
    holds((all[i].verdict == VARNEL_VERDICT_REFUSED) == (found == 0), "a zone is not refused");
    holds(i == 0 || all[i - 1].source[all[i - 1].line_count - 1].end <= all[i].source[0].start,
          "zones stand in the order of the page and do not overlap");
  }
  many.seen(found > 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::input input(data, size);
  varnel_inspect_options options = {};
  options.year = static_cast<int>(input.byte() << 8 | input.byte());
  options.month = static_cast<int>(input.byte());
  options.day = static_cast<int>(input.byte());
  options.repair = static_cast<int>(input.byte() % 3);
  const int room = static_cast<int>((input.byte() << 8 | input.byte()) % 4096);
  const std::string rest = input.rest();
  const memory text{std::string_view(rest)};

  varnel_inspection inspection;
  std::memset(&inspection, 0xA5, sizeof inspection);
  const int code = varnel_inspect(text.data(), static_cast<size_t>(text.size()), &options, &inspection);
  if (code != ERR_OK) {
    equal("the code", code, ERR_INVALID_ARGS);
    no_such_date.seen();
    options = {2026, 11, 21, options.repair};
    equal("the code of a date that exists",
          varnel_inspect(text.data(), static_cast<size_t>(text.size()), &options, &inspection),
          text.size() <= VARNEL_TEXT_MAX ? ERR_OK : ERR_INVALID_ARGS);
    if (text.size() > VARNEL_TEXT_MAX) {
      return 0;
    }
  }
  check_record(inspection, text);
  check_json(inspection, room);
  check_all(text, options);

  varnel_inspection again;
  std::memset(&again, 0, sizeof again);
  varnel_inspect(text.data(), static_cast<size_t>(text.size()), &options, &again);
  holds(std::memcmp(&again, &inspection, sizeof again) == 0, "a second inspection is the same");
  holds(text.intact() && text.text() == rest, "the text is only read");

  of_layout[inspection.layout].seen();
  valid.seen(inspection.verdict == VARNEL_VERDICT_VALID);
  repaired.seen(inspection.verdict == VARNEL_VERDICT_REPAIRED);
  length.seen(inspection.nearest_layout != VARNEL_LAYOUT_NONE);
  for (int i = 0; i < inspection.notice_count; ++i) {
    dropped.seen(inspection.notices[i].code == VARNEL_NOTICE_DROPPED);
  }
  return 0;
}
