#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <Varnel/Varnel.h>

#include "support.hpp"

namespace {

constexpr int NOT_SET = -777;
constexpr int ALL_OF_INT[] = {INT_MIN, INT_MIN + 1, -256, -128, -1, 256, 304, 321, 1000, INT_MAX};

// ---- character tests ----

struct character_class {
  const char *name;
  int (*test)(int c);
  std::string_view members;
};

const character_class CLASSES[] = {
    {"mrz", MRZ_common_pattern_valid_mrz, "<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {"date", MRZ_common_pattern_valid_mrz_date, "0123456789"},
    {"name", MRZ_common_pattern_valid_mrz_name, "<ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {"country code", MRZ_common_pattern_valid_mrz_cc, "<ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
};

TEST(MrzPatterns, AcceptExactlyTheirCharacters) {
  for (const character_class &one : CLASSES) {
    for (int c = -300; c <= 300; ++c) {
      const bool member =
          c > 0 && c < 128 && one.members.find(static_cast<char>(c)) != std::string_view::npos;
      EXPECT_EQ(one.test(c), member ? 1 : 0) << one.name << ", character " << c;
    }
    for (const int c : ALL_OF_INT) {
      EXPECT_EQ(one.test(c), 0) << one.name << ", character " << c;
    }
  }
}

TEST(MrzPatterns, OfNameAndCountryCodeAreTwoFunctions) {
  EXPECT_NE(&MRZ_common_pattern_valid_mrz_name, &MRZ_common_pattern_valid_mrz_cc);
}

// ---- check digits ----

TEST(MrzWeights, Are731) {
  static_assert(std::is_same_v<decltype(MRZ_WEIGHTS), const int[3]>, "a true array");
  EXPECT_EQ(MRZ_WEIGHTS[0], 7);
  EXPECT_EQ(MRZ_WEIGHTS[1], 3);
  EXPECT_EQ(MRZ_WEIGHTS[2], 1);
}

TEST(ControlSum, WeighsEachCharacter) {
  struct row {
    const char *text;
    int sum;
  };
  const row rows[] = {
      {"L898902C3", 316},      // the specimen's document number, check digit 6
      {"740812", 122},         // its date of birth, check digit 2
      {"120415", 49},          // its date of expiry, check digit 9
      {"ZE184226B<<<<<", 401}, // its personal number, check digit 1
      {"D23145890", 207},      // the card's document number, check digit 7
      {"<<<<<", 0},
      {"", 0},
      {"0", 0},
      {"1", 7},
      {"9", 63},
      {"A", 70},
      {"Z", 245},
      {"<1", 3},
      {"<<1", 1},
      {"<<<1", 7},
      {"ABC", 115},
      {"111111", 22},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", 2187},
      {"0123456789", 177},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.text);
    const support::Exact text(row.text);
    EXPECT_EQ(MRZ_common_calc_control_sum(text.data(), text.size(), nullptr), row.sum);
    int pos = 0;
    EXPECT_EQ(MRZ_common_calc_control_sum(text.data(), text.size(), &pos), row.sum);
    EXPECT_EQ(pos, text.size());
  }
}

TEST(ControlSum, GivesEachCharacterItsValueAtEachWeight) {
  const std::string values = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (std::size_t value = 0; value < values.size(); ++value) {
    for (int start = 0; start < 6; ++start) {
      const int weights[] = {7, 3, 1, 7, 3, 1};
      int pos = start;
      EXPECT_EQ(MRZ_common_calc_control_sum(&values[value], 1, &pos),
                static_cast<int>(value) * weights[start]);
      EXPECT_EQ(pos, start + 1);
    }
  }
}

// No caller should ask, and whatever the answer, nothing beside the three weights may be read for it.
TEST(ControlSum, TakesANegativePositionForThatTwoToTheThirtySecondAbove) {
  struct row {
    int start;
    int sum; // of "AB": 10 and 11, weighted
    int end;
  };
  const row rows[] = {
      {-1, 10 * 7 + 11 * 3, 1},                // 4294967295, a multiple of 3
      {-2, 10 * 1 + 11 * 7, 0},                // 4294967294
      {-3, 10 * 3 + 11 * 1, -1},               // 4294967293
      {-4, 10 * 7 + 11 * 3, -2},               // 4294967292
      {INT_MIN, 10 * 1 + 11 * 7, INT_MIN + 2}, // 2147483648
      {INT_MAX, 10 * 3 + 11 * 1, INT_MIN + 1}, // 2147483647: the position wraps
  };
  for (const row &r : rows) {
    int pos = r.start;
    EXPECT_EQ(MRZ_common_calc_control_sum("AB", 2, &pos), r.sum) << r.start;
    EXPECT_EQ(pos, r.end) << r.start;
  }
}

TEST(ControlSum, RunsOnOverStretches) {
  int pos = 0;
  EXPECT_EQ(MRZ_common_calc_control_sum("AB", 2, &pos), 103);
  EXPECT_EQ(MRZ_common_calc_control_sum("C", 1, &pos), 12);
  EXPECT_EQ(pos, 3);
  EXPECT_EQ(MRZ_common_calc_control_sum("C", 1, &pos), 84); // position 3 begins the weights anew
  EXPECT_EQ(pos, 4);
}

// The composite check digits that ICAO Doc 9303 publishes with its specimens.
TEST(ControlSum, GivesTheCompositeCheckDigitsOfTheSpecimens) {
  struct stretch {
    const char *text;
    int length;
  };
  struct row {
    const char *what;
    std::vector<stretch> stretches;
    char check_digit;
  };
  const std::string passport = "L898902C36UTO7408122F1204159ZE184226B<<<<<10";
  const std::string td2 = "D231458907UTO7408122F1204159<<<<<<<6";
  const std::string td1_1 = "I<UTOD231458907<<<<<<<<<<<<<<<";
  const std::string td1_2 = "7408122F1204159UTO<<<<<<<<<<<6";
  const row rows[] = {
      {"passport",
       {{passport.data(), 10}, {passport.data() + 13, 7}, {passport.data() + 21, 22}},
       passport[43]},
      {"td2", {{td2.data(), 10}, {td2.data() + 13, 7}, {td2.data() + 21, 14}}, td2[35]},
      {"td1",
       {{td1_1.data() + 5, 25}, {td1_2.data(), 7}, {td1_2.data() + 8, 7}, {td1_2.data() + 18, 11}},
       td1_2[29]},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.what);
    int pos = 0;
    int sum = 0;
    std::string joined;
    for (const stretch &stretch : row.stretches) {
      sum += MRZ_common_calc_control_sum(stretch.text, stretch.length, &pos);
      joined.append(stretch.text, static_cast<std::size_t>(stretch.length));
    }
    EXPECT_EQ(pos, static_cast<int>(joined.size()));
    EXPECT_EQ(sum, MRZ_common_calc_control_sum(joined.data(), pos, nullptr));
    EXPECT_EQ(MRZ_common_validate_control_sum(sum, row.check_digit), 1);
  }
}

// Those from 0 to `last`, and `more`.
static std::vector<int> lengths_from_0_to(int last, std::vector<int> more) {
  for (int length = 0; length <= last; ++length) {
    more.push_back(length);
  }
  return more;
}

TEST(ControlSum, RefusesOtherCharactersAndLeavesThePosition) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    if (MRZ_common_pattern_valid_mrz(static_cast<signed char>(c)) != 0) {
      continue;
    }
    for (const std::string &text : {std::string(1, c), std::string("A1") + c, std::string("A") + c + "1"}) {
      const support::Exact exact(text);
      int pos = 5;
      EXPECT_EQ(MRZ_common_calc_control_sum(exact.data(), exact.size(), &pos), -1) << "byte " << byte;
      EXPECT_EQ(pos, 5) << "byte " << byte;
      EXPECT_EQ(MRZ_common_calc_control_sum(exact.data(), exact.size(), nullptr), -1) << "byte " << byte;
    }
  }
}

