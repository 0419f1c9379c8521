#include "output.hpp"

#include <cerrno>
#include <cstdlib>
#include <string>

#include <unistd.h>

namespace varnel::cli {

int write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

bool output::flush() {
  if (error_ == 0) {
    error_ = write_all(descriptor_, std::string_view(buffer_.data(), used_));
  }
  used_ = 0;
  return error_ == 0;
}

void output::put_long(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = bytes.size() < SIZE - used_ ? bytes.size() : SIZE - used_;
    std::memcpy(buffer_.data() + used_, bytes.data(), count);
    used_ += count;
    bytes.remove_prefix(count);
    if (used_ == SIZE) {
      flush();
    }
  }
}

bool wants_colour(int descriptor) {
  const char *no_colour = std::getenv("NO_COLOR");
  const char *terminal = std::getenv("TERM");
  return isatty(descriptor) == 1 && (no_colour == nullptr || *no_colour == '\0') &&
         (terminal == nullptr || std::string_view(terminal) != "dumb");
}

void complain(std::string_view message) {
  std::string line = "varnel: ";
  line += message;
  for (char &c : line) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) {
      c = '?';
    }
  }
  line += '\n';
  write_all(STDERR_FILENO, line); // nobody is left to tell when this fails
}

} // namespace varnel::cli
