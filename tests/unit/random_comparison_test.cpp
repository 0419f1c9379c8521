// The library against its plain reading in tests/reference, on many random inputs.
//
// Alphabets are small so that characters meet: repeats, fillers, delimiters and occurrences abound. Every
// text lies in memory of exactly its size and every output between guard bytes. The seed is new in each
// run and printed; VARNEL_TEST_SEED=<number> runs the same inputs again.
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "predicates.hpp"
#include "reference.hpp"
#include "support.hpp"

using namespace std::string_view_literals;
using support::Exact;
using support::Lent;
using support::Record;
using support::shown;

namespace {

unsigned long seed_of_this_run() {
  static const unsigned long seed = [] {
    const char *given = std::getenv("VARNEL_TEST_SEED");
    const unsigned long chosen = given != nullptr ? std::strtoul(given, nullptr, 0) : std::random_device()();
    std::printf("VARNEL_TEST_SEED=%lu\n", chosen);
    return chosen;
  }();
  return seed;
}

class Random {
public:
  Random() : engine_(seed_of_this_run()) {}

  // A number from low to high, both included.
  int number(int low, int high) {
    return low + static_cast<int>(engine_() % (static_cast<std::uint64_t>(high - low) + 1));
  }
  bool one_in(int n) { return number(1, n) == 1; }
  // A number of any size: as many bits as drawn first.
  std::uint64_t bits() {
    const int count = number(0, 64);
    return count == 0 ? 0 : engine_() >> (64 - count);
  }
  char character(std::string_view alphabet) { return alphabet[engine_() % alphabet.size()]; }
  std::string text(int max_length, std::string_view alphabet) {
    std::string drawn(static_cast<std::size_t>(number(0, max_length)), ' ');
    for (char &c : drawn)
      c = character(alphabet);
    return drawn;
  }
  template <typename T, std::size_t n> const T &pick(const T (&choices)[n]) { return choices[engine_() % n]; }

private:
  std::mt19937_64 engine_;
};

// Texts of the utilities: fillers, blanks, and some of what may go wrong.
constexpr std::string_view alphabets[] = {"A<"sv, "AB<"sv, "AB< "sv, "Aa1 <,"sv, "\0A<\x80\xFF "sv};

// A set of characters, sometimes null or empty. Never holds a NUL.
struct Set {
  explicit Set(Random &random) : null(random.one_in(6)), chars(random.text(3, "< A1,\x80\xFF")) {}
  const char *get() const { return null ? nullptr : chars.c_str(); }
  bool null;
  std::string chars;
};

int is_filler(int c) { return c == '<'; }
int is_blank(int c) { return c == ' ' ? -1 : 0; }
int is_letter_a(int c) { return c == 'A' || c == 'a' ? 256 : 0; }
int is_digit(int c) { return c >= '0' && c <= '9'; }
int is_negative(int c) { return c < 0; }
int always(int) { return 1; }
int never(int) { return 0; }

constexpr _t_predicate_func predicates[] = {is_filler,   is_blank, is_letter_a, is_digit,
                                            is_negative, always,   never};

_t_predicate_func predicate_or_null(Random &random) {
  return random.one_in(6) ? nullptr : random.pick(predicates);
}

bool same(const STRING &a, const STRING &b) { return a.str == b.str && a.len == b.len; }

// ---- copiers ----------------------------------------------------------------------------------------

TEST(RandomComparison, Copiers) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const std::string text = random.text(12, random.pick(alphabets));
    const Exact source(text);
    const STRING src = source.view();
    const Set removed(random);
    const Set duplicate(random);
    const _t_predicate_func removed_f = predicate_or_null(random);
    const _t_predicate_func duplicate_f = predicate_or_null(random);
    const char rep = random.character("\0\0 <A\x80"sv);
    const int room = random.number(0, 14);
    const std::string c_text = text.substr(0, text.find('\0'));
    const int kind = random.number(0, 4);
    const auto copy = [&](bool library, char *out) {
      switch (kind) {
      case 0:
        return library ? utils_strcpy(out, room, &src, removed.get(), duplicate.get(), rep)
                       : reference::utils_strcpy(out, room, &src, removed.get(), duplicate.get(), rep);
      case 1:
        return library ? utils_strcpy_f(out, room, &src, removed_f, duplicate_f, rep)
                       : reference::utils_strcpy_f(out, room, &src, removed_f, duplicate_f, rep);
      case 2:
        return library ? utils_strwrite(out, room, &src, removed.get(), duplicate.get(), rep)
                       : reference::utils_strwrite(out, room, &src, removed.get(), duplicate.get(), rep);
      case 3:
        return library ? utils_strwrite_f(out, room, &src, removed_f, duplicate_f, rep)
                       : reference::utils_strwrite_f(out, room, &src, removed_f, duplicate_f, rep);
      default:
        return library ? utils_strwrite_s(out, room, c_text.c_str())
                       : reference::utils_strwrite_s(out, room, c_text.c_str());
      }
    };
    Lent out(room);
    Lent expected(room);
    const int n = copy(true, out.data());
    const int m = copy(false, expected.data());
    ASSERT_TRUE(n == m && out.bytes() == expected.bytes() && out.guards_intact())
        << "copier " << kind << " of \"" << shown(text) << "\", removed \"" << removed.chars
        << "\", duplicate \"" << duplicate.chars << "\", room " << room << ": " << n << " \"" << out.shown()
        << "\", expected " << m << " \"" << expected.shown() << '"';
  }
}

