// varnel specimen: zones of made-up people, for tests.
#include "commands.hpp"
#include "complaints.hpp"
#include "platform.hpp"
#include "quoting.hpp"
#include "zones.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>

namespace varnel::cli {

namespace {

constexpr option LAYOUT_OPTION = {"layout", "TD1|TD2|TD3|MRV-A|MRV-B",
                                  "The layout of the zones: TD1, TD2, TD3, MRV-A or MRV-B (default: any)"};
constexpr option COUNT_OPTION = {"count", "NUMBER", "How many zones (default: 1)"};
constexpr option SEED_OPTION = {"seed", "NUMBER",
                                "The same seed makes the same zones (default: another each time)"};

// The same numbers from the same seed, on every machine.
class random_numbers {
public:
  explicit random_numbers(std::uint64_t seed) : state_(seed) {}

  // From low to high.
  int between(int low, int high) {
    return low + static_cast<int>(next() % static_cast<std::uint64_t>(high - low + 1));
  }

  bool one_in(int n) { return between(1, n) == 1; }

  template <class T, std::size_t Count> const T &one_of(const T (&list)[Count]) {
    return list[next() % Count];
  }

private:
  // SplitMix64.
  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
  }

  std::uint64_t state_;
};

// Nobody is called so; the letters are those that people have.
constexpr const char *FAMILY_NAMES[] = {
    "Quillfeather",   "Bramblewick",   "Oakenshield-Marlow", "Fenwick",
    "Waverley",       "O'Thistledown", "Müllerström",        "Ærøhavn",
    "van der Poppel", "Þornsdóttir",   "Łękowiczka",         "Çiçekdağlı",
    "d’Arbrevert",    "Ñublalba",      "Őszvirághy",         "Šípkovský",
    "Грушевенко",     "Щукин-Лесной",  "نجمةالبحر",          "Hawthornbury Featherstonehaugh Applecross"};
constexpr const char *GIVEN_NAMES[] = {"Tamsin Oda",
                                       "Otto",
                                       "Mira",
                                       "Ada",
                                       "Iris Marlène",
                                       "Jörg",
                                       "Zoë-Renée",
                                       "Åsa",
                                       "Björn Ívar",
                                       "Оксана",
                                       "Юрий",
                                       "ليلى",
                                       "Ståle",
                                       "Quentin Xavier Leopold Barnaby",
                                       ""};
constexpr const char *NATIONALITIES[] = {"UTO", "UTO", "UTO", "UTO", "UTO", "XXA", "XXB", "XXC", "XXX"};
constexpr const char *SEXES[] = {"M", "F", "X"};

std::string two_digits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string date_of(int year, const std::string &month, const std::string &day) {
  return std::to_string(year) + "-" + month + "-" + day;
}

// The values of a made-up document.
class specimen {
public:
  specimen(random_numbers &random, int layout) {
    fields_.layout = layout;
    fields_.document_code = code_of(random);
    fields_.issuing_state = "UTO";
    number_ = characters(random, random.between(7, 9));
    if ((layout == VARNEL_LAYOUT_TD1 || layout == VARNEL_LAYOUT_TD2) && random.one_in(4)) {
      number_ += characters(random, random.between(4, 5));
    }
    fields_.document_number = number_.c_str();
    fields_.nationality = random.one_of(NATIONALITIES);
    birth_ = birth_date(random);
    fields_.birth_date = birth_.c_str();
    fields_.sex = random.one_of(SEXES);
    expiry_ = date_of(random.between(2030, 2039), two_digits(random.between(1, 12)),
                      two_digits(random.between(1, 28)));
    fields_.expiry_date = expiry_.c_str();
    fields_.primary_identifier = random.one_of(FAMILY_NAMES);
    fields_.secondary_identifier = random.one_of(GIVEN_NAMES);
    optional_ = random.one_in(3) ? characters(random, random.between(4, 8)) : "";
    set_optional_data();
  }
  specimen(const specimen &) = delete;
  specimen &operator=(const specimen &) = delete;

