// The units of a zone as repair reads them: document codes, states, dates, sexes and numbers.
#include "repairing.hpp"

namespace {

using namespace repairing;
using support::inspect;

const std::string VISA_TOP = "V" + TOP.substr(1);
const std::string VISA_LOW = "L898902C<3UTO6908061F9406236ZE184226B<<<<<<<\n";
const std::string TD2_LOW = "D231458907UTO7408122F1204159<<<<<<<6\n";

std::string with_nationality(const std::string &state) { return LOW.substr(0, 10) + state + LOW.substr(13); }

// A small letter is a filler, but for those that are often read of capitals; a letter that is no card's
// second stays and is a finding, as is a digit that no letter looks like.
TEST(RepairOfUnits, DocumentCodes) {
  const struct {
    const char *code;
    const char *verdict;
    const char *read;
    const char *changes;
    const char *findings;
  } table[] = {
      {"PM", "valid", "PM", "", ""},
      {"Pi", "valid", "PI", "", ""},
      {"Po", "valid", "PO", "", ""},
      {"Pp", "valid", "PP", "", ""},
      {"Ps", "repaired", "P<", "0:1 s>< filler", ""},
      {"P5", "repaired", "PS", "0:1 5>S class", ""},
      {"P7", "valid", "P7", "", ""}, // may be printed
      {"PV", "valid", "PV", "", ""},
      {"VV", "valid", "VV", "", ""},
      {"Ws", "repaired", "V<", "0:0 W>V class, 0:1 s>< filler", ""},
      {"VS", "doubtful", "VS", "", "unproven documentCode"}, // a filler, as often as not
      {"IV", "doubtful", "IV", "", "unknown documentCode"},
      {"1R", "repaired", "IR", "0:0 1>I class", ""},
      {"GR", "repaired", "CR", "0:0 G>C class", ""},
  };
  for (const auto &row : table) {
    const char first = row.read[0];
    const std::string rest = first == 'P'   ? TOP + LOW
                             : first == 'V' ? VISA_TOP + VISA_LOW
                                            : TD2_TOP + TD2_LOW;
    expect({1, row.code + rest.substr(2), row.verdict, row.read + rest.substr(2), row.changes, row.findings});
  }
}

// Of one character less, or one more: a filler lost or read twice, or a letter that is one beside the second.
TEST(RepairOfUnits, LengthsOfDocumentCodes) {
  const struct {
    const char *as_read;
    const char *code;
    const char *changes;
  } table[] = {
      {"P", "P<", "0:1 >< filler"}, {"P<<", "P<", "0:1 <> filler"}, {"PT<", "P<", "0:1 T> filler"},
      {"PTM", "PM", "0:1 T> twin"}, {"PSM", "PM", "0:1 S> twin"},   {"PMK", "PM", "0:2 K> twin"},
      {"I", "I<", "0:1 >< filler"}, {"IRS", "IR", "0:2 S> twin"},
  };
  for (const auto &row : table) {
    const std::string rest = row.code[0] == 'P' ? TOP + LOW : TD2_TOP + TD2_LOW;
    expect({1, row.as_read + rest.substr(2), "repaired", row.code + rest.substr(2), row.changes, ""});
  }
  for (const char *code : {"PM<", "PMT", "PMM"}) {
    EXPECT_EQ(zone_of(inspect(code + TOP.substr(2) + LOW, with_repair(1))), "");
  }
}

TEST(RepairOfUnits, States) {
  const struct {
    const char *state;
    const char *verdict;
    const char *read;
    const char *changes;
    const char *findings;
  } table[] = {
      {"UTO", "valid", "UTO", "", ""},
      {"XXK", "valid", "XXK", "", ""}, // of residence permits
      {"D<K", "repaired", "D<<", "1:12 K>< filler", ""},
      {"DK<", "repaired", "D<<", "1:11 K>< filler", ""},
      {"DA<", "doubtful", "DA<", "", "unknown nationality"},
      {"D<A", "doubtful", "D<A", "", "badCharacters nationality"},
      {"DKK", "doubtful", "DKK", "", "unknown nationality"},
      {"EKK", "doubtful", "EKK", "", "unknown nationality"},
      // What is one look-alike away from the issuing state is that state.
      {"UJO", "doubtful", "UJO", "", "unknown nationality"},
      {"JTO", "repaired", "UTO", "1:10 J>U class", ""},
      {"UIO", "repaired", "UTO", "1:11 I>T class", ""},
      {"ETO", "doubtful", "ETO", "", "unknown nationality"},
      {"CTO", "doubtful", "CTO", "", "unknown nationality"},
      {"JIO", "doubtful", "JIO", "", "unknown nationality"},
  };
  for (const auto &row : table) {
    expect({1, TOP + with_nationality(row.state), row.verdict, TOP + with_nationality(row.read), row.changes,
            row.findings});
  }
  expect({1, "P<ISL" + TOP.substr(5) + with_nationality("TSL"), "repaired",
          "P<ISL" + TOP.substr(5) + with_nationality("ISL"), "1:10 T>I class", ""});
  // The issuing state has one of O, D and Q for another at the level of digits.
  const std::string top = "P<QMN" + TOP.substr(5);
  expect({1, top + LOW, "doubtful", "", "", "unknown issuingState"});
  expect({2, top + LOW, "repaired", "P<OMN" + TOP.substr(5) + LOW, "0:2 Q>O class", ""});
}

// Each digit stands for letters: the one that makes a listed code of the three.
TEST(RepairOfUnits, DigitsInStates) {
  const struct {
    const char *as_read;
    const char *state;
    const char *changes;
  } table[] = {
      {"AG0", "AGO", "1:12 0>O class"}, {"AN0", "AND", "1:12 0>D class"}, {"GN0", "GNQ", "1:12 0>Q class"},
      {"BD1", "BDI", "1:12 1>I class"}, {"A1B", "ALB", "1:11 1>L class"}, {"AN1", "ANT", "1:12 1>T class"},
      {"D1I", "DJI", "1:11 1>J class"}, {"A2E", "AZE", "1:11 2>Z class"}, {"4BW", "ABW", "1:10 4>A class"},
      {"D4I", "DJI", "1:11 4>J class"}, {"A5M", "ASM", "1:11 5>S class"}, {"D5I", "DJI", "1:11 5>J class"},
      {"AF6", "AFG", "1:12 6>G class"}, {"A6W", "ABW", "1:11 6>B class"}, {"AN7", "ANT", "1:12 7>T class"},
      {"C7M", "CYM", "1:11 7>Y class"}, {"A7E", "AZE", "1:11 7>Z class"}, {"A8W", "ABW", "1:11 8>B class"},
      {"A8M", "ASM", "1:11 8>S class"},
  };
  for (const auto &row : table) {
    expect({1, TOP + with_nationality(row.as_read), "repaired", TOP + with_nationality(row.state),
            row.changes, ""});
  }
  for (const char *state : {"A3E", "A9E", "AG3"}) {
    expect({1, TOP + with_nationality(state), "doubtful", "", "", "badCharacters nationality"});
  }
}

TEST(RepairOfUnits, TwinsInStates) {
  const struct {
    const char *as_read;
    const char *state;
    const char *changes;
  } table[] = {
      {"AG0O", "AGO", "1:12 0> twin"}, {"AGO0", "AGO", "1:13 0> twin"}, {"A1IA", "AIA", "1:11 1> twin"},
      {"AI1A", "AIA", "1:12 1> twin"}, {"A2ZE", "AZE", "1:11 2> twin"}, {"AZ2E", "AZE", "1:12 2> twin"},
      {"A5SM", "ASM", "1:11 5> twin"}, {"AS5M", "ASM", "1:12 5> twin"}, {"A8BW", "ABW", "1:11 8> twin"},
      {"AB8W", "ABW", "1:12 8> twin"}, {"AF6G", "AFG", "1:12 6> twin"}, {"AFG6", "AFG", "1:13 6> twin"},
      {"D3JI", "DJI", "1:11 3> twin"}, {"DJ3I", "DJI", "1:12 3> twin"}, {"OCAF", "CAF", "1:10 O> twin"},
      {"AGCO", "AGO", "1:12 C> twin"}, {"BDTI", "BDI", "1:12 T> twin"}, {"ANIT", "ANT", "1:12 I> twin"},
      {"AN1T", "ANT", "1:12 1> twin"}, {"ANT1", "ANT", "1:13 1> twin"}, {"A1LA", "ALA", "1:11 1> twin"},
      {"AL1A", "ALA", "1:12 1> twin"}, {"AN0D", "AND", "1:12 0> twin"}, {"AND0", "AND", "1:13 0> twin"},
      {"GN0Q", "GNQ", "1:12 0> twin"}, {"GNQ0", "GNQ", "1:13 0> twin"}, {"ARRE", "ARE", "1:11 R> twin"},
      {"ARRE", "ARE", "1:11 R> twin"},
  };
  for (const auto &row : table) {
    expect({1, TOP + with_nationality(row.as_read), "repaired", TOP + with_nationality(row.state),
            row.changes, ""});
  }
}

// A nationality that ends a line has lost the data after it.
TEST(RepairOfUnits, NoStateEndsALine) {
  const varnel_inspection inspection =
      inspect("I<UTOD231458907<<<<<<<<<<<<<<<\nAB 7408122F1204159UTO\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
              with_repair(1));
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_REFUSED);
}

