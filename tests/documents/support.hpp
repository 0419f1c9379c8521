// What the tests of the documents library share. What takes compilers long is compiled once, in support.cpp.
#ifndef VARNEL_TESTS_DOCUMENTS_SUPPORT_HPP
#define VARNEL_TESTS_DOCUMENTS_SUPPORT_HPP

#include <Varnel/documents/inspect.h>

#include <gtest/gtest.h>
#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace support {

inline constexpr varnel_inspect_options TODAY = {2026, 11, 21, VARNEL_REPAIR_OFF};

varnel_inspection inspect(std::string_view text, varnel_inspect_options options = TODAY);
std::string to_json(const varnel_inspection &inspection);
std::string inspect_to_json(std::string_view text, varnel_inspect_options options = TODAY);
nlohmann::ordered_json inspected(std::string_view text, varnel_inspect_options options = TODAY);

// The zone of an inspection, a line end after each line.
std::string zone_of(const varnel_inspection &inspection);
// "1:15 O>0 class, 1:43 O>0 class"
std::string changes_of(const varnel_inspection &inspection);
// "checkFailed documentNumber, unproven primaryIdentifier"
std::string findings_of(const varnel_inspection &inspection);

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
