// What the tests of the documents library share.
#ifndef VARNEL_TESTS_DOCUMENTS_SUPPORT_HPP
#define VARNEL_TESTS_DOCUMENTS_SUPPORT_HPP

#include <Varnel/documents/inspect.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace support {

inline constexpr varnel_inspect_options TODAY = {2026, 11, 21, VARNEL_REPAIR_OFF};

inline std::string to_json(const varnel_inspection &inspection) {
  const int length = varnel_inspection_json(&inspection, nullptr, 0);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  EXPECT_EQ(varnel_inspection_json(&inspection, text.data(), text.size()), length);
  text.pop_back();
  return text;
}

inline varnel_inspection inspect(std::string_view text, varnel_inspect_options options = TODAY) {
  varnel_inspection inspection;
  EXPECT_EQ(varnel_inspect(text.data(), text.size(), &options, &inspection), ERR_OK);
  return inspection;
}

inline std::string inspect_to_json(std::string_view text, varnel_inspect_options options = TODAY) {
  return to_json(inspect(text, options));
}

inline nlohmann::ordered_json inspected(std::string_view text, varnel_inspect_options options = TODAY) {
  return nlohmann::ordered_json::parse(inspect_to_json(text, options));
}

// The published specimens of ICAO Doc 9303-4 to 9303-7.
struct specimen {
  const char *layout;
  const char *zone;
};

inline constexpr specimen SPECIMENS[] = {
    {"TD1",
     "I<UTOD231458907<<<<<<<<<<<<<<<\n7408122F1204159UTO<<<<<<<<<<<6\nERIKSSON<<ANNA<MARIA<<<<<<<<<<\n"},
    {"TD2", "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nD231458907UTO7408122F1204159<<<<<<<6\n"},
    {"TD3", "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO7408122F1204159ZE184226B<<<<<10\n"},
    {"MRV-A", "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C<3UTO6908061F9406236ZE184226B<<<<<<<\n"},
    {"MRV-B", "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<\nL898902C<3UTO6908061F9406236ZE184226\n"},
};

} // namespace support

#endif
