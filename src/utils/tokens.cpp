#include <Varnel/utils.h>

#include "../view.hpp"

namespace {

constexpr int FLAG_SKIP_EMPTY = 1;

} // namespace

void utils_strtok(const STRING *source, STRING *token, STRING *tail, const char *delimiters, int flags) {
  const char_set set(delimiters);
  *tail = *source;
  if ((flags & FLAG_SKIP_EMPTY) != 0) {
    utils_strtrim_start(tail, delimiters);
  }
  *token = STRING{tail->str, 0};
  while (!is_empty(*tail)) {
    const bool at_delimiter = set.contains(tail->str[0]);
    ++tail->str;
    --tail->len;
    if (at_delimiter) {
      return;
    }
    ++token->len;
  }
}

int utils_strntok(const STRING *source, STRING *out, int num, const char *delimiters) {
  if (source == nullptr || is_empty(*source) || num < 0 || out == nullptr) {
    return -1;
  }
  STRING rest = *source;
  STRING token = {nullptr, 0};
  for (int i = 0; i <= num; ++i) {
    utils_strtok(&rest, &token, &rest, delimiters, FLAG_SKIP_EMPTY);
    if (token.len == 0) {
      return -1;
    }
  }
  *out = token;
  return 0;
}

int utils_strsplit(const STRING *source, STRING *out, int count, const char *delimiters, int flags) {
  if (source == nullptr || is_empty(*source) || out == nullptr) {
    return 0;
  }
  const bool keeps_empty = (flags & FLAG_SKIP_EMPTY) == 0;
  STRING rest = *source;
  int n = 0;
  while (n < count && !is_empty(rest)) {
    STRING token;
    utils_strtok(&rest, &token, &rest, delimiters, flags);
    if (token.len > 0 || keeps_empty) {
      out[n++] = token;
    }
  }
  return n;
}

int utils_rmtok(STRING *tokens, int count, const char **patterns, int p_count) {
  int kept = 0;
  for (int i = 0; i < count; ++i) {
    int p = 0;
    while (p < p_count && utils_strcmp(&tokens[i], patterns[p]) != 0) {
      ++p;
    }
    if (p >= p_count) {
      tokens[kept++] = tokens[i];
    }
  }
  return kept;
}
