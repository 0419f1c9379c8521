#include "reading.hpp"

#include <string.h>

#include "../../ascii.hpp"
#include "../check_digit.hpp"
#include "../evaluate.hpp"
#include "lookalikes.hpp"

namespace documents::repair {

namespace {

constexpr int STATE = 3;
constexpr int DATE = 6;
constexpr int NUMBER = 9;

// How many characters a unit may have been read as; the first is how many it has.
constexpr uint8_t DATE_LENGTHS[] = {DATE + 1, DATE + 2};
constexpr uint8_t NUMBER_LENGTHS[] = {NUMBER + 1, NUMBER, NUMBER - 1, NUMBER + 2};
constexpr uint8_t STATE_LENGTHS[] = {STATE, STATE - 1, STATE + 1};

// The same for the document code and the state after it.
struct head_lengths {
  uint8_t code;
  uint8_t state;
};
constexpr head_lengths HEAD_LENGTHS[] = {{2, STATE}, {2, STATE - 1}, {2, STATE + 1}, {1, STATE}, {3, STATE}};

// The tenths of all explanations that one must have to be taken for the data of a card.
constexpr int DATA_SHARE = 8;

// A line may be so much longer than its layout's.
constexpr int LONGER = 14;

const char *at(const reading &r, stretch s) { return r.lines[s.line].text + s.column; }

bool check_holds(const reading &r, const check_place &check) {
  const auto columns = [&r](stretch place) { return at(r, place); };
  return r.lines[check.line].text[check.column] == expected_digit(check, columns);
}

bool is_like_i(char c) { return c == '1' || c == 'J' || c == 'L' || c == 'T'; }
bool is_visa(const layout &form) { return form.first_letters[0] == 'V'; }
bool is_card(const layout &form) { return form.first_letters[0] == 'A'; }

// Where the optional data, or the personal number, stands on the line with the dates.
stretch data_after_dates(const layout &form) {
  constexpr uint8_t fields[] = {VARNEL_PERSONAL_NUMBER, VARNEL_OPTIONAL_DATA_2, VARNEL_OPTIONAL_DATA};
  const field_place *data = nullptr;
  for (const uint8_t field : fields) {
    data = data != nullptr ? data : form.find(field);
  }
  return data != nullptr ? data->place : stretch{};
}

// A layout without a composite has none that fails.
bool composite_holds(const reading &r) {
  const check_place *composite = LAYOUTS[r.layout].find_check(VARNEL_COMPOSITE);
  return composite == nullptr || check_holds(r, *composite);
}

// Whether the composite holds, and a personal number's digit.
bool data_digits_hold(const reading &r) {
  const layout &form = LAYOUTS[r.layout];
  if (!composite_holds(r)) {
    return false;
  }
  const check_place *personal = form.find_check(VARNEL_PERSONAL_NUMBER);
  if (personal == nullptr || check_holds(r, *personal)) {
    return true;
  }
  const char *number = at(r, personal->covered[0]);
  return r.lines[personal->line].text[personal->column] == FILLER &&
         check_digit(number, personal->covered[0].length) == '0';
}

// A number that goes on in the optional data (Doc 9303-5 and 9303-6), where its digit stands and holds. The
// digit covers the filler after the ninth character or leaves it out.
struct long_number {
  int length; // 0: there is none
  char text[NUMBER + VARNEL_ZONE_WIDTH];
};

long_number find_long_number(const reading &r) {
  const layout &form = LAYOUTS[r.layout];
  const char *nine = at(r, form.find(VARNEL_DOCUMENT_NUMBER)->place);
  long_number number = {};
  if (form.optional_data.length == 0 || nine[NUMBER] != FILLER || memchr(nine, FILLER, NUMBER) != nullptr) {
    return number;
  }
  const char *data = at(r, form.optional_data);
  int length = 0;
  while (length < form.optional_data.length && data[length] != FILLER) {
    ++length;
  }
  for (int fillers = 0; fillers <= 1 && length >= 2; ++fillers) {
    memcpy(number.text, nine, NUMBER + 1);
    memcpy(number.text + NUMBER + fillers, data, static_cast<size_t>(length) - 1);
    const int whole = NUMBER + fillers + length - 1;
    if (data[length - 1] == check_digit(number.text, whole)) {
      number.length = whole;
      break;
    }
  }
  return number;
}

// Whether two characters agree; a line that ends is as good as one of fillers.
bool agree(const characters &a, const characters &b, int begin, int end) {
  for (int i = begin; i < end; ++i) {
    if ((i < a.size ? a.text[i] : FILLER) != (i < b.size ? b.text[i] : FILLER)) {
      return false;
    }
  }
  return true;
}

// Doubts what another reading says otherwise.
void compare(reading &best, const reading &other) {
  constexpr int about_as_good = 100;
  if (other.cost - best.cost >= about_as_good) {
    return;
  }
  const layout &form = LAYOUTS[best.layout];
  constexpr uint8_t fields[] = {VARNEL_ISSUING_STATE, VARNEL_PRIMARY_IDENTIFIER, VARNEL_DOCUMENT_NUMBER,
                                VARNEL_NATIONALITY,   VARNEL_BIRTH_DATE,         VARNEL_SEX,
                                VARNEL_EXPIRY_DATE};
  for (const uint8_t field : fields) {
    if (form.find(field) == nullptr) {
      continue; // FRA-ID lacks two of them
    }
    const stretch place = form.find(field)->place;
    const int end = field == VARNEL_PRIMARY_IDENTIFIER ? VARNEL_ZONE_WIDTH : place.column + place.length;
    if (!agree(best.lines[place.line], other.lines[place.line], place.column, end)) {
      best.doubts |= 1u << field;
    }
  }
}

// The two dates and the sex between them, as they follow one another on a line.
struct dates_unit {
  int begin;
  int end;
  int cost;
  uint8_t failures;
  characters text;
};

bool is_proof(const date_unit &date) { return date.holds && !date.is_empty; }

// One of the dates has to hold: two fillers, or two numbers that may be anything, are no dates.
bool read_dates(const noisy_line &line, int begin, int birth_length, int expiry_length, dates_unit &dates) {
  date_unit birth;
  date_unit expiry;
  dates = dates_unit{};
  const int sex_at = begin + birth_length;
  if (sex_at + expiry_length >= line.size || !read_date(line, begin, birth_length, birth)) {
    return false;
  }
  const char sex = read_sex(line.text[sex_at], dates.cost);
  if (sex == '\0' || !read_date(line, sex_at + 1, expiry_length, expiry) ||
      (!is_proof(birth) && !is_proof(expiry))) {
    return false;
  }
  dates.begin = begin;
  dates.end = sex_at + 1 + expiry_length;
  dates.cost += birth.cost + expiry.cost;
  dates.failures = static_cast<uint8_t>(!birth.holds + !expiry.holds);
  dates.text.put(birth.text);
  dates.text.put(sex, sex_at);
  dates.text.put(expiry.text);
  return true;
}

// Reads lines as a zone of one layout, in every way that they can be cut into units.
class window_reader {
public:
  window_reader(const layout &form, const noisy_line *const *lines, const surroundings &around,
                found_zone &found)
      : form_(form), lines_(lines), around_(around), found_(found) {
    // Around the names, or within another line.
    for (int i = 0; i < VARNEL_ZONE_LINES && i < form.lines; ++i) {
      const bool has_names = i == form.find(VARNEL_PRIMARY_IDENTIFIER)->place.line;
      noisy_ = noisy_ || (has_names ? lines[i]->has_noise : (lines[i]->noise_before >> 1) != 0);
    }
  }

