// varnel inspect: documents in, what is right and what is wrong with them out.
#include "../src/documents/entries.hpp"
#include "colours.hpp"
#include "commands.hpp"
#include "complaints.hpp"
#include "document_rows.hpp"
#include "documents.hpp"
#include "input.hpp"
#include "inspection_view.hpp"
#include "inspection_words.hpp"
#include "platform.hpp"
#include "progress.hpp"
#include "quoting.hpp"

#include <Varnel/documents/inspect.h>
#include <Varnel/documents/looks.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace varnel::cli {

namespace {

constexpr option DATE_OPTION = {
    "date", "YYYY-MM-DD",
    "The reference date, by which years and expiry are resolved (default:\ntoday, UTC)"};
constexpr option REPAIR_OPTION = {"repair", "off|columns|digits",
                                  "Put right what an optical reader gets wrong, as far as it can be proven;\n"
                                  "columns: kinds of characters, and fillers; digits: numbers, too\n"
                                  "(default: off)"};

constexpr option LOOKS_OPTION = {"looks", "",
                                 "Take the files for several looks at one document, and combine them"};

// Today in UTC, or the date that was asked for; a date that does not exist is for the library to refuse.
bool read_date(const arguments &asked, varnel_inspect_options &options) {
  if (!asked.has(DATE_OPTION.name)) {
    const std::time_t now = std::time(nullptr);
    const std::tm *today = std::gmtime(&now); // NOLINT(concurrency-mt-unsafe): no thread was started yet
    options.year = today->tm_year + 1900;
    options.month = today->tm_mon + 1;
    options.day = today->tm_mday;
    return true;
  }
  const std::string_view text = asked.value(DATE_OPTION.name);
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
    return false;
  }
  const auto read = [&](std::size_t at, std::size_t length, int &number) {
    const char *end = text.data() + at + length;
    const auto [stopped, error] = std::from_chars(text.data() + at, end, number);
    return stopped == end && error == std::errc() && number >= 0;
  };
  return read(0, 4, options.year) && read(5, 2, options.month) && read(8, 2, options.day);
}

bool read_options(const arguments &asked, varnel_inspect_options &options) {
  const std::string_view level = asked.value(REPAIR_OPTION.name);
  options.repair = level == "columns"  ? VARNEL_REPAIR_COLUMNS
                   : level == "digits" ? VARNEL_REPAIR_DIGITS
                                       : VARNEL_REPAIR_OFF;
  varnel_inspection unused;
  return read_date(asked, options) && varnel_inspect("", 0, &options, &unused) == ERR_OK;
}

// ---- output
// --------------------------------------------------------------------------------------------------

class inspection_writer {
public:
  inspection_writer(output &out, const arguments &asked)
      : out_(out), rows_(out, asked), coloured_(wants_colour(STANDARD_OUTPUT)), json_(JSON_ROOM, '\0') {}

  void begin() {
    if (rows_.how() != format::csv) {
      return;
    }
    rows_.begin_header();
    out_.put(",verdict,layout,expired,findings");
    for (int field = VARNEL_FIELD_NONE + 1; field < VARNEL_COMPOSITE; ++field) {
      out_.put(',');
      out_.put(varnel_field_name(field));
    }
    out_.put('\n');
  }

  void write(const document &from, const varnel_inspection &inspection) {
    switch (rows_.how()) {
    case format::json:
      json(from, inspection);
      break;
    case format::csv:
      csv(from, inspection);
      break;
    case format::table:
      rows_.begin_table(from);
      put_inspection(out_, coloured_, inspection);
      break;
    }
  }

  // Whether whoever reads the answers sees in them why a text was refused.
  bool shows_reasons() const { return rows_.how() == format::table && is_terminal(STANDARD_OUTPUT); }

private:
  static constexpr std::size_t JSON_ROOM = 16384;

  void json(const document &from, const varnel_inspection &inspection) {
    if (!rows_.with_source() && put_json(inspection)) {
      return;
    }
    int length = varnel_inspection_json(&inspection, json_.data(), json_.size());
    if (static_cast<std::size_t>(length) >= json_.size()) {
      json_.resize(static_cast<std::size_t>(length) + 1);
      length = varnel_inspection_json(&inspection, json_.data(), json_.size());
    }
    rows_.object(from, std::string_view(json_.data(), static_cast<std::size_t>(length)));
  }

