// The one place that knows CLI11.
#include "command_line.hpp"

#include "complaints.hpp"
#include "platform.hpp"
#include "quoting.hpp"
#include "suggestion.hpp"

#include <Varnel/Varnel.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace varnel::cli {

namespace {

const char *const EXIT_CODES =
    "Exit codes:\n"
    "  0  everything was read\n"
    "  1  something was refused: a text that is no machine-readable zone or barcode, an\n"
    "     unknown element, a name that cannot be encoded, a document that cannot be\n"
    "     composed; or inspect found a document doubtful\n"
    "  2  bad usage, a file that cannot be read (the others are still done), or\n"
    "     output that cannot be written\n"
    "A reader that closes the pipe early ends varnel quietly, with the code of what was\n"
    "seen until then.\n";

const char *const VERSION = "varnel " VARNEL_VERSION "\n";
bool is_option(std::string_view word) { return word.size() > 1 && word[0] == '-'; }

std::string option_name(const std::string &word) { return word.substr(0, word.find('=')); }

std::vector<std::string> words_of(std::string_view list) {
  std::vector<std::string> words;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find('|'), list.size());
    words.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return words;
}

std::string joined(const std::vector<std::string> &words, const char *last_separator) {
  std::string list = words.front();
  for (std::size_t i = 1; i < words.size(); ++i) {
    list += (i + 1 < words.size() ? ", " : last_separator) + words[i];
  }
  return list;
}

std::string needs_a_value(const option &of) {
  const std::vector<std::string> words = words_of(of.value);
  return "--" + std::string(of.name) + " needs a value: " + joined(words, " or ");
}

// The complaint about what an option was given, or an empty text.
std::string complaint_of_value(const option &of, bool has_value, const std::string &value) {
  const std::string name = "--" + std::string(of.name);
  const std::vector<std::string> words = words_of(of.value);
  if (of.value.empty()) {
    return has_value ? name + " takes no value" : "";
  }
  if (words.size() < 2 || std::find(words.begin(), words.end(), value) != words.end()) {
    return "";
  }
  if (looks_like_a_zone(value)) {
    return TEXT_IS_NO_ARGUMENT;
  }
  return name + " " + in_quotes(value) + " is not one of " + joined(words, ", ") + did_you_mean(value, words);
}

