/**
 * @file barcode_mapping.h
 * @brief Element tables of AAMVA driver's-licence barcodes: which data element fills which slot.
 */
#ifndef VARNEL_BARCODE_MAPPING_H
#define VARNEL_BARCODE_MAPPING_H

#include <Varnel/defines.h>

/**
 * @defgroup varnel_elements Element tables
 * @brief Which data element of an AAMVA driver's-licence barcode fills which slot.
 *
 * The element identifiers are those of the AAMVA DL/ID card design standard. The tables are data for a
 * barcode parser; the library has none of its own.
 *
 * **Row order is part of the data**: a search takes the first row that matches, and some elements stand in a
 * table twice. The second row of an element is found by searching on from the row after the first:
 * DAU goes to two slots in MAP_AAMVA_2D04_HAWAII, and MAP_AAMVA_2D08 ends with a second block of rows
 * of which most repeat an element and DBB, DAQ and DCG go elsewhere. Tables and counts are constant and may
 * be read by any number of threads.
 * @{
 */

VARNEL_BEGIN_DECLS

/** One row of an element table. */
typedef struct VARNEL_TAG(_MAPPING, varnel_mapping) {
  int key;   /**< the three letters of the identifier packed as 0x00AABBCC, first letter highest */
  int value; /**< the slot that the element fills */
} varnel_mapping;

#ifndef VARNEL_NO_SHORT_NAMES
typedef varnel_mapping MAPPING; /**< varnel_mapping, in short */
#endif

extern VARNEL_API const varnel_mapping MAP_AAMVA_2D01[]; /**< AAMVA version 01 */
extern VARNEL_API const varnel_mapping MAP_AAMVA_2D03[]; /**< AAMVA version 03 */
extern VARNEL_API const varnel_mapping MAP_AAMVA_2D06[]; /**< AAMVA version 06 */
extern VARNEL_API const varnel_mapping
    MAP_AAMVA_2D04_HAWAII[];                             /**< the version 04 variant issued by Hawaii */
extern VARNEL_API const varnel_mapping MAP_AAMVA_2D08[]; /**< AAMVA version 08 */

extern VARNEL_API const int MAP_AAMVA_2D01_SIZE;        /**< rows of MAP_AAMVA_2D01 */
extern VARNEL_API const int MAP_AAMVA_2D03_SIZE;        /**< rows of MAP_AAMVA_2D03 */
extern VARNEL_API const int MAP_AAMVA_2D06_SIZE;        /**< rows of MAP_AAMVA_2D06 */
extern VARNEL_API const int MAP_AAMVA_2D04_HAWAII_SIZE; /**< rows of MAP_AAMVA_2D04_HAWAII */
extern VARNEL_API const int MAP_AAMVA_2D08_SIZE;        /**< rows of MAP_AAMVA_2D08 */

/**
 * Finds the slot that an element fills.
 *
 * @param barcode           the element's identifier, packed as MAPPING::key: DAA is 0x444141.
 * @param map               the table, searched row by row; null has no rows.
 * @param size              number of rows, for the tables here their `_SIZE`; 0 or less finds nothing.
 * @param[in,out] pTblIndex the row to start at, 0 or more (a negative start finds nothing and stays); after
 *                          the search the row that matched, or, without a match, where the search stopped:
 *                          `size`, or the start itself when it was not below `size`. To find an element's
 *                          next row, add 1 and search again. Null starts at row 0.
 * @return the slot of the first row that matches, or -1 when none does.
 *
 * Standard: AAMVA DL/ID card design standard, data element identifiers.
 */
VARNEL_API int utils_barcode2fieldtype(int barcode, const varnel_mapping *map, int size, int *pTblIndex);

VARNEL_END_DECLS

/** @} */

#endif
