#include "units.hpp"

#include <string.h>

#include "../../ascii.hpp"
#include "../calendar.hpp"
#include "../check_digit.hpp"
#include "../layouts.hpp"
#include "../states.hpp"
#include "lookalikes.hpp"

namespace documents::repair {

namespace {

// Whether the word is printed between two places of the page, with no letter or digit beside it.
bool prints(const passage &page, uint32_t begin, uint32_t end, const char *word, uint32_t size) {
  for (uint32_t i = begin; i + size <= end; ++i) {
    uint32_t same = 0;
    while (same < size && ascii::to_upper(page.text[i + same]) == word[same]) {
      ++same;
    }
    const bool starts = i == page.begin || !ascii::is_alnum(page.text[i - 1]);
    if (same == size && starts && (i + size == page.end || !ascii::is_alnum(page.text[i + size]))) {
      return true;
    }
  }
  return false;
}

} // namespace

bool surroundings::print(const char *word, int length) const {
  constexpr uint32_t reach = 4096; // bytes before and after the zone
  const uint32_t first = begin > page.begin + reach ? begin - reach : page.begin;
  const uint32_t last = page.end > end + reach ? end + reach : page.end;
  const uint32_t size = static_cast<uint32_t>(length);
  return length > 1 && (prints(page, first, begin, word, size) || prints(page, end, last, word, size));
}

// Dates.

namespace {

constexpr int DATE = 6; // its digit follows

bool holds(const char *date) { return check_digit(date, DATE) == date[DATE]; }

int two_digits(const char *text) { return (text[0] - '0') * 10 + text[1] - '0'; }

// Whether the date, of which so many characters are known, exists in some century.
bool may_exist(const char *text, int known) {
  const int leap_century = 2000;
  const int month = known > 2 ? two_digits(text + 2) : 1;
  const int day = known > 4 ? two_digits(text + 4) : 1;
  return exists(date{leap_century + two_digits(text), month, day});
}

// How many characters come before the fillers that stand for what is unknown; 0 when those are in no right
// place.
int count_known(const char *text) {
  int known = DATE;
  while (known > 0 && text[known - 1] == FILLER) {
    --known;
  }
  return known % 2 == 0 ? known : 0;
}

// Where the digit does not hold: puts in the one second meaning of a letter that makes it hold.
bool take_second_meaning(const char *read, char *text) {
  int place = -1;
  for (int i = 0; i <= DATE; ++i) {
    const char first = text[i];
    const char other = other_digit_for(read[i]);
    if (other != '\0') {
      text[i] = other;
      if (holds(text)) {
        if (place >= 0) {
          text[i] = first;
          return false;
        }
        place = i;
      }
      text[i] = first;
    }
  }
  if (place >= 0) {
    text[place] = other_digit_for(read[place]);
  }
  return place >= 0;
}

bool is_empty(const char *text) {
  for (int i = 0; i < DATE; ++i) {
    if (text[i] != FILLER) {
      return false;
    }
  }
  return true;
}

bool make_digits(date_unit &date) {
  char *text = date.text.text;
  const int known = count_known(text);
  if (known == 0) {
    date.holds = date.is_empty = is_empty(text) && (text[DATE] == FILLER || digit_for(text[DATE]) == '0');
    if (text[DATE] != FILLER) {
      text[DATE] = '0';
    }
    date.cost += cost::FILLER;
    return date.holds;
  }
  char read[DATE + 1];
  for (int i = 0; i <= DATE; ++i) {
    read[i] = text[i];
    if (i < known || i == DATE) {
      text[i] = digit_for(read[i]);
      date.cost += text[i] != read[i] ? cost::LOOKALIKE : 0;
    }
    if (text[i] == '\0') {
      return false;
    }
  }
  date.holds = (holds(text) || take_second_meaning(read, text)) && may_exist(text, known);
  date.cost += date.holds ? 0 : cost::FAILS;
  return true;
}

// Whether it is worth while to look closer: a month begins with 0 or 1, a day with 0 to 3.
bool may_be_date(const char *read, int length) {
  if (length > DATE + 1) {
    return digit_for(read[0]) != '\0';
  }
  if (digit_for(read[0]) == '\0') {
    return is_empty(read);
  }
  const char month = digit_for(read[2]);
  const char day = digit_for(read[4]);
  return (read[2] == FILLER || (month != '\0' && month <= '1') || other_digit_for(read[2]) != '\0') &&
         (read[4] == FILLER || (day != '\0' && day <= '3') || other_digit_for(read[4]) != '\0');
}

// A seven is read twice as a letter and as a digit.
bool is_twin_in_date(char first, char second) {
  return is_twin(first, second) || (first == 'T' && second == '7') || (first == '7' && second == 'T');
}

} // namespace

bool read_date(const noisy_line &line, int at, int length, date_unit &date) {
  if (!may_be_date(line.text + at, length)) {
    return false;
  }
  date = date_unit{};
  int dropped = -1;
  for (int i = at; length > DATE + 1 && i + 1 < at + length; ++i) {
    if (is_twin_in_date(line.text[i], line.text[i + 1])) {
      if (dropped >= 0) {
        return false;
      }
      dropped = ascii::is_digit(line.text[i]) ? i + 1 : i;
      date.cost = cost::TWIN;
    }
  }
  if (length > DATE + 1 && dropped < 0) {
    return false;
  }
  for (int i = at; i < at + length; ++i) {
    if (i != dropped) {
      date.text.put(line.text[i], i);
    }
  }
  return make_digits(date) && (date.holds || dropped < 0);
}

// States.

bool is_state(const char *code) {
  int letters = 0;
  while (letters < 3 && code[letters] != FILLER) {
    ++letters;
  }
  for (int i = letters; i < 3; ++i) {
    if (code[i] != FILLER) {
      return false;
    }
  }
  return is_listed_state(code, letters) || is_residence_permit_code(code, letters);
}

namespace {

constexpr int STATE = 3;

// A code in the making: the one found so far.
struct state_search {
  int found = 0;
  char code[STATE] = {};

