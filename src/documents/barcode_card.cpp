#include "barcode_card.hpp"

#include "../ascii.hpp"
#include "../record/slots.hpp"
#include "../utf8.hpp"

#include <string.h>

using record::fill_slot;
using record::free_size;
using record::free_space;

namespace {

constexpr int HAWAII = 636047;

int slot_in(const element_table &table, int key) {
  return utils_barcode2fieldtype(key, table.rows, table.size, nullptr);
}

bool equals_ignoring_case(STRING value, STRING capitals) {
  if (value.len != capitals.len) {
    return false;
  }
  for (int i = 0; i < value.len; ++i) {
    if (ascii::to_upper(char_value(value.str[i])) != capitals.str[i]) {
      return false;
    }
  }
  return true;
}

element_table table_of(int version, int issuer_number) {
  if (version == NO_VERSION || version >= 8) {
    return element_table{MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE};
  }
  if (version <= 1) {
    return element_table{MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE};
  }
  if (version <= 3) {
    return element_table{MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE};
  }
  if (version == 4 && issuer_number == HAWAII) {
    return element_table{MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE};
  }
  return element_table{MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE};
}

// A place among 256 for an element, by the bits in which those of the standard differ.
constexpr int place_of(int key) { return (key >> 20 & 1) << 7 | (key >> 8 & 3) << 5 | (key & 31); }

// The standard leaves the identifiers that begin with Z to the jurisdictions: no table has one.
constexpr bool is_jurisdictions(int key) { return key >> 16 == 'Z'; }

void trim_start(STRING &value) {
  while (value.len > 0 && value.str[0] == ' ') {
    ++value.str;
    --value.len;
  }
}

// From a value's end, commas are trimmed too.
void trim_end(STRING &value) {
  while (value.len > 0 && (value.str[value.len - 1] == ' ' || value.str[value.len - 1] == ',')) {
    --value.len;
  }
}

// ---- characters -----------------------------------------------------------------------------------------

// The control characters of ASCII and of ISO 8859-1, in whichever encoding.
bool is_control(const char *character, int bytes) {
  const unsigned char c = static_cast<unsigned char>(character[0]);
  if (bytes == 1) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
  }
  return bytes == 2 && c == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

// Writes one character of `bytes` bytes as UTF-8, a lone byte above ASCII as the ISO 8859-1 character that it
// is. Returns the bytes written, at most 4.
int write_character(char *out, const char *character, int bytes) {
  const unsigned char c = static_cast<unsigned char>(character[0]);
  if (bytes == 1 && c >= 0x80) {
    out[0] = static_cast<char>(0xC0 | c >> 6);
    out[1] = static_cast<char>(0x80 | (c & 0x3F));
    return 2;
  }
  memcpy(out, character, static_cast<size_t>(bytes));
  return bytes;
}

using printable_characters = character_set<range<' ', '~'>>;

// Where a value that goes to the record's free space may end, so that a NUL has room after it.
int room_of(const barcode_card &card) { return free_size(card.record) - 2; }

// Copies a text to the record's free space and returns its length; when it does not fit, the card has no
// room.
int copy_text(barcode_card &card, STRING text) {
  if (text.len > room_of(card)) {
    card.has_room = false;
    return 0;
  }
  if (text.len > 0) {
    memmove(free_space(card.record), text.str, static_cast<size_t>(text.len)); // it may stand there already
  }
  return text.len;
}

struct clean_value {
  STRING text;
  bool controls_left_out;
};

// A trimmed value as UTF-8 without control characters: itself, or written to the record's free space. When it
// does not fit there, the card has no room.
clean_value clean(barcode_card &card, STRING value) {
  if (printable_characters::covers(value)) { // the usual value: nothing to encode or to leave out
    return clean_value{value, false};
  }
  clean_value cleaned = {{free_space(card.record), 0}, false};
  char *out = free_space(card.record);
  int length = 0;
  for (int at = 0; at < value.len;) {
    const char *character = value.str + at;
    const int bytes = utf8::sequence_length(character, static_cast<size_t>(value.len - at));
    at += bytes;
    if (is_control(character, bytes)) {
      cleaned.controls_left_out = true;
      continue;
    }
    if (*character == ' ' && length == 0) {
      continue; // padding that stood after a control character
    }
    char encoded[4];
    const int size = write_character(encoded, character, bytes);
    if (length + size > room_of(card)) {
      card.has_room = false;
      return cleaned;
    }
    memcpy(out + length, encoded, static_cast<size_t>(size));
    length += size;
  }
  cleaned.text.len = length;
  trim_end(cleaned.text);
  return cleaned;
}

// ---- dates ----------------------------------------------------------------------------------------------

struct digits {
  char text[8];
  int count; // 9 for more than eight; -1 for another character
  bool separated;
};

digits digits_of(STRING value) {
  digits found = {{}, 0, false};
  for (int i = 0; i < value.len; ++i) {
    const char c = value.str[i];
    if (c == '-' || c == '/' || c == '.' || c == ' ') {
      found.separated = true;
    } else if (!ascii::is_digit(char_value(c))) {
      found.count = -1;
      return found;
    } else if (found.count < 8) {
      found.text[found.count++] = c;
    } else {
      found.count = 9;
      return found;
    }
  }
  return found;
}

int number(const char *text, int length) {
  int value = 0;
  for (int i = 0; i < length; ++i) {
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

// Whether eight digits, year first, are a day of the calendar.
bool is_day(const char *date) {
  const DATETIME day = {number(date, 4), number(date + 4, 2), number(date + 6, 2), 0, 0, 0};
  return utils_validate_date(&day) == ERR_OK &&
         utils_validate_days_in_month(day.year, day.month, day.day) == day.day;
}

// Dates stand month first or year first, whatever the country; their first two digits tell: 01 to 12 is a
// month, 18 to 21 a century. Turns them year first.
bool read_date(const char *found, char *date, bool *month_first) {
  const int lead = number(found, 2);
  *month_first = lead >= 1 && lead <= 12;
  if (!*month_first && (lead < 18 || lead > 21)) {
    return false;
  }
  const int year_at = *month_first ? 4 : 0;
  memcpy(date, found + year_at, 4);
  memcpy(date + 4, found + (4 - year_at), 4);
  return is_day(date);
}

void store_date(barcode_card &card, int key, int slot, STRING value, int offset) {
  const digits found = digits_of(value);
  const element_name name(key);
  if (found.count == 8 && memcmp(found.text, "00000000", 8) == 0) {
    return; // no date
  }
  char date[8];
  bool month_first = false;
  if (found.count != 8 || !read_date(found.text, date, &month_first)) {
    add_finding(card.info, VARNEL_BARCODE_BAD_DATE, offset, name.text);
    return;
  }
  if (found.separated) {
    add_finding(card.info, VARNEL_BARCODE_DATE_SEPARATORS, offset, name.text);
  }
  const int length = copy_text(card, STRING{date, sizeof date});
  fill_slot(card.record, slot, length);
  card.dates[card.date_count] = stored_date{key, offset, month_first};
  card.date_count += length > 0 ? 1 : 0;
}

// ---- other values ---------------------------------------------------------------------------------------

void store_sex(barcode_card &card, STRING value) {
  const char c = value.len == 1 ? value.str[0] : '\0';
  const char *sex = c == '1' || c == 'M' ? "M" : c == '2' || c == 'F' ? "F" : "";
  fill_slot(card.record, FIELD_SEX, copy_text(card, STRING{sex, text_length(sex)}));
}

void store_text(barcode_card &card, int slot, STRING value, int offset) {
  const int length = copy_text(card, value);
  if (slot == FIELD_MIDDLE_NAME) {
    store_names(card, slot, length);
  } else {
    fill_slot(card.record, slot, length);
  }
  if (slot == FIELD_FULL_NAME) {
    card.full_name_at = offset;
  } else if (slot == FIELD_GIVEN_NAMES) {
    card.given_names_at = offset;
  }
}

// Keeps an element that has no slot.
void keep_element(varnel_barcode_info *info, int key, int start, int end) {
  if (info->element_count == VARNEL_BARCODE_ELEMENTS) {
    ++info->omitted_elements;
    return;
  }
  varnel_barcode_element *element = &info->elements[info->element_count++];
  memcpy(element->element, element_name(key).text, sizeof element->element);
  element->start = static_cast<uint32_t>(start);
  element->end = static_cast<uint32_t>(end);
}

} // namespace

void use_table(barcode_card &card, int version, int issuer_number) {
  card.table = table_of(version, issuer_number);
  memset(card.rows, 0, sizeof card.rows);
  for (int row = card.table.size; row > 0; --row) { // from the end: the first row of an element stays
    card.rows[place_of(card.table.rows[row - 1].key)] = static_cast<uint8_t>(row);
  }
}

void add_finding(varnel_barcode_info *info, int code, int offset, const char *name) {
  if (info->finding_count == VARNEL_BARCODE_FINDINGS_MAX) {
    ++info->omitted_findings;
    return;
  }
  const uint32_t place = static_cast<uint32_t>(offset);
  int at = info->finding_count++;
  for (; at > 0 && info->findings[at - 1].offset > place; --at) {
    info->findings[at] = info->findings[at - 1];
  }
  varnel_barcode_finding *finding = &info->findings[at];
  *finding = varnel_barcode_finding{static_cast<uint8_t>(code), {}, place};
  for (int i = 0; i < 3 && name[i] != '\0'; ++i) {
    finding->element[i] = name[i];
  }
}

identifier identifier_at(const barcode_card &card, int at, int end) {
  if (end - at < 3) {
    return identifier{0, false};
  }
  identifier found = {0, false};
  for (int i = 0; i < 3; ++i) {
    const int c = char_value(card.text[at + i]);
    if (!(ascii::is_alpha(c) || (i == 2 && ascii::is_digit(c)))) {
      return identifier{0, false};
    }
    found.small = found.small || ascii::is_lower(c);
    found.key = found.key << 8 | ascii::to_upper(c);
  }
  return found;
}

int own_slot(const barcode_card &card, int key) {
  const int row = card.rows[place_of(key)];
  if (row == 0) {
    return NO_SLOT;
  }
  const MAPPING &found = card.table.rows[row - 1];
  return found.key == key ? found.value : slot_in(card.table, key); // two elements may share a place
}

int other_slot(int key) {
  if (is_jurisdictions(key)) {
    return NO_SLOT;
  }
  const element_table tables[] = {{MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE},
                                  {MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE},
                                  {MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE},
                                  {MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE}};
  for (const element_table &table : tables) {
    const int slot = slot_in(table, key);
    if (slot != NO_SLOT) {
      return slot;
    }
  }
  return NO_SLOT;
}

bool begins_with_type(int key, const char *type) {
  return type[0] == 'Z' && key >> 8 == (type[0] << 8 | type[1]);
}

bool known_element_at(const barcode_card &card, int at, int end, const char *type) {
  const int key = identifier_at(card, at, end).key;
  return key != 0 &&
         (own_slot(card, key) != NO_SLOT || begins_with_type(key, type) || other_slot(key) != NO_SLOT);
}

bool is_date(int slot) {
  switch (slot) {
  case FIELD_EXPIRATION_DATE:
  case FIELD_DATE_OF_BIRTH:
  case FIELD_BIRTH_DATE:
  case FIELD_ISSUE_DATE:
  case FIELD_PERMIT_EXPIRATION_DATE:
  case FIELD_PERMIT_ISSUE_DATE:
  case FIELD_AKA_DATE_OF_BIRTH:
  case FIELD_CARD_REVISION_DATE:
  case FIELD_HAZMAT_EXPIRATION_DATE:
  case FIELD_UNDER_18_UNTIL:
  case FIELD_UNDER_19_UNTIL:
  case FIELD_UNDER_21_UNTIL:
    return true;
  default:
    return false;
  }
}

bool is_placeholder(STRING value) {
  return equals_ignoring_case(value, STRING{"NONE", 4}) || equals_ignoring_case(value, STRING{"UNAVL", 5}) ||
         equals_ignoring_case(value, STRING{"UNAVAIL", 7});
}

void store_names(barcode_card &card, int slot, int length) {
  char *names = free_space(card.record);
  int written = 0;
  for (int at = 0; at < length;) {
    const void *comma = memchr(names + at, ',', static_cast<size_t>(length - at));
    const int end = comma != nullptr ? static_cast<int>(static_cast<const char *>(comma) - names) : length;
    STRING part = {names + at, end - at};
    utils_strtrim(&part, " ");
    at = end + 1;
    if (part.len == 0 || is_placeholder(part)) {
      continue;
    }
    if (written > 0) {
      names[written++] = ' ';
    }
    written += utils_strcpy(names + written, part.len, &part, nullptr, " ", '\0');
  }
  // What moved up left its old text after the new end; a slot ends with its NUL.
  for (int at = written; at < length; ++at) {
    names[at] = '\0';
  }
  fill_slot(card.record, slot, written);
}

void read_element(barcode_card &card, int key, int at, int start, int end) {
  int slot = own_slot(card, key);
  const bool own = slot != NO_SLOT;
  slot = own ? slot : other_slot(key);
  if (slot == NO_SLOT) {
    add_finding(card.info, VARNEL_BARCODE_UNKNOWN, at, element_name(key).text);
    keep_element(card.info, key, start, end);
    return;
  }
  STRING value = {card.text + start, end - start};
  trim_start(value);
  trim_end(value);
  const clean_value cleaned = clean(card, value);
  value = cleaned.text;
  const bool missing = value.len <= 0 || (slot != FIELD_FAMILY_NAME && is_placeholder(value));
  const bool repeated = !missing && !is_empty(card.record->fields[slot].value);
  if (cleaned.controls_left_out && !repeated) {
    add_finding(card.info, VARNEL_BARCODE_CONTROL, start, element_name(key).text);
  }
  if (missing) {
    return;
  }
  ++card.known_elements;
  if (!own) {
    add_finding(card.info, VARNEL_BARCODE_OTHER_TABLE, at, element_name(key).text);
  }
  if (repeated) {
    add_finding(card.info, VARNEL_BARCODE_REPEATED, at, element_name(key).text);
    keep_element(card.info, key, start, end);
    return;
  }
  if (is_date(slot)) {
    store_date(card, key, slot, value, start);
  } else if (slot == FIELD_SEX) {
    store_sex(card, value);
  } else {
    store_text(card, slot, value, start);
  }
}
