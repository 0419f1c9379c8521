#include "plain_inspection.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <tuple>

namespace plain {

const std::map<string, known_state> &known_states() {
  static const std::map<string, known_state> states = [] {
    std::map<string, known_state> read;
    std::ifstream file(VARNEL_DOCUMENT_TESTS_DIR "/states.csv");
    string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
      std::istringstream cells(line);
      string code, alpha2, permitted, name;
      std::getline(cells, code, ';');
      std::getline(cells, alpha2, ';');
      std::getline(cells, permitted, ';');
      std::getline(cells, name);
      read[code] = {alpha2, permitted == "1", name};
    }
    if (read.empty()) {
      throw std::runtime_error("states.csv cannot be read");
    }
    return read;
  }();
  return states;
}

// ---- the text ---------------------------------------------------------------------------------------

struct letter {
  char c;
  size_t start;
  size_t end;
  bool dropped_before;
};

using letters = std::vector<letter>;

struct scalar {
  long value; // a code point, or -1 for a byte that is none
  size_t size;
};

static scalar decode(std::string_view text) {
  const auto byte = [text](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const unsigned lead = byte(0);
  if (lead < 0x80) {
    return {static_cast<long>(lead), 1};
  }
  const size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC0 || lead >= 0xF8) {
    return {-1, 1};
  }
  long value = lead & (0x7Fu >> size);
  for (size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0u) != 0x80) {
      return {-1, 1};
    }
    value = value * 64 + (byte(i) & 0x3Fu);
  }
  const long least = size == 2 ? 0x80 : size == 3 ? 0x800 : 0x10000;
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < least || value > 0x10FFFF || surrogate) {
    return {-1, 1};
  }
  return {value, size};
}

static bool is_in(long c, std::initializer_list<long> list) {
  return std::find(list.begin(), list.end(), c) != list.end();
}

bool ends_line(long c) { return is_in(c, {0x0A, 0x0B, 0x0C, 0x0D, 0x85, 0x2028, 0x2029}); }

bool is_white(long c) {
  return is_in(c, {0x09, 0x20, 0xA0, 0x1680, 0x202F, 0x205F, 0x3000}) || (c >= 0x2000 && c <= 0x200A);
}

// What a character is read as: "" for nothing.
string read_as(long c) {
  static const std::map<long, char> look_alikes = {
      {0x0410, 'A'}, {0x0412, 'B'}, {0x0421, 'C'}, {0x0415, 'E'}, {0x041D, 'H'}, {0x0406, 'I'}, {0x0408, 'J'},
      {0x041A, 'K'}, {0x041C, 'M'}, {0x041E, 'O'}, {0x0420, 'P'}, {0x0405, 'S'}, {0x0422, 'T'}, {0x0425, 'X'},
      {0x0423, 'Y'}, {0x0430, 'A'}, {0x0441, 'C'}, {0x0435, 'E'}, {0x0456, 'I'}, {0x0458, 'J'}, {0x043E, 'O'},
      {0x0440, 'P'}, {0x0455, 'S'}, {0x0445, 'X'}, {0x0443, 'Y'}, {0x0391, 'A'}, {0x0392, 'B'}, {0x0395, 'E'},
      {0x0396, 'Z'}, {0x0397, 'H'}, {0x0399, 'I'}, {0x039A, 'K'}, {0x039C, 'M'}, {0x039D, 'N'}, {0x039F, 'O'},
      {0x03A1, 'P'}, {0x03A4, 'T'}, {0x03A5, 'Y'}, {0x03A7, 'X'}};
  if (c >= 0xFF10 && c <= 0xFF5A) { // full-width forms
    c -= 0xFEE0;
    if (c == '<' || (c > '9' && c < 'A') || (c > 'Z' && c < 'a')) {
      return c == '<' ? "<" : "";
    }
  }
  if (c >= 'a' && c <= 'z') {
    c += 'A' - 'a';
  }
  if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '<') {
    return string(1, static_cast<char>(c));
  }
  if (is_in(c, {0x2039, 0x203A, 0x2264, 0x3008, 0x27E8, 0x2329})) {
    return "<";
  }
  if (is_in(c, {0xAB, 0xBB, 0x300A})) {
    return "<<";
  }
  const auto found = look_alikes.find(c);
  return found != look_alikes.end() ? string(1, found->second) : "";
}

