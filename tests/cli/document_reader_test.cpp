// Documents come out the same however small the pieces are in which the input comes in.
#include "document_reader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

using varnel::cli::document_reader;
using varnel::cli::document_text;
using varnel::cli::reading;
using varnel::cli::split;

namespace {

struct found {
  std::string text;
  std::uint64_t line;
  bool over_long;

  bool operator==(const found &other) const {
    return text == other.text && line == other.line && over_long == other.over_long;
  }
};

std::ostream &operator<<(std::ostream &out, const found &document) {
  return out << "line " << document.line << (document.over_long ? " over-long " : " ") << document.text.size()
             << ":" << testing::PrintToString(document.text.substr(0, 40));
}

// Hands the input out in pieces, and then fails or ends.
document_reader::read_function in_pieces(std::string_view input, std::size_t piece, bool fails = false) {
  return [input, piece, fails](char *into, std::size_t room) mutable -> std::ptrdiff_t {
    const std::size_t count = std::min({input.size(), piece, room});
    std::memcpy(into, input.data(), count);
    input.remove_prefix(count);
    return count == 0 && fails ? -1 : static_cast<std::ptrdiff_t>(count);
  };
}

std::vector<found> rest_of(document_reader &reader) {
  std::vector<found> documents;
  document_text document;
  while (reader.next(document)) {
    documents.push_back({std::string(document.text), document.line, document.over_long});
  }
  EXPECT_FALSE(reader.next(document)) << "the end is the end";
  return documents;
}

constexpr std::size_t PIECES[] = {1, 2, 3, 7, 64, 4096, document_reader::READ_SIZE, std::size_t{1} << 30};

void expect_documents(split how, const std::string &input, const std::vector<found> &expected,
                      reading bytes = reading::plain) {
  document_reader reader(how, document_reader::COUNTED, bytes);
  for (const std::size_t piece : PIECES) {
    if (input.size() / piece > 100'000) {
      continue;
    }
    reader.open(in_pieces(input, piece));
    EXPECT_EQ(rest_of(reader), expected) << "in pieces of " << piece;
    EXPECT_FALSE(reader.failed());
  }
}

std::string times(std::size_t count, const std::string &text) {
  std::string repeated;
  for (std::size_t i = 0; i < count; ++i) {
    repeated += text;
  }
  return repeated;
}

const std::size_t COUNTED = document_reader::COUNTED;
const std::size_t LONGEST = static_cast<std::size_t>(document_reader::LONGEST);

} // namespace

TEST(Limits, AreTheseBytes) {
  EXPECT_EQ(COUNTED, 3069u);
  EXPECT_EQ(LONGEST, 1048576u);
}

TEST(Whole, IsOneDocument) {
  expect_documents(split::whole, "", {{"", 1, false}});
  expect_documents(split::whole, "a\nb\n\nc\n", {{"a\nb\n\nc\n", 1, false}});
  expect_documents(split::whole, std::string("\0\xff\r\n", 4), {{std::string("\0\xff\r\n", 4), 1, false}});
}

TEST(Whole, IsCutToWhatCounts) {
  expect_documents(split::whole, times(COUNTED, "x"), {{times(COUNTED, "x"), 1, false}});
  expect_documents(split::whole, times(COUNTED, "x") + "y", {{times(COUNTED, "x"), 1, false}});
  expect_documents(split::whole, times(LONGEST + 1, "x"), {{times(COUNTED, "x"), 1, false}});
}

TEST(Whole, ReadsNoFurtherThanItMust) {
  int reads = 0;
  document_reader reader(split::whole);
  reader.open([&](char *into, std::size_t) -> std::ptrdiff_t {
    ++reads;
    std::memset(into, 'x', 1000);
    return 1000;
  });
  EXPECT_EQ(rest_of(reader), (std::vector<found>{{times(COUNTED, "x"), 1, false}}));
  EXPECT_EQ(reads, 4);
}

