// Narrowing views at their ends; putting every character of a text to a predicate.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using support::Exact;
using support::Lent;
using support::shown;

namespace {

std::vector<int> asked;

int is_filler(int c) { return c == '<'; }
int is_blank_or_filler(int c) { return c == '<' || c == ' '; }
int is_letter(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
int is_negative(int c) { return c < 0; }
int yes(int) { return 1; }
int yes_minus_one(int) { return -1; }
int yes_256(int) { return 256; }
int no(int) { return 0; }
int yes_noted(int c) {
  asked.push_back(c);
  return 1;
}
int is_filler_noted(int c) {
  asked.push_back(c);
  return c == '<';
}

// ---- trimming by a set ------------------------------------------------------------------------------

// Where a view begins and how long it is, after each of the three trimmings.
struct Trim {
  std::string text;
  const char *chars;
  int start_offset, start_len;
  int end_len; // trimming the end never moves the beginning
  int both_offset, both_len;
};

const Trim trims[] = {
    {"<<SMITH<<", "<", 2, 7, 7, 2, 5},
    {"SMITH", "<", 0, 5, 5, 0, 5},
    {"<SMITH", "<", 1, 5, 6, 1, 5},
    {"SMITH<", "<", 0, 6, 5, 0, 5},
    {"A<B", "<", 0, 3, 3, 0, 3},
    {"<A<B<", "<", 1, 4, 4, 1, 3},
    {"<A", "<", 1, 1, 2, 1, 1},
    // A view of trimmed characters only ends up behind the last of them.
    {"<<<<", "<", 4, 0, 0, 4, 0},
    {"<", "<", 1, 0, 0, 1, 0},
    // A set of several characters, in any order and however often each is named.
    {"< <A> >", "< >", 3, 4, 4, 3, 1},
    {"< <A> >", "> <", 3, 4, 4, 3, 1},
    {"<<A", "<<<<", 2, 1, 3, 2, 1},
    {"ABCBA", "AB", 2, 3, 3, 2, 1},
    {"ABCBA", "BC", 0, 5, 5, 0, 5},
    // The empty set.
    {"<<A<<", "", 0, 5, 5, 0, 5},
    // NUL is never in a set, other bytes may be.
    {"\0A\0"s, "<", 0, 3, 3, 0, 3},
    {"\xFF\x80"
     "A\x80",
     "\x80\xFF", 2, 2, 3, 2, 1},
    {"\xC9"
     "A",
     "I", 0, 2, 2, 0, 2},
    {"\n\t A \r", " \t\n\r", 3, 3, 4, 3, 1},
};

TEST(StrtrimStart, Table) {
  for (const Trim &c : trims) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim_start(&s, c.chars);
    EXPECT_EQ(s.str - text.data(), c.start_offset);
    EXPECT_EQ(s.len, c.start_len);
    EXPECT_EQ(std::string(text.data(), c.text.size()), c.text);
  }
}

TEST(StrtrimEnd, Table) {
  for (const Trim &c : trims) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim_end(&s, c.chars);
    EXPECT_EQ(s.str, text.data());
    EXPECT_EQ(s.len, c.end_len);
    EXPECT_EQ(std::string(text.data(), c.text.size()), c.text);
  }
}

TEST(Strtrim, Table) {
  for (const Trim &c : trims) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim(&s, c.chars);
    EXPECT_EQ(s.str - text.data(), c.both_offset);
    EXPECT_EQ(s.len, c.both_len);
  }
}

TEST(Strtrim, EveryByteCanBeTrimmed) {
  for (int b = 1; b < 256; b += 1) {
    const char c = static_cast<char>(b);
    const char other = c == 'x' ? 'y' : 'x';
    const char set[2] = {c, '\0'};
    const char text[3] = {c, other, c};
    STRING s = {text, 3};
    utils_strtrim(&s, set);
    EXPECT_EQ(s.str, text + 1) << b;
    EXPECT_EQ(s.len, 1) << b;
  }
}

// ---- trimming by a predicate ------------------------------------------------------------------------

struct TrimF {
  std::string text;
  _t_predicate_func f;
  int start_offset, start_len;
  int end_len;
  int both_offset, both_len;
};

