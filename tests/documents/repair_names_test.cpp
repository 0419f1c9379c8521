// The field of names as repair reads it: where its fillers begin, what of it is doubted, and what the page
// prints of it.
#include "repairing.hpp"

namespace {

using namespace repairing;
using support::inspect;

std::string filled(std::string line) {
  line.resize(44, '<');
  return line + "\n";
}

struct names {
  const char *page;    // what it prints before the zone
  const char *as_read; // the first line, without the fillers that end it
  const char *read;
  const char *findings;
};

void expect_names(const names &n) {
  SCOPED_TRACE(std::string(n.page) + n.as_read);
  const varnel_inspection inspection = inspect(n.page + filled(n.as_read) + LOW, with_repair(1));
  EXPECT_EQ(zone_of(inspection), filled(n.read) + LOW);
  EXPECT_EQ(findings_of(inspection), n.findings);
}

TEST(RepairOfNames, EndsOfNamesBeforeMisreadFillers) {
  const names table[] = {
      // A letter that fillers are read as belongs to them where it is alone.
      {"", "P<UTOERIKSSON<<ANNA<C<<sss", "P<UTOERIKSSON<<ANNA", ""},
      {"", "P<UTOERIKSSON<<ANNA<M<<sss", "P<UTOERIKSSON<<ANNA<M", ""},
      {"", "P<UTOERIKSSON<<ANNA<CO<<sss", "P<UTOERIKSSON<<ANNA<CO", ""},
      // Three letters that fillers are read as are doubted; a name that ends in another is not.
      {"", "P<UTOERIKSSON<<TERESE<<<<ss", "P<UTOERIKSSON<<TERESE", "unproven secondaryIdentifier"},
      {"", "P<UTOERIKSSON<<TERESA<<<<xx", "P<UTOERIKSSON<<TERESA", ""},
      {"", "P<UTOERIKSSON<<ANNAKE<<<<ss", "P<UTOERIKSSON<<ANNAKE", "unproven secondaryIdentifier"},
      {"", "P<UTOERIKSSON<<ANNAKA<<<<ss", "P<UTOERIKSSON<<ANNAKA", ""},
      {"", "P<UTOERIKSSON<<ANNATE<<<<ss", "P<UTOERIKSSON<<ANNATE", ""},
      // An S within a name is doubted where fillers are read as such.
      {"", "P<UTOVANSLOW<<ANNA<MARIA<<<<S", "P<UTOVANSLOW<<ANNA<MARIA", "unproven primaryIdentifier"},
      {"", "P<UTOVANSLOW<<ANNA<MARIA<<<<5", "P<UTOVANSLOW<<ANNA<MARIA", "unproven primaryIdentifier"},
      {"", "P<UTOVANSLOW<<ANNA<MARIA<<<<K", "P<UTOVANSLOW<<ANNA<MARIA", ""},
      {"", "P<UTOVASLOW<<ANNA<MARIA<<<<S", "P<UTOVASLOW<<ANNA<MARIA", "unproven primaryIdentifier"},
      {"", "P<UTOANSLO<<ANNA<MARIA<<<<S", "P<UTOANSLO<<ANNA<MARIA", "unproven primaryIdentifier"},
      {"", "P<UTOANSLO<<ANNA<MARIA<<<<s", "P<UTOANSLO<<ANNA<MARIA", ""},
      {"", "P<UTOANASL<<ANNA<MARIA<<<<S", "P<UTOANASL<<ANNA<MARIA", ""},
      {"", "P<UTOASLOW<<ANNA<MARIASA<<<<S", "P<UTOASLOW<<ANNA<MARIASA", ""},
      // So is one that stands where a filler may have been, in the only given name.
      {"", "P<UTOERIKSSON<<ANASEVA<<<<ss", "P<UTOERIKSSON<<ANASEVA", "unproven secondaryIdentifier"},
      {"", "P<UTOERIKSSON<<ANSEVAA<<<<ss", "P<UTOERIKSSON<<ANSEVAA", ""},
      {"", "P<UTOERIKSSON<<ANNASEV<<<<ss", "P<UTOERIKSSON<<ANNASEV", ""},
      {"", "P<UTOERIKSSON<<ANASEVA<LI<<<<ss", "P<UTOERIKSSON<<ANASEVA<LI", ""},
      // An X inside a name, not at its end.
      {"", "P<UTOMAXI<<ANNA<<<<ss", "P<UTOMAXI<<ANNA", "unproven primaryIdentifier"},
      {"", "P<UTOMARX<<ANNA<<<<ss", "P<UTOMARX<<ANNA", ""},
      {"", "P<UTOERIKSOK<<<<<ss", "P<UTOERIKSOK", "unproven primaryIdentifier, unproven secondaryIdentifier"},
      // There is nothing to doubt in a primary identifier that is empty.
      {"", "P<UTO<<ANNA<<<<<<ss", "P<UTO<<ANNA", ""},
      {"", "P<UTO<<<<<<ss", "P<UTO", "empty primaryIdentifier, unproven secondaryIdentifier"},
  };
  for (const names &n : table) {
    expect_names(n);
  }
}

// The page settles a doubt where it prints each word, or the word without a letter at its edge that was a
// filler.
TEST(RepairOfNames, PrintedOnThePage) {
  const names table[] = {
      {"ERIKSSON\nTERESE\n", "P<UTOERIKSSON<<TERESE<<<<ss", "P<UTOERIKSSON<<TERESE", ""},
      {"ERIKSSON\nTERES\n", "P<UTOERIKSSON<<TERESE<<<<ss", "P<UTOERIKSSON<<TERES", ""},
      {"TERESE\n", "P<UTOERIKSSON<<TERESE<<<<ss", "P<UTOERIKSSON<<TERESE", "unproven secondaryIdentifier"},
      {"ERIKSSON\nLISE\nES\n", "P<UTOERIKSSON<<LISE<ES<<<<ss", "P<UTOERIKSSON<<LISE<ES", ""},
      // A letter alone may be printed anywhere.
      {"ERIKSSON\nTERESE\nM\n", "P<UTOERIKSSON<<M<TERESE<<<<ss", "P<UTOERIKSSON<<M<TERESE",
       "unproven secondaryIdentifier"},
      // Where one filler is left between the parts, the letter that stands for the other says where.
      {"ERIKSSON\nANNA\nMARIA\n", "P<UTOERIKSSONK<ANNA<MARIA<<<<ss", "P<UTOERIKSSON<<ANNA<MARIA", ""},
      {"ERIKSSON\nANNA\nMARIA\n", "P<UTOERIKSSON<K<ANNA<MARIA<<<<ss", "P<UTOERIKSSON<<ANNA<MARIA", ""},
      {"ERIKSSON\nANNA\nMARIA\n", "P<UTOERIKSSONK<ANNAK<MARIA<<<<ss", "P<UTOERIKSSONK<ANNAK<MARIA",
       "unproven secondaryIdentifier"},
      {"ERIKSSON\nANNA\nMARIA\n", "P<UTOERIKSSON<ANNA<MARIA<<<<ss", "P<UTOERIKSSON<ANNA<MARIA",
       "unproven secondaryIdentifier"},
      // Letters that were all fillers are no name.
      {"ERIKSSON\nANNA\n", "P<UTOK<<<<<ss", "P<UTOK",
       "unproven primaryIdentifier, unproven secondaryIdentifier"},
      {"ERIKSSON\nANNA\n", "P<UTOK<S<<<<<ss", "P<UTOK<S",
       "unproven primaryIdentifier, unproven secondaryIdentifier"},
  };
  for (const names &n : table) {
    expect_names(n);
  }
}

// What fillers are read as: alone before misread ones it is one of them.
TEST(RepairOfNames, LettersThatFillersAreReadAs) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const bool is_filler = std::string("CDEGKLRSXY").find(letter) != std::string::npos;
    const std::string names = "P<UTOERIKSSON<<ANNA";
    const std::string as_read = names + "<" + letter + "<<ppp";
    SCOPED_TRACE(as_read);
    const varnel_inspection inspection = inspect(filled(as_read) + LOW, with_repair(1));
    EXPECT_EQ(zone_of(inspection), filled(is_filler ? names : names + "<" + letter) + LOW);
  }
}

