#include "app/InstanceCommands.h"

#include <memory>

#include <QDir>

#include "capture/CaptureRequest.h"
#include "capture/CaptureResult.h"

namespace vellora {
namespace {

CommandOutcome wrongUsage(const QString& message) {
  return {2, {}, message};
}

CommandOutcome outcomeOf(const CaptureResult& result, bool json) {
  CommandOutcome outcome;
  if (json) {
    outcome.standardOutput = QString::fromUtf8(json::serialize(captureResultJson(result)));
  } else {
    outcome.standardOutput = result.outcome.writtenFiles().join(u'\n');
  }
  outcome.standardError = captureResultMessage(result);
  outcome.exitCode = outcome.standardError.isEmpty() ? 0 : 1;
  return outcome;
}

/// The words after the verb as absolute paths.
QStringList pathsOf(const InstanceServer::Command& command) {
  QStringList paths;
  const QDir folder(command.workingDirectory);
  for (const QString& word : command.arguments.mid(1)) paths << QDir::cleanPath(folder.absoluteFilePath(word));
  return paths;
}

}  // namespace

InstanceCommands::InstanceCommands(CaptureCommands& captures, Windows windows)
    : captures_(captures), windows_(std::move(windows)) {}

void InstanceCommands::run(const InstanceServer::Command& command, InstanceServer::Reply reply) {
  const QStringList& words = command.arguments;
  if (words.size() == 3 && words[0] == u"capture") {
    const auto request = decodeCaptureRequest(words[1].toUtf8());
    if (!request) return reply(wrongUsage(QStringLiteral("the capture request cannot be read")));
    captures_.start(*request, [reply = std::move(reply), json = words[2] == u"json"](const CaptureResult& result) {
      reply(outcomeOf(result, json));
    });
    return;
  }
  if (words.size() == 2 && words[0] == u"reopen") {
    bool ok = false;
    const int number = words[1].toInt(&ok);
    if (ok && number >= 1 && windows_.reopen(number - 1)) return reply({});
    return reply({1, {}, QStringLiteral("there is no such capture in the history")});
  }
  if (words.size() >= 2 && words[0] == u"edit") return edit(pathsOf(command), std::move(reply));
  if (!words.isEmpty() && words[0] == u"compress") {
    windows_.compress(pathsOf(command));
    return reply({});
  }
  reply(wrongUsage(QStringLiteral("this Vellora does not know the command '%1'").arg(words.join(u' '))));
}

void InstanceCommands::edit(const QStringList& paths, InstanceServer::Reply reply) {
  struct Progress {
    InstanceServer::Reply reply;
    qsizetype left;
    QStringList problems;
  };
  const auto progress = std::make_shared<Progress>(Progress{std::move(reply), paths.size(), {}});
  for (const QString& path : paths) {
    windows_.edit(path, [progress, path](const QString& problem) {
      if (!problem.isEmpty()) progress->problems << path + QStringLiteral(": ") + problem;
      if (--progress->left > 0) return;
      progress->reply({progress->problems.isEmpty() ? 0 : 1, {}, progress->problems.join(u'\n')});
    });
  }
}

}  // namespace vellora
