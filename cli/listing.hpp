// Rows of a few cells each, as an aligned table or as CSV.
#ifndef VARNEL_CLI_LISTING_HPP
#define VARNEL_CLI_LISTING_HPP

#include "formats.hpp"
#include "output.hpp"

#include <string>
#include <vector>

namespace varnel::cli {

class listing {
public:
  using row = std::vector<std::string>;

  /**
   * @param heading the names of the columns, as CSV shows them; a table shows them in capitals
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

} // namespace varnel::cli

#endif
