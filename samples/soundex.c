#include <stdio.h>

#include <Varnel/utils.h>

int main(void) {
  const char *names[] = {"Robert", "Rupert", "Ashcraft", "Lee", "Washington DC", "O'Brien"};
  for (int i = 0; i < 6; ++i) {
    SOUNDEX_CODE code;
    int status = utils_soundex_encode_str(names[i], &code);
    // Four characters without a terminator; after a failure, what was written until then.
    printf("%-13s %c%.3s (%d)\n", names[i], code.alpha, code.code, status);
  }
  return 0;
}
