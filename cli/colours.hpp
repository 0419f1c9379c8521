// The colours of output for people.
#ifndef VARNEL_CLI_COLOURS_HPP
#define VARNEL_CLI_COLOURS_HPP

#include "output.hpp"

#include <string_view>

namespace varnel::cli {

inline constexpr std::string_view HEADING_COLOUR = "\033[1m";
inline constexpr std::string_view NAME_COLOUR = "\033[36m";
inline constexpr std::string_view REFUSED_COLOUR = "\033[31m";

/** The descriptor is a terminal that wants colour: NO_COLOR is unset or empty, TERM is not "dumb". */
bool wants_colour(int descriptor);

/** Text in a colour, or plain when there is to be none. Control characters in it are masked. */
void put_coloured(output &out, bool coloured, std::string_view colour, std::string_view text);

} // namespace varnel::cli

#endif
