// No machine-readable zone brings these bytes into a slot, but a slot may hold any.
#include "document_writer.hpp"
#include "plain_text.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include <unistd.h>

using namespace varnel::cli;

namespace {

// All that has been written to a file.
std::string contents(std::FILE *file) {
  std::string text;
  std::rewind(file);
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
    text += static_cast<char>(c);
  }
  return text;
}

// What is written of a record whose family name is `name`.
std::string written(format how, bool with_slots, const std::string &name) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::tmpfile(), std::fclose);
  output out(fileno(file.get()));
  document_writer writer(out, document_rows(out, how, false, false), with_slots);
  char buffer[8192];
  PARSE_RESULT record;
  result_init(&record, buffer, sizeof buffer);
  const STRING source = {name.data(), static_cast<int>(name.size())};
  utils_write_field(&record, FIELD_FAMILY_NAME, &source, nullptr, nullptr, ' ');
  writer.accepted({"", 7, "", 1, ""}, record);
  EXPECT_TRUE(out.flush());
  return contents(file.get());
}

std::string json_name(const std::string &name) {
  const std::string text = written(format::json, false, name);
  const std::string before = R"({"firstName":"","lastName":")";
  const std::string after = R"(","middleName":"","licenseNumber":"","birthDate":"","expirationDate":"",)"
                            R"("gender":"","countryCode":"","jurisdictionCode":"","nationality":"",)"
                            R"("documentType":"","issueDate":""})"
                            "\n";
  EXPECT_EQ(text.substr(0, before.size()), before);
  EXPECT_EQ(text.substr(text.size() - after.size()), after);
  return text.substr(before.size(), text.size() - before.size() - after.size());
}

std::string csv_name(const std::string &name) {
  const std::string text = written(format::csv, false, name);
  EXPECT_EQ(text.substr(0, 3), "7,,");
  EXPECT_EQ(text.substr(text.size() - 11), ",,,,,,,,,,\n");
  return text.substr(3, text.size() - 14);
}

} // namespace

TEST(Json, EscapesWhatMustBe) {
  EXPECT_EQ(json_name("O'BRIEN <~"), "O'BRIEN <~");
  EXPECT_EQ(json_name("a\"b"), R"(a\"b)");
  EXPECT_EQ(json_name("\\"), R"(\\)");
  EXPECT_EQ(json_name("\x01\t\n\x1f\x7f"), R"(\u0001\u0009\u000a\u001f\u007f)");
  EXPECT_EQ(json_name("\x80\xc3\xff"), R"(\ufffd\ufffd\ufffd)");
  EXPECT_EQ(json_name("\u00c9\u20ac\U0001f6c2"), "\u00c9\u20ac\U0001f6c2");
}

TEST(Json, TakesValuesOfAnyLength) {
  EXPECT_EQ(json_name(std::string(1023, 'A')), std::string(1023, 'A'));
  EXPECT_EQ(json_name(std::string(5000, 'A')), std::string(5000, 'A'));
}

TEST(Json, EscapesSlotsToo) {
  const std::string text = written(format::json, true, "a\"b");
  EXPECT_NE(text.find(R"(,"slots":{"FIELD_FAMILY_NAME":"a\"b"}})"), std::string::npos) << text;
}

TEST(Json, NoSlotsAreAnEmptyObject) {
  const std::string text = written(format::json, true, "");
  EXPECT_NE(text.find(R"("issueDate":"","slots":{}})"), std::string::npos) << text;
}

TEST(Csv, QuotesWhatMustBe) {
  EXPECT_EQ(csv_name("A B;'"), "A B;'");
  EXPECT_EQ(csv_name("A,B"), "\"A,B\"");
  EXPECT_EQ(csv_name("A\"B"), "\"A\"\"B\"");
  EXPECT_EQ(csv_name("A\nB"), "\"A\nB\"");
  EXPECT_EQ(csv_name("A\rB"), "\"A\rB\"");
}

TEST(Table, LetsNothingSteerTheTerminal) {
  const std::string text = written(format::table, false, "\033[2J\r\x7f");
  EXPECT_NE(text.find("lastName          ?[2J??\n"), std::string::npos) << text;
}

TEST(Output, KeepsOrderAcrossItsBuffersEnd) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::tmpfile(), std::fclose);
  output out(fileno(file.get()));
  std::string expected;
  for (const std::size_t size :
       {std::size_t{1}, output::SIZE - 2, std::size_t{3}, 2 * output::SIZE, std::size_t{5}}) {
    const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
    out.put(piece);
    expected += piece;
  }
  EXPECT_TRUE(out.flush());
  EXPECT_EQ(contents(file.get()), expected);
}

