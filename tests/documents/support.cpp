#include "support.hpp"

#include "scans.hpp"

#include <nlohmann/json.hpp>

#include <fstream>

namespace support {

varnel_inspection inspect(std::string_view text, varnel_inspect_options options) {
  varnel_inspection inspection;
  EXPECT_EQ(varnel_inspect(text.data(), text.size(), &options, &inspection), ERR_OK);
  return inspection;
}

std::string to_json(const varnel_inspection &inspection) {
  const int length = varnel_inspection_json(&inspection, nullptr, 0);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  EXPECT_EQ(varnel_inspection_json(&inspection, text.data(), text.size()), length);
  text.pop_back();
  return text;
}

std::string inspect_to_json(std::string_view text, varnel_inspect_options options) {
  return to_json(inspect(text, options));
}

nlohmann::ordered_json inspected(std::string_view text, varnel_inspect_options options) {
  return nlohmann::ordered_json::parse(inspect_to_json(text, options));
}

std::string zone_of(const varnel_inspection &inspection) {
  std::string zone;
  for (int i = 0; i < inspection.line_count; ++i) {
    zone += std::string(inspection.zone[i]) + "\n";
  }
  return zone;
}

std::string changes_of(const varnel_inspection &inspection) {
  std::string list;
  for (int i = 0; i < inspection.change_count; ++i) {
    const varnel_change &c = inspection.changes[i];
    list += (i > 0 ? ", " : "") + std::to_string(c.line) + ":" + std::to_string(c.column) + " " + c.from +
            ">" + c.to + " " + varnel_change_name(c.reason);
  }
  return list;
}

std::string findings_of(const varnel_inspection &inspection) {
  std::string list;
  for (int i = 0; i < inspection.finding_count; ++i) {
    const varnel_finding &f = inspection.findings[i];
    list += std::string(i > 0 ? ", " : "") + varnel_finding_name(f.code);
    list += f.field != VARNEL_FIELD_NONE ? std::string(" ") + varnel_field_name(f.field) : "";
  }
  return list;
}

} // namespace support

std::vector<scans::scan> scans::load(const std::string &file) {
  std::ifstream in(file);
  std::vector<scan> all;
  for (std::string line; std::getline(in, line);) {
    const nlohmann::ordered_json row = nlohmann::ordered_json::parse(line);
    all.push_back({row["id"], row["level"], row["reader"], row["text"],
                   row["truth"].get<std::map<std::string, std::string>>(), row.value("longNumber", "")});
  }
  return all;
}
