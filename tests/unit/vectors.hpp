// The readable zones of tests/vectors and the answers expected of them.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vectors {

struct vector {
  std::string name;                 // layout and name, such as "td3/specimen"
  std::string text;                 // as the optical reader gives it: the whole file
  std::string answer;               // one line of JSON: the twelve values, or null
  std::optional<std::string> slots; // one line of JSON: every filled slot, where the vector says so
};

inline std::string read_file(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path.string());
  }
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// All vectors by name. A text without an answer, or an answer without a text, is an error.
inline std::vector<vector> load(const std::filesystem::path &folder = VARNEL_VECTORS_DIR) {
  namespace fs = std::filesystem;
  std::vector<vector> all;
  for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder)) {
    const fs::path &path = entry.path();
    if (path.extension() == ".json") {
      fs::path text = path;
      text.replace_extension();
      text.replace_extension(".mrz"); // NAME.json and NAME.slots.json alike
      if (!fs::exists(text)) {
        throw std::runtime_error(path.string() + " has no text");
      }
    }
    if (path.extension() != ".mrz") {
      continue;
    }
    fs::path stem = path;
    stem.replace_extension();
    vector one;
    one.name = fs::relative(stem, folder).generic_string();
    one.text = read_file(path);
    one.answer = read_file(stem.string() + ".json");
    if (const std::string slots = stem.string() + ".slots.json"; fs::exists(slots)) {
      one.slots = read_file(slots);
    }
    all.push_back(one);
  }
  std::sort(all.begin(), all.end(), [](const vector &a, const vector &b) { return a.name < b.name; });
  return all;
}

} // namespace vectors
