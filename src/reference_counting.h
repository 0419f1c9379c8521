// Some packagers compile Objective-C with reference counting left to the compiler, which then does what this
// does.
#ifndef VARNEL_SRC_REFERENCE_COUNTING_H
#define VARNEL_SRC_REFERENCE_COUNTING_H

#if defined(__has_feature)
#if __has_feature(objc_arc)
#define COUNTED_BY_COMPILER
#endif
#endif
#ifdef COUNTED_BY_COMPILER
#define AUTORELEASE_STRING(string) (string)
#define RELEASE_OBJECT(object) ((void)(object))
#else
#define AUTORELEASE_STRING(string) [(string) autorelease]
#define RELEASE_OBJECT(object) [(object) release]
#endif

#endif
