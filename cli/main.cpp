#include "commands.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>

#include <unistd.h>

namespace varnel::cli {

namespace {

int run(const options &asked, output &out) {
  switch (asked.what) {
  case command::parse:
    return run_parse(asked, out);
  case command::element:
    return run_element(asked, out);
  case command::soundex:
    return run_soundex(asked, out);
  }
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
  // A write to a closed pipe fails instead, whatever the caller made of the signal.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));

  const auto standard_output = std::make_unique<output>(STDOUT_FILENO);
  output &out = *standard_output;
  const command_line line = read_command_line(argc, argv);
  if (!line.complaint.empty()) {
    complain(line.complaint);
  }
  if (!line.asked) {
    out.put(line.text);
    return finish(line.code, out);
  }
  return finish(run(*line.asked, out), out);
}
