#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vellora::cli {

/// Exit codes of every verb.
enum ExitCode : int { Done = 0, Failed = 1, WrongUsage = 2 };

/// A command line that follows the table.
struct Invocation {
  std::string verb;                            ///< "capture area"; empty for the program alone
  std::map<std::string, std::string> options;  ///< by name with dashes; flags have an empty value
  std::vector<std::string> arguments;
  bool json = false;

  bool has(const std::string& option) const { return options.contains(option); }
  std::optional<std::string> value(const std::string& option) const {
    const auto it = options.find(option);
    if (it == options.end()) return std::nullopt;
    return it->second;
  }
};

/// A command line that ends at once: help, the version, or wrong usage.
struct EndsHere {
  int exitCode = Done;
  std::string standardOutput;
  std::string standardError;
};

std::variant<Invocation, EndsHere> parseCommandLine(const std::vector<std::string>& arguments);

/// "1.2.3"
std::string programVersion();

}  // namespace vellora::cli
