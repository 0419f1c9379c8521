// Texts that are written as they stand, because nothing in them has to be escaped: looked at all at once, and
// copied in pieces of one size.
#ifndef VARNEL_CLI_PLAIN_TEXT_HPP
#define VARNEL_CLI_PLAIN_TEXT_HPP

#include "../src/character_set.hpp"

#include <Varnel/defines.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace varnel::cli {

/** The characters that stand for themselves within a JSON string, as nearly all do that a zone brings. */
using plain_json = character_set<range<' ', '!'>, range<'#', '['>, range<']', '~'>>;

/** The characters that a CSV cell may hold without quotes; there are others, which are no ASCII. */
using plain_csv = character_set<range<' ', '!'>, range<'#', '+'>, range<'-', '~'>>;

template <class Plain> bool is_plain(std::string_view text) {
  return Plain::covers({text.data(), static_cast<int>(text.size())});
}

/** Where a text is copied to, and no more than this many bytes after it, may be scribbled on. */
constexpr std::size_t PIECE = words::WIDE_SIZE;

/** The texts of records that lie in more bytes than this are not looked at all at once. */
constexpr int LONGEST_TEXTS = 1024;

/**
 * Whether all texts of a record are plain, and each can be copied in pieces: where they lie in the lent
 * buffer, NULs between them, and as much follows them there as a piece may read too far.
 */
template <class Plain> bool has_plain_texts(const PARSE_RESULT &record) {
  constexpr int piece = static_cast<int>(PIECE);
  if (record.data_size > LONGEST_TEXTS || record.data_size > record.buffer_size - piece) {
    return false;
  }
  words::wide others = {};
  for (int at = 0; at < record.data_size; at += piece) {
    const words::wide word = words::load<words::wide>(record.buffer + at);
    others |= ~(Plain::marks(word) | words::in_range(word, '\0', '\0'));
  }
  return !words::any(others);
}

/** Copies a text in pieces, and returns where it ends. */
inline char *copy_in_pieces(std::string_view text, char *to) {
  for (std::size_t at = 0; at < text.size(); at += PIECE) {
    std::memcpy(to + at, text.data() + at, PIECE);
  }
  return to + text.size();
}

} // namespace varnel::cli

#endif
