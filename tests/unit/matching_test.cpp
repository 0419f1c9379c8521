// Finding runs of a class of characters.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

const STRING untouched = {"untouched", 9};

struct Match {
  std::string source;
  _t_predicate_func f;
  int min, max;
  int found;
  int start, len; // the match, by its offset in the source
  int tail;       // offset of the tail, which goes on to the end
};

const Match matches[] = {
    {"12AB345678", is_digit, 3, 5, 1, 4, 5, 9}, // 34567, tail 8
    {"12AB345678", is_digit, 3, 6, 1, 4, 6, 10},
    {"12AB345678", is_digit, 3, 7, 1, 4, 6, 10},
    {"12AB345678", is_digit, 2, 5, 1, 0, 2, 2}, // the tail begins at the refused character
    {"12AB345678", is_digit, 1, 1, 1, 0, 1, 1},
    {"1AB345678", is_digit, 2, 2, 1, 3, 2, 5},
    {"AB345CD", is_digit, 3, 3, 1, 2, 3, 5},
    {"AB345CD", is_digit, 3, 9, 1, 2, 3, 5},
    {"AB34CD", is_digit, 3, 9, 0, 0, 0, 0}, // a short run that another character ends
    {"AB34CD5", is_digit, 3, 9, 1, 6, 1, 7},
    {"ABCD", is_digit, 1, 9, 0, 0, 0, 0},
    {"1", is_digit, 1, 1, 1, 0, 1, 1},
    // A short run that the end of the text cuts is a match all the same.
    {"AB12", is_digit, 3, 9, 1, 2, 2, 4},
    {"12", is_digit, 3, 9, 1, 0, 2, 2},
    {"1A2", is_digit, 3, 9, 1, 2, 1, 3},
    // A longest run below the shortest is taken literally.
    {"12345", is_digit, 5, 3, 1, 0, 3, 3},
    {"1A2345", is_digit, 5, 3, 1, 2, 3, 5},
    {"12A", is_digit, 5, 3, 0, 0, 0, 0},
    {"12345", is_digit, INT_MAX, INT_MAX, 1, 0, 5, 5},
    {"\x80\xFF\x7F", is_negative, 1, 9, 1, 0, 2, 2},
    {"A\x80", is_negative, 1, 9, 1, 1, 1, 2},
    {"A\0"
     "1"s,
     is_digit, 1, 9, 1, 2, 1, 3},
};

const Match starts[] = {
    {"A1", is_letter, 2, 9, 0, 0, 0, 0},
    {"A", is_letter, 2, 9, 1, 0, 1, 1}, // a text that ends first is a match of what it has
    {"AB1", is_letter, 2, 9, 1, 0, 2, 2},
    {"ABC1", is_letter, 2, 9, 1, 0, 3, 3},
    {"ABC1", is_letter, 2, 3, 1, 0, 3, 3},
    {"ABC1", is_letter, 2, 2, 1, 0, 2, 2},
    {"ABC", is_letter, 1, 1, 1, 0, 1, 1},
    {"1ABC", is_letter, 1, 9, 0, 0, 0, 0},
    {"1ABC", is_letter, 2, 9, 0, 0, 0, 0},
    {"ABC", is_letter, 9, 9, 1, 0, 3, 3},
    {"ABC", is_letter, 9, 2, 1, 0, 2, 2},
    {"AB1", is_letter, 9, 2, 1, 0, 2, 2},
    {"A1", is_letter, 9, 2, 0, 0, 0, 0},
    {"ABC", is_letter, INT_MAX, INT_MAX, 1, 0, 3, 3},
    {"\x80"
     "A",
     is_negative, 1, 9, 1, 0, 1, 1},
};

template <class Function, std::size_t n> void expect_matches(Function match_by, const Match (&rows)[n]) {
  for (const Match &c : rows) {
    SCOPED_TRACE(shown(c.source) + " " + std::to_string(c.min) + " to " + std::to_string(c.max));
    const Exact source(c.source);
    const STRING s = source.view();
    STRING match = untouched;
    STRING tail = untouched;
    EXPECT_EQ(match_by(&s, c.f, c.min, c.max, &match, &tail), c.found);
    EXPECT_EQ(match.str - source.data(), c.start);
    EXPECT_EQ(match.len, c.len);
    EXPECT_EQ(tail.str - source.data(), c.tail);
    EXPECT_EQ(tail.len, source.size() - c.tail);
  }
}

