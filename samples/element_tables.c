#include <stdio.h>

#include <Varnel/pdf417/barcode_mapping.h>

int main(void) {
  const int birth = ('D' << 16) + ('B' << 8) + 'B'; // the element DBB

  printf("version 06: slot %d\n", utils_barcode2fieldtype(birth, MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, NULL));

  // Version 08 has the element twice. Searching on starts at the row after the one that was found.
  int row = 0;
  int slot;
  while ((slot = utils_barcode2fieldtype(birth, MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, &row)) != -1) {
    printf("version 08: slot %d, row %d\n", slot, row);
    ++row;
  }
  return 0;
}
