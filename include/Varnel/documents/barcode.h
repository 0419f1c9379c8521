/**
 * @file documents/barcode.h
 * @brief Reading the PDF417 barcode of a driver's licence or identification card (AAMVA DL/ID).
 */
#ifndef VARNEL_DOCUMENTS_BARCODE_H
#define VARNEL_DOCUMENTS_BARCODE_H

#include <Varnel/documents/defines.h>

#include <stddef.h>
#include <stdint.h>

/**
 * @defgroup varnel_barcode Reading a driver's licence
 * @brief The text of a US or Canadian card's barcode, into the record that zones are read into.
 *
 * The elements go to the slots that the element tables of <Varnel/pdf417/barcode_mapping.h> give them, and
 * varnel_export() then gives the same twelve values as for a passport, with the jurisdiction code and the
 * date of issue. What the text has beyond that, and every place where it departs from the standard and was
 * read all the same, is in a varnel_barcode_info.
 *
 * @code{.c}
 *   PARSE_RESULT record;
 *   char buffer[VARNEL_BARCODE_BUFFER_SIZE(4096)];
 *   varnel_barcode_info info;
 *   VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
 *
 *   if (varnel_barcode(text, size, &record, buffer, sizeof buffer, &info) == ERR_OK) {
 *     varnel_export(&record, pairs);
 * @endcode
 * @{
 */

VARNEL_BEGIN_DECLS

/** Sizes. */
enum {
  VARNEL_BARCODE_TEXT_MAX = 65536, /**< bytes of a text that can be read */
  VARNEL_BARCODE_SUBFILES = 8,     /**< subfiles of a card that are read */
  VARNEL_BARCODE_ELEMENTS = 64,    /**< elements without a slot that an info holds */
  VARNEL_BARCODE_FINDINGS_MAX = 64 /**< findings that an info holds */
};

/** A buffer of this size, in bytes, holds every value of every text of `size` bytes. */
#define VARNEL_BARCODE_BUFFER_SIZE(size) (2 * (size) + 64)

