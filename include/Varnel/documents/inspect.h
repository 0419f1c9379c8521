/**
 * @file documents/inspect.h
 * @brief Inspecting a zone: every field with its status, every check digit, and a verdict on the whole.
 */
#ifndef VARNEL_DOCUMENTS_INSPECT_H
#define VARNEL_DOCUMENTS_INSPECT_H

#include <Varnel/documents/defines.h>

#include <stddef.h>
#include <stdint.h>

/**
 * @defgroup varnel_inspect Inspecting a document
 * @brief Is it right, and if not, where?
 *
 * Nothing is lost to one bad field: where a zone is recognised, every field is delivered with its own
 * status, and the whole has a verdict.
 * @{
 */

VARNEL_BEGIN_DECLS

/** How far characters may be changed. */
enum {
  VARNEL_REPAIR_OFF = 0,     /**< not at all: the zone is taken as it was read */
  VARNEL_REPAIR_COLUMNS = 1, /**< where a column's kind or a filler leaves one way */
  VARNEL_REPAIR_DIGITS = 2   /**< as columns, and numbers where one look-alike alone makes the digit hold */
};

/** Verdicts on a document. */
enum {
  VARNEL_VERDICT_REFUSED = 0,  /**< no zone was recognised */
  VARNEL_VERDICT_DOUBTFUL = 1, /**< a zone, with findings */
  VARNEL_VERDICT_VALID = 2,    /**< no finding, characters as read */
  VARNEL_VERDICT_REPAIRED = 3, /**< no finding after the listed changes */
  VARNEL_VERDICT_VOTED = 4     /**< no finding, a zone combined from several looks that no single one shows */
};

/** The status of a field: the first that fits. */
enum {
  VARNEL_STATUS_EMPTY = 0,          /**< fillers only */
  VARNEL_STATUS_BAD_CHARACTERS = 1, /**< characters that cannot stand there; no value */
  VARNEL_STATUS_NOT_A_DATE = 2,     /**< digits that are no day of the calendar; no value */
  VARNEL_STATUS_UNKNOWN = 3,        /**< a code or state that is not listed; the value is kept */
  VARNEL_STATUS_CHECK_FAILED = 4,   /**< the check digit does not agree; the value is kept */
  VARNEL_STATUS_OK = 5
};

/** What confirms a value. */
enum {
  VARNEL_PROOF_NONE = 0,      /**< nothing: names, sex, document code; anything empty or failing */
  VARNEL_PROOF_LIST = 1,      /**< a listed state */
  VARNEL_PROOF_COMPOSITE = 2, /**< optional data under a composite that holds */
  VARNEL_PROOF_DIGIT = 3,     /**< its own check digit */
  VARNEL_PROOF_DIGITS = 4     /**< its own check digit and the composite */
};

/** Codes of findings and notices. X(constant, name in JSON). */
#define VARNEL_FINDINGS(X)                                                                                   \
  X(VARNEL_FINDING_EMPTY, "empty")                                                                           \
  X(VARNEL_FINDING_BAD_CHARACTERS, "badCharacters")                                                          \
  X(VARNEL_FINDING_NOT_A_DATE, "notADate")                                                                   \
  X(VARNEL_FINDING_UNKNOWN, "unknown")                                                                       \
  X(VARNEL_FINDING_CHECK_FAILED, "checkFailed")                                                              \
  X(VARNEL_FINDING_DATES_ORDER, "datesOrder")                                                                \
  X(VARNEL_FINDING_UNPROVEN, "unproven")                                                                     \
  X(VARNEL_FINDING_LOOKS_DIFFER, "looksDiffer")                                                              \
  X(VARNEL_FINDING_LENGTH, "length")                                                                         \
  X(VARNEL_FINDING_NO_ZONE, "noZone")                                                                        \
  X(VARNEL_NOTICE_DIGIT_IN_CODE, "digitInCode")                                                              \
  X(VARNEL_NOTICE_CODE_NOT_ALLOWED, "codeNotAllowed")                                                        \
  X(VARNEL_NOTICE_CODE_NOT_LISTED, "codeNotListed")                                                          \
  X(VARNEL_NOTICE_NATIONAL_LETTERS, "nationalLetters")                                                       \
  X(VARNEL_NOTICE_SEX_X, "sexX")                                                                             \
  X(VARNEL_NOTICE_FILLER_DIGIT, "fillerDigit")                                                               \
  X(VARNEL_NOTICE_DROPPED, "dropped")

