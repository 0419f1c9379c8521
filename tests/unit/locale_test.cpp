// The process locale changes nothing: everything that classifies, raises or reads characters answers in
// locales with other letters, another case of i and another decimal sign as it does in "C".
#include "predicates.hpp"
#include "support.hpp"

#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

#include <gtest/gtest.h>

#include <Varnel/Varnel.h>

namespace {

char byte(int value) { return static_cast<char>(value); }

// ---- what is asked: long texts of answers, to be equal in every locale -----------------------------

std::string classes() {
  std::string answers;
  for (const reference::predicate &predicate : reference::PREDICATES) {
    for (int c = -128; c <= 255; ++c) {
      answers += predicate.library(c) != 0 ? '1' : '0';
    }
  }
  return answers;
}

std::string comparisons() {
  std::string answers;
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const char left = byte(a);
      const char right = byte(b);
      const STRING views[] = {{&left, 1}, {&right, 1}};
      answers += std::to_string(utils_tokcmp(&views[0], &views[1], 1));
    }
  }
  return answers;
}

std::string soundex_codes() {
  std::string answers;
  for (int c = 0; c < 256; ++c) {
    for (const std::string &name : {std::string{byte(c), 'r'}, std::string{'A', byte(c), 'r'}}) {
      const STRING view = support::view(name);
      SOUNDEX_CODE code = {'?', {'?', '?', '?'}};
      answers += std::to_string(utils_soundex_encode(&view, &code));
      answers += code.alpha + std::string(code.code, 3);
    }
  }
  return answers;
}

std::string dates() {
  std::string answers;
  for (int c = 0; c < 256; ++c) {
    const std::string text = {'2', '0', '1', '8', byte(c), '2', byte(c), '5'};
    const STRING view = support::view(text);
    DATETIME date = {0, 0, 0, 0, 0, 0};
    answers += std::to_string(utils_parse_date(&view, &date));
    answers += std::to_string(date.year) + '-' + std::to_string(date.month) + '-' + std::to_string(date.day);
  }
  return answers;
}

// Days to date is the one place with a decimal fraction in it.
std::string day_counts() {
  std::string answers;
  for (const int days : {0, 1, 330178, 330179, 330180, 371863}) {
    DATETIME date;
    utils_days2date(static_cast<uint64_t>(days), &date);
    answers += std::to_string(date.year) + '-' + std::to_string(date.month) + '-' + std::to_string(date.day);
  }
  return answers;
}

std::string normalised() {
  std::string answers;
  for (int c = 0; c < 256; ++c) {
    const char input = byte(c);
    char output[2];
    int length = -1;
    normalize_mrz(&input, 1, output, sizeof output, &length);
    answers += std::to_string(length) + std::string(output, static_cast<std::size_t>(length));
  }
  return answers;
}

std::string document() {
  const std::string text = "p<utoeriksson<<anna<maria<<<<<<<<<<<<<<<<<<<\n"
                           "l898902c36uto7408122f1204159ze184226b<<<<<10";
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  const int length = varnel_utf16_length(text.data(), text.size());
  std::string answers = std::to_string(varnel_parse_mrz(text.data(), length, &result, buffer, sizeof buffer));
  varnel_export(&result, pairs);
  for (const VARNEL_PAIR &pair : pairs) {
    answers += pair.key + (":" + support::text(pair.value) + " ");
  }
  return answers;
}

struct Answers {
  std::string classes = ::classes();
  std::string comparisons = ::comparisons();
  std::string soundex_codes = ::soundex_codes();
  std::string dates = ::dates();
  std::string day_counts = ::day_counts();
  std::string normalised = ::normalised();
  std::string document = ::document();
};

void expect_equal(const Answers &answers, const Answers &expected) {
  EXPECT_TRUE(answers.classes == expected.classes);
  EXPECT_TRUE(answers.comparisons == expected.comparisons);
  EXPECT_TRUE(answers.soundex_codes == expected.soundex_codes);
  EXPECT_TRUE(answers.dates == expected.dates);
  EXPECT_TRUE(answers.normalised == expected.normalised);
  EXPECT_EQ(answers.day_counts, expected.day_counts);
  EXPECT_EQ(answers.document, expected.document);
}

// ---- the locales -----------------------------------------------------------------------------------

class Locale : public testing::Test {
protected:
  void SetUp() override { ASSERT_NE(setlocale(LC_ALL, "C"), nullptr); }

  void TearDown() override {
    setlocale(LC_ALL, "C");
    if (!folder_.empty()) {
      unsetenv("LOCPATH");
      EXPECT_EQ(std::system(("rm -r '" + folder_ + "'").c_str()), 0);
    }
  }

  // Compiles a locale into a folder of this test's own and enters it; false where that cannot be done.
  bool enter(const std::string &language, const std::string &charset) {
    std::string folder = testing::TempDir() + "varnel-locale-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
      return false;
    }
    folder_ = folder;
    const std::string name = language + '.' + charset;
    const std::string command =
        "localedef -i " + language + " -f " + charset + " '" + folder_ + '/' + name + "' 2>&1";
    return std::system(command.c_str()) == 0 && setenv("LOCPATH", folder_.c_str(), 1) == 0 &&
           setlocale(LC_ALL, name.c_str()) != nullptr;
  }

private:
  std::string folder_;
};

#define SKIP_LOUDLY() GTEST_SKIP() << "NOT TESTED: this system cannot make the locale (package locales)"

// The C library's own view of a character. Through pointers that the compiler knows nothing of: it takes
// the tables of character classes for constant, and may keep those of an earlier locale.
int (*const volatile ask_is_alpha)(int) = std::isalpha;
int (*const volatile ask_to_upper)(int) = std::toupper;

TEST_F(Locale, Utf8ChangesNothing) {
  const Answers in_c;
  if (setlocale(LC_ALL, "C.UTF-8") == nullptr) {
    SKIP_LOUDLY();
  }
  expect_equal(Answers(), in_c);
}

// Here bytes above 0x7F are letters, and the decimal sign is a comma.
TEST_F(Locale, Latin1ChangesNothing) {
  const Answers in_c;
  if (!enter("de_DE", "ISO-8859-1")) {
    SKIP_LOUDLY();
  }
  ASSERT_NE(ask_is_alpha(0xE9), 0) << "the locale is not the one asked for";
  ASSERT_EQ(ask_to_upper(0xE9), 0xC9);
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  expect_equal(Answers(), in_c);
}

// Here the capital of i is not I.
TEST_F(Locale, TurkishChangesNothing) {
  const Answers in_c;
  if (!enter("tr_TR", "ISO-8859-9")) {
    SKIP_LOUDLY();
  }
  ASSERT_NE(ask_to_upper('i'), 'I') << "the locale is not the one asked for";
  expect_equal(Answers(), in_c);
}

// The answers that are compared say something.
TEST_F(Locale, AnswersAreThere) {
  const Answers in_c;
  EXPECT_EQ(in_c.classes.size(), 25U * 384);
  EXPECT_NE(in_c.classes.find('1'), std::string::npos);
  EXPECT_GT(in_c.comparisons.size(), 256U * 256);
  EXPECT_NE(in_c.soundex_codes.find("I600"), std::string::npos);
  EXPECT_NE(in_c.dates.find("2018-2-5"), std::string::npos);
  EXPECT_NE(in_c.day_counts.find("1903-13-1"), std::string::npos);
  EXPECT_NE(in_c.normalised.find("1Y1Z"), std::string::npos);
  EXPECT_NE(in_c.document.find("lastName:ERIKSSON"), std::string::npos);
}

} // namespace
