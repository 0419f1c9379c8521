// A licence's barcode while it is read: text, record and info together, and what its parts share.
#ifndef VARNEL_SRC_DOCUMENTS_BARCODE_CARD_HPP
#define VARNEL_SRC_DOCUMENTS_BARCODE_CARD_HPP

#include <Varnel/documents/barcode.h>
#include <Varnel/pdf417/barcode_mapping.h>
#include <Varnel/utils.h>

#include "../view.hpp"

// An element table of the core.
struct element_table {
  const MAPPING *rows;
  int size;
};

constexpr int NO_VERSION = -1;
constexpr int NO_SLOT = -1;

// A date that was stored, kept until it is known in which order the card should have it.
struct stored_date {
  int key;
  int offset;
  bool month_first;
};
constexpr int MOST_DATES = 16; // more than there are slots of dates

struct barcode_card {
  const char *text;
  int size;
  PARSE_RESULT *record;
  varnel_barcode_info *info;
  element_table table; // of the card's version
  uint8_t rows[256];   // of the table, from 1, by the elements' places; 0 for none
  bool has_room;       // false once a value did not fit the buffer
  int full_name_at;    // where the value of slot 1 stands in the text
  int given_names_at;  // where that of slot 53 stands
  int issuer_at;       // where the issuer number stands
  int known_elements;  // elements with a slot and a value that were met
  int date_count;
  stored_date dates[MOST_DATES];
};

// Sets the table that a version goes by; Hawaii's cards of version 04 have one of their own.
void use_table(barcode_card &card, int version, int issuer_number);

// ---- findings -------------------------------------------------------------------------------------------

// Adds a finding in the order of offsets; `name` is an identifier, a subfile's type or empty.
void add_finding(varnel_barcode_info *info, int code, int offset, const char *name = "");

// An identifier as text: the inverse of packing three letters into a key.
struct element_name {
  char text[4];
  explicit element_name(int key)
      : text{static_cast<char>(key >> 16 & 0xFF), static_cast<char>(key >> 8 & 0xFF),
             static_cast<char>(key & 0xFF), '\0'} {}
};

// ---- identifiers ----------------------------------------------------------------------------------------

// Characters of an identifier at `at`, folded to capitals: two letters, then a letter or a digit.
struct identifier {
  int key;    // 0 where there is none
  bool small; // whether it was written with a small letter
};
identifier identifier_at(const barcode_card &card, int at, int end);

// The slot of an element by the card's own table, or NO_SLOT.
int own_slot(const barcode_card &card, int key);

// The slot of an element by the first other table that has it, newest first, or NO_SLOT.
int other_slot(int key);

// Whether an element that a subfile may hold stands at `at`: one of any table, or, in a jurisdiction's
// subfile, one that begins with the type.
bool known_element_at(const barcode_card &card, int at, int end, const char *type);

bool begins_with_type(int key, const char *type);

// ---- values ---------------------------------------------------------------------------------------------

// Reads the element with this key, whose value is text[start, end): stores it in its slot, or in the info.
void read_element(barcode_card &card, int key, int at, int start, int end);

bool is_date(int slot);
bool is_placeholder(STRING value);

// Writes what `length` characters of the record's free space hold into a slot, names of several parts joined
// by one space.
void store_names(barcode_card &card, int slot, int length);

// ---- the steps ------------------------------------------------------------------------------------------

// Fills the twelve values from their siblings.
void complete(barcode_card &card);

// Reads elements that stand in text[start, end) without separators, `count` of them, when exactly one
// division fits. Nothing is stored otherwise.
bool read_undivided(barcode_card &card, const char *type, int start, int end, int count);

#endif
