// The command-line tool's reader, which cuts a stream into documents: compared with cutting the same bytes
// as one text in memory.
//
// Input: how the stream is cut, how it arrives (the sizes of the reads, where it breaks off), then the
// stream itself.
#include "harness.hpp"

#include <Varnel/Varnel.hpp>

#include "document_reader.hpp"

#include <algorithm>
#include <cstring>

namespace {

using fuzz::equal;
using fuzz::holds;
using varnel::cli::document_reader;
using varnel::cli::document_text;
using varnel::cli::split;

fuzz::behaviour whole_document("a whole input is a document");
fuzz::behaviour many_lines("an input has several lines");
fuzz::behaviour unfinished_line("an input's last line has no end");
fuzz::behaviour many_blocks("an input has several blocks");
fuzz::behaviour broken_off("an input cannot be read to its end");
fuzz::behaviour head_only("a document is longer than what counts of it");
fuzz::behaviour over_long("a document is too long to be one");
fuzz::behaviour accepted("a document of a stream is accepted");

struct stream {
  std::string bytes;
  std::vector<int> reads; // sizes of the reads, again and again
  bool breaks;            // the read after the last byte fails
  split how;
};

// Repeats one byte of the stream, so that lengths about the limits come up without inputs of that size.
// No million of line feeds: so many empty documents only take time.
void stretch(std::string &bytes, size_t at, size_t count) {
  if (!bytes.empty()) {
    at %= bytes.size();
    bytes.insert(at, bytes[at] == '\n' ? count % 4096 : count, bytes[at]);
  }
}

stream decode(const uint8_t *data, size_t size) {
  constexpr size_t LIMITS[] = {document_reader::COUNTED, document_reader::READ_SIZE,
                               document_reader::LONGEST};
  fuzz::input in(data, size);
  stream decoded;
  decoded.how = static_cast<split>(in.number(0, 2));
  decoded.breaks = in.number(0, 7) == 7;
  for (int i = in.number(0, 3); i > 0; --i) {
    decoded.reads.push_back(in.number(1, 64));
  }
  const size_t limit = 255 - static_cast<size_t>(in.byte()); // mostly none
  const size_t at = static_cast<size_t>(in.number(0, 65535));
  const size_t off = static_cast<size_t>(in.number(0, 8));
  decoded.bytes = in.rest();
  if (limit < std::size(LIMITS)) {
    stretch(decoded.bytes, at, LIMITS[limit] + off - 4);
  }
  return decoded;
}

struct expected_document {
  std::string text;
  uint64_t line;
};

bool is_blank(const std::string &line) { return line.find_first_not_of(" \t") == std::string::npos; }

bool is_utf16(const std::string &bytes) {
  return bytes.compare(0, 2, "\xFE\xFF") == 0 || bytes.compare(0, 2, "\xFF\xFE") == 0;
}

// The documents of a text, by plain cutting; the last one only when nothing broke it off.
std::vector<expected_document> cut(stream from) {
  std::vector<expected_document> documents;
  if (is_utf16(from.bytes)) {
    return documents;
  }
  if (from.bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) {
    from.bytes.erase(0, 3);
  }
  if (from.how == split::whole) {
    if (!from.breaks || from.bytes.size() >= document_reader::COUNTED) {
      documents.push_back({from.bytes, 1});
    }
    return documents;
  }
  bool block_open = false;
  size_t at = 0;
  for (uint64_t number = 1; at < from.bytes.size(); ++number) {
    const size_t end = from.bytes.find_first_of("\r\n", at);
    const bool complete = end != std::string::npos;
    const std::string line = from.bytes.substr(at, complete ? end - at : end);
    at = complete ? end + (from.bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1) : from.bytes.size();
    if (from.how == split::line) {
      if (complete || !from.breaks) {
        documents.push_back({line, number});
      }
    } else if (is_blank(line) && (complete || !from.breaks)) {
      block_open = false;
    } else if (!is_blank(line) && block_open) {
      documents.back().text += "\n" + line;
    } else if (!is_blank(line)) {
      documents.push_back({line, number});
      block_open = true;
    }
  }
  if (from.breaks && block_open) {
    documents.pop_back();
  }
  return documents;
}

document_reader::read_function arriving(const stream &from) {
  return [&from, at = size_t{0}, turn = size_t{0}](char *into, size_t room) mutable -> ptrdiff_t {
    holds(room > 0 && room <= document_reader::READ_SIZE, "a read has room, and no more than the most");
    if (at == from.bytes.size()) {
      return from.breaks ? -1 : 0;
    }
    size_t count = std::min(room, from.bytes.size() - at);
    if (!from.reads.empty() && from.bytes.size() < 65536) {
      count = std::min(count, static_cast<size_t>(from.reads[turn++ % from.reads.size()]));
    }
    std::memcpy(into, from.bytes.data() + at, count);
    at += count;
    return static_cast<ptrdiff_t>(count);
  };
}

// What is kept of a document gives the same answer as the whole of it.
void check_answer(const document_text &document, const std::string &whole) {
  const auto kept = varnel::parse_mrz(document.text);
  const auto full = varnel::parse_mrz(whole);
  equal("whether it is accepted", kept.has_value(), full.has_value());
  for (size_t i = 0; kept.has_value() && i < kept->size(); ++i) {
    equal("a value", std::string((*kept)[i].second), std::string((*full)[i].second));
  }
  accepted.seen(kept.has_value());
}

void check_documents(document_reader &reader, const stream &from) {
  const std::vector<expected_document> expected = cut(from);
  document_text document;
  size_t count = 0;
  for (; reader.next(document); ++count) {
    holds(count < expected.size(), "no document too many");
    const expected_document &plain = expected[count];
    const bool too_long = from.how != split::whole && plain.text.size() > document_reader::LONGEST;
    equal("its first line", static_cast<long long>(document.line), static_cast<long long>(plain.line));
    equal("whether it is too long", document.over_long, too_long);
    equal("its text", document.text,
          too_long ? std::string_view() : std::string_view(plain.text).substr(0, document_reader::COUNTED));
    if (!too_long) {
      check_answer(document, plain.text);
    }
    over_long.seen(too_long);
    head_only.seen(!too_long && plain.text.size() > document_reader::COUNTED);
  }
  equal("the number of documents", static_cast<long long>(count), static_cast<long long>(expected.size()));
  holds(!reader.next(document), "there is no document after the last");
  const bool utf16 = is_utf16(from.bytes);
  const bool unread = from.how == split::whole && count == 1;
  equal("whether it is UTF-16", reader.is_utf16(), utf16);
  equal("whether reading failed", reader.failed(), utf16 || (from.breaks && !unread));
  whole_document.seen(from.how == split::whole && count == 1 && !from.bytes.empty());
  many_lines.seen(from.how == split::line && count > 1);
  unfinished_line.seen(from.how == split::line && count > 0 && from.bytes.back() != '\n' &&
                       from.bytes.back() != '\r');
  many_blocks.seen(from.how == split::block && count > 1);
  broken_off.seen(reader.failed());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const stream from = decode(data, size);
  const std::unique_ptr<document_reader> reader(new document_reader(from.how));
  document_text document;
  holds(!reader->next(document), "a reader without an input has no document");
  reader->open(arriving(from));
  check_documents(*reader, from);

  // Left in the middle and opened anew, the reader has forgotten what was before.
  reader->open(arriving(from));
  reader->next(document);
  reader->open(arriving(from));
  check_documents(*reader, from);
  return 0;
}
