// The names that JSON gives to what a record has as numbers. As tables of characters: no pointers, so that
// loading relocates nothing.
#ifndef VARNEL_SRC_DOCUMENTS_NAMES_HPP
#define VARNEL_SRC_DOCUMENTS_NAMES_HPP

#include <Varnel/documents/inspect.h>

#include <stdint.h>

namespace documents {

#define VARNEL_NAME_ONLY(constant, name) name,

// By VARNEL_DOCUMENT_CODE and so on.
inline constexpr char FIELD_NAMES[][20] = {"", VARNEL_DOCUMENT_FIELDS(VARNEL_NAME_ONLY)};

// By VARNEL_FINDING_… and VARNEL_NOTICE_….
inline constexpr char FINDING_NAMES[][16] = {"", VARNEL_FINDINGS(VARNEL_NAME_ONLY)};

#undef VARNEL_NAME_ONLY

inline constexpr char LAYOUT_NAMES[][7] = {"", "TD1", "TD2", "TD3", "MRV-A", "MRV-B", "FRA-ID"};
inline constexpr char KIND_NAMES[][9] = {"", "card", "card", "passport", "visa", "visa", "card"};
inline constexpr char VERDICT_NAMES[][9] = {"refused", "doubtful", "valid", "repaired", "voted"};
inline constexpr char STATUS_NAMES[][16] = {"empty",   "badCharacters", "notADate",
                                            "unknown", "checkFailed",   "ok"};
inline constexpr char PROOF_NAMES[][16] = {"none", "list", "composite", "digit", "digits"};
inline constexpr char REPAIR_NAMES[][8] = {"off", "columns", "digits"};
inline constexpr char CHANGE_NAMES[][7] = {"", "class", "filler", "digit", "twin"};
inline constexpr char RULE_NAMES[][7] = {"", "plain", "filler"};

// How long each name of a table is.
template <int Count> struct name_lengths {
  uint8_t of[Count] = {};

  template <int Size> constexpr explicit name_lengths(const char (&names)[Count][Size]) {
    for (int i = 0; i < Count; ++i) {
      while (names[i][of[i]] != '\0') {
        ++of[i];
      }
    }
  }
};

template <int Count, int Size> name_lengths(const char (&)[Count][Size]) -> name_lengths<Count>;

// The entry of a table; null for a number that it does not have and for one that has no name.
template <int Count, int Size> constexpr const char *name_of(const char (&names)[Count][Size], int number) {
  return number >= 0 && number < Count && names[number][0] != '\0' ? names[number] : nullptr;
}

} // namespace documents

#endif
