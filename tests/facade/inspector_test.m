// The class VarnelInspector over a real Foundation.
#import <VarnelDocuments/VarnelDocuments.h>

#import "checks.h"
#import "texts.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

// The specimen of ICAO Doc 9303-4.
static const char PASSPORT[] = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                               "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

static NSString *text_of(const char *utf8) { return [NSString stringWithUTF8String:utf8]; }

// A moment so many seconds after the first of January 1970, UTC.
static NSDate *moment(double seconds) { return [NSDate dateWithTimeIntervalSince1970:seconds]; }

static NSDictionary *inspect(NSString *text) {
  VarnelInspector *inspector = [[VarnelInspector new] autorelease];
  return [inspector inspect:text date:moment(0) repair:VarnelRepairOff];
}

static id at(NSDictionary *dictionary, NSString *path) { return [dictionary valueForKeyPath:path]; }

static void test_specimen(void) {
  NSDictionary *answer = inspect(text_of(PASSPORT));
  CHECK([at(answer, @"verdict") isEqual:@"valid"], @"");
  CHECK([at(answer, @"layout") isEqual:@"TD3"], @"");
  CHECK([at(answer, @"fields.primaryIdentifier.value") isEqual:@"ERIKSSON"], @"");
  CHECK([at(answer, @"fields.primaryIdentifier.line") isEqual:[NSNumber numberWithInt:0]], @"");
  CHECK([at(answer, @"fields.issuingState.name") isEqual:@"Utopia"], @"");
  CHECK([at(answer, @"checks.composite.holds") boolValue], @"");
  CHECK([at(answer, @"checks.composite.rule") isEqual:[NSNull null]], @"");
  CHECK([at(answer, @"findings") isEqual:[NSArray array]], @"");
}

// Born on 12 August 1974: after the reference date of 1970, hence in 1874.
static void test_date(void) {
  VarnelInspector *inspector = [[VarnelInspector new] autorelease];
  NSString *text = text_of(PASSPORT);
  CHECK([at(inspect(text), @"date") isEqual:@"1970-01-01"], @"");
  CHECK([at(inspect(text), @"fields.birthDate.value") isEqual:@"1874-08-12"], @"");
  // The last second of a day in UTC, and the second after it.
  NSDictionary *last = [inspector inspect:text date:moment(1795219199) repair:VarnelRepairOff];
  NSDictionary *next = [inspector inspect:text date:moment(1795219200) repair:VarnelRepairOff];
  CHECK([at(last, @"date") isEqual:@"2026-11-20"], @"");
  CHECK([at(next, @"date") isEqual:@"2026-11-21"], @"");
  CHECK([at(next, @"fields.birthDate.value") isEqual:@"1974-08-12"], @"");
  CHECK([at(next, @"expired") boolValue], @"");
  NSString *today = at([inspector inspect:text], @"date");
  NSString *now = at([inspector inspect:text date:[NSDate date] repair:VarnelRepairOff], @"date");
  CHECK([today compare:now] != NSOrderedDescending, @"");
}

static void test_repair(void) {
  VarnelInspector *inspector = [[VarnelInspector new] autorelease];
  NSString *text = text_of(PASSPORT);
  CHECK([at([inspector inspect:text], @"repair") isEqual:@"off"], @"");
  CHECK([inspector inspect:text date:nil repair:(VarnelRepair)3] == nil, @"");
  CHECK([inspector inspect:text date:nil repair:(VarnelRepair)-1] == nil, @"");
}

static void test_no_document(void) {
  VarnelInspector *inspector = [[VarnelInspector new] autorelease];
  CHECK([inspector inspect:nil] == nil, @"");
  CHECK([at(inspect(@""), @"verdict") isEqual:@"refused"], @"");
  CHECK([at(inspect(@""), @"findings.code") isEqual:[NSArray arrayWithObject:@"noZone"]], @"");
  CHECK([at(inspect(@""), @"layout") isEqual:[NSNull null]], @"");
  NSString *longest = [@"" stringByPaddingToLength:65536 withString:@"." startingAtIndex:0];
  CHECK([at(inspect(longest), @"verdict") isEqual:@"refused"], @"");
  CHECK(inspect([longest stringByAppendingString:@"."]) == nil, @"");
}

// Characters of every length in UTF-8, and a NUL, are noise on a line of their own; a lone surrogate has no
// UTF-8 form.
static void test_noise(void) {
  UNITS noise = {NULL, 0, 0};
  const unichar units[] = {0xE9, 0x20AC, 0xD83D, 0xDE00, 0, '\n'};
  for (size_t i = 0; i < sizeof units / sizeof *units; ++i) {
    append_unit(&noise, units[i]);
  }
  append_ascii(&noise, PASSPORT);
  CHECK([at(inspect(string_of(noise)), @"verdict") isEqual:@"valid"], @"");
  append_unit(&noise, 0xD800);
  CHECK([string_of(noise) length] == noise.count, @"");
  CHECK(inspect(string_of(noise)) == nil, @"");
  free(noise.units);
}

int main(void) {
  void (*const tests[])(void) = {test_specimen, test_date, test_repair, test_no_document, test_noise};
  for (size_t i = 0; i < sizeof tests / sizeof *tests; ++i) {
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    tests[i]();
    [pool drain];
  }
  printf("%d tests run, %d checks failed\n", (int)(sizeof tests / sizeof *tests), failed_checks);
  return failed_checks == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
