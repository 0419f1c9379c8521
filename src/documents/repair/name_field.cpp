// The field of names. No digit protects it: its letters are taken as they stand, and doubted where readers
// are known to make a letter of a filler. What the page prints once more settles a doubt.
#include "../../ascii.hpp"
#include "../layouts.hpp"
#include "lookalikes.hpp"
#include "units.hpp"

namespace documents::repair {

namespace {

constexpr int MOST_WORDS = 24;

bool is_one_of(char c, const char *set) {
  for (; *set != '\0'; ++set) {
    if (*set == c) {
      return true;
    }
  }
  return false;
}

// What a filler is read as beside a name.
bool is_edge_letter(char c) { return is_one_of(c, "CEKSX"); }
bool is_k_or_x(char c) { return c == 'K' || c == 'X'; }

// Letters that begin no name, but are left where a filler before one was read as K or X.
bool is_impossible_start(char first, char second) {
  return (first == 'K' && is_one_of(second, "BCDFGJKMPQSTXZ")) ||
         (first == 'X' && ascii::is_upper(second) && !is_one_of(second, "AEIOUY"));
}

// Letters that end no name, but are left where a filler after one was read as K.
bool is_impossible_end(char before, char last) { return last == 'K' && is_one_of(before, "BDFGHJMPQTVXZ"); }

constexpr uint32_t PRIMARY = 1u << VARNEL_PRIMARY_IDENTIFIER;
constexpr uint32_t SECONDARY = 1u << VARNEL_SECONDARY_IDENTIFIER;

// A word of a name, by its place among the characters of the field.
struct word {
  uint8_t begin;
  uint8_t end;
  bool is_secondary;

  uint32_t part() const { return is_secondary ? SECONDARY : PRIMARY; }
  int length() const { return end - begin; }
};

class name_field {
public:
  name_field(const noisy_line &line, int at, int width) : line_(line), width_(width) {
    for (int i = at; i < line.size; ++i) {
      const char letter = ascii::is_digit(line.text[i]) ? letter_for(line.text[i]) : '\0';
      read_[size_] = line.text[i];
      text_[size_] = letter != '\0' ? letter : line.text[i];
      from_[size_++] = static_cast<uint8_t>(i);
    }
    divide();
    if (take_out_surplus()) {
      divide();
    }
    give_tail_its_letters();
    look_at_tail();
  }

  void write(names_unit &names) const {
    characters &out = names.text;
    int end = 0;
    for (int i = 0; i < word_count_; ++i) {
      const word &w = words_[i];
      for (int k = end; k < w.begin; ++k) {
        out.put(FILLER, from_[k]);
      }
      for (int k = w.begin; k < w.end; ++k) {
        const char c = static_cast<char>(ascii::to_upper(text_[k]));
        names.cost += c != read_[k] ? cost::LOOKALIKE : 0;
        out.put(c, from_[k]);
      }
      end = w.end;
    }
    write_tail(tail_, out);
    names.length_cost = cost::LENGTH * (size_ > width_ ? size_ - width_ : width_ - size_);
  }

  // The parts that may have been misread.
  uint32_t doubts(bool noisy) const {
    uint32_t doubted = 0;
    const auto doubt = [&](bool condition, uint32_t part) { doubted |= condition ? part : 0; };
    const word *last_of_primary = nullptr;
    const word *first_of_secondary = nullptr;
    doubt(noisy || has_strange_tail_ || has_surplus_, SECONDARY);
    for (int i = 0; i < word_count_; ++i) {
      const word &w = words_[i];
      doubt(is_doubtful(w) || (noisy && has_twin(w)), w.part());
      last_of_primary = w.is_secondary ? last_of_primary : &w;
      first_of_secondary = w.is_secondary && first_of_secondary == nullptr ? &w : first_of_secondary;
    }
    doubt(is_dirty_ && (first_of_secondary == nullptr || may_have_lost_filler(*first_of_secondary)),
          SECONDARY);
    if (word_count_ > 0) {
      const word &last = words_[word_count_ - 1];
      doubt(has_doubtful_end(last), last.part());
    }
    // In a line of the right length no letter came from nowhere.
    const bool uneven = size_ != width_;
    doubt(is_dirty_ && uneven && last_of_primary != nullptr && is_k_or_x(text_[last_of_primary->end - 1]),
          PRIMARY);
    doubt(is_dirty_ && uneven && first_of_secondary != nullptr && is_k_or_x(text_[first_of_secondary->begin]),
          SECONDARY);
    return doubted;
  }

