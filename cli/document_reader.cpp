#include "document_reader.hpp"

#include "../src/mrz/layouts.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace varnel::cli {

namespace {

constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
constexpr std::string_view UTF16_MARKS[] = {"\xFE\xFF", "\xFF\xFE"};

bool begins_with(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// White space that is left of a line which is empty to the eye: the first two in plain text, in exact text
// all that Unicode has, and a byte order mark.
constexpr std::string_view WHITE_SPACE[] = {" ",
                                            "\t",
                                            "\v",
                                            "\f",
                                            "\xC2\x85",
                                            "\xC2\xA0",
                                            "\xE1\x9A\x80",
                                            "\xE2\x80\x80",
                                            "\xE2\x80\x81",
                                            "\xE2\x80\x82",
                                            "\xE2\x80\x83",
                                            "\xE2\x80\x84",
                                            "\xE2\x80\x85",
                                            "\xE2\x80\x86",
                                            "\xE2\x80\x87",
                                            "\xE2\x80\x88",
                                            "\xE2\x80\x89",
                                            "\xE2\x80\x8A",
                                            "\xE2\x80\xA8",
                                            "\xE2\x80\xA9",
                                            "\xE2\x80\xAF",
                                            "\xE2\x81\x9F",
                                            "\xE3\x80\x80",
                                            UTF8_MARK};
constexpr std::size_t PLAIN_WHITE_SPACE = 2;

// Lines of the layouts of ICAO Doc 9303, and whole zones on one line: how many of a width make a zone.
std::size_t lines_of_zone(std::size_t width) {
  for (const mrz::layout &layout : mrz::LAYOUTS) {
    if (width != 0 && width == static_cast<std::size_t>(layout.width)) {
      return static_cast<std::size_t>(layout.lines);
    }
    if (width != 0 && width == static_cast<std::size_t>(layout.length())) {
      return 1;
    }
  }
  return 0;
}

bool is_first_letter(char c) {
  return std::any_of(std::begin(mrz::LAYOUTS), std::end(mrz::LAYOUTS), [c](const mrz::layout &layout) {
    return std::string_view(layout.first_letters).find(c) != std::string_view::npos;
  });
}

// A first line of a zone: the letter of a document, and letters or fillers where the issuing state stands.
bool begins_a_zone(std::string_view line) {
  const std::string_view state = line.substr(zone::ISSUING_STATE.start, zone::ISSUING_STATE.length);
  return is_first_letter(line.front()) &&
         state.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ<") == std::string_view::npos;
}

bool is_accepted(std::string_view text) {
  PARSE_RESULT record;
  char buffer[VARNEL_BUFFER_SIZE];
  return varnel_parse_mrz(text.data(), static_cast<int>(text.size()), &record, buffer, sizeof buffer) ==
         ERR_OK;
}

} // namespace

void document_reader::open(read_function read) {
  read_ = std::move(read);
  at_start_ = true;
  ended_ = false;
  failed_ = false;
  utf16_ = false;
  from_ = to_ = feed_ = 0;
  after_cr_ = false;
  line_ = 1;
  zone_.clear();
  zone_lines_ = zone_width_ = 0;
  begun_.clear();
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
  case split::zone:
    return next_zone(document);
  }
  return false;
}

// Makes input available; false at the end of it or when it cannot be read.
bool document_reader::fill() {
  while (from_ == to_ && !ended_) {
    from_ = to_ = feed_ = 0;
    read_more();
    if (at_start_) {
      skip_byte_order_mark();
    }
    if (after_cr_ && from_ < to_) {
      after_cr_ = false;
      if (input_[from_] == '\n') {
        ++from_;
        if (exact_ && length_ > 0) {
          hold("\n");
        }
      }
    }
  }
  return from_ < to_;
}

// Reads on after what is there.
bool document_reader::read_more() {
  const std::ptrdiff_t count = read_(input_.data() + to_, input_.size() - to_);
  failed_ = count < 0;
  ended_ = count <= 0;
  to_ += ended_ ? 0 : static_cast<std::size_t>(count);
  feed_ = from_; // anew, if there is one
  return !ended_;
}

void document_reader::skip_byte_order_mark() {
  at_start_ = false;
  const auto text = [this] { return std::string_view(input_.data(), to_); };
  while (to_ < UTF8_MARK.size() && !ended_ && begins_with(UTF8_MARK, text())) {
    read_more();
  }
  while (to_ == 1 && !ended_ && (input_[0] == UTF16_MARKS[0][0] || input_[0] == UTF16_MARKS[1][0])) {
    read_more();
  }
  from_ = !exact_ && begins_with(text(), UTF8_MARK) ? UTF8_MARK.size() : 0;
  utf16_ = begins_with(text(), UTF16_MARKS[0]) || begins_with(text(), UTF16_MARKS[1]);
  if (utf16_) {
    failed_ = ended_ = true;
    to_ = 0;
  }
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
  in_place_ = {};
  blank_ = true;
  left_over_filler_ = false;
}