// Up to four texts, some of them empty or null.
class Parts {
public:
  explicit Parts(Random &random) {
    const int count = random.number(0, 4);
    for (int i = 0; i < count; i += 1) {
      texts_.emplace_back(random.text(5, random.pick(alphabets)));
      views_.push_back(texts_.back().view());
      if (random.one_in(10))
        views_.back().str = nullptr;
      if (random.one_in(10))
        views_.back().len = -1;
    }
  }
  const STRING *data() const { return views_.data(); }
  int count() const { return static_cast<int>(views_.size()); }

private:
  std::vector<Exact> texts_;
  std::vector<STRING> views_;
};

TEST(RandomComparison, CopiersOfSeveralTexts) {
  Random random;
  for (int round = 0; round < 20000; round += 1) {
    const Parts parts(random);
    const Set removed(random);
    const Set duplicate(random);
    const char rep = random.character("\0 <A"sv);
    const char sep = random.character("\0 </A"sv);
    const int room = random.number(0, 20);
    const bool terminated = random.one_in(2);
    Lent out(room);
    Lent expected(room);
    const auto copy = terminated ? utils_strwrite_array : utils_strcpy_array;
    const auto plain = terminated ? reference::utils_strwrite_array : reference::utils_strcpy_array;
    const int n =
        copy(out.data(), room, parts.data(), parts.count(), sep, removed.get(), duplicate.get(), rep);
    const int m =
        plain(expected.data(), room, parts.data(), parts.count(), sep, removed.get(), duplicate.get(), rep);
    ASSERT_TRUE(n == m && out.bytes() == expected.bytes() && out.guards_intact())
        << "round " << round << ", room " << room << ": " << n << " \"" << out.shown() << "\", expected " << m
        << " \"" << expected.shown() << '"';
  }
}

// ---- slot writers -----------------------------------------------------------------------------------

// Whether two records over buffers of their own hold the same, byte by byte and slot by slot.
::testing::AssertionResult same_records(const Record &library, const Record &plain, const PARSE_RESULT &a,
                                        const PARSE_RESULT &b) {
  if (a.parser_type != b.parser_type || a.parser != b.parser || a.buffer_size != b.buffer_size)
    return ::testing::AssertionFailure() << "the record's own members differ";
  if (a.data_size != b.data_size)
    return ::testing::AssertionFailure() << "data_size " << a.data_size << ", expected " << b.data_size;
  for (int field = 0; field < FIELD_COUNT; field += 1)
    if (library.offset(field) != plain.offset(field) ||
        a.fields[field].value.len != b.fields[field].value.len)
      return ::testing::AssertionFailure() << "slot " << field << " is \"" << shown(library.value(field))
                                           << "\" at " << library.offset(field) << ", expected \""
                                           << shown(plain.value(field)) << "\" at " << plain.offset(field);
  if (library.bytes() != plain.bytes())
    return ::testing::AssertionFailure()
           << "the buffer is \"" << library.shown() << "\", expected \"" << plain.shown() << '"';
  if (!library.guards_intact())
    return ::testing::AssertionFailure() << "written outside the buffer";
  return ::testing::AssertionSuccess();
}

int write_hashes(void *data, char *out, int room) {
  const int wanted = *static_cast<int *>(data);
  const int n = wanted < room ? wanted : room;
  for (int i = 0; i < n; i += 1)
    out[i] = '#';
  return n;
}

DATETIME random_date(Random &random) {
  return DATETIME{random.pick({2018, 1974, 0, 99, 9999, 10000, -1, -999, -1000, INT_MAX, INT_MIN}),
                  random.number(-1, 101),
                  random.number(-11, 101),
                  0,
                  0,
                  0};
}

