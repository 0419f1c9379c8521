#include "parsers.hpp"

#include "character_sets.hpp"

namespace {

mrz::progress read_lines(int layout, mrz::slots to, char *end, const char *zone, int reference_year) {
  switch (layout) {
  case VARNEL_LAYOUT_TD1:
    return mrz::read_td1(to, end, zone, reference_year);
  case VARNEL_LAYOUT_TD3:
    return mrz::read_td3(to, end, zone, reference_year);
  default:
    return mrz::read_two_lines(to, end, zone, reference_year, mrz::LAYOUTS[layout].width);
  }
}

} // namespace

int mrz::read_zone(int layout, const char *zone, PARSE_RESULT *result, const CONTEXT *context) {
  char *const start = record::free_space(result);
  const slots to = {result->fields, start + record::free_size(result)};
  const progress done = read_lines(layout, to, start, zone, context->date.year);
  result->data_size += static_cast<int>(done.end - start);
  return done.accepted ? ERR_OK : ERR_INVALID_FORMAT;
}

int mrz::check_and_read(int layout, const char *zone, int length, PARSE_RESULT *result,
                        const CONTEXT *context) {
  return mrz_characters::covers(STRING{zone, length}) ? read_zone(layout, zone, result, context)
                                                      : ERR_INVALID_FORMAT;
}
