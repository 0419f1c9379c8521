// Which way of reading an input would have read more of it.
#ifndef VARNEL_CLI_ADVICE_HPP
#define VARNEL_CLI_ADVICE_HPP

#include "document_reader.hpp"

#include <string>
#include <string_view>

namespace varnel::cli {

/**
 * "; try --each block", or whichever way reads the most documents of a text that, read the way that was
 * tried, gave none; an empty text when no way helps.
 */
std::string advice(std::string_view text, split tried);

} // namespace varnel::cli

#endif
