/**
 * @file visa.h
 * @brief Parser of the machine-readable visa of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_VISA_H
#define VARNEL_MRZ_VISA_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

VARNEL_END_DECLS

#endif
