#include <stdio.h>

#include <Varnel/utils.h>

int main(void) {
  // Year first or month first, whichever is in range.
  const STRING texts[] = {{"20180215", 8}, {"02152018", 8}, {"17991231", 8}};
  for (int i = 0; i < 3; ++i) {
    DATETIME date = {0, 0, 0, 0, 0, 0};
    int status = utils_parse_date(&texts[i], &date);
    printf("%.8s: %2d, %04d-%02d-%02d\n", texts[i].str, status, date.year, date.month, date.day);
  }

  // Ranges are checked, the length of the month is not; the day is moved into its month on demand.
  DATETIME impossible = {2019, 2, 30, 0, 0, 0};
  printf("validated: %d\n", utils_validate_date(&impossible));
  printf("last day: %d\n", utils_validate_days_in_month(2019, 2, 30));

  // Day 1 is 1 January 1000. Day 330179 is 1 January 1904 and comes out as month 13 of 1903.
  const uint64_t days[] = {1, 371863, 330178, 330179, 330180};
  for (int i = 0; i < 5; ++i) {
    DATETIME date;
    utils_days2date(days[i], &date);
    printf("day %6d: %04d-%02d-%02d\n", (int)days[i], date.year, date.month, date.day);
  }
  return 0;
}
