// Finding runs, cutting text into tokens, comparing, searching, replacing in place.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using support::Exact;
using support::Lent;
using support::shown;
using support::text;
using support::view;

namespace {

std::vector<int> asked;

int is_digit(int c) { return c >= '0' && c <= '9'; }
int is_letter(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
int is_negative(int c) { return c < 0 ? -1 : 0; }
int is_digit_noted(int c) {
  asked.push_back(c);
  return c >= '0' && c <= '9';
}

const STRING untouched = {"untouched", 9};

// ---- runs of a class --------------------------------------------------------------------------------

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

TEST(MatchF, Table) {
  for (const Match &c : matches) {
    SCOPED_TRACE(shown(c.source) + " " + std::to_string(c.min) + " to " + std::to_string(c.max));
    const Exact source(c.source);
    const STRING s = source.view();
    STRING match = untouched;
    STRING tail = untouched;
    EXPECT_EQ(utils_match_f(&s, c.f, c.min, c.max, &match, &tail), c.found);
    EXPECT_EQ(match.str - source.data(), c.start);
    EXPECT_EQ(match.len, c.len);
    EXPECT_EQ(tail.str - source.data(), c.tail);
    EXPECT_EQ(tail.len, source.size() - c.tail);
  }
}

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

TEST(MatchStartF, Table) {
  for (const Match &c : starts) {
    SCOPED_TRACE(shown(c.source) + " " + std::to_string(c.min) + " to " + std::to_string(c.max));
    const Exact source(c.source);
    const STRING s = source.view();
    STRING match = untouched;
    STRING tail = untouched;
    EXPECT_EQ(utils_match_start_f(&s, c.f, c.min, c.max, &match, &tail), c.found);
    EXPECT_EQ(match.str - source.data(), c.start);
    EXPECT_EQ(match.len, c.len);
    EXPECT_EQ(tail.str - source.data(), c.tail);
    EXPECT_EQ(tail.len, source.size() - c.tail);
  }
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
  utils_match_f(&s, is_digit_noted, 1, 2, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A', '1', '2'}));
  asked.clear();
  utils_match_f(&s, is_digit_noted, 1, 9, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A', '1', '2', 'B'}));
  asked.clear();
  utils_match_start_f(&s, is_digit_noted, 1, 9, nullptr, nullptr);
  EXPECT_EQ(asked, (std::vector<int>{'A'}));
}

// ---- tokens -----------------------------------------------------------------------------------------

TEST(Strtok, Table) {
  struct Case {
    std::string source;
    const char *delimiters;
    int flags;
    int token_at, token_len;
    int tail_at;
  };
  const Case cases[] = {
      {"SMITH<<JOHN", "<", 0, 0, 5, 6}, // one delimiter is consumed: tail <JOHN
      {"SMITH<<JOHN", "<", 1, 0, 5, 6},
      {"<<SMITH<JOHN", "<", 0, 0, 0, 1},
      {"<<SMITH<JOHN", "<", 1, 2, 5, 8},
      {"SMITH", "<", 0, 0, 5, 5},
      {"SMITH<", "<", 0, 0, 5, 6},
      {"SMITH<", "<", 1, 0, 5, 6},
      {"<", "<", 0, 0, 0, 1},
      {"<", "<", 1, 1, 0, 1},
      {"<<<", "<", 1, 3, 0, 3},
      {"<<<", "<", 0, 0, 0, 1},
      {"A,B;C", ",;", 0, 0, 1, 2},
      {"A;B,C", ",;", 0, 0, 1, 2},
      {",;,A,", ",;", 1, 3, 1, 5},
      {"A<B", "", 0, 0, 3, 3},
      {"A<B", "", 1, 0, 3, 3},
      {"", "<", 0, 0, 0, 0},
      {"", "<", 1, 0, 0, 0},
      // Only bit 0 of the flags counts.
      {"<A", "<", 2, 0, 0, 1},
      {"<A", "<", 3, 1, 1, 2},
      {"<A", "<", -1, 1, 1, 2},
      {"<A", "<", -2, 0, 0, 1},
      // NUL is no delimiter; other bytes may be.
      {"A\0B"s, "<", 0, 0, 3, 3},
      {"A\xFF"
       "B",
       "\xFF", 0, 0, 1, 2},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.source) + " flags " + std::to_string(c.flags));
    const Exact source(c.source);
    const STRING s = source.view();
    STRING token = untouched;
    STRING tail = untouched;
    utils_strtok(&s, &token, &tail, c.delimiters, c.flags);
    EXPECT_EQ(token.str - source.data(), c.token_at);
    EXPECT_EQ(token.len, c.token_len);
    EXPECT_EQ(tail.str - source.data(), c.tail_at);
    EXPECT_EQ(tail.len, source.size() - c.tail_at);
    EXPECT_EQ(s.str, source.data());
    EXPECT_EQ(s.len, source.size());
  }
}

TEST(Strtok, TheTailMayBeTheSource) {
  STRING s = view("A<BC<<D");
  STRING token;
  std::vector<std::string> tokens;
  while (s.len > 0) {
    utils_strtok(&s, &token, &s, "<", 0);
    tokens.push_back(text(token));
  }
  EXPECT_EQ(tokens, (std::vector<std::string>{"A", "BC", "", "D"}));
}

TEST(Strtok, AnEmptySourceGivesAnEmptyTokenWhereItStands) {
  const STRING s = {nullptr, 0};
  STRING token = untouched;
  STRING tail = untouched;
  utils_strtok(&s, &token, &tail, "<", 1);
  EXPECT_EQ(token.str, nullptr);
  EXPECT_EQ(token.len, 0);
  EXPECT_EQ(tail.str, nullptr);
  EXPECT_EQ(tail.len, 0);
}

TEST(Strntok, Table) {
  struct Case {
    const char *source;
    int num;
    const char *delimiters;
    const char *expected; // null for not found
  };
  const Case cases[] = {
      {"<<SMITH<<JOHN", 0, "<", "SMITH"},
      {"<<SMITH<<JOHN", 1, "<", "JOHN"},
      {"<<SMITH<<JOHN", 2, "<", nullptr},
      {"<<SMITH<<JOHN", INT_MAX, "<", nullptr},
      {"<<SMITH<<JOHN<<", 1, "<", "JOHN"},
      {"<<SMITH<<JOHN<<", 2, "<", nullptr},
      {"SMITH", 0, "<", "SMITH"},
      {"SMITH", 1, "<", nullptr},
      {"SMITH<", 0, "<", "SMITH"},
      {"SMITH<", 1, "<", nullptr},
      {"<<<", 0, "<", nullptr},
      {"A,B;C", 2, ",;", "C"},
      {"A,B;C", 0, "", "A,B;C"},
      {"A,B;C", 1, "", nullptr},
      {"A", -1, "<", nullptr},
      {"A", INT_MIN, "<", nullptr},
      {"", 0, "<", nullptr},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(std::string(c.source) + " number " + std::to_string(c.num));
    const Exact source(c.source);
    const STRING s = source.view();
    STRING out = untouched;
    EXPECT_EQ(utils_strntok(&s, &out, c.num, c.delimiters), c.expected == nullptr ? -1 : 0);
    EXPECT_EQ(text(out), c.expected == nullptr ? "untouched" : c.expected);
  }
}

TEST(Strntok, BadSourcesFindNothing) {
  STRING out = untouched;
  const STRING null_text = {nullptr, 3};
  const STRING negative = {"ABC", -1};
  EXPECT_EQ(utils_strntok(nullptr, &out, 0, "<"), -1);
  EXPECT_EQ(utils_strntok(&null_text, &out, 0, "<"), -1);
  EXPECT_EQ(utils_strntok(&negative, &out, 0, "<"), -1);
  EXPECT_EQ(text(out), "untouched");
}

TEST(Strntok, TheOutputMayBeTheSource) {
  STRING s = view("A<B<C");
  EXPECT_EQ(utils_strntok(&s, &s, 1, "<"), 0);
  EXPECT_EQ(text(s), "B");
}

TEST(Strsplit, Table) {
  struct Case {
    std::string source;
    int capacity;
    const char *delimiters;
    int flags;
    std::vector<std::string> expected;
  };
  const Case cases[] = {
      {"A,,B", 9, ",", 0, {"A", "", "B"}},
      {"A,,B", 9, ",", 1, {"A", "B"}},
      {"A,", 9, ",", 0, {"A"}},
      {"A,", 9, ",", 1, {"A"}},
      {"A,,", 9, ",", 0, {"A", ""}},
      {",A", 9, ",", 0, {"", "A"}},
      {",A", 9, ",", 1, {"A"}},
      {",", 9, ",", 0, {""}},
      {",", 9, ",", 1, {}},
      {",,,", 9, ",", 0, {"", "", ""}},
      {",,,", 9, ",", 1, {}},
      {"A", 9, ",", 0, {"A"}},
      {"A,B;C", 9, ",;", 0, {"A", "B", "C"}},
      {"A,B", 9, "", 0, {"A,B"}},
      {"A,B", 9, "", 1, {"A,B"}},
      // Tokens beyond the capacity are not looked at.
      {"A,B,C", 2, ",", 0, {"A", "B"}},
      {"A,B,C", 1, ",", 1, {"A"}},
      {"A,B,C", 3, ",", 0, {"A", "B", "C"}},
      {",,A,,B", 2, ",", 1, {"A", "B"}},
      {",,A,,B", 2, ",", 0, {"", ""}},
      {"A,B,C", 0, ",", 0, {}},
      {"A,B,C", -1, ",", 0, {}},
      // Only bit 0 of the flags counts.
      {"A,,B", 9, ",", 2, {"A", "", "B"}},
      {"A,,B", 9, ",", -1, {"A", "B"}},
      {"", 9, ",", 0, {}},
      {"A\0B"s, 9, ",", 0, {"A\0B"s}},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.source + " flags " + std::to_string(c.flags) + " into " + std::to_string(c.capacity));
    const Exact source(c.source);
    const STRING s = source.view();
    std::vector<STRING> out(10, untouched);
    const int n = utils_strsplit(&s, out.data(), c.capacity, c.delimiters, c.flags);
    ASSERT_EQ(n, static_cast<int>(c.expected.size()));
    for (int i = 0; i < n; i += 1) {
      EXPECT_EQ(text(out[static_cast<std::size_t>(i)]), c.expected[static_cast<std::size_t>(i)]);
      EXPECT_NE(out[static_cast<std::size_t>(i)].str, nullptr);
    }
    // Entries from the capacity on stay as they were; so does every one behind the first left over.
    for (int i = n + 1; i < 10; i += 1)
      EXPECT_EQ(text(out[static_cast<std::size_t>(i)]), "untouched");
    if (c.capacity >= 0 && n == c.capacity) {
      EXPECT_EQ(text(out[static_cast<std::size_t>(n)]), "untouched");
    }
  }
}

TEST(Strsplit, BadArgumentsGiveNoTokens) {
  const STRING s = view("A,B");
  const STRING null_text = {nullptr, 3};
  const STRING negative = {"A,B", -1};
  STRING out[2] = {untouched, untouched};
  EXPECT_EQ(utils_strsplit(nullptr, out, 2, ",", 0), 0);
  EXPECT_EQ(utils_strsplit(&null_text, out, 2, ",", 0), 0);
  EXPECT_EQ(utils_strsplit(&negative, out, 2, ",", 0), 0);
  EXPECT_EQ(utils_strsplit(&s, nullptr, 2, ",", 0), 0);
  EXPECT_EQ(utils_strsplit(&s, out, INT_MIN, ",", 0), 0);
  EXPECT_EQ(text(out[0]), "untouched");
  EXPECT_EQ(text(out[1]), "untouched");
}

TEST(Rmtok, KeepsTheOthersInOrder) {
  struct Case {
    std::vector<std::string> tokens;
    std::vector<const char *> patterns;
    std::vector<std::string> kept;
  };
  const Case cases[] = {
      {{"A", "JR", "B"}, {"JR"}, {"A", "B"}},
      {{"JR", "A", "SR", "B", "JR"}, {"JR", "SR"}, {"A", "B"}},
      {{"A", "B"}, {"C"}, {"A", "B"}},
      {{"A", "B"}, {}, {"A", "B"}},
      {{"A", "A"}, {"A"}, {}},
      {{"A", "AB", "ABC"}, {"AB"}, {"A", "ABC"}},
      {{"a", "A"}, {"A"}, {"a"}},
      {{"A", "", "B"}, {""}, {"A", "B"}},
      {{}, {"A"}, {}},
  };
  for (const Case &c : cases) {
    std::vector<STRING> tokens;
    for (const std::string &token : c.tokens)
      tokens.push_back(view(token));
    std::vector<const char *> patterns = c.patterns;
    const int n = utils_rmtok(tokens.data(), static_cast<int>(tokens.size()), patterns.data(),
                              static_cast<int>(patterns.size()));
    ASSERT_EQ(n, static_cast<int>(c.kept.size()));
    for (std::size_t i = 0; i < c.kept.size(); i += 1)
      EXPECT_EQ(text(tokens[i]), c.kept[i]);
  }
}

TEST(Rmtok, EntriesBehindTheKeptOnesAreLeftOver) {
  STRING tokens[4] = {view("X"), view("A"), view("X"), view("B")};
  const char *patterns[] = {"X"};
  EXPECT_EQ(utils_rmtok(tokens, 4, patterns, 1), 2);
  EXPECT_EQ(text(tokens[0]), "A");
  EXPECT_EQ(text(tokens[1]), "B");
  EXPECT_EQ(text(tokens[2]), "X");
  EXPECT_EQ(text(tokens[3]), "B");
}

TEST(Rmtok, CountsOfZeroOrLess) {
  STRING tokens[1] = {view("X")};
  const char *patterns[] = {"X"};
  EXPECT_EQ(utils_rmtok(tokens, 0, patterns, 1), 0);
  EXPECT_EQ(utils_rmtok(tokens, -1, patterns, 1), 0);
  EXPECT_EQ(utils_rmtok(tokens, 1, patterns, 0), 1);
  EXPECT_EQ(utils_rmtok(tokens, 1, patterns, -1), 1);
  EXPECT_EQ(text(tokens[0]), "X");
}

TEST(Rmtok, ANullPatternEqualsATokenWithoutText) {
  STRING tokens[3] = {view("A"), {nullptr, 0}, view("")};
  const char *patterns[] = {nullptr};
  EXPECT_EQ(utils_rmtok(tokens, 3, patterns, 1), 2);
  EXPECT_EQ(text(tokens[0]), "A");
  EXPECT_NE(tokens[1].str, nullptr);
}

// ---- comparing --------------------------------------------------------------------------------------

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
      // Only two letters are folded: '[', '_' and '{' stand between and behind the alphabets.
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

// ---- replacing --------------------------------------------------------------------------------------

TEST(Strreplace, Table) {
  struct Case {
    std::string before;
    int max_len;
    const char *from, *to;
    std::string after;
  };
  const Case cases[] = {
      // Growing, with room and without.
      {"A<B", 3, "<", "  ", "A<B"},
      {"A<B", 4, "<", "  ", "A  B"},
      {"A<B", 9, "<", "  ", "A  B"},
      {"<", 3, "<", "ABC", "ABC"},
      {"<<", 6, "<", "ABC", "ABCABC"},
      {"<<", 5, "<", "ABC", "ABC<"}, // earlier replacements stay done
      {"A<B<C<", 7, "<", "--", "A--B<C<"},
      {"A<B<C<", 8, "<", "--", "A--B--C<"},
      {"A<B<C<", 9, "<", "--", "A--B--C--"},
      {"AXYB", 6, "XY", "1234", "A1234B"},
      {"AXYB", 5, "XY", "1234", "AXYB"},
      // Shrinking, whatever the room.
      {"A<<<<B", 6, "<<", "<", "A<<B"},
      {"A<<<<B", 0, "<<", "<", "A<<B"},
      {"<<<", 9, "<<", "<", "<<"},
      {"<<", 9, "<<", "A", "A"},
      {"ABCABC", 9, "ABC", "X", "XX"},
      {"XABCYABCZ", 9, "ABC", "12", "X12Y12Z"},
      {"ABCDE", 9, "ABCD", "X", "XE"},
      // Equal lengths, whatever the room.
      {"A<B<C", 5, "<", " ", "A B C"},
      {"A<B<C", 0, "<", " ", "A B C"},
      {"aaa", 3, "aa", "bb", "bba"}, // occurrences do not overlap
      {"aaaa", 4, "aa", "bb", "bbbb"},
      {"ABABA", 5, "ABA", "BAB", "BABBA"},
      // Replaced text is not searched again.
      {"aa", 9, "a", "aa", "aaaa"},
      {"aaaa", 9, "aa", "a", "aa"},
      {"ab", 9, "ab", "aab", "aab"},
      {"xay", 9, "a", "a", "xay"},
      // No occurrence.
      {"ABC", 9, "X", "YY", "ABC"},
      {"ABC", 9, "ABCD", "Y", "ABC"},
      {"", 9, "A", "BB", ""},
      {"ABAC", 9, "AA", "B", "ABAC"},
      {"AAB", 9, "AB", "C", "AC"},
      {"A\0B"s, 9, "\xFF", "B", "A\0B"s},
      {"A\xFFZ", 9, "\xFF", "\x80\x80", "A\x80\x80Z"},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.before) + ": " + c.from + " to " + c.to + " in " + std::to_string(c.max_len));
    const int len = static_cast<int>(c.before.size());
    Lent buffer(c.max_len > len ? c.max_len : len);
    c.before.copy(buffer.data(), c.before.size());
    const Exact from_text(c.from);
    const Exact to_text(c.to);
    const STRING from = from_text.view();
    const STRING to = to_text.view();
    const int after = utils_strreplace(buffer.data(), len, c.max_len, &from, &to);
    ASSERT_EQ(after, static_cast<int>(c.after.size()));
    EXPECT_EQ(buffer.bytes().substr(0, c.after.size()), c.after);
    EXPECT_TRUE(buffer.guards_intact());
    // Nothing behind the text is touched, a terminator least of all.
    const std::size_t longest = c.after.size() > c.before.size() ? c.after.size() : c.before.size();
    EXPECT_EQ(buffer.bytes().substr(longest), std::string(buffer.bytes().size() - longest, '.'));
    EXPECT_EQ(buffer.bytes().find('\0', c.after.size()), std::string::npos);
  }
}

