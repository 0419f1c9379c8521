#include <gtest/gtest.h>

#include <string>

#include <Varnel/Varnel.h>

#include "reference.hpp"
#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;

// The specimen of ICAO Doc 9303-4.
const std::string SPECIMEN = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                             "L898902C36UTO7408122F1204159ZE184226B<<<<<10";

constexpr std::size_t LINE_2 = 44;
constexpr std::size_t STATE = 2;
constexpr std::size_t NAME = 5;
constexpr std::size_t NUMBER = LINE_2 + 0;
constexpr std::size_t NATIONALITY = LINE_2 + 10;
constexpr std::size_t BIRTH = LINE_2 + 13;
constexpr std::size_t SEX = LINE_2 + 20;
constexpr std::size_t EXPIRATION = LINE_2 + 21;
constexpr std::size_t PERSONAL_NUMBER = LINE_2 + 28;

TEST(Passport, ReadsTheSpecimen) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_passport_parse, SPECIMEN, record.get()), ERR_OK);
  const std::map<int, std::string> expected = {{FIELD_COUNTRY_CODE, "UTO"},
                                               {FIELD_FAMILY_NAME, "ERIKSSON"},
                                               {FIELD_FIRST_NAME, "ANNA"},
                                               {FIELD_MIDDLE_NAME, "MARIA"},
                                               {FIELD_BIRTH_DATE, "19740812"},
                                               {FIELD_EXPIRATION_DATE, "20120415"},
                                               {FIELD_SEX, "F"},
                                               {FIELD_NATIONALITY, "UTO"},
                                               {FIELD_DOCUMENT_NUMBER, "L898902C3"},
                                               {FIELD_PERSONAL_NUMBER, "ZE184226B"},
                                               {FIELD_DOCUMENT_TYPE, "PASSPORT"}};
  EXPECT_EQ(filled(*record.get()), expected);
  EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(record->parser, PARSER_MAX);
}

TEST(Passport, WritesInItsOwnOrder) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_passport_parse, SPECIMEN, record.get()), ERR_OK);
  EXPECT_EQ(image(record), "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~");
  EXPECT_EQ(record->data_size, 77);
  EXPECT_EQ(written_order(*record.get()), (std::vector<int>{125, 25, 26, 27, 78, 10, 12, 138, 6, 55, 87}));
}

TEST(Passport, TakesEachValueFromItsColumns) {
  expect_columns(MRZ_passport_parse,
                 "PQUTOHOLLINGWORTH<<PENELOPE<ANGELIQUEESMERAL"
                 "A1B2C3D4E5UTO7408122F1204159ZE184226BZE18430",
                 "!.iiillllllllllll  ffffffff mmmmmmmmmmmmmmmm"
                 "ddddddddd.nnnbbbbbb.seeeeee.pppppppppppppp..");
}

TEST(Passport, AcceptsAnyCodeThatStartsWithP) { expect_codes(MRZ_passport_parse, SPECIMEN, "P", ""); }

TEST(Passport, KeepsWhatItWroteBeforeItRefused) {
  expect_refusals(
      MRZ_passport_parse, SPECIMEN,
      {{"document code I", 0, "I", ""},
       {"document code V", 0, "V", ""},
       {"document code filler", 0, "<", ""},
       {"digit in the issuing state", STATE, "UT0", ""},
       {"empty name", NAME, "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<", "UTO~"},
       {"digit in the name", NAME, "ER1KSSON", "UTO~"},
       {"filler in the date of birth", BIRTH, "74<<<<", "UTO~ERIKSSON~ANNA~MARIA~"},
       {"letter in the date of birth", BIRTH, "74O812", "UTO~ERIKSSON~ANNA~MARIA~"},
       {"filler in the date of expiry", EXPIRATION, "<<<<<<", "UTO~ERIKSSON~ANNA~MARIA~19740812~"},
       {"letter in the date of expiry", EXPIRATION, "12041S", "UTO~ERIKSSON~ANNA~MARIA~19740812~"},
       {"digit in the nationality", NATIONALITY, "U7O", "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~"}});
}

TEST(Passport, NeedsDigitsInDates) {
  expect_date_digits(MRZ_passport_parse, SPECIMEN, BIRTH, FIELD_BIRTH_DATE);
  expect_date_digits(MRZ_passport_parse, SPECIMEN, EXPIRATION, FIELD_EXPIRATION_DATE);
}

TEST(Passport, NamesBadArguments) { expect_bad_arguments(MRZ_passport_parse, SPECIMEN); }

TEST(Passport, RefusesOtherLengths) { expect_only_lengths(MRZ_passport_parse, SPECIMEN, {88}); }

TEST(Passport, RefusesOtherCharacters) { expect_only_mrz_characters(MRZ_passport_parse, SPECIMEN); }

