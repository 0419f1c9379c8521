#include <Varnel/Varnel.h>

#include "mrz/parsers.hpp"
#include "utf8.hpp"
#include "view.hpp"

const double VarnelVersionNumber = 1.0;
const unsigned char VarnelVersionString[] = "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n";

namespace {

// The reference date is fixed, not today: the same zone gives the same birth year in every year.
constexpr CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

struct normalised_zone {
  char text[VARNEL_EXAMINED_MAX + 1];
  int length;
};

// Only one layout has a zone's length and code, so that only one can accept it, or write to the record before
// it refuses. Its characters need not be looked at once more.
int read_text(const char *text, int length, PARSE_RESULT *result, char *buffer, int buffer_size,
              int &layout) {
  normalised_zone zone;
  if (result_init(result, buffer, buffer_size) != ERR_OK ||
      normalize_mrz(text, length, zone.text, sizeof zone.text, &zone.length) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  layout = mrz::layout_of(zone.text, zone.length);
  if (layout == VARNEL_LAYOUT_NONE) {
    return ERR_INVALID_FORMAT;
  }
  return mrz::read_zone(layout, zone.text, result, &REFERENCE);
}

// Of any text.
VARNEL_SELDOM int utf16_length(const char *text, size_t size) {
  int units = 0;
  for (size_t at = 0; at < size && units < VARNEL_EXAMINED_MAX;) {
    const int bytes = utf8::sequence_length(text + at, size - at);
    units += bytes == 4 ? 2 : 1; // beyond the basic plane: a surrogate pair
    at += static_cast<size_t>(bytes);
  }
  return units < VARNEL_EXAMINED_MAX ? units : VARNEL_EXAMINED_MAX;
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
  return utf16_length(text, size);
}

int varnel_parse_mrz(const char *text, int length, PARSE_RESULT *result, char *buffer, int buffer_size) {
  int layout = VARNEL_LAYOUT_NONE;
  return read_text(text, length, result, buffer, buffer_size, layout);
}

int varnel_read(const char *text, size_t size, varnel_document *document) {
  if (document == nullptr) {
    return ERR_INVALID_ARGS;
  }
  document->layout = VARNEL_LAYOUT_NONE;
  const int status = read_text(text, varnel_utf16_length(text, size), &document->record, document->text,
                               sizeof document->text, document->layout);
  if (status != ERR_OK) {
    document->layout = VARNEL_LAYOUT_NONE;
    result_clear(&document->record); // of what refusing parsers wrote
  }
  document->layout_name = mrz::LAYOUTS[document->layout].name;
  varnel_export(&document->record, document->values);
  return status;
}
