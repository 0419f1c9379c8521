/**
 * @file utils.h
 * @brief Text utilities: field writers, trimming, matching, calendar dates, Soundex.
 *
 * All functions work in the caller's memory. None keeps state, allocates or depends on the process locale.
 */
#ifndef VARNEL_UTILS_H
#define VARNEL_UTILS_H

#include <Varnel/defines.h>

/**
 * @defgroup varnel_utils Text utilities
 * @brief Copying, trimming, checking, matching and replacing text; calendar dates; Soundex.
 *
 * What holds for every function of this module, unless it says otherwise:
 *
 * - **Memory.** Nothing is allocated and nothing is kept: records, buffers, views and sets belong to the
 *   caller. Views that come back point into the caller's text and live as long as that text.
 * - **Text** is a STRING, `len` bytes from `str`, with no NUL needed after it. It is empty when `len` is
 *   below 1 or `str` is null. A few functions treat a negative `len` unlike 0, which would need a faulty
 *   caller; they say so. Bytes are characters: UTF-8 passes through byte by byte.
 * - **Sets** of characters are NUL-terminated lists in which order and repetition do not matter. A null
 *   set is the empty set.
 * - **Predicates** get each character sign-extended from a signed char, so bytes above 0x7F arrive as -128
 *   to -1, and return non-zero for yes; they are never asked about the NUL that ends a C text. What else
 *   a predicate may do: see ::_t_predicate_func.
 * - **Overlap.** Where a function writes to a buffer, the texts it reads lie elsewhere, unless it says
 *   otherwise.
 * - **Sizes** are in bytes, **positions** count from 0 unless said otherwise.
 * - **Threads.** Any number of threads may call any of these functions at once, as long as what one of them
 *   writes to (a record, a buffer, a view, an array) is used by no other. Texts and records that are only
 *   read may be shared. Predicates and writers of the caller's have to allow as much.
 * - **Locale.** Letters are A to Z and a to z, digits 0 to 9, in every locale.
 */

VARNEL_BEGIN_DECLS

/**
 * @addtogroup varnel_utils
 * @{
 */

/** The decimal digits "0123456789", NUL-terminated: a digit's value indexes its character. */
extern VARNEL_API const char DIGITS[11];

/** @} */

/* ---- slot queries ------------------------------------------------------------------------------- */

/**
 * @addtogroup varnel_record
 * @{
 */

/**
 * Asks whether a slot holds text: a length of at least 1 and a pointer that is not null.
 *
 * @param pResult the record, set up by result_init(); null answers no.
 * @param field   slot number, 0 to 138; any other answers no.
 * @return ERR_OK when the slot holds text, else ERR_FAILED.
 *
 * Changes nothing.
 */
VARNEL_API int utils_is_valid_field(const varnel_parse_result *pResult, int field);

/**
 * Finds the first of several slots that holds text, by the rule of utils_is_valid_field().
 *
 * @param pResult    the record, set up by result_init(); null finds nothing.
 * @param fields     slot numbers in order of preference; numbers outside 0 to 138 count as empty slots.
 *                   May be null when `count` is 0 or less.
 * @param count      how many numbers `fields` has; 0 or less finds nothing.
 * @param[out] value the view of the slot found, pointing into the record's buffer; not null. Untouched
 *                   when there is none.
 * @return ERR_OK, or ERR_NOT_FOUND when none of the slots holds text.
 *
 * Changes nothing in the record.
 */
VARNEL_API int utils_get_valid_field(const varnel_parse_result *pResult, const int *fields, int count,
                                     varnel_string *value);

/** @} */

/* ---- bounded copiers: no terminator ------------------------------------------------------------- */

/**
 * @defgroup varnel_utils_copy Copiers
 * @ingroup varnel_utils
 * @brief Copy views into plain buffers, filtering on the way.
 *
 * All of them and the slot writers share one loop. For each character of the source: a
 * removed character becomes `rep`, or is left out when `rep` is NUL; then a character of the duplicate
 * set that equals the last one written is left out. A replaced character therefore collapses with an equal
 * neighbour: with removed "<", duplicate " " and a space as `rep`, `SMITH<<JOHN` becomes `SMITH JOHN`.
 * A single leading space is kept.
 *
 * The `utils_strcpy` family writes no terminator and returns how many characters it wrote. The
 * `utils_strwrite` family keeps one byte for a NUL and returns how many bytes it used, the NUL included;
 * a copy that comes out empty writes nothing at all, not even the NUL, and returns 0.
 *
 * A source that does not fit is cut to the room there is; that is not an error. Source and output must
 * not overlap.
 * @{
 */

