#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

int main(void) {
  const char *zone = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  varnel_document document;
  if (varnel_read(zone, strlen(zone), &document) != ERR_OK) {
    return 1; // not a travel document's zone
  }
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    printf("%s=%s\n", document.values[i].key, document.values[i].value.str);
  }
  return 0;
}
