// Many threads read documents at once, each into a record of its own, and each gets the right answer.
// Built with ThreadSanitizer, which reports any memory that two of them share and one writes.
#include <Varnel/Varnel.hpp>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int THREADS = 8;
constexpr int ROUNDS = 200;

struct sample {
  const char *text;
  const char *family_name; // null: refused
};

const sample SAMPLES[] = {
    {"P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO7408122F1204159ZE184226B<<<<<10\n",
     "ERIKSSON"},
    {"I<UTODOE<<JOHN<<<<<<<<<<<<<<<<<<<<<<\nD231458907UTO7408122M1204159<<<<<<<6\n", "DOE"},
    {"I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\nMUSTER<<ERIKA<<<<<<<<<<<<<<<<<\n",
     "MUSTER"},
    {"V<UTOSPECIMEN<<OLIVIA<<<<<<<<<<<<<<<<<<<<<<<\nL8988901C4XXX4009078F96121096ZE184226B<<<<<<\n",
     "SPECIMEN"},
    {"not a document", nullptr},
};

std::atomic<int> wrong{0};

void expect(bool holds) { wrong += holds ? 0 : 1; }

void read_document(const sample &s) {
  const auto document = varnel::parse_mrz(s.text);
  expect(document.has_value() == (s.family_name != nullptr));
  if (document) {
    expect(document->get("lastName") == s.family_name);
  }
}

// Every other family of routines, on data of this thread's own.
void use_utilities(int round) {
  char text[32] = "Anna Maria Eriksson";
  const STRING from = {"a", 1};
  const STRING to = {"b", 1};
  expect(utils_strreplace(text, 19, sizeof text, &from, &to) == 19);

  SOUNDEX_CODE code;
  expect(utils_soundex_encode_str("Robert", &code) == ERR_OK && std::memcmp(&code, "R163", 4) == 0);

  DATETIME date;
  expect(utils_days2date(static_cast<uint64_t>(365 * 800 + round), &date) == ERR_OK);
  expect(utils_barcode2fieldtype(0x444243, MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE, nullptr) == FIELD_SEX);

  char number[16];
  expect(utils_itoa(round, number, 6, 1) == 6 && std::atoi(std::string(number, 6).c_str()) == round);
}

void work(int first) {
  for (int round = 0; round < ROUNDS; ++round) {
    read_document(SAMPLES[static_cast<size_t>(first + round) % std::size(SAMPLES)]);
    use_utilities(round);
  }
}

} // namespace

int main() {
  std::vector<std::thread> threads;
  for (int i = 0; i < THREADS; ++i) {
    threads.emplace_back(work, i);
  }
  for (std::thread &thread : threads) {
    thread.join();
  }
  std::printf("%d threads, %d rounds each, %d wrong answers\n", THREADS, ROUNDS, wrong.load());
  return wrong == 0 ? 0 : 1;
}
