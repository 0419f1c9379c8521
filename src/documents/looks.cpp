#include <Varnel/documents/looks.h>

#include <string.h>

#include "arguments.hpp"
#include "check_digit.hpp"
#include "clean_text.hpp"
#include "evaluate.hpp"
#include "repair/lookalikes.hpp"
#include "repair/repair.hpp"
#include "repair/units.hpp"

using namespace documents;

namespace {

// Whether one field of the zone was read without any change. What was dropped after its last character is
// listed in the column after it.
bool is_as_read(const varnel_look &look, stretch place) {
  for (int i = 0; i < look.change_count; ++i) {
    const varnel_change &c = look.changes[i];
    if (c.line == place.line && c.column >= place.column && c.column <= place.column + place.length) {
      return false;
    }
  }
  return true;
}

const char *at(const varnel_look &look, stretch place) { return look.zone[place.line] + place.column; }

char digit_of(const varnel_look &look, const check_place &check) {
  return look.zone[check.line][check.column];
}

template <size_t Width> bool check_holds(const char (*zone)[Width], const check_place &check) {
  const auto columns = [zone](stretch place) { return zone[place.line] + place.column; };
  return zone[check.line][check.column] == expected_digit(check, columns);
}

// The likelier a look's zone, the higher: by the digits that hold, the states that agree, and what was
// changed.
int score_of_look(const varnel_inspection &inspection) {
  constexpr int digit = 150;
  constexpr int change = 5;
  constexpr int agreement = 60;
  int score = 0;
  for (int i = 0; i < inspection.check_count; ++i) {
    score += inspection.checks[i].holds ? digit : 0;
  }
  const char *issuer = inspection.zone[0] + zone::ISSUING_STATE.start;
  const varnel_inspected_field *nationality = find_field(inspection, VARNEL_NATIONALITY);
  if (nationality != nullptr && memcmp(issuer, nationality->text, zone::ISSUING_STATE.length) == 0) {
    score += agreement;
  }
  return score - change * inspection.change_count - change * inspection.finding_count;
}

void keep(const varnel_inspection &inspection, varnel_look &look) {
  memset(&look, 0, sizeof look);
  look.layout = inspection.layout;
  look.score = static_cast<int16_t>(score_of_look(inspection));
  look.change_count = inspection.change_count;
  memcpy(look.zone, inspection.zone, sizeof look.zone);
  memcpy(look.source, inspection.source, sizeof look.source);
  memcpy(look.changes, inspection.changes, sizeof look.changes);
  for (int i = 0; i < inspection.field_count; ++i) {
    look.field_source[i] = inspection.fields[i].source;
  }
  for (int i = 0; i < inspection.finding_count; ++i) {
    const varnel_finding &f = inspection.findings[i];
    look.unproven |= f.code == VARNEL_FINDING_UNPROVEN ? 1u << f.field : 0;
  }
  for (int i = 0; i < inspection.notice_count; ++i) {
    const varnel_finding &f = inspection.notices[i];
    look.dropped = static_cast<uint8_t>(look.dropped | (f.code == VARNEL_NOTICE_DROPPED ? 1 << f.line : 0));
  }
}

// The ballot on one zone.
class vote {
public:
  vote(const varnel_looks &looks, int level, zone_reading &zone)
      : level_(level), form_(LAYOUTS[strongest_layout(looks)]), zone_(zone) {
    for (int i = 0; i < looks.count; ++i) {
      if (looks.looks[i].layout == form_.id) {
        looks_[count_++] = &looks.looks[i];
      } else {
        others_[other_count_++] = &looks.looks[i];
      }
    }
    memset(&zone, 0, sizeof zone);
    zone.form = &form_;
    for (int i = 0; i < form_.lines; ++i) {
      memset(zone.lines[i], FILLER, VARNEL_ZONE_WIDTH);
    }
  }

  void run() {
    for (int i = 0; i < form_.field_count; ++i) {
      const field_place &f = form_.fields[i];
      const check_place *check = form_.find_check(f.field);
      if (f.kind == field_kind::code || f.kind == field_kind::state || f.kind == field_kind::sex) {
        elect_field(f);
      } else if (f.kind == field_kind::birth_date || f.kind == field_kind::expiry_date) {
        elect_date(f, *check);
      } else if (f.field == VARNEL_DOCUMENT_NUMBER) {
        elect_number(f, *check);
      }
    }
    elect_names();
    elect_data(); // last, as its composite may cover all the others
    compare_with_others();
  }

