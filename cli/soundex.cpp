// varnel soundex: the Soundex codes of names.
#include "commands.hpp"
#include "complaints.hpp"
#include "formats.hpp"
#include "input.hpp"
#include "listing.hpp"
#include "quoting.hpp"

#include <Varnel/Varnel.h>

namespace varnel::cli {

namespace {

// The four characters, or an empty text for a name that cannot be encoded.
std::string soundex_of(const std::string &name) {
  SOUNDEX_CODE code;
  if (utils_soundex_encode_str(name.c_str(), &code) != ERR_OK) {
    return "";
  }
  return std::string(1, code.alpha).append(code.code, sizeof code.code);
}

void put_object(output &out, const std::string &name, const std::string &code) {
  out.put("{\"name\":\"");
  put_json_text(out, name);
  out.put("\",\"code\":\"");
  put_json_text(out, code);
  out.put("\"}\n");
}

int run(const arguments &asked, output &out) {
  return answer_words(
      asked, out, {"name", "code"}, [&out](const std::string &name, format how, listing &rows) {
        const std::string code = soundex_of(name);
        if (code.empty()) {
          complain("no Soundex code for " + in_quotes(name) + ": it is not a name of letters A to Z");
          return false;
        }
        how == format::json ? put_object(out, name, code) : rows.add({name, code});
        return true;
      });
}

} // namespace

const command SOUNDEX_COMMAND = {"soundex",
                                 "Print the Soundex codes of names",
                                 "NAME",
                                 "Names, of letters A to Z; '-': those of standard input, one a line",
                                 true,
                                 {FORMAT_OPTION},
                                 "  varnel soundex Robert Rupert           the Soundex codes of two names\n"
                                 "  varnel soundex - < names.txt           those of a list\n",
                                 run};

} // namespace varnel::cli