// The lines of a text of which something is kept.
static std::vector<letters> clean(std::string_view text) {
  std::vector<letters> lines(1);
  bool dropped = false;
  for (size_t at = 0; at < text.size();) {
    scalar c = decode(text.substr(at));
    string kept;
    if (text.substr(at, 4) == "&lt;") {
      kept = "<";
      c.size = 4;
    } else if (ends_line(c.value)) {
      lines.emplace_back();
      dropped = false;
    } else {
      kept = read_as(c.value);
      const bool silent = is_white(c.value) || c.value == 0xFEFF;
      dropped = dropped || (kept.empty() && !silent);
    }
    for (const char k : kept) {
      lines.back().push_back({k, at, at + c.size, dropped});
      dropped = false;
    }
    at += c.size;
  }
  lines.erase(std::remove_if(lines.begin(), lines.end(), [](const letters &l) { return l.empty(); }),
              lines.end());
  return lines;
}

// ---- a zone -----------------------------------------------------------------------------------------

struct candidate {
  std::vector<letters> lines;
  size_t first_line; // of the text's lines that keep something
  size_t last_line;
};

static string text_of(const letters &line) {
  string text;
  for (const letter &l : line) {
    text += l.c;
  }
  return text;
}

static string layout_for(size_t lines, size_t width, const string &first) {
  const bool visa = first[0] == 'V';
  if (lines == 3 && width == 30) {
    return "TD1";
  }
  if (lines == 2 && width == 36) {
    return visa ? "MRV-B" : first.substr(0, 5) == "IDFRA" ? "FRA-ID" : "TD2";
  }
  if (lines == 2 && width == 44) {
    return visa ? "MRV-A" : "TD3";
  }
  return "";
}

std::vector<column_range> fields_of(const string &layout) {
  if (layout == "TD1") {
    return {{"documentCode", 0, 0, 2},    {"issuingState", 0, 2, 5},  {"documentNumber", 0, 5, 14},
            {"optionalData1", 0, 15, 30}, {"birthDate", 1, 0, 6},     {"sex", 1, 7, 8},
            {"expiryDate", 1, 8, 14},     {"nationality", 1, 15, 18}, {"optionalData2", 1, 18, 29},
            {"names", 2, 0, 30}};
  }
  if (layout == "FRA-ID") {
    return {{"documentCode", 0, 0, 2},       {"issuingState", 0, 2, 5},
            {"primaryIdentifier", 0, 5, 30}, {"officeCode", 0, 30, 36},
            {"documentNumber", 1, 0, 12},    {"secondaryIdentifier", 1, 13, 27},
            {"birthDate", 1, 27, 33},        {"sex", 1, 34, 35}};
  }
  const size_t width = layout == "TD3" || layout == "MRV-A" ? 44 : 36;
  std::vector<column_range> fields = {{"documentCode", 0, 0, 2},  {"issuingState", 0, 2, 5},
                                      {"names", 0, 5, width},     {"documentNumber", 1, 0, 9},
                                      {"nationality", 1, 10, 13}, {"birthDate", 1, 13, 19},
                                      {"sex", 1, 20, 21},         {"expiryDate", 1, 21, 27}};
  if (layout == "TD3") {
    fields.push_back({"personalNumber", 1, 28, 42});
  } else {
    fields.push_back({"optionalData", 1, 28, layout == "TD2" ? 35 : width});
  }
  return fields;
}

