// The named slots of a record, from the library's own list.
#ifndef VARNEL_CLI_SLOTS_HPP
#define VARNEL_CLI_SLOTS_HPP

#include <Varnel/Varnel.h>

#include <cstddef>
#include <string_view>

namespace varnel::cli {

struct named_slot {
  int number;
  std::string_view name;
};

inline constexpr named_slot NAMED_SLOTS[] = {
#define VARNEL_CLI_SLOT(number, constant, meaning) {number, #constant},
    VARNEL_FIELDS(VARNEL_CLI_SLOT)
#undef VARNEL_CLI_SLOT
};

/** The name of a slot's constant, or an empty text for a reserved slot. */
constexpr std::string_view slot_name(int number) {
  for (const named_slot &slot : NAMED_SLOTS) {
    if (slot.number == number) {
      return slot.name;
    }
  }
  return {};
}

constexpr std::size_t longest_slot_name() {
  std::size_t longest = 0;
  for (const named_slot &slot : NAMED_SLOTS) {
    longest = slot.name.size() > longest ? slot.name.size() : longest;
  }
  return longest;
}

} // namespace varnel::cli

#endif