  // Writes a whole object and the line feed to the output itself, where there is room enough.
  bool put_json(const varnel_inspection &inspection) {
    char *const room = out_.room(JSON_ROOM);
    const int length = varnel_inspection_json(&inspection, room, JSON_ROOM);
    if (static_cast<std::size_t>(length) >= JSON_ROOM) {
      return false;
    }
    room[length] = '\n'; // in place of the NUL
    out_.commit(room + length + 1);
    return true;
  }

  void csv(const document &from, const varnel_inspection &inspection) {
    rows_.begin_row(from);
    const char *layout = varnel_layout_name(inspection.layout);
    cell(varnel_verdict_name(inspection.verdict));
    cell(layout != nullptr ? layout : "");
    cell(inspection.expired < 0 ? "" : inspection.expired > 0 ? "true" : "false");
    cell(findings_of(inspection));
    for (int field = VARNEL_FIELD_NONE + 1; field < VARNEL_COMPOSITE; ++field) {
      cell(value_of(inspection, field));
    }
    out_.put('\n');
  }

  void cell(std::string_view text) {
    out_.put(',');
    put_csv_cell(out_, text);
  }

  // Such as "birthDate=checkFailed;composite=checkFailed".
  static std::string findings_of(const varnel_inspection &inspection) {
    std::string all;
    for (int i = 0; i < inspection.finding_count; ++i) {
      const char *field = varnel_field_name(inspection.findings[i].field);
      all += all.empty() ? "" : ";";
      all += field != nullptr ? std::string(field) + '=' : "";
      all += varnel_finding_name(inspection.findings[i].code);
    }
    return all;
  }

  static std::string_view value_of(const varnel_inspection &inspection, int field) {
    const varnel_inspected_field *found = documents::find_field(inspection, field);
    return found != nullptr ? found->value : "";
  }

  output &out_;
  document_rows rows_;
  bool coloured_;
  std::string json_;
};

// ---- one document at a time ---------------------------------------------------------------------------

class inspect : public document_command {
public:
  /** @param doubtful the documents that are; several commands may count together, each in a thread of its own
   */
  inspect(const arguments &asked, output &out, const varnel_inspect_options &options,
          std::atomic<std::uint64_t> &doubtful)
      : writer_(out, asked), options_(options), doubtful_(doubtful) {}

  void begin() override { writer_.begin(); }

  bool read(const document &from) override {
    too_long_ = from.text.size() > VARNEL_TEXT_MAX;
    varnel_inspect(from.text.data(), too_long_ ? 0 : from.text.size(), &options_, &inspection_);
    writer_.write(from, inspection_);
    if (inspection_.verdict == VARNEL_VERDICT_DOUBTFUL) {
      ++doubtful_;
    }
    return inspection_.verdict != VARNEL_VERDICT_REFUSED;
  }

  void skip(const document &from) override {
    varnel_inspect("", 0, &options_, &inspection_);
    writer_.write(from, inspection_);
  }

  std::string reason(const document & /*from*/) override {
    return too_long_                 ? "longer than 64 KiB, refused"
           : writer_.shows_reasons() ? ""
                                     : refusal_words(inspection_);
  }

  std::string summary() const override {
    return doubtful_ > 0 ? ", " + std::to_string(doubtful_) + " doubtful" : "";
  }

private:
  inspection_writer writer_;
  varnel_inspect_options options_;
  varnel_inspection inspection_ = {};
  bool too_long_ = false;
  std::atomic<std::uint64_t> &doubtful_;
};

// ---- several looks at one document -------------------------------------------------------------------

class looks : public document_command {
public:
  looks(const arguments &asked, output &out, const varnel_inspect_options &options)
      : writer_(out, asked), options_(options) {}

  bool read(const document &from) override {
    too_long_ = from.text.size() > VARNEL_TEXT_MAX;
    return !too_long_ && varnel_looks_add(&looks_, from.text.data(), from.text.size(), &options_) == ERR_OK;
  }

  // A look that cannot be read counts for nothing.
  void skip(const document & /*from*/) override {}

  std::string reason(const document & /*from*/) override {
    return too_long_ ? "longer than 64 KiB, not looked at" : refusal_words(looks_.last);
  }

