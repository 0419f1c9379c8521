#include "parsers.hpp"

#include "character_sets.hpp"

int mrz::read_zone(int layout, const char *zone, PARSE_RESULT *result, const CONTEXT *context) {
  switch (layout) {
  case VARNEL_LAYOUT_TD1:
    return read_td1(zone, result, context);
  case VARNEL_LAYOUT_TD3:
    return read_td3(zone, result, context);
  default:
    return read_two_lines(zone, LAYOUTS[layout].width, result, context);
  }
}

int mrz::check_and_read(int layout, const char *zone, int length, PARSE_RESULT *result,
                        const CONTEXT *context) {
  return mrz_characters::covers_long(STRING{zone, length}) ? read_zone(layout, zone, result, context)
                                                           : ERR_INVALID_FORMAT;
}
