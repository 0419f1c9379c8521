// How many scanned texts are read rightly and wrongly at each level of repair. The numbers recorded here may
// only improve: more right, fewer wrong. `./dev score` prints them by grade of picture and by reader.
#include "scans.hpp"

#include <gtest/gtest.h>

namespace {

struct score {
  const char *file;
  int repair;
  int texts;
  int right; // at least
  int wrong; // at most
};

void PrintTo(const score &s, std::ostream *out) { *out << s.file << " " << varnel_repair_name(s.repair); }

class Scores : public testing::TestWithParam<score> {};

TEST_P(Scores, MayOnlyImprove) {
  const score &expected = GetParam();
  scans::tally tally;
  for (const scans::scan &s : scans::load(std::string(VARNEL_DOCUMENT_TESTS_DIR "/scans/") + expected.file)) {
    varnel_inspection inspection;
    ASSERT_EQ(varnel_inspect(s.text.data(), s.text.size(), &scans::OPTIONS[expected.repair], &inspection),
              ERR_OK);
    tally.add(inspection, s);
  }
  EXPECT_EQ(tally.texts, expected.texts);
  EXPECT_GE(tally.right, expected.right);
  EXPECT_LE(tally.wrong, expected.wrong);
}

INSTANTIATE_TEST_SUITE_P(Repair, Scores,
                         testing::Values(score{"100-documents.jsonl", VARNEL_REPAIR_OFF, 834, 256, 9},
                                         score{"100-documents.jsonl", VARNEL_REPAIR_COLUMNS, 834, 389, 9},
                                         score{"100-documents.jsonl", VARNEL_REPAIR_DIGITS, 834, 414, 12},
                                         score{"200-documents.jsonl", VARNEL_REPAIR_OFF, 2536, 617, 15},
                                         score{"200-documents.jsonl", VARNEL_REPAIR_COLUMNS, 2536, 1084, 21},
                                         score{"200-documents.jsonl", VARNEL_REPAIR_DIGITS, 2536, 1189, 27}));

// What was repaired is a zone that holds as it stands.
TEST(Repaired, IsValidWhenInspectedAgain) {
  for (const char *file : {"100-documents.jsonl", "200-documents.jsonl"}) {
    for (const scans::scan &s : scans::load(std::string(VARNEL_DOCUMENT_TESTS_DIR "/scans/") + file)) {
      varnel_inspection inspection;
      varnel_inspect(s.text.data(), s.text.size(), &scans::OPTIONS[VARNEL_REPAIR_DIGITS], &inspection);
      if (!scans::is_answer(inspection)) {
        continue;
      }
      std::string zone;
      for (int i = 0; i < inspection.line_count; ++i) {
        zone += std::string(inspection.zone[i]) + "\n";
      }
      varnel_inspection again;
      varnel_inspect(zone.data(), zone.size(), &scans::OPTIONS[VARNEL_REPAIR_OFF], &again);
      EXPECT_EQ(again.verdict, VARNEL_VERDICT_VALID) << zone;
      for (int i = 0; i < inspection.line_count; ++i) {
        EXPECT_STREQ(again.zone[i], inspection.zone[i]);
      }
    }
  }
}

} // namespace
