#include "inspection_view.hpp"

#include "../src/documents/entries.hpp"
#include "colours.hpp"
#include "inspection_words.hpp"
#include "quoting.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace varnel::cli {

using documents::find_check;
using documents::find_field;

namespace {

constexpr std::string_view GOOD = "\033[1;32m";
constexpr std::string_view DOUBT = "\033[1;33m";
constexpr std::string_view BAD = "\033[1;31m";
constexpr std::string_view FAILING = "\033[4;31m";
constexpr std::string_view MARGIN = "  ";

// Neighbouring fields differ.
constexpr std::string_view FIELD_COLOURS[] = {"\033[36m", "\033[35m", "\033[34m", "\033[32m", "\033[33m"};

std::string_view colour_of(std::size_t field) { return FIELD_COLOURS[field % std::size(FIELD_COLOURS)]; }

std::string_view colour_of_verdict(int verdict) {
  return verdict == VARNEL_VERDICT_REFUSED ? BAD : verdict == VARNEL_VERDICT_DOUBTFUL ? DOUBT : GOOD;
}

// A stretch of a line of the zone that a finding is about, and what is said under it.
struct mark {
  int line;
  int column;
  int length;
  std::string text;
};

class view {
public:
  view(output &out, bool coloured, const varnel_inspection &inspection)
      : out_(out), coloured_(coloured), in_(inspection) {
    for (int i = 0; i < in_.finding_count; ++i) {
      add_mark(in_.findings[i]);
    }
    std::stable_sort(marks_.begin(), marks_.end(), [](const mark &left, const mark &right) {
      return left.line != right.line ? left.line < right.line : left.column < right.column;
    });
  }

  void put() {
    put_verdict();
    if (in_.verdict == VARNEL_VERDICT_REFUSED) {
      return;
    }
    put_zone();
    put_fields();
    put_remarks();
  }

private:
  void put_verdict() {
    put_coloured(out_, coloured_, colour_of_verdict(in_.verdict), verdict_sentence(in_));
    const varnel_inspected_field *expiry = find_field(in_, VARNEL_EXPIRY_DATE);
    if (in_.verdict == VARNEL_VERDICT_REFUSED) {
      out_.put(": " + refusal_words(in_));
    } else if (in_.expired > 0 && expiry != nullptr) {
      out_.put(std::string(", expired on ") + expiry->value);
    }
    out_.put('\n');
  }

  void add_mark(const varnel_finding &finding) {
    const varnel_check *check = find_check(in_, finding.field);
    const std::string label(field_label(finding.field));
    if (finding.code == VARNEL_FINDING_CHECK_FAILED && check != nullptr) {
      marks_.push_back(
          {check->line, check->column, 1, std::string("expected ") + check->expected + " (" + label + ")"});
      return;
    }
    const varnel_inspected_field *field = find_field(in_, finding.field);
    if (field != nullptr) {
      const int length = std::max(static_cast<int>(std::string_view(field->text).size()), 1);
      marks_.push_back({field->line, field->column, length, label + ' ' + finding_words(finding)});
    }
  }

  // The colour of each character of a line; that of a failing one says so.
  std::array<std::string_view, VARNEL_ZONE_WIDTH> colours_of(int line) const {
    std::array<std::string_view, VARNEL_ZONE_WIDTH> colours = {};
    const auto paint = [&](int column, int length, std::string_view colour) {
      for (int i = column; i < column + length && i < VARNEL_ZONE_WIDTH; ++i) {
        colours[static_cast<std::size_t>(i)] = colour;
      }
    };
    for (std::size_t i = 0; i < in_.field_count; ++i) {
      const varnel_inspected_field &field = in_.fields[i];
      if (field.line == line) {
        paint(field.column, static_cast<int>(std::string_view(field.text).size()), colour_of(i));
      }
    }
    for (std::size_t i = 0; i < in_.check_count; ++i) {
      if (in_.checks[i].line == line) {
        paint(in_.checks[i].column, 1, colour_of(position(in_.checks[i].field)));
      }
    }
    for (const mark &m : marks_) {
      if (m.line == line) {
        paint(m.column, m.length, FAILING);
      }
    }
    return colours;
  }

  void put_zone() {
    out_.put('\n');
    for (int line = 0; line < in_.line_count; ++line) {
      const std::string_view text = in_.zone[line];
      const auto colours = colours_of(line);
      out_.put(MARGIN);
      for (std::size_t start = 0, end = 0; start < text.size(); start = end) {
        while (end < text.size() && colours[end] == colours[start]) {
          ++end;
        }
        put_coloured(out_, coloured_ && !colours[start].empty(), colours[start],
                     text.substr(start, end - start));
      }
      out_.put('\n');
      put_marks_under(line);
    }
    out_.put('\n');
  }