// Fifteen characters are added up at a time.
TEST(ControlSum, OfAnyLengthIsThatOfTheCharacters) {
  for (const int length : lengths_from_0_to(100, {766, 767, 768, 1535, 5000})) {
    for (int start = 0; start < 4; ++start) {
      std::string text;
      int expected = 0;
      for (int i = 0; i < length; ++i) {
        const int value = i * 7 % 37; // 36: a filler
        text += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ<"[value];
        expected += (value < 36 ? value : 0) * MRZ_WEIGHTS[(start + i) % 3];
      }
      const support::Exact exact(text);
      int pos = start;
      ASSERT_EQ(MRZ_common_calc_control_sum(exact.data(), length, &pos), expected) << length;
      ASSERT_EQ(pos, start + length);
    }
  }
}

TEST(ControlSum, RefusesOtherCharactersAtEveryPlaceOfEveryLength) {
  for (size_t length = 1; length <= 40; ++length) {
    for (size_t place = 0; place < length; ++place) {
      for (const char other : {'\0', '/', ':', '@', '[', ';', '=', 'a', '\x80', '\xC1', '\xFF'}) {
        std::string text(length, 'Z');
        text[place] = other;
        const support::Exact exact(text);
        int pos = 5;
        ASSERT_EQ(MRZ_common_calc_control_sum(exact.data(), exact.size(), &pos), -1)
            << place << " of " << length;
        ASSERT_EQ(pos, 5);
      }
    }
  }
}

