// Calls every exported function and counts what the malloc family is asked for meanwhile: nothing.
//
// `--list` prints the functions that are called, for the gate to compare with the exported ones.
#include <Varnel/Varnel.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

int requests = 0;
bool counting = false;

void count_request() { requests += counting ? 1 : 0; }

} // namespace

// The family, in front of the C library's: a pool that is never given back is enough for this program.
extern "C" {

void *malloc(size_t size) {
  alignas(16) static char pool[1 << 20];
  static size_t used = 0;
  count_request();
  const size_t start = used;
  used += (size + 31) / 16 * 16;
  if (used > sizeof pool) {
    abort();
  }
  return pool + start;
}

void *calloc(size_t count, size_t size) { return malloc(count * size); } // the pool starts zeroed

void *realloc(void *old, size_t size) {
  void *grown = malloc(size);
  return old == nullptr ? grown : memmove(grown, old, size);
}

void *aligned_alloc(size_t, size_t size) { return malloc(size); }

void *memalign(size_t, size_t size) { return malloc(size); }

int posix_memalign(void **out, size_t, size_t size) {
  *out = malloc(size);
  return 0;
}

void free(void *) { count_request(); }

} // extern "C"

namespace {

constexpr char PASSPORT[] = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                            "L898902C36UTO7408122F1204159ZE184226B<<<<<10";
constexpr char CARD_TD2[] = "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
                            "D231458907UTO7408122F1204159<<<<<<<6";
constexpr char CARD_TD1[] = "I<UTOD231458907<<<<<<<<<<<<<<<"
                            "7408122F1204159UTO<<<<<<<<<<<6"
                            "ERIKSSON<<ANNA<MARIA<<<<<<<<<<";
constexpr char VISA[] = "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                        "L8988901C4XXX4009078F96121096ZE184226B<<<<<<";

const CONTEXT context = {{2018, 2, 15, 0, 0, 0}};
const DATETIME date = {1974, 8, 12, 0, 0, 0};

char buffer[VARNEL_BUFFER_SIZE];
char out[64];
PARSE_RESULT record;
STRING views[4];
SOUNDEX_CODE soundex;
DATETIME read_date;
int number;

STRING name() {
  const STRING view = {" Anna Maria Eriksson ", 21};
  return view;
}

const STRING &fresh_name(int at = 0) {
  views[at] = name();
  return views[at];
}

PARSE_RESULT *fresh_record() {
  result_init(&record, buffer, sizeof buffer);
  return &record;
}

int write_nothing(void *, char *, int) { return 0; }

int parse_with(int (*parse)(const char *, int, PARSE_RESULT *, const CONTEXT *), const char *zone) {
  return parse(zone, static_cast<int>(strlen(zone)), fresh_record(), &context);
}

// How many times `f` says yes: each test of a character is called on every character.
int count_yes(int (*f)(int)) {
  int yes = 0;
  for (int c = -128; c < 128; ++c) {
    yes += f(c) != 0 ? 1 : 0;
  }
  return yes;
}

struct call {
  const char *function;
  void (*run)();
};

#define CALL(function, ...)                                                                                  \
  {                                                                                                          \
#function, [] { (void)function(__VA_ARGS__); }                                                           \
  }
#define TEST(function)                                                                                       \
  {                                                                                                          \
#function, [] { number = count_yes(function); }                                                          \
  }
#define PARSE(function, zone)                                                                                \
  {                                                                                                          \
#function, [] { number = parse_with(function, zone); }                                                   \
  }

const call CALLS[] = {
    CALL(result_init, &record, buffer, sizeof buffer),
    CALL(result_clear, fresh_record()),
    CALL(varnel_utf16_length, PASSPORT, strlen(PASSPORT)),
    CALL(varnel_parse_mrz, PASSPORT, static_cast<int>(strlen(PASSPORT)), &record, buffer, sizeof buffer),
    CALL(varnel_value, fresh_record(), FIELD_FAMILY_NAME),
    {"varnel_read",
     [] {
       varnel_document document;
       number = varnel_read(PASSPORT, strlen(PASSPORT), &document);
     }},
    {"varnel_export",
     [] {
       VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
       varnel_export(fresh_record(), pairs);
     }},

    CALL(normalize_mrz, PASSPORT, static_cast<int>(strlen(PASSPORT)), out, sizeof out, &number),
    CALL(MRZ_common_calc_control_sum, PASSPORT, 44, nullptr),
    CALL(MRZ_common_validate_control_sum, 12, '2'),
    {"MRZ_common_extract_cc",
     [] {
       const STRING code = {"UTO", 3};
       MRZ_common_extract_cc(&code, out);
     }},
    {"MRZ_common_extract_date",
     [] {
       const STRING digits = {"740812", 6};
       MRZ_common_extract_date(&digits, &read_date);
     }},
    {"MRZ_common_extract_name",
     [] {
       const STRING zone = {PASSPORT + 5, 39};
       MRZ_common_extract_name(&zone, &views[0], &views[1], &views[2], &views[3]);
     }},
    TEST(MRZ_common_pattern_valid_mrz),
    TEST(MRZ_common_pattern_valid_mrz_cc),
    TEST(MRZ_common_pattern_valid_mrz_date),
    TEST(MRZ_common_pattern_valid_mrz_name),
    PARSE(MRZ_passport_parse, PASSPORT),
    PARSE(MRZ_td1_parse, CARD_TD1),
    PARSE(MRZ_td2_parse, CARD_TD2),
    PARSE(MRZ_visa_parse, VISA),

    CALL(utils_strcpy, out, sizeof out, &fresh_name(), "a", " ", '-'),
    CALL(utils_strcpy_f, out, sizeof out, &fresh_name(), pattern_isNotDigit, pattern_is_w, '-'),
    CALL(utils_strcpy_array, out, sizeof out, &fresh_name(), 1, ' ', "a", " ", '-'),
    CALL(utils_strwrite, out, sizeof out, &fresh_name(), "a", " ", '-'),
    CALL(utils_strwrite_f, out, sizeof out, &fresh_name(), pattern_isNotDigit, pattern_is_w, '-'),
    CALL(utils_strwrite_s, out, sizeof out, "Anna"),
    CALL(utils_strwrite_array, out, sizeof out, &fresh_name(), 1, ' ', "a", " ", '-'),
    CALL(utils_write_field, fresh_record(), FIELD_SEX, &fresh_name(), "a", " ", '-'),
    CALL(utils_write_field_f, fresh_record(), FIELD_SEX, &fresh_name(), pattern_is_w, pattern_is_w, '-'),
    CALL(utils_write_field_s, fresh_record(), FIELD_SEX, "F"),
    CALL(utils_write_field_w, fresh_record(), FIELD_SEX, nullptr, write_nothing),
    CALL(utils_write_field_array, fresh_record(), FIELD_SEX, &fresh_name(), 1, ' ', "a", " ", '-'),
    CALL(utils_write_field_date, fresh_record(), FIELD_BIRTH_DATE, &date),
    CALL(utils_get_valid_field, fresh_record(), &number, 0, &views[0]),
    CALL(utils_is_valid_field, fresh_record(), FIELD_SEX),
    CALL(utils_itoa, 12345, out, sizeof out, 0),
    CALL(utils_itoch, 7),

    {"utils_strtrim_begin", [] { fresh_name(), utils_strtrim_begin(&views[0], 3); }},
    {"utils_strtrim_start", [] { fresh_name(), utils_strtrim_start(&views[0], " "); }},
    {"utils_strtrim_end", [] { fresh_name(), utils_strtrim_end(&views[0], " "); }},
    {"utils_strtrim", [] { fresh_name(), utils_strtrim(&views[0], " "); }},
    {"utils_strtrim_start_f", [] { fresh_name(), utils_strtrim_start_f(&views[0], patter_trim_space); }},
    {"utils_strtrim_end_f", [] { fresh_name(), utils_strtrim_end_f(&views[0], patter_trim_space); }},
    {"utils_strtrim_f", [] { fresh_name(), utils_strtrim_f(&views[0], patter_trim_space); }},
    {"utils_cstrtrim",
     [] {
       char text[] = "  Anna  ";
       utils_cstrtrim(text, 8, " ");
     }},
    CALL(utils_strcheck_f, &fresh_name(), pattern_isNameChar),
    CALL(utils_cstrcheck_f, "Anna", pattern_isNameChar),
    CALL(utils_match_f, &fresh_name(), pattern_is_w, 2, 8, &views[1], &views[2]),
    CALL(utils_match_start_f, &fresh_name(), pattern_is_ws, 2, 8, &views[1], &views[2]),
    CALL(utils_strtok, &fresh_name(), &views[1], &views[2], " ", 1),
    CALL(utils_strntok, &fresh_name(), &views[1], 1, " "),
    CALL(utils_strsplit, &fresh_name(3), views, 3, " ", 1),
    {"utils_rmtok",
     [] {
       const char *patterns[] = {"Anna"};
       STRING tokens[] = {{"Anna", 4}, {"Maria", 5}};
       utils_rmtok(tokens, 2, patterns, 1);
     }},
    CALL(utils_strcmp, &fresh_name(), "Anna"),
    CALL(utils_tokcmp, &fresh_name(), &fresh_name(1), 1),
    CALL(utils_strstr, &fresh_name(), &fresh_name(1)),
    {"utils_strreplace",
     [] {
       char text[16] = "Anna Maria";
       const STRING from = {"a", 1};
       const STRING to = {"oo", 2};
       utils_strreplace(text, 10, sizeof text, &from, &to);
     }},

    {"utils_parse_date",
     [] {
       const STRING digits = {"19740812", 8};
       utils_parse_date(&digits, &read_date);
     }},
    CALL(utils_validate_date, &date),
    CALL(utils_validate_days_in_month, 2000, 2, 30),
    CALL(utils_days2date, 737000, &read_date),
    CALL(utils_soundex_encode, &fresh_name(), &soundex),
    CALL(utils_soundex_encode_str, "Eriksson", &soundex),
    CALL(utils_barcode2fieldtype, 0x444151, MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, nullptr),

    TEST(pattern_is_atoi_valid),
    TEST(pattern_isNotDigit),
    TEST(pattern_isCityChar),
    TEST(pattern_isClearCityChar),
    TEST(pattern_isNotClearCityChar),
    TEST(pattern_isNameChar),
    TEST(pattern_isAddressChar),
    TEST(pattern_isAddressChar2),
    TEST(pattern_isClearAddressChar),
    TEST(pattern_isClearAddressChar2),
    TEST(pattern_isNotClearAddressChar),
    TEST(pattern_isNotClearAddressChar2),
    TEST(pattern_isClearPostalCode),
    TEST(pattern_isLicenseNumber),
    TEST(pattern_is_w),
    TEST(pattern_is_not_w),
    TEST(pattern_is_ws),
    TEST(pattern_valid_symbols),
    TEST(pattern_not_valid_symbols),
    TEST(patter_trim_space),
    TEST(patter_trim_address),
};

int requests_during(void (*run)()) {
  requests = 0;
  counting = true;
  run();
  counting = false;
  return requests;
}

bool sees_allocations() {
  return requests_during([] {
           void *volatile block = malloc(1);
           free(block);
         }) == 2;
}

} // namespace

int main(int argc, char **argv) {
  if (argc > 1 && strcmp(argv[1], "--list") == 0) {
    for (const call &c : CALLS) {
      puts(c.function);
    }
    return 0;
  }
  if (!sees_allocations()) {
    puts("the malloc family is not intercepted: this test would see nothing");
    return 1;
  }
  int failed = 0;
  for (const call &c : CALLS) {
    const int asked = requests_during(c.run);
    if (asked != 0) {
      printf("%s asked the malloc family %d time(s)\n", c.function, asked);
      failed = 1;
    }
  }
  printf("%zu functions called\n", std::size(CALLS));
  return failed;
}
