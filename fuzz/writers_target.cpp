// The field writers: a sequence of operations, decoded from the input, on one record with a buffer of any
// small size. The library and the plain reading write side by side, each into its own record, and
// are compared after every operation.
#include "harness.hpp"

#include <reference.hpp>

#include <array>
#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;
using fuzz::record;

fuzz::behaviour filled("a slot is filled");
fuzz::behaviour emptied("a filled slot is emptied by an empty value");
fuzz::behaviour rewritten("a filled slot is filled anew");
fuzz::behaviour refused_number("a slot number out of range is refused");
fuzz::behaviour buffer_filled("a value fills the buffer to its end");
fuzz::behaviour one_byte_left("a value leaves exactly one byte, which takes no terminator");
fuzz::behaviour no_room("a writer is called with no room");
fuzz::behaviour date_refused("a date is refused for want of room");
fuzz::behaviour date_written("a date is written");
fuzz::behaviour date_part_too_wide("a date's part does not fit its places");
fuzz::behaviour array_written("an array of several texts is written");
fuzz::behaviour cleared("a used record is cleared");
fuzz::behaviour copied("a text is copied to plain memory");
fuzz::behaviour copy_cut("a copy is cut to its room");
fuzz::behaviour number_padded("a number is padded");
fuzz::behaviour number_refused("a number does not fit");
fuzz::behaviour prefix_emptied_view("dropping a prefix empties a view");
fuzz::behaviour slot_found("a slot query finds text");

// A set of characters, or none.
struct set {
  explicit set(fuzz::input &in) : none(in.number(0, 3) == 0), chars(none ? "" : in.text(4)) {}
  const char *get() const { return none ? nullptr : chars.c_str(); }

  bool none;
  std::string chars;
};

// A source text in a block of its own, seen through a view that may be null or of a senseless length.
struct source {
  explicit source(fuzz::input &in) : text(in.text(40)), view{text.data(), text.size()} {
    const int kind = in.number(0, 15);
    if (kind == 0) {
      view.str = nullptr;
    } else if (kind == 1) {
      view.len = -in.number(0, 3);
    }
  }

  memory text;
  STRING view;
};

// A few source texts, as an array of views that is lent as a block of exactly its size.
struct sources {
  explicit sources(fuzz::input &in) {
    const int count = in.number(0, 5);
    for (int i = 0; i < count; ++i) {
      texts.emplace_back(in);
    }
    views.reset(new STRING[texts.size()]);
    for (size_t i = 0; i < texts.size(); ++i) {
      views[i] = texts[i].view;
    }
  }
  int count() const { return static_cast<int>(texts.size()); }

  std::vector<source> texts;
  std::unique_ptr<STRING[]> views;
};

// The caller's writer: writes at most what it has room for, and says how much.
struct writing {
  std::string text;
  int answer_when_empty;
  std::vector<int> rooms;
};

int write_text(void *data, char *out, int o_len) {
  writing &w = *static_cast<writing *>(data);
  w.rooms.push_back(o_len);
  const int length = static_cast<int>(w.text.size()) < o_len ? static_cast<int>(w.text.size()) : o_len;
  if (length < 1) {
    return w.answer_when_empty;
  }
  std::memcpy(out, w.text.data(), static_cast<size_t>(length));
  return length;
}

int any_field(fuzz::input &in) {
  const int kind = in.number(0, 15);
  if (kind < 8) {
    return FIELD_FAMILY_NAME + kind; // a few slots again and again
  }
  if (kind < 15) {
    return in.number(0, FIELD_COUNT - 1);
  }
  const int edge = in.flag() ? FIELD_COUNT : -1;
  return edge + in.number(-3, 3);
}

DATETIME any_date(fuzz::input &in) {
  DATETIME date = {in.number(1900, 2100), in.number(1, 12), in.number(1, 31), 0, 0, 0};
  if (in.number(0, 3) == 0) {
    date = {in.any_int(), in.any_int(), in.any_int(), in.any_int(), 0, 0};
  }
  return date;
}

// ---- operations on the record ----------------------------------------------------------------------

struct pair {
  record library;
  record plain;
};

