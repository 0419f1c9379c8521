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

/**
 * @defgroup varnel_document Reading a document
 * @brief From text to values in one call, or by way of a record. And the version.
 *
 * Threads: any number may call these functions at once, each with a record, buffer or document of its own.
 * Records and documents that are only read may be shared.
 *
 * @code{.c}
 * varnel_document document;
 * if (varnel_read(text, strlen(text), &document) == ERR_OK) {
 *   // document.layout_name is "TD3", values[0].key "firstName" and values[0].value.str "ANNA"
 * @endcode
 *
 * With a record and a buffer of one's own, in steps:
 *
 * @code{.c}
 * PARSE_RESULT result;
 * char buffer[VARNEL_BUFFER_SIZE];
 * VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
 *
 * int length = varnel_utf16_length(text, strlen(text));
 * if (varnel_parse_mrz(text, length, &result, buffer, sizeof buffer) == ERR_OK) {
 *   varnel_export(&result, pairs);
 * }
 * @endcode
 */

/**
 * @defgroup varnel_record The result record
 * @brief Lending a buffer to a record, emptying it, asking its slots.
 *
 * A record and its buffer belong to the caller and need no teardown.
 *
 * Threads: while one writes to a record, no other may use it. Records that are only read may be shared.
 */

/**
 * @addtogroup varnel_document
 * @{
 */

/** The release of this copy of Varnel. Every package takes its version from this line. */
#define VARNEL_VERSION "1.0.0"

/* The Objective-C part below states what may be nil; clang would then have every pointer here do so. */
#if defined(__OBJC__) && defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wnullability-completeness"
#endif

VARNEL_BEGIN_DECLS

/** The version of the interface: 1.0. */
extern VARNEL_API const double VarnelVersionNumber;

/** The version as the `what` command reads it: "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n". */
extern VARNEL_API const unsigned char VarnelVersionString[];

/** @} */

/* ---- the record's lifecycle --------------------------------------------------------------------- */

/**
 * @addtogroup varnel_record
 * @{
 */

/**
 * Lends a buffer to a record and clears both, as result_clear() does. The record may hold anything before.
 *
 * @param pResult     the record; null is a bad argument.
 * @param buffer      where the texts of the slots will lie; null is a bad argument. It stays the caller's,
 *                    and has to live as long as the record's slots are read.
 * @param buffer_size capacity of `buffer` in bytes; below 1 is a bad argument. VARNEL_BUFFER_SIZE is enough
 *                    for every zone; a licence may need more, see varnel_barcode().
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument, and then nothing changed.
 */
VARNEL_API int result_init(varnel_parse_result *pResult, char *buffer, int buffer_size);

/**
 * Empties a record for reuse: all slots, the parser's identifiers and every byte of the buffer, which is
 * filled with NUL. Views into the buffer lose their text. May be called any number of times.
 *
 * @param pResult the record, set up by result_init(); null, or a record without a buffer, is a bad argument.
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument, and then nothing changed.
 */
VARNEL_API int result_clear(varnel_parse_result *pResult);

/** @} */

/* ---- portable entry and export ------------------------------------------------------------------ */

/**
 * @addtogroup varnel_document
 * @{
 */

/** Sizes of the portable entry and export. */
enum {
  VARNEL_BUFFER_SIZE = 1024,  /**< a buffer of this size holds every value of every zone */
  VARNEL_EXAMINED_MAX = 1023, /**< no more than this many UTF-16 units of a text are examined */
  VARNEL_VALUE_COUNT = 12     /**< values that a document is exported as */
};

/** One exported value under its key. */
typedef struct _VARNEL_PAIR {
  const char *key;     /**< one of the twelve keys, NUL-terminated, constant for the life of the program */
  varnel_string value; /**< never null; length 0 where the document has no such value */
} VARNEL_PAIR;

