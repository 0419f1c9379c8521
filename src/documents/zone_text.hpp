// Text on its way into a field of a zone, and the names that are shortened to fit.
#ifndef VARNEL_SRC_DOCUMENTS_ZONE_TEXT_HPP
#define VARNEL_SRC_DOCUMENTS_ZONE_TEXT_HPP

#include <Varnel/documents/defines.h>

#include <stddef.h>

#include "layouts.hpp"

namespace documents {

// Characters of a zone in components: one filler between two of them, none at either end. Text of any length
// is counted whole; kept is as much of it as a field can show in any form.
class zone_text {
public:
  void put(char c) {
    if (!in_component_) {
      begin_component(c);
    }
    append(c);
  }

  // What follows belongs to another component.
  void separate() { in_component_ = false; }

  bool in_component() const { return in_component_; }
  size_t length() const { return length_; }
  size_t components() const { return components_; }
  bool is_empty() const { return length_ == 0; }

  // Writes all of it; length() must not be above KEPT. Returns how many characters were written.
  int write(char *out) const;

  // Writes it as a primary identifier, cut to `room` characters (at most KEPT - 1) where it is longer. What
  // is cut ends in a letter: in the place of a filler comes the next letter, for which the nearest component
  // before it that has more than one letter gives up its last.
  int write_cut(char *out, int room) const;

  // Writes it as a secondary identifier. Until it has room, components become initials from the last to the
  // second; then they go, from the last on; then the first is cut.
  int write_shortened(char *out, int room) const;

  static constexpr size_t KEPT = VARNEL_ZONE_WIDTH;

private:
  // As many components as a line can show the initials of.
  static constexpr size_t KEPT_COMPONENTS = KEPT / 2;

  void append(char c) {
    if (length_ < KEPT) {
      text_[length_] = c;
    }
    ++length_;
  }

  void begin_component(char initial);
  int write_initials(char *out, size_t full, size_t all) const;
  size_t end_of_component(size_t index) const;

  size_t length_ = 0;
  size_t components_ = 0;
  bool in_component_ = false;
  // Read as far as they were written: clearing them would cost more than most names.
  size_t starts_[KEPT_COMPONENTS]; // cppcheck-suppress uninitMemberVarPrivate
  char initials_[KEPT_COMPONENTS]; // cppcheck-suppress uninitMemberVarPrivate
  char text_[KEPT];                // cppcheck-suppress uninitMemberVarPrivate
};

} // namespace documents

#endif