TEST(Strreplace, NeverDeletesAndNeedsBothTexts) {
  const STRING filler = view("<");
  const STRING blank = view(" ");
  const STRING bad[] = {{nullptr, 1}, {"<", 0}, {"<", -1}, {nullptr, 0}};
  for (const STRING &s : bad) {
    Lent buffer(5);
    std::string("A<B<C").copy(buffer.data(), 5);
    EXPECT_EQ(utils_strreplace(buffer.data(), 5, 5, &s, &blank), 5);
    EXPECT_EQ(utils_strreplace(buffer.data(), 5, 5, &filler, &s), 5);
    EXPECT_EQ(utils_strreplace(buffer.data(), -7, 5, &filler, &s), -7);
    EXPECT_EQ(buffer.shown(), "A<B<C");
  }
}

TEST(Strreplace, ALengthOfZeroOrLessHasNoOccurrences) {
  const STRING filler = view("<");
  const STRING two = view("--");
  for (const int len : {0, -1, INT_MIN}) {
    Lent buffer(4, '<');
    EXPECT_EQ(utils_strreplace(buffer.data(), len, 4, &filler, &two), len);
    EXPECT_EQ(utils_strreplace(buffer.data(), len, 4, &two, &filler), len);
    EXPECT_EQ(utils_strreplace(buffer.data(), len, 4, &filler, &filler), len);
    EXPECT_EQ(buffer.shown(), "<<<<");
  }
}

