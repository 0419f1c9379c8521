// The frame of what is written of documents, alike for every command: headings, numbers, sources, and the
// place of a document that was refused.
#ifndef VARNEL_CLI_DOCUMENT_ROWS_HPP
#define VARNEL_CLI_DOCUMENT_ROWS_HPP

#include "arguments.hpp"
#include "documents.hpp"
#include "formats.hpp"
#include "output.hpp"

#include <string_view>

namespace varnel::cli {

class document_rows {
public:
  /** @param with_source whether JSON and CSV name the file and the line of each document */
  document_rows(output &out, format how, bool with_source, bool coloured)
      : out_(out), format_(how), with_source_(with_source), coloured_(coloured) {}

  /** As the options have it, for standard output. */
  document_rows(output &out, const arguments &asked);

  format how() const { return format_; }
  bool with_source() const { return with_source_; }

  /** The first cells of the CSV header; the command's own, each after a comma, and the line feed follow. */
  void begin_header();

  /** JSON: the opening brace and the source, with a comma; the command's own members follow. */
  void begin_object(const document &from);

  /** JSON: a whole object with at least one member, in its text form, and the line feed. */
  void object(const document &from, std::string_view json);

  /** The first cells of a CSV row; the command's own, each after a comma, and the line feed follow. */
  void begin_row(const document &from);

  /** An empty line before every table but the first, and the document's title. */
  void begin_table(const document &from);

  /** A line of a table. @param width columns for the name */
  void table_row(std::string_view name, std::string_view value, std::size_t width);

  /**
   * What stands in the place of a document that was refused or could not be read.
   *
   * @param cells the CSV cells that the command writes of a document
   */
  void refused(const document &from, std::size_t cells);

private:
  output &out_;
  format format_;
  bool with_source_;
  bool coloured_;
};

} // namespace varnel::cli

#endif