  // The look that shows the zone, with the fewest changes; null when none does.
  const varnel_look *find_witness() const {
    const varnel_look *best = nullptr;
    for (int i = 0; i < count_; ++i) {
      bool same = true;
      for (int line = 0; line < form_.lines; ++line) {
        same = same && memcmp(zone_.lines[line], looks_[i]->zone[line], form_.width) == 0;
      }
      if (same && (best == nullptr || looks_[i]->change_count < best->change_count)) {
        best = looks_[i];
      }
    }
    return best;
  }

private:
  static int strongest_layout(const varnel_looks &looks) {
    int best = VARNEL_LAYOUT_NONE;
    int best_score = 0;
    for (int id = VARNEL_LAYOUT_TD1; id < LAYOUT_COUNT; ++id) {
      int score = 0;
      bool is_seen = false;
      for (int i = 0; i < looks.count; ++i) {
        if (looks.looks[i].layout == id) {
          score += weight_of(looks.looks[i]);
          is_seen = true;
        }
      }
      if (is_seen && score > best_score) {
        best = id;
        best_score = score;
      }
    }
    return best;
  }

  static int weight_of(const varnel_look &look) { return look.score > 1 ? look.score : 1; }

  void set(stretch place, const char *text) {
    memcpy(zone_.lines[place.line] + place.column, text, place.length);
  }

  void doubt(int field) { zone_.unproven |= 1u << field; }

  // The text that most looks show, by their weights; doubted where another has as much.
  void elect_field(const field_place &f) {
    int best = 0;
    int best_weight = 0;
    bool tie = false;
    for (int i = 0; i < count_; ++i) {
      const char *text = at(*looks_[i], f.place);
      int weight = 0;
      bool is_first = true;
      for (int k = 0; k < count_; ++k) {
        if (memcmp(at(*looks_[k], f.place), text, f.place.length) == 0) {
          weight += weight_of(*looks_[k]);
          is_first = is_first && k >= i;
        }
      }
      if (!is_first) {
        continue;
      }
      tie = weight == best_weight || (tie && weight < best_weight);
      if (weight > best_weight) {
        best = i;
        best_weight = weight;
      }
    }
    set(f.place, at(*looks_[best], f.place));
    if (tie) {
      doubt(f.field);
    }
  }

  // The field and its digit as one stretch.
  static stretch with_digit(stretch place) {
    ++place.length;
    return place;
  }

  // The one value whose digit holds, of those that were read; else one put together from the columns of
  // several.
  void elect_date(const field_place &f, const check_place &check) {
    const stretch whole = with_digit(f.place);
    const char *holding = nullptr;
    for (int i = 0; i < count_; ++i) {
      if (!check_holds(looks_[i]->zone, check)) {
        continue;
      }
      const char *text = at(*looks_[i], whole);
      if (holding != nullptr && memcmp(holding, text, whole.length) != 0) {
        zone_.differing |= 1u << f.field;
      }
      holding = holding != nullptr ? holding : text;
    }
    if (holding != nullptr) {
      set(whole, holding);
      return;
    }
    set(whole, at(*looks_[strongest()], whole));
    mix_date(whole);
  }

  int strongest() const {
    int best = 0;
    for (int i = 1; i < count_; ++i) {
      best = looks_[i]->score > looks_[best]->score ? i : best;
    }
    return best;
  }

  // Tries each combination of two looks, column by column.
  void mix_date(stretch whole) {
    char found[8];
    int ways = 0;
    for (int a = 0; a < count_; ++a) {
      for (int b = a + 1; b < count_; ++b) {
        const char *one = at(*looks_[a], whole);
        const char *other = at(*looks_[b], whole);
        for (unsigned mask = 0; mask < 1u << whole.length; ++mask) {
          char mixed[8];
          for (int i = 0; i < whole.length; ++i) {
            mixed[i] = (mask >> i & 1) != 0 ? other[i] : one[i];
          }
          if (check_digit(mixed, whole.length - 1) == mixed[whole.length - 1] &&
              (ways == 0 || memcmp(mixed, found, whole.length) != 0)) {
            memcpy(found, mixed, whole.length);
            ++ways;
          }
        }
      }
    }
    if (ways == 1) {
      set(whole, found);
    }
  }

