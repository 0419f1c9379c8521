/* Repairs what an optical reader made of a passport's zone, and lists what was changed. */
#include <Varnel/documents.h>

#include <stdio.h>
#include <string.h>

int main(void) {
  const char *scan = "PASSP0RT - UT0PIA\n"
                     "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<ccs\n"
                     "L8989O2C36UT074O8122F1204159ZE184226B<<<<<10\n";

  const varnel_inspect_options options = {2026, 11, 21, VARNEL_REPAIR_DIGITS};
  varnel_inspection document;
  if (varnel_inspect(scan, strlen(scan), &options, &document) != ERR_OK) {
    return 2; // longer than 64 KiB, or no such date
  }
  printf("%s\n", varnel_verdict_name(document.verdict));
  for (int i = 0; i < document.change_count; ++i) {
    const varnel_change *change = &document.changes[i];
    printf("line %d, column %d: %s for %s (%s)\n", change->line + 1, change->column + 1, change->to,
           change->from, varnel_change_name(change->reason));
  }
  return 0;
}
