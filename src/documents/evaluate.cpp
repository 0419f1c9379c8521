#include "evaluate.hpp"

#include <string.h>

#include "../ascii.hpp"
#include "../places.hpp"
#include "../words.hpp"
#include "../zeroing.hpp"
#include "calendar.hpp"
#include "check_digit.hpp"
#include "states.hpp"
#include "zone_weights.hpp"

namespace documents {

namespace {

constexpr int NO_PLACE = -1;

constexpr bool is_filler(char c) { return c == FILLER; }

bool has_filler(const char *text, int length) {
  return memchr(text, FILLER, static_cast<size_t>(length)) != nullptr;
}

int two_digits(const char *text) { return (text[0] - '0') * 10 + (text[1] - '0'); }

// A line, and what stands where in it: its letters and fillers, all else being digits.
struct zone_line {
  const char *text = nullptr; // words may be read beyond its end
  places::set letters = 0;
  places::set fillers = 0;

  // Writes what the characters count in a check digit to `counts`, unless that is null.
  void read(const char *line, int width, char *counts) {
    text = line;
    places::set all_letters = 0;
    places::set all_fillers = 0;
    for (int i = 0; i < width; i += words::WIDE_SIZE) {
      const words::wide word = words::load<words::wide>(line + i);
      const words::wide letter_marks = words::in_range(word, 'A', 'Z');
      const words::wide filler_marks = words::in_range(word, FILLER, FILLER);
      all_letters |= places_of(letter_marks) << i;
      all_fillers |= places_of(filler_marks) << i;
      if (counts != nullptr) {
        words::store(words::less(word, '0') - words::bits(letter_marks, 'A' - '0' - 10) -
                         words::bits(filler_marks, FILLER - '0'),
                     counts + i);
      }
    }
    letters = all_letters;
    fillers = all_fillers;
  }

private:
  static places::set places_of(words::wide marks) {
    places::set places = 0;
    for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
      places |= places::set{words::places_on_top(words::plain(marks, i)) >> 56} << i;
    }
    return places;
  }
};

// What keeps the first characters of a word, by their number.
struct first_characters {
  uint64_t of[words::SIZE + 1] = {};

  constexpr first_characters() {
    for (int i = 1; i <= words::SIZE; ++i) {
      of[i] = of[i - 1] << 8 | 0xFF;
    }
  }
};

constexpr first_characters FIRST;

constexpr int longest_field() {
  int longest = 0;
  for (const layout &form : LAYOUTS) {
    for (const field_place &field : form.fields) {
      longest = field.place.length > longest ? field.place.length : longest;
    }
  }
  return longest;
}

// Fields are copied in whole words, which must not reach beyond a record's text or value.
static_assert((longest_field() + words::SIZE - 1) / words::SIZE * words::SIZE <=
              static_cast<int>(sizeof(varnel_inspected_field::value)));

// Columns of a line.
class field_text {
public:
  const char *text; // words may be read beyond its end
  int length;

  field_text(const zone_line &line, const stretch &place)
      : text(line.text + place.column), length(place.length), letters_(line.letters >> place.column),
        fillers_(line.fillers >> place.column) {}

  places::set letters() const { return letters_ & all(); }
  places::set fillers() const { return fillers_ & all(); }
  places::set characters() const { return ~fillers_ & all(); }
  bool is_empty() const { return characters() == 0; }
  bool has_digit() const { return (characters() & ~letters_) != 0; }
  bool are_digits(int count) const { return ((letters_ | fillers_) & places::before(count)) == 0; }

  // Up to its last character that is no filler.
  int length_without_fillers() const { return is_empty() ? 0 : places::last(characters()) + 1; }

  // Where the first "<<" begins; the length when there is none.
  int find_separator() const {
    const places::set pairs = fillers() & fillers() >> 1;
    return pairs != 0 ? places::first(pairs) : length;
  }

  // Copies the columns as they stand. Whole words are written, NUL after the text.
  void copy(char *out) const { copy_columns(out, 0, length, 0); }

