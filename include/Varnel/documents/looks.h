/**
 * @file documents/looks.h
 * @brief Several looks at one document, combined into one inspection.
 */
#ifndef VARNEL_DOCUMENTS_LOOKS_H
#define VARNEL_DOCUMENTS_LOOKS_H

#include <Varnel/documents/inspect.h>

/**
 * @defgroup varnel_looks Several looks at a document
 * @brief What one frame of a camera misreads, another may show.
 *
 * Frames of one document help much; several readers of one picture make the same errors.
 * @{
 */

VARNEL_BEGIN_DECLS

enum {
  VARNEL_LOOKS = 8 /**< looks that a record holds; of more, the weakest gives way */
};

/** What one look showed. Its members are the library's own. */
typedef struct varnel_look {
  uint32_t unproven;    /**< 1 << field: a value that may have been misread */
  int16_t score;        /**< how much of it holds; the weakest look has the least */
  uint8_t layout;       /**< VARNEL_LAYOUT_… */
  uint8_t dropped;      /**< 1 << line: characters were dropped within it */
  uint8_t change_count; /**< entries of `changes` */
  char zone[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH + 1]; /**< its lines, NUL-terminated */
  varnel_source source[VARNEL_ZONE_LINES];             /**< where each line stands in its text */
  varnel_source field_source[VARNEL_INSPECTED_FIELDS]; /**< where each field stands in its text */
  varnel_change changes[VARNEL_CHANGES];               /**< what was changed in it */
} varnel_look;

/** Looks at one document: a plain value. All zeros, it holds none. */
typedef struct varnel_looks {
  varnel_look looks[VARNEL_LOOKS]; /**< what each of them showed */
  varnel_inspection last;          /**< the look added last, as varnel_inspect() would write it */
  uint8_t count;                   /**< entries of `looks` */
} varnel_looks;

/**
 * Adds a look: a text with a zone of the document somewhere in it.
 *
 * A record that is full keeps the best looks.
 *
 * @param[in,out] looks the looks so far, zeroed before the first; null is a bad argument.
 * @param text          as for varnel_inspect().
 * @param size          as for varnel_inspect().
 * @param options       as for varnel_inspect().
 * @return ERR_OK when a zone was found; ERR_INVALID_FORMAT when there is none, and then the look counts for
 *         nothing: `looks->last` says why. ERR_INVALID_ARGS for a bad argument, and then nothing was written.
 */
VARNEL_DOCUMENTS_API int varnel_looks_add(varnel_looks *looks, const char *text, size_t size,
                                          const varnel_inspect_options *options);

/**
 * Inspects what the looks show together.
 *
 * The layout is that of the strongest looks. Columns and names are voted, numbers weighed by what each look
 * could have meant; check digits decide. What is not settled is a finding: VARNEL_FINDING_UNPROVEN, and
 * VARNEL_FINDING_LOOKS_DIFFER where two looks prove two values, being looks at two documents.
 *
 * @param looks           the looks; null is a bad argument. None: the inspection is a refusal.
 * @param options         as for varnel_inspect(); with VARNEL_REPAIR_DIGITS, look-alikes in numbers count as
 * what a look could have meant.
 * @param[out] inspection the record, written whole, also where it is `looks->last`; null is a bad argument.
 * The verdict is VARNEL_VERDICT_VALID or _REPAIRED where a single look shows that zone, with that look's
 * changes and places; else VARNEL_VERDICT_VOTED, without either.
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument, and then nothing was written.
 */
VARNEL_DOCUMENTS_API int varnel_looks_inspect(const varnel_looks *looks,
                                              const varnel_inspect_options *options,
                                              varnel_inspection *inspection);

VARNEL_END_DECLS

/** @} */

#endif