// Compares what the two slot writers returned and left.
void check_slot(pair &both, int field, const FIELD *ours, const FIELD *expected, bool had_text, int used) {
  equal("the slot returned", fuzz::slot_number(ours, both.library), fuzz::slot_number(expected, both.plain));
  equal("what the predicates were asked", fuzz::take_notes(), std::vector<int>());
  const PARSE_RESULT &result = *both.library.result();
  const bool has_text = ours != nullptr && ours->value.len > 0;
  const bool grew = result.data_size > used;
  filled.seen(has_text && grew);
  emptied.seen(had_text && ours != nullptr && !has_text);
  rewritten.seen(had_text && has_text && grew);
  refused_number.seen(ours == nullptr && (field < 0 || field >= FIELD_COUNT));
  buffer_filled.seen(grew && result.data_size == result.buffer_size);
  one_byte_left.seen(grew && result.data_size == result.buffer_size - 1 && result.buffer_size > 1);
}

// Runs the library's and the plain writer and holds both to the same questions to their predicates.
template <class Library, class Plain>
void check_writer(pair &both, int field, Library library_writer, Plain plain_writer) {
  const bool had_text = utils_is_valid_field(both.library.result(), field) == ERR_OK;
  const int used = both.library.result()->data_size;
  FIELD *const ours = library_writer(both.library.result());
  const std::vector<int> asked = fuzz::take_notes();
  FIELD *const expected = plain_writer(both.plain.result());
  equal("what the predicates were asked", asked, fuzz::take_notes());
  check_slot(both, field, ours, expected, had_text, used);
}

// The same for two writers of one name, which take the same arguments after record and slot.
template <class Library, class Plain, class... Arguments>
void check_writer(pair &both, int field, const char *, Library library, Plain plain, Arguments... arguments) {
  check_writer(
      both, field, [&](PARSE_RESULT *r) { return library(r, field, arguments...); },
      [&](PARSE_RESULT *r) { return plain(r, field, arguments...); });
}

char any_replacement(fuzz::input &in) { return static_cast<char>(in.flag() ? ' ' : in.byte()); }

// Mostly what is given, sometimes null.
template <class T> const T *or_null(fuzz::input &in, const T *given) {
  return in.number(0, 15) == 0 ? nullptr : given;
}

void write_field(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  const source from(in);
  const set removed(in);
  const set duplicate(in);
  const char rep = any_replacement(in);
  check_writer(both, field, FUZZ_BOTH(utils_write_field), or_null(in, &from.view), removed.get(),
               duplicate.get(), rep);
}

void write_field_f(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  const source from(in);
  const _t_predicate_func removed = fuzz::any_predicate(in);
  const _t_predicate_func duplicate = fuzz::any_predicate(in);
  check_writer(both, field, FUZZ_BOTH(utils_write_field_f), &from.view, removed, duplicate,
               any_replacement(in));
}

void write_field_s(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  const memory text(in.text(40) + '\0');
  check_writer(both, field, FUZZ_BOTH(utils_write_field_s), or_null(in, text.data()));
}

void write_field_w(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  writing ours = {in.text(40), -in.number(0, 2), {}};
  writing expected = ours;
  const _t_writer_func wf = in.number(0, 15) == 0 ? nullptr : write_text;
  check_writer(
      both, field, [&](PARSE_RESULT *r) { return utils_write_field_w(r, field, &ours, wf); },
      [&](PARSE_RESULT *r) { return reference::utils_write_field_w(r, field, &expected, wf); });
  equal("the room the writer was given", ours.rooms, expected.rooms);
  no_room.seen(!ours.rooms.empty() && ours.rooms.front() == 0);
}

void write_field_array(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  const sources from(in);
  const set removed(in);
  const set duplicate(in);
  const char sep = static_cast<char>(in.byte());
  const char rep = any_replacement(in);
  const STRING *views = or_null(in, from.views.get());
  const int count = in.number(0, 7) == 0 ? -1 : from.count();
  const int used = both.library.result()->data_size;
  check_writer(both, field, FUZZ_BOTH(utils_write_field_array), views, count, sep, removed.get(),
               duplicate.get(), rep);
  array_written.seen(count > 1 && both.library.result()->data_size > used);
}