  // Copies the columns without the fillers at both ends, each run of others as one space. Returns the length.
  int copy_words(char *out) const {
    if (is_empty()) {
      return 0;
    }
    const int begin = places::first(characters());
    const int end = places::last(characters()) + 1;
    const places::set inner = fillers_ >> begin & places::before(end - begin);
    const bool has_runs = (inner & inner >> 1) != 0;
    if (has_runs) {
      return copy_runs(out, begin, end);
    }
    copy_columns(out, begin, end, FILLER ^ ' ');
    return end - begin;
  }

private:
  places::set all() const { return places::before(length); }

  // Changes each filler by these bits.
  void copy_columns(char *out, int begin, int end, unsigned char of_fillers) const {
    const char *from = text + begin;
    int left = end - begin;
    for (; left > words::SIZE; left -= words::SIZE, from += words::SIZE, out += words::SIZE) {
      words::store(changed(words::load<uint64_t>(from), of_fillers), out);
    }
    words::store(changed(words::load<uint64_t>(from), of_fillers) & FIRST.of[left], out);
  }

  static uint64_t changed(uint64_t word, unsigned char of_fillers) {
    return word ^ words::bits(words::in_range(word, FILLER, FILLER), of_fillers);
  }

  int copy_runs(char *out, int begin, int end) const {
    int written = 0;
    for (int i = begin; i < end; ++i) {
      if (!is_filler(text[i])) {
        out[written++] = text[i];
      } else if (!is_filler(text[i - 1])) {
        out[written++] = ' ';
      }
    }
    return written;
  }

  // Of the line from the first column on.
  const places::set letters_;
  const places::set fillers_;
};

// Copies a line of at least a word.
void copy_line(char *out, const char *line, int width) {
  const int last = width - words::WIDE_SIZE; // the last word may overlap the one before
  for (int i = 0; i < last; i += words::WIDE_SIZE) {
    words::store(words::load<words::wide>(line + i), out + i);
  }
  words::store(words::load<words::wide>(line + last), out + last);
}

// A date as ISO 8601 has it: the year's first two digits, then those of the zone, XX for what is unknown.
// Returns its length.
int write_date(char *out, int century, const char *digits, int known) {
  constexpr char UNKNOWN[] = "00YY-XX-XX";
  memcpy(out, UNKNOWN, sizeof UNKNOWN);
  out[0] = static_cast<char>('0' + century / 10);
  out[1] = static_cast<char>('0' + century % 10);
  memcpy(out + 2, digits, 2);
  if (known > 2) {
    memcpy(out + 5, digits + 2, 2);
  }
  if (known > 4) {
    memcpy(out + 8, digits + 4, 2);
  }
  return sizeof UNKNOWN - 1;
}

date date_of(const varnel_inspected_field &field) { return {field.year, field.month, field.day}; }

// The finding that a status is; VARNEL_FINDING_NONE for one that a check digit adds.
int finding_of(int status) {
  switch (status) {
  case VARNEL_STATUS_EMPTY:
    return VARNEL_FINDING_EMPTY;
  case VARNEL_STATUS_BAD_CHARACTERS:
    return VARNEL_FINDING_BAD_CHARACTERS;
  case VARNEL_STATUS_NOT_A_DATE:
    return VARNEL_FINDING_NOT_A_DATE;
  case VARNEL_STATUS_UNKNOWN:
    return VARNEL_FINDING_UNKNOWN;
  default:
    return VARNEL_FINDING_NONE;
  }
}

// Fields as a set: 1 << field.
constexpr uint32_t set_of(int field) { return uint32_t{1} << field; }
static_assert(VARNEL_DOCUMENT_FIELD_END <= 32);

constexpr uint32_t NEVER_EMPTY =
    set_of(VARNEL_ISSUING_STATE) | set_of(VARNEL_NATIONALITY) | set_of(VARNEL_DOCUMENT_NUMBER);

// One zone on its way into a record.
class evaluation {
public:
  // cppcheck-suppress uninitMemberVar // of the lines only those of the layout are read, after they were
  // found
  evaluation(const zone_reading &zone, const varnel_inspect_options &options, varnel_inspection &inspection)
      : zone_(zone), form_(*zone.form), reference_{options.year, options.month, options.day},
        out_(inspection) {}

