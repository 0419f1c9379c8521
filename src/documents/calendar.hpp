// The Gregorian calendar, for years of four digits, and the years that two digits stand for.
#ifndef VARNEL_SRC_DOCUMENTS_CALENDAR_HPP
#define VARNEL_SRC_DOCUMENTS_CALENDAR_HPP

namespace documents {

struct date {
  int year;
  int month;
  int day;
};

constexpr int FIRST_YEAR = 1;
constexpr int LAST_YEAR = 9999;

constexpr bool is_leap_year(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

// `month` from 1 to 12.
constexpr int days_in_month(int year, int month) {
  constexpr char days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && is_leap_year(year) ? 29 : days[month - 1];
}

constexpr bool exists(date d) {
  return d.year >= FIRST_YEAR && d.year <= LAST_YEAR && d.month >= 1 && d.month <= 12 && d.day >= 1 &&
         d.day <= days_in_month(d.year, d.month);
}

// Compares years, then months, then days, as they stand: neither date need exist.
constexpr bool is_before(date a, date b) {
  if (a.year != b.year) {
    return a.year < b.year;
  }
  return a.month != b.month ? a.month < b.month : a.day < b.day;
}

// The latest year that ends in these two digits and with which the date is not after the reference date.
constexpr int birth_year(int two_digits, int month, int day, date reference) {
  const int century = reference.year - reference.year % 100;
  const int year = century + two_digits;
  return is_before(reference, date{year, month, day}) ? year - 100 : year;
}

// The year that ends in these two digits, from 49 before to 50 after the reference year.
constexpr int expiry_year(int two_digits, int reference_year) {
  const int first = reference_year - 49;
  const int past_first = (two_digits - first % 100 + 200) % 100; // `first` may be below 0
  return first + past_first;
}

} // namespace documents

#endif
