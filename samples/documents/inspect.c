/* Inspects the document on a page of text, and says what is wrong with it. */
#include <stdio.h>
#include <string.h>

#include <Varnel/documents.h>

int main(void) {
  const char *page = "UTOPIA                          PASSPORT\n"
                     "Passport No.     L898902C3\n"
                     "\n"
                     "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408172F1204159ZE184226B<<<<<10\n";
  const varnel_inspect_options options = {2026, 11, 21, VARNEL_REPAIR_OFF};
  varnel_inspection document;
  if (varnel_inspect(page, strlen(page), &options, &document) != ERR_OK) {
    return 2; // longer than 64 KiB, or no such date
  }
  printf("%s\n", varnel_verdict_name(document.verdict));
  for (int i = 0; i < document.field_count; ++i) {
    const varnel_inspected_field *field = &document.fields[i];
    printf("%s=%s (%s)\n", varnel_field_name(field->field), field->value, varnel_status_name(field->status));
  }
  for (int i = 0; i < document.finding_count; ++i) {
    const varnel_finding *finding = &document.findings[i];
    printf("line %d, column %d: %s, %s\n", finding->line + 1, finding->column + 1,
           varnel_field_name(finding->field), varnel_finding_name(finding->code));
  }
  return 0;
}
