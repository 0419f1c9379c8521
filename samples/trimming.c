#include <stdio.h>

#include <Varnel/patterns.h>
#include <Varnel/utils.h>

int main(void) {
  // Trimming moves the view; the text stays as it is.
  STRING number = {"<<AB12<34<<<", 12};
  utils_strtrim(&number, "<");
  printf("trimmed: \"%.*s\"\n", number.len, number.str);

  // A check answers 0, or the position of the first character it refuses, counted from 1.
  printf("refused at: %d\n", utils_strcheck_f(&number, pattern_is_w));
  printf("refused at: %d\n", utils_cstrcheck_f("AB12", pattern_is_w));

  // In a buffer the text itself moves. No NUL is written: the length that comes back counts.
  char buffer[] = "  12 Main Street \n";
  int length = utils_cstrtrim(buffer, (int)sizeof buffer - 1, " \n");
  printf("in place: \"%.*s\"\n", length, buffer);
  return 0;
}
