// The steps that the layout parsers share: each reads one value of a line and writes its slot.
//
// A step that can refuse returns ERR_OK or a negative code and writes its slot only on success; the
// slots written before a refusal stay. No check digit is compared anywhere.
#ifndef VARNEL_SRC_MRZ_ZONE_FIELDS_HPP
#define VARNEL_SRC_MRZ_ZONE_FIELDS_HPP

#include <Varnel/defines.h>

#include "columns.hpp"

inline STRING cut(const STRING &line, columns c) { return STRING{line.str + c.start, c.length}; }

inline STRING cut_from(const STRING &line, int start) { return STRING{line.str + start, line.len - start}; }

// Whether all `i_len` characters are of the MRZ character set.
bool is_zone(const char *input, int i_len);

// The document codes of cards: I, A or C, and no V behind it, which marks a visa.
bool has_card_code(const STRING &line);

int write_country_code(PARSE_RESULT *result, int field, const STRING &code);

// Family name, first name and middle name, in that order.
int write_names(PARSE_RESULT *result, const STRING &name);

// "M" or "F"; any other character leaves the slot alone.
void write_sex(PARSE_RESULT *result, char sex);

// Writes the number without its outer fillers, inner ones as blanks. A number of fillers only empties
// the slot.
void write_document_number(PARSE_RESULT *result, const STRING &number);

// As the document number, but a number of fillers only leaves the slot alone.
void write_personal_number(PARSE_RESULT *result, const STRING &number);

// The year of birth is moved from 19YY to 20YY when that leaves it strictly before the reference year.
// Stores the year in `birth_year`.
int write_birth_date(PARSE_RESULT *result, const STRING &date, const CONTEXT *context, int *birth_year);

// The year of expiry is moved from 19YY to 20YY when 19YY is strictly before the year of birth.
int write_expiration_date(PARSE_RESULT *result, const STRING &date, int birth_year);

void write_document_type(PARSE_RESULT *result, const char *type);

// What is alike in the two-line layouts: line 1 behind the document code, and, for TD2 cards and visas,
// line 2.
int write_issuer_and_names(PARSE_RESULT *result, const STRING &line);
int write_holder(PARSE_RESULT *result, const STRING &line, const CONTEXT *context);

#endif
