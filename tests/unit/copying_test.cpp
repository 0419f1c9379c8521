// Copiers with and without a terminator, into memory and into a slot; digits.
#include <climits>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

struct Copy {
  std::string source;
  const char *removed;
  const char *duplicate;
  char rep;
  int room;
  std::string expected;
};

const Copy copies[] = {
    // The way the layouts call it: a filler becomes a space, runs of spaces become one.
    {"D<<SMITH", "<", " ", ' ', 40, "D SMITH"},
    {"SMITH<<JOHN", "<", " ", ' ', 40, "SMITH JOHN"},
    {"A< <B", "<", " ", ' ', 40, "A B"},
    {"A  B", "<", " ", ' ', 40, "A B"},
    {"<<<<", "<", " ", ' ', 40, " "},
    {"<A", "<", " ", ' ', 40, " A"},
    {"<<A<<", "<", " ", ' ', 40, " A "},
    {"AABB", "<", " ", ' ', 40, "AABB"},
    // Without a replacement, removed characters vanish.
    {"D<<SMITH", "<", " ", '\0', 40, "DSMITH"},
    {"<<<<", "<", " ", '\0', 40, ""},
    {"A< <B", "<", " ", '\0', 40, "A B"},
    {"A< < B", "<", " ", '\0', 40, "A B"},
    // Null and empty sets.
    {"A<<B", nullptr, nullptr, ' ', 40, "A<<B"},
    {"A<<B", "", "", ' ', 40, "A<<B"},
    {"A<<B", nullptr, "<", ' ', 40, "A<B"},
    {"A<<B", "<", nullptr, ' ', 40, "A  B"},
    {"A<<B", "<", nullptr, '\0', 40, "AB"},
    // Sets of several characters.
    {"A-B.C", "-.", nullptr, '/', 40, "A/B/C"},
    {"AABBCC", nullptr, "AC", '\0', 40, "ABBC"},
    {"ABAB", nullptr, "AB", '\0', 40, "ABAB"},
    // The replacement is not removed in its turn, and it collapses with an equal neighbour on either side.
    {"A<B", "<_", nullptr, '_', 40, "A_B"},
    {"AXA", "X", "A", 'A', 40, "A"},
    {"A<A", "<", "A", '\0', 40, "A"},
    {"X<X", "<", "X", 'Y', 40, "XYX"},
    {"<<", "<", "<", '<', 40, "<"},
    {"<<", "<", nullptr, '<', 40, "<<"},
    // A text is cut to the room; what is left out takes none.
    {"ABCDEF", nullptr, nullptr, '\0', 1, "A"},
    {"ABCDEF", nullptr, nullptr, '\0', 5, "ABCDE"},
    {"ABCDEF", nullptr, nullptr, '\0', 6, "ABCDEF"},
    {"ABCDEF", nullptr, nullptr, '\0', 7, "ABCDEF"},
    {"A<<<B", "<", " ", ' ', 2, "A "},
    {"A<<<B", "<", " ", ' ', 3, "A B"},
    {"<<<AB", "<", " ", '\0', 1, "A"},
    {"<<<AB", "<", " ", '\0', 2, "AB"},
    // NUL is a character like any other in the source, and in no set.
    {"A\0\0B"s, "<", " ", ' ', 40, "A\0\0B"s},
    {"A\0\0B"s, "", "", '\0', 40, "A\0\0B"s},
    // Bytes above 0x7F.
    {"\xC9<\xC9", "<", "\xC9", '\0', 40, "\xC9"},
    {"\x80\xFF\x80", "\xFF", nullptr, '\0', 40, "\x80\x80"},
    {"\x80\xFF\x80", "\x80\xFF", "\xE9", '\xE9', 40, "\xE9"},
    {"I\xC9", "\xC9", nullptr, 'E', 40, "IE"},
};

