#include <Varnel/documents/barcode.h>

#include "../view.hpp"

#include <string.h>

namespace {

// Names of findings, in the order of their numbers; in place, so that the table needs no relocation.
constexpr char FINDING_NAMES[][27] = {"",
#define FINDING_NAME(constant, name, meaning) name,
                                      VARNEL_BARCODE_FINDINGS(FINDING_NAME)
#undef FINDING_NAME
};

const char *finding_name(int code) {
  return code < VARNEL_BARCODE_FINDING_END ? FINDING_NAMES[code] : FINDING_NAMES[0];
}

// Writes what fits and counts the rest. Keys and values are made of letters and digits: nothing is escaped.
class json_text {
public:
  json_text(char *out, size_t size) : out_(out), size_(size) {}

  json_text &operator<<(const char *text) {
    const size_t length = strlen(text);
    if (length_ + 1 < size_) {
      const size_t room = size_ - length_ - 1;
      memcpy(out_ + length_, text, length < room ? length : room);
    }
    length_ += length;
    return *this;
  }

  json_text &operator<<(uint32_t number) {
    char digits[11];
    char *first = digits + sizeof digits - 1;
    *first = '\0';
    do {
      *--first = static_cast<char>('0' + number % 10);
      number /= 10;
    } while (number != 0);
    return *this << first;
  }

  // A text in quotes, or null for an empty one.
  json_text &value(const char *text) {
    return *text == '\0' ? *this << "null" : *this << "\"" << text << "\"";
  }

  // Terminates what was written and returns the whole length.
  int end() {
    if (size_ > 0) {
      out_[length_ < size_ ? length_ : size_ - 1] = '\0';
    }
    return static_cast<int>(length_);
  }

private:
  char *out_;
  size_t size_;
  size_t length_ = 0;
};

// Before every entry of an array but the first.
const char *comma(int entry) { return entry > 0 ? "," : ""; }

void write_header(json_text &json, const varnel_barcode_info &info) {
  json << "{\"version\":";
  if (info.version < 0) {
    json << "null";
  } else {
    json << static_cast<uint32_t>(info.version);
  }
  (json << ",\"issuer\":").value(info.issuer);
  (json << ",\"jurisdiction\":").value(info.jurisdiction);
  (json << ",\"country\":").value(info.country);
  json << ",\"subfiles\":[";
  for (int i = 0; i < info.subfile_count; ++i) {
    (json << comma(i)).value(info.subfiles[i]);
  }
}

void write_elements(json_text &json, const varnel_barcode_info &info) {
  json << "],\"elements\":[";
  for (int i = 0; i < info.element_count; ++i) {
    const varnel_barcode_element &element = info.elements[i];
    (json << comma(i) << "{\"element\":").value(element.element);
    json << ",\"start\":" << element.start << ",\"end\":" << element.end << "}";
  }
}

void write_findings(json_text &json, const varnel_barcode_info &info) {
  json << "],\"findings\":[";
  for (int i = 0; i < info.finding_count; ++i) {
    const varnel_barcode_finding &finding = info.findings[i];
    (json << comma(i) << "{\"code\":").value(finding_name(finding.code));
    (json << ",\"offset\":" << finding.offset << ",\"element\":").value(finding.element);
    json << "}";
  }
}

} // namespace

int varnel_barcode_info_json(const varnel_barcode_info *info, char *out, size_t size) {
  if (info == nullptr || (out == nullptr && size > 0)) {
    return ERR_INVALID_ARGS;
  }
  json_text json(out, size);
  write_header(json, *info);
  write_elements(json, *info);
  write_findings(json, *info);
  json << "],\"omitted\":{\"elements\":" << info->omitted_elements
       << ",\"findings\":" << info->omitted_findings << "}}";
  return json.end();
}
