/**
 * @file utils.h
 * @brief Text utilities: field writers, trimming, matching, calendar dates, Soundex.
 *
 * All functions work in the caller's memory and keep no state: any number of threads may call them at
 * once on separate data. None allocates and none depends on the process locale.
 */
#ifndef VARNEL_UTILS_H
#define VARNEL_UTILS_H

#include <Varnel/defines.h>

VARNEL_BEGIN_DECLS

/** The decimal digits "0123456789", NUL-terminated: a digit's value indexes its character. */
extern VARNEL_API const char DIGITS[11];

/* ---- slot queries ------------------------------------------------------------------------------- */

VARNEL_API int utils_is_valid_field(const PARSE_RESULT *pResult, int field);
VARNEL_API int utils_get_valid_field(const PARSE_RESULT *pResult, const int *fields, int count,
                                     STRING *value);

/* ---- bounded copiers: no terminator ------------------------------------------------------------- */

VARNEL_API int utils_strcpy(char *out, int o_len, const STRING *src, const char *removed_chars,
                            const char *duplicate_chars, char rep);
VARNEL_API int utils_strcpy_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                              _t_predicate_func duplicate, char rep);
VARNEL_API int utils_strcpy_array(char *out, int o_len, const STRING *src, int count, char sep,
                                  const char *removed_chars, const char *duplicate_chars, char rep);

/* ---- terminating copiers ------------------------------------------------------------------------ */

VARNEL_API int utils_strwrite(char *out, int o_len, const STRING *src, const char *removed_chars,
                              const char *duplicate_chars, char rep);
VARNEL_API int utils_strwrite_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                                _t_predicate_func duplicate, char rep);
VARNEL_API int utils_strwrite_s(char *out, int o_len, const char *text);
VARNEL_API int utils_strwrite_array(char *out, int o_len, const STRING *src, int count, char sep,
                                    const char *removed_chars, const char *duplicate_chars, char rep);

/* ---- slot writers ------------------------------------------------------------------------------- */

VARNEL_API FIELD *utils_write_field(PARSE_RESULT *pResult, int field, const STRING *src,
                                    const char *removed_chars, const char *duplicate_chars, char rep);
VARNEL_API FIELD *utils_write_field_f(PARSE_RESULT *pResult, int field, const STRING *src,
                                      _t_predicate_func removed, _t_predicate_func duplicate, char rep);
VARNEL_API FIELD *utils_write_field_s(PARSE_RESULT *pResult, int field, const char *text);
VARNEL_API FIELD *utils_write_field_w(PARSE_RESULT *pResult, int field, void *data, _t_writer_func wf);
VARNEL_API FIELD *utils_write_field_array(PARSE_RESULT *pResult, int field, const STRING *src, int count,
                                          char sep, const char *removed_chars, const char *duplicate_chars,
                                          char rep);
VARNEL_API FIELD *utils_write_field_date(PARSE_RESULT *pResult, int field, const DATETIME *pDate);

VARNEL_API int utils_itoa(int64_t num, char *out, int o_len, int pad);
VARNEL_API char utils_itoch(int n);
VARNEL_API void utils_strtrim_begin(STRING *s, int begin);

/* ---- trimming and checks ------------------------------------------------------------------------ */

VARNEL_API void utils_strtrim_start(STRING *source, const char *chars);
VARNEL_API void utils_strtrim_end(STRING *source, const char *chars);
VARNEL_API void utils_strtrim(STRING *source, const char *chars);
VARNEL_API void utils_strtrim_start_f(STRING *source, _t_predicate_func f);
VARNEL_API void utils_strtrim_end_f(STRING *source, _t_predicate_func f);
VARNEL_API void utils_strtrim_f(STRING *source, _t_predicate_func f);
VARNEL_API int utils_cstrtrim(char *str, int len, const char *chars);
VARNEL_API int utils_strcheck_f(const STRING *source, _t_predicate_func f);
VARNEL_API int utils_cstrcheck_f(const char *str, _t_predicate_func f);

/* ---- matching, tokenising, replacing ------------------------------------------------------------ */

VARNEL_API int utils_match_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match,
                             STRING *tail);
VARNEL_API int utils_match_start_f(const STRING *pSource, _t_predicate_func f, int min, int max,
                                   STRING *match, STRING *tail);
VARNEL_API void utils_strtok(const STRING *source, STRING *token, STRING *tail, const char *delimiters,
                             int flags);
VARNEL_API int utils_strntok(const STRING *source, STRING *out, int num, const char *delimiters);
VARNEL_API int utils_strsplit(const STRING *source, STRING *out, int count, const char *delimiters,
                              int flags);
VARNEL_API int utils_rmtok(STRING *tokens, int count, const char **patterns, int p_count);
VARNEL_API int utils_strcmp(const STRING *s, const char *str);
VARNEL_API int utils_tokcmp(const STRING *tok1, const STRING *tok2, int flags);
VARNEL_API int utils_strstr(const STRING *haystack, const STRING *needle);
VARNEL_API int utils_strreplace(char *buffer, int len, int max_len, const STRING *from, const STRING *to);

/* ---- calendar dates ----------------------------------------------------------------------------- */

VARNEL_API int utils_parse_date(const STRING *text, DATETIME *date);
VARNEL_API int utils_validate_date(const DATETIME *date);
VARNEL_API int utils_validate_days_in_month(int year, int month, int day);
VARNEL_API int utils_days2date(uint64_t days, DATETIME *date);

/* ---- Soundex ------------------------------------------------------------------------------------ */

/** A Soundex code: four characters with no terminator. */
typedef struct _SOUNDEX_CODE {
  char alpha;   /**< the name's first letter, upper case */
  char code[3]; /**< three digit characters, '0' where no letter fills the place */
} SOUNDEX_CODE;

/**
 * The Soundex class of each letter, indexed by the upper-case letter minus 'A': 0 for a vowel (breaks a
 * run), 1 to 6 for the digit written, 7 for H, W and Y (skipped, and the run goes on).
 */
extern VARNEL_API const unsigned char _soundex_dic[26];

VARNEL_API int utils_soundex_encode(const STRING *name, SOUNDEX_CODE *code);
VARNEL_API int utils_soundex_encode_str(const char *str, SOUNDEX_CODE *code);

VARNEL_END_DECLS

#endif
