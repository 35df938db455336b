#include "app/InstanceCommands.h"

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

}  // namespace

InstanceCommands::InstanceCommands(CaptureCommands& captures, std::function<bool(int)> reopen)
    : captures_(captures), reopen_(std::move(reopen)) {}

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
    if (ok && number >= 1 && reopen_(number - 1)) return reply({});
    return reply({1, {}, QStringLiteral("there is no such capture in the history")});
  }
  reply(wrongUsage(QStringLiteral("this Vellora does not know the command '%1'").arg(words.join(u' '))));
}

}  // namespace vellora
