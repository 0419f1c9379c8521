#include <Varnel/documents/compose.h>

#include <string.h>

#include "../ascii.hpp"
#include "calendar.hpp"
#include "characters.hpp"
#include "check_digit.hpp"
#include "layouts.hpp"
#include "name_writer.hpp"
#include "states.hpp"
#include "zone_text.hpp"

namespace documents {

namespace {

// The most characters of a long document number, digit and closing filler not counted: what its own columns
// and those of the optional data hold (Doc 9303-5, 9303-6, note j). No long numbers: as many as its own
// columns.
constexpr size_t longest_number(const layout &l) {
  const stretch number = l.find(VARNEL_DOCUMENT_NUMBER)->place;
  const size_t own = number.length;
  return l.optional_data.length > 0 ? own + l.optional_data.length - 2 : own;
}

struct optional_field {
  int field;
  const char *varnel_compose_fields::*value;
};

constexpr optional_field OPTIONAL_FIELDS[] = {
    {VARNEL_OPTIONAL_DATA_1, &varnel_compose_fields::optional_data_1},
    {VARNEL_OPTIONAL_DATA_2, &varnel_compose_fields::optional_data_2},
    {VARNEL_OPTIONAL_DATA, &varnel_compose_fields::optional_data},
    {VARNEL_PERSONAL_NUMBER, &varnel_compose_fields::personal_number},
};

bool is_empty(const char *text) { return text == nullptr || text[0] == '\0'; }

bool is_state(const char *code, int length) {
  return is_listed_state(code, length) || is_residence_permit_code(code, length);
}

// The number that two digits make, UNKNOWN_PART for "XX", or NO_PART.
constexpr int UNKNOWN_PART = 0;
constexpr int NO_PART = -1;

int read_part(const char *text, bool may_be_unknown) {
  if (ascii::is_digit(text[0]) && ascii::is_digit(text[1])) {
    const int value = (text[0] - '0') * 10 + (text[1] - '0');
    return value > 0 ? value : NO_PART;
  }
  return may_be_unknown && text[0] == 'X' && text[1] == 'X' ? UNKNOWN_PART : NO_PART;
}

// Reads "YYYY-MM-DD"; month and day are UNKNOWN_PART where "XX" stands for them and may stand. Returns
// whether there is such a date.
bool read_date(const char *text, bool may_be_unknown, date &out) {
  if (strlen(text) != 10 || text[4] != '-' || text[7] != '-') {
    return false;
  }
  out.year = 0;
  for (int i = 0; i < 4; ++i) {
    if (!ascii::is_digit(text[i])) {
      return false;
    }
    out.year = out.year * 10 + (text[i] - '0');
  }
  out.month = read_part(text + 5, may_be_unknown);
  out.day = read_part(text + 8, may_be_unknown);
  if (out.month == UNKNOWN_PART && out.day != UNKNOWN_PART) {
    return false;
  }
  return exists(
      date{out.year, out.month == UNKNOWN_PART ? 1 : out.month, out.day == UNKNOWN_PART ? 1 : out.day});
}

constexpr bool is_fully_known(date d) {
  return d.year != 0 && d.month != UNKNOWN_PART && d.day != UNKNOWN_PART;
}

void write_two_digits(char *out, int number) {
  out[0] = static_cast<char>('0' + number / 10);
  out[1] = static_cast<char>('0' + number % 10);
}

// As YYMMDD; unknown parts are left as the fillers they are.
void write_date(char *out, date d) {
  write_two_digits(out, d.year % 100);
  if (d.month != UNKNOWN_PART) {
    write_two_digits(out + 2, d.month);
  }
  if (d.day != UNKNOWN_PART) {
    write_two_digits(out + 4, d.day);
  }
}

// Fills the lines of one zone, field by field. Each step returns whether it could; if not, the error says
// why.
class composer {
public:
  composer(const varnel_compose_fields &fields, const layout &l, language of)
      : fields_(fields), layout_(l), language_(of), free_optional_(l.optional_data) {
    memset(lines_, FILLER, sizeof lines_);
  }

