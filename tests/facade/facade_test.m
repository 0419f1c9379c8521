// The class Varnel and the NSString category over a real Foundation.
//
//   facade_test          runs every test
//   facade_test NAME     runs one
#import <Varnel/Varnel.h>

#import "checks.h"
#import "texts.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

// The specimens of ICAO Doc 9303, parts 4 and 5.
static const char PASSPORT[] = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                               "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
static const char CARD[] = "I<UTOD231458907<<<<<<<<<<<<<<<\n"
                           "7408122F1204159UTO<<<<<<<<<<<6\n"
                           "ERIKSSON<<ANNA<MARIA<<<<<<<<<<\n";

static NSString *text_of(const char *ascii) { return [NSString stringWithUTF8String:ascii]; }

static NSDictionary *answer_for(NSString *text) {
  Varnel *varnel = [[Varnel new] autorelease];
  return [varnel parseMRZStringForDictionary:text];
}

// A record with a buffer of its own, cleared.
typedef struct {
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
} RECORD;

static PARSE_RESULT *cleared(RECORD *record) {
  result_init(&record->result, record->buffer, sizeof record->buffer);
  return &record->result;
}

// ---- what a document is answered with ---------------------------------------------------------------

static const char *const PASSPORT_ANSWER[VARNEL_VALUE_COUNT][2] = {
    {"firstName", "ANNA"},
    {"lastName", "ERIKSSON"},
    {"middleName", "MARIA"},
    {"licenseNumber", "L898902C3"},
    {"birthDate", "19740812"},
    {"expirationDate", "20120415"},
    {"gender", "F"},
    {"countryCode", "UTO"},
    {"jurisdictionCode", ""},
    {"nationality", "UTO"},
    {"documentType", "PASSPORT"},
    {"issueDate", ""},
};

static NSDictionary *passport_answer(void) {
  NSMutableDictionary *answer = [NSMutableDictionary dictionary];
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    [answer setObject:text_of(PASSPORT_ANSWER[i][1]) forKey:text_of(PASSPORT_ANSWER[i][0])];
  }
  return answer;
}

static void test_specimen(void) {
  CHECK_EQUAL(answer_for(text_of(PASSPORT)), passport_answer(), @"class");
  CHECK_EQUAL([text_of(PASSPORT) parseMRZStringForDict], passport_answer(), @"category");
  CHECK_EQUAL([[NSMutableString stringWithUTF8String:PASSPORT] parseMRZStringForDict], passport_answer(),
              @"mutable string");
  CHECK_EQUAL([[text_of(CARD) parseMRZStringForDict] objectForKey:@"documentType"], @"TD", @"card");
}

static void test_nothing(void) {
  NSString *none = nil;
  CHECK_EQUAL(answer_for(none), nil, @"nil argument");
  CHECK_EQUAL([none parseMRZStringForDict], nil, @"nil receiver");
  CHECK_EQUAL(answer_for(@""), nil, @"empty string");
  CHECK_EQUAL([@"" parseMRZStringForDict], nil, @"empty receiver");
  CHECK_EQUAL(answer_for(@"I<UTOD231458907<<<<<<<<<<<<<<<"), nil, @"one line of a card");
  CHECK_EQUAL(answer_for(@"not a document"), nil, @"no zone");
}

