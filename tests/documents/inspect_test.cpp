// Inspections, written out: the whole JSON of readable texts, and each rule of each field as a row.
#include "support.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace {

using json = nlohmann::ordered_json;
using support::inspect;
using support::inspected;
using support::TODAY;

std::string read_file(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// What a record has no use for says nothing.
template <class Entry, size_t Count> void expect_zero_from(const Entry (&entries)[Count], size_t first) {
  const Entry zero = {};
  for (size_t i = first; i < Count; ++i) {
    EXPECT_EQ(std::memcmp(&entries[i], &zero, sizeof zero), 0) << i;
  }
}

// ---- whole answers ----------------------------------------------------------------------------------

TEST(Vectors, TheWholeJsonOfEachText) {
  int count = 0;
  std::set<std::string> seen;
  for (const auto &entry : std::filesystem::directory_iterator(VARNEL_DOCUMENT_TESTS_DIR "/vectors")) {
    std::filesystem::path path = entry.path();
    if (path.extension() != ".txt") {
      continue;
    }
    const std::string text = read_file(path);
    const json expected = json::parse(read_file(path.replace_extension(".json")));
    EXPECT_EQ(support::inspect_to_json(text), expected.dump()) << path;
    const varnel_inspection record = inspect(text);
    for (const varnel_inspected_field &field : record.fields) {
      EXPECT_EQ(field.text_length, std::strlen(field.text)) << path;
      EXPECT_EQ(field.value_length, std::strlen(field.value)) << path;
    }
    for (const varnel_check &check : record.checks) {
      EXPECT_LE(check.holds, 1) << path;
    }
    EXPECT_TRUE(record.expired >= -1 && record.expired <= 1) << path;
    for (const varnel_finding &finding : record.findings) {
      EXPECT_TRUE(finding.line >= -1 && finding.column >= -1) << path;
    }
    expect_zero_from(record.fields, record.field_count);
    expect_zero_from(record.checks, record.check_count);
    expect_zero_from(record.findings, record.finding_count);
    expect_zero_from(record.notices, record.notice_count);
    ++count;
    seen.insert(expected["layout"].dump());
    for (const char *list : {"findings", "notices"}) {
      for (const json &finding : expected[list]) {
        seen.insert(finding["code"]);
      }
    }
    for (const json &field : expected["fields"]) {
      seen.insert("status " + field["status"].get<std::string>());
    }
  }
  EXPECT_GT(count, 40);
  for (const char *reached : {"\"TD1\"",
                              "\"TD2\"",
                              "\"TD3\"",
                              "\"MRV-A\"",
                              "\"MRV-B\"",
                              "\"FRA-ID\"",
                              "null",
                              "empty",
                              "badCharacters",
                              "notADate",
                              "unknown",
                              "checkFailed",
                              "datesOrder",
                              "length",
                              "noZone",
                              "digitInCode",
                              "codeNotAllowed",
                              "codeNotListed",
                              "nationalLetters",
                              "sexX",
                              "fillerDigit",
                              "dropped",
                              "status empty",
                              "status badCharacters",
                              "status notADate",
                              "status unknown",
                              "status checkFailed",
                              "status ok"}) {
    EXPECT_EQ(seen.count(reached), 1u) << reached;
  }
}

// ---- each rule of each field ------------------------------------------------------------------------

char digit_of(const std::string &covered) {
  int sum = 0;
  for (size_t i = 0; i < covered.size(); ++i) {
    const char c = covered[i];
    sum += (c == '<' ? 0 : c <= '9' ? c - '0' : c - 'A' + 10) * (i % 3 == 0 ? 7 : i % 3 == 1 ? 3 : 1);
  }
  return static_cast<char>('0' + sum % 10);
}

// A passport whose digits are right unless they are given.
struct passport {
  std::string code = "P<";
  std::string issuer = "UTO";
  std::string names = "ERIKSSON<<ANNA<MARIA";
  std::string number = "L898902C3";
  std::string nationality = "UTO";
  std::string birth = "740812";
  std::string sex = "F";
  std::string expiry = "300415";
  std::string personal = "ZE184226B<<<<<";
  std::string number_digit = "";
  std::string birth_digit = "";
  std::string expiry_digit = "";
  std::string personal_digit = "";
  std::string composite = "";

  std::string zone() const {
    const auto with_digit = [](const std::string &text, const std::string &digit) {
      return text + (digit.empty() ? std::string(1, digit_of(text)) : digit);
    };
    std::string first = code + issuer + names;
    first.resize(44, '<');
    const std::string a = with_digit(number, number_digit);
    const std::string b = with_digit(birth, birth_digit);
    const std::string c = with_digit(expiry, expiry_digit) + with_digit(personal, personal_digit);
    return first + "\n" + a + nationality + b + sex + with_digit(c, "").substr(0, c.size()) +
           (composite.empty() ? std::string(1, digit_of(a + b + c)) : composite) + "\n";
  }
};

// What is expected of one field: status, value (null for none), the codes of the findings and notices.
struct expectation {
  const char *status;
  const char *value;
  std::vector<std::string> findings;
  std::vector<std::string> notices = {};
};

void expect_field(const std::string &zone, const char *field, const expectation &expected,
                  varnel_inspect_options options = TODAY) {
  const json read = inspected(zone, options);
  ASSERT_TRUE(read["fields"].contains(field)) << zone << read;
  EXPECT_EQ(read["fields"][field]["status"], expected.status) << zone;
  EXPECT_EQ(read["fields"][field]["value"], expected.value != nullptr ? json(expected.value) : json(nullptr))
      << zone;
  const auto codes = [&](const char *list) {
    std::vector<std::string> found;
    for (const json &finding : read[list]) {
      if (finding["field"] == field) {
        found.push_back(finding["code"]);
      }
    }
    return found;
  };
  EXPECT_EQ(codes("findings"), expected.findings) << zone;
  EXPECT_EQ(codes("notices"), expected.notices) << zone;
}

TEST(Rules, DocumentCodeOfPassports) {
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"P<", {"ok", "P", {}}},
      {"PP", {"ok", "PP", {}}},
      {"PV", {"ok", "PV", {}}},
      {"P1", {"ok", "P1", {}, {"digitInCode"}}},
      {"A<", {"unknown", "A", {"unknown"}}},
      {"I<", {"unknown", "I", {"unknown"}}},
      {"IV", {"unknown", "IV", {"unknown"}}},
      {"Q7", {"unknown", "Q7", {"unknown"}, {"digitInCode"}}},
      {"<P", {"badCharacters", nullptr, {"badCharacters"}}},
      {"<<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"1P", {"badCharacters", nullptr, {"badCharacters"}}},
  };
  for (const auto &[code, expected] : rows) {
    passport p;
    p.code = code;
    expect_field(p.zone(), "documentCode", expected);
  }
}