std::vector<digit_place> digits_of(const string &layout, const std::vector<string> &z) {
  if (layout == "TD1") {
    return {
        {"documentNumber", 0, 14, z[0].substr(5, 9)},
        {"birthDate", 1, 6, z[1].substr(0, 6)},
        {"expiryDate", 1, 14, z[1].substr(8, 6)},
        {"composite", 1, 29, z[0].substr(5) + z[1].substr(0, 7) + z[1].substr(8, 7) + z[1].substr(18, 11)}};
  }
  if (layout == "FRA-ID") {
    return {{"documentNumber", 1, 12, z[1].substr(0, 12)},
            {"birthDate", 1, 33, z[1].substr(27, 6)},
            {"composite", 1, 35, z[0] + z[1].substr(0, 35)}};
  }
  std::vector<digit_place> digits = {{"documentNumber", 1, 9, z[1].substr(0, 9)},
                                     {"birthDate", 1, 19, z[1].substr(13, 6)},
                                     {"expiryDate", 1, 27, z[1].substr(21, 6)}};
  const string dated = z[1].substr(0, 10) + z[1].substr(13, 7);
  if (layout == "TD3") {
    digits.push_back({"personalNumber", 1, 42, z[1].substr(28, 14)});
    digits.push_back({"composite", 1, 43, dated + z[1].substr(21, 22)});
  } else if (layout == "TD2") {
    digits.push_back({"composite", 1, 35, dated + z[1].substr(21, 14)});
  }
  return digits;
}

char check_digit(const string &covered) {
  int sum = 0;
  for (size_t i = 0; i < covered.size(); ++i) {
    const char c = covered[i];
    const int value = c == '<' ? 0 : c <= '9' ? c - '0' : c - 'A' + 10;
    sum += value * (i % 3 == 0 ? 7 : i % 3 == 1 ? 3 : 1);
  }
  return static_cast<char>('0' + sum % 10);
}

bool is_filled(const string &text) { return text.find_first_not_of('<') == string::npos; }

static bool is_digit(char c) { return c >= '0' && c <= '9'; }

static bool is_letter(char c) { return c >= 'A' && c <= 'Z'; }

static bool is_number(const string &text) { return std::all_of(text.begin(), text.end(), is_digit); }

// Fillers off the ends, inner runs one space.
static string words(const string &text) {
  string value;
  std::istringstream stream(text);
  string word;
  while (std::getline(stream, word, '<')) {
    if (!word.empty()) {
      value += (value.empty() ? "" : " ") + word;
    }
  }
  return value;
}

static bool exists(int year, int month, int day) {
  const std::vector<int> days = {
      31, year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30,
      31};
  return year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
         day <= days[static_cast<size_t>(month - 1)];
}

string padded(int number, size_t width) {
  const string digits = std::to_string(number);
  return string(width - std::min(width, digits.size()), '0') + digits;
}

class inspection {
public:
  inspection(candidate c, reference_date today) : candidate_(std::move(c)), today_(today) {
    for (const letters &line : candidate_.lines) {
      zone_.push_back(text_of(line));
    }
    layout_ = layout_for(zone_.size(), zone_[0].size(), zone_[0]);
    check();
    for (const column_range &range : fields_of(layout_)) {
      read(range);
    }
    find();
  }

  const candidate &place() const { return candidate_; }

  bool counts() const {
    for (const char *date : {"birthDate", "expiryDate"}) {
      if (fields_.contains(date) && fields_[date]["status"] == "ok") {
        return true;
      }
    }
    int holding = 0;
    for (const auto &[field, check] : checks_.items()) {
      const bool empty = fields_.contains(field) && fields_[field]["status"] == "empty";
      holding += check["holds"] == true && !empty ? 1 : 0;
    }
    if (holding >= 2) {
      return true;
    }
    const string first_letters = layout_ == "TD3" ? "P" : layout_.substr(0, 3) == "MRV" ? "V" : "ACI";
    bool filler = false;
    for (const column_range &range : fields_of(layout_)) {
      const bool names = range.field == "names" || range.field == "primaryIdentifier" ||
                         range.field == "secondaryIdentifier";
      filler = filler || (names && columns(range).find('<') != string::npos);
    }
    const auto state = known_states().find(words(zone_[0].substr(2, 3)));
    const bool listed =
        fields_["issuingState"]["status"] == "ok" && state != known_states().end() && state->second.permitted;
    return first_letters.find(zone_[0][0]) != string::npos && listed && filler;
  }