// As many bytes of the UTF-8 form are examined as the text has UTF-16 units, so a character of n bytes and
// u units hides the last n - u bytes of the text.
static void test_beyond_ascii(void) {
  static const struct {
    const char *name;
    unichar inserted[4]; // up to the first 0
    BOOL before;         // in front of the zone; else after it
    int spaces;          // added at the end
    BOOL accepted;
  } ROWS[] = {
      // The zone ends with a line feed, which may be lost.
      {"two bytes in front hide the line feed", {0xE9}, YES, 0, YES},
      {"twice two bytes hide a character", {0xE9, 0xE9}, YES, 0, NO},
      {"twice two bytes and a space", {0xE9, 0xE9}, YES, 1, YES},
      {"three bytes in front hide a character", {0x20AC}, YES, 0, NO},
      {"three bytes and a space", {0x20AC}, YES, 1, YES},
      {"an emoji in front hides a character", {0xD83D, 0xDE00}, YES, 0, NO},
      {"an emoji and a space", {0xD83D, 0xDE00}, YES, 1, YES},
      {"an emoji after the zone", {0xD83D, 0xDE00}, NO, 0, YES},
      {"small dotless i is no letter", {0x131}, YES, 0, YES},
      {"fullwidth letters are no letters", {0xFF30}, NO, 0, YES},
      {"byte order mark hides a character", {0xFEFF}, YES, 0, NO},
      {"byte order mark and a space", {0xFEFF}, YES, 1, YES},
  };
  for (size_t row = 0; row < sizeof ROWS / sizeof *ROWS; ++row) {
    UNITS text = {NULL, 0, 0};
    for (int i = 0; ROWS[row].before && ROWS[row].inserted[i] != 0; ++i) {
      append_unit(&text, ROWS[row].inserted[i]);
    }
    append_ascii(&text, PASSPORT);
    for (int i = 0; !ROWS[row].before && ROWS[row].inserted[i] != 0; ++i) {
      append_unit(&text, ROWS[row].inserted[i]);
    }
    for (int i = 0; i < ROWS[row].spaces; ++i) {
      append_unit(&text, ' ');
    }
    CHECK_EQUAL(answer_for(string_of(text)), ROWS[row].accepted ? passport_answer() : nil,
                text_of(ROWS[row].name));
    free(text.units);
  }
}

// A NUL within a text is a character like any other that no zone has: dropped.
static void test_embedded_nul(void) {
  for (size_t at = 0; at < sizeof PASSPORT; at += 11) {
    UNITS text = {NULL, 0, 0};
    append_ascii(&text, PASSPORT);
    append_unit(&text, 0);
    memmove(text.units + at + 1, text.units + at, (text.count - 1 - at) * sizeof *text.units);
    text.units[at] = 0;
    CHECK([string_of(text) length] == sizeof PASSPORT, @"");
    CHECK_EQUAL(answer_for(string_of(text)), passport_answer(), @"NUL");
    free(text.units);
  }
}

// A text that has no UTF-8 form is refused wherever the lone surrogate stands.
static void test_lone_surrogate(void) {
  static const unichar LONE[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF};
  for (size_t i = 0; i < sizeof LONE / sizeof *LONE; ++i) {
    UNITS first = {NULL, 0, 0};
    append_unit(&first, LONE[i]);
    append_ascii(&first, PASSPORT);
    CHECK([string_of(first) length] == sizeof PASSPORT, @"");
    CHECK_EQUAL(answer_for(string_of(first)), nil, @"in front");
    CHECK_EQUAL([string_of(first) parseMRZStringForDict], nil, @"in front, category");
    free(first.units);

    UNITS last = {NULL, 0, 0};
    append_ascii(&last, PASSPORT);
    append_unit(&last, LONE[i]);
    CHECK_EQUAL(answer_for(string_of(last)), nil, @"after");
    free(last.units);
  }
}

// 1023 UTF-16 units are examined, however long the text.
static void test_length(void) {
  enum { CHARACTERS = sizeof PASSPORT - 2 }; // without the last line feed
  static const struct {
    int blanks_before;
    int length;
    BOOL accepted;
  } ROWS[] = {
      {0, 1024, YES},
      {0, 100000, YES},
      {1023 - CHARACTERS, 1023, YES},
      {1023 - CHARACTERS, 100000, YES},
      {1024 - CHARACTERS, 1024, NO},
      {1024 - CHARACTERS, 100000, NO},
      {100000 - CHARACTERS, 100000, NO},
  };
  for (size_t row = 0; row < sizeof ROWS / sizeof *ROWS; ++row) {
    NSMutableString *text = [NSMutableString string];
    for (int i = 0; i < ROWS[row].blanks_before; ++i) {
      [text appendString:@" "];
    }
    [text appendString:[text_of(PASSPORT) substringToIndex:CHARACTERS]];
    while ([text length] < (NSUInteger)ROWS[row].length) {
      [text appendString:@"\n"];
    }
    NSString *name = [NSString stringWithFormat:@"%d of %d", ROWS[row].blanks_before, ROWS[row].length];
    CHECK([text length] == (NSUInteger)ROWS[row].length, name);
    CHECK_EQUAL(answer_for(text), ROWS[row].accepted ? passport_answer() : nil, name);
  }
}

