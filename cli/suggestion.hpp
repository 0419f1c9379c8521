// "Did you mean": the known word that a misspelt one was probably meant to be.
#ifndef VARNEL_CLI_SUGGESTION_HPP
#define VARNEL_CLI_SUGGESTION_HPP

#include <string>
#include <string_view>
#include <vector>

namespace varnel::cli {

/** The nearest of the known words, or an empty text when none is near. */
std::string nearest(std::string_view word, const std::vector<std::string> &known);

/** "; did you mean 'parse'?", or an empty text when no known word is near. */
std::string did_you_mean(std::string_view word, const std::vector<std::string> &known);

} // namespace varnel::cli

#endif
