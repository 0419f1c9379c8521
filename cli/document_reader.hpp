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
#include <string>
#include <string_view>
#include <vector>

namespace varnel::cli {

/**
 * How an input is cut into documents. A line ends with a line feed, a carriage return, or both together;
 * what ends it is no part of it. A line of nothing but spaces and tabs is empty.
 */
enum class split {
  whole, /**< the input is one document */
  line,  /**< every line is one, an empty line too */
  block, /**< every run of lines that are not empty is one */
  zone   /**< lines of the widths of a zone are one: three of 30, two of 36 or 44, the first of them with a
              document's letter and a state, or one of 72, 88 or 90 */
};

/** What stands between lines and documents, and what is kept of the bytes around them. */
enum class reading {
  /** Line feeds and carriage returns, spaces and tabs. A byte order mark is skipped, and the lines of a block
      are joined by line feeds. */
  plain,
  /** The same for lines. But blocks are separated by lines of nothing but white space as Unicode has it, be
      it a form feed, and every byte stays: offsets into a document are offsets into the input. */
  exact
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
  explicit document_reader(split how, std::size_t counted = COUNTED, reading bytes = reading::plain)
      : split_(how), exact_(bytes == reading::exact), held_(counted) {}

  /** Turns to a new input; whatever was left of the one before is forgotten. */
  void open(read_function read);

  /**
   * Gives the next document, or false after the last one. The text stays valid until the next call.
   *
   * Of zones the text is the characters that normalize_mrz() keeps, and what stands around them is passed
   * over. But lines that make no zone and hold a filler, up to the next empty line or zone, are given as a
   * document too: a damaged zone is not lost without a word.
   *
   * After a failed read the document it broke off is not given out, and failed() is true.
   */
  bool next(document_text &document);

  bool failed() const { return failed_; }

  /** The input begins with the byte order mark of UTF-16, and so failed. */
  bool is_utf16() const { return utf16_; }

private:
  bool fill();
  bool read_more();
  void skip_byte_order_mark();
  std::size_t line_end();
  void look_for_text(std::string_view bytes);
  bool take_line();
  bool next_whole(document_text &document);
  bool next_line(document_text &document);
  bool next_block(document_text &document);
  bool next_zone(document_text &document);
  void hold(std::string_view bytes);
  void keep(std::string_view bytes);
  bool has_whole_zone() const;
  bool is_one_line_late() const;
  void give_zone_up();
  void sort_line(std::uint64_t number);
  void give_zone(document_text &document);
  void leave_over(std::string_view lines, std::uint64_t first);
  bool give_left_over(document_text &document);
  void forget();
  void give(document_text &document, std::uint64_t length) const;

  split split_;
  bool exact_;
  read_function read_;
  bool at_start_ = false;
  bool ended_ = true;
  bool failed_ = false;
  bool utf16_ = false;

  std::size_t from_ = 0; // input read and not yet looked at: input_[from_, to_)
  std::size_t to_ = 0;
  std::size_t feed_ = 0;  // the first line feed in it, or to_; out of date when before from_
  bool after_cr_ = false; // a line feed that comes next belongs to the line before

  std::uint64_t line_ = 1;       // the line that is being read
  std::uint64_t first_line_ = 1; // the line with which the document in hand began
  std::uint64_t length_ = 0;     // bytes of the document in hand, held or not
  std::string_view in_place_;    // the line in hand where it was read as a whole, and is not held
  bool blank_ = true;            // the line that is being read has been blank so far
  std::string begun_;            // the first bytes of a white space character that goes on
  std::string_view line_ending_; // what ended the last line

  // Zones: the line that is being read, and the lines of one width that may become a zone. What is in hand
  // beside them are lines that make none.
  std::string kept_;
  std::string zone_;
  std::size_t zone_width_ = 0;
  std::size_t zone_lines_ = 0;
  std::uint64_t zone_line_ = 1;
  bool left_over_filler_ = false;

  // Filled with zeros from the start, so that the first document takes as much memory as the last.
  std::vector<char> held_;
  std::array<char, READ_SIZE> input_ = {};
};

} // namespace varnel::cli

#endif
