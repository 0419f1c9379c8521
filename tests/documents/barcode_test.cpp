// The barcodes of licences whose bearers do not exist.
#include "../cases.hpp"
#include "barcode_support.hpp"

#include <Varnel/documents.hpp>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <set>

using barcode::Card;
using barcode::Element;
using barcode::Elements;
using barcode::Reading;
using barcode::Subfile;

namespace {

std::string replaced(std::string text, const std::string &from, const std::string &to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << "nothing to replace: " << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string without(std::string text, const std::string &characters) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [&](char c) { return characters.find(c) != std::string::npos; }),
             text.end());
  return text;
}

// A licence of Virginia with a jurisdiction's subfile: version 10, every element that it demands.
Card virginian() {
  return Card{10,
              "636000",
              {{"DL", {{"DAQ", "T64235789"},  {"DCS", "HOLLOWAY"},    {"DDE", "N"},
                       {"DAC", "MARGUERITE"}, {"DDF", "N"},           {"DAD", "ANNE,LOUISE"},
                       {"DDG", "N"},          {"DCA", "D"},           {"DCB", "K"},
                       {"DCD", "PH"},         {"DBD", "06062019"},    {"DBB", "06061986"},
                       {"DBA", "12102027"},   {"DBC", "2"},           {"DAU", "068 in"},
                       {"DAY", "BRO"},        {"DAG", "12 ELM CT"},   {"DAI", "FAIRFAX"},
                       {"DAJ", "VA"},         {"DAK", "220300000  "}, {"DCF", "2424244747474786"},
                       {"DCG", "USA"}}},
               {"ZV", {{"ZVA", "01"}}}}};
}

const char VIRGINIAN[] = "MARGUERITE|HOLLOWAY|ANNE LOUISE|T64235789|19860606|20271210|F|USA|VA||DL|20190606";

// A card of one subfile DL with these elements.
std::string card(int version, const std::string &issuer, Elements elements) {
  return Card{version, issuer, {{"DL", std::move(elements)}}}.text();
}

} // namespace

// ---- versions -------------------------------------------------------------------------------------------

struct VersionRow {
  const char *what;
  int version;
  const char *issuer;
  Subfile subfile;
  const char *values;
  const char *findings;
};

static const VersionRow VERSIONS[] = {
    {"before the first edition: the name in one, dates year first",
     0,
     "636005",
     {"DL",
      {{"DAQ", "100200301"},
       {"DAA", "LARCH,OLIVE,MAY"},
       {"DAJ", "SC"},
       {"DBA", "20050417"},
       {"DBB", "19610417"},
       {"DBC", "2"},
       {"DBD", "20000415"}}},
     "OLIVE|LARCH|MAY|100200301|19610417|20050417|F|USA|SC||DL|20000415",
     ""},
    {"01: no jurisdiction version, the residence before the address",
     1,
     "636005",
     {"DL",
      {{"DAQ", "100200302"},
       {"DAA", "LARCH,OLIVE,MAY,JR"},
       {"DAJ", "SC"},
       {"DAO", "NC"},
       {"DBA", "20090417"},
       {"DBB", "19710417"},
       {"DBC", "F"},
       {"DBD", "20040415"}}},
     "OLIVE|LARCH|MAY|100200302|19710417|20090417|F|USA|NC||DL|20040415",
     ""},
    {"02: given names together, dates month first everywhere",
     2,
     "636017",
     {"DL",
      {{"DCS", "PEMBERLEY"},
       {"DCT", "WENDEL,AUGUST,IVO"},
       {"DBA", "03092011"},
       {"DBB", "03091968"},
       {"DBD", "03102005"},
       {"DBC", "1"},
       {"DAQ", "K0011"},
       {"DAJ", "NB"},
       {"DCG", "CDN"}}},
     "WENDEL|PEMBERLEY|AUGUST IVO|K0011|19680309|20110309|M|CDN|NB||DL|20050310",
     ""},
    {"03: Canada year first; the document discriminator is not in its table",
     3,
     "636012",
     {"DL",
      {{"DCS", "BRISE"},
       {"DCT", "CORALIE ANNE"},
       {"DBA", "20130922"},
       {"DBB", "19790922"},
       {"DBD", "20080925"},
       {"DBC", "2"},
       {"DAQ", "B7001-4009"},
       {"DAJ", "ON"},
       {"DCF", "DX77"},
       {"DCG", "CAN"}}},
     "CORALIE|BRISE|ANNE|B7001-4009|19790922|20130922|F|CAN|ON||DL|20080925",
     "otherTable@119:DCF"},
    {"04 of Hawaii: its own table, birth date in slot 11",
     4,
     "636047",
     {"DL",
      {{"DAQ", "H00011122"},
       {"DCS", "AKANA"},
       {"DCT", "PUA"},
       {"DBA", "07192014"},
       {"DBB", "07191984"},
       {"DBD", "07202009"},
       {"DBC", "2"},
       {"DAJ", "HI"},
       {"DCG", "USA"}}},
     "PUA|AKANA||H00011122|19840719|20140719|F|USA|HI||DL|20090720",
     ""},
    {"04",
     4,
     "636020",
     {"DL",
      {{"DAQ", "940000123"},
       {"DCS", "OKORO-REID"},
       {"DAC", "TAMSIN"},
       {"DAD", "unavl"},
       {"DBA", "07192014"},
       {"DBB", "07191984"},
       {"DBD", "07202009"},
       {"DBC", "2"},
       {"DAJ", "CO"},
       {"DCG", "USA"}}},
     "TAMSIN|OKORO-REID||940000123|19840719|20140719|F|USA|CO||DL|20090720",
     ""},
    {"05",
     5,
     "636026",
     {"DL", {{"DAQ", "A5"}, {"DBB", "02281990"}}},
     "|||A5|19900228|||USA|AZ||DL|",
     "jurisdictionByIssuer@9:DAJ"},
    {"06",
     6,
     "636026",
     {"DL", {{"DAQ", "A6"}, {"DBB", "02281990"}}},
     "|||A6|19900228|||USA|AZ||DL|",
     "jurisdictionByIssuer@9:DAJ"},
    {"07",
     7,
     "636026",
     {"DL", {{"DAQ", "A7"}, {"DBB", "02281990"}}},
     "|||A7|19900228|||USA|AZ||DL|",
     "jurisdictionByIssuer@9:DAJ"},
    {"08: an identification card",
     8,
     "636055",
     {"ID",
      {{"DAQ", "051234568"},
       {"DCS", "WOLFE"},
       {"DAC", "HESTER"},
       {"DAD", "BART,ALEXANDER"},
       {"DBD", "02292016"},
       {"DBB", "02292000"},
       {"DBA", "02282024"},
       {"DBC", "1"},
       {"DAJ", "GA"},
       {"DCG", "USA"}}},
     "HESTER|WOLFE|BART ALEXANDER|051234568|20000229|20240228|M|USA|GA||ID|20160229",
     ""},
    {"09: Canada",
     9,
     "636028",
     {"DL",
      {{"DAQ", "07654321"},
       {"DCS", "HALVORSON"},
       {"DAC", "INGRID"},
       {"DAD", "NONE"},
       {"DBD", "20220614"},
       {"DBB", "19900611"},
       {"DBA", "20270611"},
       {"DBC", "9"},
       {"DAJ", "BC"},
       {"DCG", "CAN"}}},
     "INGRID|HALVORSON||07654321|19900611|20270611||CAN|BC||DL|20220614",
     ""},
    {"10: an enhanced licence",
     10,
     "636045",
     {"EN", {{"DAQ", "WDL0AB"}, {"DCS", "TREMBLAY"}, {"DAC", "JUNO"}, {"DAJ", "WA"}, {"DCG", "USA"}}},
     "JUNO|TREMBLAY||WDL0AB||||USA|WA||EN|",
     ""},
    {"11: by the rules of 10; its new elements are in no table",
     11,
     "636000",
     {"DL", {{"DAQ", "T1"}, {"DAJ", "VA"}, {"DCG", "USA"}, {"DDM", "1"}}},
     "|||T1||||USA|VA||DL|",
     "unknownElement@52:DDM"},
    {"99", 99, "636000", {"DL", {{"DAQ", "T2"}, {"DAJ", "VA"}}}, "|||T2||||USA|VA||DL|", ""},
};

TEST(Barcode, ReadsEveryVersion) {
  for (const VersionRow &row : VERSIONS) {
    SCOPED_TRACE(row.what);
    const Reading reading(Card{row.version, row.issuer, {row.subfile}}.text());
    EXPECT_EQ(reading.status, ERR_OK);
    EXPECT_EQ(reading.values(), row.values);
    EXPECT_EQ(reading.findings(), row.findings);
    EXPECT_EQ(reading.info.version, row.version);
    EXPECT_EQ(reading.record.parser_type, static_cast<EPARSER_TYPE>(PARSER_TYPE_AamvaPDF417));
  }
}

// ---- elements -------------------------------------------------------------------------------------------

struct Table {
  const char *what;
  const MAPPING *rows;
  int size;
  int version;
  const char *issuer;
};

