#import <Foundation/Foundation.h>
#include <stdio.h>

#import <Varnel/Varnel.h>

int main(void) {
  NSAutoreleasePool *pool = [NSAutoreleasePool new];
  NSString *zone = @"P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                   @"L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  NSDictionary *document = [zone parseMRZStringForDict]; // nil: not a travel document's zone
  for (NSString *key in [[document allKeys] sortedArrayUsingSelector:@selector(compare:)]) {
    printf("%s=%s\n", [key UTF8String], [[document objectForKey:key] UTF8String]);
  }
  [pool release];
  return document == nil;
}
