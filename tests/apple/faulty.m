// Leaks: the static analyser has to say so.
#import <Foundation/Foundation.h>
#import <Varnel/Varnel.h>

NSDictionary *read_and_leak(NSString *text);
NSDictionary *read_and_leak(NSString *text) {
  Varnel *varnel = [Varnel new];
  return [varnel parseMRZStringForDictionary:text];
}