static const Table TABLES[] = {
    {"2D01", MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE, 0, "636005"},
    {"2D01", MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE, 1, "636005"},
    {"2D03", MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE, 2, "636005"},
    {"2D03", MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE, 3, "636047"},
    {"Hawaii's", MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE, 4, "636047"},
    {"2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, 4, "636005"},
    {"2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, 5, "636047"},
    {"2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, 6, "636005"},
    {"2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE, 7, "636005"},
    {"2D08", MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, 8, "636005"},
    {"2D08", MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, 11, "636047"},
};

static std::string identifier(int key) {
  return {static_cast<char>(key >> 16), static_cast<char>(key >> 8 & 0xFF), static_cast<char>(key & 0xFF)};
}

static const std::set<int> DATES = {10, 11, 13, 20, 22, 44, 78, 80, 81, 83, 84, 85};

TEST(Barcode, PutsEveryElementOfEveryTableIntoItsSlot) {
  int read = 0;
  for (const Table &table : TABLES) {
    std::set<int> seen;
    for (int i = 0; i < table.size; ++i) {
      const MAPPING &row = table.rows[i];
      if (!seen.insert(row.key).second)
        continue; // a later row of the same element: the first one wins
      SCOPED_TRACE(std::string(table.what) + ", version " + std::to_string(table.version) + ", " +
                   identifier(row.key));
      const bool date = DATES.count(row.value) != 0;
      const std::string value = date ? "20010203" : row.value == FIELD_SEX ? "1" : "VALUE";
      const Reading reading(card(table.version, table.issuer, {{identifier(row.key), value}}));
      EXPECT_EQ(reading.status, ERR_OK);
      EXPECT_EQ(reading.slot(row.value), row.value == FIELD_SEX ? "M" : value);
      EXPECT_EQ(reading.info.element_count, 0);
      ++read;
    }
  }
  EXPECT_EQ(read, 51 * 2 + 36 * 2 + 81 + 48 * 4 + 52 * 2);
}

struct OtherTableRow {
  int version;
  const char *element;
  int slot;
};

// Where an element goes that its version's table lacks: by 2D08, 2D06, 2D03, 2D01, the first that has it.
static const OtherTableRow OTHER_TABLE[] = {
    {1, "DCS", FIELD_FAMILY_NAME},
    {1, "DCT", FIELD_GIVEN_NAMES},
    {1, "DCG", FIELD_COUNTRY_CODE},
    {1, "DDK", FIELD_ORGAN_DONOR},
    {1, "DCH", FIELD_FEDERAL_VEHICLE_CODES},
    {3, "DCF", FIELD_DOCUMENT_DISCRIMINATOR},
    {3, "DAC", FIELD_FIRST_NAME},
    {3, "DAB", FIELD_FAMILY_NAME},
    {3, "PAA", FIELD_PERMIT_CLASS},
    {6, "DDL", FIELD_VETERAN},
    {6, "DCT", FIELD_GIVEN_NAMES},
    {6, "DAA", FIELD_FULL_NAME},
    {10, "DAA", FIELD_FULL_NAME},
    {10, "DAR", FIELD_LICENSE_CLASS},
    {10, "DBH", FIELD_ORGAN_DONOR},
};

TEST(Barcode, TakesTheSlotOfAnotherTableWhereItsOwnHasNone) {
  for (const OtherTableRow &row : OTHER_TABLE) {
    SCOPED_TRACE(std::to_string(row.version) + " " + row.element);
    const Reading reading(card(row.version, "636000", {{"DAJ", "VA"}, {row.element, "V,W"}}));
    EXPECT_EQ(reading.slot(row.slot), "V,W");
    const std::string at = row.version < 2 ? "37" : "39";
    EXPECT_EQ(reading.findings(), "otherTable@" + at + ":" + row.element);
  }
}

TEST(Barcode, KeepsTheFirstValueOfASlot) {
  const Reading reading(
      card(10, "636000",
           {{"DAJ", "VA"}, {"DCG", ""}, {"DCG", "USA"}, {"DCG", "CAN"}, {"DCS", "NORTH"}, {"DAB", "SOUTH"}}));
  EXPECT_EQ(reading.slot(FIELD_COUNTRY_CODE), "USA");
  EXPECT_EQ(reading.slot(FIELD_FAMILY_NAME), "NORTH");
  EXPECT_EQ(reading.elements(), "DCG=CAN DAB=SOUTH");
  EXPECT_EQ(reading.findings(), "repeated@50:DCG otherTable@66:DAB repeated@66:DAB");
}

TEST(Barcode, KeepsElementsThatNoTableHas) {
  Card unknown = virginian();
  unknown.subfiles[1].elements = {{"ZVA", "01"}, {"ZVB", ""}, {"ZV9", "x"}};
  unknown.subfiles[0].elements.push_back({"XYZ", " 7 "});
  const Reading reading(unknown.text());
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_EQ(reading.elements(), "XYZ= 7  ZVA=01 ZVB= ZV9=x");
  EXPECT_STREQ(reading.info.subfiles[0], "DL");
  EXPECT_STREQ(reading.info.subfiles[1], "ZV");
  EXPECT_EQ(reading.info.subfile_count, 2);
}

TEST(Barcode, CountsWhatFindsNoRoom) {
  Elements many = {{"DAJ", "VA"}};
  for (int i = 0; i < 100; ++i)
    many.push_back({"XYZ", std::to_string(i)});
  const Reading reading(card(10, "636000", many));
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.info.element_count, VARNEL_BARCODE_ELEMENTS);
  EXPECT_EQ(reading.info.omitted_elements, 36u);
  EXPECT_EQ(reading.info.finding_count, VARNEL_BARCODE_FINDINGS_MAX);
  EXPECT_EQ(reading.info.omitted_findings, 36u);
}

// ---- names ----------------------------------------------------------------------------------------------

struct NameRow {
  int version;
  Elements elements;
  const char *names; // first|family|middle|suffix
  const char *findings;
};

static const NameRow NAMES[] = {
    {1, {{"DAA", "LARCH,OLIVE,MAY,JR"}}, "OLIVE|LARCH|MAY|JR", ""},
    {1, {{"DAA", "LARCH,OLIVE,MAY"}}, "OLIVE|LARCH|MAY|", ""},
    {1, {{"DAA", "LARCH, OLIVE , MAY  ,"}}, "OLIVE|LARCH|MAY|", ""},
    {1, {{"DAA", "LARCH,OLIVE,,JR"}}, "OLIVE|LARCH||JR", ""},
    {1, {{"DAA", "LARCH,OLIVE MAY"}}, "OLIVE|LARCH|MAY|", ""},
    {1, {{"DAA", "LARCH, OLIVE MAY"}}, "OLIVE|LARCH|MAY|", ""},
    {1, {{"DAA", "LARCH,OLIVE MAY JO"}}, "OLIVE|LARCH|MAY JO|", ""},
    {1, {{"DAA", "LARCH,OLIVE"}}, "OLIVE|LARCH||", ""},
    {1, {{"DAA", ",OLIVE"}}, "OLIVE|||", ""},
    {1, {{"DAA", "LARCH,OLIVE,NONE,None"}}, "OLIVE|LARCH||", ""},
    {1, {{"DAA", "NONE,OLIVE,MAY"}}, "OLIVE|NONE|MAY|", ""},
    {1, {{"DAA", "OLIVE MAY LARCH"}}, "|||", "nameNotSplit@40:DAA"},
    {1, {{"DAA", "LARCH,A,B,C,D"}}, "|||", "nameNotSplit@40:DAA"},
    {1, {{"DAA", "LARCH,O,M,V"}}, "O|LARCH|M|V", ""},
    {1, {{"DAB", "ELM"}, {"DAA", "LARCH,OLIVE,MAY"}}, "OLIVE|ELM|MAY|", ""},
    {1, {{"DAB", "ELM"}, {"DAC", "IDA"}, {"DAA", "LARCH,OLIVE,MAY"}}, "IDA|ELM|MAY|", ""},
    {1, {{"DAB", "ELM"}, {"DAD", "JO"}, {"DAA", "LARCH,OLIVE,MAY"}}, "OLIVE|ELM|JO|", ""},
    {1, {{"DAC", "IDA"}, {"DAD", "JO"}, {"DAA", "LARCH,OLIVE,MAY"}}, "IDA|LARCH|JO|", ""},
    {1, {{"DAB", "ELM"}, {"DAC", "IDA"}, {"DAD", "JO"}, {"DAA", "LARCH"}}, "IDA|ELM|JO|", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "WENDEL,AUGUST"}}, "WENDEL|PINE|AUGUST|", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "WENDEL, AUGUST,  IVO"}}, "WENDEL|PINE|AUGUST IVO|", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "WENDEL AUGUST  IVO"}}, "WENDEL|PINE|AUGUST IVO|", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "MARY JO,ANN"}}, "MARY JO|PINE|ANN|", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "WENDEL"}}, "WENDEL|PINE||", ""},
    {3, {{"DCS", "PINE"}, {"DCT", "WENDEL,, ,IVO"}}, "WENDEL|PINE|IVO|", ""},
    {3, {{"DCS", "PINE,"}, {"DCT", "WENDEL,NONE,IVO"}, {"DCU", "NONE"}}, "WENDEL|PINE|IVO|", ""},
    {10, {{"DCS", "NONE"}, {"DAC", "none"}, {"DAD", "UNAVAIL"}, {"DCU", "unavl"}}, "|NONE||", ""},
    {10, {{"DCS", "PINE"}, {"DAC", "MARY JO"}, {"DAD", " SKY , ELLIS,"}}, "MARY JO|PINE|SKY ELLIS|", ""},
    {10, {{"DCS", "PINE"}, {"DAC", "IDA"}, {"DAD", "J,ANN"}}, "IDA|PINE|J ANN|", ""},
    {10, {{"DCS", "PINE"}, {"DAC", "IDA"}, {"DAD", "NONE,SKY"}, {"DCU", "III"}}, "IDA|PINE|SKY|III", ""},
};

TEST(Barcode, SplitsNames) {
  for (const NameRow &row : NAMES) {
    Elements elements = {{"DAJ", "VA"}};
    std::string what = std::to_string(row.version);
    for (const Element &element : row.elements) {
      elements.push_back(element);
      what += " " + element.id + element.value;
    }
    SCOPED_TRACE(what);
    const Reading reading(card(row.version, "636000", elements));
    EXPECT_EQ(reading.slot(FIELD_FIRST_NAME) + "|" + reading.slot(FIELD_FAMILY_NAME) + "|" +
                  reading.slot(FIELD_MIDDLE_NAME) + "|" + reading.slot(FIELD_NAME_SUFFIX),
              row.names);
    EXPECT_EQ(reading.findings(), row.findings);
  }
}

// ---- values ---------------------------------------------------------------------------------------------

struct ValueRow {
  const char *element;
  std::string value;
  int slot;
  const char *stored;
  const char *finding; // its code
};

