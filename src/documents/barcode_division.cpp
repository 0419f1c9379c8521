// Text whose separators are lost. Letters that look like an identifier may stand inside a value (DAD in
// MCDADAMS), so the text is divided only where the subfile's length, the elements that the version demands
// and the formats that it fixes leave exactly one way.
#include "barcode_card.hpp"

#include "../ascii.hpp"

#include <string.h>

namespace {

constexpr int MOST_PLACES = 64;   // places that may begin an element
constexpr int MOST_STEPS = 20000; // of the search, so that no text takes long

// ---- what the standard fixes ----------------------------------------------------------------------------

enum characters { ANY, LETTERS, NUMERALS };

struct format {
  characters kind;
  int length; // 0 where it is not fixed
};

format format_of(int slot) {
  if (is_date(slot)) {
    return format{NUMERALS, 8};
  }
  switch (slot) {
  case FIELD_ADDRESS_JURISDICTION:
    return format{LETTERS, 2};
  case FIELD_COUNTRY_CODE:
  case FIELD_COUNTRY_ID:
  case FIELD_EYE_COLOR:
    return format{LETTERS, 3};
  case FIELD_HEIGHT_FT_IN:
  case FIELD_WEIGHT_LB:
  case FIELD_WEIGHT_KG:
    return format{NUMERALS, 3};
  case FIELD_COMPLIANCE_TYPE:
  case FIELD_FAMILY_NAME_TRUNCATION:
  case FIELD_FIRST_NAME_TRUNCATION:
  case FIELD_MIDDLE_NAME_TRUNCATION:
    return format{LETTERS, 1};
  case FIELD_WEIGHT_RANGE:
  case FIELD_LIMITED_DURATION:
  case FIELD_VETERAN:
    return format{NUMERALS, 1};
  case FIELD_SEX: // a letter in version 01
  case FIELD_ORGAN_DONOR:
    return format{ANY, 1};
  case FIELD_STD_VEHICLE_CLASS:
  case FIELD_FEDERAL_VEHICLE_CODES:
    return format{ANY, 4};
  case FIELD_STD_ENDORSEMENT:
    return format{ANY, 5};
  case FIELD_HEIGHT:
    return format{ANY, 6};
  case FIELD_ADDRESS_POSTAL_CODE:
    return format{ANY, 11};
  default:
    return format{ANY, 0};
  }
}

bool fits(int slot, STRING value) {
  const format fixed = format_of(slot);
  if (is_placeholder(value)) {
    return true; // what stands for a missing value is as long as it is
  }
  if (fixed.length != 0 && value.len != fixed.length) {
    return false;
  }
  for (int i = 0; i < value.len && fixed.kind != ANY; ++i) {
    const int c = char_value(value.str[i]);
    if (fixed.kind == LETTERS ? !ascii::is_upper(c) : !ascii::is_digit(c)) {
      return false;
    }
  }
  return true;
}

// Slots that every version demands, then those that it adds. A 0 ends each list.
constexpr unsigned char DEMANDED[] = {FIELD_ADDRESS_STREET_1,     FIELD_ADDRESS_CITY,
                                      FIELD_ADDRESS_JURISDICTION, FIELD_ADDRESS_POSTAL_CODE,
                                      FIELD_DOCUMENT_NUMBER,      FIELD_RESTRICTION_CODES,
                                      FIELD_ENDORSEMENT_CODES,    FIELD_EXPIRATION_DATE,
                                      FIELD_DATE_OF_BIRTH,        FIELD_SEX,
                                      FIELD_ISSUE_DATE,           0};
constexpr unsigned char DEMANDED_01[] = {FIELD_FULL_NAME, FIELD_LICENSE_CLASS, 0};
constexpr unsigned char DEMANDED_02[] = {FIELD_WEIGHT_RANGE, // which version 03 demands no more,
                                         FIELD_NAME_SUFFIX,  // nor this
                                         FIELD_VEHICLE_CLASS,
                                         FIELD_FAMILY_NAME,
                                         FIELD_GIVEN_NAMES,
                                         FIELD_EYE_COLOR,
                                         FIELD_HEIGHT,
                                         FIELD_DOCUMENT_DISCRIMINATOR,
                                         FIELD_COUNTRY_CODE,
                                         FIELD_FEDERAL_VEHICLE_CODES,
                                         0};
constexpr const unsigned char *DEMANDED_03 = DEMANDED_02 + 2;
constexpr unsigned char DEMANDED_04[] = {FIELD_VEHICLE_CLASS,
                                         FIELD_FAMILY_NAME,
                                         FIELD_FIRST_NAME,
                                         FIELD_MIDDLE_NAME,
                                         FIELD_EYE_COLOR,
                                         FIELD_HEIGHT,
                                         FIELD_DOCUMENT_DISCRIMINATOR,
                                         FIELD_COUNTRY_CODE,
                                         FIELD_FAMILY_NAME_TRUNCATION,
                                         FIELD_FIRST_NAME_TRUNCATION,
                                         FIELD_MIDDLE_NAME_TRUNCATION,
                                         0};

const unsigned char *demanded_by(int version) {
  switch (version) {
  case 0:
  case 1:
    return DEMANDED_01;
  case 2:
    return DEMANDED_02;
  case 3:
    return DEMANDED_03;
  default:
    return DEMANDED_04;
  }
}

// Elements of driving, which an identification card does not have.
bool is_of_driving(int slot) {
  return slot == FIELD_VEHICLE_CLASS || slot == FIELD_LICENSE_CLASS || slot == FIELD_RESTRICTION_CODES ||
         slot == FIELD_ENDORSEMENT_CODES || slot == FIELD_FEDERAL_VEHICLE_CODES;
}

// The slot by which the lists above name an element that goes to different slots in different tables.
int listed_slot(int slot) {
  switch (slot) {
  case FIELD_BIRTH_DATE:
    return FIELD_DATE_OF_BIRTH;
  case FIELD_PERSONAL_NUMBER:
    return FIELD_DOCUMENT_NUMBER;
  case FIELD_COUNTRY_ID:
    return FIELD_COUNTRY_CODE;
  default:
    return slot;
  }
}

bool lists(const unsigned char *slots, int slot) {
  while (*slots != 0 && *slots != slot) {
    ++slots;
  }
  return *slots != 0;
}

// ---- the search -----------------------------------------------------------------------------------------

static_assert(VARNEL_BARCODE_TEXT_MAX <= UINT16_MAX + 1, "a place is less than the size of a text");

struct place {
  uint16_t at;  // from the start of the text to divide
  uint8_t slot; // 0 for an element of a jurisdiction's subfile
};

struct division {
  const barcode_card *card;
  const char *type;
  int start;
  int end;
  int place_count;
  place places[MOST_PLACES];
  int chosen_count;
  uint8_t chosen[MOST_PLACES]; // places, in their order
};

int key_at(const division &d, int place_number) {
  return identifier_at(*d.card, d.start + d.places[place_number].at, d.end).key;
}

// The slot of an element that the version knows: of its table, or demanded by it though its table lacks it.
int version_slot(const barcode_card &card, int key) {
  const int own = own_slot(card, key);
  if (own != NO_SLOT) {
    return own;
  }
  const int other = other_slot(key);
  const bool demanded = other != NO_SLOT && lists(demanded_by(card.info->version), listed_slot(other));
  return demanded ? other : NO_SLOT;
}

bool find_places(division &d) {
  for (int at = d.start; at < d.end; ++at) {
    const identifier found = identifier_at(*d.card, at, d.end);
    if (found.key == 0 || found.small) {
      continue;
    }
    const int slot = begins_with_type(found.key, d.type) ? 0 : version_slot(*d.card, found.key);
    if (slot == NO_SLOT) {
      continue;
    }
    if (d.place_count == MOST_PLACES) {
      return false;
    }
    d.places[d.place_count++] = place{static_cast<uint16_t>(at - d.start), static_cast<uint8_t>(slot)};
  }
  return d.place_count > 0 && d.places[0].at == 0;
}

bool is_chosen(const division &d, int key) {
  for (int i = 0; i < d.chosen_count; ++i) {
    if (key_at(d, d.chosen[i]) == key) {
      return true;
    }
  }
  return false;
}

bool last_value_fits(const division &d, int next_at) {
  const place &last = d.places[d.chosen[d.chosen_count - 1]];
  const int value_at = last.at + 3;
  return next_at >= value_at &&
         fits(last.slot, STRING{d.card->text + d.start + value_at, next_at - value_at});
}

bool has_slot_chosen(const division &d, int slot) {
  for (int i = 0; i < d.chosen_count; ++i) {
    if (listed_slot(d.places[d.chosen[i]].slot) == slot) {
      return true;
    }
  }
  return false;
}

bool has_all_of(const division &d, const unsigned char *slots) {
  const bool is_card = d.type[0] == 'I';
  for (; *slots != 0; ++slots) {
    if (!has_slot_chosen(d, *slots) && !(is_card && is_of_driving(*slots))) {
      return false;
    }
  }
  return true;
}

bool has_demanded(const division &d) {
  return d.type[0] == 'Z' || (has_all_of(d, DEMANDED) && has_all_of(d, demanded_by(d.card->info->version)));
}

bool can_follow(const division &d, int place_number) {
  return last_value_fits(d, d.places[place_number].at) && !is_chosen(d, key_at(d, place_number));
}

bool is_division(const division &d) { return last_value_fits(d, d.end - d.start) && has_demanded(d); }

// Tries every choice of `count` places in order, the first place always among them. When exactly one divides
// the text, it is left in `chosen`; false else.
bool find_only_division(division &d, int count) {
  uint8_t found[MOST_PLACES];
  int divisions = 0;
  int steps = 0;
  int next = 1;       // the place to try after those chosen
  d.chosen_count = 1; // the first place, which stays
  for (;;) {
    if (++steps > MOST_STEPS) {
      return false;
    }
    if (d.chosen_count == count) {
      if (is_division(d)) {
        if (++divisions == 2) {
          return false;
        }
        memcpy(found, d.chosen, sizeof found);
      }
    } else if (d.place_count - next >= count - d.chosen_count) {
      if (can_follow(d, next)) {
        d.chosen[d.chosen_count++] = static_cast<uint8_t>(next);
      }
      ++next;
      continue;
    }
    // Nothing more follows the last choice: try the place after it instead.
    if (--d.chosen_count == 0) {
      break;
    }
    next = d.chosen[d.chosen_count] + 1;
  }
  memcpy(d.chosen, found, sizeof found);
  d.chosen_count = count;
  return divisions == 1;
}

} // namespace

bool read_undivided(barcode_card &card, const char *type, int start, int end, int count) {
  division d = {&card, type, start, end, 0, {}, 0, {}};
  const bool divided = count >= 1 && count <= MOST_PLACES && find_places(d) && d.place_count >= count &&
                       find_only_division(d, count);
  if (!divided) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    const int at = start + d.places[d.chosen[i]].at;
    const int value_end = i + 1 < count ? start + d.places[d.chosen[i + 1]].at : end;
    read_element(card, key_at(d, d.chosen[i]), at, at + 3, value_end);
  }
  return true;
}
