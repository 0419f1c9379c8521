// Replacing text in place.
#include <climits>
#include <string>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

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
    // Nothing after the text is touched, a terminator least of all.
    const std::size_t longest = c.after.size() > c.before.size() ? c.after.size() : c.before.size();
    EXPECT_EQ(buffer.bytes().substr(longest), std::string(buffer.bytes().size() - longest, '.'));
    EXPECT_EQ(buffer.bytes().find('\0', c.after.size()), std::string::npos);
  }
}

TEST(Strreplace, NeverDeletesAndNeedsBothTexts) {
  const STRING filler = view("<");
  const STRING space = view(" ");
  const STRING bad[] = {{nullptr, 1}, {"<", 0}, {"<", -1}, {nullptr, 0}};
  for (const STRING &s : bad) {
    Lent buffer(5);
    std::string("A<B<C").copy(buffer.data(), 5);
    EXPECT_EQ(utils_strreplace(buffer.data(), 5, 5, &s, &space), 5);
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
  const STRING space = view(" ");
  Lent buffer(4, '<');
  EXPECT_EQ(utils_strreplace(buffer.data(), 2, 4, &filler, &space), 2);
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

} // namespace