  void read() const {
    if (form_.id == VARNEL_LAYOUT_FRA_ID) {
      read_french_card();
      return;
    }
    const noisy_line &top = *lines_[0];
    for (int head = 0; head <= top.head; head += top.head > 0 ? top.head : 1) {
      int letter_cost = head > 0 ? cost::HEAD_DROPPED : 0;
      const char letter = read_first_letter(top.text[head], letter_cost);
      if (letter == '\0') {
        continue;
      }
      for (const head_lengths lengths : HEAD_LENGTHS) {
        reading r = begin_reading(letter_cost);
        const int end = read_head(head, letter, lengths, r);
        if (end > 0 && form_.lines == 2) {
          read_two_lines(r, end, head > 0);
        } else if (end > 0) {
          read_three_lines(r, head, end);
        }
      }
    }
  }

private:
  char read_first_letter(char c, int &cost) const {
    const char letter = static_cast<char>(ascii::to_upper(c));
    if (form_.has_first_letter(letter)) {
      return letter;
    }
    cost += cost::LOOKALIKE;
    if (is_visa(form_)) {
      return letter == 'U' || letter == 'W' || letter == 'Y' ? 'V' : '\0';
    }
    if (!is_card(form_)) {
      return '\0';
    }
    if (is_like_i(letter)) {
      return 'I';
    }
    return letter == 'E' || letter == 'G' ? 'C' : '\0';
  }

