// What the slot writers do to a record: its slots, its buffer, and what fits into it.
#include <climits>
#include <cstring>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace std::string_literals;
using namespace support;

namespace {

const STRING X = view("X");
const DATETIME DATE = {2018, 2, 15, 0, 0, 0};

int write_x(void *, char *out, int) {
  *out = 'X';
  return 1;
}

// Each slot writer, writing "X" or the date.
FIELD *(*const WRITERS[])(PARSE_RESULT *, int) = {
    [](PARSE_RESULT *r, int field) { return utils_write_field(r, field, &X, "<", " ", ' '); },
    [](PARSE_RESULT *r, int field) { return utils_write_field_f(r, field, &X, nullptr, nullptr, ' '); },
    [](PARSE_RESULT *r, int field) { return utils_write_field_s(r, field, "X"); },
    [](PARSE_RESULT *r, int field) { return utils_write_field_w(r, field, nullptr, write_x); },
    [](PARSE_RESULT *r, int field) { return utils_write_field_array(r, field, &X, 1, '/', "<", " ", ' '); },
    [](PARSE_RESULT *r, int field) { return utils_write_field_date(r, field, &DATE); },
};

TEST(WriteField, TakesTheTextAndOneNul) {
  Record record(16);
  const STRING src = view("D<<SMITH");
  FIELD *slot = utils_write_field(record.get(), FIELD_FAMILY_NAME, &src, "<", " ", ' ');
  EXPECT_EQ(slot, record.slot(FIELD_FAMILY_NAME));
  EXPECT_EQ(slot->value.len, 7);
  EXPECT_EQ(record->data_size, 8);
  EXPECT_EQ(record.shown(), "D SMITH~~~~~~~~~");
}

TEST(WriteField, ValuesStandOneAfterTheOther) {
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
      [&](PARSE_RESULT *r) { return utils_write_field_f(r, 25, &fillers, is_filler, is_space, '\0'); },
      [&](PARSE_RESULT *r) { return utils_write_field_f(r, 25, nullptr, is_filler, is_space, ' '); },
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

template <class First, class Second>
void expect_fit(const Fit &fit, const std::string &first, First write_first, Second write_second) {
  SCOPED_TRACE("buffer of " + std::to_string(fit.size));
  Record record(fit.size);
  EXPECT_EQ(write_first(record.get()), record.slot(25));
  EXPECT_EQ(record.shown(), fit.after_first);
  EXPECT_EQ(record->data_size, fit.used_first);
  EXPECT_EQ(record.value(25), first);
  EXPECT_EQ(write_second(record.get()), record.slot(26));
  EXPECT_EQ(record.shown(), fit.after_second);
  EXPECT_EQ(record->data_size, fit.used_second);
  EXPECT_EQ(record.value(26), fit.second);
  EXPECT_TRUE(record.guards_intact());
}

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
        return utils_write_field_f(r, field, s, is_filler, is_space, ' ');
      },
      [](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field_s(r, field, s->str); // both texts are literals
      },
      [&](PARSE_RESULT *r, int field, const STRING *s) {
        return utils_write_field_w(r, field, const_cast<STRING *>(s), copies_text);
      },
  };
  for (const Writer &write : writers)
    for (const Fit &fit : texts)
      expect_fit(
          fit, std::string("ABCD").substr(0, static_cast<std::size_t>(fit.size)),
          [&](PARSE_RESULT *r) { return write(r, 25, &first); },
          [&](PARSE_RESULT *r) { return write(r, 26, &second); });
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
  for (const Fit &fit : fits)
    expect_fit(
        fit, std::string("AB/CD").substr(0, static_cast<std::size_t>(fit.size < 6 ? fit.size - 1 : 5)),
        [&](PARSE_RESULT *r) {
          return utils_write_field_array(r, 25, first, 2, '/', nullptr, nullptr, '\0');
        },
        [&](PARSE_RESULT *r) {
          return utils_write_field_array(r, 26, &second, 1, '/', nullptr, nullptr, '\0');
        });
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
  Record record(40);
  utils_write_field_s(record.get(), 25, "OLD");
  const PARSE_RESULT before = *record.get();
  for (const auto write : WRITERS) {
    for (const int field : {-1, 139, 140, INT_MIN, INT_MAX})
      EXPECT_EQ(write(record.get(), field), nullptr) << field;
    EXPECT_EQ(write(nullptr, 25), nullptr); // nor is a caller's own writer called, which would write
  }
  EXPECT_EQ(utils_write_field_s(record.get(), 25, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_s(nullptr, 25, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_w(record.get(), 25, nullptr, nullptr), nullptr);
  EXPECT_EQ(utils_write_field_date(record.get(), 25, nullptr), nullptr);
  EXPECT_EQ(std::memcmp(record.get(), &before, sizeof before), 0);
  EXPECT_EQ(record.shown(), "OLD" + std::string(37, '~'));
}

TEST(WriteField, ReachesTheFirstAndTheLastSlot) {
  for (const int field : {0, 138}) {
    Record record(100);
    for (const auto write : WRITERS)
      EXPECT_EQ(write(record.get(), field), record.slot(field));
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

// It is called once, even without room, with its data, the free space and that space's size. What it returns
// is the length, but no more than its room; for 0 or less the slot is emptied.
TEST(WriteFieldW, GetsTheFreeSpaceAndReturnsTheLength) {
  struct Case {
    int size;
    const char *before; // the value of another slot
    const char *text;
    int returned;
    const char *after; // the buffer, then the slot's value and data_size
    const char *value;
    int used;
  };
  const Case cases[] = {
      {10, "AB", "XYZ", 3, "AB~XYZ~~~~", "XYZ", 7},
      {10, "", "WXYZ", 2, "WX~Z~~~~~~", "WX", 3},
      {10, "OLD", "", 0, "OLD~~~~~~~", "", 4},
      {10, "OLD", "", -1, "OLD~~~~~~~", "", 4},
      {10, "OLD", "", INT_MIN, "OLD~~~~~~~", "", 4},
      {4, "ABCD", "X", 0, "ABCD", "", 4},
      {8, "AB", "VWXYZ", 5, "AB~VWXYZ", "VWXYZ", 8},
      {8, "AB", "VWXYZ", 6, "AB~VWXYZ", "VWXYZ", 8},
      {8, "AB", "VWXYZ", 1000, "AB~VWXYZ", "VWXYZ", 8},
      {8, "AB", "VWXYZ", INT_MAX, "AB~VWXYZ", "VWXYZ", 8},
      {2, "AB", "", 3, "AB", "", 2},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(std::to_string(c.returned) + " returned, buffer of " + std::to_string(c.size));
    Record record(c.size);
    utils_write_field_s(record.get(), 25, c.before);
    record.slot(26)->value = record.slot(25)->value; // a value that is replaced
    const int used = record->data_size;
    Call call;
    call.text = c.text;
    call.returned = c.returned;
    EXPECT_EQ(utils_write_field_w(record.get(), 26, &call, noting_writer), record.slot(26));
    EXPECT_EQ(call.calls, 1);
    EXPECT_EQ(call.out, record->buffer + used);
    EXPECT_EQ(call.room, c.size - used);
    EXPECT_EQ(record.shown(), c.after);
    EXPECT_EQ(record.value(26), c.value);
    EXPECT_EQ(record.slot(26)->value.str == nullptr, *c.value == '\0');
    EXPECT_EQ(record.slot(26)->value.len, static_cast<int>(std::strlen(c.value)));
    EXPECT_EQ(record->data_size, c.used);
    EXPECT_TRUE(record.guards_intact());
  }
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

// ---- a record without a buffer -----------------------------------------------------------------------

TEST(WriteField, ARecordThatWasNeverLentABufferTakesNoText) {
  PARSE_RESULT record = {};
  record.fields[FIELD_SEX].value = STRING{"F", 1};
  const STRING text = view("F");
  EXPECT_EQ(utils_write_field(&record, FIELD_SEX, &text, nullptr, nullptr, '\0'), &record.fields[FIELD_SEX]);
  EXPECT_EQ(record.fields[FIELD_SEX].value.str, nullptr);
  EXPECT_EQ(record.fields[FIELD_SEX].value.len, 0);
  EXPECT_EQ(record.data_size, 0);

  // A caller's own writer is asked all the same, with no room.
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
