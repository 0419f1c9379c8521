// Comparing texts, and finding one in another.
#include <climits>
#include <string>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

TEST(Strcmp, Table) {
  struct Case {
    std::string s;
    const char *str;
    int expected;
  };
  const Case cases[] = {
      {"ABC", "ABC", 0},
      {"", "", 0},
      // Texts of different lengths are ordered by length alone.
      {"ABC", "ABCD", -1},
      {"ABCD", "ABC", 1},
      {"ZZZ", "AAAA", -1},
      {"A", "ABCDEF", -5},
      {"ABCDEF", "A", 5},
      {"", "ABC", -3},
      {"ABC", "", 3},
      // Texts of one length by their first difference.
      {"ABD", "ABC", 1},
      {"ABC", "ABD", -1},
      {"BAA", "AZZ", 1},
      {"a", "A", 1},
      {"A", "z", -1},
      // Bytes are signed.
      {"\x80", "A", -1},
      {"A", "\xFF", 1},
      {"\x80", "\xFF", -1},
      {"\xFF", "\x80", 1},
      {"A\0B"s, "A", 2},
      {"\0"s, "A", -1},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.s) + " and " + c.str);
    const Exact source(c.s);
    const STRING s = source.view();
    EXPECT_EQ(utils_strcmp(&s, c.str), c.expected);
  }
}

TEST(Strcmp, Nulls) {
  const STRING abc = view("ABC");
  const STRING null_text = {nullptr, 3};
  EXPECT_EQ(utils_strcmp(nullptr, nullptr), 0);
  EXPECT_EQ(utils_strcmp(&null_text, nullptr), 0);
  EXPECT_EQ(utils_strcmp(nullptr, "ABC"), -1);
  EXPECT_EQ(utils_strcmp(nullptr, ""), -1);
  EXPECT_EQ(utils_strcmp(&null_text, "ABC"), -1);
  EXPECT_EQ(utils_strcmp(&null_text, ""), -1);
  EXPECT_EQ(utils_strcmp(&abc, nullptr), 1);
  const STRING empty = view("");
  EXPECT_EQ(utils_strcmp(&empty, nullptr), 1);
}

TEST(Strcmp, ANegativeLengthIsALength) {
  const STRING s = {"ABC", -2};
  EXPECT_EQ(utils_strcmp(&s, "A"), -3);
  EXPECT_EQ(utils_strcmp(&s, ""), -2);
}

TEST(Tokcmp, Table) {
  struct Case {
    std::string a, b;
    int exact, folded; // with flags 0 and 1
  };
  const Case cases[] = {
      {"abc", "ABC", 1, 0},
      {"ABC", "abc", -1, 0},
      {"ABC", "ABC", 0, 0},
      {"", "", 0, 0},
      {"ABC", "ABCD", -1, -1},
      {"ABCD", "ABC", 1, 1},
      {"zz", "AAAAA", -3, -3},
      {"AAAAA", "zz", 3, 3},
      {"", "AB", -2, -2},
      {"ABD", "ABC", 1, 1},
      {"abd", "ABC", 1, 1},
      {"ABC", "abd", -1, -1},
      {"a", "B", 1, -1},
      {"B", "a", -1, 1},
      {"Z", "a", -1, 1},
      // Only two letters are folded: '[', '_' and '{' stand between and after the alphabets.
      {"a", "_", 1, 1},
      {"_", "a", -1, -1},
      {"A", "_", -1, -1},
      {"_", "A", 1, 1},
      {"z", "{", -1, -1},
      {"Z", "[", -1, -1},
      {"`", "@", 1, 1},
      {"{", "[", 1, 1},
      {"1", "1", 0, 0},
      {"1", "2", -1, -1},
      // Bytes above 0x7F are no letters and compare as signed.
      {"\xE9", "\xC9", 1, 1},
      {"\xC9", "\xE9", -1, -1},
      {"\xC9", "A", -1, -1},
      {"a", "\xFF", 1, 1},
      {"A\0b"s, "a\0B"s, -1, 0},
      {"A\0"s, "A\1"s, -1, -1},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.a) + " and " + shown(c.b));
    const Exact first(c.a);
    const Exact second(c.b);
    const STRING a = first.view();
    const STRING b = second.view();
    EXPECT_EQ(utils_tokcmp(&a, &b, 0), c.exact);
    EXPECT_EQ(utils_tokcmp(&a, &b, 1), c.folded);
    EXPECT_EQ(utils_tokcmp(&a, &b, 2), c.exact);
    EXPECT_EQ(utils_tokcmp(&a, &b, -1), c.folded);
  }
}

