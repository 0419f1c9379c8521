// Checks that report and go on; a test has failed when any of its checks has.
#ifndef VARNEL_TESTS_FACADE_CHECKS_H
#define VARNEL_TESTS_FACADE_CHECKS_H

#import <Foundation/Foundation.h>

extern int failed_checks;

void check(BOOL holds, const char *file, int line, NSString *what);
void check_equal(id actual, id expected, const char *file, int line, NSString *what);

// `what` names the row of a table, or is empty.
#define CHECK(condition, what)                                                                               \
  check((condition), __FILE__, __LINE__, [@ #condition " " stringByAppendingString:(what)])
#define CHECK_EQUAL(actual, expected, what) check_equal((actual), (expected), __FILE__, __LINE__, (what))

#endif
