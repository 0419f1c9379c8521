/**
 * @file mrz_normalize.h
 * @brief Reduction of scanned text to the MRZ character set of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_NORMALIZE_H
#define VARNEL_MRZ_NORMALIZE_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len);

VARNEL_END_DECLS

#endif