  void consider(const char *candidate) {
    if (!is_state(candidate) || (found > 0 && is_found(candidate))) {
      return;
    }
    ++found;
    memcpy(code, candidate, STATE);
  }

  bool is_found(const char *candidate) const { return memcmp(candidate, code, STATE) == 0; }
};

// Every listed code that the digits among the characters may stand for.
void consider_meanings(const char *read, state_search &search) {
  char themselves[STATE][2] = {}; // each character as a text
  const char *meanings[STATE];
  for (int i = 0; i < STATE; ++i) {
    themselves[i][0] = read[i];
    meanings[i] = ascii::is_digit(read[i]) ? letters_for(read[i]) : themselves[i];
  }
  for (const char *first = meanings[0]; *first != '\0'; ++first) {
    for (const char *second = meanings[1]; *second != '\0'; ++second) {
      for (const char *third = meanings[2]; *third != '\0'; ++third) {
        const char code[STATE] = {*first, *second, *third};
        search.consider(code);
      }
    }
  }
}

// Every listed code with one O, D or Q in the place of another.
void consider_round_letters(const char *read, state_search &search) {
  for (int i = 0; i < STATE; ++i) {
    char code[STATE] = {read[0], read[1], read[2]};
    const char letter = letter_for(code[i]);
    constexpr char round[3] = {'O', 'D', 'Q'};
    for (const char other : round) {
      if (letter != other && (letter == 'O' || letter == 'D' || letter == 'Q')) {
        code[i] = other;
        search.consider(code);
      }
    }
  }
}

bool is_one_lookalike_from(const char *code, const char *issuer) {
  int different = 0;
  for (int i = 0; i < STATE; ++i) {
    if (code[i] != issuer[i]) {
      different += are_alike(code[i], issuer[i]) ? 1 : STATE;
    }
  }
  return different == 1;
}

bool may_be_filler(char c) { return c == FILLER || is_filler_noise(c); }

// Three characters as a listed code; they are changed into it.
bool read_three(char *code, const char *issuer, int level, int &cost) {
  if (is_state(code)) {
    return true;
  }
  state_search search;
  consider_meanings(code, search);
  if (search.found != 1) {
    search = state_search{};
    const bool german = code[0] == 'D' && (code[1] == FILLER || code[2] == FILLER) &&
                        may_be_filler(code[1]) && may_be_filler(code[2]);
    if (german) {
      search.consider("D<<");
    } else if (issuer != nullptr && is_one_lookalike_from(code, issuer)) {
      search.consider(issuer);
    } else if (level >= VARNEL_REPAIR_DIGITS) {
      consider_round_letters(code, search);
    }
  }
  for (int i = 0; i < STATE && search.found == 1; ++i) {
    cost += search.code[i] != code[i] ? cost::LOOKALIKE : 0;
    code[i] = search.code[i];
  }
  return search.found == 1;
}

// Four characters of which one was read twice: the place of the one to drop, or -1.
int find_twin_in_state(const char *read) {
  state_search search;
  int dropped = -1;
  for (int i = 0; i < 4; ++i) {
    const bool alike = (i > 0 && is_twin_in_state(read[i - 1], read[i])) ||
                       (i < 3 && is_twin_in_state(read[i], read[i + 1]));
    char code[STATE] = {};
    for (int k = 0, size = 0; k < 4; ++k) {
      if (k != i) {
        code[size++] = static_cast<char>(ascii::to_upper(read[k]));
      }
    }
    const int found = search.found;
    if (alike && code[2] != FILLER) {
      search.consider(code);
    }
    dropped = search.found > found ? i : dropped;
  }
  return search.found == 1 ? dropped : -1;
}

} // namespace

bool read_state(const noisy_line &line, int at, int length, const char *issuer, int level, characters &state,
                int &cost) {
  const char *read = line.text + at;
  if (at + length >= line.size) {
    return false; // a line goes on after a state
  }
  if (length == STATE) {
    char code[STATE];
    for (int i = 0; i < STATE; ++i) {
      code[i] = static_cast<char>(ascii::to_upper(read[i]));
    }
    if (!read_three(code, issuer, level, cost)) {
      return false;
    }
    for (int i = 0; i < STATE; ++i) {
      state.put(code[i], at + i);
    }
    return true;
  }
  const int dropped = length > STATE ? find_twin_in_state(read) : -1;
  for (int i = 0; i < length && dropped >= 0; ++i) {
    if (i != dropped) {
      state.put(static_cast<char>(ascii::to_upper(read[i])), at + i);
    }
  }
  if (dropped >= 0) {
    cost += cost::TWIN;
    return true;
  }
  const bool german =
      read[0] == 'D' && read[1] == FILLER &&
      (length < STATE ? ascii::is_alnum(read[2]) : may_be_filler(read[2]) && read[3] == FILLER);
  if (!german) {
    return false;
  }
  cost += cost::FILLER;
  state.put('D', at);
  state.put(FILLER, at + 1);
  state.put(FILLER, length > STATE ? at + 2 : NOT_READ);
  return true;
}

char read_sex(char c, int &cost) {
  switch (c) {
  case 'M':
  case 'F':
  case FILLER:
    return c;
  case 'm':
    return 'M';
  case 'f':
    return 'F';
  case 'P':
  case 'p':
    cost += cost::LOOKALIKE;
    return 'F';
  case 'N':
    cost += cost::LOOKALIKE;
    return 'M';
  case 'C':
  case 'K':
  case 'X':
  case 'c':
  case 'e':
  case 'k':
  case 's':
  case 'x':
    cost += cost::LOOKALIKE;
    return FILLER;
  default:
    return '\0';
  }
}

} // namespace documents::repair
