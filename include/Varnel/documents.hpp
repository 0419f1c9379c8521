/**
 * @file documents.hpp
 * @brief C++17 over Varnel Documents: header-only, no allocation, no exceptions.
 */
#ifndef VARNEL_DOCUMENTS_HPP
#define VARNEL_DOCUMENTS_HPP

#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) < 201703L
#error "documents.hpp needs C++17"
#endif

#include <Varnel/Varnel.h>
#include <Varnel/documents.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace varnel {

/** A day of the calendar. */
struct date {
  int year;  /**< four digits */
  int month; /**< 1 to 12 */
  int day;   /**< 1 to 31 */
};

/** How far characters may be changed. */
enum class repair : int {
  off = VARNEL_REPAIR_OFF,         /**< not at all */
  columns = VARNEL_REPAIR_COLUMNS, /**< where a column's kind or a filler leaves one way */
  digits = VARNEL_REPAIR_DIGITS    /**< as columns, and numbers where one look-alike makes the digit hold */
};

/** The verdict on a document. */
enum class verdict : std::uint8_t {
  refused = VARNEL_VERDICT_REFUSED,   /**< no zone */
  doubtful = VARNEL_VERDICT_DOUBTFUL, /**< a zone, with findings */
  valid = VARNEL_VERDICT_VALID,       /**< no finding, characters as read */
  repaired = VARNEL_VERDICT_REPAIRED, /**< no finding after the listed changes */
  voted = VARNEL_VERDICT_VOTED        /**< no finding, combined from several looks */
};

/** The status of a field. */
enum class status : std::uint8_t {
  empty = VARNEL_STATUS_EMPTY,                   /**< fillers only */
  bad_characters = VARNEL_STATUS_BAD_CHARACTERS, /**< characters that cannot stand there; no value */
  not_a_date = VARNEL_STATUS_NOT_A_DATE,         /**< no day of the calendar; no value */
  unknown = VARNEL_STATUS_UNKNOWN,               /**< not listed; the value is kept */
  check_failed = VARNEL_STATUS_CHECK_FAILED,     /**< the check digit does not agree; the value is kept */
  ok = VARNEL_STATUS_OK                          /**< nothing is wrong with it */
};

/** What confirms a value. */
enum class proof : std::uint8_t {
  none = VARNEL_PROOF_NONE,           /**< nothing */
  list = VARNEL_PROOF_LIST,           /**< a listed state */
  composite = VARNEL_PROOF_COMPOSITE, /**< the composite check digit */
  digit = VARNEL_PROOF_DIGIT,         /**< its own check digit */
  digits = VARNEL_PROOF_DIGITS        /**< its own check digit and the composite */
};

/** A stretch of values inside a record; lives as long as the record. */
template <class T> class record_range {
public:
  /** @param first the first value. @param count how many there are. */
  constexpr record_range(const T *first, std::size_t count) : first_(first), count_(count) {}
  /** @return the first value's place. */
  constexpr const T *begin() const { return first_; }
  /** @return the place after the last value. */
  constexpr const T *end() const { return first_ + count_; }
  /** @return how many there are. */
  constexpr std::size_t size() const { return count_; }
  /** @return whether there are none. */
  constexpr bool empty() const { return count_ == 0; }
  /** @param index from 0, not checked. @return that value. */
  constexpr const T &operator[](std::size_t index) const { return first_[index]; }

private:
  const T *first_;
  std::size_t count_;
};

/** A field of an inspected zone; its texts live as long as the inspection. */
class inspected_field {
public:
  /** @param field the field of a record. */
  explicit inspected_field(const varnel_inspected_field &field) : field_(&field) {}

  /** @return which field it is: VARNEL_DOCUMENT_NUMBER and so on. */
  int id() const { return field_->field; }
  /** @return its columns as they stand in the zone. */
  std::string_view text() const { return {field_->text, field_->text_length}; }
  /** @return its value; nothing where it has none. */
  std::optional<std::string_view> value() const {
    return field_->has_value != 0
               ? std::optional<std::string_view>(std::in_place, field_->value, field_->value_length)
               : std::nullopt;
  }
  /** @return its status. */
  varnel::status status() const { return static_cast<varnel::status>(field_->status); }
  /** @return what confirms its value. */
  varnel::proof proof() const { return static_cast<varnel::proof>(field_->proof); }
  /** @return the whole of it: place, source and what its kind adds. */
  const varnel_inspected_field &record() const { return *field_; }

private:
  const varnel_inspected_field *field_;
};