  // The greater, the better.
  std::tuple<double, int, int> score() const {
    int holding = 0;
    for (const auto &check : checks_) {
      holding += check["holds"] == true ? 1 : 0;
    }
    return {static_cast<double>(holding) / static_cast<double>(checks_.size()), holding,
            -static_cast<int>(findings_.size())};
  }

  json whole() const {
    json out = json::object();
    out["version"] = 1;
    out["date"] = padded(today_.year, 4) + "-" + padded(today_.month, 2) + "-" + padded(today_.day, 2);
    out["repair"] = "off";
    out["verdict"] = findings_.empty() ? "valid" : "doubtful";
    out["kind"] = layout_ == "TD3" ? "passport" : layout_.substr(0, 3) == "MRV" ? "visa" : "card";
    out["layout"] = layout_;
    out["zone"] = zone_;
    out["source"] = json::array();
    for (const letters &line : candidate_.lines) {
      out["source"].push_back({{"start", line.front().start}, {"end", line.back().end}});
    }
    out["fields"] = fields_;
    out["checks"] = checks_;
    out["changes"] = json::array();
    out["findings"] = findings_;
    out["notices"] = notices_;
    out["nearest"] = nullptr;
    out["expired"] = nullptr;
    if (fields_.contains("expiryDate") && fields_["expiryDate"]["status"] == "ok") {
      const string today = out["date"];
      out["expired"] = fields_["expiryDate"]["value"].get<string>() < today;
    }
    out["chipAccess"] = chip_access();
    return out;
  }

private:
  string columns(const column_range &r) const { return zone_[r.line].substr(r.start, r.end - r.start); }

  // ---- check digits

  void check() {
    checks_ = json::object();
    for (const digit_place &d : digits_of(layout_, zone_)) {
      const char found = zone_[d.line][d.column];
      const char expected = check_digit(d.covered);
      const bool holds =
          found == expected || (d.field != "composite" && found == '<' && is_filled(d.covered));
      put_check(d.field, d.line, d.column, found, expected, holds, nullptr);
    }
    composite_ = checks_.contains("composite") && checks_["composite"]["holds"] == true;
    check_long_number();
    if (layout_ == "TD3" && checks_["personalNumber"]["found"] == "<" &&
        checks_["personalNumber"]["expected"] == "0" && checks_["personalNumber"]["holds"] == false &&
        composite_) {
      checks_["personalNumber"]["holds"] = true;
      filler_digit_ = true;
    }
  }

  void put_check(const string &field, size_t line, size_t column, char found, char expected, bool holds,
                 const json &rule) {
    checks_[field] = {
        {"line", line},   {"column", column}, {"found", string(1, found)}, {"expected", string(1, expected)},
        {"holds", holds}, {"rule", rule}};
  }

  void check_long_number() {
    if ((layout_ != "TD1" && layout_ != "TD2") || !composite_) {
      return;
    }
    const size_t line = layout_ == "TD1" ? 0 : 1;
    const size_t start = layout_ == "TD1" ? 5 : 0;
    const size_t optional_start = layout_ == "TD1" ? 15 : 28;
    const size_t optional_end = layout_ == "TD1" ? 30 : 35;
    const string nine = zone_[line].substr(start, 9);
    string more = zone_[line].substr(optional_start, optional_end - optional_start);
    more = more.substr(0, more.find('<'));
    if (zone_[line][start + 9] != '<' || nine.find('<') != string::npos || more.size() < 2 ||
        !is_digit(more.back())) {
      return;
    }
    const char digit = more.back();
    const string continuation = more.substr(0, more.size() - 1);
    const bool plain = check_digit(nine + continuation) == digit;
    const bool filler = check_digit(nine + "<" + continuation) == digit;
    if (plain || filler) {
      put_check("documentNumber", line, optional_start + continuation.size(), digit, digit, true,
                plain ? "plain" : "filler");
      continuation_ = continuation;
    }
  }

  // ---- fields

