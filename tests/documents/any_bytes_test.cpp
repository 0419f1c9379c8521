// Any bytes: they are read as the plain inspection reads them, and nothing of an earlier document stays in a
// record.
#include "../cases.hpp"
#include "plain_inspection.hpp"
#include "support.hpp"

#include <cstring>
#include <string_view>

namespace {

using support::TODAY;

const std::string SPECIMEN = support::SPECIMENS[2].zone;

// The JSON is what a JSON library writes of the plain inspection, and every offset lies inside the text.
void expect_sound(std::string_view text) {
  const varnel_inspection read = support::inspect(text);
  ASSERT_EQ(support::to_json(read), plain::inspect(text, {TODAY.year, TODAY.month, TODAY.day}));
  const auto is_inside = [&text](const varnel_source &source) {
    return source.start <= source.end && source.end <= text.size();
  };
  for (int i = 0; i < read.source_count; ++i) {
    ASSERT_TRUE(is_inside(read.source[i])) << text;
  }
  for (int i = 0; i < read.field_count; ++i) {
    ASSERT_TRUE(is_inside(read.fields[i].source)) << text;
  }
}

TEST(AnyBytes, RandomBytes) {
  uint64_t state = 1;
  const auto below = [&state](unsigned bound) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    return static_cast<unsigned>((state >> 33) % bound);
  };
  for (int round = 0; round < support::cases(3000); ++round) {
    std::string text(below(400), '\0');
    for (char &c : text) {
      c = static_cast<char>(below(256));
    }
    expect_sound(text);
  }
  // Zones with bytes written over.
  for (int round = 0; round < support::cases(6000); ++round) {
    std::string text = support::SPECIMENS[below(5)].zone;
    for (unsigned count = below(6); count > 0; --count) {
      const char *pieces[] = {"\xEF", "\xC2\xAB", "&lt;", "\0", "\n", "\xF4\x90\x80\x80", "\xE3\x80", "<"};
      const size_t at = below(static_cast<unsigned>(text.size()));
      if (below(2) == 0) {
        text.replace(at, 1, 1, static_cast<char>(below(256)));
      } else {
        text.insert(at, pieces[below(8)]);
      }
    }
    expect_sound(text);
  }
}

// Every beginning and every end of a text, in memory that ends where the text does.
TEST(AnyBytes, EveryPartOfAText) {
  std::string text = "\xEF\xBB\xBFPage &lt;1&l\xE3\x80\x8A\n";
  for (const support::specimen &s : support::SPECIMENS) {
    text += s.zone;
  }
  text.replace(30, 2, "\xC2\xAB");
  support::every_nth turn;
  for (size_t size = 0; size <= text.size(); ++size) {
    if (!turn.is_next()) {
      continue;
    }
    const std::vector<char> begin(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size));
    expect_sound({begin.data(), begin.size()});
    const std::vector<char> end(text.end() - static_cast<std::ptrdiff_t>(size), text.end());
    expect_sound({end.data(), end.size()});
  }
}

// The same of lines in other scripts, whose bytes are passed over in words of their own.
TEST(AnyBytes, LinesOfOtherScriptsThatEndWithTheText) {
  for (const char *letter : {"\u00E9", "\u03B1", "\u0416", "\u3042", "\u20AC", "\U0001F600", "\u00E9 "}) {
    for (size_t size = 1; size <= 100; ++size) {
      std::string line;
      while (line.size() < size) {
        line += letter;
      }
      const std::vector<char> text(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(size));
      expect_sound({text.data(), text.size()});
    }
  }
}

// Nothing of an earlier document stays in a record that is used again.
TEST(AnyBytes, ARecordUsedAgainHoldsNothingOfBefore) {
  const std::string card = support::SPECIMENS[1].zone;
  varnel_inspection fresh;
  std::memset(&fresh, 0, sizeof fresh);
  varnel_inspect(card.data(), card.size(), &TODAY, &fresh);
  varnel_inspection used;
  std::memset(&used, 0xA5, sizeof used);
  varnel_inspect(SPECIMEN.data(), SPECIMEN.size(), &TODAY, &used);
  varnel_inspect(card.data(), card.size(), &TODAY, &used);
  EXPECT_EQ(support::to_json(used), support::to_json(fresh));
  EXPECT_EQ(std::memcmp(&used, &fresh, sizeof used), 0) << "unused entries are zero";
}

} // namespace
