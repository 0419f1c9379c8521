// A second inspection, written as plainly as can be: strings, maps and a JSON library, no thought of speed.
// The tests compare the library with it, character by character of the JSON. It shares no code and no table
// with the library: its columns and states are its own.
#ifndef VARNEL_TESTS_DOCUMENTS_PLAIN_INSPECTION_HPP
#define VARNEL_TESTS_DOCUMENTS_PLAIN_INSPECTION_HPP

#include <nlohmann/json_fwd.hpp>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace plain {

using json = nlohmann::ordered_json;
using std::string;

struct reference_date {
  int year;
  int month;
  int day;
};

// The JSON of the best zone of a text, or of its refusal.
string inspect(std::string_view text, reference_date today);

// The JSON of every zone of a text, in the order of the page.
std::vector<string> inspect_all(std::string_view text, reference_date today);

// ---- its parts --------------------------------------------------------------------------------------

struct known_state {
  string alpha2;
  bool permitted;
  string name;
};

const std::map<string, known_state> &known_states(); // by code

// Of a code point: whether it ends a line, whether it is white space, and what it is read as: "" for nothing.
bool ends_line(long c);
bool is_white(long c);
string read_as(long c);

struct column_range {
  string field;
  size_t line;
  size_t start;
  size_t end; // after the last
};

std::vector<column_range> fields_of(const string &layout);

struct digit_place {
  string field;
  size_t line;
  size_t column;
  string covered;
};

std::vector<digit_place> digits_of(const string &layout, const std::vector<string> &z);

char check_digit(const string &covered);
bool is_filled(const string &text); // with nothing but fillers
string padded(int number, size_t width);

} // namespace plain

#endif
