// What the tests of whole zones share: parsing one, changing one, and what a record then holds.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Varnel/Varnel.h>

#include "support.hpp"

namespace zone_support {

using parser = int (*)(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context);

// The specimens of ICAO Doc 9303.
inline const std::string PASSPORT = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                                    "L898902C36UTO7408122F1204159ZE184226B<<<<<10";
inline const std::string TD2_CARD = "I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
                                    "D231458907UTO7408122F1204159<<<<<<<6";
inline const std::string TD1_CARD = "I<UTOD231458907<<<<<<<<<<<<<<<"
                                    "7408122F1204159UTO<<<<<<<<<<<6"
                                    "ERIKSSON<<ANNA<MARIA<<<<<<<<<<";
inline const std::string LONG_VISA = "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<"
                                     "L8988901C4XXX4009078F96121096ZE184226B<<<<<<";
inline const std::string SHORT_VISA = "V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<"
                                      "L8988901C4XXX4009078F9612109<<<<<<<<";

// The reference date of the entry.
inline const CONTEXT REFERENCE = {{2018, 2, 15, 0, 0, 0}};

// A zone in memory of exactly its size, so that the address sanitizer sees every read past it.
inline int parse(parser parse_layout, std::string_view zone, PARSE_RESULT *record,
                 const CONTEXT &context = REFERENCE) {
  const support::Exact exact(zone);
  return parse_layout(exact.data(), exact.size(), record, &context);
}

// A zone with some of its characters replaced, counted from 0 over all lines.
inline std::string with(std::string_view zone, std::size_t at, std::string_view text) {
  return std::string(zone).replace(at, text.size(), text);
}

// The filled slots of a record and their texts.
inline std::map<int, std::string> filled(const PARSE_RESULT &record) {
  std::map<int, std::string> texts;
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const STRING &value = record.fields[field].value;
    if (value.str != nullptr && value.len > 0) {
      texts[field] = support::text(value);
    }
  }
  return texts;
}

// The filled slots in the order in which their texts lie in the buffer, which is the order of writing.
inline std::vector<int> written_order(const PARSE_RESULT &record) {
  std::map<const char *, int> by_place;
  for (int field = 0; field < FIELD_COUNT; ++field) {
    const STRING &value = record.fields[field].value;
    if (value.str != nullptr && value.len > 0) {
      by_place[value.str] = field;
    }
  }
  std::vector<int> order;
  for (const auto &placed : by_place) {
    order.push_back(placed.second);
  }
  return order;
}

// The used part of a record's buffer, NUL shown as '~', after which everything must still be NUL.
inline std::string image(support::Record &record) {
  const std::string shown = record.shown();
  const std::size_t used = static_cast<std::size_t>(record->data_size);
  EXPECT_EQ(shown.substr(used), std::string(shown.size() - used, '~')) << "bytes after data_size";
  EXPECT_TRUE(record.guards_intact());
  return shown.substr(0, used);
}

} // namespace zone_support
