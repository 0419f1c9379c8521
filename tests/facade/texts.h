// Texts as UTF-16 and NSString, converted here and not by Foundation, which takes byte order marks
// away and stops at what it cannot convert.
#ifndef VARNEL_TESTS_FACADE_TEXTS_H
#define VARNEL_TESTS_FACADE_TEXTS_H

#import <Foundation/Foundation.h>

// UTF-16 units as they come.
typedef struct {
  unichar *units;
  size_t count;
  size_t room;
} UNITS;

void append_unit(UNITS *text, unichar unit);
void append_ascii(UNITS *text, const char *ascii);

// Decodes UTF-8; NO where it is malformed.
BOOL append_utf8(UNITS *text, NSData *utf8);

// An NSString of just these units, lone surrogates too.
NSString *string_of(UNITS text);

#endif
