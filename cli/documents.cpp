#include "documents.hpp"

#include "advice.hpp"
#include "complaints.hpp"
#include "crew.hpp"
#include "exit_codes.hpp"
#include "formats.hpp"
#include "input.hpp"
#include "platform.hpp"
#include "progress.hpp"
#include "quoting.hpp"

#include <algorithm>
#include <charconv>
#include <memory>
#include <vector>

namespace varnel::cli {

namespace {

// Bytes of all files together; 0 when the size of one is not known.
std::uint64_t total_size(const std::vector<std::string> &operands) {
  std::uint64_t total = 0;
  for (const std::string &operand : operands) {
    const std::uint64_t size = file_size(operand);
    if (size == 0) {
      return 0;
    }
    total += size;
  }
  return total;
}

bool read_jobs(std::string_view text, unsigned &jobs) {
  const char *end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, jobs);
  return error == std::errc() && stop == end && jobs >= 1 && jobs <= 256;
}

// As much of a batch is looked at for advice.
constexpr std::size_t HEAD_SIZE = 4096;

class document_run {
public:
  document_run(const arguments &asked, output &out, document_command &command, std::size_t counted,
               reading bytes, unsigned jobs, const command_maker &another)
      : operands_(asked.operands.empty() ? std::vector<std::string>{"-"} : asked.operands),
        split_(split_of(asked)), batch_(split_ != split::whole), titled_(format_of(asked) == format::table),
        with_source_(asked.has("with-source")),
        reasons_(!batch_ || asked.has("verbose") || is_terminal(STANDARD_ERROR)), out_(out),
        command_(command), reader_(split_, counted, bytes), progress_(batch_ ? total_size(operands_) : 0) {
    if (batch_ && jobs > 1 && another != nullptr) {
      crew_ = std::make_unique<crew>(jobs, [this, another](output &answers) {
        return [this, own = std::shared_ptr<document_command>(another(answers))](
                   const document &from, bool over_long, std::string &remark) {
          return answer(*own, from, over_long, remark);
        };
      });
    }
  }

  int run() {
    command_.begin();
    for (const std::string &operand : operands_) {
      if (out_.error() != 0 || stopped()) {
        break;
      }
      out_.flush(); // an output file that is read shows by its size
      read_all_of(operand);
    }
    progress_.erase();
    out_.flush();
    if (batch_ && out_.error() == 0) {
      progress_.summarise(counts_, command_.summary() + (stopped() ? "; interrupted" : hint()));
    }
    return trouble_ ? EXIT_TROUBLE : counts_.refused > 0 || none_found_ ? EXIT_SOME_REFUSED : EXIT_ALL_READ;
  }

private:
  void read_all_of(const std::string &operand) {
    input from(operand);
    name_ = from.name();
    // What is known is shown before more is waited for.
    reader_.open([&](char *into, std::size_t room) {
      if (crew_ == nullptr || from.would_wait()) {
        collect_all();
        progress_.erase();
        out_.flush();
      }
      if (batch_ && !from.is_terminal()) {
        progress_.draw(counts_);
      }
      const std::ptrdiff_t count = from.read(into, room);
      if (batch_ && head_.size() < HEAD_SIZE && count > 0) {
        head_.append(into, std::min(static_cast<std::size_t>(count), HEAD_SIZE - head_.size()));
      }
      progress_.advance(count > 0 ? static_cast<std::uint64_t>(count) : 0);
      return count;
    });
    if (from.is_terminal() && is_terminal(STANDARD_ERROR)) {
      complain("reading from the terminal; end the text with Ctrl-D");
    }
    const std::uint64_t before = counts_.documents;
    document_text text;
    while (out_.error() == 0 && !stopped() && reader_.next(text)) {
      read(text, operand);
    }
    collect_all();
    if (reader_.failed() && !stopped()) {
      report_unreadable(operand, from);
    } else if (split_ == split::zone && counts_.documents == before && !stopped()) {
      none_found_ = true;
      report(from.name() + ": no machine-readable zone found");
    }
  }

  void read(const document_text &text, const std::string &operand) {
    const std::uint64_t number = ++counts_.documents;
    const document from = {text.text, number, operand, text.line, ""};
    if (crew_ != nullptr) {
      hand_over(from, text.over_long);
      return;
    }
    std::string remark;
    if (answer(command_, from, text.over_long, remark)) {
      ++counts_.refused;
    }
    if (!remark.empty()) {
      report(name_ + remark);
    }
  }

