#include <Varnel/mrz/mrz_normalize.h>

#include "../ascii.hpp"
#include "character_sets.hpp"

namespace {

// What every byte is read as: a character of zones, or NUL for what is dropped.
struct readings {
  char of[256] = {};

  constexpr readings() {
    for (int c = 0; c < 128; ++c) {
      const int capital = ascii::to_upper(c);
      of[c] = mrz_characters::contains(capital) ? static_cast<char>(capital) : '\0';
    }
  }
};

constexpr readings READINGS;

// Appends what one character is read as, if anything, and returns the end. Without a branch: which characters
// are dropped cannot be foreseen.
char *append(char *out, char c) {
  *out = READINGS.of[static_cast<unsigned char>(c)];
  return out + (*out != '\0' ? 1 : 0);
}

// The same for a word.
char *append_word(char *out, const char *text) {
  for (int i = 0; i < words::SIZE; i += 4) {
    out = append(out, text[i]);
    out = append(out, text[i + 1]);
    out = append(out, text[i + 2]);
    out = append(out, text[i + 3]);
  }
  return out;
}

// Appends the rest of a text of `size` characters at once, where the text ends with a wide word that needs
// no change: what of that was read before is written once more.
char *append_rest(char *out, const char *&text, const char *end, int size) {
  const char *const last = end - words::WIDE_SIZE;
  if (size < words::WIDE_SIZE || !mrz_characters::contains_all(words::load<words::wide>(last))) {
    return out;
  }
  memcpy(out - (text - last), last, words::WIDE_SIZE);
  out += end - text;
  text = end;
  return out;
}

} // namespace

int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len) {
  if (input == nullptr || i_len <= 0 || output == nullptr || o_len < 2 || result_len == nullptr) {
    return ERR_INVALID_ARGS;
  }
  // The limit is on the input: text beyond it is not examined, whatever is dropped before.
  const int size = smaller(i_len, o_len - 1);
  const char *const end = input + size;
  char *out = output;
  for (; end - input >= words::WIDE_SIZE; input += words::WIDE_SIZE) {
    // The usual text needs no change: as much of it at once as there is.
    const words::wide word = words::load<words::wide>(input);
    const words::wide kept = mrz_characters::marks(word);
    if (words::all(kept)) {
      memcpy(out, &word, words::WIDE_SIZE);
      out += words::WIDE_SIZE;
      continue;
    }
    for (int part = 0; part < words::WIDE_SIZE / words::SIZE; ++part) {
      const char *const text = input + part * words::SIZE;
      if (words::all_of_part(kept, part)) {
        memcpy(out, text, words::SIZE);
        out += words::SIZE;
      } else {
        out = append_word(out, text);
      }
    }
  }
  out = append_rest(out, input, end, size);
  while (input < end) {
    out = append(out, *input++);
  }
  *out = '\0';
  *result_len = static_cast<int>(out - output);
  return ERR_OK;
}
