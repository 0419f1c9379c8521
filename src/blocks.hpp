// Text sixteen or eight characters at a time. The compiler turns a block into whatever vector registers the
// processor has, or into plain arithmetic where it has none.
#ifndef VARNEL_SRC_BLOCKS_HPP
#define VARNEL_SRC_BLOCKS_HPP

#include <stdint.h>
#include <string.h>

namespace blocks {

using block = unsigned char __attribute__((vector_size(16)));
using half_block = unsigned char __attribute__((vector_size(8)));

constexpr int SIZE = sizeof(block);
constexpr int HALF_SIZE = sizeof(half_block);

template <class Block> Block load(const char *text) {
  Block characters;
  memcpy(&characters, text, sizeof characters);
  return characters;
}

template <class Block> void store(char *text, Block characters) {
  memcpy(text, &characters, sizeof characters);
}

// Marks (all bits set) each character from `low` to `high`.
template <class Block> Block in_range(Block characters, char low, char high) {
  return reinterpret_cast<Block>(characters - static_cast<unsigned char>(low) <=
                                 static_cast<unsigned char>(high - low));
}

// Whether all characters are marked.
template <class Block> bool all(Block marks) {
  uint64_t words[sizeof marks / sizeof(uint64_t)];
  memcpy(words, &marks, sizeof marks);
  uint64_t common = UINT64_MAX;
  for (const uint64_t word : words) {
    common &= word;
  }
  return common == UINT64_MAX;
}

} // namespace blocks

#endif
