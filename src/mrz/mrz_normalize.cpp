#include <Varnel/mrz/mrz_normalize.h>

#include "../ascii.hpp"

namespace {

// For every byte the MRZ character it is read as, or NUL where it is dropped.
struct mrz_alphabet {
  char read_as[256] = {};

  constexpr mrz_alphabet() {
    for (int c = 0; c < 128; ++c) {
      if (ascii::is_alnum(c) || c == '<') {
        read_as[c] = static_cast<char>(ascii::to_upper(c));
      }
    }
  }
};

constexpr mrz_alphabet ALPHABET;

} // namespace

int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len) {
  if (input == nullptr || i_len <= 0 || output == nullptr || o_len < 2 || result_len == nullptr) {
    return ERR_INVALID_ARGS;
  }
  // The limit is on the input: text beyond it is not examined, whatever is dropped before.
  const int size = i_len < o_len ? i_len : o_len - 1;
  int written = 0;
  for (int i = 0; i < size; ++i) {
    output[written] = ALPHABET.read_as[static_cast<unsigned char>(input[i])];
    written += output[written] != '\0' ? 1 : 0;
  }
  output[written] = '\0';
  *result_len = written;
  return ERR_OK;
}