TEST(Rules, DocumentCodeOfCards) {
  const std::vector<std::pair<std::string, expectation>> td1 = {
      {"I<", {"ok", "I", {}}},
      {"A<", {"ok", "A", {}}},
      {"CQ", {"ok", "CQ", {}}},
      {"AC", {"ok", "AC", {}}},
      {"AI", {"ok", "AI", {}, {"codeNotAllowed"}}},
      {"IV", {"unknown", "IV", {"unknown"}}},
      {"AV", {"unknown", "AV", {"unknown"}}},
      {"CV", {"unknown", "CV", {"unknown"}}},
      {"P<", {"unknown", "P", {"unknown"}}},
      {"V<", {"unknown", "V", {"unknown"}}},
  };
  for (const auto &[code, expected] : td1) {
    std::string zone = support::SPECIMENS[0].zone;
    expect_field(zone.replace(0, 2, code), "documentCode", expected);
  }
  const std::vector<std::pair<std::string, expectation>> td2 = {
      {"I<", {"ok", "I", {}}},
      {"AI", {"ok", "AI", {}}},
      {"AC", {"ok", "AC", {}, {"codeNotAllowed"}}},
      {"IV", {"unknown", "IV", {"unknown"}}},
  };
  for (const auto &[code, expected] : td2) {
    std::string zone = support::SPECIMENS[1].zone;
    expect_field(zone.replace(0, 2, code), "documentCode", expected);
  }
}

TEST(Rules, DocumentCodeMeanings) {
  const std::vector<std::pair<std::string, json>> td3 = {
      {"PP", "national / ordinary passport"},
      {"PE", "emergency passport"},
      {"PD", "diplomatic passport"},
      {"PO", "official / service passport"},
      {"PR", "refugee passport"},
      {"PT", "alien / non-citizen passport"},
      {"PS", "stateless passport"},
      {"PL", "laissez-passer"},
      {"PM", "military passport"},
      {"PU", "single-sheet emergency travel document (Part 8; not a passport book)"},
      {"P<", nullptr},
      {"PA", nullptr},
      {"AC", nullptr},
      {"<P", nullptr},
  };
  for (const auto &[code, meaning] : td3) {
    passport p;
    p.code = code;
    EXPECT_EQ(inspected(p.zone())["fields"]["documentCode"]["meaning"], meaning) << code;
  }
  std::string card = support::SPECIMENS[0].zone;
  EXPECT_EQ(inspected(card.replace(0, 2, "AC"))["fields"]["documentCode"]["meaning"],
            "crew member certificate");
  EXPECT_EQ(inspected(card.replace(0, 2, "IP"))["fields"]["documentCode"]["meaning"], nullptr);
  std::string td2 = support::SPECIMENS[1].zone;
  EXPECT_EQ(inspected(td2.replace(0, 2, "AC"))["fields"]["documentCode"]["meaning"], nullptr);
}

