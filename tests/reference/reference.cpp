// The plain way to read each rule: slow, obvious, compared with the library.
#include "reference.hpp"

namespace reference {
namespace {

const STRING empty_view = {nullptr, 0};

bool is_empty(const STRING &view) { return view.len < 1 || view.str == nullptr; }

int length_of(const char *text) {
  int length = 0;
  while (text[length] != '\0')
    length += 1;
  return length;
}

bool occurs(char c, const char *set) {
  if (set == nullptr)
    return false;
  for (int i = 0; set[i] != '\0'; i += 1)
    if (set[i] == c)
      return true;
  return false;
}

// A character as every predicate gets it: bytes 0x80 to 0xFF are -128 to -1.
int as_int(char c) { return static_cast<signed char>(c); }

bool is_digit(int c) { return c >= '0' && c <= '9'; }
bool is_upper(int c) { return c >= 'A' && c <= 'Z'; }
bool is_lower(int c) { return c >= 'a' && c <= 'z'; }
bool is_alpha(int c) { return is_upper(c) || is_lower(c); }
bool is_alnum(int c) { return is_alpha(c) || is_digit(c); }
bool is_space(int c) { return c == 32 || c == 9 || c == 10 || c == 11 || c == 12 || c == 13; }
char to_upper(char c) { return is_lower(as_int(c)) ? static_cast<char>(c - 'a' + 'A') : c; }

bool slot_exists(int field) { return field >= 0 && field <= 138; }

} // namespace

// ---- the record -------------------------------------------------------------------------------------

int result_init(PARSE_RESULT *pResult, char *buffer, int buffer_size) {
  if (buffer == nullptr)
    return -21;
  if (buffer_size < 1)
    return -21;
  pResult->buffer = buffer;
  pResult->buffer_size = buffer_size;
  return reference::result_clear(pResult);
}

int result_clear(PARSE_RESULT *pResult) {
  if (pResult == nullptr || pResult->buffer == nullptr || pResult->buffer_size <= 0)
    return -21;
  pResult->parser_type = static_cast<EPARSER_TYPE>(6);
  pResult->parser = static_cast<EPARSER>(65);
  pResult->data_size = 0;
  for (int i = 0; i < 139; i += 1)
    pResult->fields[i].value = empty_view;
  for (int i = 0; i < pResult->buffer_size; i += 1)
    pResult->buffer[i] = 0;
  return 0;
}

int utils_is_valid_field(const PARSE_RESULT *pResult, int field) {
  const STRING value = pResult->fields[field].value;
  if (value.len < 1)
    return -1;
  if (value.str == nullptr)
    return -1;
  return 0;
}

int utils_get_valid_field(const PARSE_RESULT *pResult, const int *fields, int count, STRING *value) {
  for (int i = 0; i < count; i += 1) {
    if (reference::utils_is_valid_field(pResult, fields[i]) == 0) {
      *value = pResult->fields[fields[i]].value;
      return 0;
    }
  }
  return -16;
}

// ---- entry and export -------------------------------------------------------------------------------

// The length of a text in UTF-16 units: one for each character, two for those above U+FFFF, and one for
// each byte that belongs to no well-formed UTF-8 character. Counts beyond 1023 are all the same.
int varnel_utf16_length(const char *text, std::size_t size) {
  if (text == nullptr)
    return 0;
  std::size_t units = 0;
  std::size_t at = 0;
  while (at < size) {
    const auto byte = [&](std::size_t offset) {
      return at + offset < size ? static_cast<unsigned>(static_cast<unsigned char>(text[at + offset])) : 0U;
    };
    const auto continues = [&](std::size_t offset) { return (byte(offset) & 0xC0U) == 0x80U; };
    const unsigned lead = byte(0);
    std::size_t bytes = 1; // also for what cannot be decoded
    std::size_t units_here = 1;
    if (lead >= 0xC2 && lead <= 0xDF && continues(1)) {
      bytes = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF && continues(1) && continues(2)) {
      const unsigned code = (lead & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
      const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
      if (code >= 0x800 && !surrogate)
        bytes = 3;
    } else if (lead >= 0xF0 && lead <= 0xF4 && continues(1) && continues(2) && continues(3)) {
      const unsigned code =
          (lead & 0x07U) << 18U | (byte(1) & 0x3FU) << 12U | (byte(2) & 0x3FU) << 6U | (byte(3) & 0x3FU);
      if (code >= 0x10000 && code <= 0x10FFFF) {
        bytes = 4;
        units_here = 2;
      }
    }
    at += bytes;
    units += units_here;
  }
  return units < 1023 ? static_cast<int>(units) : 1023;
}

int parse_mrz(const char *text, int utf16_length, PARSE_RESULT *result, char *buffer, int buffer_size) {
  if (result == nullptr)
    return -21;
  if (reference::result_init(result, buffer, buffer_size) != 0)
    return -21;
  char zone[1024];
  int n = 0;
  if (reference::normalize_mrz(text, utf16_length, zone, 1024, &n) != 0)
    return -21;
  CONTEXT context = {};
  context.date.year = 2018;
  context.date.month = 2;
  context.date.day = 15;
  // The record is not cleared between the attempts.
  if (reference::MRZ_td1_parse(zone, n, result, &context) == 0)
    return 0;
  if (reference::MRZ_td2_parse(zone, n, result, &context) == 0)
    return 0;
  if (reference::MRZ_passport_parse(zone, n, result, &context) == 0)
    return 0;
  if (reference::MRZ_visa_parse(zone, n, result, &context) == 0)
    return 0;
  return -20;
}

// The text of a slot up to its NUL, whatever the slot's length says, but never past the buffer.
std::string value_for_key(const PARSE_RESULT *result, int field) {
  const char *str = result->fields[field].value.str;
  if (str == nullptr)
    return "";
  std::string text;
  for (const char *at = str; at != result->buffer + result->buffer_size && *at != '\0'; at += 1)
    text += *at;
  return text;
}

std::array<std::pair<std::string, std::string>, 12> export_values(const PARSE_RESULT *result) {
  std::string jurisdiction;
  for (const int field : {34, 4, 71, 72, 70})
    if (jurisdiction.empty())
      jurisdiction = reference::value_for_key(result, field);
  return {{{"firstName", reference::value_for_key(result, 26)},
           {"lastName", reference::value_for_key(result, 25)},
           {"middleName", reference::value_for_key(result, 27)},
           {"licenseNumber", reference::value_for_key(result, 6)},
           {"birthDate", reference::value_for_key(result, 78)},
           {"expirationDate", reference::value_for_key(result, 10)},
           {"gender", reference::value_for_key(result, 12)},
           {"countryCode", reference::value_for_key(result, 125)},
           {"jurisdictionCode", jurisdiction},
           {"nationality", reference::value_for_key(result, 138)},
           {"documentType", reference::value_for_key(result, 87)},
           {"issueDate", reference::value_for_key(result, 13)}}};
}

// ---- normalisation ----------------------------------------------------------------------------------

int normalize_mrz(const char *input, int i_len, char *output, int o_len, int *result_len) {
  if (input == nullptr || i_len <= 0 || output == nullptr || o_len < 2 || result_len == nullptr)
    return -21;
  *result_len = 0;
  output[0] = '\0';
  const int size = i_len < o_len - 1 ? i_len : o_len - 1;
  int appended = 0;
  for (int i = 0; i < size; i += 1) {
    const char c = input[i];
    if (is_digit(as_int(c)) || is_upper(as_int(c)) || c == '<') {
      output[appended] = c;
      appended += 1;
    } else if (is_lower(as_int(c))) {
      output[appended] = to_upper(c);
      appended += 1;
    }
  }
  output[appended] = '\0';
  *result_len = appended;
  return 0;
}

// ---- what the layouts share -------------------------------------------------------------------------

int MRZ_common_pattern_valid_mrz(int c) { return c == '<' || is_digit(c) || is_upper(c) ? 1 : 0; }
int MRZ_common_pattern_valid_mrz_date(int c) { return is_digit(c) ? 1 : 0; }
int MRZ_common_pattern_valid_mrz_name(int c) { return is_upper(c) || c == '<' ? 1 : 0; }
int MRZ_common_pattern_valid_mrz_cc(int c) { return is_upper(c) || c == '<' ? 1 : 0; }

int MRZ_common_calc_control_sum(const char *str, int len, int *pos) {
  if (str == nullptr)
    return -1;
  const int weights[3] = {7, 3, 1};
  int position = pos != nullptr ? *pos : 0;
  int sum = 0;
  for (int i = 0; i < len; i += 1) {
    const char c = str[i];
    const int weight = weights[position % 3];
    if (c >= '0' && c <= '9')
      sum += (c - '0') * weight;
    else if (c >= 'A' && c <= 'Z')
      sum += (c - 'A' + 10) * weight;
    else if (c != '<')
      return -1;
    position += 1;
  }
  if (pos != nullptr)
    *pos = position;
  return sum;
}

int MRZ_common_validate_control_sum(int sum, char c) {
  if (c == '<')
    c = '0';
  if (c < '0' || c > '9')
    return 0;
  return sum % 10 == c - '0' ? 1 : 0;
}

int MRZ_common_extract_cc(const STRING *in, char out[4]) {
  if (in == nullptr || in->str == nullptr || in->len < 3 || out == nullptr)
    return -21;
  if (reference::utils_strcheck_f(in, reference::MRZ_common_pattern_valid_mrz_cc) != 0)
    return -20;
  out[0] = in->str[0] == '<' ? '\0' : in->str[0];
  out[1] = in->str[1] != '<' && out[0] != '\0' ? in->str[1] : '\0';
  out[2] = in->str[2] != '<' && out[1] != '\0' ? in->str[2] : '\0';
  return 0;
}

int MRZ_common_extract_date(const STRING *in, DATETIME *date) {
  if (in == nullptr || in->str == nullptr || in->len != 6 || date == nullptr)
    return -21;
  for (int i = 0; i < 6; i += 1)
    if (!is_digit(as_int(in->str[i])))
      return -20;
  const char *digits = in->str;
  date->year = 1900 + (digits[0] - '0') * 10 + (digits[1] - '0');
  date->month = (digits[2] - '0') * 10 + (digits[3] - '0');
  date->day = (digits[4] - '0') * 10 + (digits[5] - '0');
  date->hr = 0;
  date->min = 0;
  date->sec = 0;
  return 0;
}

int MRZ_common_extract_name(const STRING *s, STRING *full_name, STRING *last_name, STRING *first_name,
                            STRING *middle_name) {
  if (s == nullptr || full_name == nullptr || last_name == nullptr || first_name == nullptr ||
      middle_name == nullptr || s->str == nullptr || s->len < 0)
    return -21;
  const STRING input = *s;
  *full_name = empty_view;
  *last_name = empty_view;
  *first_name = empty_view;
  *middle_name = empty_view;
  if (reference::utils_strcheck_f(&input, reference::MRZ_common_pattern_valid_mrz_name) != 0)
    return -20;
  STRING name = input;
  reference::utils_strtrim(&name, "<");
  if (name.len == 0)
    return -20;
  *full_name = name;
  int i = 1;
  while (i < name.len && !(name.str[i] == '<' && name.str[i - 1] == '<'))
    i += 1;
  if (i < name.len) {
    *last_name = STRING{name.str, i};
    reference::utils_strtrim(last_name, "<");
    STRING first_middle = {name.str + i, name.len - i};
    reference::utils_strtrim(&first_middle, "<");
    reference::utils_strtok(&first_middle, first_name, middle_name, "<", 1);
  } else {
    reference::utils_strtok(&name, last_name, &name, "<", 1);
    reference::utils_strtok(&name, first_name, middle_name, "<", 1);
  }
  return 0;
}

// ---- the layouts ------------------------------------------------------------------------------------

namespace {

STRING columns(const STRING *line, int start, int length) { return STRING{line->str + start, length}; }

void write_filler_as_blank(PARSE_RESULT *result, int field, const STRING *src) {
  reference::utils_write_field(result, field, src, "<", " ", ' ');
}

int write_country(const STRING *line, int start, PARSE_RESULT *result, int field) {
  char code[4] = {0, 0, 0, 0};
  const STRING in = columns(line, start, 3);
  const int error = reference::MRZ_common_extract_cc(&in, code);
  if (error != 0)
    return error;
  reference::utils_write_field_s(result, field, code);
  return 0;
}

int write_names(const STRING *line, int start, int length, PARSE_RESULT *result) {
  STRING full_name;
  STRING last_name;
  STRING first_name;
  STRING middle_name;
  const STRING in = columns(line, start, length);
  const int error =
      reference::MRZ_common_extract_name(&in, &full_name, &last_name, &first_name, &middle_name);
  if (error != 0)
    return error;
  write_filler_as_blank(result, 25, &last_name);
  write_filler_as_blank(result, 26, &first_name);
  write_filler_as_blank(result, 27, &middle_name);
  return 0;
}

void write_number(const STRING *line, int start, PARSE_RESULT *result) {
  STRING number = columns(line, start, 9);
  reference::utils_strtrim(&number, "<");
  write_filler_as_blank(result, 6, &number);
}

// The birth date; its year moves to the 2000s when that is still before the reference year.
int write_birth(const STRING *line, int start, PARSE_RESULT *result, const CONTEXT *context,
                DATETIME *birth) {
  const STRING in = columns(line, start, 6);
  if (reference::MRZ_common_extract_date(&in, birth) != 0)
    return -20;
  if (birth->year + 100 < context->date.year)
    birth->year += 100;
  reference::utils_write_field_date(result, 78, birth);
  return 0;
}

// The expiry date; its year moves up a century when it lies before the birth year.
int write_expiry(const STRING *line, int start, PARSE_RESULT *result, const DATETIME *birth) {
  DATETIME expiry;
  const STRING in = columns(line, start, 6);
  if (reference::MRZ_common_extract_date(&in, &expiry) != 0)
    return -20;
  if (expiry.year < birth->year)
    expiry.year += 100;
  reference::utils_write_field_date(result, 10, &expiry);
  return 0;
}

void write_sex(const STRING *line, int column, PARSE_RESULT *result) {
  if (line->str[column] == 'M')
    reference::utils_write_field_s(result, 12, "M");
  if (line->str[column] == 'F')
    reference::utils_write_field_s(result, 12, "F");
}

// What keeps a text from being read as a zone of one of two lengths.
int zone_error(const char *input, int i_len, const PARSE_RESULT *result, const CONTEXT *context, int length,
               int other_length) {
  if (input == nullptr || result == nullptr || context == nullptr || i_len < 0)
    return -21;
  if (i_len != length && i_len != other_length)
    return -20;
  const STRING zone = {input, i_len};
  return reference::utils_strcheck_f(&zone, reference::MRZ_common_pattern_valid_mrz) != 0 ? -20 : 0;
}

int passport_track1(const STRING *track, PARSE_RESULT *result) {
  if (track->str[0] != 'P')
    return -20;
  const int error = write_country(track, 2, result, 125);
  if (error != 0)
    return error;
  return write_names(track, 5, 39, result);
}

int passport_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  DATETIME birth;
  if (write_birth(track, 13, result, context, &birth) != 0)
    return -20;
  if (write_expiry(track, 21, result, &birth) != 0)
    return -20;
  write_sex(track, 20, result);
  const int error = write_country(track, 10, result, 138);
  if (error != 0)
    return error;
  write_number(track, 0, result);
  STRING optional_data = columns(track, 28, 14);
  reference::utils_strtrim(&optional_data, "<");
  if (!is_empty(optional_data))
    write_filler_as_blank(result, 55, &optional_data);
  return 0;
}

// The document code of the TD1 and TD2 cards; a second letter V marks a visa.
bool card_code(const STRING *track) {
  const char first = track->str[0];
  return (first == 'I' || first == 'A' || first == 'C') && track->str[1] != 'V';
}

int td2_track1(const STRING *track, PARSE_RESULT *result) {
  if (!card_code(track))
    return -20;
  const int error = write_country(track, 2, result, 125);
  if (error != 0)
    return error;
  return write_names(track, 5, 31, result);
}

// The second line of a TD2 card and of both visas: number, nationality, birth, sex, expiry.
int td2_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  write_number(track, 0, result);
  const int error = write_country(track, 10, result, 138);
  if (error != 0)
    return error;
  DATETIME birth;
  if (write_birth(track, 13, result, context, &birth) != 0)
    return -20;
  write_sex(track, 20, result);
  return write_expiry(track, 21, result, &birth);
}

int td1_track1(const STRING *track, PARSE_RESULT *result) {
  if (!card_code(track))
    return -20;
  const int error = write_country(track, 2, result, 125);
  if (error != 0)
    return error;
  write_number(track, 5, result);
  return 0;
}

int td1_track2(const STRING *track, PARSE_RESULT *result, const CONTEXT *context) {
  DATETIME birth;
  if (write_birth(track, 0, result, context, &birth) != 0)
    return -20;
  write_sex(track, 7, result);
  if (write_expiry(track, 8, result, &birth) != 0)
    return -20;
  return write_country(track, 15, result, 138);
}

int visa_track1(const STRING *track, PARSE_RESULT *result) {
  if (track->str[0] != 'V')
    return -20;
  const int error = write_country(track, 2, result, 125);
  if (error != 0)
    return error;
  return write_names(track, 5, track->len - 5, result);
}

} // namespace

