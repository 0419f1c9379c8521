// The command line as it was typed, read by the descriptions of the commands.
#ifndef VARNEL_CLI_COMMAND_LINE_HPP
#define VARNEL_CLI_COMMAND_LINE_HPP

#include "commands.hpp"

#include <string>

namespace varnel::cli {

/** What reading the command line came to: one of the three. */
struct command_line {
  const command *asked = nullptr; /**< a command to run, with these arguments */
  arguments given;
  std::string text;      /**< help or version, for standard output */
  std::string complaint; /**< what is wrong with the command line; empty when nothing was asked at all */
};

command_line read_command_line(int argc, const char *const *argv);

/** The help of the whole command. */
std::string help_text();

} // namespace varnel::cli

#endif