TEST(MatchF, FindsRunsAnywhereAndAtTheStart) {
  expect_matches(utils_match_f, matches);
  expect_matches(utils_match_start_f, starts);
}

TEST(MatchF, MatchAndTailMayBeNull) {
  const STRING s = view("AB12CD");
  STRING out = untouched;
  EXPECT_EQ(utils_match_f(&s, is_digit, 1, 9, nullptr, nullptr), 1);
  EXPECT_EQ(utils_match_f(&s, is_digit, 1, 9, &out, nullptr), 1);
  EXPECT_EQ(text(out), "12");
  EXPECT_EQ(utils_match_f(&s, is_digit, 1, 9, nullptr, &out), 1);
  EXPECT_EQ(text(out), "CD");
  EXPECT_EQ(utils_match_start_f(&s, is_letter, 1, 9, nullptr, nullptr), 1);
  EXPECT_EQ(utils_match_start_f(&s, is_letter, 1, 9, &out, nullptr), 1);
  EXPECT_EQ(text(out), "AB");
  EXPECT_EQ(utils_match_start_f(&s, is_letter, 1, 9, nullptr, &out), 1);
  EXPECT_EQ(text(out), "12CD");
}

TEST(MatchF, TheTailMayBeTheSource) {
  STRING s = view("AB12CD34");
  STRING match;
  EXPECT_EQ(utils_match_f(&s, is_digit, 1, 9, &match, &s), 1);
  EXPECT_EQ(text(match), "12");
  EXPECT_EQ(text(s), "CD34");
  EXPECT_EQ(utils_match_start_f(&s, is_letter, 1, 9, &match, &s), 1);
  EXPECT_EQ(text(match), "CD");
  EXPECT_EQ(text(s), "34");
}

TEST(MatchF, BadArgumentsTouchNothing) {
  struct Case {
    bool source;
    STRING s;
    _t_predicate_func f;
    int min, max;
  };
  const Case cases[] = {
      {false, view("12"), is_digit, 1, 9}, {true, {nullptr, 2}, is_digit, 1, 9},
      {true, {"12", 0}, is_digit, 1, 9},   {true, view("12"), nullptr, 1, 9},
      {true, view("12"), is_digit, 0, 9},  {true, view("12"), is_digit, -1, 9},
      {true, view("12"), is_digit, 1, 0},  {true, view("12"), is_digit, 1, -1},
      {true, {nullptr, 0}, nullptr, 0, 0},
  };
  for (const Case &c : cases) {
    STRING match = untouched;
    STRING tail = untouched;
    const STRING *source = c.source ? &c.s : nullptr;
    EXPECT_EQ(utils_match_f(source, c.f, c.min, c.max, &match, &tail), 0);
    EXPECT_EQ(utils_match_start_f(source, c.f, c.min, c.max, &match, &tail), 0);
    EXPECT_EQ(text(match), "untouched");
    EXPECT_EQ(text(tail), "untouched");
  }
}

// Only a length of 0 turns a text away; a negative one has no characters, and so no run.
TEST(MatchF, ANegativeLengthHasNoRun) {
  const STRING s = {"12", -1};
  STRING match = untouched;
  STRING tail = untouched;
  EXPECT_EQ(utils_match_f(&s, is_digit, 1, 9, &match, &tail), 0);
  EXPECT_EQ(match.str, s.str);
  EXPECT_EQ(match.len, 0);
  EXPECT_EQ(tail.str, s.str);
  EXPECT_EQ(tail.len, -1);
  match = untouched;
  tail = untouched;
  EXPECT_EQ(utils_match_start_f(&s, is_digit, 1, 9, &match, &tail), 0);
  EXPECT_EQ(match.str, s.str);
  EXPECT_EQ(match.len, 0);
  EXPECT_EQ(tail.str, s.str);
  EXPECT_EQ(tail.len, -1);
}

TEST(MatchF, AsksNoFurtherThanTheEndOfTheRun) {
  const STRING s = view("A12B34");
  asked.clear();
  utils_match_f(&s, noted<is_digit>, 1, 2, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A', '1', '2'}));
  asked.clear();
  utils_match_f(&s, noted<is_digit>, 1, 9, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A', '1', '2', 'B'}));
  asked.clear();
  utils_match_start_f(&s, noted<is_digit>, 1, 9, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A'}));
}

} // namespace
