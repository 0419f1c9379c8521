// Composing zones: an input is a document in lines, the layout's number, the language, then the values in the
// order in which errors are reported.
#include "harness.hpp"

#include <Varnel/documents.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;

using value_member = const char *varnel_compose_fields::*;

constexpr std::array<value_member, 13> VALUES = {
    &varnel_compose_fields::document_code,        &varnel_compose_fields::issuing_state,
    &varnel_compose_fields::document_number,      &varnel_compose_fields::nationality,
    &varnel_compose_fields::birth_date,           &varnel_compose_fields::sex,
    &varnel_compose_fields::expiry_date,          &varnel_compose_fields::primary_identifier,
    &varnel_compose_fields::secondary_identifier, &varnel_compose_fields::optional_data_1,
    &varnel_compose_fields::optional_data_2,      &varnel_compose_fields::optional_data,
    &varnel_compose_fields::personal_number};

constexpr std::array<int, 13> FIELDS = {
    VARNEL_DOCUMENT_CODE,   VARNEL_ISSUING_STATE,      VARNEL_DOCUMENT_NUMBER,
    VARNEL_NATIONALITY,     VARNEL_BIRTH_DATE,         VARNEL_SEX,
    VARNEL_EXPIRY_DATE,     VARNEL_PRIMARY_IDENTIFIER, VARNEL_SECONDARY_IDENTIFIER,
    VARNEL_OPTIONAL_DATA_1, VARNEL_OPTIONAL_DATA_2,    VARNEL_OPTIONAL_DATA,
    VARNEL_PERSONAL_NUMBER};

constexpr std::array<int, 6> LINES = {0, 3, 2, 2, 2, 2};
constexpr std::array<size_t, 6> WIDTHS = {0, 30, 36, 44, 44, 36};

fuzz::behaviour composed[] = {fuzz::behaviour("a TD1 is composed"), fuzz::behaviour("a TD2 is composed"),
                              fuzz::behaviour("a TD3 is composed"), fuzz::behaviour("an MRV-A is composed"),
                              fuzz::behaviour("an MRV-B is composed")};
fuzz::behaviour refused[] = {
    fuzz::behaviour("a layout is refused"),
    fuzz::behaviour("a value is missing"),
    fuzz::behaviour("a character is refused"),
    fuzz::behaviour("a code or state is unknown"),
    fuzz::behaviour("a date is none"),
    fuzz::behaviour("the dates are in the wrong order"),
    fuzz::behaviour("a value is too long"),
    fuzz::behaviour("a field is not in the layout"),
    fuzz::behaviour("a French card as TD2 is refused"),
    fuzz::behaviour("a language is refused"),
};
fuzz::behaviour long_number("a long number is composed");
fuzz::behaviour shortened("a name fills its field");
fuzz::behaviour national("a name in letters beyond ASCII is composed");
fuzz::behaviour inspected("what was composed is inspected");

// The lines of an input; what is not there is empty.
class document {
public:
  explicit document(const std::string &input) {
    const std::string layout = take_line(input);
    fields_.layout = layout.empty() ? 0 : layout[0] - '0';
    language_ = take_line(input);
    for (size_t i = 0; i < VALUES.size(); ++i) {
      lent_.emplace_back(take_line(input) + '\0');
      fields_.*VALUES[i] = lent_.back().data();
    }
  }

  const varnel_compose_fields &fields() const { return fields_; }
  varnel_compose_options options() const { return {language_.c_str()}; }
  const char *value(size_t index) const { return fields_.*VALUES[index]; }

private:
  // Up to a line feed or a NUL.
  std::string take_line(const std::string &input) {
    const size_t end = std::min(input.find('\n', at_), input.size());
    const std::string line = input.substr(at_, end - at_);
    at_ = std::min(end + 1, input.size());
    return line.substr(0, line.find('\0'));
  }

  size_t at_ = 0;
  varnel_compose_fields fields_ = {};
  std::string language_;
  std::vector<memory> lent_;
};

struct answer {
  int code;
  varnel_zone zone;
  varnel_compose_error error;
};

answer compose(const varnel_compose_fields &fields, const varnel_compose_options &options,
               unsigned char junk) {
  answer given;
  std::memset(&given, junk, sizeof given);
  given.code = varnel_compose(&fields, &options, &given.zone, &given.error);
  return given;
}

std::string text_of(const varnel_zone &zone) {
  std::string text;
  for (int i = 0; i < zone.line_count; ++i) {
    text += zone.lines[i];
    text += '\n';
  }
  return text;
}