std::vector<std::string> option_names(const CLI::App &app) {
  std::vector<std::string> names;
  for (const CLI::Option *each : app.get_options()) {
    for (const std::string &name : each->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

bool knows(const CLI::App &app, const std::string &option) {
  const std::vector<std::string> known = option_names(app);
  return std::find(known.begin(), known.end(), option) != known.end();
}

// The grammar of the command line, and what was found in one.
class grammar {
public:
  grammar() {
    app_.require_subcommand(0, 1);
    app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app_.get_formatter()->label("Positionals", "Operands");
    std::string examples = "Examples:\n";
    for (const command *each : COMMANDS) {
      add(*each);
      examples += each->examples.substr(0, each->examples.find('\n') + 1);
    }
    app_.footer(examples + "\n" + EXIT_CODES);
    help_.add_option("COMMAND")
        ->description("The command; none: varnel itself")
        ->option_text(" ")
        ->type_size(1)
        ->expected(1);
    for (CLI::App *each : app_.get_subcommands({})) {
      each->group("Commands");
      prepare(*each);
    }
    prepare(app_);
  }

  command_line read(int argc, const char *const *argv) {
    std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    // Whatever stands after "--" is an operand, however it looks.
    const auto dashes = std::find(words.begin(), words.end(), "--");
    if (dashes != words.end()) {
      given_.operands.assign(dashes + 1, words.end());
      words.erase(dashes, words.end());
    }
    try {
      parse(words);
    } catch (const CLI::CallForHelp &) {
      return shown(app_.help());
    } catch (const CLI::CallForVersion &) {
      return shown(VERSION);
    } catch (const CLI::ArgumentMismatch &error) {
      return misused(mismatch(error.what()));
    } catch (const CLI::ParseError &error) {
      return misused(error.what());
    }
    return interpret();
  }

  std::string help() const { return app_.help(); }

private:
  static command_line shown(const std::string &text) { return {nullptr, {}, text, ""}; }
  static command_line misused(const std::string &complaint) { return {nullptr, {}, "", complaint}; }

  static void prepare(CLI::App &app) {
    app.set_help_flag("-h,--help", "Print this help and leave");
    app.set_version_flag("-V,--version", VERSION, "Print the version and leave");
    app.allow_windows_style_options(false);
    app.allow_extras(); // unknown words are kept, so that suggestions can be made
  }

  void add(const command &described) {
    CLI::App *app = app_.add_subcommand(std::string(described.name), std::string(described.summary));
    if (!described.operand.empty()) {
      app->add_option(std::string(described.operand))
          ->description(std::string(described.operand_help))
          ->option_text("...")
          ->type_size(1)
          ->expected(1, CLI::detail::expected_max_vector_size)
          ->allow_extra_args();
    }
    for (const option &each : options_of(described)) {
      const std::string flag = "--" + std::string(each.name);
      if (each.value.empty()) {
        app->add_flag(flag)->description(std::string(each.help));
      } else {
        app->add_option(flag)
            ->description(std::string(each.help))
            ->type_name(std::string(each.value))
            ->type_size(1)
            ->expected(1)
            ->take_last();
      }
    }
    app->footer("Examples:\n" + std::string(described.examples) + "\nvarnel --help lists the exit codes.\n");
    commands_.emplace_back(&described, app);
  }

  static std::vector<option> options_of(const command &described) {
    return {described.options.begin(), std::find_if(described.options.begin(), described.options.end(),
                                                    [](const option &each) { return each.name.empty(); })};
  }

  // Hands the parser the command's name and the options as they are, every other word as a number.
  void parse(const std::vector<std::string> &words) {
    std::vector<std::string> seen;
    bool named = false;
    for (const std::string &word : words) {
      const std::size_t equals = word.compare(0, 2, "--") == 0 ? word.find('=') : std::string::npos;
      if (equals != std::string::npos) {
        const std::string value = std::to_string(typed_.size());
        typed_.push_back(word.substr(equals + 1));
        seen.push_back(word.substr(0, equals + 1) + value);
        with_values_[seen.back()] = word;
      } else if (is_option(word) || (!named && is_command(word))) {
        named = named || !is_option(word);
        seen.push_back(word);
      } else {
        seen.push_back(std::to_string(typed_.size()));
        typed_.push_back(word);
      }
    }
    std::reverse(seen.begin(), seen.end()); // as the parser wants it
    app_.parse(seen);
  }

  bool is_command(const std::string &word) const {
    const std::vector<std::string> names = command_names();
    return std::find(names.begin(), names.end(), word) != names.end();
  }

  std::vector<std::string> command_names() const {
    std::vector<std::string> names;
    for (const CLI::App *each : app_.get_subcommands({})) {
      names.push_back(each->get_name());
    }
    return names;
  }

  // The word that the parser saw as this.
  std::string typed(const std::string &seen) const {
    const auto found = with_values_.find(seen);
    return found != with_values_.end() ? found->second : is_option(seen) ? seen : typed_[std::stoul(seen)];
  }

  command_line interpret() {
    const std::vector<CLI::App *> used = app_.get_subcommands();
    CLI::App &app = used.empty() ? app_ : *used.front();
    for (const std::string &word : app_.remaining(true)) {
      if (!is_option(word) && !used.empty() && !looks_like_a_zone(typed(word))) {
        return misused(takes_no_operand(app)); // where one is taken, none remains
      }
      return misused(unknown(typed(word), app));
    }
    if (used.empty()) {
      return misused(given_.operands.empty() ? "" : unknown(given_.operands.front(), app));
    }
    for (CLI::Option *operands :
         app.get_options([](const CLI::Option *each) { return each->get_positional(); })) {
      std::vector<std::string> words;
      for (const std::string &number : operands->results()) {
        words.push_back(typed(number));
      }
      given_.operands.insert(given_.operands.begin(), words.begin(), words.end());
    }
    if (&app == &help_) {
      return help_of(given_.operands);
    }
    const auto asked = std::find_if(commands_.begin(), commands_.end(),
                                    [&app](const auto &each) { return each.second == &app; });
    if (asked->first->operand.empty() && !given_.operands.empty()) {
      return misused(takes_no_operand(app));
    }
    return interpret(*asked->first, app);
  }

  static std::string takes_no_operand(const CLI::App &app) { return app.get_name() + " takes no operand"; }

  command_line interpret(const command &asked, const CLI::App &app) {
    for (const option &each : options_of(asked)) {
      const CLI::Option &found = *app.get_option("--" + std::string(each.name));
      if (found.count() == 0) {
        continue;
      }
      const std::string &seen = found.results().back();
      if (is_option(seen)) {
        return misused(needs_a_value(each)); // the next option stands in the place of the value
      }
      const bool has_value = seen != "true";
      const std::string value = has_value ? typed_[std::stoul(seen)] : "";
      const std::string complaint = complaint_of_value(each, has_value, value);
      if (!complaint.empty()) {
        return misused(complaint);
      }
      given_.set(each.name, value);
    }
    if (asked.needs_operand && given_.operands.empty()) {
      return misused(std::string(asked.name) + " needs at least one " + std::string(asked.operand));
    }
    return {&asked, given_, "", ""};
  }

  command_line help_of(const std::vector<std::string> &operands) {
    if (operands.empty()) {
      return shown(grammar().help()); // this one would give the help of "help"
    }
    if (!is_command(operands.front())) {
      return misused(unknown_command(operands.front()));
    }
    return shown(app_.get_subcommand(operands.front())->help("varnel"));
  }

  // "--format: 1 required TEXT missing", as the parser has it.
  static std::string mismatch(const std::string &message) {
    for (const command *each : COMMANDS) {
      for (const option &candidate : options_of(*each)) {
        if (message.compare(0, candidate.name.size() + 3, "--" + std::string(candidate.name) + ":") == 0) {
          return needs_a_value(candidate);
        }
      }
    }
    return message;
  }

  std::string unknown(const std::string &word, const CLI::App &app) const {
    if (looks_like_a_zone(word)) {
      return TEXT_IS_NO_ARGUMENT;
    }
    return is_option(word) ? unknown_option(word, app) : unknown_command(word);
  }

  std::string unknown_option(const std::string &word, const CLI::App &app) const {
    const std::string name = option_name(word);
    if (const CLI::App *meant = meant_command(name); meant != nullptr) {
      return in_quotes(name) + " goes after the command: varnel " + meant->get_name() + " " + name + " ...";
    }
    const std::string dashes = name.compare(0, 2, "--") == 0 ? "" : "-"; // -format was meant to be --format
    return "unknown option " + in_quotes(name) + did_you_mean(dashes + name, option_names(app));
  }

  // The command to which an option belongs that was typed before it, or in its place.
  const CLI::App *meant_command(const std::string &option) const {
    const std::vector<CLI::App *> used = app_.get_subcommands();
    const std::vector<std::string> before = app_.remaining(false);
    const bool typed_before = std::any_of(before.begin(), before.end(), [&](const std::string &seen) {
      return is_option(seen) && option_name(seen) == option;
    });
    const CLI::App &app = app_;
    const std::vector<const CLI::App *> candidates =
        used.empty() ? app.get_subcommands({}) : std::vector<const CLI::App *>{used.front()};
    for (const CLI::App *each : candidates) {
      if (typed_before && knows(*each, option)) {
        return each;
      }
    }
    return nullptr;
  }

  std::string unknown_command(const std::string &word) const {
    if (looks_like_a_zone(word)) {
      return TEXT_IS_NO_ARGUMENT;
    }
    if (file_exists(word)) {
      return "unknown command " + in_quotes(word) + "; to read a file, type: varnel parse " + word;
    }
    std::vector<std::string> known = command_names();
    known.insert(known.end(), {"--help", "--version"});
    return "unknown command " + in_quotes(word) + did_you_mean(word, known);
  }

  arguments given_;
  std::vector<std::string> typed_;                 // words, by the numbers that the parser sees
  std::map<std::string, std::string> with_values_; // options typed with a value, by what the parser sees
  std::vector<std::pair<const command *, CLI::App *>> commands_;
  CLI::App app_{
      "Reads the machine-readable zone (MRZ) of travel documents: passports, visas, TD1 and TD2 cards.",
      "varnel"};
  CLI::App &help_ = *app_.add_subcommand("help", "Print help, of varnel or of a command");
};

} // namespace

command_line read_command_line(int argc, const char *const *argv) { return grammar().read(argc, argv); }

std::string help_text() { return grammar().help(); }

} // namespace varnel::cli