TEST(Line, EveryLineIsADocument) {
  expect_documents(split::line, "", {});
  expect_documents(split::line, "\n", {{"", 1, false}});
  expect_documents(split::line, "a", {{"a", 1, false}});
  expect_documents(split::line, "a\n", {{"a", 1, false}});
  expect_documents(split::line, "a\n\n b \r\n\nc",
                   {{"a", 1, false}, {"", 2, false}, {" b ", 3, false}, {"", 4, false}, {"c", 5, false}});
  expect_documents(split::line, std::string("\0\n\xff", 3),
                   {{std::string(1, '\0'), 1, false}, {"\xff", 2, false}});
}

TEST(Line, EndsWithLineFeedCarriageReturnOrBoth) {
  const std::vector<found> expected = {{"a", 1, false}, {"", 2, false}, {"b", 3, false}, {"c", 4, false}};
  for (const char *end : {"\n", "\r", "\r\n"}) {
    const std::string input = std::string("a") + end + end + "b" + end + "c";
    expect_documents(split::line, input, expected);
    expect_documents(split::line, input + end, expected);
  }
  expect_documents(split::line, "a\n\rb\r\r\nc",
                   {{"a", 1, false}, {"", 2, false}, {"b", 3, false}, {"", 4, false}, {"c", 5, false}});
}

TEST(Line, IsGivenBeforeMoreIsWaitedFor) {
  document_reader reader(split::line);
  int reads = 0;
  reader.open([&reads](char *into, std::size_t) -> std::ptrdiff_t {
    std::memcpy(into, reads == 0 ? "a\r" : "\nb", 2);
    return reads++ < 2 ? 2 : 0;
  });
  document_text document;
  ASSERT_TRUE(reader.next(document));
  EXPECT_EQ(reads, 1);
  EXPECT_EQ(rest_of(reader), (std::vector<found>{{"b", 2, false}}));
}

TEST(Line, IsCutToWhatCounts) {
  const std::string long_line = times(COUNTED, "x") + "y";
  expect_documents(split::line, long_line + "\nz\n", {{times(COUNTED, "x"), 1, false}, {"z", 2, false}});
}

TEST(Line, OfMoreThanTheLongestIsNoDocument) {
  expect_documents(split::line, times(LONGEST, "x") + "\nz",
                   {{times(COUNTED, "x"), 1, false}, {"z", 2, false}});
  expect_documents(split::line, "a\n" + times(LONGEST + 1, "x") + "\nz",
                   {{"a", 1, false}, {"", 2, true}, {"z", 3, false}});
  expect_documents(split::line, times(LONGEST + 1, "x"), {{"", 1, true}});
}

TEST(Block, EndsAtABlankLine) {
  expect_documents(split::block, "", {});
  expect_documents(split::block, "\n \n\t\r\n", {});
  expect_documents(split::block, " ", {});
  expect_documents(split::block, "a", {{"a", 1, false}});
  expect_documents(split::block, "a\n", {{"a", 1, false}});
  expect_documents(split::block, "a\nb\n", {{"a\nb", 1, false}});
  expect_documents(split::block, "a\n b\n\nc", {{"a\n b", 1, false}, {"c", 4, false}});
  expect_documents(split::block, "\n\na\r\nb\r\n\r\n \t \n\nc\n\n\n", {{"a\nb", 3, false}, {"c", 8, false}});
  expect_documents(split::block, std::string("\0\n\n\v\n", 5),
                   {{std::string(1, '\0'), 1, false}, {"\v", 3, false}});
}

TEST(Block, KeepsTheBlanksOfItsLines) {
  expect_documents(split::block, "  a\t\n b ", {{"  a\t\n b ", 1, false}});
}

TEST(Block, IsCutToWhatCounts) {
  const std::string head = times(COUNTED - 1, "x") + "\n";
  expect_documents(split::block, head + "y\n\nz", {{head, 1, false}, {"z", 4, false}});
  expect_documents(split::block, head + "\nz", {{head.substr(0, COUNTED - 1), 1, false}, {"z", 3, false}});
}