/**
 * Counts the UTF-16 units of a UTF-8 text: the length that varnel_parse_mrz() wants.
 *
 * A character beyond the basic plane counts 2, any other 1; a byte that cannot be decoded counts 1.
 *
 * @param text the text, NUL bytes included; null counts 0.
 * @param size its length in bytes; 0 counts 0.
 * @return the count, at most VARNEL_EXAMINED_MAX: no more of a text is ever examined.
 */
VARNEL_API int varnel_utf16_length(const char *text, size_t size);

/**
 * Reads the text of a machine-readable zone (ICAO Doc 9303: TD1, TD2, TD3, MRV-A, MRV-B) into a record.
 *
 * The text is normalised by normalize_mrz() and offered to MRZ_td1_parse(), MRZ_td2_parse(),
 * MRZ_passport_parse() and MRZ_visa_parse(), in that order; the first that accepts it wins. To know:
 *
 * - **The length is counted in UTF-16 units**, as Foundation counts a string's, while the text is UTF-8:
 *   only as many bytes are examined as the text has units. In text of more than ASCII, the end of the
 *   text goes unread by as many bytes as the two counts differ.
 * - **The reference date is fixed** at 15 February 2018 and is not today: years of birth 00 to 17 are 2000 to
 *   2017, 18 to 99 are 1918 to 1999, in every year to come.
 * - **A refused record may hold values**: what a parser wrote before it refused the zone stays. A text that
 *   is accepted shows values of the accepting parser only, because no other writes anything for that text:
 *   the layouts differ in length or in the letters they begin with.
 * - **No check digit is compared.**
 *
 * @param text        the text, UTF-8 of at least `length` bytes, or of VARNEL_EXAMINED_MAX bytes if `length`
 *                    is more; line breaks, spaces and noise are fine. It must not overlap `buffer` or
 *                    `result`, which are cleared before it is read. Null is a bad argument.
 * @param length      its length in UTF-16 units, as varnel_utf16_length() counts; 0 or less is a bad
 *                    argument.
 * @param[out] result the record, set up anew here; null is a bad argument.
 * @param buffer      the buffer to lend to the record; stays the caller's and has to live as long as the
 *                    record is read. Null is a bad argument.
 * @param buffer_size its capacity in bytes; below 1 is a bad argument. With VARNEL_BUFFER_SIZE no value is
 *                    ever cut.
 * @return ERR_OK; ERR_INVALID_FORMAT when no layout accepts the text, and then the record may hold values
 *         that refusing parsers wrote; ERR_INVALID_ARGS for a bad argument, and then the record is empty, or
 *         unchanged when `result`, `buffer` or `buffer_size` is at fault.
 *
 * Allocates nothing; uses about a kilobyte of stack.
 */
VARNEL_API int varnel_parse_mrz(const char *text, int length, varnel_parse_result *result, char *buffer,
                                int buffer_size);

/**
 * The text of a slot as it is exported: from the slot's first character to the first NUL.
 *
 * The slot's length is not consulted, the end of the record's buffer is: a value that the buffer's end left
 * without a terminator is read up to there, together with what follows it. Text that a caller put into a
 * slot from outside the buffer must be NUL-terminated.
 *
 * @param result the record, set up by result_init(); null has no texts.
 * @param field  slot number, 0 to 138; any other slot is empty.
 * @return a view into the record's buffer, valid until that is cleared or freed; for an empty slot {"", 0},
 *         never null.
 */
VARNEL_API varnel_string varnel_value(const varnel_parse_result *result, int field);

/**
 * Hands out a record as twelve values under fixed keys, in this order: firstName, lastName, middleName,
 * licenseNumber, birthDate, expirationDate, gender, countryCode, jurisdictionCode, nationality, documentType,
 * issueDate.
 *
 * Values are as varnel_value() gives them, passed through as stored. The jurisdiction code is the first of
 * the slots 34, 4, 71, 72 and 70 that is not empty, descriptions of endorsements, restrictions and vehicle
 * class after the two codes. A machine-readable zone has neither issue date nor jurisdiction code: both are
 * empty.
 *
 * @param result     the record, set up by result_init(); null is a bad argument.
 * @param[out] pairs the twelve pairs, room for VARNEL_VALUE_COUNT; null is a bad argument. Keys are constants
 *                   of the library; values are views into the record's buffer, valid as long as that.
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument, and then nothing was written.
 */