// ---- the export of a record -------------------------------------------------------------------------

static void test_export_of_nothing(void) {
  RECORD record;
  Varnel *varnel = [[Varnel new] autorelease];
  PARSE_RESULT *const results[] = {cleared(&record), NULL};
  for (int i = 0; i < 2; ++i) {
    NSDictionary *answer = [varnel parseResult:results[i]];
    CHECK([answer count] == VARNEL_VALUE_COUNT, @"");
    NSEnumerator *values = [answer objectEnumerator];
    for (NSString *value = [values nextObject]; value != nil; value = [values nextObject]) {
      CHECK_EQUAL(value, @"", @"");
    }
    CHECK_EQUAL([[answer allKeys] sortedArrayUsingSelector:@selector(compare:)],
                [[passport_answer() allKeys] sortedArrayUsingSelector:@selector(compare:)], @"keys");
  }
}

static void test_export_of_each_slot(void) {
  static const struct {
    int slot;
    const char *key;
  } ROWS[] = {
      {FIELD_FIRST_NAME, "firstName"},
      {FIELD_FAMILY_NAME, "lastName"},
      {FIELD_MIDDLE_NAME, "middleName"},
      {FIELD_DOCUMENT_NUMBER, "licenseNumber"},
      {FIELD_BIRTH_DATE, "birthDate"},
      {FIELD_EXPIRATION_DATE, "expirationDate"},
      {FIELD_SEX, "gender"},
      {FIELD_COUNTRY_CODE, "countryCode"},
      {FIELD_RESIDENCE_JURISDICTION, "jurisdictionCode"},
      {FIELD_ADDRESS_JURISDICTION, "jurisdictionCode"},
      {FIELD_ENDORSEMENT_DESC, "jurisdictionCode"},
      {FIELD_RESTRICTION_DESC, "jurisdictionCode"},
      {FIELD_VEHICLE_CLASS_DESC, "jurisdictionCode"},
      {FIELD_NATIONALITY, "nationality"},
      {FIELD_DOCUMENT_TYPE, "documentType"},
      {FIELD_ISSUE_DATE, "issueDate"},
  };
  Varnel *varnel = [[Varnel new] autorelease];
  int exported = 0;
  for (int slot = 0; slot < FIELD_COUNT; ++slot) {
    RECORD record;
    utils_write_field_s(cleared(&record), slot, "TEXT");
    NSDictionary *answer = [varnel parseResult:&record.result];
    const char *key = NULL;
    for (size_t row = 0; row < sizeof ROWS / sizeof *ROWS; ++row) {
      key = ROWS[row].slot == slot ? ROWS[row].key : key;
    }
    exported += key != NULL;
    CHECK([[answer allKeysForObject:@""] count] == (key != NULL ? 11 : 12), @"");
    if (key != NULL) {
      CHECK_EQUAL([answer objectForKey:text_of(key)], @"TEXT", text_of(key));
    }
  }
  CHECK(exported == sizeof ROWS / sizeof *ROWS, @"");
}

// Of the five slots of "jurisdictionCode" the first of 34, 4, 71, 72, 70 that is not empty counts.
static void test_jurisdiction(void) {
  static const int CHOICES[] = {34, 4, 71, 72, 70};
  Varnel *varnel = [[Varnel new] autorelease];
  for (unsigned filled = 0; filled < 32; ++filled) {
    RECORD record;
    cleared(&record);
    NSString *expected = @"";
    for (int i = 4; i >= 0; --i) {
      if (filled & 1u << i) {
        expected = [NSString stringWithFormat:@"S%d", CHOICES[i]];
        utils_write_field_s(&record.result, CHOICES[i], [expected UTF8String]);
      }
    }
    CHECK_EQUAL([[varnel parseResult:&record.result] objectForKey:@"jurisdictionCode"], expected,
                ([NSString stringWithFormat:@"slots %u", filled]));
  }
}

