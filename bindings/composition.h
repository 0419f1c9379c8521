/*
 * Composing for languages that hand over a document's values by key: the keys in the order of the values, and
 * why a value was refused, in words. All bindings say the same.
 */
#ifndef VARNEL_BINDINGS_COMPOSITION_H
#define VARNEL_BINDINGS_COMPOSITION_H

#include <Varnel/documents.h>

#include <stddef.h>
#include <string.h>

/* The values that are fields of a zone: X(constant, member of varnel_compose_fields). */
#define COMPOSITION_FIELDS(X)                                                                                \
  X(VARNEL_DOCUMENT_CODE, document_code)                                                                     \
  X(VARNEL_ISSUING_STATE, issuing_state)                                                                     \
  X(VARNEL_DOCUMENT_NUMBER, document_number)                                                                 \
  X(VARNEL_NATIONALITY, nationality)                                                                         \
  X(VARNEL_BIRTH_DATE, birth_date)                                                                           \
  X(VARNEL_SEX, sex)                                                                                         \
  X(VARNEL_EXPIRY_DATE, expiry_date)                                                                         \
  X(VARNEL_PRIMARY_IDENTIFIER, primary_identifier)                                                           \
  X(VARNEL_SECONDARY_IDENTIFIER, secondary_identifier)                                                       \
  X(VARNEL_OPTIONAL_DATA_1, optional_data_1)                                                                 \
  X(VARNEL_OPTIONAL_DATA_2, optional_data_2)                                                                 \
  X(VARNEL_OPTIONAL_DATA, optional_data)                                                                     \
  X(VARNEL_PERSONAL_NUMBER, personal_number)

/* The number of each value: the layout and the language, then the fields. */
enum {
  COMPOSITION_LAYOUT,
  COMPOSITION_LANGUAGE,
#define COMPOSITION_NUMBER(constant, member) COMPOSITION_##member,
  COMPOSITION_FIELDS(COMPOSITION_NUMBER)
#undef COMPOSITION_NUMBER
      COMPOSITION_VALUES
};

/* The key of a value, "layout" for number 0. */
static const char *composition_key(int number) {
  static const int fields[COMPOSITION_VALUES] = {VARNEL_FIELD_NONE, VARNEL_FIELD_NONE,
#define COMPOSITION_FIELD(constant, member) constant,
                                                 COMPOSITION_FIELDS(COMPOSITION_FIELD)
#undef COMPOSITION_FIELD
  };
  switch (number) {
  case COMPOSITION_LAYOUT:
    return "layout";
  case COMPOSITION_LANGUAGE:
    return "language";
  default:
    return varnel_field_name(fields[number]);
  }
}

static int composition_layout(const char *name) {
  for (int layout = VARNEL_LAYOUT_TD1; name != NULL && layout <= VARNEL_LAYOUT_MRV_B; ++layout) {
    if (strcmp(name, varnel_layout_name(layout)) == 0) {
      return layout;
    }
  }
  return VARNEL_LAYOUT_NONE;
}

/* Composes a zone from the values by number, null or empty where there is none; returns as varnel_compose().
 */
static int composition_compose(const char *const values[COMPOSITION_VALUES], varnel_zone *zone,
                               varnel_compose_error *error) {
  const varnel_compose_options options = {values[COMPOSITION_LANGUAGE]};
  varnel_compose_fields fields;
  fields.layout = composition_layout(values[COMPOSITION_LAYOUT]);
#define COMPOSITION_MEMBER(constant, member) fields.member = values[COMPOSITION_##member];
  COMPOSITION_FIELDS(COMPOSITION_MEMBER)
#undef COMPOSITION_MEMBER
  return varnel_compose(&fields, &options, zone, error);
}

/* The key of the value that was refused. */
static const char *composition_refused_key(const varnel_compose_error *error) {
  if (error->field != VARNEL_FIELD_NONE) {
    return varnel_field_name(error->field);
  }
  return composition_key(error->reason == VARNEL_COMPOSE_UNKNOWN_LANGUAGE ? COMPOSITION_LANGUAGE
                                                                          : COMPOSITION_LAYOUT);
}

/* The name of a reason, "badCharacter" and so on. */
static const char *composition_reason(const varnel_compose_error *error) {
  static const char *const names[VARNEL_COMPOSE_REASON_END] = {"",
#define COMPOSITION_REASON(constant, name) name,
                                                               VARNEL_COMPOSE_REASONS(COMPOSITION_REASON)
#undef COMPOSITION_REASON
  };
  return names[error->reason];
}

/* Why, in words; # stands for the number of the character, counted from 1. Nothing of the value is repeated.
 */
static const char *composition_words(const varnel_compose_error *error) {
  switch (error->reason) {
  case VARNEL_COMPOSE_MISSING:
    return "nothing to write, and a zone needs it";
  case VARNEL_COMPOSE_BAD_CHARACTER:
    return "character # cannot be written there";
  case VARNEL_COMPOSE_UNKNOWN:
    return error->field == VARNEL_FIELD_NONE      ? "not one of TD1, TD2, TD3, MRV-A, MRV-B"
           : error->field == VARNEL_DOCUMENT_CODE ? "not a code of this layout"
                                                  : "not a listed state";
  case VARNEL_COMPOSE_NOT_A_DATE:
    return "not a date of the calendar, as YYYY-MM-DD";
  case VARNEL_COMPOSE_DATES_ORDER:
    return "before birthDate";
  case VARNEL_COMPOSE_TOO_LONG:
    return "no room from character # on";
  case VARNEL_COMPOSE_NOT_IN_LAYOUT:
    return "this layout has no such field";
  case VARNEL_COMPOSE_OTHER_LAYOUT:
    return "two lines that begin with ID and FRA are a French identity card, not a TD2";
  default:
    return "not one of be, bg, mk, sr, uk";
  }
}

#endif