TEST(Block, OfMoreThanTheLongestIsNoDocument) {
  const std::string lines = times(1024, times(1023, "x") + "\n"); // 1 MiB, its last line feed included
  const std::string counted = lines.substr(0, COUNTED);
  expect_documents(split::block, lines + "\nz", {{counted, 1, false}, {"z", 1026, false}});
  expect_documents(split::block, lines + "y\n\nz", {{"", 1, true}, {"z", 1027, false}});
  expect_documents(split::block, "a\n\n" + lines + "y", {{"a", 1, false}, {"", 3, true}});
}

TEST(Block, BlankLinesOfAnyLengthAreNoPartOfIt) {
  const std::string blanks = times(LONGEST + 1, " ") + "\n";
  expect_documents(split::block, blanks + "a\n" + blanks + "b", {{"a", 2, false}, {"b", 4, false}});
  expect_documents(split::block, times(LONGEST, " ") + "a", {{"", 1, true}});
}

namespace {

const std::string FILLED = times(10, "ABC<<<<<<<"); // 100 characters, to cut lines from

// A first line of this width, and one that stands below it.
std::string wide(std::size_t width) { return FILLED.substr(0, width); }
std::string below(std::size_t width) { return "123" + wide(width - 3); }

} // namespace

TEST(Zone, IsLinesOfOneWidth) {
  const std::string td1 = wide(30) + "\n" + below(30) + "\n" + below(30);
  const std::string td2 = wide(36) + "\n" + below(36);
  const std::string td3 = wide(44) + "\n" + below(44);
  expect_documents(split::zone, td1 + "\n" + td2 + "\r" + td3 + "\r\n" + td3,
                   {{td1, 1, false}, {td2, 4, false}, {td3, 6, false}, {td3, 8, false}});
  expect_documents(split::zone, wide(72) + "\n" + wide(88) + "\n" + wide(90) + "\n",
                   {{wide(72), 1, false}, {wide(88), 2, false}, {wide(90), 3, false}});
}

TEST(Zone, IsWhatCountsOfItsLines) {
  const std::string td3 = wide(44) + "\n" + below(44);
  expect_documents(split::zone,
                   " " + wide(20) + " .\t" + times(600, "-") + FILLED.substr(20, 24) + "\n" + below(44) +
                       "  \n",
                   {{td3, 1, false}});
}

TEST(Zone, PassesOverTheTextAround) {
  const std::string td3 = wide(44) + "\n" + below(44);
  expect_documents(split::zone, "PASSPORT\nspecimen\n\n" + td3 + "\nsigned\n" + td3 + "\n\nend",
                   {{td3, 4, false}, {td3, 7, false}});
  expect_documents(split::zone, "", {});
  expect_documents(split::zone, "\n \nno zone\n\n", {});
}

TEST(Zone, DamagedIsADocumentToo) {
  const std::string td3 = wide(44) + "\n" + below(44);
  const std::string damaged = wide(43) + "\n" + below(44);
  expect_documents(split::zone, damaged + "\n\n" + td3 + "\n" + damaged,
                   {{damaged, 1, false}, {td3, 4, false}, {damaged, 6, false}});
  expect_documents(split::zone, "x\n" + wide(43) + "\n" + td3,
                   {{"X\n" + wide(43), 1, false}, {td3, 3, false}});
  expect_documents(split::zone, wide(44) + "\n\n" + below(44), {{wide(44), 1, false}, {below(44), 3, false}});
  expect_documents(split::zone, times(LONGEST + 1, "<") + "\n" + td3,
                   {{times(COUNTED, "<"), 1, false}, {td3, 2, false}});
}

