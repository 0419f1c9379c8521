// The entries of an inspection by their field.
#ifndef VARNEL_SRC_DOCUMENTS_ENTRIES_HPP
#define VARNEL_SRC_DOCUMENTS_ENTRIES_HPP

#include <Varnel/documents/inspect.h>

namespace documents {

// The first entry of a field; null where there is none.
template <class Entry> const Entry *find_entry(const Entry *entries, int count, int field) {
  for (const Entry *entry = entries; entry != entries + count; ++entry) {
    if (entry->field == field) {
      return entry;
    }
  }
  return nullptr;
}

inline const varnel_inspected_field *find_field(const varnel_inspection &inspection, int field) {
  return find_entry(inspection.fields, inspection.field_count, field);
}

inline const varnel_check *find_check(const varnel_inspection &inspection, int field) {
  return find_entry(inspection.checks, inspection.check_count, field);
}

} // namespace documents

#endif
