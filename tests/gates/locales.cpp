// Every character test and every text routine answers alike in every locale, on all bytes.
//
// Arguments: names of 8-bit locales in which the C library takes bytes above 0x7F for letters.
#include <predicates.hpp>

#include <Varnel/Varnel.h>

#include <cctype>
#include <clocale>
#include <cstdio>
#include <vector>

namespace {

// What the library says of one byte, wherever a class of characters matters.
void ask_about(char byte, std::vector<int> &answers) {
  char zone[4] = {};
  int zone_length = 0;
  answers.push_back(normalize_mrz(&byte, 1, zone, sizeof zone, &zone_length));
  answers.push_back(zone_length);
  answers.push_back(zone[0]);

  const char name[2] = {'A', byte};
  const STRING view = {name, 2};
  SOUNDEX_CODE code = {};
  answers.push_back(utils_soundex_encode(&view, &code));
  answers.push_back(code.code[0]);

  const char small[2] = {'a', static_cast<char>(byte ^ 0x20)};
  const STRING other = {small, 2};
  answers.push_back(utils_tokcmp(&view, &other, 1));

  const char digits[8] = {byte, '9', '7', '4', '0', '8', '1', '2'};
  const STRING text = {digits, 8};
  DATETIME date = {};
  answers.push_back(utils_parse_date(&text, &date));
  answers.push_back(date.year);
}

std::vector<int> answers() {
  std::vector<int> said;
  for (int c = -128; c < 256; ++c) {
    for (const reference::predicate &predicate : reference::PREDICATES) {
      said.push_back(predicate.library(c));
    }
    ask_about(static_cast<char>(c), said);
  }
  return said;
}

bool is_hostile() {
  int letters = 0;
  for (int c = 0x80; c < 0x100; ++c) {
    letters += std::isalpha(c) != 0 ? 1 : 0;
  }
  return letters > 0;
}

} // namespace

int main(int argc, char **argv) {
  const std::vector<int> expected = answers();
  for (int i = 1; i < argc; ++i) {
    if (std::setlocale(LC_ALL, argv[i]) == nullptr || !is_hostile()) {
      printf("the locale %s is missing or has no letters above 0x7F: nothing would be tested\n", argv[i]);
      return 1;
    }
    if (answers() != expected) {
      printf("the library answers otherwise in the locale %s\n", argv[i]);
      return 1;
    }
    printf("%s: %zu answers alike\n", argv[i], expected.size());
  }
  return argc > 1 ? 0 : 1;
}