// No layout compares a check digit, so the sums that nothing reads are not made here.

int MRZ_passport_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  int error = zone_error(input, i_len, result, context, 88, 88);
  if (error != 0)
    return error;
  const STRING track1 = {input, 44};
  const STRING track2 = {input + 44, 44};
  error = passport_track1(&track1, result);
  if (error != 0)
    return error;
  error = passport_track2(&track2, result, context);
  if (error != 0)
    return error;
  reference::utils_write_field_s(result, 87, "PASSPORT");
  return 0;
}

int MRZ_td2_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  int error = zone_error(input, i_len, result, context, 72, 72);
  if (error != 0)
    return error;
  const STRING track1 = {input, 36};
  const STRING track2 = {input + 36, 36};
  error = td2_track1(&track1, result);
  if (error != 0)
    return error;
  error = td2_track2(&track2, result, context);
  if (error != 0)
    return error;
  reference::utils_write_field_s(result, 87, "TD");
  return 0;
}

int MRZ_td1_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  int error = zone_error(input, i_len, result, context, 90, 90);
  if (error != 0)
    return error;
  const STRING track1 = {input, 30};
  const STRING track2 = {input + 30, 30};
  const STRING track3 = {input + 60, 30};
  error = td1_track1(&track1, result);
  if (error != 0)
    return error;
  error = td1_track2(&track2, result, context);
  if (error != 0)
    return error;
  error = write_names(&track3, 0, 30, result);
  if (error != 0)
    return error;
  reference::utils_write_field_s(result, 87, "TD");
  return 0;
}

