// varnel barcode: barcodes of driver's licences in, the same twelve values out.
#include "commands.hpp"
#include "complaints.hpp"
#include "document_writer.hpp"
#include "documents.hpp"

#include <Varnel/documents/barcode.h>

#include <vector>

namespace varnel::cli {

namespace {

constexpr option INFO_OPTION = {
    "info", "",
    "Add the version, the issuer, elements without a slot and findings; as JSON,\n"
    "also on a terminal"};

// A finding in words; the last one of a refused text is its reason.
std::string reason_in_words(int code) {
  switch (code) {
#define VARNEL_CLI_FINDING(constant, name, meaning)                                                          \
  case constant:                                                                                             \
    return meaning;
    VARNEL_BARCODE_FINDINGS(VARNEL_CLI_FINDING)
#undef VARNEL_CLI_FINDING
  default:
    return "";
  }
}

class barcode : public document_command {
public:
  barcode(const arguments &asked, output &out)
      : writer_(out, document_rows(out, asked), asked.has(SLOTS_OPTION.name)),
        with_info_(asked.has(INFO_OPTION.name)) {}

  void begin() override { writer_.begin(); }

  bool read(const document &from) override {
    const int status = varnel_barcode(from.text.data(), from.text.size(), &result_, buffer_.data(),
                                      static_cast<int>(buffer_.size()), &info_);
    if (status != ERR_OK) {
      writer_.refused(from);
      return false;
    }
    writer_.accepted(from, result_, with_info_ ? ",\"info\":" + info_in_json() : "");
    return true;
  }

  void skip(const document &from) override { writer_.refused(from); }

  std::string reason(const document &from) override {
    if (from.text.size() > VARNEL_BARCODE_TEXT_MAX) {
      return "not a licence's barcode: longer than 64 KiB";
    }
    return "not a licence's barcode: " + reason_in_words(info_.findings[info_.finding_count - 1].code);
  }

private:
  std::string info_in_json() const {
    std::string json(static_cast<std::size_t>(varnel_barcode_info_json(&info_, nullptr, 0)) + 1, '\0');
    varnel_barcode_info_json(&info_, json.data(), json.size());
    json.pop_back();
    return json;
  }

  document_writer writer_;
  bool with_info_;
  PARSE_RESULT result_ = {};
  varnel_barcode_info info_ = {};
  std::vector<char> buffer_ = std::vector<char>(VARNEL_BARCODE_BUFFER_SIZE(VARNEL_BARCODE_TEXT_MAX));
};

int run(const arguments &asked, output &out) {
  arguments how = asked;
  if (asked.has(INFO_OPTION.name)) {
    if (asked.has(FORMAT_OPTION.name) && format_of(asked) != format::json) {
      return complain_of_usage("--info is written as JSON only: it does not go with --format " +
                               std::string(asked.value(FORMAT_OPTION.name)));
    }
    how.set(FORMAT_OPTION.name, "json"); // also on a terminal
  }
  barcode command(how, out);
  // One byte more than can be read, so that a longer text is seen to be too long.
  return read_documents(how, out, command, VARNEL_BARCODE_TEXT_MAX + 1, reading::exact);
}

} // namespace

const command BARCODE_COMMAND = {"barcode",
                                 "Read barcodes of driver's licences and print the same twelve values",
                                 "FILE",
                                 "Files to read, each the text of one barcode; '-' or none: standard input",
                                 false,
                                 {FORMAT_OPTION, SLOTS_OPTION, INFO_OPTION, WITH_SOURCE_OPTION},
                                 "  varnel barcode licence.txt             a driver's licence, AAMVA DL/ID\n",
                                 run};

} // namespace varnel::cli
