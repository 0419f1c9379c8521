#include <stdio.h>
#include <string.h>

#include <Varnel/patterns.h>
#include <Varnel/utils.h>

static void check(const char *what, const char *text, _t_predicate_func f) {
  printf("%-14s \"%s\": %d\n", what, text, utils_cstrcheck_f(text, f));
}

int main(void) {
  // 0 when every character is in the class, else the position of the first that is not.
  check("city", "St. John's", pattern_isCityChar);
  check("address", "12 Main Street #4", pattern_isAddressChar);
  check("licence number", "D1234567", pattern_isLicenseNumber);
  check("postal code", "1010", pattern_isClearPostalCode);

  // The same classes trim.
  const char *text = "#, 12 Main St. \r\n";
  STRING address = {text, (int)strlen(text)};
  utils_strtrim_f(&address, patter_trim_address);
  printf("trimmed: \"%.*s\"\n", address.len, address.str);
  return 0;
}
