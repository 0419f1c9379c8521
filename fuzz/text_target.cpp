// Trimming, checking, matching, tokenising, comparing and replacing, on texts in guarded memory: a
// sequence of operations decoded from the input, each answered by the library and by the plain
// reading.
#include "harness.hpp"

#include <reference.hpp>

#include <climits>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;

fuzz::behaviour trimmed("a view is trimmed");
fuzz::behaviour trimmed_away("a view is trimmed to nothing");
fuzz::behaviour trimmed_in_place("a buffer is trimmed in place");
fuzz::behaviour check_passes("all characters pass a check");
fuzz::behaviour check_refuses("a check refuses a character");
fuzz::behaviour run_found("a run is found after other text");
fuzz::behaviour run_cut("a run longer than the most asked for is cut");
fuzz::behaviour short_run_at_end("a run shorter than the least asked for is found at the text's end");
fuzz::behaviour no_run("no run is found");
fuzz::behaviour empty_token("an empty token is taken");
fuzz::behaviour nth_token("a token is found by its number");
fuzz::behaviour no_nth_token("there is no token of that number");
fuzz::behaviour many_tokens("a text is split into three tokens or more");
fuzz::behaviour array_filled("a text has more tokens than there is room for");
fuzz::behaviour tokens_removed("some tokens are removed and some kept");
fuzz::behaviour equal_texts("two texts are equal");
fuzz::behaviour same_length_order("texts of one length differ");
fuzz::behaviour case_ignored("texts are equal but for their case");
fuzz::behaviour text_found("a text is found after the start of another");
fuzz::behaviour replaced_longer("a replacement makes a text longer");
fuzz::behaviour replaced_shorter("a replacement makes a text shorter");
fuzz::behaviour replaced_equal("a replacement keeps a text's length");
fuzz::behaviour no_room_to_grow("a replacement stops for want of room");

constexpr STRING UNTOUCHED = {"untouched", 9};

// A text in a block of its own and a view of a part of it, or of nothing.
struct subject {
  explicit subject(fuzz::input &in, int most = 48) : text(in.text(most)) {
    view = STRING{text.data(), text.size()};
    const int kind = in.number(0, 31);
    if (kind == 0) {
      view.str = nullptr;
    } else if (kind == 1) {
      view.len = -in.number(0, 3);
    } else if (kind < 8 && text.size() > 0) {
      const int start = in.number(0, text.size() - 1);
      view = STRING{text.data() + start, in.number(0, text.size() - start)};
    }
    before = text.text();
  }

  // What came out of a view: the same place in both, inside the text, which is only read.
  void check(const char *what, const STRING &ours, const STRING &expected) const {
    equal(what, fuzz::place_of(ours, text.data()), fuzz::place_of(expected, text.data()));
    const bool as_given = ours.str == view.str && ours.len == view.len;
    holds(as_given || ours.str == UNTOUCHED.str || fuzz::is_inside(ours, text),
          "a view lies inside the text");
    equal("the text afterwards", std::string(text.text()), before);
    holds(text.intact(), "nothing is written outside the text");
  }

  memory text;
  STRING view;
  std::string before;
};

// A set of characters, NUL-terminated in a block of its own.
struct char_list {
  explicit char_list(fuzz::input &in) : chars(in.text(4) + '\0') {}
  const char *get() const { return chars.data(); }

  memory chars;
};

// ---- trimming and checks ----

// The three trimmings of a text, by a set or by a predicate.
template <class Dropped>
void trim_by(const subject &from, Dropped dropped, void (*const (&library)[3])(STRING *, Dropped),
             void (*const (&plain)[3])(STRING *, Dropped)) {
  for (int i = 0; i < 3; ++i) {
    STRING ours = from.view;
    STRING expected = from.view;
    library[i](&ours, dropped);
    const std::vector<int> asked = fuzz::take_notes();
    plain[i](&expected, dropped);
    equal("what the predicate was asked", asked, fuzz::take_notes());
    from.check("the trimmed view", ours, expected);
    library[i](nullptr, dropped);
    trimmed.seen(ours.len > 0 && ours.len < from.view.len);
    trimmed_away.seen(from.view.len > 0 && ours.len == 0);
  }
}

void trim(fuzz::input &in) {
  const subject from(in);
  const char_list chars(in);
  trim_by<const char *>(
      from, chars.get(), {utils_strtrim_start, utils_strtrim_end, utils_strtrim},
      {reference::utils_strtrim_start, reference::utils_strtrim_end, reference::utils_strtrim});
}

