#include "transliteration.hpp"

#include "sorted_rows.hpp"

namespace documents {

namespace {

// The longest result is that of U+0429.
struct row {
  char16_t letter;
  char zone[6];
};

// Table A: Latin letters. Where the standard allows several results, the first.
constexpr row LATIN[] = {
    {0x00C0, "A"},  {0x00C1, "A"}, {0x00C2, "A"},  {0x00C3, "A"},  {0x00C4, "AE"}, {0x00C5, "AA"},
    {0x00C6, "AE"}, {0x00C7, "C"}, {0x00C8, "E"},  {0x00C9, "E"},  {0x00CA, "E"},  {0x00CB, "E"},
    {0x00CC, "I"},  {0x00CD, "I"}, {0x00CE, "I"},  {0x00CF, "I"},  {0x00D0, "D"},  {0x00D1, "N"},
    {0x00D2, "O"},  {0x00D3, "O"}, {0x00D4, "O"},  {0x00D5, "O"},  {0x00D6, "OE"}, {0x00D8, "OE"},
    {0x00D9, "U"},  {0x00DA, "U"}, {0x00DB, "U"},  {0x00DC, "UE"}, {0x00DD, "Y"},  {0x00DE, "TH"},
    {0x0100, "A"},  {0x0102, "A"}, {0x0104, "A"},  {0x0106, "C"},  {0x0108, "C"},  {0x010A, "C"},
    {0x010C, "C"},  {0x010E, "D"}, {0x0110, "D"},  {0x0112, "E"},  {0x0114, "E"},  {0x0116, "E"},
    {0x0118, "E"},  {0x011A, "E"}, {0x011C, "G"},  {0x011E, "G"},  {0x0120, "G"},  {0x0122, "G"},
    {0x0124, "H"},  {0x0126, "H"}, {0x0128, "I"},  {0x012A, "I"},  {0x012C, "I"},  {0x012E, "I"},
    {0x0130, "I"},  {0x0131, "I"}, {0x0132, "IJ"}, {0x0134, "J"},  {0x0136, "K"},  {0x0139, "L"},
    {0x013B, "L"},  {0x013D, "L"}, {0x013F, "L"},  {0x0141, "L"},  {0x0143, "N"},  {0x0145, "N"},
    {0x0147, "N"},  {0x014A, "N"}, {0x014C, "O"},  {0x014E, "O"},  {0x0150, "O"},  {0x0152, "OE"},
    {0x0154, "R"},  {0x0156, "R"}, {0x0158, "R"},  {0x015A, "S"},  {0x015C, "S"},  {0x015E, "S"},
    {0x0160, "S"},  {0x0162, "T"}, {0x0164, "T"},  {0x0166, "T"},  {0x0168, "U"},  {0x016A, "U"},
    {0x016C, "U"},  {0x016E, "U"}, {0x0170, "U"},  {0x0172, "U"},  {0x0174, "W"},  {0x0176, "Y"},
    {0x0178, "Y"},  {0x0179, "Z"}, {0x017B, "Z"},  {0x017D, "Z"},  {0x1E9E, "SS"}};

// Table B: Cyrillic letters of no language in particular. The standard prints U+0492 and U+04BA where it
// means U+0403 and U+040B; those two are among the additions below, and what is printed holds as well.
constexpr row CYRILLIC[] = {
    {0x0401, "E"},  {0x0402, "D"},    {0x0404, "IE"}, {0x0405, "DZ"}, {0x0406, "I"},  {0x0407, "I"},
    {0x0408, "J"},  {0x0409, "LJ"},   {0x040A, "NJ"}, {0x040C, "K"},  {0x040E, "U"},  {0x040F, "DZ"},
    {0x0410, "A"},  {0x0411, "B"},    {0x0412, "V"},  {0x0413, "G"},  {0x0414, "D"},  {0x0415, "E"},
    {0x0416, "ZH"}, {0x0417, "Z"},    {0x0418, "I"},  {0x0419, "I"},  {0x041A, "K"},  {0x041B, "L"},
    {0x041C, "M"},  {0x041D, "N"},    {0x041E, "O"},  {0x041F, "P"},  {0x0420, "R"},  {0x0421, "S"},
    {0x0422, "T"},  {0x0423, "U"},    {0x0424, "F"},  {0x0425, "KH"}, {0x0426, "TS"}, {0x0427, "CH"},
    {0x0428, "SH"}, {0x0429, "SHCH"}, {0x042A, "IE"}, {0x042B, "Y"},  {0x042D, "E"},  {0x042E, "IU"},
    {0x042F, "IA"}, {0x046A, "U"},    {0x0474, "Y"},  {0x0490, "G"},  {0x0492, "G"},  {0x04BA, "C"}};

// Table C: Arabic letters. Those without a result are left out of the zone. The shadda has no row: it
// doubles.
constexpr row ARABIC[] = {
    {0x0621, "XE"},  {0x0622, "XAA"}, {0x0623, "XAE"}, {0x0624, "U"},   {0x0625, "I"},   {0x0626, "XI"},
    {0x0627, "A"},   {0x0628, "B"},   {0x0629, "XTA"}, {0x062A, "T"},   {0x062B, "XTH"}, {0x062C, "J"},
    {0x062D, "XH"},  {0x062E, "XKH"}, {0x062F, "D"},   {0x0630, "XDH"}, {0x0631, "R"},   {0x0632, "Z"},
    {0x0633, "S"},   {0x0634, "XSH"}, {0x0635, "XSS"}, {0x0636, "XDZ"}, {0x0637, "XTT"}, {0x0638, "XZZ"},
    {0x0639, "E"},   {0x063A, "G"},   {0x0641, "F"},   {0x0642, "Q"},   {0x0643, "K"},   {0x0644, "L"},
    {0x0645, "M"},   {0x0646, "N"},   {0x0647, "H"},   {0x0648, "W"},   {0x0649, "XAY"}, {0x064A, "Y"},
    {0x0671, "XXA"}, {0x0679, "XXT"}, {0x067C, "XRT"}, {0x067E, "P"},   {0x0681, "XKE"}, {0x0685, "XXH"},
    {0x0686, "XC"},  {0x0688, "XXD"}, {0x0689, "XDR"}, {0x0691, "XXR"}, {0x0693, "XRR"}, {0x0696, "XRX"},
    {0x0698, "XJ"},  {0x069A, "XXS"}, {0x069C, ""},    {0x06A2, ""},    {0x06A7, ""},    {0x06A8, ""},
    {0x06A9, "XKK"}, {0x06AB, "XXK"}, {0x06AD, "XNG"}, {0x06AF, "XGG"}, {0x06BA, "XNN"}, {0x06BC, "XXN"},
    {0x06BE, "XDO"}, {0x06C0, "XYH"}, {0x06C1, "XXG"}, {0x06C2, "XGE"}, {0x06C3, "XTG"}, {0x06CC, "XYA"},
    {0x06CD, "XXY"}, {0x06D0, "Y"},   {0x06D2, "XYB"}, {0x06D3, "XBE"}};

// What the tables lack, and names have: letters that Cyrillic alphabets in use need, the schwa, and letters
// whose capitals are others than themselves.
constexpr row ADDITIONS[] = {
    {0x0149, "N"},  // small n after an apostrophe, which is dropped
    {0x018F, "A"},  // schwa
    {0x0403, "G"},  // Cyrillic gje
    {0x040B, "C"},  // Cyrillic tshe
    {0x040D, "I"},  // Cyrillic i with grave
    {0x042C, ""},   // Cyrillic soft sign
    {0x1E9A, "A"},  // small a with right half ring, which is dropped
    {0x212A, "K"},  // kelvin sign
    {0x212B, "AA"}, // angstrom sign
    {0xFB00, "FF"}, // ligatures
    {0xFB01, "FI"}, {0xFB02, "FL"}, {0xFB03, "FFI"}, {0xFB04, "FFL"}, {0xFB05, "ST"}, {0xFB06, "ST"},
};

// The exceptions that table B lists by language.
struct exception {
  char16_t letter;
  language of;
  bool first_only; // at the beginning of a component of a name
  char zone[4];
};

constexpr exception EXCEPTIONS[] = {
    {0x0401, language::belarusian, false, "IO"}, {0x0403, language::macedonian, false, "GJ"},
    {0x0404, language::ukrainian, true, "YE"},   {0x0407, language::ukrainian, true, "YI"},
    {0x040C, language::macedonian, false, "KJ"}, {0x040F, language::macedonian, false, "DJ"},
    {0x0413, language::belarusian, false, "H"},  {0x0413, language::serbian, false, "H"},
    {0x0413, language::ukrainian, false, "H"},   {0x0416, language::serbian, false, "Z"},
    {0x0418, language::ukrainian, false, "Y"},   {0x0419, language::ukrainian, true, "Y"},
    {0x0425, language::serbian, false, "H"},     {0x0425, language::macedonian, false, "H"},
    {0x0426, language::serbian, false, "C"},     {0x0426, language::macedonian, false, "C"},
    {0x0427, language::serbian, false, "C"},     {0x0428, language::serbian, false, "S"},
    {0x0429, language::bulgarian, false, "SHT"}, {0x042E, language::ukrainian, true, "YU"},
    {0x042F, language::ukrainian, true, "YA"},   {0x0492, language::macedonian, false, "GJ"},
};

constexpr char32_t TEH_MARBUTA = 0x0629;
constexpr char LAST_TEH_MARBUTA[] = "XAH"; // at the end of a component

static_assert(is_sorted<&row::letter>(LATIN) && is_sorted<&row::letter>(CYRILLIC) &&
              is_sorted<&row::letter>(ARABIC) && is_sorted<&row::letter>(ADDITIONS));

template <int Count> const char *find(const row (&rows)[Count], char32_t letter) {
  const row *found = first_from<&row::letter>(rows, letter);
  return found != nullptr && found->letter == letter ? found->zone : nullptr;
}

// In the table of its script.
const char *find_in_tables(char32_t letter) {
  if (letter >= 0x0600 && letter < 0x0700) {
    return find(ARABIC, letter);
  }
  return letter >= 0x0400 && letter < 0x0530 ? find(CYRILLIC, letter) : find(LATIN, letter);
}

const char *find_exception(char32_t letter, language of, component_place place) {
  for (const exception &known : EXCEPTIONS) {
    if (known.letter == letter && known.of == of && (!known.first_only || place.is_first)) {
      return known.zone;
    }
  }
  return nullptr;
}

constexpr struct {
  char code[3];
  language of;
} LANGUAGES[] = {
    {"be", language::belarusian}, {"bg", language::bulgarian}, {"mk", language::macedonian},
    {"sr", language::serbian},    {"uk", language::ukrainian},
};

} // namespace

language language_of(const char *code) {
  if (code == nullptr || code[0] == '\0') {
    return language::none;
  }
  for (const auto &known : LANGUAGES) {
    if (code[0] == known.code[0] && code[1] == known.code[1] && code[2] == '\0') {
      return known.of;
    }
  }
  return language::unknown;
}

const char *zone_letters(char32_t capital, language of, component_place place) {
  if (capital == TEH_MARBUTA && place.is_last) {
    return LAST_TEH_MARBUTA;
  }
  if (of != language::none) {
    const char *exceptional = find_exception(capital, of, place);
    if (exceptional != nullptr) {
      return exceptional;
    }
  }
  const char *zone = find_in_tables(capital);
  return zone != nullptr ? zone : find(ADDITIONS, capital);
}

} // namespace documents
