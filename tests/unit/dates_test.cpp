// Calendar dates: reading, checking, moving into the month, counting from 1 January 1000.
#include "support.hpp"

#include <climits>
#include <cstdint>
#include <ostream>
#include <string_view>

#include <gtest/gtest.h>

#include <Varnel/utils.h>

using namespace std::string_view_literals;
using namespace support;

namespace {

struct Day {
  int year;
  int month;
  int day;
};

bool operator==(const Day &a, const Day &b) {
  return a.year == b.year && a.month == b.month && a.day == b.day;
}

std::ostream &operator<<(std::ostream &out, const Day &d) {
  return out << d.year << '-' << d.month << '-' << d.day;
}

Day day_of(const DATETIME &date) { return {date.year, date.month, date.day}; }

// What no function would write: an untouched date still holds it.
constexpr DATETIME UNTOUCHED = {-1, -2, -3, -4, -5, -6};

void expect_untouched(const DATETIME &date) {
  EXPECT_EQ(day_of(date), (Day{-1, -2, -3}));
  EXPECT_TRUE(date.hr == -4 && date.min == -5 && date.sec == -6);
}

void expect_midnight(const DATETIME &date) { EXPECT_TRUE(date.hr == 0 && date.min == 0 && date.sec == 0); }

// ---- reading ---------------------------------------------------------------------------------------

struct Text {
  std::string_view text;
  Day expected;
};

constexpr Text READABLE[] = {
    // Year, month, day.
    {"20180215", {2018, 2, 15}},
    {"18000101", {1800, 1, 1}},
    {"99991231", {9999, 12, 31}},
    {"20001031", {2000, 10, 31}},
    // Month, day, year, where the text begins with no year from 1800 on.
    {"02152018", {2018, 2, 15}},
    {"12312018", {2018, 12, 31}},
    {"01011800", {1800, 1, 1}},
    {"12319999", {9999, 12, 31}},
    {"10101810", {1810, 10, 10}},
    // The day is compared with 31 and not with its month.
    {"20180231", {2018, 2, 31}},
    {"20180431", {2018, 4, 31}},
    {"02312018", {2018, 2, 31}},
    // Eight characters are read, whatever follows.
    {"2018021599", {2018, 2, 15}},
    {"20180215T1200", {2018, 2, 15}},
    {"021520189", {2018, 2, 15}},
    // White space in front of a number is skipped, each kind of it.
    {"2018 2 5", {2018, 2, 5}},
    {"2018\t2\n5", {2018, 2, 5}},
    {"2018\v2\f5", {2018, 2, 5}},
    {"2018\r2 5", {2018, 2, 5}},
    {" 1 22018", {2018, 1, 2}},
    // A sign may follow.
    {"2018+2+5", {2018, 2, 5}},
    {"+1+22018", {2018, 1, 2}},
    // The number ends at the first character that is no digit.
    {"20182 5 ", {2018, 2, 5}},
    {"20182-5/", {2018, 2, 5}},
    {"20181x5y", {2018, 1, 5}},
    {"1-2-2018", {2018, 1, 2}},
    {"2018"
     "2\0"
     "05"sv,
     {2018, 2, 5}},
    {"2018"
     "2\xA0"
     "05"sv,
     {2018, 2, 5}},
};

constexpr std::string_view UNREADABLE[] = {
    // No year from 1800 to 9999 in either place.
    "17991231",
    "12311799",
    "00000101",
    "01010000",
    "0101 999",
    "0101+999",
    "0101-201",
    // No month from 1 to 12.
    "20180015",
    "20181315",
    "18121812",
    "13012018",
    "00012018",
    "2018-2 5",
    "2018x205",
    "2018 x05",
    // No day from 1 to 31.
    "20180200",
    "20180232",
    "02002018",
    "02322018",
    "201802-5",
    "201802xx",
    // A number after white space and a sign is none when there is white space again, or another sign.
    "2018+ 05",
    "2018--05",
    "2018+-05",
    // What other character sets call white space is none.
    "2018\xA0"
    "205",
    "2018\x85"
    "205",
    // A point is no sign.
    "2018.1.2",
    // Nothing of a date.
    "ABCDEFGH",
    "        ",
    "\0\0\0\0\0\0\0\0"sv,
    "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF",
    // Fewer than eight characters.
    "2018021",
    "2",
    "",
};

TEST(ParseDate, ReadsYearFirstOrMonthFirst) {
  for (const Text &row : READABLE) {
    SCOPED_TRACE(shown(std::string(row.text)));
    const Exact text(row.text);
    const STRING view = text.view();
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_parse_date(&view, &date), 0);
    EXPECT_EQ(day_of(date), row.expected);
    expect_midnight(date);
  }
}

TEST(ParseDate, RefusesAndLeavesTheDateAlone) {
  for (const std::string_view refused : UNREADABLE) {
    SCOPED_TRACE(shown(std::string(refused)));
    const Exact text(refused);
    const STRING view = text.view();
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_parse_date(&view, &date), -1);
    expect_untouched(date);
  }
}

