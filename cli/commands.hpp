// The commands of varnel. Each is described and run in a file of its own; COMMANDS lists them.
#ifndef VARNEL_CLI_COMMANDS_HPP
#define VARNEL_CLI_COMMANDS_HPP

#include "arguments.hpp"
#include "exit_codes.hpp"
#include "output.hpp"

#include <array>
#include <string_view>

namespace varnel::cli {

struct command {
  std::string_view name;
  std::string_view summary;
  std::string_view operand; /**< such as FILE; empty when the command takes none */
  std::string_view operand_help;
  bool needs_operand;                              /**< at least one */
  std::array<option, 10> options;                  /**< up to the first without a name */
  std::string_view examples;                       /**< lines of the help */
  int (*run)(const arguments &asked, output &out); /**< gives the exit code */
};

extern const command PARSE_COMMAND;
extern const command ELEMENT_COMMAND;
extern const command SOUNDEX_COMMAND;
#ifdef VARNEL_CLI_DOCUMENTS
extern const command INSPECT_COMMAND;
extern const command BARCODE_COMMAND;
extern const command COMPOSE_COMMAND;
extern const command SPECIMEN_COMMAND;
#endif

/** In the order in which the help lists them. */
inline constexpr const command *COMMANDS[] = {&PARSE_COMMAND,
#ifdef VARNEL_CLI_DOCUMENTS
                                              &INSPECT_COMMAND, &BARCODE_COMMAND,
                                              &COMPOSE_COMMAND, &SPECIMEN_COMMAND,
#endif
                                              &ELEMENT_COMMAND, &SOUNDEX_COMMAND};

} // namespace varnel::cli

#endif
