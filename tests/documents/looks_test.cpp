// Several looks at one document: what is voted, what stays in doubt, and what is never mixed.
#include "support.hpp"

#include <Varnel/documents/looks.h>

#include "scans.hpp"

namespace {

constexpr varnel_inspect_options DIGITS = {2026, 11, 21, VARNEL_REPAIR_DIGITS};

const std::string TOP = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n";
const std::string LOW = "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

varnel_inspection look(std::initializer_list<std::string> texts,
                       const varnel_inspect_options &options = DIGITS) {
  varnel_looks looks = {};
  for (const std::string &text : texts) {
    varnel_looks_add(&looks, text.data(), text.size(), &options);
  }
  varnel_inspection inspection;
  EXPECT_EQ(varnel_looks_inspect(&looks, &options, &inspection), ERR_OK);
  return inspection;
}

std::string zone_of(const varnel_inspection &inspection) {
  std::string zone;
  for (int i = 0; i < inspection.line_count; ++i) {
    zone += std::string(inspection.zone[i]) + "\n";
  }
  return zone;
}

bool has_finding(const varnel_inspection &inspection, int code, int field) {
  for (int i = 0; i < inspection.finding_count; ++i) {
    if (inspection.findings[i].code == code && inspection.findings[i].field == field) {
      return true;
    }
  }
  return false;
}

TEST(Looks, FitTheirRoom) {
  EXPECT_LE(sizeof(varnel_looks), 16384u);
  EXPECT_EQ(VARNEL_LOOKS, 8);
}

TEST(Looks, BadArguments) {
  varnel_looks looks = {};
  varnel_inspection inspection;
  const varnel_inspect_options no_date = {2026, 2, 30, VARNEL_REPAIR_OFF};
  EXPECT_EQ(varnel_looks_add(nullptr, "", 0, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, nullptr, 1, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", VARNEL_TEXT_MAX + 1, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", 0, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", 0, &no_date), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(nullptr, &DIGITS, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, nullptr, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, &no_date, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, &DIGITS, nullptr), ERR_INVALID_ARGS);
}

TEST(Looks, NoneIsARefusal) {
  varnel_looks looks = {};
  EXPECT_EQ(varnel_looks_add(&looks, "no zone", 7, &DIGITS), ERR_INVALID_FORMAT);
  EXPECT_EQ(looks.last.verdict, VARNEL_VERDICT_REFUSED);
  EXPECT_EQ(looks.count, 0);
  varnel_inspection inspection;
  ASSERT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_OK);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_REFUSED);
}

TEST(Looks, OneIsAnInspection) {
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string page = std::string("PAGE\n") + s.zone;
    EXPECT_EQ(support::to_json(look({page})), support::inspect_to_json(page, DIGITS));
  }
  const std::string misread = TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n";
  EXPECT_EQ(support::to_json(look({misread})), support::inspect_to_json(misread, DIGITS));
}

TEST(Looks, OneThatShowsTheZoneIsTheWitness) {
  const std::string misread = TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n";
  EXPECT_EQ(look({misread, TOP + LOW}).verdict, VARNEL_VERDICT_VALID);
  const varnel_inspection repaired = look({misread, misread});
  EXPECT_EQ(repaired.verdict, VARNEL_VERDICT_REPAIRED);
  EXPECT_EQ(repaired.change_count, 1);
  EXPECT_EQ(repaired.source_count, 2);
}

// One look has the names, the other the number.
TEST(Looks, AreVotedWhereNoneShowsTheZone) {
  const std::string names_misread = "P<UTOERIKSSON<<ANHA<MARIA<<<<<ssss<<<<<<<<<<\n";
  const std::string number_misread = "L8Q8902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  const varnel_inspection inspection =
      look({TOP + number_misread, TOP + number_misread, names_misread + LOW});
  EXPECT_EQ(zone_of(inspection), TOP + LOW);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VOTED);
  EXPECT_EQ(inspection.source_count, 0);
  EXPECT_EQ(inspection.change_count, 0);
}

// The expiry dates of both fail; their columns together hold in one way.
TEST(Looks, DatesArePutTogetherFromTheirColumns) {
  const varnel_inspection inspection = look({TOP + "L898902C36UTO7408122F1284159ZE184226B<<<<<10\n",
                                             TOP + "L898902C36UTO7408122F1204189ZE184226B<<<<<10\n"});
  EXPECT_EQ(zone_of(inspection), TOP + LOW);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VOTED);
}

