// What an optical reader takes for what, among the characters of a zone.
#ifndef VARNEL_SRC_DOCUMENTS_REPAIR_LOOKALIKES_HPP
#define VARNEL_SRC_DOCUMENTS_REPAIR_LOOKALIKES_HPP

#include <stdint.h>

namespace documents::repair {

// The digit that a character stands for where only digits can stand; a digit stands for itself. NUL: none.
char digit_for(char c);

// Another digit that the same letter may stand for. NUL: none.
char other_digit_for(char c);

// The letter that a character stands for where only letters can stand, as a capital. NUL: none.
char letter_for(char c);

// The letters that a digit may stand for in the code of a state.
const char *letters_for(char digit);

// A likelihood of one: how likely it is that a character is what it was read as.
constexpr int CERTAIN = 10000;

// A character that was read, and another that may have been printed.
struct lookalike {
  char read;
  char printed;
  int16_t likelihood; // against its having been read rightly
  bool decisive;      // a check digit may decide for it
};

constexpr int LOOKALIKES = 29;
extern const lookalike lookalikes[LOOKALIKES];

// Whether one of the two may be read for the other.
bool are_alike(char a, char b);

// Whether the two are a digit and the letter that readers take for it most.
bool are_often_taken_for_each_other(char a, char b);

// Whether two neighbours may be one character of a number or date that was read twice.
bool is_twin(char first, char second);

// The same for the code of a state.
bool is_twin_in_state(char first, char second);

// Whether readers make this character of fillers.
bool is_filler_noise(char c);

} // namespace documents::repair

#endif
