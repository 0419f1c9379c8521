/**
 * @file defines.h
 * @brief Shared types, slot numbers, parser identifiers and return codes.
 */
#ifndef VARNEL_DEFINES_H
#define VARNEL_DEFINES_H

#include <stddef.h>
#include <stdint.h>

/**
 * @defgroup varnel_types Types, slots and return codes
 * @brief What all modules share: plain records and integers, no ownership, no state.
 *
 * The layout of every record is part of the binary interface and stays as it is within a major version.
 * @{
 */

/**
 * Marks a symbol that the library exports; every other symbol stays hidden.
 *
 * On Windows a program that links the static library defines VARNEL_STATIC, and the library's own build
 * VARNEL_EXPORTS; CMake defines both where they are needed.
 */
#if defined(_WIN32) && defined(VARNEL_STATIC)
#define VARNEL_API
#elif defined(_WIN32) && defined(VARNEL_EXPORTS)
#define VARNEL_API __declspec(dllexport)
#elif defined(_WIN32)
#define VARNEL_API __declspec(dllimport)
#elif defined(__GNUC__)
#define VARNEL_API __attribute__((visibility("default")))
#else
#define VARNEL_API
#endif

#ifdef __cplusplus
/** Opens declarations with C linkage. */
#define VARNEL_BEGIN_DECLS extern "C" {
/** Closes declarations with C linkage. */
#define VARNEL_END_DECLS }
#else
#define VARNEL_BEGIN_DECLS
#define VARNEL_END_DECLS
#endif

/*
 * Types, constants and struct tags have a name with the prefix, and the short name that these pages use:
 * varnel_string and STRING, VARNEL_ERR_OK and ERR_OK, VARNEL_FIELD_SEX and FIELD_SEX. Where a short name is
 * another header's too (STRING and CONTEXT of windows.h, FIELD of form.h), define VARNEL_NO_SHORT_NAMES
 * before the first header of Varnel: then only the names with the prefix are declared. Functions and data
 * keep their one name either way, which is the linker's, and so does the layout of every record.
 */
#ifdef VARNEL_NO_SHORT_NAMES
#define VARNEL_TAG(short_name, name) name
#define VARNEL_CONSTANT(short_name, number) VARNEL_##short_name = number
#else
#define VARNEL_TAG(short_name, name) short_name
#define VARNEL_CONSTANT(short_name, number) VARNEL_##short_name = number, short_name = number
#endif

/**
 * Return codes. Status-returning functions give ERR_OK or one of the negative codes.
 */
enum {
  VARNEL_CONSTANT(ERR_OK, 0),               /**< success */
  VARNEL_CONSTANT(ERR_FAILED, -1),          /**< a yes/no query answered no */
  VARNEL_CONSTANT(ERR_NOT_FOUND, -16),      /**< none of the asked slots holds text */
  VARNEL_CONSTANT(ERR_INVALID_FORMAT, -20), /**< input of the wrong length, pattern or content */
  VARNEL_CONSTANT(ERR_INVALID_ARGS, -21)    /**< a null pointer, or a size that cannot be */
};

/**
 * The slots of a record: X(number, constant, meaning) for each slot that has a name. The constant is the
 * short name; the full name has VARNEL_ before it.
 *
 * The identifiers in brackets are data elements of the AAMVA DL/ID card design standard. One element
 * may go to different slots in the element tables of different versions (DBB to 11 or 78, DAQ to 6 or
 * 55, DCG to 56 or 125, DAU to 14 or 54, DAH to 30 or 58, DBN to 46 or 62, DBG to 40 or 63, DBS to 51
 * or 64); the twelve exported values read one slot of each of the first three pairs (78, 6, 125). The split
 * is deliberate. Slots without a name are reserved and stay empty.
 */