int MRZ_visa_parse(const char *input, int i_len, PARSE_RESULT *result, const CONTEXT *context) {
  int error = zone_error(input, i_len, result, context, 72, 88);
  if (error != 0)
    return error;
  const int line = i_len / 2;
  const STRING track1 = {input, line};
  const STRING track2 = {input + line, line};
  error = visa_track1(&track1, result);
  if (error != 0)
    return error;
  error = td2_track2(&track2, result, context);
  if (error != 0)
    return error;
  reference::utils_write_field_s(result, 87, "TD");
  return 0;
}

// ---- copiers ----------------------------------------------------------------------------------------

namespace {

template <class Removed, class Duplicate>
int copy(char *out, int o_len, const STRING *src, Removed removed, Duplicate duplicate, char rep) {
  if (out == nullptr || o_len < 1 || src == nullptr || is_empty(*src))
    return 0;
  int w = 0;
  for (int i = 0; i < src->len && w < o_len; i += 1) {
    char c = src->str[i];
    if (removed(c)) {
      if (rep == '\0')
        continue;
      c = rep;
    }
    if (w > 0 && c == out[w - 1] && duplicate(c))
      continue;
    out[w] = c;
    w += 1;
  }
  return w;
}

} // namespace

int utils_strcpy(char *out, int o_len, const STRING *src, const char *removed_chars,
                 const char *duplicate_chars, char rep) {
  return copy(
      out, o_len, src, [=](char c) { return occurs(c, removed_chars); },
      [=](char c) { return occurs(c, duplicate_chars); }, rep);
}

