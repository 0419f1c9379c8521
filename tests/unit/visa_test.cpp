#include <gtest/gtest.h>

#include <string>

#include <Varnel/Varnel.h>

#include "reference.hpp"
#include "support.hpp"
#include "zone_support.hpp"

namespace {

using namespace zone_support;

// A visa's zone: the specimens of ICAO Doc 9303-7 and what they say.
struct visa {
  std::string zone;
  std::size_t line_2;
  std::size_t name_length;
};

const visa LONG_VISA = {"V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                        "L8988901C4XXX4009078F96121096ZE184226B<<<<<<",
                        44, 39};
const visa SHORT_VISA = {"V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
                         "L8988901C4XXX4009078F9612109<<<<<<<<",
                         36, 31};

constexpr std::size_t STATE = 2;
constexpr std::size_t NAME = 5;
// Within line 2:
constexpr std::size_t NUMBER = 0;
constexpr std::size_t NATIONALITY = 10;
constexpr std::size_t BIRTH = 13;
constexpr std::size_t SEX = 20;
constexpr std::size_t EXPIRATION = 21;

class Visa : public testing::TestWithParam<const visa *> {
protected:
  const std::string &zone() const { return GetParam()->zone; }
  std::size_t line_2() const { return GetParam()->line_2; }
};

INSTANTIATE_TEST_SUITE_P(Length, Visa, testing::Values(&LONG_VISA, &SHORT_VISA), [](const auto &instance) {
  return instance.param == &LONG_VISA ? std::string("MrvA") : std::string("MrvB");
});

// Varnel types a visa "TD", like a card.
TEST_P(Visa, ReadsTheSpecimen) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_visa_parse, zone(), record.get()), ERR_OK);
  const std::map<int, std::string> expected = {{FIELD_COUNTRY_CODE, "UTO"},
                                               {FIELD_FAMILY_NAME, "ERIKSSON"},
                                               {FIELD_FIRST_NAME, "ANNA"},
                                               {FIELD_MIDDLE_NAME, "MARIA"},
                                               {FIELD_BIRTH_DATE, "19400907"},
                                               {FIELD_EXPIRATION_DATE, "19961210"},
                                               {FIELD_SEX, "F"},
                                               {FIELD_NATIONALITY, "XXX"},
                                               {FIELD_DOCUMENT_NUMBER, "L8988901C"},
                                               {FIELD_DOCUMENT_TYPE, "TD"}};
  EXPECT_EQ(filled(*record.get()), expected);
  EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(record->parser, PARSER_MAX);
}

TEST_P(Visa, WritesInItsOwnOrder) {
  support::Record record;
  ASSERT_EQ(parse(MRZ_visa_parse, zone(), record.get()), ERR_OK);
  EXPECT_EQ(image(record), "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD~");
  EXPECT_EQ(record->data_size, 61);
  EXPECT_EQ(written_order(*record.get()), (std::vector<int>{125, 25, 26, 27, 6, 138, 78, 12, 10, 87}));
}

TEST(VisaColumns, OfTheLongVisa) {
  expect_columns(MRZ_visa_parse,
                 "V<UTOHOLLINGWORTH<<PENELOPE<ANGELIQUEESMERAL"
                 "A1B2C3D4E5UTO7408122F1204159ZE184226BZE18430",
                 "!.iiillllllllllll  ffffffff mmmmmmmmmmmmmmmm"
                 "ddddddddd.nnnbbbbbb.seeeeee.................");
}

TEST(VisaColumns, OfTheShortVisa) {
  expect_columns(MRZ_visa_parse,
                 "V<UTOHOLLINGWORTH<<PENELOPE<ANGELIQU"
                 "A1B2C3D4E5UTO7408122F1204159ZE184226",
                 "!.iiillllllllllll  ffffffff mmmmmmmm"
                 "ddddddddd.nnnbbbbbb.seeeeee.........");
}

TEST_P(Visa, AcceptsAnyCodeThatStartsWithV) { expect_codes(MRZ_visa_parse, zone(), "V", ""); }