TEST(RandomComparison, SlotWriters) {
  Random random;
  for (int round = 0; round < 3000; round += 1) {
    const int size = random.number(1, 40);
    Record library(size);
    Record plain(size);
    for (int step = 0; step < 10; step += 1) {
      const int field = random.one_in(10) ? random.pick({-1, 139, INT_MIN, INT_MAX}) : random.number(0, 138);
      const std::string text = random.text(10, random.pick(alphabets));
      const std::string c_text = text.substr(0, text.find('\0'));
      const Exact source(text);
      const STRING src = source.view();
      const Parts parts(random);
      const Set removed(random);
      const Set duplicate(random);
      const _t_predicate_func removed_f = predicate_or_null(random);
      const _t_predicate_func duplicate_f = predicate_or_null(random);
      const char rep = random.character("\0 <A"sv);
      const DATETIME date = random_date(random);
      int length = random.number(-1, 10);
      FIELD *slot = nullptr;
      FIELD *expected = nullptr;
      const int kind = random.number(0, 5);
      switch (kind) {
      case 0:
        slot = utils_write_field(library.get(), field, &src, removed.get(), duplicate.get(), rep);
        expected =
            reference::utils_write_field(plain.get(), field, &src, removed.get(), duplicate.get(), rep);
        break;
      case 1:
        slot = utils_write_field_f(library.get(), field, &src, removed_f, duplicate_f, rep);
        expected = reference::utils_write_field_f(plain.get(), field, &src, removed_f, duplicate_f, rep);
        break;
      case 2:
        slot = utils_write_field_s(library.get(), field, c_text.c_str());
        expected = reference::utils_write_field_s(plain.get(), field, c_text.c_str());
        break;
      case 3:
        slot = utils_write_field_w(library.get(), field, &length, write_hashes);
        expected = reference::utils_write_field_w(plain.get(), field, &length, write_hashes);
        break;
      case 4:
        slot = utils_write_field_array(library.get(), field, parts.data(), parts.count(), '/', removed.get(),
                                       duplicate.get(), rep);
        expected = reference::utils_write_field_array(plain.get(), field, parts.data(), parts.count(), '/',
                                                      removed.get(), duplicate.get(), rep);
        break;
      default:
        slot = utils_write_field_date(library.get(), field, &date);
        expected = reference::utils_write_field_date(plain.get(), field, &date);
        break;
      }
      ASSERT_EQ(slot == nullptr, expected == nullptr) << "writer " << kind << ", slot " << field;
      if (slot != nullptr) {
        ASSERT_EQ(slot, library.slot(field));
      }
      ASSERT_TRUE(same_records(library, plain, *library.get(), *plain.get()))
          << "after writer " << kind << " of \"" << shown(text) << "\" into slot " << field;
    }
  }
}

TEST(RandomComparison, NumbersAndPrefixes) {
  Random random;
  for (int round = 0; round < 20000; round += 1) {
    const std::int64_t num = static_cast<std::int64_t>(random.bits()) * (random.one_in(2) ? 1 : -1);
    const int room = random.number(0, 22);
    const int pad = random.number(-2, 3);
    if (num != INT64_MIN) {
      Lent out(room);
      Lent expected(room);
      const int n = utils_itoa(num, out.data(), room, pad);
      ASSERT_EQ(n, reference::utils_itoa(num, expected.data(), room, pad)) << num << " in " << room;
      ASSERT_EQ(out.bytes(), expected.bytes()) << num << " in " << room;
      ASSERT_TRUE(out.guards_intact()) << num << " in " << room;
    }
    const int n = static_cast<int>(random.bits());
    ASSERT_EQ(utils_itoch(n), reference::utils_itoch(n)) << n;
    ASSERT_EQ(utils_itoch(n % 16), reference::utils_itoch(n % 16)) << n % 16;

    const Exact text(random.text(6, "ABC"));
    STRING s = text.view();
    STRING expected = s;
    const int begin = random.number(-2, 8);
    utils_strtrim_begin(&s, begin);
    reference::utils_strtrim_begin(&expected, begin);
    ASSERT_TRUE(same(s, expected)) << text.size() << " from " << begin;
  }
}

// ---- trimming and checks ----------------------------------------------------------------------------

TEST(RandomComparison, TrimmingAndChecks) {
  Random random;
  for (int round = 0; round < 20000; round += 1) {
    const std::string text = random.text(10, random.pick(alphabets));
    const Exact source(text);
    const std::string chars = random.text(3, "< A\x80\xFF");
    const _t_predicate_func f = predicate_or_null(random);
    const std::string trace = '"' + shown(text) + "\" by \"" + chars + '"';

    constexpr void (*by_set[])(STRING *, const char *) = {utils_strtrim_start, utils_strtrim_end,
                                                          utils_strtrim};
    constexpr void (*plain_by_set[])(STRING *, const char *) = {
        reference::utils_strtrim_start, reference::utils_strtrim_end, reference::utils_strtrim};
    constexpr void (*by_f[])(STRING *, _t_predicate_func) = {utils_strtrim_start_f, utils_strtrim_end_f,
                                                             utils_strtrim_f};
    constexpr void (*plain_by_f[])(STRING *, _t_predicate_func) = {
        reference::utils_strtrim_start_f, reference::utils_strtrim_end_f, reference::utils_strtrim_f};
    for (int kind = 0; kind < 3; kind += 1) {
      STRING s = source.view();
      STRING expected = source.view();
      by_set[kind](&s, chars.c_str());
      plain_by_set[kind](&expected, chars.c_str());
      ASSERT_TRUE(same(s, expected)) << trace;
      s = source.view();
      expected = source.view();
      by_f[kind](&s, f);
      plain_by_f[kind](&expected, f);
      ASSERT_TRUE(same(s, expected)) << trace;
    }

    const STRING s = source.view();
    ASSERT_EQ(utils_strcheck_f(&s, f), reference::utils_strcheck_f(&s, f)) << trace;
    ASSERT_EQ(utils_cstrcheck_f(text.c_str(), f), reference::utils_cstrcheck_f(text.c_str(), f)) << trace;

    Lent buffer(source.size());
    Lent expected(source.size());
    text.copy(buffer.data(), text.size());
    text.copy(expected.data(), text.size());
    const int len = random.number(-1, source.size());
    ASSERT_EQ(utils_cstrtrim(buffer.data(), len, chars.c_str()),
              reference::utils_cstrtrim(expected.data(), len, chars.c_str()))
        << trace;
    ASSERT_EQ(buffer.bytes(), expected.bytes()) << trace;
    ASSERT_TRUE(buffer.guards_intact()) << trace;
  }
}