/** Codes of findings: X(constant, name in JSON, meaning). */
#define VARNEL_BARCODE_FINDINGS(X)                                                                           \
  X(VARNEL_BARCODE_BYTE_ORDER_MARK, "byteOrderMark", "a byte order mark begins the text")                    \
  X(VARNEL_BARCODE_TEXT_BEFORE, "textBefore", "text stands before the compliance indicator @")               \
  X(VARNEL_BARCODE_INDICATOR_MISSING, "indicatorMissing", "the compliance indicator @ is missing")           \
  X(VARNEL_BARCODE_HEADER_CONTROLS, "headerControls",                                                        \
    "control characters of the header are lost, doubled or changed")                                         \
  X(VARNEL_BARCODE_FILE_TYPE, "fileType", "the file type is AAMVA, not ANSI")                                \
  X(VARNEL_BARCODE_VERSION_MISSING, "jurisdictionVersionMissing", "the jurisdiction version is missing")     \
  X(VARNEL_BARCODE_VERSION_EXTRA, "jurisdictionVersionExtra",                                                \
    "there is a jurisdiction version before version 02")                                                     \
  X(VARNEL_BARCODE_ENTRIES, "entries", "the number of entries is not the number of designators")             \
  X(VARNEL_BARCODE_OFFSET, "offset", "the subfile does not stand at its offset")                             \
  X(VARNEL_BARCODE_LENGTH, "length", "the subfile does not have its length")                                 \
  X(VARNEL_BARCODE_TYPE_LETTERS, "typeLettersMissing", "the subfile does not begin with its type letters")   \
  X(VARNEL_BARCODE_SUBFILE_MISSING, "subfileMissing", "the subfile was not found")                           \
  X(VARNEL_BARCODE_LINE_FEED_ADDED, "lineFeedAdded", "CR LF stands where one separator should")              \
  X(VARNEL_BARCODE_LINE_FEED, "lineFeed", "LF stands for the CR that ends a subfile")                        \
  X(VARNEL_BARCODE_CARRIAGE_RETURN, "carriageReturn", "CR stands for the LF between elements")               \
  X(VARNEL_BARCODE_SEPARATORS, "separators", "separators are doubled or out of place")                       \
  X(VARNEL_BARCODE_TERMINATOR, "terminatorMissing", "the subfile does not end with CR")                      \
  X(VARNEL_BARCODE_PRINTED_RETURN, "printedReturn", "the CR that ends a subfile was printed as M")           \
  X(VARNEL_BARCODE_SMALL_LETTERS, "smallLetters", "an identifier or type is in small letters")               \
  X(VARNEL_BARCODE_TEXT_AFTER, "textAfter", "text stands after the end of a subfile")                        \
  X(VARNEL_BARCODE_NO_ELEMENT, "notAnElement", "a line does not begin with an identifier")                   \
  X(VARNEL_BARCODE_NO_HEADER, "headerMissing", "elements alone, without a header")                           \
  X(VARNEL_BARCODE_NO_SEPARATORS, "separatorsMissing",                                                       \
    "the separators are lost; the subfile's length leaves one way to divide it")                             \
  X(VARNEL_BARCODE_OTHER_TABLE, "otherTable", "the table of the card's version does not have the element")   \
  X(VARNEL_BARCODE_REPEATED, "repeated", "the element's slot is taken by an earlier value")                  \
  X(VARNEL_BARCODE_UNKNOWN, "unknownElement", "no table has the element")                                    \
  X(VARNEL_BARCODE_CONTROL, "controlCharacter", "control characters were left out of a value")               \
  X(VARNEL_BARCODE_BAD_DATE, "notADate", "not a day of the calendar; no value was stored")                   \
  X(VARNEL_BARCODE_DATE_SEPARATORS, "dateSeparators", "separators were left out of a date")                  \
  X(VARNEL_BARCODE_DATE_ORDER, "dateOrder", "not in the order of the card's version and country")            \
  X(VARNEL_BARCODE_NAME_NOT_SPLIT, "nameNotSplit", "the name does not say where its parts end")              \
  X(VARNEL_BARCODE_BY_ISSUER, "jurisdictionByIssuer", "the jurisdiction is that of the issuer number")       \
  X(VARNEL_BARCODE_REFUSED, "notABarcode", "neither a header nor lines of elements")                         \
  X(VARNEL_BARCODE_NO_SUBFILE, "noSubfile", "a header, but no subfile that can be read")                     \
  X(VARNEL_BARCODE_AMBIGUOUS, "ambiguous", "no separators, and not exactly one way to divide the text")

/** Findings by number. */
enum {
  VARNEL_BARCODE_NO_FINDING = 0,
#define VARNEL_BARCODE_FINDING_CONSTANT(constant, name, meaning) constant,
  VARNEL_BARCODE_FINDINGS(VARNEL_BARCODE_FINDING_CONSTANT)
#undef VARNEL_BARCODE_FINDING_CONSTANT
      VARNEL_BARCODE_FINDING_END /**< one more than the last code */
};

/** An element without a slot, and the place of its value: bytes of the text from `start` to before `end`. */
typedef struct varnel_barcode_element {
  char element[4]; /**< its identifier in capitals, NUL-terminated */
  uint32_t start;  /**< the first byte of its value */
  uint32_t end;    /**< the byte after its value */
} varnel_barcode_element;

/** A place where the text departs from the standard, or where a value could not be taken as it stands. */
typedef struct varnel_barcode_finding {
  uint8_t code;    /**< one of VARNEL_BARCODE_FINDINGS */
  char element[4]; /**< the element's identifier or the subfile's type, NUL-terminated; empty for neither */
  uint32_t offset; /**< the byte of the text, from 0 */
} varnel_barcode_finding;

/** What a barcode says beside its slots: a plain value that owns its text and may be copied. */
typedef struct varnel_barcode_info {
  int16_t version;       /**< AAMVA version of the header, 0 to 99; -1 without a header */
  char issuer[7];        /**< issuer identification number, six digits; empty without a header */
  char jurisdiction[3];  /**< the issuer's jurisdiction, two letters; empty where it is not known */
  char country[4];       /**< the issuer's country, three letters; empty where it is not known */
  uint8_t subfile_count; /**< entries of `subfiles` */
  uint8_t element_count; /**< entries of `elements` */
  uint8_t finding_count; /**< entries of `findings` */
  char subfiles[VARNEL_BARCODE_SUBFILES][3]; /**< types as the header lists them, in capitals */
  uint32_t omitted_elements;                 /**< elements without a slot that found no room here */
  uint32_t omitted_findings;                 /**< findings that found no room here */
  varnel_barcode_element elements[VARNEL_BARCODE_ELEMENTS];     /**< in the order of the text */
  varnel_barcode_finding findings[VARNEL_BARCODE_FINDINGS_MAX]; /**< by offset; a refusal's reason last */
} varnel_barcode_info;

