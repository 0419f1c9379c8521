#include "suggestion.hpp"

#include <algorithm>
#include <numeric>

namespace varnel::cli {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Letters added, dropped, changed or swapped with their neighbour to turn `a` into `b`; case is free.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> two_above(b.size() + 1);
  std::vector<std::size_t> above(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    two_above.swap(above);
    above.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool same = lower(a[i - 1]) == lower(b[j - 1]);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1])) {
        row[j] = std::min(row[j], two_above[j - 2] + 1);
      }
    }
  }
  return row[b.size()];
}

} // namespace

std::string nearest(std::string_view word, const std::vector<std::string> &known) {
  std::string best;
  std::size_t best_distance = 0;
  for (const std::string &candidate : known) {
    // A word longer than any option is no slip of the finger, and not worth the time either.
    if (word.size() > candidate.size() + 2) {
      continue;
    }
    const std::size_t slips = distance(word, candidate);
    const bool near = slips <= std::max<std::size_t>(1, candidate.size() / 3);
    if (near && (best.empty() || slips < best_distance)) {
      best = candidate;
      best_distance = slips;
    }
  }
  return best;
}

std::string did_you_mean(std::string_view word, const std::vector<std::string> &known) {
  const std::string meant = nearest(word, known);
  return meant.empty() ? "" : "; did you mean '" + meant + "'?";
}

} // namespace varnel::cli
