// Several looks at one document: what is voted, what stays in doubt, and what is never mixed.
#include "support.hpp"

#include <Varnel/documents/looks.h>

#include "scans.hpp"

#include <cstring>

namespace {

using support::findings_of;
using support::zone_of;

constexpr varnel_inspect_options COLUMNS = {2026, 11, 21, VARNEL_REPAIR_COLUMNS};
constexpr varnel_inspect_options DIGITS = {2026, 11, 21, VARNEL_REPAIR_DIGITS};

const std::string TOP = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n";
const std::string LOW = "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

// The same passport with its number and its digit, or its expiry date and its digit, otherwise.
std::string with_number(const std::string &number) {
  return TOP + number + "UTO7408122F1204159ZE184226B<<<<<10\n";
}
std::string with_expiry(const std::string &expiry) {
  return TOP + "L898902C36UTO7408122F" + expiry + "ZE184226B<<<<<10\n";
}
// The same with a number of mixed letters and digits.
std::string mixed_number(const std::string &number) {
  return TOP + number + "5UTO7408122F1204159ZE184226B<<<<<12\n";
}
// And with other names.
std::string with_names(std::string names) {
  names.resize(39, '<');
  return "P<UTO" + names + "\n" + LOW;
}

// A number that goes on in the optional data.
const std::string LONG_NUMBER = "I<UTOD23145890<7349<<<<<<<<<<<\n"
                                "3407127M9507122UTO<<<<<<<<<<<2\n"
                                "STEVENSON<<PETER<JOHN<<<<<<<<<\n";

const std::string FRENCH_TOP = "IDFRABERTHIER<<<<<<<<<<<<<<<<<952042\n";
const std::string FRENCH_LOW = "8806923102858CORINNE<<<<<<<6512068F0\n";

varnel_inspection look(const std::vector<std::string> &texts,
                       const varnel_inspect_options &options = DIGITS) {
  varnel_looks looks = {};
  for (const std::string &text : texts) {
    varnel_looks_add(&looks, text.data(), text.size(), &options);
  }
  varnel_inspection inspection;
  EXPECT_EQ(varnel_looks_inspect(&looks, &options, &inspection), ERR_OK);
  return inspection;
}

// What looks show together.
struct ballot {
  std::vector<std::string> looks;
  std::string verdict;
  std::string zone;
  std::string findings;
};

void expect(const ballot &b, const varnel_inspect_options &options = DIGITS) {
  SCOPED_TRACE(b.looks[0]);
  const varnel_inspection inspection = look(b.looks, options);
  EXPECT_EQ(varnel_verdict_name(inspection.verdict), b.verdict);
  EXPECT_EQ(zone_of(inspection), b.zone);
  EXPECT_EQ(findings_of(inspection), b.findings);
}

bool has_finding(const varnel_inspection &inspection, int code, int field) {
  for (int i = 0; i < inspection.finding_count; ++i) {
    if (inspection.findings[i].code == code && inspection.findings[i].field == field) {
      return true;
    }
  }
  return false;
}

TEST(Looks, FitTheirRoom) {
  EXPECT_LE(sizeof(varnel_looks), 16384u);
  EXPECT_EQ(VARNEL_LOOKS, 8);
}

TEST(Looks, BadArguments) {
  varnel_looks looks = {};
  varnel_inspection inspection;
  const varnel_inspect_options no_date = {2026, 2, 30, VARNEL_REPAIR_OFF};
  EXPECT_EQ(varnel_looks_add(nullptr, "", 0, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, nullptr, 1, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", VARNEL_TEXT_MAX + 1, &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", 0, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_add(&looks, "", 0, &no_date), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(nullptr, &DIGITS, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, nullptr, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, &no_date, &inspection), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, &DIGITS, nullptr), ERR_INVALID_ARGS);
  EXPECT_EQ(looks.count, 0);
  looks.count = VARNEL_LOOKS + 1; // not a record of looks
  EXPECT_EQ(varnel_looks_add(&looks, TOP.data(), TOP.size(), &DIGITS), ERR_INVALID_ARGS);
  EXPECT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_INVALID_ARGS);
}

