/**
 * @file mrz_common.h
 * @brief What the layouts share: MRZ character tests, check-digit sums, field extractors.
 */
#ifndef VARNEL_MRZ_COMMON_H
#define VARNEL_MRZ_COMMON_H

#include <Varnel/defines.h>

/**
 * @defgroup varnel_mrz Machine-readable zones
 * @brief From scanned text to a filled record: normalisation, layout parsers and their primitives.
 *
 * The layouts are those of ICAO Doc 9303. varnel_parse_mrz() is the whole way in one call.
 *
 * Threads: any number may call these functions at once, each with a record and outputs of its own. Texts that
 * are only read may be shared.
 */

/**
 * @defgroup varnel_mrz_common Field primitives and check digits
 * @ingroup varnel_mrz
 * @brief What the layouts share: character tests, check-digit sums, extractors of codes, dates and names.
 *
 * Extractors take views and copy no text. All functions are pure but for what they write through their
 * output pointers.
 *
 * **No parser compares a check digit**: the sums are here for callers who want to judge a zone themselves.
 * @{
 */

VARNEL_BEGIN_DECLS

/** The check-digit weights of ICAO Doc 9303, 7, 3 and 1, by position modulo 3. */
extern VARNEL_API const int MRZ_WEIGHTS[3];

/**
 * The MRZ character set: uppercase letters A to Z, digits and the filler `<` (ICAO Doc 9303).
 *
 * @param c the character; values outside 0 to 127 are not in the set.
 * @return 1 when it is in the set, else 0.
 */
VARNEL_API int MRZ_common_pattern_valid_mrz(int c);

/**
 * Characters of a date: digits. A filler, which ICAO Doc 9303 allows for an unknown date, is refused.
 *
 * @param c the character; values outside 0 to 127 are not in the set.
 * @return 1 when it is in the set, else 0.
 */
VARNEL_API int MRZ_common_pattern_valid_mrz_date(int c);

/**
 * Characters of a name: uppercase letters A to Z and the filler `<`.
 *
 * @param c the character; values outside 0 to 127 are not in the set.
 * @return 1 when it is in the set, else 0.
 */
VARNEL_API int MRZ_common_pattern_valid_mrz_name(int c);

/**
 * Characters of a country code: uppercase letters A to Z and the filler `<`.
 *
 * The same set as that of a name, under a name of its own, so that either may change alone.
 *
 * @param c the character; values outside 0 to 127 are not in the set.
 * @return 1 when it is in the set, else 0.
 */
VARNEL_API int MRZ_common_pattern_valid_mrz_cc(int c);

/**
 * Adds up the weighted values of a stretch of a zone for a check digit (ICAO Doc 9303).
 *
 * Digits count as themselves, A to Z as 10 to 35, the filler as 0 (and takes a position); the weights 7, 3,
 * 1 repeat. A composite check over several stretches is the sum of one call for each with the same `pos`,
 * from 0: the weights run on as if the stretches were one.
 *
 * @param str          the stretch; null fails.
 * @param len          its length in characters; 0 or less adds nothing.
 * @param[in,out] pos  the position in the cycle of weights, 0 or more: on return moved on by `len`, on
 *                     failure untouched. Null starts at 0. A negative one has no place in the cycle: it counts
 *                     as the number 2^32 above it, so that nothing but the three weights is read.
 * @return the sum, not yet taken modulo 10; -1 for null or a character outside the MRZ character set.
 */
VARNEL_API int MRZ_common_calc_control_sum(const char *str, int len, int *pos);

/**
 * Whether a character is the check digit of a sum (ICAO Doc 9303).
 *
 * @param sum a sum of MRZ_common_calc_control_sum(). A failed one, -1, has no check digit. The remainder
 *            keeps its sign: a negative sum matches only when it is a multiple of ten, and then 0.
 * @param c   the check character. A filler stands for 0; anything but a digit or a filler is none.
 * @return 1 when it is, else 0.
 */
VARNEL_API int MRZ_common_validate_control_sum(int sum, char c);

/**
 * Extracts the code of an issuing state or a nationality: up to three letters, ended by the first filler.
 * `D<<` gives "D", `UTO` gives "UTO", `<AB` gives the empty text. Digits are refused.
 *
 * @param in       the field, 3 characters or more. All of them must be letters or fillers, though only the
 *                 first three are read. Null, null text and shorter views are a bad argument.
 * @param[out] out four characters, zeroed by the caller; not null. The first three are written, NUL after
 *                 the code's end; the fourth is the caller's terminator. Untouched on failure.
 * @return ERR_OK; ERR_INVALID_FORMAT for another character; ERR_INVALID_ARGS for a bad argument.
 *
 * Standard: ICAO Doc 9303 codes of states and organisations, which are not looked up in a list.
 */
VARNEL_API int MRZ_common_extract_cc(const varnel_string *in, char out[4]);

/**
 * Extracts a date of six digits, YYMMDD (ICAO Doc 9303).
 *
 * The year is always placed in the 1900s: moving it into the 2000s is up to the layout parsers. Month and
 * day are not checked for range: `991399` is month 13, day 99 of 1999.
 *
 * @param in        the field, exactly 6 characters. Null, null text and other lengths are a bad argument.
 * @param[out] date the date, with the time of day 0:00:00; not null. Untouched on failure.
 * @return ERR_OK; ERR_INVALID_FORMAT for a character that is no digit, the filler included;
 *         ERR_INVALID_ARGS for a bad argument.
 */
VARNEL_API int MRZ_common_extract_date(const varnel_string *in, varnel_datetime *date);

/**
 * Splits the name field of a zone into primary identifier, first and further given names (ICAO Doc 9303).
 *
 * The primary identifier ends at the first `<<`; the given names are split at their first filler, and what
 * follows it is the middle name. Without a `<<` the first word is the primary identifier, the second the
 * first name. Fillers inside a part stay: `VAN<DER<BERG<<ANNA<MARIA<LUISA` gives `VAN<DER<BERG`, `ANNA` and
 * `MARIA<LUISA`. Fillers in front go first, and a `<<` among them is no separator: `<<ANNA` is the primary
 * identifier ANNA. Of `A<<B<<C` the middle name is `<C`.
 *
 * @param s                the field, of length 0 or more; letters and fillers only. Null and null text are
 *                         a bad argument.
 * @param[out] full_name   the whole field without its outer fillers.
 * @param[out] last_name   the primary identifier.
 * @param[out] first_name  the first given name, of length 0 when there is none.
 * @param[out] middle_name the further given names, of length 0 when there are none.
 * @return ERR_OK; ERR_INVALID_FORMAT for another character or a field of nothing but fillers, and then all
 *         four outputs are {null, 0}; ERR_INVALID_ARGS for a bad argument or a null output, and then they
 *         are untouched.
 *
 * The outputs are views into the field.
 */
VARNEL_API int MRZ_common_extract_name(const varnel_string *s, varnel_string *full_name,
                                       varnel_string *last_name, varnel_string *first_name,
                                       varnel_string *middle_name);

VARNEL_END_DECLS

/** @} */

#endif