/** Findings and notices by number. */
enum {
  VARNEL_FINDING_NONE = 0,
#define VARNEL_FINDING_CONSTANT(constant, name) constant,
  VARNEL_FINDINGS(VARNEL_FINDING_CONSTANT)
#undef VARNEL_FINDING_CONSTANT
      VARNEL_FINDING_END /**< one more than the last finding or notice */
};

/** Reasons of changes. */
enum {
  VARNEL_CHANGE_CLASS = 1,  /**< a digit where only letters stand, or the reverse */
  VARNEL_CHANGE_FILLER = 2, /**< a filler that was read as a letter, lost or doubled */
  VARNEL_CHANGE_DIGIT = 3,  /**< the one look-alike that makes a number's digit hold */
  VARNEL_CHANGE_TWIN = 4    /**< a character that was read twice */
};

/** Rules by which the digit of a number holds. */
enum {
  VARNEL_RULE_NONE = 0,  /**< the layout's own digit */
  VARNEL_RULE_PLAIN = 1, /**< a long number, the filler in the digit's column left out */
  VARNEL_RULE_FILLER = 2 /**< a long number, the filler counted in its place */
};

/** Sizes. */
enum {
  VARNEL_TEXT_MAX = 65536,      /**< bytes of a text that can be inspected */
  VARNEL_INSPECTED_FIELDS = 11, /**< fields of a layout, at most */
  VARNEL_CHECKS = 5,            /**< check digits of a layout, at most */
  VARNEL_CHANGES = 96,          /**< changes that a record holds */
  VARNEL_INSPECTION_FINDINGS = 24,
  VARNEL_INSPECTION_NOTICES = 16
};

/** What an inspection needs beside the text. */
typedef struct varnel_inspect_options {
  int year;   /**< the reference date: dates of birth are not after it */
  int month;  /**< 1 to 12 */
  int day;    /**< 1 to 31; the date must exist */
  int repair; /**< VARNEL_REPAIR_OFF, _COLUMNS or _DIGITS */
} varnel_inspect_options;

/** A stretch of the input: bytes from `start` to before `end`. */
typedef struct varnel_source {
  uint32_t start; /**< of the first byte */
  uint32_t end;   /**< of the first byte after it */
} varnel_source;

/** A field of the zone. */
typedef struct varnel_inspected_field {
  uint8_t field;        /**< VARNEL_DOCUMENT_CODE and so on */
  uint8_t status;       /**< VARNEL_STATUS_… */
  uint8_t proof;        /**< VARNEL_PROOF_… */
  uint8_t line;         /**< from 0 */
  uint8_t column;       /**< from 0 */
  uint8_t has_value;    /**< 0: no value (null in JSON) */
  uint8_t truncated;    /**< names: 1 where the name may have been cut */
  uint8_t month;        /**< dates: 1 to 12, 0 where unknown or without value */
  uint8_t day;          /**< dates: 1 to 31, 0 where unknown or without value */
  int16_t year;         /**< dates: four digits, 0 where unknown or without value */
  varnel_source source; /**< where it stands in the input; 0 to 0 in a zone combined from several looks */
  char text[VARNEL_ZONE_WIDTH + 1];  /**< its columns as they stand, NUL-terminated */
  char value[VARNEL_ZONE_WIDTH + 1]; /**< its value, NUL-terminated; empty without one */
  uint8_t text_length;               /**< characters in `text` */
  uint8_t value_length;              /**< characters in `value` */
} varnel_inspected_field;

/** A check digit of the zone. */
typedef struct varnel_check {
  uint8_t field;  /**< the field that it covers, or VARNEL_COMPOSITE */
  uint8_t line;   /**< its line, from 0 */
  uint8_t column; /**< its column, from 0 */
  uint8_t holds;  /**< 1 where it agrees */
  uint8_t rule;   /**< VARNEL_RULE_… */
  char found;     /**< the character that stands there */
  char expected;  /**< the digit computed */
} varnel_check;

