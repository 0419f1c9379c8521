/**
 * @file patterns.h
 * @brief Character classes of the fields of identity documents, as tests for one character.
 *
 * Every predicate takes a character sign-extended from a signed char and returns exactly 1 when it is
 * in the class, else 0. Letters are A to Z and a to z, digits 0 to 9, white space is space, tab, line
 * feed, vertical tab, form feed and carriage return, whatever the process locale; values outside 0 to
 * 127 are in none of these. All are pure functions, callable from any thread, of the shape that
 * utils_strcheck_f(), utils_strtrim_f(), utils_match_f() and their kin take.
 */
#ifndef VARNEL_PATTERNS_H
#define VARNEL_PATTERNS_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int pattern_is_atoi_valid(int c);
VARNEL_API int pattern_isNotDigit(int c);
VARNEL_API int pattern_isCityChar(int c);
VARNEL_API int pattern_isClearCityChar(int c);
VARNEL_API int pattern_isNotClearCityChar(int c);
VARNEL_API int pattern_isNameChar(int c);
VARNEL_API int pattern_isAddressChar(int c);
VARNEL_API int pattern_isAddressChar2(int c);
VARNEL_API int pattern_isClearAddressChar(int c);
VARNEL_API int pattern_isClearAddressChar2(int c);
VARNEL_API int pattern_isNotClearAddressChar(int c);
VARNEL_API int pattern_isNotClearAddressChar2(int c);
VARNEL_API int pattern_isClearPostalCode(int c);
VARNEL_API int pattern_isLicenseNumber(int c);
VARNEL_API int pattern_is_w(int c);
VARNEL_API int pattern_is_not_w(int c);
VARNEL_API int pattern_is_ws(int c);
VARNEL_API int pattern_valid_symbols(int c);
VARNEL_API int pattern_not_valid_symbols(int c);
VARNEL_API int patter_trim_space(int c);
VARNEL_API int patter_trim_address(int c);

VARNEL_END_DECLS

#endif
