// Names split by the places of their fillers, and the same character by character: both must give the same
// parts, to the address, of everything that a zone can hold.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "mrz/name_parts.hpp"
#include "support.hpp"

namespace {

void expect_same(const char *part, const std::string &name, const filled_text &found,
                 const STRING &expected) {
  ASSERT_EQ(found.str, expected.str) << part << " of " << name;
  ASSERT_EQ(found.len, expected.len) << part << " of " << name;
  for (int i = 0; i < places::MAX; ++i) {
    const bool filler = i < expected.len && expected.str[i] == FILLER;
    ASSERT_EQ((found.fillers >> i & 1) != 0, filler) << part << " of " << name << ", character " << i;
  }
}

void expect_alike(const std::string &name) {
  const support::Exact exact(name);
  uint64_t outside = 0;
  const filled_text field = find_fillers<mrz_name_characters>(exact.view(), outside);
  ASSERT_EQ(outside & words::MARKS, 0u) << name;
  ASSERT_NO_FATAL_FAILURE(expect_same("the field", name, field, exact.view()));
  const filled_text trimmed = field.trimmed();
  const STRING expected = without_outer_fillers(exact.view());
  ASSERT_EQ(trimmed.len, expected.len) << name;
  if (expected.len == 0) {
    return;
  }
  ASSERT_NO_FATAL_FAILURE(expect_same("the text", name, trimmed, expected));
  ASSERT_EQ(trimmed.has_runs(),
            std::string_view(expected.str, static_cast<size_t>(expected.len)).find("<<") !=
                std::string_view::npos);
  const name_parts<filled_text> found = split_name(trimmed);
  const name_parts<STRING> parts = split_name(expected);
  ASSERT_NO_FATAL_FAILURE(expect_same("last name", name, found.last, parts.last));
  ASSERT_NO_FATAL_FAILURE(expect_same("first name", name, found.first, parts.first));
  ASSERT_NO_FATAL_FAILURE(expect_same("middle name", name, found.middle, parts.middle));
}

TEST(NameParts, AreTheSameOfEveryPatternOfFillers) {
  for (int length = 0; length <= 14; ++length) {
    for (unsigned pattern = 0; pattern < 1U << length; ++pattern) {
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
  for (int length = 0; length <= places::MAX; ++length) {
    for (int round = 0; round < 2000; ++round) {
      const auto one_in = 2 + random() % 12;
      std::string name;
      for (int i = 0; i < length; ++i) {
        name += random() % one_in == 0 ? FILLER : static_cast<char>('A' + random() % 26);
      }
      ASSERT_NO_FATAL_FAILURE(expect_alike(name));
    }
  }
}

TEST(NameParts, EveryCharacterOutsideTheSetIsNoticedAtEveryPlace) {
  for (const int length : {1, 7, 8, 9, 30, 31, 39, places::MAX}) {
    for (int place = 0; place < length; ++place) {
      for (int c = 0; c < 256; ++c) {
        std::string name(static_cast<size_t>(length), 'Z');
        name[static_cast<size_t>(place)] = static_cast<char>(c);
        const support::Exact exact(name);
        uint64_t outside = 0;
        find_fillers<mrz_name_characters>(exact.view(), outside);
        const bool inside = (c >= 'A' && c <= 'Z') || c == FILLER;
        ASSERT_EQ((outside & words::MARKS) == 0, inside) << "character " << c << " at " << place;
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