  // ---- numbers -----------------------------------------------------------------------------------

  static constexpr int NUMBER = 12; // characters at most, of FRA-ID; other layouts have nine
  static constexpr int CHOICES = 6; // that a column may have been

  // What a column may have been, the likeliest first. `share`: of repair::CERTAIN.
  struct column {
    int count;
    char choice[CHOICES];
    int share[CHOICES];

    void add(char c, int amount) {
      int i = 0;
      while (i < count && choice[i] != c) {
        ++i;
      }
      if (i == CHOICES) {
        return;
      }
      if (i == count) {
        choice[count] = c;
        share[count++] = 0;
      }
      share[i] += amount;
      for (; i > 0 && share[i] > share[i - 1]; --i) {
        const char other = choice[i - 1];
        const int other_share = share[i - 1];
        choice[i - 1] = choice[i];
        share[i - 1] = share[i];
        choice[i] = other;
        share[i] = other_share;
      }
    }
  };

  // A number's character as it was read, before its digit had it changed: as inspecting without repair
  // takes it, a small letter as its capital.
  static char as_read(const varnel_look &look, int line, int col) {
    for (int i = 0; i < look.change_count; ++i) {
      const varnel_change &c = look.changes[i];
      if (c.line == line && c.column == col && c.reason == VARNEL_CHANGE_DIGIT) {
        return read_character(c.from, sizeof c.from - 1).as;
      }
    }
    return look.zone[line][col];
  }

  // Two looks that hold and differ are looks at two documents.
  void compare_numbers(const field_place &f, const check_place &check) {
    const char *first = nullptr;
    for (int i = 0; i < count_; ++i) {
      if (!check_holds(looks_[i]->zone, check)) {
        continue;
      }
      const char *text = at(*looks_[i], f.place);
      if (first != nullptr && memcmp(first, text, f.place.length) != 0) {
        zone_.differing |= 1u << f.field;
      }
      first = text;
    }
  }

  void elect_number(const field_place &f, const check_place &check) {
    compare_numbers(f, check);
    const int length = f.place.length;
    column columns[NUMBER + 1];
    memset(columns, 0, sizeof columns);
    for (int c = 0; c <= length; ++c) {
      for (int i = 0; i < count_; ++i) {
        weigh(as_read(*looks_[i], f.place.line, f.place.column + c), c < length, columns[c]);
      }
    }
    char likeliest[NUMBER + 1];
    for (int c = 0; c <= length; ++c) {
      likeliest[c] = columns[c].choice[0];
    }
    if (likeliest[length] == FILLER) {
      elect_long_number(f);
      return;
    }
    const tally t = count_holding(columns, length, likeliest);
    const bool may_take = t.best_share > 0 && (level_ >= VARNEL_REPAIR_DIGITS || is_read(f.place, t.best));
    set(with_digit(f.place), may_take ? t.best : likeliest);
    constexpr int plain_percent = 60;
    constexpr int mixed_percent = 80;
    const int wanted = repair::is_plain_number(t.best, length) ? plain_percent : mixed_percent;
    if (t.best_share * 100 < t.all * wanted || !is_near_two_looks(f.place, t.best)) {
      doubt(VARNEL_DOCUMENT_NUMBER);
    }
  }

  // Looks at a zone of another layout whose number holds, and is another, are looks at another document.
  void compare_with_others() {
    const stretch number = form_.find(VARNEL_DOCUMENT_NUMBER)->place;
    for (int i = 0; i < other_count_; ++i) {
      const layout &form = LAYOUTS[others_[i]->layout];
      const field_place &f = *form.find(VARNEL_DOCUMENT_NUMBER);
      const bool same =
          f.place.length == number.length &&
          memcmp(at(*others_[i], f.place), zone_.lines[number.line] + number.column, number.length) == 0;
      if (!same && check_holds(others_[i]->zone, *form.find_check(f.field))) {
        zone_.differing |= 1u << f.field;
      }
    }
  }