static void test_value_of_slot(void) {
  RECORD record;
  Varnel *varnel = [[Varnel new] autorelease];
  PARSE_RESULT *result = cleared(&record);
  utils_write_field_s(result, FIELD_FIRST_NAME, "ANNA");
  utils_write_field_s(result, FIELD_FAMILY_NAME, "\xC3\x89RIKSSON");
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:result], @"ANNA", @"");
  CHECK([[varnel getValueForKey:FIELD_FAMILY_NAME inResult:result] characterAtIndex:0] == 0xC9, @"");
  CHECK_EQUAL([varnel getValueForKey:FIELD_SEX inResult:result], @"", @"empty slot");
  CHECK_EQUAL([varnel getValueForKey:FIELD_SEX inResult:NULL], @"", @"no record");
  CHECK_EQUAL([varnel getValueForKey:-1 inResult:result], @"", @"slot -1");
  CHECK_EQUAL([varnel getValueForKey:FIELD_COUNT inResult:result], @"", @"slot 139");

  // The value is read up to its NUL, whatever the length of the view says.
  result->fields[FIELD_FIRST_NAME].value.len = 0;
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:result], @"ANNA", @"length 0");
  result->fields[FIELD_FIRST_NAME].value.len = 2;
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:result], @"ANNA", @"length 2");
  result->fields[FIELD_FIRST_NAME].value.len = 9;
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:result], @"ANNA", @"length 9");
  char elsewhere[] = "ELSEWHERE";
  result->fields[FIELD_FIRST_NAME].value.str = elsewhere;
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:result], @"ELSEWHERE", @"own text");
}

// A text that fills the buffer to its last byte has no NUL after it, and is not read beyond.
static void test_full_buffer(void) {
  char *buffer = malloc(8);
  PARSE_RESULT result;
  result_init(&result, buffer, 8);
  utils_write_field_s(&result, FIELD_FIRST_NAME, "ABC");
  utils_write_field_s(&result, FIELD_FAMILY_NAME, "DEFG");
  Varnel *varnel = [[Varnel new] autorelease];
  CHECK(buffer[7] == 'G', @"");
  CHECK_EQUAL([varnel getValueForKey:FIELD_FIRST_NAME inResult:&result], @"ABC", @"");
  CHECK_EQUAL([varnel getValueForKey:FIELD_FAMILY_NAME inResult:&result], @"DEFG", @"");
  CHECK_EQUAL([[varnel parseResult:&result] objectForKey:@"lastName"], @"DEFG", @"");
  free(buffer);
}

// Malformed UTF-8, which no layout parser stores, is nil; a dictionary cannot hold it.
static void test_malformed_utf8(void) {
  RECORD record;
  Varnel *varnel = [[Varnel new] autorelease];
  utils_write_field_s(cleared(&record), FIELD_SEX, "\xFF");
  CHECK([varnel getValueForKey:FIELD_SEX inResult:&record.result] == nil, @"");
  NSString *thrown = nil;
  @try {
    [varnel parseResult:&record.result];
  } @catch (NSException *exception) {
    thrown = [exception name];
  }
  CHECK_EQUAL(thrown, NSInvalidArgumentException, @"");
}

// ---- subclasses -------------------------------------------------------------------------------------

// Notes the slots that are read, and puts text of its own into them.
@interface Noting : Varnel {
@public
  NSMutableArray *slots;
}
@end

@implementation Noting
- (id)init {
  self = [super init];
  slots = [NSMutableArray new];
  return self;
}
- (void)dealloc {
  [slots release];
  [super dealloc];
}
- (NSString *)getValueForKey:(int)key inResult:(PARSE_RESULT *)result {
  [slots addObject:[NSNumber numberWithInt:key]];
  return [[super getValueForKey:key inResult:result] stringByAppendingFormat:@"#%d", key];
}
@end

// A subclass sees each slot read once, in this order, and what it answers is what is exported.
static void test_reading_order(void) {
  static const int ORDER[] = {26, 25, 27, 6, 78, 10, 12, 125, 4, 34, 71, 72, 70, 13, 87, 138};
  NSMutableArray *order = [NSMutableArray array];
  for (size_t i = 0; i < sizeof ORDER / sizeof *ORDER; ++i) {
    [order addObject:[NSNumber numberWithInt:ORDER[i]]];
  }
  Noting *noting = [[Noting new] autorelease];
  NSDictionary *answer = [noting parseMRZStringForDictionary:text_of(PASSPORT)];
  CHECK_EQUAL(noting->slots, order, @"");
  CHECK_EQUAL([answer objectForKey:@"firstName"], @"ANNA#26", @"");
  CHECK_EQUAL([answer objectForKey:@"jurisdictionCode"], @"#34", @"");
  CHECK_EQUAL([answer objectForKey:@"nationality"], @"UTO#138", @"");
}

