// varnel element: data elements, looked up in the five element tables of AAMVA DL/ID.
#include "commands.hpp"
#include "complaints.hpp"
#include "formats.hpp"
#include "input.hpp"
#include "listing.hpp"
#include "quoting.hpp"
#include "slots.hpp"

#include <algorithm>

namespace varnel::cli {

namespace {

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
  return std::any_of(std::begin(TABLES), std::end(TABLES),
                     [&id](const element_table &table) { return !slots_of(id, table).empty(); });
}

void put_object(output &out, const std::string &id) {
  out.put("{\"element\":\"");
  put_json_text(out, id);
  out.put("\",\"tables\":{");
  for (const element_table &table : TABLES) {
    out.put(&table == TABLES ? "\"" : ",\"");
    out.put(table.name);
    out.put("\":[");
    const char *lead = "";
    for (const int slot : slots_of(id, table)) {
      out.put(lead);
      out.put("{\"slot\":");
      put_number(out, static_cast<std::uint64_t>(slot));
      out.put(",\"constant\":\"");
      put_json_text(out, slot_name(slot));
      out.put("\"}");
      lead = ",";
    }
    out.put(']');
  }
  out.put("}}\n");
}

void add_rows(listing &rows, const std::string &id) {
  for (const element_table &table : TABLES) {
    for (const int slot : slots_of(id, table)) {
      rows.add({id, table.name, std::to_string(slot), std::string(slot_name(slot))});
    }
  }
}

int run(const arguments &asked, output &out) {
  return answer_words(asked, out, {"element", "table", "slot", "constant"},
                      [&out](const std::string &word, format how, listing &rows) {
                        const std::string id = uppercase(word);
                        if (!is_known(id)) {
                          complain("unknown element " + in_quotes(word));
                          return false;
                        }
                        how == format::json ? put_object(out, id) : add_rows(rows, id);
                        return true;
                      });
}

} // namespace

const command ELEMENT_COMMAND = {"element",
                                 "Look AAMVA data elements up in the five element tables",
                                 "ID",
                                 "Element identifiers, such as DAQ; '-': those of standard input, one a line",
                                 true,
                                 {FORMAT_OPTION},
                                 "  varnel element DAQ DBB                 the slots of two AAMVA elements\n"
                                 "  varnel element --format csv - < ids    those of a list, as CSV\n",
                                 run};

} // namespace varnel::cli
