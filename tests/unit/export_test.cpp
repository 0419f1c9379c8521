#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <Varnel/Varnel.h>

#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;

const char *const KEYS[] = {"firstName",        "lastName",       "middleName",   "licenseNumber",
                            "birthDate",        "expirationDate", "gender",       "countryCode",
                            "jurisdictionCode", "nationality",    "documentType", "issueDate"};

using pairs = std::vector<std::pair<std::string, std::string>>;

pairs exported(const PARSE_RESULT *record) {
  VARNEL_PAIR raw[VARNEL_VALUE_COUNT];
  EXPECT_EQ(varnel_export(record, raw), ERR_OK);
  pairs values;
  for (const VARNEL_PAIR &pair : raw) {
    EXPECT_NE(pair.value.str, nullptr) << pair.key;
    EXPECT_GE(pair.value.len, 0) << pair.key;
    values.emplace_back(pair.key, std::string(pair.value.str, static_cast<std::size_t>(pair.value.len)));
  }
  return values;
}

std::string exported_value(const PARSE_RESULT *record, const std::string &key) {
  for (const auto &[known, value] : exported(record)) {
    if (known == key) {
      return value;
    }
  }
  ADD_FAILURE() << "no key " << key;
  return "";
}

std::string value_of(const PARSE_RESULT *record, int field) {
  return support::text(varnel_value(record, field));
}

TEST(Export, OfAClearedRecordIsTwelveEmptyValues) {
  static_assert(VARNEL_VALUE_COUNT == 12, "twelve values");
  support::Record record;
  pairs expected;
  for (const char *key : KEYS) {
    expected.emplace_back(key, "");
  }
  EXPECT_EQ(exported(record.get()), expected);
}

// Each value comes from its slot, one slot at a time: no other slot is exported, in particular not the second
// of the pairs that hold the same element in another version (11, 55, 56 beside 78, 6, 125).
TEST(Export, ReadsNoOtherSlot) {
  const std::map<int, const char *> keys = {
      {26, "firstName"},        {25, "lastName"},        {27, "middleName"},       {6, "licenseNumber"},
      {78, "birthDate"},        {10, "expirationDate"},  {12, "gender"},           {125, "countryCode"},
      {34, "jurisdictionCode"}, {4, "jurisdictionCode"}, {71, "jurisdictionCode"}, {72, "jurisdictionCode"},
      {70, "jurisdictionCode"}, {138, "nationality"},    {87, "documentType"},     {13, "issueDate"}};
  for (int field = 0; field < FIELD_COUNT; ++field) {
    support::Record record;
    utils_write_field_s(record.get(), field, "TEXT");
    const auto key = keys.find(field);
    pairs expected;
    for (const char *name : KEYS)
      expected.emplace_back(name, key != keys.end() && name == std::string(key->second) ? "TEXT" : "");
    EXPECT_EQ(exported(record.get()), expected) << "slot " << field;
  }
}

// The two jurisdiction codes first, then the descriptions of endorsements, restrictions and vehicle class.
TEST(Export, ChoosesTheJurisdictionInOrder) {
  struct row {
    std::vector<int> slots;
    const char *chosen;
  };
  const row rows[] = {
      {{34, 4, 71, 72, 70}, "34"},
      {{4, 71, 72, 70}, "4"},
      {{71, 72, 70}, "71"},
      {{72, 70}, "72"},
      {{70}, "70"},
      {{4, 71}, "4"},
      {{70, 71}, "71"},
      {{70, 72}, "72"},
      {{70, 34}, "34"},
      {{4, 34}, "34"},
      {{}, ""},
      {{3, 5, 33, 35, 69, 73}, ""},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.chosen);
    support::Record record;
    for (const int slot : row.slots) {
      utils_write_field_s(record.get(), slot, std::to_string(slot).c_str());
    }
    EXPECT_EQ(exported_value(record.get(), "jurisdictionCode"), row.chosen);
  }
}

// A choice counts as empty by its text, not by its length.
TEST(Export, PassesOverAJurisdictionWithoutText) {
  support::Record record;
  utils_write_field_s(record.get(), 4, "FOUR");
  record.slot(34)->value = STRING{"", 5};
  EXPECT_EQ(exported_value(record.get(), "jurisdictionCode"), "FOUR");
  record.slot(34)->value = STRING{nullptr, 5};
  EXPECT_EQ(exported_value(record.get(), "jurisdictionCode"), "FOUR");
  record.slot(34)->value = STRING{"THIRTYFOUR", 0};
  EXPECT_EQ(exported_value(record.get(), "jurisdictionCode"), "THIRTYFOUR");
}