  void run() {
    read_lines();
    compute_checks();
    split_names();
    out_.field_count = form_.field_count;
    for (int i = 0; i < form_.field_count; ++i) {
      read(form_.fields[i], out_.fields[i]);
    }
    add_findings();
    add_dropped();
    compare_expiry();
    write_chip_access();
    set_verdict(out_);
  }

private:
  const char *at(const stretch &place) const { return lines_[place.line].text + place.column; }

  field_text text_of(const stretch &place) const { return field_text(lines_[place.line], place); }

  // Null where the layout has no such check digit.
  varnel_check *check_of(int field) {
    return form_.check_entries[field] != 0 ? &out_.checks[form_.check_entries[field] - 1] : nullptr;
  }

  // Null where the layout lacks the field.
  const varnel_inspected_field *field_of(int field) const {
    return form_.field_entries[field] != 0 ? &out_.fields[form_.field_entries[field] - 1] : nullptr;
  }

  void read_lines() {
    out_.layout = form_.id;
    out_.line_count = out_.source_count = form_.lines;
    char *counts = counts_;
    for (int line = 0; line < form_.lines; ++line, counts += room_for_line(form_.width)) {
      const bool is_covered = (ZONE_WEIGHTS.covered_lines[form_.id] & 1 << line) != 0;
      lines_[line].read(zone_.lines[line], form_.width, is_covered ? counts : nullptr);
      copy_line(out_.zone[line], zone_.lines[line], form_.width);
      out_.source[line] = source_of({static_cast<uint8_t>(line), 0, form_.width});
    }
  }

  varnel_source source_of(const stretch &place) const {
    const int end = place.column + place.length;
    if (zone_.is_plain[place.line]) {
      const uint32_t begin = zone_.begin[place.line];
      return {begin + place.column, begin + static_cast<uint32_t>(end)};
    }
    const varnel_source *sources = zone_.sources[place.line];
    if (place.length > 0) {
      return {sources[place.column].start, sources[end - 1].end};
    }
    // A stretch without columns lies at its column's character, or after the line's last.
    const uint32_t offset = end < form_.width ? sources[end].start : sources[end - 1].end;
    return {offset, offset};
  }

  // Check digits.

  void compute_checks() {
    out_.check_count = form_.check_count;
    const weighed_stretch *const weighed = ZONE_WEIGHTS.checks[form_.id];
    for (int i = 0; i < form_.check_count; ++i) {
      compute(form_.checks[i], digit_of(weighed[i], counts_), out_.checks[i]);
    }
    const varnel_check *composite = check_of(VARNEL_COMPOSITE);
    composite_holds_ = composite != nullptr && composite->holds;
    optional_data_ = form_.optional_data;
    take_long_number();
    accept_filler_digit();
  }

  void compute(const check_place &place, char digit, varnel_check &check) const {
    check.field = place.field;
    check.line = place.line;
    check.column = place.column;
    check.found = lines_[place.line].text[place.column];
    check.expected = digit;
    check.holds =
        check.found == check.expected ||
        (place.field != VARNEL_COMPOSITE && is_filler(check.found) && text_of(place.covered[0]).is_empty());
  }

  // TD1 and TD2 (Doc 9303-5 and 9303-6, note j): a filler in the number's digit column says that the
  // number goes on in the optional data, up to its digit, which stands before the first filler there. Doc
  // 9303 leaves the filler out of the digit's sum; some issuers count it in its place.
  void take_long_number() {
    varnel_check &check = *check_of(VARNEL_DOCUMENT_NUMBER);
    if (!is_filler(check.found) || !composite_holds_) {
      return;
    }
    const stretch number = form_.find(VARNEL_DOCUMENT_NUMBER)->place;
    const field_text optional_data = text_of(optional_data_);
    // continuation and digit
    const int taken =
        optional_data.fillers() != 0 ? places::first(optional_data.fillers()) : optional_data.length;
    if (taken < 2 || text_of(number).fillers() != 0) {
      return;
    }
    const int length = taken - 1;
    const char found = optional_data.text[length];
    const char plain = digit_over(number, false, optional_data.text, length);
    const char with_filler = digit_over(number, true, optional_data.text, length);
    if (found != plain && found != with_filler) {
      return;
    }
    check.line = optional_data_.line;
    check.column = static_cast<uint8_t>(optional_data_.column + length);
    check.found = check.expected = found;
    check.holds = 1;
    check.rule = found == plain ? VARNEL_RULE_PLAIN : VARNEL_RULE_FILLER;
    continuation_ = {optional_data_.line, optional_data_.column, static_cast<uint8_t>(length)};
    optional_data_.column = static_cast<uint8_t>(optional_data_.column + taken);
    optional_data_.length = static_cast<uint8_t>(optional_data_.length - taken);
  }

