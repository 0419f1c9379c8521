#include "search.hpp"

#include "../words.hpp"

namespace documents {

namespace {

// Characters of a zone, small letters as capitals.
words::wide as_capitals(words::wide word) {
  return word ^ words::bits(words::in_range(word, 'a', 'z'), 'a' ^ 'A');
}

// Reads the bytes of a plain line, of which every byte is a kept character.
void read_plain_line(const char *text, uint32_t begin, int row, int width, zone_reading &zone) {
  zone.is_plain[row] = true;
  zone.begin[row] = begin;
  const char *const line = text + begin;
  const int last = width - words::WIDE_SIZE; // the last word may overlap the one before
  for (int i = 0; i < last; i += words::WIDE_SIZE) {
    words::store(as_capitals(words::load<words::wide>(line + i)), zone.lines[row] + i);
  }
  words::store(as_capitals(words::load<words::wide>(line + last)), zone.lines[row] + last);
}

// Reads a line's characters into as many lines of the zone as it holds, the first of them `row`.
void read_lines(const char *text, text_line line, int row, int width, zone_reading &zone) {
  if (line.is_plain) {
    for (uint32_t begin = line.begin; begin < line.end; begin += static_cast<uint32_t>(width)) {
      read_plain_line(text, begin, row++, width, zone);
    }
    return;
  }
  character_reader characters(text, line);
  kept_character kept;
  for (int column = 0; characters.next(kept); ++column) {
    if (column == width) {
      column = 0;
      ++row;
    }
    zone.lines[row][column] = kept.c;
    zone.sources[row][column] = kept.source;
    if (kept.after_dropped && column > 0) {
      zone.dropped[row] = true;
    }
  }
}

// How many lines of which width.
struct shape {
  int lines;
  int width;
};

// The shapes that zones have, the wider the later.
constexpr shape SHAPES[] = {{3, td1::LINE_LENGTH}, {2, td2::LINE_LENGTH}, {2, td3::LINE_LENGTH}};

// Lines that are nearly a zone: how far they are from the widths of a layout.
struct near_miss {
  shape form = {0, 0};
  int distance = 0; // sum over the lines
  text_line lines[VARNEL_ZONE_LINES] = {};
};

constexpr int NEAR = 4;

constexpr int distance(uint32_t kept, int width) {
  return kept > static_cast<uint32_t>(width) ? static_cast<int>(kept) - width
                                             : width - static_cast<int>(kept);
}

constexpr bool is_near(uint32_t kept, int width) {
  return kept - static_cast<uint32_t>(width - NEAR) <= 2 * NEAR; // below, it wraps round
}

// Whether it is near any width; most lines of prose are not.
constexpr bool is_near_any(uint32_t kept) {
  return kept >= td1::LINE_LENGTH - NEAR && kept <= td3::LINE_LENGTH + NEAR;
}

// The last lines read, and what they may be.
class line_window {
public:
  void push(text_line line) {
    lines_[0] = lines_[1];
    lines_[1] = lines_[2];
    lines_[2] = line;
  }

  // Oldest first. Before the first line of the text stand lines that keep nothing.
  const text_line *last(int count) const { return lines_ + (VARNEL_ZONE_LINES - count); }
  text_line *last(int count) { return lines_ + (VARNEL_ZONE_LINES - count); }

