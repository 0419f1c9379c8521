// An inspection as a person sees it: the zone with what fails underlined, and its fields in words.
#ifndef VARNEL_CLI_INSPECTION_VIEW_HPP
#define VARNEL_CLI_INSPECTION_VIEW_HPP

#include "output.hpp"

#include <Varnel/documents/inspect.h>

namespace varnel::cli {

void put_inspection(output &out, bool coloured, const varnel_inspection &inspection);

} // namespace varnel::cli

#endif