/** An inspected document: a plain value that owns its text. */
class inspection {
public:
  /** @param record as varnel_inspect() wrote it. */
  explicit inspection(const varnel_inspection &record) : record_(record) {}

  /** @return the verdict on the whole. */
  varnel::verdict verdict() const { return static_cast<varnel::verdict>(record_.verdict); }
  /** @return whether there is a zone without a finding: valid, repaired or voted. */
  bool ok() const { return record_.verdict >= VARNEL_VERDICT_VALID; }
  /** @return VARNEL_LAYOUT_TD3 and so on; VARNEL_LAYOUT_NONE when refused. */
  int layout() const { return record_.layout; }
  /** @return the number of lines of the zone; 0 when refused. */
  std::size_t lines() const { return record_.line_count; }
  /** @param index from 0 to below lines(), not checked. @return that line of the zone. */
  std::string_view line(std::size_t index) const { return record_.zone[index]; }
  /** @return the layout's fields, in the order of the zone. */
  record_range<varnel_inspected_field> fields() const { return {record_.fields, record_.field_count}; }
  /** @return the layout's check digits. */
  record_range<varnel_check> checks() const { return {record_.checks, record_.check_count}; }
  /** @return the changes that were made. */
  record_range<varnel_change> changes() const { return {record_.changes, record_.change_count}; }
  /** @return what is wrong. */
  record_range<varnel_finding> findings() const { return {record_.findings, record_.finding_count}; }
  /** @return what is worth knowing. */
  record_range<varnel_finding> notices() const { return {record_.notices, record_.notice_count}; }

  /** @param id VARNEL_DOCUMENT_NUMBER and so on. @return that field; nothing where the layout lacks it. */
  std::optional<inspected_field> field(int id) const {
    for (const varnel_inspected_field &each : fields()) {
      if (each.field == id) {
        return inspected_field(each);
      }
    }
    return std::nullopt;
  }

  /** @param id VARNEL_DOCUMENT_NUMBER and so on. @return that field's value; empty where there is none. */
  std::string_view value(int id) const {
    const std::optional<inspected_field> found = field(id);
    return found ? found->value().value_or(std::string_view()) : std::string_view();
  }

  /** @return whether the document had expired on the reference date; nothing where that cannot be said. */
  std::optional<bool> expired() const {
    return record_.expired >= 0 ? std::optional<bool>(record_.expired != 0) : std::nullopt;
  }
  /** @return what a chip's access protocol hashes (Doc 9303-11); nothing where the zone does not say. */
  std::optional<std::string_view> chip_access() const {
    return record_.chip_access[0] != '\0' ? std::optional<std::string_view>(record_.chip_access)
                                          : std::nullopt;
  }

  /**
   * Writes the inspection as JSON, as varnel_inspection_json() does.
   *
   * @param[out] out room for the text and a NUL. @param size that room in bytes.
   * @return the length of the whole text, whatever the room.
   */
  int json(char *out, std::size_t size) const { return varnel_inspection_json(&record_, out, size); }

  /** @return the whole record. */
  const varnel_inspection &record() const { return record_; }

private:
  varnel_inspection record_;
};

namespace detail {
/** @return the two as the C functions take them. @param today the reference date. @param level how far to change. */
inline varnel_inspect_options inspect_options(date today, repair level) {
  return {today.year, today.month, today.day, static_cast<int>(level)};
}
} // namespace detail

/**
 * Finds the zone in a text and inspects it, as varnel_inspect() does.
 *
 * @param text  UTF-8 of up to VARNEL_TEXT_MAX bytes, a zone somewhere in it.
 * @param today the reference date: dates of birth are not after it.
 * @param level how far characters may be changed.
 * @return the inspection; nothing for a text that is too long or a date that does not exist.
 */