#define VARNEL_FIELDS(X)                                                                                     \
  X(1, FIELD_FULL_NAME, "full name in one string (DAA)")                                                     \
  X(2, FIELD_ADDRESS_STREET_1, "street address line 1 (DAG)")                                                \
  X(3, FIELD_ADDRESS_CITY, "city (DAI)")                                                                     \
  X(4, FIELD_ADDRESS_JURISDICTION, "jurisdiction code of the address (DAJ)")                                 \
  X(5, FIELD_ADDRESS_POSTAL_CODE, "postal code (DAK)")                                                       \
  X(6, FIELD_DOCUMENT_NUMBER, "document or licence number (MRZ document number; DAQ)")                       \
  X(7, FIELD_LICENSE_CLASS, "licence classification (DAR)")                                                  \
  X(8, FIELD_RESTRICTION_CODES, "restriction codes (DAS, DCB)")                                              \
  X(9, FIELD_ENDORSEMENT_CODES, "endorsement codes (DAT, DCD)")                                              \
  X(10, FIELD_EXPIRATION_DATE, "date of expiry, eight digits, year, month, day, from the MRZ (DBA)")         \
  X(11, FIELD_DATE_OF_BIRTH, "date of birth as the older maps place it (DBB)")                               \
  X(12, FIELD_SEX, "sex, \"M\" or \"F\" from the MRZ (DBC)")                                                 \
  X(13, FIELD_ISSUE_DATE, "date of issue (DBD)")                                                             \
  X(14, FIELD_HEIGHT_FT_IN, "height in feet and inches (DAU of 2D01)")                                       \
  X(15, FIELD_WEIGHT_LB, "weight in pounds (DAW)")                                                           \
  X(16, FIELD_EYE_COLOR, "eye colour (DAY)")                                                                 \
  X(17, FIELD_HAIR_COLOR, "hair colour (DAZ)")                                                               \
  X(18, FIELD_SOCIAL_SECURITY_NUMBER, "social security number (DBK)")                                        \
  X(19, FIELD_PERMIT_CLASS, "permit classification (PAA)")                                                   \
  X(20, FIELD_PERMIT_EXPIRATION_DATE, "permit expiry (PAB)")                                                 \
  X(21, FIELD_PERMIT_NUMBER, "permit identifier (PAC)")                                                      \
  X(22, FIELD_PERMIT_ISSUE_DATE, "permit issue date (PAD)")                                                  \
  X(23, FIELD_PERMIT_RESTRICTIONS, "permit restriction codes (PAE)")                                         \
  X(24, FIELD_PERMIT_ENDORSEMENTS, "permit endorsement codes (PAF)")                                         \
  X(25, FIELD_FAMILY_NAME, "family name; the MRZ primary identifier (DAB, DCS)")                             \
  X(26, FIELD_FIRST_NAME, "first given name (DAC)")                                                          \
  X(27, FIELD_MIDDLE_NAME, "further given names (DAD)")                                                      \
  X(28, FIELD_NAME_SUFFIX, "name suffix (DAE, DCU)")                                                         \
  X(29, FIELD_NAME_PREFIX, "name prefix (DAF)")                                                              \
  X(30, FIELD_MAILING_STREET_2, "mailing street line 2 (DAH of 2D01)")                                       \
  X(31, FIELD_RESIDENCE_STREET_1, "residence street line 1 (DAL)")                                           \
  X(32, FIELD_RESIDENCE_STREET_2, "residence street line 2 (DAM)")                                           \
  X(33, FIELD_RESIDENCE_CITY, "residence city (DAN)")                                                        \
  X(34, FIELD_RESIDENCE_JURISDICTION, "residence jurisdiction code (DAO)")                                   \
  X(35, FIELD_RESIDENCE_POSTAL_CODE, "residence postal code (DAP)")                                          \
  X(36, FIELD_HEIGHT_CM, "height in centimetres (DAV)")                                                      \
  X(37, FIELD_WEIGHT_KG, "weight in kilograms (DAX)")                                                        \
  X(38, FIELD_ISSUE_TIMESTAMP, "issue timestamp (DBE)")                                                      \
  X(39, FIELD_DUPLICATE_COUNT, "number of duplicates (DBF)")                                                 \
  X(40, FIELD_MEDICAL_CODES, "medical indicator codes (DBG of 2D01)")                                        \
  X(41, FIELD_ORGAN_DONOR, "organ donor indicator (DBH, DDK)")                                               \
  X(42, FIELD_NON_RESIDENT, "non-resident indicator (DBI)")                                                  \
  X(43, FIELD_CUSTOMER_ID, "unique customer identifier (DBJ)")                                               \
  X(44, FIELD_AKA_DATE_OF_BIRTH, "alias date of birth (DBL)")                                                \
  X(45, FIELD_AKA_SOCIAL_SECURITY_NUMBER, "alias social security number (DBM)")                              \
  X(46, FIELD_AKA_FULL_NAME, "alias full name (DBN of 2D01)")                                                \
  X(47, FIELD_AKA_FAMILY_NAME, "alias last name (DBO)")                                                      \
  X(48, FIELD_AKA_FIRST_NAME, "alias first name (DBP)")                                                      \
  X(49, FIELD_AKA_MIDDLE_NAME, "alias middle name (DBQ)")                                                    \
  X(50, FIELD_AKA_SUFFIX, "alias suffix (DBR)")                                                              \
  X(51, FIELD_AKA_PREFIX, "alias prefix (DBS of 2D01)")                                                      \
  X(52, FIELD_VEHICLE_CLASS, "jurisdiction vehicle class (DCA)")                                             \
  X(53, FIELD_GIVEN_NAMES, "given names in one string (DCT)")                                                \
  X(54, FIELD_HEIGHT, "height (DAU of 2D03 and later)")                                                      \
  X(55, FIELD_PERSONAL_NUMBER,                                                                               \
    "personal number or optional data (TD3 line 2, characters 28 to 41; DAQ of 2D03)")                       \
  X(56, FIELD_COUNTRY_ID, "country identification (DCG of 2D03)")                                            \
  X(57, FIELD_FEDERAL_VEHICLE_CODES, "federal commercial vehicle codes (DCH)")                               \
  X(58, FIELD_ADDRESS_STREET_2, "street address line 2 (DAH of 2D03 and later)")                             \
  X(59, FIELD_PLACE_OF_BIRTH, "place of birth (DCI)")                                                        \
  X(60, FIELD_AUDIT_INFO, "audit information (DCJ)")                                                         \
  X(61, FIELD_INVENTORY_CONTROL, "inventory control number (DCK)")                                           \
  X(62, FIELD_ALIAS_FAMILY_NAME, "alias family name (DBN of 2D03 and later)")                                \
  X(63, FIELD_ALIAS_GIVEN_NAME, "alias given name (DBG of 2D03 and later)")                                  \
  X(64, FIELD_ALIAS_SUFFIX, "alias suffix (DBS of 2D03 and later)")                                          \
  X(65, FIELD_WEIGHT_RANGE, "weight range (DCE)")                                                            \
  X(66, FIELD_RACE_ETHNICITY, "race or ethnicity (DCL)")                                                     \
  X(67, FIELD_STD_VEHICLE_CLASS, "standard vehicle classification (DCM)")                                    \
  X(68, FIELD_STD_ENDORSEMENT, "standard endorsement code (DCN)")                                            \
  X(69, FIELD_STD_RESTRICTION, "standard restriction code (DCO)")                                            \
  X(70, FIELD_VEHICLE_CLASS_DESC, "vehicle class description (DCP)")                                         \
  X(71, FIELD_ENDORSEMENT_DESC, "endorsement description (DCQ)")                                             \
  X(72, FIELD_RESTRICTION_DESC, "restriction description (DCR)")                                             \
  X(73, FIELD_DOCUMENT_DISCRIMINATOR, "document discriminator (DCF)")                                        \
  X(75, FIELD_FAMILY_NAME_TRUNCATION, "family name truncation flag (DDE)")                                   \
  X(76, FIELD_FIRST_NAME_TRUNCATION, "first name truncation flag (DDF)")                                     \
  X(77, FIELD_MIDDLE_NAME_TRUNCATION, "middle name truncation flag (DDG)")                                   \
  X(78, FIELD_BIRTH_DATE,                                                                                    \
    "date of birth, eight digits, year, month, day, from the MRZ (DBB of 2D06 and 2D08)")                    \
  X(79, FIELD_COMPLIANCE_TYPE, "compliance type (DDA)")                                                      \
  X(80, FIELD_CARD_REVISION_DATE, "card revision date (DDB)")                                                \
  X(81, FIELD_HAZMAT_EXPIRATION_DATE, "hazardous-material endorsement expiry (DDC)")                         \
  X(82, FIELD_LIMITED_DURATION, "limited-duration document indicator (DDD)")                                 \
  X(83, FIELD_UNDER_18_UNTIL, "under 18 until (DDH)")                                                        \
  X(84, FIELD_UNDER_19_UNTIL, "under 19 until (DDI)")                                                        \
  X(85, FIELD_UNDER_21_UNTIL, "under 21 until (DDJ)")                                                        \
  X(87, FIELD_DOCUMENT_TYPE, "\"PASSPORT\" (TD3) or \"TD\" (TD1, TD2 and visa)")                             \
  X(125, FIELD_COUNTRY_CODE,                                                                                 \
    "issuing state or country code (MRZ issuing state; DCG of 2D04_HAWAII, 2D06, 2D08)")                     \
  X(126, FIELD_VETERAN, "veteran indicator (DDL)")                                                           \
  X(138, FIELD_NATIONALITY, "nationality (MRZ)")

