#pragma once

#include <string>
#include <vector>

#include <QString>
#include <QStringList>

namespace vellora::cli {

/// Becomes the program with the windows, which carries on in this process's place. Returns only when it cannot be
/// started, with the exit code; the reason has been printed.
int becomeDesktopProgram(const QStringList& arguments);

/// Becomes the program that draws pictures without a display; as above.
int becomeRenderProgram(const QStringList& arguments);

/// Becomes the program that streams files; as above.
int becomePublishProgram(const QStringList& arguments);

/// Becomes the program that makes pictures smaller; as above. Its arguments are bytes, as names of files are.
int becomeCompressProgram(const std::vector<std::string>& arguments);

/// Whether there is a desktop at all; without one a message is printed.
bool requireDesktop();

}  // namespace vellora::cli