/**
 * Copies a view, filtered by sets of characters. No terminator.
 *
 * @param[out] out        where to copy to; null copies nothing.
 * @param o_len           room at `out` in bytes; below 1 copies nothing.
 * @param src             the view to copy; null or empty copies nothing.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the number of characters written, 0 to `o_len`.
 */
VARNEL_API int utils_strcpy(char *out, int o_len, const varnel_string *src, const char *removed_chars,
                            const char *duplicate_chars, char rep);

/**
 * Copies a view, filtered by predicates. No terminator.
 *
 * @param[out] out  where to copy to; null copies nothing.
 * @param o_len     room at `out` in bytes; below 1 copies nothing.
 * @param src       the view to copy; null or empty copies nothing.
 * @param removed   whether to replace a character by `rep` or leave it out; null for never.
 * @param duplicate whether a run of a character becomes one; null for never. Asked only about a
 *                  character that equals the last one written.
 * @param rep       what a removed character becomes; NUL leaves it out.
 * @return the number of characters written, 0 to `o_len`.
 */
VARNEL_API int utils_strcpy_f(char *out, int o_len, const varnel_string *src, varnel_predicate_func removed,
                              varnel_predicate_func duplicate, char rep);

/**
 * Copies several views one after another with a separator between them. No terminator.
 *
 * Each view is a copy of its own: collapsing starts afresh in each, and separators never collapse. Empty
 * views are passed over together with their separator. The separator in front of a view stays even when
 * it takes the last byte or when filtering leaves nothing of that view.
 *
 * @param[out] out        where to copy to; null copies nothing.
 * @param o_len           room at `out` in bytes; below 1 copies nothing.
 * @param src             array of `count` views; null copies nothing.
 * @param count           number of views; below 1 copies nothing.
 * @param sep             the separator, written as it is, NUL included.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the number of characters written, 0 to `o_len`.
 */
VARNEL_API int utils_strcpy_array(char *out, int o_len, const varnel_string *src, int count, char sep,
                                  const char *removed_chars, const char *duplicate_chars, char rep);

/* ---- terminating copiers ------------------------------------------------------------------------ */

/**
 * Copies a view as utils_strcpy() does and terminates the copy.
 *
 * @param[out] out        where to copy to; null writes nothing.
 * @param o_len           room at `out` in bytes, the NUL included; below 2 writes nothing.
 * @param src             the view to copy; null or empty writes nothing.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the number of bytes used, the NUL included; 0 when nothing was written, not even a NUL.
 */
VARNEL_API int utils_strwrite(char *out, int o_len, const varnel_string *src, const char *removed_chars,
                              const char *duplicate_chars, char rep);

/**
 * Copies a view as utils_strcpy_f() does and terminates the copy.
 *
 * @param[out] out  where to copy to; null writes nothing.
 * @param o_len     room at `out` in bytes, the NUL included; below 2 writes nothing.
 * @param src       the view to copy; null or empty writes nothing.
 * @param removed   whether to replace a character by `rep` or leave it out; null for never.
 * @param duplicate whether a run of a character becomes one; null for never.
 * @param rep       what a removed character becomes; NUL leaves it out.
 * @return the number of bytes used, the NUL included; 0 when nothing was written, not even a NUL.
 */
VARNEL_API int utils_strwrite_f(char *out, int o_len, const varnel_string *src, varnel_predicate_func removed,
                                varnel_predicate_func duplicate, char rep);

/**
 * Copies a C text unfiltered and terminates the copy.
 *
 * @param[out] out where to copy to; null writes nothing.
 * @param o_len    room at `out` in bytes, the NUL included; below 2 writes nothing.
 * @param text     NUL-terminated text; null or empty writes nothing.
 * @return the number of bytes used, the NUL included; 0 when nothing was written, not even a NUL.
 */