TEST(RepairOfUnits, Sexes) {
  const struct {
    char as_read;
    const char *changes;
    char sex;
  } table[] = {
      {'M', "", 'M'},
      {'F', "", 'F'},
      {'<', "", '<'},
      {'m', "", 'M'},
      {'f', "", 'F'},
      {'P', "1:20 P>F class", 'F'},
      {'p', "1:20 p>F class", 'F'},
      {'N', "1:20 N>M class", 'M'},
      {'C', "1:20 C>< filler", '<'},
      {'K', "1:20 K>< filler", '<'},
      {'X', "1:20 X>< filler", '<'},
      {'c', "1:20 c>< filler", '<'},
      {'e', "1:20 e>< filler", '<'},
      {'k', "1:20 k>< filler", '<'},
      {'s', "1:20 s>< filler", '<'},
      {'x', "1:20 x>< filler", '<'},
  };
  for (const auto &row : table) {
    std::string as_read = LOW;
    std::string low = LOW;
    as_read[20] = row.as_read;
    low[20] = row.sex;
    expect({1, TOP + as_read, row.changes[0] == '\0' ? "valid" : "repaired", TOP + low, row.changes, ""});
  }
  for (const char none : {'B', 'H', 'Z', '1'}) {
    std::string low = LOW;
    low[20] = none;
    expect({1, TOP + low, "doubtful", "", "", "badCharacters sex"});
  }
}

