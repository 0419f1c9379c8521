/*
 * The twelve values that a document is exported as: keys and slots in export order. A value is the text
 * of the first of its slots that is not empty. Plain C, so that every binding walks the same list.
 */
#ifndef VARNEL_SRC_EXPORTED_VALUES_H
#define VARNEL_SRC_EXPORTED_VALUES_H

#include <Varnel/defines.h>

enum { EXPORTED_CHOICES = 5, EXPORTED_END = 0 /* slot 0 is reserved: it ends a list of choices */ };

typedef struct {
  char key[18]; /* in place, so that the table needs no relocation when it is loaded */
  unsigned char slots[EXPORTED_CHOICES + 1];
} EXPORTED_VALUE;

static const EXPORTED_VALUE EXPORTED_VALUES[] = {
    {"firstName", {FIELD_FIRST_NAME}},
    {"lastName", {FIELD_FAMILY_NAME}},
    {"middleName", {FIELD_MIDDLE_NAME}},
    {"licenseNumber", {FIELD_DOCUMENT_NUMBER}},
    {"birthDate", {FIELD_BIRTH_DATE}},
    {"expirationDate", {FIELD_EXPIRATION_DATE}},
    {"gender", {FIELD_SEX}},
    {"countryCode", {FIELD_COUNTRY_CODE}},
    /* The descriptions come after both jurisdiction codes, and in this order, on purpose. */
    {"jurisdictionCode",
     {FIELD_RESIDENCE_JURISDICTION, FIELD_ADDRESS_JURISDICTION, FIELD_ENDORSEMENT_DESC,
      FIELD_RESTRICTION_DESC, FIELD_VEHICLE_CLASS_DESC}},
    {"nationality", {FIELD_NATIONALITY}},
    {"documentType", {FIELD_DOCUMENT_TYPE}},
    {"issueDate", {FIELD_ISSUE_DATE}},
};

#endif
