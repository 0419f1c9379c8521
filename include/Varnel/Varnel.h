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

/* The Objective-C part below states what may be nil; clang would then have every pointer here do so. */
#if defined(__OBJC__) && defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wnullability-completeness"
#pragma clang diagnostic ignored "-Wnullability-extension"
#endif

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

/* ---- Objective-C -------------------------------------------------------------------------------- */

#ifdef __OBJC__
#import <Foundation/Foundation.h>

/* Nullability, generics and Swift names, for the compilers that know them. */
#ifdef __clang__
#define VARNEL_NULLABLE _Nullable
#define VARNEL_NONNULL _Nonnull
#define VARNEL_STRING_DICTIONARY NSDictionary<NSString *, NSString *>
#define VARNEL_SWIFT_NAME(name) __attribute__((swift_name(name)))
#define VARNEL_CLASS VARNEL_API /* a hidden class cannot be linked to or subclassed from outside */
#else
#define VARNEL_NULLABLE
#define VARNEL_NONNULL
#define VARNEL_STRING_DICTIONARY NSDictionary
#define VARNEL_SWIFT_NAME(name)
#define VARNEL_CLASS
#endif

/**
 * Reads the machine-readable zone of a travel document into a dictionary of twelve strings.
 *
 * The class holds no state: one instance serves any number of threads at once, and nothing is gained by
 * keeping it. All twelve keys are always there, a value that the document does not have is the empty
 * string: "firstName", "lastName", "middleName", "licenseNumber", "birthDate", "expirationDate",
 * "gender", "countryCode", "jurisdictionCode", "nationality", "documentType", "issueDate".
 */
VARNEL_CLASS
@interface Varnel : NSObject

/**
 * Reads a text as varnel_parse_mrz() does and exports what was read.
 *
 * @param mrz the text of the zone, line breaks and all; nil gives nil. As many bytes of its UTF-8 form
 *            are examined as the text has UTF-16 units, 1023 at most, so each character beyond ASCII
 *            cuts the end of the text short. A text with a lone surrogate has no UTF-8 form: nil.
 * @return    an autoreleased dictionary, or nil where no layout accepts the text. No reason is given.
 */
- (VARNEL_STRING_DICTIONARY *VARNEL_NULLABLE)parseMRZStringForDictionary:(NSString *VARNEL_NULLABLE)mrz
    VARNEL_SWIFT_NAME("parseMRZString(forDictionary:)");

/**
 * Exports a record as varnel_export() does. Each slot is read with getValueForKey:inResult:, once.
 *
 * @param result a record that was initialised, or NULL: all twelve values are then empty.
 * @return       an autoreleased dictionary of the twelve keys. Values are passed through as stored.
 *               Raises NSInvalidArgumentException where an exported slot holds malformed UTF-8, which
 *               no layout parser stores.
 */
- (VARNEL_STRING_DICTIONARY *VARNEL_NONNULL)parseResult:(PARSE_RESULT *VARNEL_NULLABLE)result
    VARNEL_SWIFT_NAME("parseResult(_:)");

/**
 * The text of one slot, up to its first NUL: the length of the slot's view is not consulted.
 *
 * @param key    the slot's number, such as FIELD_FAMILY_NAME; outside 0 to 138: the empty string.
 * @param result the record, or NULL: the empty string.
 * @return       an autoreleased string, the empty one for a slot without text; nil where the text is
 *               malformed UTF-8.
 */
- (NSString *VARNEL_NULLABLE)getValueForKey:(int)key
                                   inResult:(PARSE_RESULT *VARNEL_NULLABLE)result
    VARNEL_SWIFT_NAME("getValue(forKey:inResult:)");

@end

/** Reads a string in one call. */
@interface NSString (Varnel)

/** What a new Varnel answers for the receiver: see -[Varnel parseMRZStringForDictionary:]. */
- (VARNEL_STRING_DICTIONARY *VARNEL_NULLABLE)
    parseMRZStringForDict VARNEL_SWIFT_NAME("parseMRZStringForDict()");

@end

#ifdef __clang__
#pragma clang diagnostic pop
#endif
#endif

#endif
