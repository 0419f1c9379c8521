// What the tests of repair share: what a text is read as at a level, in words.
#ifndef VARNEL_TESTS_DOCUMENTS_REPAIRING_HPP
#define VARNEL_TESTS_DOCUMENTS_REPAIRING_HPP

#include "support.hpp"

namespace repairing {

constexpr varnel_inspect_options with_repair(int level) { return {2026, 11, 21, level}; }

inline constexpr int LEVELS[] = {VARNEL_REPAIR_COLUMNS, VARNEL_REPAIR_DIGITS};

inline std::string zone_of(const varnel_inspection &inspection) {
  std::string zone;
  for (int i = 0; i < inspection.line_count; ++i) {
    zone += std::string(inspection.zone[i]) + "\n";
  }
  return zone;
}

// "1:15 O>0 class, 1:43 O>0 class"
inline std::string changes_of(const varnel_inspection &inspection) {
  std::string list;
  for (int i = 0; i < inspection.change_count; ++i) {
    const varnel_change &c = inspection.changes[i];
    list += (i > 0 ? ", " : "") + std::to_string(c.line) + ":" + std::to_string(c.column) + " " + c.from +
            ">" + c.to + " " + varnel_change_name(c.reason);
  }
  return list;
}

// "checkFailed documentNumber, unproven primaryIdentifier"
inline std::string findings_of(const varnel_inspection &inspection) {
  std::string list;
  for (int i = 0; i < inspection.finding_count; ++i) {
    const varnel_finding &f = inspection.findings[i];
    list += std::string(i > 0 ? ", " : "") + varnel_finding_name(f.code);
    list += f.field != VARNEL_FIELD_NONE ? std::string(" ") + varnel_field_name(f.field) : "";
  }
  return list;
}

inline const std::string TOP = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n";
inline const std::string TD2_TOP = "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\n";
inline const std::string LOW = "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

// What a text is read as at a level.
struct expectation {
  int level;
  std::string text;
  std::string verdict;
  std::string zone; // empty: as the text
  std::string changes;
  std::string findings;
};

inline void expect(const expectation &e) {
  SCOPED_TRACE(e.text);
  const varnel_inspection inspection = support::inspect(e.text, with_repair(e.level));
  EXPECT_EQ(varnel_verdict_name(inspection.verdict), e.verdict);
  EXPECT_EQ(zone_of(inspection), e.zone.empty() ? e.text : e.zone);
  EXPECT_EQ(changes_of(inspection), e.changes);
  EXPECT_EQ(findings_of(inspection), e.findings);
}

} // namespace repairing

#endif
