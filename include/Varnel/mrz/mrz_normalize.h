/**
 * @file mrz_normalize.h
 * @brief Reduction of scanned text to the MRZ character set of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_NORMALIZE_H
#define VARNEL_MRZ_NORMALIZE_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

/**
 * @ingroup varnel_mrz
 *
 * Reduces scanned text to the MRZ character set of ICAO Doc 9303.
 *
 * Digits, uppercase letters and `<` stay, lowercase letters become uppercase, all else is dropped: spaces,
 * line breaks, punctuation, NUL, every byte above 0x7F. The lines of a zone thus become one run, whose length
 * and first letter decide the layout.
 *
 * **The limit counts what is read, not what is kept**: no more than the first `o_len - 1` bytes of the
 * input are looked at, even when most of them are dropped.
 *
 * @param input           the text, UTF-8 or any bytes, not necessarily terminated; null is a bad argument.
 * @param i_len           its length in bytes; 0 or less is a bad argument.
 * @param[out] output     the zone and a NUL; must not overlap `input`. Null is a bad argument.
 * @param o_len           capacity of `output` in bytes; below 2 is a bad argument.
 * @param[out] result_len length of the zone without the NUL; null is a bad argument.
 * @return ERR_OK, also when nothing is left of the text and the zone is empty; ERR_INVALID_ARGS for a bad
 *         argument, and then nothing was written.
 *
 * No character is ever an error.
 */
VARNEL_API int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len);

VARNEL_END_DECLS

#endif