  // Writes the answer to one document; true when it was refused. The remark is what is to be reported of it,
  // after the name of the input. Several threads ask at once, each with a command of its own.
  bool answer(document_command &command, document from, bool over_long, std::string &remark) const {
    const std::string title = titled_ ? title_of(from.number, from.line, name_) : "";
    from.title = title;
    if (over_long) {
      command.skip(from);
      remark = (split_ == split::line ? ": line " : ": block at line ") + std::to_string(from.line) +
               ": longer than 1 MiB, refused";
      return true;
    }
    if (command.read(from)) {
      return false;
    }
    const std::string reason = reasons_ ? command.reason(from) : "";
    if (!reason.empty()) {
      const std::string place =
          batch_ ? ": document " + std::to_string(from.number) + " (line " + std::to_string(from.line) + ")"
                 : "";
      remark = place + ": " + reason;
    }
    return true;
  }

  void hand_over(const document &from, bool over_long) {
    while (filling_ == nullptr && (filling_ = crew_->empty_chunk()) == nullptr) {
      collect(crew_->take());
    }
    filling_->add(from, over_long);
    if (filling_->is_full()) {
      crew_->submit(std::move(filling_));
    }
  }

  // Everything that was handed over is answered after this.
  void collect_all() {
    if (crew_ == nullptr) {
      return;
    }
    if (filling_ != nullptr && !filling_->is_empty()) {
      crew_->submit(std::move(filling_));
    }
    for (std::unique_ptr<chunk> next = crew_->take(); next != nullptr; next = crew_->take()) {
      collect(std::move(next));
    }
  }

  void collect(std::unique_ptr<chunk> answered) {
    const std::string_view answers = answered->answers.view();
    std::size_t written = 0;
    for (const chunk::remark &each : answered->remarks) {
      out_.put(answers.substr(written, each.end - written));
      written = each.end;
      report(name_ + each.text);
    }
    out_.write_through(answers.substr(written)); // not copied: another thread's answers are far away
    counts_.refused += answered->refused;
    crew_->give_back(std::move(answered));
  }

  // Among several files each keeps its place in the output.
  void report_unreadable(const std::string &operand, const input &from) {
    trouble_ = true;
    if (!batch_ && operands_.size() > 1) {
      const std::uint64_t number = ++counts_.documents;
      const std::string title = titled_ ? title_of(number, 1, from.name()) : "";
      command_.skip({"", number, operand, 1, title});
    }
    report(why_unreadable(from, reader_));
  }

  // What helps where everything was refused.
  std::string hint() const {
    const bool none_read = counts_.documents > 0 && counts_.refused == counts_.documents;
    return none_read ? advice(head_, split_) : "";
  }

  std::string title_of(std::uint64_t number, std::uint64_t line, const std::string &name) const {
    if (!batch_) {
      return operands_.size() > 1 || with_source_ ? name : "";
    }
    const std::string source = with_source_ ? " (" + name + ", line " + std::to_string(line) + ")" : "";
    return "document " + std::to_string(number) + source;
  }

  void report(const std::string &message) {
    progress_.erase();
    out_.flush(); // the output stands before what is said of it
    complain(message);
  }

  std::vector<std::string> operands_;
  split split_;
  bool batch_;
  bool titled_;
  bool with_source_;
  bool reasons_;
  output &out_;
  document_command &command_;
  document_reader reader_;
  progress progress_;
  tally counts_;
  std::string name_; // of the input that is read
  std::string head_; // the first bytes that were read
  bool trouble_ = false;
  bool none_found_ = false; // in some input, with --each zone
  std::unique_ptr<chunk> filling_;
  std::unique_ptr<crew> crew_; // goes first: its threads use what is above
};

} // namespace

split split_of(const arguments &asked) {
  const std::string_view word = asked.value("each");
  return word == "line"    ? split::line
         : word == "block" ? split::block
         : word == "zone"  ? split::zone
                           : split::whole;
}

int read_documents(const arguments &asked, output &out, document_command &command, std::size_t counted,
                   reading bytes, const command_maker &another) {
  unsigned jobs = 1;
  if (asked.has(JOBS_OPTION.name) && !read_jobs(asked.value(JOBS_OPTION.name), jobs)) {
    return complain_of_usage("--jobs " + in_quotes(asked.value(JOBS_OPTION.name)) +
                             " is not a number from 1 to 256");
  }
  return std::make_unique<document_run>(asked, out, command, counted, bytes, jobs, another)->run();
}

} // namespace varnel::cli
