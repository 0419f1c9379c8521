/* The functions of the C library that Varnel calls. */
#ifndef STUB_STRING_H
#define STUB_STRING_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

void *memchr(const void *bytes, int byte, size_t size);
int memcmp(const void *left, const void *right, size_t size);
void *memcpy(void *to, const void *from, size_t size);
void *memmove(void *to, const void *from, size_t size);
void *memset(void *bytes, int byte, size_t size);
int strcmp(const char *left, const char *right);
size_t strlen(const char *text);
size_t strnlen(const char *text, size_t size);

#ifdef __cplusplus
}
#endif

#endif