static const ValueRow VALUES[] = {
    {"DBB", "02281990", FIELD_BIRTH_DATE, "19900228", ""},
    {"DBB", "12311999", FIELD_BIRTH_DATE, "19991231", ""},
    {"DBB", "19900228", FIELD_BIRTH_DATE, "19900228", "dateOrder"},
    {"DBB", "18000101", FIELD_BIRTH_DATE, "18000101", "dateOrder"},
    {"DBB", "21991231", FIELD_BIRTH_DATE, "21991231", "dateOrder"},
    {"DBB", "02-28-1990", FIELD_BIRTH_DATE, "19900228", "dateSeparators"},
    {"DBB", "02/28/1990", FIELD_BIRTH_DATE, "19900228", "dateSeparators"},
    {"DBB", "02.28.1990", FIELD_BIRTH_DATE, "19900228", "dateSeparators"},
    {"DBB", " 02 28 1990 ", FIELD_BIRTH_DATE, "19900228", "dateSeparators"},
    {"DBB", "00000000", FIELD_BIRTH_DATE, "", ""},
    {"DBB", "00-00-0000", FIELD_BIRTH_DATE, "", ""},
    {"DBB", "00000001", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "10000000", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "        ", FIELD_BIRTH_DATE, "", ""},
    {"DBB", "NONE", FIELD_BIRTH_DATE, "", ""},
    {"DBB", "02291900", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "02292000", FIELD_BIRTH_DATE, "20000229", ""},
    {"DBB", "02301990", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "13011990", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "00011990", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "17991231", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "22000101", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "19901301", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "01010000", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "0228199", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "022819901", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBB", "02281990M", FIELD_BIRTH_DATE, "", "notADate"},
    {"DBC", "1", FIELD_SEX, "M", ""},
    {"DBC", "M", FIELD_SEX, "M", ""},
    {"DBC", "2", FIELD_SEX, "F", ""},
    {"DBC", "F ", FIELD_SEX, "F", ""},
    {"DBC", "9", FIELD_SEX, "", ""},
    {"DBC", "X", FIELD_SEX, "", ""},
    {"DBC", "0", FIELD_SEX, "", ""},
    {"DBC", "11", FIELD_SEX, "", ""},
    {"DAG", "  12 ELM CT  ", FIELD_ADDRESS_STREET_1, "12 ELM CT", ""},
    {"DAG", "12 ELM CT, ,", FIELD_ADDRESS_STREET_1, "12 ELM CT", ""},
    {"DAG", ",12 ELM", FIELD_ADDRESS_STREET_1, ",12 ELM", ""},
    {"DAG", " , ", FIELD_ADDRESS_STREET_1, "", ""},
    {"DAG", "uNaVl", FIELD_ADDRESS_STREET_1, "", ""},
    {"DAG", "Unavail", FIELD_ADDRESS_STREET_1, "", ""},
    {"DAG", "none ", FIELD_ADDRESS_STREET_1, "", ""},
    {"DAG", "NONESUCH", FIELD_ADDRESS_STREET_1, "NONESUCH", ""},
    {"DAG", "RU\xC3\x89 \xE4\xB8\xAD \xF0\x9F\x8F\xA0", FIELD_ADDRESS_STREET_1,
     "RU\xC3\x89 \xE4\xB8\xAD \xF0\x9F\x8F\xA0", ""},
    {"DAG", "RU\xC9 \xFF\xA0", FIELD_ADDRESS_STREET_1, "RU\xC3\x89 \xC3\xBF\xC2\xA0", ""},
    {"DAG", "2\xC2\xBA \xC2\xA0\xC2\x9F", FIELD_ADDRESS_STREET_1, "2\xC2\xBA \xC2\xA0", "controlCharacter"},
    {"DAG", "\xC3\x89\xC9", FIELD_ADDRESS_STREET_1, "\xC3\x89\xC3\x89", ""},
    {"DAG", "\xED\xA0\x80", FIELD_ADDRESS_STREET_1, "\xC3\xAD\xC2\xA0", "controlCharacter"},
    {"DAG",
     std::string("1\0"
                 "2\x1E\x7F"
                 "3",
                 6),
     FIELD_ADDRESS_STREET_1, "123", "controlCharacter"},
    {"DAG",
     "1\x80\x9F\xC2\x85"
     "2",
     FIELD_ADDRESS_STREET_1, "12", "controlCharacter"},
    {"DAG", "\x01 12 ELM \x01", FIELD_ADDRESS_STREET_1, "12 ELM", "controlCharacter"},
    {"DAG", "\x01\x02", FIELD_ADDRESS_STREET_1, "", "controlCharacter"},
    {"DAG", "NO\x1ENE", FIELD_ADDRESS_STREET_1, "", "controlCharacter"},
    {"DAC", "\x1EUNAVL\x1E", FIELD_FIRST_NAME, "", "controlCharacter"},
    {"DBB",
     "\x1E"
     "02281990\x7F",
     FIELD_BIRTH_DATE, "19900228", "controlCharacter"},
    {"DBB", "0228\t1990", FIELD_BIRTH_DATE, "19900228", "controlCharacter"},
    {"DBB",
     "0000\x1E"
     "0000",
     FIELD_BIRTH_DATE, "", "controlCharacter"},
    {"DBC", "2\x1E", FIELD_SEX, "F", "controlCharacter"},
};

TEST(Barcode, TakesValuesAsTheyStandButTrimmed) {
  for (const ValueRow &row : VALUES) {
    SCOPED_TRACE(std::string(row.element) + row.value);
    const Reading reading(card(10, "636000", {{"DAJ", "VA"}, {"DCG", "USA"}, {row.element, row.value}}));
    EXPECT_EQ(reading.slot(row.slot), row.stored);
    const std::string expected = *row.finding == '\0' ? "" : std::string(row.finding) + "@49:" + row.element;
    EXPECT_EQ(reading.findings(), expected);
  }
}

struct OrderRow {
  const char *what;
  int version;
  const char *issuer;
  const char *country;
  bool month_first; // what is expected; the other order is a finding
  bool any;         // nothing is expected
};

static const OrderRow ORDERS[] = {
    {"00 year first", 0, "636000", "USA", false, false},
    {"01 year first", 1, "636000", "USA", false, false},
    {"02 month first, Canada too", 2, "636017", "CAN", true, false},
    {"03 the United States", 3, "636000", "USA", true, false},
    {"03 Canada", 3, "636012", "CAN", false, false},
    {"03 Canada by its older code", 3, "636012", "CDN", false, false},
    {"10 the United States by the issuer", 10, "636000", "", true, false},
    {"10 Canada by the issuer", 10, "636012", "", false, false},
    {"10 the element before the issuer", 10, "636012", "USA", true, false},
    {"10 Mexico: nothing is expected", 10, "636056", "", true, true},
    {"10 nobody knows", 10, "123456", "", true, true},
};

TEST(Barcode, ReadsDatesInBothOrdersAndSaysWhichIsUnexpected) {
  for (const OrderRow &row : ORDERS) {
    SCOPED_TRACE(row.what);
    for (const bool month_first : {false, true}) {
      const Reading reading(
          card(row.version, row.issuer,
               {{"DAJ", "VA"}, {"DBB", month_first ? "06071985" : "19850607"}, {"DCG", row.country}}));
      EXPECT_EQ(reading.slot(FIELD_BIRTH_DATE), "19850607");
      const bool unexpected = !row.any && month_first != row.month_first;
      EXPECT_EQ(reading.findings().find("dateOrder@") != std::string::npos, unexpected);
    }
  }
}

TEST(Barcode, FillsTheTwelveOnlyWhereTheyAreEmpty) {
  const Reading reading(card(1, "636005", {{"DAQ", "Q1"}, {"DBB", "19610417"}, {"DCG", "CAN"}}));
  EXPECT_EQ(reading.slot(FIELD_COUNTRY_CODE), "CAN"); // not the issuer's
  EXPECT_EQ(reading.slot(FIELD_DATE_OF_BIRTH), "19610417");
  EXPECT_EQ(reading.slot(FIELD_BIRTH_DATE), "19610417");

  const Reading siblings(card(3, "636005", {{"DAQ", "Q1"}, {"DCG", "USA"}, {"DAJ", "SC"}}));
  EXPECT_EQ(siblings.slot(FIELD_PERSONAL_NUMBER), "Q1");
  EXPECT_EQ(siblings.slot(FIELD_DOCUMENT_NUMBER), "Q1");
  EXPECT_EQ(siblings.slot(FIELD_COUNTRY_ID), "USA");
  EXPECT_EQ(siblings.slot(FIELD_COUNTRY_CODE), "USA");
}

TEST(Barcode, TakesTheJurisdictionOfTheIssuerBeforeDescriptions) {
  const Reading described(card(10, "636000", {{"DAQ", "T1"}, {"DCQ", "MOTORCYCLE"}}));
  EXPECT_EQ(described.values(), "|||T1||||USA|VA||DL|");
  EXPECT_EQ(described.findings(), "jurisdictionByIssuer@9:DAJ");

  const Reading residence(card(1, "636000", {{"DAQ", "T1"}, {"DAO", "NC"}}));
  EXPECT_EQ(residence.values(), "|||T1||||USA|NC||DL|");
  EXPECT_EQ(residence.findings(), "");

  const Reading unknown(card(10, "999999", {{"DAQ", "T1"}, {"DCQ", "MOTORCYCLE"}}));
  EXPECT_EQ(unknown.values(), "|||T1|||||MOTORCYCLE||DL|");
  EXPECT_EQ(unknown.findings(), "");
}

TEST(Barcode, NamesTheDocumentByTheFirstSubfileThatIsNoJurisdictions) {
  Card listed = virginian();
  std::swap(listed.subfiles[0], listed.subfiles[1]);
  EXPECT_EQ(Reading(listed.text()).values(), VIRGINIAN);

  listed = virginian();
  listed.subfiles.push_back({"ID", {{"DAQ", "OTHER"}}});
  const Reading two(listed.text());
  EXPECT_EQ(two.values(), VIRGINIAN);
  EXPECT_EQ(two.elements(), "ZVA=01 DAQ=OTHER");
}

// ---- issuers --------------------------------------------------------------------------------------------

TEST(Barcode, KnowsTheIssuers) {
  // The list of the AAMVA, and the number on cards of Alberta that it does not have.
  const char *const issuers[] = {
      "604426 PE CAN", "604427 AS USA", "604428 QC CAN", "604429 YT CAN", "604430 MP USA", "604431 PR USA",
      "604432 AB CAN", "604433 NU CAN", "604434 NT CAN", "636000 VA USA", "636001 NY USA", "636002 MA USA",
      "636003 MD USA", "636004 NC USA", "636005 SC USA", "636006 CT USA", "636007 LA USA", "636008 MT USA",
      "636009 NM USA", "636010 FL USA", "636011 DE USA", "636012 ON CAN", "636013 NS CAN", "636014 CA USA",
      "636015 TX USA", "636016 NL CAN", "636017 NB CAN", "636018 IA USA", "636019 GU USA", "636020 CO USA",
      "636021 AR USA", "636022 KS USA", "636023 OH USA", "636024 VT USA", "636025 PA USA", "636026 AZ USA",
      "636027 -- USA", "636028 BC CAN", "636029 OR USA", "636030 MO USA", "636031 WI USA", "636032 MI USA",
      "636033 AL USA", "636034 ND USA", "636035 IL USA", "636036 NJ USA", "636037 IN USA", "636038 MN USA",
      "636039 NH USA", "636040 UT USA", "636041 ME USA", "636042 SD USA", "636043 DC USA", "636044 SK CAN",
      "636045 WA USA", "636046 KY USA", "636047 HI USA", "636048 MB CAN", "636049 NV USA", "636050 ID USA",
      "636051 MS USA", "636052 RI USA", "636053 TN USA", "636054 NE USA", "636055 GA USA", "636056 -- MEX",
      "636057 -- MEX", "636058 OK USA", "636059 AK USA", "636060 WY USA", "636061 WV USA", "636062 VI USA",
      "990876 AB CAN",
  };
  int known = 0;
  for (const std::string row : issuers) {
    SCOPED_TRACE(row);
    const Reading reading(card(10, row.substr(0, 6), {{"DAQ", "T1"}}));
    const std::string jurisdiction = row.substr(7, 2) == "--" ? "" : row.substr(7, 2);
    EXPECT_EQ(reading.info.issuer, row.substr(0, 6));
    EXPECT_EQ(reading.info.jurisdiction, jurisdiction);
    EXPECT_EQ(reading.info.country, row.substr(10));
    EXPECT_EQ(reading.slot(FIELD_COUNTRY_CODE), row.substr(10));
    ++known;
  }
  EXPECT_EQ(known, 73);
  EXPECT_EQ(Reading(card(0, "000000", {{"DAQ", "T1"}})).status, ERR_OK);
  for (const char *number : {"604425", "604435", "635999", "636063", "000000", "999999"}) {
    const Reading reading(card(10, number, {{"DAQ", "T1"}}));
    EXPECT_EQ(reading.status, ERR_OK);
    EXPECT_STREQ(reading.info.issuer, number);
    EXPECT_STREQ(reading.info.jurisdiction, "");
    EXPECT_STREQ(reading.info.country, "");
  }
}

// ---- deviations -----------------------------------------------------------------------------------------

struct Deviation {
  const char *what;
  std::string text;
  const char *findings;
};

// The bytes of the Virginian's card: header 0 to 40, licence 41 to 257 (its type letters, then elements from
// 43, its CR at 257), jurisdiction's subfile 258 to 265.
static std::vector<Deviation> deviations() {
  const std::string good = virginian().text();
  const std::string dl = "DL00410217", zv = "ZV02580008";
  const std::string returns = replaced(replaced(good, "\nDCF", "\rDCF"), "\nDCG", "\rDCG");
  return {
      {"none", good, "unknownElement@260:ZVA"},
      {"text before", "SCAN: " + good, "textBefore@0 unknownElement@266:ZVA"},
      {"a byte order mark", "\xEF\xBB\xBF" + good, "byteOrderMark@0 unknownElement@263:ZVA"},
      {"a byte order mark and text", "\xEF\xBB\xBF\n" + good,
       "byteOrderMark@0 textBefore@3 unknownElement@264:ZVA"},
      {"no indicator", good.substr(1), "indicatorMissing@3 unknownElement@259:ZVA"},
      {"no indicator, and text before", "X" + good.substr(1),
       "textBefore@0 indicatorMissing@4 unknownElement@260:ZVA"},
      {"RS lost", replaced(good, "\x1E", ""), "headerControls@1 unknownElement@259:ZVA"},
      {"RS printed", replaced(good, "\x1E", "^^"), "headerControls@1 unknownElement@261:ZVA"},
      {"the header's control characters lost", replaced(good, "\n\x1E\r", ""),
       "headerControls@1 unknownElement@257:ZVA"},
      {"the header's LF doubled", replaced(good, "\n\x1E", "\n\n\x1E"),
       "headerControls@1 unknownElement@261:ZVA"},
      {"the other file type", replaced(good, "ANSI ", "AAMVA"), "fileType@4 unknownElement@260:ZVA"},
      {"a file type in small letters", replaced(good, "ANSI", "ansi"),
       "smallLetters@4 unknownElement@260:ZVA"},
      {"no jurisdiction version", replaced(good, "100002", "1002"),
       "jurisdictionVersionMissing@17 offset@21:DL offset@31:ZV unknownElement@258:ZVA"},
      {"no number of entries", replaced(good, "100002", "10"),
       "entries@17 offset@19:DL offset@29:ZV unknownElement@256:ZVA"},
      {"an entry too many", replaced(good, "100002", "100003"), "entries@19 unknownElement@260:ZVA"},
      {"an entry too few", replaced(good, "100002", "100001"), "entries@19 unknownElement@260:ZVA"},
      {"no digits for the entries", replaced(good, "100002", "1000??"), "entries@19 unknownElement@260:ZVA"},
      {"an offset one too far", replaced(good, zv, "ZV02590008"), "offset@33:ZV unknownElement@260:ZVA"},
      {"an offset four too near", replaced(good, dl, "DL00370217"), "offset@23:DL unknownElement@260:ZVA"},
      {"an offset far off", replaced(good, zv, "ZV06020008"), "offset@33:ZV unknownElement@260:ZVA"},
      {"an offset of 0", replaced(good, dl, "DL00000217"), "offset@23:DL unknownElement@260:ZVA"},
      {"an offset with a letter", replaced(good, dl, "DL00A10217"), "offset@23:DL unknownElement@260:ZVA"},
      {"a length one too long", replaced(good, dl, "DL00410218"), "length@27:DL unknownElement@260:ZVA"},
      {"a length of 0", replaced(good, dl, "DL00410000"), "length@27:DL unknownElement@260:ZVA"},
      {"no type letters, the offset where they should be", replaced(good, "DLDAQ", "DAQ"),
       "offset@33:ZV typeLettersMissing@41:DL unknownElement@258:ZVA"},
      {"no type letters, and an offset far off", replaced(replaced(good, "DLDAQ", "DAQ"), dl, "DL09000217"),
       "offset@23:DL offset@33:ZV typeLettersMissing@41:DL unknownElement@258:ZVA"},
      {"no type letters of the second, the offset four too far",
       replaced(replaced(good, "ZVZVA", "ZVA"), zv, "ZV02620008"),
       "offset@33:ZV typeLettersMissing@258:ZV unknownElement@258:ZVA"},
      {"no type letters of the second, the offset five too far",
       replaced(replaced(good, "ZVZVA", "ZVA"), zv, "ZV02630008"), "subfileMissing@31:ZV textAfter@258:DL"},
      {"no type letters of the second", replaced(good, "ZVZVA", "ZVA"),
       "typeLettersMissing@258:ZV unknownElement@258:ZVA"},
      {"a subfile that is not there", replaced(good, "\rZVZVA01\r", "\r"), "subfileMissing@31:ZV"},
      {"LF after the type letters", replaced(good, "DLDAQ", "DL\nDAQ"),
       "length@27:DL offset@33:ZV separators@43:DL unknownElement@261:ZVA"},
      {"CR LF for CR", replaced(good, "USA\r", "USA\r\n"),
       "offset@33:ZV lineFeedAdded@257:DL unknownElement@261:ZVA"},
      {"LF for CR", replaced(good, "USA\r", "USA\n"), "lineFeed@257:DL unknownElement@260:ZVA"},
      {"LF for the last CR", replaced(good, "ZVA01\r", "ZVA01\n"), "unknownElement@260:ZVA lineFeed@265:ZV"},
      {"the last CR lost", replaced(good, "ZVA01\r", "ZVA01"),
       "unknownElement@260:ZVA terminatorMissing@265:ZV"},
      {"CR for an LF", replaced(good, "\nDCS", "\rDCS"), "carriageReturn@55 unknownElement@260:ZVA"},
      {"CR for two, the declared end at the second", replaced(returns, dl, "DL00410210"),
       "length@27:DL carriageReturn@230 carriageReturn@250 unknownElement@260:ZVA"},
      {"CR for two, a length that is wrong", replaced(returns, dl, "DL00410150"),
       "length@27:DL carriageReturn@230 carriageReturn@250 unknownElement@260:ZVA"},
      {"CR for two, text after the declared end",
       replaced(replaced(returns, dl, "DL00410210"), "\rDCG", "\r~~~"),
       "carriageReturn@230 textAfter@251:DL unknownElement@260:ZVA"},
      {"CR for one, before an identifier in small letters", replaced(good, "\nDCG", "\rdcg"),
       "carriageReturn@250 smallLetters@251:DCG unknownElement@260:ZVA"},
      {"CR for two, an unknown one in small letters", replaced(returns, "\rDCG", "\rxyz"),
       "length@27:DL carriageReturn@230 textAfter@251:DL unknownElement@260:ZVA"},
      {"CR for two, a line that is no element", replaced(returns, "\rDCG", "\r1CG"),
       "length@27:DL carriageReturn@230 textAfter@251:DL unknownElement@260:ZVA"},
      {"CR LF for an LF", replaced(good, "\nDCS", "\r\nDCS"),
       "length@27:DL offset@33:ZV lineFeedAdded@55 unknownElement@261:ZVA"},
      {"LF doubled", replaced(good, "\nDCS", "\n\nDCS"),
       "length@27:DL offset@33:ZV separators@55 unknownElement@261:ZVA"},
      {"RS after an LF",
       replaced(good, "\nDCS",
                "\n\x1E"
                "DCS"),
       "length@27:DL offset@33:ZV separators@55 unknownElement@261:ZVA"},
      {"CR doubled", replaced(good, "USA\r", "USA\r\r"),
       "offset@33:ZV separators@257:DL unknownElement@261:ZVA"},
      {"CR printed as M", replaced(good, "USA\r", "USAM"), "printedReturn@257:DL unknownElement@260:ZVA"},
      {"the last CR printed as M", replaced(good, "ZVA01\r", "ZVA01M"),
       "unknownElement@260:ZVA printedReturn@265:ZV"},
      {"an identifier in small letters", replaced(good, "DCS", "dcs"),
       "smallLetters@56:DCS unknownElement@260:ZVA"},
      {"a listed type in small letters", replaced(good, dl, "dl00410217"),
       "smallLetters@21:DL unknownElement@260:ZVA"},
      {"type letters in small letters", replaced(good, "DLDAQ", "dlDAQ"),
       "smallLetters@41:DL unknownElement@260:ZVA"},
      {"a jurisdiction's element in small letters", replaced(good, "ZVZVA", "ZVzvA"),
       "smallLetters@260:ZVA unknownElement@260:ZVA"},
      {"text after the last subfile", good + "88888888", "unknownElement@260:ZVA textAfter@266:ZV"},
      {"text after it that looks like elements", good + "ZVB02\rZVC03\r",
       "unknownElement@260:ZVA textAfter@266:ZV"},
      {"text between subfiles", replaced(good, "USA\r", "USA\r~~~~\r"),
       "offset@33:ZV textAfter@258:DL unknownElement@265:ZVA"},
      {"text between subfiles, after CR LF", replaced(good, "USA\r", "USA\r\n~~~~\r"),
       "offset@33:ZV lineFeedAdded@257:DL textAfter@259:DL unknownElement@266:ZVA"},
      {"a line that is no element", replaced(good, "\nDCS", "\nApt. 3\nDCS"),
       "length@27:DL offset@33:ZV notAnElement@56 unknownElement@267:ZVA"},
      {"a line too short", replaced(good, "\nDCS", "\n88\nDCS"),
       "length@27:DL offset@33:ZV notAnElement@56 unknownElement@263:ZVA"},
      {"a control character in a value", replaced(good, "ELM", "E\tLM"),
       "length@27:DL offset@33:ZV controlCharacter@189:DAG unknownElement@261:ZVA"},
      {"a date with separators", replaced(good, "06061986", "06-06-1986"),
       "length@27:DL offset@33:ZV dateSeparators@143:DBB unknownElement@262:ZVA"},
      {"a date in the other order", replaced(good, "06061986", "19860606"),
       "dateOrder@143:DBB unknownElement@260:ZVA"},
      {"an element twice", replaced(good, "\nDCS", "\nDAYBLU\nDCS"),
       "length@27:DL offset@33:ZV repeated@186:DAY unknownElement@267:ZVA"},
      {"no jurisdiction", replaced(good, "\nDAJVA", ""),
       "jurisdictionByIssuer@9:DAJ length@27:DL offset@33:ZV unknownElement@254:ZVA"},
  };
}

TEST(Barcode, ReadsAroundDeviationsAndSaysSo) {
  for (const Deviation &deviation : deviations()) {
    SCOPED_TRACE(deviation.what);
    const Reading reading(deviation.text);
    EXPECT_EQ(reading.status, ERR_OK);
    EXPECT_EQ(reading.values(), VIRGINIAN);
    EXPECT_EQ(reading.findings(), deviation.findings);
  }
}

TEST(Barcode, ReadsACardWhoseLineFeedsAllBecameCrLf) {
  std::string text = virginian().text();
  for (std::size_t at = 40; (at = text.find('\n', at)) != std::string::npos; at += 2)
    text.insert(at, "\r");
  text =
      replaced(text, "\r\nDCS", "\r\nDDM1\r\nDCS"); // an element that no table has does not end the subfile
  const Reading reading(text);
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.values(), VIRGINIAN);
}