// ---- every vector -----------------------------------------------------------------------------------

static NSString *vectors_folder(void) { return text_of(VECTORS_FOLDER); }

static NSArray *vectors(void) {
  NSMutableArray *names = [NSMutableArray array];
  NSDirectoryEnumerator *files = [[NSFileManager defaultManager] enumeratorAtPath:vectors_folder()];
  for (NSString *name = [files nextObject]; name != nil; name = [files nextObject]) {
    if ([[name pathExtension] isEqualToString:@"mrz"]) {
      NSString *path = [vectors_folder() stringByAppendingPathComponent:name];
      [names addObject:[path stringByDeletingPathExtension]];
    }
  }
  return [names sortedArrayUsingSelector:@selector(compare:)];
}

static UNITS units_of_vector(NSString *name, BOOL *well_formed) {
  UNITS text = {NULL, 0, 0};
  *well_formed = append_utf8(&text, [NSData dataWithContentsOfFile:[name stringByAppendingString:@".mrz"]]);
  return text;
}

// The file holds an object of strings, or null.
static NSDictionary *expected_answer(NSString *name) {
  NSData *json = [NSData dataWithContentsOfFile:[name stringByAppendingString:@".json"]];
  CHECK(json != nil, name);
  id answer = [NSJSONSerialization JSONObjectWithData:json options:NSJSONReadingAllowFragments error:NULL];
  CHECK(answer == [NSNull null] || [answer isKindOfClass:[NSDictionary class]], name);
  return answer == [NSNull null] ? nil : answer;
}

static void test_vectors(void) {
  int accepted = 0;
  int refused = 0;
  NSEnumerator *names = [vectors() objectEnumerator];
  for (NSString *name = [names nextObject]; name != nil; name = [names nextObject]) {
    BOOL well_formed = NO;
    UNITS text = units_of_vector(name, &well_formed);
    // Only a text that is Unicode can be an NSString.
    CHECK(well_formed == ([name rangeOfString:@"undecodable"].location == NSNotFound), name);
    if (well_formed) {
      NSDictionary *expected = expected_answer(name);
      CHECK_EQUAL(answer_for(string_of(text)), expected, name);
      CHECK_EQUAL([string_of(text) parseMRZStringForDict], expected, name);
      *(expected != nil ? &accepted : &refused) += 1;
    }
    free(text.units);
  }
  CHECK(accepted >= 20, @"");
  CHECK(refused >= 20, @"");
}

// ---- memory and threads -----------------------------------------------------------------------------

// The dictionary is the pool's: it outlives the call, and nothing else holds on to it.
static void test_autorelease(void) {
  NSAutoreleasePool *pool = [NSAutoreleasePool new];
  Varnel *varnel = [Varnel new];
  NSDictionary *of_class = [varnel parseMRZStringForDictionary:text_of(PASSPORT)];
  [varnel release];
  NSDictionary *of_category = [text_of(PASSPORT) parseMRZStringForDict];
  CHECK_EQUAL(of_class, passport_answer(), @"after its reader");
  CHECK_EQUAL(of_category, passport_answer(), @"after its reader");
  [of_class retain];
  [of_category retain];
  [pool drain];
  CHECK_EQUAL(of_class, passport_answer(), @"after the pool");
  CHECK_EQUAL(of_category, passport_answer(), @"after the pool");
  CHECK([of_class retainCount] == 1 && [of_category retainCount] == 1, @"");
  [of_class release];
  [of_category release];
}

// Under a leak check a single object left behind by a call shows.
static void test_many_calls(void) {
  NSString *texts[] = {text_of(PASSPORT), text_of(CARD), @"no zone"};
  for (int round = 0; round < 1000; ++round) {
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    for (int i = 0; i < 100; ++i) {
      NSDictionary *answer = [texts[i % 3] parseMRZStringForDict];
      CHECK((answer != nil) == (i % 3 < 2), @"");
    }
    [pool drain];
  }
}

