// Corners of the core that no other suite has a reason to visit: each stands for one way through the code.
#include <climits>

#include <gtest/gtest.h>

#include "support.hpp"

namespace {

using support::view;

TEST(Corners, ExportOfARecordWithoutRoomReadsItsTextsAsCStrings) {
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

TEST(Corners, ByteBelowTheContinuationsEndsASequence) {
  EXPECT_EQ(varnel_utf16_length("\xE1\x7F\x80", 3), 3);
  EXPECT_EQ(varnel_utf16_length("\xE1\x80\x80", 3), 1);
}

TEST(Corners, ReplacingLooksAtNothingBeforeTheText) {
  char text[] = "<<";
  const STRING from = view("<<");
  const STRING to = view("X");
  EXPECT_EQ(utils_strreplace(text + 1, 1, 1, &from, &to), 1);
  EXPECT_STREQ(text, "<<");
}

TEST(Corners, RecordThatWasNeverLentABufferTakesNoText) {
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

TEST(Corners, DifferenceOfLengthsStaysWithinAnInt) {
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

TEST(Corners, BytesAroundTheTailsOfUtf8AreNoTails) {
  EXPECT_EQ(varnel_utf16_length("\xF1\x7F\x80\x80", 4), 4);
  EXPECT_EQ(varnel_utf16_length("\xF1\x80\x80\x80", 4), 2);
}

TEST(Corners, PointIsNoSignInADate) {
  const STRING text = view("2018.1.2");
  DATETIME date = {};
  EXPECT_EQ(utils_parse_date(&text, &date), -1);
}

TEST(Corners, TokenWithoutAPlaceToGoIsNotSought) {
  const STRING text = view("ONE TWO");
  EXPECT_EQ(utils_strntok(&text, nullptr, 0, " "), -1);
}

TEST(Corners, ReplacingWithAnArgumentMissingChangesNothing) {
  char text[] = "ANNA";
  const STRING from = view("A");
  const STRING to = view("O");
  EXPECT_EQ(utils_strreplace(nullptr, 4, 4, &from, &to), 4);
  EXPECT_EQ(utils_strreplace(text, 4, 4, nullptr, &to), 4);
  EXPECT_EQ(utils_strreplace(text, 4, 4, &from, nullptr), 4);
  EXPECT_STREQ(text, "ANNA");
}

} // namespace