// A jurisdiction's subfiles of one type are told apart by their order.
TEST(Barcode, FindsSubfilesOfOneTypeOneAfterTheOther) {
  Card twins = virginian();
  twins.subfiles.push_back({"ZV", {{"ZVB", "02"}}});
  const Reading right(twins.text());
  EXPECT_EQ(right.elements(), "ZVA=01 ZVB=02");
  EXPECT_EQ(right.findings(), "unknownElement@270:ZVA unknownElement@278:ZVB");

  const Reading moved(replaced(replaced(twins.text(), "ZV0268", "ZV0000"), "ZV0276", "ZV0000"));
  EXPECT_EQ(moved.elements(), "ZVA=01 ZVB=02");
  EXPECT_EQ(moved.findings(), "offset@33:ZV offset@43:ZV unknownElement@270:ZVA unknownElement@278:ZVB");
}

TEST(Barcode, FindsSubfilesInAnotherOrderThanListed) {
  const Card card = virginian();
  const std::string text = replaced(replaced(card.header(), "DL0041", "DL0049"), "ZV0258", "ZV0041") +
                           Card::body(card.subfiles[1]) + Card::body(card.subfiles[0]);
  const Reading reading(text);
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_EQ(reading.findings(), "unknownElement@43:ZVA");
}

