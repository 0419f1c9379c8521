#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <Varnel/Varnel.hpp>

#include "zone_support.hpp"

namespace {

using namespace zone_support;

using pairs = std::vector<std::pair<std::string, std::string>>;

const std::string CARD = "I<UTOD231458907<<<<<<<<<<<<<<<\n"
                         "8001011M2804151UTO<<<<<<<<<<<6\n"
                         "SVENSSON<<TOVE<<<<<<<<<<<<<<<<\n";

const pairs PASSPORT_VALUES = {{"firstName", "ANNA"},
                               {"lastName", "ERIKSSON"},
                               {"middleName", "MARIA"},
                               {"licenseNumber", "L898902C3"},
                               {"birthDate", "19740812"},
                               {"expirationDate", "20120415"},
                               {"gender", "F"},
                               {"countryCode", "UTO"},
                               {"jurisdictionCode", ""},
                               {"nationality", "UTO"},
                               {"documentType", "PASSPORT"},
                               {"issueDate", ""}};

const pairs CARD_VALUES = {{"firstName", "TOVE"},     {"lastName", "SVENSSON"},
                           {"middleName", ""},        {"licenseNumber", "D23145890"},
                           {"birthDate", "19800101"}, {"expirationDate", "20280415"},
                           {"gender", "M"},           {"countryCode", "UTO"},
                           {"jurisdictionCode", ""},  {"nationality", "UTO"},
                           {"documentType", "TD"},    {"issueDate", ""}};

pairs values_of(const varnel::document &document) {
  pairs values;
  for (const auto [key, value] : document) {
    values.emplace_back(key, value);
  }
  return values;
}

TEST(CppDocument, ReadsADocument) {
  const std::optional<varnel::document> document = varnel::parse_mrz(PASSPORT);
  ASSERT_TRUE(document.has_value());
  EXPECT_EQ(values_of(*document), PASSPORT_VALUES);
}

TEST(CppDocument, GivesNothingForARefusedText) {
  EXPECT_FALSE(varnel::parse_mrz("").has_value());
  EXPECT_FALSE(varnel::parse_mrz(std::string_view()).has_value());
  EXPECT_FALSE(varnel::parse_mrz({}).has_value());
  EXPECT_FALSE(varnel::parse_mrz(" \n").has_value());
  EXPECT_FALSE(varnel::parse_mrz("P<UTO").has_value());
  EXPECT_FALSE(varnel::parse_mrz(std::string(88, '<')).has_value());
}

// The text is a view with a length of its own: NUL bytes in it are noise, and none need end it.
TEST(CppDocument, TakesTheTextAsAView) {
  const std::string with_nul = std::string(1, '\0') + PASSPORT + std::string(3, '\0');
  ASSERT_TRUE(varnel::parse_mrz(with_nul).has_value());
  const std::string longer = PASSPORT + "NOT<OF<THE<VIEW";
  ASSERT_TRUE(varnel::parse_mrz(std::string_view(longer).substr(0, PASSPORT.size())).has_value());
  EXPECT_FALSE(varnel::parse_mrz(longer).has_value());
  const std::unique_ptr<char[]> exact(new char[PASSPORT.size()]);
  PASSPORT.copy(exact.get(), PASSPORT.size());
  EXPECT_TRUE(varnel::parse_mrz({exact.get(), PASSPORT.size()}).has_value());
}

TEST(CppDocument, KnowsNoOtherKey) {
  const auto document = varnel::parse_mrz(PASSPORT);
  ASSERT_TRUE(document.has_value());
  for (const std::string_view unknown :
       {std::string_view(), std::string_view(""), std::string_view("firstname"),
        std::string_view("firstName "), std::string_view("first"), std::string_view("firstNames"),
        std::string_view("ANNA"), std::string_view("personalNumber"), std::string_view("firstName\0", 10)}) {
    EXPECT_FALSE(document->get(unknown).has_value()) << unknown;
  }
}

TEST(CppDocument, GivesThePairsInOrderAndByTheirKeys) {
  static_assert(varnel::document::size() == 12, "known when compiled");
  const auto document = varnel::parse_mrz(PASSPORT);
  ASSERT_TRUE(document.has_value());

  std::size_t index = 0;
  for (const auto [key, value] : *document) {
    ASSERT_LT(index, PASSPORT_VALUES.size());
    EXPECT_EQ(key, PASSPORT_VALUES[index].first);
    EXPECT_EQ(value, PASSPORT_VALUES[index].second);
    EXPECT_EQ((*document)[index], (varnel::entry{key, value}));
    ASSERT_TRUE(document->get(key).has_value());
    EXPECT_EQ(*document->get(key), value);
    EXPECT_NE(document->get(key)->data(), nullptr);
    ++index;
  }
  EXPECT_EQ(index, 12u);
}

TEST(CppDocument, IteratesAsAnyContainerDoes) {
  const auto document = varnel::parse_mrz(PASSPORT);
  ASSERT_TRUE(document.has_value());
  EXPECT_EQ(std::distance(document->begin(), document->end()), 12);
  const auto empty = std::count_if(document->begin(), document->end(),
                                   [](const varnel::entry &e) { return e.second.empty(); });
  EXPECT_EQ(empty, 2);
  const std::map<std::string, std::string> by_key(document->begin(), document->end());
  EXPECT_EQ(by_key.size(), 12u);
  EXPECT_EQ(by_key.at("lastName"), "ERIKSSON");

  auto at = document->begin();
  EXPECT_TRUE(at == document->begin());
  EXPECT_FALSE(at != document->begin());
  EXPECT_EQ((*at++).first, "firstName");
  EXPECT_EQ((*at).first, "lastName");
  EXPECT_EQ((*++at).first, "middleName");
  EXPECT_TRUE(at != document->begin());
}

// A document is a plain value: a copy reads its own memory, not the original's.
TEST(CppDocument, CopiesOutliveTheOriginal) {
  static_assert(std::is_trivially_copyable_v<varnel::document>, "no ownership to hand over");
  static_assert(!std::is_default_constructible_v<varnel::document>, "only a parse makes one");

  auto original = std::make_unique<std::optional<varnel::document>>(varnel::parse_mrz(PASSPORT));
  ASSERT_TRUE(original->has_value());
  const varnel::document copy = **original;
  const varnel::document moved = std::move(**original);
  EXPECT_NE(copy.get("firstName")->data(), (**original).get("firstName")->data());
  const std::string_view key = (**original)[0].first;
  original.reset();            // the address sanitizer sees any view into it from here on
  EXPECT_EQ(key, "firstName"); // keys are constants of the library, and outlive every document
  EXPECT_EQ(values_of(copy), PASSPORT_VALUES);
  EXPECT_EQ(values_of(moved), PASSPORT_VALUES);
}

TEST(CppDocument, AssignsAndKeepsManyDocuments) {
  auto document = varnel::parse_mrz(PASSPORT);
  const auto card = varnel::parse_mrz(CARD);
  ASSERT_TRUE(document.has_value());
  ASSERT_TRUE(card.has_value());
  std::vector<varnel::document> kept;
  for (int i = 0; i < 20; ++i) {
    kept.push_back(i % 2 == 0 ? *document : *card); // moves its documents as it grows
  }
  *document = *card;
  EXPECT_EQ(values_of(*document), CARD_VALUES);
  document.reset();
  for (std::size_t i = 0; i < kept.size(); ++i) {
    EXPECT_EQ(values_of(kept[i]), i % 2 == 0 ? PASSPORT_VALUES : CARD_VALUES);
  }
}

// A document whose twelve values all differ tells the accessors apart; the two that no zone has are empty.
TEST(CppDocument, HasANameForEachValue) {
  const auto document = varnel::parse_mrz("P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                                          "L898902C36XXX7408122F1204159ZE184226B<<<<<10");
  ASSERT_TRUE(document.has_value());
  EXPECT_EQ(document->first_name(), "ANNA");
  EXPECT_EQ(document->last_name(), "ERIKSSON");
  EXPECT_EQ(document->middle_name(), "MARIA");
  EXPECT_EQ(document->license_number(), "L898902C3");
  EXPECT_EQ(document->birth_date(), "19740812");
  EXPECT_EQ(document->expiration_date(), "20120415");
  EXPECT_EQ(document->gender(), "F");
  EXPECT_EQ(document->country_code(), "UTO");
  EXPECT_EQ(document->jurisdiction_code(), "");
  EXPECT_EQ(document->nationality(), "XXX");
  EXPECT_EQ(document->document_type(), "PASSPORT");
  EXPECT_EQ(document->issue_date(), "");
  EXPECT_EQ(document->jurisdiction_code(), *document->get("jurisdictionCode"));
  EXPECT_EQ(document->issue_date(), *document->get("issueDate"));
}

TEST(CppDocument, SaysItsLayout) {
  const struct {
    const std::string &zone;
    varnel::layout layout;
    const char *name;
  } rows[] = {
      {TD1_CARD, varnel::layout::td1, "TD1"},       {TD2_CARD, varnel::layout::td2, "TD2"},
      {PASSPORT, varnel::layout::td3, "TD3"},       {LONG_VISA, varnel::layout::mrv_a, "MRV-A"},
      {SHORT_VISA, varnel::layout::mrv_b, "MRV-B"},
  };
  for (const auto &row : rows) {
    const auto document = varnel::parse_mrz(row.zone);
    ASSERT_TRUE(document.has_value()) << row.name;
    EXPECT_EQ(document->layout(), row.layout) << row.name;
    EXPECT_EQ(document->layout_name(), row.name);
  }
}

} // namespace