void trim_f(fuzz::input &in) {
  const subject from(in);
  trim_by<_t_predicate_func>(
      from, fuzz::any_predicate(in), {utils_strtrim_start_f, utils_strtrim_end_f, utils_strtrim_f},
      {reference::utils_strtrim_start_f, reference::utils_strtrim_end_f, reference::utils_strtrim_f});
}

void trim_in_place(fuzz::input &in) {
  memory ours(in.text(48));
  memory expected(ours.text());
  const char_list chars(in);
  const int length = in.number(0, 7) == 0 ? -in.number(0, 3) : in.number(0, ours.size());
  const char *set = in.number(0, 15) == 0 ? nullptr : chars.get();
  const int kept = utils_cstrtrim(ours.data(), length, set);
  equal("utils_cstrtrim", kept, reference::utils_cstrtrim(expected.data(), length, set));
  equal("the trimmed buffer", std::string(ours.text()), std::string(expected.text()));
  holds(ours.intact(), "nothing is written outside the buffer");
  equal("no buffer", utils_cstrtrim(nullptr, length, set), length);
  trimmed_in_place.seen(kept > 0 && kept < length);
}

void check_characters(fuzz::input &in) {
  const subject from(in);
  const _t_predicate_func f = fuzz::any_predicate(in);
  const int answer = fuzz::same(FUZZ_BOTH(utils_strcheck_f), &from.view, f);
  const memory terminated(std::string(from.text.text()) + '\0');
  fuzz::same(FUZZ_BOTH(utils_cstrcheck_f), terminated.data(), f);
  equal("no view", utils_strcheck_f(nullptr, f), -1);
  equal("no text", utils_cstrcheck_f(nullptr, f), -1);
  check_passes.seen(answer == 0 && from.view.len > 0);
  check_refuses.seen(answer > 1);
}

// ---- matching ----

void match(fuzz::input &in) {
  using matcher = int (*)(const STRING *, _t_predicate_func, int, int, STRING *, STRING *);
  constexpr matcher LIBRARY[] = {utils_match_f, utils_match_start_f};
  constexpr matcher PLAIN[] = {reference::utils_match_f, reference::utils_match_start_f};
  const subject from(in);
  const _t_predicate_func f = fuzz::any_predicate(in);
  const int min = in.any_int();
  const int max = in.any_int();
  const bool wants_match = in.number(0, 7) != 0;
  const bool wants_tail = in.number(0, 7) != 0;
  const STRING *source = in.number(0, 15) == 0 ? nullptr : &from.view;
  for (int i = 0; i < 2; ++i) {
    STRING ours[2] = {UNTOUCHED, UNTOUCHED};
    STRING expected[2] = {UNTOUCHED, UNTOUCHED};
    const int found =
        LIBRARY[i](source, f, min, max, wants_match ? &ours[0] : nullptr, wants_tail ? &ours[1] : nullptr);
    const std::vector<int> asked = fuzz::take_notes();
    equal(i == 0 ? "utils_match_f" : "utils_match_start_f", found,
          PLAIN[i](source, f, min, max, wants_match ? &expected[0] : nullptr,
                   wants_tail ? &expected[1] : nullptr));
    equal("what the predicate was asked", asked, fuzz::take_notes());
    from.check("the match", ours[0], expected[0]);
    from.check("the tail", ours[1], expected[1]);
    run_found.seen(i == 0 && found == 1 && ours[0].str > from.view.str && ours[0].len >= min);
    run_cut.seen(found == 1 && wants_tail && ours[0].len == max && ours[1].len > 0);
    short_run_at_end.seen(found == 1 && wants_match && ours[0].len < min);
    no_run.seen(found == 0 && f != nullptr && from.view.len > 0 && min > 0 && max > 0);
  }
}

// ---- tokens ----

void take_token(fuzz::input &in) {
  const subject from(in);
  const char_list delimiters(in);
  const int flags = in.any_int();
  STRING ours[2] = {UNTOUCHED, UNTOUCHED};
  STRING expected[2] = {UNTOUCHED, UNTOUCHED};
  utils_strtok(&from.view, &ours[0], &ours[1], delimiters.get(), flags);
  reference::utils_strtok(&from.view, &expected[0], &expected[1], delimiters.get(), flags);
  from.check("the token", ours[0], expected[0]);
  from.check("the tail", ours[1], expected[1]);
  STRING itself = from.view; // the tail may be the source
  STRING token;
  utils_strtok(&itself, &token, &itself, delimiters.get(), flags);
  from.check("the token when the tail is the source", token, expected[0]);
  from.check("the tail that is the source", itself, expected[1]);
  empty_token.seen(ours[0].len == 0 && ours[1].len > 0);
}

