// Tables of characters, each sorted by a member of its rows.
#ifndef VARNEL_SRC_DOCUMENTS_SORTED_ROWS_HPP
#define VARNEL_SRC_DOCUMENTS_SORTED_ROWS_HPP

namespace documents {

template <auto Key, class Row, int Count> constexpr bool is_sorted(const Row (&rows)[Count]) {
  for (int i = 1; i < Count; ++i) {
    if (rows[i - 1].*Key >= rows[i].*Key) {
      return false;
    }
  }
  return true;
}

// The first row whose key is not below `c`; null where all are.
template <auto Key, class Row, int Count> const Row *first_from(const Row (&rows)[Count], char32_t c) {
  int low = 0;
  int high = Count;
  while (low < high) {
    const int middle = (low + high) / 2;
    if (rows[middle].*Key < c) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low < Count ? &rows[low] : nullptr;
}

} // namespace documents

#endif
