#pragma once

namespace vellora::cli {

/// The command line from start to exit code.
int run(int argc, char** argv);

}  // namespace vellora::cli
