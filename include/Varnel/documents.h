/**
 * @file documents.h
 * @brief Varnel Documents: is what a document says right, and if not, where?
 *
 * A second library beside the core (libvarnel_documents, CMake target Varnel::documents). It allocates
 * nothing, keeps no state and reads no clock: records belong to the caller, own their text and may be copied
 * like any plain value. Every function may be called by any number of threads on separate records.
 */
#ifndef VARNEL_DOCUMENTS_H
#define VARNEL_DOCUMENTS_H

#include <Varnel/documents/barcode.h>
#include <Varnel/documents/compose.h>
#include <Varnel/documents/inspect.h>
#include <Varnel/documents/looks.h>

#endif