  char digit_over(stretch number, bool with_filler, const char *continuation, int length) const {
    check_sum sum;
    sum.add(at(number), number.length);
    if (with_filler) {
      sum.add(FILLER);
    }
    sum.add(continuation, length);
    return sum.digit();
  }

  // A filler printed for a computed 0 holds for a personal number when the composite does.
  void accept_filler_digit() {
    varnel_check *check = check_of(VARNEL_PERSONAL_NUMBER);
    if (check != nullptr && !check->holds && is_filler(check->found) && check->expected == '0' &&
        composite_holds_) {
      check->holds = 1;
      filler_digit_ = true;
    }
  }

  // Fields.

  // The primary identifier ends at the first "<<"; in one field of names the secondary begins after it.
  void split_names() {
    const stretch &names = form_.find(VARNEL_PRIMARY_IDENTIFIER)->place;
    const int separator = text_of(names).find_separator();
    primary_ = {names.line, names.column, static_cast<uint8_t>(separator)};
    if (form_.one_field_of_names) {
      const int start = separator < names.length ? separator + 2 : separator;
      secondary_ = {names.line, static_cast<uint8_t>(names.column + start),
                    static_cast<uint8_t>(names.length - start)};
    } else {
      secondary_ = form_.find(VARNEL_SECONDARY_IDENTIFIER)->place;
    }
  }

  void read(const field_place &f, varnel_inspected_field &field) {
    const stretch &part = part_of(f);
    const field_text text = text_of(part);
    field.field = f.field;
    field.line = part.line;
    field.column = part.column;
    field.source = source_of(part);
    text.copy(field.text);
    field.text_length = part.length;
    read_value(f, text, field);
    const varnel_check *check = check_of(f.field);
    const bool fails = check != nullptr && !check->holds;
    if (field.status == VARNEL_STATUS_OK && !fails) {
      field.proof = static_cast<uint8_t>(proof_of(field, f.kind, check));
    } else {
      note(field, fails);
    }
  }

  void read_value(const field_place &f, const field_text &text, varnel_inspected_field &field) {
    switch (f.kind) {
    case field_kind::code:
      return read_code(field);
    case field_kind::state:
      return read_state(field, text);
    case field_kind::names:
      field.truncated = ascii::is_upper(at(f.place)[f.place.length - 1]);
      return read_name(field, text);
    case field_kind::number:
      return read_number(field, text);
    case field_kind::birth_date:
      return read_birth_date(field, text);
    case field_kind::expiry_date:
      return read_expiry_date(field, text);
    case field_kind::sex:
      return read_sex(field);
    }
  }

  // What is wrong with a field, for the findings.
  void note(varnel_inspected_field &field, bool fails) {
    if (fails) {
      failing_ |= set_of(field.field);
    }
    if (field.status == VARNEL_STATUS_EMPTY) {
      empty_ |= set_of(field.field);
    } else if (field.status == VARNEL_STATUS_OK) {
      field.status = VARNEL_STATUS_CHECK_FAILED;
    } else {
      wrong_ |= set_of(field.field);
    }
  }

  // The columns that are this field's: of names what the separator leaves, of optional data what a long
  // number leaves.
  const stretch &part_of(const field_place &f) const {
    if (f.kind == field_kind::names) {
      return f.field == VARNEL_PRIMARY_IDENTIFIER ? primary_ : secondary_;
    }
    const bool goes_on =
        continuation_.length > 0 && (f.field == VARNEL_OPTIONAL_DATA || f.field == VARNEL_OPTIONAL_DATA_1);
    return goes_on ? optional_data_ : f.place;
  }

