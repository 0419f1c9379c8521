// Rows of a few cells each, as an aligned table or as CSV.
#ifndef VARNEL_CLI_LISTING_HPP
#define VARNEL_CLI_LISTING_HPP

#include "commands.hpp"
#include "formats.hpp"
#include "output.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnel::cli {

/** With the letters a to z made uppercase, whatever the locale. */
std::string uppercase(std::string text);

class listing {
public:
  using row = std::vector<std::string>;

  /**
   * @param heading the names of the columns, as CSV shows them; a table shows them in uppercase
   */
  listing(output &out, format how, row heading);

  /** CSV rows are written at once; those of a table are kept until the widths of all are known. */
  void add(row cells);

  /** Writes the table, unless it has no rows. */
  void finish();

private:
  void put_csv(const row &cells);
  void keep(row cells);

  output &out_;
  format format_;
  std::vector<row> rows_;
  std::vector<std::size_t> widths_;
};

/**
 * Answers the operands one by one, or the lines of standard input for "-": as rows of a listing, or as
 * objects of JSON, one a line.
 *
 * @param columns the heading of the listing
 * @param answer  puts the answer to a word into the listing, or as JSON to the output; false where there is
 * none
 * @return the exit code
 */
int answer_words(const arguments &asked, output &out, listing::row columns,
                 const std::function<bool(const std::string &word, format how, listing &rows)> &answer);

} // namespace varnel::cli

#endif