TEST(ControlSum, OfLongTextsRefusesOtherCharactersAnywhere) {
  std::string text(2000, 'Z'); // the largest value
  EXPECT_EQ(MRZ_common_calc_control_sum(text.data(), 2000, nullptr), 35 * (667 * 7 + 667 * 3 + 666));
  for (size_t place = 0; place < text.size(); ++place) {
    text[place] = '-';
    int pos = 5;
    ASSERT_EQ(MRZ_common_calc_control_sum(text.data(), 2000, &pos), -1) << place;
    ASSERT_EQ(pos, 5);
    text[place] = 'Z';
  }
  const std::string others(2000, '\xFF'); // all of them, which must not add up to a value again
  EXPECT_EQ(MRZ_common_calc_control_sum(others.data(), 2000, nullptr), -1);
}

TEST(ControlSum, OfNullOrNothing) {
  int pos = 4;
  EXPECT_EQ(MRZ_common_calc_control_sum(nullptr, 3, &pos), -1);
  EXPECT_EQ(MRZ_common_calc_control_sum(nullptr, 0, nullptr), -1);
  EXPECT_EQ(pos, 4);
  EXPECT_EQ(MRZ_common_calc_control_sum("ABC", 0, &pos), 0);
  EXPECT_EQ(MRZ_common_calc_control_sum("abc", 0, &pos), 0);
  EXPECT_EQ(MRZ_common_calc_control_sum("ABC", -1, &pos), 0);
  EXPECT_EQ(MRZ_common_calc_control_sum("ABC", INT_MIN, &pos), 0);
  EXPECT_EQ(pos, 4);
}

TEST(ControlSum, IsComparedModuloTen) {
  struct row {
    int sum;
    const char *validated; // all characters that are the check digit
  };
  const row rows[] = {
      {316, "6"},
      {122, "2"},
      {0, "0<"},
      {10, "0<"},
      {7, "7"},
      {9, "9"},
      {11, "1"},
      {2135, "5"},
      {INT_MAX, "7"},
      {-1, ""}, // a failed sum has no check digit
      {-9, ""},
      {-11, ""},
      {-10, "0<"},
      {-20, "0<"}, // the remainder of the negative multiples of ten
                   // is 0 like any other 0
      {INT_MIN, ""},
  };
  for (const row &row : rows) {
    for (int byte = 0; byte < 256; ++byte) {
      const char c = static_cast<char>(byte);
      const bool validated = c != '\0' && std::strchr(row.validated, c) != nullptr;
      EXPECT_EQ(MRZ_common_validate_control_sum(row.sum, c), validated ? 1 : 0)
          << "sum " << row.sum << ", byte " << byte;
    }
  }
}

