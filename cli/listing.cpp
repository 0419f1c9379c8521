#include "listing.hpp"

#include "input.hpp"

#include "colours.hpp"
#include "quoting.hpp"

#include <algorithm>
#include <utility>

namespace varnel::cli {

std::string uppercase(std::string text) {
  for (char &c : text) {
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return text;
}

listing::listing(output &out, format how, row heading) : out_(out), format_(how), widths_(heading.size()) {
  if (format_ == format::csv) {
    put_csv(heading);
  } else if (format_ == format::table) {
    for (std::string &cell : heading) {
      cell = uppercase(std::move(cell));
    }
    keep(std::move(heading));
  }
}

void listing::add(row cells) {
  if (format_ == format::csv) {
    put_csv(cells);
  } else if (format_ == format::table) {
    keep(std::move(cells));
  }
}

void listing::put_csv(const row &cells) {
  for (const std::string &cell : cells) {
    out_.put(&cell == &cells.front() ? "" : ",");
    put_csv_cell(out_, cell);
  }
  out_.put('\n');
}

void listing::keep(row cells) {
  for (std::size_t column = 0; column < cells.size(); ++column) {
    cells[column] = printable(cells[column]);
    widths_[column] = std::max(widths_[column], printed_width(cells[column]));
  }
  rows_.push_back(std::move(cells));
}

void listing::finish() {
  const bool coloured = wants_colour(STANDARD_OUTPUT);
  if (rows_.size() < 2) {
    return;
  }
  for (const row &cells : rows_) {
    std::string line;
    for (std::size_t column = 0; column + 1 < cells.size(); ++column) {
      line += cells[column];
      line.append(widths_[column] + 2 - printed_width(cells[column]), ' ');
    }
    line += cells.back();
    put_coloured(out_, coloured && &cells == &rows_.front(), HEADING_COLOUR, line);
    out_.put('\n');
  }
}

int answer_words(const arguments &asked, output &out, listing::row columns,
                 const std::function<bool(const std::string &word, format how, listing &rows)> &answer) {
  const format how = format_of(asked);
  listing rows(out, how, std::move(columns));
  int code = EXIT_ALL_READ;
  const bool all_read = for_each_word(
      asked.operands, [&out] { out.flush(); },
      [&](const std::string &word) { code = answer(word, how, rows) ? code : EXIT_SOME_REFUSED; });
  rows.finish();
  return all_read ? code : EXIT_TROUBLE;
}

} // namespace varnel::cli