TEST(Zone, AfterADamagedOneIsFoundAgain) {
  const std::string first = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<";
  const std::string second = "L898902C36UTO7408122F1204159ZE184226B<<<<<10";
  const std::string passport = first + "\n" + second;
  expect_documents(split::zone, first.substr(1) + "\n" + second + "\n" + passport + "\n" + passport,
                   {{first.substr(1) + "\n" + second, 1, false}, {passport, 3, false}, {passport, 5, false}});
  expect_documents(split::zone, first + "\n" + second.substr(1) + "\n" + passport,
                   {{first + "\n" + second.substr(1), 1, false}, {passport, 3, false}});
  expect_documents(split::zone, first + "\n" + passport, {{first, 1, false}, {passport, 2, false}});

  const std::string state = "I<UTOD231458907<<<<<<<<<<<<<<<";
  const std::string dates = "7408122F1204159UTO<<<<<<<<<<<6";
  const std::string name = "ANDERSON<<INGRID<<<<<<<<<<<<<<";
  const std::string card = state + "\n" + dates + "\n" + name;
  const std::string damaged = state + "\n" + dates.substr(1) + "\n" + name;
  expect_documents(split::zone, damaged + "\n" + card + "\n" + card,
                   {{damaged, 1, false}, {card, 4, false}, {card, 7, false}});
}

void expect_exact(split how, const std::string &input, const std::vector<found> &expected) {
  expect_documents(how, input, expected, reading::exact);
}

TEST(Exact, KeepsEveryByte) {
  const std::string mark = "\xEF\xBB\xBF";
  expect_exact(split::whole, mark + "a\r\nb\r", {{mark + "a\r\nb\r", 1, false}});
  expect_exact(split::line, mark + "a\r\nb", {{mark + "a", 1, false}, {"b", 2, false}});
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    const std::string block = "a" + end + " b";
    expect_exact(split::block, end + block + end + " " + end + end + block,
                 {{block, 2, false}, {block, 6, false}});
  }
}

TEST(Exact, SeparatesBlocksByLinesOfWhiteSpace) {
  for (const std::string space :
       {"", "\t ", "\v", "\f", "\f\f", "\xC2\x85", "\xC2\xA0", "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x8A",
        "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80 \xE3\x80\x80",
        "\xEF\xBB\xBF"}) {
    expect_exact(split::block, "a\n" + space + "\nb", {{"a", 1, false}, {"b", 3, false}});
  }
  for (const std::string text : {"-", "\xE2\x80\x8B", "\xE2\x80", "\xC2", "\xC2\xA0x"}) {
    expect_exact(split::block, "a\n" + text + "\nb", {{"a\n" + text + "\nb", 1, false}});
  }
}

// Pages are often separated by nothing else.
TEST(Exact, EndsLinesOfBlocksAtFormFeeds) {
  expect_exact(split::block, "a\n\fb\n\f", {{"a", 1, false}, {"b", 2, false}});
  expect_exact(split::block, "a\fb\v\vc", {{"a\fb", 1, false}, {"c", 1, false}});
  expect_documents(split::block, "a\n\fb", {{"a\n\fb", 1, false}});
  expect_exact(split::line, "a\fb\nc", {{"a\fb", 1, false}, {"c", 2, false}});
}

TEST(ByteOrderMark, IsSkipped) {
  const std::string mark = "\xEF\xBB\xBF";
  for (const split how : {split::whole, split::line, split::block}) {
    expect_documents(how, mark + "a", {{"a", 1, false}});
    expect_documents(how, mark + mark, {{mark, 1, false}}); // only the first is one
    expect_documents(how, "\xEF\xBB", {{"\xEF\xBB", 1, false}});
    expect_documents(how,
                     "\xEF"
                     "a",
                     {{"\xEF"
                       "a",
                       1, false}});
  }
  expect_documents(split::line, mark + "\nb", {{"", 1, false}, {"b", 2, false}});
  expect_documents(split::line, mark, {});
  expect_documents(split::zone, mark + wide(88), {{wide(88), 1, false}});
}

