// Each layout parser, and the field primitives below it, on raw bytes and lengths.
//
// Input: the zone up to the first NUL, line breaks left out, so that readable zones are inputs as they
// stand; or one byte above 0x7F, which stands for a specimen. After it come the reference year, the
// buffer's size, what is cut from the length, a window for the primitives, and patches that put any byte
// in any place.
#include "harness.hpp"

#include <reference.hpp>

#include <algorithm>
#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;
using fuzz::record;

using layout_parser = int (*)(const char *, int, PARSE_RESULT *, const CONTEXT *);

struct layout {
  const char *name;
  layout_parser library;
  layout_parser plain;
  fuzz::behaviour accepted;
  fuzz::behaviour refused_late; // after slots were written
};

layout LAYOUTS[] = {
    {"MRZ_td1_parse", MRZ_td1_parse, reference::MRZ_td1_parse, fuzz::behaviour("TD1 accepts a zone"),
     fuzz::behaviour("TD1 refuses a zone after writing slots")},
    {"MRZ_td2_parse", MRZ_td2_parse, reference::MRZ_td2_parse, fuzz::behaviour("TD2 accepts a zone"),
     fuzz::behaviour("TD2 refuses a zone after writing slots")},
    {"MRZ_passport_parse", MRZ_passport_parse, reference::MRZ_passport_parse,
     fuzz::behaviour("the passport parser accepts a zone"),
     fuzz::behaviour("the passport parser refuses a zone after writing slots")},
    {"MRZ_visa_parse", MRZ_visa_parse, reference::MRZ_visa_parse,
     fuzz::behaviour("the visa parser accepts a zone"),
     fuzz::behaviour("the visa parser refuses a zone after writing slots")},
};

fuzz::behaviour negative_length("a negative length is refused as an argument");
fuzz::behaviour outside_alphabet("a zone of the right length with a strange byte is refused");
fuzz::behaviour tight_buffer("an accepted zone's values do not fit the buffer");
fuzz::behaviour code_extracted("a country code is extracted");
fuzz::behaviour date_extracted("a date is extracted");
fuzz::behaviour name_extracted("a name is extracted");
fuzz::behaviour control_sum("a control sum is computed");

struct trial {
  memory zone;
  int length; // what the parsers are given; at most the zone's size
  int buffer_size;
  CONTEXT context;
  STRING window;
  int position;
};

// The specimens of ICAO Doc 9303, so that a few patched columns make an input.
const std::string SPECIMENS[] = {
    "I<UTOD231458907<<<<<<<<<<<<<<<7408122F1204159UTO<<<<<<<<<<<6ERIKSSON<<ANNA<MARIA<<<<<<<<<<",
    "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<D231458907UTO7408122F1204159<<<<<<<6",
    "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<L898902C36UTO7408122F1204159ZE184226B<<<<<10",
    "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<L8988901C4XXX4009078F96121096ZE184226B<<<<<<",
    "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<L8988901C4XXX4009078F9612109<<<<<<<<",
};

