#include <stdio.h>

#include <Varnel/mrz/mrz_common.h>
#include <Varnel/utils.h>

int main(void) {
  // The first run of 3 to 5 digits: "12" is too short, and the run found is cut after 5.
  STRING text = {"12AB345678", 10};
  STRING match, tail;
  int found = utils_match_f(&text, MRZ_common_pattern_valid_mrz_date, 3, 5, &match, &tail);
  printf("found %d: \"%.*s\", then \"%.*s\"\n", found, match.len, match.str, tail.len, tail.str);

  // A run that the end of the text cuts short is a match all the same.
  STRING short_run = {"AB12", 4};
  found = utils_match_f(&short_run, MRZ_common_pattern_valid_mrz_date, 3, 5, &match, NULL);
  printf("found %d: \"%.*s\"\n", found, match.len, match.str);

  // Tokens, the empty one between the commas included.
  STRING list = {"A,,B,", 5};
  STRING tokens[4];
  int count = utils_strsplit(&list, tokens, 4, ",", 0);
  for (int i = 0; i < count; ++i) {
    printf("token %d: \"%.*s\"\n", i, tokens[i].len, tokens[i].str);
  }

  // Lengths are ordered before characters.
  printf("order: %d\n", utils_strcmp(&list, "ZZZ"));

  // In place, within the room there is.
  char buffer[8] = "A<B<C";
  STRING filler = {"<", 1}, spaces = {"  ", 2};
  int length = utils_strreplace(buffer, 5, sizeof buffer, &filler, &spaces);
  printf("replaced: \"%.*s\"\n", length, buffer);
  return 0;
}