/** A change of a character. */
typedef struct varnel_change {
  uint8_t line;   /**< place in the zone, from 0 */
  uint8_t column; /**< and in its line, from 0 */
  uint8_t reason; /**< VARNEL_CHANGE_… */
  char from[5];   /**< UTF-8, NUL-terminated; empty where nothing stood */
  char to[2];     /**< NUL-terminated; empty where nothing stands now */
} varnel_change;

/** A finding or a notice. */
typedef struct varnel_finding {
  uint8_t code;  /**< VARNEL_FINDING_… or VARNEL_NOTICE_… */
  uint8_t field; /**< the field, or VARNEL_FIELD_NONE */
  int8_t line;   /**< from 0, or -1 */
  int8_t column; /**< from 0, or -1 */
} varnel_finding;

/** An inspected document: a plain value that owns its text. */
typedef struct varnel_inspection {
  int16_t year;           /**< the reference date */
  uint8_t month;          /**< its month */
  uint8_t day;            /**< its day */
  uint8_t repair;         /**< VARNEL_REPAIR_… */
  uint8_t verdict;        /**< VARNEL_VERDICT_… */
  uint8_t layout;         /**< VARNEL_LAYOUT_…; VARNEL_LAYOUT_NONE when refused */
  int8_t expired;         /**< 1, 0, or -1 where it cannot be said */
  uint8_t line_count;     /**< lines of the zone; 0 when refused */
  uint8_t source_count;   /**< entries of `source`: a line each, none in a zone combined from several looks */
  uint8_t field_count;    /**< entries of `fields` */
  uint8_t check_count;    /**< entries of `checks` */
  uint8_t change_count;   /**< entries of `changes` */
  uint8_t finding_count;  /**< entries of `findings` */
  uint8_t notice_count;   /**< entries of `notices` */
  uint8_t nearest_layout; /**< after a refusal for its length: the layout it is nearest to */
  uint8_t nearest[VARNEL_ZONE_LINES]; /**< and the characters found in each line of that layout */
  char zone[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH + 1];    /**< the lines, NUL-terminated */
  char chip_access[VARNEL_ZONE_WIDTH];                    /**< NUL-terminated; empty where there is none */
  varnel_source source[VARNEL_ZONE_LINES];                /**< where each line stands in the input */
  varnel_inspected_field fields[VARNEL_INSPECTED_FIELDS]; /**< in the order of the zone */
  varnel_check checks[VARNEL_CHECKS];                     /**< in the order of the layout */
  varnel_change changes[VARNEL_CHANGES];                  /**< what was changed by repair */
  varnel_finding findings[VARNEL_INSPECTION_FINDINGS];    /**< what is wrong */
  varnel_finding notices[VARNEL_INSPECTION_NOTICES];      /**< what a reader should know */
} varnel_inspection;

/**
 * Finds the zone in a text and inspects it.
 *
 * @param text            UTF-8, a zone somewhere in it; need not be NUL-terminated. Null with a size of 0 is
 *                        an empty text, else a bad argument.
 * @param size            its length in bytes, at most VARNEL_TEXT_MAX.
 * @param options         the reference date and the level of repair; null, a date that does not exist or an
 *                        unknown level is a bad argument.
 * @param[out] inspection the record, written whole; null is a bad argument.
 * @return ERR_OK whenever an inspection was made, its verdict says the rest; ERR_INVALID_ARGS for a bad
 *         argument, and then nothing was written.
 */
VARNEL_DOCUMENTS_API int varnel_inspect(const char *text, size_t size, const varnel_inspect_options *options,
                                        varnel_inspection *inspection);

/**
 * Finds all zones of a text that do not overlap and inspects each.
 *
 * Where zones overlap, the better one is taken, by the measure of varnel_inspect().
 *
 * @param text             as for varnel_inspect().
 * @param size             as for varnel_inspect().
 * @param options          as for varnel_inspect().
 * @param[out] inspections room for the records; null is a bad argument. They are written in the order of the
 *                         page, their offsets counted from the start of the whole text.
 * @param capacity         how many there is room for, at least 1. Zones after these are not looked for.
 * @return how many zones were inspected; 0 when the text has none, and then the first record is a refusal.
 *         ERR_INVALID_ARGS for a bad argument, and then nothing was written. Records beyond those counted may
 *         be written over.
 */
VARNEL_DOCUMENTS_API int varnel_inspect_all(const char *text, size_t size,
                                            const varnel_inspect_options *options,
                                            varnel_inspection *inspections, int capacity);

