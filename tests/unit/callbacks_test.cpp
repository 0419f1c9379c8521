// A caller's own writers and predicates that use the record they write for, or leave by an exception.
#include <climits>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "support.hpp"

using namespace support;

namespace {

constexpr int OUTER = 25; // the slot written by the call that runs the callback
constexpr int INNER = 26; // the slot that the callback writes

// What the callback does to the record, and what it answers. A plain function pointer has no room for it.
struct Callback {
  std::function<void(PARSE_RESULT *)> use;
  PARSE_RESULT *record = nullptr;
  const char *text = "";
  int returned = 0;
};
Callback *predicates_callback = nullptr;

int writer(void *data, char *out, int room) {
  Callback *callback = static_cast<Callback *>(data);
  for (int i = 0; callback->text[i] != '\0' && i < room; ++i)
    out[i] = callback->text[i];
  callback->use(callback->record);
  return callback->returned;
}

// Uses the record at each '!', which it removes.
int predicate(int c) {
  if (c != '!')
    return 0;
  predicates_callback->use(predicates_callback->record);
  return 1;
}

void keeps_its_promises(const PARSE_RESULT &record) {
  EXPECT_GE(record.data_size, 0);
  EXPECT_LE(record.data_size, record.buffer_size);
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const STRING &value = record.fields[field].value;
    if (value.str == nullptr) {
      EXPECT_EQ(value.len, 0) << field;
      continue;
    }
    EXPECT_GE(value.str, record.buffer) << field;
    EXPECT_LE(value.str + value.len, record.buffer + record.data_size) << field;
  }
}

void write_inner(PARSE_RESULT *record) { utils_write_field_s(record, INNER, "inner"); }

// ---- the callback writes to the record --------------------------------------------------------------

TEST(CallbackWrites, TheSlotIsSetFromThePositionBeforeTheCall) {
  Record record(40);
  utils_write_field_s(record.get(), 1, "AB");
  Callback callback = {write_inner, record.get(), "xyz", 3};
  EXPECT_EQ(utils_write_field_w(record.get(), OUTER, &callback, writer), record.slot(OUTER));
  // Both texts begin where the free space began; the inner one was written last.
  EXPECT_EQ(record.offset(OUTER), 3);
  EXPECT_EQ(record.slot(OUTER)->value.len, 3);
  EXPECT_EQ(record.offset(INNER), 3);
  EXPECT_EQ(record.value(INNER), "inner");
  // "AB" and its NUL, "inner" and its NUL, three more characters and a NUL.
  EXPECT_EQ(record->data_size, 3 + 6 + 3 + 1);
  keeps_its_promises(*record.get());
}

TEST(CallbackWrites, NothingReturnedEmptiesTheOuterSlotAndKeepsTheInner) {
  Record record(40);
  Callback callback = {write_inner, record.get(), "", 0};
  utils_write_field_w(record.get(), OUTER, &callback, writer);
  EXPECT_EQ(record.slot(OUTER)->value.str, nullptr);
  EXPECT_EQ(record.value(INNER), "inner");
  EXPECT_EQ(record->data_size, 6);
}

TEST(CallbackWrites, InBuffersOfEverySizeTheRecordStaysWhole) {
  for (int size = 1; size <= 40; ++size) {
    for (const int returned : {-1, 0, 1, 3, 6, 7, 40, INT_MAX}) {
      SCOPED_TRACE(std::to_string(size) + " bytes, " + std::to_string(returned) + " returned");
      Record record(size);
      Callback callback = {write_inner, record.get(), "", returned};
      utils_write_field_w(record.get(), OUTER, &callback, writer);
      keeps_its_promises(*record.get());
      utils_write_field_s(record.get(), 1, "after");
      keeps_its_promises(*record.get());
      EXPECT_TRUE(record.guards_intact());
    }
  }
}

TEST(CallbackWrites, APredicateThatWritesLeavesTheRecordWhole) {
  for (int size = 1; size <= 40; ++size) {
    SCOPED_TRACE(size);
    Record record(size);
    Callback callback = {write_inner, record.get()};
    predicates_callback = &callback;
    const STRING source = view("A!B!C");
    EXPECT_EQ(utils_write_field_f(record.get(), OUTER, &source, predicate, nullptr, '\0'),
              record.slot(OUTER));
    EXPECT_EQ(record.offset(OUTER), 0);
    keeps_its_promises(*record.get());
    EXPECT_TRUE(record.guards_intact());
  }
}

// ---- the callback clears the record, or lends it another buffer -------------------------------------

