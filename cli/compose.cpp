// varnel compose: values in, zones out.
#include "commands.hpp"
#include "complaints.hpp"
#include "document_reader.hpp"
#include "input.hpp"
#include "platform.hpp"
#include "zones.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

namespace varnel::cli {

namespace {

// Puts the lines of an input together to JSON objects, one a line or one over many, by counting brackets
// outside strings. An object without an end costs no other: a line that begins with a bracket begins another
// object, unless the one in hand began with a line of nothing else and has another bracket open.
class object_reader {
public:
  using use_function = std::function<void(const std::string &text, std::uint64_t line)>;

  explicit object_reader(use_function use) : use_(std::move(use)) {}

  void add(std::string_view line, std::uint64_t number) {
    if (!line.empty() && line.front() == '{' && (depth_ == 1 || !is_spread_)) {
      finish();
    }
    if (text_.empty()) {
      if (is_blank(line)) {
        return;
      }
      first_line_ = number;
      is_spread_ = line.front() == '{' && is_blank(line.substr(1));
    }
    count_brackets(line);
    if (text_.size() + line.size() <= document_reader::LONGEST) {
      text_.append(line).append("\n");
    }
    if (depth_ <= 0) {
      finish();
    }
  }

  // What is in hand is handed over, whether it has an end or not.
  void finish() {
    if (!text_.empty()) {
      use_(text_, first_line_);
    }
    text_.clear();
    depth_ = 0;
  }

private:
  static bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
  }

  void count_brackets(std::string_view line) {
    bool in_string = false; // no string goes on after a line's end
    for (std::size_t i = 0; i < line.size(); ++i) {
      const char c = line[i];
      if (c == '"') {
        in_string = !in_string;
      } else if (in_string) {
        i += c == '\\' ? 1 : 0;
      } else {
        depth_ += c == '{' || c == '[' ? 1 : c == '}' || c == ']' ? -1 : 0;
      }
    }
  }

  use_function use_;
  std::string text_;
  std::uint64_t first_line_ = 0;
  bool is_spread_ = false; // its first line is nothing but its bracket
  long depth_ = 0;
};

constexpr std::string_view LAYOUT_KEY = "layout";
constexpr std::string_view LANGUAGE_KEY = "language";

struct text_key {
  int field;
  const char *varnel_compose_fields::*member;
};

constexpr text_key TEXT_KEYS[] = {
    {VARNEL_DOCUMENT_CODE, &varnel_compose_fields::document_code},
    {VARNEL_ISSUING_STATE, &varnel_compose_fields::issuing_state},
    {VARNEL_DOCUMENT_NUMBER, &varnel_compose_fields::document_number},
    {VARNEL_NATIONALITY, &varnel_compose_fields::nationality},
    {VARNEL_BIRTH_DATE, &varnel_compose_fields::birth_date},
    {VARNEL_SEX, &varnel_compose_fields::sex},
    {VARNEL_EXPIRY_DATE, &varnel_compose_fields::expiry_date},
    {VARNEL_PRIMARY_IDENTIFIER, &varnel_compose_fields::primary_identifier},
    {VARNEL_SECONDARY_IDENTIFIER, &varnel_compose_fields::secondary_identifier},
    {VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1},
    {VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2},
    {VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data},
    {VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number},
};

// The texts of one object under the keys of a document; unknown keys are passed over.
class json_document {
public:
  explicit json_document(const nlohmann::json &object) {
    for (std::size_t i = 0; i < std::size(TEXT_KEYS); ++i) {
      fields_.*TEXT_KEYS[i].member = take(object, field_name(TEXT_KEYS[i].field), texts_[i]);
    }
    language_ = take(object, LANGUAGE_KEY, language_text_);
    std::string layout;
    take(object, LAYOUT_KEY, layout);
    fields_.layout = layout_named(layout);
  }

  // The first key whose value is neither a text nor null; empty when there is none.
  const std::string &no_text() const { return no_text_; }

  const varnel_compose_fields &fields() const { return fields_; }
  const char *language() const { return language_; }

private:
  const char *take(const nlohmann::json &object, std::string_view key, std::string &into) {
    const auto found = object.find(key);
    if (found == object.end() || found->is_null()) {
      return nullptr;
    }
    if (!found->is_string()) {
      no_text_ = no_text_.empty() ? std::string(key) : no_text_;
      return nullptr;
    }
    into = found->get<std::string>();
    // A NUL would end the text; another control character is refused in its place.
    std::replace(into.begin(), into.end(), '\0', '\x01');
    return into.c_str();
  }