// ---- country codes ----

TEST(ExtractCountryCode, EndsAtTheFirstFiller) {
  struct row {
    const char *field;
    const char *code;
  };
  const row rows[] = {
      {"UTO", "UTO"},  {"D<<", "D"},       {"UT<", "UT"},    {"U<O", "U"},   {"<DE", ""},
      {"<AB", ""},     {"<<E", ""},        {"<<<", ""},      {"AAA", "AAA"}, {"ZZZ", "ZZZ"},
      {"UTOX", "UTO"}, {"UTO<<<<", "UTO"}, {"D<<ABCD", "D"}, // longer views: only three are read
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.field);
    const support::Exact exact(row.field);
    const STRING field = exact.view();
    char out[4] = {};
    EXPECT_EQ(MRZ_common_extract_cc(&field, out), ERR_OK);
    EXPECT_STREQ(out, row.code);
  }
}

// All three characters are written, NUL after the code's end, and the fourth never.
TEST(ExtractCountryCode, WritesThreeCharactersAndNeverTheFourth) {
  struct row {
    const char *field;
    std::string out;
  };
  const row rows[] = {
      {"UTO", "UTO!"}, {"UT<", "UT~!"}, {"D<<", "D~~!"}, {"D<E", "D~~!"}, {"<DE", "~~~!"}, {"<<<", "~~~!"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.field);
    const STRING field = support::view(row.field);
    char out[4] = {'!', '!', '!', '!'};
    EXPECT_EQ(MRZ_common_extract_cc(&field, out), ERR_OK);
    EXPECT_EQ(support::shown(std::string(out, 4)), row.out);
  }
}

TEST(ExtractCountryCode, RefusesOtherCharactersInTheWholeView) {
  for (const char *refused : {"D1<", "1TO", "U2O", "UT3", "<<9", "uto", "UTo", "U O", "UT-", "UTO1",
                              "UTO<<<7", "UTOabc", "\xC3\x89T", "U\xFFO"}) {
    SCOPED_TRACE(refused);
    const support::Exact exact(refused);
    const STRING field = exact.view();
    char out[4] = {'!', '!', '!', '!'};
    EXPECT_EQ(MRZ_common_extract_cc(&field, out), ERR_INVALID_FORMAT);
    EXPECT_EQ(std::string(out, 4), "!!!!");
  }
  const STRING with_nul = {"U\0O", 3};
  char out[4] = {'!', '!', '!', '!'};
  EXPECT_EQ(MRZ_common_extract_cc(&with_nul, out), ERR_INVALID_FORMAT);
  EXPECT_EQ(std::string(out, 4), "!!!!");
}

TEST(ExtractCountryCode, RefusesOtherCharactersAtEveryPlace) {
  for (std::size_t size = 3; size <= 40; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      std::string text(size, 'C');
      text[at] = '0';
      const support::Exact exact(text);
      const STRING field = exact.view();
      char out[4] = {'!', '!', '!', '!'};
      EXPECT_EQ(MRZ_common_extract_cc(&field, out), ERR_INVALID_FORMAT) << size << ", " << at;
      EXPECT_EQ(std::string(out, 4), "!!!!");
    }
  }
}

