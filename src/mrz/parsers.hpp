// How zones are read, once it is known that they hold MRZ characters only and which layout they have.
#ifndef VARNEL_SRC_MRZ_PARSERS_HPP
#define VARNEL_SRC_MRZ_PARSERS_HPP

#include "layouts.hpp"
#include "zone_fields.hpp"

namespace mrz {

// Each reads a zone value by value, up to one that cannot be read. The values before that one are in their
// slots then.
progress read_td1(slots to, char *end, const char *zone, int reference_year);
progress read_td3(slots to, char *end, const char *zone, int reference_year);
progress read_two_lines(slots to, char *end, const char *zone, int reference_year, int width);

// Reads a zone into a record: ERR_OK or ERR_INVALID_FORMAT.
int read_zone(int layout, const char *zone, PARSE_RESULT *result, const CONTEXT *context);

// The same, of a zone of which only the length and the document code are known.
int check_and_read(int layout, const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context);

// What the layout parsers do: they check the arguments, and read a zone of one of the layouts from `First` to
// `Last`.
template <int First, int Last = First>
int parse_zone(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context) {
  if (zone == nullptr || result == nullptr || context == nullptr || length < 0) {
    return ERR_INVALID_ARGS;
  }
  for (int layout = First; layout <= Last; ++layout) {
    if (LAYOUTS[layout].fits(zone, length)) {
      return check_and_read(layout, zone, length, result, context);
    }
  }
  return ERR_INVALID_FORMAT;
}

} // namespace mrz

#endif