  // Writes the names as the page prints them, where it prints each word, or the word without a letter at its
  // edge that was a filler. False where it does not.
  bool write_printed(const surroundings &around, characters &out) const {
    characters printed = {};
    bool is_divided = word_count_ == 1 || (word_count_ > 0 && words_[word_count_ - 1].is_secondary);
    const bool was_divided = is_divided;
    bool lost_letter = false; // after the last word written: a filler more
    bool in_primary = true;
    int end = 0;
    for (int i = 0; i < word_count_; ++i) {
      word w = words_[i];
      if (w.length() == 1 && is_edge_letter(text_[w.begin])) {
        lost_letter = true;
        continue;
      }
      const int last = w.end;
      if (!fit(w, around)) {
        return false;
      }
      if (printed.size > 0) {
        const bool parts = was_divided ? w.is_secondary && in_primary : lost_letter;
        if (parts && is_divided && !was_divided) {
          return false;
        }
        is_divided = is_divided || parts;
        in_primary = in_primary && !parts;
        printed.put(FILLER, from_[end]);
        if (parts) {
          printed.put(FILLER, from_[end + 1]);
        }
      }
      for (int k = w.begin; k < w.end; ++k) {
        printed.put(static_cast<char>(ascii::to_upper(text_[k])), from_[k]);
      }
      end = w.end;
      lost_letter = w.end != last;
    }
    if (printed.size == 0 || printed.size > width_ || !is_divided) {
      return false;
    }
    write_tail(end, printed);
    out = printed;
    return true;
  }

private:
  // Words are separated by one filler, the parts of the name by two. Two more, or a small letter, begin the
  // tail.
  void divide() {
    bool is_secondary = false;
    int i = 0;
    word_count_ = 0;
    tail_ = i;
    while (i < size_ && word_count_ < MOST_WORDS) {
      if (text_[i] == FILLER) {
        const bool is_pair = i + 1 < size_ && text_[i + 1] == FILLER;
        if (is_pair && is_secondary) {
          return;
        }
        is_secondary = is_secondary || is_pair;
        i += is_pair ? 2 : 1;
        if (i >= size_ || text_[i] == FILLER || ascii::is_lower(text_[i])) {
          return;
        }
      } else if (is_secondary && ascii::is_lower(text_[i])) {
        return;
      } else {
        word &w = words_[word_count_++];
        w = {static_cast<uint8_t>(i), 0, is_secondary};
        while (i < size_ && text_[i] != FILLER && !(is_secondary && ascii::is_lower(text_[i]))) {
          ++i;
        }
        w.end = static_cast<uint8_t>(i);
        tail_ = i;
      }
    }
  }

  bool is_pure_tail() const {
    for (int i = tail_; i < size_; ++i) {
      if (read_[i] != FILLER) {
        return false;
      }
    }
    return true;
  }

  // A last word of one letter before misread fillers is one of them.
  void give_tail_its_letters() {
    while (word_count_ > 1 && !is_pure_tail()) {
      const word &last = words_[word_count_ - 1];
      if (!last.is_secondary || last.length() != 1 || !is_filler_noise(text_[last.begin])) {
        return;
      }
      --word_count_;
      tail_ = words_[word_count_ - 1].end;
    }
  }

