// Inspections and looks from C++.
#include <Varnel/documents.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr varnel::date TODAY = {2026, 11, 21};
const std::string PASSPORT = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                             "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

std::string passport_with(const std::string &from, const std::string &to) {
  std::string text = PASSPORT;
  return text.replace(text.find(from), from.size(), to);
}

TEST(InspectionInCpp, AnswersByField) {
  const auto document = varnel::inspect(PASSPORT, TODAY);
  ASSERT_TRUE(document);
  EXPECT_TRUE(document->ok());
  EXPECT_EQ(document->verdict(), varnel::verdict::valid);
  EXPECT_EQ(document->layout(), VARNEL_LAYOUT_TD3);
  ASSERT_EQ(document->lines(), 2U);
  EXPECT_EQ(document->line(1), "L898902C36UTO7408122F1204159ZE184226B<<<<<10");
  EXPECT_EQ(document->fields().size(), 10U);
  EXPECT_EQ(document->checks().size(), 5U);
  EXPECT_EQ(document->value(VARNEL_PRIMARY_IDENTIFIER), "ERIKSSON");
  EXPECT_EQ(document->value(VARNEL_OPTIONAL_DATA_1), "");
  const auto birth = document->field(VARNEL_BIRTH_DATE);
  ASSERT_TRUE(birth);
  EXPECT_EQ(birth->id(), VARNEL_BIRTH_DATE);
  EXPECT_EQ(birth->text(), "740812");
  EXPECT_EQ(birth->value(), "1974-08-12");
  EXPECT_EQ(birth->status(), varnel::status::ok);
  EXPECT_EQ(birth->proof(), varnel::proof::digits);
  EXPECT_EQ(birth->record().year, 1974);
  EXPECT_FALSE(document->field(VARNEL_OFFICE_CODE));
  EXPECT_EQ(document->expired(), true);
  EXPECT_EQ(document->chip_access(), "L898902C3674081221204159");
  EXPECT_TRUE(document->findings().empty());
}

TEST(InspectionInCpp, OwnsItsTextAndMayBeCopied) {
  std::string text = PASSPORT;
  const auto copy = *varnel::inspect(text, TODAY);
  text.assign(text.size(), 'X');
  EXPECT_EQ(copy.value(VARNEL_DOCUMENT_NUMBER), "L898902C3");
}

TEST(InspectionInCpp, SaysWhatIsWrong) {
  const auto document = varnel::inspect(passport_with("7408122", "7408132"), TODAY);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->verdict(), varnel::verdict::doubtful);
  EXPECT_FALSE(document->ok());
  ASSERT_EQ(document->findings().size(), 2U);
  EXPECT_EQ(document->findings()[0].field, VARNEL_BIRTH_DATE);
  EXPECT_EQ(document->findings()[1].field, VARNEL_COMPOSITE);
  EXPECT_EQ(document->field(VARNEL_BIRTH_DATE)->status(), varnel::status::check_failed);
  EXPECT_FALSE(document->chip_access());
}

TEST(InspectionInCpp, RefusesBadArgumentsAndTextsWithoutAZone) {
  EXPECT_FALSE(varnel::inspect(PASSPORT, {2026, 2, 30}));
  EXPECT_FALSE(varnel::inspect(std::string(VARNEL_TEXT_MAX + 1, '<'), TODAY));
  const auto nothing = varnel::inspect("", TODAY);
  ASSERT_TRUE(nothing);
  EXPECT_EQ(nothing->verdict(), varnel::verdict::refused);
  EXPECT_EQ(nothing->lines(), 0U);
  EXPECT_FALSE(nothing->expired());
}

TEST(InspectionInCpp, ListsChanges) {
  const auto document =
      varnel::inspect(passport_with("7408122F", "74O8122F"), TODAY, varnel::repair::columns);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->verdict(), varnel::verdict::repaired);
  ASSERT_EQ(document->changes().size(), 1U);
  EXPECT_EQ(document->changes()[0].column, 15);
  EXPECT_STREQ(document->changes()[0].from, "O");
}

TEST(InspectionInCpp, WritesJson) {
  const auto document = varnel::inspect(PASSPORT, TODAY);
  char json[16384];
  const int length = document->json(json, sizeof json);
  ASSERT_GT(length, 0);
  EXPECT_EQ(std::string(json).size(), static_cast<std::size_t>(length));
  EXPECT_EQ(std::string(json).rfind("{\"version\":1,\"date\":\"2026-11-21\"", 0), 0U);
}

TEST(LooksInCpp, AreCombined) {
  varnel::looks looks;
  EXPECT_TRUE(looks.add(passport_with("ERIKSSON", "ERIKSSDN"), TODAY, varnel::repair::digits));
  EXPECT_TRUE(looks.add(passport_with("7408122", "7408172"), TODAY, varnel::repair::digits));
  EXPECT_TRUE(looks.add(passport_with("L898902C3", "L898902G3"), TODAY, varnel::repair::digits));
  EXPECT_FALSE(looks.add("nothing", TODAY, varnel::repair::digits));
  const auto document = looks.inspect(TODAY, varnel::repair::digits);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->verdict(), varnel::verdict::voted);
  EXPECT_EQ(document->value(VARNEL_PRIMARY_IDENTIFIER), "ERIKSSON");
  EXPECT_FALSE(looks.inspect({2026, 13, 1}));
  EXPECT_EQ(varnel::looks().inspect(TODAY)->verdict(), varnel::verdict::refused);
}

} // namespace
