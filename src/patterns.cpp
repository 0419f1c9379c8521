#include <Varnel/patterns.h>

#include "ascii.hpp"

using ascii::is_alnum;
using ascii::is_digit;
using ascii::is_space;
using ascii::is_upper;

namespace {

// Whether c is one of the listed punctuation characters.
template <int N> constexpr bool is_one_of(int c, const char (&list)[N]) {
  for (int i = 0; i < N - 1; ++i) {
    if (c == list[i]) {
      return true;
    }
  }
  return false;
}

} // namespace

int pattern_is_atoi_valid(int c) { return is_digit(c) || is_space(c) || is_one_of(c, "-+"); }

int pattern_isNotDigit(int c) { return !is_digit(c); }

int pattern_isCityChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "'-._\\/"); }

int pattern_isClearCityChar(int c) { return is_alnum(c) || is_one_of(c, "_-\\/"); }

int pattern_isNotClearCityChar(int c) { return !pattern_isClearCityChar(c); }

int pattern_isNameChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "$',-._\\/"); }

int pattern_isAddressChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "#$',-._\\/"); }

int pattern_isAddressChar2(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, ",-_$#"); }

int pattern_isClearAddressChar(int c) { return is_alnum(c) || is_one_of(c, "'-._\\/"); }

int pattern_isClearAddressChar2(int c) { return is_alnum(c) || is_one_of(c, "_-"); }

int pattern_isNotClearAddressChar(int c) { return !pattern_isClearAddressChar(c); }

int pattern_isNotClearAddressChar2(int c) { return !pattern_isClearAddressChar2(c); }

// Digits are refused: the class is narrower than real postal codes, on purpose.
int pattern_isClearPostalCode(int c) { return is_upper(c) || is_space(c); }

int pattern_isLicenseNumber(int c) { return is_digit(c) || is_space(c); }

int pattern_is_w(int c) { return is_alnum(c) || c == '_'; }

int pattern_is_not_w(int c) { return !pattern_is_w(c); }

int pattern_is_ws(int c) { return pattern_is_w(c) || is_space(c); }

// The tilde (126) is refused along with the control characters.
int pattern_valid_symbols(int c) { return c > ' ' && c < '~'; }

int pattern_not_valid_symbols(int c) { return !pattern_valid_symbols(c); }

int patter_trim_space(int c) { return is_space(c) || c == '\0'; }

int patter_trim_address(int c) { return !is_alnum(c) && c != '.'; }
