#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

int main(void) {
  const char *text = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  varnel_document document;
  if (varnel_read(text, strlen(text), &document) == ERR_OK) {
    // document.layout_name is "TD3", values[0].key "firstName" and values[0].value.str "ANNA"
    printf("%s: %s=%s\n", document.layout_name, document.values[0].key, document.values[0].value.str);
  } else {
    return 1;
  }
  return 0;
}