/**
 * Reads the text of a barcode into a record.
 *
 * **Elements and slots.** Versions 00 and 01 go by MAP_AAMVA_2D01; 02 and 03 by MAP_AAMVA_2D03; 04 of Hawaii
 * by MAP_AAMVA_2D04_HAWAII; 04 to 07 by MAP_AAMVA_2D06; later ones, and texts without a header, by
 * MAP_AAMVA_2D08. An element that its table lacks goes where the first of 2D08, 2D06, 2D03 and 2D01 that has
 * it says. The first value keeps a slot.
 *
 * **The twelve values**, where empty, are filled from their siblings: birth date from slot 11, document
 * number from 55, country from 56 or the issuer number, names from DAA and DCT, the jurisdiction code from
 * the issuer number; the document type is "DL", "ID" or "EN", the first that the header lists. Such slots may
 * share their text.
 *
 * **Values** are UTF-8: what is valid UTF-8 stays, any other byte is taken as ISO 8859-1; control characters
 * are left out. Dates have eight digits, year first; a date that does not exist is not stored. Sex is "M",
 * "F" or empty. NONE, UNAVL and UNAVAIL in any case are empty, but as a family name. Spaces at both ends and
 * a trailing comma are trimmed; several middle names are joined by one space.
 *
 * Nothing is guessed in silence: each departure from the standard is a finding.
 *
 * @param text        the text, control characters included; need not be NUL-terminated. Null with a size of 0
 *                    is an empty text, else a bad argument.
 * @param size        its length in bytes, at most VARNEL_BARCODE_TEXT_MAX.
 * @param[out] record the record, set up anew here; null is a bad argument.
 * @param buffer      the buffer to lend to the record; stays the caller's and has to live as long as the
 *                    record is read. Null is a bad argument.
 * @param buffer_size its capacity in bytes; VARNEL_BARCODE_BUFFER_SIZE(size) is always enough.
 * VARNEL_BUFFER_SIZE is meant for zones and too small for many cards.
 * @param[out] info   what else the text says, written whole; null is a bad argument.
 * @return ERR_OK; ERR_INVALID_FORMAT for a text that is refused, and then the record is empty and the last
 *         finding is the reason; ERR_INVALID_ARGS for a buffer with less room than the values need (none is
 *         ever cut), and then the record is empty, or for a bad argument, and then nothing was written.
 *
 * Standard: AAMVA DL/ID card design standard, all editions. Allocates nothing; uses less than 2 KiB of stack.
 */
VARNEL_DOCUMENTS_API int varnel_barcode(const char *text, size_t size, varnel_parse_result *record,
                                        char *buffer, int buffer_size, varnel_barcode_info *info);

/**
 * Writes an info as one line of JSON (UTF-8, no line end).
 *
 * Keys, all always present: `version` (null without a header), `issuer`, `jurisdiction`, `country` (null
 * where not known), `subfiles`, `elements` (`element`, `start`, `end`), `findings` (`code`, `offset`,
 * `element`, null for none), `omitted` (`elements`, `findings`: how many found no room).
 *
 * @param info     as varnel_barcode() wrote it; null is a bad argument.
 * @param[out] out room for the text; null is allowed with a size of 0.
 * @param size     the room in bytes, the terminating NUL included.
 * @return the length of the whole text in bytes, without the NUL, whatever the room: as snprintf() does. With
 *         room, what fits was written, NUL-terminated. ERR_INVALID_ARGS for a bad argument.
 */
VARNEL_DOCUMENTS_API int varnel_barcode_info_json(const varnel_barcode_info *info, char *out, size_t size);

VARNEL_END_DECLS

/** @} */

#endif