  // Characters that were lost or doubled move the rest: then columns of different characters were counted.
  bool is_near_two_looks(stretch place, const char *number) const {
    constexpr int near = 2; // columns
    int looks = 0;
    for (int i = 0; i < count_; ++i) {
      int different = 0;
      for (int c = 0; c < place.length; ++c) {
        different += as_read(*looks_[i], place.line, place.column + c) != number[c];
      }
      looks += different <= near;
    }
    return looks >= 2 || looks == count_;
  }

  // A number that goes on in the optional data is taken as one look shows it, data and all, where another
  // look shows the same or nothing speaks against it.
  void elect_long_number(const field_place &f) {
    const stretch whole = with_digit(f.place);
    const varnel_look &best = *looks_[strongest()];
    int same = 0;
    for (int i = 0; i < count_; ++i) {
      same += memcmp(at(*looks_[i], whole), at(best, whole), whole.length) == 0 &&
              memcmp(at(*looks_[i], form_.optional_data), at(best, form_.optional_data),
                     form_.optional_data.length) == 0;
    }
    set(whole, at(best, whole));
    long_number_ = &best;
    if (same < 2 && count_ > 1) {
      doubt(VARNEL_DOCUMENT_NUMBER);
    }
  }

  // Whether each character was read by a look: only then may it be taken without look-alikes.
  bool is_read(stretch place, const char *number) const {
    for (int c = 0; c < place.length; ++c) {
      bool read = false;
      for (int i = 0; i < count_; ++i) {
        read = read || as_read(*looks_[i], place.line, place.column + c) == number[c];
      }
      if (!read) {
        return false;
      }
    }
    return true;
  }

  void weigh(char read, bool mixed, column &c) const {
    c.add(read, repair::CERTAIN / count_);
    for (const repair::lookalike &pair : repair::lookalikes) {
      if (mixed && pair.read == read) {
        c.add(pair.printed, pair.likelihood / count_);
      }
    }
  }

  // The strings whose digit holds: the likeliest, and how likely it is among all of them.
  struct tally {
    double all;
    double best_share;
    char best[NUMBER + 1];
  };

  // Every string that differs from the likeliest in up to two columns.
  static tally count_holding(const column *columns, int length, const char *likeliest) {
    tally t = {};
    char text[NUMBER + 1];
    memcpy(text, likeliest, sizeof text);
    const auto consider = [&](double share) {
      if (check_digit(text, length) != text[length]) {
        return;
      }
      t.all += share;
      if (share > t.best_share) {
        t.best_share = share;
        memcpy(t.best, text, sizeof text);
      }
    };
    const auto share_of = [&](int c, int choice) {
      return static_cast<double>(columns[c].share[choice]) / columns[c].share[0];
    };
    consider(1);
    for (int a = 0; a <= length; ++a) {
      for (int i = 1; i < columns[a].count; ++i) {
        text[a] = columns[a].choice[i];
        consider(share_of(a, i));
        for (int b = a + 1; b <= length; ++b) {
          for (int k = 1; k < columns[b].count; ++k) {
            text[b] = columns[b].choice[k];
            consider(share_of(a, i) * share_of(b, k));
          }
          text[b] = likeliest[b];
        }
      }
      text[a] = likeliest[a];
    }
    return t;
  }

  // ---- optional data -----------------------------------------------------------------------------

  // The data of one look, or of two where there are two fields, with the digits after them: the first for
  // which the composite holds, in the order of the looks' strength.
  void elect_data() {
    const check_place *composite = form_.find_check(VARNEL_COMPOSITE);
    const int first = strongest();
    for (int a = 0; a < count_; ++a) {
      for (int b = 0; b < count_; ++b) {
        set_data(*looks_[(first + a) % count_], *looks_[(first + b) % count_]);
        if (composite == nullptr || check_holds(zone_.lines, *composite)) {
          return;
        }
      }
    }
    set_data(*looks_[first], *looks_[first]);
  }