  const varnel_compose_fields &fields() const { return fields_; }

private:
  const char *code_of(random_numbers &random) const {
    constexpr const char *card_codes[] = {"I", "ID", "A", "C"};
    constexpr const char *passport_codes[] = {"P", "PP", "PD", "PO"};
    constexpr const char *visa_codes[] = {"V", "VC"};
    switch (fields_.layout) {
    case VARNEL_LAYOUT_TD3:
      return random.one_of(passport_codes);
    case VARNEL_LAYOUT_MRV_A:
    case VARNEL_LAYOUT_MRV_B:
      return random.one_of(visa_codes);
    default:
      return random.one_of(card_codes);
    }
  }

  static std::string characters(random_numbers &random, int count) {
    constexpr std::string_view known = "0123456789ABCDEFGHJKLMNPRSTUVWXYZ";
    std::string made;
    for (int i = 0; i < count; ++i) {
      made += known[static_cast<std::size_t>(random.between(0, static_cast<int>(known.size()) - 1))];
    }
    return made;
  }

  // Now and then with unknown parts. The years keep their century for a reference date of the decades around
  // 2030.
  static std::string birth_date(random_numbers &random) {
    const int year = random.between(1945, 2019);
    const std::string month = two_digits(random.between(1, 12));
    const std::string day = two_digits(random.between(1, 28));
    const int kind = random.between(1, 30);
    return kind == 1   ? ""
           : kind == 2 ? date_of(year, "XX", "XX")
                       : date_of(year, month, kind == 3 ? "XX" : day);
  }

  void set_optional_data() {
    switch (fields_.layout) {
    case VARNEL_LAYOUT_TD1:
      fields_.optional_data_2 = optional_.c_str();
      break;
    case VARNEL_LAYOUT_TD2: // a long number leaves no room
      optional_.resize(number_.size() > 9 ? 0 : std::min<std::size_t>(optional_.size(), 7));
      fields_.optional_data = optional_.c_str();
      break;
    case VARNEL_LAYOUT_TD3:
      fields_.personal_number = optional_.c_str();
      break;
    default:
      fields_.optional_data = optional_.c_str();
    }
  }

  varnel_compose_fields fields_ = {};
  std::string number_;
  std::string birth_;
  std::string expiry_;
  std::string optional_;
};

bool read_number(std::string_view text, std::uint64_t &number) {
  const char *const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

int run(const arguments &asked, output &out) {
  std::uint64_t count = 1;
  std::uint64_t seed = 0;
  for (const auto &[option, number] : {std::pair{&COUNT_OPTION, &count}, {&SEED_OPTION, &seed}}) {
    if (asked.has(option->name) && !read_number(asked.value(option->name), *number)) {
      return complain_of_usage("--" + std::string(option->name) + " " + in_quotes(asked.value(option->name)) +
                               " is not a number");
    }
  }
  if (!asked.has(SEED_OPTION.name)) {
    std::random_device device;
    seed = std::uint64_t{device()} << 32 | device();
  }
  random_numbers random(seed);
  for (std::uint64_t i = 0; i < count && out.error() == 0 && !stopped(); ++i) {
    const int layout = asked.has(LAYOUT_OPTION.name) ? layout_named(asked.value(LAYOUT_OPTION.name))
                                                     : random.one_of(COMPOSED_LAYOUTS).id;
    const specimen made(random, layout);
    put_zone(out, compose(made.fields()), wants_json(asked));
  }
  return EXIT_ALL_READ;
}

} // namespace

const command SPECIMEN_COMMAND = {
    "specimen",
    "Make zones of invented people, for tests",
    "",
    "",
    false,
    {LAYOUT_OPTION, COUNT_OPTION, SEED_OPTION, ZONE_FORMAT_OPTION},
    "  varnel specimen --layout TD3           a passport of Utopia\n"
    "  varnel specimen --count 1000 --seed 7  a thousand documents, the same each time\n",
    run};

} // namespace varnel::cli
