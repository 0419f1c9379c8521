#include <Varnel/utils.h>

#include "../ascii.hpp"
#include "../view.hpp"

namespace {

constexpr unsigned char VOWEL = 0;  // never written; a code after it counts anew
constexpr unsigned char SILENT = 7; // H, W and Y: never written; the code before them still counts

} // namespace

const unsigned char _soundex_dic[26] = {
    VOWEL,  // A
    1,      // B
    2,      // C
    3,      // D
    VOWEL,  // E
    1,      // F
    2,      // G
    SILENT, // H
    VOWEL,  // I
    2,      // J
    2,      // K
    4,      // L
    5,      // M
    5,      // N
    VOWEL,  // O
    1,      // P
    2,      // Q
    6,      // R
    2,      // S
    3,      // T
    VOWEL,  // U
    1,      // V
    SILENT, // W
    2,      // X
    SILENT, // Y
    2,      // Z
};

int utils_soundex_encode(const STRING *name, SOUNDEX_CODE *code) {
  if (name == nullptr || is_empty(*name) || code == nullptr) {
    return ERR_INVALID_ARGS;
  }
  const int first = ascii::to_upper(char_value(name->str[0]));
  *code = SOUNDEX_CODE{static_cast<char>(first), {DIGITS[0], DIGITS[0], DIGITS[0]}};
  if (!ascii::is_upper(first)) {
    return ERR_INVALID_ARGS;
  }
  unsigned char old_code = _soundex_dic[first - 'A'];
  int written = 0;
  for (int i = 1; i < name->len && written < 3; ++i) {
    const int letter = ascii::to_upper(char_value(name->str[i]));
    if (!ascii::is_upper(letter)) {
      return ERR_INVALID_ARGS;
    }
    const unsigned char new_code = _soundex_dic[letter - 'A'];
    if (new_code == SILENT) {
      continue;
    }
    if (new_code != VOWEL && new_code != old_code) {
      code->code[written++] = DIGITS[new_code];
    }
    old_code = new_code;
  }
  return ERR_OK;
}

int utils_soundex_encode_str(const char *str, SOUNDEX_CODE *code) {
  const STRING name = {str, text_length(str)};
  return utils_soundex_encode(&name, code);
}
