// What the command asks of the system: files, terminals, signals. The one place that differs between
// POSIX and Windows.
#ifndef VARNEL_CLI_PLATFORM_HPP
#define VARNEL_CLI_PLATFORM_HPP

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnel::cli {

inline constexpr int STANDARD_INPUT = 0;
inline constexpr int STANDARD_OUTPUT = 1;
inline constexpr int STANDARD_ERROR = 2;

/**
 * Prepares standard streams and signals, once, before anything else: a write to a closed pipe fails
 * instead of ending the program, and SIGINT and SIGTERM only ask it to stop(ped()). A signal that the
 * caller ignores stays ignored; the second of a kind ends the program at once.
 */
void prepare_process();

/** A signal has asked the program to stop. Whoever reads or writes records looks between them. */
bool stopped();

/** Ends the program the way the signal would have; returns when there was none. */
void end_as_signalled();

bool is_terminal(int descriptor);

/** The columns of the terminal, or 0 when they are not known. */
std::size_t terminal_width(int descriptor);

bool file_exists(const std::string &path);

/** Opens a file to read its bytes as they are; -1 and errno when that fails. */
int open_file(const std::string &path);
void close_file(int descriptor);

/** The size of a regular file, of standard input for "-"; 0 for anything else. */
std::uint64_t file_size(const std::string &operand);

/** Standard output goes to the very file that is read, and more of it would be read. */
bool is_output_file(int descriptor);

/**
 * Reads up to `room` bytes, waiting until there are some, also where the descriptor does not block.
 * Returns their count, 0 at the end, or -1 and errno: EINTR when stopped() became true.
 */
std::ptrdiff_t read_some(int descriptor, char *into, std::size_t room);

/** Whether reading would have to wait, as far as that can be known; regular files never do. */
bool would_wait(int descriptor);

/** Writes all of the bytes, waiting where that is needed; returns 0, or the errno of the failed write. */
int write_all(int descriptor, std::string_view bytes);

} // namespace varnel::cli

#endif