TEST(ParseDate, RefusesNull) {
  const STRING no_text = {nullptr, 8};
  const STRING negative = {"20180215", -8};
  const STRING text = {"20180215", 8};
  DATETIME date = UNTOUCHED;
  EXPECT_EQ(utils_parse_date(nullptr, &date), -1);
  EXPECT_EQ(utils_parse_date(&no_text, &date), -1);
  EXPECT_EQ(utils_parse_date(&negative, &date), -1);
  expect_untouched(date);
  EXPECT_EQ(utils_parse_date(&text, nullptr), -1);
}

// ---- checking --------------------------------------------------------------------------------------

struct Checked {
  DATETIME date;
  int expected;
};

constexpr Checked CHECKED[] = {
    {{2018, 2, 15, 12, 30, 30}, 0},
    {{1000, 1, 1, 0, 0, 0}, 0},
    {{9999, 12, 31, 23, 59, 59}, 0},
    {{2018, 2, 31, 0, 0, 0}, 0}, // the day is compared with 31 and not with its month
    {{999, 1, 1, 0, 0, 0}, -1},
    {{10000, 1, 1, 0, 0, 0}, -1},
    {{0, 1, 1, 0, 0, 0}, -1},
    {{-2018, 1, 1, 0, 0, 0}, -1},
    {{2018, 0, 1, 0, 0, 0}, -1},
    {{2018, 13, 1, 0, 0, 0}, -1},
    {{2018, -1, 1, 0, 0, 0}, -1},
    {{2018, 1, 0, 0, 0, 0}, -1},
    {{2018, 1, 32, 0, 0, 0}, -1},
    {{2018, 1, -1, 0, 0, 0}, -1},
    {{2018, 1, 1, 24, 0, 0}, -1},
    {{2018, 1, 1, -1, 0, 0}, -1},
    {{2018, 1, 1, 0, 60, 0}, -1},
    {{2018, 1, 1, 0, -1, 0}, -1},
    {{2018, 1, 1, 0, 0, 60}, -1},
    {{2018, 1, 1, 0, 0, -1}, -1},
    {{INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX}, -1},
    {{INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN}, -1},
};

TEST(ValidateDate, ChecksEveryPartForItsRange) {
  for (const auto &[date, expected] : CHECKED) {
    EXPECT_EQ(utils_validate_date(&date), expected)
        << day_of(date) << ' ' << date.hr << ':' << date.min << ':' << date.sec;
  }
  EXPECT_EQ(utils_validate_date(nullptr), -1);
}

// The two lower bounds differ on purpose.
TEST(ValidateDate, TakesYearsThatReadingRefuses) {
  const STRING text = {"17991231", 8};
  const DATETIME date = {1799, 12, 31, 0, 0, 0};
  DATETIME read = UNTOUCHED;
  EXPECT_EQ(utils_parse_date(&text, &read), -1);
  EXPECT_EQ(utils_validate_date(&date), 0);
}

// ---- moving into the month -------------------------------------------------------------------------

struct Moved {
  int year;
  int month;
  int day;
  int expected;
};

constexpr Moved MOVED[] = {
    {2019, 2, 30, 28},
    {2000, 2, 30, 29},
    {1900, 2, 29, 28},
    {2019, 13, 40, 40},
    {2019, 4, 0, 1},
    // The last day of every month.
    {2019, 1, 99, 31},
    {2019, 2, 99, 28},
    {2019, 3, 99, 31},
    {2019, 4, 99, 30},
    {2019, 5, 99, 31},
    {2019, 6, 99, 30},
    {2019, 7, 99, 31},
    {2019, 8, 99, 31},
    {2019, 9, 99, 30},
    {2019, 10, 99, 31},
    {2019, 11, 99, 30},
    {2019, 12, 99, 31},
    // February by the Gregorian rule.
    {2020, 2, 99, 29},
    {2100, 2, 99, 28},
    {2400, 2, 99, 29},
    {0, 2, 99, 29},
    {1, 2, 99, 28},
    {-4, 2, 99, 29},
    {-100, 2, 99, 28},
    {-400, 2, 99, 29},
    // Days that are in their month already.
    {2019, 1, 1, 1},
    {2019, 1, 31, 31},
    {2020, 2, 29, 29},
    // Days below 1, and the ends of int.
    {2019, 1, -5, 1},
    {2019, 1, INT_MIN, 1},
    {2019, 1, INT_MAX, 31},
    {INT_MIN, 2, 30, 29},
    {INT_MAX, 2, 30, 28},
    // Without a month, the day is left alone.
    {2019, 0, 40, 40},
    {2019, 0, -40, -40},
    {2019, 13, 0, 0},
    {2019, -1, 5, 5},
    {2019, INT_MAX, INT_MIN, INT_MIN},
    {2019, INT_MIN, INT_MAX, INT_MAX},
};

