// varnel parse: documents in, twelve values out.
#include "commands.hpp"
#include "document_writer.hpp"
#include "progress.hpp"

#include <cerrno>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

// A file of the command line, or standard input for "-". Closed when it goes, standard input excepted.
class input {
public:
  explicit input(const std::string &operand)
      : name_(operand == "-" ? "standard input" : operand), own_(operand != "-"),
        descriptor_(own_ ? open(operand.c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO),
        error_(descriptor_ < 0 ? errno : 0) {}
  ~input() {
    if (own_ && descriptor_ >= 0) {
      close(descriptor_);
    }
  }
  input(const input &) = delete;
  input &operator=(const input &) = delete;

  const std::string &name() const { return name_; }
  int error() const { return error_; }
  // Why it cannot be read. A missing file with a filler in its name is most likely a zone, typed where a
  // file is expected: it is not repeated, because what is said here may end up in a log.
  std::string trouble() const {
    if (descriptor_ < 0 && name_.find('<') != std::string::npos) {
      return std::string("no such file; ") + TEXT_IS_NO_ARGUMENT;
    }
    return (name_.empty() ? "''" : name_) + ": " + std::strerror(error_);
  }

  bool is_terminal() const { return isatty(descriptor_) == 1; }

  std::ptrdiff_t read_to(char *into, std::size_t room) {
    if (error_ != 0) {
      return -1;
    }
    ssize_t count;
    do {
      count = read(descriptor_, into, room);
    } while (count < 0 && errno == EINTR);
    error_ = count < 0 ? errno : 0;
    return count;
  }

private:
  std::string name_;
  bool own_;
  int descriptor_;
  int error_;
};

// Bytes of all files together; 0 when one of them is no regular file.
std::uint64_t total_size(const std::vector<std::string> &operands) {
  std::uint64_t total = 0;
  for (const std::string &operand : operands) {
    struct stat status;
    const int result = operand == "-" ? fstat(STDIN_FILENO, &status) : stat(operand.c_str(), &status);
    if (result != 0 || !S_ISREG(status.st_mode)) {
      return 0;
    }
    total += static_cast<std::uint64_t>(status.st_size);
  }
  return total;
}

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

// Why a text was refused, in a sentence that holds nothing of the text but its length.
std::string refusal(std::string_view text) {
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

class parse_run {
public:
  parse_run(const options &asked, output &out)
      : operands_(asked.operands.empty() ? std::vector<std::string>{"-"} : asked.operands),
        batch_(asked.each != split::whole), split_(asked.each), out_(out), reader_(asked.each),
        writer_(out, asked.how.value_or(isatty(STDOUT_FILENO) == 1 ? format::table : format::json),
                asked.slots, wants_colour(STDOUT_FILENO)),
        progress_(batch_ ? total_size(operands_) : 0) {}

  int run() {
    writer_.begin();
    for (const std::string &operand : operands_) {
      if (out_.error() != 0) {
        break;
      }
      input from(operand);
      read_all_of(from);
    }
    if (batch_ && out_.error() == 0) {
      progress_.erase();
      out_.flush();
      progress_.summarise(counts_, hint());
    }
    return trouble_ ? EXIT_TROUBLE : counts_.refused > 0 ? EXIT_SOME_REFUSED : EXIT_ALL_READ;
  }

private:
  void read_all_of(input &from) {
    // What is known is shown before more is waited for.
    reader_.open([&](char *into, std::size_t room) {
      progress_.erase();
      out_.flush();
      if (batch_ && !from.is_terminal()) {
        progress_.draw(counts_);
      }
      const std::ptrdiff_t count = from.read_to(into, room);
      progress_.advance(count > 0 ? static_cast<std::uint64_t>(count) : 0);
      return count;
    });
    if (from.is_terminal() && isatty(STDERR_FILENO) == 1) {
      complain("reading from the terminal; end the text with Ctrl-D");
    }
    document_text document;
    while (out_.error() == 0 && reader_.next(document)) {
      read(document, from.name());
    }
    if (from.error() != 0) {
      tell(from.trouble());
      trouble_ = true;
    }
  }

  void read(const document_text &document, const std::string &file) {
    const std::uint64_t number = ++counts_.documents;
    const std::string title = writer_.shows_titles() ? title_of(number, file) : "";
    const int length = varnel_utf16_length(document.text.data(), document.text.size());
    if (varnel_parse_mrz(document.text.data(), length, &result_, buffer_, sizeof buffer_) == ERR_OK) {
      writer_.accepted(number, result_, title);
      return;
    }
    ++counts_.refused;
    writer_.refused(number, title);
    if (document.over_long) {
      tell(file + ": " + (split_ == split::line ? "line " : "block at line ") +
           std::to_string(document.line) + ": longer than 1 MiB, refused");
    } else if (!batch_) {
      tell(file + ": " + refusal(document.text));
    }
  }

  // Zones as they are printed, read by the line, are refused one and all.
  std::string_view hint() const {
    const bool none_read = counts_.documents > 1 && counts_.refused == counts_.documents;
    return split_ == split::line && none_read ? "; documents of several lines are read with --each block"
                                              : "";
  }

  std::string title_of(std::uint64_t number, const std::string &file) const {
    if (batch_) {
      return "document " + std::to_string(number);
    }
    return operands_.size() > 1 ? file : "";
  }

  void tell(const std::string &message) {
    progress_.erase();
    out_.flush(); // the output stands before what is said of it
    complain(message);
  }

  std::vector<std::string> operands_;
  bool batch_;
  split split_;
  output &out_;
  document_reader reader_;
  document_writer writer_;
  progress progress_;
  tally counts_;
  bool trouble_ = false;
  PARSE_RESULT result_ = {};
  char buffer_[VARNEL_BUFFER_SIZE] = {};
};

} // namespace

int run_parse(const options &asked, output &out) {
  const auto run = std::make_unique<parse_run>(asked, out);
  return run->run();
}

} // namespace varnel::cli