  // A field without value has one of no length.
  static void set(varnel_inspected_field &field, int status, int value_length) {
    field.status = static_cast<uint8_t>(status);
    field.has_value = value_length > 0;
    field.value_length = static_cast<uint8_t>(value_length);
  }

  void notice(const varnel_inspected_field &field, int code) {
    add_notice(out_, {static_cast<uint8_t>(code), field.field, static_cast<int8_t>(field.line),
                      static_cast<int8_t>(field.column)});
  }

  void read_code(varnel_inspected_field &field) {
    const char first = field.text[0];
    const char second = field.text[1];
    if (!ascii::is_upper(first)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
      return;
    }
    field.value[0] = first;
    field.value[1] = is_filler(second) ? '\0' : second;
    const bool visa_after_card = second == 'V' && (first == 'A' || first == 'C' || first == 'I');
    set(field, form_.has_first_letter(first) && !visa_after_card ? VARNEL_STATUS_OK : VARNEL_STATUS_UNKNOWN,
        is_filler(second) ? 1 : 2);
    if (ascii::is_digit(second)) {
      notice(field, VARNEL_NOTICE_DIGIT_IN_CODE);
    }
    const bool is_ai = form_.id == VARNEL_LAYOUT_TD1 && first == 'A' && second == 'I';
    const bool is_ac = form_.id == VARNEL_LAYOUT_TD2 && first == 'A' && second == 'C';
    if (is_ai || is_ac) {
      notice(field, VARNEL_NOTICE_CODE_NOT_ALLOWED);
    }
  }

  void read_state(varnel_inspected_field &field, const field_text &text) {
    const int letters = text.length_without_fillers();
    if (text.letters() != places::before(letters)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
      return;
    }
    if (letters == 0) {
      set(field, VARNEL_STATUS_EMPTY, 0);
      return;
    }
    text.copy_words(field.value);
    is_listed_ = is_listed_state(field.value, letters);
    const bool may_stand = is_listed_ || is_residence_permit_code(field.value, letters);
    set(field, may_stand ? VARNEL_STATUS_OK : VARNEL_STATUS_UNKNOWN, letters);
    if (may_stand && !is_listed_) {
      notice(field, VARNEL_NOTICE_CODE_NOT_LISTED);
    }
  }

  void read_name(varnel_inspected_field &field, const field_text &text) {
    if (text.is_empty()) {
      set(field, VARNEL_STATUS_EMPTY, 0);
      return;
    }
    const bool digits = text.has_digit();
    const bool national = form_.id == VARNEL_LAYOUT_TD3 && memcmp(zone_.lines[0], "PNRUS", 5) == 0;
    if ((digits && !national) || has_noise_in_tail(field, text)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
      return;
    }
    set(field, VARNEL_STATUS_OK, text.copy_words(field.value));
    if (digits) {
      notice(field, VARNEL_NOTICE_NATIONAL_LETTERS);
    }
  }

  // Whether something stands in the secondary identifier after a run of three or more fillers; the "<<"
  // before it is part of its first run.
  bool has_noise_in_tail(const varnel_inspected_field &field, const field_text &text) const {
    if (field.field != VARNEL_SECONDARY_IDENTIFIER) {
      return false;
    }
    const places::set runs_of_three = text.fillers() & text.fillers() >> 1 & text.fillers() >> 2;
    const bool begins_with_run = form_.one_field_of_names && (text.fillers() & 1) != 0;
    return begins_with_run || (runs_of_three & places::before(text.length_without_fillers())) != 0;
  }

  void read_number(varnel_inspected_field &field, const field_text &text) {
    int length = text.copy_words(field.value);
    if (field.field == VARNEL_DOCUMENT_NUMBER && continuation_.length > 0) {
      text_of(continuation_).copy(field.value + length);
      length += continuation_.length;
    }
    set(field, length == 0 ? VARNEL_STATUS_EMPTY : VARNEL_STATUS_OK, length);
    if (field.field == VARNEL_PERSONAL_NUMBER && filler_digit_) {
      notice(field, VARNEL_NOTICE_FILLER_DIGIT);
    }
  }

