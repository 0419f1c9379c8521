// Composing zones: the standard's own examples, every rule of each field, and the first error of several.
#include "composing.hpp"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using composing::compose;
using composing::document;
using composing::lines;
using composing::name_field;
using composing::names;
using composing::NO_REFUSAL;
using composing::refusal;
using composing::refusal_of;

constexpr int LAYOUTS[] = {VARNEL_LAYOUT_TD1, VARNEL_LAYOUT_TD2, VARNEL_LAYOUT_TD3, VARNEL_LAYOUT_MRV_A,
                           VARNEL_LAYOUT_MRV_B};

// ---- zones ----------------------------------------------------------------------------------------

TEST(Compose, Specimens) {
  varnel_compose_fields td1 = document(VARNEL_LAYOUT_TD1);
  EXPECT_EQ(compose(td1), (lines{"I<UTOD231458907<<<<<<<<<<<<<<<", //
                                 "7408122F1204159UTO<<<<<<<<<<<6", //
                                 "ERIKSSON<<ANNA<MARIA<<<<<<<<<<"}));

  varnel_compose_fields td2 = document(VARNEL_LAYOUT_TD2);
  EXPECT_EQ(compose(td2), (lines{"I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<", //
                                 "D231458907UTO7408122F1204159<<<<<<<6"}));

  varnel_compose_fields td3 = document(VARNEL_LAYOUT_TD3);
  td3.document_number = "L898902C3";
  td3.personal_number = "ZE184226B";
  EXPECT_EQ(compose(td3), (lines{"P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<",
                                 "L898902C36UTO7408122F1204159ZE184226B<<<<<10"}));

  varnel_compose_fields visa = document(VARNEL_LAYOUT_MRV_A);
  visa.document_number = "L898902C";
  visa.birth_date = "1969-08-06";
  visa.expiry_date = "1994-06-23";
  visa.optional_data = "ZE184226B";
  EXPECT_EQ(compose(visa), (lines{"V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<",
                                  "L898902C<3UTO6908061F9406236ZE184226B<<<<<<<"}));
  visa.layout = VARNEL_LAYOUT_MRV_B;
  visa.optional_data = "ZE184226";
  EXPECT_EQ(compose(visa), (lines{"V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<", //
                                  "L898902C<3UTO6908061F9406236ZE184226"}));
}

TEST(Compose, CodesOfOneLetterAndUnspecifiedSex) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.issuing_state = fields.nationality = "D";
  fields.document_number = "C01X00T47";
  fields.birth_date = "1964-08-12";
  fields.sex = "X";
  fields.expiry_date = "2032-07-31";
  fields.primary_identifier = "Bramblewick";
  fields.secondary_identifier = "Otto";
  EXPECT_EQ(compose(fields), (lines{"P<D<<BRAMBLEWICK<<OTTO<<<<<<<<<<<<<<<<<<<<<<",
                                    "C01X00T478D<<6408125<3207316<<<<<<<<<<<<<<<4"}));
}

TEST(Compose, UnknownPartsOfTheBirthDate) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.document_number = "K7700123";
  fields.expiry_date = "2029-01-01";
  fields.primary_identifier = "Oakenshield";
  fields.secondary_identifier = "Mira";
  fields.birth_date = "1956-03-XX";
  EXPECT_EQ(compose(fields)[1], "K7700123<2UTO5603<<4F2901019<<<<<<<<<<<<<<<6");
  fields.birth_date = "1956-XX-XX";
  EXPECT_EQ(compose(fields)[1].substr(13, 7), "56<<<<3");
  for (const char *unknown : {"", static_cast<const char *>(nullptr)}) {
    fields.birth_date = unknown;
    EXPECT_EQ(compose(fields)[1].substr(13, 7), "<<<<<<0");
  }
}

TEST(Compose, TheDigitOfAnEmptyPersonalNumberIsAFiller) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.document_code = "PP";
  fields.document_number = "X12345678";
  fields.birth_date = "1991-03-07";
  fields.expiry_date = "2031-03-06";
  fields.primary_identifier = "Quillfeather";
  fields.secondary_identifier = "Tamsin Oda";
  for (const char *empty : {static_cast<const char *>(nullptr), "", " - "}) {
    fields.personal_number = empty;
    EXPECT_EQ(compose(fields), (lines{"PPUTOQUILLFEATHER<<TAMSIN<ODA<<<<<<<<<<<<<<<",
                                      "X123456785UTO9103074F3103061<<<<<<<<<<<<<<<0"}));
  }
  fields.personal_number = "0"; // its digit is a computed 0
  EXPECT_EQ(compose(fields)[1].substr(28, 15), "0<<<<<<<<<<<<<0");
}