TEST(Tokcmp, Nulls) {
  const STRING abc = view("ABC");
  const STRING empty = view("");
  const STRING null_text = {nullptr, 3};
  for (const int flags : {0, 1}) {
    EXPECT_EQ(utils_tokcmp(nullptr, nullptr, flags), 0);
    EXPECT_EQ(utils_tokcmp(&null_text, nullptr, flags), 0);
    EXPECT_EQ(utils_tokcmp(nullptr, &null_text, flags), 0);
    EXPECT_EQ(utils_tokcmp(&null_text, &null_text, flags), 0);
    EXPECT_EQ(utils_tokcmp(nullptr, &abc, flags), -1);
    EXPECT_EQ(utils_tokcmp(&null_text, &abc, flags), -1);
    EXPECT_EQ(utils_tokcmp(nullptr, &empty, flags), -1);
    EXPECT_EQ(utils_tokcmp(&abc, nullptr, flags), 1);
    EXPECT_EQ(utils_tokcmp(&abc, &null_text, flags), 1);
    EXPECT_EQ(utils_tokcmp(&empty, nullptr, flags), 1);
  }
}

TEST(Strcmp, TheDifferenceOfLengthsStaysWithinAnInt) {
  const STRING negative = {"", INT_MIN};
  EXPECT_EQ(utils_strcmp(&negative, ""), INT_MIN);
  EXPECT_EQ(utils_strcmp(&negative, "A"), INT_MIN);

  const STRING longest = {"", INT_MAX};
  const STRING minus_one = {"", -1};
  EXPECT_EQ(utils_tokcmp(&longest, &minus_one, 0), INT_MAX);
  EXPECT_EQ(utils_tokcmp(&minus_one, &longest, 0), INT_MIN);
  const STRING empty = {"", 0};
  EXPECT_EQ(utils_tokcmp(&longest, &empty, 0), INT_MAX);
}

// ---- searching --------------------------------------------------------------------------------------

TEST(Strstr, Table) {
  struct Case {
    std::string haystack, needle;
    int expected;
  };
  const Case cases[] = {
      {"ABCABC", "CA", 2},  {"ABCABC", "ABC", 0},  {"ABCABC", "BC", 1},  {"ABCABC", "ABCABC", 0},
      {"ABCABC", "X", -1},  {"ABCABC", "CAC", -1}, {"ABCABD", "ABD", 3}, {"AAAB", "AAB", 1},
      {"AB", "ABC", -1},    {"A", "A", 0},         {"AB", "B", 1},       {"", "A", -1},
      {"A", "", -1},        {"", "", -1},          {"abc", "B", -1},     {"A\0B"s, "\0B"s, 1},
      {"A\xFF", "\xFF", 1}, {"ABC", "CD", -1},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.haystack) + " for " + shown(c.needle));
    const Exact first(c.haystack);
    const Exact second(c.needle);
    const STRING haystack = first.view();
    const STRING needle = second.view();
    EXPECT_EQ(utils_strstr(&haystack, &needle), c.expected);
  }
}

TEST(Strstr, BadArgumentsFindNothing) {
  const STRING abc = view("ABC");
  const STRING bad[] = {{nullptr, 3}, {"ABC", 0}, {"ABC", -1}, {nullptr, 0}};
  EXPECT_EQ(utils_strstr(nullptr, nullptr), -1);
  EXPECT_EQ(utils_strstr(nullptr, &abc), -1);
  EXPECT_EQ(utils_strstr(&abc, nullptr), -1);
  for (const STRING &s : bad) {
    EXPECT_EQ(utils_strstr(&s, &abc), -1);
    EXPECT_EQ(utils_strstr(&abc, &s), -1);
  }
}

} // namespace
