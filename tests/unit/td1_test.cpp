#include <gtest/gtest.h>

#include <string>

#include <Varnel/Varnel.h>

#include "reference.hpp"
#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;

// The specimen of ICAO Doc 9303-5.
const std::string SPECIMEN = "I<UTOD231458907<<<<<<<<<<<<<<<"
                             "7408122F1204159UTO<<<<<<<<<<<6"
                             "ERIKSSON<<ANNA<MARIA<<<<<<<<<<";

constexpr std::size_t LINE_2 = 30;
constexpr std::size_t LINE_3 = 60;
constexpr std::size_t STATE = 2;
constexpr std::size_t NUMBER = 5;
constexpr std::size_t BIRTH = LINE_2 + 0;
constexpr std::size_t SEX = LINE_2 + 7;
constexpr std::size_t EXPIRATION = LINE_2 + 8;
constexpr std::size_t NATIONALITY = LINE_2 + 15;
constexpr std::size_t NAME = LINE_3 + 0;

TEST(Td1, ReadsTheSpecimen) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_td1_parse, SPECIMEN, record.get()), ERR_OK);
  const std::map<int, std::string> expected = {{FIELD_COUNTRY_CODE, "UTO"},
                                               {FIELD_FAMILY_NAME, "ERIKSSON"},
                                               {FIELD_FIRST_NAME, "ANNA"},
                                               {FIELD_MIDDLE_NAME, "MARIA"},
                                               {FIELD_BIRTH_DATE, "19740812"},
                                               {FIELD_EXPIRATION_DATE, "20120415"},
                                               {FIELD_SEX, "F"},
                                               {FIELD_NATIONALITY, "UTO"},
                                               {FIELD_DOCUMENT_NUMBER, "D23145890"},
                                               {FIELD_DOCUMENT_TYPE, "TD"}};
  EXPECT_EQ(filled(*record.get()), expected);
  EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(record->parser, PARSER_MAX);
}

TEST(Td1, WritesInItsOwnOrder) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_td1_parse, SPECIMEN, record.get()), ERR_OK);
  EXPECT_EQ(image(record), "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD~");
  EXPECT_EQ(record->data_size, 61);
  EXPECT_EQ(written_order(*record.get()), (std::vector<int>{125, 6, 78, 12, 10, 138, 25, 26, 27, 87}));
}

TEST(Td1, TakesEachValueFromItsColumns) {
  expect_columns(MRZ_td1_parse,
                 "I<UTOA1B2C3D4E5OPTIONAL1234567"
                 "7408122F1204159UTOMORE<DATA<76"
                 "HOLLINGWORTH<<PENELOPE<ANGELIQ",
                 "!.iiiddddddddd................"
                 "bbbbbb.seeeeee.nnn............"
                 "llllllllllll  ffffffff mmmmmmm");
}

TEST(Td1, AcceptsTheCodesOfCards) { expect_codes(MRZ_td1_parse, SPECIMEN, "IAC", "V"); }

TEST(Td1, KeepsWhatItWroteBeforeItRefused) {
  expect_refusals(
      MRZ_td1_parse, SPECIMEN,
      {{"document code P", 0, "P", ""},
       {"document code V", 0, "V", ""},
       {"document code IV", 0, "IV", ""},
       {"document code AV", 0, "AV", ""},
       {"document code CV", 0, "CV", ""},
       {"digit in the issuing state", STATE, "UT0", ""},
       {"filler in the date of birth", BIRTH, "74<<<<", "UTO~D23145890~"},
       {"letter in the date of birth", BIRTH, "74O812", "UTO~D23145890~"},
       {"filler in the date of expiry", EXPIRATION, "<<<<<<", "UTO~D23145890~19740812~F~"},
       {"letter in the date of expiry", EXPIRATION, "12041S", "UTO~D23145890~19740812~F~"},
       {"digit in the nationality", NATIONALITY, "UT0", "UTO~D23145890~19740812~F~20120415~"},
       {"empty name", NAME, "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<", "UTO~D23145890~19740812~F~20120415~UTO~"},
       {"digit in the name", NAME, "ER1KSSON", "UTO~D23145890~19740812~F~20120415~UTO~"}});
}