VARNEL_API int varnel_export(const varnel_parse_result *result, VARNEL_PAIR pairs[VARNEL_VALUE_COUNT]);

/** A document that was read: its layout, its twelve values and all they are made of. */
typedef struct varnel_document {
  int layout;              /**< VARNEL_LAYOUT_TD1 to VARNEL_LAYOUT_MRV_B; VARNEL_LAYOUT_NONE */
  const char *layout_name; /**< "TD1", "TD2", "TD3", "MRV-A", "MRV-B"; "" for none. A constant */
  VARNEL_PAIR values[VARNEL_VALUE_COUNT]; /**< the twelve values in the order of varnel_export() */
  varnel_parse_result record;             /**< the slots, for varnel_value() */
  char text[VARNEL_BUFFER_SIZE];          /**< where the texts of the slots and values lie */
} varnel_document;

/**
 * Reads the text of a machine-readable zone (ICAO Doc 9303: TD1, TD2, TD3, MRV-A, MRV-B) into a document: in
 * one call what varnel_utf16_length(), varnel_parse_mrz() and varnel_export() do.
 *
 * The twelve values are always set, and all of them are NUL-terminated: `values[i].value.str` is a C string.
 * It is never null, and empty where the document has no such value. Slots beyond the twelve, such as a
 * passport's personal number, come from varnel_value() on `record`.
 *
 * Values point into the document: they live as long as it does and stays where it is. A copy's values still
 * point into the original; varnel_read() fills a document in place.
 *
 * @param text          the text as the reader saw it, UTF-8: line breaks, spaces and noise are fine. It must
 * not overlap the document. Null is a bad argument.
 * @param size          its length in bytes, NUL bytes included; 0 is a bad argument. No more than
 *                      VARNEL_EXAMINED_MAX UTF-16 units are examined, and in text of more than ASCII the end
 * goes unread, as varnel_parse_mrz() says.
 * @param[out] document the document; may hold anything before. Null is a bad argument.
 * @return ERR_OK; ERR_INVALID_FORMAT when no layout accepts the text; ERR_INVALID_ARGS for a bad argument.
 * After a failure the document has no layout and twelve empty values, unless it is null itself.
 *
 * Allocates nothing. A document has about three and a half kilobytes; the call uses another kilobyte of
 * stack.
 */
VARNEL_API int varnel_read(const char *text, size_t size, varnel_document *document);

/** @} */

VARNEL_END_DECLS

/* ---- Objective-C -------------------------------------------------------------------------------- */

#ifdef __OBJC__
#import <Foundation/Foundation.h>

/* To the pedantic, nullability is an extension, and so is a class without instance variables. */
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"

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
- (VARNEL_STRING_DICTIONARY *VARNEL_NONNULL)parseResult:(varnel_parse_result *VARNEL_NULLABLE)result
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
                                   inResult:(varnel_parse_result *VARNEL_NULLABLE)result
    VARNEL_SWIFT_NAME("getValue(forKey:inResult:)");

@end

/** Reads a string in one call. */
@interface NSString (Varnel)

/**
 * Reads the receiver with a new Varnel.
 *
 * @return what -[Varnel parseMRZStringForDictionary:] answers for the receiver, autoreleased, or nil
 */
- (VARNEL_STRING_DICTIONARY *VARNEL_NULLABLE)
    parseMRZStringForDict VARNEL_SWIFT_NAME("parseMRZStringForDict()");

@end

#pragma GCC diagnostic pop
#ifdef __clang__
#pragma clang diagnostic pop
#endif
#endif

#endif
