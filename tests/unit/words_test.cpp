// Words of text, and the sets that are asked with them: plain words, wide words and single characters must
// give the same answer to everything.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "../cases.hpp"
#include "mrz/character_sets.hpp"
#include "support.hpp"
#include "utf8.hpp"
#include "words.hpp"

namespace {

TEST(Words, TheFirstCharacterIsInTheLowestByte) {
  EXPECT_EQ(words::load<uint64_t>("ABCDEFGH"), UINT64_C(0x4847464544434241));
  EXPECT_EQ(words::load<uint64_t>("\xFF\0\0\0\0\0\0\x80"), UINT64_C(0x80000000000000FF));
}

TEST(Words, EveryByteOfAWordIsTheSame) {
  EXPECT_EQ(words::every('<'), UINT64_C(0x3C3C3C3C3C3C3C3C));
  EXPECT_EQ(words::every(0xFF), UINT64_C(0xFFFFFFFFFFFFFFFF));
}

TEST(Words, TheFirstMarkIsFound) {
  struct row {
    uint64_t marks;
    int position;
  };
  const row rows[] = {
      {UINT64_C(0x0000000000000080), 0}, {UINT64_C(0x0000000000008000), 1}, {UINT64_C(0x0000000000800000), 2},
      {UINT64_C(0x0000000080000000), 3}, {UINT64_C(0x0000008000000000), 4}, {UINT64_C(0x0000800000000000), 5},
      {UINT64_C(0x0080000000000000), 6}, {UINT64_C(0x8000000000000000), 7}, {UINT64_C(0x8080808080808080), 0},
      {UINT64_C(0x8000000000800000), 2}, {UINT64_C(0x80FFFF7F7F7F7F7F), 5}, // bits between the marks
  };
  for (const row &r : rows) {
    EXPECT_EQ(words::first(r.marks), r.position) << std::hex << r.marks;
    EXPECT_EQ(words::first_by_count(r.marks), r.position) << std::hex << r.marks;
  }
}

TEST(Words, TheFirstNulIsFound) {
  EXPECT_EQ(words::nul(words::load<uint64_t>("ABCDEFGH")), 0u);
  EXPECT_EQ(words::nul(words::load<uint64_t>("\x01\x7F\x80\xFF\x81\x01\x80\x01")), 0u);
  for (int position = 0; position < words::SIZE; ++position) {
    for (const char after : {'\0', '\x01', '\x80'}) { // a NUL may spoil what follows, not its own place
      std::string text(words::SIZE, after);
      text.replace(0, static_cast<size_t>(position), static_cast<size_t>(position), '\x01');
      text[static_cast<size_t>(position)] = '\0';
      EXPECT_EQ(words::first(words::nul(words::load<uint64_t>(text.data()))), position);
    }
  }
}

TEST(Words, MarksAreCounted) {
  struct row {
    uint64_t marks;
    unsigned count;
  };
  const row rows[] = {
      {0, 0},
      {UINT64_C(0x7F7F7F7F7F7F7F7F), 0}, // bits between the marks
      {UINT64_C(0x0000000000000080), 1},
      {UINT64_C(0x8000000000000000), 1},
      {UINT64_C(0x80FF7F0080010080), 4},
      {UINT64_C(0xFFFFFFFFFFFFFFFF), 8},
  };
  for (const row &r : rows) {
    EXPECT_EQ(words::count(r.marks), r.count) << std::hex << r.marks;
    EXPECT_EQ(words::any(r.marks), r.count > 0) << std::hex << r.marks;
  }
}

// One marked character, at each place of a wide word.
TEST(Words, WideMarksAreThoseOfTheirPlainWords) {
  const words::wide none = {};
  for (int position = 0; position < words::WIDE_SIZE; ++position) {
    std::string text(static_cast<size_t>(words::WIDE_SIZE), 'A');
    text[static_cast<size_t>(position)] = '<';
    const words::wide word = words::load<words::wide>(text.data());
    const words::wide fillers = words::in_range(word, '<', '<');
    const words::wide letters = words::in_range(word, 'A', 'Z');
    EXPECT_TRUE(words::any(fillers)) << position;
    EXPECT_EQ(words::sum(words::tally(none, fillers)), 1u) << position;
    EXPECT_EQ(words::sum(words::tally(none, letters)), static_cast<unsigned>(words::WIDE_SIZE) - 1)
        << position;
    EXPECT_EQ(words::sum(words::tally(none, fillers | letters)), static_cast<unsigned>(words::WIDE_SIZE))
        << position;
    EXPECT_FALSE(words::any(words::in_range(word, '0', '9'))) << position;
    EXPECT_EQ(words::sum(words::tally(none, words::in_range(word, '0', '9'))), 0u) << position;
    for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
      EXPECT_EQ(words::plain(word, i), words::load<uint64_t>(text.data() + i)) << position;
    }
  }
}