// What a copier, the same with a terminator, and the same into a slot make of a text: the expected copy, in
// the room that it is given, in one byte more, and in a record of `slot_room` bytes.
template <class Copier, class Writer, class SlotWriter>
void expect_copies(const std::string &expected, int room, int slot_room, Copier copier, Writer writer,
                   SlotWriter slot_writer) {
  const auto filled_up = [](std::string text, int size) {
    return text.append(static_cast<std::size_t>(size) - text.size(), '.');
  };
  SCOPED_TRACE(shown(expected) + " in " + std::to_string(room));
  Lent out(room);
  EXPECT_EQ(copier(out.data(), room), static_cast<int>(expected.size()));
  EXPECT_EQ(out.bytes(), filled_up(expected, room));
  const std::string terminated = expected.empty() ? "" : expected + '\0';
  Lent written(room + 1);
  EXPECT_EQ(writer(written.data(), room + 1), static_cast<int>(terminated.size()));
  EXPECT_EQ(written.bytes(), filled_up(terminated, room + 1));
  Record record(slot_room);
  EXPECT_EQ(slot_writer(record.get()), record.slot(25));
  EXPECT_EQ(record.value(25), expected);
  EXPECT_EQ(record.offset(25), expected.empty() ? -1 : 0);
  EXPECT_EQ(record.slot(25)->value.len, static_cast<int>(expected.size()));
  EXPECT_TRUE(out.guards_intact() && written.guards_intact() && record.guards_intact());
}

// The same for each row of a table.
template <class Row, std::size_t n, class Copier, class Writer, class SlotWriter>
void expect_copies(const Row (&rows)[n], Copier copier, Writer writer, SlotWriter slot_writer) {
  for (const Row &c : rows) {
    SCOPED_TRACE(shown(c.source));
    const Exact source(c.source);
    const STRING src = source.view();
    expect_copies(
        c.expected, c.room, c.room,
        [&](char *out, int room) { return copier(out, room, &src, c.removed, c.duplicate, c.rep); },
        [&](char *out, int room) { return writer(out, room, &src, c.removed, c.duplicate, c.rep); },
        [&](PARSE_RESULT *r) { return slot_writer(r, 25, &src, c.removed, c.duplicate, c.rep); });
  }
}

TEST(Strcpy, BySet) { expect_copies(copies, utils_strcpy, utils_strwrite, utils_write_field); }

struct BadCopy {
  bool out;
  int room;
  bool source;
  const char *str;
  int len;
};

const BadCopy bad_copies[] = {
    {false, 8, true, "ABC", 3},      {true, 0, true, "ABC", 3},  {true, -1, true, "ABC", 3},
    {true, INT_MIN, true, "ABC", 3}, {true, 8, false, "ABC", 3}, {true, 8, true, nullptr, 3},
    {true, 8, true, "ABC", 0},       {true, 8, true, "ABC", -1}, {true, 8, true, "ABC", INT_MIN},
    {false, 0, false, nullptr, 0},
};

TEST(Strcpy, BadArgumentsCopyNothing) {
  for (const BadCopy &c : bad_copies) {
    Lent memory(8);
    const STRING src = {c.str, c.len};
    char *out = c.out ? memory.data() : nullptr;
    const STRING *source = c.source ? &src : nullptr;
    EXPECT_EQ(utils_strcpy(out, c.room, source, "<", " ", ' '), 0);
    EXPECT_EQ(utils_strcpy_f(out, c.room, source, nullptr, nullptr, ' '), 0);
    EXPECT_EQ(utils_strcpy_array(out, c.room, source, 1, '/', "<", " ", ' '), 0);
    EXPECT_EQ(utils_strwrite(out, c.room, source, "<", " ", ' '), 0);
    EXPECT_EQ(utils_strwrite_f(out, c.room, source, nullptr, nullptr, ' '), 0);
    EXPECT_EQ(utils_strwrite_array(out, c.room, source, 1, '/', "<", " ", ' '), 0);
    EXPECT_EQ(memory.shown(), "........");
    EXPECT_TRUE(memory.guards_intact());
  }
}

