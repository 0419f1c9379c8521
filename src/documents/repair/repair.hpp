// Inspecting what an optical reader made of a page: misread characters are put right where that is certain.
#ifndef VARNEL_SRC_DOCUMENTS_REPAIR_REPAIR_HPP
#define VARNEL_SRC_DOCUMENTS_REPAIR_REPAIR_HPP

#include "../evaluate.hpp"
#include "../search.hpp"
#include "reading.hpp"

namespace documents::repair {

// As documents::find_zone and documents::find_zones, for options that ask for repair.
void find_zone(passage p, const varnel_inspect_options &options, varnel_inspection &inspection);
int find_zones(passage p, const varnel_inspect_options &options, varnel_inspection *inspections,
               int capacity);

// Writes the whole record of a zone that was found in the text, with its changes.
void write_inspection(const char *text, const found_zone &found, const varnel_inspect_options &options,
                      varnel_inspection &inspection);

} // namespace documents::repair

#endif