TEST(Compose, TheFieldsOfATd1) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD1);
  fields.document_code = "AC";
  fields.document_number = "C77001234";
  fields.optional_data_1 = "XY";
  fields.birth_date = "1990-01-01";
  fields.expiry_date = "2030-01-01";
  fields.primary_identifier = "Waverley";
  fields.secondary_identifier = "Iris";
  EXPECT_EQ(compose(fields), (lines{"ACUTOC770012340XY<<<<<<<<<<<<<", //
                                    "9001011F3001019UTO<<<<<<<<<<<9", //
                                    "WAVERLEY<<IRIS<<<<<<<<<<<<<<<<"}));
}

// ---- document numbers -----------------------------------------------------------------------------

TEST(Compose, SeparatorsInNumbersAreOneFiller) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.birth_date = "1988-02-29";
  fields.expiry_date = "2028-02-28";
  fields.primary_identifier = "Marlow";
  fields.secondary_identifier = "June";
  for (const char *number :
       {"AB 12345", "AB-12345", " AB, - 12345 ", "AB\u201312345", "\u00A0AB\u00A012345-"}) {
    fields.document_number = number;
    EXPECT_EQ(compose(fields)[1], "AB<12345<2UTO8802299F2802286<<<<<<<<<<<<<<<0") << number;
  }
  fields.personal_number = "12-34 56,7";
  EXPECT_EQ(compose(fields)[1].substr(28, 14), "12<34<56<7<<<<");
}

TEST(Compose, LongNumbersOfTd2) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD2);
  fields.sex = "M";
  fields.birth_date = "1974-08-12";
  fields.expiry_date = "2027-04-15";
  fields.document_number = "D2314589012345";
  fields.primary_identifier = "Stevenson";
  fields.secondary_identifier = "Peter";
  EXPECT_EQ(compose(fields), (lines{"I<UTOSTEVENSON<<PETER<<<<<<<<<<<<<<<", //
                                    "D23145890<UTO7408122M2704151123456<0"}));
  fields.optional_data = "A";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_OPTIONAL_DATA, VARNEL_COMPOSE_TOO_LONG, 0, 0}));
  fields.document_number = "D231458901";
  fields.optional_data = "ABCD";
  EXPECT_EQ(compose(fields)[1].substr(28, 7), "14<ABCD");
  fields.optional_data = "ABCDE";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_OPTIONAL_DATA, VARNEL_COMPOSE_TOO_LONG, 4, 4}));
  fields.document_number = "D23145890123456";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 14, 14}));
}

TEST(Compose, LongNumbersOfTd1) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD1);
  fields.document_code = "ID";
  fields.document_number = "600001795015";
  fields.birth_date = "1984-05-11";
  fields.expiry_date = "2031-05-10";
  fields.primary_identifier = "Fenwick";
  fields.secondary_identifier = "Ada";
  EXPECT_EQ(compose(fields), (lines{"IDUTO600001795<0152<<<<<<<<<<<", //
                                    "8405117F3105102UTO<<<<<<<<<<<2", //
                                    "FENWICK<<ADA<<<<<<<<<<<<<<<<<<"}));

  fields.document_code = "I";
  fields.document_number = "ABCDEFGHI1234567890123";
  EXPECT_EQ(compose(fields), (lines{"I<UTOABCDEFGHI<12345678901237<", //
                                    "8405117F3105102UTO<<<<<<<<<<<8", //
                                    "FENWICK<<ADA<<<<<<<<<<<<<<<<<<"}));
  fields.optional_data_1 = "A";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_OPTIONAL_DATA_1, VARNEL_COMPOSE_TOO_LONG, 0, 0}));

  fields.document_number = "D2314589A77";
  fields.optional_data_1 = "XYZ";
  fields.optional_data_2 = "12345";
  EXPECT_EQ(compose(fields), (lines{"I<UTOD2314589A<777<XYZ<<<<<<<<", //
                                    "8405117F3105102UTO12345<<<<<<5", //
                                    "FENWICK<<ADA<<<<<<<<<<<<<<<<<<"}));
  fields.optional_data_1 = "ABCDEFGHIJK";
  EXPECT_EQ(compose(fields)[0], "I<UTOD2314589A<777<ABCDEFGHIJK");
  fields.optional_data_1 = "ABCDEFGHIJKL";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_OPTIONAL_DATA_1, VARNEL_COMPOSE_TOO_LONG, 11, 11}));
  fields.document_number = "ABCDEFGHI12345678901234";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 22, 22}));
}

