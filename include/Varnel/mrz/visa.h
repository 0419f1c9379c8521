/**
 * @file visa.h
 * @brief Parser of the machine-readable visa of ICAO Doc 9303.
 */
#ifndef VARNEL_MRZ_VISA_H
#define VARNEL_MRZ_VISA_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

/**
 * @ingroup varnel_mrz
 *
 * Reads a machine-readable visa (MRV-A or MRV-B).
 *
 * Two lines of 44 (MRV-A) or 36 characters (MRV-B), of which the first begins with V; the second character
 * is not looked at.
 *
 * Written, in this order: FIELD_COUNTRY_CODE, FIELD_FAMILY_NAME, FIELD_FIRST_NAME, FIELD_MIDDLE_NAME,
 * FIELD_DOCUMENT_NUMBER, FIELD_NATIONALITY, FIELD_BIRTH_DATE, FIELD_SEX ("M" or "F" only),
 * FIELD_EXPIRATION_DATE, FIELD_DOCUMENT_TYPE. **The type of a visa is "TD"**, as that of a card. Optional
 * data is not kept.
 *
 * @param input   the normalised zone, 88 or 72 characters, as normalize_mrz() leaves it; needs no NUL.
 *                It must not overlap the record or its buffer. Null is a bad argument.
 * @param i_len   its length in characters. Below 0 is a bad argument, and any but 88 and 72 another
 *                layout.
 * @param result  the record to write to, set up by result_init(); null is a bad argument.
 * @param context whose `date.year` is the reference year: a year of birth YY is 20YY when that lies before
 *                it, else 19YY; a year of expiry YY is 19YY, or 20YY when 19YY lies before the year of
 *                birth. Null is a bad argument.
 * @return ERR_OK when the zone was read; ERR_INVALID_FORMAT for another length, a character outside the MRZ
 *         character set, another document code, a name field without letters or with digits, a country code
 *         with digits, or a date with anything but digits; ERR_INVALID_ARGS for a bad argument.
 *
 * Values are written as they are read: **after a refusal the record keeps those written before it**, and
 * slots that the zone says nothing of keep what they held; result_clear() empties the record. **No check
 * digit is compared.** Dates are written with eight digits and not checked for range. Values that do not fit
 * the record's buffer are cut, by the rules of the slot writers, and that is no failure.
 *
 * Standard: ICAO Doc 9303-7.
 */
VARNEL_API int MRZ_visa_parse(const char *input, int i_len, varnel_parse_result *result,
                              const varnel_context *context);

VARNEL_END_DECLS

#endif
