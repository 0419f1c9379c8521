#include <Varnel/utils.h>

#include "../view.hpp"

namespace {

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