  void look_at_tail() {
    const bool is_pure = is_pure_tail();
    is_dirty_ = !is_pure || size_ != width_ || has_gap_in_word();
    has_surplus_ = tail_ > width_ || (is_pure && size_ > width_);
    for (int i = tail_; i < size_; ++i) {
      const char c = read_[i];
      is_dirty_ = is_dirty_ || (i > tail_ && line_.has_gap(from_[i]));
      has_strange_tail_ = has_strange_tail_ || (c != FILLER && !is_filler_noise(c));
      reads_fillers_as_s_ = reads_fillers_as_s_ || c == 'S' || c == '5';
    }
  }

  // Characters too many, in a line that ends in fillers and nothing else, stand among the names, since
  // readers do not double the fillers of a tail. Takes them out where there is one way.
  bool take_out_surplus() {
    const int surplus = is_pure_tail() ? size_ - width_ : 0;
    return surplus > 0 && ((surplus == 1 && take_out_twin()) || take_out_fillers(surplus));
  }

  // A character that was read twice, once as a letter and once as a digit, where only one was.
  bool take_out_twin() {
    int twins = 0;
    int place = 0;
    for (int i = 0; i + 1 < tail_; ++i) {
      if (is_twin(read_[i], read_[i + 1])) {
        const bool same = twins > 0 && i == place; // a letter between two digits, or the reverse
        twins += !same;
        place = i + 1;
      }
    }
    if (twins != 1) {
      return false;
    }
    take_out(ascii::is_digit(read_[place]) ? place : place - 1);
    return true;
  }

  // Fillers that were read twice, once as K or X: letters that begin or end no name, where there are as many
  // of them as characters too many; else each K and X that begins a word, where there are as many of these
  // and none ends a word.
  bool take_out_fillers(int surplus) {
    int impossible = 0;
    int begins = 0;
    int ends = 0;
    for (int i = 0; i < word_count_; ++i) {
      const word &w = words_[i];
      impossible += (i > 0 && begins_impossibly(w)) + ends_impossibly(w);
      begins += i > 0 && is_k_or_x(text_[w.begin]);
      ends += w.length() > 1 && is_k_or_x(text_[w.end - 1]);
    }
    const bool all_begins = begins == surplus && ends == 0;
    if (impossible != surplus && !all_begins) {
      return false;
    }
    for (int i = word_count_ - 1; i >= 0; --i) {
      const word w = words_[i];
      if (!all_begins && ends_impossibly(w)) {
        take_out(w.end - 1);
      }
      if (i > 0 && (all_begins ? is_k_or_x(text_[w.begin]) : begins_impossibly(w))) {
        take_out(w.begin);
      }
    }
    return true;
  }

  void take_out(int place) {
    --size_;
    for (int i = place; i < size_; ++i) {
      read_[i] = read_[i + 1];
      text_[i] = text_[i + 1];
      from_[i] = from_[i + 1];
    }
  }

  bool begins_impossibly(const word &w) const {
    return w.length() > 1 && is_impossible_start(text_[w.begin], text_[w.begin + 1]);
  }

  bool ends_impossibly(const word &w) const {
    return w.length() > 2 && is_impossible_end(text_[w.end - 2], text_[w.end - 1]);
  }

  bool has_twin(const word &w) const {
    for (int k = w.begin; k + 1 < w.end; ++k) {
      if (is_twin(read_[k], read_[k + 1])) {
        return true;
      }
    }
    return false;
  }

  bool is_doubtful(const word &w) const {
    for (int k = w.begin; k < w.end; ++k) {
      const bool inside = k > w.begin && k + 1 < w.end;
      const bool deep_inside = k > w.begin + 1 && k + 2 < w.end;
      if (ascii::is_lower(text_[k]) || (is_dirty_ && text_[k] == 'X' && inside) ||
          (reads_fillers_as_s_ && text_[k] == 'S' && deep_inside)) {
        return true;
      }
    }
    const bool is_lone = w.length() == 1 && is_k_or_x(text_[w.begin]);
    return has_run(w) || (is_dirty_ && (begins_impossibly(w) || has_twin(w) || is_lone));
  }