  // Writes what the looks show together; gives the exit code for it.
  int finish() {
    varnel_inspection inspection;
    varnel_looks_inspect(&looks_, &options_, &inspection);
    writer_.begin();
    writer_.write({"", 1, "", 1, ""}, inspection);
    return inspection.verdict >= VARNEL_VERDICT_VALID ? EXIT_ALL_READ : EXIT_SOME_REFUSED;
  }

private:
  inspection_writer writer_;
  varnel_inspect_options options_;
  varnel_looks looks_ = {};
  bool too_long_ = false;
};

// ---- all zones of a text -----------------------------------------------------------------------------

// Reads an input through a window of the longest text, which moves on after the last zone found in it, or so
// far that what may be the start of a zone stays in it.
class zones {
public:
  zones(const arguments &asked, output &out, const varnel_inspect_options &options)
      : operands_(asked.operands.empty() ? std::vector<std::string>{"-"} : asked.operands),
        titled_(format_of(asked) == format::table), out_(out), writer_(out, asked), options_(options),
        found_(MOST_ZONES) {}

  int run() {
    writer_.begin();
    for (const std::string &operand : operands_) {
      if (out_.error() != 0 || stopped()) {
        break;
      }
      out_.flush();
      read_all_of(operand);
    }
    out_.flush();
    if (out_.error() == 0) {
      progress(0).summarise(counts_, summary());
    }
    const bool all_good = counts_.refused == 0 && doubtful_ == 0;
    return trouble_ ? EXIT_TROUBLE : all_good ? EXIT_ALL_READ : EXIT_SOME_REFUSED;
  }

private:
  static constexpr std::size_t MOST_ZONES = 1024; // a window holds fewer
  static constexpr std::size_t KEPT = 2048;       // what stays in the window, so that no zone is cut in two

  void read_all_of(const std::string &operand) {
    input from(operand);
    window_.clear();
    base_ = 0;
    line_ = 1;
    const std::uint64_t before = counts_.documents;
    bool more = true;
    while (more && out_.error() == 0 && !stopped()) {
      more = fill(from);
      if (!from.complaint().empty()) {
        trouble_ = true;
        out_.flush();
        complain(from.complaint());
        return;
      }
      if (begins_with_utf16()) {
        trouble_ = true;
        out_.flush();
        complain(from.name() + ": UTF-16, which is not read: convert it to UTF-8");
        return;
      }
      look(operand, from.name(), more);
    }
    if (counts_.documents == before && !stopped()) {
      refuse(operand, from.name());
    }
  }