// The letters of one may begin within those of another, which then has no elements.
TEST(Barcode, ReadsSubfilesWhoseLettersOverlap) {
  const Reading reading("@\n\x1E\rANSI 636000100002ID00410028DL00420027IDLDAQT1\nDCSOAK\nDBB02281990\r");
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.values(), "|OAK||T1|19900228|||USA|VA||ID|");
  EXPECT_EQ(reading.findings(), "jurisdictionByIssuer@9:DAJ length@27:ID terminatorMissing@43:ID");
}

TEST(Barcode, ReadsEightSubfiles) {
  Card many = virginian();
  for (const char *type : {"ZA", "ZB", "ZC", "ZD", "ZE", "ZF"}) {
    many.subfiles.push_back({type, {{type + std::string("A"), "1"}}});
  }
  const Reading eight(many.text());
  EXPECT_EQ(eight.values(), VIRGINIAN);
  EXPECT_EQ(eight.elements(), "ZVA=01 ZAA=1 ZBA=1 ZCA=1 ZDA=1 ZEA=1 ZFA=1");
  EXPECT_EQ(eight.findings().find("entries@"), std::string::npos);

  many.subfiles.push_back({"ZG", {{"ZGA", "1"}}});
  const Reading nine(many.text());
  EXPECT_EQ(nine.values(), VIRGINIAN);
  EXPECT_EQ(nine.elements(), "ZVA=01 ZAA=1 ZBA=1 ZCA=1 ZDA=1 ZEA=1 ZFA=1");
  EXPECT_EQ(nine.info.subfile_count, VARNEL_BARCODE_SUBFILES);
  EXPECT_EQ(nine.findings().substr(0, 10), "entries@19");
}

// Offsets count from four bytes before the file type, which need not be there.
TEST(Barcode, ReadsAnOffsetToBeforeTheText) {
  for (const char *offset : {"0000", "0003"}) {
    const std::string text = replaced(virginian().text().substr(4), "DL0041", "DL" + std::string(offset));
    const Reading reading(text);
    EXPECT_EQ(reading.values(), VIRGINIAN);
    EXPECT_EQ(reading.findings(), "indicatorMissing@0 headerControls@0 offset@19:DL unknownElement@256:ZVA");
  }
}

TEST(Barcode, ReadsAnEmptySubfile) {
  Card empty = virginian();
  empty.subfiles[1] = {"ZD", {}};
  const Reading reading(empty.text());
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_EQ(reading.findings(), "");
  EXPECT_STREQ(reading.info.subfiles[1], "ZD");
}

// An M that ends a value is a letter unless everything says that it is a CR.
TEST(Barcode, TakesAnMForACrOnlyWhereItCanBeNothingElse) {
  Card named = virginian();
  named.subfiles.pop_back();
  named.subfiles[0].elements.push_back({"DCU", "IIM"});
  const std::string good = named.text();
  EXPECT_EQ(Reading(good).slot(FIELD_NAME_SUFFIX), "IIM");

  const std::string lost = good.substr(0, good.size() - 1); // the declared last byte is gone, not an M
  EXPECT_EQ(Reading(lost).slot(FIELD_NAME_SUFFIX), "IIM");

  const std::string printed = lost + "M";
  EXPECT_EQ(Reading(printed).slot(FIELD_NAME_SUFFIX), "IIM");
  EXPECT_NE(Reading(printed).findings().find("printedReturn@"), std::string::npos);

  const std::string followed = lost + "M\n"; // the text does not end there
  EXPECT_EQ(Reading(followed).slot(FIELD_NAME_SUFFIX), "IIMM");
  EXPECT_EQ(Reading(followed).findings().find("printedReturn@"), std::string::npos);

  const std::string moved = replaced(lost + "M", "DL0031", "DL0030"); // not at its offset
  EXPECT_EQ(Reading(moved).slot(FIELD_NAME_SUFFIX), "IIMM");
}

// Where a subfile does not begin a line, only its offset finds it, four bytes either way.
TEST(Barcode, FindsASubfileInALineByItsOffsetAlone) {
  const std::string printed = replaced(virginian().text(), "USA\r", "USAM");
  const auto moved = [&](const char *offset) {
    return Reading(replaced(printed, "ZV02580008", "ZV0" + std::string(offset) + "0008"));
  };
  for (const char *offset : {"254", "257", "259", "262"}) {
    SCOPED_TRACE(offset);
    const Reading reading = moved(offset);
    EXPECT_EQ(reading.values(), VIRGINIAN);
    EXPECT_EQ(reading.elements(), "ZVA=01");
    EXPECT_EQ(reading.findings(), "offset@33:ZV printedReturn@257:DL unknownElement@260:ZVA");
  }
  for (const char *offset : {"253", "263"}) {
    SCOPED_TRACE(offset);
    EXPECT_NE(moved(offset).findings().find("subfileMissing@31:ZV"), std::string::npos);
  }
}

// ---- without a header -----------------------------------------------------------------------------------

struct HeadlessRow {
  const char *what;
  const char *text;
  int status;
  const char *values;
};

static const HeadlessRow HEADLESS[] = {
    {"three elements", "DAQT1\nDCSOAK\nDBB02281990\n", ERR_OK, "|OAK||T1|19900228|||||||"},
    {"three elements in lines of CR LF", "\r\nDAQT1\r\nDCSOAK\r\n\r\nDBB02281990\r\n", ERR_OK,
     "|OAK||T1|19900228|||||||"},
    {"type letters before them", "DLDAQT1\nDCSOAK\nDBB02281990\r", ERR_OK, "|OAK||T1|19900228|||||||"},
    {"type letters of an identification card before them", "IDDAQT1\nDCSOAK\nDBB02281990\r", ERR_OK,
     "|OAK||T1|19900228|||||||"},
    {"type letters of an enhanced licence before them", "ENDAQT1\nDCSOAK\nDBB02281990\r", ERR_OK,
     "|OAK||T1|19900228|||||||"},
    {"letters before them that are no type", "IXDAQT1\nDCSOAK\nDBB02281990\r", ERR_INVALID_FORMAT,
     "|||||||||||"},
    {"an element without a value and one unknown", "DAQT1\nDCSOAK\nDBB02281990\nDAH\nXYZ1", ERR_OK,
     "|OAK||T1|19900228|||||||"},
    {"a byte order mark",
     "\xEF\xBB\xBF"
     "DAQT1\nDCSOAK\nDBA02281990",
     ERR_OK, "|OAK||T1||19900228||||||"},
    {"two elements", "DAQT1\nDBB02281990\n", ERR_INVALID_FORMAT, "|||||||||||"},
    {"three, one without a value", "DAQT1\nDBB02281990\nDCS", ERR_INVALID_FORMAT, "|||||||||||"},
    {"no number", "DCSOAK\nDACIVO\nDBB02281990\n", ERR_INVALID_FORMAT, "|||||||||||"},
    {"no date", "DAQT1\nDCSOAK\nDACIVO\n", ERR_INVALID_FORMAT, "|||||||||||"},
    {"a date that does not exist", "DAQT1\nDCSOAK\nDBB02301990\n", ERR_INVALID_FORMAT, "|||||||||||"},
    {"prose among them", "DAQT1\nDCSOAK\nDBB02281990\nthe end", ERR_INVALID_FORMAT, "|||||||||||"},
};

TEST(Barcode, ReadsElementsWithoutAHeader) {
  for (const HeadlessRow &row : HEADLESS) {
    SCOPED_TRACE(row.what);
    const Reading reading(row.text);
    EXPECT_EQ(reading.status, row.status);
    EXPECT_EQ(reading.values(), row.values);
    EXPECT_EQ(reading.info.version, -1);
    EXPECT_STREQ(reading.info.issuer, "");
    EXPECT_EQ(reading.info.subfile_count, 0);
    const char *code = row.status == ERR_OK ? "headerMissing@" : "notABarcode@";
    EXPECT_NE(reading.findings().find(code), std::string::npos) << reading.findings();
  }
}

