#include "colours.hpp"

#include "platform.hpp"
#include "quoting.hpp"

#include <cstdlib>

namespace varnel::cli {

bool wants_colour(int descriptor) {
  const char *no_colour = std::getenv("NO_COLOR");
  const char *terminal = std::getenv("TERM");
  return is_terminal(descriptor) && (no_colour == nullptr || *no_colour == '\0') &&
         (terminal == nullptr || std::string_view(terminal) != "dumb");
}

void put_coloured(output &out, bool coloured, std::string_view colour, std::string_view text) {
  out.put(coloured ? colour : "");
  out.put(printable(text));
  out.put(coloured ? "\033[0m" : "");
}

} // namespace varnel::cli
