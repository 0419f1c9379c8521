// Why a text is no machine-readable zone, in words that hold nothing of the text.
#ifndef VARNEL_CLI_REASONS_HPP
#define VARNEL_CLI_REASONS_HPP

#include "document_reader.hpp"

#include <string>
#include <string_view>

namespace varnel::cli {

/**
 * The reason why varnel_parse_mrz() refused the text: the fields at fault, with line and column of the zone
 * after clean-up, both from 1; or its length. A text that was read as a whole comes with advice.
 */
std::string reason_of_refusal(std::string_view text, split read_by);

} // namespace varnel::cli

#endif
