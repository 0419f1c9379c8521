// The record: its layout in memory, its numbers, its life, and the questions put to its slots.
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

using support::Lent;
using support::Record;
using support::text;

namespace {

// ---- layout in memory -------------------------------------------------------------------------------

TEST(Layout, MembersAreInTheOrderOfTheHeader) {
  EXPECT_LT(offsetof(STRING, str), offsetof(STRING, len));
  EXPECT_EQ(offsetof(FIELD, value), 0U);
  EXPECT_EQ(offsetof(PARSE_RESULT, parser_type), 0U);
  EXPECT_EQ(offsetof(PARSE_RESULT, parser), 4U);
  EXPECT_EQ(offsetof(PARSE_RESULT, fields), 8U);
  EXPECT_EQ(offsetof(DATETIME, year), 0U);
  EXPECT_EQ(offsetof(DATETIME, month), 4U);
  EXPECT_EQ(offsetof(DATETIME, day), 8U);
  EXPECT_EQ(offsetof(DATETIME, hr), 12U);
  EXPECT_EQ(offsetof(DATETIME, min), 16U);
  EXPECT_EQ(offsetof(DATETIME, sec), 20U);
  EXPECT_EQ(sizeof(DATETIME), 24U);
  EXPECT_EQ(offsetof(CONTEXT, date), 0U);
  EXPECT_EQ(sizeof(CONTEXT), 24U);
  EXPECT_EQ(offsetof(MAPPING, key), 0U);
  EXPECT_EQ(offsetof(MAPPING, value), 4U);
  EXPECT_EQ(sizeof(MAPPING), 8U);
  EXPECT_EQ(offsetof(SOUNDEX_CODE, alpha), 0U);
  EXPECT_EQ(offsetof(SOUNDEX_CODE, code), 1U);
  EXPECT_EQ(sizeof(SOUNDEX_CODE), 4U);
}

TEST(Layout, SizesAndOffsetsWith64BitPointers) {
  if (sizeof(void *) != 8)
    GTEST_SKIP() << "pointers here have " << sizeof(void *) << " bytes";
  EXPECT_EQ(offsetof(STRING, str), 0U);
  EXPECT_EQ(offsetof(STRING, len), 8U);
  EXPECT_EQ(sizeof(STRING), 16U);
  EXPECT_EQ(sizeof(FIELD), 16U);
  EXPECT_EQ(offsetof(PARSE_RESULT, buffer), 2232U);
  EXPECT_EQ(offsetof(PARSE_RESULT, buffer_size), 2240U);
  EXPECT_EQ(offsetof(PARSE_RESULT, data_size), 2244U);
  EXPECT_EQ(sizeof(PARSE_RESULT), 2248U);
}

TEST(Layout, CountsAndEnumerationsHave32Bits) {
  static_assert(std::is_same_v<decltype(STRING::len), int> && sizeof(int) == 4);
  static_assert(std::is_same_v<decltype(PARSE_RESULT::buffer_size), int>);
  static_assert(std::is_same_v<decltype(PARSE_RESULT::data_size), int>);
  static_assert(std::is_same_v<std::underlying_type_t<EPARSER_TYPE>, unsigned>);
  static_assert(std::is_same_v<std::underlying_type_t<EPARSER>, unsigned>);
  static_assert(sizeof(EPARSER_TYPE) == 4 && sizeof(EPARSER) == 4);
  EXPECT_EQ(sizeof(PARSE_RESULT::fields) / sizeof(FIELD), 139U);
  EXPECT_EQ(FIELD_COUNT, 139);
}

// ---- numbers ----------------------------------------------------------------------------------------

struct Constant {
  int number;
  int constant;
  const char *name;
};

const Constant slots[] = {
    {1, FIELD_FULL_NAME, "FIELD_FULL_NAME"},
    {2, FIELD_ADDRESS_STREET_1, "FIELD_ADDRESS_STREET_1"},
    {3, FIELD_ADDRESS_CITY, "FIELD_ADDRESS_CITY"},
    {4, FIELD_ADDRESS_JURISDICTION, "FIELD_ADDRESS_JURISDICTION"},
    {5, FIELD_ADDRESS_POSTAL_CODE, "FIELD_ADDRESS_POSTAL_CODE"},
    {6, FIELD_DOCUMENT_NUMBER, "FIELD_DOCUMENT_NUMBER"},
    {7, FIELD_LICENSE_CLASS, "FIELD_LICENSE_CLASS"},
    {8, FIELD_RESTRICTION_CODES, "FIELD_RESTRICTION_CODES"},
    {9, FIELD_ENDORSEMENT_CODES, "FIELD_ENDORSEMENT_CODES"},
    {10, FIELD_EXPIRATION_DATE, "FIELD_EXPIRATION_DATE"},
    {11, FIELD_DATE_OF_BIRTH, "FIELD_DATE_OF_BIRTH"},
    {12, FIELD_SEX, "FIELD_SEX"},
    {13, FIELD_ISSUE_DATE, "FIELD_ISSUE_DATE"},
    {14, FIELD_HEIGHT_FT_IN, "FIELD_HEIGHT_FT_IN"},
    {15, FIELD_WEIGHT_LB, "FIELD_WEIGHT_LB"},
    {16, FIELD_EYE_COLOR, "FIELD_EYE_COLOR"},
    {17, FIELD_HAIR_COLOR, "FIELD_HAIR_COLOR"},
    {18, FIELD_SOCIAL_SECURITY_NUMBER, "FIELD_SOCIAL_SECURITY_NUMBER"},
    {19, FIELD_PERMIT_CLASS, "FIELD_PERMIT_CLASS"},
    {20, FIELD_PERMIT_EXPIRATION_DATE, "FIELD_PERMIT_EXPIRATION_DATE"},
    {21, FIELD_PERMIT_NUMBER, "FIELD_PERMIT_NUMBER"},
    {22, FIELD_PERMIT_ISSUE_DATE, "FIELD_PERMIT_ISSUE_DATE"},
    {23, FIELD_PERMIT_RESTRICTIONS, "FIELD_PERMIT_RESTRICTIONS"},
    {24, FIELD_PERMIT_ENDORSEMENTS, "FIELD_PERMIT_ENDORSEMENTS"},
    {25, FIELD_FAMILY_NAME, "FIELD_FAMILY_NAME"},
    {26, FIELD_FIRST_NAME, "FIELD_FIRST_NAME"},
    {27, FIELD_MIDDLE_NAME, "FIELD_MIDDLE_NAME"},
    {28, FIELD_NAME_SUFFIX, "FIELD_NAME_SUFFIX"},
    {29, FIELD_NAME_PREFIX, "FIELD_NAME_PREFIX"},
    {30, FIELD_MAILING_STREET_2, "FIELD_MAILING_STREET_2"},
    {31, FIELD_RESIDENCE_STREET_1, "FIELD_RESIDENCE_STREET_1"},
    {32, FIELD_RESIDENCE_STREET_2, "FIELD_RESIDENCE_STREET_2"},
    {33, FIELD_RESIDENCE_CITY, "FIELD_RESIDENCE_CITY"},
    {34, FIELD_RESIDENCE_JURISDICTION, "FIELD_RESIDENCE_JURISDICTION"},
    {35, FIELD_RESIDENCE_POSTAL_CODE, "FIELD_RESIDENCE_POSTAL_CODE"},
    {36, FIELD_HEIGHT_CM, "FIELD_HEIGHT_CM"},
    {37, FIELD_WEIGHT_KG, "FIELD_WEIGHT_KG"},
    {38, FIELD_ISSUE_TIMESTAMP, "FIELD_ISSUE_TIMESTAMP"},
    {39, FIELD_DUPLICATE_COUNT, "FIELD_DUPLICATE_COUNT"},
    {40, FIELD_MEDICAL_CODES, "FIELD_MEDICAL_CODES"},
    {41, FIELD_ORGAN_DONOR, "FIELD_ORGAN_DONOR"},
    {42, FIELD_NON_RESIDENT, "FIELD_NON_RESIDENT"},
    {43, FIELD_CUSTOMER_ID, "FIELD_CUSTOMER_ID"},
    {44, FIELD_AKA_DATE_OF_BIRTH, "FIELD_AKA_DATE_OF_BIRTH"},
    {45, FIELD_AKA_SOCIAL_SECURITY_NUMBER, "FIELD_AKA_SOCIAL_SECURITY_NUMBER"},
    {46, FIELD_AKA_FULL_NAME, "FIELD_AKA_FULL_NAME"},
    {47, FIELD_AKA_FAMILY_NAME, "FIELD_AKA_FAMILY_NAME"},
    {48, FIELD_AKA_FIRST_NAME, "FIELD_AKA_FIRST_NAME"},
    {49, FIELD_AKA_MIDDLE_NAME, "FIELD_AKA_MIDDLE_NAME"},
    {50, FIELD_AKA_SUFFIX, "FIELD_AKA_SUFFIX"},
    {51, FIELD_AKA_PREFIX, "FIELD_AKA_PREFIX"},
    {52, FIELD_VEHICLE_CLASS, "FIELD_VEHICLE_CLASS"},
    {53, FIELD_GIVEN_NAMES, "FIELD_GIVEN_NAMES"},
    {54, FIELD_HEIGHT, "FIELD_HEIGHT"},
    {55, FIELD_PERSONAL_NUMBER, "FIELD_PERSONAL_NUMBER"},
    {56, FIELD_COUNTRY_ID, "FIELD_COUNTRY_ID"},
    {57, FIELD_FEDERAL_VEHICLE_CODES, "FIELD_FEDERAL_VEHICLE_CODES"},
    {58, FIELD_ADDRESS_STREET_2, "FIELD_ADDRESS_STREET_2"},
    {59, FIELD_PLACE_OF_BIRTH, "FIELD_PLACE_OF_BIRTH"},
    {60, FIELD_AUDIT_INFO, "FIELD_AUDIT_INFO"},
    {61, FIELD_INVENTORY_CONTROL, "FIELD_INVENTORY_CONTROL"},
    {62, FIELD_ALIAS_FAMILY_NAME, "FIELD_ALIAS_FAMILY_NAME"},
    {63, FIELD_ALIAS_GIVEN_NAME, "FIELD_ALIAS_GIVEN_NAME"},
    {64, FIELD_ALIAS_SUFFIX, "FIELD_ALIAS_SUFFIX"},
    {65, FIELD_WEIGHT_RANGE, "FIELD_WEIGHT_RANGE"},
    {66, FIELD_RACE_ETHNICITY, "FIELD_RACE_ETHNICITY"},
    {67, FIELD_STD_VEHICLE_CLASS, "FIELD_STD_VEHICLE_CLASS"},
    {68, FIELD_STD_ENDORSEMENT, "FIELD_STD_ENDORSEMENT"},
    {69, FIELD_STD_RESTRICTION, "FIELD_STD_RESTRICTION"},
    {70, FIELD_VEHICLE_CLASS_DESC, "FIELD_VEHICLE_CLASS_DESC"},
    {71, FIELD_ENDORSEMENT_DESC, "FIELD_ENDORSEMENT_DESC"},
    {72, FIELD_RESTRICTION_DESC, "FIELD_RESTRICTION_DESC"},
    {73, FIELD_DOCUMENT_DISCRIMINATOR, "FIELD_DOCUMENT_DISCRIMINATOR"},
    {75, FIELD_FAMILY_NAME_TRUNCATION, "FIELD_FAMILY_NAME_TRUNCATION"},
    {76, FIELD_FIRST_NAME_TRUNCATION, "FIELD_FIRST_NAME_TRUNCATION"},
    {77, FIELD_MIDDLE_NAME_TRUNCATION, "FIELD_MIDDLE_NAME_TRUNCATION"},
    {78, FIELD_BIRTH_DATE, "FIELD_BIRTH_DATE"},
    {79, FIELD_COMPLIANCE_TYPE, "FIELD_COMPLIANCE_TYPE"},
    {80, FIELD_CARD_REVISION_DATE, "FIELD_CARD_REVISION_DATE"},
    {81, FIELD_HAZMAT_EXPIRATION_DATE, "FIELD_HAZMAT_EXPIRATION_DATE"},
    {82, FIELD_LIMITED_DURATION, "FIELD_LIMITED_DURATION"},
    {83, FIELD_UNDER_18_UNTIL, "FIELD_UNDER_18_UNTIL"},
    {84, FIELD_UNDER_19_UNTIL, "FIELD_UNDER_19_UNTIL"},
    {85, FIELD_UNDER_21_UNTIL, "FIELD_UNDER_21_UNTIL"},
    {87, FIELD_DOCUMENT_TYPE, "FIELD_DOCUMENT_TYPE"},
    {125, FIELD_COUNTRY_CODE, "FIELD_COUNTRY_CODE"},
    {126, FIELD_VETERAN, "FIELD_VETERAN"},
    {138, FIELD_NATIONALITY, "FIELD_NATIONALITY"},
};

TEST(Numbers, EverySlotConstant) {
  for (const Constant &row : slots)
    EXPECT_EQ(row.constant, row.number) << row.name;
}

TEST(Numbers, TheListOfSlotsHoldsTheseAndNoOthers) {
  const Constant listed[] = {
#define ROW(number, constant, meaning) {number, constant, #constant},
      VARNEL_FIELDS(ROW)
#undef ROW
  };
  ASSERT_EQ(sizeof listed, sizeof slots);
  for (std::size_t i = 0; i < sizeof slots / sizeof slots[0]; i += 1) {
    EXPECT_EQ(listed[i].number, slots[i].number);
    EXPECT_STREQ(listed[i].name, slots[i].name);
  }
}

const Constant parser_types[] = {
    {0, PARSER_TYPE_AamvaPDF417, "PARSER_TYPE_AamvaPDF417"},
    {1, PARSER_TYPE_AamvaMagneticStripe, "PARSER_TYPE_AamvaMagneticStripe"},
    {2, PARSER_TYPE_HealthCard, "PARSER_TYPE_HealthCard"},
    {3, PARSER_TYPE_CAC, "PARSER_TYPE_CAC"},
    {4, PARSER_TYPE_CountrySpecial, "PARSER_TYPE_CountrySpecial"},
    {5, PARSER_TYPE_MRZ, "PARSER_TYPE_MRZ"},
    {6, PARSER_TYPE_MAX, "PARSER_TYPE_MAX"},
};

TEST(Numbers, EveryParserFamily) {
  for (const Constant &row : parser_types)
    EXPECT_EQ(row.constant, row.number) << row.name;
}

const Constant parsers[] = {
    {0, PARSER_STRIPE01_1T, "PARSER_STRIPE01_1T"},
    {1, PARSER_STRIPE01_2T, "PARSER_STRIPE01_2T"},
    {2, PARSER_STRIPE01_3T, "PARSER_STRIPE01_3T"},
    {3, PARSER_STRIPE01_3TR, "PARSER_STRIPE01_3TR"},
    {4, PARSER_STRIPE011_3T, "PARSER_STRIPE011_3T"},
    {5, PARSER_STRIPE0110_3T, "PARSER_STRIPE0110_3T"},
    {6, PARSER_STRIPE012_3T, "PARSER_STRIPE012_3T"},
    {7, PARSER_STRIPE013_3T, "PARSER_STRIPE013_3T"},
    {8, PARSER_STRIPE014_3T, "PARSER_STRIPE014_3T"},
    {9, PARSER_STRIPE015_3T, "PARSER_STRIPE015_3T"},
    {10, PARSER_STRIPE016_1T, "PARSER_STRIPE016_1T"},
    {11, PARSER_STRIPE017_2T, "PARSER_STRIPE017_2T"},
    {12, PARSER_STRIPE018_3T, "PARSER_STRIPE018_3T"},
    {13, PARSER_STRIPE019_3T, "PARSER_STRIPE019_3T"},
    {14, PARSER_STRIPE020_1T, "PARSER_STRIPE020_1T"},
    {15, PARSER_STRIPE_AUSTRALIAN01_1T, "PARSER_STRIPE_AUSTRALIAN01_1T"},
    {16, PARSER_STRIPE_OH01_1T, "PARSER_STRIPE_OH01_1T"},
    {17, PARSER_V01, "PARSER_V01"},
    {18, PARSER_V01_1, "PARSER_V01_1"},
    {19, PARSER_V01_2, "PARSER_V01_2"},
    {20, PARSER_V01_AAMVA36, "PARSER_V01_AAMVA36"},
    {21, PARSER_V01_AAMVA36_1, "PARSER_V01_AAMVA36_1"},
    {22, PARSER_V01_AAMVA36_NC, "PARSER_V01_AAMVA36_NC"},
    {23, PARSER_V01_AAMVA630, "PARSER_V01_AAMVA630"},
    {24, PARSER_V01_AAMVA10_AR, "PARSER_V01_AAMVA10_AR"},
    {25, PARSER_V01_WORS, "PARSER_V01_WORS"},
    {26, PARSER_V01_CAN, "PARSER_V01_CAN"},
    {27, PARSER_V01_AB, "PARSER_V01_AB"},
    {28, PARSER_V02, "PARSER_V02"},
    {29, PARSER_V02_WOJC, "PARSER_V02_WOJC"},
    {30, PARSER_V03, "PARSER_V03"},
    {31, PARSER_V03_WORS, "PARSER_V03_WORS"},
    {32, PARSER_V03_AB, "PARSER_V03_AB"},
    {33, PARSER_V03_1_AB, "PARSER_V03_1_AB"},
    {34, PARSER_V03_2_AB, "PARSER_V03_2_AB"},
    {35, PARSER_V03_SL, "PARSER_V03_SL"},
    {36, PARSER_V04_GENERIC, "PARSER_V04_GENERIC"},
    {37, PARSER_V04_1, "PARSER_V04_1"},
    {38, PARSER_V05_GENERIC, "PARSER_V05_GENERIC"},
    {39, PARSER_V05_SA, "PARSER_V05_SA"},
    {40, PARSER_V06, "PARSER_V06"},
    {41, PARSER_V08, "PARSER_V08"},
    {42, PARSER_V08_1, "PARSER_V08_1"},
    {43, PARSER_V08_2_ND, "PARSER_V08_2_ND"},
    {44, PARSER_V03_CAN, "PARSER_V03_CAN"},
    {45, PARSER_V08_KBD, "PARSER_V08_KBD"},
    {46, PARSER_HEALTH_V2009_2D, "PARSER_HEALTH_V2009_2D"},
    {47, PARSER_HEALTH_V2009_3T, "PARSER_HEALTH_V2009_3T"},
    {48, PARSER_CAC_1, "PARSER_CAC_1"},
    {49, PARSER_CAC_N, "PARSER_CAC_N"},
    {50, PARSER_CAC_DEPENDANT, "PARSER_CAC_DEPENDANT"},
    {51, PARSER_CAC_SPONSOR, "PARSER_CAC_SPONSOR"},
    {52, PARSER_CAC_CIVIL, "PARSER_CAC_CIVIL"},
    {53, PARSER_CS_GTM_1, "PARSER_CS_GTM_1"},
    {54, PARSER_CS_PRI_2D, "PARSER_CS_PRI_2D"},
    {55, PARSER_CS_PAN_2D, "PARSER_CS_PAN_2D"},
    {56, PARSER_CS_ZAF_2D, "PARSER_CS_ZAF_2D"},
    {57, PARSER_CS_MATRICULA_1, "PARSER_CS_MATRICULA_1"},
    {58, PARSER_CS_MATRICULA_2, "PARSER_CS_MATRICULA_2"},
    {59, PARSER_CS_VI_2D_SEP, "PARSER_CS_VI_2D_SEP"},
    {60, PARSER_CS_VI_2D_SEP2, "PARSER_CS_VI_2D_SEP2"},
    {61, PARSER_MRZ_PASSPORT, "PARSER_MRZ_PASSPORT"},
    {62, PARSER_MRZ_TD1, "PARSER_MRZ_TD1"},
    {63, PARSER_MRZ_TD2, "PARSER_MRZ_TD2"},
    {64, PARSER_MRZ_VISA, "PARSER_MRZ_VISA"},
    {65, PARSER_MAX, "PARSER_MAX"},
};

TEST(Numbers, EveryParser) {
  for (const Constant &row : parsers)
    EXPECT_EQ(row.constant, row.number) << row.name;
}

TEST(Numbers, EveryReturnCode) {
  EXPECT_EQ(ERR_OK, 0);
  EXPECT_EQ(ERR_FAILED, -1);
  EXPECT_EQ(ERR_NOT_FOUND, -16);
  EXPECT_EQ(ERR_INVALID_FORMAT, -20);
  EXPECT_EQ(ERR_INVALID_ARGS, -21);
}

// ---- life -------------------------------------------------------------------------------------------

// A record of which every byte is known, to see what a refused call leaves behind.
PARSE_RESULT untouched() {
  PARSE_RESULT result;
  std::memset(&result, 0x5A, sizeof result);
  return result;
}

bool same_bytes(const PARSE_RESULT &a, const PARSE_RESULT &b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST(Init, LendsTheBufferAndClears) {
  Lent buffer(8);
  PARSE_RESULT result = untouched();
  EXPECT_EQ(result_init(&result, buffer.data(), 8), ERR_OK);
  EXPECT_EQ(result.buffer, buffer.data());
  EXPECT_EQ(result.buffer_size, 8);
  EXPECT_EQ(result.data_size, 0);
  EXPECT_EQ(result.parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(result.parser, PARSER_MAX);
  EXPECT_EQ(buffer.shown(), "~~~~~~~~");
  EXPECT_TRUE(buffer.guards_intact());
}

TEST(Init, TakesABufferOfOneByte) {
  Lent buffer(1);
  PARSE_RESULT result = untouched();
  EXPECT_EQ(result_init(&result, buffer.data(), 1), ERR_OK);
  EXPECT_EQ(buffer.shown(), "~");
  EXPECT_TRUE(buffer.guards_intact());
}

TEST(Init, RefusesAMissingBufferAndASizeBelowOneAndStoresNothing) {
  Lent buffer(4);
  const PARSE_RESULT before = untouched();
  PARSE_RESULT result = untouched();
  EXPECT_EQ(result_init(&result, nullptr, 4), ERR_INVALID_ARGS);
  EXPECT_EQ(result_init(&result, buffer.data(), 0), ERR_INVALID_ARGS);
  EXPECT_EQ(result_init(&result, buffer.data(), -1), ERR_INVALID_ARGS);
  EXPECT_TRUE(same_bytes(result, before));
  EXPECT_EQ(buffer.shown(), "....");
}

TEST(Init, RefusesAMissingRecord) {
  Lent buffer(4);
  EXPECT_EQ(result_init(nullptr, buffer.data(), 4), ERR_INVALID_ARGS);
  EXPECT_EQ(buffer.shown(), "....");
}

TEST(Clear, EmptiesEverySlotAndEveryByte) {
  Record record(40);
  utils_write_field_s(record.get(), FIELD_FAMILY_NAME, "ERIKSSON");
  utils_write_field_s(record.get(), 0, "FIRST");
  utils_write_field_s(record.get(), 138, "LAST");
  record->parser_type = PARSER_TYPE_MRZ;
  record->parser = PARSER_MRZ_TD1;
  EXPECT_EQ(result_clear(record.get()), ERR_OK);
  EXPECT_EQ(record->parser_type, PARSER_TYPE_MAX);
  EXPECT_EQ(record->parser, PARSER_MAX);
  EXPECT_EQ(record->data_size, 0);
  EXPECT_EQ(record->buffer_size, 40);
  EXPECT_EQ(record.bytes(), std::string(40, '\0'));
  for (int field = 0; field < 139; field += 1) {
    EXPECT_EQ(record->fields[field].value.str, nullptr) << field;
    EXPECT_EQ(record->fields[field].value.len, 0) << field;
    EXPECT_EQ(utils_is_valid_field(record.get(), field), ERR_FAILED) << field;
  }
  EXPECT_TRUE(record.guards_intact());
}

TEST(Clear, ZeroesTheWholeBufferNotOnlyItsUsedPart) {
  Record record(6);
  std::memcpy(record->buffer, "ABCDEF", 6);
  EXPECT_EQ(record->data_size, 0);
  EXPECT_EQ(result_clear(record.get()), ERR_OK);
  EXPECT_EQ(record.shown(), "~~~~~~");
}

TEST(Clear, MayBeRepeated) {
  Record record(10);
  for (int round = 0; round < 3; round += 1) {
    utils_write_field_s(record.get(), 1, "ABC");
    EXPECT_EQ(record.shown(), "ABC~~~~~~~");
    EXPECT_EQ(result_clear(record.get()), ERR_OK);
    EXPECT_EQ(record.shown(), "~~~~~~~~~~");
  }
}

TEST(Clear, RefusesARecordWithoutABufferAndChangesNothing) {
  Lent buffer(4);
  EXPECT_EQ(result_clear(nullptr), ERR_INVALID_ARGS);
  struct Case {
    char *buffer;
    int buffer_size;
  };
  const Case cases[] = {{nullptr, 4}, {buffer.data(), 0}, {buffer.data(), -1}};
  for (const Case &c : cases) {
    PARSE_RESULT result = untouched();
    result.buffer = c.buffer;
    result.buffer_size = c.buffer_size;
    const PARSE_RESULT before = result;
    EXPECT_EQ(result_clear(&result), ERR_INVALID_ARGS) << c.buffer_size;
    EXPECT_TRUE(same_bytes(result, before)) << c.buffer_size;
  }
  EXPECT_EQ(buffer.shown(), "....");
}

// ---- questions --------------------------------------------------------------------------------------

TEST(IsValidField, AsksForALengthAndAPointer) {
  struct Case {
    const char *str;
    int len;
    int expected;
  };
  const Case cases[] = {
      {"TEXT", 4, ERR_OK},      {"TEXT", 1, ERR_OK},      {"TEXT", 0, ERR_FAILED}, {"TEXT", -1, ERR_FAILED},
      {nullptr, 4, ERR_FAILED}, {nullptr, 0, ERR_FAILED}, {"", 0, ERR_FAILED},
  };
  for (const Case &c : cases) {
    Record record(8);
    record.slot(42)->value = STRING{c.str, c.len};
    EXPECT_EQ(utils_is_valid_field(record.get(), 42), c.expected) << c.len;
    const int field = 42;
    STRING value = {nullptr, 7};
    EXPECT_EQ(utils_get_valid_field(record.get(), &field, 1, &value),
              c.expected == ERR_OK ? ERR_OK : ERR_NOT_FOUND)
        << c.len;
    EXPECT_EQ(value.len, c.expected == ERR_OK ? c.len : 7);
    EXPECT_EQ(value.str, c.expected == ERR_OK ? c.str : nullptr);
  }
}

TEST(IsValidField, ReachesTheFirstAndTheLastSlot) {
  Record record;
  for (int field = 0; field < 139; field += 1) {
    EXPECT_EQ(utils_is_valid_field(record.get(), field), ERR_FAILED) << field;
    utils_write_field_s(record.get(), field, "X");
    EXPECT_EQ(utils_is_valid_field(record.get(), field), ERR_OK) << field;
  }
}

TEST(IsValidField, AnswersNoOutsideTheSlotsAndWithoutARecord) {
  Record record;
  for (int field = 0; field < 139; field += 1)
    utils_write_field_s(record.get(), field, "X");
  for (const int field : {-1, 139, 140, 1000000, -1000000})
    EXPECT_EQ(utils_is_valid_field(record.get(), field), ERR_FAILED) << field;
  EXPECT_EQ(utils_is_valid_field(nullptr, 25), ERR_FAILED);
}

TEST(GetValidField, TakesTheFirstThatHoldsText) {
  struct Case {
    std::vector<int> filled;
    std::vector<int> asked;
    int expected; // the slot found, or -16
  };
  const Case cases[] = {
      {{4, 71}, {34, 4, 71}, 4},
      {{4, 71}, {71, 4, 34}, 71},
      {{4, 71}, {34, 70, 72}, ERR_NOT_FOUND},
      {{4, 71}, {4}, 4},
      {{4, 71}, {34}, ERR_NOT_FOUND},
      {{}, {34, 4, 71}, ERR_NOT_FOUND},
      {{34, 4, 71}, {34, 4, 71}, 34},
      {{138, 0}, {1, 138, 0}, 138},
      {{138, 0}, {0, 138}, 0},
      {{4}, {34, 34, 4}, 4},
  };
  for (const Case &c : cases) {
    Record record;
    for (const int field : c.filled)
      utils_write_field_s(record.get(), field, std::to_string(field).c_str());
    STRING value = {nullptr, 99};
    const int code =
        utils_get_valid_field(record.get(), c.asked.data(), static_cast<int>(c.asked.size()), &value);
    if (c.expected == ERR_NOT_FOUND) {
      EXPECT_EQ(code, ERR_NOT_FOUND);
      EXPECT_EQ(value.str, nullptr);
      EXPECT_EQ(value.len, 99);
    } else {
      EXPECT_EQ(code, ERR_OK);
      EXPECT_EQ(text(value), std::to_string(c.expected));
      EXPECT_EQ(value.str, record.slot(c.expected)->value.str);
    }
  }
}

TEST(GetValidField, LooksAtNoMoreSlotsThanCounted) {
  Record record;
  utils_write_field_s(record.get(), 71, "HERE");
  const int fields[] = {34, 4, 71};
  STRING value = {nullptr, 99};
  EXPECT_EQ(utils_get_valid_field(record.get(), fields, 2, &value), ERR_NOT_FOUND);
  EXPECT_EQ(utils_get_valid_field(record.get(), fields, 0, &value), ERR_NOT_FOUND);
  EXPECT_EQ(utils_get_valid_field(record.get(), fields, -1, &value), ERR_NOT_FOUND);
  EXPECT_EQ(utils_get_valid_field(record.get(), nullptr, 0, &value), ERR_NOT_FOUND);
  EXPECT_EQ(value.str, nullptr);
  EXPECT_EQ(value.len, 99);
  EXPECT_EQ(utils_get_valid_field(record.get(), fields, 3, &value), ERR_OK);
  EXPECT_EQ(text(value), "HERE");
}

TEST(GetValidField, PassesOverNumbersOutsideTheSlots) {
  Record record;
  utils_write_field_s(record.get(), 4, "HERE");
  const int fields[] = {-1, 139, 1000000, 4};
  STRING value = {nullptr, 99};
  EXPECT_EQ(utils_get_valid_field(record.get(), fields, 4, &value), ERR_OK);
  EXPECT_EQ(text(value), "HERE");
  EXPECT_EQ(utils_get_valid_field(nullptr, fields, 4, &value), ERR_NOT_FOUND);
}

} // namespace