/**
 * Writes an inspection as one line of JSON (UTF-8, no line end).
 *
 * @param inspection as varnel_inspect() wrote it; null is a bad argument.
 * @param[out] out   room for the text; null is allowed with a size of 0.
 * @param size       the room in bytes, the terminating NUL included.
 * @return the length of the whole text in bytes, without the NUL, whatever the room: as snprintf() does. With
 *         room, what fits was written, NUL-terminated. ERR_INVALID_ARGS for a bad argument.
 */
VARNEL_DOCUMENTS_API int varnel_inspection_json(const varnel_inspection *inspection, char *out, size_t size);

/**
 * Names of what a record has as numbers, as JSON has them.
 *
 * Each returns a text that lives as long as the program, or null for a number that has no name.
 * @{
 */

/** @param field VARNEL_DOCUMENT_CODE and so on. @return "documentCode" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_field_name(int field);
/** @param code VARNEL_FINDING_… or VARNEL_NOTICE_…. @return "checkFailed" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_finding_name(int code);
/** @param layout VARNEL_LAYOUT_…. @return "TD1" and so on; null for VARNEL_LAYOUT_NONE. */
VARNEL_DOCUMENTS_API const char *varnel_layout_name(int layout);
/** @param layout VARNEL_LAYOUT_…. @return "passport", "visa" or "card"; null for VARNEL_LAYOUT_NONE. */
VARNEL_DOCUMENTS_API const char *varnel_kind_name(int layout);
/** @param layout VARNEL_LAYOUT_…. @return the number of its lines; 0 for VARNEL_LAYOUT_NONE. */
VARNEL_DOCUMENTS_API int varnel_layout_lines(int layout);
/** @param layout VARNEL_LAYOUT_…. @return the characters of each of its lines; 0 for VARNEL_LAYOUT_NONE. */
VARNEL_DOCUMENTS_API int varnel_layout_width(int layout);
/** @param verdict VARNEL_VERDICT_…. @return "valid" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_verdict_name(int verdict);
/** @param status VARNEL_STATUS_…. @return "ok" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_status_name(int status);
/** @param proof VARNEL_PROOF_…. @return "digits" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_proof_name(int proof);
/** @param repair VARNEL_REPAIR_…. @return "off", "columns" or "digits". */
VARNEL_DOCUMENTS_API const char *varnel_repair_name(int repair);
/** @param reason VARNEL_CHANGE_…. @return "class" and so on. */
VARNEL_DOCUMENTS_API const char *varnel_change_name(int reason);
/** @param rule VARNEL_RULE_…. @return "plain" or "filler"; null for VARNEL_RULE_NONE. */
VARNEL_DOCUMENTS_API const char *varnel_rule_name(int rule);

/** @} */

/**
 * The name of a state, organization or nationality, in English.
 *
 * Known are the 279 codes that ICAO Doc 9303-3 permits, codes that documents print without permission, and
 * withdrawn ones.
 *
 * @param code capitals without fillers, NUL-terminated: "D", "UTO"; null is an unknown code.
 * @return UTF-8 that lives as long as the program; null for an unknown code.
 */
VARNEL_DOCUMENTS_API const char *varnel_state_name(const char *code);

/**
 * The code of two letters of a state or organization.
 *
 * @param code as for varnel_state_name().
 * @return a text that lives as long as the program; null for an unknown code and for one that has none.
 */
VARNEL_DOCUMENTS_API const char *varnel_state_alpha2(const char *code);

/**
 * Whether Doc 9303-3 permits a code.
 *
 * @param code as for varnel_state_name().
 * @return 1 or 0.
 */
VARNEL_DOCUMENTS_API int varnel_state_listed(const char *code);

/**
 * What a document code means: the second letters of passports (Doc 9303-4) and crew member certificates.
 * Issuers used second letters freely before 2026.
 *
 * @param layout VARNEL_LAYOUT_….
 * @param code   capitals without fillers, NUL-terminated: "PD"; null is an unknown code.
 * @return English text that lives as long as the program; null for a code without a fixed meaning.
 */
VARNEL_DOCUMENTS_API const char *varnel_document_code_meaning(int layout, const char *code);

VARNEL_END_DECLS

/** @} */

#endif