  // The document code and the issuing state; returns where the next unit begins, 0 when they cannot be read.
  int read_head(int begin, char letter, head_lengths lengths, reading &r) const {
    const noisy_line &top = *lines_[0];
    const int state_at = begin + lengths.code;
    char second = FILLER;
    int second_at = NOT_READ;
    if (lengths.code == 2) {
      second_at = begin + 1;
      second = read_second_letter(top.text[second_at], r.cost);
    } else if (!is_state(top.text + state_at) || is_state(top.text + begin + 2)) {
      return 0; // a code of another length only where that explains the state
    } else if (lengths.code == 1) {
      r.cost += cost::WRONG;
    } else {
      second_at = find_second_letter(top.text + begin);
      if (second_at == 0 || top.size - begin <= form_.width) {
        return 0;
      }
      second_at += begin;
      second = top.text[second_at];
      r.cost += cost::TWIN;
    }
    if (second == '\0' || (second == 'V' && is_card(form_))) {
      return 0;
    }
    characters &out = r.lines[0];
    out.put(letter, begin);
    out.put(second, second_at);
    if (!is_passport() && (second == 'E' || second == 'K' || second == 'S' || second == 'X')) {
      r.doubts |= 1u << VARNEL_DOCUMENT_CODE; // a filler, as often as not
    }
    // One character more may be a twin where the line is one too long.
    if (lengths.state > STATE && top.size - begin != form_.width + 1 && top.text[state_at] != 'D') {
      return 0;
    }
    return read_state(top, state_at, lengths.state, nullptr, around_.level, out, r.cost)
               ? state_at + lengths.state
               : 0;
  }

  bool is_passport() const { return form_.first_letters[0] == 'P'; }

  static char read_second_letter(char c, int &cost) {
    if (c == FILLER || ascii::is_upper(c)) {
      return c;
    }
    cost += cost::LOOKALIKE;
    if (ascii::is_lower(c) && c != 'i' && c != 'o' && c != 'p') {
      return FILLER;
    }
    return letter_for(c);
  }

  // Of a code that was read as three characters: which of the two after the first is its second; 0 for
  // neither. The other is a letter that was read twice, or a filler that was.
  static int find_second_letter(const char *code) {
    const int second = is_filler_noise(code[2]) ? 1 : 2;
    const bool both_are_fillers = code[1] == FILLER && code[2] == FILLER;
    const bool other_is_noise = second == 1 || both_are_fillers || is_filler_noise(code[1]) || code[1] == 'T';
    return other_is_noise && (code[second] == FILLER || ascii::is_upper(code[second])) ? second : 0;
  }

  // Names, the last unit to be read; then the reading is whole.
  void finish(reading &r, int line, int names_at, bool headed) const {
    names_unit names;
    read_names(*lines_[line], names_at, form_.width - r.lines[line].size, noisy_ || headed, around_, names);
    r.lines[line].put(names.text);
    r.cost += names.cost + names.length_cost;
    r.excused += names.length_cost;
    r.doubts |= names.doubts;
    constexpr int guess = 250; // so many changes would make a zone of much that is none
    r.doubts |= r.cost - r.excused >= guess ? 1u << VARNEL_DOCUMENT_NUMBER : 0;
    offer(r);
  }

