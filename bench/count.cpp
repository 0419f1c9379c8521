// Reads one text REPEATS times through the C entry and export: varnel_count FILE REPEATS. The difference
// of two counts of instructions is the cost of the repeats alone.
#include <Varnel/Varnel.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fputs("usage: varnel_count FILE REPEATS\n", stderr);
    return 2;
  }
  std::FILE *file = std::fopen(argv[1], "rb");
  if (file == nullptr) {
    std::perror(argv[1]);
    return 2;
  }
  char text[4096];
  const std::size_t size = std::fread(text, 1, sizeof text, file);
  std::fclose(file);

  int accepted = 0;
  for (int i = std::atoi(argv[2]); i > 0; --i) {
    PARSE_RESULT record;
    char buffer[VARNEL_BUFFER_SIZE];
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    accepted += varnel_parse_mrz(text, varnel_utf16_length(text, size), &record, buffer, sizeof buffer) == 0;
    varnel_export(&record, pairs);
  }
  std::printf("%d\n", accepted);
  return 0;
}