inline std::optional<inspection> inspect(std::string_view text, date today, repair level = repair::off) {
  const varnel_inspect_options options = detail::inspect_options(today, level);
  varnel_inspection record;
  if (varnel_inspect(text.data(), text.size(), &options, &record) != VARNEL_ERR_OK) {
    return std::nullopt;
  }
  return inspection(record);
}

/** Several looks at one document, combined: a plain value of about 12 KiB. */
class looks {
public:
  /**
   * Adds a look, as varnel_looks_add() does.
   *
   * @param text  UTF-8 of up to VARNEL_TEXT_MAX bytes, a zone of the document somewhere in it.
   * @param today the reference date.
   * @param level how far characters may be changed.
   * @return whether it shows a zone; else it counts for nothing.
   */
  bool add(std::string_view text, date today, repair level = repair::off) {
    const varnel_inspect_options options = detail::inspect_options(today, level);
    return varnel_looks_add(&record_, text.data(), text.size(), &options) == VARNEL_ERR_OK;
  }

  /**
   * Inspects what the looks show together, as varnel_looks_inspect() does.
   *
   * @param today the reference date.
   * @param level how far characters may be changed.
   * @return the inspection; nothing for a date that does not exist.
   */
  std::optional<varnel::inspection> inspect(date today, repair level = repair::off) const {
    const varnel_inspect_options options = detail::inspect_options(today, level);
    varnel_inspection record;
    if (varnel_looks_inspect(&record_, &options, &record) != VARNEL_ERR_OK) {
      return std::nullopt;
    }
    return varnel::inspection(record);
  }

private:
  varnel_looks record_ = {};
};

/** @param id VARNEL_DOCUMENT_NUMBER and so on. @return its name in JSON; empty for any other number. */
constexpr std::string_view field_name(int id) {
  switch (id) {
#define VARNEL_NAME_OF_FIELD(constant, key)                                                                  \
  case constant:                                                                                             \
    return key;
    VARNEL_DOCUMENT_FIELDS(VARNEL_NAME_OF_FIELD)
#undef VARNEL_NAME_OF_FIELD
  default:
    return {};
  }
}

/** @param reason VARNEL_COMPOSE_MISSING and so on. @return its name; empty for any other number. */
constexpr std::string_view compose_reason_name(int reason) {
  switch (reason) {
#define VARNEL_NAME_OF_REASON(constant, name)                                                                \
  case constant:                                                                                             \
    return name;
    VARNEL_COMPOSE_REASONS(VARNEL_NAME_OF_REASON)
#undef VARNEL_NAME_OF_REASON
  default:
    return {};
  }
}

/** A composed zone, or the first value that was refused: a plain value that owns its text. */
class composition {
public:
  /** @param zone the lines. */
  explicit composition(const varnel_zone &zone) : zone_(zone) {}
  /** @param error why there are none. */
  explicit composition(const varnel_compose_error &error) : error_(error) {}

  /** @return whether there is a zone. */
  bool ok() const { return zone_.line_count > 0; }
  /** @return whether there is a zone. */
  explicit operator bool() const { return ok(); }
  /** @return the number of its lines; 0 without a zone. */
  std::size_t lines() const { return static_cast<std::size_t>(zone_.line_count); }
  /** @param index from 0 to below lines(), not checked. @return that line. */
  std::string_view line(std::size_t index) const { return zone_.lines[index]; }
  /** @return the value that was refused and why; VARNEL_COMPOSE_NO_REASON with a zone. */
  const varnel_compose_error &error() const { return error_; }

private:
  varnel_zone zone_ = {};
  varnel_compose_error error_ = {};
};

/**
 * Composes a zone, as varnel_compose() does.
 *
 * @param fields   the values: NUL-terminated UTF-8, null or empty where there is none.
 * @param language "be", "bg", "mk", "sr" or "uk" for the exceptions of that language; null for none.
 * @return the zone, or the first value that was refused.
 */
inline composition compose(const varnel_compose_fields &fields, const char *language = nullptr) {
  const varnel_compose_options options = {language};
  varnel_zone zone;
  varnel_compose_error error;
  return varnel_compose(&fields, &options, &zone, &error) == VARNEL_ERR_OK ? composition(zone)
                                                                           : composition(error);
}