// A long number has nowhere to keep its separators apart from the filler that ends it.
TEST(Compose, LongNumbersHaveNoSeparators) {
  for (const int layout : {VARNEL_LAYOUT_TD1, VARNEL_LAYOUT_TD2}) {
    varnel_compose_fields fields = document(layout);
    fields.document_number = "AB-1234567";
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 9, 9}));
    fields.document_number = "1234567890-1";
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 11, 11}));
    fields.document_number = " 1234567890 ";
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
  }
}

TEST(Compose, NumbersOfMoreThanNineElsewhere) {
  for (const int layout : {VARNEL_LAYOUT_TD3, VARNEL_LAYOUT_MRV_A, VARNEL_LAYOUT_MRV_B}) {
    varnel_compose_fields fields = document(layout);
    fields.document_number = "123456789";
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
    fields.document_number = "1234567890";
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 9, 9}));
    fields.document_number = "1234 56789";
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_TOO_LONG, 9, 9}));
  }
}

TEST(Compose, CharactersOfNumbers) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  for (const char *bad : {"a", "<", ".", "/", "'", "Ä", "\u0661", "\x80", "\u00AD"}) {
    const std::string number = std::string("A1") + bad;
    fields.document_number = number.c_str();
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_BAD_CHARACTER, 2, 2}))
        << bad;
  }
  fields.document_number = "A\u2013\u2013b"; // four characters of eight bytes
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_BAD_CHARACTER, 3, 7}));
  for (const char *nothing : {static_cast<const char *>(nullptr), "", " ", "--"}) {
    fields.document_number = nothing;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_MISSING, 0, 0}));
  }
}

// ---- optional data --------------------------------------------------------------------------------

struct optional_field {
  int layout;
  int field;
  const char *varnel_compose_fields::*member;
  size_t room;
};

constexpr optional_field OPTIONAL_FIELDS[] = {
    {VARNEL_LAYOUT_TD1, VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1, 15},
    {VARNEL_LAYOUT_TD1, VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2, 11},
    {VARNEL_LAYOUT_TD1, VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data, 0},
    {VARNEL_LAYOUT_TD1, VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number, 0},
    {VARNEL_LAYOUT_TD2, VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1, 0},
    {VARNEL_LAYOUT_TD2, VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2, 0},
    {VARNEL_LAYOUT_TD2, VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data, 7},
    {VARNEL_LAYOUT_TD2, VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number, 0},
    {VARNEL_LAYOUT_TD3, VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1, 0},
    {VARNEL_LAYOUT_TD3, VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2, 0},
    {VARNEL_LAYOUT_TD3, VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data, 0},
    {VARNEL_LAYOUT_TD3, VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number, 14},
    {VARNEL_LAYOUT_MRV_A, VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1, 0},
    {VARNEL_LAYOUT_MRV_A, VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2, 0},
    {VARNEL_LAYOUT_MRV_A, VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data, 16},
    {VARNEL_LAYOUT_MRV_A, VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number, 0},
    {VARNEL_LAYOUT_MRV_B, VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1, 0},
    {VARNEL_LAYOUT_MRV_B, VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2, 0},
    {VARNEL_LAYOUT_MRV_B, VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data, 8},
    {VARNEL_LAYOUT_MRV_B, VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number, 0},
};

