// Narrowing views at their ends, and a buffer in place.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

int is_space_or_filler(int c) { return c == '<' || c == ' '; }

// ---- trimming by a set ------------------------------------------------------------------------------

// Where a view begins and how long it is, after each of the three trimmings.
struct Trim {
  std::string text;
  int start_offset, start_len;
  int end_len; // trimming the end never moves the beginning
  int both_offset, both_len;
};

const std::pair<Trim, const char *> trims[] = {
    {{"<<SMITH<<", 2, 7, 7, 2, 5}, "<"},
    {{"SMITH", 0, 5, 5, 0, 5}, "<"},
    {{"<SMITH", 1, 5, 6, 1, 5}, "<"},
    {{"SMITH<", 0, 6, 5, 0, 5}, "<"},
    {{"A<B", 0, 3, 3, 0, 3}, "<"},
    {{"<A<B<", 1, 4, 4, 1, 3}, "<"},
    {{"<A", 1, 1, 2, 1, 1}, "<"},
    // A view of trimmed characters only ends up after the last of them.
    {{"<<<<", 4, 0, 0, 4, 0}, "<"},
    {{"<", 1, 0, 0, 1, 0}, "<"},
    // A set of several characters, in any order and however often each is named.
    {{"< <A> >", 3, 4, 4, 3, 1}, "< >"},
    {{"< <A> >", 3, 4, 4, 3, 1}, "> <"},
    {{"<<A", 2, 1, 3, 2, 1}, "<<<<"},
    {{"ABCBA", 2, 3, 3, 2, 1}, "AB"},
    {{"ABCBA", 0, 5, 5, 0, 5}, "BC"},
    // The empty set.
    {{"<<A<<", 0, 5, 5, 0, 5}, ""},
    // NUL is never in a set, other bytes may be.
    {{"\0A\0"s, 0, 3, 3, 0, 3}, "<"},
    {{"\xFF\x80"
      "A\x80",
      2, 2, 3, 2, 1},
     "\x80\xFF"},
    {{"\xC9"
      "A",
      0, 2, 2, 0, 2},
     "I"},
    {{"\n\t A \r", 3, 3, 4, 3, 1}, " \t\n\r"},
};

// All three trimmings of a text, by a set or by a predicate.
template <class Trimming, class Dropped>
void expect_trimmed(const Trim &c, Trimming start, Trimming end, Trimming both, Dropped dropped) {
  SCOPED_TRACE(shown(c.text));
  const Exact text(c.text);
  STRING s[3] = {text.view(), text.view(), text.view()};
  start(&s[0], dropped);
  end(&s[1], dropped);
  both(&s[2], dropped);
  EXPECT_EQ(s[0].str - text.data(), c.start_offset);
  EXPECT_EQ(s[0].len, c.start_len);
  EXPECT_EQ(s[1].str, text.data());
  EXPECT_EQ(s[1].len, c.end_len);
  EXPECT_EQ(s[2].str - text.data(), c.both_offset);
  EXPECT_EQ(s[2].len, c.both_len);
  EXPECT_EQ(std::string(text.data(), c.text.size()), c.text);
}

TEST(Strtrim, BySet) {
  for (const auto &[c, chars] : trims)
    expect_trimmed(c, utils_strtrim_start, utils_strtrim_end, utils_strtrim, chars);
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

const std::pair<Trim, _t_predicate_func> trims_f[] = {
    {{"<<SMITH<<", 2, 7, 7, 2, 5}, is_filler},
    {{"SMITH", 0, 5, 5, 0, 5}, is_filler},
    {{"<A<B<", 1, 4, 4, 1, 3}, is_filler},
    {{" <A< ", 2, 3, 3, 2, 1}, is_space_or_filler},
    {{"<<<<", 4, 0, 0, 4, 0}, is_filler},
    {{"ABC", 3, 0, 0, 3, 0}, yes},
    {{"ABC", 3, 0, 0, 3, 0}, yes_minus_one},
    {{"ABC", 3, 0, 0, 3, 0}, yes_256},
    {{"ABC", 0, 3, 3, 0, 3}, no},
    {{"\x80\xFF"
      "A\xC9",
      2, 2, 3, 2, 1},
     is_negative},
    {{"\0A\0"s, 0, 3, 3, 0, 3}, is_filler},
    {{"\0A\0"s, 1, 2, 2, 1, 1}, patter_trim_space},
};

TEST(StrtrimF, ByPredicate) {
  for (const auto &[c, f] : trims_f)
    expect_trimmed(c, utils_strtrim_start_f, utils_strtrim_end_f, utils_strtrim_f, f);
}

TEST(StrtrimF, AsksTheStartFirstThenTheEndAndNoFurtherThanNeeded) {
  const char text[] = "<ABC<<";
  STRING s = {text, 6};
  asked.clear();
  utils_strtrim_f(&s, noted<is_filler>);
  EXPECT_EQ(asked, (std::vector<int>{'<', 'A', '<', '<', 'C'}));
  STRING fillers = {"<<", 2};
  asked.clear();
  utils_strtrim_f(&fillers, noted<is_filler>);
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
