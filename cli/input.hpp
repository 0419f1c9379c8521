// An input of a command: a file of the command line, or standard input.
#ifndef VARNEL_CLI_INPUT_HPP
#define VARNEL_CLI_INPUT_HPP

#include "document_reader.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace varnel::cli {

/** Opened when it is made, closed when it goes, standard input excepted. */
class input {
public:
  /** @param operand the path of a file, or "-" for standard input */
  explicit input(const std::string &operand);
  ~input();
  input(const input &) = delete;
  input &operator=(const input &) = delete;

  /** The operand as messages name it. */
  const std::string &name() const { return name_; }

  bool is_terminal() const;

  /** As cli::would_wait(). */
  bool would_wait() const;

  /** As read_some(). Once it has failed it fails again, and complaint() says why. */
  std::ptrdiff_t read(char *into, std::size_t room);

  /** Why it cannot be read (any further), or an empty text. */
  const std::string &complaint() const { return complaint_; }

private:
  void fail(const std::string &reason);

  std::string name_;
  bool own_;
  int descriptor_;
  std::string complaint_;
};

/** Why the reader failed to read the input (any further). */
std::string why_unreadable(const input &from, const document_reader &reader);

/**
 * Hands over the operands one by one; for "-", the lines of standard input that are not empty, one by one.
 *
 * @param before_waiting called before more of standard input is waited for
 * @return false when standard input cannot be read, and that has been complained of
 */
bool for_each_word(const std::vector<std::string> &operands, const std::function<void()> &before_waiting,
                   const std::function<void(const std::string &)> &use);

} // namespace varnel::cli

#endif
