// Numbers that an optical reader misread: the look-alikes that a check digit may decide for, those that stand
// against them, digits read as letters, and characters read twice.
#include "repairing.hpp"

namespace {

using namespace repairing;

// The six look-alikes that a digit may decide for, each the only one that makes it hold.
TEST(RepairOfNumbers, DecisiveLookAlikes) {
  const struct {
    std::string as_read;
    std::string low;
    const char *changes;
  } table[] = {
      {"HFM0N39397UTO7408122F1204159ZE184226B<<<<<18", "HFMON39397UTO7408122F1204159ZE184226B<<<<<18",
       "1:3 0>O digit"},
      {"HFMON39399UTO7408122F1204159ZE184226B<<<<<14", "HFM0N39399UTO7408122F1204159ZE184226B<<<<<14",
       "1:3 O>0 digit"},
      {"HFM1N39395UTO7408122F1204159ZE184226B<<<<<12", "HFMIN39395UTO7408122F1204159ZE184226B<<<<<12",
       "1:3 1>I digit"},
      {"HFMIN39396UTO7408122F1204159ZE184226B<<<<<10", "HFM1N39396UTO7408122F1204159ZE184226B<<<<<10",
       "1:3 I>1 digit"},
      {"HFMSN39394UTO7408122F1204159ZE184226B<<<<<14", "HFM5N39394UTO7408122F1204159ZE184226B<<<<<14",
       "1:3 S>5 digit"},
      {"HFMBN39395UTO7408122F1204159ZE184226B<<<<<12", "HFM8N39395UTO7408122F1204159ZE184226B<<<<<12",
       "1:3 B>8 digit"},
  };
  for (const auto &row : table) {
    expect({1, TOP + row.as_read + "\n", "doubtful", "", "",
            "checkFailed documentNumber, checkFailed composite"});
    expect({2, TOP + row.as_read + "\n", "repaired", TOP + row.low + "\n", row.changes, ""});
  }
}

// It stays as it was read where the composite fails after the change.
TEST(RepairOfNumbers, CompositesThatFail) {
  expect({2, TOP + "HFMON39399UTO7408122F1204159ZE184226B<<<<<15\n", "doubtful", "", "",
          "checkFailed documentNumber, checkFailed composite"});
  expect({2,
          "I<UTOD2314589O7<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<7\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
          "doubtful", "", "", "checkFailed documentNumber, checkFailed composite"});
}

// A change that makes the number's digit hold, but not the composite, is no match for a twin that leaves
// both.
TEST(RepairOfNumbers, TwinsOnCards) {
  const std::string rest = "7408122F1204159UTO<<<<<<<<<<<4\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n";
  expect({2, "I<UTOHF0O3339398<<<<<<<<<<<<<<<\n" + rest, "repaired",
          "I<UTOHF03339398<<<<<<<<<<<<<<<\n" + rest, "0:8 O> twin", ""});
  expect({1, "I<UTOHF0O3339398<<<<<<<<<<<<<<<\n" + rest, "doubtful",
          "I<UTOHF0O3339398<<<<<<<<<<<<<<\n" + rest, "0:30 <> filler",
          "checkFailed documentNumber, checkFailed composite"});
}

// Numbers that would hold as well with look-alikes, on cards: of nine characters, and long ones by either
// rule.
TEST(RepairOfNumbers, DoubtsOnCards) {
  for (const char *zone :
       {"I<UTO00ABO1O2<4<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<2\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
        "I<UTO00ABO1O2X<353<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<2\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
        "I<UTO00ABO1O2X<351<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<8\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n"}) {
    ASSERT_EQ(findings_of(support::inspect(zone)), "");
    for (const int level : LEVELS) {
      expect({level, zone, "doubtful", "", "", "unproven documentNumber"});
    }
  }
}

// For no other does it decide, though it alone makes the digit hold.
TEST(RepairOfNumbers, OtherLookAlikes) {
  for (const char *low : {
           "HFMTN39395UTO7408122F1204159ZE184226B<<<<<12", // T for I
           "HFMLN39395UTO7408122F1204159ZE184226B<<<<<12", // L for I
           "HFMEN39393UTO7408122F1204159ZE184226B<<<<<16", // E for C
           "HFMIN39392UTO7408122F1204159ZE184226B<<<<<18", // I for J
           "HFMUN39392UTO7408122F1204159ZE184226B<<<<<18", // U for J
           "HFMZN39393UTO7408122F1204159ZE184226B<<<<<16", // Z for 2
           "HFM2N39394UTO7408122F1204159ZE184226B<<<<<14", // 2 for Z
           "HFM5N39395UTO7408122F1204159ZE184226B<<<<<12", // 5 for S
           "HFM8N39396UTO7408122F1204159ZE184226B<<<<<10", // 8 for B
           "HFMQN39399UTO7408122F1204159ZE184226B<<<<<14", // Q for 0
           "HFMDN39399UTO7408122F1204159ZE184226B<<<<<14", // D for 0
           "HFM0N39390UTO7408122F1204159ZE184226B<<<<<12", // 0 for D
           "HFM0N39391UTO7408122F1204159ZE184226B<<<<<10", // 0 for Q
           "HFM4N39396UTO7408122F1204159ZE184226B<<<<<10", // 4 for 1
           "HFMAN39397UTO7408122F1204159ZE184226B<<<<<18", // A for 4
           "HFM7N39394UTO7408122F1204159ZE184226B<<<<<14", // 7 for Z
           "HFMGN39397UTO7408122F1204159ZE184226B<<<<<18", // G for 4
           "HFMTN39396UTO7408122F1204159ZE184226B<<<<<10", // T for 1
           "HFMTN39398UTO7408122F1204159ZE184226B<<<<<16", // T for 7
       }) {
    expect({2, TOP + low + "\n", "doubtful", "", "", "checkFailed documentNumber, checkFailed composite"});
  }
}

// Every look-alike is a rival: an O for 0 or S for 5 would make the digit hold, but so would another one.
TEST(RepairOfNumbers, RivalLookAlikes) {
  for (const char *low : {
           "SFTRN39391UTO7408122F1204159ZE184226B<<<<<10", // T for I
           "SFMLN39392UTO7408122F1204159ZE184226B<<<<<18", // L for I
           "HOERN39395UTO7408122F1204159ZE184226B<<<<<12", // E for C
           "HSIRN39394UTO7408122F1204159ZE184226B<<<<<14", // I for J
           "SFURN39392UTO7408122F1204159ZE184226B<<<<<18", // U for J
           "SFMZN39390UTO7408122F1204159ZE184226B<<<<<12", // Z for 2
           "S2MRN39395UTO7408122F1204159ZE184226B<<<<<12", // 2 for Z
           "S5MRN39394UTO7408122F1204159ZE184226B<<<<<14", // 5 for S
           "S8MRN39393UTO7408122F1204159ZE184226B<<<<<16", // 8 for B
           "OQMRN39392UTO7408122F1204159ZE184226B<<<<<18", // Q for 0
           "SFMDN39396UTO7408122F1204159ZE184226B<<<<<10", // D for 0
           "S0MRN39399UTO7408122F1204159ZE184226B<<<<<14", // 0 for D
           "OFM0N39390UTO7408122F1204159ZE184226B<<<<<12", // 0 for Q
           "SFM4N39393UTO7408122F1204159ZE184226B<<<<<16", // 4 for 1
           "OAMRN39394UTO7408122F1204159ZE184226B<<<<<14", // A for 4
           "HO7RN39398UTO7408122F1204159ZE184226B<<<<<16", // 7 for Z
           "HOGRN39397UTO7408122F1204159ZE184226B<<<<<18", // G for 4
           "OFTRN39396UTO7408122F1204159ZE184226B<<<<<10", // T for 1
           "HOTRN39390UTO7408122F1204159ZE184226B<<<<<12", // T for 7
       }) {
    expect({2, TOP + low + "\n", "doubtful", "", "", "checkFailed documentNumber, checkFailed composite"});
  }
}

// The optional data of a card has the composite alone: what has four fifths of all that make it hold is
// taken. A personal number has its own digit too: there no other look-alike may explain it.
TEST(RepairOfNumbers, OptionalData) {
  const struct {
    std::string zone;
    const char *read; // empty: as it is
    const char *changes;
    const char *findings;
  } table[] = {
      {TD2_TOP + "D231458907UTO7408122F12041590BIZ<<<0\n",
       "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nD231458907UTO7408122F1204159OBIZ<<<0\n", "1:28 0>O digit", ""},
      {TD2_TOP + "D231458907UTO7408122F1204159B025<<<9\n",
       "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nD231458907UTO7408122F12041598025<<<9\n", "1:28 B>8 digit", ""},
      {TD2_TOP + "D231458907UTO7408122F1204159O01I<<<3\n", "", "", "checkFailed composite"}, // O>0 or 0>O
      {TD2_TOP + "D231458907UTO7408122F12041594TT2<<<3\n", "", "", "checkFailed composite"}, // T>I or 4>1
      {TD2_TOP + "D231458907UTO7408122F1204159TS3K<<<9\n", "", "", "checkFailed composite"}, // T>I alone
      {"I<UTOD2314589070HMN<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<8\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
       "I<UTOD231458907OHMN<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<8\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
       "0:15 0>O digit", ""},
      {"I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO0HMN<<<<<<<8\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
       "I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTOOHMN<<<<<<<8\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n",
       "1:18 0>O digit", ""},
      {TOP + "L898902C36UTO7408122F120415900O4Z<<<<<<<<<58\n", "", "",
       "checkFailed personalNumber, checkFailed composite"}, // 0>O or 0>Q
  };
  for (const auto &row : table) {
    const bool is_changed = row.changes[0] != '\0';
    expect({2, row.zone, is_changed ? "repaired" : "doubtful", row.read, row.changes, row.findings});
    EXPECT_EQ(changes_of(support::inspect(row.zone, with_repair(1))), "");
  }
}

// The last digits of a line: a card's composite is one; a personal number's is a filler where there is no
// number.
TEST(RepairOfNumbers, DigitsAfterNoData) {
  const std::string td2 = TD2_TOP + "D231458996UTO7408122F1204159<<<<<<<";
  expect({1, td2 + "S\n", "repaired", td2 + "8\n", "1:35 S>8 class", ""});
  expect({1, td2 + "K\n", "doubtful", "", "", "checkFailed composite"});
  const std::string td3 = TOP + "L898902C36UTO7408122F1204159<<<<<<<<<<<<<<";
  for (const char letter : {'K', 'S', 's'}) {
    expect(
        {1, td3 + letter + "8\n", "repaired", td3 + "<8\n", std::string("1:42 ") + letter + ">< filler", ""});
  }
  expect({1, td3 + "O8\n", "repaired", td3 + "08\n", "1:42 O>0 class", ""});
  expect({1, td3 + "08\n", "valid", "", "", ""});
  expect({1, td3 + "58\n", "doubtful", "", "", "checkFailed personalNumber, checkFailed composite"});
}

// Where all the data was lost nothing is made up for it.
TEST(RepairOfNumbers, NoDataAtAll) {
  const std::string fillers = "<<<<<<<<<<<<<<<<\n";
  const varnel_inspection td3 = support::inspect(TOP + LOW.substr(0, 28) + "\n", with_repair(2));
  EXPECT_EQ(zone_of(td3), TOP + LOW.substr(0, 28) + fillers);
  EXPECT_EQ(findings_of(td3), "checkFailed composite");
  const std::string td2_low = "D231458907UTO7408122F1204159";
  const varnel_inspection td2 = support::inspect(TD2_TOP + td2_low + "\n", with_repair(2));
  EXPECT_EQ(zone_of(td2), TD2_TOP + td2_low + fillers.substr(8));
  EXPECT_EQ(findings_of(td2), "checkFailed composite");
}

// Up to three letters and then digits are a number as most states print it; of any other the look-alikes that
// leave its digit as it is may have a twelfth of the likelihood of the number itself.
TEST(RepairOfNumbers, Doubts) {
  const struct {
    const char *number;
    const char *findings;
  } table[] = {
      {"F6H6K6M6N3", ""},                        // four G for 6
      {"F6H6K6M666", "unproven documentNumber"}, // five
      {"0AB10234<3", "unproven documentNumber"}, // two O for 0
      {"AB010234<5", ""},
      {"0000102340", ""},
  };
  for (const auto &row : table) {
    const std::string low = row.number + std::string("UTO6908061F9406236ZE184226B<<<<<<<\n");
    const varnel_inspection inspection = support::inspect("V" + TOP.substr(1) + low, with_repair(1));
    EXPECT_EQ(findings_of(inspection), row.findings) << row.number;
  }
}

// One of two explanations, or one that no digit decides for, is taken where the page prints it.
TEST(RepairOfNumbers, PrintedOnThePage) {
  const std::string misread = TOP + "HFMTN39395UTO7408122F1204159ZE184226B<<<<<12\n";
  expect({2, misread, "doubtful", "", "", "checkFailed documentNumber, checkFailed composite"});
  expect({2, "No. HFMIN3939\n" + misread, "repaired", TOP + "HFMIN39395UTO7408122F1204159ZE184226B<<<<<12\n",
          "1:3 T>I digit", ""});
  expect({1, "No. HFMIN3939\n" + misread, "doubtful", misread, "",
          "checkFailed documentNumber, checkFailed composite"});
}

// The check digit of a visa's number, read as a letter.
TEST(RepairOfNumbers, LettersForDigits) {
  const struct {
    const char *letters;
    const char *number; // with its digit
  } table[] = {
      {"OQDUCocdq", "L892272C30"}, {"ILTJlit", "L892422C31"}, {"Zz", "L892292C32"}, {"Ayh", "L892692C34"},
      {"Ss", "L892222C35"},        {"Gb", "L892232C36"},      {"Bg", "L892322C38"},
  };
  const std::string top = "V" + TOP.substr(1);
  const std::string rest = "UTO6908061F9406236ZE184226B<<<<<<<\n";
  for (const auto &row : table) {
    const std::string number = row.number;
    for (const char letter : std::string(row.letters)) {
      expect({1, top + number.substr(0, 9) + letter + rest, "repaired", top + number + rest,
              std::string("1:9 ") + letter + ">" + number[9] + " class", ""});
    }
  }
  for (const char letter : std::string("EFHKMNPRVWXYfgkmnprvwx")) {
    const varnel_inspection inspection = support::inspect(top + "L892272C3" + letter + rest, with_repair(2));
    EXPECT_EQ(findings_of(inspection), "checkFailed documentNumber") << letter;
  }
}

// A line too long by one, with one character of the number read twice.
TEST(RepairOfNumbers, Twins) {
  const struct {
    std::string as_read;
    std::string low;
    const char *changes;
  } table[] = {
      {"HF0O3339398UTO7408122F1204159ZE184226B<<<<<16", "HF03339398UTO7408122F1204159ZE184226B<<<<<16",
       "1:3 O> twin"},
      {"HFO03339398UTO7408122F1204159ZE184226B<<<<<16", "HF03339398UTO7408122F1204159ZE184226B<<<<<16",
       "1:2 O> twin"},
      {"HF1I3339399UTO7408122F1204159ZE184226B<<<<<14", "HF13339399UTO7408122F1204159ZE184226B<<<<<14",
       "1:3 I> twin"},
      {"HFI13339399UTO7408122F1204159ZE184226B<<<<<14", "HF13339399UTO7408122F1204159ZE184226B<<<<<14",
       "1:2 I> twin"},
      {"HF5S3339393UTO7408122F1204159ZE184226B<<<<<16", "HF53339393UTO7408122F1204159ZE184226B<<<<<16",
       "1:3 S> twin"},
      {"HFS53339393UTO7408122F1204159ZE184226B<<<<<16", "HF53339393UTO7408122F1204159ZE184226B<<<<<16",
       "1:2 S> twin"},
      {"HF8B3339396UTO7408122F1204159ZE184226B<<<<<10", "HF83339396UTO7408122F1204159ZE184226B<<<<<10",
       "1:3 B> twin"},
      {"HFB83339396UTO7408122F1204159ZE184226B<<<<<10", "HF83339396UTO7408122F1204159ZE184226B<<<<<10",
       "1:2 B> twin"},
      {"HF2Z3339390UTO7408122F1204159ZE184226B<<<<<12", "HF23339390UTO7408122F1204159ZE184226B<<<<<12",
       "1:3 Z> twin"},
      {"HFZ23339390UTO7408122F1204159ZE184226B<<<<<12", "HF23339390UTO7408122F1204159ZE184226B<<<<<12",
       "1:2 Z> twin"},
      // A letter and the symbol that looks like it.
      {"HFS$3333936UTO7408122F1204159ZE184226B<<<<<10", "HFS3333936UTO7408122F1204159ZE184226B<<<<<10",
       "1:3 $> twin"},
      {"HF$S3333936UTO7408122F1204159ZE184226B<<<<<10", "HFS3333936UTO7408122F1204159ZE184226B<<<<<10",
       "1:2 $> twin"},
  };
  for (const auto &row : table) {
    expect({2, TOP + row.as_read + "\n", "repaired", TOP + row.low + "\n", row.changes, ""});
  }
  // Either the O or the S may be left out.
  const varnel_inspection either =
      support::inspect(TOP + "H0OF5S09394UTO7408122F1204159ZE184226B<<<<<14\n", with_repair(2));
  EXPECT_EQ(either.verdict, VARNEL_VERDICT_REFUSED);
}

} // namespace
