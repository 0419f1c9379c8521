/**
 * @file td1.h
 * @brief Parser of the TD1 card of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_TD1_H
#define VARNEL_MRZ_TD1_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

VARNEL_END_DECLS

#endif
