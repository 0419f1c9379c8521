// Prints the columns that the layout parsers use, for the pictures of the layouts: one value a line as
// LAYOUT LINE START LENGTH VALUE, and before them LAYOUT lines COUNT LENGTH.
#include <stdio.h>

#include "../../src/mrz/columns.hpp"

namespace {

void print(const char *layout, int line, columns c, const char *value) {
  printf("%s %d %d %d %s\n", layout, line, c.start, c.length, value);
}

void print_two_lines(const char *layout, int line_length) {
  printf("%s lines 2 %d\n", layout, line_length);
  print(layout, 1, zone::ISSUING_STATE, "countryCode");
  print(layout, 1, {two_line::NAME_START, line_length - two_line::NAME_START}, "names");
  print(layout, 2, two_line::DOCUMENT_NUMBER, "licenseNumber");
  print(layout, 2, two_line::NATIONALITY, "nationality");
  print(layout, 2, two_line::BIRTH_DATE, "birthDate");
  print(layout, 2, {two_line::SEX, 1}, "gender");
  print(layout, 2, two_line::EXPIRATION_DATE, "expirationDate");
}

} // namespace

int main() {
  print_two_lines("td3", td3::LINE_LENGTH);
  print("td3", 2, td3::PERSONAL_NUMBER, "personalNumber");

  print_two_lines("td2", td2::LINE_LENGTH);

  printf("td1 lines 3 %d\n", td1::LINE_LENGTH);
  print("td1", 1, zone::ISSUING_STATE, "countryCode");
  print("td1", 1, td1::DOCUMENT_NUMBER, "licenseNumber");
  print("td1", 2, td1::BIRTH_DATE, "birthDate");
  print("td1", 2, {td1::SEX, 1}, "gender");
  print("td1", 2, td1::EXPIRATION_DATE, "expirationDate");
  print("td1", 2, td1::NATIONALITY, "nationality");
  print("td1", 3, {0, td1::LINE_LENGTH}, "names");

  print_two_lines("mrv-a", visa::LONG_LINE_LENGTH);
  print_two_lines("mrv-b", visa::SHORT_LINE_LENGTH);
  return 0;
}