// ---- matching, tokenising, replacing ----------------------------------------------------------------

TEST(RandomComparison, Matching) {
  Random random;
  const STRING before = {"before", 6};
  for (int round = 0; round < 40000; round += 1) {
    const std::string text = random.text(10, random.pick({"1A"sv, "11A"sv, "1AA \x80"sv}));
    const Exact source(text);
    const STRING s = source.view();
    const _t_predicate_func f = random.one_in(4) ? predicate_or_null(random) : is_digit;
    const int min = random.number(-1, 5);
    const int max = random.number(-1, 6);
    const bool start = random.one_in(2);
    STRING match = before, tail = before, expected_match = before, expected_tail = before;
    const int found = (start ? utils_match_start_f : utils_match_f)(&s, f, min, max, &match, &tail);
    const int expected = (start ? reference::utils_match_start_f
                                : reference::utils_match_f)(&s, f, min, max, &expected_match, &expected_tail);
    ASSERT_TRUE(found == expected && same(match, expected_match) && same(tail, expected_tail))
        << '"' << shown(text) << "\" " << min << " to " << max << (start ? " at the start" : "");
  }
}

TEST(RandomComparison, Tokenising) {
  Random random;
  for (int round = 0; round < 30000; round += 1) {
    const std::string text = random.text(10, random.pick(alphabets));
    const Exact source(text);
    const STRING s = source.view();
    const std::string delimiters = random.text(2, "<, \xFF");
    const int flags = random.number(-1, 3);
    const std::string trace =
        '"' + shown(text) + "\" at \"" + delimiters + "\", flags " + std::to_string(flags);

    STRING token, expected_token, expected_tail;
    STRING tail = s;
    utils_strtok(random.one_in(2) ? &s : &tail, &token, &tail, delimiters.c_str(), flags);
    reference::utils_strtok(&s, &expected_token, &expected_tail, delimiters.c_str(), flags);
    ASSERT_TRUE(same(token, expected_token) && same(tail, expected_tail)) << trace;

    const int num = random.number(-1, 4);
    STRING out = {"before", 6};
    STRING expected_out = out;
    ASSERT_EQ(utils_strntok(&s, &out, num, delimiters.c_str()),
              reference::utils_strntok(&s, &expected_out, num, delimiters.c_str()))
        << trace << ", number " << num;
    ASSERT_TRUE(same(out, expected_out)) << trace << ", number " << num;

    const int capacity = random.number(-1, 6);
    std::vector<STRING> tokens(8, STRING{"before", 6});
    std::vector<STRING> expected_tokens = tokens;
    const int n = utils_strsplit(&s, tokens.data(), capacity, delimiters.c_str(), flags);
    ASSERT_EQ(n, reference::utils_strsplit(&s, expected_tokens.data(), capacity, delimiters.c_str(), flags))
        << trace << ", capacity " << capacity;
    for (std::size_t i = 0; i < tokens.size(); i += 1) {
      const bool scratch =
          static_cast<int>(i) == n && n < capacity; // may hold an empty token that was dropped
      ASSERT_TRUE(scratch || same(tokens[i], expected_tokens[i])) << trace << ", token " << i;
    }

    std::vector<std::string> pattern_texts = {random.text(1, "A<"), random.text(2, "AB")};
    const char *patterns[] = {pattern_texts[0].c_str(), pattern_texts[1].c_str()};
    tokens = expected_tokens;
    const int kept = utils_rmtok(tokens.data(), n, patterns, 2);
    ASSERT_EQ(kept, reference::utils_rmtok(expected_tokens.data(), n, patterns, 2)) << trace;
    for (std::size_t i = 0; i < tokens.size(); i += 1)
      ASSERT_TRUE(same(tokens[i], expected_tokens[i])) << trace << ", kept token " << i;
  }
}

