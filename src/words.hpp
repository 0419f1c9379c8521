// Text eight characters at a time, in plain 64-bit arithmetic that every compiler and processor has, and
// sixteen at a time where the compiler offers vectors: that reads a zone a twentieth faster.
//
// A question about each character is answered by marks: in a plain word by the top bit of the character's
// byte, in a vector by all of its bits. The bits between the marks are of no meaning.
#ifndef VARNEL_SRC_WORDS_HPP
#define VARNEL_SRC_WORDS_HPP

#include <stdint.h>
#include <string.h>

namespace words {

// ---- plain words -----------------------------------------------------------------------------------

constexpr int SIZE = 8;

// A word of eight times the same byte.
constexpr uint64_t every(unsigned char c) { return UINT64_C(0x0101010101010101) * c; }

constexpr uint64_t MARKS = every(0x80);

// The first character is in the lowest byte, whatever the processor's byte order. Compilers make one load
// of it.
inline void load(const char *text, uint64_t &word) {
  unsigned char c[SIZE];
  memcpy(c, text, SIZE);
  word = uint64_t{c[0]} | uint64_t{c[1]} << 8 | uint64_t{c[2]} << 16 | uint64_t{c[3]} << 24 |
         uint64_t{c[4]} << 32 | uint64_t{c[5]} << 40 | uint64_t{c[6]} << 48 | uint64_t{c[7]} << 56;
}

inline void store(uint64_t word, char *text) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  memcpy(text, &word, SIZE);
#else
  const auto byte = [word](int i) { return static_cast<char>(word >> 8 * i & 0xFF); };
  text[0] = byte(0), text[1] = byte(1), text[2] = byte(2), text[3] = byte(3);
  text[4] = byte(4), text[5] = byte(5), text[6] = byte(6), text[7] = byte(7);
#endif
}

// Sets these bits in each character.
constexpr uint64_t with_bits(uint64_t word, unsigned char bits) { return word | every(bits); }

// Marks the characters from `low` to `high`, both ASCII. A character that is not ASCII may be marked, and
// may spoil the marks after it.
constexpr uint64_t in_range(uint64_t word, char low, char high) {
  return (word + every(static_cast<unsigned char>(0x80 - low))) ^
         (word + every(static_cast<unsigned char>(0x7F - high)));
}

// The marks without those of characters that are not ASCII.
constexpr uint64_t of_ascii(uint64_t marks, uint64_t word) { return marks & ~word; }

// Whether all characters are marked, or any.
constexpr bool all(uint64_t marks) { return (~marks & MARKS) == 0; }
constexpr bool any(uint64_t marks) { return (marks & MARKS) != 0; }

// Marks the first NUL, and perhaps characters after it; 0 when there is no NUL.
constexpr uint64_t nul(uint64_t word) { return (word - every(1)) & ~word & MARKS; }

// The position of the first marked character; there must be one.
constexpr int first_by_count(uint64_t marks) {
  const uint64_t up_to_first = (marks & MARKS) ^ ((marks & MARKS) - 1);
  return static_cast<int>((up_to_first & every(1)) * every(1) >> 56) - 1; // its bytes' lowest bits, counted
}

// The same by one instruction, where the compiler offers it.
#if defined(__GNUC__)
constexpr int first(uint64_t marks) { return __builtin_ctzll(marks & MARKS) >> 3; }
#else
constexpr int first(uint64_t marks) { return first_by_count(marks); }
#endif

// The places of the marked characters, in the highest byte: its bit i for the character at i. What is in the
// other bytes is of no meaning.
constexpr uint64_t places_on_top(uint64_t marks) { return (marks & MARKS) * UINT64_C(0x0002040810204081); }

// These bits, below the top one, in each marked character.
constexpr uint64_t bits(uint64_t marks, unsigned char bits) { return ((marks & MARKS) >> 7) * bits; }

// Subtracts a number from each character, which is no less.
constexpr uint64_t less(uint64_t word, unsigned char number) { return word - every(number); }

// Sums of products, of which only the total has a meaning.
using plain_sums = unsigned;

// Adds the bytes of one word, each times that of the other.
inline void add_products(uint64_t one, uint64_t other, plain_sums &into) {
  for (; other != 0; one >>= 8, other >>= 8) {
    into += static_cast<unsigned>((one & 0xFF) * (other & 0xFF));
  }
}

