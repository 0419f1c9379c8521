#include <Varnel/utils.h>

#include "../ascii.hpp"
#include "../view.hpp"
#include "soundex_classes.hpp"

namespace {

constexpr unsigned char CLASSES[26] = {VARNEL_SOUNDEX_CLASSES};

} // namespace

int utils_soundex_encode(const STRING *name, SOUNDEX_CODE *code) {
  if (name == nullptr || is_empty(*name) || code == nullptr) {
    return ERR_INVALID_ARGS;
  }
  const int first = ascii::to_upper(char_value(name->str[0]));
  *code = SOUNDEX_CODE{static_cast<char>(first), {'0', '0', '0'}};
  if (!ascii::is_upper(first)) {
    return ERR_INVALID_ARGS;
  }
  unsigned char old_code = CLASSES[first - 'A'];
  int written = 0;
  for (int i = 1; i < name->len && written < 3; ++i) {
    const int letter = ascii::to_upper(char_value(name->str[i]));
    if (!ascii::is_upper(letter)) {
      return ERR_INVALID_ARGS;
    }
    const unsigned char new_code = CLASSES[letter - 'A'];
    if (new_code == soundex::SILENT) {
      continue;
    }
    if (new_code != soundex::VOWEL && new_code != old_code) {
      code->code[written++] = static_cast<char>('0' + new_code);
    }
    old_code = new_code;
  }
  return ERR_OK;
}

int utils_soundex_encode_str(const char *str, SOUNDEX_CODE *code) {
  const STRING name = {str, text_length(str)};
  return utils_soundex_encode(&name, code);
}
