// The one place that knows CLI11.
#include "options.hpp"

#include "suggestion.hpp"

#include <Varnel/Varnel.h>

#include <CLI/CLI.hpp>

#include <algorithm>
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

// The words that an option takes.
template <class Value> struct choice {
  const char *word;
  Value value;
};
constexpr choice<format> FORMATS[] = {{"json", format::json}, {"table", format::table}, {"csv", format::csv}};
constexpr choice<split> SPLITS[] = {{"line", split::line}, {"block", split::block}};

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

std::string option_name(const std::string &word) { return word.substr(0, word.find('=')); }

bool knows(const CLI::App &app, const std::string &option) {
  const std::vector<std::string> known = option_names(app);
  return std::find(known.begin(), known.end(), option) != known.end();
}

std::string unknown_option(const std::string &word, const CLI::App &app) {
  const std::string name = option_name(word);
  if (knows(app, name)) {
    return "'" + name + "' goes behind the command: varnel " + app.get_name() + " " + name + " ...";
  }
  const std::string dashes = name.compare(0, 2, "--") == 0 ? "" : "-"; // -format was meant to be --format
  return "unknown option '" + name + "'" + did_you_mean(dashes + name, option_names(app));
}

std::string unknown_command(const std::string &word) {
  if (access(word.c_str(), F_OK) == 0) {
    return "unknown command '" + word + "'; to read a file, type: varnel parse " + word;
  }
  return "unknown command '" + word + "'" +
         did_you_mean(word, {"parse", "element", "soundex", "--help", "--version"});
}

template <class Value, std::size_t COUNT>
std::string needs_a_value(const std::string &option, const choice<Value> (&choices)[COUNT]) {
  std::string list;
  for (const choice<Value> &each : choices) {
    list += &each == choices ? "" : &each == choices + COUNT - 1 ? " or " : ", ";
    list += each.word;
  }
  return option + " needs a value: " + list;
}

// Sets `chosen`; gives the complaint about a word that is none of the choices, or an empty text.
template <class Value, std::size_t COUNT>
std::string choose(const std::string &option, const std::string &given, const choice<Value> (&choices)[COUNT],
                   Value &chosen) {
  if (given.compare(0, 2, "--") == 0) {
    return needs_a_value(option, choices); // the next option stands in the place of the value
  }
  std::vector<std::string> words;
  std::string list;
  words.reserve(COUNT);
  for (const choice<Value> &each : choices) {
    if (given == each.word) {
      chosen = each.value;
      return "";
    }
    words.emplace_back(each.word);
    list += list.empty() ? "" : ", ";
    list += each.word;
  }
  return option + " '" + given + "' is not one of " + list + did_you_mean(given, words);
}

// The grammar of the command line, and what was found in one.
class grammar {
public:
  grammar() {
    app_.set_version_flag("--version", "varnel " VARNEL_VERSION, "Print the version and leave");
    app_.set_help_flag("-h,--help", "Print this help and leave");
    app_.require_subcommand(0, 1);
    app_.footer(std::string(EXAMPLES) + "\n" + EXIT_CODES);
    app_.allow_extras(); // unknown words are kept, so that suggestions can be made

    operands(parse_, "FILE", "Files to read, each the text of one document; '-' or none: standard input");
    parse_
        .add_option("--each", each_,
                    "Read many documents from each file; line: the whole zone on one line;\n"
                    "block: zones as printed, parted by blank lines")
        ->type_name("line|block")
        ->take_last();
    parse_.add_flag("--slots", asked_.slots,
                    "Show every filled slot of the record too, by its constant's name");
    operands(element_, "ID", "Element identifiers, such as DAQ");
    operands(soundex_, "NAME", "Names, of letters A to Z");
    for (CLI::App *command : {&parse_, &element_, &soundex_}) {
      command
          ->add_option("--format", how_,
                       "How to print: json, table or csv (default: a table on a terminal, JSON\n"
                       "otherwise)")
          ->type_name("json|table|csv")
          ->take_last();
      command->footer(EXIT_CODES);
      command->allow_extras();
    }
  }

