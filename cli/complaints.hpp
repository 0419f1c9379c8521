// What is said on standard error.
#ifndef VARNEL_CLI_COMPLAINTS_HPP
#define VARNEL_CLI_COMPLAINTS_HPP

#include <string>
#include <string_view>

namespace varnel::cli {

/** The complaint about a zone that was typed as an argument; nothing of it is repeated. */
inline constexpr char TEXT_IS_NO_ARGUMENT[] =
    "the text of a document is read from standard input: varnel parse < FILE";

/** Writes one line to standard error: "varnel: " and the message, control characters masked. */
void complain(std::string_view message);

/** Complains of the command line and points to the help; returns the exit code for it. */
int complain_of_usage(const std::string &message);

} // namespace varnel::cli

#endif