TEST(Compose, OptionalDataHasItsRoom) {
  for (const optional_field &optional : OPTIONAL_FIELDS) {
    varnel_compose_fields fields = document(optional.layout);
    fields.*optional.member = "";
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
    const std::string full(optional.room, '7');
    fields.*optional.member = full.c_str();
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
    const std::string longer(optional.room + 1, '7');
    fields.*optional.member = longer.c_str();
    const int reason = optional.room > 0 ? VARNEL_COMPOSE_TOO_LONG : VARNEL_COMPOSE_NOT_IN_LAYOUT;
    EXPECT_EQ(refusal_of(fields), (refusal{optional.field, reason, optional.room, optional.room}));
    if (optional.room > 0) {
      fields.*optional.member = "7x";
      EXPECT_EQ(refusal_of(fields), (refusal{optional.field, VARNEL_COMPOSE_BAD_CHARACTER, 1, 1}));
    }
  }
}

// ---- codes, states, sex ---------------------------------------------------------------------------

struct code_case {
  int layout;
  const char *code;
  int reason;
  size_t position;
};

TEST(Compose, DocumentCodes) {
  constexpr int OK = VARNEL_COMPOSE_NO_REASON;
  constexpr int UNKNOWN = VARNEL_COMPOSE_UNKNOWN;
  constexpr int BAD = VARNEL_COMPOSE_BAD_CHARACTER;
  constexpr code_case CASES[] = {
      {VARNEL_LAYOUT_TD1, "I", OK, 0},
      {VARNEL_LAYOUT_TD1, "A", OK, 0},
      {VARNEL_LAYOUT_TD1, "C", OK, 0},
      {VARNEL_LAYOUT_TD1, "ID", OK, 0},
      {VARNEL_LAYOUT_TD1, "AI", OK, 0},
      {VARNEL_LAYOUT_TD1, "AC", OK, 0},
      {VARNEL_LAYOUT_TD1, "I7", OK, 0},
      {VARNEL_LAYOUT_TD1, "P", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD1, "IV", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD1, "AV", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD1, "CV", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD2, "I", OK, 0},
      {VARNEL_LAYOUT_TD2, "AC", OK, 0},
      {VARNEL_LAYOUT_TD2, "IV", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD2, "V", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD2, "ID", OK, 0},
      {VARNEL_LAYOUT_TD3, "P", OK, 0},
      {VARNEL_LAYOUT_TD3, "PV", OK, 0},
      {VARNEL_LAYOUT_TD3, "P0", OK, 0},
      {VARNEL_LAYOUT_TD3, "I", UNKNOWN, 0},
      {VARNEL_LAYOUT_MRV_A, "V", OK, 0},
      {VARNEL_LAYOUT_MRV_A, "VV", OK, 0},
      {VARNEL_LAYOUT_MRV_A, "P", UNKNOWN, 0},
      {VARNEL_LAYOUT_MRV_B, "VC", OK, 0},
      {VARNEL_LAYOUT_MRV_B, "I", UNKNOWN, 0},
      {VARNEL_LAYOUT_TD3, "p", BAD, 0},
      {VARNEL_LAYOUT_TD3, "Pp", BAD, 1},
      {VARNEL_LAYOUT_TD3, "P<", BAD, 1},
      {VARNEL_LAYOUT_TD3, "P ", BAD, 1},
      {VARNEL_LAYOUT_TD3, " P", BAD, 0},
      {VARNEL_LAYOUT_TD3, "1", BAD, 0},
      {VARNEL_LAYOUT_TD3, "Ä", BAD, 0},
      {VARNEL_LAYOUT_TD3, "PÄ", BAD, 1},
      {VARNEL_LAYOUT_TD3, "PPP", VARNEL_COMPOSE_TOO_LONG, 2},
      {VARNEL_LAYOUT_TD3, "P<<", BAD, 1},
      {VARNEL_LAYOUT_TD3, "", VARNEL_COMPOSE_MISSING, 0},
      {VARNEL_LAYOUT_TD3, nullptr, VARNEL_COMPOSE_MISSING, 0},
  };
  for (const code_case &test : CASES) {
    varnel_compose_fields fields = document(test.layout);
    fields.document_code = test.code;
    const refusal expected = {test.reason == OK ? VARNEL_FIELD_NONE : VARNEL_DOCUMENT_CODE, test.reason,
                              test.position, test.position};
    EXPECT_EQ(refusal_of(fields), expected)
        << test.layout << " " << (test.code != nullptr ? test.code : "null");
    if (test.reason == OK) {
      EXPECT_EQ(compose(fields)[0].substr(0, 2), (std::string(test.code) + "<").substr(0, 2));
    }
  }
}