  varnel_compose_fields fields_ = {};
  std::string texts_[std::size(TEXT_KEYS)];
  const char *language_ = nullptr;
  std::string language_text_;
  std::string no_text_;
};

std::string list_of_layouts() {
  std::string list;
  for (const named_layout &each : COMPOSED_LAYOUTS) {
    list += (list.empty() ? "" : ", ") + std::string(each.name);
  }
  return list;
}

std::string unknown_value(int field) {
  switch (field) {
  case VARNEL_FIELD_NONE:
    return "not one of " + list_of_layouts();
  case VARNEL_DOCUMENT_CODE:
    return "not a code of this layout";
  default:
    return "not a listed state";
  }
}

// "primaryIdentifier: character 1 cannot be written in a zone": nothing of the value is repeated.
std::string sentence_of(const varnel_compose_error &error) {
  const bool is_language = error.reason == VARNEL_COMPOSE_UNKNOWN_LANGUAGE;
  const std::string_view key = error.field != VARNEL_FIELD_NONE ? field_name(error.field)
                               : is_language                    ? LANGUAGE_KEY
                                                                : LAYOUT_KEY;
  const std::string field = std::string(key) + ": ";
  const std::string character = "character " + std::to_string(error.position + 1);
  switch (error.reason) {
  case VARNEL_COMPOSE_MISSING:
    return field + "nothing to write, and a zone needs it";
  case VARNEL_COMPOSE_BAD_CHARACTER:
    return field + character + " cannot be written there";
  case VARNEL_COMPOSE_UNKNOWN:
    return field + unknown_value(error.field);
  case VARNEL_COMPOSE_NOT_A_DATE:
    return field + "not a date of the calendar, as YYYY-MM-DD";
  case VARNEL_COMPOSE_DATES_ORDER:
    return field + "before " + std::string(field_name(VARNEL_BIRTH_DATE));
  case VARNEL_COMPOSE_TOO_LONG:
    return field + "no room from " + character + " on";
  case VARNEL_COMPOSE_NOT_IN_LAYOUT:
    return field + "this layout has no such field";
  case VARNEL_COMPOSE_OTHER_LAYOUT:
    return field + "two lines that begin with ID and FRA are a French identity card, not a TD2";
  default:
    return field + "not one of be, bg, mk, sr, uk";
  }
}

class compose_run {
public:
  compose_run(const arguments &asked, output &out) : as_json_(wants_json(asked)), out_(out) {}

  void read(const std::string &operand) {
    out_.flush(); // an output file that is read shows by its size
    input from(operand);
    name_ = from.name();
    object_reader objects([this](const std::string &text, std::uint64_t line) { compose_text(text, line); });
    const auto lines = std::make_unique<document_reader>(split::line, document_reader::LONGEST);
    lines->open([&](char *into, std::size_t room) {
      out_.flush(); // what is known is shown before more is waited for
      return from.read(into, room);
    });
    if (from.is_terminal() && is_terminal(STANDARD_ERROR)) {
      complain("reading from the terminal; end the text with Ctrl-D");
    }
    document_text line;
    while (out_.error() == 0 && !stopped() && lines->next(line)) {
      if (line.over_long) {
        objects.finish();
        refuse(line.line, "longer than 1 MiB");
      } else {
        objects.add(line.text, line.line);
      }
    }
    if (lines->failed() && !stopped()) {
      complain(from.complaint());
      trouble_ = true;
    } else if (!stopped()) {
      objects.finish();
    }
  }

  int exit_code() const { return trouble_ ? EXIT_TROUBLE : refused_ ? EXIT_SOME_REFUSED : EXIT_ALL_READ; }

  bool may_go_on() const { return out_.error() == 0 && !stopped(); }

private:
  void compose_text(const std::string &text, std::uint64_t line) {
    const nlohmann::json object = nlohmann::json::parse(text, nullptr, false);
    if (!object.is_object()) {
      refuse(line, "not a JSON object");
      return;
    }
    const json_document document(object);
    if (!document.no_text().empty()) {
      refuse(line, document.no_text() + ": neither a text nor null");
      return;
    }
    const composition zone = compose(document.fields(), document.language());
    if (zone) {
      put_zone(out_, zone, as_json_);
    } else {
      refuse(line, sentence_of(zone.error()));
    }
  }

  void refuse(std::uint64_t line, const std::string &reason) {
    out_.flush(); // the output stands before what is said of the next document
    complain(name_ + ": line " + std::to_string(line) + ": " + reason);
    refused_ = true;
  }

  bool as_json_;
  output &out_;
  std::string name_;
  bool refused_ = false;
  bool trouble_ = false;
};

int run(const arguments &asked, output &out) {
  compose_run work(asked, out);
  const std::vector<std::string> standard_input = {"-"};
  for (const std::string &operand : asked.operands.empty() ? standard_input : asked.operands) {
    if (work.may_go_on()) {
      work.read(operand);
    }
  }
  return work.exit_code();
}

} // namespace

const command COMPOSE_COMMAND = {
    "compose",
    "Compose zones from the values of documents",
    "FILE",
    "Files of JSON objects, one a line or one over many lines; '-' or none: standard\ninput",
    false,
    {ZONE_FORMAT_OPTION},
    "  varnel compose document.json           the zone of a document, its digits computed\n"
    "  varnel compose --format json < docs.jsonl\n",
    run};

} // namespace varnel::cli
