#include "cli/Program.h"

#include <functional>
#include <iostream>

#include "cli/CommandLine.h"
#include "cli/Completions.h"
#include "cli/ManualPage.h"
#include "cli/Verbs.h"

namespace vellora::cli {
namespace {

int printCompletion(const Invocation& invocation) {
  std::cout << completionScript(invocation.arguments.front()).value_or("");
  return Done;
}

int printManual(const Invocation&) {
  std::cout << manualPage();
  return Done;
}

const std::map<std::string, std::function<int(const Invocation&)>>& handlers() {
  static const std::map<std::string, std::function<int(const Invocation&)>> table{
      {"", [](const Invocation&) { return launch(); }},
      {"capture fullscreen", capture},
      {"capture area", capture},
      {"capture window", capture},
      {"displays", listDisplays},
      {"windows", listWindows},
      {"history list", listHistory},
      {"history show", showFromHistory},
      {"history reopen", reopenFromHistory},
      {"history clear", clearHistory},
      {"edit", edit},
      {"render", render},
      {"annotate", annotate},
      {"devices", listDevices},
      {"record", record},
      {"project info", showProject},
      {"project waveform", showWaveform},
      {"publish", publish},
      {"compress", compress},
      {"settings", [](const Invocation&) { return showSettings(); }},
      {"settings list", listSettings},
      {"settings get", getSetting},
      {"settings set", setSetting},
      {"settings reset", resetSetting},
      {"completion", printCompletion},
      {"manual", printManual},
  };
  return table;
}

}  // namespace

int run(int argc, char** argv) {
  const auto parsed = parseCommandLine({argv + 1, argv + argc});
  if (const auto* end = std::get_if<EndsHere>(&parsed)) {
    std::cout << end->standardOutput;
    std::cerr << end->standardError;
    return end->exitCode;
  }
  const auto& invocation = std::get<Invocation>(parsed);
  return handlers().at(invocation.verb)(invocation);
}

}  // namespace vellora::cli
