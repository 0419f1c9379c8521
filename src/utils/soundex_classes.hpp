// The Soundex class of each letter: written down once, for the encoder and for the exported copy.
#ifndef VARNEL_SRC_UTILS_SOUNDEX_CLASSES_HPP
#define VARNEL_SRC_UTILS_SOUNDEX_CLASSES_HPP

namespace soundex {

constexpr unsigned char VOWEL = 0;  // never written; a code after it counts anew
constexpr unsigned char SILENT = 7; // H, W and Y: never written; the code before them still counts

} // namespace soundex

// A to Z. A macro, because an array cannot be initialised with another one.
#define VARNEL_SOUNDEX_CLASSES                                                                               \
  soundex::VOWEL,      /* A */                                                                               \
      1,               /* B */                                                                               \
      2,               /* C */                                                                               \
      3,               /* D */                                                                               \
      soundex::VOWEL,  /* E */                                                                               \
      1,               /* F */                                                                               \
      2,               /* G */                                                                               \
      soundex::SILENT, /* H */                                                                               \
      soundex::VOWEL,  /* I */                                                                               \
      2,               /* J */                                                                               \
      2,               /* K */                                                                               \
      4,               /* L */                                                                               \
      5,               /* M */                                                                               \
      5,               /* N */                                                                               \
      soundex::VOWEL,  /* O */                                                                               \
      1,               /* P */                                                                               \
      2,               /* Q */                                                                               \
      6,               /* R */                                                                               \
      2,               /* S */                                                                               \
      3,               /* T */                                                                               \
      soundex::VOWEL,  /* U */                                                                               \
      1,               /* V */                                                                               \
      soundex::SILENT, /* W */                                                                               \
      2,               /* X */                                                                               \
      soundex::SILENT, /* Y */                                                                               \
      2                /* Z */

#endif
