// The library against its plain reading in tests/reference, on many random inputs.
//
// The fuzz targets do the comparing; the inputs are their committed ones and the readable zones with a few
// changes each. So every build of the unit tests compares, on every machine, whether or not there is a
// fuzzer. The seed is new in each run and printed; VARNEL_TEST_SEED=<number> makes the same inputs again.
#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Varnel/Varnel.hpp>

#include "../cases.hpp"
#include "predicates.hpp"
#include "reference.hpp"
#include "vectors.hpp"

// Each target is one source that ends in a function of this name.
#include "../../fuzz/harness.cpp"
#define LLVMFuzzerTestOneInput compare_chain
namespace chain {
#include "../../fuzz/chain_target.cpp"
}
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput compare_layouts
namespace layouts {
#include "../../fuzz/layouts_target.cpp"
}
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput compare_lookups
namespace lookups {
#include "../../fuzz/lookups_target.cpp"
}
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput compare_text
namespace text {
#include "../../fuzz/text_target.cpp"
}
#undef LLVMFuzzerTestOneInput
#define LLVMFuzzerTestOneInput compare_writers
namespace writers {
#include "../../fuzz/writers_target.cpp"
}
#undef LLVMFuzzerTestOneInput

namespace {

unsigned long seed_of_this_run() {
  const char *given = std::getenv("VARNEL_TEST_SEED");
  const unsigned long seed = given != nullptr ? std::strtoul(given, nullptr, 0) : std::random_device()();
  std::printf("VARNEL_TEST_SEED=%lu\n", seed);
  return seed;
}

class Random {
public:
  size_t below(size_t limit) { return limit == 0 ? 0 : engine_() % limit; }
  char one_of(std::string_view bytes) { return bytes[below(bytes.size())]; }
  // Another byte in the place of one: mostly one that leaves a zone readable.
  char instead_of(char replaced) {
    const size_t kind = below(8);
    if (kind == 0)
      return static_cast<char>(below(256));
    if (kind < 5 && replaced >= '0' && replaced <= '9')
      return one_of("0123456789");
    return one_of("<<<ABFIMPVXZ019 a\n\x01\x80\xFF");
  }

private:
  std::mt19937_64 engine_{seed_of_this_run()};
};

std::vector<std::string> files_of(const std::filesystem::path &folder) {
  std::vector<std::string> texts;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file() && entry.path().extension() != ".json")
      texts.push_back(vectors::read_file(entry.path()));
  return texts;
}

// An input with a few bytes changed, and now and then some more, some fewer, or some of another input.
std::string changed(Random &random, const std::vector<std::string> &inputs) {
  std::string bytes = inputs[random.below(inputs.size())];
  const bool keeps_its_length = random.below(4) != 0;
  for (size_t changes = random.below(5); changes > 0; --changes) {
    const size_t at = random.below(bytes.size() + 1);
    const std::string &other = inputs[random.below(inputs.size())];
    const size_t kind = keeps_its_length ? 3 : random.below(4);
    if (kind == 0)
      bytes.insert(at, 1, random.instead_of('<'));
    else if (kind == 1)
      bytes.erase(at, 1 + random.below(3));
    else if (kind == 2)
      bytes.insert(at, other, random.below(other.size()), random.below(40));
    else if (at < bytes.size())
      bytes[at] = random.instead_of(bytes[at]);
  }
  return bytes;
}

struct comparison {
  const char *name;
  int (*compare)(const uint8_t *, size_t);
  int rounds;
};

constexpr comparison COMPARISONS[] = {{"chain", chain::compare_chain, 2000},
                                      {"layouts", layouts::compare_layouts, 2000},
                                      {"lookups", lookups::compare_lookups, 20000},
                                      {"text", text::compare_text, 20000},
                                      {"writers", writers::compare_writers, 2500}};

TEST(RandomComparison, FindsNoDifference) {
  const std::filesystem::path vectors(VARNEL_VECTORS_DIR);
  const std::filesystem::path corpus = vectors.parent_path().parent_path() / "fuzz" / "corpus";
  const std::vector<std::string> zones = files_of(vectors);
  Random random;
  for (const comparison &one : COMPARISONS) {
    std::vector<std::string> inputs = files_of(corpus / one.name);
    inputs.insert(inputs.end(), zones.begin(), zones.end());
    for (int round = 0; round < support::cases(one.rounds); ++round) {
      const std::string input = changed(random, inputs);
      try {
        one.compare(reinterpret_cast<const uint8_t *>(input.data()), input.size());
      } catch (const fuzz::difference &found) {
        FAIL() << one.name << ", round " << round << ": " << found.what() << "\ninput " << fuzz::shown(input);
      }
    }
  }
  // Not only refusals were compared.
  int waited_for = 0, seen = 0;
  for (const fuzz::behaviour *b = fuzz::behaviour::first(); b != nullptr; b = b->next()) {
    ++waited_for;
    seen += b->count() > 0 ? 1 : 0;
  }
  EXPECT_GT(seen, waited_for * 3 / 4);
}

} // namespace