/** Slot numbers: FIELD_FULL_NAME and so on, from the list VARNEL_FIELDS. */
enum {
#define VARNEL_PREFIXED_CONSTANT(number, constant, meaning) VARNEL_##constant = number,
  VARNEL_FIELDS(VARNEL_PREFIXED_CONSTANT)
#undef VARNEL_PREFIXED_CONSTANT
#ifndef VARNEL_NO_SHORT_NAMES
#define VARNEL_FIELD_CONSTANT(number, constant, meaning) constant = number,
      VARNEL_FIELDS(VARNEL_FIELD_CONSTANT)
#undef VARNEL_FIELD_CONSTANT
#endif
          VARNEL_CONSTANT(FIELD_COUNT, 139) /**< slots in a record, numbered 0 to 138 */
};

/** Families of parsers. Of these, the library has PARSER_TYPE_MRZ; the numbers of the others are reserved. */
typedef enum VARNEL_TAG(_EPARSER_TYPE, varnel_parser_type) {
  VARNEL_CONSTANT(PARSER_TYPE_AamvaPDF417, 0),
  VARNEL_CONSTANT(PARSER_TYPE_AamvaMagneticStripe, 1),
  VARNEL_CONSTANT(PARSER_TYPE_HealthCard, 2),
  VARNEL_CONSTANT(PARSER_TYPE_CAC, 3),
  VARNEL_CONSTANT(PARSER_TYPE_CountrySpecial, 4),
  VARNEL_CONSTANT(PARSER_TYPE_MRZ, 5),
  VARNEL_CONSTANT(PARSER_TYPE_MAX, 6) /**< none; what every record of this library holds */
} varnel_parser_type;