TEST(CallbackClears, TheTextStaysWhereItIsAndCountsAsUsed) {
  Record record(40);
  utils_write_field_s(record.get(), 1, "AB");
  Callback callback = {[](PARSE_RESULT *r) { result_clear(r); }, record.get(), "xyz", 3};
  utils_write_field_w(record.get(), OUTER, &callback, writer);
  EXPECT_EQ(record.slot(1)->value.str, nullptr);
  EXPECT_EQ(record.offset(OUTER), 3);
  EXPECT_EQ(record.slot(OUTER)->value.len, 3); // three NULs: the buffer was cleared
  EXPECT_EQ(record->data_size, 3 + 3 + 1);
  keeps_its_promises(*record.get());
}

TEST(CallbackLends, AnotherBufferTheSlotIsEmptyAndTheRecordUsesTheNewOne) {
  Record record(40);
  Lent other(20);
  Callback callback = {[&](PARSE_RESULT *r) { result_init(r, other.data(), other.size()); }, record.get(),
                       "xyz", 3};
  EXPECT_EQ(utils_write_field_w(record.get(), OUTER, &callback, writer), record.slot(OUTER));
  EXPECT_EQ(record->buffer, other.data());
  EXPECT_EQ(record.slot(OUTER)->value.str, nullptr);
  EXPECT_EQ(record.slot(OUTER)->value.len, 0);
  EXPECT_EQ(record->data_size, 0);

  Record filtered(40);
  Callback lends = {[&](PARSE_RESULT *r) { result_init(r, other.data(), other.size()); }, filtered.get()};
  predicates_callback = &lends;
  const STRING source = view("A!B");
  utils_write_field_f(filtered.get(), OUTER, &source, predicate, nullptr, '\0');
  EXPECT_EQ(filtered.slot(OUTER)->value.str, nullptr);
  EXPECT_EQ(filtered->data_size, 0);
}

TEST(CallbackLends, LessOfTheSameBufferTheSlotIsCutToIt) {
  Record record(40);
  utils_write_field_s(record.get(), 1, "AB");
  for (const auto &[size, length] : {std::pair{5, 2}, {4, 1}, {3, 0}, {2, 0}, {1, 0}, {6, 3}, {40, 3}}) {
    SCOPED_TRACE(size);
    result_init(record.get(), record->buffer, 40);
    utils_write_field_s(record.get(), 1, "AB");
    Callback callback = {[size = size](PARSE_RESULT *r) { result_init(r, r->buffer, size); }, record.get(),
                         "xyz", 3};
    utils_write_field_w(record.get(), OUTER, &callback, writer);
    EXPECT_EQ(record.slot(OUTER)->value.len, length);
    keeps_its_promises(*record.get());
  }
}

// ---- the callback leaves by an exception ------------------------------------------------------------

struct Refusal {};

int refuses(int c) {
  if (c == '!')
    throw Refusal();
  return 0;
}

TEST(CallbackThrows, ThroughEveryFunctionThatAsksAPredicate) {
  char out[8];
  STRING text = view("AB!C");
  STRING match;
  STRING tail;
  const auto all = [](int c) { return refuses(c) == 0 ? 1 : 0; };
  EXPECT_THROW(utils_strcpy_f(out, sizeof out, &text, refuses, nullptr, '\0'), Refusal);
  EXPECT_THROW(utils_strwrite_f(out, sizeof out, &text, refuses, nullptr, '\0'), Refusal);
  EXPECT_THROW(utils_strtrim_start_f(&text, all), Refusal);
  text = view("C!AB");
  EXPECT_THROW(utils_strtrim_end_f(&text, all), Refusal);
  text = view("AB!C");
  EXPECT_THROW(utils_strtrim_f(&text, all), Refusal);
  text = view("AB!C");
  EXPECT_THROW(utils_strcheck_f(&text, all), Refusal);
  EXPECT_THROW(utils_cstrcheck_f("AB!C", all), Refusal);
  EXPECT_THROW(utils_match_f(&text, all, 1, 9, &match, &tail), Refusal);
  EXPECT_THROW(utils_match_start_f(&text, all, 1, 9, &match, &tail), Refusal);
}

TEST(CallbackThrows, TheRecordStaysAsItWas) {
  Record record(20);
  utils_write_field_s(record.get(), OUTER, "OLD");
  const STRING source = view("AB!C");
  EXPECT_THROW(utils_write_field_f(record.get(), OUTER, &source, refuses, nullptr, '\0'), Refusal);
  EXPECT_THROW(
      utils_write_field_w(record.get(), OUTER, nullptr, [](void *, char *, int) -> int { throw Refusal(); }),
      Refusal);
  EXPECT_EQ(record.value(OUTER), "OLD");
  EXPECT_EQ(record->data_size, 4);
  utils_write_field_s(record.get(), INNER, "NEW");
  EXPECT_EQ(record.shown(), "OLD~NEW~~~~~~~~~~~~~");
  keeps_its_promises(*record.get());
}

} // namespace