int utils_strcpy_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                   _t_predicate_func duplicate, char rep) {
  return copy(
      out, o_len, src, [=](char c) { return removed != nullptr && removed(as_int(c)) != 0; },
      [=](char c) { return duplicate != nullptr && duplicate(as_int(c)) != 0; }, rep);
}

int utils_strcpy_array(char *out, int o_len, const STRING *src, int count, char sep,
                       const char *removed_chars, const char *duplicate_chars, char rep) {
  if (out == nullptr || o_len < 1 || src == nullptr || count < 1)
    return 0;
  int w = 0;
  for (int i = 0; i < count && w < o_len; i += 1) {
    if (src[i].len <= 0 || src[i].str == nullptr)
      continue;
    if (w > 0) {
      out[w] = sep;
      w += 1;
    }
    if (w < o_len)
      w += reference::utils_strcpy(out + w, o_len - w, &src[i], removed_chars, duplicate_chars, rep);
  }
  return w;
}

namespace {

int terminate(char *out, int n) {
  if (n < 1)
    return 0;
  out[n] = '\0';
  return n + 1;
}

} // namespace

int utils_strwrite(char *out, int o_len, const STRING *src, const char *removed_chars,
                   const char *duplicate_chars, char rep) {
  if (o_len < 1)
    return 0;
  return terminate(out, reference::utils_strcpy(out, o_len - 1, src, removed_chars, duplicate_chars, rep));
}

int utils_strwrite_f(char *out, int o_len, const STRING *src, _t_predicate_func removed,
                     _t_predicate_func duplicate, char rep) {
  if (o_len < 1)
    return 0;
  return terminate(out, reference::utils_strcpy_f(out, o_len - 1, src, removed, duplicate, rep));
}

int utils_strwrite_s(char *out, int o_len, const char *text) {
  if (text == nullptr || o_len < 1)
    return 0;
  const STRING view = {text, length_of(text)};
  return terminate(out, reference::utils_strcpy(out, o_len - 1, &view, nullptr, nullptr, '\0'));
}

