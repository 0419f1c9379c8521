// Cuts a stream of bytes into the texts of documents, in fixed memory.
//
// The reader knows nothing of files, options or output: it is given a function to read with. It never
// holds more than one read's worth of input and the part of one document that counts.
#ifndef VARNEL_CLI_DOCUMENT_READER_HPP
#define VARNEL_CLI_DOCUMENT_READER_HPP

#include <Varnel/Varnel.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace varnel::cli {

/** How an input is cut into documents. */
enum class split {
  whole, /**< the input is one document */
  line,  /**< every line is one, an empty line too */
  block  /**< every run of lines that are not blank is one; a line of blanks, tabs and CR is blank */
};

/** One document as it stands in the input. */
struct document_text {
  /** The bytes that may count for the result: no more of its first ones than are kept. */
  std::string_view text;
  /** The number of its first line in the input, from 1. */
  std::uint64_t line = 0;
  /** Longer than document_reader::LONGEST; its text is empty. */
  bool over_long = false;
};

class document_reader {
public:
  /** What varnel_parse_mrz() may look at: 1023 UTF-16 units, each of no more than three bytes of UTF-8. */
  static constexpr std::size_t COUNTED = std::size_t{3} * VARNEL_EXAMINED_MAX;
  /** A line or block of more bytes than this (1 MiB) is not a document. */
  static constexpr std::uint64_t LONGEST = std::uint64_t{1} << 20;
  /** The most that is read at once. */
  static constexpr std::size_t READ_SIZE = std::size_t{1} << 16;

  /**
   * Reads up to `room` bytes to `into`; returns their count, 0 at the end of the input, or a negative
   * number when the input cannot be read (any further).
   */
  using read_function = std::function<std::ptrdiff_t(char *into, std::size_t room)>;

  /** @param counted how many bytes of a document are kept, its first ones */
  explicit document_reader(split how, std::size_t counted = COUNTED) : split_(how), held_(counted) {}

  /** Turns to a new input; whatever was left of the one before is forgotten. */
  void open(read_function read);

  /**
   * Gives the next document, or false after the last one. The text stays valid until the next call.
   * After a failed read the document it broke off is not given out, and failed() is true.
   */
  bool next(document_text &document);

  bool failed() const { return failed_; }

private:
  bool fill();
  bool next_whole(document_text &document);
  bool next_line(document_text &document);
  bool next_block(document_text &document);
  bool take_line();
  void hold(std::string_view bytes);
  void forget();
  void give(document_text &document, std::uint64_t length) const;

  split split_;
  read_function read_;
  bool ended_ = true;
  bool failed_ = false;

  std::size_t from_ = 0; // input read and not yet looked at: input_[from_, to_)
  std::size_t to_ = 0;

  std::uint64_t line_ = 1;       // the line that is being read
  std::uint64_t first_line_ = 1; // the line with which the document in hand began
  std::uint64_t length_ = 0;     // bytes of the document in hand, held or not
  bool blank_ = true;            // the line that is being read has been blank so far

  // Filled with zeros from the start, so that the first document takes as much memory as the last.
  std::vector<char> held_;
  std::array<char, READ_SIZE> input_ = {};
};

} // namespace varnel::cli

#endif
