// The steps that the layout parsers share: each reads one value of a line and writes its slot.
//
// A step that can refuse returns ERR_OK or a negative code and writes its slot only on success; the
// slots written before a refusal stay. No check digit is compared anywhere.
#ifndef VARNEL_SRC_MRZ_ZONE_FIELDS_HPP
#define VARNEL_SRC_MRZ_ZONE_FIELDS_HPP

#include <Varnel/defines.h>

#include "character_sets.hpp"
#include "columns.hpp"

inline STRING cut(STRING line, columns c) { return STRING{line.str + c.start, c.length}; }

inline STRING cut_from(STRING line, int start) { return STRING{line.str + start, line.len - start}; }

// Whether a zone is of MRZ characters only.
bool has_mrz_characters(const char *zone, int length);

int write_country_code(PARSE_RESULT *result, int field, STRING code);

// Family name, first name and middle name, in that order.
int write_names(PARSE_RESULT *result, STRING name);

// "M" or "F"; any other character leaves the slot alone.
void write_sex(PARSE_RESULT *result, char sex);

// Writes the number without its outer fillers, inner ones as spaces. A number of fillers only empties
// the slot.
void write_document_number(PARSE_RESULT *result, STRING number);

// As the document number, but a number of fillers only leaves the slot alone.
void write_personal_number(PARSE_RESULT *result, STRING number);

// The year of birth is moved from 19YY to 20YY when that leaves it strictly before the reference year.
// Stores the year in `birth_year`.
int write_birth_date(PARSE_RESULT *result, STRING date, const CONTEXT *context, int *birth_year);

// The year of expiry is moved from 19YY to 20YY when 19YY is strictly before the year of birth.
int write_expiration_date(PARSE_RESULT *result, STRING date, int birth_year);

void write_document_type(PARSE_RESULT *result, STRING type);

// What is alike in the two-line layouts: line 1 after the document code, and, for TD2 cards and visas,
// line 2.
int write_issuer_and_names(PARSE_RESULT *result, STRING line);
int write_holder(PARSE_RESULT *result, STRING line, const CONTEXT *context);

#endif