TEST(Passport, ComparesNoCheckDigit) {
  expect_digits_unchecked(MRZ_passport_parse, SPECIMEN,
                          {LINE_2 + 9, LINE_2 + 19, LINE_2 + 27, LINE_2 + 42, LINE_2 + 43});
}

TEST(Passport, PlacesYearsInACentury) { expect_centuries(MRZ_passport_parse, SPECIMEN, BIRTH, EXPIRATION); }

TEST(Passport, ReadsSex) { expect_sexes(MRZ_passport_parse, SPECIMEN, SEX); }

TEST(Passport, ReadsCountryCodes) {
  expect_country_codes(MRZ_passport_parse, SPECIMEN, STATE, FIELD_COUNTRY_CODE);
  expect_country_codes(MRZ_passport_parse, SPECIMEN, NATIONALITY, FIELD_NATIONALITY);
}

TEST(Passport, ReadsTheDocumentNumber) { expect_document_numbers(MRZ_passport_parse, SPECIMEN, NUMBER); }

TEST(Passport, ReadsNames) {
  expect_names(MRZ_passport_parse, SPECIMEN, NAME, 39, names_of_30());
  expect_names(MRZ_passport_parse, SPECIMEN, NAME, 39,
               {{"MOUNTBATTENVONDRUNTEN<<ALEXANDRINA<OCTA", "MOUNTBATTENVONDRUNTEN", "ALEXANDRINA", "OCTA"}});
}

TEST(Passport, ReadsThePersonalNumber) {
  struct row {
    const char *columns;
    const char *written;
  };
  const row rows[] = {
      {"ZE184226B<<<<<", "ZE184226B"},
      {"<<<<<ZE184226B", "ZE184226B"},
      {"ZE184226BZE184", "ZE184226BZE184"},
      {"<A<<B<C<<<<<<<", "A B C"},
      {"<<<<<<7<<<<<<<", "7"},
      {"<<<<<<<<<<<<<<", "KEPT"}, // unlike the document number
  };
  for (const row &row : rows) {
    SCOPED_TRACE(row.columns);
    support::Record record;
    utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
    EXPECT_EQ(parse(MRZ_passport_parse, with(SPECIMEN, PERSONAL_NUMBER, row.columns), record.get()), ERR_OK);
    EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), row.written);
  }
}

TEST(Passport, LeavesThePersonalNumberAloneWhenThereIsNone) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_passport_parse, with(SPECIMEN, PERSONAL_NUMBER, "<<<<<<<<<<<<<<"), record.get()),
            ERR_OK);
  EXPECT_EQ(record.slot(FIELD_PERSONAL_NUMBER)->value.str, nullptr);
  EXPECT_EQ(image(record), "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~PASSPORT~");
}

// A full buffer is no failure. Every value has a NUL behind it unless that would take the last byte: with one
// byte left, the next value takes it. A date needs all its eight bytes.
TEST(Passport, CutsWhatDoesNotFit) {
  expect_capacities(MRZ_passport_parse, SPECIMEN,
                    {{1, "U"},
                     {2, "UT"},
                     {3, "UTO"},
                     {4, "UTOE"},
                     {5, "UTO~E"},
                     {11, "UTO~ERIKSSO"},
                     {12, "UTO~ERIKSSON"},
                     {13, "UTO~ERIKSSONA"},
                     {14, "UTO~ERIKSSON~A"},
                     {17, "UTO~ERIKSSON~ANNA"},
                     {18, "UTO~ERIKSSON~ANNAM"},
                     {24, "UTO~ERIKSSON~ANNA~MARIAF"}, // 6 bytes before it, too few for a date
                     {25, "UTO~ERIKSSON~ANNA~MARIA~F"},
                     {26, "UTO~ERIKSSON~ANNA~MARIA~FU"},
                     {30, "UTO~ERIKSSON~ANNA~MARIA~F~UTOL"},
                     {31, "UTO~ERIKSSON~ANNA~MARIA~F~UTO~L"},
                     {32, "UTO~ERIKSSON~ANNA~MARIA~19740812"},
                     {33, "UTO~ERIKSSON~ANNA~MARIA~19740812F"},
                     {34, "UTO~ERIKSSON~ANNA~MARIA~19740812~F"},
                     {40, "UTO~ERIKSSON~ANNA~MARIA~19740812~F~UTO~L"},
                     {41, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415"},
                     {42, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415F"},
                     {75, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPOR"},
                     {76, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT"},
                     {77, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT"},
                     {78, "UTO~ERIKSSON~ANNA~MARIA~19740812~20120415~F~UTO~L898902C3~ZE184226B~PASSPORT~"}});
}

TEST(Passport, AgreesWithThePlainReadingInEveryBuffer) {
  expect_as_reference(MRZ_passport_parse, reference::MRZ_passport_parse, SPECIMEN);
}

} // namespace
