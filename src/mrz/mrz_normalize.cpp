#include <Varnel/mrz/mrz_normalize.h>

#include "../ascii.hpp"
#include "character_sets.hpp"

namespace {

// For every byte the MRZ character it is read as, or NUL where it is dropped.
struct mrz_alphabet {
  char read_as[256] = {};

  constexpr mrz_alphabet() {
    for (int c = 0; c < 128; ++c) {
      const int capital = ascii::to_upper(c);
      if (mrz_characters::contains(capital)) {
        read_as[c] = static_cast<char>(capital);
      }
    }
  }
};

constexpr mrz_alphabet ALPHABET;

// Appends what `len` characters are read as and returns the end. A dropped character leaves its place
// to the next one.
char *append(char *out, const char *text, int len) {
  for (int i = 0; i < len; ++i) {
    *out = ALPHABET.read_as[static_cast<unsigned char>(text[i])];
    out += *out != '\0' ? 1 : 0;
  }
  return out;
}

// The same for a word: at once up to the first character that changes.
char *append_word(char *out, const char *text) {
  memcpy(out, text, words::SIZE);
  const uint64_t changing = ~mrz_characters::marks(words::load<uint64_t>(text)) & words::MARKS;
  if (changing == 0) {
    return out + words::SIZE;
  }
  const int unchanged = words::first(changing);
  return append(out + unchanged, text + unchanged, words::SIZE - unchanged);
}

char *append_wide(char *out, const char *text) {
  if (mrz_characters::contains_all(words::load<words::wide>(text))) {
    memcpy(out, text, words::WIDE_SIZE);
    return out + words::WIDE_SIZE;
  }
  for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
    out = append_word(out, text + i);
  }
  return out;
}

} // namespace

int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len) {
  if (input == nullptr || i_len <= 0 || output == nullptr || o_len < 2 || result_len == nullptr) {
    return ERR_INVALID_ARGS;
  }
  // The limit is on the input: text beyond it is not examined, whatever is dropped before.
  const int size = smaller(i_len, o_len - 1);
  char *out = output;
  int i = 0;
  for (; size - i >= words::WIDE_SIZE; i += words::WIDE_SIZE) {
    out = append_wide(out, input + i);
  }
  for (; size - i >= words::SIZE; i += words::SIZE) {
    out = append_word(out, input + i);
  }
  out = append(out, input + i, size - i);
  *out = '\0';
  *result_len = static_cast<int>(out - output);
  return ERR_OK;
}