// ---- without separators ---------------------------------------------------------------------------------

TEST(Barcode, DividesATextWithoutSeparatorsWhereOneWayIsLeft) {
  const std::string text = without(virginian().text(), "\n\r\x1E");
  const Reading reading(text);
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_EQ(reading.slot(FIELD_ADDRESS_STREET_1), "12 ELM CT");
  EXPECT_EQ(reading.elements(), "ZVA=01");
  EXPECT_NE(reading.findings().find("separatorsMissing@40:DL"), std::string::npos) << reading.findings();
}

TEST(Barcode, DividesWhereTheCrWereKept) {
  const Reading reading(replaced(without(virginian().text(), "\n"), "@\x1E", "@\n\x1E"));
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.values(), VIRGINIAN);
}

// DAD stands in MCDADAMS, DCS in the number: the length, the demanded elements and the fixed formats decide.
TEST(Barcode, IsNotMisledByLettersThatLookLikeAnIdentifier) {
  Card named = virginian();
  named.subfiles[0].elements[1].value = "MCDADAMS";
  named.subfiles[0].elements[0].value = "T6DCS35";
  const Reading reading(without(named.text(), "\n\r\x1E"));
  EXPECT_EQ(reading.status, ERR_INVALID_FORMAT); // T6 and 35DCSMCDADAMS would do as well
  EXPECT_EQ(reading.findings().substr(reading.findings().size() - 13), "ambiguous@238");

  named.subfiles[0].elements[0].value = "T64235789"; // were DAD in the name, DDF would not be one letter
  const Reading sure(without(named.text(), "\n\r\x1E"));
  EXPECT_EQ(sure.status, ERR_OK);
  EXPECT_EQ(sure.slot(FIELD_FAMILY_NAME), "MCDADAMS");
}

// What some versions demand.
static const std::map<int, Elements> DEMANDED = {
    {1,
     {{"DAG", "1 ELM CT"},
      {"DAI", "FAIRFAX"},
      {"DAJ", "VA"},
      {"DAK", "220300000  "},
      {"DAQ", "T64"},
      {"DBA", "12102011"},
      {"DBB", "06061986"},
      {"DBC", "1"},
      {"DBD", "06062006"},
      {"DAA", "OAK,IVO"},
      {"DAR", "D"},
      {"DAS", "B"},
      {"DAT", "M"}}},
    {2, {{"DAG", "1 ELM CT"}, {"DAI", "FAIRFAX"},  {"DAJ", "VA"},  {"DAK", "220300000  "}, {"DAQ", "T64"},
         {"DBA", "12102011"}, {"DBB", "06061986"}, {"DBC", "1"},   {"DBD", "06062006"},    {"DCA", "D"},
         {"DCB", "NONE"},     {"DCD", "NONE"},     {"DCS", "OAK"}, {"DCT", "IVO"},         {"DAU", "068 in"},
         {"DAY", "NONE"},     {"DCF", "9"},        {"DCG", "USA"}, {"DCH", "NONE"},        {"DCE", "5"},
         {"DCU", "NONE"}}},
    {3,
     {{"DAG", "1 ELM CT"},
      {"DAI", "FAIRFAX"},
      {"DAJ", "VA"},
      {"DAK", "220300000  "},
      {"DAQ", "T64"},
      {"DBA", "12102011"},
      {"DBB", "06061986"},
      {"DBC", "1"},
      {"DBD", "06062006"},
      {"DCA", "D"},
      {"DCB", "NONE"},
      {"DCD", "NONE"},
      {"DCS", "OAK"},
      {"DCT", "IVO"},
      {"DAU", "068 in"},
      {"DAY", "NONE"},
      {"DCF", "9"},
      {"DCG", "USA"},
      {"DCH", "NONE"}}},
    {10, virginian().subfiles[0].elements},
};

// A value that is not as the standard fixes it cannot have been meant: then there is no way to divide.
struct FormatRow {
  int version;
  const char *element;
  const char *fits;
  int slot;
  const char *does_not;
};

static const FormatRow FORMATS[] = {
    {10, "DBC", "M", FIELD_SEX, "MM"},
    {10, "DAJ", "VA", FIELD_ADDRESS_JURISDICTION, "V1"},
    {10, "DAY", "BRO", FIELD_EYE_COLOR, "BR"},
    {10, "DDA", "F", FIELD_COMPLIANCE_TYPE, "1"},
    {10, "DAW", "165", FIELD_WEIGHT_LB, "16L"},
    {10, "DAX", "075", FIELD_WEIGHT_KG, "75"},
    {10, "DCE", "5", FIELD_WEIGHT_RANGE, "A"},
    {10, "DDD", "1", FIELD_LIMITED_DURATION, "Y"},
    {10, "DDL", "1", FIELD_VETERAN, "Y"},
    {10, "DDK", "1", FIELD_ORGAN_DONOR, "10"},
    {10, "DCM", "D   ", FIELD_STD_VEHICLE_CLASS, "D"},
    {10, "DCN", "M    ", FIELD_STD_ENDORSEMENT, "M"},
    {10, "DAU", "068 in", FIELD_HEIGHT, "68 in"},
    {10, "DAK", "220300000  ", FIELD_ADDRESS_POSTAL_CODE, "22030"},
    {3, "DCH", "1234", FIELD_FEDERAL_VEHICLE_CODES, "12"},
    {1, "DAU", "508", FIELD_HEIGHT_FT_IN, "5 8"},
    {1, "DAW", "165", FIELD_WEIGHT_LB, "65"},
};

TEST(Barcode, DividesByTheFixedFormats) {
  for (const FormatRow &row : FORMATS) {
    SCOPED_TRACE(row.element);
    const auto undivided = [&row](const char *value) {
      Elements elements = DEMANDED.at(row.version);
      const auto same = [&row](const Element &element) { return element.id == row.element; };
      elements.erase(std::remove_if(elements.begin(), elements.end(), same), elements.end());
      elements.push_back({row.element, value});
      return without(card(row.version, "636000", elements), "\n\r\x1E");
    };
    const Reading reading(undivided(row.fits));
    EXPECT_EQ(reading.status, ERR_OK);
    std::string stored = row.fits;
    stored.erase(stored.find_last_not_of(' ') + 1);
    EXPECT_EQ(reading.slot(row.slot), stored);
    const Reading refused(undivided(row.does_not));
    EXPECT_EQ(refused.status, ERR_INVALID_FORMAT);
    EXPECT_NE(refused.findings().find("ambiguous@"), std::string::npos) << refused.findings();
  }
}

// A jurisdiction's elements begin with its type, and none of them is demanded.
TEST(Barcode, DividesAJurisdictionsSubfile) {
  Card several = virginian();
  several.subfiles[1].elements = {{"ZVA", "01"}, {"ZVB", "ZVX"}, {"ZVC", ""}};
  EXPECT_EQ(Reading(without(several.text(), "\n\r\x1E")).status, ERR_INVALID_FORMAT);
  several.subfiles[1].elements[1].value = "VX";
  const Reading reading(without(several.text(), "\n\r\x1E"));
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_EQ(reading.elements(), "ZVA=01 ZVB=VX ZVC=");
}

// Where its letters stand twice over in another place, too, a jurisdiction's subfile is not looked for.
TEST(Barcode, DividesWithoutASubfileThatMayBeginInTwoPlaces) {
  Card licence = virginian();
  licence.subfiles[0].elements[0].value = "ZVZVX";
  const Reading reading(without(licence.text(), "\n\r\x1E"));
  EXPECT_EQ(reading.status, ERR_INVALID_FORMAT); // its elements cannot be told from the licence's
  EXPECT_EQ(reading.findings(),
            "headerControls@1 subfileMissing@28:ZV separatorsMissing@40:DL ambiguous@236");
}

struct UndividedRow {
  const char *what;
  const char *from;
  const char *to;
};

static const UndividedRow UNDIVIDABLE[] = {
    {"a demanded element missing", "DAYBRO", "XXXBRO"},
    {"a length that leaves no way", "DL00410217", "DL00410219"},
    {"no length", "DL00410217", "DL0041????"},
    {"a country of digits", "DCGUSA", "DCG123"},
    {"a date of letters", "DBB06061986", "DBB0606198X"},
};

TEST(Barcode, RefusesATextWithoutSeparatorsThatCannotBeDividedForSure) {
  for (const UndividedRow &row : UNDIVIDABLE) {
    SCOPED_TRACE(row.what);
    const Reading reading(replaced(without(virginian().text(), "\n\r\x1E"), row.from, row.to));
    EXPECT_EQ(reading.status, ERR_INVALID_FORMAT);
    EXPECT_EQ(reading.values(), "|||||||||||");
    EXPECT_NE(reading.findings().find("ambiguous@"), std::string::npos) << reading.findings();
  }
}

// Everything that the version demands has to be there; of an identification card nothing that is of driving.
TEST(Barcode, DividesWhereNothingDemandedIsMissing) {
  const std::set<std::string> of_driving = {"DAR", "DAS", "DAT", "DCA", "DCB", "DCD", "DCH"};
  int cards = 0;
  for (const auto &[version, demanded] : DEMANDED) {
    for (std::size_t missing = 0; missing < demanded.size(); ++missing) {
      const std::string &element = demanded[missing].id;
      SCOPED_TRACE(std::to_string(version) + " " + element);
      Elements elements = demanded;
      elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(missing));
      const auto status_of = [&elements, version = version](const char *type) {
        const Card undivided = {version, "636000", {{type, elements}}};
        return Reading(without(undivided.text(), "\n\r\x1E")).status;
      };
      EXPECT_EQ(status_of("DL"), ERR_INVALID_FORMAT);
      EXPECT_EQ(status_of("ID"), of_driving.count(element) == 1 ? ERR_OK : ERR_INVALID_FORMAT);
      ++cards;
    }
  }
  EXPECT_EQ(cards, 13 + 21 + 19 + 22);
}

TEST(Barcode, DividesWhereUpTo64PlacesMayBeginAnElement) {
  const auto undivided = [](int places) {
    Card licence = virginian();
    licence.subfiles.pop_back();
    Elements &elements = licence.subfiles[0].elements;
    std::rotate(elements.begin(), elements.begin() + 16, elements.end()); // the street first
    std::string &street = elements[0].value;
    street = "";
    const std::size_t without_it = elements.size() + 1; // DCAD and DCBK together have DDC
    for (std::size_t place = without_it; place < static_cast<std::size_t>(places); ++place) {
      street += "DAG"; // its own identifier, which the standard has once
    }
    return without(licence.text(), "\n\r\x1E");
  };
  EXPECT_EQ(Reading(undivided(64)).status, ERR_OK);
  EXPECT_EQ(Reading(undivided(64)).slot(FIELD_ADDRESS_STREET_1).size(), 123u);
  EXPECT_EQ(Reading(undivided(65)).status, ERR_INVALID_FORMAT);
}

