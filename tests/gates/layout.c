/*
 * The layout of every record and the size of every table of the interface, for machines with 32- and
 * 64-bit pointers. That this file compiles is the test.
 */
#include <Varnel/Varnel.h>

#ifdef __cplusplus
#define LAYOUT(condition) static_assert(condition, #condition)
#else
#define LAYOUT(condition) _Static_assert(condition, #condition)
#endif
#define SIZE(type, size) LAYOUT(sizeof(type) == (size))
#define AT(type, member, offset) LAYOUT(offsetof(type, member) == (offset))

LAYOUT(sizeof(int) == 4);
LAYOUT(sizeof(char) == 1);
LAYOUT(sizeof(double) == 8);
LAYOUT(FIELD_COUNT == 139);

/* Alike on all machines: records of ints and characters. */
SIZE(DATETIME, 24);
AT(DATETIME, year, 0);
AT(DATETIME, month, 4);
AT(DATETIME, day, 8);
AT(DATETIME, hr, 12);
AT(DATETIME, min, 16);
AT(DATETIME, sec, 20);
SIZE(CONTEXT, 24);
AT(CONTEXT, date, 0);
SIZE(MAPPING, 8);
AT(MAPPING, key, 0);
AT(MAPPING, value, 4);
SIZE(SOUNDEX_CODE, 4);
AT(SOUNDEX_CODE, alpha, 0);
AT(SOUNDEX_CODE, code, 1);
SIZE(EPARSER_TYPE, 4);
SIZE(EPARSER, 4);
SIZE(MRZ_WEIGHTS, 12);
SIZE(DIGITS, 11);
SIZE(_soundex_dic, 26);

AT(STRING, str, 0);
AT(FIELD, value, 0);
AT(PARSE_RESULT, parser_type, 0);
AT(PARSE_RESULT, parser, 4);
AT(PARSE_RESULT, fields, 8);
AT(VARNEL_PAIR, key, 0);
AT(varnel_document, layout, 0);

#if UINTPTR_MAX == 0xFFFFFFFFu
SIZE(STRING, 8);
AT(STRING, len, 4);
SIZE(FIELD, 8);
SIZE(PARSE_RESULT, 1132);
AT(PARSE_RESULT, buffer, 1120);
AT(PARSE_RESULT, buffer_size, 1124);
AT(PARSE_RESULT, data_size, 1128);
SIZE(VARNEL_PAIR, 12);
AT(VARNEL_PAIR, value, 4);
SIZE(varnel_document, 2308);
AT(varnel_document, layout_name, 4);
AT(varnel_document, values, 8);
AT(varnel_document, record, 152);
AT(varnel_document, text, 1284);
#else
SIZE(STRING, 16);
AT(STRING, len, 8);
SIZE(FIELD, 16);
SIZE(PARSE_RESULT, 2248);
AT(PARSE_RESULT, buffer, 2232);
AT(PARSE_RESULT, buffer_size, 2240);
AT(PARSE_RESULT, data_size, 2244);
SIZE(VARNEL_PAIR, 24);
AT(VARNEL_PAIR, value, 8);
SIZE(varnel_document, 3576);
AT(varnel_document, layout_name, 8);
AT(varnel_document, values, 16);
AT(varnel_document, record, 304);
AT(varnel_document, text, 2552);
#endif