VARNEL_API int utils_strwrite_s(char *out, int o_len, const char *text);

/**
 * Copies several views as utils_strcpy_array() does and terminates the whole.
 *
 * @param[out] out        where to copy to; null writes nothing.
 * @param o_len           room at `out` in bytes, the NUL included; below 2 writes nothing.
 * @param src             array of `count` views; null writes nothing.
 * @param count           number of views; below 1 writes nothing.
 * @param sep             the separator, written as it is, NUL included.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the number of bytes used, the NUL included; 0 when nothing was written, not even a NUL.
 */
VARNEL_API int utils_strwrite_array(char *out, int o_len, const varnel_string *src, int count, char sep,
                                    const char *removed_chars, const char *duplicate_chars, char rep);

/** @} */

/* ---- slot writers ------------------------------------------------------------------------------- */

/**
 * @defgroup varnel_utils_write Slot writers
 * @ingroup varnel_utils
 * @brief Append a value to a record's buffer and point one slot at it.
 *
 * A value goes to the first free byte of the record's buffer, and `data_size` moves on past it. After the
 * value a NUL is stored and counted while that leaves the buffer's last byte free (`data_size` below
 * `buffer_size - 1`); with exactly one byte left there is none, and the next value takes that byte.
 *
 * - A value that does not fit is cut to the free space, silently. It then fills the buffer to its end
 *   without a terminator, and what is written later leaves its slots empty.
 * - A value that comes out empty empties its slot, whatever it held before.
 * - Writing a slot again appends anew; the old text stays in the buffer as dead space until
 *   result_clear().
 * - The slot returned belongs to the record and its text to the record's buffer.
 *
 * The record must have been set up by result_init(). A source may be the text of another slot of the same
 * record; it must not reach into the record's free space.
 * @{
 */

/**
 * Writes a view into a slot, filtered as by utils_strcpy().
 *
 * @param pResult         the record; null writes nothing.
 * @param field           slot number, 0 to 138; any other writes nothing.
 * @param src             the text, outside the record's free space; null or empty empties the slot.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the slot, filled or emptied; null when `pResult` or `field` is bad, and then nothing changed.
 */
VARNEL_API varnel_field *utils_write_field(varnel_parse_result *pResult, int field, const varnel_string *src,
                                           const char *removed_chars, const char *duplicate_chars, char rep);

/**
 * Writes a view into a slot, filtered as by utils_strcpy_f().
 *
 * @param pResult   the record; null writes nothing.
 * @param field     slot number, 0 to 138; any other writes nothing.
 * @param src       the text, outside the record's free space; null or empty empties the slot.
 * @param removed   whether to replace a character by `rep` or leave it out; null for never.
 * @param duplicate whether a run of a character becomes one; null for never.
 * @param rep       what a removed character becomes; NUL leaves it out.
 * @return the slot, filled or emptied; null when `pResult` or `field` is bad, and then nothing changed.
 */
VARNEL_API varnel_field *utils_write_field_f(varnel_parse_result *pResult, int field,
                                             const varnel_string *src, varnel_predicate_func removed,
                                             varnel_predicate_func duplicate, char rep);

/**
 * Writes a C text into a slot, unfiltered.
 *
 * @param pResult the record; null writes nothing.
 * @param field   slot number, 0 to 138; any other writes nothing.
 * @param text    NUL-terminated text; an empty one empties the slot, null writes nothing.
 * @return the slot, filled or emptied; null when an argument is bad, and then nothing changed.
 */
VARNEL_API varnel_field *utils_write_field_s(varnel_parse_result *pResult, int field, const char *text);

/**
 * Lets a caller's own writer put the text of a slot straight into the record's buffer.
 *
 * The writer is called exactly once, also when the buffer is full: its room is then 0.
 *
 * @param pResult the record; null writes nothing and does not call the writer.
 * @param field   slot number, 0 to 138; any other writes nothing and does not call the writer.
 * @param data    passed through to the writer untouched; may be null.
 * @param wf      the writer; null writes nothing. What it returns below 1 empties the slot; more than
 *                its room counts as its room.
 * @return the slot, filled or emptied; null when `pResult`, `field` or `wf` is bad, and then nothing
 *         changed.
 */
