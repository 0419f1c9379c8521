// varnel element and varnel soundex: small questions to the utility module. The one place that knows
// nlohmann/json.
#include "commands.hpp"
#include "slots.hpp"
#include "suggestion.hpp"

#include <nlohmann/json.hpp>

#include <unistd.h>

namespace varnel::cli {

namespace {

using nlohmann::ordered_json;

struct element_table {
  const char *name;
  const MAPPING *rows;
  int size;
};

const element_table TABLES[] = {
    {"MAP_AAMVA_2D01", MAP_AAMVA_2D01, MAP_AAMVA_2D01_SIZE},
    {"MAP_AAMVA_2D03", MAP_AAMVA_2D03, MAP_AAMVA_2D03_SIZE},
    {"MAP_AAMVA_2D06", MAP_AAMVA_2D06, MAP_AAMVA_2D06_SIZE},
    {"MAP_AAMVA_2D04_HAWAII", MAP_AAMVA_2D04_HAWAII, MAP_AAMVA_2D04_HAWAII_SIZE},
    {"MAP_AAMVA_2D08", MAP_AAMVA_2D08, MAP_AAMVA_2D08_SIZE},
};

format chosen_format(const options &asked) {
  return asked.how.value_or(isatty(STDOUT_FILENO) == 1 ? format::table : format::json);
}

void put_json(output &out, const ordered_json &object) {
  // A name goes on behind the letters that make its code, in bytes that need not be UTF-8.
  out.put(object.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
  out.put('\n');
}

// ---- rows of text, aligned once all of them are known -----------------------------------------------

using row = std::vector<std::string>;

std::size_t column_width(const std::vector<row> &rows, std::size_t column) {
  std::size_t width = 0;
  for (const row &cells : rows) {
    width = std::max(width, cells[column].size());
  }
  return width;
}

void put_table(output &out, const std::vector<row> &rows) {
  const bool coloured = wants_colour(STDOUT_FILENO);
  for (const row &cells : rows) {
    const bool heading = coloured && &cells == &rows.front();
    std::string line;
    for (std::size_t column = 0; column < cells.size(); ++column) {
      line += cells[column];
      if (column + 1 < cells.size()) {
        line.append(column_width(rows, column) + 2 - cells[column].size(), ' ');
      }
    }
    out.put(heading ? "\033[1m" : "");
    out.put(line);
    out.put(heading ? "\033[0m\n" : "\n");
  }
}

std::string csv_cell(const std::string &text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted.append(c == '"' ? 2 : 1, c);
  }
  return quoted + '"';
}

void put_csv(output &out, const std::vector<row> &rows) {
  for (const row &cells : rows) {
    for (std::size_t column = 0; column < cells.size(); ++column) {
      out.put(column > 0 ? "," : "");
      out.put(csv_cell(cells[column]));
    }
    out.put('\n');
  }
}

// ---- elements ---------------------------------------------------------------------------------------

int element_key(const std::string &id) {
  const auto byte = [&](std::size_t i) { return static_cast<int>(static_cast<unsigned char>(id[i])); };
  return (byte(0) << 16) + (byte(1) << 8) + byte(2);
}

// The slots of an element in one table, in row order: none, one or two.
std::vector<int> slots_of(const std::string &id, const element_table &table) {
  std::vector<int> slots;
  int at = 0;
  for (int slot;
       id.size() == 3 && (slot = utils_barcode2fieldtype(element_key(id), table.rows, table.size, &at)) >= 0;
       ++at) {
    slots.push_back(slot);
  }
  return slots;
}

bool is_known(const std::string &id) {
  for (const element_table &table : TABLES) {
    if (!slots_of(id, table).empty()) {
      return true;
    }
  }
  return false;
}

std::string upper(std::string text) {
  for (char &c : text) {
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return text;
}

std::string unknown_element(const std::string &id) {
  return "unknown element '" + id + "'" + (is_known(upper(id)) ? did_you_mean(id, {upper(id)}) : "");
}

ordered_json element_object(const std::string &id) {
  ordered_json tables = ordered_json::object();
  for (const element_table &table : TABLES) {
    ordered_json found = ordered_json::array();
    for (const int slot : slots_of(id, table)) {
      found.push_back({{"slot", slot}, {"constant", slot_name(slot)}});
    }
    tables[table.name] = found;
  }
  return {{"element", id}, {"tables", tables}};
}

void add_element_rows(const std::string &id, std::vector<row> &rows) {
  for (const element_table &table : TABLES) {
    for (const int slot : slots_of(id, table)) {
      rows.push_back({id, table.name, std::to_string(slot), std::string(slot_name(slot))});
    }
  }
}

// ---- Soundex ----------------------------------------------------------------------------------------

// The four characters, or an empty text for a name that cannot be encoded.
std::string soundex_of(const std::string &name) {
  SOUNDEX_CODE code;
  if (utils_soundex_encode_str(name.c_str(), &code) != ERR_OK) {
    return "";
  }
  return std::string(1, code.alpha).append(code.code, sizeof code.code);
}

void put_rows(output &out, format how, const std::vector<row> &rows) {
  if (how == format::table && rows.size() > 1) {
    put_table(out, rows);
  } else if (how == format::csv) {
    put_csv(out, rows);
  }
}

} // namespace

int run_element(const options &asked, output &out) {
  const format how = chosen_format(asked);
  std::vector<row> rows = {how == format::table ? row{"ELEMENT", "TABLE", "SLOT", "CONSTANT"}
                                                : row{"element", "table", "slot", "constant"}};
  int code = EXIT_ALL_READ;
  for (const std::string &id : asked.operands) {
    if (!is_known(id)) {
      complain(unknown_element(id));
      code = EXIT_SOME_REFUSED;
    } else if (how == format::json) {
      put_json(out, element_object(id));
    } else {
      add_element_rows(id, rows);
    }
  }
  put_rows(out, how, rows);
  return code;
}

int run_soundex(const options &asked, output &out) {
  const format how = chosen_format(asked);
  std::vector<row> rows = {how == format::table ? row{"NAME", "CODE"} : row{"name", "code"}};
  int code = EXIT_ALL_READ;
  for (const std::string &name : asked.operands) {
    const std::string soundex = soundex_of(name);
    if (soundex.empty()) {
      complain("no Soundex code for '" + name + "': it is not a name of letters A to Z");
      code = EXIT_SOME_REFUSED;
    } else if (how == format::json) {
      put_json(out, {{"name", name}, {"code", soundex}});
    } else {
      rows.push_back({name, soundex});
    }
  }
  put_rows(out, how, rows);
  return code;
}

} // namespace varnel::cli