// A value is read to the first NUL; the slot's own length is not consulted.
TEST(Value, IsReadToTheFirstNul) {
  struct row {
    STRING slot;
    const char *value;
  };
  const row rows[] = {
      {{"ANNA", 4}, "ANNA"},
      {{"ANNA", 2}, "ANNA"},
      {{"ANNA", 0}, "ANNA"},
      {{"ANNA", -1}, "ANNA"},
      {{"ANNA", 1000}, "ANNA"},
      {{"AN\0NA", 5}, "AN"},
      {{"", 3}, ""},
      {{nullptr, 0}, ""},
      {{nullptr, 4}, ""},
      {{" a<-\xFF\x80", 6}, " a<-\xFF\x80"}, // passed through as stored
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.value);
    support::Record record;
    record.slot(FIELD_FIRST_NAME)->value = row.slot;
    const STRING value = varnel_value(record.get(), FIELD_FIRST_NAME);
    ASSERT_NE(value.str, nullptr);
    EXPECT_EQ(support::text(value), row.value);
    EXPECT_EQ(value.len, static_cast<int>(std::strlen(row.value)));
    EXPECT_EQ(exported_value(record.get(), "firstName"), row.value);
    if (row.slot.str != nullptr && value.len > 0) {
      EXPECT_EQ(value.str, row.slot.str) << "a view, no copy";
    }
  }
}

// Text from outside the buffer is a C string wherever it lies: before, after, or at the buffer's end.
TEST(Value, OutsideTheBufferIsReadAsACString) {
  char memory[32] = "BEFORE";
  PARSE_RESULT record;
  ASSERT_EQ(result_init(&record, memory + 7, 8), ERR_OK);
  record.fields[FIELD_FIRST_NAME].value = STRING{memory, 1};
  record.fields[FIELD_FAMILY_NAME].value = STRING{memory + 7 + 8, 1}; // one past the buffer
  std::memcpy(memory + 7 + 8, "NEXT", 5);
  EXPECT_EQ(value_of(&record, FIELD_FIRST_NAME), "BEFORE");
  EXPECT_EQ(value_of(&record, FIELD_FAMILY_NAME), "NEXT");
}

