// What is composed is valid when inspected, and the values of that inspection compose to the same zone,
// character for character: random documents of all layouts. VARNEL_ROUND_TRIPS says how many, VARNEL_SEED
// which ones.
#include "../cases.hpp"
#include "composing.hpp"

#include <Varnel/documents.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

namespace {

using text = std::string;

class random_documents {
public:
  explicit random_documents(unsigned long long seed) : engine_(seed) {}

  int number(int low, int high) {
    return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
  }
  bool one_in(int n) { return number(1, n) == 1; }

  template <class List> auto pick(const List &list) {
    return list[static_cast<size_t>(number(0, static_cast<int>(std::size(list)) - 1))];
  }

  // Capitals and digits, now and then with separators.
  text some_number(int longest, bool may_be_separated) {
    constexpr std::string_view characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    constexpr std::array<const char *, 5> separators = {" ", "-", ", ", "\u2013", "\u00A0"};
    text made;
    const int length = number(1, longest);
    for (int i = 0; i < length; ++i) {
      const bool separated = may_be_separated && i > 0 && i + 1 < length && one_in(6);
      if (separated) {
        made += pick(separators);
        ++i;
      }
      made += pick(characters);
    }
    return made;
  }

  text name() {
    constexpr std::array<const char *, 40> letters = {
        "A", "b", "E", "i", "N",       "o",       "S",       "t", "Ä", "ö", "Ü",       "ß", "ø", "Å",
        "ñ", "þ", "Ș", "ấ", "ǘ",       "I\u0307", "Ш",       "щ", "є", "Ї", "й",       "ь", "Ю", "Г",
        "Ћ", "ه", "ة", "ش", "ب\u0651", "چ",       "a\u0308", "'", "’", ".", "z\u0301", "ﬁ"};
    constexpr std::array<const char *, 6> separators = {" ", "-", ", ", "\u2010", "  ", "\u060C"};
    text made = one_in(2) ? "K" : "ж";
    const int length = number(0, one_in(4) ? 60 : 14);
    const int word = number(1, 12);
    for (int i = 0; i < length; ++i) {
      made += one_in(word + 1) ? pick(separators) : pick(letters);
    }
    return made;
  }

private:
  std::mt19937_64 engine_;
};

text two_digits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

text date_text(int year, int month, int day) {
  return two_digits(year / 100) + two_digits(year % 100) + "-" + (month > 0 ? two_digits(month) : "XX") +
         "-" + (day > 0 ? two_digits(day) : "XX");
}

constexpr std::array<const char *, 12> STATES = {"UTO", "D",   "XXA", "XXK", "FRA", "GBD",
                                                 "UNO", "ZWE", "RKS", "CHE", "EUE", "USA"};

struct random_document {
  int layout = VARNEL_LAYOUT_TD3;
  text code, state, number, nationality, birth, sex, expiry, primary, secondary, data_1, data_2, data,
      personal;
  const char *language = nullptr;
  varnel_inspect_options reference = {};

  explicit random_document(random_documents &random) {
    constexpr std::array<const char *, 6> languages = {nullptr, "be", "bg", "mk", "sr", "uk"};
    layout = random.number(VARNEL_LAYOUT_TD1, VARNEL_LAYOUT_MRV_B);
    language = random.pick(languages);
    state = random.pick(STATES);
    nationality = random.pick(STATES);
    sex = random.pick(std::array<const char *, 3>{"M", "F", "X"});
    primary = random.name();
    secondary = random.one_in(5) ? "" : random.name();
    make_code(random);
    make_dates(random);
    make_numbers(random);
  }

  void make_code(random_documents &random) {
    const bool is_card = layout == VARNEL_LAYOUT_TD1 || layout == VARNEL_LAYOUT_TD2;
    code = layout == VARNEL_LAYOUT_TD3 ? "P"
           : is_card                   ? random.pick(std::array<const char *, 3>{"A", "C", "I"})
                                       : "V";
    if (random.one_in(2)) {
      code += random.pick(std::string_view("ABCDEFGHIJKLMNOPQRSTUWXYZ09")); // no V, which cards must not have
    }
    if (layout == VARNEL_LAYOUT_TD2 && code == "ID" && state == "FRA") {
      state = "UTO";
    }
  }

  // A reference date, and dates whose centuries it gives: birth within the hundred years before it, expiry
  // within fifty on either side and not before birth.
  void make_dates(random_documents &random) {
    reference = {random.number(1950, 2090), random.number(1, 12), random.number(1, 28), VARNEL_REPAIR_OFF};
    const int age = random.number(1, 99);
    const int birth_year = reference.year - age;
    const int birth_month = random.one_in(15) ? 0 : random.number(1, 12);
    const int birth_day = birth_month == 0 || random.one_in(15) ? 0 : random.number(1, 28);
    birth = random.one_in(20) ? "" : date_text(birth_year, birth_month, birth_day);
    const int first = reference.year - (age < 50 ? age - 1 : 49);
    expiry = date_text(random.number(first, reference.year + 50), random.number(1, 12), random.number(1, 28));
  }

