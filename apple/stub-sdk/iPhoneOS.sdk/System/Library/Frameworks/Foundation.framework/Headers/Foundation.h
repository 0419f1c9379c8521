/*
 * The few declarations of Foundation that Varnel and the programs of its documentation are compiled with
 * where there is no SDK, to check that it links and how the result is built. Nothing can be run with these.
 */
#ifndef STUB_FOUNDATION_H
#define STUB_FOUNDATION_H

#include <stddef.h>

#define nil ((id)0)
typedef unsigned long NSUInteger;
typedef long NSInteger;
typedef signed char BOOL;
enum { NSUTF8StringEncoding = 4 };
enum { NSCalendarUnitYear = 1 << 2, NSCalendarUnitMonth = 1 << 3, NSCalendarUnitDay = 1 << 4 };
#define NS_ENUM(type, name) enum __attribute__((enum_extensibility(open))) name : type name; enum name : type
@class NSData, NSDate, NSDateComponents, NSTimeZone;

__attribute__((objc_root_class))
@interface NSObject {
  Class isa;
}
+ (instancetype)alloc;
+ (instancetype)new;
- (instancetype)init;
- (instancetype)autorelease;
- (oneway void)release;
@end

@interface NSString : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const char *UTF8String;
+ (instancetype)string;
+ (instancetype)stringWithUTF8String:(const char *)text;
- (instancetype)initWithBytes:(const void *)bytes length:(NSUInteger)length encoding:(NSUInteger)encoding;
- (BOOL)isEqualToString:(NSString *)string;
- (NSData *)dataUsingEncoding:(NSUInteger)encoding;
@end

@interface NSData : NSObject
@property(readonly) NSUInteger length;
@property(readonly) const void *bytes;
+ (instancetype)dataWithBytes:(const void *)bytes length:(NSUInteger)length;
@end

@interface NSDate : NSObject
+ (instancetype)date;
@end

@interface NSDateComponents : NSObject
@property NSInteger year;
@property NSInteger month;
@property NSInteger day;
@end

@interface NSTimeZone : NSObject
+ (instancetype)timeZoneForSecondsFromGMT:(NSInteger)seconds;
@end

@interface NSCalendar : NSObject
@property NSTimeZone *timeZone;
- (instancetype)initWithCalendarIdentifier:(NSString *)identifier;
- (NSDateComponents *)components:(NSUInteger)units fromDate:(NSDate *)date;
@end

@interface NSJSONSerialization : NSObject
+ (id)JSONObjectWithData:(NSData *)data options:(NSUInteger)options error:(void *)error;
@end

@interface NSDictionary<KeyType, ObjectType> : NSObject
+ (instancetype)dictionaryWithObjects:(const ObjectType[])objects
                              forKeys:(const KeyType[])keys
                                count:(NSUInteger)count;
- (ObjectType)objectForKey:(KeyType)key;
- (ObjectType)objectForKeyedSubscript:(KeyType)key;
@end

__attribute__((objc_exception))
@interface NSException : NSObject
@end

void NSLog(NSString *format, ...);

#endif