TEST_P(Visa, KeepsWhatItWroteBeforeItRefused) {
  const std::string no_name(GetParam()->name_length, '<');
  expect_refusals(
      MRZ_visa_parse, zone(),
      {{"document code P", 0, "P", ""},
       {"document code I", 0, "I", ""},
       {"document code filler", 0, "<", ""},
       {"digit in the issuing state", STATE, "UT0", ""},
       {"empty name", NAME, no_name.c_str(), "UTO~"},
       {"digit in the name", NAME, "ER1KSSON", "UTO~"},
       // The document number is written before anything of line 2 is looked at.
       {"digit in the nationality", line_2() + NATIONALITY, "UT0", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~"},
       {"filler in the date of birth", line_2() + BIRTH, "40<<<<", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~"},
       {"letter in the date of birth", line_2() + BIRTH, "4OO907", "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~"},
       {"filler in the date of expiry", line_2() + EXPIRATION, "<<<<<<",
        "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~"},
       {"letter in the date of expiry", line_2() + EXPIRATION, "96121O",
        "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~"}});
}

TEST_P(Visa, NeedsDigitsInDates) {
  expect_date_digits(MRZ_visa_parse, zone(), line_2() + BIRTH, FIELD_BIRTH_DATE);
  expect_date_digits(MRZ_visa_parse, zone(), line_2() + EXPIRATION, FIELD_EXPIRATION_DATE);
}

TEST_P(Visa, NamesBadArguments) { expect_bad_arguments(MRZ_visa_parse, zone()); }

// Padded to the other visa's length, a zone is read with that one's lines: so 72 and 88 are left out.
TEST_P(Visa, RefusesOtherLengths) { expect_only_lengths(MRZ_visa_parse, zone(), {72, 88}); }

TEST_P(Visa, RefusesOtherCharacters) { expect_only_mrz_characters(MRZ_visa_parse, zone()); }

TEST_P(Visa, ComparesNoCheckDigit) {
  expect_digits_unchecked(MRZ_visa_parse, zone(), {line_2() + 9, line_2() + 19, line_2() + 27});
}

TEST_P(Visa, PlacesYearsInACentury) {
  expect_centuries(MRZ_visa_parse, zone(), line_2() + BIRTH, line_2() + EXPIRATION);
}

TEST_P(Visa, ReadsSex) { expect_sexes(MRZ_visa_parse, zone(), line_2() + SEX); }

TEST_P(Visa, ReadsCountryCodes) {
  expect_country_codes(MRZ_visa_parse, zone(), STATE, FIELD_COUNTRY_CODE);
  expect_country_codes(MRZ_visa_parse, zone(), line_2() + NATIONALITY, FIELD_NATIONALITY);
}

TEST_P(Visa, ReadsTheDocumentNumber) { expect_document_numbers(MRZ_visa_parse, zone(), line_2() + NUMBER); }

TEST_P(Visa, ReadsNames) {
  expect_names(MRZ_visa_parse, zone(), NAME, GetParam()->name_length, names_of_30());
}

TEST(VisaNames, FillTheirField) {
  expect_names(MRZ_visa_parse, LONG_VISA.zone, NAME, 39,
               {{"CHRISTODOULOPOULOU<<KONSTANTINA<EVANGEL", "CHRISTODOULOPOULOU", "KONSTANTINA", "EVANGEL"}});
  expect_names(MRZ_visa_parse, SHORT_VISA.zone, NAME, 31,
               {{"PAPADOPOULOS<<CONSTANTINE<ALEXI", "PAPADOPOULOS", "CONSTANTINE", "ALEXI"}});
}

// Unlike a passport's, a visa's optional data is not kept.
TEST_P(Visa, LeavesThePersonalNumberAlone) {
  support::Record record;
  utils_write_field_s(record.get(), FIELD_PERSONAL_NUMBER, "KEPT");
  ASSERT_EQ(parse(MRZ_visa_parse, with(zone(), line_2() + 28, "ZE184226"), record.get()), ERR_OK);
  EXPECT_EQ(record.value(FIELD_PERSONAL_NUMBER), "KEPT");
}

TEST_P(Visa, CutsWhatDoesNotFit) {
  expect_capacities(MRZ_visa_parse, zone(),
                    {{1, "U"},
                     {4, "UTOE"},
                     {18, "UTO~ERIKSSON~ANNAM"},
                     {24, "UTO~ERIKSSON~ANNA~MARIAL"},
                     {34, "UTO~ERIKSSON~ANNA~MARIA~L8988901CX"},
                     {38, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXXF"},
                     {40, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~FT"},
                     {45, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~F~TD~"}, // neither date fits
                     {46, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907"},
                     {61, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD"},
                     {62, "UTO~ERIKSSON~ANNA~MARIA~L8988901C~XXX~19400907~F~19961210~TD~"}});
}

TEST_P(Visa, AgreesWithThePlainReadingInEveryBuffer) {
  expect_as_reference(MRZ_visa_parse, reference::MRZ_visa_parse, zone());
}

} // namespace
