// Putting every character of a text to a predicate.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace support;

namespace {

TEST(StrcheckF, ThePositionOfTheFirstRefusedCharacterFromOne) {
  struct Case {
    std::string text;
    _t_predicate_func f;
    int expected;
  };
  const Case cases[] = {
      {"AB1", is_letter, 3},
      {"1AB", is_letter, 1},
      {"A1B2", is_letter, 2},
      {"ABC", is_letter, 0},
      {"", is_letter, 0},
      {"ABC", no, 1},
      {"ABC", yes, 0},
      {"ABC", yes_minus_one, 0},
      {"ABC", yes_256, 0},
      {"A\xC9", is_letter, 2},
      {"\x80\xFF", is_negative, 0},
      {"\x80\x7F", is_negative, 2},
      {"A<B", MRZ_common_pattern_valid_mrz, 0},
      {"A<b", MRZ_common_pattern_valid_mrz, 3},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    const STRING s = text.view();
    EXPECT_EQ(utils_strcheck_f(&s, c.f), c.expected);
    EXPECT_EQ(utils_cstrcheck_f(c.text.c_str(), c.f), c.expected);
  }
}

TEST(StrcheckF, ANulInsideAViewIsACharacter) {
  const STRING s = {"A\0B", 3};
  EXPECT_EQ(utils_strcheck_f(&s, is_letter), 2);
  EXPECT_EQ(utils_cstrcheck_f("A\0B", is_letter), 0);
}

TEST(StrcheckF, BadArguments) {
  const STRING text = {"AB1", 3};
  const STRING null_text = {nullptr, 3};
  const STRING null_empty = {nullptr, 0};
  EXPECT_EQ(utils_strcheck_f(nullptr, is_letter), -1);
  EXPECT_EQ(utils_strcheck_f(&text, nullptr), -1);
  EXPECT_EQ(utils_strcheck_f(&null_text, is_letter), -1);
  EXPECT_EQ(utils_strcheck_f(&null_empty, is_letter), -1);
  EXPECT_EQ(utils_cstrcheck_f(nullptr, is_letter), -1);
  EXPECT_EQ(utils_cstrcheck_f("AB1", nullptr), -1);
  EXPECT_EQ(utils_cstrcheck_f(nullptr, nullptr), -1);
}

TEST(StrcheckF, ALengthOfZeroOrLessPasses) {
  for (const int len : {0, -1, INT_MIN}) {
    const STRING s = {"123", len};
    asked.clear();
    EXPECT_EQ(utils_strcheck_f(&s, noted<yes>), 0) << len;
    EXPECT_TRUE(asked.empty());
  }
}

TEST(StrcheckF, PredicatesGetBytesAbove7FAsNegativeNumbers) {
  const STRING s = {"\x00\x7F\x80\xC9\xFF", 5};
  asked.clear();
  EXPECT_EQ(utils_strcheck_f(&s, noted<yes>), 0);
  EXPECT_EQ(asked, (std::vector<int>{0, 127, -128, -55, -1}));
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("\x7F\x80\xC9\xFF", noted<yes>), 0);
  EXPECT_EQ(asked, (std::vector<int>{127, -128, -55, -1}));
  asked.clear();
  STRING trimmed = s;
  utils_strtrim_start_f(&trimmed, noted<yes>);
  EXPECT_EQ(asked, (std::vector<int>{0, 127, -128, -55, -1}));
  asked.clear();
  trimmed = s;
  utils_strtrim_end_f(&trimmed, noted<yes>);
  EXPECT_EQ(asked, (std::vector<int>{-1, -55, -128, 127, 0}));
}

TEST(StrcheckF, AsksNoFurtherThanTheFirstRefusal) {
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("<<A<", noted<is_filler>), 3);
  EXPECT_EQ(asked, (std::vector<int>{'<', '<', 'A'}));
}

TEST(CstrcheckF, TheNulIsNeverAskedAbout) {
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("AB", noted<yes>), 0);
  EXPECT_EQ(asked, (std::vector<int>{'A', 'B'}));
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("", no), 0);
  EXPECT_EQ(utils_cstrcheck_f("", noted<yes>), 0);
  EXPECT_TRUE(asked.empty());
}

} // namespace
