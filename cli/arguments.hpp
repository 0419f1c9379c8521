// What a command takes, and what it was given.
#ifndef VARNEL_CLI_ARGUMENTS_HPP
#define VARNEL_CLI_ARGUMENTS_HPP

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace varnel::cli {

/** An option of a command, as its help shows it and as the command line is read by it. */
struct option {
  std::string_view name;  /**< without the dashes */
  std::string_view value; /**< the words that it takes ("json|csv"), a name for any word ("DATE"), or none */
  std::string_view help;
};

/** What stands after the options. Operands reach the command exactly as they were typed. */
class arguments {
public:
  std::vector<std::string> operands;

  bool has(std::string_view option) const { return options_.find(option) != options_.end(); }

  /** The value of an option, one of its words where it takes certain words; empty when it was not given. */
  std::string_view value(std::string_view option) const {
    const auto found = options_.find(option);
    return found == options_.end() ? std::string_view() : found->second;
  }

  void set(std::string_view option, const std::string &value) { options_[std::string(option)] = value; }

private:
  std::map<std::string, std::string, std::less<>> options_;
};

} // namespace varnel::cli

#endif