TEST(Looks, NoneIsARefusal) {
  varnel_looks looks = {};
  EXPECT_EQ(varnel_looks_add(&looks, "no zone", 7, &DIGITS), ERR_INVALID_FORMAT);
  EXPECT_EQ(looks.last.verdict, VARNEL_VERDICT_REFUSED);
  EXPECT_EQ(looks.count, 0);
  varnel_inspection inspection;
  ASSERT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_OK);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_REFUSED);
}

// What is kept of a look, so that the weakest can be told.
struct kept_look {
  std::string text;
  int score;
};

TEST(Looks, HaveScores) {
  const kept_look table[] = {
      {TOP + LOW, 5 * 150 + 60},
      {TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n", 5 * 150 + 60 - 5},
      {"P<UT0ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO74O8122F1204159ZE184226B<<<<<10\n",
       5 * 150 + 60 - 10},
      {with_expiry("1204158"), 3 * 150 + 60 - 10},
      {"P<D<<ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n" + LOW, 5 * 150},
      {"P<UTAERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n" + LOW, 5 * 150 - 5},
      {FRENCH_TOP + FRENCH_LOW, 3 * 150},
  };
  for (const kept_look &row : table) {
    SCOPED_TRACE(row.text);
    varnel_looks looks;
    std::memset(&looks, 0xA5, sizeof looks); // what stood there before is not kept
    looks.count = 0;
    ASSERT_EQ(varnel_looks_add(&looks, row.text.data(), row.text.size(), &DIGITS), ERR_OK);
    EXPECT_EQ(looks.looks[0].score, row.score);
    EXPECT_EQ(looks.looks[0].unproven, 0u);
    EXPECT_EQ(looks.looks[0].dropped, 0);
  }
}

TEST(Looks, KeepWhatIsDoubted) {
  varnel_looks looks = {};
  const std::string small = with_number("L8989o2C36");
  ASSERT_EQ(varnel_looks_add(&looks, small.data(), small.size(), &DIGITS), ERR_OK);
  EXPECT_EQ(looks.looks[0].unproven, 1u << VARNEL_DOCUMENT_NUMBER);
  EXPECT_EQ(looks.looks[0].dropped, 0);
  // Its notices are sexX and dropped.
  const std::string dropped = TOP + "L898902C36*UTO7408122X1204159ZE184226B<<<<<10\n";
  const varnel_inspect_options off = {2026, 11, 21, VARNEL_REPAIR_OFF};
  ASSERT_EQ(varnel_looks_add(&looks, dropped.data(), dropped.size(), &off), ERR_OK);
  ASSERT_EQ(looks.last.notice_count, 2);
  EXPECT_EQ(looks.looks[1].unproven, 0u);
  EXPECT_EQ(looks.looks[1].dropped, 1 << 1);
}

TEST(Looks, OneIsAnInspection) {
  for (const support::specimen &s : support::SPECIMENS) {
    const std::string page = std::string("PAGE\n") + s.zone;
    EXPECT_EQ(support::to_json(look({page})), support::inspect_to_json(page, DIGITS));
  }
  const std::string misread = TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n";
  const std::string others[] = {
      misread,
      FRENCH_TOP + FRENCH_LOW,
      LONG_NUMBER,
      TOP + "L898902C36UTO7408122X1204159ZE184226B<<<<<10\n", // has a notice
      "P<UTOERIKSS0N<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n" + LOW, // its names were changed
      // Nothing is known of the birth date.
      TOP + "L898902C36UTO<<<<<<<F1204159ZE184226B<<<<<18\n",
      "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nL898902C<3UTO<<<<<<<F9406236ZE184226\n",
  };
  for (const std::string &text : others) {
    EXPECT_EQ(support::to_json(look({text})), support::inspect_to_json(text, DIGITS));
  }
}

// Names have no digit: one look proves them where all its digits hold.
TEST(Looks, OneThatIsNotPerfectDoesNotProveItsNames) {
  const std::string passport = TOP + "L898902C3<UTO7408122F1204159ZE184226B<<<<<14\n";
  const std::string visa = "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nL898902C<<UTO6908061F9406236ZE184226\n";
  const ballot table[] = {
      {{passport},
       "doubtful",
       passport,
       "unproven primaryIdentifier, checkFailed documentNumber, checkFailed composite"},
      {{visa}, "doubtful", visa, "unproven primaryIdentifier, checkFailed documentNumber"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
  const std::string other_number = with_number("HKM3393937");
  const std::string other_expiry = with_expiry("1204158");
  expect({{other_number},
          "doubtful",
          other_number,
          "unproven primaryIdentifier, checkFailed documentNumber, unproven documentNumber, "
          "checkFailed composite"});
  expect({{other_expiry},
          "doubtful",
          other_expiry,
          "unproven primaryIdentifier, checkFailed expiryDate, checkFailed composite"});
  const std::string dropped = TOP + "L898902C36*UTO7408122F1204159ZE184226B<<<<<10\n";
  expect({{dropped}, "doubtful", TOP + LOW, "unproven primaryIdentifier"}, {2026, 11, 21, VARNEL_REPAIR_OFF});
}

TEST(Looks, OneThatShowsTheZoneIsTheWitness) {
  const std::string misread = TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n";
  EXPECT_EQ(look({misread, TOP + LOW}).verdict, VARNEL_VERDICT_VALID);
  const varnel_inspection repaired = look({misread, misread});
  EXPECT_EQ(repaired.verdict, VARNEL_VERDICT_REPAIRED);
  EXPECT_EQ(repaired.change_count, 1);
  EXPECT_EQ(repaired.source_count, 2);
}

// One look has the names, the other the number.
TEST(Looks, AreVotedWhereNoneShowsTheZone) {
  const std::string names_misread = "P<UTOERIKSSON<<ANHA<MARIA<<<<<ssss<<<<<<<<<<\n";
  const std::string number_misread = "L8Q8902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  const varnel_inspection inspection =
      look({TOP + number_misread, TOP + number_misread, names_misread + LOW});
  EXPECT_EQ(zone_of(inspection), TOP + LOW);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VOTED);
  EXPECT_EQ(inspection.source_count, 0);
  EXPECT_EQ(inspection.change_count, 0);
}

// The expiry dates of both fail; their columns together hold in one way.
TEST(Looks, DatesArePutTogetherFromTheirColumns) {
  const varnel_inspection inspection = look({TOP + "L898902C36UTO7408122F1284159ZE184226B<<<<<10\n",
                                             TOP + "L898902C36UTO7408122F1204189ZE184226B<<<<<10\n"});
  EXPECT_EQ(zone_of(inspection), TOP + LOW);
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VOTED);
}

TEST(Looks, DatesThatNoneShows) {
  const ballot table[] = {
      // The date of one and the digit of the other.
      {{with_expiry("1204158"), with_expiry("1284159")}, "voted", TOP + LOW, ""},
      // 120415 and 230415 have the same digit: the columns of these two hold in two ways, and are left alone.
      {{with_expiry("2204159"), with_expiry("1304159")},
       "doubtful",
       with_expiry("2204159"),
       "checkFailed expiryDate, checkFailed composite"},
      // In no way.
      {{with_expiry("1204158"), with_expiry("1204157")},
       "doubtful",
       with_expiry("1204158"),
       "checkFailed expiryDate, checkFailed composite"},
      // In one, which two pairs of looks show.
      {{with_expiry("1284159"), with_expiry("1204189"), with_expiry("1204189")}, "voted", TOP + LOW, ""},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

// As it was read is what a look can have meant, before its own inspection changed it.
TEST(Looks, NumbersThatNoneShows) {
  const ballot columns[] = {
      // Each look has one column right that the other misread.
      {{with_number("HKM9393931"), with_number("HKM3333931")}, "voted", with_number("HKM3393931"), ""},
      // A look-alike that no look shows is not taken.
      {{with_number("L8989O2C36"), with_number("L8989O2C36")},
       "doubtful",
       with_number("L8989O2C36"),
       "checkFailed documentNumber, checkFailed composite"},
  };
  for (const ballot &b : columns) {
    expect(b, COLUMNS);
  }
  const ballot digits[] = {
      {{with_number("L8989O2C36"), with_number("L8989O2C36")}, "repaired", TOP + LOW, ""},
      // A full-width letter is the letter.
      {{with_number("L8989\uFF2F2C36")}, "repaired", TOP + LOW, ""},
      {{with_number("L8989\uFF2F2C36"), with_number("L8989O2C36")}, "repaired", TOP + LOW, ""},
      // And a small one its capital.
      {{with_number("L8989o2C36"), with_number("L8989o2C36")}, "repaired", TOP + LOW, ""},
      // A column may have been six characters, and no seventh.
      {{with_number("HKMP393931"), with_number("HKMV393931"), with_number("HKMW393931"),
        with_number("HKMH393931"), with_number("HKMK393931"), with_number("HKM3393931")},
       "valid",
       with_number("HKM3393931"),
       ""},
      {{with_number("HKMP393931"), with_number("HKMV393931"), with_number("HKMW393931"),
        with_number("HKMH393931"), with_number("HKMK393931"), with_number("HKMR393931"),
        with_number("HKM3393931")},
       "doubtful",
       with_number("HKMP393931"),
       "checkFailed documentNumber, unproven documentNumber, checkFailed composite"},
      // HKM4493931 would hold as well, but is half as likely in each of the two columns: 80 % are enough.
      {{with_number("HKM4493937"), with_number("HKM3393931"), with_number("HKM3393931")},
       "valid",
       with_number("HKM3393931"),
       ""},
      // What has the other digit, or one other column and the other digit.
      {{with_number("HKM3393937"), with_number("HKM3393931")}, "valid", with_number("HKM3393931"), ""},
      {{with_number("HKM9393937"), with_number("HKM3393931")}, "valid", with_number("HKM3393931"), ""},
      // HKMVV93931 and HKM33WY931 hold, too: of numbers so plain 60 % are enough, of mixed ones 80.
      {{with_number("HKMV3W3931"), with_number("HKM3V9Y931"), with_number("HKM3393931")},
       "valid",
       with_number("HKM3393931"),
       ""},
      {{mixed_number("F3K9M39X3"), mixed_number("HVK9M39X3"), mixed_number("H3K9M39X3")},
       "valid",
       mixed_number("H3K9M39X3"),
       ""},
      {{mixed_number("F3K9M39X3"), mixed_number("HVK9M39X3")},
       "doubtful",
       mixed_number("H3K9M39X3"),
       "unproven documentNumber"},
      // Two looks have to be near the number: up to two other characters.
      {{with_number("PPM3393931"), with_number("HKMHP93931"), with_number("HKM33939P1")},
       "voted",
       with_number("HKM3393931"),
       ""},
      {{with_number("PPP3393931"), with_number("HKMHHH3931"), with_number("HKM339HHH1")},
       "doubtful",
       with_number("HKM3393931"),
       "unproven documentNumber"},
      {{with_number("HKM3393931"), with_number("HKMHHH3931"), with_number("HKM339HHH1")},
       "doubtful",
       with_number("HKM3393931"),
       "unproven documentNumber"},
      // Nothing that two look-alikes make of it holds.
      {{with_number("CFH3399331"), with_number("CFH3399331")},
       "doubtful",
       with_number("CFH3399331"),
       "checkFailed documentNumber, unproven documentNumber, checkFailed composite"},
  };
  for (const ballot &b : digits) {
    expect(b);
  }
}

// What the inspection of each look changed for a digit is taken back where numbers are not to be changed.
TEST(Looks, MayBeAskedAtAnotherLevel) {
  varnel_looks looks = {};
  const std::string text = with_number("L8989O2C36");
  ASSERT_EQ(varnel_looks_add(&looks, text.data(), text.size(), &DIGITS), ERR_OK);
  ASSERT_EQ(zone_of(looks.last), TOP + LOW);
  varnel_inspection inspection;
  ASSERT_EQ(varnel_looks_inspect(&looks, &COLUMNS, &inspection), ERR_OK);
  EXPECT_EQ(zone_of(inspection), text);
  EXPECT_EQ(findings_of(inspection), "checkFailed documentNumber, checkFailed composite");
}

// A number that goes on in the optional data is one look's, data and all.
TEST(Looks, LongNumbers) {
  std::string other = LONG_NUMBER; // its digit does not hold
  other.replace(other.find("7349"), 4, "7348");
  const ballot table[] = {
      {{LONG_NUMBER}, "valid", LONG_NUMBER, ""},
      {{LONG_NUMBER, LONG_NUMBER, other}, "valid", LONG_NUMBER, ""},
      {{LONG_NUMBER, other}, "doubtful", LONG_NUMBER, "unproven documentNumber"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, AtFrenchCards) {
  const std::string other_office = "IDFRABERTHIER<<<<<<<<<<<<<<<<<952043\n";
  const ballot table[] = {
      {{FRENCH_TOP + FRENCH_LOW, FRENCH_TOP + FRENCH_LOW}, "valid", FRENCH_TOP + FRENCH_LOW, ""},
      // What was changed after the names does not speak against them.
      {{FRENCH_TOP + "8806923102858CORINNE<<<<<<<65I2O68F0\n",
        FRENCH_TOP + "8806923102858C0RINME<<<<<<<6512068F0\n"},
       "repaired",
       FRENCH_TOP + FRENCH_LOW,
       ""},
      // No number of this card goes on in other fields: those are voted, even with a filler for its digit.
      {{other_office + "880692310285<CORINNE<<<<<<<6512068F4\n",
        FRENCH_TOP + "880692310285<CORINNE<<<<<<<6572068F4\n"},
       "doubtful",
       FRENCH_TOP + "880692310285<CORINNE<<<<<<<6512068F4\n",
       "checkFailed documentNumber"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, NamesThatNoneShows) {
  const std::string anna = "ERIKSSON<<ANNA<MARIA";
  const ballot table[] = {
      // Each column by its majority.
      {{with_names("ERIKSSON<<ANHA<MARIA"), with_names("ERIKSSOM<<ANNA<MARIA"),
        with_names("ERIKSSON<<ANNA<MARLA")},
       "voted",
       with_names(anna),
       ""},
      // Not among names of other lengths.
      {{with_names("ERIKSSON<<ANHA<MARIA"), with_names("ERIKSSOM<<ANNA<MARIA"),
        with_names("ERIKSSON<<ANNA<MARI")},
       "doubtful",
       with_names("ERIKSSON<<ANHA<MARIA"),
       "unproven primaryIdentifier"},
      {{with_names("ERIKSSON<<ANNA<MARI"), with_names("ERIKSSON<<ANHA<MARIA"),
        with_names("ERIKSSOM<<ANNA<MARIA"), with_names("ERIKSSON<<ANNA<MARLA")},
       "voted",
       with_names(anna),
       ""},
      // Without a majority in each column, the names are one look's as they stand.
      {{with_names("ERIKSSOM<<ANHA<MARIA"), with_names("ERIKSSON<<ANMA<MARIA"),
        with_names("ERIKSSON<<ANNA<MARLA")},
       "doubtful",
       with_names("ERIKSSOM<<ANHA<MARIA"),
       "unproven primaryIdentifier"},
      // Two looks that differ are no majority.
      {{with_names("ERIKSSON<<ANHA<MARIA"), with_names(anna)},
       "doubtful",
       with_names("ERIKSSON<<ANHA<MARIA"),
       "unproven primaryIdentifier"},
      {{with_names(""), with_names("ERIKSSON<<ANHA<MARIA"), with_names(anna)},
       "doubtful",
       with_names(""),
       "empty primaryIdentifier, unproven primaryIdentifier"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, AtTwoDocumentsAreNeverOneAnswer) {
  const std::string other = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                            "X123456785UTO7408122F1204159<<<<<<<<<<<<<<00\n";
  ASSERT_EQ(support::inspect(other).verdict, VARNEL_VERDICT_VALID);
  for (const varnel_inspection &inspection :
       {look({TOP + LOW, other}), look({other, TOP + LOW}), look({TOP + LOW, TOP + LOW, TOP + LOW, other})}) {
    EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_DOUBTFUL);
    EXPECT_TRUE(has_finding(inspection, VARNEL_FINDING_LOOKS_DIFFER, VARNEL_DOCUMENT_NUMBER));
  }
}

// The optional data of one look and those of another, where the composite holds with them.
TEST(Looks, OptionalData) {
  const auto card = [](const std::string &upper, const std::string &lower) {
    return "I<UTOD231458907" + upper + "<<<<<<<<<<<\n7408122F1204159UTO" + lower +
           "<<<<<<<4\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n";
  };
  const ballot table[] = {
      {{card("AB72", "CD34"), card("AB12", "CD94")}, "voted", card("AB12", "CD34"), ""},
      {{card("AB12", "CD94"), card("AB72", "CD34")}, "voted", card("AB12", "CD34"), ""},
      // Where it never holds, those of the strongest.
      {{card("AB72", "CD34"), card("AB92", "CD34")},
       "doubtful",
       card("AB72", "CD34"),
       "checkFailed composite"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, DatesThatDifferAreOfTwoDocuments) {
  const std::string other = TOP + "L898902C36UTO7408122F2204156ZE184226B<<<<<18\n";
  ASSERT_EQ(support::inspect(other).verdict, VARNEL_VERDICT_VALID);
  expect({{TOP + LOW, other}, "doubtful", TOP + LOW, "looksDiffer expiryDate"});
}

// Passports and cards with one number may be one person's, or a card read in two layouts.
TEST(Looks, OfOneNumberAreNotOfTwoDocuments) {
  const std::string card = support::SPECIMENS[0].zone;
  expect({{card, card, support::SPECIMENS[1].zone}, "valid", card, ""});
}

// However little holds, a look has a vote.
TEST(Looks, WeakOnesVote) {
  const auto weak = [](const std::string &nationality) {
    return "P<D<<ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nHKM3393937" + nationality +
           "7408123F1204158ZE184226B<<<<<55\n";
  };
  varnel_inspection inspection = look({weak("FRA"), weak("GBR"), weak("GBR")});
  EXPECT_EQ(zone_of(inspection), weak("GBR"));
  EXPECT_FALSE(has_finding(inspection, VARNEL_FINDING_UNPROVEN, VARNEL_NATIONALITY));
  inspection = look({weak("FRA")});
  EXPECT_EQ(zone_of(inspection), weak("FRA"));
  EXPECT_FALSE(has_finding(inspection, VARNEL_FINDING_UNPROVEN, VARNEL_NATIONALITY));
}

// Cards of two layouts, whose numbers are of different lengths.
TEST(Looks, AtTwoCardsAreNeverOneAnswer) {
  const std::string card = support::SPECIMENS[1].zone;
  const ballot table[] = {
      {{FRENCH_TOP + FRENCH_LOW, card, FRENCH_TOP + FRENCH_LOW},
       "doubtful",
       FRENCH_TOP + FRENCH_LOW,
       "looksDiffer documentNumber"},
      {{card, FRENCH_TOP + FRENCH_LOW}, "doubtful", card, "looksDiffer documentNumber"},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, StatesThatTieAreUnproven) {
  const std::string other = "L898902C36GBR7408122F1204159ZE184226B<<<<<10\n";
  const varnel_inspection inspection =
      look({"P<GBRERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n" + LOW, TOP + other});
  EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_DOUBTFUL);
  EXPECT_TRUE(has_finding(inspection, VARNEL_FINDING_UNPROVEN, VARNEL_NATIONALITY));
}

// What two looks show alike stays a tie beside a weaker third, and is none beside a stronger one.
TEST(Looks, StatesThatTieAmongThree) {
  const auto zone = [](const std::string &nationality) {
    return "P<D<<ERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36" + nationality +
           "7408122F1204159ZE184226B<<<<<10\n";
  };
  const auto weaker = [&zone](const std::string &nationality) { // the composite was read as 1O
    std::string text = zone(nationality);
    text[text.size() - 2] = 'O';
    return text;
  };
  const ballot table[] = {
      {{zone("FRA"), zone("GBR"), weaker("ITA")}, "doubtful", zone("FRA"), "unproven nationality"},
      {{weaker("FRA"), weaker("GBR"), zone("ITA")}, "valid", zone("ITA"), ""},
      {{weaker("FRA"), zone("GBR"), weaker("ITA")}, "valid", zone("GBR"), ""},
  };
  for (const ballot &b : table) {
    expect(b);
  }
}

TEST(Looks, TheWeakestGivesWay) {
  const std::string weak = TOP + "L8Q8902C36UT07408122F1204159ZE184226B<<<<<10\n";
  const std::string strong = TOP + LOW;
  for (int weakest = 0; weakest < VARNEL_LOOKS; ++weakest) {
    varnel_looks looks = {};
    for (int i = 0; i < VARNEL_LOOKS; ++i) {
      const std::string &text = i == weakest ? weak : strong;
      ASSERT_EQ(varnel_looks_add(&looks, text.data(), text.size(), &DIGITS), ERR_OK);
    }
    EXPECT_EQ(looks.looks[weakest].change_count, 1);
    ASSERT_EQ(varnel_looks_add(&looks, strong.data(), strong.size(), &DIGITS), ERR_OK);
    EXPECT_EQ(looks.looks[weakest].change_count, 0);
    ASSERT_EQ(varnel_looks_add(&looks, weak.data(), weak.size(), &DIGITS), ERR_OK);
    for (const varnel_look &kept : looks.looks) {
      EXPECT_EQ(kept.change_count, 0);
    }
    EXPECT_EQ(looks.count, VARNEL_LOOKS);
    varnel_inspection inspection;
    EXPECT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_OK);
    EXPECT_EQ(inspection.verdict, VARNEL_VERDICT_VALID);
  }
}

// Equally weak, the first look gives way to a stronger one; an equally strong one changes nothing.
TEST(Looks, OfEqualOnesTheFirstGivesWay) {
  varnel_looks looks = {};
  const std::string changed = TOP + "L898902C36UT07408122F1204159ZE184226B<<<<<10\n";
  const std::string unchanged = TOP + LOW;
  for (int i = 0; i < VARNEL_LOOKS; ++i) {
    varnel_looks_add(&looks, changed.data(), changed.size(), &DIGITS);
  }
  const std::string other = TOP + "L898902C36UTO7408122F12O4159ZE184226B<<<<<10\n"; // changed as much
  varnel_looks_add(&looks, other.data(), other.size(), &DIGITS);
  for (const varnel_look &kept : looks.looks) {
    EXPECT_EQ(kept.changes[0].column, 12);
  }
  varnel_looks_add(&looks, unchanged.data(), unchanged.size(), &DIGITS);
  EXPECT_EQ(looks.looks[0].change_count, 0);
  EXPECT_EQ(looks.looks[1].change_count, 1);
}

// Three frames of a document by one reader: the numbers recorded may only improve.
TEST(Looks, OfScannedTexts) {
  scans::tally tally;
  for (const char *file : {"100-documents.jsonl", "200-documents.jsonl"}) {
    std::map<std::pair<std::string, std::string>, std::vector<scans::scan>> documents;
    for (const scans::scan &s : scans::load(std::string(VARNEL_DOCUMENT_TESTS_DIR "/scans/") + file)) {
      if (s.level == "clean" || s.level == "mild" || s.level == "tilt") {
        documents[{s.id, s.reader}].push_back(s);
      }
    }
    const std::vector<scans::scan> *previous = nullptr;
    for (const auto &[document, frames] : documents) {
      varnel_looks looks = {};
      for (const scans::scan &s : frames) {
        varnel_looks_add(&looks, s.text.data(), s.text.size(), &DIGITS);
      }
      varnel_inspection inspection;
      ASSERT_EQ(varnel_looks_inspect(&looks, &DIGITS, &inspection), ERR_OK);
      tally.add(inspection, frames[0]);
      // Frames of the next document among them: not an answer, unless one of the two shows too little to be
      // seen.
      if (previous != nullptr && (*previous)[0].id != frames[0].id) {
        varnel_looks mixed = {};
        int answers[2] = {};
        for (int i = 0; i < 2; ++i) {
          for (const scans::scan &s : i == 0 ? *previous : frames) {
            varnel_looks_add(&mixed, s.text.data(), s.text.size(), &DIGITS);
            answers[i] += scans::is_answer(mixed.last);
          }
        }
        varnel_looks_inspect(&mixed, &DIGITS, &inspection);
        if (answers[0] > 0 && answers[1] > 0) {
          EXPECT_FALSE(scans::is_answer(inspection)) << document.first;
        }
      }
      previous = &frames;
    }
  }
  EXPECT_EQ(tally.texts, 800);
  EXPECT_GE(tally.right, 544);
  EXPECT_LE(tally.wrong, 2);
}

} // namespace
