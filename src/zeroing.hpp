// Setting a record to zero.
#ifndef VARNEL_SRC_ZEROING_HPP
#define VARNEL_SRC_ZEROING_HPP

#include <stddef.h>
#include <string.h>

// Of up to 4 KiB.
//
// In two pieces: for 2 KiB and more at once, glibc on x86-64 takes a way that starts slowly. Of a size that
// the compiler does not see: it would put such a slow start in place of the call.
inline void set_to_zero(void *record, size_t size) {
  const volatile size_t half = size / 2;
  char *const bytes = static_cast<char *>(record);
  const size_t first = half;
  memset(bytes, 0, first);
  memset(bytes + first, 0, size - first);
}

#endif
