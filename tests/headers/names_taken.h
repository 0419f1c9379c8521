/* A program's own things under every short name of the headers: VARNEL_NO_SHORT_NAMES leaves them all free.
 */
#ifndef NAMES_TAKEN_H
#define NAMES_TAKEN_H

struct _STRING;
struct _FIELD;
struct _PARSE_RESULT;
struct _DATETIME;
struct _CONTEXT;
struct _MAPPING;
struct _SOUNDEX_CODE;
union _EPARSER_TYPE;
union _EPARSER;

typedef float STRING;
typedef float FIELD;
typedef float PARSE_RESULT;
typedef float DATETIME;
typedef float CONTEXT;
typedef float MAPPING;
typedef float SOUNDEX_CODE;
typedef float EPARSER_TYPE;
typedef float EPARSER;
typedef float _t_predicate_func;
typedef float _t_writer_func;

typedef float ERR_OK;
typedef float ERR_FAILED;
typedef float ERR_NOT_FOUND;
typedef float ERR_INVALID_FORMAT;
typedef float ERR_INVALID_ARGS;
typedef float FIELD_COUNT;
typedef float FIELD_FULL_NAME;
typedef float FIELD_NATIONALITY;
typedef float PARSER_TYPE_MRZ;
typedef float PARSER_TYPE_MAX;
typedef float PARSER_MRZ_TD1;
typedef float PARSER_MAX;

#define FIELD_SEX 2 +

#endif
