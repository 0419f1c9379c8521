#include "document_rows.hpp"

#include "colours.hpp"
#include "quoting.hpp"

namespace varnel::cli {

document_rows::document_rows(output &out, const arguments &asked)
    : document_rows(out, format_of(asked), asked.has("with-source"), wants_colour(STANDARD_OUTPUT)) {}

void document_rows::begin_header() { out_.put(with_source_ ? "document,file,line" : "document"); }

void document_rows::begin_object(const document &from) {
  if (!with_source_) {
    out_.put('{');
    return;
  }
  out_.put("{\"file\":\"");
  put_json_text(out_, from.file);
  out_.put("\",\"line\":");
  put_number(out_, from.line);
  out_.put(',');
}

void document_rows::object(const document &from, std::string_view json) {
  begin_object(from);
  out_.put(json.substr(1));
  out_.put('\n');
}

void document_rows::begin_row(const document &from) {
  put_number(out_, from.number);
  if (with_source_) {
    out_.put(',');
    put_csv_cell(out_, from.file);
    out_.put(',');
    put_number(out_, from.line);
  }
}

void document_rows::begin_table(const document &from) {
  if (from.number > 1) {
    out_.put('\n');
  }
  if (!from.title.empty()) {
    put_coloured(out_, coloured_, HEADING_COLOUR, from.title);
    out_.put('\n');
  }
}

void document_rows::table_row(std::string_view name, std::string_view value, std::size_t width) {
  put_coloured(out_, coloured_, NAME_COLOUR, name);
  for (std::size_t column = name.size(); !value.empty() && column < width + 2; ++column) {
    out_.put(' ');
  }
  out_.put(printable(value));
  out_.put('\n');
}

void document_rows::refused(const document &from, std::size_t cells) {
  switch (format_) {
  case format::json:
    if (with_source_) {
      begin_object(from);
      out_.put("\"refused\":true}\n");
    } else {
      out_.put("null\n");
    }
    break;
  case format::csv:
    begin_row(from);
    for (; cells > 0; --cells) {
      out_.put(',');
    }
    out_.put('\n');
    break;
  case format::table:
    begin_table(from);
    put_coloured(out_, coloured_, REFUSED_COLOUR, "refused");
    out_.put('\n');
    break;
  }
}

} // namespace varnel::cli
