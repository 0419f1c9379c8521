#include "../../ascii.hpp"
#include "../layouts.hpp"
#include "lookalikes.hpp"
#include "units.hpp"

namespace documents::repair {

namespace {

// Where the fillers after the text begin: the first filler or small letter among the characters at the end
// that are fillers or may have been.
int find_tail(const noisy_line &line, int begin, int end) {
  int tail = end;
  while (tail > begin && (line.text[tail - 1] == FILLER || is_filler_noise(line.text[tail - 1]))) {
    --tail;
  }
  while (tail < end && line.text[tail] != FILLER && !ascii::is_lower(line.text[tail])) {
    ++tail;
  }
  return tail;
}

} // namespace

int read_optional_data(const noisy_line &line, int begin, int end, int width, characters (&ways)[MOST_WAYS]) {
  if (begin > end) {
    return 0;
  }
  const int tail = find_tail(line, begin, end);
  characters as_it_stands = {};
  characters filled = {};
  bool small = false;
  bool pure = true; // the tail is fillers and nothing else
  for (int i = begin; i < end; ++i) {
    const char c = static_cast<char>(ascii::to_upper(line.text[i]));
    small = small || ascii::is_lower(line.text[i]);
    pure = pure && (i < tail || c == FILLER);
    as_it_stands.put(c, i);
    if (filled.size < width) {
      filled.put(i < tail ? c : FILLER, i);
    }
  }
  filled.fill(width);
  const bool may_stand = end - begin == width;
  const bool may_be_filled = tail - begin <= width && !(may_stand && pure);
  // Data does not begin with a filler; a small letter is one misread.
  const bool likely_filled = !pure && (small || line.text[begin] == FILLER);
  int count = 0;
  if (may_stand && !likely_filled) {
    ways[count++] = as_it_stands;
  }
  if (may_be_filled) {
    ways[count++] = filled;
  }
  if (may_stand && likely_filled) {
    ways[count++] = as_it_stands;
  }
  return count;
}

} // namespace documents::repair
