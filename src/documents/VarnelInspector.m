#import <VarnelDocuments/VarnelDocuments.h>

#include <Varnel/documents/inspect.h>

#include "reference_counting.h"

enum { JSON_MAX = 16384 };

// The day in UTC of a moment, as an inspection takes it.
static varnel_inspect_options options_of(NSDate *date, VarnelRepair repair) {
  NSCalendar *calendar = [[NSCalendar alloc] initWithCalendarIdentifier:@"gregorian"];
  [calendar setTimeZone:[NSTimeZone timeZoneForSecondsFromGMT:0]];
  NSDateComponents *day = [calendar components:NSCalendarUnitYear | NSCalendarUnitMonth | NSCalendarUnitDay
                                      fromDate:date];
  const varnel_inspect_options options = {(int)[day year], (int)[day month], (int)[day day], (int)repair};
  RELEASE_OBJECT(calendar);
  return options;
}

@implementation VarnelInspector

- (NSDictionary *)inspect:(NSString *)text {
  return [self inspect:text date:nil repair:VarnelRepairOff];
}

- (NSDictionary *)inspect:(NSString *)text date:(NSDate *)date repair:(VarnelRepair)repair {
  NSData *utf8 = [text dataUsingEncoding:NSUTF8StringEncoding];
  if (utf8 == nil) {
    return nil;
  }
  const varnel_inspect_options options = options_of(date != nil ? date : [NSDate date], repair);
  varnel_inspection inspection;
  if (varnel_inspect([utf8 bytes], [utf8 length], &options, &inspection) != ERR_OK) {
    return nil;
  }
  char json[JSON_MAX];
  const int length = varnel_inspection_json(&inspection, json, sizeof json);
  NSData *data = [NSData dataWithBytes:json length:(NSUInteger)length];
  return [NSJSONSerialization JSONObjectWithData:data options:0 error:NULL];
}

@end
