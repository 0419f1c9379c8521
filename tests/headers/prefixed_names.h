/* The names with the prefix, of which each means what its short name means. */
#include <Varnel/Varnel.h>

#define IS_TRUE(name, condition) typedef char name[(condition) ? 1 : -1]

IS_TRUE(no_error, VARNEL_ERR_OK == 0 && VARNEL_ERR_FAILED == -1 && VARNEL_ERR_NOT_FOUND == -16);
IS_TRUE(errors, VARNEL_ERR_INVALID_FORMAT == -20 && VARNEL_ERR_INVALID_ARGS == -21);
IS_TRUE(slots, VARNEL_FIELD_FULL_NAME == 1 && VARNEL_FIELD_SEX == 12 && VARNEL_FIELD_NATIONALITY == 138);
IS_TRUE(slot_count, VARNEL_FIELD_COUNT == 139);
IS_TRUE(parser_types, VARNEL_PARSER_TYPE_MRZ == 5 && VARNEL_PARSER_TYPE_MAX == 6);
IS_TRUE(parsers, VARNEL_PARSER_STRIPE01_1T == 0 && VARNEL_PARSER_MRZ_VISA == 64 && VARNEL_PARSER_MAX == 65);

typedef struct VARNEL_TAG(_STRING, varnel_string) string_by_tag;
typedef struct VARNEL_TAG(_PARSE_RESULT, varnel_parse_result) result_by_tag;

/* Every type, and functions that take them. */
static inline int use_prefixed_names(void) {
  varnel_string text = {"31121999", 8};
  string_by_tag *same_text = &text;
  varnel_datetime date = {0, 0, 0, 0, 0, 0};
  varnel_context context;
  varnel_soundex_code code;
  varnel_parse_result result;
  result_by_tag *same_result = &result;
  varnel_field *slot = same_result->fields;
  const varnel_mapping *row = MAP_AAMVA_2D08;
  varnel_predicate_func is_digit = MRZ_common_pattern_valid_mrz_date;
  varnel_writer_func writer = 0;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  varnel_parser_type type = VARNEL_PARSER_TYPE_MAX;
  varnel_parser parser = VARNEL_PARSER_MAX;
  context.date = date;
  slot->value = text;
  return varnel_parse_mrz(text.str, text.len, &result, buffer, VARNEL_BUFFER_SIZE) +
         varnel_export(&result, pairs) + utils_parse_date(same_text, &date) +
         utils_soundex_encode(&text, &code) + utils_strcheck_f(&text, is_digit) + context.date.year +
         row->key + (utils_write_field_w(&result, VARNEL_FIELD_SEX, buffer, writer) == slot) +
         (result.parser_type == type) + (result.parser == parser);
}

#ifndef VARNEL_NO_SHORT_NAMES
/* The short names are the same things: these would not compile if they were others. */
IS_TRUE(same_error, (int)ERR_INVALID_ARGS == (int)VARNEL_ERR_INVALID_ARGS);
IS_TRUE(same_slot, (int)FIELD_SEX == (int)VARNEL_FIELD_SEX && (int)FIELD_COUNT == (int)VARNEL_FIELD_COUNT);

static inline int use_short_names(STRING *text, FIELD *slot, PARSE_RESULT *result, DATETIME *date,
                                  CONTEXT *context, MAPPING *row, SOUNDEX_CODE *code, EPARSER_TYPE *type,
                                  EPARSER *parser, _t_predicate_func *test, _t_writer_func *writer) {
  varnel_string *t = text;
  varnel_field *s = slot;
  varnel_parse_result *r = result;
  varnel_datetime *d = date;
  varnel_context *c = context;
  varnel_mapping *m = row;
  varnel_soundex_code *o = code;
  varnel_parser_type *y = type;
  varnel_parser *p = parser;
  varnel_predicate_func *f = test;
  varnel_writer_func *w = writer;
  struct _STRING *tag = text;
  result->parser_type = PARSER_TYPE_MAX;
  result->parser = PARSER_MAX;
  return t && s && r && d && c && m && o && y && p && f && w && tag;
}
#endif