  void read_birth_date(varnel_inspected_field &field, const field_text &text) {
    if (text.is_empty()) {
      set(field, VARNEL_STATUS_EMPTY, 0);
      return;
    }
    const int known = (text.length_without_fillers() + 1) / 2 * 2;
    if (!text.are_digits(known)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
      return;
    }
    // What is unknown is taken as the first month or day where a date has to be compared.
    const int month = known > 2 ? two_digits(field.text + 2) : 1;
    const int day = known > 4 ? two_digits(field.text + 4) : 1;
    const int year = birth_year(two_digits(field.text), month, day, reference_);
    finish_date(field, {year, month, day}, known);
  }

  void read_expiry_date(varnel_inspected_field &field, const field_text &text) const {
    if (text.is_empty()) {
      set(field, VARNEL_STATUS_EMPTY, 0);
    } else if (!text.are_digits(6)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
    } else {
      const int year = expiry_year(two_digits(field.text), reference_.year);
      finish_date(field, {year, two_digits(field.text + 2), two_digits(field.text + 4)}, 6);
    }
  }

  static void finish_date(varnel_inspected_field &field, date d, int known) {
    if (!exists(d)) {
      set(field, VARNEL_STATUS_NOT_A_DATE, 0);
      return;
    }
    field.year = static_cast<int16_t>(d.year);
    field.month = static_cast<uint8_t>(known > 2 ? d.month : 0);
    field.day = static_cast<uint8_t>(known > 4 ? d.day : 0);
    set(field, VARNEL_STATUS_OK, write_date(field.value, d.year / 100, field.text, known));
  }

  void read_sex(varnel_inspected_field &field) {
    const char c = field.text[0];
    if (c != 'M' && c != 'F' && c != 'X' && !is_filler(c)) {
      set(field, VARNEL_STATUS_BAD_CHARACTERS, 0);
      return;
    }
    field.value[0] = is_filler(c) ? 'X' : c;
    set(field, VARNEL_STATUS_OK, 1);
    if (c == 'X') {
      notice(field, VARNEL_NOTICE_SEX_X);
    }
  }

  // Of a field that is right.
  int proof_of(const varnel_inspected_field &field, field_kind kind, const varnel_check *check) const {
    if (kind == field_kind::state) {
      return is_listed_ ? VARNEL_PROOF_LIST : VARNEL_PROOF_NONE;
    }
    if (check != nullptr) {
      return composite_holds_ ? VARNEL_PROOF_DIGITS : VARNEL_PROOF_DIGIT;
    }
    const bool is_optional_data = field.field == VARNEL_OPTIONAL_DATA_1 ||
                                  field.field == VARNEL_OPTIONAL_DATA_2 ||
                                  field.field == VARNEL_OPTIONAL_DATA;
    return is_optional_data && composite_holds_ ? VARNEL_PROOF_COMPOSITE : VARNEL_PROOF_NONE;
  }

  // Findings.

  // Fields in the order of the zone, the composite last.
  void add_findings() {
    const uint32_t by_status = wrong_ | (empty_ & NEVER_EMPTY) | empty_names();
    const uint32_t dates_order = expires_before_birth() ? set_of(VARNEL_EXPIRY_DATE) : 0;
    const uint32_t any = by_status | failing_ | dates_order | zone_.unproven | zone_.differing;
    for (int i = 0; any != 0 && i < out_.field_count; ++i) {
      const varnel_inspected_field &field = out_.fields[i];
      const uint32_t its = set_of(field.field);
      const auto add = [&](uint32_t fields, int code) {
        if ((fields & its) != 0) {
          add_finding(out_, {static_cast<uint8_t>(code), field.field, static_cast<int8_t>(field.line),
                             static_cast<int8_t>(field.column)});
        }
      };
      add(by_status, finding_of(field.status));
      add(failing_, VARNEL_FINDING_CHECK_FAILED);
      add(dates_order, VARNEL_FINDING_DATES_ORDER);
      add(zone_.unproven, VARNEL_FINDING_UNPROVEN);
      add(zone_.differing, VARNEL_FINDING_LOOKS_DIFFER);
    }
    const varnel_check *composite = check_of(VARNEL_COMPOSITE);
    if (composite != nullptr && !composite->holds) {
      add_finding(out_, {VARNEL_FINDING_CHECK_FAILED, VARNEL_COMPOSITE, static_cast<int8_t>(composite->line),
                         static_cast<int8_t>(composite->column)});
    }
  }

