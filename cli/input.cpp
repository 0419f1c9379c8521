#include "input.hpp"

#include "complaints.hpp"
#include "document_reader.hpp"
#include "platform.hpp"
#include "quoting.hpp"

#include <cerrno>
#include <cstring>
#include <memory>

namespace varnel::cli {

input::input(const std::string &operand)
    : name_(operand == "-"    ? "standard input"
            : operand.empty() ? "''"
                              : operand),
      own_(operand != "-"), descriptor_(own_ ? open_file(operand) : STANDARD_INPUT) {
  if (descriptor_ < 0) {
    fail(std::strerror(errno));
    if (looks_like_a_zone(operand)) {
      complaint_ = std::string("no such file; ") + TEXT_IS_NO_ARGUMENT;
    }
  } else if (is_output_file(descriptor_)) {
    fail("this input file is the output file");
  }
}

input::~input() {
  if (own_ && descriptor_ >= 0) {
    close_file(descriptor_);
  }
}

void input::fail(const std::string &reason) { complaint_ = name_ + ": " + reason; }

bool input::is_terminal() const { return cli::is_terminal(descriptor_); }

bool input::would_wait() const { return cli::would_wait(descriptor_); }

std::ptrdiff_t input::read(char *into, std::size_t room) {
  if (!complaint_.empty()) {
    return -1;
  }
  const std::ptrdiff_t count = read_some(descriptor_, into, room);
  if (count < 0 && !stopped()) {
    fail(std::strerror(errno));
  }
  return count;
}

std::string why_unreadable(const input &from, const document_reader &reader) {
  return reader.is_utf16() ? from.name() + ": UTF-16 text, which is not read; convert it to UTF-8 first"
                           : from.complaint();
}

bool for_each_word(const std::vector<std::string> &operands, const std::function<void()> &before_waiting,
                   const std::function<void(const std::string &)> &use) {
  const auto reader = std::make_unique<document_reader>(split::line);
  bool all_read = true;
  for (const std::string &operand : operands) {
    if (stopped()) {
      break;
    }
    if (operand != "-") {
      use(operand);
      continue;
    }
    input from(operand);
    reader->open([&](char *into, std::size_t room) {
      before_waiting();
      return from.read(into, room);
    });
    for (document_text line; !stopped() && reader->next(line);) {
      if (!line.text.empty()) {
        use(std::string(line.text));
      }
    }
    if (reader->failed() && !stopped()) {
      complain(why_unreadable(from, *reader));
      all_read = false;
    }
  }
  return all_read;
}

} // namespace varnel::cli
