// Every known state: its code, its two letters, its name, whether ICAO Doc 9303-3 permits it.
#include "documents/states.hpp"

#include "plain_inspection.hpp"
#include "support.hpp"

#include <nlohmann/json.hpp>

namespace {

using namespace documents;

TEST(States, EveryRow) {
  int permitted = 0;
  for (const auto &[code, expected] : plain::known_states()) {
    const state found = find_state(code.data(), static_cast<int>(code.size()));
    ASSERT_NE(found.name, nullptr) << code;
    EXPECT_EQ(found.code, code);
    EXPECT_EQ(found.name, expected.name) << code;
    EXPECT_EQ(found.alpha2, expected.alpha2) << code;
    EXPECT_EQ(found.is_listed(), expected.permitted) << code;
    permitted += expected.permitted ? 1 : 0;
  }
  EXPECT_EQ(permitted, LISTED_STATES);
  EXPECT_EQ(permitted, 279);
  EXPECT_EQ(plain::known_states().size(), static_cast<size_t>(KNOWN_STATES));
}

TEST(States, NoOtherCodeIsKnown) {
  int known = 0;
  for (int length = 1; length <= 3; ++length) {
    std::string code(static_cast<size_t>(length), 'A');
    while (true) {
      const bool expected = plain::known_states().count(code) == 1;
      ASSERT_EQ(find_state(code.data(), length).name != nullptr, expected) << code;
      known += expected ? 1 : 0;
      size_t i = code.size();
      while (i > 0 && code[i - 1] == 'Z') {
        code[--i] = 'A';
      }
      if (i == 0) {
        break;
      }
      ++code[i - 1];
    }
  }
  EXPECT_EQ(known, KNOWN_STATES);
}

TEST(States, InAlphabeticalOrder) {
  auto expected = plain::known_states().begin();
  for (int i = 0; i < KNOWN_STATES; ++i, ++expected) {
    EXPECT_EQ(state_at(i).code, expected->first);
  }
}

TEST(States, WhatIsNoCode) {
  for (const char *code : {"", "d", "uto", "U O", "<<<", "D<<", "UT", "UTOO", "0TO", "1", "B1B", "AB1", "A\x80"}) {
    EXPECT_EQ(find_state(code, static_cast<int>(std::string(code).size())).name, nullptr) << code;
    EXPECT_EQ(varnel_state_name(code), nullptr) << code;
    EXPECT_EQ(varnel_state_alpha2(code), nullptr) << code;
    EXPECT_EQ(varnel_state_listed(code), 0) << code;
  }
  EXPECT_EQ(varnel_state_name(nullptr), nullptr);
  EXPECT_EQ(varnel_state_alpha2(nullptr), nullptr);
  EXPECT_EQ(varnel_state_listed(nullptr), 0);
}

TEST(States, Lookups) {
  EXPECT_STREQ(varnel_state_name("D"), "Germany");
  EXPECT_STREQ(varnel_state_alpha2("D"), "DE");
  EXPECT_EQ(varnel_state_listed("D"), 1);
  EXPECT_STREQ(varnel_state_name("XXK"), "Kosovo");
  EXPECT_EQ(varnel_state_alpha2("XXK"), nullptr);
  EXPECT_EQ(varnel_state_listed("XXK"), 0);
  EXPECT_STREQ(varnel_state_name("XCT"), "\"Turkish Republic of Northern Cyprus\"");
  EXPECT_STREQ(varnel_state_name("CIV"), "Côte d'Ivoire");
  EXPECT_STREQ(varnel_state_name("YUG"), "Yugoslavia");
  EXPECT_EQ(varnel_state_listed("YUG"), 0);
}

// A state in a zone: permitted ones are right as issuer and as nationality, XXK with a notice.
TEST(States, EveryOneInAZone) {
  for (const auto &[code, expected] : plain::known_states()) {
    std::string zone = support::SPECIMENS[2].zone;
    const std::string columns = code + std::string(3 - code.size(), '<');
    zone.replace(2, 3, columns);
    zone.replace(45 + 10, 3, columns);
    const auto read = support::inspected(zone);
    for (const char *field : {"issuingState", "nationality"}) {
      EXPECT_EQ(read["fields"][field]["value"], code);
      EXPECT_EQ(read["fields"][field]["name"], expected.name) << code;
      EXPECT_EQ(read["fields"][field]["status"], expected.permitted || code == "XXK" ? "ok" : "unknown")
          << code;
      EXPECT_EQ(read["fields"][field]["proof"], expected.permitted ? "list" : "none") << code;
    }
    EXPECT_EQ(read["verdict"], expected.permitted || code == "XXK" ? "valid" : "doubtful") << code;
    EXPECT_EQ(read["notices"].size(), code == "XXK" ? 2u : 0u) << code;
  }
}

} // namespace
