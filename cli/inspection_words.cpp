#include "inspection_words.hpp"

namespace varnel::cli {

namespace {

struct words {
  int code;
  std::string_view text;
};

constexpr words FIELD_LABELS[] = {
    {VARNEL_DOCUMENT_CODE, "document code"},
    {VARNEL_ISSUING_STATE, "issuing state"},
    {VARNEL_DOCUMENT_NUMBER, "document number"},
    {VARNEL_NATIONALITY, "nationality"},
    {VARNEL_BIRTH_DATE, "date of birth"},
    {VARNEL_SEX, "sex"},
    {VARNEL_EXPIRY_DATE, "date of expiry"},
    {VARNEL_PRIMARY_IDENTIFIER, "family name"},
    {VARNEL_SECONDARY_IDENTIFIER, "given names"},
    {VARNEL_OPTIONAL_DATA_1, "optional data 1"},
    {VARNEL_OPTIONAL_DATA_2, "optional data 2"},
    {VARNEL_OPTIONAL_DATA, "optional data"},
    {VARNEL_PERSONAL_NUMBER, "personal number"},
    {VARNEL_OFFICE_CODE, "office code"},
    {VARNEL_COMPOSITE, "composite"},
};

constexpr words FINDING_WORDS[] = {
    {VARNEL_FINDING_EMPTY, "is missing"},
    {VARNEL_FINDING_BAD_CHARACTERS, "has characters that cannot stand there"},
    {VARNEL_FINDING_NOT_A_DATE, "is not a date of the calendar"},
    {VARNEL_FINDING_UNKNOWN, "is not a listed code"},
    {VARNEL_FINDING_CHECK_FAILED, "does not agree with its check digit"},
    {VARNEL_FINDING_DATES_ORDER, "is before the date of birth"},
    {VARNEL_FINDING_UNPROVEN, "cannot be known for certain"},
    {VARNEL_FINDING_LOOKS_DIFFER, "differs between the looks: they show two documents"},
    {VARNEL_FINDING_LENGTH, "the lines are too long or too short for a zone"},
    {VARNEL_FINDING_NO_ZONE, "no machine-readable zone in the text"},
    {VARNEL_NOTICE_DIGIT_IN_CODE, "has a digit"},
    {VARNEL_NOTICE_CODE_NOT_ALLOWED, "is not allowed on this kind of document"},
    {VARNEL_NOTICE_CODE_NOT_LISTED, "is used in practice but not listed"},
    {VARNEL_NOTICE_NATIONAL_LETTERS, "has digits that stand for national letters"},
    {VARNEL_NOTICE_SEX_X, "is printed as X instead of a filler"},
    {VARNEL_NOTICE_FILLER_DIGIT, "has a filler in place of its check digit 0"},
    {VARNEL_NOTICE_DROPPED, "characters that no zone has were dropped"},
};

constexpr words CHANGE_WORDS[] = {
    {VARNEL_CHANGE_CLASS, "only one kind of character can stand there"},
    {VARNEL_CHANGE_FILLER, "a filler"},
    {VARNEL_CHANGE_DIGIT, "the one look-alike that makes the check digit hold"},
    {VARNEL_CHANGE_TWIN, "read twice"},
};

template <std::size_t N> std::string_view look_up(const words (&list)[N], int code) {
  for (const words &entry : list) {
    if (entry.code == code) {
      return entry.text;
    }
  }
  return {};
}

// The words with their verb in the plural: given names are many.
std::string said_of_many(std::string_view said) {
  constexpr std::string_view VERBS[][2] = {{"has ", "have "}, {"is ", "are "}, {"differs ", "differ "}};
  for (const auto &[of_one, of_many] : VERBS) {
    if (said.substr(0, of_one.size()) == of_one) {
      return std::string(of_many).append(said.substr(of_one.size()));
    }
  }
  return std::string(said);
}

std::string line_length(int line, int found, int expected) {
  return "line " + std::to_string(line) + " has " + std::to_string(found) + " characters instead of " +
         std::to_string(expected);
}

} // namespace

std::string_view field_label(int field) { return look_up(FIELD_LABELS, field); }

std::string layout_label(int layout) {
  if (layout == VARNEL_LAYOUT_FRA_ID) {
    return "French identity card";
  }
  return std::string(varnel_kind_name(layout)) + " (" + varnel_layout_name(layout) + ")";
}

std::string finding_words(const varnel_finding &finding) {
  const std::string_view said = look_up(FINDING_WORDS, finding.code);
  return finding.field == VARNEL_SECONDARY_IDENTIFIER ? said_of_many(said) : std::string(said);
}

std::string finding_sentence(const varnel_finding &finding) {
  const std::string_view subject = field_label(finding.field);
  if (!subject.empty()) {
    return std::string(subject) + ' ' + finding_words(finding);
  }
  const std::string line = finding.line >= 0 ? "line " + std::to_string(finding.line + 1) + ": " : "";
  return line + finding_words(finding);
}

std::string_view change_words(int reason) { return look_up(CHANGE_WORDS, reason); }

std::string verdict_sentence(const varnel_inspection &inspection) {
  switch (inspection.verdict) {
  case VARNEL_VERDICT_VALID:
    return "Valid " + layout_label(inspection.layout);
  case VARNEL_VERDICT_REPAIRED:
    return "Valid after repair: " + layout_label(inspection.layout);
  case VARNEL_VERDICT_VOTED:
    return "Valid, from several looks: " + layout_label(inspection.layout);
  case VARNEL_VERDICT_DOUBTFUL:
    return "Doubtful " + layout_label(inspection.layout);
  default:
    return "No document";
  }
}

std::string refusal_words(const varnel_inspection &inspection) {
  if (inspection.nearest_layout == VARNEL_LAYOUT_NONE) {
    return std::string(look_up(FINDING_WORDS, VARNEL_FINDING_NO_ZONE));
  }
  std::string said = "nearest to a " + layout_label(inspection.nearest_layout);
  std::string mark = ", but ";
  for (int i = 0; i < varnel_layout_lines(inspection.nearest_layout); ++i) {
    if (inspection.nearest[i] != varnel_layout_width(inspection.nearest_layout)) {
      said +=
          mark + line_length(i + 1, inspection.nearest[i], varnel_layout_width(inspection.nearest_layout));
      mark = " and ";
    }
  }
  return said;
}

} // namespace varnel::cli