void write_field_date(pair &both, fuzz::input &in) {
  const int field = any_field(in);
  const DATETIME date = any_date(in);
  const DATETIME *given = or_null(in, &date);
  const int used = both.library.result()->data_size;
  const bool room = both.library.buffer_size() - used >= 8;
  check_writer(both, field, FUZZ_BOTH(utils_write_field_date), given);
  const bool written = both.library.result()->data_size > used;
  date_written.seen(written);
  date_part_too_wide.seen(written && date.month > 99);
  date_refused.seen(!written && !room && given != nullptr && field >= 0 && field < FIELD_COUNT);
}

// A slot's own text is written into another slot: the source lies in the record's buffer.
void copy_slot(pair &both, fuzz::input &in) {
  const int from = FIELD_FAMILY_NAME + in.number(0, 7);
  const int field = any_field(in);
  const set removed(in);
  check_writer(
      both, field,
      [&](PARSE_RESULT *r) {
        return utils_write_field(r, field, &r->fields[from].value, removed.get(), " ", ' ');
      },
      [&](PARSE_RESULT *r) {
        return reference::utils_write_field(r, field, &r->fields[from].value, removed.get(), " ", ' ');
      });
}

void clear(pair &both, fuzz::input &) {
  cleared.seen(both.library.result()->data_size > 0);
  equal("result_clear", result_clear(both.library.result()), reference::result_clear(both.plain.result()));
  equal("data_size after clearing", both.library.result()->data_size, 0);
}

void query(pair &both, fuzz::input &in) {
  int fields[6];
  const int count = in.number(-1, 6);
  for (int &field : fields) {
    field = in.flag() ? FIELD_FAMILY_NAME + in.number(0, 7) : in.number(0, FIELD_COUNT - 1);
    equal("utils_is_valid_field", utils_is_valid_field(both.library.result(), field),
          reference::utils_is_valid_field(both.plain.result(), field));
  }
  STRING ours = {nullptr, -9};
  STRING expected = {nullptr, -9};
  const int code = utils_get_valid_field(both.library.result(), fields, count, &ours);
  equal("utils_get_valid_field", code,
        reference::utils_get_valid_field(both.plain.result(), fields, count, &expected));
  equal("the view found", fuzz::place_of(ours, both.library.buffer()),
        fuzz::place_of(expected, both.plain.buffer()));
  slot_found.seen(code == ERR_OK);
}

// ---- operations on plain memory --------------------------------------------------------------------

// Runs a copier of the library and the plain one, each on memory of the same size and junk.
template <class Library, class Plain, class... Arguments>
void check_copier(const char *name, Library library, Plain plain, int room, Arguments... arguments) {
  memory ours(room > 0 ? room : 0);
  memory expected(room > 0 ? room : 0);
  const int count = library(ours.data(), room, arguments...);
  const std::vector<int> asked = fuzz::take_notes();
  equal(name, count, plain(expected.data(), room, arguments...));
  equal("what the predicates were asked", asked, fuzz::take_notes());
  equal("the copy", std::string(ours.text()), std::string(expected.text()));
  holds(count >= 0 && count <= ours.size(), "a copier counts no more than its room");
  holds(ours.intact(), "nothing is written outside the copy's room");
  copied.seen(count > 0);
}

int any_room(fuzz::input &in) { return in.number(0, 15) == 0 ? -in.number(0, 3) : in.number(0, 48); }

void copy(pair &, fuzz::input &in) {
  const int room = any_room(in);
  const source from(in);
  const set removed(in);
  const set duplicate(in);
  const char rep = any_replacement(in);
  copy_cut.seen(room > 0 && from.view.str != nullptr && from.view.len > room);
  check_copier(FUZZ_BOTH(utils_strcpy), room, &from.view, removed.get(), duplicate.get(), rep);
  check_copier(FUZZ_BOTH(utils_strwrite), room, &from.view, removed.get(), duplicate.get(), rep);
  equal("no room at all", utils_strcpy(nullptr, room, &from.view, nullptr, nullptr, rep), 0);
  equal("no room at all", utils_strwrite(nullptr, room, &from.view, nullptr, nullptr, rep), 0);
}

void copy_f(pair &, fuzz::input &in) {
  const int room = any_room(in);
  const source from(in);
  const _t_predicate_func removed = fuzz::any_predicate(in);
  const _t_predicate_func duplicate = fuzz::any_predicate(in);
  const char rep = any_replacement(in);
  check_copier(FUZZ_BOTH(utils_strcpy_f), room, &from.view, removed, duplicate, rep);
  check_copier(FUZZ_BOTH(utils_strwrite_f), room, &from.view, removed, duplicate, rep);
}