int utils_strwrite_array(char *out, int o_len, const STRING *src, int count, char sep,
                         const char *removed_chars, const char *duplicate_chars, char rep) {
  if (o_len < 1)
    return 0;
  return terminate(out, reference::utils_strcpy_array(out, o_len - 1, src, count, sep, removed_chars,
                                                      duplicate_chars, rep));
}

// ---- slot writers -----------------------------------------------------------------------------------

namespace {

// The one terminator, which is left out when the value ends at the buffer's last or last but one place.
void terminate_in_buffer(PARSE_RESULT *pResult) {
  if (pResult->data_size < pResult->buffer_size - 1) {
    pResult->buffer[pResult->data_size] = '\0';
    pResult->data_size += 1;
  }
}

FIELD *fill_slot(PARSE_RESULT *pResult, int field, const char *p, int n) {
  FIELD *slot = &pResult->fields[field];
  if (n < 1) {
    slot->value = empty_view;
    return slot;
  }
  slot->value = STRING{p, n};
  pResult->data_size += n;
  terminate_in_buffer(pResult);
  return slot;
}

} // namespace

FIELD *utils_write_field(PARSE_RESULT *pResult, int field, const STRING *src, const char *removed_chars,
                         const char *duplicate_chars, char rep) {
  if (pResult == nullptr || !slot_exists(field))
    return nullptr;
  char *p = pResult->buffer + pResult->data_size;
  const int room = pResult->buffer_size - pResult->data_size;
  const int n = reference::utils_strcpy(p, room, src, removed_chars, duplicate_chars, rep);
  return fill_slot(pResult, field, p, n);
}

FIELD *utils_write_field_f(PARSE_RESULT *pResult, int field, const STRING *src, _t_predicate_func removed,
                           _t_predicate_func duplicate, char rep) {
  if (pResult == nullptr || !slot_exists(field))
    return nullptr;
  char *p = pResult->buffer + pResult->data_size;
  const int room = pResult->buffer_size - pResult->data_size;
  const int n = reference::utils_strcpy_f(p, room, src, removed, duplicate, rep);
  return fill_slot(pResult, field, p, n);
}

FIELD *utils_write_field_s(PARSE_RESULT *pResult, int field, const char *text) {
  if (pResult == nullptr || text == nullptr)
    return nullptr;
  const STRING view = {text, length_of(text)};
  return reference::utils_write_field(pResult, field, &view, nullptr, nullptr, '\0');
}

FIELD *utils_write_field_w(PARSE_RESULT *pResult, int field, void *data, _t_writer_func wf) {
  if (pResult == nullptr || !slot_exists(field) || wf == nullptr)
    return nullptr;
  char *p = pResult->buffer + pResult->data_size;
  const int n = wf(data, p, pResult->buffer_size - pResult->data_size);
  return fill_slot(pResult, field, p, n);
}

FIELD *utils_write_field_array(PARSE_RESULT *pResult, int field, const STRING *src, int count, char sep,
                               const char *removed_chars, const char *duplicate_chars, char rep) {
  if (pResult == nullptr || !slot_exists(field))
    return nullptr;
  char *p = pResult->buffer + pResult->data_size;
  const int m = reference::utils_strwrite_array(p, pResult->buffer_size - pResult->data_size, src, count, sep,
                                                removed_chars, duplicate_chars, rep);
  FIELD *slot = &pResult->fields[field];
  if (m < 1) {
    slot->value = empty_view;
    return slot;
  }
  slot->value = STRING{p, m - 1};
  pResult->data_size += m;
  terminate_in_buffer(pResult);
  return slot;
}

FIELD *utils_write_field_date(PARSE_RESULT *pResult, int field, const DATETIME *pDate) {
  if (pResult == nullptr || pDate == nullptr || !slot_exists(field))
    return nullptr;
  if (pResult->buffer_size - pResult->data_size < 8)
    return nullptr;
  char *p = pResult->buffer + pResult->data_size;
  reference::utils_itoa(pDate->year, p, 4, 1);
  reference::utils_itoa(pDate->month, p + 4, 2, 1);
  reference::utils_itoa(pDate->day, p + 6, 2, 1);
  return fill_slot(pResult, field, p, 8);
}

int utils_itoa(std::int64_t num, char *out, int o_len, int pad) {
  if (out == nullptr || o_len < 1)
    return 0;
  std::uint64_t magnitude = static_cast<std::uint64_t>(num);
  if (num < 0)
    magnitude = 0 - magnitude;
  int count = 1;
  for (std::uint64_t rest = magnitude / 10; rest != 0; rest /= 10)
    count += 1;
  if (num < 0)
    count += 1;
  if (count > o_len)
    return 0;
  const int width = (pad & 1) != 0 ? o_len : count;
  for (int place = width - 1; place >= 0; place -= 1) {
    out[place] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  }
  if (num < 0)
    out[0] = '-';
  return width;
}

char utils_itoch(int n) { return n < 0 || n > 9 ? ' ' : static_cast<char>('0' + n); }

void utils_strtrim_begin(STRING *s, int begin) {
  if (s == nullptr || s->len == 0 || s->str == nullptr || begin <= 0)
    return;
  if (s->len <= begin) {
    s->str = s->str + s->len - 1;
    s->len = 0;
  } else {
    s->str += begin;
    s->len -= begin;
  }
}

// ---- trimming and checks ----------------------------------------------------------------------------

