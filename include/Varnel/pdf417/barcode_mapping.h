/**
 * @file barcode_mapping.h
 * @brief Element tables of AAMVA driver's-licence barcodes: which data element fills which slot.
 *
 * The element identifiers are those of the AAMVA DL/ID card design standard. The tables are data for a
 * barcode parser; the library has none of its own.
 */
#ifndef VARNEL_BARCODE_MAPPING_H
#define VARNEL_BARCODE_MAPPING_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

/** One row of an element table. */
typedef struct _MAPPING {
  int key;   /**< the three letters of the identifier packed as 0x00AABBCC, first letter highest */
  int value; /**< the slot that the element fills */
} MAPPING;

extern VARNEL_API const MAPPING MAP_AAMVA_2D01[];        /**< AAMVA version 01 */
extern VARNEL_API const MAPPING MAP_AAMVA_2D03[];        /**< AAMVA version 03 */
extern VARNEL_API const MAPPING MAP_AAMVA_2D06[];        /**< AAMVA version 06 */
extern VARNEL_API const MAPPING MAP_AAMVA_2D04_HAWAII[]; /**< the version 04 variant issued by Hawaii */
extern VARNEL_API const MAPPING MAP_AAMVA_2D08[];        /**< AAMVA version 08 */

extern VARNEL_API const int MAP_AAMVA_2D01_SIZE;        /**< rows of MAP_AAMVA_2D01 */
extern VARNEL_API const int MAP_AAMVA_2D03_SIZE;        /**< rows of MAP_AAMVA_2D03 */
extern VARNEL_API const int MAP_AAMVA_2D06_SIZE;        /**< rows of MAP_AAMVA_2D06 */
extern VARNEL_API const int MAP_AAMVA_2D04_HAWAII_SIZE; /**< rows of MAP_AAMVA_2D04_HAWAII */
extern VARNEL_API const int MAP_AAMVA_2D08_SIZE;        /**< rows of MAP_AAMVA_2D08 */

VARNEL_API int utils_barcode2fieldtype(int barcode, const MAPPING *map, int size, int *pTblIndex);

VARNEL_END_DECLS

#endif