  void read(column_range r) {
    if (r.field == "names") {
      const string all = columns(r);
      const size_t parting = std::min(all.find("<<"), all.size());
      const size_t after = std::min(parting + 2, all.size());
      read_name({"primaryIdentifier", r.line, r.start, r.start + parting}, all, "");
      read_name({"secondaryIdentifier", r.line, r.start + after, r.end}, all, "<<");
      return;
    }
    const string all = columns(r);
    if (r.field == "primaryIdentifier") {
      r.end = r.start + std::min(all.find("<<"), all.size());
      read_name(r, all, "");
    } else if (r.field == "secondaryIdentifier") {
      read_name(r, all, "");
    } else if (r.field == "documentCode") {
      read_code(r);
    } else if (r.field == "issuingState" || r.field == "nationality") {
      read_state(r);
    } else if (r.field == "birthDate") {
      read_birth(r);
    } else if (r.field == "expiryDate") {
      read_expiry(r);
    } else if (r.field == "sex") {
      read_sex(r);
    } else {
      read_number(r);
    }
  }

  // The field with all that fields share; a status of "ok" gives way to a digit that fails.
  json &put(const column_range &r, string status, const json &value) {
    const bool checked = checks_.contains(r.field);
    if (status == "ok" && checked && checks_[r.field]["holds"] == false) {
      status = "checkFailed";
    }
    const letters &line = candidate_.lines[r.line];
    const size_t start = r.start < line.size() ? line[r.start].start : line.back().end;
    const size_t end = r.start < r.end ? line[r.end - 1].end : start;
    string proof = "none";
    if (status == "ok" && checked) {
      proof = composite_ ? "digits" : "digit";
    } else if (status == "ok" && r.field.substr(0, 12) == "optionalData" && composite_) {
      proof = "composite";
    }
    fields_[r.field] = {{"text", columns(r)},
                        {"value", value},
                        {"line", r.line},
                        {"column", r.start},
                        {"source", {{"start", start}, {"end", end}}},
                        {"status", status},
                        {"proof", proof}};
    return fields_[r.field];
  }

  void notice(const string &code, const column_range &r) {
    notices_.push_back({{"code", code}, {"field", r.field}, {"line", r.line}, {"column", r.start}});
  }

  void read_code(const column_range &r) {
    const string text = columns(r);
    const bool good = is_letter(text[0]) && (is_letter(text[1]) || is_digit(text[1]) || text[1] == '<');
    json value = nullptr;
    string status = "badCharacters";
    if (good) {
      value = words(text);
      const string allowed = layout_ == "TD3" ? "P" : layout_.substr(0, 3) == "MRV" ? "V" : "ACI";
      const bool visa_letter = text == "AV" || text == "CV" || text == "IV";
      status = allowed.find(text[0]) != string::npos && !visa_letter ? "ok" : "unknown";
      if (is_digit(text[1])) {
        notice("digitInCode", r);
      }
      if ((layout_ == "TD1" && text == "AI") || (layout_ == "TD2" && text == "AC")) {
        notice("codeNotAllowed", r);
      }
    }
    static const std::map<string, string> meanings = {
        {"PP", "national / ordinary passport"},
        {"PE", "emergency passport"},
        {"PD", "diplomatic passport"},
        {"PO", "official / service passport"},
        {"PR", "refugee passport"},
        {"PT", "alien / non-citizen passport"},
        {"PS", "stateless passport"},
        {"PL", "laissez-passer"},
        {"PM", "military passport"},
        {"PU", "single-sheet emergency travel document (Part 8; not a passport book)"}};
    json &field = put(r, status, value);
    field["meaning"] = nullptr;
    if (layout_ == "TD3" && meanings.count(text) == 1) {
      field["meaning"] = meanings.at(text);
    } else if (layout_ == "TD1" && text == "AC") {
      field["meaning"] = "crew member certificate";
    }
  }