TEST(Rules, States) {
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"UTO", {"ok", "UTO", {}}},
      {"D<<", {"ok", "D", {}}},
      {"XXK", {"ok", "XXK", {}, {"codeNotListed"}}},
      {"<<<", {"empty", nullptr, {"empty"}}},
      {"ZZZ", {"unknown", "ZZZ", {"unknown"}}},
      {"XXJ", {"unknown", "XXJ", {"unknown"}}},
      {"AXK", {"unknown", "AXK", {"unknown"}}},
      {"DDR", {"unknown", "DDR", {"unknown"}}},
      {"UT<", {"unknown", "UT", {"unknown"}}},
      {"U<O", {"badCharacters", nullptr, {"badCharacters"}}},
      {"<UT", {"badCharacters", nullptr, {"badCharacters"}}},
      {"UT0", {"badCharacters", nullptr, {"badCharacters"}}},
      {"0TO", {"badCharacters", nullptr, {"badCharacters"}}},
  };
  for (const auto &[code, expected] : rows) {
    passport p;
    p.issuer = code;
    expect_field(p.zone(), "issuingState", expected);
    p.issuer = "UTO";
    p.nationality = code;
    expect_field(p.zone(), "nationality", expected);
  }
}

struct names_row {
  std::string field;
  expectation primary;
  expectation secondary;
};

TEST(Rules, Names) {
  const expectation empty = {"empty", nullptr, {}};
  const expectation bad = {"badCharacters", nullptr, {"badCharacters"}};
  const std::vector<names_row> rows = {
      {"ERIKSSON<<ANNA<MARIA", {"ok", "ERIKSSON", {}}, {"ok", "ANNA MARIA", {}}},
      {"VAN<DER<BERG<<JAN", {"ok", "VAN DER BERG", {}}, {"ok", "JAN", {}}},
      {"ERIKSSON", {"ok", "ERIKSSON", {}}, empty},
      {"ERIKSSON<ANNA", {"ok", "ERIKSSON ANNA", {}}, empty},
      {"<<ANNA", empty, {"ok", "ANNA", {}}},
      {"", {"empty", nullptr, {"empty"}}, empty},
      {"<ERIKSSON<<ANNA", {"ok", "ERIKSSON", {}}, {"ok", "ANNA", {}}},
      {"ERIKSSON<<ANNA<<MARIA", {"ok", "ERIKSSON", {}}, {"ok", "ANNA MARIA", {}}},
      {"ERIKSSON<<ANNA<<<MARIA", {"ok", "ERIKSSON", {}}, bad},
      {"ERIKSSON<<<ANNA", {"ok", "ERIKSSON", {}}, bad},
      {"<<<ANNA", empty, bad},
      {"ERIKSSON<<ANNA<<<<<<K", {"ok", "ERIKSSON", {}}, bad},
      {"ER1KSSON<<ANNA", bad, {"ok", "ANNA", {}}},
      {"ERIKSSON<<AN8A", {"ok", "ERIKSSON", {}}, bad},
      {"0<<ANNA", bad, {"ok", "ANNA", {}}},
  };
  for (const names_row &row : rows) {
    passport p;
    p.names = row.field;
    expect_field(p.zone(), "primaryIdentifier", row.primary);
    expect_field(p.zone(), "secondaryIdentifier", row.secondary);
  }
}

TEST(Rules, NamesOfRussianInternalPassportsMayHaveDigits) {
  passport p;
  p.code = "PN";
  p.issuer = "RUS";
  p.names = "WUKINA<<7LI8<IL9INI3NA";
  expect_field(p.zone(), "primaryIdentifier", {"ok", "WUKINA", {}});
  expect_field(p.zone(), "secondaryIdentifier", {"ok", "7LI8 IL9INI3NA", {}, {"nationalLetters"}});
  p.names = "4UKIN<<7LI8<<<8";
  expect_field(p.zone(), "primaryIdentifier", {"ok", "4UKIN", {}, {"nationalLetters"}});
  expect_field(p.zone(), "secondaryIdentifier", {"badCharacters", nullptr, {"badCharacters"}});
  p.code = "P<";
  expect_field(p.zone(), "primaryIdentifier", {"badCharacters", nullptr, {"badCharacters"}});
  p.code = "PN";
  p.issuer = "RUA";
  expect_field(p.zone(), "primaryIdentifier", {"badCharacters", nullptr, {"badCharacters"}});
}

