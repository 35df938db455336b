#pragma once

namespace vellora {

/// The program with windows from start to exit code.
///
/// Without arguments it stays in the tray. "--settings" shows the settings as well. "--capture REQUEST text|json" and
/// "--reopen N" carry out one command and end; the command line starts those where no instance is running.
int runDesktop(int argc, char** argv);

}  // namespace vellora
