// Element tables of AAMVA DL/ID barcodes: every row in its order, and the search.
#include "support.hpp"

#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Varnel/pdf417/barcode_mapping.h>

namespace {

// A row as it should be: the identifier's letters and the number of the slot.
struct Row {
  const char *element;
  int slot;
};

constexpr Row ROWS_2D01[] = {
    {"DAA", 1},  {"DAG", 2},  {"DAI", 3},  {"DAJ", 4},  {"DAK", 5},  {"DAQ", 6},  {"DAR", 7},  {"DAS", 8},
    {"DAT", 9},  {"DBA", 10}, {"DBB", 11}, {"DBC", 12}, {"DBD", 13}, {"DAU", 14}, {"DAW", 15}, {"DAY", 16},
    {"DAZ", 17}, {"DBK", 18}, {"PAA", 19}, {"PAB", 20}, {"PAC", 21}, {"PAD", 22}, {"PAE", 23}, {"PAF", 24},
    {"DAB", 25}, {"DAC", 26}, {"DAD", 27}, {"DAE", 28}, {"DAF", 29}, {"DAH", 30}, {"DAL", 31}, {"DAM", 32},
    {"DAN", 33}, {"DAO", 34}, {"DAP", 35}, {"DAV", 36}, {"DAX", 37}, {"DBE", 38}, {"DBF", 39}, {"DBG", 40},
    {"DBH", 41}, {"DBI", 42}, {"DBJ", 43}, {"DBL", 44}, {"DBM", 45}, {"DBN", 46}, {"DBO", 47}, {"DBP", 48},
    {"DBQ", 49}, {"DBR", 50}, {"DBS", 51},
};

constexpr Row ROWS_2D03[] = {
    {"DCA", 52}, {"DCB", 8},  {"DCD", 9},  {"DBA", 10}, {"DCS", 25}, {"DCT", 53}, {"DBD", 13}, {"DBB", 11},
    {"DBC", 12}, {"DAY", 16}, {"DAU", 54}, {"DAG", 2},  {"DAI", 3},  {"DAJ", 4},  {"DAK", 5},  {"DAQ", 55},
    {"DCG", 56}, {"DCH", 57}, {"DAH", 58}, {"DAZ", 17}, {"DCI", 59}, {"DCJ", 60}, {"DCK", 61}, {"DBN", 62},
    {"DBG", 63}, {"DBS", 64}, {"DCU", 28}, {"DCE", 65}, {"DCL", 66}, {"DCM", 67}, {"DCN", 68}, {"DCO", 69},
    {"DCP", 70}, {"DCQ", 71}, {"DCR", 72}, {"DAA", 1},
};

constexpr Row ROWS_2D06[] = {
    {"DCA", 52}, {"DCB", 8},  {"DCD", 9},   {"DBA", 10}, {"DCS", 25}, {"DAC", 26}, {"DAD", 27}, {"DBD", 13},
    {"DBB", 78}, {"DBC", 12}, {"DAY", 16},  {"DAU", 54}, {"DAG", 2},  {"DAI", 3},  {"DAJ", 4},  {"DAK", 5},
    {"DAQ", 6},  {"DCF", 73}, {"DCG", 125}, {"DDE", 75}, {"DDF", 76}, {"DDG", 77}, {"DAH", 58}, {"DAZ", 17},
    {"DCI", 59}, {"DCJ", 60}, {"DCK", 61},  {"DBN", 62}, {"DBG", 63}, {"DBS", 64}, {"DCU", 28}, {"DCE", 65},
    {"DCL", 66}, {"DCM", 67}, {"DCN", 68},  {"DCO", 69}, {"DCP", 70}, {"DCQ", 71}, {"DCR", 72}, {"DDA", 79},
    {"DDB", 80}, {"DDC", 81}, {"DDD", 82},  {"DAW", 15}, {"DAX", 37}, {"DDH", 83}, {"DDI", 84}, {"DDJ", 85},
};

constexpr Row ROWS_2D04_HAWAII[] = {
    {"DAK", 5},  {"DCF", 73}, {"DCG", 125}, {"DDE", 75}, {"DDF", 76}, {"DDG", 77}, {"DAA", 1},  {"DAG", 2},
    {"DAI", 3},  {"DAJ", 4},  {"DAQ", 6},   {"DAR", 7},  {"DAS", 8},  {"DAT", 9},  {"DBA", 10}, {"DBB", 11},
    {"DBC", 12}, {"DBD", 13}, {"DCA", 52},  {"DCB", 8},  {"DCD", 9},  {"DCS", 25}, {"DCT", 53}, {"DAY", 16},
    {"DAU", 54}, {"DCH", 57}, {"DAC", 26},  {"DAD", 27}, {"DAH", 58}, {"DAZ", 17}, {"DCI", 59}, {"DCJ", 60},
    {"DCK", 61}, {"DBN", 62}, {"DBG", 63},  {"DBS", 64}, {"DCU", 28}, {"DCE", 65}, {"DCL", 66}, {"DCM", 67},
    {"DCN", 68}, {"DCO", 69}, {"DCP", 70},  {"DCQ", 71}, {"DCR", 72}, {"DDA", 79}, {"DDB", 80}, {"DDC", 81},
    {"DDD", 82}, {"DAW", 15}, {"DAX", 37},  {"DAU", 14}, {"DBK", 18}, {"PAA", 19}, {"PAB", 20}, {"PAC", 21},
    {"PAD", 22}, {"PAE", 23}, {"PAF", 24},  {"DAB", 25}, {"DAE", 28}, {"DAF", 29}, {"DAL", 31}, {"DAM", 32},
    {"DAN", 33}, {"DAO", 34}, {"DAP", 35},  {"DAV", 36}, {"DBE", 38}, {"DBF", 39}, {"DBH", 41}, {"DBI", 42},
    {"DBJ", 43}, {"DBL", 44}, {"DBM", 45},  {"DBO", 47}, {"DBP", 48}, {"DBQ", 49}, {"DBR", 50}, {"DDH", 83},
    {"DDI", 84}, {"DDJ", 85},
};

constexpr Row ROWS_2D08[] = {
    {"DCA", 52}, {"DCB", 8},   {"DCD", 9},   {"DBA", 10}, {"DCS", 25}, {"DAC", 26}, {"DAD", 27}, {"DBD", 13},
    {"DBB", 78}, {"DBC", 12},  {"DAY", 16},  {"DAU", 54}, {"DAG", 2},  {"DAI", 3},  {"DAJ", 4},  {"DAK", 5},
    {"DAQ", 6},  {"DCF", 73},  {"DCG", 125}, {"DDE", 75}, {"DDF", 76}, {"DDG", 77}, {"DAH", 58}, {"DAZ", 17},
    {"DCI", 59}, {"DCJ", 60},  {"DCK", 61},  {"DBN", 62}, {"DBG", 63}, {"DBS", 64}, {"DCU", 28}, {"DCE", 65},
    {"DCL", 66}, {"DCM", 67},  {"DCN", 68},  {"DCO", 69}, {"DCP", 70}, {"DCQ", 71}, {"DCR", 72}, {"DDA", 79},
    {"DDB", 80}, {"DDC", 81},  {"DDD", 82},  {"DAW", 15}, {"DAX", 37}, {"DDH", 83}, {"DDI", 84}, {"DDJ", 85},
    {"DDK", 41}, {"DDL", 126}, {"DCA", 52},  {"DCB", 8},  {"DCD", 9},  {"DBA", 10}, {"DCS", 25}, {"DCT", 53},
    {"DBD", 13}, {"DBB", 11},  {"DBC", 12},  {"DAY", 16}, {"DAU", 54}, {"DAG", 2},  {"DAI", 3},  {"DAJ", 4},
    {"DAK", 5},  {"DAQ", 55},  {"DCG", 56},  {"DCH", 57},
};

struct Table {
  const char *name;
  const MAPPING *map;
  int size;
  const Row *rows;
  std::size_t row_count;
};

const Table TABLES[] = {
    {"2D01", MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE, ROWS_2D01, std::size(ROWS_2D01)},
    {"2D03", MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE, ROWS_2D03, std::size(ROWS_2D03)},
    {"2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, ROWS_2D06, std::size(ROWS_2D06)},
    {"2D04_HAWAII", MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE, ROWS_2D04_HAWAII,
     std::size(ROWS_2D04_HAWAII)},
    {"2D08", MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, ROWS_2D08, std::size(ROWS_2D08)},
};

// Three letters in one integer, the first letter highest.
int key(const std::string &element) { return (element[0] * 256 + element[1]) * 256 + element[2]; }

// The slots of all rows of an element, found by searching on after each.
std::vector<int> slots_of(const Table &table, const char *element) {
  std::vector<int> slots;
  int position = 0;
  for (;;) {
    const int slot = utils_barcode2fieldtype(key(element), table.map, table.size, &position);
    if (slot == -1) {
      return slots;
    }
    slots.push_back(slot);
    ++position;
  }
}

TEST(ElementTables, HaveTheirRowsInOrder) {
  for (const Table &table : TABLES) {
    ASSERT_EQ(static_cast<std::size_t>(table.size), table.row_count) << table.name;
    for (int i = 0; i < table.size; ++i) {
      EXPECT_EQ(table.map[i].key, key(table.rows[i].element)) << table.name << ", row " << i;
      EXPECT_EQ(table.map[i].value, table.rows[i].slot) << table.name << ", row " << i;
    }
  }
}

TEST(ElementTables, HaveSoManyRows) {
  EXPECT_EQ(MAP_AAMVA_2D01_SIZE, 51);
  EXPECT_EQ(MAP_AAMVA_2D03_SIZE, 36);
  EXPECT_EQ(MAP_AAMVA_2D06_SIZE, 48);
  EXPECT_EQ(MAP_AAMVA_2D04_HAWAII_SIZE, 82);
  EXPECT_EQ(MAP_AAMVA_2D08_SIZE, 68);
}

TEST(ElementTables, PackTheFirstLetterHighest) {
  EXPECT_EQ(MAP_AAMVA_2D01[0].key, 0x444141);         // DAA
  EXPECT_EQ(MAP_AAMVA_2D01[18].key, 0x504141);        // PAA
  EXPECT_EQ(MAP_AAMVA_2D03[0].key, 0x444341);         // DCA
  EXPECT_EQ(MAP_AAMVA_2D06[47].key, 0x44444A);        // DDJ
  EXPECT_EQ(MAP_AAMVA_2D04_HAWAII[0].key, 0x44414B);  // DAK
  EXPECT_EQ(MAP_AAMVA_2D04_HAWAII[81].key, 0x44444A); // DDJ
  EXPECT_EQ(MAP_AAMVA_2D08[67].key, 0x444348);        // DCH
  EXPECT_EQ(key("DAA"), 0x444141);
  EXPECT_EQ(sizeof(MAPPING), 2 * sizeof(int));
}

// One element may go to different slots in different versions, on purpose.
TEST(ElementTables, PlaceSomeElementsByVersion) {
  const struct {
    const char *element;
    std::vector<int> slots[5]; // in the order of TABLES
  } placed[] = {
      {"DBB", {{11}, {11}, {78}, {11}, {78, 11}}},
      {"DAQ", {{6}, {55}, {6}, {6}, {6, 55}}},
      {"DCG", {{}, {56}, {125}, {125}, {125, 56}}},
      {"DAU", {{14}, {54}, {54}, {54, 14}, {54, 54}}},
      {"DAH", {{30}, {58}, {58}, {58}, {58}}},
      {"DBN", {{46}, {62}, {62}, {62}, {62}}},
      {"DBG", {{40}, {63}, {63}, {63}, {63}}},
      {"DBS", {{51}, {64}, {64}, {64}, {64}}},
      {"DBA", {{10}, {10}, {10}, {10}, {10, 10}}},
      {"DBH", {{41}, {}, {}, {41}, {}}},
      {"DDK", {{}, {}, {}, {}, {41}}},
      {"DDL", {{}, {}, {}, {}, {126}}},
      {"DAC", {{26}, {}, {26}, {26}, {26}}},
      {"DCT", {{}, {53}, {}, {53}, {53}}},
      {"ZZZ", {{}, {}, {}, {}, {}}},
  };
  for (const auto &[element, slots] : placed) {
    for (std::size_t i = 0; i < std::size(TABLES); ++i) {
      EXPECT_EQ(slots_of(TABLES[i], element), slots[i]) << element << " in " << TABLES[i].name;
    }
  }
}

// The elements that stand in a table twice, with both slots: DAU in 2D04_HAWAII and a second block in 2D08.
TEST(ElementTables, RepeatTheseElementsAndNoOthers) {
  const struct {
    const char *table;
    const char *element;
    int first;
    int second;
  } repeated[] = {
      {"2D04_HAWAII", "DAU", 54, 14}, {"2D08", "DCA", 52, 52},  {"2D08", "DCB", 8, 8},
      {"2D08", "DCD", 9, 9},          {"2D08", "DBA", 10, 10},  {"2D08", "DCS", 25, 25},
      {"2D08", "DBD", 13, 13},        {"2D08", "DBB", 78, 11},  {"2D08", "DBC", 12, 12},
      {"2D08", "DAY", 16, 16},        {"2D08", "DAU", 54, 54},  {"2D08", "DAG", 2, 2},
      {"2D08", "DAI", 3, 3},          {"2D08", "DAJ", 4, 4},    {"2D08", "DAK", 5, 5},
      {"2D08", "DAQ", 6, 55},         {"2D08", "DCG", 125, 56},
  };
  std::size_t found = 0;
  for (const Table &table : TABLES) {
    for (std::size_t i = 0; i < table.row_count; ++i) {
      const std::vector<int> slots = slots_of(table, table.rows[i].element);
      ASSERT_LE(slots.size(), 2U) << table.rows[i].element << " in " << table.name;
      found += slots.size() == 2 ? 1 : 0;
    }
  }
  EXPECT_EQ(found, 2 * std::size(repeated)); // met once at each of its two rows
  for (const auto &[name, element, first, second] : repeated) {
    for (const Table &table : TABLES) {
      if (name == std::string(table.name)) {
        EXPECT_EQ(slots_of(table, element), (std::vector<int>{first, second})) << element << " in " << name;
      }
    }
  }
}

// ---- the search ------------------------------------------------------------------------------------

struct Search {
  const char *what;
  const char *element;
  const MAPPING *map;
  int size;
  int start;
  int slot;
  int position;
};

const Search SEARCHES[] = {
    {"first row", "DAA", MAP_AAMVA_2D01, 51, 0, 1, 0},
    {"last row", "DBS", MAP_AAMVA_2D01, 51, 0, 51, 50},
    {"from the row itself", "DBS", MAP_AAMVA_2D01, 51, 50, 51, 50},
    {"from the row after it", "DAA", MAP_AAMVA_2D01, 51, 1, -1, 51},
    {"DAU of Hawaii", "DAU", MAP_AAMVA_2D04_HAWAII, 82, 0, 54, 24},
    {"DAU of Hawaii again, from the row found", "DAU", MAP_AAMVA_2D04_HAWAII, 82, 24, 54, 24},
    {"DAU of Hawaii, from the row after", "DAU", MAP_AAMVA_2D04_HAWAII, 82, 25, 14, 51},
    {"no third DAU of Hawaii", "DAU", MAP_AAMVA_2D04_HAWAII, 82, 52, -1, 82},
    {"DBB of version 08", "DBB", MAP_AAMVA_2D08, 68, 0, 78, 8},
    {"DBB of version 08, second block", "DBB", MAP_AAMVA_2D08, 68, 9, 11, 57},
    {"no third DBB of version 08", "DBB", MAP_AAMVA_2D08, 68, 58, -1, 68},
    {"unknown in version 01", "ZZZ", MAP_AAMVA_2D01, 51, 0, -1, 51},
    {"unknown in version 03", "ZZZ", MAP_AAMVA_2D03, 36, 0, -1, 36},
    {"unknown in version 06", "ZZZ", MAP_AAMVA_2D06, 48, 0, -1, 48},
    {"unknown in Hawaii's", "ZZZ", MAP_AAMVA_2D04_HAWAII, 82, 0, -1, 82},
    {"unknown in version 08", "ZZZ", MAP_AAMVA_2D08, 68, 0, -1, 68},
    {"small letters are other identifiers", "daa", MAP_AAMVA_2D01, 51, 0, -1, 51},
    {"start at the size", "DAA", MAP_AAMVA_2D01, 51, 51, -1, 51},
    {"start beyond the size", "DAA", MAP_AAMVA_2D01, 51, 99, -1, 99},
    {"rows beyond the size", "DBS", MAP_AAMVA_2D01, 50, 0, -1, 50},
    {"size 0", "DAA", MAP_AAMVA_2D01, 0, 0, -1, 0},
    {"size 0, start beyond", "DAA", MAP_AAMVA_2D01, 0, 3, -1, 3},
    {"negative size", "DAA", MAP_AAMVA_2D01, -1, 0, -1, 0},
    {"size 0 without a table", "DAA", nullptr, 0, 0, -1, 0},
    // Varnel guards what no search should ask for: there is nothing to find, and the start stays.
    {"no table", "DAA", nullptr, 51, 0, -1, 0},
    {"no table, start", "DAA", nullptr, 51, 7, -1, 7},
    {"negative start", "DAA", MAP_AAMVA_2D01, 51, -1, -1, -1},
};

TEST(ElementSearch, FindsTheFirstRowFromTheStartOn) {
  for (const auto &[what, element, map, size, start, slot, position] : SEARCHES) {
    int at = start;
    EXPECT_EQ(utils_barcode2fieldtype(key(element), map, size, &at), slot) << what;
    EXPECT_EQ(at, position) << what;
  }
}

TEST(ElementSearch, StartsAtTheFirstRowWithoutAPosition) {
  EXPECT_EQ(utils_barcode2fieldtype(key("DAA"), MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE, nullptr), 1);
  EXPECT_EQ(utils_barcode2fieldtype(key("DAU"), MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE, nullptr),
            54);
  EXPECT_EQ(utils_barcode2fieldtype(key("ZZZ"), MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE, nullptr), -1);
  EXPECT_EQ(utils_barcode2fieldtype(key("DAA"), MAP_AAMVA_2D01, 0, nullptr), -1);
  EXPECT_EQ(utils_barcode2fieldtype(key("DAA"), nullptr, 51, nullptr), -1);
}

TEST(ElementSearch, ComparesTheWholeKey) {
  EXPECT_EQ(utils_barcode2fieldtype(0x01444141, MAP_AAMVA_2D01, 51, nullptr), -1);
  EXPECT_EQ(utils_barcode2fieldtype(0x4141, MAP_AAMVA_2D01, 51, nullptr), -1);
  EXPECT_EQ(utils_barcode2fieldtype(0, MAP_AAMVA_2D01, 51, nullptr), -1);
  EXPECT_EQ(utils_barcode2fieldtype(-1, MAP_AAMVA_2D01, 51, nullptr), -1);
}

// A table need not be one of Varnel's, and its slots are handed out as they stand.
TEST(ElementSearch, TakesACallersTable) {
  const MAPPING own[] = {{7, 100}, {0, -5}, {7, 101}};
  int at = 0;
  EXPECT_EQ(utils_barcode2fieldtype(7, own, 3, &at), 100);
  EXPECT_EQ(at, 0);
  at = 1;
  EXPECT_EQ(utils_barcode2fieldtype(7, own, 3, &at), 101);
  EXPECT_EQ(at, 2);
  EXPECT_EQ(utils_barcode2fieldtype(0, own, 3, nullptr), -5);
}

} // namespace