// Where the field's last column is a letter, the name may have been cut: both parts of it.
TEST(Rules, TruncatedNames) {
  const auto truncated = [](const std::string &names) {
    passport p;
    p.names = names;
    const json fields = inspected(p.zone())["fields"];
    return std::make_pair(fields["primaryIdentifier"]["truncated"].get<bool>(),
                          fields["secondaryIdentifier"]["truncated"].get<bool>());
  };
  EXPECT_EQ(truncated("ERIKSSON<<ANNA"), std::make_pair(false, false));
  EXPECT_EQ(truncated("ERIKSSON<<ABCDEFGHIJKLMNOPQRSTUVWXYZABC"), std::make_pair(true, true));
  EXPECT_EQ(truncated("ERIKSSON<<ABCDEFGHIJKLMNOPQRSTUVWXYZAB"), std::make_pair(false, false));
  EXPECT_EQ(truncated("ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLM"), std::make_pair(true, true));
}

// A part of a name without columns stands at its column's character, or after the line's last.
TEST(Rules, PlacesOfEmptyNames) {
  passport p;
  p.names = "<<ANNA";
  json field = inspected(p.zone())["fields"]["primaryIdentifier"];
  EXPECT_EQ(field["text"], "");
  EXPECT_EQ(field["column"], 5);
  EXPECT_EQ(field["source"], json({{"start", 5}, {"end", 5}}));
  p.names = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJK<<";
  field = inspected(p.zone())["fields"]["secondaryIdentifier"];
  EXPECT_EQ(field["text"], "");
  EXPECT_EQ(field["column"], 44);
  EXPECT_EQ(field["source"], json({{"start", 44}, {"end", 44}}));
  // The same after a look-alike of two bytes.
  p.names = "<<ANNA";
  field = inspected("\u0420" + p.zone().substr(1))["fields"]["primaryIdentifier"];
  EXPECT_EQ(field["source"], json({{"start", 6}, {"end", 6}}));
  p.names = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJK<<";
  field = inspected("\u0420" + p.zone().substr(1))["fields"]["secondaryIdentifier"];
  EXPECT_EQ(field["source"], json({{"start", 45}, {"end", 45}}));
}

TEST(Rules, DocumentNumber) {
  passport p;
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"L898902C3", {"ok", "L898902C3", {}}}, {"AB<12345<", {"ok", "AB 12345", {}}},
      {"AB<<12345", {"ok", "AB 12345", {}}},  {"<AB12345<", {"ok", "AB12345", {}}},
      {"000000000", {"ok", "000000000", {}}}, {"<<<<<<<<<", {"empty", nullptr, {"empty"}}},
  };
  for (const auto &[number, expected] : rows) {
    p.number = number;
    expect_field(p.zone(), "documentNumber", expected);
  }
  p.number = "L898902C3";
  for (const char *wrong : {"5", "<", "O"}) {
    p.number_digit = wrong;
    expect_field(p.zone(), "documentNumber", {"checkFailed", "L898902C3", {"checkFailed"}});
  }
  // A filler holds where the field is all fillers, and there only.
  p.number = "000000000";
  p.number_digit = "<";
  expect_field(p.zone(), "documentNumber", {"checkFailed", "000000000", {"checkFailed"}});
  p.number = "<<<<<<<<<";
  expect_field(p.zone(), "documentNumber", {"empty", nullptr, {"empty"}});
  p.number_digit = "3";
  expect_field(p.zone(), "documentNumber", {"empty", nullptr, {"empty", "checkFailed"}});
}

struct card_row {
  std::string first_line; // of TD1, without what the composite needs
  std::string value;
  json rule;
  std::string optional_text;
  int optional_column;
};

