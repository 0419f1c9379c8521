// The steps that the layout parsers share: each reads one value of a line and writes its slot.
//
// A step that can refuse returns ERR_OK or a negative code and writes its slot only on success; the
// slots written before a refusal stay. No check digit is compared anywhere. A line is of MRZ characters
// only, and whole: the steps read words that reach beyond their field.
#ifndef VARNEL_SRC_MRZ_ZONE_FIELDS_HPP
#define VARNEL_SRC_MRZ_ZONE_FIELDS_HPP

#include <Varnel/defines.h>

#include "../record/appender.hpp"
#include "columns.hpp"

using record::appender;

inline STRING cut(STRING line, columns c) { return STRING{line.str + c.start, c.length}; }

inline STRING cut_from(STRING line, int start) { return STRING{line.str + start, line.len - start}; }

// Whether a zone is of MRZ characters only.
bool has_mrz_characters(const char *zone, int length);

int write_country_code(appender &record, int field, STRING code);

// Family name, first name and middle name, in that order.
int write_names(appender &record, STRING name);

// "M" or "F"; any other character leaves the slot alone.
void write_sex(appender &record, char sex);

// Writes the number without its outer fillers, inner ones as spaces. A number of fillers only empties
// the slot.
void write_document_number(appender &record, STRING number);

// As the document number, but a number of fillers only leaves the slot alone.
void write_personal_number(appender &record, STRING number);

// The year of birth is moved from 19YY to 20YY when that leaves it strictly before the reference year.
// Stores the year in `birth_year`.
int write_birth_date(appender &record, STRING date, const CONTEXT *context, int *birth_year);

// The year of expiry is moved from 19YY to 20YY when 19YY is strictly before the year of birth.
int write_expiration_date(appender &record, STRING date, int birth_year);

// What is alike in the two-line layouts: line 1 after the document code, and, for TD2 cards and visas,
// line 2.
int write_issuer_and_names(appender &record, STRING line);
int write_holder(appender &record, STRING line, const CONTEXT *context);

#endif