TEST(ExtractCountryCode, NamesBadArguments) {
  char out[4] = {'!', '!', '!', '!'};
  const STRING good = {"UTO", 3};
  const STRING rows[] = {{nullptr, 3}, {nullptr, 0}, {"UTO", 2}, {"UTO", 1},
                         {"UTO", 0},   {"UTO", -1},  {"1<2", 2}, {"UTO", INT_MIN}};
  for (const STRING &row : rows) {
    EXPECT_EQ(MRZ_common_extract_cc(&row, out), ERR_INVALID_ARGS) << row.len;
  }
  EXPECT_EQ(MRZ_common_extract_cc(nullptr, out), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_cc(&good, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(std::string(out, 4), "!!!!");
}

// ---- dates ----

constexpr DATETIME UNTOUCHED = {1, 2, 3, 4, 5, 6};

void expect_date(const DATETIME &date, const DATETIME &expected) {
  EXPECT_EQ(date.year, expected.year);
  EXPECT_EQ(date.month, expected.month);
  EXPECT_EQ(date.day, expected.day);
  EXPECT_EQ(date.hr, expected.hr);
  EXPECT_EQ(date.min, expected.min);
  EXPECT_EQ(date.sec, expected.sec);
}

TEST(ExtractDate, ReadsSixDigitsOfThe1900s) {
  struct row {
    const char *field;
    DATETIME date;
  };
  const row rows[] = {
      {"740812", {1974, 8, 12, 0, 0, 0}},  {"000101", {1900, 1, 1, 0, 0, 0}},
      {"991231", {1999, 12, 31, 0, 0, 0}}, {"170101", {1917, 1, 1, 0, 0, 0}},
      {"991399", {1999, 13, 99, 0, 0, 0}}, // neither month nor day is checked
      {"000000", {1900, 0, 0, 0, 0, 0}},   {"999999", {1999, 99, 99, 0, 0, 0}},
      {"123456", {1912, 34, 56, 0, 0, 0}},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.field);
    const support::Exact exact(row.field);
    const STRING field = exact.view();
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(MRZ_common_extract_date(&field, &date), ERR_OK);
    expect_date(date, row.date);
  }
}

TEST(ExtractDate, RefusesAnythingButDigits) {
  for (std::size_t at = 0; at < 6; ++at) {
    for (int byte = 0; byte < 256; ++byte) {
      if (byte >= '0' && byte <= '9') {
        continue;
      }
      std::string text = "740812";
      text[at] = static_cast<char>(byte);
      const STRING field = support::view(text);
      DATETIME date = UNTOUCHED;
      EXPECT_EQ(MRZ_common_extract_date(&field, &date), ERR_INVALID_FORMAT) << at << ", byte " << byte;
      expect_date(date, UNTOUCHED);
    }
  }
}

TEST(ExtractDate, NamesBadArguments) {
  DATETIME date = UNTOUCHED;
  const STRING good = {"740812", 6};
  const STRING rows[] = {{nullptr, 6},   {nullptr, 0},    {"740812", 5}, {"7408120", 7},     {"740812", 0},
                         {"740812", -6}, {"19740812", 8}, {"ABCDE", 5},  {"740812", INT_MIN}};
  for (const STRING &row : rows) {
    EXPECT_EQ(MRZ_common_extract_date(&row, &date), ERR_INVALID_ARGS) << row.len;
  }
  EXPECT_EQ(MRZ_common_extract_date(nullptr, &date), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_date(&good, nullptr), ERR_INVALID_ARGS);
  expect_date(date, UNTOUCHED);
}

// ---- names ----

struct names {
  STRING full = {"untouched", NOT_SET};
  STRING last = {"untouched", NOT_SET};
  STRING first = {"untouched", NOT_SET};
  STRING middle = {"untouched", NOT_SET};
};

int extract(const STRING &field, names &out) {
  return MRZ_common_extract_name(&field, &out.full, &out.last, &out.first, &out.middle);
}

TEST(ExtractName, SplitsPrimaryIdentifierAndGivenNames) {
  struct row {
    const char *field;
    const char *full;
    const char *last;
    const char *first;
    const char *middle;
  };
  const row rows[] = {
      {"ERIKSSON<<ANNA<MARIA<<<<<<<<<<", "ERIKSSON<<ANNA<MARIA", "ERIKSSON", "ANNA", "MARIA"},
      {"ERIKSSON<<ANNA<MARIA<LUISA", "ERIKSSON<<ANNA<MARIA<LUISA", "ERIKSSON", "ANNA", "MARIA<LUISA"},
      {"ERIKSSON<<ANNA", "ERIKSSON<<ANNA", "ERIKSSON", "ANNA", ""},
      {"VAN<DER<BERG<<ANNA", "VAN<DER<BERG<<ANNA", "VAN<DER<BERG", "ANNA", ""},
      {"<VAN<DER<BERG<<ANNA<", "VAN<DER<BERG<<ANNA", "VAN<DER<BERG", "ANNA", ""},
      // Without a separator, word by word.
      {"SMITH<JOHN<PAUL", "SMITH<JOHN<PAUL", "SMITH", "JOHN", "PAUL"},
      {"SMITH<JOHN<PAUL<GEORGE", "SMITH<JOHN<PAUL<GEORGE", "SMITH", "JOHN", "PAUL<GEORGE"},
      {"SMITH<JOHN", "SMITH<JOHN", "SMITH", "JOHN", ""},
      {"SMITH", "SMITH", "SMITH", "", ""},
      {"SMITH<", "SMITH", "SMITH", "", ""},
      {"SMITH<<", "SMITH", "SMITH", "", ""},
      {"SMITH<<<<<<<<<<", "SMITH", "SMITH", "", ""},
      {"S", "S", "S", "", ""},
      {"<S<", "S", "S", "", ""},
      // A separator among the outer fillers is none.
      {"<<ANNA", "ANNA", "ANNA", "", ""},
      {"<<ANNA<MARIA", "ANNA<MARIA", "ANNA", "MARIA", ""},
      {"<<ERIKSSON<<ANNA", "ERIKSSON<<ANNA", "ERIKSSON", "ANNA", ""},
      // Only the first separator counts, and it may be wider; a second one stays in the middle name.
      {"A<<<B", "A<<<B", "A", "B", ""},
      {"A<<<<<B<C", "A<<<<<B<C", "A", "B", "C"},
      {"A<<B<<C", "A<<B<<C", "A", "B", "<C"},
      {"A<<B<<<C", "A<<B<<<C", "A", "B", "<<C"},
      {"A<<B<C<<D", "A<<B<C<<D", "A", "B", "C<<D"},
      {"A<B<<C<D", "A<B<<C<D", "A<B", "C", "D"},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.field);
    const support::Exact field(row.field);
    names out;
    EXPECT_EQ(extract(field.view(), out), ERR_OK);
    EXPECT_EQ(support::text(out.full), row.full);
    EXPECT_EQ(support::text(out.last), row.last);
    EXPECT_EQ(support::text(out.first), row.first);
    EXPECT_EQ(support::text(out.middle), row.middle);
  }
}

