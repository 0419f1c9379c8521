#include "facade.h"

#import <Varnel/Varnel.h>

unsigned long facade_values(const char *text, unsigned long length) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSString *mrz = [[NSString alloc] initWithBytes:text length:length encoding:NSASCIIStringEncoding];
  Varnel *varnel = [Varnel new];
  const unsigned long values = [[varnel parseMRZStringForDictionary:mrz] count];
  [varnel release];
  [mrz release];
  [pool release];
  return values;
}
