#include <Varnel/utils.h>

#include <string.h>

#include "../ascii.hpp"
#include "../view.hpp"

namespace {

constexpr int FLAG_SKIP_EMPTY = 1;  // utils_strtok, utils_strsplit
constexpr int FLAG_IGNORE_CASE = 1; // utils_tokcmp

bool can_match(const STRING *source, _t_predicate_func f, int min, int max) {
  return source != nullptr && source->str != nullptr && source->len != 0 && f != nullptr && max >= 1 &&
         min >= 1;
}

// Hands out a run of `count` characters from `start` and the text from `cursor` on. With no run the
// tail is the whole source. The source is a copy: match and tail may be the caller's view of it.
int report_run(STRING source, int start, int count, int cursor, STRING *match, STRING *tail) {
  const bool found = count > 0;
  if (tail != nullptr) {
    *tail = found ? STRING{source.str + cursor, source.len - cursor} : source;
  }
  if (match != nullptr) {
    *match = found ? STRING{source.str + start, count} : STRING{source.str, 0};
  }
  return found ? 1 : 0;
}

int clamped_difference(int a, int b) {
  const int64_t difference = static_cast<int64_t>(a) - b;
  if (difference < INT_MIN) {
    return INT_MIN;
  }
  return difference > INT_MAX ? INT_MAX : static_cast<int>(difference);
}

// The order of two texts of equal length, as signed characters: 0 equal, 1 first greater, else -1.
int order(const char *a, const char *b, int len, bool ignore_case) {
  for (int i = 0; i < len; ++i) {
    int left = char_value(a[i]);
    int right = char_value(b[i]);
    if (ignore_case && ascii::is_alpha(left) && ascii::is_alpha(right)) {
      left = ascii::to_upper(left);
      right = ascii::to_upper(right);
    }
    if (left != right) {
      return left > right ? 1 : -1;
    }
  }
  return 0;
}

size_t bytes(int64_t count) { return static_cast<size_t>(count); }

} // namespace

int utils_match_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match, STRING *tail) {
  if (!can_match(pSource, f, min, max)) {
    return 0;
  }
  const STRING source = *pSource;
  int cursor = 0;
  int start = 0;
  int count = 0;
  while (cursor < source.len && count < max) {
    if (f(char_value(source.str[cursor])) != 0) {
      if (count == 0) {
        start = cursor;
      }
      ++count;
    } else if (count >= min) {
      break;
    } else {
      count = 0; // only a refused character discards a short run; the end of the text keeps it
    }
    ++cursor;
  }
  return report_run(source, start, count, cursor, match, tail);
}

int utils_match_start_f(const STRING *pSource, _t_predicate_func f, int min, int max, STRING *match,
                        STRING *tail) {
  if (!can_match(pSource, f, min, max)) {
    return 0;
  }
  const STRING source = *pSource;
  int count = 0;
  while (count < source.len && count < max) {
    if (f(char_value(source.str[count])) == 0) {
      if (count < min) {
        count = 0;
      }
      break;
    }
    ++count;
  }
  return report_run(source, 0, count, count, match, tail);
}

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

int utils_strcmp(const STRING *s, const char *str) {
  if (s == nullptr || s->str == nullptr) {
    return str != nullptr ? -1 : 0;
  }
  if (str == nullptr) {
    return 1;
  }
  const int length = text_length(str);
  if (s->len != length) {
    return clamped_difference(s->len, length); // by length alone, never by the characters
  }
  return order(s->str, str, length, false);
}

int utils_tokcmp(const STRING *tok1, const STRING *tok2, int flags) {
  const bool has_second = tok2 != nullptr && tok2->str != nullptr;
  if (tok1 == nullptr || tok1->str == nullptr) {
    return has_second ? -1 : 0;
  }
  if (!has_second) {
    return 1;
  }
  if (tok1->len != tok2->len) {
    return clamped_difference(tok1->len, tok2->len);
  }
  return order(tok1->str, tok2->str, tok1->len, (flags & FLAG_IGNORE_CASE) != 0);
}

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
