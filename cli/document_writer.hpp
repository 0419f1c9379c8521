// Writes what was read of documents: JSON lines, CSV rows or tables for people.
#ifndef VARNEL_CLI_DOCUMENT_WRITER_HPP
#define VARNEL_CLI_DOCUMENT_WRITER_HPP

#include "options.hpp"
#include "output.hpp"

#include <Varnel/Varnel.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnel::cli {

class document_writer {
public:
  document_writer(output &out, format how, bool with_slots, bool coloured);

  /** What stands before the first document: the header row of CSV. */
  void begin();

  /** Whether titles are shown at all: only tables have any. */
  bool shows_titles() const { return format_ == format::table; }

  /**
   * One document that was read.
   *
   * @param number the document's number, from 1
   * @param title  the heading of its table, which no other format shows; none when empty
   */
  void accepted(std::uint64_t number, const PARSE_RESULT &result, std::string_view title);

  /** One document that was refused. */
  void refused(std::uint64_t number, std::string_view title);

private:
  void json(const PARSE_RESULT &result);
  void json_slots(const PARSE_RESULT &result);
  void csv(std::uint64_t number, const PARSE_RESULT &result);
  void csv_slots(const PARSE_RESULT &result);
  void table(const PARSE_RESULT &result);
  void table_row(std::string_view name, std::string_view value);
  void heading(std::string_view title);

  output &out_;
  format format_;
  bool with_slots_;
  bool coloured_;
  bool first_table_ = true;
  std::array<std::string, VARNEL_VALUE_COUNT> json_leads_; // what stands before each value of an object
};

} // namespace varnel::cli

#endif