TEST(RandomComparison, ComparingAndSearching) {
  Random random;
  constexpr std::string_view letters[] = {"aA"sv, "aAbB"sv, "aA[_\x80"sv, "\0A"sv};
  for (int round = 0; round < 40000; round += 1) {
    const std::string_view alphabet = random.pick(letters);
    const Exact first(random.text(random.one_in(2) ? 3 : 12, alphabet));
    const Exact second(random.text(3, alphabet));
    STRING a = first.view();
    STRING b = second.view();
    if (random.one_in(20))
      a.str = nullptr;
    if (random.one_in(20))
      b.str = nullptr;
    const STRING *pa = random.one_in(40) ? nullptr : &a;
    const STRING *pb = random.one_in(40) ? nullptr : &b;
    const std::string trace = shown(support::text(a)) + " and " + shown(support::text(b));
    const int flags = random.number(-1, 3);
    ASSERT_EQ(utils_tokcmp(pa, pb, flags), reference::utils_tokcmp(pa, pb, flags))
        << trace << " flags " << flags;
    ASSERT_EQ(utils_strstr(pa, pb), reference::utils_strstr(pa, pb)) << trace;
    const std::string c_text = support::text(b);
    const char *str = pb == nullptr ? nullptr : c_text.c_str();
    ASSERT_EQ(utils_strcmp(pa, str), reference::utils_strcmp(pa, str)) << trace;
  }
}

TEST(RandomComparison, Replacing) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const std::string_view alphabet = random.pick({"a"sv, "ab"sv, "abc"sv});
    const std::string text = random.text(12, alphabet);
    const int max_len = random.number(0, 24);
    const Exact from_text(random.text(3, alphabet));
    const Exact to_text(random.text(4, alphabet));
    const STRING from = from_text.view();
    const STRING to = to_text.view();
    const int len = static_cast<int>(text.size());
    Lent buffer(max_len > len ? max_len : len);
    Lent expected(buffer.size());
    text.copy(buffer.data(), text.size());
    text.copy(expected.data(), text.size());
    const int n = utils_strreplace(buffer.data(), len, max_len, &from, &to);
    const int m = reference::utils_strreplace(expected.data(), len, max_len, &from, &to);
    const std::size_t longest = static_cast<std::size_t>(n > len ? n : len);
    ASSERT_TRUE(n == m &&
                buffer.bytes().substr(0, static_cast<std::size_t>(n)) ==
                    expected.bytes().substr(0, static_cast<std::size_t>(m)) &&
                buffer.bytes().substr(longest) == expected.bytes().substr(longest) && buffer.guards_intact())
        << '"' << text << "\": \"" << support::text(from) << "\" to \"" << support::text(to) << "\" in "
        << max_len << ": " << n << " \"" << buffer.shown() << "\", expected " << m << " \""
        << expected.shown() << '"';
  }
}

// ---- dates, Soundex, classes, tables ----------------------------------------------------------------

bool same(const DATETIME &a, const DATETIME &b) { return std::memcmp(&a, &b, sizeof a) == 0; }

std::string trace_of(const DATETIME &date) {
  return std::to_string(date.year) + '-' + std::to_string(date.month) + '-' + std::to_string(date.day) + ' ' +
         std::to_string(date.hr) + ':' + std::to_string(date.min) + ':' + std::to_string(date.sec);
}

TEST(RandomComparison, Dates) {
  Random random;
  const DATETIME before = {-1, -2, -3, -4, -5, -6};
  for (int round = 0; round < 40000; round += 1) {
    std::string text = random.text(10, random.pick({"0123"sv, "0129"sv, "01289 +-\t\0A"sv}));
    if (random.one_in(2))
      text.replace(0, text.size() < 2 ? text.size() : 2, random.pick({"18"sv, "19"sv, "20"sv, "12"sv}));
    const Exact source(text);
    const STRING s = source.view();
    DATETIME date = before;
    DATETIME expected = before;
    ASSERT_EQ(utils_parse_date(&s, &date), reference::utils_parse_date(&s, &expected)) << shown(text);
    ASSERT_TRUE(same(date, expected)) << shown(text) << " gives " << trace_of(date);

    const DATETIME any = {random.pick({999, 1000, 1799, 1800, 2018, 9999, 10000, -1, 0}),
                          random.number(-1, 14),
                          random.number(-1, 33),
                          random.number(-1, 25),
                          random.number(-1, 61),
                          random.number(-1, 61)};
    ASSERT_EQ(utils_validate_date(&any), reference::utils_validate_date(&any)) << trace_of(any);
    const int year = random.one_in(8) ? static_cast<int>(random.bits()) : random.number(1590, 2410);
    ASSERT_EQ(utils_validate_days_in_month(year, any.month, any.day),
              reference::utils_validate_days_in_month(year, any.month, any.day))
        << year << ' ' << trace_of(any);

    const std::uint64_t days =
        random.one_in(4) ? random.bits() : static_cast<std::uint64_t>(random.number(0, 3000000));
    date = before;
    expected = before;
    ASSERT_EQ(utils_days2date(days, &date), reference::utils_days2date(days, &expected)) << days;
    ASSERT_TRUE(same(date, expected))
        << days << " gives " << trace_of(date) << ", expected " << trace_of(expected);
  }
}

