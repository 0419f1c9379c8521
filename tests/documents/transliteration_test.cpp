// Every row of the tables of ICAO Doc 9303-3, section 6, and what Varnel adds to them.
#include "composing.hpp"

#include <gtest/gtest.h>

namespace {

using composing::names;

struct cased_row {
  const char *capital;
  const char *small;
  const char *zone;
};

struct row {
  const char *letter;
  const char *zone;
};

// Table A, in the order of the standard.
constexpr cased_row LATIN[] = {
    {"À", "à", "A"},  {"Á", "á", "A"}, {"Â", "â", "A"},  {"Ã", "ã", "A"},  {"Ä", "ä", "AE"}, {"Å", "å", "AA"},
    {"Æ", "æ", "AE"}, {"Ç", "ç", "C"}, {"È", "è", "E"},  {"É", "é", "E"},  {"Ê", "ê", "E"},  {"Ë", "ë", "E"},
    {"Ì", "ì", "I"},  {"Í", "í", "I"}, {"Î", "î", "I"},  {"Ï", "ï", "I"},  {"Ð", "ð", "D"},  {"Ñ", "ñ", "N"},
    {"Ò", "ò", "O"},  {"Ó", "ó", "O"}, {"Ô", "ô", "O"},  {"Õ", "õ", "O"},  {"Ö", "ö", "OE"}, {"Ø", "ø", "OE"},
    {"Ù", "ù", "U"},  {"Ú", "ú", "U"}, {"Û", "û", "U"},  {"Ü", "ü", "UE"}, {"Ý", "ý", "Y"},  {"Þ", "þ", "TH"},
    {"Ā", "ā", "A"},  {"Ă", "ă", "A"}, {"Ą", "ą", "A"},  {"Ć", "ć", "C"},  {"Ĉ", "ĉ", "C"},  {"Ċ", "ċ", "C"},
    {"Č", "č", "C"},  {"Ď", "ď", "D"}, {"Đ", "đ", "D"},  {"Ē", "ē", "E"},  {"Ĕ", "ĕ", "E"},  {"Ė", "ė", "E"},
    {"Ę", "ę", "E"},  {"Ě", "ě", "E"}, {"Ĝ", "ĝ", "G"},  {"Ğ", "ğ", "G"},  {"Ġ", "ġ", "G"},  {"Ģ", "ģ", "G"},
    {"Ĥ", "ĥ", "H"},  {"Ħ", "ħ", "H"}, {"Ĩ", "ĩ", "I"},  {"Ī", "ī", "I"},  {"Ĭ", "ĭ", "I"},  {"Į", "į", "I"},
    {"İ", "i̇", "I"},  {"ı", "ı", "I"}, {"Ĳ", "ĳ", "IJ"}, {"Ĵ", "ĵ", "J"},  {"Ķ", "ķ", "K"},  {"Ĺ", "ĺ", "L"},
    {"Ļ", "ļ", "L"},  {"Ľ", "ľ", "L"}, {"Ŀ", "ŀ", "L"},  {"Ł", "ł", "L"},  {"Ń", "ń", "N"},  {"Ņ", "ņ", "N"},
    {"Ň", "ň", "N"},  {"Ŋ", "ŋ", "N"}, {"Ō", "ō", "O"},  {"Ŏ", "ŏ", "O"},  {"Ő", "ő", "O"},  {"Œ", "œ", "OE"},
    {"Ŕ", "ŕ", "R"},  {"Ŗ", "ŗ", "R"}, {"Ř", "ř", "R"},  {"Ś", "ś", "S"},  {"Ŝ", "ŝ", "S"},  {"Ş", "ş", "S"},
    {"Š", "š", "S"},  {"Ţ", "ţ", "T"}, {"Ť", "ť", "T"},  {"Ŧ", "ŧ", "T"},  {"Ũ", "ũ", "U"},  {"Ū", "ū", "U"},
    {"Ŭ", "ŭ", "U"},  {"Ů", "ů", "U"}, {"Ű", "ű", "U"},  {"Ų", "ų", "U"},  {"Ŵ", "ŵ", "W"},  {"Ŷ", "ŷ", "Y"},
    {"Ÿ", "ÿ", "Y"},  {"Ź", "ź", "Z"}, {"Ż", "ż", "Z"},  {"Ž", "ž", "Z"},  {"ẞ", "ß", "SS"}};

// Table B without its exceptions.
constexpr cased_row CYRILLIC[] = {
    {"Ё", "ё", "E"},  {"Ђ", "ђ", "D"},  {"Є", "є", "IE"},   {"Ѕ", "ѕ", "DZ"}, {"І", "і", "I"},
    {"Ї", "ї", "I"},  {"Ј", "ј", "J"},  {"Љ", "љ", "LJ"},   {"Њ", "њ", "NJ"}, {"Ќ", "ќ", "K"},
    {"Ў", "ў", "U"},  {"Џ", "џ", "DZ"}, {"А", "а", "A"},    {"Б", "б", "B"},  {"В", "в", "V"},
    {"Г", "г", "G"},  {"Д", "д", "D"},  {"Е", "е", "E"},    {"Ж", "ж", "ZH"}, {"З", "з", "Z"},
    {"И", "и", "I"},  {"Й", "й", "I"},  {"К", "к", "K"},    {"Л", "л", "L"},  {"М", "м", "M"},
    {"Н", "н", "N"},  {"О", "о", "O"},  {"П", "п", "P"},    {"Р", "р", "R"},  {"С", "с", "S"},
    {"Т", "т", "T"},  {"У", "у", "U"},  {"Ф", "ф", "F"},    {"Х", "х", "KH"}, {"Ц", "ц", "TS"},
    {"Ч", "ч", "CH"}, {"Ш", "ш", "SH"}, {"Щ", "щ", "SHCH"}, {"Ъ", "ъ", "IE"}, {"Ы", "ы", "Y"},
    {"Э", "э", "E"},  {"Ю", "ю", "IU"}, {"Я", "я", "IA"},   {"Ѫ", "ѫ", "U"},  {"Ѵ", "ѵ", "Y"},
    {"Ґ", "ґ", "G"},  {"Ғ", "ғ", "G"},  {"Һ", "һ", "C"}};

// Table C without the shadda. Nothing: not encoded.
constexpr row ARABIC[] = {
    {"ء", "XE"},    {"آ", "XAA"},   {"أ", "XAE"},   {"ؤ", "U"},     {"إ", "I"},     {"ئ", "XI"},
    {"ا", "A"},     {"ب", "B"},     {"ة", "XTA"},   {"ت", "T"},     {"ث", "XTH"},   {"ج", "J"},
    {"ح", "XH"},    {"خ", "XKH"},   {"د", "D"},     {"ذ", "XDH"},   {"ر", "R"},     {"ز", "Z"},
    {"س", "S"},     {"ش", "XSH"},   {"ص", "XSS"},   {"ض", "XDZ"},   {"ط", "XTT"},   {"ظ", "XZZ"},
    {"ع", "E"},     {"غ", "G"},     {"ـ", ""},      {"ف", "F"},     {"ق", "Q"},     {"ك", "K"},
    {"ل", "L"},     {"م", "M"},     {"ن", "N"},     {"ه", "H"},     {"و", "W"},     {"ى", "XAY"},
    {"ي", "Y"},     {"\u064B", ""}, {"\u064C", ""}, {"\u064D", ""}, {"\u064E", ""}, {"\u064F", ""},
    {"\u0650", ""}, {"\u0652", ""}, {"\u0670", ""}, {"ٱ", "XXA"},   {"ٹ", "XXT"},   {"ټ", "XRT"},
    {"پ", "P"},     {"ځ", "XKE"},   {"څ", "XXH"},   {"چ", "XC"},    {"ڈ", "XXD"},   {"ډ", "XDR"},
    {"ڑ", "XXR"},   {"ړ", "XRR"},   {"ږ", "XRX"},   {"ژ", "XJ"},    {"ښ", "XXS"},   {"ڜ", ""},
    {"ڢ", ""},      {"ڧ", ""},      {"ڨ", ""},      {"ک", "XKK"},   {"ګ", "XXK"},   {"ڭ", "XNG"},
    {"گ", "XGG"},   {"ں", "XNN"},   {"ڼ", "XXN"},   {"ھ", "XDO"},   {"ۀ", "XYH"},   {"ہ", "XXG"},
    {"ۂ", "XGE"},   {"ۃ", "XTG"},   {"ی", "XYA"},   {"ۍ", "XXY"},   {"ې", "Y"},     {"ے", "XYB"},
    {"ۓ", "XBE"}};

// The letter between two others, so that it is neither the first nor the last.
std::string between(const std::string &letter) { return "X" + letter + "Z"; }

TEST(Transliteration, EveryLatinLetter) {
  EXPECT_EQ(std::size(LATIN), 95U);
  for (const cased_row &row : LATIN) {
    EXPECT_EQ(names(between(row.capital)), between(row.zone)) << row.capital;
    EXPECT_EQ(names(between(row.small)), between(row.zone)) << row.small;
    EXPECT_EQ(names("A", between(row.capital)), "A<<" + between(row.zone)) << row.capital;
  }
}

TEST(Transliteration, EveryCyrillicLetter) {
  EXPECT_EQ(std::size(CYRILLIC), 48U);
  for (const cased_row &row : CYRILLIC) {
    EXPECT_EQ(names(between(row.capital)), between(row.zone)) << row.capital;
    EXPECT_EQ(names(between(row.small)), between(row.zone)) << row.small;
  }
}

TEST(Transliteration, EveryArabicLetter) {
  EXPECT_EQ(std::size(ARABIC), 79U);
  for (const row &row : ARABIC) {
    EXPECT_EQ(names(between(row.letter)), between(row.zone)) << row.letter;
  }
}

TEST(Transliteration, EveryPlainLetter) {
  EXPECT_EQ(names("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(names("abcdefghijklmnopqrstuvwxyz"), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

TEST(Transliteration, LettersThatTheTablesLack) {
  constexpr cased_row ADDED[] = {
      {"Ѓ", "ѓ", "G"},      {"Ћ", "ћ", "C"},       {"Ѝ", "ѝ", "I"},   {"Ь", "ь", ""},
      {"Ə", "ə", "A"},      {"ẞ", "ß", "SS"},      {"I", "ı", "I"},   {"S", "ſ", "S"},
      {"N", "ŉ", "N"},      {"FFI", "ﬃ", "FFI"},   {"FF", "ﬀ", "FF"}, {"FI", "ﬁ", "FI"},
      {"FL", "ﬂ", "FL"},    {"FFL", "ﬄ", "FFL"},   {"ST", "ﬅ", "ST"}, {"ST", "ﬆ", "ST"},
      {"\u212A", "k", "K"}, {"\u212B", "å", "AA"}, {"A", "ẚ", "A"}};
  for (const cased_row &row : ADDED) {
    EXPECT_EQ(names(between(row.capital)), between(row.zone)) << row.capital;
    EXPECT_EQ(names(between(row.small)), between(row.zone)) << row.small;
  }
}

// Old shapes of small letters, whose capitals are the ordinary ones.
TEST(Transliteration, OldShapesOfCyrillicLetters) {
  EXPECT_EQ(names("\u1C80\u1C81\u1C82\u1C83\u1C84\u1C85\u1C86"), names("ВДОСТТЪ"));
  EXPECT_EQ(names("\u1C80\u1C81\u1C82\u1C83\u1C84\u1C85\u1C86"), "VDOSTTIE");
}

struct language_row {
  const char *language;
  const char *name;
  const char *zone;
};

// Table B's exceptions. Where it says "first", the letter counts at the beginning of a component only.
TEST(Transliteration, ExceptionsByLanguage) {
  constexpr language_row EXCEPTIONS[] = {
      {"be", "Ё", "IO"},   {"be", "Г", "H"},     {"bg", "Щ", "SHT"},  {"mk", "Ѓ", "GJ"},
      {"mk", "Ғ", "GJ"},   {"mk", "Ќ", "KJ"},    {"mk", "Џ", "DJ"},   {"mk", "Х", "H"},
      {"mk", "Ц", "C"},    {"sr", "Г", "H"},     {"sr", "Ж", "Z"},    {"sr", "Х", "H"},
      {"sr", "Ц", "C"},    {"sr", "Ч", "C"},     {"sr", "Ш", "S"},    {"uk", "Г", "H"},
      {"uk", "И", "Y"},    {"uk", "аЄ", "AIE"},  {"uk", "Єа", "YEA"}, {"uk", "аЇ", "AI"},
      {"uk", "Їа", "YIA"}, {"uk", "аЙ", "AI"},   {"uk", "Йа", "YA"},  {"uk", "аЮ", "AIU"},
      {"uk", "Юа", "YUA"}, {"uk", "аЯ", "AIA"},  {"uk", "Яа", "YAA"}, {"uk", "я-я я", "YA<YA<YA"},
      {"uk", "’Я", "YA"},  {"uk", "М'Я", "MIA"}, {"uk", "Ѝ", "I"},    {"be", "Щ", "SHCH"},
      {"bg", "Г", "G"},    {"sr", "Ћ", "C"},     {"mk", "Г", "G"},    {"uk", "Ы", "Y"},
      {"", "Г", "G"},
  };
  for (const language_row &row : EXCEPTIONS) {
    EXPECT_EQ(names(row.name, "", row.language), row.zone) << row.language << " " << row.name;
  }
}

TEST(Transliteration, ALanguageIsOneOfFive) {
  const varnel_compose_fields fields = composing::document(VARNEL_LAYOUT_TD3);
  for (const char *language : {"de", "UK", "uk-UA", "u", "ukr", "be bg"}) {
    EXPECT_EQ(composing::refusal_of(fields, language),
              (composing::refusal{VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN_LANGUAGE, 0, 0}))
        << language;
  }
  for (const char *language : {"be", "bg", "mk", "sr", "uk", ""}) {
    EXPECT_EQ(composing::refusal_of(fields, language), composing::NO_REFUSAL) << language;
  }
}

// The shadda repeats what stands for the letter before it, vowel marks and the tatweel between them or not;
// the two words are those of the standard.
TEST(Transliteration, ShaddaDoubles) {
  EXPECT_EQ(names("عب\u0651اس"), "EBBAS");
  EXPECT_EQ(names("فض\u0651ة"), "FXDZXDZXAH");
  EXPECT_EQ(names("م\u064E\u0651د"), "MMD");
  EXPECT_EQ(names("م\u0651\u064Eد"), "MMD");
  EXPECT_EQ(names("م\u0640\u0651د"), "MMD");
  EXPECT_EQ(names("م\u069C\u0651د"), "MD"); // a letter that is not encoded: twice nothing
  EXPECT_EQ(names("\u0651مد"), "MD");       // nothing to double
  EXPECT_EQ(names("م \u0651د"), "M<D");
}

TEST(Transliteration, TehMarbutaAtTheEndOfAComponent) {
  EXPECT_EQ(names("ة"), "XAH");
  EXPECT_EQ(names("بة"), "BXAH");
  EXPECT_EQ(names("ةب"), "XTAB");
  EXPECT_EQ(names("بة بةب"), "BXAH<BXTAB");
  EXPECT_EQ(names("بة\u064C"), "BXAH");
  EXPECT_EQ(names("بة."), "BXAH");
  EXPECT_EQ(names("بة-ب"), "BXAH<B");
}

// Composed or not, and in any order of marks, a letter is the same; with marks that no table has it loses
// them.
TEST(Transliteration, CombiningMarks) {
  constexpr row MARKED[] = {
      {"A\u0308", "AE"},
      {"a\u0308", "AE"},
      {"A\u030A", "AA"},
      {"O\u0308", "OE"},
      {"U\u0308", "UE"},
      {"N\u0303", "N"},
      {"I\u0307", "I"},
      {"i\u0307", "I"},
      {"И\u0306", "I"},
      {"Е\u0308", "E"},
      {"У\u0306", "U"},
      {"ا\u0653", "XAA"},
      {"ا\u0654", "XAE"},
      {"و\u0654", "U"},
      {"ا\u0655", "I"},
      {"ي\u0654", "XI"},
      {"\u06D5\u0654", "XYH"},
      {"\u06C1\u0654", "XGE"},
      {"\u06D2\u0654", "XBE"},
      {"Ș", "S"},
      {"ț", "T"},
      {"S\u0326", "S"},
      {"Ǖ", "U"},
      {"Ü\u0304", "U"},
      {"U\u0308\u0304", "U"},
      {"Ǟ", "A"},
      {"Ǟ\u0301", "A"}, // its parts are three: A with two marks and this one
      {"Ǖ\u0323", "U"},
      {"A\u0323\u0308", "A"},
      {"A\u0308\u0323", "A"},
      {"Ấ", "A"},
      {"Ậ", "A"},
      {"A\u0302\u0323", "A"},
      {"Ơ", "O"},
      {"ữ", "U"},
      {"Ǿ", "OE"},
      {"Ø\u0301", "OE"},
      {"Ǽ", "AE"},
      {"A\u0308\u0301", "AE"},
      {"A\u0301\u0308", "A"},
      {"A\u0331\u0308", "AE"},
      {"X\u0323", "X"},
      {"ǰ", "J"},
      {"ẖ", "H"},
      {"Ѐ", "E"},
      {"Ӓ", "A"},
      {"Я\u0301", "IA"},
      {"A\uFE0F", "A"},
      {"A\u0308\u0308\u0308", "AE"},
  };
  for (const row &row : MARKED) {
    EXPECT_EQ(names(between(row.letter)), between(row.zone)) << row.letter;
  }
  EXPECT_EQ(names("\u0308Anna"), "ANNA"); // a mark on nothing
  EXPECT_EQ(names("К\u0301", "", "mk"), "KJ");
  EXPECT_EQ(names("Г\u0301", "", "mk"), "GJ");
  EXPECT_EQ(names("Е\u0308", "", "be"), "IO");
  EXPECT_EQ(names("І\u0308", "", "uk"), "YI");
}

// However many marks stand on a letter, it is written once and the marks beyond the thirtieth are ignored.
TEST(Transliteration, AnyNumberOfMarks) {
  std::string name = "A";
  for (int i = 0; i < 10000; ++i) {
    name += "\u0308";
  }
  EXPECT_EQ(names(name + "B"), "AEB");
}

TEST(Transliteration, SeparatorsBecomeOneFiller) {
  for (const char *separator :
       {" ",      "-",      ",",      "\t",     "\n",     "\r\n",   ", ",     " - ",    "--",
        "\u00A0", "\u0085", "\u060C", "\uFF0C", "\u2010", "\u2011", "\u2013", "\u2014", "\u2015",
        "\u2003", "\u202F", "\u3000", "\u2028", "\u058A", "\uFE63", "\uFF0D", " ' ",    " . - "}) {
    EXPECT_EQ(names(std::string("ANNA") + separator + "MARIA"), "ANNA<MARIA") << separator;
    EXPECT_EQ(
        names(separator + std::string("ANNA") + separator, separator + std::string("MARIA") + separator),
        "ANNA<<MARIA")
        << separator;
  }
}

TEST(Transliteration, OtherPunctuationIsDropped) {
  for (const char *mark :
       {"'",      "\u2019", "\u2018", "\u02BC", "\u02B0", "\u02BB", "\u02C8", "\u02FF", ".",
        "(",      ")",      "[",      "\"",     "/",      "\\",     "!",      "?",      "&",
        "*",      "#",      "%",      "@",      "_",      ":",      ";",      "\u00B7", "\u00AD",
        "\u200B", "\u200D", "\u200F", "\uFEFF", "\u05F3", "\u2032", "\uFF07", "\u00AB", "\u3001"}) {
    EXPECT_EQ(names(std::string("O") + mark + "CONNOR"), "OCONNOR") << mark;
  }
  // A mark on it goes with it.
  EXPECT_EQ(names("O\u0308\u2019"), "OE");
  EXPECT_EQ(names("O\u2019\u0308"), "O");
  EXPECT_EQ(names("O'\u0308"), "O");
  EXPECT_EQ(names("Ö\u0304"), "O");
  EXPECT_EQ(names("Ö\u2019\u0304"), "OE");
}

TEST(Transliteration, WhatNoNameHolds) {
  for (const char *bad : {"0",          "9",
                          "<",          ">",
                          "+",          "=",
                          "$",          "^",
                          "`",          "|",
                          "~",          "\u00B4",
                          "\u00A8",     "\u00A9",
                          "\u0661",     "\u2160",
                          "\u00AA",     "\u00BA",
                          "\x01",       "\x7F",
                          "\u0080",     "名",
                          "Ω",          "α",
                          "א",          "ก",
                          "\u20AC",     "\uFF21",
                          "\uFB50",     "ĸ",
                          "Ǆ",          "Ɓ",
                          "Ә",          "\u06D5",
                          "\u0378",     "\uE000",
                          "\U0001F600", "\U00010400",
                          "\x80",       "\xFF",
                          "\xC3",       "\xED\xA0\x80",
                          "\xC0\xAF",   "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(names(between(bad)), "refused") << bad;
    EXPECT_EQ(names("A", between(bad)), "refused") << bad;
  }
}

} // namespace
