#include "cli/CommandLine.h"

#include <deque>
#include <sstream>

#include <CLI/CLI.hpp>

#include "cli/CommandTable.h"

namespace vellora::cli {
namespace {

/// What the parser fills for one verb, in the table's order.
struct VerbBinding {
  std::string path;
  CLI::App* app = nullptr;
  const VerbDescription* description = nullptr;
  std::vector<std::pair<std::string, CLI::Option*>> options;
  std::vector<CLI::Option*> arguments;
};

void addOption(CLI::App& app, const OptionDescription& description, VerbBinding& binding) {
  CLI::Option* option = nullptr;
  if (description.value.empty()) {
    option = app.add_flag(description.name, description.help);
  } else {
    option = app.add_option(description.name, description.help)->type_name(description.value);
    if (!description.choices.empty()) option->check(CLI::IsMember(description.choices));
    if (description.isRequired) option->required();
  }
  binding.options.emplace_back(description.name, option);
}

void addVerb(CLI::App& parent, const std::string& parentPath, const VerbDescription& verb,
             std::deque<VerbBinding>& bindings) {
  CLI::App* app = parent.add_subcommand(verb.name, verb.summary);
  VerbBinding& binding = bindings.emplace_back();
  binding.path = parentPath.empty() ? verb.name : parentPath + " " + verb.name;
  binding.app = app;
  binding.description = &verb;
  if (!verb.description.empty()) app->footer("\n" + verb.description);
  for (const ArgumentDescription& argument : verb.arguments) {
    CLI::Option* option = app->add_option(argument.name, argument.help)->type_name("");
    if (argument.isRequired) option->required();
    if (argument.isRepeated) option->expected(1, CLI::detail::expected_max_vector_size)->allow_extra_args();
    if (!argument.choices.empty()) option->check(CLI::IsMember(argument.choices));
    binding.arguments.push_back(option);
  }
  for (const OptionDescription& option : verb.options) addOption(*app, option, binding);
  addOption(*app, jsonOption(), binding);
  const std::string path = binding.path;
  for (const VerbDescription& child : verb.verbs) addVerb(*app, path, child, bindings);
  if (!verb.standsAlone) app->require_subcommand(1);
}

Invocation invocationOf(const std::deque<VerbBinding>& bindings) {
  Invocation invocation;
  for (const VerbBinding& binding : bindings) {
    if (!binding.app->parsed()) continue;
    invocation.verb = binding.path;  // deeper verbs come later and win
    for (const auto& [name, option] : binding.options) {
      if (option->count() == 0) continue;
      const bool isFlag = option->get_items_expected_max() == 0;
      invocation.options[name] = isFlag ? std::string() : option->as<std::string>();
    }
    for (const CLI::Option* argument : binding.arguments) {
      for (const std::string& value : argument->results()) invocation.arguments.push_back(value);
    }
  }
  invocation.json = invocation.options.erase(jsonOption().name) > 0;
  return invocation;
}

}  // namespace

std::variant<Invocation, EndsHere> parseCommandLine(const std::vector<std::string>& arguments) {
  CLI::App app{"Takes screenshots, annotates, records and streams. Without a verb: starts Vellora, or wakes it.",
               "vellora"};
  app.set_version_flag("--version", "Vellora " + programVersion());
  app.set_help_flag("-h,--help", "print this help");
  app.require_subcommand(0, 1);
  std::deque<VerbBinding> bindings;
  for (const VerbDescription& verb : commandTable()) addVerb(app, "", verb, bindings);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    const bool isHelp = app.exit(error, out, err) == 0;
    return EndsHere{isHelp ? Done : WrongUsage, out.str(), err.str()};
  }
  return invocationOf(bindings);
}

std::string programVersion() {
  return VELLORA_VERSION;
}

}  // namespace vellora::cli
