#pragma once

namespace vellora {

/// The program behind `vellora compress`. Its arguments come from `vellora`, which has checked their form: "PATH…
/// [--recursive]
/// [--format F] [--quality N] [--max-edge N] [--output-folder DIR] [--keep-metadata] [--keep-dates] [--jobs N]
/// [--json]", paths absolute, options before paths with "--" between them. The result is the exit code: 1 when a file
/// failed.
int runCompress(int argc, char** argv);

}  // namespace vellora