  void offer(reading &r) const {
    reading &best = found_.zone;
    if (best.layout != VARNEL_LAYOUT_NONE && best.cost <= r.cost) {
      compare(best, r);
      return;
    }
    if (best.layout != VARNEL_LAYOUT_NONE) {
      compare(r, best);
    }
    best = r;
    for (int i = 0; i < VARNEL_ZONE_LINES; ++i) {
      found_.lines[i] = *lines_[i];
    }
  }

  reading begin_reading(int letter_cost) const {
    reading r = {};
    r.layout = form_.id;
    r.cost = letter_cost;
    return r;
  }

  // Whether a unit may begin here: at the line's start, or after a short word that does not belong to it.
  static bool may_begin(const noisy_line &line, int i) {
    return i == 0 || (i > 0 && i <= 3 && line.has_gap(i));
  }

  // Both lines of the French card end in columns that are known: there fillers are lost or doubled unseen,
  // and only lines of the right length are read.
  void read_french_card() const {
    const noisy_line &top = *lines_[0];
    const noisy_line &low = *lines_[1];
    if (top.size != form_.width || low.size != form_.width) {
      return;
    }
    reading r = begin_reading(0);
    const char first = static_cast<char>(ascii::to_upper(top.text[0]));
    r.cost += first == 'I' ? 0 : cost::LOOKALIKE;
    r.lines[0].put('I', 0);
    r.lines[0].put(static_cast<char>(ascii::to_upper(top.text[1])), 1);
    const bool is_headed = (first == 'I' || is_like_i(first)) &&
                           read_state(top, 2, STATE, nullptr, around_.level, r.lines[0], r.cost) &&
                           memcmp(r.lines[0].text, "IDFRA", 2 + STATE) == 0;
    date_unit birth;
    const char sex = read_sex(low.text[form_.find(VARNEL_SEX)->place.column], r.cost);
    if (!is_headed || sex == '\0' ||
        !read_date(low, form_.find(VARNEL_BIRTH_DATE)->place.column, DATE + 1, birth)) {
      return;
    }
    r.cost += birth.cost;
    for (int i = 2; i < form_.field_count; ++i) {
      read_french_field(form_.fields[i], birth, sex, r);
    }
    r.lines[1].put(read_digit(low.text[form_.width - 1]), form_.width - 1);
    const stretch number = form_.find(VARNEL_DOCUMENT_NUMBER)->place;
    const bool number_holds = check_holds(r, *form_.find_check(VARNEL_DOCUMENT_NUMBER));
    r.failures = static_cast<uint8_t>(!birth.holds + !number_holds +
                                      !check_holds(r, *form_.find_check(VARNEL_COMPOSITE)));
    r.excused = birth.holds ? 0 : cost::FAILS;
    const bool is_doubted = number_holds && is_unproven(at(r, number), number.length, around_);
    r.doubts |= is_doubted ? 1u << VARNEL_DOCUMENT_NUMBER : 0;
    if (number_holds || is_proof(birth)) {
      offer(r);
    }
  }

  void read_french_field(const field_place &f, const date_unit &birth, char sex, reading &r) const {
    const noisy_line &line = *lines_[f.place.line];
    characters &out = r.lines[f.place.line];
    const int end = f.place.column + f.place.length;
    if (f.kind == field_kind::names) {
      read_french_name(line, f, r);
    } else if (f.kind == field_kind::birth_date) {
      out.put(birth.text);
    } else if (f.kind == field_kind::sex) {
      out.put(sex, f.place.column);
    } else {
      for (int i = f.place.column; i < end; ++i) {
        out.put(static_cast<char>(ascii::to_upper(line.text[i])), i);
      }
    }
    if (f.field == VARNEL_DOCUMENT_NUMBER) {
      out.put(read_digit(line.text[end]), end);
    }
  }