  bool compose() {
    const bool composed = write_code() && write_state(VARNEL_ISSUING_STATE, fields_.issuing_state) &&
                          write_document_number() && write_state(VARNEL_NATIONALITY, fields_.nationality) &&
                          write_birth_date() && write_sex() && write_expiry_date() && write_names() &&
                          write_optional_data();
    if (composed) {
      write_check_digits();
    }
    return composed;
  }

  void copy_to(varnel_zone &zone) const {
    memset(&zone, 0, sizeof zone);
    zone.line_count = layout_.lines;
    for (int i = 0; i < layout_.lines; ++i) {
      memcpy(zone.lines[i], lines_[i], layout_.width);
    }
  }

  const varnel_compose_error &error() const { return error_; }

private:
  bool refuse(int field, int reason, text_position at = {0, 0}) {
    error_ = {field, reason, at.character, at.offset};
    return false;
  }

  // Only of text that is ASCII up to there.
  bool refuse_at(int field, int reason, size_t at) { return refuse(field, reason, {at, at}); }

  char *columns_of(stretch place) { return lines_[place.line] + place.column; }
  stretch place_of(int field) const { return layout_.find(field)->place; }

  // A letter of the layout, then a letter, a digit or nothing.
  bool write_code() {
    const char *code = fields_.document_code;
    if (is_empty(code)) {
      return refuse(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_MISSING);
    }
    if (!ascii::is_upper(code[0])) {
      return refuse(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_BAD_CHARACTER);
    }
    if (code[1] != '\0' && !ascii::is_upper(code[1]) && !ascii::is_digit(code[1])) {
      return refuse_at(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_BAD_CHARACTER, 1);
    }
    if (code[1] != '\0' && code[2] != '\0') {
      return refuse_at(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_TOO_LONG, 2);
    }
    const bool is_card = code[0] == 'A' || code[0] == 'C' || code[0] == 'I';
    if (!layout_.has_first_letter(code[0]) || (is_card && code[1] == 'V')) {
      return refuse(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_UNKNOWN);
    }
    const char *state = fields_.issuing_state;
    if (layout_.id == VARNEL_LAYOUT_TD2 && code[0] == 'I' && code[1] == 'D' && state != nullptr &&
        strcmp(state, "FRA") == 0) {
      return refuse(VARNEL_DOCUMENT_CODE, VARNEL_COMPOSE_OTHER_LAYOUT);
    }
    memcpy(columns_of(place_of(VARNEL_DOCUMENT_CODE)), code, strlen(code));
    return true;
  }

  bool write_state(int field, const char *code) {
    if (is_empty(code)) {
      return refuse(field, VARNEL_COMPOSE_MISSING);
    }
    const stretch place = place_of(field);
    int length = 0;
    for (; code[length] != '\0'; ++length) {
      if (!ascii::is_upper(code[length])) {
        return refuse_at(field, VARNEL_COMPOSE_BAD_CHARACTER, static_cast<size_t>(length));
      }
      if (length == place.length) {
        return refuse_at(field, VARNEL_COMPOSE_TOO_LONG, place.length);
      }
    }
    if (!is_state(code, length)) {
      return refuse(field, VARNEL_COMPOSE_UNKNOWN);
    }
    memcpy(columns_of(place), code, static_cast<size_t>(length));
    return true;
  }

  // Capitals and digits, with a filler for each run of separators between them; `unseparated_room` holds
  // while there is none.
  bool read_number(int field, const char *text, size_t room, size_t unseparated_room, zone_text &out) {
    text_reader reader(text);
    while (!reader.at_end()) {
      const text_position at = reader.position();
      const char32_t c = reader.next();
      if (ascii::is_upper(static_cast<int>(c)) || ascii::is_digit(static_cast<int>(c))) {
        out.put(static_cast<char>(c));
        if (out.length() > (out.components() > 1 ? room : unseparated_room)) {
          return refuse(field, VARNEL_COMPOSE_TOO_LONG, at);
        }
      } else if (kind_of(c) == character_kind::separator) {
        out.separate();
      } else {
        return refuse(field, VARNEL_COMPOSE_BAD_CHARACTER, at);
      }
    }
    return true;
  }

