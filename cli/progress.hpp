// How far a batch has come, on standard error, for a person who watches.
#ifndef VARNEL_CLI_PROGRESS_HPP
#define VARNEL_CLI_PROGRESS_HPP

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnel::cli {

/** Counts of documents so far. */
struct tally {
  std::uint64_t documents = 0;
  std::uint64_t refused = 0;
};

/**
 * Silent unless standard error is a terminal. Where standard output is one too, documents show how far it
 * is, and only the summary is written.
 */
class progress {
public:
  /** @param total bytes of all inputs together, or 0 when that is not known */
  explicit progress(std::uint64_t total);

  void advance(std::uint64_t bytes) { done_ += bytes; }

  /** Shows the state of things, a few times a second at most. */
  void draw(const tally &counts);

  /** Clears the line, so that something else can be written to the terminal. */
  void erase();

  /** Leaves one line that says what was read, and a hint after it when there is one. */
  void summarise(const tally &counts, std::string_view hint);

private:
  std::string line(const tally &counts) const;
  std::string bar() const;

  bool shown_;
  bool drawing_;
  bool drawn_ = false;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
  std::chrono::steady_clock::time_point next_;
};

} // namespace varnel::cli

#endif
