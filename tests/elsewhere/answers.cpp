// What the libraries answer to texts, one line for the twelve values and one for the inspection of each:
// answers FILE… What runs elsewhere is compared with what this prints here.
#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <cstdio>
#include <string>

static std::string read_file(const char *path) {
  std::string text;
  if (std::FILE *file = std::fopen(path, "rb")) {
    char part[4096];
    for (size_t size; (size = std::fread(part, 1, sizeof part, file)) > 0;) {
      text.append(part, size);
    }
    std::fclose(file);
  }
  return text;
}

static void print_values(const std::string &text) {
  varnel_parse_result record;
  char buffer[VARNEL_BUFFER_SIZE];
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  const int length = varnel_utf16_length(text.data(), text.size());
  std::printf("%d", varnel_parse_mrz(text.data(), length, &record, buffer, sizeof buffer));
  varnel_export(&record, pairs);
  for (const VARNEL_PAIR &pair : pairs) {
    std::printf(" %s=%.*s", pair.key, pair.value.len, pair.value.str);
  }
  std::printf("\n");
}

static void print_inspection(const std::string &text, int repair) {
  const varnel_inspect_options options = {2026, 11, 21, repair};
  static varnel_inspection inspection;
  static char json[65536];
  const int status = varnel_inspect(text.data(), text.size(), &options, &inspection);
  if (status == VARNEL_ERR_OK) {
    varnel_inspection_json(&inspection, json, sizeof json);
  }
  std::printf("%d %s\n", status, status == VARNEL_ERR_OK ? json : "");
}

int main(int argc, char **argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string text = read_file(argv[i]);
    print_values(text);
    print_inspection(text, VARNEL_REPAIR_OFF);
    print_inspection(text, VARNEL_REPAIR_DIGITS);
  }
  return argc > 1 ? 0 : 2;
}