namespace {

template <class Dropped> void trim(STRING *source, bool start, bool end, Dropped dropped) {
  if (source == nullptr || is_empty(*source))
    return;
  while (start && source->len > 0 && dropped(source->str[0])) {
    source->str += 1;
    source->len -= 1;
  }
  while (end && source->len > 0 && dropped(source->str[source->len - 1]))
    source->len -= 1;
}

void trim_by_set(STRING *source, bool start, bool end, const char *chars) {
  trim(source, start, end, [=](char c) { return occurs(c, chars); });
}

void trim_by_predicate(STRING *source, bool start, bool end, _t_predicate_func f) {
  if (f != nullptr)
    trim(source, start, end, [=](char c) { return f(as_int(c)) != 0; });
}

} // namespace

void utils_strtrim_start(STRING *source, const char *chars) { trim_by_set(source, true, false, chars); }
void utils_strtrim_end(STRING *source, const char *chars) { trim_by_set(source, false, true, chars); }
void utils_strtrim(STRING *source, const char *chars) { trim_by_set(source, true, true, chars); }
void utils_strtrim_start_f(STRING *source, _t_predicate_func f) { trim_by_predicate(source, true, false, f); }
void utils_strtrim_end_f(STRING *source, _t_predicate_func f) { trim_by_predicate(source, false, true, f); }
void utils_strtrim_f(STRING *source, _t_predicate_func f) { trim_by_predicate(source, true, true, f); }

int utils_cstrtrim(char *str, int len, const char *chars) {
  if (str == nullptr || len < 1 || chars == nullptr)
    return len;
  STRING trim = {str, len};
  reference::utils_strtrim(&trim, chars);
  for (int i = 0; i < trim.len; i += 1)
    str[i] = trim.str[i];
  return trim.len;
}

int utils_strcheck_f(const STRING *source, _t_predicate_func f) {
  if (source == nullptr || f == nullptr || source->str == nullptr)
    return -1;
  for (int i = 0; i < source->len; i += 1)
    if (f(as_int(source->str[i])) == 0)
      return i + 1;
  return 0;
}

int utils_cstrcheck_f(const char *str, _t_predicate_func f) {
  if (str == nullptr || f == nullptr)
    return -1;
  for (int i = 0; str[i] != '\0'; i += 1)
    if (f(as_int(str[i])) == 0)
      return i + 1;
  return 0;
}

// ---- matching, tokenising, replacing ----------------------------------------------------------------

namespace {

bool can_match(const STRING *pSource, _t_predicate_func f, int min, int max) {
  return pSource != nullptr && pSource->str != nullptr && pSource->len != 0 && f != nullptr && max >= 1 &&
         min >= 1;
}

int give_match(const STRING *pSource, int start, int count, int cursor, STRING *match, STRING *tail) {
  const STRING source = *pSource;
  if (tail != nullptr)
    *tail = count == 0 ? source : STRING{source.str + cursor, source.len - cursor};
  if (match != nullptr)
    *match = count == 0 ? STRING{source.str, 0} : STRING{source.str + start, count};
  return count > 0 ? 1 : 0;
}

} // namespace

int utils_match_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match, STRING *tail) {
  if (!can_match(pSource, f, min, max))
    return 0;
  int cursor = 0;
  int count = 0;
  int start = 0;
  while (cursor < pSource->len) {
    if (f(as_int(pSource->str[cursor])) != 0) {
      if (count == 0)
        start = cursor;
      count += 1;
      cursor += 1;
      if (count == max)
        break;
    } else {
      if (count >= min)
        break;
      count = 0;
      cursor += 1;
    }
  }
  return give_match(pSource, start, count, cursor, match, tail);
}

int utils_match_start_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match,
                        STRING *tail) {
  if (!can_match(pSource, f, min, max))
    return 0;
  int count = 0;
  while (count < pSource->len && count < max) {
    if (f(as_int(pSource->str[count])) == 0) {
      if (count < min)
        count = 0;
      break;
    }
    count += 1;
  }
  return give_match(pSource, 0, count, count, match, tail);
}

void utils_strtok(const STRING *source, STRING *token, STRING *tail, const char *delimiters, int flags) {
  *tail = *source;
  if ((flags & 1) != 0)
    reference::utils_strtrim_start(tail, delimiters);
  *token = STRING{tail->str, 0};
  while (!is_empty(*tail)) {
    const bool delimiter = occurs(tail->str[0], delimiters);
    tail->str += 1;
    tail->len -= 1;
    if (delimiter)
      return;
    token->len += 1;
  }
}

int utils_strntok(const STRING *source, STRING *out, int num, const char *delimiters) {
  if (source == nullptr || source->len <= 0 || source->str == nullptr || num < 0)
    return -1;
  STRING current = *source;
  STRING token = empty_view;
  for (long i = 0;; i += 1) {
    if (i > num) {
      *out = token;
      return 0;
    }
    if (is_empty(current))
      return -1;
    STRING tail;
    reference::utils_strtok(&current, &token, &tail, delimiters, 1);
    if (is_empty(token))
      return -1;
    current = tail;
  }
}

int utils_strsplit(const STRING *source, STRING *out, int count, const char *delimiters, int flags) {
  if (source == nullptr || source->len <= 0 || source->str == nullptr || count < 0 || out == nullptr)
    return 0;
  int n = 0;
  STRING current = *source;
  while (n < count && !is_empty(current)) {
    STRING token;
    STRING tail;
    reference::utils_strtok(&current, &token, &tail, delimiters, flags);
    if (token.len > 0 || (flags & 1) == 0) {
      out[n] = token;
      n += 1;
    }
    current = tail;
  }
  return n;
}

