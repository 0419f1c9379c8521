/**
 * @file documents/defines.h
 * @brief What the modules of Varnel Documents share: layouts, fields and the export macro.
 */
#ifndef VARNEL_DOCUMENTS_DEFINES_H
#define VARNEL_DOCUMENTS_DEFINES_H

#include <Varnel/defines.h>

/**
 * @defgroup varnel_documents_types Layouts and fields
 * @brief What the modules of Varnel Documents share.
 * @{
 */

/** Marks a symbol that libvarnel_documents exports; on Windows as VARNEL_API does, with its own library. */
#if defined(_WIN32) && !defined(VARNEL_STATIC) && defined(VARNEL_DOCUMENTS_EXPORTS)
#define VARNEL_DOCUMENTS_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(VARNEL_STATIC)
#define VARNEL_DOCUMENTS_API __declspec(dllimport)
#else
#define VARNEL_DOCUMENTS_API VARNEL_API
#endif

/** Sizes of zones. */
enum {
  VARNEL_ZONE_LINES = 3, /**< lines of a zone, at most */
  VARNEL_ZONE_WIDTH = 44 /**< characters of a line, at most */
};

/**
 * The fields of a zone: X(constant, key), the key being the name in JSON.
 *
 * No layout has them all. The composite is a check digit only and has no field of its own; it is listed
 * because findings name it.
 */
#define VARNEL_DOCUMENT_FIELDS(X)                                                                            \
  X(VARNEL_DOCUMENT_CODE, "documentCode")                                                                    \
  X(VARNEL_ISSUING_STATE, "issuingState")                                                                    \
  X(VARNEL_DOCUMENT_NUMBER, "documentNumber")                                                                \
  X(VARNEL_NATIONALITY, "nationality")                                                                       \
  X(VARNEL_BIRTH_DATE, "birthDate")                                                                          \
  X(VARNEL_SEX, "sex")                                                                                       \
  X(VARNEL_EXPIRY_DATE, "expiryDate")                                                                        \
  X(VARNEL_PRIMARY_IDENTIFIER, "primaryIdentifier")                                                          \
  X(VARNEL_SECONDARY_IDENTIFIER, "secondaryIdentifier")                                                      \
  X(VARNEL_OPTIONAL_DATA_1, "optionalData1")                                                                 \
  X(VARNEL_OPTIONAL_DATA_2, "optionalData2")                                                                 \
  X(VARNEL_OPTIONAL_DATA, "optionalData")                                                                    \
  X(VARNEL_PERSONAL_NUMBER, "personalNumber")                                                                \
  X(VARNEL_OFFICE_CODE, "officeCode")                                                                        \
  X(VARNEL_COMPOSITE, "composite")

/** Fields by number; VARNEL_FIELD_NONE where no field is meant. */
enum {
  VARNEL_FIELD_NONE = 0,
#define VARNEL_DOCUMENT_FIELD_CONSTANT(constant, key) constant,
  VARNEL_DOCUMENT_FIELDS(VARNEL_DOCUMENT_FIELD_CONSTANT)
#undef VARNEL_DOCUMENT_FIELD_CONSTANT
      VARNEL_DOCUMENT_FIELD_END /**< one more than the last field */
};

/** @} */

#endif
