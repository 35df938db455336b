#pragma once

#include <string>
#include <vector>

namespace vellora::cli {

/// What a shell may offer as an option's or argument's value.
enum class ValueHint { None, File, Folder };

/// One option of a verb: "--name VALUE", or a flag when `value` is empty.
struct OptionDescription {
  std::string name;
  std::string value;  ///< what the help calls the value, "FILE"
  std::string help;
  ValueHint hint = ValueHint::None;
  std::vector<std::string> choices{};  ///< the only values accepted, when not empty
  bool isRequired = false;
};

/// One positional argument.
struct ArgumentDescription {
  std::string name;  ///< as the help writes it, "KEY"
  std::string help;
  bool isRequired = true;
  std::vector<std::string> choices{};
  bool isRepeated = false;  ///< takes one or more
  ValueHint hint = ValueHint::None;
};

/// One verb ("capture"), or one under it ("capture area"). A verb that has verbs under it may also stand alone when
/// `standsAlone`.
struct VerbDescription {
  std::string name;
  std::string summary;      ///< one line, no full stop
  std::string description;  ///< for the manual; may be empty
  std::vector<ArgumentDescription> arguments{};
  std::vector<OptionDescription> options{};
  std::vector<VerbDescription> verbs{};
  bool standsAlone = true;
};

/// Every verb: the command line is parsed, and the manual and the shell completions are written, from this table alone.
const std::vector<VerbDescription>& commandTable();

/// The option every verb has.
const OptionDescription& jsonOption();

}  // namespace vellora::cli
