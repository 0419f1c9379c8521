// Texts that are written as they stand, because nothing in them has to be escaped: copied and looked at a
// word at a time.
#ifndef VARNEL_CLI_PLAIN_TEXT_HPP
#define VARNEL_CLI_PLAIN_TEXT_HPP

#include "../src/character_set.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace varnel::cli {

/** The characters that stand for themselves within a JSON string, as nearly all do that a zone brings. */
using plain_json = character_set<range<' ', '!'>, range<'#', '['>, range<']', '~'>>;

/** The characters that a CSV cell may hold without quotes; there are others, which are no ASCII. */
using plain_csv = character_set<range<' ', '!'>, range<'#', '+'>, range<'-', '~'>>;

/** Writes texts one after the other to a place that is large enough, and says in the end whether all were
 * plain. */
template <class Plain> class plain_text {
public:
  /** The longest text; none that is longer counts as plain, and nothing is written of it. */
  static constexpr std::size_t LONGEST = 1024;

  explicit plain_text(char *begin) : end_(begin) {}

  /** What is known to be plain: the first `size` bytes of a piece, all of which may be written. */
  template <std::size_t Room> void put(const std::array<char, Room> &piece, std::size_t size) {
    std::memcpy(end_, piece.data(), Room);
    end_ += size;
  }

  void put(std::string_view text) {
    constexpr std::size_t word = words::SIZE;
    if (text.size() > LONGEST) {
      others_ = words::MARKS;
      return;
    }
    if (text.size() >= word) {
      for (std::size_t i = 0; i < text.size() - word; i += word) {
        look_at(copy<word>(text, i));
      }
      look_at(copy<word>(text, text.size() - word)); // may overlap the one before
    } else if (text.size() >= 4) {
      look_at(copy<4>(text, 0) << 32 | copy<4>(text, text.size() - 4));
    } else if (!text.empty()) {
      look_at(words::every(' ') << 24 | copy<1>(text, 0) << 16 | copy<1>(text, text.size() / 2) << 8 |
              copy<1>(text, text.size() - 1));
    }
    end_ += text.size();
  }

  bool is_plain() const { return (others_ & words::MARKS) == 0; }

  char *end() const { return end_; }

private:
  // Copies some characters, and returns them as a number of so many bytes.
  template <std::size_t Size> std::uint64_t copy(std::string_view text, std::size_t at) const {
    const char *const from = text.data() + at;
    std::memcpy(end_ + at, from, Size);
    if constexpr (Size == words::SIZE) {
      return words::load<std::uint64_t>(from);
    }
    std::uint64_t characters = 0;
    for (std::size_t i = 0; i < Size; ++i) {
      characters = characters << 8 | static_cast<unsigned char>(from[i]);
    }
    return characters;
  }

  void look_at(std::uint64_t characters) { others_ |= ~Plain::marks(characters); }

  char *end_;
  std::uint64_t others_ = 0; // marks of characters that are not plain
};

} // namespace varnel::cli

#endif