const TrimF trims_f[] = {
    {"<<SMITH<<", is_filler, 2, 7, 7, 2, 5},
    {"SMITH", is_filler, 0, 5, 5, 0, 5},
    {"<A<B<", is_filler, 1, 4, 4, 1, 3},
    {" <A< ", is_blank_or_filler, 2, 3, 3, 2, 1},
    {"<<<<", is_filler, 4, 0, 0, 4, 0},
    {"ABC", yes, 3, 0, 0, 3, 0},
    {"ABC", yes_minus_one, 3, 0, 0, 3, 0},
    {"ABC", yes_256, 3, 0, 0, 3, 0},
    {"ABC", no, 0, 3, 3, 0, 3},
    {"\x80\xFF"
     "A\xC9",
     is_negative, 2, 2, 3, 2, 1},
    {"\0A\0"s, is_filler, 0, 3, 3, 0, 3},
    {"\0A\0"s, patter_trim_space, 1, 2, 2, 1, 1},
};

TEST(StrtrimStartF, Table) {
  for (const TrimF &c : trims_f) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim_start_f(&s, c.f);
    EXPECT_EQ(s.str - text.data(), c.start_offset);
    EXPECT_EQ(s.len, c.start_len);
  }
}

TEST(StrtrimEndF, Table) {
  for (const TrimF &c : trims_f) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim_end_f(&s, c.f);
    EXPECT_EQ(s.str, text.data());
    EXPECT_EQ(s.len, c.end_len);
  }
}

TEST(StrtrimF, Table) {
  for (const TrimF &c : trims_f) {
    SCOPED_TRACE(shown(c.text));
    const Exact text(c.text);
    STRING s = text.view();
    utils_strtrim_f(&s, c.f);
    EXPECT_EQ(s.str - text.data(), c.both_offset);
    EXPECT_EQ(s.len, c.both_len);
  }
}

TEST(StrtrimF, AsksTheStartFirstThenTheEndAndNoFurtherThanNeeded) {
  const char text[] = "<ABC<<";
  STRING s = {text, 6};
  asked.clear();
  utils_strtrim_f(&s, is_filler_noted);
  EXPECT_EQ(asked, (std::vector<int>{'<', 'A', '<', '<', 'C'}));
  STRING fillers = {"<<", 2};
  asked.clear();
  utils_strtrim_f(&fillers, is_filler_noted);
  EXPECT_EQ(asked, (std::vector<int>{'<', '<'}));
}

TEST(Strtrim, EmptyViewsStayExactlyAsTheyAre) {
  const char text[] = "<<<";
  const STRING empty_views[] = {{text, 0},    {text, -1},   {text, INT_MIN},
                                {nullptr, 0}, {nullptr, 3}, {nullptr, -1}};
  for (const STRING &empty : empty_views) {
    STRING s = empty;
    utils_strtrim_start(&s, "<");
    utils_strtrim_end(&s, "<");
    utils_strtrim(&s, "<");
    utils_strtrim_start_f(&s, is_filler);
    utils_strtrim_end_f(&s, is_filler);
    utils_strtrim_f(&s, is_filler);
    EXPECT_EQ(s.str, empty.str);
    EXPECT_EQ(s.len, empty.len);
  }
}

TEST(Strtrim, DoesNothingWithoutAView) {
  utils_strtrim_start(nullptr, "<");
  utils_strtrim_end(nullptr, "<");
  utils_strtrim(nullptr, "<");
  utils_strtrim_start_f(nullptr, is_filler);
  utils_strtrim_end_f(nullptr, is_filler);
  utils_strtrim_f(nullptr, is_filler);
}

TEST(Strtrim, WithoutASetOrPredicateNothingIsDropped) {
  const char text[] = "<<A<<";
  STRING s = {text, 5};
  utils_strtrim_start(&s, nullptr);
  utils_strtrim_end(&s, nullptr);
  utils_strtrim(&s, nullptr);
  utils_strtrim_start_f(&s, nullptr);
  utils_strtrim_end_f(&s, nullptr);
  utils_strtrim_f(&s, nullptr);
  EXPECT_EQ(s.str, text);
  EXPECT_EQ(s.len, 5);
}

// ---- trimming a buffer in place ---------------------------------------------------------------------

