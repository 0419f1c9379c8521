// The commands of varnel, each a function from options to an exit code.
#ifndef VARNEL_CLI_COMMANDS_HPP
#define VARNEL_CLI_COMMANDS_HPP

#include "options.hpp"
#include "output.hpp"

namespace varnel::cli {

int run_parse(const options &asked, output &out);
int run_element(const options &asked, output &out);
int run_soundex(const options &asked, output &out);

} // namespace varnel::cli

#endif