int utils_rmtok(STRING *tokens, int count, const char **patterns, int p_count) {
  int kept = 0;
  for (int i = 0; i < count; i += 1) {
    bool equals_one = false;
    for (int p = 0; p < p_count && !equals_one; p += 1)
      equals_one = reference::utils_strcmp(&tokens[i], patterns[p]) == 0;
    if (equals_one)
      continue;
    if (kept != i)
      tokens[kept] = tokens[i];
    kept += 1;
  }
  return kept;
}

int utils_strcmp(const STRING *s, const char *str) {
  if (s == nullptr || s->str == nullptr)
    return str != nullptr ? -1 : 0;
  if (str == nullptr)
    return 1;
  const int length = length_of(str);
  if (s->len != length)
    return s->len - length;
  for (int i = 0; i < length; i += 1)
    if (s->str[i] != str[i])
      return as_int(s->str[i]) > as_int(str[i]) ? 1 : -1;
  return 0;
}

int utils_tokcmp(const STRING *tok1, const STRING *tok2, int flags) {
  if (tok1 == nullptr || tok1->str == nullptr) {
    if (tok2 == nullptr)
      return 0;
    return tok2->str != nullptr ? -1 : 0;
  }
  if (tok2 == nullptr || tok2->str == nullptr)
    return 1;
  if (tok1->len != tok2->len)
    return tok1->len - tok2->len;
  for (int i = 0; i < tok1->len; i += 1) {
    char a = tok1->str[i];
    char b = tok2->str[i];
    if ((flags & 1) != 0 && is_alpha(as_int(a)) && is_alpha(as_int(b))) {
      a = to_upper(a);
      b = to_upper(b);
    }
    if (a != b)
      return as_int(a) > as_int(b) ? 1 : -1;
  }
  return 0;
}

int utils_strstr(const STRING *haystack, const STRING *needle) {
  if (haystack == nullptr || haystack->str == nullptr || haystack->len < 1 || needle == nullptr ||
      needle->str == nullptr || needle->len < 1)
    return -1;
  for (int i = 0; i <= haystack->len - needle->len; i += 1) {
    int same = 0;
    while (same < needle->len && haystack->str[i + same] == needle->str[same])
      same += 1;
    if (same == needle->len)
      return i;
  }
  return -1;
}

int utils_strreplace(char *buffer, int len, int max_len, const STRING *from, const STRING *to) {
  if (from->str == nullptr || from->len < 1 || to->str == nullptr || to->len < 1)
    return len;
  const int len_dif = to->len > from->len ? to->len - from->len : from->len - to->len;
  int length = len;
  int e = from->len - 1;
  while (e < length) {
    int k = 0;
    while (k < from->len && buffer[e - k] == from->str[from->len - 1 - k])
      k += 1;
    if (k < from->len) {
      e += 1;
      continue;
    }
    const int w = e - (from->len - 1);
    if (to->len < from->len) {
      for (int i = e + 1; i < length; i += 1)
        buffer[i - len_dif] = buffer[i];
      length -= len_dif;
    } else if (to->len > from->len) {
      if (length + len_dif > max_len)
        return length;
      length += len_dif;
      for (int i = length - 1; i >= e + len_dif + 1; i -= 1)
        buffer[i] = buffer[i - len_dif];
    }
    for (int i = 0; i < to->len; i += 1)
      buffer[w + i] = to->str[i];
    e = (w + to->len) + from->len - 1;
  }
  return length;
}

// ---- calendar dates ---------------------------------------------------------------------------------

namespace {

// What the standard decimal conversion makes of `count` characters with a NUL after them.
int decimal(const char *text, int count) {
  char copy[5] = {0, 0, 0, 0, 0};
  for (int i = 0; i < count; i += 1)
    copy[i] = text[i];
  int at = 0;
  while (is_space(as_int(copy[at])))
    at += 1;
  int sign = 1;
  if (copy[at] == '-' || copy[at] == '+') {
    sign = copy[at] == '-' ? -1 : 1;
    at += 1;
  }
  int value = 0;
  while (is_digit(as_int(copy[at]))) {
    value = value * 10 + (copy[at] - '0');
    at += 1;
  }
  return sign * value;
}

bool store_date(int year, int month, int day, DATETIME *date) {
  if (day < 1 || day > 31 || month < 1 || month > 12 || year < 1800 || year > 9999)
    return false;
  *date = DATETIME{year, month, day, 0, 0, 0};
  return true;
}

int february(std::uint64_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28; }

} // namespace

int utils_parse_date(const STRING *text, DATETIME *date) {
  if (text == nullptr || text->str == nullptr || text->len < 8)
    return -1;
  const char *s = text->str;
  if (store_date(decimal(s, 4), decimal(s + 4, 2), decimal(s + 6, 2), date))
    return 0;
  if (store_date(decimal(s + 4, 4), decimal(s, 2), decimal(s + 2, 2), date))
    return 0;
  return -1;
}

int utils_validate_date(const DATETIME *date) {
  if (date->day < 1 || date->day > 31)
    return -1;
  if (date->month < 1 || date->month > 12)
    return -1;
  if (date->year < 1000 || date->year > 9999)
    return -1;
  if (date->hr < 0 || date->hr > 23)
    return -1;
  if (date->min < 0 || date->min > 59)
    return -1;
  if (date->sec < 0 || date->sec > 59)
    return -1;
  return 0;
}

int utils_validate_days_in_month(int year, int month, int day) {
  if (month < 1 || month > 12)
    return day;
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  const int lengths[12] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (day < 1)
    return 1;
  return day < lengths[month - 1] ? day : lengths[month - 1];
}