VARNEL_API varnel_field *utils_write_field_w(varnel_parse_result *pResult, int field, void *data,
                                             varnel_writer_func wf);

/**
 * Writes several views into one slot with a separator between them, as utils_strwrite_array() does.
 *
 * This writer spends two terminators on each value where the others spend one: its copy brings a NUL of
 * its own, for which a byte is always kept, and the slot's follows while there is room. A value is
 * therefore terminated here even when it fills the buffer. The slot's length counts neither.
 *
 * @param pResult         the record; null writes nothing.
 * @param field           slot number, 0 to 138; any other writes nothing.
 * @param src             array of `count` views; null empties the slot.
 * @param count           number of views; below 1 empties the slot.
 * @param sep             the separator, written as it is, NUL included.
 * @param removed_chars   set of characters to replace by `rep` or leave out; null for none.
 * @param duplicate_chars set of characters of which a run becomes one; null for none.
 * @param rep             what a removed character becomes; NUL leaves it out.
 * @return the slot, filled or emptied; null when `pResult` or `field` is bad, and then nothing changed.
 */
VARNEL_API varnel_field *utils_write_field_array(varnel_parse_result *pResult, int field,
                                                 const varnel_string *src, int count, char sep,
                                                 const char *removed_chars, const char *duplicate_chars,
                                                 char rep);

/**
 * Writes a date into a slot as eight digits, year, month, day: 15 February 2018 is "20180215".
 *
 * The date is written as it stands, without a check of its ranges. A part that does not fit its places,
 * such as a year above 9999, leaves them as they were (NUL in a fresh buffer); the slot still has length 8.
 *
 * @param pResult the record; null writes nothing.
 * @param field   slot number, 0 to 138; any other writes nothing.
 * @param pDate   the date; null writes nothing. The time of day is not read.
 * @return the slot; null when an argument is bad or fewer than 8 bytes are free. This writer alone refuses
 *         for want of room: the slot then keeps the value it had.
 */
VARNEL_API varnel_field *utils_write_field_date(varnel_parse_result *pResult, int field,
                                                const varnel_datetime *pDate);

/** @} */

/**
 * @addtogroup varnel_utils_copy
 * @{
 */

/**
 * Writes a number in decimal. No terminator.
 *
 * @param num      the number, any of them.
 * @param[out] out where to write to; null writes nothing.
 * @param o_len    room at `out` in bytes, and the width when padding; below 1 writes nothing.
 * @param pad      bit 0 set fills the whole of `o_len` with leading zeros, after the sign if there is
 *                 one; other bits are not looked at.
 * @return the number of characters written; 0 when digits and sign do not fit, and then nothing was written.
 */
VARNEL_API int utils_itoa(int64_t num, char *out, int o_len, int pad);

/**
 * The character of a digit.
 *
 * @param n the digit's value, 0 to 9.
 * @return '0' to '9', or a space for any other value.
 */
VARNEL_API char utils_itoch(int n);

/** @} */

/**
 * Drops a prefix of a view, whatever its characters.
 *
 * @ingroup varnel_utils_trim
 *
 * @param[in,out] s the view, of length 0 or more; null, null text and length 0 are left alone. A negative
 *                  length is not allowed: the view would then start before the text.
 * @param begin     how many characters to drop; 0 or less drops nothing. With the view's length or more,
 *                  everything is dropped; a view that becomes empty points at its last character, not past
 *                  it.
 */
VARNEL_API void utils_strtrim_begin(varnel_string *s, int begin);

/* ---- trimming and checks ------------------------------------------------------------------------ */

/**
 * @defgroup varnel_utils_trim Trimming and checks
 * @ingroup varnel_utils
 * @brief Narrow a view at its ends; find the first character that a predicate refuses.
 *
 * Trimming moves the view and leaves the text alone; only utils_cstrtrim() rewrites a buffer. A view that
 * is empty already, with a null `str` or a `len` below 1, stays exactly as it is.
 * @{
 */

/**
 * Drops leading characters that are in a set.
 *
 * @param[in,out] source the view to narrow; null does nothing.
 * @param chars          set of characters to drop; null or empty drops nothing.
 */