// Letters of values are small more often than those of identifiers are.
TEST(Barcode, DividesByCapitalsOnly) {
  Card small = virginian();
  small.subfiles.pop_back();
  for (Element &element : small.subfiles[0].elements) {
    for (char &c : element.id) {
      c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  EXPECT_EQ(Reading(small.text()).values(), VIRGINIAN);
  EXPECT_EQ(Reading(without(small.text(), "\n\r\x1E")).status, ERR_INVALID_FORMAT);
}

TEST(Barcode, DividesOlderVersions) {
  EXPECT_EQ(Reading(without(card(3, "636000", DEMANDED.at(3)), "\n\r\x1E")).values(),
            "IVO|OAK||T64|19860606|20111210|M|USA|VA||DL|20060606");
  EXPECT_EQ(Reading(without(card(2, "636000", DEMANDED.at(2)), "\n\r\x1E")).status, ERR_OK);
  EXPECT_EQ(Reading(without(card(1, "636000", DEMANDED.at(1)), "\n\r\x1E")).slot(FIELD_FIRST_NAME), "IVO");
}

// ---- refusals -------------------------------------------------------------------------------------------

struct Refusal {
  const char *what;
  std::string text;
  const char *reason;
};

TEST(Barcode, RefusesWithAReason) {
  const std::string good = virginian().text();
  const Refusal refusals[] = {
      {"nothing", "", "notABarcode@0"},
      {"prose", "Hello, world", "notABarcode@12"},
      {"a zone", "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<", "notABarcode@44"},
      {"an issuer of letters", replaced(good, "ANSI 636", "ANSI ABC"), "notABarcode@266"},
      {"a header without designators", good.substr(0, 21), "noSubfile@21"},
      {"a header without a subfile", good.substr(0, 41), "noSubfile@41"},
      {"a subfile of no elements known", "@\n\x1E\rANSI 636000100001DL00990008DLXYZ1\r", "noSubfile@38"},
  };
  for (const Refusal &refusal : refusals) {
    SCOPED_TRACE(refusal.what);
    const Reading reading(refusal.text);
    EXPECT_EQ(reading.status, ERR_INVALID_FORMAT);
    EXPECT_EQ(reading.values(), "|||||||||||");
    const std::string findings = " " + reading.findings();
    EXPECT_EQ(findings.substr(findings.rfind(' ') + 1), refusal.reason);
  }
}

TEST(Barcode, LeavesNothingElseOfATextThatIsNoBarcode) {
  std::string text;
  for (int i = 0; i < 100; ++i)
    text += "XYZ1\n";
  const Reading reading(text + "the end");
  EXPECT_EQ(reading.status, ERR_INVALID_FORMAT);
  EXPECT_EQ(reading.findings(), "notABarcode@507");
  EXPECT_EQ(reading.info.element_count, 0);
  EXPECT_EQ(reading.info.omitted_elements, 0u);
  EXPECT_EQ(reading.info.omitted_findings, 0u);
}

TEST(Barcode, LeavesTheReasonOfARefusalWhateverElseWasFound) {
  Card noisy = virginian();
  for (int i = 0; i < 100; ++i)
    noisy.subfiles[0].elements.push_back({"!!!", ""});
  noisy.subfiles[1].elements = {{"ZVA", "1ZVB2"}}; // two elements in a line, or one: only the length knows
  const Reading whole(noisy.text());
  EXPECT_EQ(whole.status, ERR_OK);
  EXPECT_EQ(whole.info.finding_count, VARNEL_BARCODE_FINDINGS_MAX);

  const std::string length = noisy.header().substr(noisy.header().size() - 4);
  const Reading reading(replaced(noisy.text(), length + "DLDAQ", "0099DLDAQ"));
  EXPECT_EQ(reading.status, ERR_INVALID_FORMAT);
  EXPECT_EQ(reading.info.findings[VARNEL_BARCODE_FINDINGS_MAX - 1].code, VARNEL_BARCODE_AMBIGUOUS);
}

// ---- arguments and room ---------------------------------------------------------------------------------

TEST(Barcode, RefusesBadArgumentsAndWritesNothing) {
  const std::string text = virginian().text();
  PARSE_RESULT record;
  char buffer[1024];
  varnel_barcode_info info;
  const auto call = [&](const char *bytes, std::size_t size, PARSE_RESULT *to, char *lent, int room,
                        varnel_barcode_info *beside) {
    std::memset(&record, 0x5A, sizeof record);
    std::memset(buffer, 0x5A, sizeof buffer);
    std::memset(&info, 0x5A, sizeof info);
    const int status = varnel_barcode(bytes, size, to, lent, room, beside);
    const auto untouched = [](const void *memory, std::size_t length) {
      const unsigned char *byte = static_cast<const unsigned char *>(memory);
      return std::all_of(byte, byte + length, [](unsigned char b) { return b == 0x5A; });
    };
    EXPECT_TRUE(untouched(&record, sizeof record));
    EXPECT_TRUE(untouched(buffer, sizeof buffer));
    EXPECT_TRUE(untouched(&info, sizeof info));
    return status;
  };
  EXPECT_EQ(call(nullptr, 1, &record, buffer, 1024, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), VARNEL_BARCODE_TEXT_MAX + 1, &record, buffer, 1024, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), text.size(), nullptr, buffer, 1024, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), text.size(), &record, nullptr, 1024, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), text.size(), &record, buffer, 0, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), text.size(), &record, buffer, -1, &info), ERR_INVALID_ARGS);
  EXPECT_EQ(call(text.data(), text.size(), &record, buffer, 1024, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_barcode(nullptr, 0, &record, buffer, 1024, &info), ERR_INVALID_FORMAT);
}

TEST(Barcode, ReadsATextOfTheGreatestSize) {
  std::string text = virginian().text();
  text.resize(VARNEL_BARCODE_TEXT_MAX, '8');
  const Reading reading(text);
  EXPECT_EQ(reading.status, ERR_OK);
  EXPECT_EQ(reading.values(), VIRGINIAN);
  EXPECT_NE(reading.findings().find("textAfter@266:ZV"), std::string::npos) << reading.findings();
}

// Every room from 1 byte on either holds every value whole or is refused, and the record is then empty.
TEST(Barcode, CutsNothingWhateverTheRoom) {
  const std::string texts[] = {
      virginian().text(),
      card(1, "636005", {{"DAQ", "Q1"}, {"DAA", "L\xC4RCH,\xD6LIVE,MAY"}, {"DBB", "19610417"}, {"DBC", "1"}}),
      card(3, "636005", {{"DAQ", "Q1"}, {"DCS", "L\xC4RCH"}, {"DCT", "\xD6LIVE,MAY"}, {"DBB", "02031961"}}),
      "DAQT1\nDCSOAK\nDBB02281990\n",
  };
  for (const std::string &text : texts) {
    const Reading whole(text);
    ASSERT_EQ(whole.status, ERR_OK);
    bool held = false;
    for (std::size_t room = 1; room <= VARNEL_BARCODE_BUFFER_SIZE(text.size()); ++room) {
      SCOPED_TRACE(room);
      const Reading reading(text, room);
      EXPECT_EQ(reading.status, reading.values() == whole.values() ? ERR_OK : ERR_INVALID_ARGS);
      EXPECT_TRUE(!held || reading.status == ERR_OK); // more room is never too little
      held = held || reading.status == ERR_OK;
      for (int slot = 0; slot < FIELD_COUNT; ++slot)
        ASSERT_EQ(reading.slot(slot), held ? whole.slot(slot) : "") << slot;
    }
    EXPECT_TRUE(held);
  }
}

// Each byte of ISO 8859-1 becomes two, and names are copied: the buffer that is always enough still is, and a
// name too long for that is left whole, which the standard's lengths never reach.
TEST(Barcode, HoldsEveryValueInTwiceTheTextAndABit) {
  for (const int version : {1, 3}) {
    for (const int length : {20, 35, 80, 200, 5000}) {
      SCOPED_TRACE(std::to_string(version) + " " + std::to_string(length));
      const std::string name(static_cast<std::size_t>(length), '\xD6');
      const std::string twice([&] {
        std::string utf8;
        for (int i = 0; i < length; ++i)
          utf8 += "\xC3\x96";
        return utf8;
      }());
      const Reading reading(version == 1 ? card(1, "636005", {{"DAQ", "1"}, {"DAA", name + ",IVO"}})
                                         : card(3, "636005", {{"DAQ", "1"}, {"DCT", name + ",IVO"}}));
      EXPECT_EQ(reading.status, ERR_OK);
      const std::string part = reading.slot(version == 1 ? FIELD_FAMILY_NAME : FIELD_FIRST_NAME);
      EXPECT_EQ(reading.slot(version == 1 ? FIELD_FULL_NAME : FIELD_GIVEN_NAMES), twice + ",IVO");
      if (length <= 35) {
        EXPECT_EQ(part, twice);
        EXPECT_EQ(reading.findings().find("nameNotSplit"), std::string::npos);
      } else {
        EXPECT_EQ(part, "");
        EXPECT_NE(reading.findings().find("nameNotSplit@"), std::string::npos);
      }
    }
  }
}

TEST(Barcode, LeavesNothingOfAnEarlierCard) {
  PARSE_RESULT record;
  char buffer[2048];
  varnel_barcode_info info;
  const std::string first = virginian().text();
  ASSERT_EQ(varnel_barcode(first.data(), first.size(), &record, buffer, sizeof buffer, &info), ERR_OK);
  ASSERT_EQ(varnel_barcode("?", 1, &record, buffer, sizeof buffer, &info), ERR_INVALID_FORMAT);
  EXPECT_TRUE(std::all_of(buffer, buffer + sizeof buffer, [](char c) { return c == '\0'; }));
  EXPECT_EQ(record.data_size, 0);
  EXPECT_EQ(info.subfile_count, 0);
}

// ---- JSON -----------------------------------------------------------------------------------------------

TEST(BarcodeInfo, IsOneLineOfJson) {
  EXPECT_EQ(Reading(virginian().text()).json(),
            R"({"version":10,"issuer":"636000","jurisdiction":"VA","country":"USA","subfiles":["DL","ZV"],)"
            R"("elements":[{"element":"ZVA","start":263,"end":265}],)"
            R"("findings":[{"code":"unknownElement","offset":260,"element":"ZVA"}],)"
            R"("omitted":{"elements":0,"findings":0}})");
  EXPECT_EQ(Reading(card(0, "636005", {{"DAJ", "SC"}})).json(),
            R"({"version":0,"issuer":"636005","jurisdiction":"SC","country":"USA","subfiles":["DL"],)"
            R"("elements":[],"findings":[],"omitted":{"elements":0,"findings":0}})");
  EXPECT_EQ(Reading("").json(),
            R"({"version":null,"issuer":null,"jurisdiction":null,"country":null,"subfiles":[],)"
            R"("elements":[],"findings":[{"code":"notABarcode","offset":0,"element":null}],)"
            R"("omitted":{"elements":0,"findings":0}})");
}

