#include <Varnel/Varnel.h>

#include "mrz/layouts.hpp"
#include "mrz/parsers.hpp"
#include "utf8.hpp"
#include "view.hpp"

const double VarnelVersionNumber = 1.0;
const unsigned char VarnelVersionString[] = "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n";

namespace {

// The reference date is fixed, not today: the same zone gives the same birth year in every year.
constexpr CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

// Offers the zone to the layouts in order; the first that accepts wins. The record is not cleared in
// between: slots that a refusing parser wrote before it refused stay.
int parse_zone(const char *zone, int length, PARSE_RESULT *result) {
  constexpr auto known = mrz::characters::NORMALISED;
  const bool accepted = mrz::read_td1(zone, length, result, &REFERENCE, known) == ERR_OK ||
                        mrz::read_td2(zone, length, result, &REFERENCE, known) == ERR_OK ||
                        mrz::read_td3(zone, length, result, &REFERENCE, known) == ERR_OK ||
                        mrz::read_visa(zone, length, result, &REFERENCE, known) == ERR_OK;
  return accepted ? ERR_OK : ERR_INVALID_FORMAT;
}

struct normalised_zone {
  char text[VARNEL_EXAMINED_MAX + 1];
  int length;
};

int read_text(const char *text, int length, PARSE_RESULT *result, char *buffer, int buffer_size,
              normalised_zone &zone) {
  if (result_init(result, buffer, buffer_size) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  if (normalize_mrz(text, length, zone.text, sizeof zone.text, &zone.length) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  return parse_zone(zone.text, zone.length, result);
}

} // namespace

int varnel_utf16_length(const char *text, size_t size) {
  if (text == nullptr) {
    return 0;
  }
  const int prefix = size < VARNEL_EXAMINED_MAX ? static_cast<int>(size) : VARNEL_EXAMINED_MAX;
  if (utf8::ascii_characters::covers(STRING{text, prefix})) {
    return prefix; // the usual text: a unit for every byte
  }
  int units = 0;
  for (size_t at = 0; at < size && units < VARNEL_EXAMINED_MAX;) {
    const int bytes = utf8::sequence_length(text + at, size - at);
    units += bytes == 4 ? 2 : 1; // beyond the basic plane: a surrogate pair
    at += static_cast<size_t>(bytes);
  }
  return units < VARNEL_EXAMINED_MAX ? units : VARNEL_EXAMINED_MAX;
}

int varnel_parse_mrz(const char *text, int length, PARSE_RESULT *result, char *buffer, int buffer_size) {
  normalised_zone zone;
  return read_text(text, length, result, buffer, buffer_size, zone);
}

int varnel_read(const char *text, size_t size, varnel_document *document) {
  if (document == nullptr) {
    return ERR_INVALID_ARGS;
  }
  normalised_zone zone;
  const int status = read_text(text, varnel_utf16_length(text, size), &document->record, document->text,
                               sizeof document->text, zone);
  document->layout = VARNEL_LAYOUT_NONE;
  if (status == ERR_OK) {
    document->layout = mrz::layout_of(zone.text, zone.length);
  } else {
    result_clear(&document->record); // of what refusing parsers wrote
  }
  document->layout_name = mrz::LAYOUTS[document->layout].name;
  varnel_export(&document->record, document->values);
  return status;
}