// A filler before the digit that was read twice; and a number of fillers is none, whatever its digit.
TEST(RepairOfUnits, NumbersWithFillers) {
  for (const char letter : {'K', 'X'}) {
    const std::string low = VISA_LOW.substr(0, 9) + letter + VISA_LOW.substr(9);
    expect(
        {1, VISA_TOP + low, "repaired", VISA_TOP + VISA_LOW, std::string("1:9 ") + letter + "> filler", ""});
  }
  const varnel_inspection other =
      inspect(VISA_TOP + "L898902C<Y3UTO6908061F9406236ZE184226B<<<<<<<\n", with_repair(1));
  EXPECT_EQ(other.verdict, VARNEL_VERDICT_REFUSED);
  for (const char *low :
       {"<<<<<<<<<0UTO7408122F1204159ZE184226B<<<<<12\n", "<<<<<<<<<<UTO7408122F1204159ZE184226B<<<<<12\n"}) {
    for (const int level : LEVELS) {
      expect({level, TOP + low, "doubtful", "", "", "empty documentNumber"});
    }
  }
}

// Fillers lost from the number and the state after it; and the most characters that may stand before the
// dates.
TEST(RepairOfUnits, BeginningsOfLinesTooShortOrLong) {
  const std::string low = "L898902<<7D<<6908061F9406236ZE184226B<<<<<<<\n";
  expect({1, VISA_TOP + "L8989027D<<6908061F9406236ZE184226B<<<<<<<\n", "repaired", VISA_TOP + low,
          "1:7 >< filler, 1:8 >< filler", ""});
  expect({1, VISA_TOP + "L8989027D<6908061F9406236ZE184226B<<<<<<<\n", "repaired", VISA_TOP + low,
          "1:7 >< filler, 1:8 >< filler, 1:12 >< filler", ""});
  expect({1, VISA_TOP + "ABC L898902C<K3D<<<6908061F9406236ZE184226B<<<<<<<\n", "doubtful",
          VISA_TOP + "L898902C<3D<<6908061F9406236ZE184226B<<<<<<<\n", "1:9 K> filler, 1:13 <> filler",
          "unproven secondaryIdentifier, unproven documentNumber"});
  expect({1, VISA_TOP + "A<<<<<<<<0UTO69O8061F9406236ZE184226B<<<<<<<\n", "repaired",
          VISA_TOP + "A<<<<<<<<0UTO6908061F9406236ZE184226B<<<<<<<\n", "1:15 O>0 class", ""});
}

