// Cutting text into tokens, and dropping some of them.
#include <climits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

const STRING untouched = {"untouched", 9};

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
    // Entries from the capacity on stay as they were; so does every one after the first left over.
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

TEST(Strntok, ATokenWithoutAPlaceToGoIsNotSought) {
  const STRING text = view("ONE TWO");
  EXPECT_EQ(utils_strntok(&text, nullptr, 0, " "), -1);
}

} // namespace