void check_form(const varnel_zone &zone, int layout) {
  const auto known = static_cast<size_t>(layout);
  equal("the number of lines", zone.line_count, LINES[known]);
  for (int i = 0; i < zone.line_count; ++i) {
    const std::string line = zone.lines[i];
    holds(line.size() == WIDTHS[known], "a line has the layout's width");
    holds(line.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789<") == std::string::npos,
          "a line is of the zone's characters");
  }
}

int year_of(const char *date) { return std::atoi(std::string(date, 4).c_str()); }

// A reference date that gives the dates their own centuries; false where there is none.
bool find_reference(const varnel_compose_fields &fields, varnel_inspect_options &reference) {
  const int expiry = year_of(fields.expiry_date);
  const bool has_birth = fields.birth_date[0] != '\0';
  const int birth = has_birth ? year_of(fields.birth_date) : expiry;
  const int year = std::max(birth, expiry - 50);
  reference = {year, 12, 31, VARNEL_REPAIR_OFF};
  return year >= 100 && year - birth < 100 && expiry > year - 50;
}

// It is valid, and its values compose to the same lines.
void check_round_trip(const document &made, const varnel_zone &zone) {
  varnel_inspect_options reference;
  if (!find_reference(made.fields(), reference)) {
    return;
  }
  inspected.seen();
  const std::string text = text_of(zone);
  varnel_inspection inspection;
  equal("varnel_inspect", varnel_inspect(text.data(), text.size(), &reference, &inspection), ERR_OK);
  equal("the verdict", static_cast<int>(inspection.verdict), static_cast<int>(VARNEL_VERDICT_VALID));
  varnel_compose_fields values = {};
  values.layout = inspection.layout;
  for (int i = 0; i < inspection.field_count; ++i) {
    for (size_t j = 0; j < FIELDS.size(); ++j) {
      if (inspection.fields[i].field == FIELDS[j] && inspection.fields[i].has_value != 0) {
        values.*VALUES[j] = inspection.fields[i].value;
      }
    }
  }
  const answer again = compose(values, {nullptr}, 0x11);
  equal("composing the inspected values", again.code, ERR_OK);
  equal("the lines composed of the inspected values", text_of(again.zone), text);
}

void check_refusal(const document &made, const varnel_compose_error &error) {
  holds(error.reason > VARNEL_COMPOSE_NO_REASON && error.reason < VARNEL_COMPOSE_REASON_END,
        "a reason is given");
  if (error.field == VARNEL_FIELD_NONE) {
    refused[error.reason == VARNEL_COMPOSE_UNKNOWN ? 0 : VARNEL_COMPOSE_UNKNOWN_LANGUAGE].seen();
    return;
  }
  refused[error.reason].seen();
  for (size_t i = 0; i < FIELDS.size(); ++i) {
    if (FIELDS[i] == error.field) {
      const size_t size = std::strlen(made.value(i));
      holds(error.position <= error.offset && error.offset <= size, "the place lies in the value");
      return;
    }
  }
  throw fuzz::difference("the error names no field of a document");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const document made(std::string(reinterpret_cast<const char *>(data), size));
  const answer given = compose(made.fields(), made.options(), 0x5A);
  const answer second = compose(made.fields(), made.options(), 0xA5);
  equal("the code of a second run", second.code, given.code);
  if (given.code == ERR_OK) {
    equal("the lines of a second run", text_of(second.zone), text_of(given.zone));
    check_form(given.zone, made.fields().layout);
    check_round_trip(made, given.zone);
    composed[made.fields().layout - 1].seen();
    const bool is_card = made.fields().layout <= VARNEL_LAYOUT_TD2;
    long_number.seen(is_card && std::strlen(made.value(2)) > 9);
    shortened.seen(made.fields().layout != VARNEL_LAYOUT_TD1 &&
                   given.zone.lines[0][WIDTHS[static_cast<size_t>(made.fields().layout)] - 1] != '<');
    national.seen(static_cast<signed char>(made.value(7)[0]) < 0);
    return 0;
  }
  equal("the code of a refusal", given.code, ERR_INVALID_FORMAT);
  check_refusal(made, given.error);
  equal("the field of a second run", second.error.field, given.error.field);
  std::string untouched(sizeof given.zone, '\x5A');
  holds(std::memcmp(&given.zone, untouched.data(), untouched.size()) == 0, "a refusal leaves the zone alone");
  return 0;
}
