// The whole chain: raw text to the twelve values, through the C entry and export and the C++ API.
#include "harness.hpp"

#include <Varnel/Varnel.hpp>

#include <reference.hpp>

#include <algorithm>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;
using fuzz::record;

fuzz::behaviour td1_accepted("a TD1 card is accepted");
fuzz::behaviour td2_accepted("a TD2 card is accepted");
fuzz::behaviour td3_accepted("a TD3 passport is accepted");
fuzz::behaviour long_visa_accepted("a visa of 44 characters a line is accepted");
fuzz::behaviour short_visa_accepted("a visa of 36 characters a line is accepted");
fuzz::behaviour empty_text("a text of no characters is refused as an argument");
fuzz::behaviour wrong_length("a zone of no layout's length is refused");
fuzz::behaviour slots_left_behind("a refused zone leaves slots behind");
fuzz::behaviour small_letters("a zone in lowercase letters is accepted");
fuzz::behaviour units_differ("a text has more bytes than UTF-16 units");
fuzz::behaviour cut_text("a text is longer than what is examined");
fuzz::behaviour full_buffer("a document's values do not fit the buffer");

struct answer {
  int code;
  record filled;
};

using entry_function = int (*)(const char *, int, PARSE_RESULT *, char *, int);

answer parse(entry_function entry, const memory &text, int length, int buffer_size,
             unsigned char junk = memory::JUNK) {
  answer given = {0, record(buffer_size, junk)};
  given.code = entry(text.data(), length, given.filled.result(), given.filled.buffer(), buffer_size);
  fuzz::check_invariants(given.filled);
  return given;
}

void check_same_answer(const answer &library, const answer &expected) {
  equal("the entry's code", library.code, expected.code);
  fuzz::check_same(library.filled, expected.filled);
}

// The library's answer, checked against the plain one, a second run and a record of other junk.
answer checked_parse(const memory &text, int length, int buffer_size) {
  answer given = parse(varnel_parse_mrz, text, length, buffer_size);
  check_same_answer(given, parse(reference::parse_mrz, text, length, buffer_size));
  check_same_answer(parse(varnel_parse_mrz, text, length, buffer_size), given);
  check_same_answer(parse(varnel_parse_mrz, text, length, buffer_size, 0), given);
  return given;
}

// The export: twelve keys in order, values inside the buffer, as the plain export has them.
void check_export(const answer &given, VARNEL_PAIR (&pairs)[VARNEL_VALUE_COUNT]) {
  equal("the export's code", varnel_export(given.filled.result(), pairs), ERR_OK);
  const auto expected = reference::export_values(given.filled.result());
  for (size_t i = 0; i < expected.size(); ++i) {
    equal("an exported key", std::string(pairs[i].key), expected[i].first);
    holds(pairs[i].value.str != nullptr && pairs[i].value.len >= 0, "an exported value is never null");
    holds(pairs[i].value.len == 0 || fuzz::is_inside(pairs[i].value, given.filled.lent()),
          "an exported value lies in the record's buffer");
    equal(pairs[i].key, std::string(fuzz::text_of(pairs[i].value)), expected[i].second);
  }
}

void check_document(const varnel::document &read, const VARNEL_PAIR (&pairs)[VARNEL_VALUE_COUNT]) {
  size_t i = 0;
  for (const auto [key, value] : read) {
    equal("a key of the C++ API", std::string(key), std::string(pairs[i].key));
    equal(pairs[i].key, std::string(value), std::string(fuzz::text_of(pairs[i].value)));
    holds(read.get(key).has_value(), "the C++ API finds its own keys");
    equal("a value by its key", std::string(*read.get(key)), std::string(value));
    ++i;
  }
  equal("the number of values", static_cast<int>(i), static_cast<int>(VARNEL_VALUE_COUNT));
  holds(!read.get("").has_value() && !read.get("firstname").has_value(), "other keys have no value");
}

