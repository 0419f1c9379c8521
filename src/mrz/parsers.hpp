// How zones are read, once it is known that they hold MRZ characters only and which layout they have.
#ifndef VARNEL_SRC_MRZ_PARSERS_HPP
#define VARNEL_SRC_MRZ_PARSERS_HPP

#include "layouts.hpp"
#include "zone_fields.hpp"

namespace mrz {

// Each reads a zone into a record: ERR_OK, or ERR_INVALID_FORMAT when a value cannot be read. The values
// before that one are in the record then.
int read_td1(const char *zone, PARSE_RESULT *result, const CONTEXT *context);
int read_td3(const char *zone, PARSE_RESULT *result, const CONTEXT *context);
int read_two_lines(const char *zone, int width, PARSE_RESULT *result, const CONTEXT *context);

// By the number of the layout.
int read_zone(int layout, const char *zone, PARSE_RESULT *result, const CONTEXT *context);

// The same, of a zone of which only the length and the document code are known.
int check_and_read(int layout, const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context);

// Lets `read_lines` write to the record's slots and to its text, from the end of that on.
template <class ReadLines> int read_into(PARSE_RESULT *result, ReadLines read_lines) {
  little_room little;
  char *const start =
      record::free_size(result) > MOST_TEXT ? record::free_space(result) : little.lend(result);
  const progress done = read_lines(slots{result->fields}, start);
  if (little.is_lent(start)) {
    little.move_to(result, done.end);
  } else {
    result->data_size += static_cast<int>(done.end - start);
  }
  return done.accepted ? ERR_OK : ERR_INVALID_FORMAT;
}

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