constexpr char ALPHABET[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ<";

// The zone that an input begins with, and where the controls begin.
std::string begin(std::string_view raw, size_t *controls_at) {
  if (!raw.empty() && static_cast<unsigned char>(raw[0]) >= 0x80) {
    *controls_at = 1;
    return SPECIMENS[static_cast<unsigned char>(raw[0]) % std::size(SPECIMENS)];
  }
  std::string zone(raw.substr(0, raw.find('\0')));
  *controls_at = std::min(zone.size() + 1, raw.size());
  const auto breaks_line = [](char c) { return c == '\n' || c == '\r'; };
  zone.erase(std::remove_if(zone.begin(), zone.end(), breaks_line), zone.end());
  return zone;
}

// Changes one place: to a character of the alphabet, to any byte, or, for two columns that say the same,
// to the two characters that stand elsewhere.
void patch(memory &zone, fuzz::input &in) {
  const int at = in.number(0, zone.size() - 1);
  const unsigned kind = in.byte();
  if (kind < 0xD0) {
    zone.data()[at] = ALPHABET[kind % (sizeof ALPHABET - 1)];
  } else if (kind < 0xE0) {
    zone.data()[at] = static_cast<char>(in.byte());
  } else if (at + 2 <= zone.size()) {
    std::memmove(zone.data() + at, zone.data() + in.number(0, zone.size() - 2), 2);
  }
}

// Mostly the zone's own length; sometimes less, sometimes a negative one.
int any_length(int size, fuzz::input &in) {
  const int kind = in.number(0, 31);
  if (kind > 1) {
    return size;
  }
  return kind == 0 ? -in.number(1, 4) : in.number(0, size);
}

trial decode(const uint8_t *data, size_t size) {
  size_t controls_at = 0;
  const std::string zone = begin(std::string_view(reinterpret_cast<const char *>(data), size), &controls_at);
  trial t = {
      memory(zone), static_cast<int>(zone.size()), VARNEL_BUFFER_SIZE, {{2018, 2, 15, 0, 0, 0}}, {}, 0};
  t.window = STRING{t.zone.data(), t.length};
  fuzz::input controls(data + controls_at, size - controls_at);
  if (controls.empty()) {
    return t;
  }
  t.context.date.year = controls.flag() ? controls.any_int() : controls.number(1990, 2245);
  t.buffer_size = controls.flag() ? VARNEL_BUFFER_SIZE : controls.number(1, 256);
  t.length = any_length(t.zone.size(), controls);
  const int start = controls.number(0, t.zone.size());
  t.window = STRING{t.zone.data() + start, controls.number(0, t.zone.size() - start)};
  t.position = controls.number(0, 40000);
  while (!controls.empty() && t.zone.size() > 0) {
    patch(t.zone, controls);
  }
  return t;
}

// One attempt on a fresh record of the given junk; the context's other members are junk as well.
record attempt(const trial &t, layout_parser parser, int *code, unsigned char junk) {
  record filled(t.buffer_size, junk);
  result_init(filled.result(), filled.buffer(), t.buffer_size);
  CONTEXT context = t.context;
  context.date.month = context.date.day = context.date.hr = context.date.min = context.date.sec = junk;
  *code = parser(t.zone.data(), t.length, filled.result(), &context);
  fuzz::check_invariants(filled);
  return filled;
}

void check_layout(const trial &t, layout &parser) {
  int code = 0;
  int plain_code = 0;
  int second_code = 0;
  const record filled = attempt(t, parser.library, &code, memory::JUNK);
  const record expected = attempt(t, parser.plain, &plain_code, memory::JUNK);
  const record second = attempt(t, parser.library, &second_code, 0);
  equal("the code", code, plain_code);
  fuzz::check_same(filled, expected);
  equal("the code of a second run", second_code, code);
  fuzz::check_same(second, filled);

  const int used = filled.result()->data_size;
  parser.accepted.seen(code == ERR_OK);
  parser.refused_late.seen(code != ERR_OK && used > 0);
  negative_length.seen(code == ERR_INVALID_ARGS && t.length < 0);
  tight_buffer.seen(code == ERR_OK && used == t.buffer_size);
}

// All parsers on one record in the entry's order, without clearing it in between.
void check_in_turn(const trial &t) {
  record library(t.buffer_size);
  record plain(t.buffer_size);
  result_init(library.result(), library.buffer(), t.buffer_size);
  result_init(plain.result(), plain.buffer(), t.buffer_size);
  for (const layout &parser : LAYOUTS) {
    equal(parser.name, parser.library(t.zone.data(), t.length, library.result(), &t.context),
          parser.plain(t.zone.data(), t.length, plain.result(), &t.context));
    fuzz::check_invariants(library);
    fuzz::check_same(library, plain);
  }
}

void check_null_arguments(const trial &t, layout &parser) {
  record untouched(t.buffer_size);
  result_init(untouched.result(), untouched.buffer(), t.buffer_size);
  equal("no text", parser.library(nullptr, t.length, untouched.result(), &t.context), ERR_INVALID_ARGS);
  equal("no record", parser.library(t.zone.data(), t.length, nullptr, &t.context), ERR_INVALID_ARGS);
  equal("no context", parser.library(t.zone.data(), t.length, untouched.result(), nullptr), ERR_INVALID_ARGS);
  equal("data_size after null arguments", untouched.result()->data_size, 0);
}

// ---- the primitives, on a window of the zone ----

void check_code(const STRING &view) {
  char ours[4] = {'a', 'b', 'c', 'd'};
  char plain[4] = {'a', 'b', 'c', 'd'};
  const int code = MRZ_common_extract_cc(&view, ours);
  equal("MRZ_common_extract_cc", code, reference::MRZ_common_extract_cc(&view, plain));
  equal("the country code", std::string(ours, 4), std::string(plain, 4));
  code_extracted.seen(code == ERR_OK);
}

void check_date(const STRING &view) {
  DATETIME ours = {-1, -2, -3, -4, -5, -6};
  DATETIME plain = ours;
  const int code = MRZ_common_extract_date(&view, &ours);
  equal("MRZ_common_extract_date", code, reference::MRZ_common_extract_date(&view, &plain));
  equal("the date", ours, plain);
  date_extracted.seen(code == ERR_OK);
}

void check_name(const STRING &view, const memory &zone) {
  STRING ours[4] = {{"untouched", 9}, {"untouched", 9}, {"untouched", 9}, {"untouched", 9}};
  STRING plain[4] = {ours[0], ours[1], ours[2], ours[3]};
  const int code = MRZ_common_extract_name(&view, &ours[0], &ours[1], &ours[2], &ours[3]);
  equal("MRZ_common_extract_name", code,
        reference::MRZ_common_extract_name(&view, &plain[0], &plain[1], &plain[2], &plain[3]));
  for (int i = 0; i < 4; ++i) {
    equal("a name's view", fuzz::place_of(ours[i], zone.data()), fuzz::place_of(plain[i], zone.data()));
    holds(code == ERR_INVALID_ARGS || fuzz::is_inside(ours[i], zone), "a name's view lies in the zone");
  }
  name_extracted.seen(code == ERR_OK);
}

void check_control_sum(const STRING &view, int start) {
  int ours = start;
  int plain = start;
  const int sum = MRZ_common_calc_control_sum(view.str, view.len, &ours);
  equal("the control sum", sum, reference::MRZ_common_calc_control_sum(view.str, view.len, &plain));
  equal("the running position", ours, plain);
  fuzz::same(FUZZ_BOTH(MRZ_common_calc_control_sum), view.str, view.len, nullptr);
  for (const char digit :
       {'0', '5', '9', '<', 'A', '\xB9', view.str != nullptr && view.len > 0 ? *view.str : '1'}) {
    for (const int any : {sum, -sum, start - 20000}) {
      fuzz::same(FUZZ_BOTH(MRZ_common_validate_control_sum), any, digit);
    }
  }
  control_sum.seen(sum > 0);
}

void check_primitives(const STRING &view, const trial &t) {
  check_code(view);
  check_date(view);
  check_name(view, t.zone);
  check_control_sum(view, t.position);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const trial t = decode(data, size);
  const std::string before(t.zone.text());
  for (layout &parser : LAYOUTS) {
    try {
      check_layout(t, parser);
      check_null_arguments(t, parser);
    } catch (const fuzz::difference &found) {
      throw fuzz::difference(std::string(parser.name) + ": " + found.what());
    }
  }
  check_in_turn(t);
  const bool sized = t.length == 72 || t.length == 88 || t.length == 90;
  const size_t strange = before.find_first_not_of("<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  outside_alphabet.seen(sized && strange < static_cast<size_t>(t.length));

  check_primitives(t.window, t);
  const STRING windows[] = {{t.zone.data(), 3},       {t.zone.data() + 2, 3},  {t.zone.data() + 5, 31},
                            {t.zone.data() + 5, 39},  {t.zone.data() + 13, 6}, {t.zone.data() + 57, 6},
                            {t.zone.data() + 60, 30}, {t.zone.data(), -1},     {nullptr, 6}};
  for (const STRING &window : windows) {
    if (window.str == nullptr || window.str + window.len <= t.zone.data() + t.zone.size()) {
      check_primitives(window, t);
    }
  }
  equal("the zone afterwards", std::string(t.zone.text()), before);
  holds(t.zone.intact(), "nothing is written outside the zone");
  return 0;
}
