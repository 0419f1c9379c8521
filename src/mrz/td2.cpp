#include <Varnel/mrz/td2.h>

#include "parsers.hpp"

using namespace mrz;

static progress _parse_track2(slots to, char *end, const char *track, int reference_year) {
  end = append_number(to, FIELD_DOCUMENT_NUMBER, end, cut(track, two_line::DOCUMENT_NUMBER),
                      fillers_only::EMPTY_THE_SLOT);
  progress done = append_country_code(to, FIELD_NATIONALITY, end, track + two_line::NATIONALITY.start);
  if (!done.accepted) {
    return done;
  }
  done = append_dates_and_sex(to, done.end, track + two_line::BIRTH_DATE.start, reference_year,
                              sex::BETWEEN_THE_DATES);
  if (!done.accepted) {
    return done;
  }
  return {append_document_type(to, done.end, TD2), true};
}

// A visa is read as a card of two lines is, and typed like a card.
int mrz::read_two_lines(const char *zone, int width, PARSE_RESULT *result, const CONTEXT *context) {
  return read_into(result, [=](slots to, char *end) {
    const progress done = append_issuer_and_names(to, end, zone, width);
    return done.accepted ? _parse_track2(to, done.end, zone + width, context->date.year) : done;
  });
}

int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return parse_zone<VARNEL_LAYOUT_TD2>(input, i_len, result, context);
}
