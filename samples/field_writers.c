#include <stdio.h>

#include <Varnel/Varnel.h>

int main(void) {
  PARSE_RESULT record;
  char buffer[64];
  result_init(&record, buffer, sizeof buffer);

  // A name as it stands in a zone: fillers become spaces, and runs of spaces one.
  STRING name = {"VAN<DER<<BERG", 13};
  utils_write_field(&record, FIELD_FAMILY_NAME, &name, "<", " ", ' ');

  DATETIME birth = {1974, 8, 12, 0, 0, 0};
  utils_write_field_date(&record, FIELD_BIRTH_DATE, &birth);

  STRING street[] = {{"Main Street", 11}, {NULL, 0}, {"12", 2}};
  utils_write_field_array(&record, FIELD_ADDRESS_STREET_1, street, 3, ',', NULL, NULL, '\0');

  const int slots[] = {FIELD_FAMILY_NAME, FIELD_BIRTH_DATE, FIELD_ADDRESS_STREET_1, FIELD_SEX};
  for (int i = 0; i < 4; ++i) {
    STRING value = record.fields[slots[i]].value;
    printf("slot %2d: %d characters, \"%s\"\n", slots[i], value.len, value.len > 0 ? value.str : "");
  }
  // One terminator after each value, but two after that of the array writer.
  printf("%d of %d bytes used\n", record.data_size, record.buffer_size);
  return 0;
}