TEST(Rules, LongDocumentNumbers) {
  const auto zone = [](const std::string &first) {
    const std::string second = "8405117F3105102UTO<<<<<<<<<<<";
    const char composite =
        digit_of(first.substr(5) + second.substr(0, 7) + second.substr(8, 7) + second.substr(18, 11));
    return first + "\n" + second + composite + "\nFENWICK<<ADA<<<<<<<<<<<<<<<<<<\n";
  };
  const std::vector<card_row> rows = {
      // The digit without the filler, and with it.
      {"IDUTO600001795<0152<<<<<<<<<<<", "600001795015", "plain", "<<<<<<<<<<<", 19},
      {"IDUTO600001795<0150<<<<<<<<<<<", "600001795015", "filler", "<<<<<<<<<<<", 19},
      // One character and its digit; all of the field.
      {"IDUTO600001795<04<<<<<<<<<<<<<", "6000017950", "plain", "<<<<<<<<<<<<<", 17},
      {"I<UTOABCDEFGHI<12345678901237<", "ABCDEFGHI1234567890123", "plain", "<", 29},
      {"I<UTOABCDEFGHI<123456789012349", "ABCDEFGHI12345678901234", "plain", "", 30},
      // Other data after the first filler.
      {"I<UTOD2314589A<777<XYZ<<<<<<<<", "D2314589A77", "plain", "<XYZ<<<<<<<<", 18},
  };
  for (const card_row &row : rows) {
    const json read = inspected(zone(row.first_line));
    EXPECT_EQ(read["verdict"], "valid") << row.first_line << read["checks"];
    EXPECT_EQ(read["fields"]["documentNumber"]["value"], row.value);
    EXPECT_EQ(read["fields"]["documentNumber"]["text"], row.first_line.substr(5, 9));
    EXPECT_EQ(read["fields"]["documentNumber"]["proof"], "digits");
    EXPECT_EQ(read["fields"]["optionalData1"]["text"], row.optional_text);
    EXPECT_EQ(read["fields"]["optionalData1"]["column"], row.optional_column);
    const json &check = read["checks"]["documentNumber"];
    EXPECT_EQ(check["rule"], row.rule) << row.first_line;
    EXPECT_EQ(check["column"], row.optional_column - 1);
    EXPECT_EQ(check["found"], check["expected"]);
    EXPECT_EQ(check["holds"], true);
    EXPECT_EQ(read["chipAccess"], row.value + std::string(check["found"]) + "84051173105102");
  }
  // What is no long number is a short one with a wrong digit.
  for (const char *first : {"IDUTO600001795<0153<<<<<<<<<<<",    // a digit that fits neither way
                            "IDUTO600001795<8<<<<<<<<<<<<<<",    // no continuation
                            "IDUTO600001795<<0152<<<<<<<<<<",    // nothing before the first filler
                            "IDUTO60000179<<0152<<<<<<<<<<<",    // a filler in the nine
                            "IDUTO600001795<015A<<<<<<<<<<<"}) { // a letter for the digit
    const json read = inspected(zone(first));
    EXPECT_EQ(read["fields"]["documentNumber"]["status"], "checkFailed") << first;
    EXPECT_EQ(read["checks"]["documentNumber"]["column"], 14) << first;
    EXPECT_EQ(read["checks"]["documentNumber"]["found"], "<") << first;
    EXPECT_EQ(read["checks"]["documentNumber"]["rule"], nullptr) << first;
    EXPECT_EQ(read["fields"]["optionalData1"]["column"], 15) << first;
    EXPECT_EQ(read["chipAccess"], nullptr) << first;
  }
}

TEST(Rules, BirthDate) {
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"740812", {"ok", "1974-08-12", {}}},
      {"7408<<", {"ok", "1974-08-XX", {}}},
      {"74<<<<", {"ok", "1974-XX-XX", {}}},
      {"<<<<<<", {"empty", nullptr, {}}},
      {"74<<12", {"badCharacters", nullptr, {"badCharacters"}}},
      {"<<0812", {"badCharacters", nullptr, {"badCharacters"}}},
      {"7<<<<<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"74081<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"740<<<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"74O812", {"badCharacters", nullptr, {"badCharacters"}}},
      {"741312", {"notADate", nullptr, {"notADate"}}},
      {"740012", {"notADate", nullptr, {"notADate"}}},
      {"740800", {"notADate", nullptr, {"notADate"}}},
      {"740832", {"notADate", nullptr, {"notADate"}}},
      {"740230", {"notADate", nullptr, {"notADate"}}},
      {"7400<<", {"notADate", nullptr, {"notADate"}}},
      {"7413<<", {"notADate", nullptr, {"notADate"}}},
      {"000229", {"ok", "2000-02-29", {}}},
      {"010229", {"notADate", nullptr, {"notADate"}}},
      {"040229", {"ok", "2004-02-29", {}}},
      // Not after 21 November 2026.
      {"261120", {"ok", "2026-11-20", {}}},
      {"261121", {"ok", "2026-11-21", {}}},
      {"261122", {"ok", "1926-11-22", {}}},
      {"2611<<", {"ok", "2026-11-XX", {}}},
      {"2612<<", {"ok", "1926-12-XX", {}}},
      {"26<<<<", {"ok", "2026-XX-XX", {}}},
      {"27<<<<", {"ok", "1927-XX-XX", {}}},
  };
  for (const auto &[birth, expected] : rows) {
    passport p;
    p.birth = birth;
    expect_field(p.zone(), "birthDate", expected);
  }
  passport p;
  p.birth_digit = "9";
  expect_field(p.zone(), "birthDate", {"checkFailed", "1974-08-12", {"checkFailed"}});
  p.birth = "740230";
  expect_field(p.zone(), "birthDate", {"notADate", nullptr, {"notADate", "checkFailed"}});
  p.birth = "<<<<<<";
  expect_field(p.zone(), "birthDate", {"empty", nullptr, {"checkFailed"}});
  p.birth_digit = "<";
  expect_field(p.zone(), "birthDate", {"empty", nullptr, {}});
  p.birth = "<<<<<1";
  expect_field(p.zone(), "birthDate", {"badCharacters", nullptr, {"badCharacters", "checkFailed"}});
}

