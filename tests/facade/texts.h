// Texts as UTF-16, UTF-8 and NSString, converted here and not by Foundation, which takes byte order marks
// away and stops at what it cannot convert.
#ifndef VARNEL_TESTS_FACADE_TEXTS_H
#define VARNEL_TESTS_FACADE_TEXTS_H

#import <Foundation/Foundation.h>
#import <Varnel/Varnel.h>

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

// The UTF-8 form; nil where there is none, for a lone surrogate.
NSData *utf8_of(UNITS text);

// An NSString of just these units, lone surrogates too.
NSString *string_of(UNITS text);

// What the C face says of a text: a dictionary of its twelve pairs, or nil.
NSDictionary *answer_of_c_face(NSData *utf8);

#endif
