/*
 * The few declarations of Foundation that Varnel and the programs of its documentation are compiled with
 * where there is no SDK, to check that it links and how the result is built. Nothing can be run with these.
 */
#ifndef STUB_FOUNDATION_H
#define STUB_FOUNDATION_H

#include <stddef.h>

#define nil ((id)0)
typedef unsigned long NSUInteger;
typedef signed char BOOL;
enum { NSUTF8StringEncoding = 4 };

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
