// Runs a fuzz target over files instead of under libFuzzer, so that the corpus, the readable vectors and
// all past findings are ordinary regression tests with any compiler.
//
// Usage: fuzz_replay_TARGET [--show] FILE-OR-FOLDER...
//
// --show prints for each file which behaviours it reaches.
//
// Fails when a property does not hold, when a file or folder cannot be read, when nothing was read, and
// when a behaviour that the target waits for was never seen.
#include "harness.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

bool is_input(const fs::directory_entry &entry) {
  return entry.is_regular_file() && entry.path().filename().string().front() != '.';
}

std::vector<fs::path> files_of(const fs::path &given) {
  std::vector<fs::path> files;
  if (!fs::is_directory(given)) {
    files.push_back(given);
    return files;
  }
  for (const fs::directory_entry &entry : fs::recursive_directory_iterator(given)) {
    if (is_input(entry)) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string bytes_of(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw std::runtime_error("cannot be read");
  }
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<long> counts() {
  std::vector<long> all;
  for (const fuzz::behaviour *b = fuzz::behaviour::first(); b != nullptr; b = b->next()) {
    all.push_back(b->count());
  }
  return all;
}

void show_behaviours(const fs::path &file, const std::vector<long> &before) {
  size_t i = 0;
  for (const fuzz::behaviour *b = fuzz::behaviour::first(); b != nullptr; b = b->next(), ++i) {
    if (b->count() > before[i]) {
      std::printf("%s: %s\n", file.c_str(), b->name());
    }
  }
}

struct totals {
  long files = 0;
  long failures = 0;
  size_t longest = 0;
};

void replay(const fs::path &file, bool show, totals &total) {
  try {
    const std::vector<long> before = counts();
    const std::string bytes = bytes_of(file);
    ++total.files;
    total.longest = std::max(total.longest, bytes.size());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
    if (show) {
      show_behaviours(file, before);
    }
  } catch (const std::exception &problem) {
    ++total.failures;
    std::fprintf(stderr, "%s: %s\n", file.c_str(), problem.what());
  }
}

// The number of behaviours that no input reached.
int report_unseen() {
  int unseen = 0;
  for (const fuzz::behaviour *b = fuzz::behaviour::first(); b != nullptr; b = b->next()) {
    if (b->count() == 0) {
      ++unseen;
      std::fprintf(stderr, "never seen: %s\n", b->name());
    }
  }
  return unseen;
}

} // namespace

int main(int argc, char **argv) {
  totals total;
  const bool show = argc > 1 && std::strcmp(argv[1], "--show") == 0;
  for (int i = show ? 2 : 1; i < argc; ++i) {
    try {
      for (const fs::path &file : files_of(argv[i])) {
        replay(file, show, total);
      }
    } catch (const std::exception &problem) {
      ++total.failures;
      std::fprintf(stderr, "%s: %s\n", argv[i], problem.what());
    }
  }
  if (total.files == 0 || total.longest == 0) {
    ++total.failures;
    std::fprintf(stderr, "no input was read\n");
  }
  const int unseen = report_unseen();
  const int waited_for = static_cast<int>(counts().size());
  std::printf("%ld inputs, the longest of %zu bytes; %d of %d behaviours seen; %ld failures\n", total.files,
              total.longest, waited_for - unseen, waited_for, total.failures);
  return total.failures == 0 && unseen == 0 && waited_for > 0 ? 0 : 1;
}
