#include "cli/ManualPage.h"

#include <sstream>

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"

namespace vellora::cli {
namespace {

/// Text as roff wants it: hyphens that are typed, backslashes and leading dots escaped.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '-') {
      result += "\\-";
    } else if (c == '\\') {
      result += "\\e";
    } else {
      result += c;
    }
  }
  return result.starts_with('.') || result.starts_with('\'') ? "\\&" + result : result;
}

void writeVerb(std::ostringstream& out, const std::string& path, const VerbDescription& verb) {
  const std::string name = path.empty() ? verb.name : path + " " + verb.name;
  if (verb.standsAlone || verb.verbs.empty()) {
    out << ".TP\n.B " << escaped("vellora " + name);
    for (const ArgumentDescription& argument : verb.arguments) {
      out << (argument.isRequired ? " " : " [") << "\\fI" << escaped(argument.name) << "\\fR"
          << (argument.isRepeated ? " ..." : "") << (argument.isRequired ? "" : "]");
    }
    for (const OptionDescription& option : verb.options) {
      if (option.isRequired) out << " " << escaped(option.name) << " \\fI" << escaped(option.value) << "\\fR";
    }
    out << "\n" << escaped(verb.summary) << ".\n";
    for (const ArgumentDescription& argument : verb.arguments) {
      out << ".RS\n.TP\n.I " << escaped(argument.name) << "\n" << escaped(argument.help) << "\n.RE\n";
    }
    for (const OptionDescription& option : verb.options) {
      out << ".RS\n.TP\n.B " << escaped(option.name);
      if (!option.value.empty()) out << " \\fI" << escaped(option.value) << "\\fR";
      out << "\n" << escaped(option.help) << "\n.RE\n";
    }
  }
  for (const VerbDescription& child : verb.verbs) writeVerb(out, name, child);
  if (!verb.description.empty()) out << ".PP\n" << escaped(verb.description) << "\n";
}

}  // namespace

std::string manualPage() {
  std::ostringstream out;
  out << R"(.TH VELLORA 1 "" "Vellora )" << programVersion() << R"(" "User Commands")"
      << "\n"
      << ".SH NAME\nvellora \\- take, annotate and share pictures of the screen\n"
      << ".SH SYNOPSIS\n.B vellora\n[\\fIverb\\fR] [\\fIoptions\\fR]\n"
      << ".SH DESCRIPTION\nWithout a verb Vellora starts in the tray of the desktop; when it is running already, it "
         "shows its\n"
      << "window of commands. Every flow also runs from the command line: where a running Vellora is concerned the "
         "verb reaches\n"
      << "it, otherwise it does its work in place.\n"
      << ".SH VERBS\n";
  for (const VerbDescription& verb : commandTable()) writeVerb(out, "", verb);
  out << ".SH OPTIONS\nEvery verb takes:\n.TP\n.B " << escaped(jsonOption().name) << "\n"
      << escaped(jsonOption().help) << "\n"
      << ".TP\n.B \\-h, \\-\\-help\nprint help and exit\n.TP\n.B \\-\\-version\nprint the version and exit\n"
      << ".SH EXIT STATUS\n0 when done, 1 when it failed, 2 when the command line is wrong. Messages go to standard "
         "error.\n"
      << ".SH ENVIRONMENT\n.TP\n.B VELLORA_LOG\nhow much is logged to standard error: error, warning (the default), "
         "info or debug\n"
      << ".TP\n.B VELLORA_SETTINGS_SNAPSHOT\na folder; at its start Vellora writes a picture of every settings page "
         "into it\n"
      << ".SH FILES\n.TP\n.I ~/.config/vellora/\nthe settings\n.TP\n.I ~/.local/share/Vellora/Sessions/\nthe history "
         "of captures\n"
      << ".TP\n.I ~/.local/share/Vellora/Recovery/\nwhat editors and pins have open, found again after a crash\n"
      << ".TP\n.I ~/.local/share/Vellora/Clipboard/\nthe files behind the last copies\n";
  return out.str();
}

}  // namespace vellora::cli