  bool write_document_number() {
    const int field = VARNEL_DOCUMENT_NUMBER;
    const stretch place = place_of(field);
    zone_text number;
    if (!read_number(field, fields_.document_number, place.length, longest_number(layout_), number)) {
      return false;
    }
    if (number.is_empty()) {
      return refuse(field, VARNEL_COMPOSE_MISSING);
    }
    char text[zone_text::KEPT];
    const int length = number.write(text);
    const int own = length < place.length ? length : place.length;
    memcpy(columns_of(place), text, static_cast<size_t>(own));
    if (length > place.length) {
      write_rest_of_number(text, own, length);
    }
    return true;
  }

  // A long number goes on in the optional data, with its digit and a filler after it; the digit's own column
  // is a filler, which does not count (Doc 9303-5, 9303-6, note j).
  void write_rest_of_number(const char *text, int own, int length) {
    char *out = columns_of(free_optional_);
    const int rest = length - own;
    memcpy(out, text + own, static_cast<size_t>(rest));
    out[rest] = check_digit(text, length);
    const uint8_t used = static_cast<uint8_t>(rest + 2);
    free_optional_.column = static_cast<uint8_t>(free_optional_.column + used);
    free_optional_.length = static_cast<uint8_t>(free_optional_.length - used);
    has_long_number_ = true;
  }

  bool write_birth_date() {
    const char *text = fields_.birth_date;
    if (is_empty(text)) {
      return true;
    }
    if (!read_date(text, true, birth_)) {
      return refuse(VARNEL_BIRTH_DATE, VARNEL_COMPOSE_NOT_A_DATE);
    }
    write_date(columns_of(place_of(VARNEL_BIRTH_DATE)), birth_);
    return true;
  }

  bool write_sex() {
    const char *sex = fields_.sex;
    if (is_empty(sex)) {
      return refuse(VARNEL_SEX, VARNEL_COMPOSE_MISSING);
    }
    if (sex[0] != 'M' && sex[0] != 'F' && sex[0] != 'X') {
      return refuse(VARNEL_SEX, VARNEL_COMPOSE_BAD_CHARACTER);
    }
    if (sex[1] != '\0') {
      return refuse_at(VARNEL_SEX, VARNEL_COMPOSE_TOO_LONG, 1);
    }
    if (sex[0] != 'X') {
      *columns_of(place_of(VARNEL_SEX)) = sex[0];
    }
    return true;
  }

  bool write_expiry_date() {
    const char *text = fields_.expiry_date;
    if (is_empty(text)) {
      return refuse(VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_MISSING);
    }
    date expiry = {0, 0, 0};
    if (!read_date(text, false, expiry)) {
      return refuse(VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_NOT_A_DATE);
    }
    if (is_fully_known(birth_) && is_before(expiry, birth_)) {
      return refuse(VARNEL_EXPIRY_DATE, VARNEL_COMPOSE_DATES_ORDER);
    }
    write_date(columns_of(place_of(VARNEL_EXPIRY_DATE)), expiry);
    return true;
  }

  bool read_name(int field, const char *text, zone_text &out) {
    text_position bad = {0, 0};
    if (!write_name(text, language_, out, bad)) {
      return refuse(field, VARNEL_COMPOSE_BAD_CHARACTER, bad);
    }
    return true;
  }