  void set_data(const varnel_look &upper, const varnel_look &lower) {
    for (int i = 0; i < form_.field_count; ++i) {
      const field_place &f = form_.fields[i];
      if (f.kind == field_kind::number && f.field != VARNEL_DOCUMENT_NUMBER) {
        const bool goes_on = long_number_ != nullptr && f.place.column == form_.optional_data.column;
        set(f.place, at(goes_on ? *long_number_ : f.place.line == 0 ? upper : lower, f.place));
      }
    }
    const uint8_t digits[] = {VARNEL_PERSONAL_NUMBER, VARNEL_COMPOSITE};
    for (const uint8_t field : digits) {
      const check_place *check = form_.find_check(field);
      if (check != nullptr) {
        zone_.lines[check->line][check->column] = digit_of(lower, *check);
      }
    }
  }

  // ---- names -------------------------------------------------------------------------------------

  // What a look's names count for: less where the line was changed or the names are doubted.
  static int weight_of_names(const varnel_look &look, stretch place) {
    const bool clean = is_as_read(look, place);
    return (clean ? 4 : 2) / (is_doubted(look) ? 2 : 1);
  }

  static bool is_doubted(const varnel_look &look) {
    return (look.unproven & (1u << VARNEL_PRIMARY_IDENTIFIER | 1u << VARNEL_SECONDARY_IDENTIFIER)) != 0;
  }

  // A filler in a digit's place is right where nothing is known of a date; where a number goes on in the
  // optional data, the composite answers for it.
  bool digit_holds(const varnel_look &look, const check_place &check) const {
    if (digit_of(look, check) != FILLER) {
      return check_holds(look.zone, check);
    }
    const check_place *composite = form_.find_check(VARNEL_COMPOSITE);
    return length_of(look, check.covered[0]) == 0 ||
           (composite != nullptr && check_holds(look.zone, *composite));
  }

  // Every digit of the number and the dates holds, and nothing is doubted.
  bool is_perfect(const varnel_look &look) const {
    bool holds = look.unproven == 0 && look.dropped == 0;
    for (int i = 0; i < form_.check_count; ++i) {
      const check_place &check = form_.checks[i];
      if (check.field == VARNEL_DOCUMENT_NUMBER || check.field == VARNEL_BIRTH_DATE ||
          check.field == VARNEL_EXPIRY_DATE) {
        holds = holds && digit_holds(look, check);
      }
    }
    return holds;
  }

  void elect_names() {
    for (int i = 0; i < form_.field_count; ++i) {
      const field_place &f = form_.fields[i];
      const bool same_field = f.field == VARNEL_SECONDARY_IDENTIFIER && form_.one_field_of_names;
      if (f.kind == field_kind::names && !same_field) {
        elect_name(f);
      }
    }
  }

  void elect_name(const field_place &f) {
    constexpr int lead = 2;
    int best = 0;
    int best_weight = -1;
    int second_weight = 0;
    int best_looks = 0;
    bool best_has_undoubted = false;
    bool best_has_perfect = false;
    for (int i = 0; i < count_; ++i) {
      const char *text = at(*looks_[i], f.place);
      int weight = 0;
      int looks = 0;
      bool undoubted = false;
      bool perfect = false;
      bool is_first = true;
      for (int k = 0; k < count_; ++k) {
        if (memcmp(at(*looks_[k], f.place), text, f.place.length) == 0) {
          weight += weight_of_names(*looks_[k], f.place);
          ++looks;
          undoubted = undoubted || !is_doubted(*looks_[k]);
          perfect = perfect || is_perfect(*looks_[k]);
          is_first = is_first && k >= i;
        }
      }
      if (!is_first) {
        continue;
      }
      if (weight > best_weight) {
        second_weight = best_weight > 0 ? best_weight : 0;
        best = i;
        best_weight = weight;
        best_looks = looks;
        best_has_undoubted = undoubted;
        best_has_perfect = perfect;
      } else if (weight > second_weight) {
        second_weight = weight;
      }
    }
    set(f.place, at(*looks_[best], f.place));
    const bool stands = (best_looks >= 2 && (best_has_undoubted || best_looks >= 3)) || best_has_perfect;
    if (best_weight - second_weight >= lead && stands) {
      return;
    }
    if (best_looks == 1 && count_ >= 3 && elect_columns(f)) {
      return;
    }
    doubt(f.field);
  }

