// Issuers of driver's licences by their issuer identification number.
#ifndef VARNEL_SRC_DOCUMENTS_ISSUERS_HPP
#define VARNEL_SRC_DOCUMENTS_ISSUERS_HPP

struct issuer {
  int number;
  char jurisdiction[3]; // two letters, or empty
  char country[4];
};

// The issuer of a number, or null where the number is not listed.
const issuer *issuer_of(int number);

#endif
