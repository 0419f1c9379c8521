// The format of the output, which every command lets one choose.
#ifndef VARNEL_CLI_FORMATS_HPP
#define VARNEL_CLI_FORMATS_HPP

#include "arguments.hpp"
#include "platform.hpp"

namespace varnel::cli {

enum class format { json, table, csv };

inline constexpr option FORMAT_OPTION = {
    "format", "json|table|csv",
    "How to print: json, table or csv (default: a table on a terminal, JSON\notherwise)"};

inline format format_of(const arguments &asked) {
  const std::string_view word = asked.value("format");
  return word == "json"                 ? format::json
         : word == "table"              ? format::table
         : word == "csv"                ? format::csv
         : is_terminal(STANDARD_OUTPUT) ? format::table
                                        : format::json;
}

} // namespace varnel::cli

#endif
