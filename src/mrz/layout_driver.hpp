// The way through a zone that all layouts share: check the arguments, the length, the document code and the
// characters, then read line after line until one refuses, and name the document's type at last.
#ifndef VARNEL_SRC_MRZ_LAYOUT_DRIVER_HPP
#define VARNEL_SRC_MRZ_LAYOUT_DRIVER_HPP

#include "../view.hpp"
#include "layouts.hpp"
#include "parsers.hpp"
#include "zone_fields.hpp"

namespace mrz {

// Reads one line of a zone into the record: ERR_OK, or why it refuses.
using line_reader = int (*)(appender &record, STRING track, const CONTEXT *context);

template <line_reader... Readers>
int read_lines(const layout &layout, const char *zone, PARSE_RESULT *result, const CONTEXT *context) {
  appender record(result);
  STRING track = {zone, layout.width};
  int status = ERR_OK;
  const auto accepts = [&](line_reader read) {
    status = read(record, track, context);
    track.str += layout.width;
    return status == ERR_OK;
  };
  if ((accepts(Readers) && ...)) {
    record.write(FIELD_DOCUMENT_TYPE, STRING{layout.document_type, text_length(layout.document_type)});
  }
  return status;
}

// Zones of the layouts given. They are parameters of the template, so that the compiler knows their rules.
template <const layout &...Layouts> struct zone_of {
  template <line_reader... Readers>
  static int read(const char *zone, int length, PARSE_RESULT *result, const CONTEXT *context,
                  characters characters) {
    if (zone == nullptr || result == nullptr || context == nullptr || length < 0) {
      return ERR_INVALID_ARGS;
    }
    const layout *found = nullptr;
    const auto fits = [&](const layout &layout) {
      found = &layout;
      return length == layout.length() && layout.has_code(zone);
    };
    if (!(fits(Layouts) || ...) || (characters == characters::ANY && !has_mrz_characters(zone, length))) {
      return ERR_INVALID_FORMAT;
    }
    return read_lines<Readers...>(*found, zone, result, context);
  }
};

} // namespace mrz

#endif
