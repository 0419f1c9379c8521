// No machine-readable zone brings these bytes into a slot, but a slot may hold any.
#include "document_writer.hpp"
#include "plain_text.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include <unistd.h>

using namespace varnel::cli;

namespace {

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
  std::string text(1 << 16, '\0');
  std::rewind(file.get());
  text.resize(std::fread(text.data(), 1, text.size(), file.get()));
  return text;
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
  std::rewind(file.get());
  std::string text(expected.size() + 1, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), file.get()));
  EXPECT_EQ(text, expected);
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

// Whatever the length of a value, and wherever a character stands in it that has to be escaped.
TEST(PlainText, EveryCharacterIsJudgedAtEveryPlaceOfEveryLength) {
  char written[64];
  for (std::size_t length = 1; length <= 20; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      for (int c = 0; c < 256; ++c) {
        std::string text(length, 'A');
        text[place] = static_cast<char>(c);
        const bool ascii = c >= 0x20 && c < 0x7F;
        plain_text<plain_json> json(written);
        json.put(text);
        ASSERT_EQ(json.is_plain(), ascii && c != '"' && c != '\\')
            << c << " at " << place << " of " << length;
        ASSERT_EQ(std::string(written, json.end()), text);
        plain_text<plain_csv> csv(written);
        csv.put(text);
        ASSERT_EQ(csv.is_plain(), ascii && c != '"' && c != ',') << c << " at " << place << " of " << length;
      }
    }
  }
}

TEST(PlainText, OneThatIsNotMakesAllOfThemNot) {
  char written[64];
  plain_text<plain_json> text(written);
  text.put("a\"b");
  text.put("plain");
  text.put("");
  EXPECT_FALSE(text.is_plain());
}

TEST(PlainText, AsLongAsCanBe) {
  std::string written(plain_text<plain_json>::LONGEST + 1, '\0');
  const std::string longest(plain_text<plain_json>::LONGEST, 'x');
  plain_text<plain_json> text(written.data());
  text.put(longest);
  EXPECT_TRUE(text.is_plain());
  EXPECT_EQ(std::string(written.data(), text.end()), longest);
  plain_text<plain_json> longer(written.data());
  longer.put(longest + 'x');
  EXPECT_FALSE(longer.is_plain());
  EXPECT_EQ(longer.end(), written.data());
  EXPECT_EQ(json_name(longest + 'x'), longest + 'x');
  EXPECT_EQ(csv_name(longest + 'x'), longest + 'x');
}
