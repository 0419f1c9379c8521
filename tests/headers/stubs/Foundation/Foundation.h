/* The part of Foundation that the Objective-C class declares itself with, for checks of syntax. */
#ifndef STUB_FOUNDATION_H
#define STUB_FOUNDATION_H

#ifdef __clang__
__attribute__((objc_root_class))
#endif
@interface NSObject {
  Class isa;
}
+ (id)alloc;
+ (id)new;
- (id)init;
@end

@interface NSString : NSObject
@end

#ifdef __clang__
@interface NSDictionary<KeyType, ObjectType> : NSObject
#else
@interface NSDictionary : NSObject
#endif
@end

#endif
