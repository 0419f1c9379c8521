#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

int main(void) {
  const char *text = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];

  int length = varnel_utf16_length(text, strlen(text));
  if (varnel_parse_mrz(text, length, &result, buffer, sizeof buffer) == ERR_OK) {
    varnel_export(&result, pairs);
  } else {
    return 1;
  }

  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    printf("%-16s \"%.*s\"\n", pairs[i].key, pairs[i].value.len, pairs[i].value.str);
  }
  return 0;
}
