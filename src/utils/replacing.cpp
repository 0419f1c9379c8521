#include <Varnel/utils.h>

#include <string.h>

#include "../view.hpp"

namespace {

size_t bytes(int64_t count) { return static_cast<size_t>(count); }

} // namespace

int utils_strstr(const STRING *haystack, const STRING *needle) {
  if (haystack == nullptr || needle == nullptr || is_empty(*haystack) || is_empty(*needle)) {
    return -1;
  }
  for (int i = 0; i <= haystack->len - needle->len; ++i) {
    if (memcmp(haystack->str + i, needle->str, bytes(needle->len)) == 0) {
      return i;
    }
  }
  return -1;
}

int utils_strreplace(char *buffer, int len, int max_len, const STRING *from, const STRING *to) {
  if (buffer == nullptr || from == nullptr || to == nullptr || is_empty(*from) || is_empty(*to)) {
    return len;
  }
  const int64_t growth = static_cast<int64_t>(to->len) - from->len;
  int64_t length = len;
  int64_t at = 0;
  while (at + from->len <= length) {
    char *found = buffer + at;
    if (memcmp(found, from->str, bytes(from->len)) != 0) {
      ++at;
      continue;
    }
    if (growth > 0 && length + growth > max_len) {
      break; // no room: this occurrence and all later ones stay
    }
    memmove(found + to->len, found + from->len, bytes(length - at - from->len));
    memmove(found, to->str, bytes(to->len));
    length += growth;
    at += to->len; // the inserted text is never searched again
  }
  return static_cast<int>(length);
}
