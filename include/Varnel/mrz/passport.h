/**
 * @file passport.h
 * @brief Parser of the passport (TD3) of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_PASSPORT_H
#define VARNEL_MRZ_PASSPORT_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

VARNEL_END_DECLS

#endif
