#include <Varnel/mrz/mrz_common.h>

#include "name_parts.hpp"

int MRZ_common_extract_cc(const STRING *in, char out[4]) {
  if (in == nullptr || in->str == nullptr || in->len < 3 || out == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (!mrz_code_characters::covers(*in)) {
    return ERR_INVALID_FORMAT;
  }
  const STRING letters = code_letters(*in);
  for (int i = 0; i < 3; ++i) { // out[3] is the caller's terminator
    out[i] = i < letters.len ? letters.str[i] : '\0';
  }
  return ERR_OK;
}

int MRZ_common_extract_date(const STRING *in, DATETIME *date) {
  if (in == nullptr || in->str == nullptr || in->len != 6 || date == nullptr) {
    return ERR_INVALID_ARGS;
  }
  if (!mrz_date_characters::covers_short(*in)) {
    return ERR_INVALID_FORMAT;
  }
  const auto two_digits = [in](int at) { return (in->str[at] - '0') * 10 + (in->str[at + 1] - '0'); };
  *date = DATETIME{1900 + two_digits(0), two_digits(2), two_digits(4), 0, 0, 0};
  return ERR_OK;
}

int MRZ_common_extract_name(const STRING *s, STRING *full_name, STRING *last_name, STRING *first_name,
                            STRING *middle_name) {
  if (s == nullptr || s->str == nullptr || s->len < 0 || full_name == nullptr || last_name == nullptr ||
      first_name == nullptr || middle_name == nullptr) {
    return ERR_INVALID_ARGS;
  }
  *full_name = *last_name = *first_name = *middle_name = STRING{nullptr, 0};
  if (!mrz_name_characters::covers(*s)) {
    return ERR_INVALID_FORMAT;
  }
  const STRING name = without_outer_fillers(*s);
  if (is_empty(name)) {
    return ERR_INVALID_FORMAT;
  }
  const name_parts parts = split_name(name);
  *full_name = name;
  *last_name = parts.last;
  *first_name = parts.first;
  *middle_name = parts.middle;
  return ERR_OK;
}