TEST(ByteOrderMark, OfUtf16IsAFailure) {
  for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
    const std::string text = mark + std::string("a\0\n\0", 4);
    for (const split how : {split::whole, split::line, split::block, split::zone}) {
      document_reader reader(how);
      for (const std::size_t piece : {std::size_t{1}, std::size_t{100}}) {
        reader.open(in_pieces(text, piece));
        EXPECT_EQ(rest_of(reader), std::vector<found>());
        EXPECT_TRUE(reader.failed() && reader.is_utf16());
      }
      reader.open(in_pieces("a", 1));
      EXPECT_FALSE(reader.is_utf16()) << "the next input is another";
    }
    expect_documents(split::line, mark.substr(0, 1), {{mark.substr(0, 1), 1, false}});
  }
}

TEST(Failure, TakesTheDocumentItBrokeOff) {
  const std::vector<std::pair<split, std::vector<found>>> expected = {
      {split::whole, {}},
      {split::line, {{"a", 1, false}, {"", 2, false}, {"b", 3, false}}},
      {split::block, {{"a", 1, false}}},
  };
  for (const auto &[how, documents] : expected) {
    document_reader reader(how);
    for (const std::size_t piece : {std::size_t{1}, std::size_t{100}}) {
      reader.open(in_pieces("a\n\nb\nc", piece, true));
      EXPECT_EQ(rest_of(reader), documents);
      EXPECT_TRUE(reader.failed());
    }
    reader.open(in_pieces("new\n", 100));
    EXPECT_EQ(rest_of(reader).size(), 1u);
    EXPECT_FALSE(reader.failed());
  }
}

TEST(Reader, ForgetsTheInputBefore) {
  document_reader reader(split::line);
  document_text document;
  EXPECT_FALSE(reader.next(document)) << "nothing is open";
  reader.open(in_pieces("a\nb\nc\n", 100));
  ASSERT_TRUE(reader.next(document));
  reader.open(in_pieces("d", 100));
  EXPECT_EQ(rest_of(reader), (std::vector<found>{{"d", 1, false}}));
}

// The plain way to the same blocks and lines: all of the input at once, line by line.
namespace {

std::vector<found> plainly(split how, const std::string &input) {
  std::vector<found> documents;
  std::string block;
  std::uint64_t number = 0;
  std::uint64_t first = 0;
  const auto finish = [&] {
    if (!block.empty()) {
      documents.push_back({block.substr(0, block.size() - 1), first, false});
    }
    block.clear();
  };
  for (std::size_t at = 0; at < input.size();) {
    const std::size_t end = std::min(input.find_first_of("\r\n", at), input.size());
    const std::string line = input.substr(at, end - at);
    ++number;
    if (how == split::line) {
      documents.push_back({line, number, false});
    } else if (line.find_first_not_of(" \t") == std::string::npos) {
      finish();
    } else {
      first = block.empty() ? number : first;
      block += line + "\n";
    }
    at = end + (input.substr(std::min(end, input.size()), 2).compare("\r\n") == 0 ? 2 : 1);
  }
  finish();
  return documents;
}

} // namespace

TEST(Reader, AgreesWithThePlainWayOnShortInputsOfEveryShape) {
  constexpr char BYTES[] = {'\n', ' ', 'a', '\r'};
  for (int code = 0; code < 4 * 4 * 4 * 4 * 4 * 4 * 4; ++code) {
    std::string input;
    for (int rest = code; rest > 0; rest /= 4) {
      input += BYTES[rest % 4];
    }
    for (const split how : {split::line, split::block}) {
      for (const std::size_t piece : {std::size_t{1}, std::size_t{2}, std::size_t{100}}) {
        document_reader reader(how);
        reader.open(in_pieces(input, piece));
        ASSERT_EQ(rest_of(reader), plainly(how, input)) << testing::PrintToString(input) << " by " << piece;
      }
    }
  }
}
