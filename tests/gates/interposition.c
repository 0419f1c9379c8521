/*
 * A program that has a DIGITS, an MRZ_WEIGHTS and a _soundex_dic of its own, by chance or malice, and calls
 * the library, which has to answer from its own constants.
 */
#include <stdio.h>
#include <string.h>

#include <Varnel/Varnel.h>

const char DIGITS[11] = "abcdefghij";
const int MRZ_WEIGHTS[3] = {1, 1, 1};
const unsigned char _soundex_dic[26] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                        1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

static int wrong;

static void expect(const char *what, int holds) {
  if (!holds) {
    printf("%s answers from the program's constants\n", what);
    wrong = 1;
  }
}

int main(void) {
  char digits[4] = "";
  SOUNDEX_CODE code;
  PARSE_RESULT record;
  char buffer[64];
  const DATETIME date = {2018, 2, 15, 0, 0, 0};

  expect("utils_itoa", utils_itoa(2018, digits, 4, 0) == 4 && memcmp(digits, "2018", 4) == 0);
  expect("utils_itoch", utils_itoch(7) == '7');
  utils_soundex_encode_str("Robert", &code);
  expect("utils_soundex_encode", memcmp(&code, "R163", 4) == 0);
  /* The birth date of the ICAO specimen: 7*7 + 4*3 + 0*1 + 8*7 + 1*3 + 2*1 */
  expect("MRZ_common_calc_control_sum", MRZ_common_calc_control_sum("740812", 6, NULL) == 122);
  result_init(&record, buffer, sizeof buffer);
  utils_write_field_date(&record, FIELD_BIRTH_DATE, &date);
  expect("utils_write_field_date", memcmp(buffer, "20180215", 9) == 0);
  return wrong;
}