  // A name with fillers after it, of which a misread one leaves the name in doubt.
  void read_french_name(const noisy_line &line, const field_place &f, reading &r) const {
    characters ways[MOST_WAYS] = {};
    read_optional_data(line, f.place.column, f.place.column + f.place.length, f.place.length, ways);
    bool is_dirty = noisy_;
    for (int i = 0; i < f.place.length; ++i) {
      const char as_read = line.text[f.place.column + i];
      const char letter = ascii::is_digit(ways[0].text[i]) ? letter_for(ways[0].text[i]) : '\0';
      r.cost += letter != '\0' ? cost::LOOKALIKE : 0;
      is_dirty = is_dirty || ascii::is_lower(as_read) || (ways[0].text[i] == FILLER && as_read != FILLER);
      r.lines[f.place.line].put(letter != '\0' ? letter : ways[0].text[i], f.place.column + i);
    }
    r.doubts |= is_dirty ? 1u << f.field : 0;
  }

  void read_two_lines(const reading &begun, int names_at, bool headed) const {
    const noisy_line &low = *lines_[1];
    constexpr int first = NUMBER - 1 + STATE - 1;
    constexpr int last = 3 + NUMBER + 2 + STATE + 1;
    for (int begin = first; begin <= last; ++begin) {
      for (const uint8_t birth_length : DATE_LENGTHS) {
        for (const uint8_t expiry_length : DATE_LENGTHS) {
          dates_unit dates;
          if (read_dates(low, begin, birth_length, expiry_length, dates)) {
            read_before_dates(begun, dates, names_at, headed);
          }
        }
      }
    }
  }

  // The number and the nationality, which end where the dates begin.
  void read_before_dates(const reading &begun, const dates_unit &dates, int names_at, bool headed) const {
    const noisy_line &low = *lines_[1];
    for (const uint8_t state_length : STATE_LENGTHS) {
      for (const uint8_t number_length : NUMBER_LENGTHS) {
        const int state_at = dates.begin - state_length;
        const int begin = state_at - number_length;
        number_unit number;
        if (!may_begin(low, begin) ||
            !read_number(low, begin, number_length, low.size - begin == form_.width + 1, around_, number)) {
          continue;
        }
        reading r = begun;
        characters nationality = {};
        if (!read_state(low, state_at, state_length, begun.lines[0].text + 2, VARNEL_REPAIR_COLUMNS,
                        nationality, r.cost)) {
          continue;
        }
        judge_number(number, around_);
        add_failures(dates, r);
        r.cost += dates.cost + number.cost + (begin > 0 ? cost::HEAD_DROPPED : 0);
        r.lines[1].put(number.text);
        r.lines[1].put(nationality);
        r.lines[1].put(dates.text);
        add_states_agree(nationality, r);
        read_after_dates(dates.end, r);
        conclude(number, r);
        finish(r, 0, names_at, headed || begin > 0);
      }
    }
  }

  static void add_states_agree(const characters &nationality, reading &r) {
    r.cost += memcmp(nationality.text, r.lines[0].text + 2, STATE) == 0 ? cost::STATES_AGREE : 0;
  }

  // Whether a unit before the data has a character that was read as one that is seldom taken for it: then
  // the picture was so bad that a digit may hold by chance.
  bool has_rare_lookalike(const reading &r) const {
    const stretch number = form_.find(VARNEL_DOCUMENT_NUMBER)->place;
    const stretch data = data_after_dates(form_);
    for (int line = 0; line < form_.lines; ++line) {
      const characters &zone = r.lines[line];
      for (int i = 0; i < zone.size && !(line == data.line && i == data.column); ++i) {
        const bool in_number = line == number.line && i >= number.column && i < number.column + number.length;
        if (zone.text[i] == FILLER) {
          continue; // as everything is that was not read
        }
        const char as_read = lines_[line]->text[zone.from[i]];
        const bool changed = in_number ? ascii::is_lower(as_read) : as_read != zone.text[i];
        if (changed && !are_often_taken_for_each_other(as_read, zone.text[i])) {
          return true;
        }
      }
    }
    return false;
  }