// K and X before letters that they begin no name with, and K after letters that it ends none after, where the
// line is too long by one. The K of BROOK is not among them.
TEST(RepairOfNames, ImpossibleLetters) {
  const auto zone_without = [](const std::string &as_read, const std::string &names) {
    const varnel_inspection inspection = inspect(filled(as_read).substr(0, 44) + "<\n" + LOW, with_repair(1));
    return zone_of(inspection) == filled(names) + LOW && inspection.verdict == VARNEL_VERDICT_REPAIRED;
  };
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    SCOPED_TRACE(letter);
    const auto is_one_of = [letter](const std::string &letters) {
      return letters.find(letter) != std::string::npos;
    };
    const std::string brook = "P<UTOBROOK<<ANNA<";
    EXPECT_EQ(zone_without(brook + "K" + letter + "ORA", brook + letter + "ORA"),
              is_one_of("BCDFGJKMPQSTXZ"));
    EXPECT_EQ(zone_without(brook + "X" + letter + "ORA", brook + letter + "ORA"), !is_one_of("AEIOUY"));
    EXPECT_EQ(zone_without("P<UTOKDEROOK<<ANNA<K" + std::string(1, letter) + "ORA",
                           "P<UTOKDEROOK<<ANNA<" + std::string(1, letter) + "ORA"),
              is_one_of("BCDFGJKMPQSTXZ"));
    EXPECT_EQ(zone_without(brook + "RA" + letter + "K", brook + "RA" + letter), is_one_of("BDFGHJMPQTVXZ"));
  }
}