TEST(Td1, NeedsDigitsInDates) {
  expect_date_digits(MRZ_td1_parse, SPECIMEN, BIRTH, FIELD_BIRTH_DATE);
  expect_date_digits(MRZ_td1_parse, SPECIMEN, EXPIRATION, FIELD_EXPIRATION_DATE);
}

TEST(Td1, NamesBadArguments) { expect_bad_arguments(MRZ_td1_parse, SPECIMEN); }

TEST(Td1, RefusesOtherLengths) { expect_only_lengths(MRZ_td1_parse, SPECIMEN, {90}); }

TEST(Td1, RefusesOtherCharacters) { expect_only_mrz_characters(MRZ_td1_parse, SPECIMEN); }

TEST(Td1, ComparesNoCheckDigit) {
  expect_digits_unchecked(MRZ_td1_parse, SPECIMEN, {14, LINE_2 + 6, LINE_2 + 14, LINE_2 + 29});
}

TEST(Td1, PlacesYearsInACentury) { expect_centuries(MRZ_td1_parse, SPECIMEN, BIRTH, EXPIRATION); }

TEST(Td1, ReadsSex) { expect_sexes(MRZ_td1_parse, SPECIMEN, SEX); }

TEST(Td1, ReadsCountryCodes) {
  expect_country_codes(MRZ_td1_parse, SPECIMEN, STATE, FIELD_COUNTRY_CODE);
  expect_country_codes(MRZ_td1_parse, SPECIMEN, NATIONALITY, FIELD_NATIONALITY);
}

TEST(Td1, ReadsTheDocumentNumber) { expect_document_numbers(MRZ_td1_parse, SPECIMEN, NUMBER); }

TEST(Td1, ReadsNames) { expect_names(MRZ_td1_parse, SPECIMEN, NAME, 30, names_of_30()); }

// Unlike a passport's, a card's optional data is not kept.
TEST(Td1, LeavesThePersonalNumberAlone) {
  support::Record record;
  utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
  const std::string with_data = with(with(SPECIMEN, 15, "OPTIONAL1234567"), LINE_2 + 18, "MORE<DATA<7");
  ASSERT_EQ(parse(MRZ_td1_parse, with_data, record.get()), ERR_OK);
  EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), "KEPT");
}

TEST(Td1, CutsWhatDoesNotFit) {
  expect_capacities(MRZ_td1_parse, SPECIMEN,
                    {{1, "U"},
                     {3, "UTO"},
                     {4, "UTOD"},
                     {5, "UTO~D"},
                     {13, "UTO~D23145890"},
                     {14, "UTO~D23145890F"},
                     {15, "UTO~D23145890~F"},
                     {16, "UTO~D23145890~FU"},
                     {19, "UTO~D23145890~F~UTO"},
                     {20, "UTO~D23145890~F~UTOE"},
                     {21, "UTO~D23145890~F~UTO~E"},
                     {22, "UTO~D23145890~19740812"},
                     {23, "UTO~D23145890~19740812F"},
                     {24, "UTO~D23145890~19740812~F"},
                     {32, "UTO~D23145890~19740812~F~UTO~ERI"},
                     {33, "UTO~D23145890~19740812~F~20120415"},
                     {34, "UTO~D23145890~19740812~F~20120415U"},
                     {38, "UTO~D23145890~19740812~F~20120415~UTOE"},
                     {40, "UTO~D23145890~19740812~F~20120415~UTO~ER"},
                     {60, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD"},
                     {61, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD"},
                     {62, "UTO~D23145890~19740812~F~20120415~UTO~ERIKSSON~ANNA~MARIA~TD~"}});
}

TEST(Td1, AgreesWithThePlainReadingInEveryBuffer) {
  expect_as_reference(MRZ_td1_parse, reference::MRZ_td1_parse, SPECIMEN);
}

} // namespace
