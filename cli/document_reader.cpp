#include "document_reader.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace varnel::cli {

namespace {

bool is_blank(std::string_view bytes) { return bytes.find_first_not_of(" \t\r") == std::string_view::npos; }

} // namespace

void document_reader::open(read_function read) {
  read_ = std::move(read);
  ended_ = false;
  failed_ = false;
  from_ = to_ = 0;
  line_ = 1;
  forget();
}

bool document_reader::next(document_text &document) {
  switch (split_) {
  case split::whole:
    return next_whole(document);
  case split::line:
    return next_line(document);
  case split::block:
    return next_block(document);
  }
  return false;
}

// Makes input available; false at the end of it or when it cannot be read.
bool document_reader::fill() {
  if (from_ < to_) {
    return true;
  }
  if (ended_) {
    return false;
  }
  const std::ptrdiff_t count = read_(input_.data(), input_.size());
  failed_ = count < 0;
  ended_ = count <= 0;
  from_ = 0;
  to_ = ended_ ? 0 : static_cast<std::size_t>(count);
  return !ended_;
}

// Only the head of a document is kept; of the rest nothing but its length matters.
void document_reader::hold(std::string_view bytes) {
  if (length_ < held_.size()) {
    const std::size_t held = static_cast<std::size_t>(length_);
    std::memcpy(held_.data() + held, bytes.data(), std::min(bytes.size(), held_.size() - held));
  }
  length_ += bytes.size();
}

void document_reader::forget() {
  first_line_ = line_;
  length_ = 0;
  blank_ = true;
}

void document_reader::give(document_text &document, std::uint64_t length) const {
  document.line = first_line_;
  document.over_long = split_ != split::whole && length > LONGEST;
  const std::uint64_t counted = document.over_long ? 0 : std::min<std::uint64_t>(length, held_.size());
  document.text = std::string_view(held_.data(), static_cast<std::size_t>(counted));
}

// What follows the bytes that count is not read at all.
bool document_reader::next_whole(document_text &document) {
  if (ended_) {
    return false;
  }
  while (length_ < held_.size() && fill()) {
    hold(std::string_view(input_.data() + from_, to_ - from_));
    from_ = to_;
  }
  ended_ = true;
  give(document, length_);
  return !failed_;
}

// Adds the rest of a line, without its line feed, to the document in hand. False when the input ends
// before the line does; what there was of it has been added then.
bool document_reader::take_line() {
  while (fill()) {
    const char *begin = input_.data() + from_;
    const std::size_t size = to_ - from_;
    const void *feed = std::memchr(begin, '\n', size);
    const std::size_t taken =
        feed != nullptr ? static_cast<std::size_t>(static_cast<const char *>(feed) - begin) : size;
    const std::string_view bytes(begin, taken);
    if (split_ == split::block && blank_) {
      blank_ = is_blank(bytes);
    }
    hold(bytes);
    if (feed != nullptr) {
      from_ += taken + 1;
      ++line_;
      return true;
    }
    from_ = to_;
  }
  return false;
}

bool document_reader::next_line(document_text &document) {
  forget();
  const bool complete = take_line();
  if (failed_ || (!complete && length_ == 0)) {
    return false;
  }
  give(document, length_);
  return true;
}

bool document_reader::next_block(document_text &document) {
  forget();
  std::uint64_t block_length = 0; // to the end of its last line that is not blank
  for (bool complete = true; complete;) {
    complete = take_line();
    if (!blank_) {
      block_length = length_;
      hold("\n");
      blank_ = true;
    } else if (block_length == 0) {
      forget();
    } else {
      break;
    }
  }
  if (failed_ || block_length == 0) {
    return false;
  }
  give(document, block_length);
  return true;
}

} // namespace varnel::cli
