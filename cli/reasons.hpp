// Why a text is no machine-readable zone, in words that hold nothing of the text.
#ifndef VARNEL_CLI_REASONS_HPP
#define VARNEL_CLI_REASONS_HPP

#include <string>
#include <string_view>

namespace varnel::cli {

/** The reason why varnel_parse_mrz() refused the text. */
std::string reason_of_refusal(std::string_view text);

} // namespace varnel::cli

#endif