void take_nth_token(fuzz::input &in) {
  const subject from(in);
  const char_list delimiters(in);
  const int number = in.flag() ? in.number(0, 4) : in.any_int();
  const STRING *source = in.number(0, 15) == 0 ? nullptr : &from.view;
  STRING ours = UNTOUCHED;
  STRING expected = UNTOUCHED;
  const int code = utils_strntok(source, &ours, number, delimiters.get());
  equal("utils_strntok", code, reference::utils_strntok(source, &expected, number, delimiters.get()));
  from.check("the numbered token", ours, expected);
  nth_token.seen(code == 0 && number > 0);
  no_nth_token.seen(code == -1 && number > 0 && source != nullptr && from.view.len > 0);
}

// Splits into an array of exactly `room` views, and gives the tokens.
std::vector<STRING> split(const subject &from, const char_list &delimiters, int room, int flags) {
  const size_t size = room > 0 ? static_cast<size_t>(room) : 0;
  std::vector<STRING> tokens(size, UNTOUCHED);
  std::vector<STRING> expected(size, UNTOUCHED);
  STRING nowhere;
  const int count =
      utils_strsplit(&from.view, size > 0 ? tokens.data() : &nowhere, room, delimiters.get(), flags);
  equal("utils_strsplit", count,
        reference::utils_strsplit(&from.view, size > 0 ? expected.data() : &nowhere, room, delimiters.get(),
                                  flags));
  const size_t found = static_cast<size_t>(count);
  holds(count >= 0 && found <= size, "no more tokens than there is room for");
  for (size_t i = 0; i < found; ++i) {
    from.check("a token", tokens[i], expected[i]);
  }
  for (size_t i = found + 1; i < size; ++i) { // one place may be scratch
    holds(tokens[i].str == UNTOUCHED.str, "places after the tokens are left alone");
  }
  tokens.resize(found);
  return tokens;
}

// Texts that are to be removed; some of them are tokens.
std::vector<std::string> any_patterns(const std::vector<STRING> &tokens, fuzz::input &in) {
  std::vector<std::string> patterns;
  for (int i = in.number(0, 3); i > 0; --i) {
    const size_t picked = in.byte();
    patterns.push_back(tokens.empty() || in.flag()
                           ? in.text(4)
                           : std::string(fuzz::text_of(tokens[picked % tokens.size()])));
  }
  return patterns;
}

void split_and_remove(fuzz::input &in) {
  const subject from(in);
  const char_list delimiters(in);
  const int room = in.number(-1, 8);
  const int flags = in.any_int();
  std::vector<STRING> tokens = split(from, delimiters, room, flags);
  many_tokens.seen(tokens.size() >= 3);
  array_filled.seen(static_cast<int>(tokens.size()) == room && room > 0 &&
                    tokens.back().str + tokens.back().len + 1 < from.view.str + from.view.len);

  const std::vector<std::string> texts = any_patterns(tokens, in);
  std::vector<const char *> patterns;
  for (const std::string &text : texts) {
    patterns.push_back(text.c_str());
  }
  std::vector<STRING> expected = tokens;
  const int count = static_cast<int>(tokens.size());
  const int pattern_count = static_cast<int>(patterns.size());
  const int kept = utils_rmtok(tokens.data(), count, patterns.data(), pattern_count);
  equal("utils_rmtok", kept, reference::utils_rmtok(expected.data(), count, patterns.data(), pattern_count));
  for (size_t i = 0; i < static_cast<size_t>(kept); ++i) {
    from.check("a token kept", tokens[i], expected[i]);
  }
  tokens_removed.seen(kept > 0 && kept < count);
}

// ---- comparing and searching ----

// A second text: often the first one with its case changed or one character different.
std::string similar(const subject &other, fuzz::input &in) {
  std::string text(fuzz::text_of(other.view));
  switch (in.number(0, 3)) {
  case 0:
    return in.text(48);
  case 1:
    for (char &c : text) {
      c = static_cast<char>(c ^ (in.flag() ? 0x20 : 0));
    }
    return text;
  case 2:
    if (!text.empty()) {
      text[static_cast<size_t>(in.number(0, static_cast<int>(text.size()) - 1))] =
          static_cast<char>(in.byte());
    }
    return text;
  default:
    return text;
  }
}