VARNEL_API void utils_strtrim_start(varnel_string *source, const char *chars);

/**
 * Drops trailing characters that are in a set. Only the length changes.
 *
 * @param[in,out] source the view to narrow; null does nothing.
 * @param chars          set of characters to drop; null or empty drops nothing.
 */
VARNEL_API void utils_strtrim_end(varnel_string *source, const char *chars);

/**
 * Drops leading and then trailing characters that are in a set.
 *
 * @param[in,out] source the view to narrow; null does nothing. A view of dropped characters only ends up
 *                       after the last of them with length 0.
 * @param chars          set of characters to drop; null or empty drops nothing.
 */
VARNEL_API void utils_strtrim(varnel_string *source, const char *chars);

/**
 * Drops leading characters that a predicate accepts.
 *
 * @param[in,out] source the view to narrow; null does nothing.
 * @param f              whether to drop a character; null drops nothing.
 */
VARNEL_API void utils_strtrim_start_f(varnel_string *source, varnel_predicate_func f);

/**
 * Drops trailing characters that a predicate accepts. Only the length changes.
 *
 * @param[in,out] source the view to narrow; null does nothing.
 * @param f              whether to drop a character; null drops nothing.
 */
VARNEL_API void utils_strtrim_end_f(varnel_string *source, varnel_predicate_func f);

/**
 * Drops leading and then trailing characters that a predicate accepts.
 *
 * @param[in,out] source the view to narrow; null does nothing.
 * @param f              whether to drop a character; null drops nothing.
 */
VARNEL_API void utils_strtrim_f(varnel_string *source, varnel_predicate_func f);

/**
 * Trims the text of a buffer in place: what is left moves to the front.
 *
 * @param[in,out] str the buffer; null does nothing. Its bytes from the returned length on keep what they
 *                    held, and no NUL is written.
 * @param len         length of the text in bytes; below 1 does nothing.
 * @param chars       set of characters to drop at both ends; null does nothing.
 * @return the length of the trimmed text; `len` itself where nothing was done.
 */
VARNEL_API int utils_cstrtrim(char *str, int len, const char *chars);

/**
 * Puts every character of a view to a predicate.
 *
 * @param source the view; null, or null text, is an error. A length of 0 or less passes.
 * @param f      the predicate that every character has to pass; null is an error.
 * @return 0 when all characters pass; the position of the first that does not, counted from 1; -1 for a bad
 *         argument.
 */
VARNEL_API int utils_strcheck_f(const varnel_string *source, varnel_predicate_func f);

/**
 * Asks a predicate about every character of a C text, but never about the NUL at its end.
 *
 * @param str NUL-terminated text; null is an error. An empty text passes.
 * @param f   the predicate that every character has to pass; null is an error.
 * @return 0 when all characters pass; the position of the first that does not, counted from 1; -1 for a bad
 *         argument.
 */
VARNEL_API int utils_cstrcheck_f(const char *str, varnel_predicate_func f);

/** @} */

/* ---- matching, tokenising, replacing ------------------------------------------------------------ */

/**
 * @defgroup varnel_utils_match Matching, tokenising and replacing
 * @ingroup varnel_utils
 * @brief Find runs of a class, cut text into tokens, compare, search, replace in place.
 *
 * Tokens, matches and tails are views into the source. Bit 0 of `flags` is the only one looked at.
 * @{
 */

/**
 * Finds the first run of at least `min` and at most `max` characters of a class.
 *
 * A longer run is cut after `max` characters, and the tail begins inside it. A shorter run is passed over
 * when another character ends it; **when the text ends it, it is a match all the same**. A `min` above
 * `max` is taken literally: the run is reported as soon as it has `max` characters.
 *
 * @param pSource    the text; null, null text and length 0 find nothing. A negative length has no run either,
 *                   but `match` and `tail` are written: {start of the source, 0} and the source itself.
 * @param f          the class; null finds nothing.
 * @param min        shortest run, in characters; below 1 finds nothing.
 * @param max        longest run, in characters; below 1 finds nothing.
 * @param[out] match the run; {start of the source, 0} when there is none. May be null, or `pSource`.
 * @param[out] tail  the text after the run; the whole source when there is none. May be null, or
 *                   `pSource`.
 * @return 1 when a run was found, else 0. With arguments that find nothing, `match` and `tail` stay
 *         untouched.
 */
