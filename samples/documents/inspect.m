// Inspects a passport and logs what is wrong with it.
#import <Foundation/Foundation.h>
#import <VarnelDocuments/VarnelDocuments.h>

#include <stdio.h>

int main(void) {
  NSAutoreleasePool *pool = [NSAutoreleasePool new];
  NSString *zone = @"P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                   @"L898902C36UTO7408172F1204159ZE184226B<<<<<10\n";
  VarnelInspector *inspector = [[VarnelInspector new] autorelease];
  NSDictionary *document = [inspector inspect:zone];
  printf("%s\n", [[document objectForKey:@"verdict"] UTF8String]);
  for (NSDictionary *finding in [document objectForKey:@"findings"]) {
    printf("%s: %s\n", [[finding objectForKey:@"field"] UTF8String],
           [[finding objectForKey:@"code"] UTF8String]);
  }
  [pool drain];
  return 0;
}
