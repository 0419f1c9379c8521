#include "repair.hpp"

#include <string.h>

#include "../../ascii.hpp"

namespace documents::repair {

namespace {

// Letters and digits may stand there: what is changed among them is changed for a check digit.
bool is_mixed(const layout &form, int line, int column) {
  for (int i = 0; i < form.field_count; ++i) {
    const field_place &f = form.fields[i];
    if (f.place.line == line && column >= f.place.column && column < f.place.column + f.place.length) {
      return f.kind == field_kind::number;
    }
  }
  return false;
}

// The character of a line as the text has it.
struct original {
  const char *bytes;
  uint8_t length;
  char as; // what it is without repair; NUL for a symbol
};

original read_original(const char *text, const noisy_line &line, int i) {
  const char *bytes = text + line.at[i];
  const character c = read_character(bytes, line.end - line.at[i]);
  return {bytes, c.length, c.as};
}

// Lists what stands in the zone otherwise than in the text.
class change_list {
public:
  change_list(const char *text, const found_zone &found, varnel_inspection &inspection)
      : text_(text), form_(LAYOUTS[found.zone.layout]), found_(found), inspection_(inspection) {}

  void write() {
    for (int line = 0; line < form_.lines; ++line) {
      write_line(line);
    }
  }

private:
  // Characters before the first that stands in the zone do not belong to it.
  void write_line(int line) {
    const characters &zone = found_.zone.lines[line];
    const noisy_line &read = found_.lines[line];
    int next = zone.from[0];
    for (int column = 0; column < zone.size; ++column) {
      if (zone.from[column] == NOT_READ) {
        add(line, column, original{"", 0, '\0'}, zone.text[column], VARNEL_CHANGE_FILLER);
        continue;
      }
      for (; next < zone.from[column]; ++next) {
        add_dropped(line, column, next);
      }
      next = zone.from[column] + 1;
      const original from = read_original(text_, read, zone.from[column]);
      if (from.as != zone.text[column]) {
        add(line, column, from, zone.text[column], reason_of(line, column, from));
      }
    }
    for (; next < read.size; ++next) {
      add_dropped(line, zone.size, next);
    }
  }

  int reason_of(int line, int column, const original &from) const {
    if (found_.zone.lines[line].text[column] == FILLER) {
      return VARNEL_CHANGE_FILLER;
    }
    return from.as != '\0' && is_mixed(form_, line, column) ? VARNEL_CHANGE_DIGIT : VARNEL_CHANGE_CLASS;
  }

  // Before it stands at least the first character of the zone's line.
  void add_dropped(int line, int column, int index) {
    const noisy_line &read = found_.lines[line];
    const char c = static_cast<char>(ascii::to_upper(read.text[index]));
    const bool beside_filler =
        read.text[index - 1] == FILLER || (index + 1 < read.size && read.text[index + 1] == FILLER);
    const bool is_filler = c == FILLER || column >= form_.width || (beside_filler && !ascii::is_digit(c));
    add(line, column, read_original(text_, read, index), '\0',
        is_filler ? VARNEL_CHANGE_FILLER : VARNEL_CHANGE_TWIN);
  }

  void add(int line, int column, const original &from, char to, int reason) {
    if (inspection_.change_count == VARNEL_CHANGES) {
      return;
    }
    varnel_change &change = inspection_.changes[inspection_.change_count++];
    change.line = static_cast<uint8_t>(line);
    change.column = static_cast<uint8_t>(column);
    change.reason = static_cast<uint8_t>(reason);
    memcpy(change.from, from.bytes, from.length);
    change.to[0] = to;
  }

  const char *text_;
  const layout &form_;
  const found_zone &found_;
  varnel_inspection &inspection_;
};

// The bytes of each character; those of a filler that was not read lie between its neighbours.
void copy_line(const char *text, const noisy_line &read, const characters &line, int row,
               documents::zone_reading &zone) {
  uint32_t last_end = read.begin;
  for (int i = 0; i < line.size; ++i) {
    zone.lines[row][i] = line.text[i];
    if (line.from[i] != NOT_READ) {
      const uint32_t begin = read.at[line.from[i]];
      last_end = begin + read_character(text + begin, read.end - begin).length;
      zone.sources[row][i] = {begin, last_end};
    } else {
      zone.sources[row][i] = {last_end, last_end};
    }
  }
  const int first = line.from[0];
  int last = first;
  for (int i = 0; i < line.size; ++i) {
    last = line.from[i] != NOT_READ ? line.from[i] : last;
  }
  for (int i = first + 1; i <= last; ++i) {
    zone.dropped[row] = zone.dropped[row] || (read.noise_before >> i & 1) != 0;
  }
}

} // namespace

void write_inspection(const char *text, const found_zone &found, const varnel_inspect_options &options,
                      varnel_inspection &inspection) {
  const reading &r = found.zone;
  documents::zone_reading zone = {};
  zone.form = &LAYOUTS[r.layout];
  zone.unproven = r.doubts;
  for (int i = 0; i < zone.form->lines; ++i) {
    copy_line(text, found.lines[i], r.lines[i], i, zone);
  }
  evaluate(zone, options, inspection);
  change_list(text, found, inspection).write();
  set_verdict(inspection);
}

namespace {

// The bytes of the first zone of a passage; none, at its end, when there is none.
passage find_first(passage p, const varnel_inspect_options &options) {
  found_zone found;
  return find_reading(p, p, extent::first_zone, options.repair, found)
             ? passage{p.text, found.begin(), found.end()}
             : passage{p.text, p.end, p.end};
}

// Inspects the zone that these bytes are.
void inspect_first(passage zone, passage page, const varnel_inspect_options &options,
                   varnel_inspection &inspection) {
  found_zone found;
  find_reading(zone, page, extent::whole_passage, options.repair, found);
  write_inspection(zone.text, found, options, inspection);
}

} // namespace

// Where no zone can be read by units, or one as it stands has more digits that hold, that one is taken.
void find_zone(passage p, const varnel_inspect_options &options, varnel_inspection &inspection) {
  found_zone found;
  if (!find_reading(p, p, extent::whole_passage, options.repair, found)) {
    documents::find_zone(p, options, inspection);
    return;
  }
  write_inspection(p.text, found, options, inspection);
  if (found.zone.failures > 0) {
    const int score = digits_score_of(inspection);
    documents::find_zone(p, options, inspection);
    if (digits_score_of(inspection) <= score) { // nor has a refusal more
      write_inspection(p.text, found, options, inspection);
    }
  }
}

// Two walks for each zone, so that the plain search before it need not share the stack with what was found.
int find_zones(passage p, const varnel_inspect_options &options, varnel_inspection *inspections,
               int capacity) {
  int count = 0;
  uint32_t begin = p.begin;
  while (count < capacity) {
    const passage zone = find_first(passage{p.text, begin, p.end}, options);
    const passage before = {p.text, begin, zone.begin};
    count += documents::find_zones(before, options, inspections + count, capacity - count);
    if (zone.begin == p.end || count == capacity) {
      break;
    }
    inspect_first(zone, p, options, inspections[count++]);
    begin = zone.end;
  }
  if (count == 0) {
    documents::find_zone(p, options, inspections[0]);
  }
  return count;
}

} // namespace documents::repair
