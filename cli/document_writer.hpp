// Writes the records of documents: JSON lines, CSV rows or tables for people.
#ifndef VARNEL_CLI_DOCUMENT_WRITER_HPP
#define VARNEL_CLI_DOCUMENT_WRITER_HPP

#include "document_rows.hpp"

#include <Varnel/Varnel.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace varnel::cli {

inline constexpr option SLOTS_OPTION = {"slots", "",
                                        "Show every filled slot of the record too, by its constant's name"};

class document_writer {
public:
  document_writer(output &out, const document_rows &rows, bool with_slots);

  /** What stands before the first document: the header row of CSV. */
  void begin();

  /**
   * One document that was read.
   *
   * @param more further members of its JSON object, each with a comma before it; none in other formats
   */
  void accepted(const document &from, const PARSE_RESULT &result, std::string_view more = "");

  /** One document that was refused, or could not be read. */
  void refused(const document &from);

private:
  // What stands before a value.
  struct lead {
    static constexpr std::size_t ROOM = 32;

    std::array<char, ROOM> text = {};
    std::size_t size = 0;

    std::string_view view() const { return std::string_view(text.data(), size); }

    // With all of its room, which takes no loop.
    char *copy(char *to) const {
      std::memcpy(to, text.data(), ROOM);
      return to + size;
    }
  };

  template <class Plain, class LeadOf>
  void values(const PARSE_RESULT &result, LeadOf lead_of, void (*put_one)(output &, std::string_view));

  void json(const document &from, const PARSE_RESULT &result, std::string_view more);
  void json_slots(const PARSE_RESULT &result);
  void csv(const document &from, const PARSE_RESULT &result);
  void csv_slots(const PARSE_RESULT &result);
  void table(const PARSE_RESULT &result);

  output &out_;
  document_rows rows_;
  bool with_slots_;
  std::array<lead, VARNEL_VALUE_COUNT> json_leads_; // before each value of an object
};

} // namespace varnel::cli

#endif