TEST(Rules, EveryMonthHasItsLastDay) {
  const char *last_days[] = {"970131", "970228", "960229", "970331", "970430", "970531", "970630",
                             "970731", "970831", "970930", "971031", "971130", "971231"};
  for (const std::string day : last_days) {
    passport p;
    p.birth = p.expiry = day;
    const std::string value = "19" + day.substr(0, 2) + "-" + day.substr(2, 2) + "-" + day.substr(4);
    expect_field(p.zone(), "birthDate", {"ok", value.c_str(), {}});
    expect_field(p.zone(), "expiryDate", {"ok", value.c_str(), {}});
    p.birth = p.expiry = std::to_string(std::stoi(day) + 1); // the day after it
    expect_field(p.zone(), "birthDate", {"notADate", nullptr, {"notADate"}});
    expect_field(p.zone(), "expiryDate", {"notADate", nullptr, {"notADate"}});
  }
}

TEST(Rules, PartsOfADateThatAreUnknownAreNull) {
  const auto parts_of = [](const std::string &birth) {
    passport p;
    p.birth = birth;
    const json field = inspected(p.zone())["fields"]["birthDate"];
    return json{field["year"], field["month"], field["day"]};
  };
  EXPECT_EQ(parts_of("740812"), (json{1974, 8, 12}));
  EXPECT_EQ(parts_of("7408<<"), (json{1974, 8, nullptr}));
  EXPECT_EQ(parts_of("74<<<<"), (json{1974, nullptr, nullptr}));
  EXPECT_EQ(parts_of("<<<<<<"), (json{nullptr, nullptr, nullptr}));
  EXPECT_EQ(parts_of("740230"), (json{nullptr, nullptr, nullptr}));
  EXPECT_EQ(parts_of("74O812"), (json{nullptr, nullptr, nullptr}));
}

TEST(Rules, SmallLettersAreReadAsCapitals) {
  for (const auto &specimen : support::SPECIMENS) {
    std::string small = specimen.zone;
    for (char &c : small) {
      c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    EXPECT_EQ(inspected(small), inspected(specimen.zone)) << specimen.layout;
  }
}

// The century is chosen first, by the numbers as they stand; only then is the calendar asked.
TEST(Rules, BirthYearBeforeCalendar) {
  passport p;
  p.birth = "000229";
  expect_field(p.zone(), "birthDate", {"notADate", nullptr, {"notADate"}}, {2000, 2, 28, 0}); // 1900
  expect_field(p.zone(), "birthDate", {"ok", "2000-02-29", {}}, {2000, 2, 29, 0});
  p.birth = "99<<<<";
  expect_field(p.zone(), "birthDate", {"notADate", nullptr, {"notADate"}}, {98, 1, 1, 0}); // before year 1
  // What is unknown may be as early as can be.
  p.birth = "26<<<<";
  expect_field(p.zone(), "birthDate", {"ok", "2026-XX-XX", {}}, {2026, 1, 1, 0});
  p.birth = "2601<<";
  expect_field(p.zone(), "birthDate", {"ok", "2026-01-XX", {}}, {2026, 1, 1, 0});
}

TEST(Rules, ExpiryDate) {
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"300415", {"ok", "2030-04-15", {}}},
      {"770101", {"ok", "1977-01-01", {"datesOrder"}}},
      {"760101", {"ok", "2076-01-01", {}}},
      {"<<<<<<", {"empty", nullptr, {}}},
      {"3004<<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"30<<<<", {"badCharacters", nullptr, {"badCharacters"}}},
      {"3O0415", {"badCharacters", nullptr, {"badCharacters"}}},
      {"300431", {"notADate", nullptr, {"notADate"}}},
      {"300015", {"notADate", nullptr, {"notADate"}}},
      {"300400", {"notADate", nullptr, {"notADate"}}},
      {"280229", {"ok", "2028-02-29", {}}},
      {"290229", {"notADate", nullptr, {"notADate"}}},
  };
  for (const auto &[expiry, expected] : rows) {
    passport p;
    p.birth = "770812";
    p.expiry = expiry;
    expect_field(p.zone(), "expiryDate", expected);
  }
  passport p;
  p.expiry_digit = "9";
  expect_field(p.zone(), "expiryDate", {"checkFailed", "2030-04-15", {"checkFailed"}});
}

