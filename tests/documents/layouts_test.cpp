// The table of layouts: its rows are those of ICAO Doc 9303, and its columns those that the core reads.
#include "documents/layouts.hpp"

#include "documents/check_digit.hpp"
#include "documents/zone_weights.hpp"

#include "plain_inspection.hpp"
#include "support.hpp"

#include <Varnel/Varnel.h>

namespace {

using namespace documents;

struct row {
  const char *layout;
  const char *field;
  int line;
  int column;
  int length;
};

// ICAO Doc 9303-4 to 9303-7; FRA-ID is the French identity card issued until 2021.
constexpr row FIELDS[] = {
    {"TD1", "documentCode", 0, 0, 2},
    {"TD1", "issuingState", 0, 2, 3},
    {"TD1", "documentNumber", 0, 5, 9},
    {"TD1", "optionalData1", 0, 15, 15},
    {"TD1", "birthDate", 1, 0, 6},
    {"TD1", "sex", 1, 7, 1},
    {"TD1", "expiryDate", 1, 8, 6},
    {"TD1", "nationality", 1, 15, 3},
    {"TD1", "optionalData2", 1, 18, 11},
    {"TD1", "primaryIdentifier", 2, 0, 30},
    {"TD1", "secondaryIdentifier", 2, 0, 30},
    {"TD2", "documentCode", 0, 0, 2},
    {"TD2", "issuingState", 0, 2, 3},
    {"TD2", "primaryIdentifier", 0, 5, 31},
    {"TD2", "secondaryIdentifier", 0, 5, 31},
    {"TD2", "documentNumber", 1, 0, 9},
    {"TD2", "nationality", 1, 10, 3},
    {"TD2", "birthDate", 1, 13, 6},
    {"TD2", "sex", 1, 20, 1},
    {"TD2", "expiryDate", 1, 21, 6},
    {"TD2", "optionalData", 1, 28, 7},
    {"TD3", "documentCode", 0, 0, 2},
    {"TD3", "issuingState", 0, 2, 3},
    {"TD3", "primaryIdentifier", 0, 5, 39},
    {"TD3", "secondaryIdentifier", 0, 5, 39},
    {"TD3", "documentNumber", 1, 0, 9},
    {"TD3", "nationality", 1, 10, 3},
    {"TD3", "birthDate", 1, 13, 6},
    {"TD3", "sex", 1, 20, 1},
    {"TD3", "expiryDate", 1, 21, 6},
    {"TD3", "personalNumber", 1, 28, 14},
    {"MRV-A", "documentCode", 0, 0, 2},
    {"MRV-A", "issuingState", 0, 2, 3},
    {"MRV-A", "primaryIdentifier", 0, 5, 39},
    {"MRV-A", "secondaryIdentifier", 0, 5, 39},
    {"MRV-A", "documentNumber", 1, 0, 9},
    {"MRV-A", "nationality", 1, 10, 3},
    {"MRV-A", "birthDate", 1, 13, 6},
    {"MRV-A", "sex", 1, 20, 1},
    {"MRV-A", "expiryDate", 1, 21, 6},
    {"MRV-A", "optionalData", 1, 28, 16},
    {"MRV-B", "documentCode", 0, 0, 2},
    {"MRV-B", "issuingState", 0, 2, 3},
    {"MRV-B", "primaryIdentifier", 0, 5, 31},
    {"MRV-B", "secondaryIdentifier", 0, 5, 31},
    {"MRV-B", "documentNumber", 1, 0, 9},
    {"MRV-B", "nationality", 1, 10, 3},
    {"MRV-B", "birthDate", 1, 13, 6},
    {"MRV-B", "sex", 1, 20, 1},
    {"MRV-B", "expiryDate", 1, 21, 6},
    {"MRV-B", "optionalData", 1, 28, 8},
    {"FRA-ID", "documentCode", 0, 0, 2},
    {"FRA-ID", "issuingState", 0, 2, 3},
    {"FRA-ID", "primaryIdentifier", 0, 5, 25},
    {"FRA-ID", "officeCode", 0, 30, 6},
    {"FRA-ID", "documentNumber", 1, 0, 12},
    {"FRA-ID", "secondaryIdentifier", 1, 13, 14},
    {"FRA-ID", "birthDate", 1, 27, 6},
    {"FRA-ID", "sex", 1, 34, 1},
};

struct digit_row {
  const char *layout;
  const char *field;
  int line;
  int column;
  std::vector<std::vector<int>> covered; // line, column, length
};

const std::vector<digit_row> DIGITS = {
    {"TD1", "documentNumber", 0, 14, {{0, 5, 9}}},
    {"TD1", "birthDate", 1, 6, {{1, 0, 6}}},
    {"TD1", "expiryDate", 1, 14, {{1, 8, 6}}},
    {"TD1", "composite", 1, 29, {{0, 5, 25}, {1, 0, 7}, {1, 8, 7}, {1, 18, 11}}},
    {"TD2", "documentNumber", 1, 9, {{1, 0, 9}}},
    {"TD2", "birthDate", 1, 19, {{1, 13, 6}}},
    {"TD2", "expiryDate", 1, 27, {{1, 21, 6}}},
    {"TD2", "composite", 1, 35, {{1, 0, 10}, {1, 13, 7}, {1, 21, 14}}},
    {"TD3", "documentNumber", 1, 9, {{1, 0, 9}}},
    {"TD3", "birthDate", 1, 19, {{1, 13, 6}}},
    {"TD3", "expiryDate", 1, 27, {{1, 21, 6}}},
    {"TD3", "personalNumber", 1, 42, {{1, 28, 14}}},
    {"TD3", "composite", 1, 43, {{1, 0, 10}, {1, 13, 7}, {1, 21, 22}}},
    {"MRV-A", "documentNumber", 1, 9, {{1, 0, 9}}},
    {"MRV-A", "birthDate", 1, 19, {{1, 13, 6}}},
    {"MRV-A", "expiryDate", 1, 27, {{1, 21, 6}}},
    {"MRV-B", "documentNumber", 1, 9, {{1, 0, 9}}},
    {"MRV-B", "birthDate", 1, 19, {{1, 13, 6}}},
    {"MRV-B", "expiryDate", 1, 27, {{1, 21, 6}}},
    {"FRA-ID", "documentNumber", 1, 12, {{1, 0, 12}}},
    {"FRA-ID", "birthDate", 1, 33, {{1, 27, 6}}},
    {"FRA-ID", "composite", 1, 35, {{0, 0, 36}, {1, 0, 35}}},
};

TEST(Layouts, FieldsInTheOrderOfTheZone) {
  size_t next = 0;
  for (int id = VARNEL_LAYOUT_TD1; id < LAYOUT_COUNT; ++id) {
    const layout &l = LAYOUTS[id];
    for (int i = 0; i < l.field_count; ++i, ++next) {
      ASSERT_LT(next, std::size(FIELDS));
      const row &expected = FIELDS[next];
      EXPECT_STREQ(varnel_layout_name(id), expected.layout);
      EXPECT_STREQ(varnel_field_name(l.fields[i].field), expected.field);
      EXPECT_EQ(l.fields[i].place.line, expected.line) << expected.layout << expected.field;
      EXPECT_EQ(l.fields[i].place.column, expected.column) << expected.layout << expected.field;
      EXPECT_EQ(l.fields[i].place.length, expected.length) << expected.layout << expected.field;
    }
  }
  EXPECT_EQ(next, std::size(FIELDS));
}

// By its column alone a field is the one that a long number goes on in.
TEST(Layouts, LongNumbersGoOnInOneField) {
  for (int id = VARNEL_LAYOUT_TD1; id < LAYOUT_COUNT; ++id) {
    const layout &l = LAYOUTS[id];
    int found = 0;
    for (int i = 0; i < l.field_count; ++i) {
      const field_place &f = l.fields[i];
      if (f.kind == field_kind::number && f.field != VARNEL_DOCUMENT_NUMBER &&
          f.place.column == l.optional_data.column) {
        EXPECT_EQ(f.place.line, l.optional_data.line);
        EXPECT_EQ(f.place.length, l.optional_data.length);
        ++found;
      }
    }
    EXPECT_EQ(found, id == VARNEL_LAYOUT_TD1 || id == VARNEL_LAYOUT_TD2 ? 1 : 0) << varnel_layout_name(id);
  }
}

TEST(Layouts, CheckDigitsAndWhatTheyCover) {
  size_t next = 0;
  for (int id = VARNEL_LAYOUT_TD1; id < LAYOUT_COUNT; ++id) {
    const layout &l = LAYOUTS[id];
    for (int i = 0; i < l.check_count; ++i, ++next) {
      ASSERT_LT(next, DIGITS.size());
      const digit_row &expected = DIGITS[next];
      EXPECT_STREQ(varnel_layout_name(id), expected.layout);
      EXPECT_STREQ(varnel_field_name(l.checks[i].field), expected.field);
      EXPECT_EQ(l.checks[i].line, expected.line) << expected.layout << expected.field;
      EXPECT_EQ(l.checks[i].column, expected.column) << expected.layout << expected.field;
      std::vector<std::vector<int>> covered;
      for (int k = 0; k < l.checks[i].covered_count; ++k) {
        const stretch s = l.checks[i].covered[k];
        covered.push_back({s.line, s.column, s.length});
      }
      EXPECT_EQ(covered, expected.covered) << expected.layout << expected.field;
    }
  }
  EXPECT_EQ(next, DIGITS.size());
}

// A zone of each layout, every column of it another character than the one before.
TEST(Layouts, WeightsOfWholeZonesAreThoseOfStretches) {
  const std::string characters = "7K<P03ZA9<B5XQ1";
  for (int id = VARNEL_LAYOUT_TD1; id < LAYOUT_COUNT; ++id) {
    const layout &l = LAYOUTS[id];
    char lines[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH] = {};
    char counts[ZONE_ROOM] = {};
    for (int i = 0; i < l.lines * l.width; ++i) {
      const int line = i / l.width;
      const int column = i % l.width;
      const char c = characters[static_cast<size_t>(i * i % 101) % characters.size()];
      lines[line][column] = c;
      counts[line * room_for_line(l.width) + column] = static_cast<char>(check_value(c));
    }
    for (int i = 0; i < l.check_count; ++i) {
      const char expected =
          expected_digit(l.checks[i], [&lines](stretch s) { return lines[s.line] + s.column; });
      EXPECT_EQ(digit_of(ZONE_WEIGHTS.checks[id][i], counts), expected) << id << " " << i;
    }
  }
}

TEST(Layouts, ShapesAndFirstLetters) {
  const auto shape = [](int id) {
    const layout &l = LAYOUTS[id];
    return std::to_string(l.lines) + "x" + std::to_string(l.width) + " " + std::string(l.first_letters);
  };
  EXPECT_EQ(shape(VARNEL_LAYOUT_TD1), "3x30 ACI");
  EXPECT_EQ(shape(VARNEL_LAYOUT_TD2), "2x36 ACI");
  EXPECT_EQ(shape(VARNEL_LAYOUT_TD3), "2x44 P");
  EXPECT_EQ(shape(VARNEL_LAYOUT_MRV_A), "2x44 V");
  EXPECT_EQ(shape(VARNEL_LAYOUT_MRV_B), "2x36 V");
  EXPECT_EQ(shape(VARNEL_LAYOUT_FRA_ID), "2x36 I");
}

TEST(Layouts, LayoutOfAWidthAndFirstCharacters) {
  EXPECT_EQ(layout_of(30, "I<UTO"), VARNEL_LAYOUT_TD1);
  EXPECT_EQ(layout_of(30, "V<UTO"), VARNEL_LAYOUT_TD1);
  EXPECT_EQ(layout_of(36, "I<UTO"), VARNEL_LAYOUT_TD2);
  EXPECT_EQ(layout_of(36, "QQQQQ"), VARNEL_LAYOUT_TD2);
  EXPECT_EQ(layout_of(36, "V<UTO"), VARNEL_LAYOUT_MRV_B);
  EXPECT_EQ(layout_of(36, "IDFRA"), VARNEL_LAYOUT_FRA_ID);
  EXPECT_EQ(layout_of(36, "IDFRB"), VARNEL_LAYOUT_TD2);
  EXPECT_EQ(layout_of(36, "I<FRA"), VARNEL_LAYOUT_TD2);
  EXPECT_EQ(layout_of(44, "P<UTO"), VARNEL_LAYOUT_TD3);
  EXPECT_EQ(layout_of(44, "IDFRA"), VARNEL_LAYOUT_TD3);
  EXPECT_EQ(layout_of(44, "V<UTO"), VARNEL_LAYOUT_MRV_A);
}

// The core's record of a specimen, asked for the slots that the core fills from fixed columns.
struct core_field {
  int slot;
  const char *field;
};

// Changing a character within a field's columns, and no other, changes what the core has in that slot.
TEST(Layouts, TheCoreReadsTheSameColumns) {
  constexpr core_field shared[] = {
      {FIELD_DOCUMENT_NUMBER, "documentNumber"}, {FIELD_NATIONALITY, "nationality"},
      {FIELD_COUNTRY_CODE, "issuingState"},      {FIELD_SEX, "sex"},
      {FIELD_BIRTH_DATE, "birthDate"},           {FIELD_EXPIRATION_DATE, "expiryDate"},
      {FIELD_PERSONAL_NUMBER, "personalNumber"}};
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string zone = s.zone;
    const size_t width = zone.find('\n');
    const auto read = [](const std::string &text, int slot) -> std::string {
      PARSE_RESULT record;
      char buffer[VARNEL_BUFFER_SIZE];
      const int length = varnel_utf16_length(text.data(), text.size());
      varnel_parse_mrz(text.data(), length, &record, buffer, sizeof buffer);
      const STRING value = varnel_value(&record, slot);
      return value.str != nullptr ? std::string(value.str, static_cast<size_t>(value.len)) : "";
    };
    for (const core_field &f : shared) {
      int id = VARNEL_LAYOUT_TD1;
      while (std::string(varnel_layout_name(id)) != s.layout) {
        ++id;
      }
      int field = VARNEL_DOCUMENT_CODE;
      while (std::string(varnel_field_name(field)) != f.field) {
        ++field;
      }
      const field_place *place = LAYOUTS[id].find(field);
      if (place == nullptr) {
        continue;
      }
      const std::string whole = read(zone, f.slot);
      ASSERT_FALSE(whole.empty()) << s.layout << ' ' << f.field;
      for (int column = 0; column < place->place.length; ++column) {
        const size_t at = place->place.line * (width + 1) + place->place.column + static_cast<size_t>(column);
        std::string changed = zone;
        changed[at] = changed[at] == '0' ? '1' : changed[at] >= 'A' ? (changed[at] == 'F' ? 'M' : 'F') : '0';
        EXPECT_NE(read(changed, f.slot), whole) << s.layout << ' ' << f.field << ' ' << column;
      }
    }
  }
}

} // namespace