VARNEL_API int utils_match_f(const varnel_string *pSource, varnel_predicate_func f, int min, int max,
                             varnel_string *match, varnel_string *tail);

/**
 * As utils_match_f(), but only for a run that the text begins with.
 *
 * Here too a text that ends before the run has `min` characters is a match of what it has.
 *
 * @param pSource    the text; null, null text and length 0 find nothing; a negative length as for
 *                   utils_match_f().
 * @param f          the class; null finds nothing.
 * @param min        shortest run, in characters; below 1 finds nothing.
 * @param max        longest run, in characters; below 1 finds nothing.
 * @param[out] match the run; {start of the source, 0} when there is none. May be null, or `pSource`.
 * @param[out] tail  the text after the run; the whole source when there is none. May be null, or
 *                   `pSource`.
 * @return 1 when the text begins with a run, else 0. With arguments that find nothing, `match` and `tail`
 *         stay untouched.
 */
VARNEL_API int utils_match_start_f(const varnel_string *pSource, varnel_predicate_func f, int min, int max,
                                   varnel_string *match, varnel_string *tail);

/**
 * Takes one token off the front of a text.
 *
 * The token ends before the first delimiter or at the end of the text; that one delimiter is consumed, any
 * after it are left to the tail. Pointers other than `delimiters` are not checked.
 *
 * @param source     the text; not null. An empty one gives an empty token.
 * @param[out] token the token, empty when the text begins with a delimiter; not null and not `tail`.
 * @param[out] tail  the text after the token and its delimiter; not null. May be `source`, to walk on.
 * @param delimiters set of characters that end a token; null or empty makes the whole text one token.
 * @param flags      bit 0: skip leading delimiters first.
 */
VARNEL_API void utils_strtok(const varnel_string *source, varnel_string *token, varnel_string *tail,
                             const char *delimiters, int flags);

/**
 * Takes the token with a given number. Runs of delimiters separate once, and leading ones not at all.
 *
 * @param source     the text; null or empty has no tokens.
 * @param[out] out   the token, never empty; null finds nothing. Untouched when there is no such token.
 * @param num        number of the token, from 0; below 0 finds nothing.
 * @param delimiters set of characters that end a token; null or empty makes the whole text one token.
 * @return 0, or -1 when there is no such token.
 */
VARNEL_API int utils_strntok(const varnel_string *source, varnel_string *out, int num,
                             const char *delimiters);

/**
 * Cuts a text into tokens.
 *
 * With `flags` 0, neighbouring delimiters have an empty token between them and a leading delimiter has one
 * before it, but a trailing delimiter has none after it: "A,,B," gives "A", "" and "B".
 *
 * @param source     the text; null or empty gives no tokens.
 * @param[out] out   array of `count` views for the tokens; null gives none. Entries beyond the returned
 *                   count stay as they were.
 * @param count      capacity of `out`; 0 or less gives no tokens. Tokens beyond it are not looked at.
 * @param delimiters set of characters that end a token; null or empty makes the whole text one token.
 * @param flags      bit 0: leave out empty tokens.
 * @return the number of tokens stored, 0 to `count`.
 */
VARNEL_API int utils_strsplit(const varnel_string *source, varnel_string *out, int count,
                              const char *delimiters, int flags);

/**
 * Removes the tokens that equal one of several texts, by the rule of utils_strcmp(). The others move up and
 * keep their order. The pointers are not checked.
 *
 * @param[in,out] tokens array of `count` views. Entries from the returned count on are left over.
 * @param count          number of tokens; 0 or less keeps none.
 * @param patterns       array of `p_count` NUL-terminated texts. A null text equals a token without text.
 * @param p_count        number of texts; 0 or less removes nothing.
 * @return the number of tokens kept.
 */
VARNEL_API int utils_rmtok(varnel_string *tokens, int count, const char **patterns, int p_count);

