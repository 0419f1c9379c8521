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
      {"ERIKSSON\nANNA\n", "P<UTOK<S<<<<<ss", "P<UTOK<S",
       "unproven primaryIdentifier, unproven secondaryIdentifier"},
  };
  for (const names &n : table) {
    expect_names(n);
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
