#include <iostream>

#include <Varnel/Varnel.hpp>

int main() {
  const auto document = varnel::parse_mrz("P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                                          "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n");
  if (!document) {
    return 1; // not a travel document's zone
  }
  for (const auto [key, value] : *document) {
    std::cout << key << '=' << value << '\n';
  }
  return 0;
}