int utils_days2date(std::uint64_t days, DATETIME *date) {
  if (date == nullptr)
    return -21;
  const auto y = static_cast<std::uint64_t>(static_cast<double>(days) / 365.2425);
  std::uint64_t d = days;
  if (y != 0)
    d = days - 365 * y - (y - 1) / 4 + (y - 1) / 100 - (y + 199) / 400;
  const std::uint64_t year = y + 1000;
  const std::uint64_t lengths[12] = {
      31, static_cast<std::uint64_t>(february(year)), 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  int month = 1;
  while (month <= 12 && d > lengths[month - 1]) {
    d -= lengths[month - 1];
    month += 1;
  }
  if (d != 0)
    *date = DATETIME{static_cast<int>(year), month, static_cast<int>(d), 0, 0, 0};
  else
    *date = DATETIME{static_cast<int>(year - 1), 12, 31, 0, 0, 0};
  return 0;
}

// ---- Soundex ----------------------------------------------------------------------------------------

namespace {

int soundex_class(char letter) {
  if (occurs(letter, "AEIOU"))
    return 0;
  if (occurs(letter, "BFPV"))
    return 1;
  if (occurs(letter, "CGJKQSXZ"))
    return 2;
  if (occurs(letter, "DT"))
    return 3;
  if (occurs(letter, "L"))
    return 4;
  if (occurs(letter, "MN"))
    return 5;
  if (occurs(letter, "R"))
    return 6;
  return 7; // H, W and Y
}

} // namespace

int utils_soundex_encode(const STRING *name, SOUNDEX_CODE *code) {
  if (name == nullptr || name->str == nullptr || code == nullptr || name->len < 1)
    return -21;
  code->alpha = to_upper(name->str[0]);
  for (int i = 0; i < 3; i += 1)
    code->code[i] = '0';
  if (!is_upper(as_int(code->alpha)))
    return -21;
  int old_code = soundex_class(code->alpha);
  int digits = 0;
  for (int i = 1; i < name->len && digits < 3; i += 1) {
    const char c = to_upper(name->str[i]);
    if (!is_upper(as_int(c)))
      return -21;
    const int letter_code = soundex_class(c);
    if (letter_code == 0) {
      old_code = 0;
    } else if (letter_code != 7 && letter_code != old_code) {
      code->code[digits] = static_cast<char>('0' + letter_code);
      digits += 1;
      old_code = letter_code;
    }
  }
  return 0;
}

int utils_soundex_encode_str(const char *str, SOUNDEX_CODE *code) {
  if (str == nullptr || code == nullptr)
    return -21;
  const STRING name = {str, length_of(str)};
  return reference::utils_soundex_encode(&name, code);
}

// ---- character classes ------------------------------------------------------------------------------

namespace {

bool is_one_of(int c, const char *set) { return c > 0 && c < 128 && occurs(static_cast<char>(c), set); }

} // namespace

int pattern_is_atoi_valid(int c) { return is_digit(c) || is_space(c) || is_one_of(c, "-+\n") ? 1 : 0; }
int pattern_isNotDigit(int c) { return is_digit(c) ? 0 : 1; }
int pattern_isCityChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "'-._\\/") ? 1 : 0; }
int pattern_isClearCityChar(int c) { return is_alnum(c) || is_one_of(c, "_-\\/") ? 1 : 0; }
int pattern_isNotClearCityChar(int c) { return reference::pattern_isClearCityChar(c) != 0 ? 0 : 1; }
int pattern_isNameChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "$',-._\\/") ? 1 : 0; }
int pattern_isAddressChar(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, "#$',-._\\/") ? 1 : 0; }
int pattern_isAddressChar2(int c) { return is_alnum(c) || is_space(c) || is_one_of(c, ",-_$#") ? 1 : 0; }
int pattern_isClearAddressChar(int c) { return is_alnum(c) || is_one_of(c, "'-._\\/") ? 1 : 0; }
int pattern_isClearAddressChar2(int c) { return is_alnum(c) || is_one_of(c, "_-") ? 1 : 0; }
int pattern_isNotClearAddressChar(int c) { return reference::pattern_isClearAddressChar(c) != 0 ? 0 : 1; }
int pattern_isNotClearAddressChar2(int c) { return reference::pattern_isClearAddressChar2(c) != 0 ? 0 : 1; }
int pattern_isClearPostalCode(int c) { return (is_alnum(c) && is_upper(c)) || is_space(c) ? 1 : 0; }
int pattern_isLicenseNumber(int c) { return is_digit(c) || is_space(c) ? 1 : 0; }
int pattern_is_w(int c) { return is_alnum(c) || c == '_' ? 1 : 0; }
int pattern_is_not_w(int c) { return reference::pattern_is_w(c) != 0 ? 0 : 1; }
int pattern_is_ws(int c) { return is_alnum(c) || c == '_' || is_space(c) ? 1 : 0; }
int pattern_valid_symbols(int c) { return c > 32 && c < 126 ? 1 : 0; }
int pattern_not_valid_symbols(int c) { return reference::pattern_valid_symbols(c) != 0 ? 0 : 1; }
int patter_trim_space(int c) { return c == 0 || is_one_of(c, " \n\r\t\v\f") ? 1 : 0; }
int patter_trim_address(int c) {
  return c == 0 || is_one_of(c, " \n\r\t") || !(is_alnum(c) || c == '.') ? 1 : 0;
}

// ---- element tables ---------------------------------------------------------------------------------

int utils_barcode2fieldtype(int barcode, const MAPPING *map, int size, int *pTblIndex) {
  int i = pTblIndex != nullptr ? *pTblIndex : 0;
  while (i < size) {
    if (map[i].key == barcode) {
      if (pTblIndex != nullptr)
        *pTblIndex = i;
      return map[i].value;
    }
    i += 1;
  }
  if (pTblIndex != nullptr)
    *pTblIndex = i;
  return -1;
}

} // namespace reference