TEST(RandomComparison, Soundex) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const std::string_view alphabet =
        random.pick({"AEHWYBFPVCGJKQSXZDTLMNR"sv, "abchwyst"sv, "SsHhAa"sv, "Ab '-<1\xC9\0"sv});
    const std::string text = random.text(8, alphabet);
    const Exact source(text);
    const STRING s = source.view();
    SOUNDEX_CODE code = {'.', {'.', '.', '.'}};
    SOUNDEX_CODE expected = code;
    ASSERT_EQ(utils_soundex_encode(&s, &code), reference::utils_soundex_encode(&s, &expected)) << shown(text);
    ASSERT_EQ(std::memcmp(&code, &expected, sizeof code), 0) << shown(text);
    ASSERT_EQ(utils_soundex_encode_str(text.c_str(), &code),
              reference::utils_soundex_encode_str(text.c_str(), &expected))
        << shown(text);
    ASSERT_EQ(std::memcmp(&code, &expected, sizeof code), 0) << shown(text);
  }
}

TEST(RandomComparison, CharacterClasses) {
  Random random;
  for (const reference::predicate &one : reference::PREDICATES) {
    for (int c = -128; c <= 255; c += 1)
      ASSERT_EQ(one.library(c), one.plain(c)) << one.name << ' ' << c;
    for (int round = 0; round < 1000; round += 1) {
      const int c = static_cast<int>(random.bits());
      ASSERT_EQ(one.library(c), one.plain(c)) << one.name << ' ' << c;
    }
  }
}

TEST(RandomComparison, TableLookup) {
  Random random;
  const struct {
    const MAPPING *rows;
    int size;
  } tables[] = {{MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE},
                {MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE},
                {MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE},
                {MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE},
                {MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE}};
  for (int round = 0; round < 20000; round += 1) {
    const auto &table = random.pick(tables);
    const int size = random.one_in(8) ? random.number(-1, table.size) : table.size;
    const int barcode = random.one_in(8) ? static_cast<int>(random.bits())
                                         : 0x440000 + random.number('A', 'D') * 256 + random.number('A', 'Z');
    int position = random.one_in(3) ? random.number(0, table.size + 2) : 0;
    int expected = position;
    ASSERT_EQ(utils_barcode2fieldtype(barcode, table.rows, size, &position),
              reference::utils_barcode2fieldtype(barcode, table.rows, size, &expected))
        << barcode;
    ASSERT_EQ(position, expected) << barcode;
    ASSERT_EQ(utils_barcode2fieldtype(barcode, table.rows, size, nullptr),
              reference::utils_barcode2fieldtype(barcode, table.rows, size, nullptr))
        << barcode;
  }
}

// ---- machine-readable zones -------------------------------------------------------------------------

TEST(RandomComparison, CheckDigitSums) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const Exact text(random.text(12, random.pick({"0123456789"sv, "ABYZ019<"sv, "AZ09<a -\x80\0"sv})));
    const int len = random.number(-1, text.size());
    int pos = random.number(0, 10);
    int expected_pos = pos;
    ASSERT_EQ(MRZ_common_calc_control_sum(text.data(), len, &pos),
              reference::MRZ_common_calc_control_sum(text.data(), len, &expected_pos));
    ASSERT_EQ(pos, expected_pos);
    const int sum = MRZ_common_calc_control_sum(text.data(), len, nullptr);
    ASSERT_EQ(sum, reference::MRZ_common_calc_control_sum(text.data(), len, nullptr));
    const int any_sum = random.one_in(4) ? static_cast<int>(random.bits()) : random.number(-30, 400);
    const char c = random.character("0123456789<A/: \x80\0"sv);
    ASSERT_EQ(MRZ_common_validate_control_sum(any_sum, c),
              reference::MRZ_common_validate_control_sum(any_sum, c))
        << any_sum << ' ' << c;
  }
}

TEST(RandomComparison, Extractors) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const std::string text = random.text(
        random.one_in(2) ? 7 : 20,
        random.pick({"A<"sv, "AB<<"sv, "0123456789"sv, "ABCDEFGHI<"sv, "A<0"sv, "AAAAA<a \x80"sv}));
    const Exact source(text);
    STRING s = source.view();
    if (random.one_in(50))
      s.len = -1;
    if (random.one_in(50))
      s.str = nullptr;

    char code[4] = {'w', 'x', 'y', 'z'};
    char expected_code[4] = {'w', 'x', 'y', 'z'};
    ASSERT_EQ(MRZ_common_extract_cc(&s, code), reference::MRZ_common_extract_cc(&s, expected_code))
        << shown(text);
    ASSERT_EQ(std::memcmp(code, expected_code, 4), 0) << shown(text);

    DATETIME date = {-1, -2, -3, -4, -5, -6};
    DATETIME expected_date = date;
    ASSERT_EQ(MRZ_common_extract_date(&s, &date), reference::MRZ_common_extract_date(&s, &expected_date))
        << shown(text);
    ASSERT_TRUE(same(date, expected_date)) << shown(text);

    STRING names[4] = {{"a", 1}, {"b", 1}, {"c", 1}, {"d", 1}};
    STRING expected[4] = {names[0], names[1], names[2], names[3]};
    ASSERT_EQ(MRZ_common_extract_name(&s, &names[0], &names[1], &names[2], &names[3]),
              reference::MRZ_common_extract_name(&s, &expected[0], &expected[1], &expected[2], &expected[3]))
        << shown(text);
    for (int i = 0; i < 4; i += 1)
      ASSERT_TRUE(same(names[i], expected[i])) << shown(text) << ", part " << i;
  }
}

