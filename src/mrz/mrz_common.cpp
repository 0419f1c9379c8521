#include <Varnel/mrz/mrz_common.h>

#include "../ascii.hpp"
#include "../view.hpp"
#include "character_sets.hpp"
#include "check_weights.hpp"
#include "fillers.hpp"

namespace {

constexpr int NO_VALUE = -1;

// The value of a character in a check-digit sum.
constexpr int check_value(int c) {
  if (ascii::is_digit(c)) {
    return c - '0';
  }
  if (ascii::is_upper(c)) {
    return c - 'A' + 10;
  }
  return c == FILLER ? 0 : NO_VALUE;
}

// Takes the text up to the first filler, and that one filler, off the start of `rest`, which does not
// begin with a filler. The rest of a text without a filler is empty.
STRING take_word(STRING &rest) {
  STRING word = {rest.str, 0};
  while (word.len < rest.len && !is_filler(word.str[word.len])) {
    ++word.len;
  }
  const int taken = word.len < rest.len ? word.len + 1 : word.len;
  rest = STRING{rest.str + taken, rest.len - taken};
  return word;
}

// The position of the second filler of the first "<<", which parts the primary identifier from the
// secondary; the view's length when there is none.
int find_separator(STRING name) {
  int i = 1;
  while (i < name.len && !(name.str[i] == FILLER && name.str[i - 1] == FILLER)) {
    ++i;
  }
  return i;
}

} // namespace

int MRZ_common_pattern_valid_mrz(int c) { return mrz_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_date(int c) { return mrz_date_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_name(int c) { return mrz_name_characters::contains(c); }

int MRZ_common_pattern_valid_mrz_cc(int c) { return mrz_code_characters::contains(c); }

int MRZ_common_calc_control_sum(const char *str, int len, int *pos) {
  if (str == nullptr) {
    return -1;
  }
  // Unsigned, so that no length and no position can overflow.
  unsigned position = pos != nullptr ? static_cast<unsigned>(*pos) : 0;
  unsigned sum = 0;
  for (int i = 0; i < len; ++i, ++position) {
    const int value = check_value(char_value(str[i]));
    if (value == NO_VALUE) {
      return -1;
    }
    sum += static_cast<unsigned>(value * CHECK_WEIGHTS[position % 3]);
  }
  if (pos != nullptr) {
    *pos = static_cast<int>(position);
  }
  return static_cast<int>(sum);
}

int MRZ_common_validate_control_sum(int sum, char c) {
  const int digit = c == FILLER ? '0' : c;
  return ascii::is_digit(digit) && sum % 10 == digit - '0';
}

int MRZ_common_extract_cc(const STRING *in, char out[4]) {
  if (in == nullptr || in->str == nullptr || in->len < 3 || out == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (!mrz_code_characters::covers(*in)) {
    return ERR_INVALID_FORMAT;
  }
  const STRING letters = code_letters(*in);
  for (int i = 0; i < 3; ++i) { // out[3] is the caller's terminator
    out[i] = i < letters.len ? letters.str[i] : '\0';
  }
  return ERR_OK;
}

int MRZ_common_extract_date(const STRING *in, DATETIME *date) {
  if (in == nullptr || in->str == nullptr || in->len != 6 || date == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (!mrz_date_characters::covers_short(*in)) {
    return ERR_INVALID_FORMAT;
  }
  const auto two_digits = [in](int at) { return (in->str[at] - '0') * 10 + (in->str[at + 1] - '0'); };
  *date = DATETIME{1900 + two_digits(0), two_digits(2), two_digits(4), 0, 0, 0};
  return ERR_OK;
}

int MRZ_common_extract_name(const STRING *s, STRING *full_name, STRING *last_name, STRING *first_name,
                            STRING *middle_name) {
  if (s == nullptr || s->str == nullptr || s->len < 0 || full_name == nullptr || last_name == nullptr ||
      first_name == nullptr || middle_name == nullptr) {
    return ERR_INVALID_ARGS;
  }
  STRING name = *s;
  *full_name = *last_name = *first_name = *middle_name = STRING{nullptr, 0};
  if (!mrz_name_characters::covers(name)) {
    return ERR_INVALID_FORMAT;
  }
  name = without_outer_fillers(name);
  if (is_empty(name)) {
    return ERR_INVALID_FORMAT;
  }
  *full_name = name;

  const int separator = find_separator(name);
  STRING given_names;
  if (separator < name.len) {
    *last_name = STRING{name.str, separator - 1};
    given_names = without_outer_fillers(STRING{name.str + separator, name.len - separator});
  } else {
    // One run of words: the first is the primary identifier.
    given_names = name;
    *last_name = take_word(given_names);
  }
  *first_name = take_word(given_names);
  *middle_name = given_names;
  return ERR_OK;
}