// These lines would be a French identity card, whose columns are others.
TEST(Compose, NoFrenchIdentityCardAsTd2) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD2);
  fields.document_code = "ID";
  fields.issuing_state = "FRA";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_OTHER_LAYOUT, 0, 0}));
  fields.document_code = "I";
  EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
  fields.document_code = "ID";
  fields.layout = VARNEL_LAYOUT_TD1;
  EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
  fields.layout = VARNEL_LAYOUT_TD2;
  fields.issuing_state = nullptr;
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_ISSUING_STATE, VARNEL_COMPOSE_MISSING, 0, 0}));
  fields.issuing_state = "FRAU"; // more than three letters begin no such line
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_ISSUING_STATE, VARNEL_COMPOSE_TOO_LONG, 3, 3}));
}

struct state_case {
  const char *code;
  int reason;
  size_t position;
};

TEST(Compose, States) {
  constexpr state_case CASES[] = {
      {"UTO", 0, 0},
      {"D", 0, 0},
      {"XXK", 0, 0},
      {"XXA", 0, 0},
      {"ZWE", 0, 0},
      {"ABW", 0, 0},
      {"DEU", 0, 0}, // ISO 3166-1 has it, though German documents do not print it
      {"YTO", VARNEL_COMPOSE_UNKNOWN, 0},
      {"XKX", VARNEL_COMPOSE_UNKNOWN, 0},
      {"XXJ", VARNEL_COMPOSE_UNKNOWN, 0},
      {"DDR", VARNEL_COMPOSE_UNKNOWN, 0},
      {"U", VARNEL_COMPOSE_UNKNOWN, 0},
      {"UT", VARNEL_COMPOSE_UNKNOWN, 0},
      {"UTOX", VARNEL_COMPOSE_TOO_LONG, 3},
      {"uto", VARNEL_COMPOSE_BAD_CHARACTER, 0},
      {"UTo", VARNEL_COMPOSE_BAD_CHARACTER, 2},
      {"D<<", VARNEL_COMPOSE_BAD_CHARACTER, 1},
      {"UT0", VARNEL_COMPOSE_BAD_CHARACTER, 2},
      {" UTO", VARNEL_COMPOSE_BAD_CHARACTER, 0},
      {"UTО", VARNEL_COMPOSE_BAD_CHARACTER, 2}, // a Cyrillic О
      {"", VARNEL_COMPOSE_MISSING, 0},
      {nullptr, VARNEL_COMPOSE_MISSING, 0},
  };
  for (const int layout : LAYOUTS) {
    for (const state_case &test : CASES) {
      varnel_compose_fields fields = document(layout);
      const char *shown = test.code != nullptr ? test.code : "null";
      fields.issuing_state = test.code;
      refusal expected = {VARNEL_ISSUING_STATE, test.reason, test.position, test.position};
      EXPECT_EQ(refusal_of(fields), test.reason == 0 ? NO_REFUSAL : expected) << shown;
      fields.issuing_state = "UTO";
      fields.nationality = test.code;
      expected.field = VARNEL_NATIONALITY;
      EXPECT_EQ(refusal_of(fields), test.reason == 0 ? NO_REFUSAL : expected) << shown;
    }
  }
}

TEST(Compose, Sex) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  for (const auto &[sex, column] : {std::pair{"M", 'M'}, {"F", 'F'}, {"X", '<'}}) {
    fields.sex = sex;
    EXPECT_EQ(compose(fields)[1][20], column);
  }
  for (const char *bad : {"<", "m", "W", " ", "1", "Ж"}) {
    fields.sex = bad;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_SEX, VARNEL_COMPOSE_BAD_CHARACTER, 0, 0})) << bad;
  }
  fields.sex = "MF";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_SEX, VARNEL_COMPOSE_TOO_LONG, 1, 1}));
  for (const char *missing : {"", static_cast<const char *>(nullptr)}) {
    fields.sex = missing;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_SEX, VARNEL_COMPOSE_MISSING, 0, 0}));
  }
}

// ---- dates ----------------------------------------------------------------------------------------

