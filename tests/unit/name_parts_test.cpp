// Names split by the places of their fillers, and the same character by character: both must give the same
// parts, to the address, of everything that a zone can hold.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "../cases.hpp"
#include "mrz/name_parts.hpp"
#include "support.hpp"

namespace {

// A part of the name, and the fillers in it.
void expect_same(const char *name_of_part, const std::string &name, const filled_text &field,
                 const filled_part &part, const STRING &expected) {
  ASSERT_EQ(field.str + part.start, expected.str) << name_of_part << " of " << name;
  ASSERT_EQ(part.end - part.start, expected.len) << name_of_part << " of " << name;
  for (int i = 0; i < field.len; ++i) {
    const bool filler = i >= part.start && i < part.end && field.str[i] == FILLER;
    ASSERT_EQ((part.fillers >> i & 1) != 0, filler) << name_of_part << " of " << name << ", character " << i;
  }
}

void expect_alike(const std::string &name) {
  const support::Exact exact(name);
  uint64_t digits = 0;
  const filled_text field = find_letters(exact.view(), digits);
  ASSERT_EQ(digits & words::MARKS, 0u) << name;
  ASSERT_EQ(field.str, exact.data());
  ASSERT_EQ(field.len, exact.size());
  for (int i = 0; i < places::MAX; ++i) {
    const bool letter = i < exact.size() && name[static_cast<size_t>(i)] != FILLER;
    ASSERT_EQ((field.letters >> i & 1) != 0, letter) << name << ", character " << i;
    ASSERT_EQ((field.fillers() >> i & 1) != 0, i < exact.size() && !letter) << name << ", character " << i;
  }
  const STRING expected = without_outer_fillers(exact.view());
  if (expected.len == 0) {
    ASSERT_EQ(field.letters, 0u) << name;
    return;
  }
  ASSERT_NO_FATAL_FAILURE(expect_same("name", name, field, trimmed(field), expected));
  const name_places found = split_name(field);
  const name_parts parts = split_name(expected);
  ASSERT_NO_FATAL_FAILURE(expect_same("last name", name, field, found.last, parts.last));
  ASSERT_NO_FATAL_FAILURE(expect_same("first name", name, field, found.first, parts.first));
  ASSERT_NO_FATAL_FAILURE(expect_same("middle name", name, field, found.middle, parts.middle));
}

TEST(NameParts, AreTheSameOfEveryPatternOfFillers) {
  support::every_nth turn;
  for (int length = words::SIZE; length <= 16; ++length) {
    for (unsigned pattern = 0; pattern < 1U << length; ++pattern) {
      if (!turn.is_next()) {
        continue;
      }
      std::string name(static_cast<size_t>(length), 'A');
      for (int i = 0; i < length; ++i) {
        if ((pattern >> i & 1) != 0) {
          name[static_cast<size_t>(i)] = FILLER;
        }
      }
      ASSERT_NO_FATAL_FAILURE(expect_alike(name));
    }
  }
}

TEST(NameParts, AreTheSameOfNamesOfEveryLength) {
  std::mt19937 random(9303); // the same names in every run
  for (int length = words::SIZE; length <= places::MAX; ++length) {
    for (int round = 0; round < support::cases(2000); ++round) {
      const auto one_in = 2 + random() % 12;
      std::string name;
      for (int i = 0; i < length; ++i) {
        name += random() % one_in == 0 ? FILLER : static_cast<char>('A' + random() % 26);
      }
      ASSERT_NO_FATAL_FAILURE(expect_alike(name));
    }
  }
}

TEST(NameParts, EveryDigitIsNoticedAtEveryPlace) {
  for (const int length : {8, 9, 14, 30, 31, 39, places::MAX}) {
    for (int place = 0; place < length; ++place) {
      for (const char c : std::string_view("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ<")) {
        for (const char others : {'A', 'Z', FILLER}) {
          std::string name(static_cast<size_t>(length), others);
          name[static_cast<size_t>(place)] = c;
          const support::Exact exact(name);
          uint64_t digits = 0;
          find_letters(exact.view(), digits);
          ASSERT_EQ((digits & words::MARKS) != 0, c >= '0' && c <= '9') << name;
        }
      }
    }
  }
}

TEST(Places, AreCountedAndFound) {
  EXPECT_EQ(places::before(0), 0u);
  EXPECT_EQ(places::before(3), 7u);
  EXPECT_EQ(places::before(63), UINT64_C(0x7FFFFFFFFFFFFFFF));
  EXPECT_EQ(places::count(0), 0);
  EXPECT_EQ(places::count(UINT64_MAX), 64);
  for (int low = 0; low < 64; ++low) {
    for (int high = low; high < 64; ++high) {
      for (const places::set between : {UINT64_C(0), UINT64_MAX, UINT64_C(0x5555555555555555)}) {
        const places::set ends = UINT64_C(1) << low | UINT64_C(1) << high;
        const places::set set = ends | (between >> low << low & (UINT64_MAX >> (63 - high)));
        ASSERT_EQ(places::first(set), low);
        ASSERT_EQ(places::first_by_count(set), low);
        ASSERT_EQ(places::last(set), high);
        ASSERT_EQ(places::last_by_count(set), high);
      }
    }
  }
}

} // namespace
