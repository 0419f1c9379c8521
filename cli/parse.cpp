// varnel parse: documents in, twelve values out.
#include "commands.hpp"
#include "document_writer.hpp"
#include "documents.hpp"
#include "reasons.hpp"

namespace varnel::cli {

namespace {

class parse : public document_command {
public:
  parse(const arguments &asked, output &out)
      : writer_(out, document_rows(out, asked), asked.has(SLOTS_OPTION.name)), split_(split_of(asked)) {}

  void begin() override { writer_.begin(); }

  bool read(const document &from) override {
    const int length = varnel_utf16_length(from.text.data(), from.text.size());
    if (varnel_parse_mrz(from.text.data(), length, &result_, buffer_, sizeof buffer_) != ERR_OK) {
      writer_.refused(from);
      return false;
    }
    writer_.accepted(from, result_);
    return true;
  }

  void skip(const document &from) override { writer_.refused(from); }

  std::string reason(const document &from) override { return reason_of_refusal(from.text, split_); }

private:
  document_writer writer_;
  split split_;
  PARSE_RESULT result_ = {};
  char buffer_[VARNEL_BUFFER_SIZE] = {};
};

int run(const arguments &asked, output &out) {
  parse command(asked, out);
  return read_documents(asked, out, command, document_reader::COUNTED, reading::plain,
                        [&](output &other) { return std::make_unique<parse>(asked, other); });
}

} // namespace

const command PARSE_COMMAND = {
    "parse",
    "Read documents and print their twelve values",
    "FILE",
    "Files to read, each the text of one document; '-' or none: standard input",
    false,
    {EACH_OPTION, FORMAT_OPTION, JOBS_OPTION, SLOTS_OPTION, WITH_SOURCE_OPTION, VERBOSE_OPTION},
    "  varnel parse passport.txt              one document, a table on a terminal\n"
    "  varnel parse --each line < zones.txt   one document per line, JSON lines\n",
    run};

} // namespace varnel::cli
