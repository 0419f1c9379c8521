#import "texts.h"

#include <stdlib.h>
#include <string.h>

void append_unit(UNITS *text, unichar unit) {
  if (text->count == text->room) {
    text->room = text->room == 0 ? 128 : 2 * text->room;
    text->units = realloc(text->units, text->room * sizeof *text->units);
  }
  text->units[text->count++] = unit;
}

void append_ascii(UNITS *text, const char *ascii) {
  for (; *ascii != '\0'; ++ascii) {
    append_unit(text, (unichar)*ascii);
  }
}

static void append_scalar(UNITS *text, uint32_t scalar) {
  if (scalar < 0x10000) {
    append_unit(text, (unichar)scalar);
  } else {
    append_unit(text, (unichar)(0xD800 + ((scalar - 0x10000) >> 10)));
    append_unit(text, (unichar)(0xDC00 + ((scalar - 0x10000) & 0x3FF)));
  }
}

// How many bytes follow the first of a character; -1 where none begins with it.
static int tails_behind(unsigned char lead) {
  if (lead < 0x80) {
    return 0;
  }
  if (lead < 0xC2 || lead > 0xF4) {
    return -1;
  }
  return lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
}

BOOL append_utf8(UNITS *text, NSData *utf8) {
  const unsigned char *bytes = [utf8 bytes];
  for (size_t at = 0, size = [utf8 length]; at < size;) {
    const unsigned char lead = bytes[at];
    const int tails = tails_behind(lead);
    if (tails < 0 || at + (size_t)tails >= size) {
      return NO;
    }
    uint32_t scalar = tails == 0 ? lead : lead & (0x3Fu >> tails);
    for (int i = 1; i <= tails; ++i) {
      if ((bytes[at + (size_t)i] & 0xC0) != 0x80) {
        return NO;
      }
      scalar = scalar << 6 | (bytes[at + (size_t)i] & 0x3F);
    }
    const BOOL overlong = (tails == 2 && scalar < 0x800) || (tails == 3 && scalar < 0x10000);
    if (overlong || (scalar >= 0xD800 && scalar < 0xE000) || scalar > 0x10FFFF) {
      return NO;
    }
    append_scalar(text, scalar);
    at += (size_t)tails + 1;
  }
  return YES;
}

static BOOL is_high_surrogate(unichar unit) { return unit >= 0xD800 && unit < 0xDC00; }
static BOOL is_low_surrogate(unichar unit) { return unit >= 0xDC00 && unit < 0xE000; }

NSString *string_of(UNITS text) {
  NSMutableString *string = [NSMutableString string];
  for (size_t at = 0; at < text.count; ++at) {
    const unichar unit = text.units[at];
    if (is_high_surrogate(unit) || is_low_surrogate(unit) || unit == 0xFEFF) {
      [string appendFormat:@"%C", unit]; // stringWithCharacters: refuses a lone one, and drops the mark
    } else {
      [string appendString:[NSString stringWithCharacters:&unit length:1]];
    }
  }
  return string;
}