TEST(Strreplace, LooksAtTheGivenLengthOnly) {
  const STRING filler = view("<");
  const STRING blank = view(" ");
  Lent buffer(4, '<');
  EXPECT_EQ(utils_strreplace(buffer.data(), 2, 4, &filler, &blank), 2);
  EXPECT_EQ(buffer.shown(), "  <<");
}

TEST(Strreplace, LooksAtNothingBeforeTheText) {
  char text[] = "<<";
  const STRING from = view("<<");
  const STRING to = view("X");
  EXPECT_EQ(utils_strreplace(text + 1, 1, 1, &from, &to), 1);
  EXPECT_STREQ(text, "<<");
}

TEST(Strreplace, WithAnArgumentMissingChangesNothing) {
  char text[] = "ANNA";
  const STRING from = view("A");
  const STRING to = view("O");
  EXPECT_EQ(utils_strreplace(nullptr, 4, 4, &from, &to), 4);
  EXPECT_EQ(utils_strreplace(text, 4, 4, nullptr, &to), 4);
  EXPECT_EQ(utils_strreplace(text, 4, 4, &from, nullptr), 4);
  EXPECT_STREQ(text, "ANNA");
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

TEST(Strntok, ATokenWithoutAPlaceToGoIsNotSought) {
  const STRING text = view("ONE TWO");
  EXPECT_EQ(utils_strntok(&text, nullptr, 0, " "), -1);
}

} // namespace
