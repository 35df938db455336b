#pragma once

#include "cli/CommandLine.h"

/// What each verb does; the result is the exit code.
namespace vellora::cli {

int launch();
int capture(const Invocation& invocation);
int listDisplays(const Invocation& invocation);
int listWindows(const Invocation& invocation);
int listHistory(const Invocation& invocation);
int reopenFromHistory(const Invocation& invocation);
int showFromHistory(const Invocation& invocation);
int clearHistory(const Invocation& invocation);
int edit(const Invocation& invocation);
int render(const Invocation& invocation);
int annotate(const Invocation& invocation);
int listDevices(const Invocation& invocation);
int record(const Invocation& invocation);
int showProject(const Invocation& invocation);
int showWaveform(const Invocation& invocation);
int publish(const Invocation& invocation);
int compress(const Invocation& invocation);
int showSettings();
int listSettings(const Invocation& invocation);
int getSetting(const Invocation& invocation);
int setSetting(const Invocation& invocation);
int resetSetting(const Invocation& invocation);

}  // namespace vellora::cli