  static void add_failures(const dates_unit &dates, reading &r) {
    r.failures = dates.failures;
    r.excused += dates.failures * cost::FAILS;
  }

  // What a number's digit says, now that what follows it is known.
  void conclude(number_unit number, reading &r) const {
    const stretch place = form_.find(VARNEL_DOCUMENT_NUMBER)->place;
    if (number.changed && !composite_holds(r)) {
      r.lines[place.line].text[place.column + number.column] = number.read;
      number.holds = number.changed = false;
    }
    const long_number whole = find_long_number(r);
    const bool unproven = whole.length > 0 ? is_unproven(whole.text, whole.length, around_)
                                           : number.unproven || (number.changed && has_rare_lookalike(r));
    r.failures = static_cast<uint8_t>(r.failures + (whole.length == 0 && !number.holds));
    const int failing = composite_holds(r) ? 0 : cost::COMPOSITE_FAILS;
    r.cost += failing;
    r.excused += failing;
    r.doubts |= unproven ? 1u << VARNEL_DOCUMENT_NUMBER : 0;
  }

  static void add_length(int length, int wanted, reading &r) {
    const int off = length > wanted ? length - wanted : wanted - length;
    const int added = off > 0 ? cost::UNEVEN + cost::LENGTH_OF_DATA * off : 0;
    r.cost += added;
    r.excused += added;
  }

  // The data after the dates with the digits that end the line.
  int read_data(int begin, characters (&ways)[MOST_WAYS], reading &r) const {
    const noisy_line &low = *lines_[1];
    const stretch data = data_after_dates(form_);
    const int digits = form_.width - data.column - data.length;
    add_length(low.size - begin, data.length + digits, r);
    const int end = low.size - digits;
    const int count = read_optional_data(low, begin, end, data.length, ways);
    for (int i = 0; i < count; ++i) {
      for (int k = end; k < low.size; ++k) {
        const bool personal = digits == 2 && k == end;
        ways[i].put(personal ? read_personal_digit(low.text[k], ways[i]) : read_digit(low.text[k]), k);
      }
    }
    return count;
  }

  // A letter that may be either of two digits stays.
  static char read_digit(char c) {
    const char digit = other_digit_for(c) == '\0' ? digit_for(c) : '\0';
    return digit != '\0' ? digit : static_cast<char>(ascii::to_upper(c));
  }

  static char read_personal_digit(char c, const characters &data) {
    bool empty = true;
    for (int i = 0; i < data.size; ++i) {
      empty = empty && data.text[i] == FILLER;
    }
    const bool may_be_filler = empty && is_filler_noise(c) && !ascii::is_digit(c);
    return c == FILLER || may_be_filler ? FILLER : read_digit(c);
  }

  void read_after_dates(int begin, reading &r) const {
    characters ways[MOST_WAYS] = {};
    const characters no_ways[MOST_WAYS] = {};
    int count = read_data(begin, ways, r);
    if (count == 0) {
      ways[0].fill(form_.width - r.lines[1].size);
      count = 1;
    }
    settle_data(no_ways, 0, ways, count, r);
  }

  // Where the composite was read as a letter that may be either of two digits: takes the one that holds.
  bool take_second_digit(reading &r) const {
    const noisy_line &low = *lines_[1];
    const char as_read = low.text[low.size - 1];
    if (other_digit_for(as_read) == '\0') {
      return false;
    }
    char &digit = r.lines[1].text[form_.width - 1];
    const char letter = digit;
    digit = digit_for(as_read);
    if (data_digits_hold(r)) {
      return true;
    }
    digit = other_digit_for(as_read);
    if (data_digits_hold(r)) {
      return true;
    }
    digit = letter;
    return false;
  }