  command_line read(int argc, const char *const *argv) {
    // Whatever stands behind "--" is an operand, however it looks.
    const char *const *const end = argv + argc;
    const char *const *const dashes = std::find(argv, end, std::string_view("--"));
    try {
      app_.parse(static_cast<int>(dashes - argv), argv);
    } catch (const CLI::CallForHelp &) {
      return {std::nullopt, app_.help(), "", EXIT_ALL_READ};
    } catch (const CLI::CallForVersion &) {
      return {std::nullopt, "varnel " VARNEL_VERSION "\n", "", EXIT_ALL_READ};
    } catch (const CLI::ArgumentMismatch &error) {
      const std::string_view message = error.what(); // the option, a colon and what it lacks
      const bool of_format = message.compare(0, 9, "--format:") == 0;
      const bool of_each = message.compare(0, 7, "--each:") == 0;
      return misused(of_format ? needs_a_value("--format", FORMATS)
                     : of_each ? needs_a_value("--each", SPLITS)
                               : error.what());
    } catch (const CLI::ParseError &error) {
      return misused(error.what());
    }
    if (dashes != end) {
      asked_.operands.insert(asked_.operands.end(), dashes + 1, end);
    }
    const std::string complaint = interpret();
    if (!complaint.empty()) {
      return misused(complaint);
    }
    if (app_.get_subcommands().empty()) {
      return {std::nullopt, app_.help(), "", EXIT_TROUBLE};
    }
    return {asked_, "", "", EXIT_ALL_READ};
  }

private:
  void operands(CLI::App &command, const std::string &name, const std::string &description) {
    command.add_option(name, asked_.operands, description)->option_text("...");
  }

  // Gives the complaint about what was found, or an empty text.
  std::string interpret() {
    const std::vector<CLI::App *> commands = app_.get_subcommands();
    const CLI::App &used = commands.empty() ? app_ : *commands.front();
    std::vector<std::string> unknown = app_.remaining(true);
    if (commands.empty()) {
      unknown.insert(unknown.end(), asked_.operands.begin(), asked_.operands.end());
    }
    if (!unknown.empty()) {
      const std::string &word = unknown.front();
      if (word.find('<') != std::string::npos) {
        return TEXT_IS_NO_ARGUMENT;
      }
      // Only parse has all the options that some command has.
      const bool goes_behind = commands.empty() && knows(parse_, option_name(word));
      return word[0] == '-' ? unknown_option(word, goes_behind ? parse_ : used) : unknown_command(word);
    }
    asked_.what = &used == &element_   ? command::element
                  : &used == &soundex_ ? command::soundex
                                       : command::parse;
    if (asked_.operands.empty() && (&used == &element_ || &used == &soundex_)) {
      return used.get_name() + " needs at least one " + (&used == &element_ ? "ID" : "NAME");
    }
    std::string complaint;
    if (!commands.empty() && used.count("--format") > 0) {
      complaint = choose("--format", how_, FORMATS, asked_.how.emplace());
    }
    if (complaint.empty() && parse_.count("--each") > 0) {
      complaint = choose("--each", each_, SPLITS, asked_.each);
    }
    return complaint;
  }

  options asked_;
  std::string how_;
  std::string each_;
  CLI::App app_{
      "Reads the machine-readable zone (MRZ) of travel documents: passports, visas, TD1 and TD2 cards.",
      "varnel"};
  CLI::App &parse_ = *app_.add_subcommand("parse", "Read documents and print their twelve values");
  CLI::App &element_ =
      *app_.add_subcommand("element", "Look AAMVA data elements up in the five element tables");
  CLI::App &soundex_ = *app_.add_subcommand("soundex", "Print the Soundex codes of names");
};

} // namespace

command_line read_command_line(int argc, const char *const *argv) { return grammar().read(argc, argv); }

} // namespace varnel::cli