// The C++ API says the same, also of a copy.
void check_cpp_api(const memory &text, const answer &given, const VARNEL_PAIR (&pairs)[VARNEL_VALUE_COUNT]) {
  holds(!varnel::parse_mrz(std::string_view()).has_value(), "no text is no document");
  const std::optional<varnel::document> read = varnel::parse_mrz(text.text());
  equal("whether the C++ API reads it", read.has_value(), given.code == ERR_OK);
  if (read.has_value()) {
    const varnel::document copy = *read;
    check_document(*read, pairs);
    check_document(copy, pairs);
  }
}

void check_normaliser(const memory &text, int length, int room) {
  memory ours(room);
  memory plain(room);
  int our_length = -7;
  int plain_length = -7;
  const int code = normalize_mrz(text.data(), length, ours.data(), room, &our_length);
  equal("normalize_mrz", code,
        reference::normalize_mrz(text.data(), length, plain.data(), room, &plain_length));
  equal("the normalised length", our_length, plain_length);
  holds(ours.intact(), "nothing is written outside the normaliser's output");
  const size_t written = code == ERR_OK ? static_cast<size_t>(our_length) + 1 : static_cast<size_t>(room);
  equal("the normalised text", ours.text().substr(0, written), plain.text().substr(0, written));
}

void note_acceptance(const answer &given, const memory &text, int units) {
  char zone[VARNEL_EXAMINED_MAX + 1];
  int length = 0;
  reference::normalize_mrz(text.data(), units, zone, sizeof zone, &length);
  const bool visa = zone[0] == 'V';
  td1_accepted.seen(length == 90);
  td2_accepted.seen(length == 72 && !visa);
  td3_accepted.seen(length == 88 && !visa);
  long_visa_accepted.seen(length == 88 && visa);
  short_visa_accepted.seen(length == 72 && visa);
  small_letters.seen(text.text().find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos);
  holds(fuzz::text_of(varnel_value(given.filled.result(), FIELD_DOCUMENT_TYPE)) ==
            (length == 88 && !visa ? "PASSPORT" : "TD"),
        "an accepted document has its type");
}

void note_refusal(const answer &given) {
  empty_text.seen(given.code == ERR_INVALID_ARGS);
  wrong_length.seen(given.code == ERR_INVALID_FORMAT && given.filled.result()->data_size == 0);
  slots_left_behind.seen(given.code == ERR_INVALID_FORMAT && given.filled.result()->data_size > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const memory text(std::string_view(reinterpret_cast<const char *>(data), size));
  const int units = varnel_utf16_length(text.data(), size);
  const int all_units = reference::varnel_utf16_length(text.data(), size);
  equal("varnel_utf16_length", units, std::min<int>(all_units, VARNEL_EXAMINED_MAX));
  units_differ.seen(units < text.size() && units < VARNEL_EXAMINED_MAX);
  cut_text.seen(size > VARNEL_EXAMINED_MAX);

  const answer given = checked_parse(text, units, VARNEL_BUFFER_SIZE);
  VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
  check_export(given, pairs);
  check_cpp_api(text, given, pairs);
  if (given.code == ERR_OK) {
    note_acceptance(given, text, units);
  } else {
    note_refusal(given);
  }

  // One more length and buffer size, picked by the text itself, so that all of them come up.
  unsigned picked = 0;
  for (size_t i = 0; i < size; ++i) {
    picked = picked * 31 + data[i];
  }
  const int shorter = static_cast<int>(picked % (size + 1));
  const int small = 1 + static_cast<int>(picked / 7 % 160);
  const answer crowded = checked_parse(text, units, small);
  equal("the code whatever the buffer's size", crowded.code, given.code);
  full_buffer.seen(crowded.code == ERR_OK && small < given.filled.result()->data_size);
  checked_parse(text, shorter, VARNEL_BUFFER_SIZE);
  check_export(crowded, pairs);
  for (const int length : {text.size(), shorter, 0, -shorter}) {
    for (const int room : {VARNEL_EXAMINED_MAX + 1, small, 2, 1, 0}) {
      check_normaliser(text, length, room);
    }
  }
  holds(text.intact() && text.text() == std::string_view(reinterpret_cast<const char *>(data), size),
        "the text is only read");
  return 0;
}
