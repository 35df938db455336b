#include "cli/Completions.h"

#include <algorithm>
#include <sstream>

#include "cli/CommandTable.h"

namespace vellora::cli {
namespace {

std::string joined(const std::vector<std::string>& words) {
  std::string result;
  for (const std::string& word : words) result += (result.empty() ? "" : " ") + word;
  return result;
}

/// What may follow a verb: the verbs under it, its options, and the values of its arguments.
std::vector<std::string> followers(const VerbDescription& verb) {
  std::vector<std::string> words;
  for (const VerbDescription& child : verb.verbs) words.push_back(child.name);
  for (const ArgumentDescription& argument : verb.arguments) {
    words.insert(words.end(), argument.choices.begin(), argument.choices.end());
  }
  for (const OptionDescription& option : verb.options) words.push_back(option.name);
  words.push_back(jsonOption().name);
  return words;
}

std::vector<std::string> topVerbs() {
  std::vector<std::string> words;
  for (const VerbDescription& verb : commandTable()) words.push_back(verb.name);
  return words;
}

template <class Visitor>
void visitVerbs(const std::vector<VerbDescription>& verbs, const std::string& path, Visitor visit) {
  for (const VerbDescription& verb : verbs) {
    const std::string name = path.empty() ? verb.name : path + " " + verb.name;
    visit(name, verb);
    visitVerbs(verb.verbs, name, visit);
  }
}

std::vector<std::string> fileOptions() {
  std::vector<std::string> names;
  visitVerbs(commandTable(), "", [&names](const std::string&, const VerbDescription& verb) {
    for (const OptionDescription& option : verb.options) {
      if (option.hint != ValueHint::None && std::ranges::find(names, option.name) == names.end()) {
        names.push_back(option.name);
      }
    }
  });
  return names;
}

std::string bashScript() {
  std::ostringstream out;
  out << "_vellora() {\n  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} path='' word\n"
      << "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n    [[ $word == -* ]] || path=\"${path:+$path "
         "}$word\"\n  done\n"
      << "  case $previous in\n";
  for (const std::string& option : fileOptions()) {
    out << "    " << option << ") COMPREPLY=($(compgen -f -- \"$current\")); return ;;\n";
  }
  out << "  esac\n  case $path in\n    '') COMPREPLY=($(compgen -W '" << joined(topVerbs())
      << " --help --version' -- \"$current\")) ;;\n";
  visitVerbs(commandTable(), "", [&out](const std::string& path, const VerbDescription& verb) {
    out << "    '" << path << "'*) ";
    if (!verb.verbs.empty()) out << "[[ $path == '" << path << "' ]] && ";
    out << "COMPREPLY=($(compgen -W '" << joined(followers(verb)) << "' -- \"$current\")) ;;";
    if (!verb.verbs.empty()) out << "&";
    out << "\n";
  });
  out << "  esac\n}\ncomplete -F _vellora vellora\n";
  return out.str();
}

std::string zshScript() {
  return "#compdef vellora\nautoload -U +X bashcompinit && bashcompinit\n" + bashScript();
}

/// Text inside single quotes of fish.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') result += '\\';
    result += c;
  }
  return result + "'";
}

std::string fishScript() {
  std::ostringstream out;
  out << "complete -c vellora -f\n";
  for (const VerbDescription& verb : commandTable()) {
    out << "complete -c vellora -n __fish_use_subcommand -a " << verb.name << " -d " << quoted(verb.summary) << "\n";
  }
  visitVerbs(commandTable(), "", [&out](const std::string& path, const VerbDescription& verb) {
    const std::string seen = "'__fish_seen_subcommand_from " + path.substr(path.rfind(' ') + 1) + "'";
    for (const VerbDescription& child : verb.verbs) {
      out << "complete -c vellora -n " << seen << " -a " << child.name << " -d " << quoted(child.summary) << "\n";
    }
    for (const ArgumentDescription& argument : verb.arguments) {
      if (!argument.choices.empty()) {
        out << "complete -c vellora -n " << seen << " -a " << quoted(joined(argument.choices)) << "\n";
      }
    }
    for (const OptionDescription& option : verb.options) {
      out << "complete -c vellora -n " << seen << " -l " << option.name.substr(2);
      if (!option.value.empty()) out << (option.hint == ValueHint::None ? " -x" : " -r -F");
      out << " -d " << quoted(option.help) << "\n";
    }
  });
  out << "complete -c vellora -l json -d " << quoted(jsonOption().help) << "\n";
  return out.str();
}

}  // namespace

std::optional<std::string> completionScript(const std::string& shell) {
  if (shell == "bash") return bashScript();
  if (shell == "zsh") return zshScript();
  if (shell == "fish") return fishScript();
  return std::nullopt;
}

}  // namespace vellora::cli
