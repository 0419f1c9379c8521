#import <Foundation/Foundation.h>
#import <Varnel/Varnel.h>

#include "record/exported_values.h"
#include "reference_counting.h"

// The order in which a record is read: a subclass that overrides getValueForKey:inResult: sees it.
static const int READING_ORDER[] = {
    FIELD_FIRST_NAME,
    FIELD_FAMILY_NAME,
    FIELD_MIDDLE_NAME,
    FIELD_DOCUMENT_NUMBER,
    FIELD_BIRTH_DATE,
    FIELD_EXPIRATION_DATE,
    FIELD_SEX,
    FIELD_COUNTRY_CODE,
    FIELD_ADDRESS_JURISDICTION,
    FIELD_RESIDENCE_JURISDICTION,
    FIELD_ENDORSEMENT_DESC,
    FIELD_RESTRICTION_DESC,
    FIELD_VEHICLE_CLASS_DESC,
    FIELD_ISSUE_DATE,
    FIELD_DOCUMENT_TYPE,
    FIELD_NATIONALITY,
};
enum { SLOTS_READ = sizeof READING_ORDER / sizeof *READING_ORDER };

// The UTF-8 form of a text, NULL where it has none: for nil, and for a text with a lone surrogate, where
// one Foundation gives NULL and another raises.
static const char *utf8_form(NSString *text) {
  @try {
    return [text UTF8String];
  } @catch (NSException *exception) {
    return NULL;
  }
}

// The text of the first slot that is not empty, in order of choice.
static NSString *first_choice(const unsigned char *slots, NSString *const texts[FIELD_COUNT]) {
  NSString *text = @"";
  for (; *slots != EXPORTED_END && [text isEqualToString:@""]; ++slots) {
    text = texts[*slots];
  }
  return text;
}

@implementation Varnel

- (NSDictionary *)parseMRZStringForDictionary:(NSString *)mrz {
  const NSUInteger units = [mrz length];
  const int length = units < VARNEL_EXAMINED_MAX ? (int)units : VARNEL_EXAMINED_MAX;
  PARSE_RESULT result;
  char buffer[VARNEL_BUFFER_SIZE];
  const int status = varnel_parse_mrz(utf8_form(mrz), length, &result, buffer, sizeof buffer);
  return status == ERR_OK ? [self parseResult:&result] : nil;
}

- (NSDictionary *)parseResult:(PARSE_RESULT *)result {
  NSString *texts[FIELD_COUNT] = {nil};
  for (int i = 0; i < SLOTS_READ; ++i) {
    texts[READING_ORDER[i]] = [self getValueForKey:READING_ORDER[i] inResult:result];
  }
  NSString *keys[VARNEL_VALUE_COUNT];
  NSString *values[VARNEL_VALUE_COUNT];
  for (int i = 0; i < VARNEL_VALUE_COUNT; ++i) {
    keys[i] = [NSString stringWithUTF8String:EXPORTED_VALUES[i].key];
    values[i] = first_choice(EXPORTED_VALUES[i].slots, texts);
  }
  return [NSDictionary dictionaryWithObjects:values forKeys:keys count:VARNEL_VALUE_COUNT];
}

- (NSString *)getValueForKey:(int)key inResult:(PARSE_RESULT *)result {
  const STRING text = varnel_value(result, key);
  // A text that fills the record's buffer to its last byte has no NUL after it.
  if (text.len > 0 && text.str + text.len == result->buffer + result->buffer_size) {
    return AUTORELEASE_STRING([[NSString alloc] initWithBytes:text.str
                                                       length:(NSUInteger)text.len
                                                     encoding:NSUTF8StringEncoding]);
  }
  return [NSString stringWithUTF8String:text.str];
}

@end

@implementation NSString (Varnel)

- (NSDictionary *)parseMRZStringForDict {
  Varnel *varnel = [Varnel new];
  NSDictionary *dictionary = [varnel parseMRZStringForDictionary:self];
  RELEASE_OBJECT(varnel);
  return dictionary;
}

@end
