// Copies of the library's constants, for its callers. The library reads none of them and nothing in it asks
// for this object: a program may define such a name for itself, DIGITS for one. It changes no answer that
// way, and it links with the static library too.
#include <Varnel/mrz/mrz_common.h>
#include <Varnel/utils.h>

#include "mrz/check_digits.hpp"
#include "utils/soundex_classes.hpp"

const char DIGITS[11] = "0123456789";
const int MRZ_WEIGHTS[3] = {CHECK_WEIGHTS[0], CHECK_WEIGHTS[1], CHECK_WEIGHTS[2]};
const unsigned char _soundex_dic[26] = {VARNEL_SOUNDEX_CLASSES};
