/**
 * @file reference.hpp
 * @brief The plain way to read each rule: slow, obvious, compared with the library.
 *
 * The functions of the library are here a second time, in the namespace `reference`, step by step with plain
 * loops: under the same names, but for the entry, parse_mrz(), and the export, value_for_key() and
 * export_values(). Nothing here calls the library: only its public types are used. The unit tests compare
 * both on many random inputs, the fuzz targets on whatever the fuzzer finds, and the benchmarks take this as
 * their baseline; so nothing here allocates, but for export_values(), which hands out plain strings.
 *
 * Inside the namespace, calls are qualified, because the arguments' types would otherwise bring the
 * library's functions of the same names into the lookup.
 */
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include <Varnel/Varnel.h>

namespace reference {

// The record.
int result_init(PARSE_RESULT *pResult, char *buffer, int buffer_size);
int result_clear(PARSE_RESULT *pResult);
int utils_is_valid_field(const PARSE_RESULT *pResult, int field);
int utils_get_valid_field(const PARSE_RESULT *pResult, const int *fields, int count, STRING *value);

// Entry and export.
int varnel_utf16_length(const char *text, std::size_t size);
int parse_mrz(const char *text, int utf16_length, PARSE_RESULT *result, char *buffer, int buffer_size);
std::string value_for_key(const PARSE_RESULT *result, int field);
std::array<std::pair<std::string, std::string>, 12> export_values(const PARSE_RESULT *result);

// Normalisation.
int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len);

// What the layouts share.
int MRZ_common_pattern_valid_mrz(int c);
int MRZ_common_pattern_valid_mrz_date(int c);
int MRZ_common_pattern_valid_mrz_name(int c);
int MRZ_common_pattern_valid_mrz_cc(int c);
int MRZ_common_calc_control_sum(const char *str, int len, int *pos);
int MRZ_common_validate_control_sum(int sum, char c);
int MRZ_common_extract_cc(const STRING *in, char out[4]);
int MRZ_common_extract_date(const STRING *in, DATETIME *date);
int MRZ_common_extract_name(const STRING *s, STRING *full_name, STRING *last_name, STRING *first_name,
                            STRING *middle_name);

// The layouts.
int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);
int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);
int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);
int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

// Copiers.
int utils_strcpy(char *out, int o_len, const STRING *src, const char *removed_chars,
                 const char *duplicate_chars, char rep);
int utils_strcpy_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                   _t_predicate_func duplicate, char rep);
int utils_strcpy_array(char *out, int o_len, const STRING *src, int count, char sep,
                       const char *removed_chars, const char *duplicate_chars, char rep);
int utils_strwrite(char *out, int o_len, const STRING *src, const char *removed_chars,
                   const char *duplicate_chars, char rep);
int utils_strwrite_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                     _t_predicate_func duplicate, char rep);
int utils_strwrite_s(char *out, int o_len, const char *text);
int utils_strwrite_array(char *out, int o_len, const STRING *src, int count, char sep,
                         const char *removed_chars, const char *duplicate_chars, char rep);

// Slot writers. utils_write_field_w() takes the writer's word: it must not return more than its room.
FIELD *utils_write_field(PARSE_RESULT *pResult, int field, const STRING *src, const char *removed_chars,
                         const char *duplicate_chars, char rep);
FIELD *utils_write_field_f(PARSE_RESULT *pResult, int field, const STRING *src, _t_predicate_func removed,
                           _t_predicate_func duplicate, char rep);
FIELD *utils_write_field_s(PARSE_RESULT *pResult, int field, const char *text);
FIELD *utils_write_field_w(PARSE_RESULT *pResult, int field, void *data, _t_writer_func wf);
FIELD *utils_write_field_array(PARSE_RESULT *pResult, int field, const STRING *src, int count, char sep,
                               const char *removed_chars, const char *duplicate_chars, char rep);
FIELD *utils_write_field_date(PARSE_RESULT *pResult, int field, const DATETIME *pDate);
int utils_itoa(std::int64_t num, char *out, int o_len, int pad);
char utils_itoch(int n);
void utils_strtrim_begin(STRING *s, int begin);

// Trimming and checks.
void utils_strtrim_start(STRING *source, const char *chars);
void utils_strtrim_end(STRING *source, const char *chars);
void utils_strtrim(STRING *source, const char *chars);
void utils_strtrim_start_f(STRING *source, _t_predicate_func f);
void utils_strtrim_end_f(STRING *source, _t_predicate_func f);
void utils_strtrim_f(STRING *source, _t_predicate_func f);
int utils_cstrtrim(char *str, int len, const char *chars);
int utils_strcheck_f(const STRING *source, _t_predicate_func f);
int utils_cstrcheck_f(const char *str, _t_predicate_func f);

// Matching, tokenising, replacing.
int utils_match_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match, STRING *tail);
int utils_match_start_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match,
                        STRING *tail);
void utils_strtok(const STRING *source, STRING *token, STRING *tail, const char *delimiters, int flags);
int utils_strntok(const STRING *source, STRING *out, int num, const char *delimiters);
int utils_strsplit(const STRING *source, STRING *out, int count, const char *delimiters, int flags);
int utils_rmtok(STRING *tokens, int count, const char **patterns, int p_count);
int utils_strcmp(const STRING *s, const char *str);
int utils_tokcmp(const STRING *tok1, const STRING *tok2, int flags);
int utils_strstr(const STRING *haystack, const STRING *needle);
int utils_strreplace(char *buffer, int len, int max_len, const STRING *from, const STRING *to);

// Calendar dates.
int utils_parse_date(const STRING *text, DATETIME *date);
int utils_validate_date(const DATETIME *date);
int utils_validate_days_in_month(int year, int month, int day);
int utils_days2date(std::uint64_t days, DATETIME *date);

// Soundex.
int utils_soundex_encode(const STRING *name, SOUNDEX_CODE *code);
int utils_soundex_encode_str(const char *str, SOUNDEX_CODE *code);

// Character classes.
int pattern_is_atoi_valid(int c);
int pattern_isNotDigit(int c);
int pattern_isCityChar(int c);
int pattern_isClearCityChar(int c);
int pattern_isNotClearCityChar(int c);
int pattern_isNameChar(int c);
int pattern_isAddressChar(int c);
int pattern_isAddressChar2(int c);
int pattern_isClearAddressChar(int c);
int pattern_isClearAddressChar2(int c);
int pattern_isNotClearAddressChar(int c);
int pattern_isNotClearAddressChar2(int c);
int pattern_isClearPostalCode(int c);
int pattern_isLicenseNumber(int c);
int pattern_is_w(int c);
int pattern_is_not_w(int c);
int pattern_is_ws(int c);
int pattern_valid_symbols(int c);
int pattern_not_valid_symbols(int c);
int patter_trim_space(int c);
int patter_trim_address(int c);

// Element tables.
int utils_barcode2fieldtype(int barcode, const MAPPING *map, int size, int *pTblIndex);

} // namespace reference