// In a buffer that a text fills to its end no NUL follows, and reading stops at the end.
TEST(Value, StopsAtTheEndOfTheBuffer) {
  struct row {
    int size;
    const char *family_name;
    const char *country_code;
    const char *first_name;
  };
  // "UTO" and "ERIKSSON" and "ANNA" are written in this order; see how far there is room.
  const row rows[] = {
      {1, "", "U", ""},
      {2, "", "UT", ""},
      {3, "", "UTO", ""},
      {4, "E", "UTOE", ""}, // no room for a NUL: the next value follows at once
      {5, "E", "UTO", ""},
      {12, "ERIKSSON", "UTO", ""},
      {13, "ERIKSSONA", "UTO", "A"}, // so too here, and the family name is read on into the first
      {14, "ERIKSSON", "UTO", "A"},
      {17, "ERIKSSON", "UTO", "ANNA"},
      {18, "ERIKSSON", "UTO", "ANNA"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE("buffer of " + std::to_string(row.size));
    // Memory of exactly the buffer's size: the address sanitizer sees a read past it.
    std::vector<char> buffer(static_cast<std::size_t>(row.size));
    PARSE_RESULT record;
    ASSERT_EQ(result_init(&record, buffer.data(), row.size), ERR_OK);
    utils_write_field_s(&record, FIELD_COUNTRY_CODE, "UTO");
    utils_write_field_s(&record, FIELD_FAMILY_NAME, "ERIKSSON");
    utils_write_field_s(&record, FIELD_FIRST_NAME, "ANNA");
    EXPECT_EQ(value_of(&record, FIELD_FAMILY_NAME), row.family_name);
    EXPECT_EQ(value_of(&record, FIELD_COUNTRY_CODE), row.country_code);
    EXPECT_EQ(value_of(&record, FIELD_FIRST_NAME), row.first_name);
    EXPECT_EQ(exported_value(&record, "lastName"), row.family_name);
  }
}

TEST(Value, OfABufferWithoutAnyNulEndsWithIt) {
  std::vector<char> buffer(16, 'X');
  PARSE_RESULT record;
  ASSERT_EQ(result_init(&record, buffer.data(), 16), ERR_OK);
  buffer.assign(16, 'X');
  for (int at = 0; at < 16; ++at) {
    record.fields[FIELD_SEX].value = STRING{buffer.data() + at, 1};
    EXPECT_EQ(varnel_value(&record, FIELD_SEX).len, 16 - at);
    EXPECT_EQ(exported_value(&record, "gender"), std::string(static_cast<std::size_t>(16 - at), 'X'));
  }
}

// Whatever the text is made of, wherever it starts in the buffer, whatever follows its NUL.
TEST(Value, EndsAtTheFirstNulAtEveryPlace) {
  for (const char fill : {'A', '\x01', '\x7F', '\x80', '\xFF'}) {
    for (int start = 0; start < 9; ++start) {
      for (int length = 0; start + length <= 40; ++length) {
        std::vector<char> buffer(40);
        PARSE_RESULT record;
        ASSERT_EQ(result_init(&record, buffer.data(), 40), ERR_OK);
        buffer.assign(40, fill);
        if (start + length < 40) {
          buffer[static_cast<std::size_t>(start + length)] = '\0';
        }
        record.fields[FIELD_SEX].value = STRING{buffer.data() + start, 1};
        EXPECT_EQ(varnel_value(&record, FIELD_SEX).len, length) << int{fill} << " from " << start;
      }
    }
  }
}

TEST(Value, OfARewrittenSlotIsTheNewText) {
  support::Record record;
  utils_write_field_s(record.get(), FIELD_SEX, "M");
  utils_write_field_s(record.get(), FIELD_SEX, "F");
  EXPECT_EQ(value_of(record.get(), FIELD_SEX), "F");
  EXPECT_EQ(image(record), "M~F~"); // the old text stays as dead space
  utils_write_field_s(record.get(), FIELD_SEX, "");
  EXPECT_EQ(value_of(record.get(), FIELD_SEX), "");
}

TEST(Value, OfNoRecordOrNoSlotIsEmpty) {
  support::Record record;
  for (const STRING &value : {varnel_value(nullptr, FIELD_SEX), varnel_value(record.get(), -1),
                              varnel_value(record.get(), FIELD_COUNT), varnel_value(record.get(), 0)}) {
    ASSERT_NE(value.str, nullptr);
    EXPECT_STREQ(value.str, "");
    EXPECT_EQ(value.len, 0);
  }
}

TEST(Export, NamesBadArgumentsAndThenWritesNothing) {
  support::Record record;
  VARNEL_PAIR raw[VARNEL_VALUE_COUNT] = {};
  EXPECT_EQ(varnel_export(nullptr, raw), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_export(record.get(), nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_export(nullptr, nullptr), ERR_INVALID_ARGS);
  for (const VARNEL_PAIR &pair : raw) {
    EXPECT_EQ(pair.key, nullptr);
    EXPECT_EQ(pair.value.str, nullptr);
  }
}

TEST(Export, LeavesTheRecordAsItWas) {
  support::Record record;
  utils_write_field_s(record.get(), FIELD_FIRST_NAME, "ANNA");
  const std::string before = image(record);
  exported(record.get());
  EXPECT_EQ(image(record), before);
  EXPECT_EQ(filled(*record.get()), (std::map<int, std::string>{{FIELD_FIRST_NAME, "ANNA"}}));
}

TEST(Value, OfARecordWithoutRoomIsReadAsACString) {
  PARSE_RESULT record = {};
  char nothing[] = "";
  record.buffer = nothing;
  record.buffer_size = 0;
  record.fields[FIELD_FAMILY_NAME].value = STRING{"ERIKSSON", 8};
  EXPECT_EQ(support::text(varnel_value(&record, FIELD_FAMILY_NAME)), "ERIKSSON");
  record.buffer_size = INT_MIN;
  EXPECT_EQ(support::text(varnel_value(&record, FIELD_FAMILY_NAME)), "ERIKSSON");

  char lent[] = "ERIKSSON"; // where the buffer begins there are no bytes of it to stop at
  record.buffer = lent;
  record.buffer_size = 0;
  record.fields[FIELD_FAMILY_NAME].value = STRING{lent, 8};
  EXPECT_EQ(support::text(varnel_value(&record, FIELD_FAMILY_NAME)), "ERIKSSON");
}

} // namespace