  bool has_width(int count, int width) const {
    for (int i = VARNEL_ZONE_LINES - 1; i >= VARNEL_ZONE_LINES - count; --i) {
      if (lines_[i].kept != static_cast<uint32_t>(width)) {
        return false;
      }
    }
    return true;
  }

private:
  text_line lines_[VARNEL_ZONE_LINES] = {};
};

// The last lines of a window as a zone: how many they are, and its shape.
struct candidate {
  int lines;
  shape form;
};

constexpr candidate NO_CANDIDATE = {0, {0, 0}};

// The length of the last line decides what it can end: a zone in lines of that width, or one in a single run.
candidate candidate_of(const line_window &window) {
  const uint32_t kept = window.last(1)->kept;
  for (const shape s : SHAPES) {
    if (kept == static_cast<uint32_t>(s.width)) {
      return window.has_width(s.lines, s.width) ? candidate{s.lines, s} : NO_CANDIDATE;
    }
    if (kept == static_cast<uint32_t>(s.lines * s.width)) {
      return {1, s};
    }
  }
  return NO_CANDIDATE;
}

// With repair, noise among the characters leaves the names in doubt, in a zone that is taken as it stands
// too.
void read_zone(const char *text, const line_window &window, candidate c,
               const varnel_inspect_options &options, zone_reading &zone) {
  zone.differing = 0;
  for (int i = 0; i < VARNEL_ZONE_LINES; ++i) {
    zone.is_plain[i] = zone.dropped[i] = false;
    words::store(words::wide{}, zone.lines[i] + c.form.width); // read with the line's last word
  }
  const text_line *lines = window.last(c.lines);
  for (int i = 0; i < c.lines; ++i) {
    read_lines(text, lines[i], i, c.form.width, zone);
  }
  zone.form = &LAYOUTS[layout_of(c.form.width, zone.lines[0])];
  const bool has_noise = zone.dropped[0] || zone.dropped[1] || zone.dropped[2];
  zone.unproven = has_noise && options.repair != VARNEL_REPAIR_OFF ? 1u << VARNEL_SECONDARY_IDENTIFIER : 0;
}

// The best zone of a passage.
class search {
public:
  search(passage p, const varnel_inspect_options &options, varnel_inspection &inspection)
      : passage_(p), options_(options), inspection_(inspection) {}

  void run() {
    line_reader lines(passage_);
    text_line line;
    while (lines.next(line)) {
      window_.push(line);
      const candidate c = candidate_of(window_);
      if (c.lines > 0) {
        consider(c);
      }
      if (best_score_ == 0) {
        consider_near_misses();
      }
    }
    if (best_score_ == 0) {
      refuse();
    } else if (!best_is_written_) {
      write(best_window_, best_);
    }
  }

private:
  void write(const line_window &window, candidate c) {
    zone_reading zone;
    read_zone(passage_.text, window, c, options_, zone);
    evaluate(zone, options_, inspection_);
  }

  // Of zones that are equally good the last one on the page wins.
  void consider(candidate c) {
    write(window_, c);
    const int score = is_zone(inspection_) ? score_of(inspection_) : 0;
    best_is_written_ = score > 0 && score >= best_score_;
    if (best_is_written_) {
      best_window_ = window_;
      best_ = c;
      best_score_ = score;
    }
  }

  void consider_near_misses() {
    if (!is_near_any(window_.last(1)->kept) || !is_near_any(window_.last(2)->kept)) {
      return; // no shape has fewer than two lines
    }
    for (const shape s : SHAPES) {
      consider_near_miss(window_.last(s.lines), s);
    }
  }

  // The least distance wins, then the last on the page, then the wider: the order in which windows come.
  void consider_near_miss(text_line *window, shape s) {
    int sum = 0;
    for (int i = s.lines - 1; i >= 0; --i) {
      if (!is_near(window[i].kept, s.width)) {
        return;
      }
      sum += distance(window[i].kept, s.width);
    }
    const bool is_nearest = near_.form.lines == 0 || sum <= near_.distance;
    if (!is_nearest || !has_filler(window, s.lines)) {
      return;
    }
    near_.form = s;
    near_.distance = sum;
    for (int i = 0; i < s.lines; ++i) {
      near_.lines[i] = window[i];
    }
  }

  bool has_filler(text_line *lines, int count) const {
    for (int i = 0; i < count; ++i) {
      if (documents::has_filler(passage_.text, lines[i])) {
        return true;
      }
    }
    return false;
  }

  void refuse() {
    begin_inspection(options_, inspection_);
    inspection_.verdict = VARNEL_VERDICT_REFUSED;
    if (near_.form.lines == 0) {
      add_finding(inspection_, {VARNEL_FINDING_NO_ZONE, VARNEL_FIELD_NONE, -1, -1});
      return;
    }
    add_finding(inspection_, {VARNEL_FINDING_LENGTH, VARNEL_FIELD_NONE, -1, -1});
    char first[5] = {};
    character_reader characters(passage_.text, near_.lines[0]);
    kept_character kept;
    for (int i = 0; i < 5 && characters.next(kept); ++i) {
      first[i] = kept.c;
    }
    inspection_.nearest_layout = static_cast<uint8_t>(layout_of(near_.form.width, first));
    for (int i = 0; i < near_.form.lines; ++i) {
      inspection_.nearest[i] = static_cast<uint8_t>(near_.lines[i].kept);
    }
  }

