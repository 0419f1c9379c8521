/*
 * What JavaScript calls. Texts pass through two areas of the module's own memory: JavaScript writes UTF-8 to
 * the input and reads UTF-8 from the output, several texts with a NUL after each. Each instance of the module
 * has areas of its own and is called from one thread, as JavaScript has it.
 */
#include "composition.h"

#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <string.h>

#define EXPORT(name) __attribute__((export_name(#name)))

/* The longest answer is a barcode's: its values, each of which has its own text in the record, and the info.
 */
enum {
  JSON_MAX = 32768,
  RECORD_MAX = VARNEL_BARCODE_BUFFER_SIZE(VARNEL_BARCODE_TEXT_MAX),
  OUTPUT_MAX = RECORD_MAX + VARNEL_VALUE_COUNT + JSON_MAX
};

static char input[VARNEL_TEXT_MAX + 1];
static char output[OUTPUT_MAX];
static char record_text[RECORD_MAX];

EXPORT(input) char *input_address(void) { return input; }

EXPORT(output) char *output_address(void) { return output; }

/* Clears both areas as far as the last call used them. */
EXPORT(clear) void clear(int input_size, int output_size) {
  memset(input, 0, (size_t)input_size);
  memset(output, 0, (size_t)output_size);
}

/* Writes a text and a NUL to the output at a place; gives the place after them. */
static int put(int place, const char *text, int length) {
  memcpy(output + place, text, (size_t)length);
  output[place + length] = '\0';
  return place + length + 1;
}

/* The twelve keys; gives their length. */
EXPORT(keys) int keys(void) {
  PARSE_RESULT result;
  char buffer[1];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  int length = 0;
  result_init(&result, buffer, sizeof buffer);
  varnel_export(&result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    length = put(length, pairs[i].key, (int)strlen(pairs[i].key));
  }
  return length;
}

/* The twelve values of a record; gives their length. */
static int put_values(const PARSE_RESULT *result) {
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  int length = 0;
  varnel_export(result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    length = put(length, pairs[i].value.str, pairs[i].value.len);
  }
  return length;
}

/* The twelve values of the text in the input; 0 where no layout accepts it. */
EXPORT(parse) int parse(int size) {
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  const int length = varnel_utf16_length(input, (size_t)size);
  if (varnel_parse_mrz(input, length, &result, buffer, sizeof buffer) != ERR_OK) {
    return 0;
  }
  return put_values(&result);
}

/* An inspection of the text in the input as JSON; a negative code for bad arguments. */
EXPORT(inspect) int inspect(int size, int year, int month, int day, int repair) {
  const varnel_inspect_options options = {year, month, day, repair};
  varnel_inspection inspection;
  const int status = varnel_inspect(input, (size_t)size, &options, &inspection);
  return status == ERR_OK ? varnel_inspection_json(&inspection, output, JSON_MAX) : status;
}

/* The keys of the values that compose() takes, in their order; gives their length. */
EXPORT(composition_keys) int composition_keys(void) {
  int length = 0;
  for (int i = 0; i < COMPOSITION_VALUES; ++i) {
    const char *const key = composition_key(i);
    length = put(length, key, (int)strlen(key));
  }
  return length;
}

static int refused_position;

/* The character, from 0, for which compose() refused a value. */
EXPORT(refused_character) int refused_character(void) { return refused_position; }

/*
 * Composes a zone from the values in the input: the lines; or, with a negative length, the key of what was
 * refused, its reason and the words for it; refused_character() then tells which character is meant.
 */
EXPORT(compose) int compose(void) {
  const char *values[COMPOSITION_VALUES];
  const char *next = input;
  varnel_zone zone;
  varnel_compose_error error;
  int length = 0;
  for (int i = 0; i < COMPOSITION_VALUES; ++i) {
    values[i] = next;
    next += strlen(next) + 1;
  }
  if (composition_compose(values, &zone, &error) == ERR_OK) {
    for (int i = 0; i < zone.line_count; ++i) {
      length = put(length, zone.lines[i], (int)strlen(zone.lines[i]));
    }
    return length;
  }
  const char *const key = composition_refused_key(&error);
  const char *const reason = composition_reason(&error);
  const char *const words = composition_words(&error);
  length = put(length, key, (int)strlen(key));
  length = put(length, reason, (int)strlen(reason));
  length = put(length, words, (int)strlen(words));
  refused_position = (int)error.position;
  return -length;
}

/* The twelve values of the barcode in the input, then its info as JSON; 0 where it is none. */
EXPORT(barcode) int barcode(int size) {
  PARSE_RESULT record;
  varnel_barcode_info info;
  int length = 0;
  if (varnel_barcode(input, (size_t)size, &record, record_text, sizeof record_text, &info) == ERR_OK) {
    length = put_values(&record);
    length += varnel_barcode_info_json(&info, output + length, JSON_MAX);
  }
  memset(record_text, 0, (size_t)VARNEL_BARCODE_BUFFER_SIZE(size));
  return length;
}
