// One call from text to values: varnel_read().
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <Varnel/Varnel.h>

#include "zone_support.hpp"

namespace {

using namespace std::string_literals;
using namespace zone_support;

using values = std::map<std::string, std::string>;

// The values by key, each read as a C string. Their order and lengths are checked on the way.
values values_of(const varnel_document &document) {
  const char *const keys[] = {"firstName",        "lastName",       "middleName",   "licenseNumber",
                              "birthDate",        "expirationDate", "gender",       "countryCode",
                              "jurisdictionCode", "nationality",    "documentType", "issueDate"};
  values all;
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    const VARNEL_PAIR &pair = document.values[i];
    EXPECT_STREQ(pair.key, keys[i]);
    EXPECT_NE(pair.value.str, nullptr) << pair.key;
    EXPECT_EQ(static_cast<int>(std::strlen(pair.value.str)), pair.value.len) << pair.key;
    if (pair.value.len > 0) {
      all[pair.key] = pair.value.str;
    }
  }
  return all;
}

struct garbage {
  varnel_document document;
  garbage() { std::memset(&document, 0x5A, sizeof document); }
};

TEST(Read, SaysTheLayoutAndTheValues) {
  struct row {
    const std::string &text;
    int layout;
    const char *name;
    values expected;
  };
  const values card = {{"firstName", "ANNA"},     {"lastName", "ERIKSSON"},
                       {"middleName", "MARIA"},   {"licenseNumber", "D23145890"},
                       {"birthDate", "19740812"}, {"expirationDate", "20120415"},
                       {"gender", "F"},           {"countryCode", "UTO"},
                       {"nationality", "UTO"},    {"documentType", "TD"}};
  const values visa = {{"firstName", "ANNA"},     {"lastName", "ERIKSSON"},
                       {"middleName", "MARIA"},   {"licenseNumber", "L8988901C"},
                       {"birthDate", "19400907"}, {"expirationDate", "19961210"},
                       {"gender", "F"},           {"countryCode", "UTO"},
                       {"nationality", "XXX"},    {"documentType", "TD"}};
  const values passport = {{"firstName", "ANNA"},     {"lastName", "ERIKSSON"},
                           {"middleName", "MARIA"},   {"licenseNumber", "L898902C3"},
                           {"birthDate", "19740812"}, {"expirationDate", "20120415"},
                           {"gender", "F"},           {"countryCode", "UTO"},
                           {"nationality", "UTO"},    {"documentType", "PASSPORT"}};
  const row rows[] = {
      {TD1_CARD, VARNEL_LAYOUT_TD1, "TD1", card},       {TD2_CARD, VARNEL_LAYOUT_TD2, "TD2", card},
      {PASSPORT, VARNEL_LAYOUT_TD3, "TD3", passport},   {LONG_VISA, VARNEL_LAYOUT_MRV_A, "MRV-A", visa},
      {SHORT_VISA, VARNEL_LAYOUT_MRV_B, "MRV-B", visa},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.name);
    garbage before;
    varnel_document &document = before.document;
    EXPECT_EQ(varnel_read(row.text.data(), row.text.size(), &document), ERR_OK);
    EXPECT_EQ(document.layout, row.layout);
    EXPECT_STREQ(document.layout_name, row.name);
    EXPECT_EQ(values_of(document), row.expected);
    EXPECT_EQ(document.record.buffer, document.text);
    EXPECT_EQ(document.record.buffer_size, VARNEL_BUFFER_SIZE);
  }
}

TEST(Read, GivesSlotsBeyondTheTwelve) {
  varnel_document document;
  ASSERT_EQ(varnel_read(PASSPORT.data(), PASSPORT.size(), &document), ERR_OK);
  EXPECT_STREQ(varnel_value(&document.record, FIELD_PERSONAL_NUMBER).str, "ZE184226B");
}

// Each first letter of a document code leads to the layout that it names, and to no other.
TEST(Read, KnowsEveryDocumentCode) {
  for (const char first : "IACPVX<Z"s) {
    for (const char second : "<VPA9"s) {
      const bool card = (first == 'I' || first == 'A' || first == 'C') && second != 'V';
      const auto layout_of = [&](std::string text) {
        text[0] = first;
        text[1] = second;
        varnel_document document;
        const int status = varnel_read(text.data(), text.size(), &document);
        EXPECT_EQ(status == ERR_OK, document.layout != VARNEL_LAYOUT_NONE);
        return document.layout;
      };
      SCOPED_TRACE((std::string{first, second}));
      EXPECT_EQ(layout_of(TD1_CARD), card ? VARNEL_LAYOUT_TD1 : VARNEL_LAYOUT_NONE);
      EXPECT_EQ(layout_of(TD2_CARD), card           ? VARNEL_LAYOUT_TD2
                                     : first == 'V' ? VARNEL_LAYOUT_MRV_B
                                                    : VARNEL_LAYOUT_NONE);
      EXPECT_EQ(layout_of(PASSPORT), first == 'P'   ? VARNEL_LAYOUT_TD3
                                     : first == 'V' ? VARNEL_LAYOUT_MRV_A
                                                    : VARNEL_LAYOUT_NONE);
    }
  }
}

// A refused text leaves nothing of itself, though a parser had written names and numbers before it refused.
TEST(Read, ARefusedTextLeavesNothing) {
  std::string spoiled = PASSPORT;
  spoiled[44 + 21] = 'X'; // a letter in the date of expiry
  const std::string texts[] = {spoiled, "this is no document", "-- ,\n", "P", std::string(2000, '<')};
  for (const std::string &text : texts) {
    SCOPED_TRACE(text);
    garbage before;
    varnel_document &document = before.document;
    EXPECT_EQ(varnel_read(text.data(), text.size(), &document), ERR_INVALID_FORMAT);
    EXPECT_EQ(document.layout, VARNEL_LAYOUT_NONE);
    EXPECT_STREQ(document.layout_name, "");
    EXPECT_EQ(values_of(document), values());
    EXPECT_EQ(std::string(document.text, sizeof document.text), std::string(VARNEL_BUFFER_SIZE, '\0'));
    for (const FIELD &slot : document.record.fields) {
      EXPECT_EQ(slot.value.str, nullptr);
    }
  }
}

TEST(Read, BadArguments) {
  EXPECT_EQ(varnel_read(PASSPORT.data(), PASSPORT.size(), nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_read(nullptr, 0, nullptr), ERR_INVALID_ARGS);
  struct row {
    const char *text;
    std::size_t size;
  };
  for (const row &row : {row{nullptr, 0}, row{nullptr, 88}, row{PASSPORT.data(), 0}}) {
    garbage before;
    varnel_document &document = before.document;
    EXPECT_EQ(varnel_read(row.text, row.size, &document), ERR_INVALID_ARGS);
    EXPECT_EQ(document.layout, VARNEL_LAYOUT_NONE);
    EXPECT_STREQ(document.layout_name, "");
    EXPECT_EQ(values_of(document), values());
  }
}

} // namespace