  const passage passage_;
  const varnel_inspect_options &options_;
  varnel_inspection &inspection_;
  line_window window_;
  int best_score_ = 0;           // 0: no zone yet
  bool best_is_written_ = false; // the record holds the best zone
  line_window best_window_;
  candidate best_ = NO_CANDIDATE;
  near_miss near_;
};

// All zones of a passage that do not overlap, the best first where they would, in the order of the page.
//
// Zones that overlap, each with the next, form a cluster, and what is taken of one cluster does not depend
// on any other. The zones of a cluster are all of one shape, so that a score for each of its lines, that of
// the zone which ends there, is all there is to remember.
class search_for_all {
public:
  // cppcheck-suppress uninitMemberVar // scores are written as the cluster grows, and not read beyond it
  search_for_all(passage p, const varnel_inspect_options &options, varnel_inspection *inspections,
                 int capacity)
      : passage_(p), options_(options), inspections_(inspections), capacity_(capacity) {}

  int run() {
    line_reader lines(passage_);
    line_window window;
    text_line line;
    for (int number = 0; found_ < capacity_ && lines.next(line); ++number) {
      window.push(line);
      const candidate c = candidate_of(window);
      const int score = c.lines > 0 ? evaluate_last(window, c) : 0;
      if (score > 0) {
        const int first = number - c.lines + 1;
        if (first >= first_ + count_) {
          write_cluster();
          begin_ = window.last(c.lines)->begin;
          first_ = first;
          count_ = 0;
          form_ = c;
        }
        while (count_ <= number - first_) {
          scores_[count_++] = 0;
        }
        scores_[count_ - 1] = static_cast<uint16_t>(score);
      }
    }
    write_cluster();
    return found_;
  }

private:
  // As many as the shortest lines of a zone, each with its line end, can be.
  static constexpr int MOST_LINES = VARNEL_TEXT_MAX / (td1::LINE_LENGTH + 1) + 1;
  static constexpr uint16_t TAKEN = 0x8000; // above every score

  // Writes the next record, and returns its score; 0 when it is no zone.
  int evaluate_last(const line_window &window, candidate c) {
    zone_reading zone;
    read_zone(passage_.text, window, c, options_, zone);
    varnel_inspection &inspection = inspections_[found_];
    evaluate(zone, options_, inspection);
    return is_zone(inspection) ? score_of(inspection) : 0;
  }

  // The line with the highest score, the last of them; below 0 when none is left.
  int find_best() const {
    int best = -1;
    for (int i = 0; i < count_; ++i) {
      if (scores_[i] > 0 && scores_[i] < TAKEN && (best < 0 || scores_[i] >= scores_[best])) {
        best = i;
      }
    }
    return best;
  }

  void take(int best) {
    for (int i = best - form_.lines + 1; i < best + form_.lines; ++i) {
      if (i >= 0 && i < count_) {
        scores_[i] = 0;
      }
    }
    scores_[best] = TAKEN;
  }

  void write_cluster() {
    for (int best = find_best(); best >= 0; best = find_best()) {
      take(best);
    }
    line_reader lines(passage{passage_.text, begin_, passage_.end});
    line_window window;
    text_line line;
    for (int i = 0; i < count_ && found_ < capacity_ && lines.next(line); ++i) {
      window.push(line);
      if (scores_[i] == TAKEN) {
        evaluate_last(window, form_);
        ++found_;
      }
    }
  }

  const passage passage_;
  const varnel_inspect_options &options_;
  varnel_inspection *inspections_;
  const int capacity_;
  int found_ = 0;
  // The cluster: where its first line begins and which line that is, its lines up to the last zone's end,
  // their scores, and the shape of its zones.
  uint32_t begin_ = 0;
  int first_ = 0;
  int count_ = 0;
  uint16_t scores_[MOST_LINES];
  candidate form_ = NO_CANDIDATE;
};

} // namespace

void find_zone(passage p, const varnel_inspect_options &options, varnel_inspection &inspection) {
  search(p, options, inspection).run();
}

int find_zones(passage p, const varnel_inspect_options &options, varnel_inspection *inspections,
               int capacity) {
  return search_for_all(p, options, inspections, capacity).run();
}

} // namespace documents