  // Takes the first way to read the data in which its digits hold; the likeliest where they never do.
  void settle_data(const characters (&top_ways)[MOST_WAYS], int top_count,
                   const characters (&ways)[MOST_WAYS], int count, reading &r) const {
    const uint8_t top_size = r.lines[0].size;
    const uint8_t size = r.lines[1].size;
    const int top_tries = top_count > 0 ? top_count : 1;
    for (int tried = 0; tried <= top_tries * count; ++tried) {
      const int way = tried < top_tries * count ? tried : 0;
      r.lines[1].size = size;
      r.lines[1].put(ways[way % count]);
      if (top_count > 0) {
        r.lines[0].size = top_size;
        r.lines[0].put(top_ways[way / count]);
      }
      if (tried < top_tries * count && (data_digits_hold(r) || take_second_digit(r))) {
        return;
      }
    }
    r.failures = static_cast<uint8_t>(r.failures + !repair_data(r));
  }

  // Where the data's digits fail: puts in the look-alike that makes them hold, where no other does that is
  // nearly as likely. A personal number is a number: there no other may, however unlikely.
  bool repair_data(reading &r) const {
    if (around_.level < VARNEL_REPAIR_DIGITS) {
      return false;
    }
    int ways = 0;
    int likelihood = 0; // of all of them
    lookalike taken = {};
    char *place = nullptr;
    const stretch stretches[2] = {form_.lines == 3 ? form_.optional_data : stretch{},
                                  data_after_dates(form_)};
    for (const stretch &s : stretches) {
      for (int i = s.column; i < s.column + s.length; ++i) {
        char &c = r.lines[s.line].text[i];
        for (const lookalike &pair : lookalikes) {
          if (pair.read != c) {
            continue;
          }
          c = pair.printed;
          if (data_digits_hold(r)) {
            ++ways;
            likelihood += pair.likelihood;
            if (pair.likelihood > taken.likelihood) {
              taken = pair;
              place = &c;
            }
          }
          c = pair.read;
        }
      }
    }
    const bool is_card_data = is_card(form_) && taken.likelihood * 10 >= likelihood * DATA_SHARE;
    if (place == nullptr || !taken.decisive || (ways != 1 && !is_card_data)) {
      return false;
    }
    *place = taken.printed;
    return true;
  }

  void read_three_lines(const reading &begun, int head, int number_at) const {
    const noisy_line &middle = *lines_[1];
    for (int middle_head = 0; middle_head <= middle.head; middle_head += middle.head > 0 ? middle.head : 1) {
      for (const uint8_t birth_length : DATE_LENGTHS) {
        for (const uint8_t expiry_length : DATE_LENGTHS) {
          dates_unit dates;
          if (read_dates(middle, middle_head, birth_length, expiry_length, dates)) {
            dates.cost += middle_head > 0 ? cost::HEAD_DROPPED : 0;
            read_card(begun, dates, head, number_at, head > 0 || middle_head > 0);
          }
        }
      }
    }
  }

  // The number and the data after it, then the nationality and the data after that.
  void read_card(const reading &begun, const dates_unit &dates, int head, int number_at, bool headed) const {
    const noisy_line &top = *lines_[0];
    const stretch data = form_.optional_data;
    for (const uint8_t number_length : NUMBER_LENGTHS) {
      number_unit number;
      characters top_ways[MOST_WAYS] = {};
      if (!read_number(top, number_at, number_length, top.size - head == form_.width + 1, around_, number)) {
        continue;
      }
      const int data_at = number_at + number_length;
      const int top_count = read_optional_data(top, data_at, top.size, data.length, top_ways);
      if (top_count == 0) {
        continue;
      }
      judge_number(number, around_);
      for (const uint8_t state_length : STATE_LENGTHS) {
        reading r = begun;
        characters nationality = {};
        characters ways[MOST_WAYS] = {};
        if (!read_state(*lines_[1], dates.end, state_length, begun.lines[0].text + 2, VARNEL_REPAIR_COLUMNS,
                        nationality, r.cost)) {
          continue;
        }
        const int count = read_data(dates.end + state_length, ways, r);
        if (count == 0) {
          continue;
        }
        add_failures(dates, r);
        r.cost += number.cost + dates.cost;
        add_length(top.size - data_at, data.length, r);
        r.lines[0].put(number.text);
        r.lines[1].put(dates.text);
        r.lines[1].put(nationality);
        add_states_agree(nationality, r);
        settle_data(top_ways, top_count, ways, count, r);
        conclude(number, r);
        const noisy_line &names = *lines_[2];
        for (int names_at = 0; names_at <= names.head; names_at += names.head > 0 ? names.head : 1) {
          reading whole = r;
          whole.cost += names_at > 0 ? cost::HEAD_DROPPED : 0;
          finish(whole, 2, names_at, headed || names_at > 0);
        }
      }
    }
  }