  // The primary identifier, two fillers, the secondary one. Where they do not fit, the primary one leaves
  // room for at least one letter of the secondary one.
  bool write_names() {
    zone_text primary;
    zone_text secondary;
    if (!read_name(VARNEL_PRIMARY_IDENTIFIER, fields_.primary_identifier, primary)) {
      return false;
    }
    if (primary.is_empty()) {
      return refuse(VARNEL_PRIMARY_IDENTIFIER, VARNEL_COMPOSE_MISSING);
    }
    if (!read_name(VARNEL_SECONDARY_IDENTIFIER, fields_.secondary_identifier, secondary)) {
      return false;
    }
    constexpr int separator = 2;
    const stretch place = place_of(VARNEL_PRIMARY_IDENTIFIER);
    char *out = columns_of(place);
    if (secondary.is_empty()) {
      primary.write_cut(out, place.length);
      return true;
    }
    const int written = primary.write_cut(out, place.length - separator - 1);
    secondary.write_shortened(out + written + separator, place.length - written - separator);
    return true;
  }

  bool write_optional_data() {
    for (const optional_field &optional : OPTIONAL_FIELDS) {
      const field_place *place = layout_.find(optional.field);
      const char *value = fields_.*optional.value;
      if (place != nullptr) {
        if (!write_optional_field(optional.field, value, free_columns(place->place))) {
          return false;
        }
      } else if (!is_empty(value)) {
        return refuse(optional.field, VARNEL_COMPOSE_NOT_IN_LAYOUT);
      }
    }
    return true;
  }

  // What a long document number left of them. It goes on in the optional data that begin in that column.
  stretch free_columns(stretch place) const {
    return place.column == layout_.optional_data.column ? free_optional_ : place;
  }

  bool write_optional_field(int field, const char *text, stretch place) {
    zone_text data;
    if (!read_number(field, text, place.length, place.length, data)) {
      return false;
    }
    data.write(columns_of(place));
    has_personal_number_ = field == VARNEL_PERSONAL_NUMBER && !data.is_empty();
    return true;
  }

  // In the order of the table, so that the composite covers the others. A long number has its digit already,
  // and that of an empty personal number is a filler.
  void write_check_digits() {
    for (int i = 0; i < layout_.check_count; ++i) {
      const check_place &check = layout_.checks[i];
      if ((check.field == VARNEL_DOCUMENT_NUMBER && has_long_number_) ||
          (check.field == VARNEL_PERSONAL_NUMBER && !has_personal_number_)) {
        continue;
      }
      lines_[check.line][check.column] =
          expected_digit(check, [this](stretch place) { return columns_of(place); });
    }
  }

  const varnel_compose_fields &fields_;
  const layout &layout_;
  language language_;
  stretch free_optional_; // TD1, TD2: the columns that a long number goes on in, then what it left of them
  bool has_long_number_ = false;
  bool has_personal_number_ = false;
  date birth_ = {0, 0, 0};
  varnel_compose_error error_ = {VARNEL_FIELD_NONE, VARNEL_COMPOSE_NO_REASON, 0, 0};
  char lines_[VARNEL_ZONE_LINES][VARNEL_ZONE_WIDTH];
};

constexpr bool can_be_composed(int layout_id) {
  return layout_id >= VARNEL_LAYOUT_TD1 && layout_id <= VARNEL_LAYOUT_MRV_B;
}

int refuse(varnel_compose_error *error, const varnel_compose_error &why) {
  if (error != nullptr) {
    *error = why;
  }
  return ERR_INVALID_FORMAT;
}

} // namespace

} // namespace documents

using namespace documents;

int varnel_compose(const varnel_compose_fields *fields, const varnel_compose_options *options,
                   varnel_zone *zone, varnel_compose_error *error) {
  if (fields == nullptr || zone == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (!can_be_composed(fields->layout)) {
    return refuse(error, {VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN, 0, 0});
  }
  const language of = language_of(options != nullptr ? options->language : nullptr);
  if (of == language::unknown) {
    return refuse(error, {VARNEL_FIELD_NONE, VARNEL_COMPOSE_UNKNOWN_LANGUAGE, 0, 0});
  }
  composer work(*fields, LAYOUTS[fields->layout], of);
  if (!work.compose()) {
    return refuse(error, work.error());
  }
  work.copy_to(*zone);
  return ERR_OK;
}
