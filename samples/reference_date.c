#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

// Reads a passport's date of birth with a reference year of the caller's.
static void print_birth(const char *zone, int reference_year) {
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  const CONTEXT context = {{reference_year, 1, 1, 0, 0, 0}};
  result_init(&result, buffer, sizeof buffer);
  if (MRZ_passport_parse(zone, (int)strlen(zone), &result, &context) == ERR_OK) {
    printf("%d: %s\n", reference_year, varnel_value(&result, FIELD_BIRTH_DATE).str);
  }
}

int main(void) {
  // A layout parser takes the zone as normalize_mrz() leaves it. The holder was born on 8 May 2019.
  const char *zone = "P<UTODOE<<JANE<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<"
                     "AB12345671UTO1905087F3001019<<<<<<<<<<<<<<<8";
  print_birth(zone, 2018);
  print_birth(zone, 2026);
  return 0;
}