  void put_marks_under(int line) {
    for (const mark &m : marks_) {
      if (m.line == line) {
        out_.put(std::string(MARGIN.size() + static_cast<std::size_t>(m.column), ' '));
        const std::string arrows(static_cast<std::size_t>(m.length), '^');
        put_coloured(out_, coloured_, BAD, arrows + ' ' + m.text);
        out_.put('\n');
      }
    }
  }

  void put_fields() {
    std::size_t widest = 0;
    for (int i = 0; i < in_.field_count; ++i) {
      widest = std::max(widest, shown(in_.fields[i]).size());
    }
    for (std::size_t i = 0; i < in_.field_count; ++i) {
      const varnel_inspected_field &field = in_.fields[i];
      put_row(field_label(field.field), colour_of(i), shown(field), widest, remarks_of(field));
    }
    if (find_check(in_, VARNEL_COMPOSITE) != nullptr) {
      put_row(field_label(VARNEL_COMPOSITE), "", "", widest, check_words(*find_check(in_, VARNEL_COMPOSITE)));
    }
  }

  // The value, or the text that gave none.
  static std::string_view shown(const varnel_inspected_field &field) {
    const bool unread = field.has_value == 0 && field.status != VARNEL_STATUS_EMPTY;
    return unread ? field.text : field.value;
  }

  void put_row(std::string_view label, std::string_view colour, std::string_view value, std::size_t widest,
               const std::string &remarks) {
    constexpr std::size_t LONGEST_LABEL = std::string_view("optional data 1").size();
    out_.put(MARGIN);
    put_coloured(out_, coloured_ && !colour.empty(), colour, label);
    std::string rest(LONGEST_LABEL + 2 - label.size(), ' ');
    rest += value;
    if (!remarks.empty()) {
      rest += std::string(widest + 2 - value.size(), ' ') + remarks;
    }
    rest.erase(rest.find_last_not_of(' ') + 1);
    out_.put(printable(rest));
    out_.put('\n');
  }

  static std::string check_words(const varnel_check &check) {
    const std::string found = std::string("check digit ") + check.found;
    return check.holds != 0 ? found + " agrees" : found + ", expected " + check.expected;
  }

  // The name of a state, the check digit, and what was found, separated by commas.
  std::string remarks_of(const varnel_inspected_field &field) const {
    std::string remarks;
    const auto add = [&](std::string_view words) {
      remarks += remarks.empty() ? "" : ", ";
      remarks += words;
    };
    if (const char *meaning = meaning_of(field)) {
      add(meaning);
    }
    if (const varnel_check *check = find_check(in_, field.field)) {
      add(check_words(*check));
    }
    if (field.truncated != 0) {
      add("may have been cut to fit");
    }
    for (int i = 0; i < in_.finding_count; ++i) {
      if (in_.findings[i].field == field.field && in_.findings[i].code != VARNEL_FINDING_CHECK_FAILED) {
        add(finding_words(in_.findings[i]));
      }
    }
    for (int i = 0; i < in_.notice_count; ++i) {
      if (in_.notices[i].field == field.field) {
        add(finding_words(in_.notices[i]));
      }
    }
    return remarks;
  }

  const char *meaning_of(const varnel_inspected_field &field) const {
    switch (field.field) {
    case VARNEL_DOCUMENT_CODE:
      return varnel_document_code_meaning(in_.layout, field.value);
    case VARNEL_ISSUING_STATE:
    case VARNEL_NATIONALITY:
      return varnel_state_name(field.value);
    default:
      return nullptr;
    }
  }

  // What belongs to no field: changes, and what was dropped.
  void put_remarks() {
    for (int i = 0; i < in_.change_count; ++i) {
      const varnel_change &change = in_.changes[i];
      put_remark("line " + std::to_string(change.line + 1) + ", column " + std::to_string(change.column + 1) +
                 ": " + (change.from[0] != '\0' ? change.from : "nothing") + " read, " +
                 (change.to[0] != '\0' ? change.to : "nothing") +
                 " taken: " + std::string(change_words(change.reason)));
    }
    for (int i = 0; i < in_.notice_count; ++i) {
      if (in_.notices[i].field == VARNEL_FIELD_NONE) {
        put_remark(finding_sentence(in_.notices[i]));
      }
    }
  }

  void put_remark(const std::string &text) {
    out_.put(std::exchange(has_remarks_, true) ? "" : "\n");
    out_.put(MARGIN);
    out_.put(printable(text));
    out_.put('\n');
  }

  std::size_t position(int field) const {
    const varnel_inspected_field *found = find_field(in_, field);
    return static_cast<std::size_t>(found == nullptr ? in_.field_count : found - in_.fields);
  }

  output &out_;
  bool coloured_;
  const varnel_inspection &in_;
  std::vector<mark> marks_;
  bool has_remarks_ = false;
};

} // namespace

void put_inspection(output &out, bool coloured, const varnel_inspection &inspection) {
  view(out, coloured, inspection).put();
}

} // namespace varnel::cli