/** Concrete parsers. Of these, the library has the four PARSER_MRZ_*; the numbers of the others are reserved.
 */
typedef enum VARNEL_TAG(_EPARSER, varnel_parser) {
  VARNEL_CONSTANT(PARSER_STRIPE01_1T, 0),
  VARNEL_CONSTANT(PARSER_STRIPE01_2T, 1),
  VARNEL_CONSTANT(PARSER_STRIPE01_3T, 2),
  VARNEL_CONSTANT(PARSER_STRIPE01_3TR, 3),
  VARNEL_CONSTANT(PARSER_STRIPE011_3T, 4),
  VARNEL_CONSTANT(PARSER_STRIPE0110_3T, 5),
  VARNEL_CONSTANT(PARSER_STRIPE012_3T, 6),
  VARNEL_CONSTANT(PARSER_STRIPE013_3T, 7),
  VARNEL_CONSTANT(PARSER_STRIPE014_3T, 8),
  VARNEL_CONSTANT(PARSER_STRIPE015_3T, 9),
  VARNEL_CONSTANT(PARSER_STRIPE016_1T, 10),
  VARNEL_CONSTANT(PARSER_STRIPE017_2T, 11),
  VARNEL_CONSTANT(PARSER_STRIPE018_3T, 12),
  VARNEL_CONSTANT(PARSER_STRIPE019_3T, 13),
  VARNEL_CONSTANT(PARSER_STRIPE020_1T, 14),
  VARNEL_CONSTANT(PARSER_STRIPE_AUSTRALIAN01_1T, 15),
  VARNEL_CONSTANT(PARSER_STRIPE_OH01_1T, 16),
  VARNEL_CONSTANT(PARSER_V01, 17),
  VARNEL_CONSTANT(PARSER_V01_1, 18),
  VARNEL_CONSTANT(PARSER_V01_2, 19),
  VARNEL_CONSTANT(PARSER_V01_AAMVA36, 20),
  VARNEL_CONSTANT(PARSER_V01_AAMVA36_1, 21),
  VARNEL_CONSTANT(PARSER_V01_AAMVA36_NC, 22),
  VARNEL_CONSTANT(PARSER_V01_AAMVA630, 23),
  VARNEL_CONSTANT(PARSER_V01_AAMVA10_AR, 24),
  VARNEL_CONSTANT(PARSER_V01_WORS, 25),
  VARNEL_CONSTANT(PARSER_V01_CAN, 26),
  VARNEL_CONSTANT(PARSER_V01_AB, 27),
  VARNEL_CONSTANT(PARSER_V02, 28),
  VARNEL_CONSTANT(PARSER_V02_WOJC, 29),
  VARNEL_CONSTANT(PARSER_V03, 30),
  VARNEL_CONSTANT(PARSER_V03_WORS, 31),
  VARNEL_CONSTANT(PARSER_V03_AB, 32),
  VARNEL_CONSTANT(PARSER_V03_1_AB, 33),
  VARNEL_CONSTANT(PARSER_V03_2_AB, 34),
  VARNEL_CONSTANT(PARSER_V03_SL, 35),
  VARNEL_CONSTANT(PARSER_V04_GENERIC, 36),
  VARNEL_CONSTANT(PARSER_V04_1, 37),
  VARNEL_CONSTANT(PARSER_V05_GENERIC, 38),
  VARNEL_CONSTANT(PARSER_V05_SA, 39),
  VARNEL_CONSTANT(PARSER_V06, 40),
  VARNEL_CONSTANT(PARSER_V08, 41),
  VARNEL_CONSTANT(PARSER_V08_1, 42),
  VARNEL_CONSTANT(PARSER_V08_2_ND, 43),
  VARNEL_CONSTANT(PARSER_V03_CAN, 44),
  VARNEL_CONSTANT(PARSER_V08_KBD, 45),
  VARNEL_CONSTANT(PARSER_HEALTH_V2009_2D, 46),
  VARNEL_CONSTANT(PARSER_HEALTH_V2009_3T, 47),
  VARNEL_CONSTANT(PARSER_CAC_1, 48),
  VARNEL_CONSTANT(PARSER_CAC_N, 49),
  VARNEL_CONSTANT(PARSER_CAC_DEPENDANT, 50),
  VARNEL_CONSTANT(PARSER_CAC_SPONSOR, 51),
  VARNEL_CONSTANT(PARSER_CAC_CIVIL, 52),
  VARNEL_CONSTANT(PARSER_CS_GTM_1, 53),
  VARNEL_CONSTANT(PARSER_CS_PRI_2D, 54),
  VARNEL_CONSTANT(PARSER_CS_PAN_2D, 55),
  VARNEL_CONSTANT(PARSER_CS_ZAF_2D, 56),
  VARNEL_CONSTANT(PARSER_CS_MATRICULA_1, 57),
  VARNEL_CONSTANT(PARSER_CS_MATRICULA_2, 58),
  VARNEL_CONSTANT(PARSER_CS_VI_2D_SEP, 59),
  VARNEL_CONSTANT(PARSER_CS_VI_2D_SEP2, 60),
  VARNEL_CONSTANT(PARSER_MRZ_PASSPORT, 61),
  VARNEL_CONSTANT(PARSER_MRZ_TD1, 62),
  VARNEL_CONSTANT(PARSER_MRZ_TD2, 63),
  VARNEL_CONSTANT(PARSER_MRZ_VISA, 64),
  VARNEL_CONSTANT(PARSER_MAX, 65) /**< none; what every record of this library holds */
} varnel_parser;