  void make_numbers(random_documents &random) {
    const bool may_be_long = layout == VARNEL_LAYOUT_TD1 || layout == VARNEL_LAYOUT_TD2;
    const int longest = layout == VARNEL_LAYOUT_TD1 ? 22 : 14;
    const bool is_long = may_be_long && random.one_in(3);
    number = is_long ? random.some_number(longest, false) : random.some_number(9, true);
    // What a long number leaves of the optional data: a digit and a filler go as well.
    const int taken = number.size() > 9 && is_long ? static_cast<int>(number.size()) - 9 + 2 : 0;
    const auto some = [&random](int room) {
      return room < 1 || random.one_in(3) ? "" : random.some_number(room, true);
    };
    switch (layout) {
    case VARNEL_LAYOUT_TD1:
      data_1 = some(15 - taken);
      data_2 = some(11);
      break;
    case VARNEL_LAYOUT_TD2:
      data = some(7 - taken);
      break;
    case VARNEL_LAYOUT_TD3:
      personal = some(14);
      break;
    default:
      data = some(layout == VARNEL_LAYOUT_MRV_A ? 16 : 8);
    }
  }

  varnel_compose_fields fields() const {
    varnel_compose_fields made = {};
    made.layout = layout;
    made.document_code = code.c_str();
    made.issuing_state = state.c_str();
    made.document_number = number.c_str();
    made.nationality = nationality.c_str();
    made.birth_date = birth.c_str();
    made.sex = sex.c_str();
    made.expiry_date = expiry.c_str();
    made.primary_identifier = primary.c_str();
    made.secondary_identifier = secondary.c_str();
    made.optional_data_1 = data_1.c_str();
    made.optional_data_2 = data_2.c_str();
    made.optional_data = data.c_str();
    made.personal_number = personal.c_str();
    return made;
  }
};

std::string joined(const varnel_zone &zone) {
  std::string all;
  for (int i = 0; i < zone.line_count; ++i) {
    all += zone.lines[i];
    all += '\n';
  }
  return all;
}

// The values of an inspection, as composing takes them.
varnel_compose_fields values_of(const varnel_inspection &inspection) {
  const auto value = [&inspection](int id) -> const char * {
    for (int i = 0; i < inspection.field_count; ++i) {
      if (inspection.fields[i].field == id) {
        return inspection.fields[i].has_value != 0 ? inspection.fields[i].value : nullptr;
      }
    }
    return nullptr;
  };
  varnel_compose_fields made = {};
  made.layout = inspection.layout;
  made.document_code = value(VARNEL_DOCUMENT_CODE);
  made.issuing_state = value(VARNEL_ISSUING_STATE);
  made.document_number = value(VARNEL_DOCUMENT_NUMBER);
  made.nationality = value(VARNEL_NATIONALITY);
  made.birth_date = value(VARNEL_BIRTH_DATE);
  made.sex = value(VARNEL_SEX);
  made.expiry_date = value(VARNEL_EXPIRY_DATE);
  made.primary_identifier = value(VARNEL_PRIMARY_IDENTIFIER);
  made.secondary_identifier = value(VARNEL_SECONDARY_IDENTIFIER);
  made.optional_data_1 = value(VARNEL_OPTIONAL_DATA_1);
  made.optional_data_2 = value(VARNEL_OPTIONAL_DATA_2);
  made.optional_data = value(VARNEL_OPTIONAL_DATA);
  made.personal_number = value(VARNEL_PERSONAL_NUMBER);
  return made;
}

unsigned long long setting(const char *name, unsigned long long otherwise) {
  const char *value = std::getenv(name);
  return value != nullptr ? std::strtoull(value, nullptr, 10) : otherwise;
}

TEST(RoundTrip, RandomDocuments) {
  const unsigned long long seed = setting("VARNEL_SEED", std::random_device()());
  const unsigned long long count = setting("VARNEL_ROUND_TRIPS", support::cases(100000u));
  std::printf("VARNEL_SEED=%llu VARNEL_ROUND_TRIPS=%llu\n", seed, count);
  random_documents random(seed);
  for (unsigned long long i = 0; i < count; ++i) {
    const random_document made(random);
    const varnel_compose_fields fields = made.fields();
    const varnel_compose_options options = {made.language};
    varnel_zone zone = {};
    varnel_compose_error error = {};
    ASSERT_EQ(varnel_compose(&fields, &options, &zone, &error), ERR_OK)
        << "document " << i << ", field " << error.field << ", reason " << error.reason << ", position "
        << error.position << ": " << made.number << " / " << made.primary << " / " << made.secondary;
    const std::string lines = joined(zone);

    varnel_inspection inspection;
    ASSERT_EQ(varnel_inspect(lines.data(), lines.size(), &made.reference, &inspection), ERR_OK);
    ASSERT_EQ(inspection.verdict, VARNEL_VERDICT_VALID) << "document " << i << "\n" << lines;
    ASSERT_EQ(inspection.layout, made.layout) << lines;

    varnel_zone again = {};
    const varnel_compose_fields values = values_of(inspection);
    ASSERT_EQ(varnel_compose(&values, nullptr, &again, &error), ERR_OK)
        << "document " << i << ", field " << error.field << ", reason " << error.reason << "\n"
        << lines;
    ASSERT_EQ(joined(again), lines) << "document " << i;
  }
}

} // namespace
