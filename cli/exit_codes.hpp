// How a run of varnel ends.
#ifndef VARNEL_CLI_EXIT_CODES_HPP
#define VARNEL_CLI_EXIT_CODES_HPP

namespace varnel::cli {

/** The exit codes, as --help states them. */
enum exit_code { EXIT_ALL_READ = 0, EXIT_SOME_REFUSED = 1, EXIT_TROUBLE = 2 };

} // namespace varnel::cli

#endif
