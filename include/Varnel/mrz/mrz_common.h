/**
 * @file mrz_common.h
 * @brief What the layouts share: MRZ character tests, check-digit sums, field extractors.
 */
#ifndef VARNEL_MRZ_COMMON_H
#define VARNEL_MRZ_COMMON_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

/** The check-digit weights of ICAO Doc 9303, by position modulo 3. */
extern VARNEL_API const int MRZ_WEIGHTS[3];

VARNEL_API int MRZ_common_pattern_valid_mrz(int c);
VARNEL_API int MRZ_common_pattern_valid_mrz_date(int c);
VARNEL_API int MRZ_common_pattern_valid_mrz_name(int c);
VARNEL_API int MRZ_common_pattern_valid_mrz_cc(int c);

VARNEL_API int MRZ_common_calc_control_sum(const char *str, int len, int *pos);
VARNEL_API int MRZ_common_validate_control_sum(int sum, char c);

VARNEL_API int MRZ_common_extract_cc(const STRING *in, char out[4]);
VARNEL_API int MRZ_common_extract_date(const STRING *in, DATETIME *date);
VARNEL_API int MRZ_common_extract_name(const STRING *s, STRING *full_name, STRING *last_name,
                                       STRING *first_name, STRING *middle_name);

VARNEL_END_DECLS

#endif
