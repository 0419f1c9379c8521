/**
 * @file td2.h
 * @brief Parser of the TD2 card of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_TD2_H
#define VARNEL_MRZ_TD2_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

VARNEL_API int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

VARNEL_END_DECLS

#endif