  void read_state(const column_range &r) {
    const string text = columns(r);
    const string code = text.substr(0, std::min(text.find('<'), text.size()));
    const bool letters_only = std::all_of(code.begin(), code.end(), is_letter);
    const bool fillers_after = is_filled(text.substr(code.size()));
    json value = nullptr;
    string status = "badCharacters";
    json name = nullptr;
    json alpha2 = nullptr;
    bool listed = false;
    if (is_filled(text)) {
      status = "empty";
    } else if (letters_only && fillers_after) {
      value = code;
      const auto state = known_states().find(code);
      if (state != known_states().end()) {
        name = state->second.name;
        alpha2 = state->second.alpha2.empty() ? json(nullptr) : json(state->second.alpha2);
        listed = state->second.permitted;
      }
      status = listed || code == "XXK" ? "ok" : "unknown";
      if (code == "XXK") {
        notice("codeNotListed", r);
      }
    }
    json &field = put(r, status, value);
    if (listed) {
      field["proof"] = "list";
    }
    field["name"] = name;
    field["alpha2"] = alpha2;
  }

  void read_name(const column_range &r, const string &all, const string &parting) {
    const string text = columns(r);
    const bool digits = std::any_of(text.begin(), text.end(), is_digit);
    const bool russian = layout_ == "TD3" && zone_[0].substr(0, 5) == "PNRUS";
    bool noise = false;
    if (r.field == "secondaryIdentifier") {
      const string run = parting + text;
      const size_t three = run.find("<<<");
      noise = three != string::npos && !is_filled(run.substr(three));
    }
    if (is_filled(text)) {
      put(r, "empty", nullptr);
    } else if ((digits && !russian) || noise) {
      put(r, "badCharacters", nullptr);
    } else {
      put(r, "ok", words(text));
      if (digits) {
        notice("nationalLetters", r);
      }
    }
    fields_[r.field]["truncated"] = is_letter(all.back());
  }

  void read_number(column_range r) {
    const bool shortened =
        !continuation_.empty() && (r.field == "optionalData1" || r.field == "optionalData");
    if (shortened) {
      r.start += continuation_.size() + 1;
    }
    string value = words(columns(r));
    const string status = value.empty() ? "empty" : "ok";
    if (r.field == "documentNumber") {
      value += continuation_;
    }
    put(r, status, value.empty() ? json(nullptr) : json(value));
    if (r.field == "personalNumber" && filler_digit_) {
      notice("fillerDigit", r);
    }
  }

  void put_date(const column_range &r, const string &status, const json &year, const json &month,
                const json &day) {
    json value = nullptr;
    if (status == "ok") {
      value = padded(year.get<int>(), 4) + "-" + (month.is_null() ? "XX" : padded(month.get<int>(), 2)) +
              "-" + (day.is_null() ? "XX" : padded(day.get<int>(), 2));
    }
    json &field = put(r, status, value);
    field["year"] = status == "ok" ? year : json(nullptr);
    field["month"] = status == "ok" ? month : json(nullptr);
    field["day"] = status == "ok" ? day : json(nullptr);
  }

  void read_birth(const column_range &r) {
    const string text = columns(r);
    const string year = text.substr(0, 2);
    const string month = text.substr(2, 2);
    const string day = text.substr(4, 2);
    if (text == "<<<<<<") {
      put_date(r, "empty", nullptr, nullptr, nullptr);
      return;
    }
    const bool whole = is_number(text);
    const bool no_day = is_number(year + month) && day == "<<";
    const bool no_month = is_number(year) && month == "<<" && day == "<<";
    if (!whole && !no_day && !no_month) {
      put_date(r, "badCharacters", nullptr, nullptr, nullptr);
      return;
    }
    const int m = no_month ? 1 : std::stoi(month);
    const int d = whole ? std::stoi(day) : 1;
    int y = today_.year + 100;
    while ((y % 100 + 100) % 100 != std::stoi(year) ||
           std::make_tuple(y, m, d) > std::make_tuple(today_.year, today_.month, today_.day)) {
      --y;
    }
    put_date(r, exists(y, m, d) ? "ok" : "notADate", y, no_month ? json(nullptr) : json(m),
             whole ? json(d) : json(nullptr));
  }

