/**
 * @file Varnel.h
 * @brief The whole of Varnel: everything below it, the version, the record's lifecycle, the portable
 *        entry and export, and, for Objective-C, the class Varnel with its NSString category.
 */
#ifndef VARNEL_H
#define VARNEL_H

#include <Varnel/defines.h>
#include <Varnel/mrz/mrz_common.h>
#include <Varnel/mrz/mrz_normalize.h>
#include <Varnel/mrz/passport.h>
#include <Varnel/mrz/td1.h>
#include <Varnel/mrz/td2.h>
#include <Varnel/mrz/visa.h>
#include <Varnel/patterns.h>
#include <Varnel/pdf417/barcode_mapping.h>
#include <Varnel/utils.h>

/** The release of this copy of Varnel. Every package takes its version from this line. */
#define VARNEL_VERSION "1.0.0"

VARNEL_BEGIN_DECLS

/** The version of the interface: 1.0. */
extern VARNEL_API const double VarnelVersionNumber;

/** The version as the `what` command reads it: "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n". */
extern VARNEL_API const unsigned char VarnelVersionString[];

/* ---- the record's lifecycle --------------------------------------------------------------------- */

VARNEL_API int result_init(PARSE_RESULT *pResult, char *buffer, int buffer_size);
VARNEL_API int result_clear(PARSE_RESULT *pResult);

/* ---- portable entry and export ------------------------------------------------------------------ */

enum {
  VARNEL_BUFFER_SIZE = 1024,  /**< a buffer of this size holds every value of every document */
  VARNEL_EXAMINED_MAX = 1023, /**< no more than this many UTF-16 units of a text are examined */
  VARNEL_VALUE_COUNT = 12     /**< values that a document is exported as */
};

/** One exported value under its key. */
typedef struct _VARNEL_PAIR {
  const char *key; /**< one of the twelve keys, NUL-terminated, constant for the life of the program */
  STRING value;    /**< never null; length 0 where the document has no such value */
} VARNEL_PAIR;

VARNEL_API int varnel_utf16_length(const char *text, size_t size);
VARNEL_API int varnel_parse_mrz(const char *text, int length, PARSE_RESULT *result, char *buffer,
                                int buffer_size);
VARNEL_API STRING varnel_value(const PARSE_RESULT *result, int field);
VARNEL_API int varnel_export(const PARSE_RESULT *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]);

VARNEL_END_DECLS

#endif
