// Names as people write them, in the letters of the zone.
#ifndef VARNEL_SRC_DOCUMENTS_NAME_WRITER_HPP
#define VARNEL_SRC_DOCUMENTS_NAME_WRITER_HPP

#include "text_reader.hpp"
#include "transliteration.hpp"
#include "zone_text.hpp"

namespace documents {

// Writes a name in the letters of the zone, by the rules of ICAO Doc 9303-3, section 4.6 and 6. Returns
// whether every character could be written; `bad` is the first that could not.
bool write_name(const char *text, language of, zone_text &out, text_position &bad);

} // namespace documents

#endif