TEST(Rules, Expired) {
  const auto expired = [](const std::string &expiry, const std::string &digit = "") {
    passport p;
    p.expiry = expiry;
    p.expiry_digit = digit;
    return inspected(p.zone())["expired"];
  };
  EXPECT_EQ(expired("261120"), true);
  EXPECT_EQ(expired("261121"), false); // on its day it is not
  EXPECT_EQ(expired("261122"), false);
  EXPECT_EQ(expired("<<<<<<"), nullptr);
  EXPECT_EQ(expired("260230"), nullptr);
  EXPECT_EQ(expired("261120", "0"), nullptr);
}

TEST(Rules, DatesOrder) {
  passport p;
  p.birth = "200812";
  p.expiry = "200811";
  expect_field(p.zone(), "expiryDate", {"ok", "2020-08-11", {"datesOrder"}});
  p.expiry = "200812";
  expect_field(p.zone(), "expiryDate", {"ok", "2020-08-12", {}});
  p.birth = "2008<<";
  p.expiry = "190812";
  expect_field(p.zone(), "expiryDate", {"ok", "2019-08-12", {}}); // not fully known
  p.birth = "200812";
  p.birth_digit = "0";
  expect_field(p.zone(), "expiryDate", {"ok", "2019-08-12", {}}); // not ok
}

TEST(Rules, Sex) {
  const std::vector<std::pair<std::string, expectation>> rows = {
      {"M", {"ok", "M", {}}},
      {"F", {"ok", "F", {}}},
      {"<", {"ok", "X", {}}},
      {"X", {"ok", "X", {}, {"sexX"}}},
      {"Q", {"badCharacters", nullptr, {"badCharacters"}}},
      {"1", {"badCharacters", nullptr, {"badCharacters"}}},
  };
  for (const auto &[sex, expected] : rows) {
    passport p;
    p.sex = sex;
    expect_field(p.zone(), "sex", expected);
  }
}

TEST(Rules, PersonalNumber) {
  passport p;
  expect_field(p.zone(), "personalNumber", {"ok", "ZE184226B", {}});
  p.personal = "<Z<<E<184226B<";
  expect_field(p.zone(), "personalNumber", {"ok", "Z E 184226B", {}});
  p.personal_digit = "A";
  expect_field(p.zone(), "personalNumber", {"checkFailed", "Z E 184226B", {"checkFailed"}});
  // Empty: 0 or a filler.
  p.personal = "<<<<<<<<<<<<<<";
  expect_field(p.zone(), "personalNumber", {"empty", nullptr, {"checkFailed"}});
  for (const char *digit : {"0", "<"}) {
    p.personal_digit = digit;
    expect_field(p.zone(), "personalNumber", {"empty", nullptr, {}});
  }
  // A filler for a computed 0, under a composite that holds, and for nothing else.
  p.personal = "ZE1842208<<<<<";
  p.personal_digit = "<";
  expect_field(p.zone(), "personalNumber", {"ok", "ZE1842208", {}, {"fillerDigit"}});
  p.composite = "A";
  expect_field(p.zone(), "personalNumber", {"checkFailed", "ZE1842208", {"checkFailed"}});
  p.composite = "";
  p.personal = "ZE184226B<<<<<";
  expect_field(p.zone(), "personalNumber", {"checkFailed", "ZE184226B", {"checkFailed"}});
}

// A filler never holds as composite, and a composite that fails stands last among the findings.
TEST(Rules, Composite) {
  passport p;
  p.composite = "<";
  p.number_digit = "5";
  json read = inspected(p.zone());
  EXPECT_EQ(read["checks"]["composite"]["holds"], false);
  EXPECT_EQ(read["findings"].back(),
            json({{"code", "checkFailed"}, {"field", "composite"}, {"line", 1}, {"column", 43}}));
  EXPECT_EQ(read["findings"].size(), 2u);
}