/**
 * Compares a view with a C text.
 *
 * **Lengths are ordered before characters**: of two texts of different lengths the longer one is greater,
 * whatever they say. Only texts of one length are compared by their bytes, as signed characters.
 *
 * @param s   the view; null, or null text, comes before every text. A negative length is a length like any
 *            other here: {p, -3} comes before the empty text.
 * @param str NUL-terminated text, or null.
 * @return 0 when equal, also when both are null; the difference of the lengths where they differ (a single
 *         1 or -1 where only one side is null); else 1 when the first different byte of `s` is the greater,
 *         -1 when it is the smaller.
 */
VARNEL_API int utils_strcmp(const varnel_string *s, const char *str);

/**
 * Compares two views by the rules of utils_strcmp(), lengths before characters.
 *
 * @param tok1  the first view; null, or null text, comes before every text. Negative lengths are compared
 *              like others.
 * @param tok2  the second view, likewise.
 * @param flags bit 0: where both characters are letters, compare their uppercase forms.
 * @return 0 when equal, also when neither has text; the difference of the lengths where they differ (a
 *         single 1 or -1 where only one side has text); else 1 when the first different character of
 *         `tok1` is the greater, -1 when it is the smaller.
 */
VARNEL_API int utils_tokcmp(const varnel_string *tok1, const varnel_string *tok2, int flags);

/**
 * Finds the first occurrence of one text in another, byte by byte.
 *
 * @param haystack the text to search; null or empty finds nothing.
 * @param needle   the text to find; null or empty finds nothing.
 * @return the position of the occurrence, from 0; -1 when there is none.
 *
 * The time grows with the product of the two lengths at worst: meant for short texts.
 */
VARNEL_API int utils_strstr(const varnel_string *haystack, const varnel_string *needle);

/**
 * Replaces every occurrence of one text in a buffer by another, in place, from left to right.
 *
 * Occurrences do not overlap, and replaced text is not searched again. This function never deletes: a
 * replacement must not be empty. No terminator is written and no room is kept for one; when the text
 * shrinks, the bytes after its new end are left over.
 *
 * @param[in,out] buffer the text; null does nothing.
 * @param len            length of the text in bytes; 0 or less has no occurrences.
 * @param max_len        capacity of `buffer` in bytes, looked at only when the text would grow: the first
 *                       occurrence with no room left ends the work, and what was replaced before stays.
 * @param from           the text to replace; null or empty does nothing. It must lie outside `buffer`.
 * @param to             its replacement; null or empty does nothing. It must lie outside `buffer`: a view of
 *                       the buffer shows whatever the buffer holds by the time it is copied.
 * @return the new length of the text; `len` itself where nothing was done.
 *
 * Every replacement moves the rest of the text: meant for short fields.
 */
VARNEL_API int utils_strreplace(char *buffer, int len, int max_len, const varnel_string *from,
                                const varnel_string *to);

/** @} */

/* ---- calendar dates ----------------------------------------------------------------------------- */

/**
 * @defgroup varnel_utils_dates Calendar dates
 * @ingroup varnel_utils
 * @brief Read, check and compute dates of the Gregorian calendar.
 *
 * The parsers of machine-readable zones have a reader of their own: MRZ_common_extract_date().
 * @{
 */

/**
 * Reads a date of eight characters: year, month, day (20180215), or else month, day, year (02152018).
 *
 * The first of the two orders wins whose parts are all in range: day 1 to 31, month 1 to 12, year 1800 to
 * 9999. The day is not compared with the length of its month: 20180231 is read as it stands.
 *
 * Each part is read as atoi() reads it: white space is skipped, one sign may follow, and the number ends at
 * the first character that is no digit; no digits are 0. " 1" is thus month or day 1.
 *
 * @param text      the text; null, null text and fewer than 8 characters fail. Only the first 8 are read.
 * @param[out] date the date, with the time of day 0:00:00; null fails. Untouched on failure.
 * @return 0, or -1 when neither order gives a date.
 */
VARNEL_API int utils_parse_date(const varnel_string *text, varnel_datetime *date);

/**
 * Checks that every part of a date is in range: day 1 to 31, month 1 to 12, year 1000 to 9999, hour 0 to
 * 23, minute and second 0 to 59.
 *
 * The years begin at 1000 here and at 1800 in utils_parse_date(), on purpose. The day is not compared with
 * the length of its month: see utils_validate_days_in_month().
 *
 * @param date the date; null fails.
 * @return 0 when all parts are in range, else -1.
 */
