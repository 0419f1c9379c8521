/**
 * @file Varnel.hpp
 * @brief The C++17 interface: header-only, over the C interface.
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
#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

/** The C++ interface of Varnel. */
namespace varnel {

/** The layouts of machine-readable zones (ICAO Doc 9303). */
enum class layout {
  td1 = VARNEL_LAYOUT_TD1,     /**< card, 3 lines of 30 */
  td2 = VARNEL_LAYOUT_TD2,     /**< card, 2 lines of 36 */
  td3 = VARNEL_LAYOUT_TD3,     /**< passport, 2 lines of 44 */
  mrv_a = VARNEL_LAYOUT_MRV_A, /**< visa, 2 lines of 44 */
  mrv_b = VARNEL_LAYOUT_MRV_B  /**< visa, 2 lines of 36 */
};

/** One exported value under its key; unpacks into `auto [key, value]`. */
using entry = std::pair<std::string_view, std::string_view>;

/**
 * The twelve values of a document, in export order.
 *
 * A document owns its texts: it is a plain value that may be copied, returned and kept, and needs no
 * allocation. The views it hands out live as long as it does. Values are read by name, by key, by position or
 * in a loop; one that the document does not have is empty.
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
    /** @param other an iterator of the same document. @return whether both are at one position. */
    bool operator==(const iterator &other) const { return index_ == other.index_; }
    /** @param other an iterator of the same document. @return whether they are at different positions. */
    bool operator!=(const iterator &other) const { return index_ != other.index_; }

  private:
    const document *owner_;
    std::size_t index_;
  };

  /** @return the layout that the zone has. */
  varnel::layout layout() const { return layout_; }
  /** @return its name: "TD1", "TD2", "TD3", "MRV-A" or "MRV-B". */
  std::string_view layout_name() const { return layout_name_; }

  /** @return the first given name. */
  std::string_view first_name() const { return value(0); }
  /** @return the family name (primary identifier). */
  std::string_view last_name() const { return value(1); }
  /** @return the given names after the first. */
  std::string_view middle_name() const { return value(2); }
  /** @return the document number. */
  std::string_view license_number() const { return value(3); }
  /** @return the date of birth: eight digits, year, month, day. */
  std::string_view birth_date() const { return value(4); }
  /** @return the date of expiry: eight digits, year, month, day. */
  std::string_view expiration_date() const { return value(5); }
  /** @return the sex, "M" or "F". */
  std::string_view gender() const { return value(6); }
  /** @return the issuing state or organisation. */
  std::string_view country_code() const { return value(7); }
  /** @return the jurisdiction: empty, because no zone has one. */
  std::string_view jurisdiction_code() const { return value(8); }
  /** @return the nationality. */
  std::string_view nationality() const { return value(9); }
  /** @return "PASSPORT" or "TD". */
  std::string_view document_type() const { return value(10); }
  /** @return the date of issue: empty, because no zone has one. */
  std::string_view issue_date() const { return value(11); }

  /** @return the number of values: always twelve, those that the document does not have being empty. */
  static constexpr std::size_t size() { return VARNEL_VALUE_COUNT; }

  /**
   * The value at a position, with its key.
   *
   * @param index the position in export order, 0 to 11; not checked.
   * @return key and value; the value views this document's text.
   */
  entry operator[](std::size_t index) const { return {keys_[index], value(index)}; }

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

  /** @return the position of the first value. */
  iterator begin() const { return {this, 0}; }
  /** @return the position after the last value. */
  iterator end() const { return {this, size()}; }

  friend std::optional<document> parse_mrz(std::string_view text);

  /** Only parse_mrz() makes documents. The members are left unset, because it fills them at once. */
  explicit document(unread /*tag*/) {}

private:
  struct place {
    std::uint16_t at;
    std::uint16_t length;
  };

  std::string_view value(std::size_t index) const {
    return std::string_view(text_.data() + values_[index].at, values_[index].length);
  }

  bool read(std::string_view text) {
    varnel_document read;
    if (varnel_read(text.data(), text.size(), &read) != VARNEL_ERR_OK) {
      return false;
    }
    layout_ = static_cast<varnel::layout>(read.layout);
    layout_name_ = read.layout_name;
    std::memcpy(text_.data(), read.text, text_.size());
    for (std::size_t i = 0; i < size(); ++i) {
      const varnel_string &value = read.values[i].value;
      keys_[i] = read.values[i].key;
      values_[i].length = static_cast<std::uint16_t>(value.len);
      values_[i].at = static_cast<std::uint16_t>(value.len > 0 ? value.str - read.text : 0);
    }
    return true;
  }

  // The texts of a zone take less than half of this.
  static constexpr std::size_t TEXT_SIZE = 256;

  varnel::layout layout_;
  const char *layout_name_;
  std::array<const char *, VARNEL_VALUE_COUNT> keys_;
  std::array<place, VARNEL_VALUE_COUNT> values_;
  std::array<char, TEXT_SIZE> text_;
};

/**
 * Reads the text of a machine-readable zone (ICAO Doc 9303: TD1, TD2, TD3, MRV-A, MRV-B).
 *
 * @param text what the optical reader saw, as UTF-8: line breaks, spaces and noise are dropped,
 *        lowercase letters become uppercase. May hold any bytes, NUL included; only the first 1023 UTF-16
 * units count.
 * @return the document, or nothing when the text is empty or no layout accepts it.
 *
 * Any number of threads may call it at once. It throws nothing and allocates nothing.
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
