#include <Varnel/mrz/passport.h>

#include "parsers.hpp"

using namespace mrz;

static progress _parse_track2(slots to, char *end, const char *track, int reference_year) {
  progress done =
      append_dates_and_sex(to, end, track + two_line::BIRTH_DATE.start, reference_year, sex::LAST);
  if (!done.accepted) {
    return done;
  }
  done = append_country_code(to, FIELD_NATIONALITY, done.end, track + two_line::NATIONALITY.start);
  if (!done.accepted) {
    return done;
  }
  end = append_number(to, FIELD_DOCUMENT_NUMBER, done.end, cut(track, two_line::DOCUMENT_NUMBER),
                      fillers_only::EMPTY_THE_SLOT);
  end = append_number(to, FIELD_PERSONAL_NUMBER, end, cut(track, td3::PERSONAL_NUMBER),
                      fillers_only::LEAVE_THE_SLOT);
  return {append_document_type(to, end, TD3), true};
}

int mrz::read_td3(const char *zone, PARSE_RESULT *result, const CONTEXT *context) {
  return read_into(result, [=](slots to, char *end) {
    const progress done = append_issuer_and_names(to, end, zone, td3::LINE_LENGTH);
    return done.accepted ? _parse_track2(to, done.end, zone + td3::LINE_LENGTH, context->date.year) : done;
  });
}

int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  return parse_zone<VARNEL_LAYOUT_TD3>(input, i_len, result, context);
}