/** The layouts of machine-readable zones: ICAO Doc 9303, and a national one that only Varnel Documents reads.
 */
enum {
  VARNEL_LAYOUT_NONE = 0,  /**< no layout */
  VARNEL_LAYOUT_TD1 = 1,   /**< card, 3 lines of 30 (Doc 9303-5) */
  VARNEL_LAYOUT_TD2 = 2,   /**< card, 2 lines of 36 (Doc 9303-6) */
  VARNEL_LAYOUT_TD3 = 3,   /**< passport, 2 lines of 44 (Doc 9303-4) */
  VARNEL_LAYOUT_MRV_A = 4, /**< visa, 2 lines of 44 (Doc 9303-7) */
  VARNEL_LAYOUT_MRV_B = 5, /**< visa, 2 lines of 36 (Doc 9303-7) */
  VARNEL_LAYOUT_FRA_ID = 6 /**< French identity card issued until 2021, 2 lines of 36 */
};

/** A view of text that belongs to somebody else. Empty when `len` < 1 or `str` is null. */
typedef struct VARNEL_TAG(_STRING, varnel_string) {
  const char *str; /**< first character, not necessarily NUL-terminated; may be null */
  int len;         /**< number of characters (bytes) */
} varnel_string;

/** One slot of a record; empty is {null, 0}. */
typedef struct VARNEL_TAG(_FIELD, varnel_field) {
  varnel_string value; /**< the slot's text, inside the record's buffer */
} varnel_field;

