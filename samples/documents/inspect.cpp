// Inspects a passport and prints its number only where check digits prove it.
#include <iostream>

#include <Varnel/documents.hpp>

int main() {
  const auto document = varnel::inspect("P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                                        "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n",
                                        {2026, 11, 21});
  const auto number = document ? document->field(VARNEL_DOCUMENT_NUMBER) : std::nullopt;
  if (!number || number->proof() != varnel::proof::digits) {
    return 1; // no passport, or a number that nothing proves
  }
  std::cout << "number=" << number->value().value_or("") << '\n';
  std::cout << "expired=" << std::boolalpha << document->expired().value_or(false) << '\n';
  return 0;
}
