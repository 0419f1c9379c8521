// Checks that report and go on; a test has failed when any of its checks has.
#ifndef VARNEL_TESTS_FACADE_CHECKS_H
#define VARNEL_TESTS_FACADE_CHECKS_H

#import <Foundation/Foundation.h>

#include <stdio.h>

static int failed_checks = 0;

static void check(BOOL holds, const char *file, int line, NSString *what) {
  if (!holds) {
    ++failed_checks;
    fprintf(stderr, "%s:%d: %s\n", file, line, [what UTF8String]);
  }
}

__attribute__((unused)) static void check_equal(id actual, id expected, const char *file, int line,
                                                NSString *what) {
  if (actual != expected && ![actual isEqual:expected]) {
    check(NO, file, line, [NSString stringWithFormat:@"%@: %@, expected %@", what, actual, expected]);
  }
}

// `what` names the row of a table, or is empty.
#define CHECK(condition, what)                                                                               \
  check((condition), __FILE__, __LINE__, [@ #condition " " stringByAppendingString:(what)])
#define CHECK_EQUAL(actual, expected, what) check_equal((actual), (expected), __FILE__, __LINE__, (what))

#endif
