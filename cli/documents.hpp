// What commands that read documents have in common: files and standard input, one document each or many
// of them, with numbers, progress, complaints and exit codes. A command says what it makes of one document.
#ifndef VARNEL_CLI_DOCUMENTS_HPP
#define VARNEL_CLI_DOCUMENTS_HPP

#include "arguments.hpp"
#include "document_reader.hpp"
#include "output.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace varnel::cli {

inline constexpr option EACH_OPTION = {
    "each", "line|block|zone",
    "Read many documents from each file; line: the whole zone on one line;\n"
    "block: zones as printed, separated by empty lines;\n"
    "zone: zones as printed, anywhere in the text"};
inline constexpr option WITH_SOURCE_OPTION = {
    "with-source", "", "Print the file and the line at which each document begins (JSON and CSV)"};
inline constexpr option VERBOSE_OPTION = {
    "verbose", "",
    "With --each, say why each document was refused (default: when standard error\nis a terminal)"};

split split_of(const arguments &asked);

/** A document, and where it came from. */
struct document {
  std::string_view text;  /**< as document_text has it */
  std::uint64_t number;   /**< from 1, over all inputs */
  std::string_view file;  /**< the operand as it was typed; "-" is standard input */
  std::uint64_t line;     /**< its first line in the input, from 1 */
  std::string_view title; /**< the heading that its table has; none when empty */
};

class document_command {
public:
  virtual ~document_command() = default;

  /** Writes what comes before the first document, such as the header of CSV. */
  virtual void begin() {}

  /** Reads one document and writes the answer; false when it was refused. */
  virtual bool read(const document &from) = 0;

  /** Writes the answer that takes the place of a document that could not be read at all. */
  virtual void skip(const document &from) = 0;

  /**
   * Why read() has just refused the document, with nothing of its text; empty when there is nothing to
   * say. Without --each it is always asked.
   */
  virtual std::string reason(const document &from) = 0;

  /** What the summary of a batch adds to the counts of documents and refusals. */
  virtual std::string summary() const { return ""; }
};

inline constexpr option JOBS_OPTION = {
    "jobs", "NUMBER",
    "With --each, read with so many threads, 1 to 256 (default: 1); the output\n"
    "is the same"};

/** Makes another command of the same kind, whose answers go to `out`. */
using command_maker = std::function<std::unique_ptr<document_command>(output &out)>;

/**
 * Reads all documents that the arguments name and hands each to the command.
 *
 * @param counted how many bytes of each document matter to the command; no more are kept
 * @param bytes   whether every byte of a document has to stay where it is in the input
 * @param another makes the commands of further threads, where there may be some
 * @return        the exit code
 */
int read_documents(const arguments &asked, output &out, document_command &command,
                   std::size_t counted = document_reader::COUNTED, reading bytes = reading::plain,
                   const command_maker &another = nullptr);

} // namespace varnel::cli

#endif
