#include <gtest/gtest.h>

#include <string>

#include <Varnel/Varnel.h>

#include "reference.hpp"
#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;

// The specimen of ICAO Doc 9303-6.
const std::string SPECIMEN = "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
                             "D231458907UTO7408122F1204159<<<<<<<6";

constexpr std::size_t LINE_2 = 36;
constexpr std::size_t STATE = 2;
constexpr std::size_t NAME = 5;
constexpr std::size_t NUMBER = LINE_2 + 0;
constexpr std::size_t NATIONALITY = LINE_2 + 10;
constexpr std::size_t BIRTH = LINE_2 + 13;
constexpr std::size_t SEX = LINE_2 + 20;
constexpr std::size_t EXPIRATION = LINE_2 + 21;

TEST(Td2, ReadsTheSpecimen) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_td2_parse, SPECIMEN, record.get()), ERR_OK);
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

TEST(Td2, WritesInItsOwnOrder) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_td2_parse, SPECIMEN, record.get()), ERR_OK);
  EXPECT_EQ(image(record), "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD~");
  EXPECT_EQ(record->data_size, 61);
  EXPECT_EQ(written_order(*record.get()), (std::vector<int>{125, 25, 26, 27, 6, 138, 78, 12, 10, 87}));
}

TEST(Td2, TakesEachValueFromItsColumns) {
  expect_columns(MRZ_td2_parse,
                 "I<UTOHOLLINGWORTH<<PENELOPE<ANGELIQU"
                 "A1B2C3D4E5UTO7408122F1204159ZE184226",
                 "!.iiillllllllllll  ffffffff mmmmmmmm"
                 "ddddddddd.nnnbbbbbb.seeeeee.........");
}

TEST(Td2, AcceptsTheCodesOfCards) { expect_codes(MRZ_td2_parse, SPECIMEN, "IAC", "V"); }

TEST(Td2, KeepsWhatItWroteBeforeItRefused) {
  expect_refusals(MRZ_td2_parse, SPECIMEN,
                  {{"document code P", 0, "P", ""},
                   {"document code V", 0, "V", ""},
                   {"document code X", 0, "X", ""},
                   {"document code IV", 0, "IV", ""},
                   {"document code AV", 0, "AV", ""},
                   {"document code CV", 0, "CV", ""},
                   {"digit in the issuing state", STATE, "UT0", ""},
                   {"empty name", NAME, "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<", "UTO~"},
                   {"digit in the name", NAME, "ER1KSSON", "UTO~"},
                   // The document number is written before anything of line 2 is looked at.
                   {"digit in the nationality", NATIONALITY, "UT0", "UTO~ERIKSSON~ANNA~MARIA~D23145890~"},
                   {"filler in the date of birth", BIRTH, "74<<<<", "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~"},
                   {"letter in the date of birth", BIRTH, "74O812", "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~"},
                   {"filler in the date of expiry", EXPIRATION, "<<<<<<",
                    "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"},
                   {"letter in the date of expiry", EXPIRATION, "12041S",
                    "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~"}});
}

TEST(Td2, NeedsDigitsInDates) {
  expect_date_digits(MRZ_td2_parse, SPECIMEN, BIRTH, FIELD_BIRTH_DATE);
  expect_date_digits(MRZ_td2_parse, SPECIMEN, EXPIRATION, FIELD_EXPIRATION_DATE);
}

TEST(Td2, NamesBadArguments) { expect_bad_arguments(MRZ_td2_parse, SPECIMEN); }

TEST(Td2, RefusesOtherLengths) { expect_only_lengths(MRZ_td2_parse, SPECIMEN, {72}); }

TEST(Td2, RefusesOtherCharacters) { expect_only_mrz_characters(MRZ_td2_parse, SPECIMEN); }

TEST(Td2, ComparesNoCheckDigit) {
  expect_digits_unchecked(MRZ_td2_parse, SPECIMEN, {LINE_2 + 9, LINE_2 + 19, LINE_2 + 27, LINE_2 + 35});
}

TEST(Td2, PlacesYearsInACentury) { expect_centuries(MRZ_td2_parse, SPECIMEN, BIRTH, EXPIRATION); }

TEST(Td2, ReadsSex) { expect_sexes(MRZ_td2_parse, SPECIMEN, SEX); }

TEST(Td2, ReadsCountryCodes) {
  expect_country_codes(MRZ_td2_parse, SPECIMEN, STATE, FIELD_COUNTRY_CODE);
  expect_country_codes(MRZ_td2_parse, SPECIMEN, NATIONALITY, FIELD_NATIONALITY);
}

TEST(Td2, ReadsTheDocumentNumber) { expect_document_numbers(MRZ_td2_parse, SPECIMEN, NUMBER); }

TEST(Td2, ReadsNames) {
  expect_names(MRZ_td2_parse, SPECIMEN, NAME, 31, names_of_30());
  expect_names(MRZ_td2_parse, SPECIMEN, NAME, 31,
               {{"SCHLEGELSTEINHAUSEN<<PENELOPE<A", "SCHLEGELSTEINHAUSEN", "PENELOPE", "A"}});
}

// Unlike a passport's, a card's optional data is not kept.
TEST(Td2, LeavesThePersonalNumberAlone) {
  support::Record record;
  utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
  ASSERT_EQ(parse(MRZ_td2_parse, with(SPECIMEN, LINE_2 + 28, "ZE18422"), record.get()), ERR_OK);
  EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), "KEPT");
}

TEST(Td2, CutsWhatDoesNotFit) {
  expect_capacities(MRZ_td2_parse, SPECIMEN,
                    {{1, "U"},
                     {3, "UTO"},
                     {4, "UTOE"},
                     {5, "UTO~E"},
                     {18, "UTO~ERIKSSON~ANNAM"},
                     {24, "UTO~ERIKSSON~ANNA~MARIAD"},
                     {33, "UTO~ERIKSSON~ANNA~MARIA~D23145890"},
                     {34, "UTO~ERIKSSON~ANNA~MARIA~D23145890U"},
                     {37, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO"},
                     {38, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTOF"},
                     {39, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~F"},
                     {40, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~FT"},
                     {45, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~F~TD~"}, // neither date fits
                     {46, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812"},
                     {47, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812F"},
                     {60, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD"},
                     {61, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD"},
                     {62, "UTO~ERIKSSON~ANNA~MARIA~D23145890~UTO~19740812~F~20120415~TD~"}});
}

TEST(Td2, AgreesWithThePlainReadingInEveryBuffer) {
  expect_as_reference(MRZ_td2_parse, reference::MRZ_td2_parse, SPECIMEN);
}

} // namespace
