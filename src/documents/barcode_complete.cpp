// The twelve values from their siblings: the element tables of different versions put one element into
// different slots, of which the export reads one.
#include "barcode_card.hpp"

#include "../record/slots.hpp"

#include <string.h>

using record::fill_slot;
using record::free_size;
using record::free_space;

namespace {

bool is_filled(const barcode_card &card, int slot) {
  return utils_is_valid_field(card.record, slot) == ERR_OK;
}

// Lets an empty slot show the text of another. The text is shared, not copied.
void share(const barcode_card &card, int slot, int sibling) {
  if (!is_filled(card, slot)) {
    card.record->fields[slot] = card.record->fields[sibling];
  }
}

void write_text(barcode_card &card, int slot, const char *text) {
  if (free_size(card.record) < text_length(text) + 2) {
    card.has_room = false;
    return;
  }
  utils_write_field_s(card.record, slot, text);
}

// Takes the part before the first separator from a view, without padding.
STRING take_part(STRING &rest, char separator) {
  const void *found = rest.len > 0 ? memchr(rest.str, separator, static_cast<size_t>(rest.len)) : nullptr;
  STRING part = rest;
  if (found != nullptr) {
    part.len = static_cast<int>(static_cast<const char *>(found) - rest.str);
    rest.str += part.len + 1;
    rest.len -= part.len + 1;
  } else {
    rest.str += rest.len;
    rest.len = 0;
  }
  utils_strtrim(&part, " ");
  return part;
}

int parts_of(STRING names) {
  int parts = 1;
  for (int i = 0; i < names.len; ++i) {
    parts += names.str[i] == ',' ? 1 : 0;
  }
  return parts;
}

// Copies a name into its slot when that is empty. NONE and its like are no name, but a family may bear it.
void store_name(barcode_card &card, int slot, STRING name) {
  if (name.len == 0 || is_filled(card, slot) || (slot != FIELD_FAMILY_NAME && is_placeholder(name))) {
    return;
  }
  if (free_size(card.record) < name.len + 2) {
    card.has_room = false;
    return;
  }
  memmove(free_space(card.record), name.str, static_cast<size_t>(name.len));
  if (slot == FIELD_MIDDLE_NAME) {
    store_names(card, slot, name.len);
  } else {
    fill_slot(card.record, slot, name.len);
  }
}

// First and middle names: at commas, else at the first space.
void split_given_names(barcode_card &card, STRING names) {
  const STRING first = take_part(names, parts_of(names) > 1 ? ',' : ' ');
  store_name(card, FIELD_FIRST_NAME, first);
  store_name(card, FIELD_MIDDLE_NAME, names);
}

void split_full_name(barcode_card &card, STRING name) {
  const int parts = parts_of(name);
  store_name(card, FIELD_FAMILY_NAME, take_part(name, ','));
  if (parts == 2) {
    utils_strtrim(&name, " ");
    split_given_names(card, name);
    return;
  }
  store_name(card, FIELD_FIRST_NAME, take_part(name, ','));
  store_name(card, FIELD_MIDDLE_NAME, take_part(name, ','));
  store_name(card, FIELD_NAME_SUFFIX, take_part(name, ','));
}

// Whether copies of a name's parts have room in the buffer that is always enough. Only a long name of ISO
// 8859-1 bytes, each of which has become two, has not: no edition allows one so long.
bool copies_fit(const barcode_card &card, STRING name) {
  constexpr int terminators = 5;
  return card.record->data_size + name.len + terminators < VARNEL_BARCODE_BUFFER_SIZE(card.size);
}

void split_names(barcode_card &card) {
  if (is_filled(card, FIELD_FAMILY_NAME) && is_filled(card, FIELD_FIRST_NAME) &&
      is_filled(card, FIELD_MIDDLE_NAME)) {
    return;
  }
  const STRING full_name = card.record->fields[FIELD_FULL_NAME].value;
  if (!is_empty(full_name)) {
    const int parts = parts_of(full_name);
    if (parts >= 2 && parts <= 4 && copies_fit(card, full_name)) {
      split_full_name(card, full_name);
    } else {
      add_finding(card.info, VARNEL_BARCODE_NAME_NOT_SPLIT, card.full_name_at, "DAA");
    }
  }
  const STRING given_names = card.record->fields[FIELD_GIVEN_NAMES].value;
  if (!is_empty(given_names)) {
    if (copies_fit(card, given_names)) {
      split_given_names(card, given_names);
    } else {
      add_finding(card.info, VARNEL_BARCODE_NAME_NOT_SPLIT, card.given_names_at, "DCT");
    }
  }
}

void write_document_type(barcode_card &card) {
  for (int i = 0; i < card.info->subfile_count; ++i) {
    if (card.info->subfiles[i][0] != 'Z') {
      write_text(card, FIELD_DOCUMENT_TYPE, card.info->subfiles[i]);
      return;
    }
  }
}

void write_jurisdiction(barcode_card &card) {
  const bool has_code =
      is_filled(card, FIELD_RESIDENCE_JURISDICTION) || is_filled(card, FIELD_ADDRESS_JURISDICTION);
  if (!has_code && card.info->jurisdiction[0] != '\0') {
    write_text(card, FIELD_ADDRESS_JURISDICTION, card.info->jurisdiction);
    add_finding(card.info, VARNEL_BARCODE_BY_ISSUER, card.issuer_at, "DAJ");
  }
}

// Year first in Canada and before version 02, month first in the United States and everywhere in version 02.
// Where the country is not known, nothing is expected.
enum date_order { ANY_ORDER, YEAR_FIRST, MONTH_FIRST };

date_order expected_order(const barcode_card &card) {
  if (card.info->version == NO_VERSION) {
    return ANY_ORDER;
  }
  if (card.info->version <= 2) {
    return card.info->version <= 1 ? YEAR_FIRST : MONTH_FIRST;
  }
  const STRING *country = &card.record->fields[FIELD_COUNTRY_CODE].value;
  if (utils_strcmp(country, "USA") == 0) {
    return MONTH_FIRST;
  }
  return utils_strcmp(country, "CAN") == 0 || utils_strcmp(country, "CDN") == 0 ? YEAR_FIRST : ANY_ORDER;
}

void compare_date_orders(barcode_card &card) {
  const date_order expected = expected_order(card);
  for (int i = 0; i < card.date_count; ++i) {
    const stored_date &date = card.dates[i];
    if (expected != ANY_ORDER && date.month_first != (expected == MONTH_FIRST)) {
      add_finding(card.info, VARNEL_BARCODE_DATE_ORDER, date.offset, element_name(date.key).text);
    }
  }
}

} // namespace

void complete(barcode_card &card) {
  share(card, FIELD_BIRTH_DATE, FIELD_DATE_OF_BIRTH);
  share(card, FIELD_DOCUMENT_NUMBER, FIELD_PERSONAL_NUMBER);
  share(card, FIELD_COUNTRY_CODE, FIELD_COUNTRY_ID);
  if (!is_filled(card, FIELD_COUNTRY_CODE)) {
    write_text(card, FIELD_COUNTRY_CODE, card.info->country);
  }
  write_jurisdiction(card);
  write_document_type(card);
  split_names(card);
  compare_date_orders(card);
}
