#include "command_line.hpp"
#include "complaints.hpp"
#include "platform.hpp"

#include <cerrno>
#include <cstring>
#include <memory>

namespace varnel::cli {

namespace {

int run(const command_line &line, output &out) {
  if (line.asked != nullptr) {
    return line.asked->run(line.given, out);
  }
  if (!line.text.empty()) {
    out.put(line.text);
    return EXIT_ALL_READ;
  }
  if (!line.complaint.empty()) {
    return complain_of_usage(line.complaint);
  }
  write_all(STANDARD_ERROR, help_text());
  return EXIT_TROUBLE;
}

// The last of the output goes out. A closed pipe is no trouble: its reader has seen enough.
int finish(int code, output &out) {
  out.flush();
  if (out.error() == 0 || out.error() == EPIPE) {
    return code;
  }
  complain(std::string("standard output: ") + std::strerror(out.error()));
  return EXIT_TROUBLE;
}

} // namespace

} // namespace varnel::cli

int main(int argc, char **argv) {
  using namespace varnel::cli;
  prepare_process();
  const auto standard_output = std::make_unique<output>(STANDARD_OUTPUT);
  const int code = finish(run(read_command_line(argc, argv), *standard_output), *standard_output);
  end_as_signalled();
  return code;
}