TEST(Strwrite, NeedsTwoBytes) {
  const STRING src = view("ABC");
  Lent out(2);
  EXPECT_EQ(utils_strwrite(out.data(), 1, &src, nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_f(out.data(), 1, &src, nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_s(out.data(), 1, "ABC"), 0);
  EXPECT_EQ(utils_strwrite_array(out.data(), 1, &src, 1, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(out.shown(), "..");
  EXPECT_EQ(utils_strwrite(out.data(), 2, &src, nullptr, nullptr, '\0'), 2);
  EXPECT_EQ(out.shown(), "A~");
}

TEST(StrwriteS, CopiesUnfilteredAndCuts) {
  struct Case {
    const char *text;
    int room;
    int expected;
    const char *picture;
  };
  const Case cases[] = {
      {"ABC", 8, 4, "ABC~...."}, {"ABC", 4, 4, "ABC~"},
      {"ABC", 3, 3, "AB~"},      {"ABC", 2, 2, "A~"},
      {"ABC", 1, 0, "."},        {"A<< B", 8, 6, "A<< B~.."},
      {"", 8, 0, "........"},    {"\xC9\xFF", 4, 3, "\xC9\xFF~."},
  };
  for (const Case &c : cases) {
    Lent out(c.room);
    EXPECT_EQ(utils_strwrite_s(out.data(), c.room, c.text), c.expected) << c.text;
    EXPECT_EQ(out.shown(), c.picture);
    EXPECT_TRUE(out.guards_intact());
  }
  Lent out(4);
  EXPECT_EQ(utils_strwrite_s(nullptr, 4, "ABC"), 0);
  EXPECT_EQ(utils_strwrite_s(out.data(), 0, "ABC"), 0);
  EXPECT_EQ(utils_strwrite_s(out.data(), -1, "ABC"), 0);
  EXPECT_EQ(utils_strwrite_s(out.data(), INT_MIN, "ABC"), 0);
  EXPECT_EQ(utils_strwrite_s(out.data(), 4, nullptr), 0);
  EXPECT_EQ(out.shown(), "....");
}

// ---- predicates -------------------------------------------------------------------------------------

TEST(StrcpyF, ByPredicate) {
  struct Case {
    std::string source;
    _t_predicate_func removed;
    _t_predicate_func duplicate;
    char rep;
    int room;
    std::string expected;
  };
  const Case cases[] = {
      {"D<<SMITH", is_filler, is_space, ' ', 40, "D SMITH"},
      {"D<<SMITH", is_filler, is_space, '\0', 40, "DSMITH"},
      {"A< <B", is_filler, is_space, ' ', 40, "A B"},
      {"<<<<", is_filler, is_space, ' ', 40, " "},
      {"<<<<", is_filler, is_space, '\0', 40, ""},
      {"A<<  B", nullptr, nullptr, ' ', 40, "A<<  B"},
      {"A<<  B", nullptr, is_space, ' ', 40, "A<< B"},
      {"A<<  B", is_filler, nullptr, ' ', 40, "A    B"},
      {"ABC", yes, nullptr, '*', 40, "***"},
      {"ABC", yes, yes, '*', 40, "*"},
      {"ABC", yes, no, '*', 40, "***"},
      {"ABC", no, yes, '*', 40, "ABC"},
      {"AAB", no, yes, '*', 40, "AB"},
      {"ABC", yes_minus_one, yes_256, '*', 40, "*"},
      {"ABC", yes_256, yes_minus_one, '\0', 40, ""},
      {"A<<B", is_filler, nullptr, ' ', 2, "A "},
      {"A<<B", is_filler, is_space, ' ', 3, "A B"},
      {"\0\0A"s, nullptr, nullptr, ' ', 40, "\0\0A"s},
      {"\0\0A"s, nullptr, yes, ' ', 40, "\0A"s},
      {"\xC9\xC9", nullptr, yes, ' ', 40, "\xC9"},
  };
  expect_copies(cases, utils_strcpy_f, utils_strwrite_f, utils_write_field_f);
}

TEST(StrcpyF, AsksAboutEveryCharacterThatIsLookedAtAndNoOther) {
  const STRING src = view("A<BC");
  Lent out(3);
  asked.clear();
  utils_strcpy_f(out.data(), 3, &src, noted<is_filler>, nullptr, ' ');
  EXPECT_EQ(asked, (std::vector<int>{'A', '<', 'B'}));
}

TEST(StrcpyF, AsksForADuplicateOnlyAboutARepeatedCharacter) {
  const STRING src = view("  A  A<B");
  Lent out(20);
  asked.clear();
  utils_strcpy_f(out.data(), 20, &src, is_filler, noted<is_space>, 'A');
  EXPECT_EQ(asked, (std::vector<int>{' ', ' ', 'A'}));
  EXPECT_EQ(out.bytes().substr(0, 6), " A AAB");
}

TEST(StrcpyF, PredicatesGetBytesAbove7FAsNegativeNumbers) {
  std::string every_byte;
  std::vector<int> expected;
  for (int c = -128; c <= 127; c += 1) {
    every_byte += static_cast<char>(c);
    expected.push_back(c);
  }
  const Exact source(every_byte);
  const STRING src = source.view();
  Lent out(256);
  asked.clear();
  EXPECT_EQ(utils_strcpy_f(out.data(), 256, &src, noted<is_negative>, nullptr, '\0'), 128);
  EXPECT_EQ(asked, expected);
  EXPECT_EQ(static_cast<int>(out.bytes()[0]), 0);
  EXPECT_EQ(static_cast<int>(out.bytes()[127]), 127);
}

TEST(Strcpy, EveryByteCanBeCopiedRemovedReplacedAndCollapsed) {
  for (int b = 1; b < 256; b += 1) {
    const char c = static_cast<char>(b);
    const char set[2] = {c, '\0'};
    const char other = c == 'x' ? 'y' : 'x';
    const char text[4] = {c, c, other, c};
    const STRING src = {text, 4};
    Lent out(4);
    EXPECT_EQ(utils_strcpy(out.data(), 4, &src, nullptr, nullptr, '\0'), 4) << b;
    EXPECT_EQ(out.bytes(), (std::string{c, c, other, c})) << b;
    EXPECT_EQ(utils_strcpy(out.data(), 4, &src, set, nullptr, '\0'), 1) << b;
    EXPECT_EQ(out.bytes()[0], other) << b;
    EXPECT_EQ(utils_strcpy(out.data(), 4, &src, nullptr, set, '\0'), 3) << b;
    EXPECT_EQ(out.bytes().substr(0, 3), (std::string{c, other, c})) << b;
    const STRING one = {&other, 1};
    const char others[2] = {other, '\0'};
    EXPECT_EQ(utils_strcpy(out.data(), 4, &one, others, nullptr, c), 1) << b;
    EXPECT_EQ(out.bytes()[0], c) << b;
  }
}

// ---- copying several texts --------------------------------------------------------------------------

struct Join {
  std::vector<STRING> parts;
  char sep;
  const char *removed;
  const char *duplicate;
  char rep;
  int room;
  std::string expected;
};

const STRING no_text = {nullptr, 5};
const STRING negative = {"ABC", -1};

const Join joins[] = {
    {{view("AB"), view(""), view("C")}, '/', nullptr, nullptr, '\0', 40, "AB/C"},
    {{view("AB"), no_text, negative, view("C")}, '/', nullptr, nullptr, '\0', 40, "AB/C"},
    {{view(""), view("AB")}, '/', nullptr, nullptr, '\0', 40, "AB"},
    {{view("AB"), view("")}, '/', nullptr, nullptr, '\0', 40, "AB"},
    {{view("AB")}, '/', nullptr, nullptr, '\0', 40, "AB"},
    {{view(""), no_text, negative}, '/', nullptr, nullptr, '\0', 40, ""},
    // A separator stays though filtering leaves nothing of the text after it; none precedes the first.
    {{view("A"), view("<<"), view("B")}, '/', "<", nullptr, '\0', 40, "A//B"},
    {{view("A"), view("<")}, '/', "<", nullptr, '\0', 40, "A/"},
    {{view("<"), view("B")}, '/', "<", nullptr, '\0', 40, "B"},
    // Each text is filtered on its own; separators are neither removed nor collapsed.
    {{view("A "), view(" B")}, ' ', nullptr, " ", '\0', 40, "A   B"},
    {{view("AA"), view("AA")}, 'A', nullptr, "A", '\0', 40, "AAA"},
    {{view("A<"), view("<B")}, '<', "<", " ", ' ', 40, "A < B"},
    {{view("A"), view("B")}, '\0', nullptr, nullptr, '\0', 40, "A\0B"s},
    // Cut to the room: in the first text, after it, after the separator, in the last text.
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 1, "A"},
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 2, "AB"},
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 3, "AB/"},
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 4, "AB/C"},
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 5, "AB/CD"},
    {{view("AB"), view("CD")}, '/', nullptr, nullptr, '\0', 6, "AB/CD"},
    {{view("A"), view("B"), view("C")},
     '\xFF',
     nullptr,
     nullptr,
     '\0',
     4,
     "A\xFF"
     "B\xFF"},
};

