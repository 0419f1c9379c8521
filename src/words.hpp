// Text eight characters at a time, in plain 64-bit arithmetic. The first character of a word is in its
// lowest byte, whatever the processor's byte order.
#ifndef VARNEL_SRC_WORDS_HPP
#define VARNEL_SRC_WORDS_HPP

#include <stddef.h>
#include <stdint.h>
#include <string.h>

namespace words {

constexpr size_t SIZE = 8;

// A word of eight times the same character.
constexpr uint64_t every(unsigned char c) { return UINT64_C(0x0101010101010101) * c; }

inline uint64_t load(const char *text) {
  uint64_t word;
  memcpy(&word, text, SIZE);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  word = __builtin_bswap64(word);
#endif
  return word;
}

// The top bit of the first NUL's byte, and perhaps of bytes behind it; 0 when there is no NUL.
constexpr uint64_t nul_marks(uint64_t word) { return (word - every(1)) & ~word & every(0x80); }

constexpr bool has_nul(uint64_t word) { return nul_marks(word) != 0; }

// The position of the first NUL; there must be one.
inline size_t first_nul(uint64_t word) { return static_cast<size_t>(__builtin_ctzll(nul_marks(word))) / 8; }

} // namespace words

#endif
