#include <stdio.h>

#include <Varnel/Varnel.h>

// Whether a stretch of a line is followed by its check digit.
static int is_right(const char *line, int start, int length) {
  int sum = MRZ_common_calc_control_sum(line + start, length, NULL);
  return MRZ_common_validate_control_sum(sum, line[start + length]);
}

int main(void) {
  // The second line of a passport: 44 characters, as normalize_mrz() leaves them.
  const char *line = "L898902C36UTO7408122F1204159ZE184226B<<<<<10";

  // The composite check digit is that of three stretches, weighed as one.
  int position = 0;
  int sum = MRZ_common_calc_control_sum(line, 10, &position);
  sum += MRZ_common_calc_control_sum(line + 13, 7, &position);
  sum += MRZ_common_calc_control_sum(line + 21, 22, &position);

  printf("document number %s\n", is_right(line, 0, 9) ? "right" : "wrong");
  printf("date of birth %s\n", is_right(line, 13, 6) ? "right" : "wrong");
  printf("date of expiry %s\n", is_right(line, 21, 6) ? "right" : "wrong");
  printf("personal number %s\n", is_right(line, 28, 14) ? "right" : "wrong");
  printf("whole line %s\n", MRZ_common_validate_control_sum(sum, line[43]) ? "right" : "wrong");
  return 0;
}