TEST(Compose, DatesOfTheCalendar) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.expiry_date = "2100-01-01";
  for (const char *day :
       {"1974-08-12", "2000-02-29", "1999-12-31", "2099-XX-XX", "1996-02-XX", "0001-01-01"}) {
    fields.birth_date = day;
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL) << day;
  }
  for (const char *bad :
       {"1974-8-12",  "19740812",   "1974-08-12 ", " 1974-08-12", "1974/08/12", "1974-08/12", "1974-08-32",
        "1974-02-30", "1900-02-29", "2001-02-29",  "1974-13-01",  "1974-00-01", "1974-01-00", "0000-01-01",
        "1974-XX-01", "1974-1X-01", "1974-01-X1",  "XXXX-XX-XX",  "XXXX-01-01", "1974-xx-xx", "1974-00-XX",
        "1974-13-XX", "1974-XX",    "197A-01-01",  "<",           "1974-01-1",  "１974-01-1", "1974-<<-<<"}) {
    fields.birth_date = bad;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_BIRTH_DATE, VARNEL_COMPOSE_NOT_A_DATE, 0, 0})) << bad;
    fields.birth_date = nullptr;
    fields.expiry_date = bad;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_NOT_A_DATE, 0, 0})) << bad;
    fields.expiry_date = "2100-01-01";
  }
  fields.birth_date = nullptr;
  for (const char *unknown : {"2030-01-XX", "2030-XX-XX"}) {
    fields.expiry_date = unknown;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_NOT_A_DATE, 0, 0})) << unknown;
  }
  for (const char *missing : {"", static_cast<const char *>(nullptr)}) {
    fields.expiry_date = missing;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_MISSING, 0, 0}));
  }
}

TEST(Compose, ExpiryIsNotBeforeBirth) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.birth_date = "2020-06-15";
  for (const char *before : {"2020-06-14", "2020-05-30", "2019-12-31", "1930-01-01"}) {
    fields.expiry_date = before;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_DATES_ORDER, 0, 0})) << before;
  }
  for (const char *fine : {"2020-06-15", "2020-06-16", "2030-01-01"}) {
    fields.expiry_date = fine;
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL) << fine;
  }
  fields.expiry_date = "2019-01-01";
  for (const char *vague : {"2020-06-XX", "2020-XX-XX", static_cast<const char *>(nullptr)}) {
    fields.birth_date = vague;
    EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
  }
}

// ---- names ----------------------------------------------------------------------------------------

TEST(Compose, Names) {
  EXPECT_EQ(names("Müller", "Jörg"), "MUELLER<<JOERG");
  EXPECT_EQ(names("O'Connor-Smith"), "OCONNOR<SMITH");
  EXPECT_EQ(names("Jónsdóttir", "Þóra"), "JONSDOTTIR<<THORA");
  EXPECT_EQ(names("Шевченко"), "SHEVCHENKO");
  EXPECT_EQ(names("van der Muellen", "Marie-Elise"), "VAN<DER<MUELLEN<<MARIE<ELISE");
  EXPECT_EQ(names("d’Artagnan"), "DARTAGNAN");
  EXPECT_EQ(names("St. John", "Smith, Jr."), "ST<JOHN<<SMITH<JR");
  EXPECT_EQ(names("Arkfreith"), "ARKFREITH");
  EXPECT_EQ(names("Eriksson", "- '"), "ERIKSSON");
}

TEST(Compose, NamesThatCannotBeWritten) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.primary_identifier = "名前";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 0, 0}));
  fields.primary_identifier = "Müller 名前";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 7, 8}));
  fields.primary_identifier = "Henry 8";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 6, 6}));
  fields.primary_identifier = "Anna\xFF!";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 4, 4}));
  fields.primary_identifier = "ΩΨ"; // the first of two
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 0, 0}));
  fields.primary_identifier = "AΩ\u0301-7";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 1, 1}));
  fields.primary_identifier = "A";
  fields.secondary_identifier = "Ö<";
  EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_SECONDARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER, 1, 2}));
  fields.secondary_identifier = "";
  for (const char *nothing : {static_cast<const char *>(nullptr), "", " ", "'-.", "Ь", "\u0301"}) {
    fields.primary_identifier = nothing;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_MISSING, 0, 0}));
  }
}

// ---- the record -----------------------------------------------------------------------------------

