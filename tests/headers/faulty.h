/* A header with a fault that only a warning shows: the header tests must refuse it. */
static inline int faulty(int left_unused) { return 0; }
