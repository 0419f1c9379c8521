// The lines of a text as repair reads them: signs for fillers, symbols, line ends, noise, and how long a line
// may be.
#include "repairing.hpp"

namespace {

using namespace repairing;
using support::inspect;

std::string replaced(std::string text, const std::string &from, const std::string &to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// A zone of which the second line has no filler, with a digit in the place of a letter.
const std::string MISREAD_TOP = "PPUT0ERIKSSON<<MARIA<<<<<<<<<<<<<<<<<<<<<<<<\n";
const std::string READ_TOP = "PPUTOERIKSSON<<MARIA<<<<<<<<<<<<<<<<<<<<<<<<\n";
const std::string FULL_LOW = "L898902C36UTO7408122F1204159ZE184226B1234508\n";

TEST(RepairOfLines, SignsForFillers) {
  for (const char *sign : {"&lt;", "\xEF\xBC\x9C", "\xE2\x80\xB9", "\xE2\x80\xBA", "\xE2\x89\xA4",
                           "\xE3\x80\x88", "\xE2\x9F\xA8", "\xE2\x8C\xA9"}) {
    expect({1, replaced(MISREAD_TOP, "<", sign) + FULL_LOW, "repaired", READ_TOP + FULL_LOW, "0:4 0>O class",
            ""});
    expect({1, replaced(TOP, "<", sign) + replaced(LOW, "<", sign), "valid", TOP + LOW, "", ""});
  }
  for (const char *sign : {"\xC2\xAB", "\xC2\xBB", "\xE3\x80\x8A"}) {
    expect({1, replaced(MISREAD_TOP, "<<", sign) + FULL_LOW, "repaired", READ_TOP + FULL_LOW, "0:4 0>O class",
            ""});
  }
}

// U+FF10 to U+FF5A are the characters of ASCII in full width.
TEST(RepairOfLines, FullWidthCharacters) {
  const std::string text = MISREAD_TOP + FULL_LOW;
  std::string wide;
  for (const char c : text) {
    const int code_point = 0xFF00 + c - ' ';
    const char bytes[] = {static_cast<char>(0xE0 | code_point >> 12),
                          static_cast<char>(0x80 | (code_point >> 6 & 0x3F)),
                          static_cast<char>(0x80 | (code_point & 0x3F)), '\0'};
    wide += c == '\n' ? "\n" : bytes;
  }
  expect({1, wide, "repaired", READ_TOP + FULL_LOW, "0:4 \xEF\xBC\x90>O class", ""});
}

TEST(RepairOfLines, LineEnds) {
  for (const std::string end : {"\n", "\r", "\r\n", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
    const std::string text = "Page \xC3\xA9" + end + replaced(MISREAD_TOP + FULL_LOW, "\n", end) + "end";
    expect({1, text, "repaired", READ_TOP + FULL_LOW, "0:4 0>O class", ""});
    const varnel_inspection inspection = inspect(text, with_repair(1));
    EXPECT_EQ(inspection.source[0].start, 7 + end.size());
    EXPECT_EQ(inspection.source[0].end, 51 + end.size());
    EXPECT_EQ(inspection.source[1].start, 51 + 2 * end.size());
    EXPECT_EQ(inspection.source[1].end, 95 + 2 * end.size());
  }
}

// A symbol is the character that it looks like: here the check digit of a number, or a filler.
TEST(RepairOfLines, Symbols) {
  const struct {
    const char *symbol;
    const char *number; // with its digit
  } digits[] = {
      {"!", "L898902C81"},        {"[", "L898902C81"},        {"]", "L898902C81"}, {"|", "L898902C81"},
      {"(", "L898902C70"},        {"{", "L898902C70"},        {"@", "L898902C70"}, {"\xC2\xA2", "L898902C70"},
      {"\xC2\xA9", "L898902C70"}, {"?", "L898902C92"},        {"$", "L898902C25"}, {"\xC2\xA7", "L898902C25"},
      {"\xC2\xA5", "L898902C14"}, {"\xC3\xA9", "L898902C36"},
  };
  for (const auto &row : digits) {
    const std::string number = row.number;
    const std::string rest = "UTO6908061F9406236ZE184226B<<<<<<<\n";
    const std::string top = "V" + TOP.substr(1);
    expect({1, top + number.substr(0, 9) + row.symbol + rest, "repaired", top + number + rest,
            std::string("1:9 ") + row.symbol + ">" + number[9] + " class", ""});
  }
  for (const char *symbol :
       {"&", "\xC2\xA3", "\xC3\xA8", "\xE2\x82\xAC", "(", "{", "\xC2\xA2", "\xC2\xA9", "$", "\xC2\xA7"}) {
    const std::string misread = "L898902C36UTO7408122" + std::string(symbol) + "1204159ZE184226B<<<<<10\n";
    expect({1, TOP + misread, "repaired", TOP + replaced(LOW, "F", "<"),
            std::string("1:20 ") + symbol + ">< filler", ""});
  }
  // In a number too it is changed for what stands there, not for the check digit.
  for (const char *symbol : {"(", "{", "\xC2\xA2", "\xC2\xA9"}) {
    expect({2, TOP + "L898902" + symbol + LOW.substr(8), "repaired", TOP + LOW,
            std::string("1:7 ") + symbol + ">C class", ""});
  }
}

// What looks like no character of a zone is noise, and leaves the names in doubt.
TEST(RepairOfLines, Noise) {
  for (const char *noise :
       {"~", "\xC3\xB1", "\xE2\x80\xA0", "\xF0\x9F\x9B\x82", "\xE9", "\xA7", "\xE2\x82"}) {
    expect({1, TOP.substr(0, 30) + noise + TOP.substr(30) + LOW, "doubtful", TOP + LOW, "",
            "unproven secondaryIdentifier"});
  }
  expect({1, TOP + "L~" + LOW.substr(1), "doubtful", TOP + LOW, "", "unproven secondaryIdentifier"});
  expect({1, TOP + "~" + LOW, "valid", TOP + LOW, "", ""}); // before a line that has no names
  // So it does in what is not read by units: a card whose names have no filler.
  const std::string card = "I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\n";
  const std::string names = "ERIKSSONERIKSSONERIKSSONERIKSS\n";
  const std::string noisy_line[] = {
      "I<UTOD231458907<<<~<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\n" + names,
      "I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159~UTO<<<<<<<<<<<6\n" + names,
      card + "ERIKSSON~ERIKSSONERIKSSONERIKSS\n"};
  for (const std::string &text : noisy_line) {
    expect({0, text, "valid", card + names, "", ""});
    expect({1, text, "doubtful", card + names, "", "unproven secondaryIdentifier"});
  }
}

// With white space and noise a line has 1024 bytes at most.
TEST(RepairOfLines, LongLines) {
  const auto with_spaces = [](size_t size) {
    return MISREAD_TOP.substr(0, 30) + std::string(size - 44, ' ') + MISREAD_TOP.substr(30) + FULL_LOW;
  };
  expect({1, with_spaces(1024), "repaired", READ_TOP + FULL_LOW, "0:4 0>O class", ""});
  expect({1, with_spaces(1025), "doubtful", MISREAD_TOP + FULL_LOW, "", "badCharacters issuingState"});
}

// Lines without fillers and with no more than six digits may stand between those of a zone, as headings do.
TEST(RepairOfLines, HeadingsBetween) {
  for (const char *heading : {"REPUBLIC OF UTOPIA AND MORE\n", "REPUBLIC OF UTOPIA 123456\n",
                              "R\xC3\x89PUBLIQUE UTOPIENNE \xC2\xA9\xC3\x89\n"}) {
    expect({1, MISREAD_TOP + heading + FULL_LOW, "repaired", READ_TOP + FULL_LOW, "0:4 0>O class", ""});
  }
}

// A short word before a line does not belong to it, and leaves the names in doubt.
TEST(RepairOfLines, ShortWordsBeforeALine) {
  const std::string card[] = {"I<UTOD231458907<<<<<<<<<<<<<<<\n", "7408122F1204159UTO<<<<<<<<<<<6\n",
                              "ERIKSSON<<ANNA<MARIA<<<<<<<<<<\n"};
  for (const std::string word : {"2 ", "AB "}) {
    expect({1, word + TOP + LOW, "doubtful", TOP + LOW, "", "unproven secondaryIdentifier"});
    expect({1, word + card[0] + card[1] + card[2], "doubtful", card[0] + card[1] + card[2], "",
            "unproven secondaryIdentifier"});
    expect({1, card[0] + word + card[1] + card[2], "doubtful", card[0] + card[1] + card[2], "",
            "unproven secondaryIdentifier"});
  }
  expect({1, TOP + "ABC " + LOW, "doubtful", TOP + LOW, "", "unproven secondaryIdentifier"});
  EXPECT_EQ(zone_of(inspect("ABC " + TOP + LOW, with_repair(1))), "");
  EXPECT_EQ(zone_of(inspect(TOP + "ABCD " + LOW, with_repair(1))), "");
}

// A text of another script has more than 60 characters beyond ASCII: with so many a line is none of a zone,
// and what the text has is taken as it stands.
TEST(RepairOfLines, CharactersBeyondAscii) {
  const auto with_noise = [](int count) {
    std::string noise;
    for (int i = 0; i < count; ++i) {
      noise += "\xC3\xB1";
    }
    return MISREAD_TOP.substr(0, 30) + noise + MISREAD_TOP.substr(30) + FULL_LOW;
  };
  expect(
      {1, with_noise(60), "doubtful", READ_TOP + FULL_LOW, "0:4 0>O class", "unproven secondaryIdentifier"});
  expect({1, with_noise(61), "doubtful", MISREAD_TOP + FULL_LOW, "",
          "badCharacters issuingState, unproven secondaryIdentifier"});
}

// A line of digits stands for no names.
TEST(RepairOfLines, NamesHaveFillers) {
  const std::string low = "74O8122F1204159UTO<<<<<<<<<<<6\n";
  const std::string top = "I<UTOD231458907<<<<<<<<<<<<<<<\n";
  const std::string names = "ERIKSSON<<ANNA<MARIA<<<<<<<<<<\n";
  EXPECT_EQ(zone_of(inspect(top + low + names, with_repair(1))), top + replaced(low, "O8", "08") + names);
  EXPECT_EQ(zone_of(inspect(top + low + "12345678901234567890123456789\n" + names, with_repair(1))), "");
}

} // namespace
