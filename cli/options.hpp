// What the command line asks for.
#ifndef VARNEL_CLI_OPTIONS_HPP
#define VARNEL_CLI_OPTIONS_HPP

#include "document_reader.hpp"

#include <optional>
#include <string>
#include <vector>

namespace varnel::cli {

/** The exit codes, as --help states them. */
enum exit_code { EXIT_ALL_READ = 0, EXIT_SOME_REFUSED = 1, EXIT_TROUBLE = 2 };

/** What a person is told who typed a zone as an argument; nothing of it is repeated. */
inline constexpr char TEXT_IS_NO_ARGUMENT[] =
    "the text of a document is read from standard input: varnel parse < FILE";

enum class format { json, table, csv };

enum class command { parse, element, soundex };

struct options {
  command what = command::parse;
  std::optional<format> how; /**< absent: a table on a terminal, JSON otherwise */
  split each = split::whole;
  bool slots = false;
  std::vector<std::string> operands; /**< files, identifiers or names */
};

/** What reading the command line came to. */
struct command_line {
  std::optional<options> asked; /**< absent: there is nothing to do but to show `text` and leave */
  std::string text;             /**< help or version, for standard output */
  std::string complaint;        /**< what is wrong with the command line, for standard error */
  int code = EXIT_ALL_READ;
};

command_line read_command_line(int argc, const char *const *argv);

} // namespace varnel::cli

#endif
