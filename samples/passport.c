#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

int main(void) {
  const char *zone = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR values[VARNEL_VALUE_COUNT];

  int length = varnel_utf16_length(zone, strlen(zone));
  if (varnel_parse_mrz(zone, length, &result, buffer, sizeof buffer) != ERR_OK) {
    return 1; // not a travel document's zone
  }
  varnel_export(&result, values);
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    printf("%s=%.*s\n", values[i].key, values[i].value.len, values[i].value.str);
  }
  return 0;
}
