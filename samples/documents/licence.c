#include <stdio.h>

#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

int main(void) {
  const char text[] = "@\n\x1E\rANSI 636000100001DL00310117DLDAQT64235789\nDCSHOLLOWAY\nDACMARGUERITE\n"
                      "DADANNE,LOUISE\nDBD06062019\nDBB06-06-1986\nDBA12102027\nDBC2\nDAJVA\nDCGUSA\nDDK1\r";
  size_t size = sizeof text - 1;
  PARSE_RESULT record;
  char buffer[VARNEL_BARCODE_BUFFER_SIZE(4096)];
  varnel_barcode_info info;
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];

  if (varnel_barcode(text, size, &record, buffer, sizeof buffer, &info) == ERR_OK) {
    varnel_export(&record, pairs);
    for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
      printf("%s=%.*s\n", pairs[i].key, pairs[i].value.len, pairs[i].value.str);
    }
  }
  for (int i = 0; i < info.finding_count; ++i) {
    printf("finding %d at byte %u %s\n", info.findings[i].code, (unsigned)info.findings[i].offset,
           info.findings[i].element);
  }
  return 0;
}
