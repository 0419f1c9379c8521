#include "lookalikes.hpp"

#include "../../ascii.hpp"

namespace documents::repair {

namespace {

// Pairs of characters, one after the other: what was read, what it stands for.
char find_second(const char *pairs, char first) {
  for (; *pairs != '\0'; pairs += 2) {
    if (pairs[0] == first) {
      return pairs[1];
    }
  }
  return '\0';
}

bool is_pair(const char *pairs, char left, char right) {
  for (; *pairs != '\0'; pairs += 2) {
    if (pairs[0] == left && pairs[1] == right) {
      return true;
    }
  }
  return false;
}

// By character; NUL for one that stands for no digit.
struct digit_table {
  char digit[256] = {};

  constexpr digit_table() {
    for (char c = '0'; c <= '9'; ++c) {
      digit[static_cast<int>(c)] = c;
    }
    constexpr char pairs[] = "O0Q0D0U0C0o0c0d0q0I1L1T1J1l1i1t1Z2z2S5s5G6b6B8g8A4y4h4";
    for (int i = 0; pairs[i] != '\0'; i += 2) {
      digit[static_cast<int>(pairs[i])] = pairs[i + 1];
    }
  }
};

constexpr digit_table DIGITS;

} // namespace

char digit_for(char c) { return DIGITS.digit[static_cast<unsigned char>(c)]; }

char other_digit_for(char c) { return find_second("T7g4S8s8I9Z7", c); }

char letter_for(char c) {
  return ascii::is_alpha(c) ? static_cast<char>(ascii::to_upper(c)) : find_second("0O1I2Z5S6G8B", c);
}

const char *letters_for(char digit) {
  switch (digit) {
  case '0':
    return "ODQ";
  case '1':
    return "ILTJ";
  case '2':
    return "Z";
  case '4':
    return "AJ";
  case '5':
    return "SJ";
  case '6':
    return "GB";
  case '7':
    return "TYZ";
  case '8':
    return "BS";
  default:
    return "";
  }
}

// How often a reader's character stood for another, counted in numbers of mixed letters and digits.
const lookalike lookalikes[LOOKALIKES] = {
    {'0', 'O', 4100, true}, {'O', '0', 6600, true}, {'1', 'I', 2100, true}, {'I', '1', 200, true},
    {'S', '5', 900, true},  {'B', '8', 340, true},  {'T', 'I', 500, false}, {'L', 'I', 400, false},
    {'E', 'C', 300, false}, {'I', 'J', 200, false}, {'U', 'J', 200, false}, {'6', 'G', 200, false},
    {'G', 'Q', 240, false}, {'Z', '2', 60, false},  {'2', 'Z', 200, false}, {'5', 'S', 130, false},
    {'8', 'B', 75, false},  {'Q', '0', 100, false}, {'D', '0', 80, false},  {'0', 'D', 70, false},
    {'0', 'Q', 20, false},  {'4', '1', 80, false},  {'A', '4', 150, false}, {'7', 'Z', 200, false},
    {'G', '6', 100, false}, {'G', '4', 240, false}, {'S', '8', 20, false},  {'T', '1', 30, false},
    {'T', '7', 40, false},
};

bool are_alike(char a, char b) {
  for (const lookalike &pair : lookalikes) {
    if ((pair.read == a && pair.printed == b) || (pair.read == b && pair.printed == a)) {
      return true;
    }
  }
  return false;
}

bool are_often_taken_for_each_other(char a, char b) { return is_pair("0OO01II15SS58BB8", a, b); }

bool is_twin(char first, char second) {
  return ascii::is_digit(first) != ascii::is_digit(second) && is_pair("0OO01II15SS58BB82ZZ2", first, second);
}

bool is_twin_in_state(char first, char second) {
  const char pairs[] = "0O1I2Z5S8B6G3JOCTI1T1L0D0Q";
  return ascii::to_upper(first) == ascii::to_upper(second) || is_pair(pairs, first, second) ||
         is_pair(pairs, second, first);
}

bool is_filler_noise(char c) {
  switch (c) {
  case '5':
  case '6':
  case 'C':
  case 'D':
  case 'E':
  case 'G':
  case 'K':
  case 'L':
  case 'R':
  case 'S':
  case 'X':
  case 'Y':
    return true;
  default:
    return ascii::is_lower(c);
  }
}

} // namespace documents::repair