TEST(StrcpyArray, BySet) {
  for (const Join &c : joins) {
    const STRING *parts = c.parts.data();
    const int count = static_cast<int>(c.parts.size());
    expect_copies(
        c.expected, c.room, c.room + 1,
        [&](char *out, int room) {
          return utils_strcpy_array(out, room, parts, count, c.sep, c.removed, c.duplicate, c.rep);
        },
        [&](char *out, int room) {
          return utils_strwrite_array(out, room, parts, count, c.sep, c.removed, c.duplicate, c.rep);
        },
        [&](PARSE_RESULT *r) {
          return utils_write_field_array(r, 25, parts, count, c.sep, c.removed, c.duplicate, c.rep);
        });
  }
}

TEST(StrcpyArray, BadArgumentsCopyNothing) {
  const STRING parts[2] = {view("AB"), view("CD")};
  Lent out(8);
  for (const auto copy : {utils_strcpy_array, utils_strwrite_array}) {
    EXPECT_EQ(copy(nullptr, 8, parts, 2, '/', nullptr, nullptr, '\0'), 0);
    for (const int room : {0, -1, INT_MIN})
      EXPECT_EQ(copy(out.data(), room, parts, 2, '/', nullptr, nullptr, '\0'), 0) << room;
    EXPECT_EQ(copy(out.data(), 8, nullptr, 2, '/', nullptr, nullptr, '\0'), 0);
    EXPECT_EQ(copy(out.data(), 8, parts, 0, '/', nullptr, nullptr, '\0'), 0);
    EXPECT_EQ(copy(out.data(), 8, parts, -1, '/', nullptr, nullptr, '\0'), 0);
  }
  EXPECT_EQ(out.shown(), "........");
}

