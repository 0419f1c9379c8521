#include "names.hpp"

#include "layouts.hpp"
#include "states.hpp"

using namespace documents;

namespace {

struct meaning {
  char letter;
  char text[72];
};

// Doc 9303-4, section 4.4: the second letters of passports, whose first is P.
constexpr meaning PASSPORT_MEANINGS[] = {
    {'P', "national / ordinary passport"},
    {'E', "emergency passport"},
    {'D', "diplomatic passport"},
    {'O', "official / service passport"},
    {'R', "refugee passport"},
    {'T', "alien / non-citizen passport"},
    {'S', "stateless passport"},
    {'L', "laissez-passer"},
    {'M', "military passport"},
    {'U', "single-sheet emergency travel document (Part 8; not a passport book)"},
};

constexpr char CREW_MEMBER[] = "crew member certificate";

// The state of a NUL-terminated code.
state state_of(const char *code) {
  int length = 0;
  while (code != nullptr && length < 4 && code[length] != '\0') {
    ++length;
  }
  return find_state(code, length);
}

// The second letter of a code that begins with this one and has two; else NUL.
char letter_after(char first, const char *code) {
  return code[0] == first && code[1] != '\0' && code[2] == '\0' ? code[1] : '\0';
}

bool is_layout(int layout) { return layout > VARNEL_LAYOUT_NONE && layout < LAYOUT_COUNT; }

} // namespace

const char *varnel_state_name(const char *code) { return state_of(code).name; }

const char *varnel_state_alpha2(const char *code) {
  const char *alpha2 = state_of(code).alpha2;
  return alpha2[0] != '\0' ? alpha2 : nullptr;
}

int varnel_state_listed(const char *code) { return state_of(code).is_listed(); }

const char *varnel_document_code_meaning(int layout, const char *code) {
  if (code == nullptr) {
    return nullptr;
  }
  if (layout == VARNEL_LAYOUT_TD1) {
    return letter_after('A', code) == 'C' ? CREW_MEMBER : nullptr;
  }
  const char letter = layout == VARNEL_LAYOUT_TD3 ? letter_after('P', code) : '\0';
  for (const meaning &m : PASSPORT_MEANINGS) {
    if (m.letter == letter) {
      return m.text;
    }
  }
  return nullptr;
}

const char *varnel_field_name(int field) { return name_of(FIELD_NAMES, field); }

const char *varnel_finding_name(int code) { return name_of(FINDING_NAMES, code); }

const char *varnel_layout_name(int layout) { return name_of(LAYOUT_NAMES, layout); }

const char *varnel_kind_name(int layout) { return name_of(KIND_NAMES, layout); }

int varnel_layout_lines(int layout) { return is_layout(layout) ? LAYOUTS[layout].lines : 0; }

int varnel_layout_width(int layout) { return is_layout(layout) ? LAYOUTS[layout].width : 0; }

const char *varnel_verdict_name(int verdict) { return name_of(VERDICT_NAMES, verdict); }

const char *varnel_status_name(int status) { return name_of(STATUS_NAMES, status); }

const char *varnel_proof_name(int proof) { return name_of(PROOF_NAMES, proof); }

const char *varnel_repair_name(int repair) { return name_of(REPAIR_NAMES, repair); }

const char *varnel_change_name(int reason) { return name_of(CHANGE_NAMES, reason); }

const char *varnel_rule_name(int rule) { return name_of(RULE_NAMES, rule); }
