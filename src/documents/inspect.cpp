#include <Varnel/documents/inspect.h>

#include "arguments.hpp"
#include "repair/repair.hpp"
#include "search.hpp"

using namespace documents;

namespace {

bool is_valid(const char *text, size_t size) {
  return size <= VARNEL_TEXT_MAX && (text != nullptr || size == 0);
}

} // namespace

int varnel_inspect(const char *text, size_t size, const varnel_inspect_options *options,
                   varnel_inspection *inspection) {
  if (!is_valid(text, size) || !are_valid(options) || inspection == nullptr) {
    return ERR_INVALID_ARGS;
  }
  const passage whole = {text, 0, static_cast<uint32_t>(size)};
  if (options->repair == VARNEL_REPAIR_OFF) {
    find_zone(whole, *options, *inspection);
  } else {
    repair::find_zone(whole, *options, *inspection);
  }
  return ERR_OK;
}

int varnel_inspect_all(const char *text, size_t size, const varnel_inspect_options *options,
                       varnel_inspection *inspections, int capacity) {
  if (!is_valid(text, size) || !are_valid(options) || inspections == nullptr || capacity < 1) {
    return ERR_INVALID_ARGS;
  }
  const passage whole = {text, 0, static_cast<uint32_t>(size)};
  if (options->repair != VARNEL_REPAIR_OFF) {
    return repair::find_zones(whole, *options, inspections, capacity);
  }
  const int found = find_zones(whole, *options, inspections, capacity);
  if (found == 0) {
    find_zone(whole, *options, inspections[0]); // says why there is none
  }
  return found;
}