TEST(Output, WritesThroughAtOnceAfterWhatIsBuffered) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::tmpfile(), std::fclose);
  output out(fileno(file.get()));
  out.put("before");
  out.write_through(", through");
  out.put(", after");
  EXPECT_EQ(contents(file.get()), "before, through");
  EXPECT_TRUE(out.flush());
  EXPECT_EQ(contents(file.get()), "before, through, after");
}

TEST(Output, DropsEverythingAfterAFailedWrite) {
  output out(-1);
  out.put("a");
  EXPECT_EQ(out.error(), 0);
  EXPECT_FALSE(out.flush());
  EXPECT_EQ(out.error(), EBADF);
  out.put(std::string(3 * output::SIZE, 'b'));
  EXPECT_FALSE(out.flush());
}

// Kept bytes stand where they were put, however many; those before and after go to the descriptor.
TEST(Output, KeepsWhatIsPutUntilItIsToBeWrittenAgain) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::tmpfile(), std::fclose);
  output out(fileno(file.get()));
  output::kept answers;
  out.put("before");
  {
    const output::keeping keeping(out, answers);
    const std::string piece(output::SIZE / 2 + 1, 'a');
    out.put(piece);
    EXPECT_EQ(keeping.size(), piece.size());
    char *const room = out.room(piece.size()); // more than is left
    std::memcpy(room, piece.data(), piece.size());
    out.commit(room + piece.size());
    EXPECT_TRUE(out.flush()); // of which nothing is written
    EXPECT_EQ(keeping.size(), 2 * piece.size());
    out.put(std::string(3 * output::SIZE, 'a'));
  }
  EXPECT_EQ(answers.view(), std::string(4 * output::SIZE + 2, 'a'));
  out.put(", after");
  EXPECT_TRUE(out.flush());
  EXPECT_EQ(contents(file.get()), "before, after");
}

namespace {

// A record whose buffer holds `used` bytes of texts, and nothing in any slot.
PARSE_RESULT record_of(std::string &buffer, std::size_t used) {
  PARSE_RESULT record = {};
  record.buffer = buffer.data();
  record.buffer_size = static_cast<int>(buffer.size());
  record.data_size = static_cast<int>(used);
  return record;
}

} // namespace

// Whatever the length of the texts, and wherever a character stands in them that has to be escaped.
TEST(PlainTexts, EveryCharacterIsJudgedAtEveryPlaceOfEveryLength) {
  for (std::size_t length = 1; length <= 40; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      for (int c = 0; c < 256; ++c) {
        std::string buffer(length, 'A');
        buffer[place] = static_cast<char>(c);
        buffer.resize(length + PIECE);
        const PARSE_RESULT record = record_of(buffer, length);
        const bool ascii = c == 0 || (c >= 0x20 && c < 0x7F);
        ASSERT_EQ(has_plain_texts<plain_json>(record), ascii && c != '"' && c != '\\')
            << c << " at " << place << " of " << length;
        ASSERT_EQ(has_plain_texts<plain_csv>(record), ascii && c != '"' && c != ',')
            << c << " at " << place << " of " << length;
      }
    }
  }
}

TEST(PlainTexts, AreNotLookedAtTogetherWhereTheyAreTooLongOrReachTheEndOfTheBuffer) {
  std::string buffer(LONGEST_TEXTS + 1, 'A');
  buffer.resize(buffer.size() + PIECE);
  EXPECT_TRUE(has_plain_texts<plain_json>(record_of(buffer, LONGEST_TEXTS)));
  EXPECT_FALSE(has_plain_texts<plain_json>(record_of(buffer, LONGEST_TEXTS + 1)));
  std::string small(32, 'A');
  EXPECT_TRUE(has_plain_texts<plain_json>(record_of(small, 32 - PIECE)));
  EXPECT_FALSE(has_plain_texts<plain_json>(record_of(small, 33 - PIECE)));
  EXPECT_TRUE(has_plain_texts<plain_json>(record_of(small, 0)));
}

TEST(PlainTexts, AreCopiedWithNoMoreThanAPieceAfterThem) {
  const std::string source = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  for (std::size_t length = 0; length <= source.size() - PIECE; ++length) {
    std::string copy(length + PIECE + 1, '.');
    char *const end = copy_in_pieces(std::string_view(source).substr(0, length), copy.data());
    EXPECT_EQ(end - copy.data(), static_cast<std::ptrdiff_t>(length));
    EXPECT_EQ(copy.substr(0, length), source.substr(0, length));
    EXPECT_EQ(copy.back(), '.');
  }
}