  void read_expiry(const column_range &r) {
    const string text = columns(r);
    if (text == "<<<<<<") {
      put_date(r, "empty", nullptr, nullptr, nullptr);
    } else if (!is_number(text)) {
      put_date(r, "badCharacters", nullptr, nullptr, nullptr);
    } else {
      int y = today_.year - 49;
      while ((y % 100 + 100) % 100 != std::stoi(text.substr(0, 2))) {
        ++y;
      }
      const int m = std::stoi(text.substr(2, 2));
      const int d = std::stoi(text.substr(4, 2));
      put_date(r, exists(y, m, d) ? "ok" : "notADate", y, m, d);
    }
  }

  void read_sex(const column_range &r) {
    const string text = columns(r);
    if (text == "M" || text == "F") {
      put(r, "ok", text);
    } else if (text == "<" || text == "X") {
      put(r, "ok", "X");
      if (text == "X") {
        notice("sexX", r);
      }
    } else {
      put(r, "badCharacters", nullptr);
    }
  }

  // ---- findings

  void find() {
    for (const auto &[name, field] : fields_.items()) {
      const auto add = [&, name = name, field = field](const string &code) {
        findings_.push_back(
            {{"code", code}, {"field", name}, {"line", field["line"]}, {"column", field["column"]}});
      };
      const string status = field["status"];
      const bool needed =
          name == "issuingState" || name == "nationality" || name == "documentNumber" ||
          (name == "primaryIdentifier" && fields_["secondaryIdentifier"]["status"] == "empty");
      if (status == "badCharacters" || status == "notADate" || status == "unknown" ||
          (status == "empty" && needed)) {
        add(status);
      }
      if (checks_.contains(name) && checks_[name]["holds"] == false) {
        add("checkFailed");
      }
      if (name == "expiryDate" && status == "ok" && fields_["birthDate"]["status"] == "ok" &&
          !fields_["birthDate"]["day"].is_null() &&
          field["value"].get<string>() < fields_["birthDate"]["value"].get<string>()) {
        add("datesOrder");
      }
    }
    if (checks_.contains("composite") && !composite_) {
      findings_.push_back({{"code", "checkFailed"},
                           {"field", "composite"},
                           {"line", checks_["composite"]["line"]},
                           {"column", checks_["composite"]["column"]}});
    }
    for (size_t i = 0; i < candidate_.lines.size(); ++i) {
      const letters &line = candidate_.lines[i];
      if (std::any_of(line.begin() + 1, line.end(), [](const letter &l) { return l.dropped_before; })) {
        notices_.push_back({{"code", "dropped"}, {"field", nullptr}, {"line", i}, {"column", nullptr}});
      }
    }
  }

  json chip_access() const {
    if (layout_ != "TD1" && layout_ != "TD2" && layout_ != "TD3") {
      return nullptr;
    }
    const string birth = fields_["birthDate"]["status"];
    if (fields_["documentNumber"]["status"] != "ok" || fields_["expiryDate"]["status"] != "ok" ||
        (birth != "ok" && birth != "empty") || checks_["birthDate"]["holds"] == false) {
      return nullptr;
    }
    const auto printed = [this](const char *field) {
      return fields_[field]["text"].get<string>() + (string(field) == "documentNumber" ? continuation_ : "") +
             checks_[field]["found"].get<string>();
    };
    return printed("documentNumber") + printed("birthDate") + printed("expiryDate");
  }

  candidate candidate_;
  reference_date today_;
  std::vector<string> zone_;
  string layout_;
  json fields_ = json::object();
  json checks_ = json::object();
  json findings_ = json::array();
  json notices_ = json::array();
  bool composite_ = false;
  bool filler_digit_ = false;
  string continuation_;
};

// ---- finding the zone -------------------------------------------------------------------------------

