/**
 * @file patterns.h
 * @brief Character classes of the fields of identity documents, as tests for one character.
 */
#ifndef VARNEL_PATTERNS_H
#define VARNEL_PATTERNS_H

#include <Varnel/defines.h>

/**
 * @defgroup varnel_patterns Character classes
 * @brief Classes of the fields of identity documents read from barcodes and magnetic stripes.
 *
 * Every predicate takes a character sign-extended from a signed char, and returns exactly 1 when it is in
 * the class, else 0. Letters are A to Z and a to z, digits 0 to 9, white space is space, tab, line feed,
 * vertical tab, form feed and carriage return, whatever the process locale. Values outside 0 to 127, and so
 * all bytes above 0x7F, are in none of these: only the complements accept them, and patter_trim_address().
 *
 * All are pure functions, which any number of threads may call at once, and fit wherever a
 * `_t_predicate_func` goes:
 * utils_strcheck_f(), utils_strtrim_f(), utils_match_f() and their kin.
 * @{
 */

VARNEL_BEGIN_DECLS

/**
 * Characters of a signed decimal number: digits, white space, `-` and `+`.
 *
 * Signs pass anywhere: where a sign is allowed is for the caller to say.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_is_atoi_valid(int c);

/**
 * Everything but digits.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isNotDigit(int c);

/**
 * Characters of city names: letters, digits, white space and `' - . _ \ /`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isCityChar(int c);

/**
 * Characters kept when a city name is cleaned: letters, digits and `_ - \ /`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isClearCityChar(int c);

/**
 * Everything but what pattern_isClearCityChar() accepts.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isNotClearCityChar(int c);

/**
 * Characters of personal names: letters, digits, white space and `$ ' , - . _ \ /`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isNameChar(int c);

/**
 * Characters of street addresses: letters, digits, white space and `# $ ' , - . _ \ /`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isAddressChar(int c);

/**
 * The narrower set of address characters: letters, digits, white space and `, - _ $ #`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isAddressChar2(int c);

/**
 * Characters kept when an address is cleaned: letters, digits and `' - . _ \ /`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isClearAddressChar(int c);

/**
 * The narrower set kept when an address is cleaned: letters, digits, `_` and `-`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isClearAddressChar2(int c);

/**
 * Everything but what pattern_isClearAddressChar() accepts.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isNotClearAddressChar(int c);

/**
 * Everything but what pattern_isClearAddressChar2() accepts.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isNotClearAddressChar2(int c);

/**
 * Uppercase letters and white space.
 *
 * **Digits are refused**, on purpose: the class is narrower than real postal codes.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isClearPostalCode(int c);

/**
 * Characters of licence numbers: digits and white space.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_isLicenseNumber(int c);

/**
 * Word characters: letters, digits and `_`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_is_w(int c);

/**
 * Everything but what pattern_is_w() accepts.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_is_not_w(int c);

/**
 * Word characters and white space.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_is_ws(int c);

/**
 * Printable symbols, from `!` (33) to `}` (125). Space and `~` (126) are not among them.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_valid_symbols(int c);

/**
 * Everything but what pattern_valid_symbols() accepts.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int pattern_not_valid_symbols(int c);

/**
 * What to trim off a field: white space and NUL. The name has no `n` at the end of `patter`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int patter_trim_space(int c);

/**
 * What to trim off an address: everything but letters, digits and the full stop; NUL and bytes above
 * 0x7F are trimmed. The name has no `n` at the end of `patter`.
 *
 * @param c the character, -128 to 127; any other value is in no positive class.
 * @return 1 when it is in the class, else 0.
 */
VARNEL_API int patter_trim_address(int c);

VARNEL_END_DECLS

/** @} */

#endif
