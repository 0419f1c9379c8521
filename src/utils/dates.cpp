#include <Varnel/utils.h>

#include "../ascii.hpp"
#include "../view.hpp"

namespace {

constexpr double DAYS_PER_YEAR = 365.2425;

constexpr bool in_range(int value, int low, int high) { return value >= low && value <= high; }

template <class Year> constexpr bool is_leap_year(Year year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr int days_in_month(int month, bool leap_year) {
  constexpr signed char days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return days[month - 1] + (month == 2 && leap_year ? 1 : 0);
}

// The number that `len` characters begin with: white space skipped, one optional sign, digits up to the
// first other character; 0 when there are none. As C's atoi, but bounded and the same in every locale.
int number_at(const char *text, int len) {
  int i = 0;
  while (i < len && ascii::is_space(char_value(text[i]))) {
    ++i;
  }
  bool negative = false;
  if (i < len && (text[i] == '-' || text[i] == '+')) {
    negative = text[i] == '-';
    ++i;
  }
  int value = 0;
  for (; i < len && ascii::is_digit(char_value(text[i])); ++i) {
    value = value * 10 + (text[i] - '0');
  }
  return negative ? -value : value;
}

// Stores the date when every part is in range. The day is not compared with its month's length.
bool store_date(int year, int month, int day, DATETIME *date) {
  if (!in_range(day, 1, 31) || !in_range(month, 1, 12) || !in_range(year, 1800, 9999)) {
    return false;
  }
  *date = DATETIME{year, month, day, 0, 0, 0};
  return true;
}

} // namespace

int utils_parse_date(const STRING *text, DATETIME *date) {
  if (text == nullptr || text->str == nullptr || text->len < 8 || date == nullptr) {
    return -1;
  }
  const char *s = text->str;
  const bool read = store_date(number_at(s, 4), number_at(s + 4, 2), number_at(s + 6, 2), date) ||
                    store_date(number_at(s + 4, 4), number_at(s, 2), number_at(s + 2, 2), date);
  return read ? 0 : -1;
}

int utils_validate_date(const DATETIME *date) {
  const bool valid = date != nullptr && in_range(date->day, 1, 31) && in_range(date->month, 1, 12) &&
                     in_range(date->year, 1000, 9999) && in_range(date->hr, 0, 23) &&
                     in_range(date->min, 0, 59) && in_range(date->sec, 0, 59);
  return valid ? 0 : -1;
}

int utils_validate_days_in_month(int year, int month, int day) {
  if (!in_range(month, 1, 12)) {
    return day;
  }
  if (day < 1) {
    return 1;
  }
  const int last = days_in_month(month, is_leap_year(year));
  return day < last ? day : last;
}

int utils_days2date(uint64_t days, DATETIME *date) {
  if (date == nullptr) {
    return ERR_INVALID_ARGS;
  }
  // Both steps are rounded to a double, also where registers are wider: the quotient decides the year, and
  // the first day of some leap years comes out as month 13 of the year before because of it.
  const volatile double day_count = static_cast<double>(days);
  const volatile double quotient = day_count / DAYS_PER_YEAR;
  const uint64_t y = static_cast<uint64_t>(quotient);

  uint64_t rest = days;
  if (y != 0) {
    rest = days - 365 * y - (y - 1) / 4 + (y - 1) / 100 - (y + 199) / 400;
  }
  const uint64_t year = y + 1000;
  const bool leap_year = is_leap_year(year);
  int month = 1;
  for (; month <= 12; ++month) {
    const uint64_t length = static_cast<uint64_t>(days_in_month(month, leap_year));
    if (rest <= length) {
      break;
    }
    rest -= length;
  }
  if (rest != 0) {
    *date = DATETIME{static_cast<int>(static_cast<uint32_t>(year)),
                     month,
                     static_cast<int>(static_cast<uint32_t>(rest)),
                     0,
                     0,
                     0};
  } else {
    *date = DATETIME{static_cast<int>(static_cast<uint32_t>(year - 1)), 12, 31, 0, 0, 0};
  }
  return ERR_OK;
}