// Digits in names are the letters that they look like.
TEST(RepairOfNames, DigitsInNames) {
  expect({1, filled("P<UTO0R1N2A<<GUBRA") + LOW, "repaired", filled("P<UTOORINZA<<GUBRA") + LOW,
          "0:5 0>O class, 0:7 1>I class, 0:9 2>Z class", ""});
  expect({1, filled("P<UTOORINZA5<<6U8RA") + LOW, "repaired", filled("P<UTOORINZAS<<GUBRA") + LOW,
          "0:11 5>S class, 0:14 6>G class, 0:16 8>B class", ""});
  // So many would make names of much that is none, and a zone of much that is none: then the number is
  // doubted.
  expect({1, filled("P<UTO0R1N2A5<<6UBRA") + LOW, "repaired", filled("P<UTOORINZAS<<GUBRA") + LOW,
          "0:5 0>O class, 0:7 1>I class, 0:9 2>Z class, 0:11 5>S class, 0:14 6>G class", ""});
  const std::string french = LOW.substr(0, 10) + "FRA" + LOW.substr(13); // the states agree no more
  expect({1, filled("P<UTO0R1N2A5<<GUBRA") + french, "repaired", filled("P<UTOORINZAS<<GUBRA") + french,
          "0:5 0>O class, 0:7 1>I class, 0:9 2>Z class, 0:11 5>S class", ""});
  expect({1, filled("P<UTO0R1N2A5<<6UBRA") + french, "doubtful", filled("P<UTOORINZAS<<GUBRA") + french,
          "0:5 0>O class, 0:7 1>I class, 0:9 2>Z class, 0:11 5>S class, 0:14 6>G class",
          "unproven documentNumber"});
  expect({1, filled("P<UTO0R1N2A5<<6U8RA") + LOW, "doubtful", filled("P<UTOORINZAS<<GUBRA") + LOW,
          "0:5 0>O class, 0:7 1>I class, 0:9 2>Z class, 0:11 5>S class, 0:14 6>G class, 0:16 8>B class",
          "unproven documentNumber"});
  for (const char digit : {'3', '4', '7', '9'}) {
    const std::string names = std::string("P<UTOERIKSSON<<ANN") + digit;
    EXPECT_EQ(findings_of(inspect(filled(names) + LOW, with_repair(1))), "badCharacters secondaryIdentifier");
  }
}

// K and X beside the fillers between the parts, in a line with misread fillers: of the right length, and too
// short.
TEST(RepairOfNames, LettersBesideFillers) {
  const struct {
    const char *as_read;
    const char *findings; // of the line too short
  } table[] = {
      {"P<UTOBROOK<<ANNA<<<<ss", "unproven primaryIdentifier"},
      {"P<UTOMARX<<ANNA<<<<ss", "unproven primaryIdentifier"},
      {"P<UTOERIKSSON<<KANNA<<<<ss", "unproven secondaryIdentifier"},
      {"P<UTOERIKSSON<<XENIA<<<<ss", "unproven secondaryIdentifier"},
      {"P<UTOERIKSSON<<ANNA<<<<ss", ""},
  };
  for (const auto &row : table) {
    SCOPED_TRACE(row.as_read);
    EXPECT_EQ(findings_of(inspect(filled(row.as_read) + LOW, with_repair(1))), "");
    const std::string too_short = filled(row.as_read).substr(0, 43) + "\n";
    EXPECT_EQ(findings_of(inspect(too_short + LOW, with_repair(1))), row.findings);
  }
}

