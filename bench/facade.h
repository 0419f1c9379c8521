/* The Objective-C class called through a C function, for the benchmarks. */
#ifndef VARNEL_BENCH_FACADE_H
#define VARNEL_BENCH_FACADE_H

#ifdef __cplusplus
extern "C" {
#endif

/* Reads an ASCII text of `length` characters through a new string and its own autorelease pool; returns
 * the number of values. */
unsigned long facade_values(const char *text, unsigned long length);

#ifdef __cplusplus
}
#endif

#endif