TEST(Looks, AtTwoDocumentsAreNeverOneAnswer) {
  const std::string other = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                            "X123456785UTO7408122F1204159<<<<<<<<<<<<<<00\n";
  ASSERT_EQ(support::inspect(other).verdict, VARNEL_VERDICT_VALID);
  for (const varnel_inspection &inspection :
       {look({TOP + LOW, other}), look({other, TOP + LOW}), look({TOP + LOW, TOP + LOW, TOP + LOW, other})}) {
    EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_DOUBTFUL);
    EXPECT_TRUE(has_finding(inspection, VARNEL_FINDING_LOOKS_DIFFER, VARNEL_DOCUMENT_NUMBER));
  }
}

TEST(Looks, StatesThatTieAreUnproven) {
  const std::string other = "L898902C36GBR7408122F1204159ZE184226B<<<<<10\n";
  const varnel_inspection inspection =
      look({"P<GBRERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n" + LOW, TOP + other});
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_DOUBTFUL);
  EXPECT_TRUE(has_finding(inspection, VARNEL_FINDING_UNPROVEN, VARNEL_NATIONALITY));
}

TEST(Looks, TheWeakestGivesWay) {
  varnel_looks looks = {};
  const std::string weak = TOP + "L8Q8902C36UT07408122F1204159ZE184226B<<<<<10\n";
  const std::string strong = TOP + LOW;
  for (int i = 0; i < VARNEL_LOOKS; ++i) {
    ASSERT_EQ(varnel_looks_add(&looks, weak.data(), weak.size(), &DIGITS), ERR_OK);
  }
  ASSERT_EQ(varnel_looks_add(&looks, strong.data(), strong.size(), &DIGITS), ERR_OK);
  EXPECT_EQ(looks.count, VARNEL_LOOKS);
  int strong_looks = 0;
  for (const varnel_look &kept : looks.looks) {
    strong_looks += kept.change_count == 0;
  }
  EXPECT_EQ(strong_looks, 1);
  ASSERT_EQ(varnel_looks_add(&looks, weak.data(), weak.size(), &DIGITS), ERR_OK);
  EXPECT_EQ(looks.count, VARNEL_LOOKS);
}

// Three frames of a document by one reader: the numbers recorded may only improve.
TEST(Looks, OfScannedTexts) {
  scans::tally tally;
  for (const char *file : {"100-documents.jsonl", "200-documents.jsonl"}) {
    std::map<std::pair<std::string, std::string>, std::vector<scans::scan>> documents;
    for (const scans::scan &s : scans::load(std::string(VARNEL_DOCUMENT_TESTS_DIR "/scans/") + file)) {
      if (s.level == "clean" || s.level == "mild" || s.level == "tilt") {
        documents[{s.id, s.reader}].push_back(s);
      }
    }
    const std::vector<scans::scan> *previous = nullptr;
    for (const auto &[document, frames] : documents) {
      varnel_looks looks = {};
      for (const scans::scan &s : frames) {
        varnel_looks_add(&looks, s.text.data(), s.text.size(), &DIGITS);
      }
      varnel_inspection inspection;
      ASSERT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_OK);
      tally.add(inspection, frames[0]);
      // Frames of the next document among them: not an answer, unless one of the two shows too little to be
      // seen.
      if (previous != nullptr && (*previous)[0].id != frames[0].id) {
        varnel_looks mixed = {};
        int answers[2] = {};
        for (int i = 0; i < 2; ++i) {
          for (const scans::scan &s : i == 0 ? *previous : frames) {
            varnel_looks_add(&mixed, s.text.data(), s.text.size(), &DIGITS);
            answers[i] += scans::is_answer(mixed.last);
          }
        }
        varnel_looks_inspect(&mixed, &DIGITS, &inspection);
        if (answers[0] > 0 && answers[1] > 0) {
          EXPECT_FALSE(scans::is_answer(inspection)) << document.first;
        }
      }
      previous = &frames;
    }
  }
  EXPECT_EQ(tally.texts, 800);
  EXPECT_GE(tally.right, 543);
  EXPECT_LE(tally.wrong, 2);
}

} // namespace