TEST(StrcpyArray, TakesNoMoreTextsThanCounted) {
  const STRING parts[3] = {view("A"), view("B"), view("C")};
  Lent out(8);
  EXPECT_EQ(utils_strcpy_array(out.data(), 8, parts, 2, '/', nullptr, nullptr, '\0'), 3);
  EXPECT_EQ(out.shown(), "A/B.....");
}

// ---- digits -----------------------------------------------------------------------------------------

TEST(Itoa, Table) {
  struct Case {
    std::int64_t num;
    int room;
    int pad;
    const char *expected; // empty for refused
  };
  const Case cases[] = {
      {-5, 3, 1, "-05"},
      {-5, 3, 0, "-5"},
      {1234, 3, 1, ""},
      {1234, 3, 0, ""},
      {1234, 4, 1, "1234"},
      {1234, 4, 0, "1234"},
      {0, 1, 0, "0"},
      {0, 1, 1, "0"},
      {0, 4, 0, "0"},
      {0, 4, 1, "0000"},
      {7, 3, 0, "7"},
      {7, 3, 1, "007"},
      {7, 3, 2, "7"},
      {7, 3, 3, "007"},
      {7, 3, -1, "007"},
      {7, 3, -2, "7"},
      {9, 1, 0, "9"},
      {10, 1, 0, ""},
      {10, 2, 0, "10"},
      {99, 2, 0, "99"},
      {100, 2, 0, ""},
      {-1, 1, 0, ""},
      {-1, 1, 1, ""},
      {-1, 2, 1, "-1"},
      {-12, 2, 0, ""},
      {-12, 3, 0, "-12"},
      {-12, 6, 1, "-00012"},
      {2018, 4, 1, "2018"},
      {8, 2, 1, "08"},
      {1234567890123, 13, 0, "1234567890123"},
      {INT64_MAX, 19, 0, "9223372036854775807"},
      {INT64_MAX, 18, 0, ""},
      {INT64_MAX, 20, 1, "09223372036854775807"},
      {-INT64_MAX, 20, 0, "-9223372036854775807"},
      {-INT64_MAX, 19, 0, ""},
      {INT64_MIN, 20, 0, "-9223372036854775808"},
      {INT64_MIN, 19, 0, ""},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(std::to_string(c.num) + " in " + std::to_string(c.room));
    Lent out(c.room);
    const std::string expected = c.expected;
    EXPECT_EQ(utils_itoa(c.num, out.data(), c.room, c.pad), static_cast<int>(expected.size()));
    EXPECT_EQ(out.bytes(), expected + std::string(static_cast<std::size_t>(c.room) - expected.size(), '.'));
    EXPECT_TRUE(out.guards_intact());
  }
}

TEST(Itoa, BadArgumentsWriteNothing) {
  Lent out(4);
  EXPECT_EQ(utils_itoa(1, nullptr, 4, 1), 0);
  EXPECT_EQ(utils_itoa(1, out.data(), 0, 1), 0);
  EXPECT_EQ(utils_itoa(1, out.data(), -1, 1), 0);
  EXPECT_EQ(utils_itoa(0, out.data(), INT_MIN, 0), 0);
  EXPECT_EQ(out.shown(), "....");
}

TEST(Itoch, DigitsAndABlankForAllElse) {
  const char expected[] = "0123456789";
  for (int n = 0; n <= 9; n += 1)
    EXPECT_EQ(utils_itoch(n), expected[n]);
  for (const int n : {-1, 10, -10, 100, 48, 57, 256, INT_MIN, INT_MAX})
    EXPECT_EQ(utils_itoch(n), ' ') << n;
}

TEST(Digits, TheTenDigitsAndANul) {
  EXPECT_EQ(sizeof DIGITS, 11U);
  EXPECT_STREQ(DIGITS, "0123456789");
}

} // namespace