void compare(fuzz::input &in) {
  const subject first(in);
  const memory second(similar(first, in));
  STRING view = {second.data(), second.size()};
  if (in.number(0, 15) == 0) {
    view.str = nullptr;
  }
  const STRING *one = in.number(0, 15) == 0 ? nullptr : &first.view;
  const STRING *two = in.number(0, 15) == 0 ? nullptr : &view;
  int answers[2] = {};
  for (const int flags : {0, 1, in.any_int()}) {
    const int answer = fuzz::same(FUZZ_BOTH(utils_tokcmp), one, two, flags);
    fuzz::same(FUZZ_BOTH(utils_tokcmp), two, one, flags);
    answers[flags & 1] = answer;
  }
  const memory terminated(std::string(second.text()) + '\0');
  const char *text = in.number(0, 15) == 0 ? nullptr : terminated.data();
  fuzz::same(FUZZ_BOTH(utils_strcmp), one, text);
  const bool same_length = one != nullptr && two != nullptr && two->str != nullptr && one->str != nullptr &&
                           one->len > 0 && one->len == two->len;
  equal_texts.seen(same_length && answers[0] == 0);
  same_length_order.seen(same_length && answers[1] != 0);
  case_ignored.seen(same_length && answers[0] != 0 && answers[1] == 0);
}

void search(fuzz::input &in) {
  const subject haystack(in);
  const subject needle(in, 4);
  fuzz::same(FUZZ_BOTH(utils_strstr), &haystack.view, &needle.view);
  equal("no haystack", utils_strstr(nullptr, &needle.view), -1);
  equal("no needle", utils_strstr(&haystack.view, nullptr), -1);
  if (haystack.view.str != nullptr && haystack.view.len > 0) {
    const int start = in.number(0, haystack.view.len - 1);
    const STRING part = {haystack.view.str + start, in.number(1, haystack.view.len - start)};
    const int first = fuzz::same(FUZZ_BOTH(utils_strstr), &haystack.view, &part);
    holds(first >= 0 && first <= start, "a part of a text is found, at its place or before");
    text_found.seen(first > 0);
  }
}

// ---- replacing ----

void replace(fuzz::input &in) {
  const std::string text = in.text(48);
  const subject from(in, 3);
  const subject to(in, 5);
  const int length = static_cast<int>(text.size());
  const int max_len = in.number(0, 7) == 0 ? in.number(0, length) : length + in.number(0, 24);
  const int capacity = max_len > length ? max_len : length;
  memory ours(capacity);
  memory expected(capacity);
  text.copy(ours.data(), text.size());
  text.copy(expected.data(), text.size());
  const int given = in.number(0, 15) == 0 ? -in.number(0, 2) : length;
  const int changed = utils_strreplace(ours.data(), given, max_len, &from.view, &to.view);
  equal("utils_strreplace", changed,
        reference::utils_strreplace(expected.data(), given, max_len, &from.view, &to.view));
  const size_t used = changed > 0 ? static_cast<size_t>(changed) : 0;
  equal("the replaced text", std::string(ours.text().substr(0, used)),
        std::string(expected.text().substr(0, used)));
  const size_t high = static_cast<size_t>(changed > length ? changed : length);
  equal("the room after the text", std::string(ours.text().substr(high)),
        std::string(ours.text().size() - high, static_cast<char>(memory::JUNK)));
  holds(ours.intact(), "nothing is written outside the buffer");
  from.check("the text looked for", from.view, from.view);
  to.check("the replacement", to.view, to.view);

  const bool occurs = given > 0 && utils_strstr(&from.view, &from.view) == 0 &&
                      text.find(fuzz::text_of(from.view)) != std::string::npos && to.view.str != nullptr &&
                      to.view.len > 0;
  replaced_longer.seen(occurs && changed > given);
  replaced_shorter.seen(occurs && changed < given);
  replaced_equal.seen(occurs && to.view.len == from.view.len &&
                      std::string(ours.text().substr(0, used)) != text);
  no_room_to_grow.seen(occurs && to.view.len > from.view.len &&
                       ours.text().substr(0, used).find(fuzz::text_of(from.view)) != std::string_view::npos &&
                       changed + to.view.len - from.view.len > max_len);
}

struct operation {
  const char *name;
  void (*run)(fuzz::input &);
};

constexpr operation OPERATIONS[] = {
    {"trimming by a set", trim},
    {"trimming by a predicate", trim_f},
    {"utils_cstrtrim", trim_in_place},
    {"checks", check_characters},
    {"matching", match},
    {"utils_strtok", take_token},
    {"utils_strntok", take_nth_token},
    {"utils_strsplit, utils_rmtok", split_and_remove},
    {"comparing", compare},
    {"utils_strstr", search},
    {"utils_strreplace", replace},
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::input in(data, size);
  while (!in.empty()) {
    const operation &op = OPERATIONS[in.number(0, std::size(OPERATIONS) - 1)];
    try {
      op.run(in);
    } catch (const fuzz::difference &found) {
      throw fuzz::difference(std::string(op.name) + ": " + found.what());
    }
  }
  return 0;
}