TEST(BarcodeInfo, WritesWhatFits) {
  const Reading reading(virginian().text());
  const std::string whole = reading.json();
  for (std::size_t size = 0; size <= whole.size() + 2; ++size) {
    std::vector<char> out(size + 1, '.');
    EXPECT_EQ(varnel_barcode_info_json(&reading.info, size > 0 ? out.data() : nullptr, size),
              static_cast<int>(whole.size()));
    EXPECT_EQ(out[size], '.');
    if (size > 0) {
      EXPECT_EQ(std::string(out.data()), whole.substr(0, size - 1));
    }
  }
  char out[8];
  EXPECT_EQ(varnel_barcode_info_json(nullptr, out, sizeof out), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_barcode_info_json(&reading.info, nullptr, 1), ERR_INVALID_ARGS);
}

TEST(BarcodeInfo, NamesEveryFindingOnce) {
  std::set<std::string> names;
  varnel_barcode_info info = {};
  for (int code = 1; code < VARNEL_BARCODE_FINDING_END; ++code) {
    info.finding_count = 1;
    info.findings[0].code = static_cast<std::uint8_t>(code);
    char out[512];
    varnel_barcode_info_json(&info, out, sizeof out);
    const nlohmann::json parsed = nlohmann::json::parse(out);
    EXPECT_TRUE(names.insert(parsed["findings"][0]["code"]).second);
  }
  EXPECT_EQ(names.size(), 35u);

  for (const int code : {+VARNEL_BARCODE_FINDING_END, 255}) { // of no finding
    info.findings[0].code = static_cast<std::uint8_t>(code);
    char out[512];
    varnel_barcode_info_json(&info, out, sizeof out);
    EXPECT_EQ(nlohmann::json::parse(out)["findings"][0]["code"], nullptr);
  }

  // The schema lists the same.
  std::ifstream file(VARNEL_DOCUMENT_TESTS_DIR "/../../docs/barcode.schema.json");
  const nlohmann::json schema = nlohmann::json::parse(file);
  std::set<std::string> listed;
  for (const nlohmann::json &code : schema["properties"]["findings"]["items"]["properties"]["code"]["oneOf"])
    listed.insert(code["const"]);
  EXPECT_EQ(names, listed);
}

TEST(BarcodeInfo, IsAPlainValue) {
  varnel_barcode_info copy;
  {
    const Reading reading(virginian().text());
    copy = reading.info;
  }
  EXPECT_STREQ(copy.issuer, "636000");
  EXPECT_STREQ(copy.elements[0].element, "ZVA");
}

// ---- C++ ------------------------------------------------------------------------------------------------

TEST(BarcodeCpp, SaysWhatTheCInterfaceSays) {
  const std::string text = virginian().text();
  std::vector<char> buffer(VARNEL_BARCODE_BUFFER_SIZE(text.size()));
  const auto read = varnel::read_barcode(text, buffer.data(), buffer.size());
  ASSERT_TRUE(read.has_value());
  EXPECT_TRUE(read->ok());
  EXPECT_EQ(read->value("lastName"), "HOLLOWAY");
  EXPECT_EQ(read->value("nationality"), "");
  EXPECT_EQ(read->value("no such key"), "");
  EXPECT_EQ(read->slot(FIELD_ADDRESS_CITY), "FAIRFAX");
  EXPECT_EQ(read->version(), 10);
  EXPECT_EQ(read->elements().size(), 1u);
  EXPECT_EQ(varnel::barcode_finding_name(read->findings()[0].code), "unknownElement");
  EXPECT_EQ(varnel::barcode_finding_name(0), "");

  const auto refused = varnel::read_barcode("?", buffer.data(), buffer.size());
  ASSERT_TRUE(refused.has_value());
  EXPECT_FALSE(refused->ok());
  EXPECT_EQ(refused->version(), std::nullopt);
  EXPECT_EQ(varnel::barcode_finding_name(refused->findings()[0].code), "notABarcode");

  EXPECT_FALSE(varnel::read_barcode(text, buffer.data(), 40).has_value());
}

// ---- random cards ---------------------------------------------------------------------------------------

static int below(std::mt19937 &random, int limit) {
  return static_cast<int>(random() % static_cast<unsigned>(limit));
}

static std::string random_word(std::mt19937 &random, int longest) {
  std::string word;
  for (int length = 1 + below(random, longest); length > 0; --length)
    word += static_cast<char>('A' + below(random, 26));
  return word == "NONE" || word == "UNAVL" || word == "UNAVAIL" ? "NO" : word;
}

TEST(Barcode, ReadsBackWhatWasComposed) {
  std::mt19937 random(9303);
  for (int round = 0; round < support::cases(20000); ++round) {
    const Table &table = TABLES[below(random, static_cast<int>(std::size(TABLES)))];
    Card composed{table.version, table.issuer, {{below(random, 2) == 0 ? "DL" : "ID", {}}}};
    std::vector<std::pair<int, std::string>> expected;
    std::set<int> slots;
    for (int i = 1 + below(random, 40); i > 0; --i) {
      const MAPPING &row = table.rows[below(random, table.size)];
      const int slot = utils_barcode2fieldtype(row.key, table.rows, table.size, nullptr);
      if (slot == FIELD_FULL_NAME || slot == FIELD_GIVEN_NAMES || !slots.insert(slot).second)
        continue;
      std::string value = random_word(random, 20);
      std::string stored = value;
      if (DATES.count(slot) != 0) {
        const std::string year = std::to_string(1800 + below(random, 400));
        const std::string day = barcode::padded(1 + static_cast<unsigned>(below(random, 12)), 2) +
                                barcode::padded(1 + static_cast<unsigned>(below(random, 28)), 2);
        stored = year + day;
        value = below(random, 2) == 0 ? stored : day + year;
      } else if (slot == FIELD_SEX) {
        value = std::to_string(below(random, 4));
        stored = value == "1" ? "M" : value == "2" ? "F" : "";
      } else if (below(random, 4) == 0) {
        value = " " + value + "   ";
      }
      composed.subfiles[0].elements.push_back({identifier(row.key), value});
      expected.push_back({slot, stored});
    }
    if (composed.subfiles[0].elements.empty())
      continue;
    if (below(random, 2) == 0)
      composed.subfiles.push_back({"ZV", {{"ZVA", random_word(random, 9)}}});
    const Reading reading(composed.text());
    ASSERT_EQ(reading.status, ERR_OK) << composed.text();
    for (const auto &[slot, stored] : expected)
      ASSERT_EQ(reading.slot(slot), stored) << composed.text();
    EXPECT_EQ(reading.info.subfile_count, composed.subfiles.size());
    EXPECT_EQ(reading.findings().find("offset"), std::string::npos) << composed.text();
    EXPECT_EQ(reading.findings().find("length"), std::string::npos) << composed.text();
  }
}

// Whatever the bytes: an answer, or a refusal with a reason; never for want of room.
static void expect_answer(const std::string &text) {
  const Reading reading(text);
  ASSERT_TRUE(reading.status == ERR_OK || reading.status == ERR_INVALID_FORMAT) << reading.status;
  if (reading.status == ERR_INVALID_FORMAT) {
    ASSERT_GT(reading.info.finding_count, 0);
    ASSERT_GE(reading.info.findings[reading.info.finding_count - 1].code, VARNEL_BARCODE_REFUSED);
  }
  ASSERT_TRUE(nlohmann::json::accept(reading.json())) << reading.json();
  for (int i = 0; i < reading.info.finding_count; ++i)
    ASSERT_LE(reading.info.findings[i].offset, text.size());
}

TEST(Barcode, AnswersForAnyBytes) {
  std::mt19937 random(2020);
  const std::string seeds[] = {
      virginian().text(), without(virginian().text(), "\n\r\x1E"), "DAQT1\nDCSOAK\nDBB02281990\n",
      card(1, "636005", {{"DAQ", "Q1"}, {"DAA", "LARCH,OLIVE"}, {"DBB", "19610417"}})};
  const std::string pieces[] = {"@",  "ANSI ", "AAMVA",  "DL",   "ZV",   "DAQ",  "DAA",      "\n",
                                "\r", "\x1E",  "636000", "\xFF", "\xC3", "NONE", "00310249", ","};
  for (int round = 0; round < support::cases(40000); ++round) {
    std::string text = seeds[below(random, 4)];
    for (int edits = below(random, 6); edits >= 0; --edits) {
      const std::size_t at = random() % (text.size() + 1);
      switch (below(random, 4)) {
      case 0:
        text.insert(at, pieces[below(random, 16)]);
        break;
      case 1:
        text.erase(at, static_cast<std::size_t>(below(random, 12)));
        break;
      case 2:
        if (at < text.size())
          text[at] = static_cast<char>(random());
        break;
      default:
        text = text.substr(at) + text.substr(0, at / 2);
      }
    }
    expect_answer(text);
  }
}

// Subfiles of any types with any elements, at offsets that may point anywhere.
TEST(Barcode, AnswersForAnySubfiles) {
  std::mt19937 random(2013);
  const std::string types[] = {"DL", "ID", "EN", "ZV", "ZI", "ZD"};
  const std::string ids[] = {"DAQ", "DCS", "DBB", "DAA", "DCA", "DAG", "ZVA", "ZVB", "XYZ", "daq", "LDA"};
  const std::string values[] = {"", "T1", "OAK", "01011990", "NONE", "A,B", "ZV", "ZVZVA", "IDL", "M"};
  for (int round = 0; round < support::cases(10000); ++round) {
    Card any = {below(random, 11), "636000", {}};
    for (int subfile = below(random, 4); subfile >= 0; --subfile) {
      any.subfiles.push_back({types[below(random, 6)], {}});
      for (int element = below(random, 4); element > 0; --element)
        any.subfiles.back().elements.push_back({ids[below(random, 11)], values[below(random, 10)]});
    }
    std::string text = any.text();
    for (int edits = below(random, 4); edits > 0; --edits) {
      const std::size_t at = 21 + random() % (text.size() - 21);
      if (below(random, 2) == 0)
        text[at] = "0123456789\r\n"[below(random, 12)];
      else
        text.erase(at, 2);
    }
    expect_answer(round % 4 == 0 ? without(text, "\n\r") : text);
  }
}
