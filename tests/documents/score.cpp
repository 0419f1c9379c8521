// Prints how many scanned texts are read rightly and wrongly, by grade of picture and by reader, for each
// level of repair: percent of all texts, right in all values / wrong in one that matters.
//
// usage: documents_score FILE…
#include "scans.hpp"

#include <cstdio>

namespace {

using table = std::map<std::pair<std::string, std::string>, std::array<scans::tally, 3>>;

void add(table &scores, const scans::scan &s, int repair, const varnel_inspection &inspection) {
  for (const std::string &level : {s.level, std::string("all")}) {
    for (const std::string &reader : {s.reader, std::string("all")}) {
      scores[{level, reader}][static_cast<size_t>(repair)].add(inspection, s);
    }
  }
}

void print(const table &scores) {
  std::printf("%-7s %-6s %6s  %14s %14s %14s\n", "level", "reader", "texts", "off", "columns", "digits");
  for (const char *level : {"clean", "mild", "tilt", "strong", "page", "all"}) {
    for (const char *reader : {"eng", "engwl", "ocrb", "eng3", "all"}) {
      const auto row = scores.find({level, reader});
      if (row == scores.end()) {
        continue;
      }
      std::printf("%-7s %-6s %6d ", level, reader, row->second[0].texts);
      for (const scans::tally &t : row->second) {
        std::printf("  %5.1f / %5.2f", 100.0 * t.right / t.texts, 100.0 * t.wrong / t.texts);
      }
      std::printf("\n");
    }
  }
}

} // namespace

int main(int argc, char **argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: documents_score FILE...\n");
    return 2;
  }
  table scores;
  for (int i = 1; i < argc; ++i) {
    const std::vector<scans::scan> all = scans::load(argv[i]);
    if (all.empty()) {
      std::fprintf(stderr, "documents_score: %s: no texts\n", argv[i]);
      return 1;
    }
    for (const scans::scan &s : all) {
      for (int repair = VARNEL_REPAIR_OFF; repair <= VARNEL_REPAIR_DIGITS; ++repair) {
        varnel_inspection inspection;
        varnel_inspect(s.text.data(), s.text.size(), &scans::OPTIONS[repair], &inspection);
        add(scores, s, repair, inspection);
      }
    }
  }
  print(scores);
  return 0;
}