TEST(RandomComparison, Normalisation) {
  Random random;
  std::string every_byte;
  for (int c = 0; c < 256; c += 1)
    every_byte += static_cast<char>(c);
  for (int round = 0; round < 20000; round += 1) {
    const std::string text = random.text(
        random.one_in(4) ? 60 : 20, random.one_in(2) ? std::string_view(every_byte) : "Aa0< \n\xC3\xA9"sv);
    const Exact source(text);
    const int room = random.number(0, 70);
    // Within the text, or beyond it where the room ends the reading first.
    const int length = room <= source.size() && random.one_in(4) ? source.size() + random.number(0, 3)
                                                                 : random.number(-1, source.size());
    Lent out(room);
    Lent expected(room);
    int n = -7;
    int m = -7;
    ASSERT_EQ(normalize_mrz(source.data(), length, out.data(), room, &n),
              reference::normalize_mrz(source.data(), length, expected.data(), room, &m))
        << shown(text);
    ASSERT_EQ(n, m) << shown(text);
    // What comes after the terminator is not promised.
    const std::size_t used = n < 0 ? static_cast<std::size_t>(room) : static_cast<std::size_t>(n) + 1;
    ASSERT_EQ(out.bytes().substr(0, used), expected.bytes().substr(0, used)) << shown(text);
    ASSERT_TRUE(out.guards_intact()) << shown(text);
  }
}

// Published specimens of ICAO Doc 9303 and made-up people.
constexpr std::string_view zones[] = {
    "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<L898902C36UTO7408122F1204159ZE184226B<<<<<10",
    "P<D<<VAN<DER<BERG<<ANNA<MARIA<LUISA<<<<<<<<<C01X00T478D<<6408125M1702283<<<<<<<<<<<<<<<4",
    "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<L8988901C4XXX4009078F96121096ZE184226B<<<<<<",
    "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<D231458907UTO7408122F1204159<<<<<<<6",
    "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<L8988901C4XXX4009078F9612109<<<<<<<<",
    "I<UTOD231458907<<<<<<<<<<<<<<<7408122F1204159UTO<<<<<<<<<<<6ERIKSSON<<ANNA<MARIA<<<<<<<<<<",
    "ACUTOAB<12<X<56<<<<<<<<<<<<<<<1712318X4501011D<<<<<<<<<<<<<0SMITH<JOHN<PAUL<<<<<<<<<<<<<<",
};

// A zone with a few characters changed, and now and then a wrong length.
std::string mutated_zone(Random &random) {
  std::string zone(random.pick(zones));
  // Both years anew, and now and then the same: the edges of the century rules.
  if (random.one_in(3)) {
    const std::size_t birth = zone.size() == 90 ? 30 : zone.size() / 2 + 13;
    const std::size_t expiry = birth + 8;
    for (std::size_t digit = 0; digit < 2; digit += 1) {
      zone[birth + digit] = random.character("0123456789");
      zone[expiry + digit] = random.one_in(2) ? zone[birth + digit] : random.character("0123456789");
    }
  }
  const int changes = random.number(0, 4);
  for (int i = 0; i < changes; i += 1)
    zone[static_cast<std::size_t>(random.number(0, static_cast<int>(zone.size()) - 1))] =
        random.character(random.pick({"<"sv, "0123456789"sv, "ABMFXV<"sv, "P<0A"sv}));
  if (random.one_in(4))
    zone[0] = random.character("IACPVX<");
  if (random.one_in(4))
    zone[1] = random.character("IACPV<0");
  if (random.one_in(30))
    zone[static_cast<std::size_t>(random.number(0, static_cast<int>(zone.size()) - 1))] =
        random.character("a \n\0\x80\xFF"sv);
  if (random.one_in(30))
    zone.resize(static_cast<std::size_t>(random.number(0, 100)), '<');
  return zone;
}