void copy_s(pair &, fuzz::input &in) {
  const int room = any_room(in);
  const memory text(in.text(40) + '\0');
  check_copier(FUZZ_BOTH(utils_strwrite_s), room, text.data());
}

void copy_array(pair &, fuzz::input &in) {
  const int room = any_room(in);
  const sources from(in);
  const set removed(in);
  const set duplicate(in);
  const char sep = static_cast<char>(in.byte());
  const char rep = any_replacement(in);
  const STRING *views = from.views.get();
  check_copier(FUZZ_BOTH(utils_strcpy_array), room, views, from.count(), sep, removed.get(), duplicate.get(),
               rep);
  check_copier(FUZZ_BOTH(utils_strwrite_array), room, views, from.count(), sep, removed.get(),
               duplicate.get(), rep);
}

void number_to_text(pair &, fuzz::input &in) {
  const int room = any_room(in);
  int64_t number = in.flag() ? in.any_int() : static_cast<int64_t>(in.any_uint64());
  number = number == INT64_MIN ? INT64_MAX : number; // which the plain reading cannot negate
  const int pad = in.any_int();
  memory ours(room > 0 ? room : 0);
  memory expected(room > 0 ? room : 0);
  const int count = utils_itoa(number, ours.data(), room, pad);
  equal("utils_itoa", count, reference::utils_itoa(number, expected.data(), room, pad));
  equal("the digits", std::string(ours.text()), std::string(expected.text()));
  holds(ours.intact(), "nothing is written outside the digits' room");
  number_padded.seen(count > 0 && number < 10 && count > 3);
  number_refused.seen(count == 0 && room > 0);
  equal("utils_itoch", int{utils_itoch(pad)}, int{reference::utils_itoch(pad)});
}

void drop_prefix(pair &, fuzz::input &in) {
  const source from(in);
  const int begin = in.any_int();
  STRING ours = from.view;
  STRING expected = from.view;
  utils_strtrim_begin(&ours, begin);
  reference::utils_strtrim_begin(&expected, begin);
  equal("utils_strtrim_begin", fuzz::place_of(ours, from.text.data()),
        fuzz::place_of(expected, from.text.data()));
  prefix_emptied_view.seen(from.view.len > 0 && ours.len == 0);
  utils_strtrim_begin(nullptr, begin);
}

struct operation {
  const char *name;
  void (*run)(pair &, fuzz::input &);
};

constexpr operation OPERATIONS[] = {
    {"utils_write_field", write_field},
    {"utils_write_field_f", write_field_f},
    {"utils_write_field_s", write_field_s},
    {"utils_write_field_w", write_field_w},
    {"utils_write_field_array", write_field_array},
    {"utils_write_field_date", write_field_date},
    {"utils_write_field of a slot", copy_slot},
    {"result_clear", clear},
    {"slot queries", query},
    {"copiers", copy},
    {"copiers by predicate", copy_f},
    {"utils_strwrite_s", copy_s},
    {"copiers of arrays", copy_array},
    {"utils_itoa, utils_itoch", number_to_text},
    {"utils_strtrim_begin", drop_prefix},
};

// The whole sequence from the start, on records of the given junk.
pair run(const uint8_t *data, size_t size, unsigned char junk) {
  fuzz::input in(data, size);
  const int buffer_size = in.number(1, 96);
  pair both = {record(buffer_size, junk), record(buffer_size, junk)};
  equal("result_init", result_init(both.library.result(), both.library.buffer(), buffer_size),
        reference::result_init(both.plain.result(), both.plain.buffer(), buffer_size));
  while (!in.empty()) {
    const operation &op = OPERATIONS[in.number(0, std::size(OPERATIONS) - 1)];
    try {
      op.run(both, in);
      fuzz::check_invariants(both.library);
      fuzz::check_same(both.library, both.plain);
    } catch (const fuzz::difference &found) {
      throw fuzz::difference(std::string(op.name) + ": " + found.what());
    }
  }
  return both;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const pair first = run(data, size, memory::JUNK);
  const pair second = run(data, size, 0);
  fuzz::check_same(second.library, first.library);
  return 0;
}
