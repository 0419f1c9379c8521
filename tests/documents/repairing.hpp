// What the tests of repair share: what a text is read as at a level, in words.
#ifndef VARNEL_TESTS_DOCUMENTS_REPAIRING_HPP
#define VARNEL_TESTS_DOCUMENTS_REPAIRING_HPP

#include "support.hpp"

namespace repairing {

using support::changes_of;
using support::findings_of;
using support::zone_of;

constexpr varnel_inspect_options with_repair(int level) { return {2026, 11, 21, level}; }

inline constexpr int LEVELS[] = {VARNEL_REPAIR_COLUMNS, VARNEL_REPAIR_DIGITS};

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