// The names are no copies, and an absent one is an empty view at the place where it would stand.
TEST(ExtractName, PointsIntoTheField) {
  struct row {
    const char *field;
    int full, last, first, middle; // offsets into the field
    int first_length, middle_length;
  };
  const row rows[] = {
      {"ERIKSSON<<ANNA<MARIA<<", 0, 0, 10, 15, 4, 5},
      {"<<VAN<DER<BERG<<ANNA", 2, 2, 16, 20, 4, 0},
      {"SMITH<JOHN<PAUL", 0, 0, 6, 11, 4, 4},
      {"SMITH<JOHN", 0, 0, 6, 10, 4, 0},
      {"SMITH", 0, 0, 5, 5, 0, 0},
      {"<SMITH<<", 1, 1, 6, 6, 0, 0},
      {"A<<B<<C", 0, 0, 3, 5, 1, 2},
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.field);
    names out;
    ASSERT_EQ(extract(support::view(row.field), out), ERR_OK);
    EXPECT_EQ(out.full.str - row.field, row.full);
    EXPECT_EQ(out.last.str - row.field, row.last);
    ASSERT_NE(out.first.str, nullptr);
    ASSERT_NE(out.middle.str, nullptr);
    EXPECT_EQ(out.first.str - row.field, row.first);
    EXPECT_EQ(out.middle.str - row.field, row.middle);
    EXPECT_EQ(out.first.len, row.first_length);
    EXPECT_EQ(out.middle.len, row.middle_length);
  }
}

