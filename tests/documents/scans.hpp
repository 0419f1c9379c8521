// The texts of tests/documents/scans: what a real optical reader wrote of pictures of invented documents, and
// what stood in them. How many of them are read rightly and wrongly.
#ifndef VARNEL_TESTS_DOCUMENTS_SCANS_HPP
#define VARNEL_TESTS_DOCUMENTS_SCANS_HPP

#include <Varnel/documents/inspect.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace scans {

// A picture as a reader saw it. Levels: clean, mild (blur and noise), tilt (turned), strong (low resolution,
// shadow, speckle), page (the zone below a printed page). Readers: eng (a general model), engwl (the same,
// held to the zone's characters), ocrb (a model for the typeface), eng3 (pages only, with its own analysis).
struct scan {
  std::string id;
  std::string level;
  std::string reader;
  std::string text;
  std::map<std::string, std::string> truth;
  std::string long_number; // empty where the number has at most nine characters
};

std::vector<scan> load(const std::string &file);

inline constexpr varnel_inspect_options OPTIONS[] = {{2026, 11, 21, VARNEL_REPAIR_OFF},
                                                     {2026, 11, 21, VARNEL_REPAIR_COLUMNS},
                                                     {2026, 11, 21, VARNEL_REPAIR_DIGITS}};

inline std::string value_of(const varnel_inspection &inspection, int field) {
  for (int i = 0; i < inspection.field_count; ++i) {
    if (inspection.fields[i].field == field) {
      return inspection.fields[i].value;
    }
  }
  return "";
}

// Dates as eight digits; a date that is not wholly known is none.
inline std::string date_of(const varnel_inspection &inspection, int field) {
  std::string digits;
  for (const char c : value_of(inspection, field)) {
    if (c == 'X') {
      return "";
    }
    if (c != '-') {
      digits += c;
    }
  }
  return digits;
}

// Whether an inspection can be taken at its word.
inline bool is_answer(const varnel_inspection &inspection) {
  return inspection.verdict >= VARNEL_VERDICT_VALID;
}

struct tally {
  int texts = 0;
  int right = 0;  // all values
  int middle = 0; // all but a middle name
  int wrong = 0;

  void add(const varnel_inspection &inspection, const scan &s) {
    ++texts;
    if (!is_answer(inspection)) {
      return;
    }
    const std::string secondary = value_of(inspection, VARNEL_SECONDARY_IDENTIFIER);
    const size_t space = secondary.find(' ');
    const std::string number = value_of(inspection, VARNEL_DOCUMENT_NUMBER);
    const std::string nine = number.substr(0, 9);
    const std::string sex = value_of(inspection, VARNEL_SEX);
    const auto &t = s.truth;
    const bool number_is_right =
        number == t.at("licenseNumber") || (!s.long_number.empty() && (number == s.long_number));
    const bool major = number_is_right && secondary.substr(0, space) == t.at("firstName") &&
                       value_of(inspection, VARNEL_PRIMARY_IDENTIFIER) == t.at("lastName") &&
                       date_of(inspection, VARNEL_BIRTH_DATE) == t.at("birthDate") &&
                       date_of(inspection, VARNEL_EXPIRY_DATE) == t.at("expirationDate") &&
                       value_of(inspection, VARNEL_NATIONALITY) == t.at("nationality") &&
                       value_of(inspection, VARNEL_ISSUING_STATE) == t.at("countryCode") &&
                       (sex == "X" ? "" : sex) == t.at("gender");
    const std::string middle_name = space == std::string::npos ? "" : secondary.substr(space + 1);
    const bool minor = middle_name == t.at("middleName") &&
                       (inspection.layout == VARNEL_LAYOUT_TD3 ? "PASSPORT" : "TD") == t.at("documentType");
    (major ? minor ? right : middle : wrong) += 1;
  }
};

} // namespace scans

#endif
