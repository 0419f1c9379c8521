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
    : shown_(is_terminal(STANDARD_ERROR)), total_(total), next_(std::chrono::steady_clock::now()) {}

void progress::draw(const tally &counts) {
  if (!shown_ || std::chrono::steady_clock::now() < next_) {
    return;
  }
  show("\r" + sentence(counts) + bar() + "\033[K");
  drawn_ = true;
  next_ = std::chrono::steady_clock::now() + PAUSE;
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