void expect_cleared(const names &out) {
  for (const STRING *view : {&out.full, &out.last, &out.first, &out.middle}) {
    EXPECT_EQ(view->str, nullptr);
    EXPECT_EQ(view->len, 0);
  }
}

TEST(ExtractName, RefusesEmptyNames) {
  for (const char *empty : {"", "<", "<<", "<<<<", "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<"}) {
    SCOPED_TRACE(empty);
    names out;
    EXPECT_EQ(extract(support::view(empty), out), ERR_INVALID_FORMAT);
    expect_cleared(out);
  }
}

TEST(ExtractName, RefusesOtherCharacters) {
  for (const char *refused : {"O2BRIEN<<SEAN", "0", "SMITH<<JOHN1", "<<<<<9", "smith", "SMITH JOHN",
                              "O'BRIEN", "M\xC3\x9CLLER", "\xFF"}) {
    SCOPED_TRACE(refused);
    const support::Exact field(refused);
    names out;
    EXPECT_EQ(extract(field.view(), out), ERR_INVALID_FORMAT);
    expect_cleared(out);
  }
  names out;
  EXPECT_EQ(extract(STRING{"A\0B", 3}, out), ERR_INVALID_FORMAT);
  expect_cleared(out);
}

// At every place of fields of every length, whatever is read of them at once.
TEST(ExtractName, RefusesOtherCharactersAtEveryPlace) {
  for (std::size_t size = 1; size <= 70; ++size) {
    const std::string good(size, 'N');
    names out;
    ASSERT_EQ(extract(support::Exact(good).view(), out), ERR_OK);
    for (std::size_t at = 0; at < size; ++at) {
      for (const char refused : {'0', '9', ';', '=', '@', '[', 'a', '\0', ' ', '\xBC', '\xC1'}) {
        std::string spoiled = good;
        spoiled[at] = refused;
        const support::Exact field(spoiled);
        EXPECT_EQ(extract(field.view(), out), ERR_INVALID_FORMAT) << size << ", " << at << ", " << refused;
      }
    }
  }
}

// Outer fillers of every number, before and after.
TEST(ExtractName, DropsOuterFillers) {
  for (std::size_t before = 0; before <= 40; ++before) {
    for (std::size_t after = 0; after <= 40; ++after) {
      const std::string text = std::string(before, '<') + "A<B<<C<D" + std::string(after, '<');
      const support::Exact field(text);
      names out;
      ASSERT_EQ(extract(field.view(), out), ERR_OK);
      EXPECT_EQ(out.full.str, field.data() + before);
      EXPECT_EQ(support::text(out.full), "A<B<<C<D");
      EXPECT_EQ(support::text(out.last), "A<B");
      EXPECT_EQ(support::text(out.first), "C");
      EXPECT_EQ(support::text(out.middle), "D");
    }
  }
}

TEST(ExtractName, NamesBadArgumentsAndThenTouchesNothing) {
  const STRING good = {"ERIKSSON<<ANNA", 14};
  const STRING null_text = {nullptr, 5};
  const STRING null_empty = {nullptr, 0};
  const STRING negative = {"ERIKSSON", -1};
  names out;
  STRING *full = &out.full;
  STRING *last = &out.last;
  STRING *first = &out.first;
  STRING *middle = &out.middle;
  EXPECT_EQ(MRZ_common_extract_name(nullptr, full, last, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&null_text, full, last, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&null_empty, full, last, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&negative, full, last, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&good, nullptr, last, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&good, full, nullptr, first, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&good, full, last, nullptr, middle), ERR_INVALID_ARGS);
  EXPECT_EQ(MRZ_common_extract_name(&good, full, last, first, nullptr), ERR_INVALID_ARGS);
  for (const STRING *view : {full, last, first, middle}) {
    EXPECT_EQ(view->len, NOT_SET);
    EXPECT_STREQ(view->str, "untouched");
  }
}

} // namespace
