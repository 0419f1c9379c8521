#include "search.hpp"

namespace documents {

namespace {

// Reads a line's characters into as many lines of the zone as it holds, the first of them `first`.
void read_lines(const char *text, text_line line, int first, int width, zone_reading &zone) {
  character_reader characters(text, line);
  kept_character kept;
  for (int i = 0; characters.next(kept); ++i) {
    const int row = first + i / width;
    const int column = i % width;
    zone.lines[row][column] = kept.c;
    zone.sources[row][column] = kept.source;
    zone.dropped[row] = zone.dropped[row] || (kept.after_dropped && column > 0);
  }
}

// How many lines of which width a line of so many characters is, when it holds a whole zone.
struct shape {
  int lines;
  int width;
};

constexpr shape RUNS[] = {{2, td2::LINE_LENGTH}, {2, td3::LINE_LENGTH}, {3, td1::LINE_LENGTH}};

constexpr shape shape_of_run(uint32_t kept) {
  for (const shape s : RUNS) {
    if (kept == static_cast<uint32_t>(s.lines * s.width)) {
      return s;
    }
  }
  return {0, 0};
}

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
  return kept <= static_cast<uint32_t>(width + NEAR) && distance(kept, width) <= NEAR;
}

class search {
public:
  search(passage p, const varnel_inspect_options &options, varnel_inspection &inspection)
      : passage_(p), options_(options), inspection_(inspection) {}

  bool run() {
    line_reader lines(passage_);
    text_line line;
    while (lines.next(line)) {
      lines_[0] = lines_[1];
      lines_[1] = lines_[2];
      lines_[2] = line;
      consider_run();
      consider_window({3, td1::LINE_LENGTH});
      consider_window({2, td2::LINE_LENGTH});
      consider_window({2, td3::LINE_LENGTH});
    }
    if (!found_) {
      refuse();
    } else if (!best_is_written_) {
      evaluate(best_, options_, inspection_);
    }
    return found_;
  }

private:
  // The last lines read, oldest first. Before the first line of the text stand lines that keep nothing.
  const text_line *last(int count) const { return lines_ + (VARNEL_ZONE_LINES - count); }

  void consider_run() {
    const shape run = shape_of_run(lines_[2].kept);
    if (run.lines > 0) {
      consider(last(1), 1, run);
    }
  }

  void consider_window(shape s) {
    const text_line *window = last(s.lines);
    int sum = 0;
    for (int i = 0; i < s.lines; ++i) {
      if (!is_near(window[i].kept, s.width)) {
        return;
      }
      sum += distance(window[i].kept, s.width);
    }
    if (!found_) {
      consider_near_miss(window, s, sum);
    }
    if (sum == 0) {
      consider(window, s.lines, s);
    }
  }

  // Of zones that are equally good the last one on the page wins.
  void consider(const text_line *lines, int count, shape s) {
    zone_reading zone;
    zone.unproven = 0;
    for (bool &dropped : zone.dropped) {
      dropped = false;
    }
    for (int i = 0; i < count; ++i) {
      read_lines(passage_.text, lines[i], i, s.width, zone);
    }
    zone.form = &LAYOUTS[layout_of(s.lines, s.width, zone.lines[0])];
    evaluate(zone, options_, inspection_);
    const zone_score score = score_of(inspection_);
    best_is_written_ = is_zone(inspection_) && !(found_ && is_better(best_score_, score));
    if (best_is_written_) {
      found_ = true;
      best_ = zone;
      best_score_ = score;
    }
  }

  // The least distance wins, then the last on the page, then the wider: the order in which windows come.
  void consider_near_miss(const text_line *window, shape s, int sum) {
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

  bool has_filler(const text_line *lines, int count) const {
    for (int i = 0; i < count; ++i) {
      character_reader characters(passage_.text, lines[i]);
      kept_character kept;
      while (characters.next(kept)) {
        if (kept.c == FILLER) {
          return true;
        }
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
    inspection_.nearest_layout = static_cast<uint8_t>(layout_of(near_.form.lines, near_.form.width, first));
    for (int i = 0; i < near_.form.lines; ++i) {
      inspection_.nearest[i] = static_cast<uint8_t>(near_.lines[i].kept);
    }
  }

  const passage passage_;
  const varnel_inspect_options &options_;
  varnel_inspection &inspection_;
  text_line lines_[VARNEL_ZONE_LINES] = {};
  bool found_ = false;
  bool best_is_written_ = false; // the record holds the best zone
  zone_reading best_;
  zone_score best_score_ = {};
  near_miss near_;
};

} // namespace

bool find_zone(passage p, const varnel_inspect_options &options, varnel_inspection &inspection) {
  return search(p, options, inspection).run();
}

} // namespace documents
