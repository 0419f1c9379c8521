// Text as JSON, as CSV and for the eyes of a person: the one place that escapes and masks.
#ifndef VARNEL_CLI_QUOTING_HPP
#define VARNEL_CLI_QUOTING_HPP

#include "output.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace varnel::cli {

/** The inside of a JSON string. A byte that is not part of well-formed UTF-8 becomes U+FFFD. */
void put_json_text(output &out, std::string_view text);

/** A CSV cell as RFC 4180 has it. */
void put_csv_cell(output &out, std::string_view text);

void put_number(output &out, std::uint64_t number);

/**
 * The text with a '?' for every character that could steer a terminal or hide what is said: control
 * characters, C1 included, in UTF-8 or as single bytes, and the marks that override the direction of writing.
 */
std::string printable(std::string_view text);

/** Columns that the text takes, one for each character. */
std::size_t printed_width(std::string_view text);

/**
 * An argument as a complaint shows it, in quotes. One that is most likely a zone, typed in the wrong
 * place, is never repeated, because what is said on standard error may end up in a log.
 */
std::string in_quotes(std::string_view argument);

/** The argument holds a filler, or is of nothing but letters and digits and as long as a line of a zone. */
bool looks_like_a_zone(std::string_view argument);

} // namespace varnel::cli

#endif