TEST(ValidateDaysInMonth, MovesTheDayIntoItsMonth) {
  for (const auto &[year, month, day, expected] : MOVED) {
    EXPECT_EQ(utils_validate_days_in_month(year, month, day), expected) << (Day{year, month, day});
  }
}

// ---- counting --------------------------------------------------------------------------------------

struct Counted {
  uint64_t days;
  Day expected;
};

constexpr Counted COUNTED[] = {
    {0, {999, 12, 31}},        {1, {1000, 1, 1}},        {31, {1000, 1, 31}},    {32, {1000, 2, 1}},
    {365, {1000, 12, 31}},     {366, {1001, 1, 1}},      {365243, {2000, 1, 1}}, {371863, {2018, 2, 15}},
    {330178, {1903, 12, 31}},  {330179, {1903, 13, 1}},  {330180, {1904, 1, 2}}, {3000000, {9213, 9, 20}},
    {3287182, {9999, 12, 31}}, {3287183, {10000, 1, 1}},
};

TEST(DaysToDate, CountsFromTheFirstOfJanuary1000) {
  for (const auto &[days, expected] : COUNTED) {
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_days2date(days, &date), ERR_OK) << days;
    EXPECT_EQ(day_of(date), expected) << days;
    expect_midnight(date);
  }
  EXPECT_EQ(utils_days2date(1, nullptr), ERR_INVALID_ARGS);
}

// Every count gives some date. Years that do not fit an int wrap, and where the estimate of the year is far
// off, so does the day; the estimate is made with a double, so counts beyond 2^53 share theirs.
constexpr Counted HUGE_COUNTS[] = {
    {10000000, {28379, 1, 26}},
    {1000000000, {2738907, 1, 3}},
    {4294967295, {11760221, 1, 19}},
    {4294967296, {11760221, 1, 20}},
    {1000000000000, {-1557059290, 12, 27}},
    {9007199254740991, {-828259735, 1, 8}},
    {9007199254740992, {-828259735, 1, 9}},
    {9007199254740993, {-828259735, 1, 10}},
    {9223372036854775807, {-2030434300, 13, -888}},
    {9223372036854775808U, {-2030434300, 13, -887}},
    {18446744073709550591U, {234097688, 13, 488}},
    {18446744073709551614U, {234097696, 13, -1411}},
    {UINT64_MAX, {234097696, 13, -1410}},
};

TEST(DaysToDate, GivesSomeDateForEveryCount) {
  for (const auto &[days, expected] : HUGE_COUNTS) {
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_days2date(days, &date), ERR_OK) << days;
    EXPECT_EQ(day_of(date), expected) << days;
    expect_midnight(date);
  }
  for (uint64_t days = UINT64_MAX; days != 0; days /= 3) {
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_days2date(days, &date), ERR_OK) << days;
    expect_midnight(date);
  }
}

// A calendar that is turned one day at a time.
class Calendar {
public:
  Day today() const { return day_; }

  void next() {
    ++day_.day;
    if (day_.day > last_of_month()) {
      day_.day = 1;
      ++day_.month;
    }
    if (day_.month > 12) {
      day_.month = 1;
      ++day_.year;
    }
  }

private:
  int last_of_month() const {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = day_.year % 400 == 0 || (day_.year % 4 == 0 && day_.year % 100 != 0);
    return lengths[day_.month - 1] + (day_.month == 2 && leap ? 1 : 0);
  }

  Day day_ = {999, 12, 31};
};

// Varnel's own oddity: up to 3,000,000, the first day of a leap year comes out as month 13 of the year before
// when 304 to 332 are left of the year, divided by 400.
bool begins_as_month_thirteen(int year) { return year % 4 == 0 && year % 400 >= 304 && year % 400 <= 332; }

TEST(DaysToDate, IsTheGregorianCalendarButForMonthThirteen) {
  Calendar calendar;
  int exceptions = 0;
  for (int days = 0; days <= 3000000; ++days, calendar.next()) {
    const Day today = calendar.today();
    const bool thirteen = today.month == 1 && today.day == 1 && begins_as_month_thirteen(today.year);
    exceptions += thirteen ? 1 : 0;
    DATETIME date;
    ASSERT_EQ(utils_days2date(static_cast<uint64_t>(days), &date), ERR_OK);
    ASSERT_EQ(day_of(date), thirteen ? (Day{today.year - 1, 13, 1}) : today) << days;
  }
  EXPECT_EQ(exceptions, 168);
}

// The first and the last of them, and some between.
TEST(DaysToDate, ComesOutAsMonthThirteen) {
  const std::pair<uint64_t, int> rows[] = {{37985, 1104},  {39446, 1108},  {48212, 1132},   {184082, 1504},
                                           {330179, 1904}, {340406, 1932}, {1938707, 6308}, {2970152, 9132}};
  for (const auto &[days, year] : rows) {
    DATETIME date = UNTOUCHED;
    EXPECT_EQ(utils_days2date(days, &date), ERR_OK);
    EXPECT_EQ(day_of(date), (Day{year - 1, 13, 1})) << days;
    expect_midnight(date);
  }
}

} // namespace
