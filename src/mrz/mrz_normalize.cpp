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

// The same for a block, at once when there is nothing to change in it.
char *append_half_block(char *out, const char *text) {
  const auto half = blocks::load<blocks::half_block>(text);
  if (!mrz_characters::contains_all(half)) {
    return append(out, text, blocks::HALF_SIZE);
  }
  blocks::store(out, half);
  return out + blocks::HALF_SIZE;
}

char *append_block(char *out, const char *text) {
  const auto block = blocks::load<blocks::block>(text);
  if (!mrz_characters::contains_all(block)) {
    return append_half_block(append_half_block(out, text), text + blocks::HALF_SIZE);
  }
  blocks::store(out, block);
  return out + blocks::SIZE;
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
  for (; size - i >= blocks::SIZE; i += blocks::SIZE) {
    out = append_block(out, input + i);
  }
  for (; size - i >= blocks::HALF_SIZE; i += blocks::HALF_SIZE) {
    out = append_half_block(out, input + i);
  }
  out = append(out, input + i, size - i);
  *out = '\0';
  *result_len = static_cast<int>(out - output);
  return ERR_OK;
}