// A number may go on in the optional data up to its end (Doc 9303-6).
TEST(RepairOfUnits, LongNumbers) {
  for (const int level : LEVELS) {
    expect({level, TD2_TOP + "D23145890<UTO7408122F120415973490134\n", "valid", "", "", ""});
  }
}

// What is printed up to 4 KiB before or after the zone settles a doubt, as a word of its own.
TEST(RepairOfUnits, NumbersPrintedOnThePage) {
  const std::string zone = "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                           "00ABO1O2<4UTO6908061F9406236<<<<<<<<<<<<<<<<";
  const auto prose = [](size_t size) {
    std::string text;
    while (text.size() < size) {
      text += "prose\n";
    }
    return text.substr(text.size() - size);
  };
  const struct {
    const char *what;
    std::string text;
    const char *findings;
  } table[] = {
      {"nowhere", zone, "unproven documentNumber"},
      {"before", "00ABO1O2\n" + zone, ""},
      {"after", zone + "\n00ABO1O2", ""},
      {"in small letters", zone + "\nno 00abo1o2.", ""},
      {"with a letter before it", zone + "\nN00ABO1O2", "unproven documentNumber"},
      {"with a digit after it", zone + "\n00ABO1O25", "unproven documentNumber"},
      {"with another first character", zone + "\nO0ABO1O2", "unproven documentNumber"},
      {"with another last character", zone + "\n00ABO1OZ", "unproven documentNumber"},
      {"in part", zone + "\n00ABO1O", "unproven documentNumber"},
      {"4 KiB before", "00ABO1O2\n" + prose(4087) + zone, ""},
      {"farther before", "00ABO1O2\n" + prose(4088) + zone, "unproven documentNumber"},
      {"4 KiB after", zone + "\n" + prose(4087) + "00ABO1O2", ""},
      {"farther after", zone + "\n" + prose(4088) + "00ABO1O2", "unproven documentNumber"},
  };
  for (const auto &row : table) {
    SCOPED_TRACE(row.what);
    const varnel_inspection inspection = inspect(row.text, with_repair(1));
    EXPECT_EQ(zone_of(inspection), zone + "\n");
    EXPECT_EQ(findings_of(inspection), row.findings);
  }
}

} // namespace
