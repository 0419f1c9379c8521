// What a zone says once it is known which characters stand where: fields, check digits, findings, verdict.
#ifndef VARNEL_SRC_DOCUMENTS_EVALUATE_HPP
#define VARNEL_SRC_DOCUMENTS_EVALUATE_HPP

#include <Varnel/documents/inspect.h>

#include "../words.hpp"
#include "entries.hpp"
#include "layouts.hpp"

namespace documents {

// Room for a line from each column of which a whole word can be read.
constexpr int ROW_WIDTH = VARNEL_ZONE_WIDTH + words::WIDE_SIZE;

// The characters of a zone, which are capitals, digits and fillers, and where they were read.
struct zone_reading {
  const layout *form;                       // of LAYOUTS
  char lines[VARNEL_ZONE_LINES][ROW_WIDTH]; // what stands after a line's last column is of no meaning
  bool is_plain[VARNEL_ZONE_LINES];         // each character of the line is one byte
  uint32_t begin[VARNEL_ZONE_LINES];        // of a plain line; of others the bytes of each character follow
  varnel_source sources[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH];
  bool dropped[VARNEL_ZONE_LINES]; // characters other than white space were dropped within the line
  uint32_t unproven;               // 1 << field: a value that may have been misread (finding `unproven`)
  uint32_t differing;              // 1 << field: looks prove two values of it (finding `looksDiffer`)
};

// Empties the record and writes the reference date and the level of repair into it.
void begin_inspection(const varnel_inspect_options &options, varnel_inspection &inspection);

// Writes the whole record, without changes: valid where nothing is found.
void evaluate(const zone_reading &zone, const varnel_inspect_options &options, varnel_inspection &inspection);

// Appends a finding or a notice; what a record has no room for is left out.
void add_finding(varnel_inspection &inspection, varnel_finding finding);
void add_notice(varnel_inspection &inspection, varnel_finding notice);

// Doubtful with findings, else repaired with changes, else valid.
void set_verdict(varnel_inspection &inspection);

// Whether enough agrees to say that this is a zone: a date that is right, two digits that hold, or the
// first letter, a listed state and a filler in the names.
bool is_zone(const varnel_inspection &inspection);

// How good a zone is, the higher the better and always above 0: by the share of its digits that hold (also
// of empty fields), then by their number, then by the fewer findings. Below 2^15.
int score_of(const varnel_inspection &inspection);

// The same without the findings: by the digits alone.
int digits_score_of(const varnel_inspection &inspection);

} // namespace documents

#endif
