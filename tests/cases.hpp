// How many of its cases a test tries that has very many.
//
// All of them, unless the environment variable VARNEL_FEWER_CASES is a number n: then one in n. Where tests
// run tens of times slower, in an emulator or with sanitizers, that keeps them to seconds.
#ifndef VARNEL_TESTS_CASES_HPP
#define VARNEL_TESTS_CASES_HPP

#include <cstdio>
#include <cstdlib>

namespace support {

inline unsigned long one_case_in() {
  static const unsigned long n = [] {
    const char *given = std::getenv("VARNEL_FEWER_CASES");
    char *end = nullptr;
    const unsigned long number = given == nullptr ? 1 : std::strtoul(given, &end, 10);
    if (number < 1 || number > 1000 || (end != nullptr && *end != '\0')) {
      std::fprintf(stderr, "VARNEL_FEWER_CASES=%s is no number from 1 to 1000\n", given);
      std::exit(2);
    }
    if (number > 1) {
      std::printf("VARNEL_FEWER_CASES=%lu: where cases are very many, one in %lu is tried\n", number, number);
    }
    return number;
  }();
  return n;
}

// How many of `all` cases to try. Of a thousand or more none comes to nothing.
template <class Count> Count cases(Count all) { return all / static_cast<Count>(one_case_in()); }

// Says of the cases of a loop, asked about one after the other, whether to try each.
class every_nth {
public:
  bool is_next() { return count_++ % one_case_in() == 0; }

private:
  unsigned long count_ = 0;
};

} // namespace support

#endif
