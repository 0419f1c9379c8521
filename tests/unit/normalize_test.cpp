#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include <Varnel/Varnel.h>

#include "support.hpp"

namespace {

using namespace std::string_view_literals;

constexpr int NOT_SET = -777;

struct normalized {
  int status;
  int length;
  std::string output; // as far as the NUL
};

// Text and output in memory of exactly their sizes: the sanitizer sees every read and write beside them.
normalized normalize(std::string_view text, int o_len) {
  const support::Exact input(text);
  support::Lent output(o_len);
  normalized result = {0, NOT_SET, ""};
  result.status = normalize_mrz(input.data(), input.size(), output.data(), o_len, &result.length);
  result.output = output.data();
  EXPECT_TRUE(output.guards_intact());
  return result;
}

TEST(Normalize, KeepsTheCharacterSetAndMakesLettersUppercase) {
  struct row {
    std::string_view text;
    const char *output;
  };
  const row rows[] = {
      {"p<utoeriksson<<anna<maria", "P<UTOERIKSSON<<ANNA<MARIA"},
      {"P<UTOERIKSSON<<ANNA<MARIA", "P<UTOERIKSSON<<ANNA<MARIA"},
      {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {"0123456789<", "0123456789<"},
      {" A\tB\rC\nD\vE\fF ", "ABCDEF"},
      {"A\r\nB\n\nC", "ABC"},
      {"A,B.C-D/E(F)G>H\"I'J", "ABCDEFGHIJ"},
      {"A\0B\0\0C"sv, "ABC"},
      {"\0"sv, ""},
      {"<", "<"},
      {"<<<<", "<<<<"},
      {"\xC3\x89"
       "A\xC3\xA9"
       "B",
       "AB"},                           // accented letters are dropped, not stripped of their accents
      {"\xEF\xBB\xBFP<UTO", "P<UTO"},   // byte order mark
      {"\xEF\xBC\xA1\xEF\xBC\x9C", ""}, // full-width A and <
      {"\xFF\xFE\x80\xC0", ""},
      {" \t\r\n", ""},
      {"\xC4\xB1\xC5\xBF\xE2\x84\xAA", ""}, // dotless i, long s, Kelvin sign: small letters of other sets
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.output);
    const normalized result = normalize(row.text, 1024);
    EXPECT_EQ(result.status, ERR_OK);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.length, static_cast<int>(std::string_view(row.output).size()));
  }
}

TEST(Normalize, ReadsEveryByteAsOneCharacterOrNone) {
  for (int byte = 0; byte < 256; ++byte) {
    SCOPED_TRACE("byte " + std::to_string(byte));
    std::string expected;
    if (byte == '<' || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z')) {
      expected = std::string(1, static_cast<char>(byte));
    } else if (byte >= 'a' && byte <= 'z') {
      expected = std::string(1, static_cast<char>(byte - 32));
    }
    const normalized alone = normalize(std::string(1, static_cast<char>(byte)), 2);
    EXPECT_EQ(alone.status, ERR_OK);
    EXPECT_EQ(alone.output, expected);
    EXPECT_EQ(alone.length, static_cast<int>(expected.size()));

    const normalized between = normalize(std::string("x") + static_cast<char>(byte) + "1", 1024);
    EXPECT_EQ(between.output, "X" + expected + "1");
  }
}

TEST(Normalize, JoinsLines) {
  const std::string line_1 = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<";
  const std::string line_2 = "L898902C36UTO7408122F1204159ZE184226B<<<<<10";
  const normalized result = normalize(line_1 + "\n" + line_2, 1024);
  EXPECT_EQ(result.status, ERR_OK);
  EXPECT_EQ(result.length, 88);
  EXPECT_EQ(result.output, line_1 + line_2);
}

// The limit counts what is read, not what is kept.
TEST(Normalize, ExaminesNoMoreBytesThanTheOutputCouldHold) {
  struct row {
    const char *text;
    int o_len;
    const char *output;
  };
  const row rows[] = {
      {"01234567890123456789", 10, "012345678"},
      {"012345678", 10, "012345678"},
      {"01234567", 10, "01234567"},
      {"         012345678", 10, ""},
      {"        012345678", 10, "0"},
      {" 0 1 2 3 4 5 6 7 8", 10, "0123"},
      {"AB", 2, "A"},
      {" B", 2, ""},
      {"ABC", 3, "AB"},
      {"ABC", 4, "ABC"},
      {"ABC", 5, "ABC"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(std::string(row.text) + " into " + std::to_string(row.o_len));
    const normalized result = normalize(row.text, row.o_len);
    EXPECT_EQ(result.status, ERR_OK);
    EXPECT_EQ(result.output, row.output);
    EXPECT_EQ(result.length, static_cast<int>(std::string_view(row.output).size()));
  }
}

TEST(Normalize, ExaminesNoMoreBytesThanItIsTold) {
  support::Lent output(1024);
  int length = NOT_SET;
  EXPECT_EQ(normalize_mrz("ABCDEF", 3, output.data(), output.size(), &length), ERR_OK);
  EXPECT_STREQ(output.data(), "ABC");
  EXPECT_EQ(length, 3);

  // A text of 9 bytes with no NUL after it: the capacity of 10 lets exactly those be read.
  const support::Exact text("012345678");
  support::Lent small(10);
  EXPECT_EQ(normalize_mrz(text.data(), 2147483647, small.data(), small.size(), &length), ERR_OK);
  EXPECT_STREQ(small.data(), "012345678");
  EXPECT_EQ(length, 9);
}

TEST(Normalize, CutsAt1023BytesBeforeItFilters) {
  const std::string spaces_1022(1022, ' ');
  EXPECT_EQ(normalize(spaces_1022 + "A" + "B", 1024).output, "A");
  EXPECT_EQ(normalize(spaces_1022 + " " + "B", 1024).output, "");
  const normalized full = normalize(std::string(1023, 'z') + "9", 1024);
  EXPECT_EQ(full.length, 1023);
  EXPECT_EQ(full.output, std::string(1023, 'Z'));
}

// At every length around the strides that a fast reading might take.
TEST(Normalize, KeepsAndDropsAtEveryPosition) {
  for (std::size_t size = 1; size <= 80; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      std::string text(size, '<');
      text[at] = '-';
      const normalized dropped = normalize(text, 1024);
      EXPECT_EQ(dropped.output, std::string(size - 1, '<')) << size << ", " << at;
      text[at] = 'a';
      std::string uppercase(size, '<');
      uppercase[at] = 'A';
      EXPECT_EQ(normalize(text, 1024).output, uppercase) << size << ", " << at;
    }
  }
}

TEST(Normalize, TouchesNothingOnBadArguments) {
  char output[] = "untouched";
  int length = NOT_SET;
  EXPECT_EQ(normalize_mrz(nullptr, 3, output, sizeof output, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 0, output, sizeof output, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", -1, output, sizeof output, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", -2147483647 - 1, output, sizeof output, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 3, nullptr, sizeof output, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 3, output, 1, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 3, output, 0, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 3, output, -5, &length), ERR_INVALID_ARGS);
  EXPECT_EQ(normalize_mrz("ABC", 3, output, sizeof output, nullptr), ERR_INVALID_ARGS);
  EXPECT_STREQ(output, "untouched");
  EXPECT_EQ(length, NOT_SET);
}

} // namespace