constexpr unsigned total(plain_sums of) { return of; }

// Counts the marked characters of up to MOST_TALLIED words in one: each place of it by itself, and all of
// them.
constexpr uint64_t tally(uint64_t counts, uint64_t marks) { return counts + (marks >> 7 & every(1)); }
constexpr unsigned sum(uint64_t counts) { return static_cast<unsigned>(counts * every(1) >> 56); }

// How many characters are marked.
constexpr unsigned count(uint64_t marks) { return sum(tally(0, marks)); }

// ---- wide words ------------------------------------------------------------------------------------

// Where the machine has none, as WebAssembly without SIMD, the compiler would take each of the sixteen apart.
#if defined(__GNUC__) && (!defined(__wasm__) || defined(__wasm_simd128__))

using wide = unsigned char __attribute__((vector_size(16)));

inline void load(const char *text, wide &word) { memcpy(&word, text, sizeof word); }
inline void store(wide word, char *text) { memcpy(text, &word, sizeof word); }

inline bool any(wide marks) {
  uint64_t halves[2];
  memcpy(halves, &marks, sizeof halves);
  return any(halves[0] | halves[1]);
}

inline wide tally(wide counts, wide marks) { return counts - marks; } // a mark is all bits: -1

inline unsigned sum(wide counts) {
  uint64_t halves[2];
  memcpy(halves, &counts, sizeof halves);
  return sum(halves[0] + halves[1]);
}

// The eight characters from `i` on, 0 or 8, as a plain word.
inline uint64_t plain(wide word, int i) {
  uint64_t half;
  memcpy(&half, reinterpret_cast<const char *>(&word) + i, sizeof half);
  return __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? __builtin_bswap64(half) : half;
}

inline wide with_bits(wide word, unsigned char bits) { return word | bits; }

inline wide bits(wide marks, unsigned char bits) { return marks & bits; }

inline wide less(wide word, unsigned char number) { return word - number; }

using sums = uint32_t __attribute__((vector_size(16)));

inline void add_products(wide one, wide other, sums &into) {
  using lanes = uint16_t __attribute__((vector_size(16)));
  const auto even = [](wide word) { return reinterpret_cast<lanes>(word) & 0xFF; };
  const auto odd = [](wide word) { return reinterpret_cast<lanes>(word) >> 8; };
  const auto products = reinterpret_cast<sums>(even(one) * even(other) + odd(one) * odd(other));
  into += (products & 0xFFFF) + (products >> 16);
}

inline unsigned total(sums of) {
  uint64_t halves[2];
  memcpy(halves, &of, sizeof halves);
  return static_cast<unsigned>(halves[0] + halves[1] + (halves[0] >> 32) + (halves[1] >> 32));
}

// Compared as signed numbers, which every processor with vectors can: those of the range become the greatest,
// which takes an instruction less than the least.
inline wide in_range(wide word, char low, char high) {
  using signed_wide = signed char __attribute__((vector_size(16)));
  if (low == high) {
    return reinterpret_cast<wide>(word == static_cast<unsigned char>(low));
  }
  const wide from_greatest = word + static_cast<unsigned char>(0x7F - high);
  return reinterpret_cast<wide>(reinterpret_cast<signed_wide>(from_greatest) >
                                static_cast<signed char>(0x7F - (high - low + 1)));
}

inline wide of_ascii(wide marks, wide) { return marks; } // those of other characters are right already

inline bool all(wide marks) {
  uint64_t halves[2];
  memcpy(halves, &marks, sizeof halves);
  return (halves[0] & halves[1]) == UINT64_MAX;
}

// Whether all characters of one of the plain words are marked that a wide word consists of.
inline bool all_of_part(wide marks, int part) {
  uint64_t halves[2];
  memcpy(halves, &marks, sizeof halves);
  return halves[part] == UINT64_MAX;
}

#else

using wide = uint64_t;
using sums = plain_sums;

constexpr bool all_of_part(wide marks, int) { return all(marks); }
constexpr uint64_t plain(wide word, int) { return word; }

#endif

constexpr int WIDE_SIZE = sizeof(wide);
constexpr int MOST_TALLIED = 255 / WIDE_SIZE; // all their characters are one byte's number

template <class Word> Word load(const char *text) {
  Word word;
  load(text, word);
  return word;
}

} // namespace words

#endif