void document_reader::give(document_text &document, std::uint64_t length) const {
  document.line = first_line_;
  document.over_long = split_ != split::whole && length > LONGEST;
  const std::uint64_t counted = document.over_long ? 0 : std::min<std::uint64_t>(length, held_.size());
  const char *const text = in_place_.empty() ? held_.data() : in_place_.data();
  document.text = std::string_view(text, static_cast<std::size_t>(counted));
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

// Where the line that is being read ends, or to_ when it goes on.
std::size_t document_reader::line_end() {
  const auto find = [this](char c, std::size_t end) {
    const void *found = std::memchr(input_.data() + from_, c, end - from_);
    return found == nullptr ? end
                            : static_cast<std::size_t>(static_cast<const char *>(found) - input_.data());
  };
  if (feed_ <= from_ && input_[from_] != '\n') {
    feed_ = find('\n', to_);
  }
  const std::size_t end = find('\r', std::max(feed_, from_));
  return exact_ && split_ == split::block ? find('\f', find('\v', end)) : end;
}

// The line is blank until something other than white space stands in it. Its bytes come piece by piece.
void document_reader::look_for_text(std::string_view bytes) {
  const std::string_view *const end = exact_ ? std::end(WHITE_SPACE) : WHITE_SPACE + PLAIN_WHITE_SPACE;
  for (std::size_t i = 0; blank_ && i < bytes.size(); ++i) {
    begun_ += bytes[i];
    const std::string_view *const found = std::find_if(
        WHITE_SPACE, end, [&](std::string_view character) { return begins_with(character, begun_); });
    blank_ = found != end;
    if (!blank_ || found->size() == begun_.size()) {
      begun_.clear();
    }
  }
}

// Adds the rest of a line, without what ends it, to the document in hand. False when the input ends
// before the line does; what there was of it has been added then.
bool document_reader::take_line() {
  while (fill()) {
    const std::size_t end = line_end();
    const std::string_view bytes(input_.data() + from_, end - from_);
    if (split_ == split::block) {
      look_for_text(bytes);
    }
    if (split_ == split::zone) {
      keep(bytes);
    } else if (split_ == split::line && length_ == 0 && end < to_) {
      in_place_ = bytes;
      length_ = bytes.size();
    } else {
      hold(bytes);
    }
    from_ = end;
    if (end < to_) {
      const bool ends_page = input_[end] == '\v' || input_[end] == '\f'; // no line to an editor
      after_cr_ = input_[end] == '\r';
      ++from_;
      if (after_cr_ && from_ < to_) {
        after_cr_ = false;
        from_ += input_[from_] == '\n' ? 1 : 0;
      }
      line_ending_ = std::string_view(input_.data() + end, from_ - end);
      line_ += ends_page ? 0 : 1;
      return true;
    }
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
    blank_ = blank_ && begun_.empty();
    begun_.clear();
    if (!blank_) {
      block_length = length_;
      hold(complete && exact_ ? line_ending_ : "\n");
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

// Adds what counts for a zone to the line that is being read.
void document_reader::keep(std::string_view bytes) {
  char clean[257];
  while (!bytes.empty() && kept_.size() < held_.size()) {
    const std::string_view piece = bytes.substr(0, sizeof clean - 1);
    int length = 0;
    normalize_mrz(piece.data(), static_cast<int>(piece.size()), clean, sizeof clean, &length);
    kept_.append(clean, std::min(static_cast<std::size_t>(length), held_.size() - kept_.size()));
    bytes.remove_prefix(piece.size());
  }
}

// Adds lines to those that make no zone.
void document_reader::leave_over(std::string_view lines, std::uint64_t first) {
  if (length_ == 0) {
    first_line_ = first;
  } else {
    hold("\n");
  }
  hold(lines);
  left_over_filler_ = left_over_filler_ || lines.find('<') != std::string_view::npos;
}

// Gives the lines that make no zone when a filler is among them, and forgets them otherwise.
bool document_reader::give_left_over(document_text &document) {
  const bool given = left_over_filler_;
  if (given) {
    give(document, length_);
  }
  forget();
  return given;
}

bool document_reader::has_whole_zone() const {
  return zone_lines_ > 0 && zone_lines_ == lines_of_zone(zone_width_);
}

// When the zone before was damaged, one of its lines may stand with the first of the next.
bool document_reader::is_one_line_late() const {
  const std::size_t first_end = zone_.find('\n');
  return first_end != std::string::npos && begins_a_zone(std::string_view(zone_).substr(first_end + 1)) &&
         !is_accepted(zone_);
}

// The lines in hand become no zone after all.
void document_reader::give_zone_up() {
  if (zone_lines_ > 0) {
    leave_over(zone_, zone_line_);
    zone_.clear();
    zone_lines_ = 0;
  }
}

// Puts the line that was read with those of its width, or with those that make no zone.
void document_reader::sort_line(std::uint64_t number) {
  if (zone_width_ != kept_.size()) {
    give_zone_up();
  }
  const std::size_t needed = lines_of_zone(kept_.size());
  if (needed == 0 || (needed > 1 && zone_lines_ == 0 && !begins_a_zone(kept_))) {
    if (!kept_.empty()) {
      leave_over(kept_, number);
    }
    return;
  }
  zone_line_ = zone_lines_ == 0 ? number : zone_line_;
  zone_ += zone_lines_ == 0 ? "" : "\n";
  zone_ += kept_;
  zone_width_ = kept_.size();
  ++zone_lines_;
  if (has_whole_zone() && is_one_line_late()) {
    leave_over(std::string_view(zone_).substr(0, zone_width_), zone_line_);
    zone_.erase(0, zone_width_ + 1);
    zone_line_ = number + 2 - zone_lines_;
    --zone_lines_;
  }
}

void document_reader::give_zone(document_text &document) {
  first_line_ = zone_line_;
  hold(zone_);
  give(document, length_);
  zone_.clear();
  zone_lines_ = 0;
  forget();
}

bool document_reader::next_zone(document_text &document) {
  for (bool complete = true; complete;) {
    if (has_whole_zone()) {
      if (!give_left_over(document)) {
        give_zone(document);
      }
      return true;
    }
    kept_.clear();
    const std::uint64_t number = line_;
    complete = take_line();
    if (failed_) {
      return false;
    }
    sort_line(number);
    if (!has_whole_zone() && (kept_.empty() || !complete)) {
      give_zone_up();
      if (give_left_over(document)) {
        return true;
      }
    }
    complete = complete || has_whole_zone();
  }
  return false;
}

} // namespace varnel::cli