enum { THREADS = 4, CALLS_OF_THREAD = 1000 };

@interface Reader : NSObject {
@public
  Varnel *shared;
  NSConditionLock *finished; // its condition is the number of threads that are done
  BOOL agreed[THREADS];
}
- (void)read:(NSNumber *)thread;
@end

@implementation Reader
- (void)read:(NSNumber *)thread {
  NSAutoreleasePool *pool = [NSAutoreleasePool new];
  const int number = [thread intValue];
  NSString *text = text_of(number % 2 == 0 ? PASSPORT : CARD);
  NSString *type = number % 2 == 0 ? @"PASSPORT" : @"TD";
  BOOL all = YES;
  for (int i = 0; i < CALLS_OF_THREAD; ++i) {
    NSAutoreleasePool *inner = [NSAutoreleasePool new];
    NSDictionary *answer =
        i % 2 == 0 ? [shared parseMRZStringForDictionary:text] : [text parseMRZStringForDict];
    all = all && [[answer objectForKey:@"documentType"] isEqualToString:type] &&
          [[answer objectForKey:@"lastName"] isEqualToString:@"ERIKSSON"];
    [inner drain];
  }
  agreed[number] = all;
  [pool drain];
  [finished lock];
  [finished unlockWithCondition:[finished condition] + 1];
}
@end

// One instance serves several threads at once.
static void test_threads(void) {
  Reader *reader = [[Reader new] autorelease];
  reader->shared = [[Varnel new] autorelease];
  reader->finished = [[[NSConditionLock alloc] initWithCondition:0] autorelease];
  for (int i = 0; i < THREADS; ++i) {
    [NSThread detachNewThreadSelector:@selector(read:) toTarget:reader withObject:[NSNumber numberWithInt:i]];
  }
  [reader->finished lockWhenCondition:THREADS];
  [reader->finished unlock];
  for (int i = 0; i < THREADS; ++i) {
    CHECK(reader->agreed[i], @"");
  }
}

// ---- what is exported -------------------------------------------------------------------------------

static void test_class(void) {
  CHECK(NSClassFromString(@"Varnel") == [Varnel class], @"");
  CHECK([Varnel superclass] == [NSObject class], @"");
  CHECK([NSString instancesRespondToSelector:@selector(parseMRZStringForDict)], @"");
  CHECK(VarnelVersionNumber == 1.0, @"");
  CHECK(strcmp((const char *)VarnelVersionString, "@(#)PROGRAM:Varnel  PROJECT:Varnel-1\n") == 0, @"");
}

// ---- running them -----------------------------------------------------------------------------------

static const struct {
  const char *name;
  void (*run)(void);
} TESTS[] = {
    {"specimen", test_specimen},
    {"nothing", test_nothing},
    {"beyond_ascii", test_beyond_ascii},
    {"embedded_nul", test_embedded_nul},
    {"lone_surrogate", test_lone_surrogate},
    {"length", test_length},
    {"export_of_nothing", test_export_of_nothing},
    {"export_of_each_slot", test_export_of_each_slot},
    {"jurisdiction", test_jurisdiction},
    {"value_of_slot", test_value_of_slot},
    {"full_buffer", test_full_buffer},
    {"malformed_utf8", test_malformed_utf8},
    {"reading_order", test_reading_order},
    {"vectors", test_vectors},
    {"autorelease", test_autorelease},
    {"many_calls", test_many_calls},
    {"threads", test_threads},
    {"class", test_class},
};

int main(int argc, char **argv) {
  int run = 0;
  for (size_t i = 0; i < sizeof TESTS / sizeof *TESTS; ++i) {
    if (argc > 1 && strcmp(argv[1], TESTS[i].name) != 0) {
      continue;
    }
    NSAutoreleasePool *pool = [NSAutoreleasePool new];
    TESTS[i].run();
    [pool drain];
    ++run;
  }
  printf("%d tests run, %d checks failed\n", run, failed_checks);
  return run > 0 && failed_checks == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