static std::vector<candidate> candidates(const std::vector<letters> &lines) {
  std::vector<candidate> found;
  for (size_t last = 0; last < lines.size(); ++last) {
    for (const auto &[count, width] : std::vector<std::pair<size_t, size_t>>{{3, 30}, {2, 36}, {2, 44}}) {
      const letters &line = lines[last];
      if (line.size() == count * width) {
        candidate run{{}, last, last};
        for (size_t i = 0; i < count; ++i) {
          const auto begin = line.begin() + static_cast<std::ptrdiff_t>(i * width);
          run.lines.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(width));
        }
        found.push_back(run);
      }
      if (last + 1 < count) {
        continue;
      }
      candidate window{{}, last + 1 - count, last};
      bool fits = true;
      for (size_t i = window.first_line; i <= last; ++i) {
        fits = fits && lines[i].size() == width;
        window.lines.push_back(lines[i]);
      }
      if (fits) {
        found.push_back(window);
      }
    }
  }
  return found;
}

static json refusal(const std::vector<letters> &lines, reference_date today) {
  json nearest = nullptr;
  size_t least = 1000;
  for (size_t last = 0; last < lines.size(); ++last) {
    for (const auto &[count, width] : std::vector<std::pair<size_t, size_t>>{{3, 30}, {2, 36}, {2, 44}}) {
      if (last + 1 < count) {
        continue;
      }
      size_t sum = 0;
      bool near = true;
      bool filler = false;
      json compared = json::array();
      for (size_t i = last + 1 - count; i <= last; ++i) {
        const size_t size = lines[i].size();
        const size_t difference = size > width ? size - width : width - size;
        near = near && difference <= 4;
        sum += difference;
        filler = filler || text_of(lines[i]).find('<') != string::npos;
        compared.push_back({{"expected", width}, {"found", size}});
      }
      if (near && filler && sum <= least) {
        least = sum;
        nearest = {{"layout", layout_for(count, width, text_of(lines[last + 1 - count]))},
                   {"lines", compared}};
      }
    }
  }
  json out = json::object();
  out["version"] = 1;
  out["date"] = padded(today.year, 4) + "-" + padded(today.month, 2) + "-" + padded(today.day, 2);
  out["repair"] = "off";
  out["verdict"] = "refused";
  out["kind"] = nullptr;
  out["layout"] = nullptr;
  out["zone"] = json::array();
  out["source"] = json::array();
  out["fields"] = json::object();
  out["checks"] = json::object();
  out["changes"] = json::array();
  out["findings"] = {{{"code", nearest.is_null() ? "noZone" : "length"},
                      {"field", nullptr},
                      {"line", nullptr},
                      {"column", nullptr}}};
  out["notices"] = json::array();
  out["nearest"] = nearest;
  out["expired"] = nullptr;
  out["chipAccess"] = nullptr;
  return out;
}

// All zones that do not overlap, the best first, in the order of the page.
std::vector<string> inspect_all(std::string_view text, reference_date today) {
  const std::vector<letters> lines = clean(text);
  std::vector<inspection> zones;
  for (const candidate &c : candidates(lines)) {
    inspection read(c, today);
    if (read.counts()) {
      zones.push_back(std::move(read));
    }
  }
  // Stable from the last: of equals the last on the page comes first.
  std::reverse(zones.begin(), zones.end());
  std::stable_sort(zones.begin(), zones.end(),
                   [](const inspection &a, const inspection &b) { return a.score() > b.score(); });
  std::map<size_t, string> taken;
  std::vector<bool> used(lines.size());
  for (const inspection &zone : zones) {
    bool free = true;
    for (size_t i = zone.place().first_line; i <= zone.place().last_line; ++i) {
      free = free && !used[i];
    }
    if (free) {
      std::fill(used.begin() + static_cast<std::ptrdiff_t>(zone.place().first_line),
                used.begin() + static_cast<std::ptrdiff_t>(zone.place().last_line + 1), true);
      taken[zone.place().first_line] = zone.whole().dump();
    }
  }
  std::vector<string> out;
  for (const auto &[first, zone] : taken) {
    out.push_back(zone);
  }
  return out;
}

string inspect(std::string_view text, reference_date today) {
  const std::vector<letters> lines = clean(text);
  std::optional<inspection> best;
  for (const candidate &c : candidates(lines)) {
    inspection read(c, today);
    if (read.counts() && (!best || read.score() >= best->score())) {
      best = std::move(read);
    }
  }
  return (best ? best->whole() : refusal(lines, today)).dump();
}

} // namespace plain
