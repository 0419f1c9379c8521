/*
 * What JavaScript calls. Texts pass through two areas of the module's own memory: JavaScript writes UTF-8 to the
 * input and reads UTF-8 from the output. Each instance of the module has areas of its own and is called from one
 * thread, as JavaScript has it.
 */
#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <string.h>

#define EXPORT(name) __attribute__((export_name(#name)))

enum { OUTPUT_MAX = 16384 };

static char input[VARNEL_TEXT_MAX + 1];
static char output[OUTPUT_MAX];

EXPORT(input) char *input_address(void) { return input; }

EXPORT(output) char *output_address(void) { return output; }

/* Clears what the last call left behind: no text outlives the call that was given it. */
EXPORT(clear) void clear(int input_size, int output_size) {
  memset(input, 0, (size_t)input_size);
  memset(output, 0, (size_t)output_size);
}

/* The twelve keys, each with a NUL after it; gives their length. */
EXPORT(keys) int keys(void) {
  PARSE_RESULT result;
  char buffer[1];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  int length = 0;
  result_init(&result, buffer, sizeof buffer);
  varnel_export(&result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    const int size = (int)strlen(pairs[i].key) + 1;
    memcpy(output + length, pairs[i].key, (size_t)size);
    length += size;
  }
  return length;
}

/* The twelve values of a record, each with a NUL after it; gives their length. */
static int write_values(const PARSE_RESULT *result) {
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  int length = 0;
  varnel_export(result, pairs);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    memcpy(output + length, pairs[i].value.str, (size_t)pairs[i].value.len);
    length += pairs[i].value.len;
    output[length++] = '\0';
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
  return write_values(&result);
}

/* An inspection of the text in the input as JSON; a negative code for bad arguments. */
EXPORT(inspect) int inspect(int size, int year, int month, int day, int repair) {
  const varnel_inspect_options options = {year, month, day, repair};
  varnel_inspection inspection;
  const int status = varnel_inspect(input, (size_t)size, &options, &inspection);
  return status == ERR_OK ? varnel_inspection_json(&inspection, output, sizeof output) : status;
}
