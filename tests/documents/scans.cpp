#include "scans.hpp"

#include <nlohmann/json.hpp>

#include <fstream>

std::vector<scans::scan> scans::load(const std::string &file) {
  std::ifstream in(file);
  std::vector<scan> all;
  for (std::string line; std::getline(in, line);) {
    const nlohmann::json row = nlohmann::json::parse(line);
    all.push_back({row["id"], row["level"], row["reader"], row["text"],
                   row["truth"].get<std::map<std::string, std::string>>(), row.value("longNumber", "")});
  }
  return all;
}