/**
 * The result of a parse: 139 slots whose texts all lie in one buffer that the caller lends.
 *
 * The record owns nothing. It is made usable by result_init(), filled by the layout parsers and the
 * field writers, and emptied by result_clear(). 0 <= data_size <= buffer_size always holds, and every
 * filled slot points inside buffer[0 .. data_size). Text is only ever appended: rewriting a slot leaves
 * its old text in the buffer as dead space. While one thread writes to a record, no other may use it.
 */
typedef struct VARNEL_TAG(_PARSE_RESULT, varnel_parse_result) {
  varnel_parser_type parser_type;          /**< PARSER_TYPE_MAX: no parser sets it */
  varnel_parser parser;                    /**< PARSER_MAX: no parser sets it */
  varnel_field fields[VARNEL_FIELD_COUNT]; /**< the slots, indexed by slot number */
  char *buffer;                            /**< the caller's buffer; slot texts lie in it */
  int buffer_size;                         /**< capacity of `buffer` in bytes */
  int data_size;                           /**< bytes of `buffer` used so far */
} varnel_parse_result;

/** A date and time of day. The MRZ parsers carry the time of day without using it. */
typedef struct VARNEL_TAG(_DATETIME, varnel_datetime) {
  int year;  /**< four-digit year */
  int month; /**< 1 to 12 */
  int day;   /**< 1 to 31 */
  int hr;    /**< 0 to 23 */
  int min;   /**< 0 to 59 */
  int sec;   /**< 0 to 59 */
} varnel_datetime;

/** What a layout parser gets beside the text. */
typedef struct VARNEL_TAG(_CONTEXT, varnel_context) {
  varnel_datetime date; /**< reference date; only its year is read, to place two-digit years in a century */
} varnel_context;

/**
 * A character test: gets one character sign-extended from a signed char (so bytes 0x80 to 0xFF arrive
 * as -128 to -1) and returns non-zero for yes.
 *
 * While it runs it may read and write any record or buffer, also the one that the calling function writes
 * to: the record then stays whole (see ::_t_writer_func), and what the texts say is the caller's doing. It
 * must not free memory that the calling function reads from or writes to. It may leave by an exception or
 * by longjmp(): the calling function keeps nothing, and a record that it was to write to is unchanged by it.
 * Exceptions need the library's sources compiled with unwind tables for what calls the predicate, as its own
 * build does with GCC and clang.
 */
typedef int (*varnel_predicate_func)(int c);

/**
 * A caller's own writer for utils_write_field_w(): writes at most `o_len` characters to `out` and
 * returns how many it wrote; 0 or less means nothing. `data` is passed through untouched.
 *
 * What it may do is what a predicate may do. If it uses the record that it writes for:
 *
 * - **It writes other slots**: they begin where its own text begins, at `out`, so that the texts overlap. Its
 *   slot is set to `out` all the same, and `data_size` grows by both, as far as the buffer goes.
 * - **It clears the record**: its slot is set to `out`, and everything up to its end counts as used.
 * - **It lends the record another buffer**: its slot is cut to what lies in that buffer, and empty when
 *   nothing does.
 */
typedef int (*varnel_writer_func)(void *data, char *out, int o_len);

#ifndef VARNEL_NO_SHORT_NAMES
typedef varnel_parser_type EPARSER_TYPE;         /**< varnel_parser_type, in short */
typedef varnel_parser EPARSER;                   /**< varnel_parser, in short */
typedef varnel_string STRING;                    /**< varnel_string, in short */
typedef varnel_field FIELD;                      /**< varnel_field, in short */
typedef varnel_parse_result PARSE_RESULT;        /**< varnel_parse_result, in short */
typedef varnel_datetime DATETIME;                /**< varnel_datetime, in short */
typedef varnel_context CONTEXT;                  /**< varnel_context, in short */
typedef varnel_predicate_func _t_predicate_func; /**< varnel_predicate_func, in short */
typedef varnel_writer_func _t_writer_func;       /**< varnel_writer_func, in short */
#endif

/** @} */

#endif