  bool has_gap_in_word() const {
    for (int i = 0; i < word_count_; ++i) {
      for (int k = words_[i].begin + 1; k < words_[i].end; ++k) {
        if (line_.has_gap(from_[k])) {
          return true;
        }
      }
    }
    return false;
  }

  // The only given name, with an S inside that may have been the filler between two.
  bool may_have_lost_filler(const word &first_given) const {
    constexpr int shortest_name = 3;
    const bool is_only = &first_given == words_ + word_count_ - 1;
    for (int k = first_given.begin + shortest_name; is_only && k + shortest_name < first_given.end; ++k) {
      if (text_[k] == 'S' && text_[k - 1] != 'S' && text_[k + 1] != 'S') {
        return true;
      }
    }
    return false;
  }

  // K three times, or four times a letter that fillers are read as.
  bool has_run(const word &w) const {
    int run = 0;
    for (int k = w.begin; k < w.end; ++k) {
      run = k > w.begin && text_[k] == text_[k - 1] ? run + 1 : 1;
      if (run >= (text_[k] == 'K' ? 3 : 4) && is_edge_letter(text_[k])) {
        return true;
      }
    }
    return false;
  }

  // Whether the last letter of the names may belong to the fillers after it.
  bool has_doubtful_end(const word &last) const {
    const char end = text_[last.end - 1];
    const char before = last.length() > 1 ? text_[last.end - 2] : '\0';
    const char third = last.length() > 2 ? text_[last.end - 3] : '\0';
    const bool before_fillers = tail_ + 1 < size_ && read_[tail_] == FILLER && read_[tail_ + 1] == FILLER;
    const bool in_tail = is_in_tail(end);
    if (!is_dirty_) {
      return false;
    }
    return is_k_or_x(end) || (in_tail && !before_fillers) ||
           (is_one_of(end, "CES") &&
            ((!before_fillers && tail_ < size_) || (is_one_of(before, "CES") && is_one_of(third, "CES")))) ||
           (before == 'K' && end == 'E');
  }

  bool is_in_tail(char letter) const {
    for (int i = tail_; i < size_; ++i) {
      if (read_[i] != FILLER && ascii::to_upper(read_[i]) == letter) {
        return true;
      }
    }
    return false;
  }

  // Makes the word what is printed.
  bool fit(word &w, const surroundings &around) const {
    const char *first = text_ + w.begin;
    const int length = w.length();
    if (around.print(first, length)) {
      return true;
    }
    if (is_edge_letter(text_[w.end - 1]) && around.print(first, length - 1)) {
      --w.end;
      return true;
    }
    if (is_edge_letter(*first) && around.print(first + 1, length - 1)) {
      ++w.begin;
      return true;
    }
    return false;
  }

  void write_tail(int from, characters &out) const {
    for (int k = from; k < size_ && out.size < width_; ++k) {
      out.put(FILLER, from_[k]);
    }
    out.fill(width_);
    out.size = static_cast<uint8_t>(width_);
  }

  const noisy_line &line_;
  const int width_;
  int size_ = 0;
  char read_[LONGEST_LINE];
  char text_[LONGEST_LINE];    // the same, digits that look like letters replaced
  uint8_t from_[LONGEST_LINE]; // places in the line
  word words_[MOST_WORDS] = {};
  int word_count_ = 0;
  int tail_ = 0;             // where the fillers after the last word begin
  bool has_surplus_ = false; // of characters that nothing explains
  bool is_dirty_ = false; // the tail is not fillers alone, the length is wrong, or white space stands within
  bool has_strange_tail_ = false;   // something stands in it that no filler is read as
  bool reads_fillers_as_s_ = false; // in capitals
};

} // namespace

void read_names(const noisy_line &line, int at, int width, bool noisy, const surroundings &around,
                names_unit &names) {
  names = names_unit{};
  const name_field field(line, at, width);
  field.write(names);
  names.doubts = field.doubts(noisy);
  if (names.doubts != 0 && field.write_printed(around, names.text)) {
    names.doubts = 0;
  }
}

} // namespace documents::repair