TEST(Words, BitsAreSetInEveryCharacter) {
  EXPECT_EQ(words::with_bits(words::load<uint64_t>("ABCDEFGH"), 0x20), words::load<uint64_t>("abcdefgh"));
  const words::wide word = words::with_bits(words::load<words::wide>("ABCDEFGHIJKLMNOP"), 0x20);
  for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
    EXPECT_EQ(words::plain(word, i), words::load<uint64_t>(&"abcdefghijklmnop"[i]));
  }
}

TEST(Words, MarkedCharactersAreGivenBits) {
  const uint64_t letters = words::in_range(words::load<uint64_t>("A1B2<Z9["), 'A', 'Z');
  EXPECT_EQ(words::bits(letters, 0x7F), UINT64_C(0x00007F00007F007F));
  EXPECT_EQ(words::bits(letters, 7), UINT64_C(0x0000070000070007));
  const words::wide marks = words::in_range(words::load<words::wide>("A1B2<Z9[A1B2<Z9["), 'A', 'Z');
  for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
    EXPECT_EQ(words::plain(words::bits(marks, 7), i), UINT64_C(0x0000070000070007));
  }
}

TEST(Words, ANumberIsSubtractedFromEveryCharacter) {
  EXPECT_EQ(words::less(words::load<uint64_t>("09AZ<az~"), '0'),
            words::load<uint64_t>("\0\x09\x11*\x0C\x31JN"));
  const words::wide word = words::less(words::load<words::wide>("09AZ<az~09AZ<az~"), '0');
  for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
    EXPECT_EQ(words::plain(word, i), words::load<uint64_t>("\0\x09\x11*\x0C\x31JN"));
  }
}

// Each byte times the one at its place, the largest values of a check-digit sum among them; added to what was
// there.
TEST(Words, ProductsAreAddedUp) {
  for (int place = 0; place < words::WIDE_SIZE; ++place) {
    std::string values(static_cast<size_t>(words::WIDE_SIZE), '\x02');
    std::string weights(static_cast<size_t>(words::WIDE_SIZE), '\x03');
    values[static_cast<size_t>(place)] = 35;
    weights[static_cast<size_t>(place)] = 7;
    words::sums wide = {};
    words::plain_sums plain = {};
    for (unsigned times = 1; times <= 300; ++times) {
      words::add_products(words::load<words::wide>(values.data()), words::load<words::wide>(weights.data()),
                          wide);
      for (int i = 0; i < words::WIDE_SIZE; i += words::SIZE) {
        words::add_products(words::load<uint64_t>(values.data() + i),
                            words::load<uint64_t>(weights.data() + i), plain);
      }
      const unsigned others = static_cast<unsigned>(words::WIDE_SIZE) - 1;
      ASSERT_EQ(words::total(wide), times * (35 * 7 + others * 2 * 3)) << place;
      ASSERT_EQ(words::total(plain), times * (35 * 7 + others * 2 * 3)) << place;
    }
  }
}

TEST(Words, MarksOfManyWordsAreCounted) {
  uint64_t plain = 0;
  words::wide wide = {};
  const std::string text = "A<B<<CDE<1<2<<<3";
  for (unsigned i = 1; i <= static_cast<unsigned>(words::MOST_TALLIED); ++i) {
    plain = words::tally(plain, words::in_range(words::load<uint64_t>(text.data()), '<', '<'));
    wide = words::tally(wide, words::in_range(words::load<words::wide>(text.data()), '0', 'Z'));
    EXPECT_EQ(words::sum(plain), 3 * i);
    EXPECT_EQ(words::sum(wide), i * static_cast<unsigned>(words::WIDE_SIZE));
  }
}

TEST(Words, AreStoredAsTheyAreLoaded) {
  for (const std::string_view text : {"ABCDEFGH", "\xFF\x80\x7F\x01 <09"}) {
    char stored[words::SIZE + 1] = {};
    words::store(words::load<uint64_t>(text.data()), stored);
    EXPECT_EQ(std::string_view(stored), text);
  }
  char stored[words::WIDE_SIZE + 1] = {};
  const std::string text = "ABCDEFGHIJKLMNOP";
  words::store(words::load<words::wide>(text.data()), stored);
  EXPECT_EQ(stored, text.substr(0, words::WIDE_SIZE));
}

TEST(Words, ThePartsOfAWideWordAreJudgedOneByOne) {
  for (int place = 0; place < words::WIDE_SIZE; ++place) {
    std::string text(static_cast<size_t>(words::WIDE_SIZE), 'A');
    text[static_cast<size_t>(place)] = ' ';
    const words::wide marks = mrz_characters::marks(words::load<words::wide>(text.data()));
    EXPECT_FALSE(words::all(marks));
    for (int part = 0; part < words::WIDE_SIZE / words::SIZE; ++part) {
      EXPECT_EQ(words::all_of_part(marks, part), part != place / words::SIZE) << place;
    }
  }
}