// What the page prints is listed as changes of the characters that stood there.
TEST(RepairOfNames, ChangesToWhatIsPrinted) {
  const std::string page = "ERIKSSON\nANNA\nMARIA\n";
  expect({1, page + filled("P<UTOERIKSSONK<ANNA<MARIA<<<<ss") + LOW, "repaired", TOP + LOW,
          "0:13 K>< filler, 0:29 s>< filler, 0:30 s>< filler", ""});
  expect({1, page + filled("P<UTOERIKSSON<K<ANNA<MARIA<<<<ss") + LOW, "repaired", TOP + LOW,
          "0:14 K>< filler, 0:15 <> filler, 0:29 s>< filler, 0:30 s>< filler, 0:43 >< filler", ""});
}

// White space between names is none within them.
TEST(RepairOfNames, WhiteSpace) {
  const std::string names = filled("P<UTOERIKSSON<<ANNASMARIA");
  EXPECT_EQ(findings_of(inspect("P<UTOERIKSSON <<ANNASMARIA" + names.substr(25) + LOW, with_repair(1))), "");
  for (const char *as_read :
       {"P<UTOE RIKSSON<<ANNASMARIA", "P<UTOERIKSSO N<<ANNASMARIA", "P<UTOERIKSSON<<ANNASMARI A"}) {
    const varnel_inspection inspection = inspect(as_read + names.substr(25) + LOW, with_repair(1));
    EXPECT_EQ(zone_of(inspection), names + LOW);
    EXPECT_EQ(findings_of(inspection), "unproven secondaryIdentifier");
  }
}

// In a line that is too short, too.
TEST(RepairOfNames, EmptyPrimaryIdentifier) {
  expect({1, filled("P<UTO<<ANNA<<<<<<ss").substr(0, 43) + "\n" + LOW, "repaired",
          filled("P<UTO<<ANNA") + LOW, "0:17 s>< filler, 0:18 s>< filler, 0:43 >< filler", ""});
}

// Noise leaves names in doubt that are none.
TEST(RepairOfNames, NoiseWithoutNames) {
  expect({1, "~" + filled("P<UTO") + LOW, "doubtful", filled("P<UTO") + LOW, "",
          "empty primaryIdentifier, unproven secondaryIdentifier"});
}

// The line is too long by one, and BROOK ends in a K: of X alone before a small letter nothing is known.
TEST(RepairOfNames, SmallLetterAfterX) {
  expect({1, filled("P<UTOBROOK<XaNDER<<ANNA").substr(0, 44) + "<\n" + LOW, "doubtful",
          filled("P<UTOBROOK<XANDER<<ANNA") + LOW, "0:44 <> filler",
          "unproven primaryIdentifier, unproven secondaryIdentifier"});
}

// Of names that the field has no room for its columns are read, and doubted, whatever the page prints.
TEST(RepairOfNames, LinesFarTooLong) {
  const struct {
    const char *top;
    const char *read;
    const char *findings;
  } table[] = {
      {"P<UTOERIKSSONERIKSSONERIKSSONERIKSSONERIKSSONERIKSSONERIKS",
       "P<UTOERIKSSONERIKSSONERIKSSONERIKSSONERIKSSO", "unproven secondaryIdentifier"},
      {"P<UTOERIKSSON<<ANNA<MARIA<TERESA<JOHANNA<KATHARINA<VIKTORI",
       "P<UTOERIKSSON<<ANNA<MARIA<TERESA<JOHANNA<KAT", "unproven secondaryIdentifier"},
      {"P<UTOA<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A",
       "P<UTOA<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A<A",
       "unproven primaryIdentifier, unproven secondaryIdentifier"},
  };
  for (const auto &row : table) {
    SCOPED_TRACE(row.top);
    const std::string page = "ERIKSSON ANNA MARIA TERESA JOHANNA KATHARINA VIKTORI\n\n";
    const varnel_inspection inspection = inspect(page + row.top + "\n" + LOW, with_repair(1));
    EXPECT_EQ(zone_of(inspection), std::string(row.read) + "\n" + LOW);
    EXPECT_EQ(findings_of(inspection), row.findings);
    EXPECT_EQ(inspection.change_count, 14);
  }
}

} // namespace
