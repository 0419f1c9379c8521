// Where each value of a zone stands: columns of ICAO Doc 9303, counted from 0 within the line.
#ifndef VARNEL_SRC_MRZ_COLUMNS_HPP
#define VARNEL_SRC_MRZ_COLUMNS_HPP

struct columns {
  int start;
  int length;
};

namespace zone {
constexpr columns ISSUING_STATE = {2, 3}; // line 1 of every layout
} // namespace zone

// The two-line layouts (TD2, TD3, both visas) share their columns; line 1 ends with the name and line 2
// with optional data, each reaching as far as the line's length lets it.
namespace two_line {
constexpr int NAME_START = 5;
constexpr columns DOCUMENT_NUMBER = {0, 9};
constexpr columns NATIONALITY = {10, 3};
constexpr columns BIRTH_DATE = {13, 6};
constexpr int SEX = 20;
constexpr columns EXPIRATION_DATE = {21, 6};
} // namespace two_line

namespace td3 {
constexpr int LINE_LENGTH = 44;
constexpr columns PERSONAL_NUMBER = {28, 14};
} // namespace td3

namespace td2 {
constexpr int LINE_LENGTH = 36;
} // namespace td2

namespace visa {
constexpr int LONG_LINE_LENGTH = 44;  // MRV-A
constexpr int SHORT_LINE_LENGTH = 36; // MRV-B
} // namespace visa

namespace td1 {
constexpr int LINE_LENGTH = 30;
constexpr columns DOCUMENT_NUMBER = {5, 9}; // line 1
constexpr columns BIRTH_DATE = {0, 6};      // line 2
constexpr int SEX = 7;
constexpr columns EXPIRATION_DATE = {8, 6};
constexpr columns NATIONALITY = {15, 3};
} // namespace td1

#endif