/** @param code VARNEL_BARCODE_TEXT_BEFORE and so on. @return its name in JSON; empty for any other number. */
constexpr std::string_view barcode_finding_name(int code) {
  switch (code) {
#define VARNEL_NAME_OF_FINDING(constant, name, meaning)                                                      \
  case constant:                                                                                             \
    return name;
    VARNEL_BARCODE_FINDINGS(VARNEL_NAME_OF_FINDING)
#undef VARNEL_NAME_OF_FINDING
  default:
    return {};
  }
}

/** A barcode that was read or refused. Its values are views into the buffer that was lent for it. */
class barcode {
public:
  /**
   * @param record as varnel_barcode() filled it, or emptied it when it refused.
   * @param info   what it wrote beside the record.
   * @param ok     whether it read the text.
   */
  barcode(const varnel_parse_result &record, const varnel_barcode_info &info, bool ok)
      : record_(record), info_(info), ok_(ok) {}

  /** @return whether the text was read; when not, the last finding is the reason. */
  bool ok() const { return ok_; }
  /** @return whether the text was read. */
  explicit operator bool() const { return ok_; }

  /** @param slot FIELD_DOCUMENT_NUMBER and so on. @return its value; empty where there is none. */
  std::string_view slot(int slot) const {
    const varnel_string text = varnel_value(&record_, slot);
    return std::string_view(text.str, static_cast<std::size_t>(text.len));
  }

  /** @param key one of the twelve: "lastName" and so on. @return its value; empty where there is none. */
  std::string_view value(std::string_view key) const {
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    varnel_export(&record_, pairs);
    for (const VARNEL_PAIR &pair : pairs) {
      if (key == pair.key) {
        return std::string_view(pair.value.str, static_cast<std::size_t>(pair.value.len));
      }
    }
    return {};
  }

  /** @return the version of the card's header; nothing without one. */
  std::optional<int> version() const {
    return info_.version >= 0 ? std::optional<int>(info_.version) : std::nullopt;
  }
  /** @return elements without a slot. */
  record_range<varnel_barcode_element> elements() const { return {info_.elements, info_.element_count}; }
  /** @return where the text departs from the standard, and what could not be taken as it stands. */
  record_range<varnel_barcode_finding> findings() const { return {info_.findings, info_.finding_count}; }

  /**
   * Writes the info as JSON, as varnel_barcode_info_json() does.
   *
   * @param[out] out room for the text and a NUL. @param size that room in bytes.
   * @return the length of the whole text, whatever the room.
   */
  int json(char *out, std::size_t size) const { return varnel_barcode_info_json(&info_, out, size); }

  /** @return what the text says beside its slots. */
  const varnel_barcode_info &info() const { return info_; }
  /** @return the record. */
  const varnel_parse_result &record() const { return record_; }

private:
  varnel_parse_result record_;
  varnel_barcode_info info_;
  bool ok_;
};

/**
 * Reads the barcode of a driver's licence, as varnel_barcode() does.
 *
 * @param text   its text, of up to VARNEL_BARCODE_TEXT_MAX bytes.
 * @param buffer where the values will lie; has to live as long as they are read.
 * @param size   its size in bytes; VARNEL_BARCODE_BUFFER_SIZE(text.size()) is always enough.
 * @return the barcode, read or refused; nothing for a text that is too long or a buffer that is too small.
 */
inline std::optional<barcode> read_barcode(std::string_view text, char *buffer, std::size_t size) {
  constexpr std::size_t most = VARNEL_BARCODE_BUFFER_SIZE(VARNEL_BARCODE_TEXT_MAX);
  varnel_parse_result record;
  varnel_barcode_info info;
  const int status = varnel_barcode(text.data(), text.size(), &record, buffer,
                                    static_cast<int>(size < most ? size : most), &info);
  if (status == VARNEL_ERR_INVALID_ARGS) {
    return std::nullopt;
  }
  return barcode(record, info, status == VARNEL_ERR_OK);
}

} // namespace varnel

#endif