TEST(Words, EveryPatternOfMarksHasItsPlaces) {
  for (unsigned places = 0; places < 256; ++places) {
    for (const uint64_t between : {UINT64_C(0), ~words::MARKS}) { // bits between the marks
      uint64_t marks = between;
      for (int i = 0; i < words::SIZE; ++i) {
        marks |= (places >> i & 1) != 0 ? UINT64_C(0x80) << 8 * i : 0;
      }
      EXPECT_EQ(words::places_on_top(marks) >> 56, places);
    }
  }
}

std::string all_of_ascii() {
  std::string characters;
  for (int c = 0; c < 128; ++c) {
    characters += static_cast<char>(c);
  }
  return characters;
}

struct set {
  const char *name;
  std::string characters;
  bool (*covers_plain)(STRING);
  bool (*covers_wide)(STRING);
  bool (*covers_short)(STRING);
  uint64_t (*marks)(uint64_t);
};

template <class Set> set set_of(const char *name, std::string characters) {
  return {name,
          std::move(characters),
          Set::template covers<uint64_t>,
          Set::template covers<words::wide>,
          Set::covers_short,
          Set::template marks<uint64_t>};
}

const std::vector<set> &sets() {
  static const std::vector<set> all = {
      set_of<mrz_characters>("zone", "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789<"),
      set_of<mrz_date_characters>("date", "0123456789"),
      set_of<mrz_name_characters>("name", "ABCDEFGHIJKLMNOPQRSTUVWXYZ<"),
      set_of<mrz_code_characters>("code", "ABCDEFGHIJKLMNOPQRSTUVWXYZ<"),
      set_of<utf8::ascii_characters>("ASCII", all_of_ascii()),
  };
  return all;
}

bool is_in(const set &s, char c) { return s.characters.find(c) != std::string::npos; }

void expect_covers(const set &s, const std::string &text, bool covered) {
  const support::Exact exact(text);
  const STRING view = {exact.data(), exact.size()};
  ASSERT_EQ(s.covers_short(view), covered) << s.name << ": " << testing::PrintToString(text);
  ASSERT_EQ(s.covers_plain(view), covered) << s.name << ": " << testing::PrintToString(text);
  ASSERT_EQ(s.covers_wide(view), covered) << s.name << ": " << testing::PrintToString(text);
}

TEST(CharacterSet, EveryCharacterIsJudgedAlikeAtEveryPlaceOfEveryLength) {
  support::every_nth turn;
  for (const set &s : sets()) {
    for (size_t length = 0; length <= 35; ++length) {
      const std::string text(length, s.characters.back());
      ASSERT_NO_FATAL_FAILURE(expect_covers(s, text, true));
      for (size_t place = 0; place < length; ++place) {
        for (int c = 0; c < 256; ++c) {
          if (!turn.is_next()) {
            continue;
          }
          std::string changed = text;
          changed[place] = static_cast<char>(c);
          ASSERT_NO_FATAL_FAILURE(expect_covers(s, changed, is_in(s, changed[place])));
        }
      }
    }
  }
}

// One character must not make up for what another lacks.
TEST(CharacterSet, EveryPairOfNeighboursIsJudgedAlike) {
  support::every_nth turn;
  for (const set &s : sets()) {
    for (int pair = 0; pair < 256 * 256; ++pair) {
      if (!turn.is_next()) {
        continue;
      }
      std::string text(static_cast<size_t>(words::SIZE), s.characters.front());
      text[3] = static_cast<char>(pair / 256);
      text[4] = static_cast<char>(pair % 256);
      ASSERT_NO_FATAL_FAILURE(expect_covers(s, text, is_in(s, text[3]) && is_in(s, text[4])));
    }
  }
}

TEST(CharacterSet, TheFirstOutsiderOfAPlainWordIsTheFirstWithoutAMark) {
  support::every_nth turn;
  for (const set &s : sets()) {
    for (int place = 0; place < words::SIZE; ++place) {
      for (int pair = 0; pair < 256 * 256; ++pair) {
        if (!turn.is_next()) {
          continue;
        }
        std::string text(static_cast<size_t>(words::SIZE), s.characters.back());
        text[static_cast<size_t>(place)] = static_cast<char>(pair / 256);
        if (place + 1 < words::SIZE) {
          text[static_cast<size_t>(place) + 1] = static_cast<char>(pair % 256);
        }
        size_t first = 0;
        while (first < text.size() && is_in(s, text[first])) {
          ++first;
        }
        const uint64_t outside = ~s.marks(words::load<uint64_t>(text.data())) & words::MARKS;
        ASSERT_EQ(outside != 0, first < text.size()) << s.name << ": " << testing::PrintToString(text);
        if (outside != 0) {
          ASSERT_EQ(words::first(outside), static_cast<int>(first)) << s.name;
        }
      }
    }
  }
}

} // namespace
