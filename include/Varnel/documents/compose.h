/**
 * @file documents/compose.h
 * @brief Composing a zone: values in, the lines of a machine-readable zone out.
 */
#ifndef VARNEL_DOCUMENTS_COMPOSE_H
#define VARNEL_DOCUMENTS_COMPOSE_H

#include <Varnel/documents/defines.h>

#include <stddef.h>

/**
 * @defgroup varnel_compose Composing a zone
 * @brief Zones that are right: letters, fillers, shortened names and check digits by ICAO Doc 9303.
 *
 * Names are written in any Latin, Cyrillic or Arabic letters and come out in those of the zone, by tables A,
 * B and C of Doc 9303-3. Every check digit is computed. What cannot be composed is refused with the field and
 * the character; nothing is guessed and nothing is written by halves.
 * @{
 */

VARNEL_BEGIN_DECLS

/**
 * The values of a document: NUL-terminated UTF-8 text, null or empty where there is none.
 *
 * The texts are only read, during the call. They are what varnel_inspect() delivers as values.
 *
 * - `document_code`, `issuing_state`, `document_number`, `nationality`, `sex`, `expiry_date` and
 *   `primary_identifier` are mandatory.
 * - Codes, states, sex and numbers are taken as written: uppercase, and digits in numbers; lowercase letters and
 *   fillers are refused. A run of white space, dashes or commas in a number is one filler, and nothing at
 *   either end.
 * - A field that the layout lacks is refused unless it is empty.
 */
typedef struct varnel_compose_fields {
  int layout;                     /**< VARNEL_LAYOUT_TD1, _TD2, _TD3, _MRV_A or _MRV_B */
  const char *document_code;      /**< a letter of the layout, then a letter, a digit or nothing: "P", "ID" */
  const char *issuing_state;      /**< a code listed in Doc 9303-3 section 5: "UTO", "D"; also "XXK" */
  const char *document_number;    /**< up to 9 characters; TD1 up to 22, TD2 up to 14 without separators */
  const char *nationality;        /**< as the issuing state */
  const char *birth_date;         /**< "YYYY-MM-DD", "YYYY-MM-XX", "YYYY-XX-XX"; none: wholly unknown */
  const char *sex;                /**< "M", "F" or "X", which is a filler in the zone */
  const char *expiry_date;        /**< "YYYY-MM-DD", not before a fully known date of birth */
  const char *primary_identifier; /**< family name, or the whole name where it is not divided */
  const char *secondary_identifier; /**< given names */
  const char *optional_data_1;      /**< TD1: up to 15 characters, fewer after a long number */
  const char *optional_data_2;      /**< TD1: up to 11 characters */
  const char *optional_data;   /**< TD2: up to 7 characters, fewer after a long number; MRV-A 16, MRV-B 8 */
  const char *personal_number; /**< TD3: up to 14 characters */
} varnel_compose_fields;

/** What may be chosen. */
typedef struct varnel_compose_options {
  /**
   * The language whose exceptions in table B (Cyrillic) hold: "be", "bg", "mk", "sr" or "uk", NUL-terminated;
   * null or empty for none. Any other is refused.
   */
  const char *language;
} varnel_compose_options;

/** The lines of a zone: a plain value. */
typedef struct varnel_zone {
  int line_count;                                       /**< 2 or 3 */
  char lines[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH + 1]; /**< each NUL-terminated; unused ones empty */
} varnel_zone;

/** Why a value was refused. X(constant, name in JSON). */
#define VARNEL_COMPOSE_REASONS(X)                                                                            \
  X(VARNEL_COMPOSE_MISSING, "missing")                                                                       \
  X(VARNEL_COMPOSE_BAD_CHARACTER, "badCharacter")                                                            \
  X(VARNEL_COMPOSE_UNKNOWN, "unknown")                                                                       \
  X(VARNEL_COMPOSE_NOT_A_DATE, "notADate")                                                                   \
  X(VARNEL_COMPOSE_DATES_ORDER, "datesOrder")                                                                \
  X(VARNEL_COMPOSE_TOO_LONG, "tooLong")                                                                      \
  X(VARNEL_COMPOSE_NOT_IN_LAYOUT, "notInLayout")                                                             \
  X(VARNEL_COMPOSE_OTHER_LAYOUT, "otherLayout")                                                              \
  X(VARNEL_COMPOSE_UNKNOWN_LANGUAGE, "unknownLanguage")

/**
 * Reasons by number.
 *
 * - MISSING: a mandatory value is absent, or nothing of it is left in the zone.
 * - BAD_CHARACTER: the character cannot stand there, no letter of the zone stands for it, or the text is not
 *   well-formed UTF-8.
 * - UNKNOWN: a layout, a first letter of a code or a state that is not listed.
 * - NOT_A_DATE: another form, or a day that the calendar does not have.
 * - DATES_ORDER: the expiry date is before the date of birth.
 * - TOO_LONG: the character is the first without room.
 * - NOT_IN_LAYOUT: the layout lacks the field.
 * - OTHER_LAYOUT: with this code and state the lines would be a French identity card, not a TD2.
 * - UNKNOWN_LANGUAGE: the option `language` is none of those listed.
 */
enum {
  VARNEL_COMPOSE_NO_REASON = 0,
#define VARNEL_COMPOSE_REASON_CONSTANT(constant, name) constant,
  VARNEL_COMPOSE_REASONS(VARNEL_COMPOSE_REASON_CONSTANT)
#undef VARNEL_COMPOSE_REASON_CONSTANT
      VARNEL_COMPOSE_REASON_END /**< one more than the last reason */
};

/** The first value that was refused. */
typedef struct varnel_compose_error {
  int field;       /**< VARNEL_DOCUMENT_CODE and so on; VARNEL_FIELD_NONE for the layout and the language */
  int reason;      /**< VARNEL_COMPOSE_… */
  size_t position; /**< the character of the value, from 0; 0 where the value as a whole is meant */
  size_t offset;   /**< the same in bytes */
} varnel_compose_error;

/**
 * Composes a zone.
 *
 * Names: letters become capitals; those of tables A, B and C of Doc 9303-3 the first result that is listed
 * there; a letter with marks that no table has loses its marks. White space, dashes and commas separate, all
 * other punctuation is dropped; digits, symbols and letters of other scripts are refused. A name that fits is
 * never shortened. A primary identifier too long to leave room for one letter of the secondary one is cut;
 * else the components of the secondary identifier become initials from the last to the second, then they go,
 * then the first is cut. docs/composing.md has the rules in full.
 *
 * What is composed is `valid` to varnel_inspect() with a reference date that gives its dates their own
 * century, and the values of that inspection compose to the same lines.
 *
 * @param fields      the values; null is a bad argument.
 * @param options     what may be chosen; null for nothing.
 * @param[out] zone   the lines; null is a bad argument. Written on success only.
 * @param[out] error  the first value that was refused, in the order layout, language, documentCode,
 * issuingState, documentNumber, nationality, birthDate, sex, expiryDate, primaryIdentifier,
 *                    secondaryIdentifier, optional data; null when it is not asked for. Written only where
 *                    ERR_INVALID_FORMAT is returned.
 * @return ERR_OK; ERR_INVALID_FORMAT for a value that cannot be composed; ERR_INVALID_ARGS for a bad
 * argument.
 */
VARNEL_DOCUMENTS_API int varnel_compose(const varnel_compose_fields *fields,
                                        const varnel_compose_options *options, varnel_zone *zone,
                                        varnel_compose_error *error);

VARNEL_END_DECLS

/** @} */

#endif
