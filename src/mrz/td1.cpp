#include <Varnel/mrz/td1.h>

#include "parsers.hpp"

using namespace mrz;

static progress _parse_track1(slots to, char *end, const char *track) {
  const progress done = append_country_code(to, FIELD_COUNTRY_CODE, end, track + zone::ISSUING_STATE.start);
  if (!done.accepted) {
    return done;
  }
  return {append_number(to, FIELD_DOCUMENT_NUMBER, done.end, cut(track, td1::DOCUMENT_NUMBER),
                        fillers_only::EMPTY_THE_SLOT),
          true};
}

static progress _parse_track2(slots to, char *end, const char *track, int reference_year) {
  const progress done =
      append_dates_and_sex(to, end, track + td1::BIRTH_DATE.start, reference_year, sex::BETWEEN_THE_DATES);
  if (!done.accepted) {
    return done;
  }
  return append_country_code(to, FIELD_NATIONALITY, done.end, track + td1::NATIONALITY.start);
}

static progress _parse_track3(slots to, char *end, const char *track) {
  const progress done = append_names(to, end, STRING{track, td1::LINE_LENGTH});
  if (!done.accepted) {
    return done;
  }
  return {append_document_type(to, done.end, TD1), true};
}

int mrz::read_td1(const char *zone, PARSE_RESULT *result, const CONTEXT *context) {
  return read_into(result, [=](slots to, char *end) {
    progress done = _parse_track1(to, end, zone);
    if (done.accepted) {
      done = _parse_track2(to, done.end, zone + td1::LINE_LENGTH, context->date.year);
    }
    return done.accepted ? _parse_track3(to, done.end, zone + 2 * td1::LINE_LENGTH) : done;
  });
}

int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return parse_zone<VARNEL_LAYOUT_TD1>(input, i_len, result, context);
}