VARNEL_API int utils_validate_date(const varnel_datetime *date);

/**
 * Moves a day into its month. Nothing is refused.
 *
 * @param year  the year, which decides the length of February by the Gregorian rule.
 * @param month the month, 1 to 12; for any other the day comes back as it is.
 * @param day   the day, any number.
 * @return 1 for a day below 1, the last day of the month for one beyond it, else `day`.
 */
VARNEL_API int utils_validate_days_in_month(int year, int month, int day);

/**
 * Turns a count of days into a date. Day 0 is 31 December 999, day 1 is 1 January 1000.
 *
 * The result is the proleptic Gregorian date, with one oddity: 1 January of the leap years whose number
 * leaves 304 to 332 when divided by 400 (1104 to 1132, 1904 to 1932, 2304 to 2332 and so on) **comes out
 * as month 13, day 1 of the year before**. Day 330179 is 1903, month 13, day 1; the days around it are 31
 * December 1903 and 2 January 1904. A caller who needs the date moves month 13 to January of the next year.
 *
 * @param days      the count of days. Dates are right up to at least 3,000,000 (the year 9213); beyond, some
 *                  date comes back for every count, and of years that do not fit an int the low 32 bits.
 * @param[out] date the date, with the time of day 0:00:00; null fails.
 * @return ERR_OK, or ERR_INVALID_ARGS when `date` is null.
 */
VARNEL_API int utils_days2date(uint64_t days, varnel_datetime *date);

/** @} */

/* ---- Soundex ------------------------------------------------------------------------------------ */

/**
 * @defgroup varnel_utils_soundex Soundex
 * @ingroup varnel_utils
 * @brief A phonetic key for names: names that sound alike get the same four characters.
 *
 * The key is the first letter and three digits. A letter of the same digit as the one before it is not
 * written again; a vowel between the two breaks the run, H, W and Y do not. Y going with H and W, and
 * not with the vowels, is this library's own choice.
 * @{
 */

/** A Soundex code: four characters with no terminator. */
typedef struct VARNEL_TAG(_SOUNDEX_CODE, varnel_soundex_code) {
  char alpha;   /**< the name's first letter, uppercase */
  char code[3]; /**< three digit characters, '0' where no letter fills the place */
} varnel_soundex_code;

#ifndef VARNEL_NO_SHORT_NAMES
typedef varnel_soundex_code SOUNDEX_CODE; /**< varnel_soundex_code, in short */
#endif

/**
 * The Soundex class of each letter, indexed by the uppercase letter minus 'A': 0 for a vowel (breaks a
 * run), 1 to 6 for the digit written, 7 for H, W and Y (skipped, and the run goes on).
 */
extern VARNEL_API const unsigned char _soundex_dic[26];

/**
 * Encodes a name: "Robert" and "Rupert" are both R163.
 *
 * The name is read only until three digits are written: what comes after is never looked at, so that
 * "Washington DC" is W252. Before that, anything but a letter refuses the name: "O'Brien" fails.
 *
 * @param name      the name, letters of either case; null, empty and a negative length fail and write
 *                  nothing.
 * @param[out] code the code, exactly four characters without a terminator; null fails. After a failure at
 *                  a character it holds what was written so far: the first character in uppercase, the
 *                  digits found and '0' for the rest (O000 for "O'Brien", 1000 for "1st").
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument or a character that is no letter.
 */
VARNEL_API int utils_soundex_encode(const varnel_string *name, varnel_soundex_code *code);

/**
 * Encodes a name given as a C text. As utils_soundex_encode().
 *
 * @param str       NUL-terminated name; null and empty fail and write nothing.
 * @param[out] code the code; null fails. After a failure at a character it holds what was written so far.
 * @return ERR_OK, or ERR_INVALID_ARGS for a bad argument or a character that is no letter.
 */
VARNEL_API int utils_soundex_encode_str(const char *str, varnel_soundex_code *code);

/** @} */

VARNEL_END_DECLS

#endif
