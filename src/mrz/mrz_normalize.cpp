#include <Varnel/mrz/mrz_normalize.h>

#include "../ascii.hpp"
#include "character_sets.hpp"

namespace {

// Appends what one character is read as, if anything, and returns the end.
char *append(char *out, char c) {
  const int capital = ascii::to_upper(char_value(c));
  *out = static_cast<char>(capital);
  return out + (mrz_characters::contains(capital) ? 1 : 0);
}

// Reads a word of text up to the first character that is dropped, and appends it. Moves `text` beyond
// what it has read, the dropped character included, and returns the end. More than that may be written,
// though no more than was read.
char *append_word(char *out, const char *&text) {
  uint64_t word = words::load<uint64_t>(text);
  const uint64_t small = words::of_ascii(range<'a', 'z'>::marks(word), word) & words::MARKS;
  word ^= small >> 2; // 'a' and 'A' are 0x20 apart
  words::store(word, out);
  const uint64_t dropped = ~mrz_characters::marks(word) & words::MARKS;
  if (dropped == 0) {
    text += words::SIZE;
    return out + words::SIZE;
  }
  const int kept = words::first(dropped);
  text += kept + 1;
  return out + kept;
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
  while (end - input >= words::WIDE_SIZE) {
    // The usual text needs no change: as much of it at once as there is.
    if (mrz_characters::contains_all(words::load<words::wide>(input))) {
      memcpy(out, input, words::WIDE_SIZE);
      out += words::WIDE_SIZE;
      input += words::WIDE_SIZE;
    } else {
      out = append_word(out, input);
      out = append_word(out, input);
    }
  }
  out = append_rest(out, input, end, size);
  while (end - input >= words::SIZE) {
    out = append_word(out, input);
  }
  while (input < end) {
    out = append(out, *input++);
  }
  *out = '\0';
  *result_len = static_cast<int>(out - output);
  return ERR_OK;
}
