#include "barcode_card.hpp"

#include <Varnel/Varnel.h>

#include "../ascii.hpp"
#include "issuers.hpp"

#include <string.h>

namespace {

constexpr char LF = '\n';
constexpr char CR = '\r';

constexpr int FILE_TYPE_LENGTH = 5;
constexpr int ISSUER_LENGTH = 6;
constexpr int VERSION_LENGTH = 2; // of the standard's version, the jurisdiction's and the number of entries
constexpr int DESIGNATOR_LENGTH = 10;
constexpr int INDICATOR_REACH =
    16;                         // the compliance indicator stands four bytes before the file type, or near
constexpr int OFFSET_REACH = 4; // a subfile stands so near to a wrong offset
constexpr int NOWHERE = -1;

constexpr bool is_separator(char c) { return c == LF || c == CR; }

// Control characters that may stand in a run of separators once it began.
constexpr bool is_control(char c) { return char_value(c) >= 0 && c < ' '; }

bool has_text(const barcode_card &card, int at, const char *capitals, int length) {
  if (card.size - at < length) {
    return false;
  }
  for (int i = 0; i < length; ++i) {
    if (ascii::to_upper(char_value(card.text[at + i])) != capitals[i]) {
      return false;
    }
  }
  return true;
}

bool has_small_letters(const barcode_card &card, int at, int length) {
  for (int i = 0; i < length; ++i) {
    if (ascii::is_lower(char_value(card.text[at + i]))) {
      return true;
    }
  }
  return false;
}

// The number that `length` digits make, or -1 where they are not all digits.
int number_at(const barcode_card &card, int at, int length) {
  if (card.size - at < length) {
    return -1;
  }
  int value = 0;
  for (int i = at; i < at + length; ++i) {
    if (!ascii::is_digit(char_value(card.text[i]))) {
      return -1;
    }
    value = value * 10 + (card.text[i] - '0');
  }
  return value;
}

// ---- the header -----------------------------------------------------------------------------------------

struct header {
  int base;        // what offsets are counted from: four bytes before the file type
  int designators; // where the first stands
  int count;       // how many there are
  int body;        // after the last
};

bool is_file_type(const barcode_card &card, int at) {
  const bool has_type =
      has_text(card, at, "ANSI ", FILE_TYPE_LENGTH) || has_text(card, at, "AAMVA", FILE_TYPE_LENGTH);
  return has_type && number_at(card, at + FILE_TYPE_LENGTH, ISSUER_LENGTH + VERSION_LENGTH) >= 0;
}

int find_file_type(const barcode_card &card) {
  for (int at = 0; at < card.size; ++at) {
    if ((card.text[at] == 'A' || card.text[at] == 'a') && is_file_type(card, at)) {
      return at;
    }
  }
  return NOWHERE;
}

int find_indicator(const barcode_card &card, int from, int file_type) {
  const int first = file_type - INDICATOR_REACH > from ? file_type - INDICATOR_REACH : from;
  for (int at = file_type - 1; at >= first; --at) {
    if (card.text[at] == '@') {
      return at;
    }
  }
  return NOWHERE;
}

// Where the text begins, after a byte order mark.
int after_byte_order_mark(barcode_card &card) {
  if (card.size < 3 || memcmp(card.text, "\xEF\xBB\xBF", 3) != 0) {
    return 0;
  }
  add_finding(card.info, VARNEL_BARCODE_BYTE_ORDER_MARK, 0);
  return 3;
}

void check_header_start(barcode_card &card, int file_type) {
  const int start = after_byte_order_mark(card);
  const int indicator = find_indicator(card, start, file_type);
  if (indicator == NOWHERE) {
    add_finding(card.info, VARNEL_BARCODE_INDICATOR_MISSING, file_type);
  }
  int text_end = indicator;
  if (indicator == NOWHERE) {
    text_end = file_type;
    while (text_end > start && is_control(card.text[text_end - 1])) {
      --text_end;
    }
  }
  if (text_end > start) {
    add_finding(card.info, VARNEL_BARCODE_TEXT_BEFORE, start);
  }
  const int controls = indicator == NOWHERE ? text_end : indicator + 1;
  if (file_type - controls != 3 || memcmp(card.text + controls, "\n\x1E\r", 3) != 0) {
    add_finding(card.info, VARNEL_BARCODE_HEADER_CONTROLS, controls);
  }
  if (!has_text(card, file_type, "ANSI ", FILE_TYPE_LENGTH)) {
    add_finding(card.info, VARNEL_BARCODE_FILE_TYPE, file_type);
  }
  if (has_small_letters(card, file_type, FILE_TYPE_LENGTH)) {
    add_finding(card.info, VARNEL_BARCODE_SMALL_LETTERS, file_type);
  }
}

// Type letters, then an offset that begins with a digit: single digits of real cards are misprinted.
bool is_designator(const barcode_card &card, int at) {
  if (card.size - at < DESIGNATOR_LENGTH || !ascii::is_digit(char_value(card.text[at + 2]))) {
    return false;
  }
  return has_text(card, at, "DL", 2) || has_text(card, at, "ID", 2) || has_text(card, at, "EN", 2) ||
         (has_text(card, at, "Z", 1) && ascii::is_alpha(char_value(card.text[at + 1])));
}

int find_designators(barcode_card &card, int version_end) {
  const bool has_version = card.info->version >= 2;
  const int without = version_end + VERSION_LENGTH;
  const int with = without + VERSION_LENGTH;
  const int expected = has_version ? with : without;
  if (is_designator(card, expected)) {
    return expected;
  }
  const int other = has_version ? without : with;
  if (is_designator(card, other)) {
    add_finding(card.info, has_version ? VARNEL_BARCODE_VERSION_MISSING : VARNEL_BARCODE_VERSION_EXTRA,
                version_end);
    return other;
  }
  return is_designator(card, version_end) ? version_end : NOWHERE;
}

void list_subfile(barcode_card &card, int designator) {
  char *type = card.info->subfiles[card.info->subfile_count++];
  type[0] = static_cast<char>(ascii::to_upper(char_value(card.text[designator])));
  type[1] = static_cast<char>(ascii::to_upper(char_value(card.text[designator + 1])));
  if (has_small_letters(card, designator, 2)) {
    add_finding(card.info, VARNEL_BARCODE_SMALL_LETTERS, designator, type);
  }
}

void list_subfiles(barcode_card &card, header &head, int version_end) {
  const int entries_at = head.designators - VERSION_LENGTH;
  const int entries = entries_at >= version_end ? number_at(card, entries_at, VERSION_LENGTH) : -1;
  while (head.count < VARNEL_BARCODE_SUBFILES && is_designator(card, head.body) &&
         (head.count < entries || number_at(card, head.body + 2, 8) >= 0)) {
    list_subfile(card, head.body);
    ++head.count;
    head.body += DESIGNATOR_LENGTH;
  }
  if (head.count != entries) {
    add_finding(card.info, VARNEL_BARCODE_ENTRIES, entries_at >= version_end ? entries_at : version_end);
  }
}

void read_issuer(barcode_card &card, int at) {
  card.issuer_at = at;
  memcpy(card.info->issuer, card.text + at, ISSUER_LENGTH);
  const issuer *found = issuer_of(number_at(card, at, ISSUER_LENGTH));
  if (found != nullptr) {
    memcpy(card.info->jurisdiction, found->jurisdiction, sizeof found->jurisdiction);
    memcpy(card.info->country, found->country, sizeof found->country);
  }
}

// Whether the header has designators, and so tells where its subfiles are.
bool read_header(barcode_card &card, int file_type, header &head) {
  check_header_start(card, file_type);
  const int issuer_at = file_type + FILE_TYPE_LENGTH;
  const int version_end = issuer_at + ISSUER_LENGTH + VERSION_LENGTH;
  read_issuer(card, issuer_at);
  card.info->version = static_cast<int16_t>(number_at(card, issuer_at + ISSUER_LENGTH, VERSION_LENGTH));
  use_table(card, card.info->version, number_at(card, issuer_at, ISSUER_LENGTH));
  head.base = file_type - 4;
  head.designators = find_designators(card, version_end);
  head.count = 0;
  head.body = head.designators;
  if (head.designators == NOWHERE) {
    return false;
  }
  list_subfiles(card, head, version_end);
  return head.count > 0;
}

// ---- where subfiles stand -------------------------------------------------------------------------------

struct subfile {
  int start;        // where its type letters stand, or its elements where it has none
  int elements;     // where its elements begin
  int declared;     // its declared start, be it outside the text, or NOWHERE
  int declared_end; // after its declared last byte, or NOWHERE
};

// Whether elements of this type follow at `at`, be it after separators.
bool elements_follow(const barcode_card &card, int at, const char *type) {
  while (at < card.size && is_separator(card.text[at])) {
    ++at;
  }
  return known_element_at(card, at, card.size, type);
}

bool is_at_line_start(const barcode_card &card, const header &head, int at) {
  return at == head.body || is_separator(card.text[at - 1]);
}

bool has_type_letters(const barcode_card &card, const header &head, int at, const char *type) {
  return at >= head.body && has_text(card, at, type, 2);
}

// 0, then 1, -1, 2, -2 and so on.
constexpr int step(int n) { return n % 2 == 0 ? -(n / 2) : (n + 1) / 2; }

int find_near_offset(const barcode_card &card, const header &head, const char *type, int declared) {
  // Letters after which no element is known; yet in a jurisdiction's subfile without type letters, those of
  // the first identifier look like them.
  if (has_type_letters(card, head, declared, type) && is_at_line_start(card, head, declared) &&
      !known_element_at(card, declared, card.size, type)) {
    return declared;
  }
  for (int n = 0; n <= 2 * OFFSET_REACH; ++n) {
    const int at = declared + step(n);
    if (has_type_letters(card, head, at, type) && elements_follow(card, at + 2, type)) {
      return at;
    }
  }
  return NOWHERE;
}

bool is_taken(const subfile *earlier, int count, int start) {
  for (int i = 0; i < count; ++i) {
    if (earlier[i].start == start) {
      return true;
    }
  }
  return false;
}

// The first such letters in the body that begin a line, an earlier designator's apart.
int find_in_body(const barcode_card &card, const header &head, const subfile *earlier, int count,
                 const char *type) {
  for (int at = head.body; at < card.size; ++at) {
    if (is_at_line_start(card, head, at) && has_text(card, at, type, 2) &&
        elements_follow(card, at + 2, type) && !is_taken(earlier, count, at)) {
      return at;
    }
  }
  return NOWHERE;
}

// Elements without type letters before them: at the body's start, or where the offset points.
int find_elements(const barcode_card &card, const header &head, int number, const char *type, int declared) {
  if (number == 0 && elements_follow(card, head.body, type)) {
    return head.body;
  }
  for (int n = 0; declared != NOWHERE && n <= 2 * OFFSET_REACH; ++n) {
    const int at = declared + step(n);
    if (at >= head.body && at < card.size && is_at_line_start(card, head, at) &&
        known_element_at(card, at, card.size, type) &&
        (type[0] != 'Z' || begins_with_type(identifier_at(card, at, card.size).key, type))) {
      return at;
    }
  }
  return NOWHERE;
}

void find_subfile(barcode_card &card, const header &head, subfile *subfiles, int number) {
  const char *type = card.info->subfiles[number];
  const int designator = head.designators + number * DESIGNATOR_LENGTH;
  const int offset = number_at(card, designator + 2, 4);
  const int length = number_at(card, designator + 6, 4);
  subfile &found = subfiles[number];
  found.declared = offset >= 0 ? head.base + offset : NOWHERE;
  found.declared_end = found.declared != NOWHERE && length > 2 ? found.declared + length : NOWHERE;
  found.start = find_near_offset(card, head, type, found.declared);
  if (found.start == NOWHERE) {
    found.start = find_in_body(card, head, subfiles, number, type);
  }
  if (found.start != NOWHERE) {
    found.elements = found.start + 2;
  } else {
    found.start = find_elements(card, head, number, type, found.declared);
    found.elements = found.start;
    if (found.start == NOWHERE) {
      add_finding(card.info, VARNEL_BARCODE_SUBFILE_MISSING, designator, type);
      return;
    }
    add_finding(card.info, VARNEL_BARCODE_TYPE_LETTERS, found.start, type);
  }
  if (found.start != found.declared) {
    add_finding(card.info, VARNEL_BARCODE_OFFSET, designator + 2, type);
  } else if (found.elements != found.start && has_small_letters(card, found.start, 2)) {
    add_finding(card.info, VARNEL_BARCODE_SMALL_LETTERS, found.start, type);
  }
}

// Where a subfile's elements end at the latest: where the next in the text starts, or at the text's end. One
// that starts within its type letters leaves it none.
int limit_of(const barcode_card &card, const subfile *subfiles, int count, const subfile &sub) {
  int limit = card.size;
  for (int i = 0; i < count; ++i) {
    if (subfiles[i].start > sub.start && subfiles[i].start < limit) {
      limit = subfiles[i].start;
    }
  }
  return limit > sub.elements ? limit : sub.elements;
}

// ---- lines ----------------------------------------------------------------------------------------------

int line_end(const barcode_card &card, int at, int limit) {
  const char *text = card.text;
  while (at < limit && (text[at] > CR || !is_separator(text[at]))) {
    ++at;
  }
  return at;
}

int skip_separators(const barcode_card &card, int at, int limit) {
  if (at < limit && is_separator(card.text[at])) {
    while (at < limit && is_control(card.text[at])) {
      ++at;
    }
  }
  return at;
}

bool is_text(const barcode_card &card, int start, int end, const char *text) {
  while (start < end && *text != '\0' && card.text[start] == *text) {
    ++start;
    ++text;
  }
  return start == end && *text == '\0';
}

// Separators between two elements: one LF.
void check_separator(barcode_card &card, int from, int to) {
  if (is_text(card, from, to, "\n")) {
    return;
  }
  const int code = is_text(card, from, to, "\r\n") ? VARNEL_BARCODE_LINE_FEED_ADDED
                   : is_text(card, from, to, "\r") ? VARNEL_BARCODE_CARRIAGE_RETURN
                                                   : VARNEL_BARCODE_SEPARATORS;
  add_finding(card.info, code, from);
}

// Separators after the last element: one CR.
void check_terminator(barcode_card &card, int from, int to, const char *type) {
  if (is_text(card, from, to, "\r")) {
    return;
  }
  const int code = from == to                        ? VARNEL_BARCODE_TERMINATOR
                   : is_text(card, from, to, "\r\n") ? VARNEL_BARCODE_LINE_FEED_ADDED
                   : is_text(card, from, to, "\n")   ? VARNEL_BARCODE_LINE_FEED
                                                     : VARNEL_BARCODE_SEPARATORS;
  add_finding(card.info, code, from, type);
}

// Whether the line is an element, which is then read.
bool read_line(barcode_card &card, int at, int end, const char *type) {
  const identifier found = identifier_at(card, at, end);
  if (found.key == 0 || (found.small && !known_element_at(card, at, end, type))) {
    return false;
  }
  if (found.small) {
    add_finding(card.info, VARNEL_BARCODE_SMALL_LETTERS, at, element_name(found.key).text);
  }
  read_element(card, found.key, at, at + 3, end);
  return true;
}

// Whether the subfile's declared last byte is a CR, as it should be.
bool has_declared_return(const barcode_card &card, const subfile &sub, int limit) {
  return sub.declared_end > sub.elements && sub.declared_end <= limit &&
         card.text[sub.declared_end - 1] == CR;
}

// Whether a CR stands for an LF in the subfile: where an element follows one, before the declared end unless
// that is wrong.
bool has_inner_return(const barcode_card &card, const subfile &sub, int limit, const char *type) {
  const int last = has_declared_return(card, sub, limit) ? sub.declared_end - 1 : limit;
  for (int at = sub.elements; at < last; ++at) {
    const void *found = memchr(card.text + at, CR, static_cast<size_t>(last - at));
    if (found == nullptr) {
      return false;
    }
    at = static_cast<int>(static_cast<const char *>(found) - card.text);
    if (known_element_at(card, skip_separators(card, at, limit), limit, type)) {
      return true;
    }
  }
  return false;
}

// Whether the subfile goes on at `next`, after a CR at `end`: with a known element that is not after the
// declared end, or, where CR stands for LF, with any other before it.
bool continues(const barcode_card &card, const subfile &sub, int end, int next, int limit,
               bool returns_separate, const char *type) {
  if (end + 1 == sub.declared_end) {
    return returns_separate && known_element_at(card, next, limit, type);
  }
  const identifier found = identifier_at(card, next, limit);
  return (returns_separate && found.key != 0 && !found.small) || known_element_at(card, next, limit, type);
}

// Reads lines up to the subfile's end and returns where it ended: after the CR, or where nothing followed.
int read_lines(barcode_card &card, const subfile &sub, int limit, bool terminated, const char *type) {
  int at = skip_separators(card, sub.elements, limit);
  if (at != sub.elements && at != limit) {
    add_finding(card.info, VARNEL_BARCODE_SEPARATORS, sub.elements, type);
  } else if (at == limit) {
    at = sub.elements; // no element at all
  }
  const bool returns_separate = has_inner_return(card, sub, limit, type);
  for (;;) {
    const int end = line_end(card, at, limit);
    const int next = skip_separators(card, end, limit);
    if (end > at && !read_line(card, at, end, type)) {
      add_finding(card.info, VARNEL_BARCODE_NO_ELEMENT, at);
    }
    if (next == limit) {
      if (terminated) {
        check_terminator(card, end, next, type);
      }
      return end < limit ? end + 1 : end;
    }
    if (card.text[end] == CR && !continues(card, sub, end, next, limit, returns_separate, type)) {
      check_terminator(card, end, next, type);
      add_finding(card.info, VARNEL_BARCODE_TEXT_AFTER, next, type);
      return end + 1;
    }
    check_separator(card, end, next);
    at = next;
  }
}

// ---- subfiles -------------------------------------------------------------------------------------------

// Whether the CR that ends the subfile came out as the letter M: only where its type letters stand at their
// offset, the declared last byte is that letter, and the text ends there or the next subfile begins.
bool has_printed_return(const barcode_card &card, const subfile &sub, int limit) {
  return sub.start == sub.declared && sub.elements != sub.start && sub.declared_end == limit &&
         card.text[limit - 1] == 'M';
}

// Whether another element may begin inside the line.
bool may_hold_several(const barcode_card &card, int start, int end, const char *type) {
  for (int at = start + 1; at + 3 <= end; ++at) {
    if (known_element_at(card, at, end, type)) {
      return true;
    }
  }
  return false;
}

void check_length(barcode_card &card, const subfile &sub, int designator, int end, const char *type) {
  const int start = sub.elements == sub.start ? sub.start - 2 : sub.start; // as if the letters stood there
  const int lost = end > sub.elements && !is_separator(card.text[end - 1]) ? 1 : 0; // the CR
  if (end + lost - start != number_at(card, designator + 6, 4)) {
    add_finding(card.info, VARNEL_BARCODE_LENGTH, designator + 6, type);
  }
}

// Elements in one line whose separators are lost: the declared length counts one byte for each, the CR of the
// last included.
bool read_one_line(barcode_card &card, const subfile &sub, int count, int end, const char *type) {
  add_finding(card.info, VARNEL_BARCODE_NO_SEPARATORS, sub.elements, type);
  return read_undivided(card, type, sub.elements, end, count);
}

// False where the subfile has no separators and cannot be divided.
bool read_subfile(barcode_card &card, const header &head, const subfile *subfiles, int number) {
  const subfile &sub = subfiles[number];
  const char *type = card.info->subfiles[number];
  const int designator = head.designators + number * DESIGNATOR_LENGTH;
  const int limit = limit_of(card, subfiles, head.count, sub);
  if (has_printed_return(card, sub, limit)) {
    add_finding(card.info, VARNEL_BARCODE_PRINTED_RETURN, limit - 1, type);
    read_lines(card, sub, limit - 1, false, type);
    return true;
  }
  const int end = line_end(card, sub.elements, limit);
  const bool one_line = end > sub.elements && skip_separators(card, end, limit) == limit;
  const int lost = number_at(card, designator + 6, 4) - (end - sub.elements) - 3; // of one element: none
  if (one_line && lost != 0 && may_hold_several(card, sub.elements, end, type)) {
    return read_one_line(card, sub, lost + 1, end, type);
  }
  check_length(card, sub, designator, read_lines(card, sub, limit, true, type), type);
  return true;
}

bool has_separators(const barcode_card &card, const header &head) {
  int end = card.size;
  while (end > head.body && is_separator(card.text[end - 1])) {
    --end;
  }
  return line_end(card, head.body, end) != end;
}

// Without any separator in the body, only the letters of a jurisdiction's subfile, written twice over, show
// where it begins: they must do so once.
void find_undivided_subfile(barcode_card &card, const header &head, subfile *subfiles, int number) {
  const char *type = card.info->subfiles[number];
  subfile &found = subfiles[number];
  found = subfile{NOWHERE, NOWHERE, NOWHERE, NOWHERE};
  int times = 0;
  for (int at = head.body + 2; at < card.size; ++at) {
    if (has_text(card, at, type, 2) && begins_with_type(identifier_at(card, at + 2, card.size).key, type)) {
      found.start = at;
      found.elements = at + 2;
      ++times;
    }
  }
  if (times != 1) {
    found.start = NOWHERE;
    add_finding(card.info, VARNEL_BARCODE_SUBFILE_MISSING, head.designators + number * DESIGNATOR_LENGTH,
                type);
  }
}

// The code of a refusal, or VARNEL_BARCODE_NO_FINDING.
int read_subfiles(barcode_card &card, const header &head) {
  subfile subfiles[VARNEL_BARCODE_SUBFILES];
  const bool separated = has_separators(card, head);
  bool found = false;
  for (int number = 0; number < head.count; ++number) {
    if (separated || number == 0) {
      find_subfile(card, head, subfiles, number);
    } else {
      find_undivided_subfile(card, head, subfiles, number);
    }
    found = found || subfiles[number].start != NOWHERE;
  }
  if (!found) {
    return VARNEL_BARCODE_NO_SUBFILE;
  }
  for (int number = 0; number < head.count; ++number) {
    if (subfiles[number].start != NOWHERE && !read_subfile(card, head, subfiles, number)) {
      return VARNEL_BARCODE_AMBIGUOUS;
    }
  }
  return VARNEL_BARCODE_NO_FINDING;
}

// ---- without a header -----------------------------------------------------------------------------------

bool is_main_type(const barcode_card &card, int at) {
  return has_text(card, at, "DL", 2) || has_text(card, at, "ID", 2) || has_text(card, at, "EN", 2);
}

// Lines of elements and nothing else, at least three with a value, the document number and a date among them.
int read_headless(barcode_card &card) {
  constexpr int fewest_elements = 3;
  int at = skip_separators(card, after_byte_order_mark(card), card.size);
  add_finding(card.info, VARNEL_BARCODE_NO_HEADER, at);
  use_table(card, NO_VERSION, 0);
  if (is_main_type(card, at) && known_element_at(card, at + 2, card.size, "")) {
    at += 2;
  }
  while (at < card.size) {
    const int end = line_end(card, at, card.size);
    if (!read_line(card, at, end, "")) {
      return VARNEL_BARCODE_REFUSED;
    }
    at = skip_separators(card, end, card.size);
  }
  const bool is_card = card.known_elements >= fewest_elements && card.date_count > 0 &&
                       utils_is_valid_field(card.record, FIELD_DOCUMENT_NUMBER) == ERR_OK;
  return is_card ? VARNEL_BARCODE_NO_FINDING : VARNEL_BARCODE_REFUSED;
}

// The code of a refusal, or VARNEL_BARCODE_NO_FINDING.
int read_text(barcode_card &card) {
  const int file_type = find_file_type(card);
  if (file_type == NOWHERE) {
    return read_headless(card);
  }
  header head;
  return read_header(card, file_type, head) ? read_subfiles(card, head) : VARNEL_BARCODE_NO_SUBFILE;
}

// Empties the record and leaves the reason as the last finding, in place of another where there is no room.
int refuse(barcode_card &card, int reason) {
  result_clear(card.record);
  varnel_barcode_info *info = card.info;
  if (reason == VARNEL_BARCODE_REFUSED) {
    info->finding_count = 0;
    info->element_count = 0;
    info->omitted_findings = 0;
    info->omitted_elements = 0;
  } else if (info->finding_count == VARNEL_BARCODE_FINDINGS_MAX) {
    --info->finding_count;
    ++info->omitted_findings;
  }
  add_finding(info, reason, card.size);
  return ERR_INVALID_FORMAT;
}

} // namespace

int varnel_barcode(const char *text, size_t size, PARSE_RESULT *record, char *buffer, int buffer_size,
                   varnel_barcode_info *info) {
  if ((text == nullptr && size > 0) || size > VARNEL_BARCODE_TEXT_MAX || info == nullptr ||
      result_init(record, buffer, buffer_size) != ERR_OK) {
    return ERR_INVALID_ARGS;
  }
  memset(info, 0, sizeof *info);
  info->version = NO_VERSION;
  barcode_card card = {};
  card.text = text;
  card.size = static_cast<int>(size);
  card.record = record;
  card.info = info;
  card.has_room = true;
  const int reason = read_text(card);
  if (reason != VARNEL_BARCODE_NO_FINDING && card.has_room) {
    return refuse(card, reason);
  }
  complete(card);
  if (!card.has_room) {
    result_clear(record);
    return ERR_INVALID_ARGS;
  }
  record->parser_type = PARSER_TYPE_AamvaPDF417;
  return ERR_OK;
}
