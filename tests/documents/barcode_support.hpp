// Composes the text of a barcode, and reads one into values that tests can compare.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Varnel/Varnel.h>
#include <Varnel/documents/barcode.h>

namespace barcode {

struct Element {
  std::string id;
  std::string value;
};
using Elements = std::vector<Element>;

struct Subfile {
  std::string type;
  Elements elements;
};

inline std::string padded(std::size_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

// A card as the standard has it, each part open to a test that wants it otherwise.
struct Card {
  int version = 10;
  std::string issuer = "636000";
  std::vector<Subfile> subfiles;

  static std::string body(const Subfile &subfile) {
    std::string text = subfile.type;
    for (std::size_t i = 0; i < subfile.elements.size(); ++i)
      text += (i > 0 ? "\n" : "") + subfile.elements[i].id + subfile.elements[i].value;
    return text + "\r";
  }

  std::string header() const {
    std::string text = "@\n\x1E\rANSI " + issuer + padded(static_cast<std::size_t>(version), 2);
    if (version >= 2)
      text += "00";
    text += padded(subfiles.size(), 2);
    std::size_t offset = text.size() + 10 * subfiles.size();
    for (const Subfile &subfile : subfiles) {
      const std::size_t length = body(subfile).size();
      text += subfile.type + padded(offset, 4) + padded(length, 4);
      offset += length;
    }
    return text;
  }

  std::string text() const {
    std::string text = header();
    for (const Subfile &subfile : subfiles)
      text += body(subfile);
    return text;
  }
};

// A text read into a record. The text lies in memory of exactly its size, and so does the buffer.
class Reading {
public:
  explicit Reading(std::string_view text) : Reading(text, VARNEL_BARCODE_BUFFER_SIZE(text.size())) {}

  Reading(std::string_view text, std::size_t room)
      : text_(new char[text.size()]), buffer_(new char[room]), size_(text.size()) {
    text.copy(text_.get(), text.size());
    status = varnel_barcode(text_.get(), text.size(), &record, buffer_.get(), static_cast<int>(room), &info);
  }

  std::string slot(int field) const {
    const STRING value = varnel_value(&record, field);
    return std::string(value.str, static_cast<std::size_t>(value.len));
  }

  // The twelve values, separated by '|'.
  std::string values() const {
    VARNEL_PAIR pairs[VARNEL_VALUE_COUNT];
    varnel_export(&record, pairs);
    std::string text;
    for (const VARNEL_PAIR &pair : pairs)
      text += (pair.key == pairs[0].key ? "" : "|") +
              std::string(pair.value.str, static_cast<std::size_t>(pair.value.len));
    return text;
  }

  // Findings as "code@offset", with ":element" where there is one.
  std::string findings() const {
    static const char *const names[] = {"",
#define NAME(constant, name, meaning) name,
                                        VARNEL_BARCODE_FINDINGS(NAME)
#undef NAME
    };
    std::string text;
    for (int i = 0; i < info.finding_count; ++i) {
      const varnel_barcode_finding &finding = info.findings[i];
      text += (i > 0 ? " " : "") + std::string(names[finding.code]) + "@" + std::to_string(finding.offset);
      if (finding.element[0] != '\0')
        text += std::string(":") + finding.element;
    }
    return text;
  }

  // Elements without a slot as "identifier=value", the value taken from the text by its place.
  std::string elements() const {
    std::string text;
    for (int i = 0; i < info.element_count; ++i) {
      const varnel_barcode_element &element = info.elements[i];
      text += (i > 0 ? " " : "") + std::string(element.element) + "=" +
              std::string(text_.get() + element.start, element.end - element.start);
    }
    return text;
  }

  std::string json() const {
    std::string text(20000, '\0');
    text.resize(static_cast<std::size_t>(varnel_barcode_info_json(&info, text.data(), text.size())));
    return text;
  }

  std::size_t size() const { return size_; }

  int status = 0;
  PARSE_RESULT record = {};
  varnel_barcode_info info = {};

private:
  std::unique_ptr<char[]> text_;
  std::unique_ptr<char[]> buffer_;
  std::size_t size_;
};

} // namespace barcode