  // Fills the window; false at the end of the input.
  bool fill(input &from) {
    std::size_t size = window_.size();
    window_.resize(VARNEL_TEXT_MAX);
    std::ptrdiff_t count = 1;
    while (size < window_.size() && count > 0) {
      out_.flush(); // what is known is shown before more is waited for
      count = from.read(window_.data() + size, window_.size() - size);
      size += static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0));
    }
    window_.resize(size);
    return count > 0;
  }

  bool begins_with_utf16() const {
    const std::string_view start = std::string_view(window_).substr(0, 2);
    return base_ == 0 && (start == "\xFF\xFE" || start == "\xFE\xFF");
  }

  // Writes the zones of the window, and moves it on.
  void look(const std::string &operand, const std::string &name, bool more) {
    const int count = varnel_inspect_all(window_.data(), window_.size(), &options_, found_.data(),
                                         static_cast<int>(found_.size()));
    std::size_t sure = more ? window_.size() - KEPT : window_.size();
    std::size_t done = 0;
    for (int i = 0; i < count; ++i) {
      varnel_inspection &zone = found_[static_cast<std::size_t>(i)];
      const std::size_t end = zone.source[zone.source_count - 1].end;
      if (end > sure) {
        sure = std::min(sure, static_cast<std::size_t>(zone.source[0].start));
        break;
      }
      write(operand, name, zone);
      done = end;
    }
    drop(std::max(done, sure));
  }

  void write(const std::string &operand, const std::string &name, varnel_inspection &zone) {
    const auto start = window_.begin() + static_cast<std::ptrdiff_t>(zone.source[0].start);
    const std::uint64_t line = line_ + static_cast<std::uint64_t>(std::count(window_.begin(), start, '\n'));
    move(zone);
    ++counts_.documents;
    const std::string title = titled_ ? "document " + std::to_string(counts_.documents) + " (" + name +
                                            ", line " + std::to_string(line) + ")"
                                      : "";
    writer_.write({"", counts_.documents, operand, line, title}, zone);
    doubtful_ += zone.verdict == VARNEL_VERDICT_DOUBTFUL ? 1 : 0;
  }

  // Offsets are counted from the start of the input.
  void move(varnel_inspection &zone) const {
    const auto shift = [&](varnel_source &source) {
      source.start += static_cast<std::uint32_t>(base_);
      source.end += static_cast<std::uint32_t>(base_);
    };
    for (int i = 0; i < zone.source_count; ++i) {
      shift(zone.source[i]);
    }
    for (int i = 0; i < zone.field_count; ++i) {
      shift(zone.fields[i].source);
    }
  }

  void drop(std::size_t count) {
    const auto end = window_.begin() + static_cast<std::ptrdiff_t>(count);
    line_ += static_cast<std::uint64_t>(std::count(window_.begin(), end, '\n'));
    base_ += count;
    window_.erase(window_.begin(), end);
  }

  // An input without a zone.
  void refuse(const std::string &operand, const std::string &name) {
    varnel_inspect("", 0, &options_, found_.data());
    ++counts_.documents;
    writer_.write({"", counts_.documents, operand, 1, titled_ ? name : ""}, found_[0]);
    ++counts_.refused;
    out_.flush();
    if (!writer_.shows_reasons()) {
      complain(name + ": " + refusal_words(found_[0]));
    }
  }

  std::string summary() const {
    return (doubtful_ > 0 ? ", " + std::to_string(doubtful_) + " doubtful" : "") +
           (stopped() ? "; interrupted" : "");
  }

  std::vector<std::string> operands_;
  bool titled_;
  output &out_;
  inspection_writer writer_;
  varnel_inspect_options options_;
  std::vector<varnel_inspection> found_;
  std::string window_;
  std::uint64_t base_ = 0; // where the window begins in the input
  std::uint64_t line_ = 1; // and on which line
  tally counts_;
  std::uint64_t doubtful_ = 0;
  bool trouble_ = false;
};

int run(const arguments &asked, output &out) {
  varnel_inspect_options options;
  if (!read_options(asked, options)) {
    return complain_of_usage("--date: there is no such date; it is written YYYY-MM-DD");
  }
  if (asked.has(LOOKS_OPTION.name)) {
    if (asked.has(EACH_OPTION.name) || asked.has(WITH_SOURCE_OPTION.name)) {
      return complain_of_usage("--looks makes one document of all files: it goes with neither --each nor "
                               "--with-source");
    }
    const auto command = std::make_unique<looks>(asked, out, options);
    const int code = read_documents(asked, out, *command, VARNEL_TEXT_MAX + 1);
    const int verdict = command->finish();
    return code == EXIT_TROUBLE ? code : verdict;
  }
  if (split_of(asked) == split::zone) {
    if (asked.has(JOBS_OPTION.name)) {
      return complain_of_usage(
          "--jobs goes with --each line or --each block: where a zone ends is known only when "
          "the one before it was read");
    }
    return zones(asked, out, options).run();
  }
  std::atomic<std::uint64_t> doubtful{0};
  inspect command(asked, out, options, doubtful);
  // One byte more than can be inspected, so that a longer text is seen to be too long.
  const int code =
      read_documents(asked, out, command, VARNEL_TEXT_MAX + 1, reading::exact, [&](output &other) {
        return std::make_unique<inspect>(asked, other, options, doubtful);
      });
  return code == EXIT_ALL_READ && doubtful > 0 ? EXIT_SOME_REFUSED : code;
}

} // namespace

const command INSPECT_COMMAND = {
    "inspect",
    "Say whether documents are right, and if not, where",
    "FILE",
    "Files to read, each a text with a document's zone somewhere in it; '-' or none:\nstandard input",
    false,
    {DATE_OPTION, REPAIR_OPTION, LOOKS_OPTION, EACH_OPTION, FORMAT_OPTION, JOBS_OPTION, WITH_SOURCE_OPTION,
     VERBOSE_OPTION},
    "  varnel inspect page.txt                the zone on a page of text, with what fails\n"
    "  varnel inspect --each zone scans.txt   all zones of a text, JSON lines\n"
    "  varnel inspect --looks frame*.txt      several looks at one document\n",
    run};

} // namespace varnel::cli
