// Character classes: every predicate on every value that a character can arrive as.
#include "support.hpp"

#include <climits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <Varnel/patterns.h>
#include <Varnel/utils.h>

namespace {

// The building stones of the classes, written out.
#define UPPER "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
#define LOWER "abcdefghijklmnopqrstuvwxyz"
#define DIGIT "0123456789"
#define SPACE "\x20\x09\x0A\x0B\x0C\x0D"
#define WORD UPPER LOWER DIGIT

enum Sense { ACCEPTS, REFUSES };

struct Class {
  const char *name;
  _t_predicate_func predicate;
  Sense sense; // of the characters listed; all others are the other way round
  std::string_view listed;
};

// A literal with its NULs.
template <std::size_t N> constexpr std::string_view all_of(const char (&literal)[N]) {
  return {literal, N - 1};
}

const Class CLASSES[] = {
    {"pattern_is_atoi_valid", pattern_is_atoi_valid, ACCEPTS, DIGIT SPACE "-+"},
    {"pattern_isNotDigit", pattern_isNotDigit, REFUSES, DIGIT},
    {"pattern_isCityChar", pattern_isCityChar, ACCEPTS, WORD SPACE "'-._\\/"},
    {"pattern_isClearCityChar", pattern_isClearCityChar, ACCEPTS, WORD "_-\\/"},
    {"pattern_isNotClearCityChar", pattern_isNotClearCityChar, REFUSES, WORD "_-\\/"},
    {"pattern_isNameChar", pattern_isNameChar, ACCEPTS, WORD SPACE "$',-._\\/"},
    {"pattern_isAddressChar", pattern_isAddressChar, ACCEPTS, WORD SPACE "#$',-._\\/"},
    {"pattern_isAddressChar2", pattern_isAddressChar2, ACCEPTS, WORD SPACE ",-_$#"},
    {"pattern_isClearAddressChar", pattern_isClearAddressChar, ACCEPTS, WORD "'-._\\/"},
    {"pattern_isClearAddressChar2", pattern_isClearAddressChar2, ACCEPTS, WORD "_-"},
    {"pattern_isNotClearAddressChar", pattern_isNotClearAddressChar, REFUSES, WORD "'-._\\/"},
    {"pattern_isNotClearAddressChar2", pattern_isNotClearAddressChar2, REFUSES, WORD "_-"},
    // Digits are refused: the class is narrower than real postal codes, on purpose.
    {"pattern_isClearPostalCode", pattern_isClearPostalCode, ACCEPTS, UPPER SPACE},
    {"pattern_isLicenseNumber", pattern_isLicenseNumber, ACCEPTS, DIGIT SPACE},
    {"pattern_is_w", pattern_is_w, ACCEPTS, WORD "_"},
    {"pattern_is_not_w", pattern_is_not_w, REFUSES, WORD "_"},
    {"pattern_is_ws", pattern_is_ws, ACCEPTS, WORD "_" SPACE},
    // From 33 to 125: neither the space nor the tilde.
    {"pattern_valid_symbols", pattern_valid_symbols, ACCEPTS, WORD "!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}"},
    {"pattern_not_valid_symbols", pattern_not_valid_symbols, REFUSES,
     WORD "!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}"},
    // The names of these two lack an n, and keep to it.
    {"patter_trim_space", patter_trim_space, ACCEPTS, all_of("\0" SPACE)},
    {"patter_trim_address", patter_trim_address, REFUSES, WORD "."},
};

int expected(const Class &c, int value) {
  const bool listed =
      value >= 0 && value <= 127 && c.listed.find(static_cast<char>(value)) != std::string_view::npos;
  return listed == (c.sense == ACCEPTS) ? 1 : 0;
}

TEST(Patterns, AreTwentyOne) { EXPECT_EQ(std::size(CLASSES), 21U); }

// -128 to -1 are the bytes above 0x7F as they arrive; 128 to 255 is what they would be unsigned.
TEST(Patterns, AnswerOneOrZeroForEveryCharacter) {
  for (const Class &c : CLASSES) {
    for (int value = -128; value <= 255; ++value) {
      EXPECT_EQ(c.predicate(value), expected(c, value)) << c.name << '(' << value << ')';
    }
  }
}

TEST(Patterns, KnowNoCharacterOutsideABytesRange) {
  for (const Class &c : CLASSES) {
    for (const int value : {INT_MIN, -256 + 'A', -129, 256, 256 + 'A', 256 + ' ', INT_MAX}) {
      EXPECT_EQ(c.predicate(value), expected(c, value)) << c.name << '(' << value << ')';
    }
  }
}

// The classes' sizes, counted over ASCII: a slip in a list above would show here.
TEST(Patterns, HaveSoManyMembers) {
  const int members[] = {18, 118, 74, 66, 62, 76, 77, 73, 68, 64, 60, 64, 32, 16, 63, 65, 69, 93, 35, 7, 65};
  int i = 0;
  for (const Class &c : CLASSES) {
    int count = 0;
    for (int value = 0; value <= 127; ++value) {
      count += c.predicate(value);
    }
    EXPECT_EQ(count, members[i++]) << c.name;
  }
}

TEST(Patterns, KeepTheirFinePoints) {
  const struct {
    const char *name;
    _t_predicate_func predicate;
    int c;
    int answer;
  } points[] = {
      {"pattern_isClearPostalCode", pattern_isClearPostalCode, '1', 0},
      {"pattern_isClearPostalCode", pattern_isClearPostalCode, 'A', 1},
      {"pattern_isClearPostalCode", pattern_isClearPostalCode, 'a', 0},
      {"pattern_isClearPostalCode", pattern_isClearPostalCode, ' ', 1},
      {"pattern_valid_symbols", pattern_valid_symbols, ' ', 0},
      {"pattern_valid_symbols", pattern_valid_symbols, '~', 0},
      {"pattern_valid_symbols", pattern_valid_symbols, '!', 1},
      {"pattern_valid_symbols", pattern_valid_symbols, '}', 1},
      {"patter_trim_space", patter_trim_space, 0, 1},
      {"pattern_is_w", pattern_is_w, 0, 0},
      {"patter_trim_address", patter_trim_address, '.', 0},
      {"patter_trim_address", patter_trim_address, 'a', 0},
      {"patter_trim_address", patter_trim_address, ',', 1},
      {"patter_trim_address", patter_trim_address, '#', 1},
      {"patter_trim_address", patter_trim_address, -55, 1},
      {"patter_trim_space", patter_trim_space, -55, 0},
      {"pattern_is_atoi_valid", pattern_is_atoi_valid, '+', 1},
      {"pattern_is_atoi_valid", pattern_is_atoi_valid, '-', 1},
      {"pattern_is_atoi_valid", pattern_is_atoi_valid, '\n', 1},
  };
  for (const auto &[name, predicate, c, answer] : points) {
    EXPECT_EQ(predicate(c), answer) << name << '(' << c << ')';
  }
}

// The byte 0xC9 reaches a predicate as -55, whatever the signedness of char.
TEST(Patterns, MeetBytesAsSignedCharacters) {
  for (const Class &c : CLASSES) {
    const bool complement = c.sense == REFUSES;
    EXPECT_EQ(utils_cstrcheck_f("\xC9", c.predicate), complement ? 0 : 1) << c.name;
  }
}

TEST(Patterns, FitTheUtilities) {
  EXPECT_EQ(utils_cstrcheck_f("-12 +7", pattern_is_atoi_valid), 0);
  EXPECT_EQ(utils_cstrcheck_f("12-a", pattern_is_atoi_valid), 4);
  STRING city = support::view(" #Bad Ischl, ");
  utils_strtrim_f(&city, pattern_isNotClearCityChar);
  EXPECT_EQ(support::text(city), "Bad Ischl");
  STRING field = support::view(std::string_view("\0 \t12\r\n\0", 8));
  utils_strtrim_f(&field, patter_trim_space);
  EXPECT_EQ(support::text(field), "12");
  STRING address = support::view("#, 12 Main St.\xC9\r\n");
  utils_strtrim_f(&address, patter_trim_address);
  EXPECT_EQ(support::text(address), "12 Main St.");
}

} // namespace
