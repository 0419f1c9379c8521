#include "complaints.hpp"

#include "exit_codes.hpp"
#include "platform.hpp"
#include "quoting.hpp"

namespace varnel::cli {

void complain(std::string_view message) {
  // Nobody is left to hear of it when this fails.
  write_all(STANDARD_ERROR, "varnel: " + printable(message) + "\n");
}

int complain_of_usage(const std::string &message) {
  complain(message + " (see varnel --help)");
  return EXIT_TROUBLE;
}

} // namespace varnel::cli
