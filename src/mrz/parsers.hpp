// The layout parsers as the library itself calls them.
#ifndef VARNEL_SRC_MRZ_PARSERS_HPP
#define VARNEL_SRC_MRZ_PARSERS_HPP

#include <Varnel/defines.h>

namespace mrz {

// What is known of a zone: whether it may hold any characters, or comes from normalize_mrz(), which leaves
// MRZ characters only, so that they need not be looked at once more.
enum class characters { ANY, NORMALISED };

int read_td1(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context, characters known);
int read_td2(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context, characters known);
int read_td3(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context, characters known);
int read_visa(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context, characters known);

} // namespace mrz

#endif