  const layout &form_;
  const noisy_line *const *lines_;
  const surroundings &around_;
  found_zone &found_;
  bool noisy_ = false;
};

// The last lines that may be lines of a zone, each read when it is needed.
class recent_lines {
public:
  explicit recent_lines(passage p) : text_(p.text), finder_(p) {}

  // False when there is no other.
  bool next() {
    const int place = count_ % VARNEL_ZONE_LINES;
    is_read_[place] = false;
    const bool is_found = finder_.next(spans_[place]);
    count_ += is_found;
    return is_found;
  }

  // Whether the last so many lines may be a zone: names have fillers, dates have digits.
  bool may_be_zone(int lines) const {
    if (lines == 2) {
      return count_ >= 2 && spans_[place_of(2, 0)].has_fillers && spans_[place_of(2, 1)].has_dates;
    }
    return count_ >= 3 && spans_[place_of(3, 1)].has_dates && spans_[place_of(3, 2)].has_fillers;
  }

  // Reads the lines of a layout; of two, the last stands for a third too. False where one cannot be read, or
  // is too long for it.
  bool read(const layout &form, const noisy_line *(&lines)[VARNEL_ZONE_LINES]) {
    for (int i = 0; i < VARNEL_ZONE_LINES; ++i) {
      const int place = place_of(form.lines, i < form.lines ? i : form.lines - 1);
      is_read_[place] = is_read_[place] || read_line(text_, spans_[place], lines_[place]);
      lines[i] = &lines_[place];
      if (!is_read_[place] || lines[i]->size > form.width + LONGER) {
        return false;
      }
    }
    return true;
  }

private:
  // Of one of the last so many lines.
  int place_of(int lines, int line) const { return (count_ - lines + line) % VARNEL_ZONE_LINES; }

  const char *text_;
  line_finder finder_;
  int count_ = 0;
  line_span spans_[VARNEL_ZONE_LINES] = {};
  bool is_read_[VARNEL_ZONE_LINES] = {};
  noisy_line lines_[VARNEL_ZONE_LINES] = {};
};

} // namespace

bool find_reading(passage p, passage page, extent within, int level, found_zone &found) {
  found.zone = reading{};
  recent_lines recent(p);
  while (recent.next()) {
    const bool may_be_two = recent.may_be_zone(2);
    const bool may_be_three = recent.may_be_zone(3);
    for (int id = VARNEL_LAYOUT_TD1; (may_be_two || may_be_three) && id <= VARNEL_LAYOUT_FRA_ID; ++id) {
      const layout &form = LAYOUTS[id];
      const noisy_line *lines[VARNEL_ZONE_LINES] = {};
      if (!(form.lines == 2 ? may_be_two : may_be_three) || !recent.read(form, lines)) {
        continue;
      }
      const bool is_found = found.zone.layout != VARNEL_LAYOUT_NONE;
      if (is_found && within == extent::first_zone && lines[0]->begin >= found.end()) {
        return true;
      }
      const surroundings around = {level, page, lines[0]->begin, lines[VARNEL_ZONE_LINES - 1]->end};
      window_reader(form, lines, around, found).read();
    }
  }
  return found.zone.layout != VARNEL_LAYOUT_NONE;
}

} // namespace documents::repair
