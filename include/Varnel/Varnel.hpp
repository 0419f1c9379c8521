/**
 * @file Varnel.hpp
 * @brief The C++17 face: header-only, over the C interface.
 */
#ifndef VARNEL_HPP
#define VARNEL_HPP

#if defined(_MSVC_LANG) ? _MSVC_LANG < 201703L : __cplusplus < 201703L
#error "Varnel.hpp needs C++17"
#endif

#include <Varnel/Varnel.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

/** The C++ face of Varnel. */
namespace varnel {

/** One exported value under its key; unpacks into `auto [key, value]`. */
using entry = std::pair<std::string_view, std::string_view>;

/**
 * The twelve values of a document, in export order.
 *
 * A document owns its texts: it is a plain value that may be copied, returned and kept, and needs no
 * allocation. The views it hands out live as long as it does.
 */
class document {
  class unread {
    friend std::optional<document> parse_mrz(std::string_view text);
    constexpr unread() {}
  };

public:
  /** Walks the twelve values in export order. Valid as long as its document stays where it is. */
  class iterator {
  public:
    using iterator_category = std::input_iterator_tag; /**< values come by value: no more than input */
    using value_type = entry;                          /**< a value with its key */
    using difference_type = std::ptrdiff_t;            /**< of positions */
    using pointer = const entry *;                     /**< not used: there is no operator-> */
    using reference = entry;                           /**< a value with its key, not a reference */

    /** @param owner the document to walk; not null. @param index the position, 0 to 12. */
    iterator(const document *owner, std::size_t index) : owner_(owner), index_(index) {}
    /** @return the value here with its key; there is none at the end. */
    entry operator*() const { return (*owner_)[index_]; }
    /** Moves on. @return this iterator */
    iterator &operator++() {
      ++index_;
      return *this;
    }
    /** Moves on. @return where it was before */
    iterator operator++(int) {
      iterator before = *this;
      ++*this;
      return before;
    }
    /** @param other an iterator of the same document. @return whether both stand at one position. */
    bool operator==(const iterator &other) const { return index_ == other.index_; }
    /** @param other an iterator of the same document. @return whether they stand apart. */
    bool operator!=(const iterator &other) const { return index_ != other.index_; }

  private:
    const document *owner_;
    std::size_t index_;
  };

  /** @return the number of values: always twelve, those that the document does not carry being empty. */
  static constexpr std::size_t size() { return VARNEL_VALUE_COUNT; }

  /**
   * The value at a position, with its key.
   *
   * @param index the position in export order, 0 to 11; not checked.
   * @return key and value; the value views this document's text.
   */
  entry operator[](std::size_t index) const {
    return {keys_[index], std::string_view(text_.data() + values_[index].at, values_[index].length)};
  }

  /**
   * The value of a key.
   *
   * @param key one of the twelve, such as "firstName".
   * @return the value, empty where the document has none; nothing for a key that is not one of the twelve.
   */
  std::optional<std::string_view> get(std::string_view key) const {
    for (const auto [known, value] : *this) {
      if (known == key) {
        return value;
      }
    }
    return std::nullopt;
  }

  /** @return where the first value stands. */
  iterator begin() const { return {this, 0}; }
  /** @return behind the last value. */
  iterator end() const { return {this, size()}; }

  friend std::optional<document> parse_mrz(std::string_view text);

  /** Only parse_mrz() makes documents. The members are left unset, because it fills them at once. */
  explicit document(unread /*tag*/) {}

private:
  struct place {
    std::uint16_t at;
    std::uint16_t length;
  };

  bool read(std::string_view text) {
    varnel_parse_result result;
    const int length = varnel_utf16_length(text.data(), text.size());
    if (varnel_parse_mrz(text.data(), length, &result, text_.data(), VARNEL_BUFFER_SIZE) != VARNEL_ERR_OK) {
      return false;
    }
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    varnel_export(&result, pairs);
    for (std::size_t i = 0; i < size(); ++i) {
      const varnel_string &value = pairs[i].value;
      keys_[i] = pairs[i].key;
      values_[i].length = static_cast<std::uint16_t>(value.len);
      values_[i].at = static_cast<std::uint16_t>(value.len > 0 ? value.str - text_.data() : 0);
    }
    return true;
  }

  std::array<const char *, VARNEL_VALUE_COUNT> keys_;
  std::array<place, VARNEL_VALUE_COUNT> values_;
  std::array<char, VARNEL_BUFFER_SIZE> text_;
};

/**
 * Reads the text of a machine-readable zone (ICAO Doc 9303: TD1, TD2, TD3, MRV-A, MRV-B).
 *
 * @param text what the optical reader saw, as UTF-8: line breaks, blanks and noise are dropped, small
 *        letters raised. May hold any bytes, NUL included; only the first 1023 UTF-16 units count.
 * @return the document, or nothing when the text is empty or no layout accepts it.
 *
 * Safe to call from any number of threads; throws nothing and allocates nothing.
 */
inline std::optional<document> parse_mrz(std::string_view text) {
  std::optional<document> result(std::in_place, document::unread());
  if (!result->read(text)) {
    result.reset();
  }
  return result;
}

} // namespace varnel

#endif