TEST(Rules, Proof) {
  const auto proofs = [](const std::string &zone) {
    std::vector<std::string> all;
    const json read = inspected(zone);
    for (const auto &[name, field] : read["fields"].items()) {
      all.push_back(name + " " + field["proof"].get<std::string>());
    }
    return all;
  };
  using list = std::vector<std::string>;
  passport p;
  EXPECT_EQ(proofs(p.zone()),
            (list{"documentCode none", "issuingState list", "primaryIdentifier none",
                  "secondaryIdentifier none", "documentNumber digits", "nationality list", "birthDate digits",
                  "sex none", "expiryDate digits", "personalNumber digits"}));
  p.composite = "A";
  EXPECT_EQ(proofs(p.zone()),
            (list{"documentCode none", "issuingState list", "primaryIdentifier none",
                  "secondaryIdentifier none", "documentNumber digit", "nationality list", "birthDate digit",
                  "sex none", "expiryDate digit", "personalNumber digit"}));
  EXPECT_EQ(proofs(support::SPECIMENS[3].zone),
            (list{"documentCode none", "issuingState list", "primaryIdentifier none",
                  "secondaryIdentifier none", "documentNumber digit", "nationality list", "birthDate digit",
                  "sex none", "expiryDate digit", "optionalData none"}));
  p = passport();
  p.issuer = "XXK";
  p.nationality = "DDR";
  p.birth = "<<<<<<";
  p.expiry_digit = "A";
  EXPECT_EQ(proofs(p.zone()),
            (list{"documentCode none", "issuingState none", "primaryIdentifier none",
                  "secondaryIdentifier none", "documentNumber digits", "nationality none", "birthDate none",
                  "sex none", "expiryDate none", "personalNumber digits"}));
}

TEST(Rules, ChipAccess) {
  const auto chip_access = [](const passport &p) { return inspected(p.zone())["chipAccess"]; };
  passport p;
  EXPECT_EQ(chip_access(p), "L898902C3674081223004157");
  p.birth = "<<<<<<";
  p.birth_digit = "<";
  EXPECT_EQ(chip_access(p), "L898902C36<<<<<<<3004157");
  p.birth_digit = "4";
  EXPECT_EQ(chip_access(p), nullptr);
  p = passport();
  p.birth = "7408<<";
  EXPECT_EQ(chip_access(p), "L898902C367408<<73004157");
  p.birth = "740230";
  EXPECT_EQ(chip_access(p), nullptr);
  p = passport();
  p.number_digit = "A";
  EXPECT_EQ(chip_access(p), nullptr);
  p = passport();
  p.expiry = "<<<<<<";
  EXPECT_EQ(chip_access(p), nullptr);
  p = passport();
  p.composite = "A"; // the composite is not asked
  EXPECT_EQ(chip_access(p), "L898902C3674081223004157");
}

// ---- the French card --------------------------------------------------------------------------------

TEST(FrenchCard, Names) {
  const auto zone = [](const std::string &primary, const std::string &given) {
    std::string first = "IDFRA" + primary;
    first.resize(36, '<');
    std::string second = given;
    second.resize(14, '<');
    second = "9409923102854" + second + "6512068F";
    return first + "\n" + second + digit_of(first + second) + "\n";
  };
  expect_field(zone("D<ARTAGNAN", "ANNE<<MARIE"), "primaryIdentifier", {"ok", "D ARTAGNAN", {}});
  expect_field(zone("D<ARTAGNAN", "ANNE<<MARIE"), "secondaryIdentifier", {"ok", "ANNE MARIE", {}});
  expect_field(zone("D<ARTAGNAN", "ANNE<MARIE<<JO"), "secondaryIdentifier", {"ok", "ANNE MARIE JO", {}});
  expect_field(zone("D<ARTAGNAN", "ANNE<<<MARIE"), "secondaryIdentifier",
               {"badCharacters", nullptr, {"badCharacters"}});
  expect_field(zone("D<ARTAGNAN", "ANN3"), "secondaryIdentifier",
               {"badCharacters", nullptr, {"badCharacters"}});
  expect_field(zone("", "ANNE"), "primaryIdentifier", {"empty", nullptr, {}});
  expect_field(zone("", ""), "primaryIdentifier", {"empty", nullptr, {"empty"}});
  const json fields = inspected(zone("BERTHIER", "CORINNE<<ANNES"))["fields"];
  EXPECT_EQ(fields["primaryIdentifier"]["truncated"], false); // each its own
  EXPECT_EQ(fields["secondaryIdentifier"]["truncated"], true);
}

// Without a right date and with no digit that holds, a filler among the names makes it a zone: in either
// field.
TEST(FrenchCard, AFillerInEitherFieldOfNamesTells) {
  const auto verdict_of = [](const std::string &primary, const std::string &given) {
    const std::string zone = "IDFRA" + primary + "952042\n" + "940992310285" + "X" + given + "QQQQQQXFX\n";
    return inspected(zone)["verdict"];
  };
  const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXY";
  EXPECT_EQ(verdict_of(letters, "ABCDEFGHIJKLMN"), "refused");
  EXPECT_EQ(verdict_of(letters, "ABCDEFGHIJKLM<"), "doubtful");
  EXPECT_EQ(verdict_of(letters.substr(0, 24) + "<", "ABCDEFGHIJKLMN"), "doubtful");
}

} // namespace
