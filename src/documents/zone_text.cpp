#include "zone_text.hpp"

#include <string.h>

namespace documents {

void zone_text::begin_component(char initial) {
  if (length_ > 0) {
    append(FILLER);
  }
  if (components_ < KEPT_COMPONENTS) {
    starts_[components_] = length_;
    initials_[components_] = initial;
  }
  ++components_;
  in_component_ = true;
}

int zone_text::write(char *out) const {
  memcpy(out, text_, length_);
  return static_cast<int>(length_);
}

int zone_text::write_cut(char *out, int room) const {
  if (length_ <= static_cast<size_t>(room)) {
    return write(out);
  }
  memcpy(out, text_, static_cast<size_t>(room));
  if (out[room - 1] != FILLER) {
    return room;
  }
  for (int last = room - 2; last > 0; last -= 2) { // the last letter of a component
    if (out[last - 1] != FILLER) {
      memmove(out + last, out + last + 1, static_cast<size_t>(room - last - 1));
      out[room - 1] = text_[room];
      return room;
    }
  }
  return room - 1; // nothing but single letters: the filler goes
}

size_t zone_text::end_of_component(size_t index) const {
  return index + 1 < components_ ? starts_[index + 1] - 1 : length_;
}

// The first `full` components as they are, the others up to `all` as initials.
int zone_text::write_initials(char *out, size_t full, size_t all) const {
  size_t written = end_of_component(full - 1);
  memcpy(out, text_, written);
  for (size_t i = full; i < all; ++i) {
    out[written++] = FILLER;
    out[written++] = initials_[i];
  }
  return static_cast<int>(written);
}

int zone_text::write_shortened(char *out, int room) const {
  const size_t space = static_cast<size_t>(room);
  if (length_ <= space) {
    return write(out);
  }
  if (components_ <= KEPT_COMPONENTS) {
    for (size_t full = components_ - 1; full >= 1; --full) {
      if (end_of_component(full - 1) + 2 * (components_ - full) <= space) {
        return write_initials(out, full, components_);
      }
    }
  }
  const size_t first = end_of_component(0);
  if (first <= space) {
    return write_initials(out, 1, 1 + (space - first) / 2);
  }
  memcpy(out, text_, space);
  return room;
}

} // namespace documents