  // Where all looks differ: each column by its majority, among three or more that are equally long.
  bool elect_columns(const field_place &f) {
    for (int first = 0; first < count_; ++first) {
      const int length = length_of(*looks_[first], f.place);
      int equal = 0;
      for (int i = 0; i < count_; ++i) {
        equal += length_of(*looks_[i], f.place) == length;
      }
      if (equal >= 3 && elect_columns(f, length, equal)) {
        return true;
      }
    }
    return false;
  }

  static int length_of(const varnel_look &look, stretch place) {
    int length = place.length;
    while (length > 0 && at(look, place)[length - 1] == FILLER) {
      --length;
    }
    return length;
  }

  bool elect_columns(const field_place &f, int length, int equal) {
    char elected[VARNEL_ZONE_WIDTH] = {};
    for (int c = 0; c < f.place.length; ++c) {
      char chosen = '\0';
      for (int i = 0; i < count_; ++i) {
        const char letter = at(*looks_[i], f.place)[c];
        int same = 0;
        for (int k = 0; k < count_; ++k) {
          same += at(*looks_[k], f.place)[c] == letter && length_of(*looks_[k], f.place) == length;
        }
        chosen = same * 2 > equal ? letter : chosen;
      }
      if (chosen == '\0') {
        return false;
      }
      elected[c] = chosen;
    }
    set(f.place, elected);
    return true;
  }

  const int level_;
  const layout &form_;
  zone_reading &zone_;
  const varnel_look *looks_[VARNEL_LOOKS] = {};
  int count_ = 0;
  const varnel_look *others_[VARNEL_LOOKS] = {}; // of other layouts
  int other_count_ = 0;
  const varnel_look *long_number_ = nullptr; // the look whose optional data goes on with the number
};

void show_as(const varnel_look &look, varnel_inspection &inspection) {
  memcpy(inspection.source, look.source, sizeof look.source);
  for (int i = 0; i < inspection.field_count; ++i) {
    inspection.fields[i].source = look.field_source[i];
  }
  inspection.change_count = look.change_count;
  memcpy(inspection.changes, look.changes, sizeof look.changes);
  set_verdict(inspection);
}

void show_as_voted(varnel_inspection &inspection) {
  inspection.source_count = 0;
  memset(inspection.source, 0, sizeof inspection.source);
  if (inspection.finding_count == 0) {
    inspection.verdict = VARNEL_VERDICT_VOTED;
  }
}

} // namespace

int varnel_looks_add(varnel_looks *looks, const char *text, size_t size,
                     const varnel_inspect_options *options) {
  if (looks == nullptr || looks->count > VARNEL_LOOKS ||
      varnel_inspect(text, size, options, &looks->last) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  if (looks->last.verdict == VARNEL_VERDICT_REFUSED) {
    return ERR_INVALID_FORMAT;
  }
  int place = looks->count;
  if (place == VARNEL_LOOKS) {
    place = 0;
    for (int i = 1; i < VARNEL_LOOKS; ++i) {
      place = looks->looks[i].score < looks->looks[place].score ? i : place;
    }
    if (looks->looks[place].score >= score_of_look(looks->last)) {
      return ERR_OK;
    }
  } else {
    ++looks->count;
  }
  keep(looks->last, looks->looks[place]);
  return ERR_OK;
}

int varnel_looks_inspect(const varnel_looks *looks, const varnel_inspect_options *options,
                         varnel_inspection *inspection) {
  if (looks == nullptr || looks->count > VARNEL_LOOKS || !are_valid(options) || inspection == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (looks->count == 0) {
    return varnel_inspect(nullptr, 0, options, inspection);
  }
  zone_reading zone;
  vote ballot(*looks, options->repair, zone);
  ballot.run();
  evaluate(zone, *options, *inspection);
  const varnel_look *witness = ballot.find_witness();
  if (witness != nullptr) {
    show_as(*witness, *inspection);
  } else {
    show_as_voted(*inspection);
  }
  return ERR_OK;
}
