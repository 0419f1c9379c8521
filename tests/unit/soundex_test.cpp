// Soundex: a name's first letter and three digits.
#include "support.hpp"

#include <climits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <Varnel/utils.h>

using namespace support;

namespace {

// A code between bytes that nobody may touch; before the call it holds "????".
struct Guarded {
  char before = '#';
  SOUNDEX_CODE code = {'?', {'?', '?', '?'}};
  char after = '#';

  std::string text() const { return std::string(1, code.alpha) + std::string(code.code, 3); }
};

struct Name {
  const char *name;
  int status;
  const char *code;
};

constexpr Name NAMES[] = {
    {"Robert", 0, "R163"},
    {"Rupert", 0, "R163"},
    {"robert", 0, "R163"},
    {"ROBERT", 0, "R163"},
    {"rObErT", 0, "R163"},
    {"Ashcraft", 0, "A261"},
    {"Ashcroft", 0, "A261"},
    {"Tymczak", 0, "T522"},
    {"Pfister", 0, "P236"},
    {"Honeyman", 0, "H555"},
    {"Jackson", 0, "J250"},
    // Places that no letter fills keep 0.
    {"Lee", 0, "L000"},
    {"A", 0, "A000"},
    {"z", 0, "Z000"},
    {"Moyer", 0, "M600"},
    // A letter with the first letter's digit is not written directly after it, but after a vowel it is.
    {"Bb", 0, "B000"},
    {"Bab", 0, "B100"},
    {"Ab", 0, "A100"},
    {"Aab", 0, "A100"},
    // H, W and Y do not break a run; a vowel does. Y goes with H and W.
    {"Shs", 0, "S000"},
    {"Sws", 0, "S000"},
    {"Sys", 0, "S000"},
    {"Sas", 0, "S200"},
    {"Ses", 0, "S200"},
    {"Sis", 0, "S200"},
    {"Sos", 0, "S200"},
    {"Sus", 0, "S200"},
    {"Shyws", 0, "S000"},
    {"Shas", 0, "S200"},
    {"Adtdt", 0, "A300"},
    {"Adhtydwt", 0, "A300"},
    {"Adatat", 0, "A333"},
    {"Hub", 0, "H100"},
    {"Why", 0, "W000"},
    {"Yb", 0, "Y100"},
    // With three digits written, nothing more is looked at.
    {"Washington DC", 0, "W252"},
    {"Robert1", 0, "R163"},
    {"Robert\xC9", 0, "R163"},
    {"Abcd", 0, "A123"},
    {"Abcd<", 0, "A123"},
    // A character that is no letter ends it with an error, and what was written stays.
    {"O'Brien", -21, "O000"},
    {"Smith Jones", -21, "S530"},
    {"Abc-d", -21, "A120"},
    {"Ab<", -21, "A100"},
    {"A1", -21, "A000"},
    {"Abc@", -21, "A120"},
    {"Abc[", -21, "A120"},
    {"Abc`", -21, "A120"},
    {"Abc{", -21, "A120"},
    {"Abc\xC9", -21, "A120"},
    {"Abc\xE9", -21, "A120"},
    // So does a first character that is none. It is written all the same.
    {"1st", -21, "1000"},
    {" Lee", -21, " 000"},
    {"<Lee", -21, "<000"},
    {"@", -21, "@000"},
    {"[", -21, "[000"},
    {"`", -21, "`000"},
    {"{", -21, "{000"},
    {"\xC9mile", -21,
     "\xC9"
     "000"},
    {"\xE9mile", -21,
     "\xE9"
     "000"},
};

TEST(Soundex, EncodesNames) {
  for (const Name &row : NAMES) {
    SCOPED_TRACE(row.name);
    const Exact name(row.name);
    const STRING view = name.view();
    Guarded encoded;
    EXPECT_EQ(utils_soundex_encode(&view, &encoded.code), row.status);
    EXPECT_EQ(encoded.text(), row.code);
    Guarded from_c;
    EXPECT_EQ(utils_soundex_encode_str(row.name, &from_c.code), row.status);
    EXPECT_EQ(from_c.text(), row.code);
    EXPECT_EQ(std::string({encoded.before, encoded.after, from_c.before, from_c.after}), "####");
  }
}

TEST(Soundex, ReadsNoFurtherThanTheView) {
  const STRING name = {"Robert", 3};
  Guarded encoded;
  EXPECT_EQ(utils_soundex_encode(&name, &encoded.code), ERR_OK);
  EXPECT_EQ(encoded.text(), "R100");
}

TEST(Soundex, TakesANulInAViewForNoLetter) {
  const STRING name = support::view(std::string_view("Ab\0cd", 5));
  const STRING nul = support::view(std::string_view("\0", 1));
  Guarded encoded;
  EXPECT_EQ(utils_soundex_encode(&name, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(encoded.text(), "A100");
  EXPECT_EQ(utils_soundex_encode(&nul, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(encoded.text(), std::string("\0"
                                        "000",
                                        4));
}

TEST(Soundex, WritesNothingForNullEmptyAndNegative) {
  const STRING name = {"Lee", 3};
  const STRING empty = {"Lee", 0};
  const STRING no_text = {nullptr, 3};
  const STRING negative = {"Lee", -1};
  const STRING most_negative = {"Lee", INT_MIN};
  Guarded encoded;
  EXPECT_EQ(utils_soundex_encode(nullptr, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode(&empty, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode(&no_text, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode(&negative, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode(&most_negative, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode_str(nullptr, &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode_str("", &encoded.code), ERR_INVALID_ARGS);
  EXPECT_EQ(encoded.text(), "????");
  EXPECT_EQ(utils_soundex_encode(&name, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(utils_soundex_encode_str("Lee", nullptr), ERR_INVALID_ARGS);
}

TEST(Soundex, CodeIsFourCharacters) { EXPECT_EQ(sizeof(SOUNDEX_CODE), 4U); }

TEST(Soundex, TableOfAllLetters) {
  const struct {
    char letter;
    int code;
  } table[] = {{'A', 0}, {'B', 1}, {'C', 2}, {'D', 3}, {'E', 0}, {'F', 1}, {'G', 2}, {'H', 7}, {'I', 0},
               {'J', 2}, {'K', 2}, {'L', 4}, {'M', 5}, {'N', 5}, {'O', 0}, {'P', 1}, {'Q', 2}, {'R', 6},
               {'S', 2}, {'T', 3}, {'U', 0}, {'V', 1}, {'W', 7}, {'X', 2}, {'Y', 7}, {'Z', 2}};
  EXPECT_EQ(sizeof _soundex_dic, 26U);
  for (const auto &[letter, code] : table) {
    EXPECT_EQ(_soundex_dic[letter - 'A'], code) << letter;
    // A lone letter, and the letter after a vowel, in either case.
    for (const char c : {letter, static_cast<char>(letter + ('a' - 'A'))}) {
      Guarded lone;
      EXPECT_EQ(utils_soundex_encode_str(std::string(1, c).c_str(), &lone.code), ERR_OK) << c;
      EXPECT_EQ(lone.text(), std::string(1, letter) + "000");
      Guarded second;
      EXPECT_EQ(utils_soundex_encode_str((std::string("A") + c).c_str(), &second.code), ERR_OK) << c;
      const bool written = code >= 1 && code <= 6;
      EXPECT_EQ(second.text(), "A" + std::to_string(written ? code : 0) + "00") << c;
    }
  }
}

// No byte but a letter is one, first or last.
TEST(Soundex, RefusesEveryOtherByte) {
  const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const int expected = letters.find(c) != std::string::npos ? ERR_OK : ERR_INVALID_ARGS;
    const std::string first = {c, 'b'};
    const std::string second = {'A', c};
    const STRING views[] = {support::view(first), support::view(second)};
    for (const STRING &view : views) {
      SOUNDEX_CODE code;
      EXPECT_EQ(utils_soundex_encode(&view, &code), expected) << byte;
    }
  }
}

} // namespace