  // Some states print a single name after the "<<"; so the primary identifier alone may be empty.
  uint32_t empty_names() const {
    const bool both = (empty_ & set_of(VARNEL_SECONDARY_IDENTIFIER)) != 0;
    return both ? empty_ & set_of(VARNEL_PRIMARY_IDENTIFIER) : 0;
  }

  bool expires_before_birth() const {
    const varnel_inspected_field &birth = *field_of(VARNEL_BIRTH_DATE);
    const varnel_inspected_field *expiry = field_of(VARNEL_EXPIRY_DATE);
    return expiry != nullptr && birth.status == VARNEL_STATUS_OK && birth.day != 0 &&
           expiry->status == VARNEL_STATUS_OK && is_before(date_of(*expiry), date_of(birth));
  }

  void add_dropped() {
    for (int line = 0; line < form_.lines; ++line) {
      if (zone_.dropped[line]) {
        add_notice(out_, {VARNEL_NOTICE_DROPPED, VARNEL_FIELD_NONE, static_cast<int8_t>(line), NO_PLACE});
      }
    }
  }

  void compare_expiry() {
    const varnel_inspected_field *expiry = field_of(VARNEL_EXPIRY_DATE);
    if (expiry != nullptr && expiry->status == VARNEL_STATUS_OK) {
      out_.expired = is_before(date_of(*expiry), reference_) ? 1 : 0;
    }
  }

  // What the chip's access protocol hashes (Doc 9303-11): number, birth date and expiry date, each with its
  // digit, as printed; a long number without the filler in it.
  void write_chip_access() {
    if (form_.id != VARNEL_LAYOUT_TD1 && form_.id != VARNEL_LAYOUT_TD2 && form_.id != VARNEL_LAYOUT_TD3) {
      return;
    }
    const int number = field_of(VARNEL_DOCUMENT_NUMBER)->status;
    const int birth = field_of(VARNEL_BIRTH_DATE)->status;
    const int expiry = field_of(VARNEL_EXPIRY_DATE)->status;
    const bool birth_is_right = birth == VARNEL_STATUS_OK || birth == VARNEL_STATUS_EMPTY;
    if (number != VARNEL_STATUS_OK || !birth_is_right || !check_of(VARNEL_BIRTH_DATE)->holds ||
        expiry != VARNEL_STATUS_OK) {
      return;
    }
    append_chip_access(form_.find(VARNEL_DOCUMENT_NUMBER)->place);
    if (continuation_.length > 0) {
      append_chip_access(continuation_);
    }
    append_chip_access(VARNEL_DOCUMENT_NUMBER);
    append_chip_access(form_.find(VARNEL_BIRTH_DATE)->place);
    append_chip_access(VARNEL_BIRTH_DATE);
    append_chip_access(form_.find(VARNEL_EXPIRY_DATE)->place);
    append_chip_access(VARNEL_EXPIRY_DATE);
  }

  void append_chip_access(const stretch &place) {
    text_of(place).copy(out_.chip_access + chip_access_length_);
    chip_access_length_ += place.length;
  }

  void append_chip_access(int field) { out_.chip_access[chip_access_length_++] = check_of(field)->found; }

  const zone_reading &zone_;
  const layout &form_;
  const date reference_;
  varnel_inspection &out_;
  zone_line lines_[VARNEL_ZONE_LINES];
  char counts_[ZONE_ROOM]; // in check digits, of the lines that these cover
  // Sets of fields: empty, of another status that is a finding, and with a check digit that does not hold.
  uint32_t empty_ = 0;
  uint32_t wrong_ = 0;
  uint32_t failing_ = 0;
  bool composite_holds_ = false;
  stretch primary_ = {}; // of a field of both names
  stretch secondary_ = {};
  stretch optional_data_ = {}; // what a long number leaves of it
  stretch continuation_ = {};  // of a long number; else without columns
  bool filler_digit_ = false;  // a filler stands for the personal number's digit 0
  bool is_listed_ = false;     // the state that is being read
  int chip_access_length_ = 0;
};

} // namespace

