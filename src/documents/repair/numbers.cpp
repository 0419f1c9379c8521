// A document number and its digit: what its digit proves, and what no digit can see.
#include "../../ascii.hpp"
#include "../check_digit.hpp"
#include "../layouts.hpp"
#include "lookalikes.hpp"
#include "units.hpp"

namespace documents::repair {

namespace {

constexpr int NUMBER = 9; // its digit follows

bool holds(const char *number) { return check_digit(number, NUMBER) == number[NUMBER]; }

// What one look-alike in a column adds to the sum that the digit is made of, modulo ten.
int added_by(const lookalike &pair, int column) {
  constexpr int weights[3] = {7, 3, 1};
  const int added = (check_value(pair.printed) - check_value(pair.read)) * weights[column % 3];
  return (added % 10 + 10) % 10;
}

// How likely it is, against the number as it was read, that it has one or two look-alikes in it that leave
// its digit as it is.
int likelihood_of_lookalikes(const char *number, int length) {
  int likelihood = 0;
  int before[10] = {}; // one look-alike in the columns so far, by what it adds
  for (int i = 0; i < length; ++i) {
    int here[10] = {};
    for (const lookalike &pair : lookalikes) {
      if (pair.read == number[i]) {
        here[added_by(pair, i)] += pair.likelihood;
      }
    }
    likelihood += here[0];
    for (int d = 0; d < 10; ++d) {
      likelihood += here[d] * before[(10 - d) % 10] / CERTAIN;
    }
    for (int d = 0; d < 10; ++d) {
      before[d] += here[d];
    }
  }
  return likelihood;
}

int length_of(const char *number) {
  int length = NUMBER;
  while (length > 0 && number[length - 1] == FILLER) {
    --length;
  }
  return length;
}

bool has_inner_filler(const char *number) {
  for (int i = 0; i < length_of(number); ++i) {
    if (number[i] == FILLER) {
      return true;
    }
  }
  return false;
}

// A letter and the symbol that looks like it.
bool is_twin_of_symbol(char first, char second) {
  return ascii::is_lower(first) != ascii::is_lower(second) &&
         ascii::to_upper(first) == ascii::to_upper(second);
}

// Of eleven characters the one whose leaving out alone makes the digit hold; -1 when there is none or
// another.
int find_surplus(const char *read) {
  int surplus = -1;
  for (int i = 0; i < NUMBER + 1; ++i) {
    if (!is_twin(read[i], read[i + 1]) && !is_twin_of_symbol(read[i], read[i + 1])) {
      continue;
    }
    // Where both say the same, as in the place of the check digit, the digit stays, or the letter.
    const bool is_same = i == NUMBER || is_twin_of_symbol(read[i], read[i + 1]);
    const bool first_stays =
        ascii::is_digit(read[i]) || (ascii::is_upper(read[i]) && ascii::is_lower(read[i + 1]));
    const int first = is_same && first_stays ? i + 1 : i;
    const int last = is_same ? first : i + 1;
    for (int out = first; out <= last; ++out) {
      char number[NUMBER + 1];
      for (int k = 0, size = 0; k <= NUMBER + 1; ++k) {
        if (k != out) {
          number[size++] = static_cast<char>(ascii::to_upper(read[k]));
        }
      }
      number[NUMBER] = digit_for(number[NUMBER]);
      if (holds(number) && out != surplus) {
        if (surplus >= 0) {
          return -1;
        }
        surplus = out;
      }
    }
  }
  return surplus;
}

// A filler before the digit that was read twice, once as a letter.
bool has_doubled_filler(const char *read) {
  return read[NUMBER - 1] == FILLER && (read[NUMBER] == 'K' || read[NUMBER] == 'X');
}

} // namespace

bool read_number(const noisy_line &line, int at, int length, bool may_have_twin, const surroundings &around,
                 number_unit &number) {
  number = number_unit{};
  const char *read = line.text + at;
  int dropped = -1;
  if (length > NUMBER + 1) {
    if (has_doubled_filler(read)) {
      dropped = NUMBER;
    } else if (may_have_twin && around.level >= VARNEL_REPAIR_DIGITS) {
      dropped = find_surplus(read);
    }
    if (dropped < 0) {
      return false;
    }
    number.cost = cost::TWIN;
  }
  const int last = dropped == length - 1 ? length - 2 : length - 1;
  for (int i = 0; i < last; ++i) {
    if (i != dropped) {
      number.text.put(static_cast<char>(ascii::to_upper(read[i])), at + i);
      number.cost += ascii::is_lower(read[i]) ? cost::LOOKALIKE : 0;
    }
  }
  if (length <= NUMBER) {
    number.text.fill(NUMBER);
    number.cost += cost::WRONG;
  }
  const char digit = digit_for(read[last]);
  number.text.put(digit != '\0' ? digit : static_cast<char>(ascii::to_upper(read[last])), at + last);
  if (read[last] != FILLER) {
    number.cost += digit == read[last] ? 0 : digit != '\0' ? cost::LOOKALIKE : cost::WRONG;
  }
  const char *text = number.text.text;
  number.cost += has_inner_filler(text) ? cost::INNER_FILLER : 0;
  number.holds = holds(text);
  return length_of(text) > 0 && (length == NUMBER + 1 || number.holds);
}

bool is_plain_number(const char *number, int length) {
  int i = 0;
  while (i < 3 && ascii::is_upper(number[i])) {
    ++i;
  }
  const int letters = i;
  while (i < length && ascii::is_digit(number[i])) {
    ++i;
  }
  const bool has_digits = i > letters;
  while (i < length && number[i] == FILLER) {
    ++i;
  }
  return has_digits && i == length;
}

bool is_unproven(const char *number, int length, const surroundings &around) {
  constexpr int tolerated = CERTAIN * 8 / 92; // the number itself is at least 92 % of all that holds
  return !is_plain_number(number, length) && likelihood_of_lookalikes(number, length) > tolerated &&
         !around.print(number, length);
}

void judge_number(number_unit &number, const surroundings &around) {
  char *text = number.text.text;
  const auto is_printed = [&] { return around.print(text, length_of(text)); };
  if (number.holds) {
    number.unproven = is_unproven(text, length_of(text), around);
    return;
  }
  if (around.level < VARNEL_REPAIR_DIGITS || !ascii::is_digit(text[NUMBER])) {
    return;
  }
  const int missing = (text[NUMBER] - check_digit(text, NUMBER) + 10) % 10;
  int ways = 0;
  int printed_ways = 0;
  int column = 0;
  lookalike taken = {};
  for (int i = 0; i < NUMBER; ++i) {
    for (const lookalike &pair : lookalikes) {
      if (pair.read != text[i] || added_by(pair, i) != missing) {
        continue;
      }
      text[i] = pair.printed;
      const bool printed = is_printed();
      text[i] = pair.read;
      ++ways;
      printed_ways += printed;
      if (printed || printed_ways == 0) {
        taken = pair;
        column = i;
      }
    }
  }
  if (printed_ways == 1 || (ways == 1 && taken.decisive)) {
    text[column] = taken.printed;
    number.holds = true;
    number.changed = true;
    number.column = static_cast<uint8_t>(column);
    number.read = taken.read;
    number.cost += cost::LOOKALIKE;
  }
}

} // namespace documents::repair