TEST(RandomComparison, Layouts) {
  constexpr int (*parsers[])(const char *, int, PARSE_RESULT *, const CONTEXT *) = {
      MRZ_td1_parse, MRZ_td2_parse, MRZ_passport_parse, MRZ_visa_parse};
  constexpr int (*plain_parsers[])(const char *, int, PARSE_RESULT *, const CONTEXT *) = {
      reference::MRZ_td1_parse, reference::MRZ_td2_parse, reference::MRZ_passport_parse,
      reference::MRZ_visa_parse};
  Random random;
  int accepted[4] = {0, 0, 0, 0};
  for (int round = 0; round < 12000; round += 1) {
    const int size = random.one_in(2) ? random.number(1, 120) : 300;
    Record library(size);
    Record plain(size);
    // Several zones in one record: nothing is cleared in between.
    for (int step = 0; step < 2; step += 1) {
      const std::string text = mutated_zone(random);
      const Exact zone(text);
      CONTEXT context = {};
      context.date = DATETIME{random.one_in(4) ? random.number(1800, 2200) : 2018,
                              random.number(0, 13),
                              random.number(0, 32),
                              random.number(0, 23),
                              random.number(0, 59),
                              random.number(0, 59)};
      for (int parser = 0; parser < 4; parser += 1) {
        const int code = parsers[parser](zone.data(), zone.size(), library.get(), &context);
        const int expected = plain_parsers[parser](zone.data(), zone.size(), plain.get(), &context);
        ASSERT_EQ(code, expected) << "parser " << parser << " of " << shown(text);
        accepted[parser] += code == ERR_OK ? 1 : 0;
        ASSERT_TRUE(same_records(library, plain, *library.get(), *plain.get()))
            << "parser " << parser << " of " << shown(text) << ", buffer of " << size;
      }
    }
  }
  // Not only refusals were compared.
  for (const int count : accepted)
    EXPECT_GT(count, 1000);
}

// A zone as it may reach the entry: in lines, in small letters, with noise and characters beyond ASCII.
std::string scanned(Random &random, std::string zone) {
  constexpr std::string_view noise[] = {"\n"sv,
                                        "\r\n"sv,
                                        " "sv,
                                        "-"sv,
                                        "\xC3\xA9"sv,
                                        "\xE2\x82\xAC"sv,
                                        "\xF0\x9F\x98\x80"sv,
                                        "\x80"sv,
                                        "\xE2\x82"sv,
                                        "\xED\xA0\x80"sv,
                                        "\xC0\xAF"sv,
                                        "\xF4\x90\x80\x80"sv};
  if (random.one_in(3))
    for (char &c : zone)
      if (c >= 'A' && c <= 'Z' && random.one_in(2))
        c = static_cast<char>(c - 'A' + 'a');
  const int pieces = random.number(0, 3);
  for (int i = 0; i < pieces; i += 1)
    zone.insert(static_cast<std::size_t>(random.number(0, static_cast<int>(zone.size()))),
                random.pick(noise));
  if (random.one_in(3))
    zone += "    ";
  if (random.one_in(20))
    zone.insert(0, static_cast<std::size_t>(random.number(900, 1100)), ' ');
  return zone;
}

TEST(RandomComparison, TheWholeWayFromTextToValues) {
  Random random;
  int accepted = 0;
  for (int round = 0; round < 12000; round += 1) {
    const std::string text = scanned(random, mutated_zone(random));
    const Exact source(text);
    const int length = varnel_utf16_length(source.data(), text.size());
    ASSERT_EQ(length, reference::varnel_utf16_length(source.data(), text.size())) << shown(text);

    const int size = random.one_in(4) ? random.number(1, 120) : VARNEL_BUFFER_SIZE;
    Record library(size);
    Record plain(size);
    const int code = varnel_parse_mrz(source.data(), length, library.get(), library->buffer, size);
    ASSERT_EQ(code, reference::parse_mrz(source.data(), length, plain.get(), plain->buffer, size))
        << shown(text);
    ASSERT_TRUE(same_records(library, plain, *library.get(), *plain.get())) << shown(text);

    accepted += code == ERR_OK ? 1 : 0;

    // Slots that no zone fills, as a caller may.
    if (random.one_in(4)) {
      const int field = random.pick({34, 4, 71, 72, 70, 13});
      utils_write_field_s(library.get(), field, "X1");
      reference::utils_write_field_s(plain.get(), field, "X1");
    }
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    ASSERT_EQ(varnel_export(library.get(), pairs), ERR_OK);
    const auto expected = reference::export_values(plain.get());
    for (std::size_t i = 0; i < expected.size(); i += 1) {
      ASSERT_EQ(pairs[i].key, expected[i].first) << shown(text);
      ASSERT_NE(pairs[i].value.str, nullptr) << shown(text);
      ASSERT_EQ(support::text(pairs[i].value), expected[i].second) << pairs[i].key << " of " << shown(text);
    }
  }
  // Not only refusals were compared.
  EXPECT_GT(accepted, 3000);
}

TEST(RandomComparison, Utf16Lengths) {
  Random random;
  for (int round = 0; round < 40000; round += 1) {
    const std::string text = random.text(
        8, random.pick({"A\x80\xBF\xC2\xE0\xA0\xED\x9F\xF0\x90\xF4\x8F"sv, "\xF0\x9F\x98\x80\xF4\xF5"sv,
                        "\xE0\xA0\xE2\x82\xAC\xED\xC0\xC1\xFF\0"sv}));
    const Exact source(text);
    ASSERT_EQ(varnel_utf16_length(source.data(), text.size()),
              reference::varnel_utf16_length(source.data(), text.size()))
        << ::testing::PrintToString(text);
  }
}

} // namespace