void begin_inspection(const varnel_inspect_options &options, varnel_inspection &inspection) {
  set_to_zero(&inspection, sizeof inspection);
  inspection.year = static_cast<int16_t>(options.year);
  inspection.month = static_cast<uint8_t>(options.month);
  inspection.day = static_cast<uint8_t>(options.day);
  inspection.repair = static_cast<uint8_t>(options.repair);
  inspection.expired = -1;
}

void evaluate(const zone_reading &zone, const varnel_inspect_options &options,
              varnel_inspection &inspection) {
  begin_inspection(options, inspection);
  evaluation(zone, options, inspection).run();
}

void add_finding(varnel_inspection &inspection, varnel_finding finding) {
  if (inspection.finding_count < VARNEL_INSPECTION_FINDINGS) {
    inspection.findings[inspection.finding_count++] = finding;
  }
}

void add_notice(varnel_inspection &inspection, varnel_finding notice) {
  if (inspection.notice_count < VARNEL_INSPECTION_NOTICES) {
    inspection.notices[inspection.notice_count++] = notice;
  }
}

void set_verdict(varnel_inspection &inspection) {
  inspection.verdict = inspection.finding_count > 0  ? VARNEL_VERDICT_DOUBTFUL
                       : inspection.change_count > 0 ? VARNEL_VERDICT_REPAIRED
                                                     : VARNEL_VERDICT_VALID;
}

namespace {

bool is_right_date(const varnel_inspection &inspection, int field) {
  const varnel_inspected_field *date = find_field(inspection, field);
  return date != nullptr && date->status == VARNEL_STATUS_OK;
}

// Digits that hold of fields that are not empty; the composite is of none.
int holding_digits_of_something(const varnel_inspection &inspection) {
  int count = 0;
  for (int i = 0; i < inspection.check_count; ++i) {
    const varnel_inspected_field *field = find_field(inspection, inspection.checks[i].field);
    count += inspection.checks[i].holds && (field == nullptr || field->status != VARNEL_STATUS_EMPTY);
  }
  return count;
}

bool is_listed_issuer(const varnel_inspection &inspection) {
  return find_field(inspection, VARNEL_ISSUING_STATE)->proof == VARNEL_PROOF_LIST;
}

bool has_filler_in_names(const varnel_inspection &inspection, const layout &form) {
  const stretch primary = form.find(VARNEL_PRIMARY_IDENTIFIER)->place;
  const stretch secondary = form.find(VARNEL_SECONDARY_IDENTIFIER)->place;
  return has_filler(inspection.zone[primary.line] + primary.column, primary.length) ||
         has_filler(inspection.zone[secondary.line] + secondary.column, secondary.length);
}

} // namespace

bool is_zone(const varnel_inspection &inspection) {
  if (is_right_date(inspection, VARNEL_BIRTH_DATE) || is_right_date(inspection, VARNEL_EXPIRY_DATE) ||
      holding_digits_of_something(inspection) >= 2) {
    return true;
  }
  const layout &form = LAYOUTS[inspection.layout];
  return form.has_first_letter(inspection.zone[0][0]) && is_listed_issuer(inspection) &&
         has_filler_in_names(inspection, form);
}

int digits_score_of(const varnel_inspection &inspection) {
  // Of 60, the share of each digit where there are so many.
  constexpr int share_of_one[VARNEL_CHECKS + 1] = {0, 60, 30, 20, 15, 12};
  static_assert(VARNEL_CHECKS < 8);
  int holding = 0;
  for (int i = 0; i < inspection.check_count; ++i) {
    holding += inspection.checks[i].holds;
  }
  return holding * share_of_one[inspection.check_count] * 8 + holding;
}

int score_of(const varnel_inspection &inspection) {
  static_assert(VARNEL_INSPECTION_FINDINGS < 31);
  return digits_score_of(inspection) * 32 + (31 - inspection.finding_count);
}

} // namespace documents
