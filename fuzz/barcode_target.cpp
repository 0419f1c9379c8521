// Barcodes of driver's licences: any bytes, in memory of exactly their size and a buffer that is always
// enough.
#include "harness.hpp"

#include <Varnel/documents/barcode.h>

namespace {

using fuzz::equal;
using fuzz::holds;
using fuzz::memory;

fuzz::behaviour read_with_header("a card with a header is read");
fuzz::behaviour read_without_header("elements without a header are read");
fuzz::behaviour read_undivided("a card without separators is read");
fuzz::behaviour refused_as_no_barcode("a text is refused as no barcode");
fuzz::behaviour refused_without_subfile("a header is refused for its subfiles");
fuzz::behaviour refused_as_ambiguous("a card without separators is refused");
fuzz::behaviour value_left_out("a date is left out");
fuzz::behaviour element_kept("an element without a slot is kept");
fuzz::behaviour buffer_too_small("a buffer is too small");

struct answer {
  explicit answer(std::string_view bytes, int room, unsigned char junk)
      : text(bytes), buffer(room, junk), record_block(sizeof(PARSE_RESULT), junk),
        info_block(sizeof(varnel_barcode_info), junk) {
    status = varnel_barcode(text.data(), bytes.size(), &record(), buffer.data(), room, &info());
  }

  PARSE_RESULT &record() { return *reinterpret_cast<PARSE_RESULT *>(record_block.data()); }
  varnel_barcode_info &info() { return *reinterpret_cast<varnel_barcode_info *>(info_block.data()); }

  memory text;
  memory buffer;
  memory record_block;
  memory info_block;
  int status = 0;
};

bool has_finding(const varnel_barcode_info &info, int code) {
  for (int i = 0; i < info.finding_count; ++i) {
    if (info.findings[i].code == code) {
      return true;
    }
  }
  return false;
}

std::string json_of(const varnel_barcode_info &info) {
  memory out(varnel_barcode_info_json(&info, nullptr, 0) + 1);
  equal("the length of the JSON",
        varnel_barcode_info_json(&info, out.data(), static_cast<size_t>(out.size())), out.size() - 1);
  holds(out.intact(), "nothing is written outside the JSON");
  return std::string(out.text());
}

void check_info(const varnel_barcode_info &info, size_t size) {
  holds(info.subfile_count <= VARNEL_BARCODE_SUBFILES, "subfiles have room");
  holds(info.element_count <= VARNEL_BARCODE_ELEMENTS, "elements have room");
  holds(info.finding_count <= VARNEL_BARCODE_FINDINGS_MAX, "findings have room");
  for (int i = 0; i < info.element_count; ++i) {
    const varnel_barcode_element &element = info.elements[i];
    holds(element.start <= element.end && element.end <= size, "an element lies in the text");
  }
  for (int i = 0; i < info.finding_count; ++i) {
    holds(info.findings[i].offset <= size, "a finding lies in the text");
    holds(info.findings[i].code > VARNEL_BARCODE_NO_FINDING &&
              info.findings[i].code < VARNEL_BARCODE_FINDING_END,
          "a finding has a code");
    holds(i == 0 || info.findings[i - 1].offset <= info.findings[i].offset ||
              info.findings[i].code >= VARNEL_BARCODE_REFUSED,
          "findings stand in the order of the text");
  }
}

void check_record(answer &given) {
  PARSE_RESULT &record = given.record();
  holds(record.data_size >= 0 && record.data_size <= record.buffer_size, "the buffer's bounds hold");
  for (int slot = 0; slot < FIELD_COUNT; ++slot) {
    const STRING value = record.fields[slot].value;
    if (value.len < 1) {
      continue;
    }
    holds(value.str >= given.buffer.data() && value.str + value.len < given.buffer.data() + record.data_size,
          "a slot lies in the buffer, with its NUL");
    equal("a slot's length", varnel_value(&record, slot).len, value.len);
  }
}

void see(const varnel_barcode_info &info, int status) {
  read_with_header.seen(status == ERR_OK && info.version >= 0);
  read_without_header.seen(status == ERR_OK && info.version < 0);
  read_undivided.seen(status == ERR_OK && has_finding(info, VARNEL_BARCODE_NO_SEPARATORS));
  refused_as_no_barcode.seen(has_finding(info, VARNEL_BARCODE_REFUSED));
  refused_without_subfile.seen(has_finding(info, VARNEL_BARCODE_NO_SUBFILE));
  refused_as_ambiguous.seen(has_finding(info, VARNEL_BARCODE_AMBIGUOUS));
  value_left_out.seen(has_finding(info, VARNEL_BARCODE_BAD_DATE));
  element_kept.seen(info.element_count > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > VARNEL_BARCODE_TEXT_MAX) {
    return 0;
  }
  const std::string_view text(reinterpret_cast<const char *>(data), size);
  const int room = static_cast<int>(VARNEL_BARCODE_BUFFER_SIZE(size));
  answer given(text, room, 0xA5);
  const varnel_barcode_info &info = given.info();
  holds(given.status == ERR_OK || given.status == ERR_INVALID_FORMAT, "the buffer is always enough");
  holds(given.status == ERR_OK ||
            (info.finding_count > 0 && info.findings[info.finding_count - 1].code >= VARNEL_BARCODE_REFUSED),
        "a refusal has its reason");
  check_record(given);
  check_info(info, size);
  see(info, given.status);
  holds(given.buffer.intact() && given.record_block.intact() && given.info_block.intact(),
        "nothing is written outside the lent memory");
  equal("the text", std::string(given.text.text()), std::string(text));

  answer again(text, room, 0x5A);
  equal("the second answer", again.status, given.status);
  equal("the second buffer", std::string(again.buffer.text()), std::string(given.buffer.text()));
  equal("the second info", json_of(again.info()), json_of(info));

  // A smaller buffer holds the same values or none.
  const int smaller = 1 + static_cast<int>(size == 0 ? 0 : data[0] % size);
  answer cramped(text, smaller, 0xA5);
  for (int slot = 0; slot < FIELD_COUNT && cramped.status != ERR_OK; ++slot) {
    equal("a slot without room", varnel_value(&cramped.record(), slot).len, 0);
  }
  holds(cramped.status != ERR_OK || given.status == ERR_OK, "less room makes no barcode");
  for (int slot = 0; slot < FIELD_COUNT && cramped.status == ERR_OK; ++slot) {
    equal("a slot with less room", varnel_value(&cramped.record(), slot).len,
          varnel_value(&given.record(), slot).len);
  }
  buffer_too_small.seen(cramped.status == ERR_INVALID_ARGS);
  holds(cramped.buffer.intact(), "nothing is written outside the smaller buffer");
  return 0;
}
