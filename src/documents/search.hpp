// The search for a zone in a text, taken as it was read.
#ifndef VARNEL_SRC_DOCUMENTS_SEARCH_HPP
#define VARNEL_SRC_DOCUMENTS_SEARCH_HPP

#include "clean_text.hpp"
#include "evaluate.hpp"

namespace documents {

// Finds the best zone of the passage and writes the whole record; without a zone, a refusal.
void find_zone(passage p, const varnel_inspect_options &options, varnel_inspection &inspection);

// Finds the zones of the passage that do not overlap, the best first, and writes up to `capacity` records,
// at least 1, in the order of the page. Returns how many it wrote. Records beyond those may be written over.
int find_zones(passage p, const varnel_inspect_options &options, varnel_inspection *inspections,
               int capacity);

} // namespace documents

#endif
