#include "progress.hpp"

#include "platform.hpp"

#include <algorithm>

namespace varnel::cli {

namespace {

constexpr std::chrono::milliseconds PAUSE{100};
constexpr std::uint64_t BAR_WIDTH = 24;

void show(std::string_view text) { write_all(STANDARD_ERROR, text); }

std::string sentence(const tally &counts) {
  return "varnel: " + std::to_string(counts.documents) +
         (counts.documents == 1 ? " document, " : " documents, ") + std::to_string(counts.refused) +
         " refused";
}

} // namespace

progress::progress(std::uint64_t total)
    : shown_(is_terminal(STANDARD_ERROR)), drawing_(shown_ && !is_terminal(STANDARD_OUTPUT)), total_(total),
      next_(std::chrono::steady_clock::now()) {}

void progress::draw(const tally &counts) {
  if (!drawing_ || std::chrono::steady_clock::now() < next_) {
    return;
  }
  show("\r" + line(counts) + "\033[K");
  drawn_ = true;
  next_ = std::chrono::steady_clock::now() + PAUSE;
}

// As much as the terminal has room for, so that it can be erased: a line that wraps cannot. The last column
// stays free, because some terminals wrap there.
std::string progress::line(const tally &counts) const {
  const std::size_t width = terminal_width(STANDARD_ERROR);
  const std::size_t room = width == 0 ? 79 : width - 1;
  const std::string said = sentence(counts);
  const std::string with_bar = said + bar();
  return with_bar.size() <= room ? with_bar : said.substr(0, room);
}

std::string progress::bar() const {
  if (total_ == 0) {
    return "";
  }
  const std::uint64_t done = std::min(done_, total_); // a file may grow while it is read
  const std::size_t filled = static_cast<std::size_t>(done * BAR_WIDTH / total_);
  return "  [" + std::string(filled, '#') + std::string(BAR_WIDTH - filled, '.') + "] " +
         std::to_string(done * 100 / total_) + "%";
}

void progress::erase() {
  if (drawn_) {
    show("\r\033[K");
    drawn_ = false;
  }
}

void progress::summarise(const tally &counts, std::string_view hint) {
  if (shown_) {
    erase();
    show(sentence(counts).append(hint) + "\n");
  }
}

} // namespace varnel::cli
