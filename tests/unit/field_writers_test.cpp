// Copiers, terminating copiers, slot writers, and the small text routines beside them.
#include <climits>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using support::Exact;
using support::Lent;
using support::Record;
using support::shown;
using support::view;

namespace {

// ---- copying one text -------------------------------------------------------------------------------

struct Copy {
  std::string source;
  const char *removed;
  const char *duplicate;
  char rep;
  int room;
  std::string expected;
};

const Copy copies[] = {
    // The way the layouts call it: a filler becomes a blank, runs of blanks become one.
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

TEST(Strcpy, Table) {
  for (const Copy &c : copies) {
    SCOPED_TRACE(shown(c.source) + " in " + std::to_string(c.room));
    const Exact source(c.source);
    const STRING src = source.view();
    Lent out(c.room);
    const int n = utils_strcpy(out.data(), c.room, &src, c.removed, c.duplicate, c.rep);
    EXPECT_EQ(n, static_cast<int>(c.expected.size()));
    EXPECT_EQ(out.bytes(),
              c.expected + std::string(static_cast<std::size_t>(c.room) - c.expected.size(), '.'));
    EXPECT_TRUE(out.guards_intact());
  }
}

TEST(Strwrite, TheSameWithOneMoreByteForTheNul) {
  for (const Copy &c : copies) {
    SCOPED_TRACE(shown(c.source) + " in " + std::to_string(c.room));
    const Exact source(c.source);
    const STRING src = source.view();
    Lent out(c.room + 1);
    const int n = utils_strwrite(out.data(), c.room + 1, &src, c.removed, c.duplicate, c.rep);
    const std::string written = c.expected.empty() ? "" : c.expected + '\0';
    EXPECT_EQ(n, static_cast<int>(written.size()));
    EXPECT_EQ(out.bytes(), written + std::string(static_cast<std::size_t>(c.room) + 1 - written.size(), '.'));
    EXPECT_TRUE(out.guards_intact());
  }
}

TEST(WriteField, TheSameIntoASlot) {
  for (const Copy &c : copies) {
    SCOPED_TRACE(shown(c.source) + " in " + std::to_string(c.room));
    const Exact source(c.source);
    const STRING src = source.view();
    Record record(c.room);
    FIELD *slot = utils_write_field(record.get(), 25, &src, c.removed, c.duplicate, c.rep);
    EXPECT_EQ(slot, record.slot(25));
    EXPECT_EQ(record.value(25), c.expected);
    EXPECT_EQ(record.offset(25), c.expected.empty() ? -1 : 0);
    EXPECT_EQ(slot->value.len, static_cast<int>(c.expected.size()));
    EXPECT_TRUE(record.guards_intact());
  }
}

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

std::vector<int> asked;

int is_filler(int c) { return c == '<'; }
int is_blank(int c) { return c == ' '; }
int is_filler_noted(int c) {
  asked.push_back(c);
  return c == '<';
}
int is_blank_noted(int c) {
  asked.push_back(c);
  return c == ' ';
}
int is_negative_noted(int c) {
  asked.push_back(c);
  return c < 0;
}
int yes(int) { return 1; }
int yes_minus_one(int) { return -1; }
int yes_256(int) { return 256; }
int no(int) { return 0; }

TEST(StrcpyF, Table) {
  struct Case {
    std::string source;
    _t_predicate_func removed;
    _t_predicate_func duplicate;
    char rep;
    int room;
    std::string expected;
  };
  const Case cases[] = {
      {"D<<SMITH", is_filler, is_blank, ' ', 40, "D SMITH"},
      {"D<<SMITH", is_filler, is_blank, '\0', 40, "DSMITH"},
      {"A< <B", is_filler, is_blank, ' ', 40, "A B"},
      {"<<<<", is_filler, is_blank, ' ', 40, " "},
      {"<<<<", is_filler, is_blank, '\0', 40, ""},
      {"A<<  B", nullptr, nullptr, ' ', 40, "A<<  B"},
      {"A<<  B", nullptr, is_blank, ' ', 40, "A<< B"},
      {"A<<  B", is_filler, nullptr, ' ', 40, "A    B"},
      {"ABC", yes, nullptr, '*', 40, "***"},
      {"ABC", yes, yes, '*', 40, "*"},
      {"ABC", yes, no, '*', 40, "***"},
      {"ABC", no, yes, '*', 40, "ABC"},
      {"AAB", no, yes, '*', 40, "AB"},
      {"ABC", yes_minus_one, yes_256, '*', 40, "*"},
      {"ABC", yes_256, yes_minus_one, '\0', 40, ""},
      {"A<<B", is_filler, nullptr, ' ', 2, "A "},
      {"A<<B", is_filler, is_blank, ' ', 3, "A B"},
      {"\0\0A"s, nullptr, nullptr, ' ', 40, "\0\0A"s},
      {"\0\0A"s, nullptr, yes, ' ', 40, "\0A"s},
      {"\xC9\xC9", nullptr, yes, ' ', 40, "\xC9"},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(shown(c.source));
    const Exact source(c.source);
    const STRING src = source.view();
    Lent out(c.room);
    EXPECT_EQ(utils_strcpy_f(out.data(), c.room, &src, c.removed, c.duplicate, c.rep),
              static_cast<int>(c.expected.size()));
    EXPECT_EQ(out.bytes().substr(0, c.expected.size()), c.expected);
    EXPECT_TRUE(out.guards_intact());

    Lent written(c.room + 1);
    EXPECT_EQ(utils_strwrite_f(written.data(), c.room + 1, &src, c.removed, c.duplicate, c.rep),
              c.expected.empty() ? 0 : static_cast<int>(c.expected.size()) + 1);
    EXPECT_EQ(written.bytes().substr(0, c.expected.size() + 1),
              c.expected + (c.expected.empty() ? '.' : '\0'));
    EXPECT_TRUE(written.guards_intact());

    Record record(c.room);
    EXPECT_EQ(utils_write_field_f(record.get(), 0, &src, c.removed, c.duplicate, c.rep), record.slot(0));
    EXPECT_EQ(record.value(0), c.expected);
    EXPECT_TRUE(record.guards_intact());
  }
}

TEST(StrcpyF, AsksAboutEveryCharacterThatIsLookedAtAndNoOther) {
  const STRING src = view("A<BC");
  Lent out(3);
  asked.clear();
  utils_strcpy_f(out.data(), 3, &src, is_filler_noted, nullptr, ' ');
  EXPECT_EQ(asked, (std::vector<int>{'A', '<', 'B'}));
}

TEST(StrcpyF, AsksForADuplicateOnlyAboutARepeatedCharacter) {
  const STRING src = view("  A  A<B");
  Lent out(20);
  asked.clear();
  utils_strcpy_f(out.data(), 20, &src, is_filler, is_blank_noted, 'A');
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
  EXPECT_EQ(utils_strcpy_f(out.data(), 256, &src, is_negative_noted, nullptr, '\0'), 128);
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
    // A separator stays though filtering leaves nothing of the text behind it; none precedes the first.
    {{view("A"), view("<<"), view("B")}, '/', "<", nullptr, '\0', 40, "A//B"},
    {{view("A"), view("<")}, '/', "<", nullptr, '\0', 40, "A/"},
    {{view("<"), view("B")}, '/', "<", nullptr, '\0', 40, "B"},
    // Each text is filtered on its own; separators are neither removed nor collapsed.
    {{view("A "), view(" B")}, ' ', nullptr, " ", '\0', 40, "A   B"},
    {{view("AA"), view("AA")}, 'A', nullptr, "A", '\0', 40, "AAA"},
    {{view("A<"), view("<B")}, '<', "<", " ", ' ', 40, "A < B"},
    {{view("A"), view("B")}, '\0', nullptr, nullptr, '\0', 40, "A\0B"s},
    // Cut to the room: in the first text, behind it, after the separator, in the last text.
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

TEST(StrcpyArray, Table) {
  for (const Join &c : joins) {
    SCOPED_TRACE(shown(c.expected) + " in " + std::to_string(c.room));
    Lent out(c.room);
    const int n = utils_strcpy_array(out.data(), c.room, c.parts.data(), static_cast<int>(c.parts.size()),
                                     c.sep, c.removed, c.duplicate, c.rep);
    EXPECT_EQ(n, static_cast<int>(c.expected.size()));
    EXPECT_EQ(out.bytes(),
              c.expected + std::string(static_cast<std::size_t>(c.room) - c.expected.size(), '.'));
    EXPECT_TRUE(out.guards_intact());

    Lent written(c.room + 1);
    const int m =
        utils_strwrite_array(written.data(), c.room + 1, c.parts.data(), static_cast<int>(c.parts.size()),
                             c.sep, c.removed, c.duplicate, c.rep);
    const std::string terminated = c.expected.empty() ? "" : c.expected + '\0';
    EXPECT_EQ(m, static_cast<int>(terminated.size()));
    EXPECT_EQ(written.bytes(),
              terminated + std::string(static_cast<std::size_t>(c.room) + 1 - terminated.size(), '.'));
    EXPECT_TRUE(written.guards_intact());

    Record record(c.room + 1);
    EXPECT_EQ(utils_write_field_array(record.get(), 138, c.parts.data(), static_cast<int>(c.parts.size()),
                                      c.sep, c.removed, c.duplicate, c.rep),
              record.slot(138));
    EXPECT_EQ(record.value(138), c.expected);
    EXPECT_EQ(record.offset(138), c.expected.empty() ? -1 : 0);
    EXPECT_TRUE(record.guards_intact());
  }
}

TEST(StrcpyArray, BadArgumentsCopyNothing) {
  const STRING parts[2] = {view("AB"), view("CD")};
  Lent out(8);
  EXPECT_EQ(utils_strcpy_array(nullptr, 8, parts, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strcpy_array(out.data(), 0, parts, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strcpy_array(out.data(), -1, parts, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strcpy_array(out.data(), 8, nullptr, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strcpy_array(out.data(), 8, parts, 0, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strcpy_array(out.data(), 8, parts, -1, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_array(nullptr, 8, parts, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_array(out.data(), INT_MIN, parts, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_array(out.data(), 8, nullptr, 2, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_array(out.data(), 8, parts, 0, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(utils_strwrite_array(out.data(), 8, parts, -1, '/', nullptr, nullptr, '\0'), 0);
  EXPECT_EQ(out.shown(), "........");
}

TEST(StrcpyArray, TakesNoMoreTextsThanCounted) {
  const STRING parts[3] = {view("A"), view("B"), view("C")};
  Lent out(8);
  EXPECT_EQ(utils_strcpy_array(out.data(), 8, parts, 2, '/', nullptr, nullptr, '\0'), 3);
  EXPECT_EQ(out.shown(), "A/B.....");
}

// ---- slots ------------------------------------------------------------------------------------------

TEST(WriteField, TakesTheTextAndOneNul) {
  Record record(16);
  const STRING src = view("D<<SMITH");
  FIELD *slot = utils_write_field(record.get(), FIELD_FAMILY_NAME, &src, "<", " ", ' ');
  EXPECT_EQ(slot, record.slot(FIELD_FAMILY_NAME));
  EXPECT_EQ(slot->value.len, 7);
  EXPECT_EQ(record->data_size, 8);
  EXPECT_EQ(record.shown(), "D SMITH~~~~~~~~~");
}

TEST(WriteField, ValuesStandOneBehindTheOther) {
  Record record(16);
  utils_write_field_s(record.get(), 25, "AB");
  utils_write_field_s(record.get(), 26, "CDE");
  utils_write_field_s(record.get(), 27, "F");
  EXPECT_EQ(record.shown(), "AB~CDE~F~~~~~~~~");
  EXPECT_EQ(record->data_size, 9);
  EXPECT_EQ(record.offset(25), 0);
  EXPECT_EQ(record.offset(26), 3);
  EXPECT_EQ(record.offset(27), 7);
}

TEST(WriteField, RewritingASlotLeavesDeadSpace) {
  Record record(16);
  utils_write_field_s(record.get(), 25, "ABC");
  utils_write_field_s(record.get(), 25, "DE");
  EXPECT_EQ(record.shown(), "ABC~DE~~~~~~~~~~");
  EXPECT_EQ(record->data_size, 7);
  EXPECT_EQ(record.value(25), "DE");
  EXPECT_EQ(record.offset(25), 4);
}

TEST(WriteField, AnEmptyValueEmptiesTheSlotAndTakesNoSpace) {
  const STRING fillers = view("<<<");
  const STRING empty = view("");
  const STRING nothing = {nullptr, 3};
  const STRING negative_length = {"ABC", -1};
  const std::function<FIELD *(PARSE_RESULT *)> writers[] = {
      [&](PARSE_RESULT *r) { return utils_write_field(r, 25, &fillers, "<", " ", '\0'); },
      [&](PARSE_RESULT *r) { return utils_write_field(r, 25, &empty, "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field(r, 25, &nothing, "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field(r, 25, &negative_length, "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field(r, 25, nullptr, "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field_f(r, 25, &fillers, is_filler, is_blank, '\0'); },
      [&](PARSE_RESULT *r) { return utils_write_field_f(r, 25, nullptr, is_filler, is_blank, ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field_s(r, 25, ""); },
      [&](PARSE_RESULT *r) {
        return utils_write_field_w(r, 25, nullptr, [](void *, char *, int) { return 0; });
      },
      [&](PARSE_RESULT *r) {
        return utils_write_field_w(r, 25, nullptr, [](void *, char *, int) { return -3; });
      },
      [&](PARSE_RESULT *r) { return utils_write_field_array(r, 25, &fillers, 1, '/', "<", " ", '\0'); },
      [&](PARSE_RESULT *r) { return utils_write_field_array(r, 25, &empty, 1, '/', "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field_array(r, 25, nullptr, 1, '/', "<", " ", ' '); },
      [&](PARSE_RESULT *r) { return utils_write_field_array(r, 25, &fillers, 0, '/', "<", " ", ' '); },
  };
  for (std::size_t i = 0; i < std::size(writers); i += 1) {
    SCOPED_TRACE(i);
    Record record(10);
    utils_write_field_s(record.get(), 25, "OLD");
    EXPECT_EQ(writers[i](record.get()), record.slot(25));
    EXPECT_EQ(record.slot(25)->value.str, nullptr);
    EXPECT_EQ(record.slot(25)->value.len, 0);
    EXPECT_EQ(record->data_size, 4);
    EXPECT_EQ(record.shown(), "OLD~~~~~~~");
  }
}

TEST(WriteField, ACutValueFillsTheBufferAndLaterOnesFindNoRoom) {
  Record record(10);
  const STRING src = view("ABCDEFGHIJKL");
  utils_write_field(record.get(), 25, &src, nullptr, nullptr, '\0');
  EXPECT_EQ(record.value(25), "ABCDEFGHIJ");
  EXPECT_EQ(record->data_size, 10);
  EXPECT_EQ(record.shown(), "ABCDEFGHIJ");
  EXPECT_EQ(utils_write_field_s(record.get(), 26, "X"), record.slot(26));
  EXPECT_EQ(record.slot(26)->value.str, nullptr);
  EXPECT_EQ(record.slot(26)->value.len, 0);
  EXPECT_EQ(record->data_size, 10);
  EXPECT_TRUE(record.guards_intact());
}

TEST(WriteField, MayCopyFromASlotOfTheSameRecord) {
  Record record(12);
  utils_write_field_s(record.get(), 25, "AB<C");
  utils_write_field(record.get(), 26, &record.slot(25)->value, "<", " ", ' ');
  EXPECT_EQ(record.shown(), "AB<C~AB C~~~");
  EXPECT_EQ(record.value(26), "AB C");
}

// What two values do to a small buffer. With exactly one byte left behind a value no NUL is stored there,
// and the next value takes that byte.
struct Fit {
  int size;
  const char *after_first; // the buffer, then data_size
  int used_first;
  const char *after_second;
  int used_second;
  const char *second; // the value of the second slot
};

const Fit texts[] = {
    {1, "A", 1, "A", 1, ""},
    {2, "AB", 2, "AB", 2, ""},
    {3, "ABC", 3, "ABC", 3, ""},
    {4, "ABCD", 4, "ABCD", 4, ""},
    {5, "ABCD~", 4, "ABCDX", 5, "X"},
    {6, "ABCD~~", 5, "ABCD~X", 6, "X"},
    {7, "ABCD~~~", 5, "ABCD~XY", 7, "XY"},
    {8, "ABCD~~~~", 5, "ABCD~XY~", 7, "XY"},
    {9, "ABCD~~~~~", 5, "ABCD~XY~~", 8, "XY"},
    {10, "ABCD~~~~~~", 5, "ABCD~XY~~~", 8, "XY"},
};

// Each writer that spends one NUL, writing "ABCD" and then "XY".
TEST(Capacity, OfTheWritersWithOneNul) {
  const STRING first = view("ABCD");
  const STRING second = view("XY");
  const auto copies_text = [](void *data, char *out, int room) {
    const STRING *text = static_cast<const STRING *>(data);
    const int n = text->len < room ? text->len : room;
    std::memcpy(out, text->str, static_cast<std::size_t>(n));
    return n;
  };
  using Writer = std::function<FIELD *(PARSE_RESULT *, int, const STRING *)>;
  const Writer writers[] = {
      [](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field(r, field, s, "<", " ", ' ');
      },
      [](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field_f(r, field, s, is_filler, is_blank, ' ');
      },
      [](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field_s(r, field, s->str); // both texts are literals
      },
      [&](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field_w(r, field, const_cast<STRING *>(s), copies_text);
      },
  };
  for (std::size_t w = 0; w < std::size(writers); w += 1) {
    for (const Fit &fit : texts) {
      SCOPED_TRACE("writer " + std::to_string(w) + ", buffer of " + std::to_string(fit.size));
      Record record(fit.size);
      EXPECT_EQ(writers[w](record.get(), 25, &first), record.slot(25));
      EXPECT_EQ(record.shown(), fit.after_first);
      EXPECT_EQ(record->data_size, fit.used_first);
      EXPECT_EQ(record.value(25), std::string("ABCD").substr(0, static_cast<std::size_t>(fit.size)));
      EXPECT_EQ(writers[w](record.get(), 26, &second), record.slot(26));
      EXPECT_EQ(record.shown(), fit.after_second);
      EXPECT_EQ(record->data_size, fit.used_second);
      EXPECT_EQ(record.value(26), fit.second);
      EXPECT_TRUE(record.guards_intact());
    }
  }
}

// The writer of several texts keeps a NUL of its own within the room, and the slot's comes on top while
// there is room: two terminators for each value.
TEST(Capacity, OfTheArrayWriterWithTwoNuls) {
  const Fit fits[] = {
      {1, "~", 0, "~", 0, ""},
      {2, "A~", 2, "A~", 2, ""},
      {3, "AB~", 3, "AB~", 3, ""},
      {4, "AB/~", 4, "AB/~", 4, ""},
      {5, "AB/C~", 5, "AB/C~", 5, ""},
      {6, "AB/CD~", 6, "AB/CD~", 6, ""},
      {7, "AB/CD~~", 6, "AB/CD~~", 6, ""},
      {8, "AB/CD~~~", 7, "AB/CD~~~", 7, ""},
      {9, "AB/CD~~~~", 7, "AB/CD~~X~", 9, "X"},
      {10, "AB/CD~~~~~", 7, "AB/CD~~XY~", 10, "XY"},
      {11, "AB/CD~~~~~~", 7, "AB/CD~~XY~~", 10, "XY"},
      {12, "AB/CD~~~~~~~", 7, "AB/CD~~XY~~~", 11, "XY"},
      {13, "AB/CD~~~~~~~~", 7, "AB/CD~~XY~~~~", 11, "XY"},
  };
  const STRING first[2] = {view("AB"), view("CD")};
  const STRING second = view("XY");
  for (const Fit &fit : fits) {
    SCOPED_TRACE(fit.size);
    Record record(fit.size);
    EXPECT_EQ(utils_write_field_array(record.get(), 25, first, 2, '/', nullptr, nullptr, '\0'),
              record.slot(25));
    EXPECT_EQ(record.shown(), fit.after_first);
    EXPECT_EQ(record->data_size, fit.used_first);
    EXPECT_EQ(record.value(25),
              std::string("AB/CD").substr(0, static_cast<std::size_t>(fit.size < 6 ? fit.size - 1 : 5)));
    EXPECT_EQ(utils_write_field_array(record.get(), 26, &second, 1, '/', nullptr, nullptr, '\0'),
              record.slot(26));
    EXPECT_EQ(record.shown(), fit.after_second);
    EXPECT_EQ(record->data_size, fit.used_second);
    EXPECT_EQ(record.value(26), fit.second);
    EXPECT_TRUE(record.guards_intact());
  }
}

TEST(Capacity, OfTheDateWriter) {
  struct Case {
    int size;
    bool written;
    const char *picture;
    int used;
  };
  const Case cases[] = {
      {1, false, "~", 0},          {2, false, "~~", 0},          {3, false, "~~~", 0},
      {4, false, "~~~~", 0},       {5, false, "~~~~~", 0},       {6, false, "~~~~~~", 0},
      {7, false, "~~~~~~~", 0},    {8, true, "20180215", 8},     {9, true, "20180215~", 8},
      {10, true, "20180215~~", 9}, {11, true, "20180215~~~", 9},
  };
  const DATETIME date = {2018, 2, 15, 0, 0, 0};
  for (const Case &c : cases) {
    SCOPED_TRACE(c.size);
    Record record(c.size);
    EXPECT_EQ(utils_write_field_date(record.get(), 78, &date), c.written ? record.slot(78) : nullptr);
    EXPECT_EQ(record.value(78), c.written ? "20180215" : "");
    EXPECT_EQ(record.shown(), c.picture);
    EXPECT_EQ(record->data_size, c.used);
    EXPECT_TRUE(record.guards_intact());
  }
}

TEST(WriteField, BadArgumentsGiveNullAndChangeNothing) {
  const STRING src = view("NEW");
  const DATETIME date = {2018, 2, 15, 0, 0, 0};
  const auto never = [](void *called, char *, int) {
    *static_cast<bool *>(called) = true;
    return 0;
  };
  Record record(40);
  utils_write_field_s(record.get(), 25, "OLD");
  const PARSE_RESULT before = *record.get();
  bool called = false;
  for (const int field : {-1, 139, 140, INT_MIN, INT_MAX}) {
    EXPECT_EQ(utils_write_field(record.get(), field, &src, "<", " ", ' '), nullptr) << field;
    EXPECT_EQ(utils_write_field_f(record.get(), field, &src, nullptr, nullptr, ' '), nullptr) << field;
    EXPECT_EQ(utils_write_field_s(record.get(), field, "NEW"), nullptr) << field;
    EXPECT_EQ(utils_write_field_w(record.get(), field, &called, never), nullptr) << field;
    EXPECT_EQ(utils_write_field_array(record.get(), field, &src, 1, '/', "<", " ", ' '), nullptr) << field;
    EXPECT_EQ(utils_write_field_date(record.get(), field, &date), nullptr) << field;
  }
  EXPECT_EQ(utils_write_field(nullptr, 25, &src, "<", " ", ' '), nullptr);
  EXPECT_EQ(utils_write_field_f(nullptr, 25, &src, nullptr, nullptr, ' '), nullptr);
  EXPECT_EQ(utils_write_field_s(nullptr, 25, "NEW"), nullptr);
  EXPECT_EQ(utils_write_field_w(nullptr, 25, &called, never), nullptr);
  EXPECT_EQ(utils_write_field_array(nullptr, 25, &src, 1, '/', "<", " ", ' '), nullptr);
  EXPECT_EQ(utils_write_field_date(nullptr, 25, &date), nullptr);
  EXPECT_EQ(utils_write_field_s(record.get(), 25, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_s(nullptr, 25, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_w(record.get(), 25, &called, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_date(record.get(), 25, nullptr), nullptr);
  EXPECT_FALSE(called);
  EXPECT_EQ(std::memcmp(record.get(), &before, sizeof before), 0);
  EXPECT_EQ(record.shown().substr(0, 8), "OLD~~~~~");
}

TEST(WriteField, ReachesTheFirstAndTheLastSlot) {
  const STRING src = view("X");
  const DATETIME date = {2018, 2, 15, 0, 0, 0};
  const auto one = [](void *, char *out, int) {
    *out = 'X';
    return 1;
  };
  for (const int field : {0, 138}) {
    Record record(100);
    EXPECT_EQ(utils_write_field(record.get(), field, &src, nullptr, nullptr, '\0'), record.slot(field));
    EXPECT_EQ(utils_write_field_f(record.get(), field, &src, nullptr, nullptr, '\0'), record.slot(field));
    EXPECT_EQ(utils_write_field_s(record.get(), field, "X"), record.slot(field));
    EXPECT_EQ(utils_write_field_w(record.get(), field, nullptr, one), record.slot(field));
    EXPECT_EQ(utils_write_field_array(record.get(), field, &src, 1, '/', nullptr, nullptr, '\0'),
              record.slot(field));
    EXPECT_EQ(utils_write_field_date(record.get(), field, &date), record.slot(field));
    EXPECT_EQ(record.shown().substr(0, 22), "X~X~X~X~X~~20180215~~~");
    EXPECT_EQ(record->data_size, 20);
  }
}

// ---- a caller's own writer --------------------------------------------------------------------------

struct Call {
  int calls = 0;
  char *out = nullptr;
  int room = -1;
  const char *text = "";
  int returned = 0;
};

int noting_writer(void *data, char *out, int room) {
  Call *call = static_cast<Call *>(data);
  call->calls += 1;
  call->out = out;
  call->room = room;
  for (int i = 0; call->text[i] != '\0' && i < room; i += 1)
    out[i] = call->text[i];
  return call->returned;
}

TEST(WriteFieldW, GetsItsDataTheFreeSpaceAndItsSize) {
  Record record(10);
  utils_write_field_s(record.get(), 25, "AB");
  Call call;
  call.text = "XYZ";
  call.returned = 3;
  EXPECT_EQ(utils_write_field_w(record.get(), 26, &call, noting_writer), record.slot(26));
  EXPECT_EQ(call.calls, 1);
  EXPECT_EQ(call.out, record->buffer + 3);
  EXPECT_EQ(call.room, 7);
  EXPECT_EQ(record.shown(), "AB~XYZ~~~~");
  EXPECT_EQ(record.value(26), "XYZ");
  EXPECT_EQ(record->data_size, 7);
}

TEST(WriteFieldW, ItsReturnValueIsTheLength) {
  Record record(10);
  Call call;
  call.text = "WXYZ";
  call.returned = 2;
  utils_write_field_w(record.get(), 26, &call, noting_writer);
  EXPECT_EQ(record.value(26), "WX");
  EXPECT_EQ(record.shown(), "WX~Z~~~~~~");
  EXPECT_EQ(record->data_size, 3);
}

TEST(WriteFieldW, WritesNothingForZeroOrLess) {
  for (const int returned : {0, -1, INT_MIN}) {
    Record record(10);
    utils_write_field_s(record.get(), 26, "OLD");
    Call call;
    call.returned = returned;
    EXPECT_EQ(utils_write_field_w(record.get(), 26, &call, noting_writer), record.slot(26));
    EXPECT_EQ(call.calls, 1);
    EXPECT_EQ(record.slot(26)->value.str, nullptr);
    EXPECT_EQ(record.slot(26)->value.len, 0);
    EXPECT_EQ(record->data_size, 4);
  }
}

TEST(WriteFieldW, IsCalledThoughThereIsNoRoom) {
  Record record(4);
  utils_write_field_s(record.get(), 25, "ABCD");
  utils_write_field_s(record.get(), 26, "");
  Call call;
  call.text = "X";
  EXPECT_EQ(utils_write_field_w(record.get(), 26, &call, noting_writer), record.slot(26));
  EXPECT_EQ(call.calls, 1);
  EXPECT_EQ(call.room, 0);
  EXPECT_EQ(call.out, record->buffer + 4);
  EXPECT_EQ(record.slot(26)->value.str, nullptr);
  EXPECT_EQ(record->data_size, 4);
  EXPECT_TRUE(record.guards_intact());
}

TEST(WriteFieldW, MoreThanItsRoomCountsAsItsRoom) {
  for (const int returned : {5, 6, 1000, INT_MAX}) {
    Record record(8);
    utils_write_field_s(record.get(), 25, "AB");
    Call call;
    call.text = "VWXYZ";
    call.returned = returned;
    utils_write_field_w(record.get(), 26, &call, noting_writer);
    EXPECT_EQ(record.value(26), "VWXYZ");
    EXPECT_EQ(record->data_size, 8);
    EXPECT_EQ(record.shown(), "AB~VWXYZ");
    EXPECT_TRUE(record.guards_intact());
  }
  Record full(2);
  utils_write_field_s(full.get(), 25, "AB");
  Call call;
  call.returned = 3;
  EXPECT_EQ(utils_write_field_w(full.get(), 26, &call, noting_writer), full.slot(26));
  EXPECT_EQ(full.slot(26)->value.str, nullptr);
  EXPECT_EQ(full->data_size, 2);
}

// ---- dates ------------------------------------------------------------------------------------------

TEST(WriteFieldDate, EightDigitsYearMonthDay) {
  struct Case {
    DATETIME date;
    const char *picture; // '.' where nothing is written
  };
  const Case cases[] = {
      {{2018, 2, 15, 0, 0, 0}, "20180215"},
      {{1974, 12, 1, 23, 59, 59}, "19741201"},
      {{0, 0, 0, 0, 0, 0}, "00000000"},
      {{7, 1, 2, 0, 0, 0}, "00070102"},
      {{999, 99, 99, 0, 0, 0}, "09999999"},
      {{9999, 9, 10, 0, 0, 0}, "99990910"},
      // A part that does not fit its width leaves its places as they were.
      {{10000, 2, 15, 0, 0, 0}, "....0215"},
      {{2018, 100, 15, 0, 0, 0}, "2018..15"},
      {{2018, 2, 100, 0, 0, 0}, "201802.."},
      {{INT_MAX, INT_MAX, INT_MAX, 0, 0, 0}, "........"},
      // The sign takes a place.
      {{-5, -1, -9, 0, 0, 0}, "-005-1-9"},
      {{-999, 2, 15, 0, 0, 0}, "-9990215"},
      {{-1000, -10, 15, 0, 0, 0}, "......15"},
      {{INT_MIN, 2, INT_MIN, 0, 0, 0}, "....02.."},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.picture);
    Record record(10);
    std::memset(record->buffer, '.', 10);
    EXPECT_EQ(utils_write_field_date(record.get(), 78, &c.date), record.slot(78));
    EXPECT_EQ(record.slot(78)->value.len, 8);
    EXPECT_EQ(record.shown(), c.picture + "~."s);
    EXPECT_EQ(record->data_size, 9);
  }
}

TEST(WriteFieldDate, RefusesForWantOfRoomAndTheSlotKeepsItsValue) {
  Record record(16);
  const DATETIME date = {2018, 2, 15, 0, 0, 0};
  utils_write_field_s(record.get(), 78, "12345678");
  EXPECT_EQ(record->data_size, 9);
  EXPECT_EQ(utils_write_field_date(record.get(), 78, &date), nullptr);
  EXPECT_EQ(record.value(78), "12345678");
  EXPECT_EQ(record->data_size, 9);
  EXPECT_EQ(record.shown(), "12345678~~~~~~~~");
  EXPECT_TRUE(record.guards_intact());
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

// ---- a record without a buffer -----------------------------------------------------------------------

TEST(WriteField, ARecordThatWasNeverLentABufferTakesNoText) {
  PARSE_RESULT record = {};
  record.fields[FIELD_SEX].value = STRING{"F", 1};
  const STRING text = view("F");
  EXPECT_EQ(utils_write_field(&record, FIELD_SEX, &text, nullptr, nullptr, '\0'), &record.fields[FIELD_SEX]);
  EXPECT_EQ(record.fields[FIELD_SEX].value.str, nullptr);
  EXPECT_EQ(record.fields[FIELD_SEX].value.len, 0);
  EXPECT_EQ(record.data_size, 0);

  // A caller's own writer is asked all the same, and told that there is no room.
  struct Offer {
    char *out;
    int o_len;
  } offer = {record.buffer, 1};
  const auto remember = [](void *data, char *out, int o_len) {
    *static_cast<Offer *>(data) = Offer{out, o_len};
    return 0;
  };
  EXPECT_EQ(utils_write_field_w(&record, FIELD_SEX, &offer, remember), &record.fields[FIELD_SEX]);
  EXPECT_EQ(offer.out, nullptr);
  EXPECT_EQ(offer.o_len, 0);

  const DATETIME date = {1974, 8, 12, 0, 0, 0};
  EXPECT_EQ(utils_write_field_date(&record, FIELD_BIRTH_DATE, &date), nullptr);
}

} // namespace
