// What the functions of the library ask of their arguments.
#ifndef VARNEL_SRC_DOCUMENTS_ARGUMENTS_HPP
#define VARNEL_SRC_DOCUMENTS_ARGUMENTS_HPP

#include <Varnel/documents/inspect.h>

#include "calendar.hpp"

namespace documents {

// The reference date exists, and there is such a level of repair.
inline bool are_valid(const varnel_inspect_options *options) {
  return options != nullptr && exists(date{options->year, options->month, options->day}) &&
         options->repair >= VARNEL_REPAIR_OFF && options->repair <= VARNEL_REPAIR_DIGITS;
}

} // namespace documents

#endif