TEST(Cstrtrim, MovesTheRestToTheFrontAndLeavesTheOtherBytes) {
  struct Case {
    const char *before;
    int len;
    const char *chars;
    int expected;
    const char *after; // the whole buffer: no NUL is written, nothing is cleared
  };
  const Case cases[] = {
      {"  ab  ", 6, " ", 2, "abab  "},
      {"ab  ", 4, " ", 2, "ab  "},
      {"  ab", 4, " ", 2, "abab"},
      {"  abcdef", 8, " ", 6, "abcdefef"},
      {"ab", 2, " ", 2, "ab"},
      {"    ", 4, " ", 0, "    "},
      {"<a b>", 5, "<>", 3, "a bb>"},
      {"<<ab", 4, "", 4, "<<ab"},
      // Only the given length counts.
      {"  ab  ", 4, " ", 2, "abab  "},
      {"  ab  ", 3, " ", 1, "a ab  "},
      {"  ab  ", 1, " ", 0, "  ab  "},
      // Bad arguments give the length back as it came.
      {"  ab  ", 0, " ", 0, "  ab  "},
      {"  ab  ", -1, " ", -1, "  ab  "},
      {"  ab  ", INT_MIN, " ", INT_MIN, "  ab  "},
      {"  ab  ", 6, nullptr, 6, "  ab  "},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.before);
    const std::string before = c.before;
    Lent buffer(static_cast<int>(before.size()));
    before.copy(buffer.data(), before.size());
    EXPECT_EQ(utils_cstrtrim(buffer.data(), c.len, c.chars), c.expected);
    EXPECT_EQ(buffer.shown(), c.after);
    EXPECT_TRUE(buffer.guards_intact());
  }
  EXPECT_EQ(utils_cstrtrim(nullptr, 6, " "), 6);
  EXPECT_EQ(utils_cstrtrim(nullptr, -6, " "), -6);
  EXPECT_EQ(utils_cstrtrim(nullptr, 0, nullptr), 0);
}

// ---- checks -----------------------------------------------------------------------------------------

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
    EXPECT_EQ(utils_strcheck_f(&s, yes_noted), 0) << len;
    EXPECT_TRUE(asked.empty());
  }
}

TEST(StrcheckF, PredicatesGetBytesAbove7FAsNegativeNumbers) {
  const STRING s = {"\x00\x7F\x80\xC9\xFF", 5};
  asked.clear();
  EXPECT_EQ(utils_strcheck_f(&s, yes_noted), 0);
  EXPECT_EQ(asked, (std::vector<int>{0, 127, -128, -55, -1}));
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("\x7F\x80\xC9\xFF", yes_noted), 0);
  EXPECT_EQ(asked, (std::vector<int>{127, -128, -55, -1}));
  asked.clear();
  STRING trimmed = s;
  utils_strtrim_start_f(&trimmed, yes_noted);
  EXPECT_EQ(asked, (std::vector<int>{0, 127, -128, -55, -1}));
  asked.clear();
  trimmed = s;
  utils_strtrim_end_f(&trimmed, yes_noted);
  EXPECT_EQ(asked, (std::vector<int>{-1, -55, -128, 127, 0}));
}

TEST(StrcheckF, AsksNoFurtherThanTheFirstRefusal) {
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("<<A<", is_filler_noted), 3);
  EXPECT_EQ(asked, (std::vector<int>{'<', '<', 'A'}));
}

TEST(CstrcheckF, TheNulIsNeverAskedAbout) {
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("AB", yes_noted), 0);
  EXPECT_EQ(asked, (std::vector<int>{'A', 'B'}));
  asked.clear();
  EXPECT_EQ(utils_cstrcheck_f("", no), 0);
  EXPECT_EQ(utils_cstrcheck_f("", yes_noted), 0);
  EXPECT_TRUE(asked.empty());
}

// ---- dropping a prefix ------------------------------------------------------------------------------

TEST(StrtrimBegin, Table) {
  struct Case {
    int len;
    int begin;
    int offset;
    int expected;
  };
  const Case cases[] = {
      {3, 1, 1, 2},
      {3, 2, 2, 1},
      // An emptied view stays on its last character, not past its end.
      {3, 3, 2, 0},
      {3, 4, 2, 0},
      {3, INT_MAX, 2, 0},
      {1, 1, 0, 0},
      {6, 5, 5, 1},
      {6, 6, 5, 0},
      {3, 0, 0, 3},
      {3, -1, 0, 3},
      {3, INT_MIN, 0, 3},
      {0, 1, 0, 0},
      {-1, 0, 0, -1},
      {-1, -1, 0, -1},
  };
  const char *text = "ABCDEF";
  for (const Case &c : cases) {
    STRING s = {text, c.len};
    utils_strtrim_begin(&s, c.begin);
    EXPECT_EQ(s.str - text, c.offset) << c.len << " from " << c.begin;
    EXPECT_EQ(s.len, c.expected) << c.len << " from " << c.begin;
  }
}

TEST(StrtrimBegin, LeavesNullAlone) {
  utils_strtrim_begin(nullptr, 1);
  STRING s = {nullptr, 3};
  utils_strtrim_begin(&s, 1);
  EXPECT_EQ(s.str, nullptr);
  EXPECT_EQ(s.len, 3);
}

} // namespace
