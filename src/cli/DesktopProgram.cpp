#include "cli/DesktopProgram.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include <QFile>
#include <QFileInfo>

#include "cli/CommandLine.h"
#include "cli/Terminal.h"

namespace vellora::cli {
namespace {

/// Beside this program in a build, below libexec when installed.
QString pathOf(const QString& programName) {
  const QString here = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
  for (const QString& folder : {here, here + QStringLiteral("/../libexec/vellora")}) {
    const QFileInfo candidate(folder + u'/' + programName);
    if (candidate.isExecutable()) return candidate.absoluteFilePath();
  }
  return {};
}

int become(const QString& programName, std::vector<std::string> words) {
  const QString path = pathOf(programName);
  if (path.isEmpty()) {
    printError(QStringLiteral("%1 is missing from this installation").arg(programName));
    return Failed;
  }
  words.insert(words.begin(), QFile::encodeName(path).toStdString());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  ::execv(pointers.front(), pointers.data());
  printError(QStringLiteral("cannot start %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno))));
  return Failed;
}

int become(const QString& programName, const QStringList& arguments) {
  std::vector<std::string> words;
  for (const QString& argument : arguments) words.push_back(argument.toStdString());
  return become(programName, std::move(words));
}

}  // namespace

int becomeDesktopProgram(const QStringList& arguments) {
  if (!requireDesktop()) return Failed;
  return become(QStringLiteral("vellora-desktop"), arguments);
}

int becomeRenderProgram(const QStringList& arguments) {
  return become(QStringLiteral("vellora-render"), arguments);
}

int becomePublishProgram(const QStringList& arguments) {
  return become(QStringLiteral("vellora-publish"), arguments);
}

int becomeCompressProgram(const std::vector<std::string>& arguments) {
  return become(QStringLiteral("vellora-compress"), arguments);
}

bool requireDesktop() {
  const bool isWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
    if (isWayland)
      printError(QStringLiteral("this is a Wayland session: only programs that use X11 can be seen for now"));
    return true;
  }
  printError(isWayland ? QStringLiteral("Wayland without X11 cannot be captured for now")
                       : QStringLiteral("there is no display here; set DISPLAY, or use verbs that need no window"));
  return false;
}

}  // namespace vellora::cli
