// Zones as the commands that make them print them.
#ifndef VARNEL_CLI_ZONES_HPP
#define VARNEL_CLI_ZONES_HPP

#include "arguments.hpp"
#include "output.hpp"

#include <Varnel/documents.hpp>

namespace varnel::cli {

inline constexpr option ZONE_FORMAT_OPTION = {
    "format", "text|json",
    "How to print: text, an empty line after each zone, or JSON lines\n(default: text)"};

inline bool wants_json(const arguments &asked) { return asked.value(ZONE_FORMAT_OPTION.name) == "json"; }

/** The lines and an empty one; or {"zone":[...]} on one line. */
inline void put_zone(output &out, const composition &zone, bool as_json) {
  out.put(as_json ? "{\"zone\":[" : "");
  for (std::size_t i = 0; i < zone.lines(); ++i) {
    if (as_json) {
      out.put(i == 0 ? "\"" : ",\"");
      out.put(zone.line(i)); // of capitals, digits and fillers, none of which JSON escapes
      out.put('"');
    } else {
      out.put(zone.line(i));
      out.put('\n');
    }
  }
  out.put(as_json ? "]}\n" : "\n");
}

/** The layouts that can be composed, by the names that they have in JSON. */
struct named_layout {
  std::string_view name;
  int id;
};

inline constexpr named_layout COMPOSED_LAYOUTS[] = {{"TD1", VARNEL_LAYOUT_TD1},
                                                    {"TD2", VARNEL_LAYOUT_TD2},
                                                    {"TD3", VARNEL_LAYOUT_TD3},
                                                    {"MRV-A", VARNEL_LAYOUT_MRV_A},
                                                    {"MRV-B", VARNEL_LAYOUT_MRV_B}};

/** VARNEL_LAYOUT_NONE for any other name. */
inline int layout_named(std::string_view name) {
  for (const named_layout &each : COMPOSED_LAYOUTS) {
    if (each.name == name) {
      return each.id;
    }
  }
  return VARNEL_LAYOUT_NONE;
}

} // namespace varnel::cli

#endif
