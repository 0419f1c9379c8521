// The one place that knows CLI11.
#include "options.hpp"

#include "suggestion.hpp"

#include <Varnel/Varnel.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <string_view>

#include <unistd.h>

namespace varnel::cli {

namespace {

const char *const EXIT_CODES =
    "Exit codes:\n"
    "  0  everything was read\n"
    "  1  something was refused: a text that is no machine-readable zone, an unknown\n"
    "     element, a name that cannot be encoded\n"
    "  2  bad usage, a file that cannot be read (the others are still done), or\n"
    "     output that cannot be written\n"
    "A reader that closes the pipe early ends varnel quietly, with the code of what was\n"
    "seen until then.\n";

const char *const EXAMPLES = "Examples:\n"
                             "  varnel parse passport.txt              one document, a table on a terminal\n"
                             "  varnel parse --each line < zones.txt   one document per line, JSON lines\n"
                             "  varnel element DAQ DBB                 the slots of two AAMVA elements\n"
                             "  varnel soundex Robert Rupert           the Soundex codes of two names\n";

const std::map<std::string, format> FORMATS = {
    {"json", format::json}, {"table", format::table}, {"csv", format::csv}};
const std::map<std::string, split> SPLITS = {{"line", split::line}, {"block", split::block}};

template <class Value> std::vector<std::string> names_of(const std::map<std::string, Value> &choices) {
  std::vector<std::string> names;
  for (const auto &[name, value] : choices) {
    names.push_back(name);
  }
  return names;
}

command_line misused(const std::string &complaint) {
  return {std::nullopt, "", complaint + " (varnel --help tells more)", EXIT_TROUBLE};
}

std::vector<std::string> option_names(const CLI::App &app) {
  std::vector<std::string> names;
  for (const CLI::Option *option : app.get_options()) {
    for (const std::string &name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

std::string unknown_option(const std::string &word, const CLI::App &app) {
  const std::string name = word.substr(0, word.find('='));
  const std::string dashes = name.compare(0, 2, "--") == 0 ? "" : "-"; // -format was meant to be --format
  return "unknown option '" + name + "'" + did_you_mean(dashes + name, option_names(app));
}

std::string unknown_command(const std::string &word) {
  if (access(word.c_str(), F_OK) == 0) {
    return "unknown command '" + word + "'; to read a file, type: varnel parse " + word;
  }
  return "unknown command '" + word + "'" + did_you_mean(word, {"parse", "element", "soundex"});
}

// The complaint about a value that is not one of the choices; empty when it is one, or was not given.
template <class Value>
std::string choose(const std::string &option, const std::string &given,
                   const std::map<std::string, Value> &choices, const std::string &list, Value &chosen) {
  const auto found = choices.find(given);
  if (found == choices.end()) {
    return option + " '" + given + "' is not one of " + list + did_you_mean(given, names_of(choices));
  }
  chosen = found->second;
  return "";
}

} // namespace

command_line read_command_line(int argc, const char *const *argv) {
  options asked;
  std::string how;
  std::string each;

  CLI::App app(
      "Reads the machine-readable zone (MRZ) of travel documents: passports, visas, TD1 and TD2 cards.",
      "varnel");
  app.set_version_flag("--version", "varnel " VARNEL_VERSION, "Print the version and leave");
  app.set_help_flag("-h,--help", "Print this help and leave");
  app.require_subcommand(0, 1);
  app.allow_extras();
  app.footer(std::string(EXAMPLES) + "\n" + EXIT_CODES);

  CLI::App *parse = app.add_subcommand("parse", "Read documents and print their twelve values");
  parse
      ->add_option("FILE", asked.operands,
                   "Files to read, each the text of one document; '-' or none: standard input")
      ->option_text("...");
  parse
      ->add_option("--each", each,
                   "Read many documents from each file: one per 'line', or one per 'block' of\n"
                   "lines between blank lines")
      ->type_name("line|block")
      ->take_last();
  parse->add_flag("--slots", asked.slots, "Show every filled slot of the record too, by its constant's name");

  CLI::App *element = app.add_subcommand("element", "Look AAMVA data elements up in the five element tables");
  element->add_option("ID", asked.operands, "Element identifiers, such as DAQ")->option_text("...");

  CLI::App *soundex = app.add_subcommand("soundex", "Print the Soundex codes of names");
  soundex->add_option("NAME", asked.operands, "Names, of letters A to Z")->option_text("...");

  for (CLI::App *command : {parse, element, soundex}) {
    command
        ->add_option("--format", how,
                     "How to print: json, table or csv (default: a table on a terminal, JSON\n"
                     "otherwise)")
        ->type_name("json|table|csv")
        ->take_last();
    command->allow_extras();
    command->footer(EXIT_CODES);
  }

  // Whatever stands behind "--" is an operand, however it looks.
  const char *const *const end = argv + argc;
  const char *const *const dashes = std::find(argv, end, std::string_view("--"));
  try {
    app.parse(static_cast<int>(dashes - argv), argv);
  } catch (const CLI::CallForHelp &) {
    return {std::nullopt, app.help(), "", EXIT_ALL_READ};
  } catch (const CLI::CallForVersion &) {
    return {std::nullopt, "varnel " VARNEL_VERSION "\n", "", EXIT_ALL_READ};
  } catch (const CLI::ParseError &error) {
    return misused(error.what());
  }

  const std::vector<CLI::App *> commands = app.get_subcommands();
  const CLI::App &used = commands.empty() ? app : *commands.front();
  for (const CLI::App *place : {static_cast<const CLI::App *>(&app), &used}) {
    for (const std::string &word : place->remaining()) {
      return misused(word[0] == '-' ? unknown_option(word, used) : unknown_command(word));
    }
  }
  for (const char *const *word = dashes; end - word > 1; ++word) {
    asked.operands.emplace_back(word[1]);
  }
  if (commands.empty() && !asked.operands.empty()) {
    return misused(unknown_command(asked.operands.front()));
  }
  if (commands.empty()) {
    return {std::nullopt, app.help(), "", EXIT_TROUBLE};
  }
  std::string complaint;
  if (used.count("--format") > 0) {
    format chosen = format::json;
    complaint = choose("--format", how, FORMATS, "json, table, csv", chosen);
    asked.how = chosen;
  }
  if (complaint.empty() && &used == parse && parse->count("--each") > 0) {
    complaint = choose("--each", each, SPLITS, "line, block", asked.each);
  }
  asked.what = &used == parse ? command::parse : &used == element ? command::element : command::soundex;
  if (complaint.empty() && asked.what != command::parse && asked.operands.empty()) {
    complaint = used.get_name() + " needs at least one " + (&used == element ? "ID" : "NAME");
  }
  if (!complaint.empty()) {
    return misused(complaint);
  }
  return {asked, "", "", EXIT_ALL_READ};
}

} // namespace varnel::cli
