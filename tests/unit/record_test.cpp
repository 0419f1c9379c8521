// The record: its layout in memory, its numbers, its life, and the questions put to its slots.
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support.hpp"

#include "../gates/layout.c" // the layout in memory: that it compiles is the test

using namespace support;

namespace {

TEST(Layout, CountsAndEnumerationsHave32Bits) {
  static_assert(std::is_same_v<decltype(STRING::len), int> && sizeof(int) == 4);
  static_assert(std::is_same_v<decltype(PARSE_RESULT::buffer_size), int>);
  static_assert(std::is_same_v<decltype(PARSE_RESULT::data_size), int>);
  // Compilers differ in whether an enumeration without negative values is signed, not in how wide it is.
  static_assert(sizeof(EPARSER_TYPE) == sizeof(int) && sizeof(EPARSER) == sizeof(int));
  static_assert(sizeof(EPARSER_TYPE) == 4 && sizeof(EPARSER) == 4);
  EXPECT_EQ(sizeof(PARSE_RESULT::fields) / sizeof(FIELD), 139U);
}

// ---- numbers ----------------------------------------------------------------------------------------

// Constants whose numbers follow one another, from the first.
template <class... Constants> std::vector<int> following(int first, Constants... constants) {
  const std::vector<int> all = {constants...};
  for (std::size_t i = 0; i < all.size(); i += 1)
    EXPECT_EQ(all[i], first + static_cast<int>(i));
  return all;
}

TEST(Numbers, EverySlotConstantAndNoOthersInTheListOfSlots) {
  std::vector<int> numbers, constants;
#define ROW(number, constant, meaning) (numbers.push_back(number), constants.push_back(constant));
  VARNEL_FIELDS(ROW)
#undef ROW
  std::vector<int> expected;
  for (const std::vector<int> &run :
       {following(1, FIELD_FULL_NAME, FIELD_ADDRESS_STREET_1, FIELD_ADDRESS_CITY, FIELD_ADDRESS_JURISDICTION,
                  FIELD_ADDRESS_POSTAL_CODE, FIELD_DOCUMENT_NUMBER, FIELD_LICENSE_CLASS,
                  FIELD_RESTRICTION_CODES, FIELD_ENDORSEMENT_CODES, FIELD_EXPIRATION_DATE,
                  FIELD_DATE_OF_BIRTH, FIELD_SEX, FIELD_ISSUE_DATE, FIELD_HEIGHT_FT_IN, FIELD_WEIGHT_LB,
                  FIELD_EYE_COLOR, FIELD_HAIR_COLOR, FIELD_SOCIAL_SECURITY_NUMBER, FIELD_PERMIT_CLASS,
                  FIELD_PERMIT_EXPIRATION_DATE, FIELD_PERMIT_NUMBER, FIELD_PERMIT_ISSUE_DATE,
                  FIELD_PERMIT_RESTRICTIONS, FIELD_PERMIT_ENDORSEMENTS, FIELD_FAMILY_NAME, FIELD_FIRST_NAME,
                  FIELD_MIDDLE_NAME, FIELD_NAME_SUFFIX, FIELD_NAME_PREFIX, FIELD_MAILING_STREET_2,
                  FIELD_RESIDENCE_STREET_1, FIELD_RESIDENCE_STREET_2, FIELD_RESIDENCE_CITY,
                  FIELD_RESIDENCE_JURISDICTION, FIELD_RESIDENCE_POSTAL_CODE, FIELD_HEIGHT_CM, FIELD_WEIGHT_KG,
                  FIELD_ISSUE_TIMESTAMP, FIELD_DUPLICATE_COUNT, FIELD_MEDICAL_CODES, FIELD_ORGAN_DONOR,
                  FIELD_NON_RESIDENT, FIELD_CUSTOMER_ID, FIELD_AKA_DATE_OF_BIRTH,
                  FIELD_AKA_SOCIAL_SECURITY_NUMBER, FIELD_AKA_FULL_NAME, FIELD_AKA_FAMILY_NAME,
                  FIELD_AKA_FIRST_NAME, FIELD_AKA_MIDDLE_NAME, FIELD_AKA_SUFFIX, FIELD_AKA_PREFIX,
                  FIELD_VEHICLE_CLASS, FIELD_GIVEN_NAMES, FIELD_HEIGHT, FIELD_PERSONAL_NUMBER,
                  FIELD_COUNTRY_ID, FIELD_FEDERAL_VEHICLE_CODES, FIELD_ADDRESS_STREET_2, FIELD_PLACE_OF_BIRTH,
                  FIELD_AUDIT_INFO, FIELD_INVENTORY_CONTROL, FIELD_ALIAS_FAMILY_NAME, FIELD_ALIAS_GIVEN_NAME,
                  FIELD_ALIAS_SUFFIX, FIELD_WEIGHT_RANGE, FIELD_RACE_ETHNICITY, FIELD_STD_VEHICLE_CLASS,
                  FIELD_STD_ENDORSEMENT, FIELD_STD_RESTRICTION, FIELD_VEHICLE_CLASS_DESC,
                  FIELD_ENDORSEMENT_DESC, FIELD_RESTRICTION_DESC, FIELD_DOCUMENT_DISCRIMINATOR),
        following(75, FIELD_FAMILY_NAME_TRUNCATION, FIELD_FIRST_NAME_TRUNCATION, FIELD_MIDDLE_NAME_TRUNCATION,
                  FIELD_BIRTH_DATE, FIELD_COMPLIANCE_TYPE, FIELD_CARD_REVISION_DATE,
                  FIELD_HAZMAT_EXPIRATION_DATE, FIELD_LIMITED_DURATION, FIELD_UNDER_18_UNTIL,
                  FIELD_UNDER_19_UNTIL, FIELD_UNDER_21_UNTIL),
        following(87, FIELD_DOCUMENT_TYPE), following(125, FIELD_COUNTRY_CODE, FIELD_VETERAN),
        following(138, FIELD_NATIONALITY)})
    expected.insert(expected.end(), run.begin(), run.end());
  EXPECT_EQ(numbers, expected);
  EXPECT_EQ(constants, expected);
}

TEST(Numbers, EveryParserFamilyAndEveryParser) {
  following(0, PARSER_TYPE_AamvaPDF417, PARSER_TYPE_AamvaMagneticStripe, PARSER_TYPE_HealthCard,
            PARSER_TYPE_CAC, PARSER_TYPE_CountrySpecial, PARSER_TYPE_MRZ, PARSER_TYPE_MAX);
  following(0, PARSER_STRIPE01_1T, PARSER_STRIPE01_2T, PARSER_STRIPE01_3T, PARSER_STRIPE01_3TR,
            PARSER_STRIPE011_3T, PARSER_STRIPE0110_3T, PARSER_STRIPE012_3T, PARSER_STRIPE013_3T,
            PARSER_STRIPE014_3T, PARSER_STRIPE015_3T, PARSER_STRIPE016_1T, PARSER_STRIPE017_2T,
            PARSER_STRIPE018_3T, PARSER_STRIPE019_3T, PARSER_STRIPE020_1T, PARSER_STRIPE_AUSTRALIAN01_1T,
            PARSER_STRIPE_OH01_1T, PARSER_V01, PARSER_V01_1, PARSER_V01_2, PARSER_V01_AAMVA36,
            PARSER_V01_AAMVA36_1, PARSER_V01_AAMVA36_NC, PARSER_V01_AAMVA630, PARSER_V01_AAMVA10_AR,
            PARSER_V01_WORS, PARSER_V01_CAN, PARSER_V01_AB, PARSER_V02, PARSER_V02_WOJC, PARSER_V03,
            PARSER_V03_WORS, PARSER_V03_AB, PARSER_V03_1_AB, PARSER_V03_2_AB, PARSER_V03_SL,
            PARSER_V04_GENERIC, PARSER_V04_1, PARSER_V05_GENERIC, PARSER_V05_SA, PARSER_V06, PARSER_V08,
            PARSER_V08_1, PARSER_V08_2_ND, PARSER_V03_CAN, PARSER_V08_KBD, PARSER_HEALTH_V2009_2D,
            PARSER_HEALTH_V2009_3T, PARSER_CAC_1, PARSER_CAC_N, PARSER_CAC_DEPENDANT, PARSER_CAC_SPONSOR,
            PARSER_CAC_CIVIL, PARSER_CS_GTM_1, PARSER_CS_PRI_2D, PARSER_CS_PAN_2D, PARSER_CS_ZAF_2D,
            PARSER_CS_MATRICULA_1, PARSER_CS_MATRICULA_2, PARSER_CS_VI_2D_SEP, PARSER_CS_VI_2D_SEP2,
            PARSER_MRZ_PASSPORT, PARSER_MRZ_TD1, PARSER_MRZ_TD2, PARSER_MRZ_VISA, PARSER_MAX);
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