TEST(Compose, TheFirstErrorIsReported) {
  varnel_compose_fields fields = {};
  const auto next = [&fields](int field, int reason) {
    EXPECT_EQ(refusal_of(fields), (refusal{field, reason, 0, 0}));
  };
  fields.secondary_identifier = "7";
  fields.optional_data_1 = "?";
  fields.birth_date = "never";
  EXPECT_EQ(refusal_of(fields, "de"), (refusal{VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN, 0, 0}));
  fields.layout = VARNEL_LAYOUT_TD3;
  EXPECT_EQ(refusal_of(fields, "de"), (refusal{VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN_LANGUAGE, 0, 0}));
  next(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_MISSING);
  fields.document_code = "P";
  next(VARNEL_ISSUING_STATE, VARNEL_COMPOSE_MISSING);
  fields.issuing_state = "UTO";
  next(VARNEL_DOCUMENT_NUMBER, VARNEL_COMPOSE_MISSING);
  fields.document_number = "1";
  next(VARNEL_NATIONALITY, VARNEL_COMPOSE_MISSING);
  fields.nationality = "UTO";
  next(VARNEL_BIRTH_DATE, VARNEL_COMPOSE_NOT_A_DATE);
  fields.birth_date = "2001-01-01";
  next(VARNEL_SEX, VARNEL_COMPOSE_MISSING);
  fields.sex = "X";
  next(VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_MISSING);
  fields.expiry_date = "2031-01-01";
  next(VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_MISSING);
  fields.primary_identifier = "Zed";
  next(VARNEL_SECONDARY_IDENTIFIER, VARNEL_COMPOSE_BAD_CHARACTER);
  fields.secondary_identifier = nullptr;
  next(VARNEL_OPTIONAL_DATA_1, VARNEL_COMPOSE_NOT_IN_LAYOUT);
  fields.optional_data_1 = nullptr;
  EXPECT_EQ(refusal_of(fields), NO_REFUSAL);
}

TEST(Compose, LayoutsThatCanBeComposed) {
  constexpr int REFUSED[] = {VARNEL_LAYOUT_NONE, VARNEL_LAYOUT_FRA_ID, 7, -1, 1000000};
  for (const int layout : REFUSED) {
    varnel_compose_fields fields = document(VARNEL_LAYOUT_TD1);
    fields.layout = layout;
    EXPECT_EQ(refusal_of(fields), (refusal{VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN, 0, 0})) << layout;
  }
}

TEST(Compose, BadArguments) {
  const varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  varnel_zone zone = {};
  varnel_compose_error error = {7, 7, 7, 7};
  EXPECT_EQ(varnel_compose(nullptr, nullptr, &zone, &error), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_compose(&fields, nullptr, nullptr, &error), ERR_INVALID_ARGS);
  EXPECT_EQ(error.field, 7);
  EXPECT_EQ(varnel_compose(&fields, nullptr, &zone, &error), ERR_OK);
  EXPECT_EQ(error.field, 7) << "the error is left alone on success";
  EXPECT_EQ(varnel_compose(&fields, nullptr, &zone, nullptr), ERR_OK);
}

TEST(Compose, NothingIsWrittenOnFailure) {
  varnel_compose_fields fields = document(VARNEL_LAYOUT_TD3);
  fields.personal_number = "?"; // the last field of all
  varnel_zone zone;
  std::memset(&zone, 0x5A, sizeof zone);
  const varnel_zone before = zone;
  EXPECT_EQ(varnel_compose(&fields, nullptr, &zone, nullptr), ERR_INVALID_FORMAT);
  EXPECT_EQ(std::memcmp(&zone, &before, sizeof zone), 0);
}

// A zone of two lines has an empty third, whatever stood there.
TEST(Compose, TheZoneIsWrittenWhole) {
  varnel_zone zone;
  std::memset(&zone, 0x5A, sizeof zone);
  const varnel_compose_fields fields = document(VARNEL_LAYOUT_TD2);
  ASSERT_EQ(varnel_compose(&fields, nullptr, &zone, nullptr), ERR_OK);
  EXPECT_EQ(zone.line_count, 2);
  EXPECT_EQ(std::strlen(zone.lines[0]), 36U);
  EXPECT_EQ(std::strlen(zone.lines[1]), 36U);
  for (const char c : zone.lines[2]) {
    EXPECT_EQ(c, '\0');
  }
}

} // namespace
