#include "cli/publish/PublishProgram.h"

#include <unistd.h>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/io_context.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "cli/publish/FilePublisher.h"
#include "cli/publish/LiveLine.h"
#include "cli/publish/PublishReport.h"
#include "cli/publish/Redaction.h"
#include "cli/publish/SecretInput.h"
#include "cli/publish/StopSignals.h"

namespace vellora {
namespace {

enum ExitCode : int { Done = 0, Failed = 1, WrongUsage = 2 };

struct Arguments {
  std::string file;
  std::string url;
  std::optional<std::string> user;
  bool keyFromStandardInput = false;
  bool json = false;
  PublishRequest request;  ///< what the words alone say
};

std::optional<Arguments> parseArguments(const std::vector<std::string_view>& words) {
  Arguments arguments;
  std::vector<std::string_view> positional;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view word = words[i];
    const bool hasValue = i + 1 < words.size();
    if (word == "--loop") {
      arguments.request.loop = true;
    } else if (word == "--as-fast-as-possible") {
      arguments.request.asFastAsPossible = true;
    } else if (word == "--json") {
      arguments.json = true;
    } else if (word == "--key-from-stdin") {
      arguments.keyFromStandardInput = true;
    } else if (word == "--ca-file" && hasValue) {
      arguments.request.authorities = words[++i];
    } else if (word == "--user" && hasValue) {
      arguments.user = words[++i];
    } else {
      positional.push_back(word);
    }
  }
  if (positional.size() != 2) return std::nullopt;
  arguments.file = positional[0];
  arguments.url = positional[1];
  return arguments;
}

int complain(int code, const std::string& message) {
  std::fprintf(stderr, "vellora: %s\n", message.c_str());
  return code;
}

/// Completes the request with what its address says and standard input holds; otherwise why that is not possible.
Result<PublishRequest, std::string> completeRequest(const Arguments& arguments) {
  PublishRequest request = arguments.request;
  if (arguments.keyFromStandardInput) {
    auto server = RTMPURL::parse(arguments.url);
    if (!server) return failure(server.error());
    request.server = std::move(*server);
  } else {
    auto address = RTMPPublishAddress::parse(arguments.url);
    if (!address) return failure(address.error());
    request.server = std::move(address->server);
    request.streamName = std::move(address->streamName);
  }
  request.user = request.server.user;
  request.password = request.server.password;
  SecretInput input(STDIN_FILENO);
  if (arguments.user) {
    auto password = input.read("password");
    if (!password) return failure(password.error());
    request.user = *arguments.user;
    request.password = std::move(*password);
  }
  if (arguments.keyFromStandardInput) {
    auto key = input.read("stream name");
    if (!key) return failure(key.error());
    request.streamName = std::move(*key);
  }
  return request;
}

asio::awaitable<void> showProgress(LiveLine& line, const FilePublisher& publisher) {
  asio::steady_timer timer(co_await asio::this_coro::executor);
  for (;;) {
    timer.expires_after(line.interval());
    co_await timer.async_wait(asio::use_awaitable);
    line.show(publisher.progress(), std::chrono::steady_clock::now());
  }
}

asio::awaitable<void> stopOnSignal(StopSignals& signals, FilePublisher& publisher) {
  const bool wanted = co_await signals.first();
  if (wanted) publisher.stop();
}

asio::awaitable<void> publish(asio::io_context& context, FilePublisher& publisher, PublishReport& report) {
  report.outcome = co_await publisher.run();
  context.stop();
}

void publishFile(MediaReader& reader, PublishRequest request, asio::io_context& context, StopSignals& signals,
                 PublishReport& report) {
  report.video = reader.video();
  report.audio = reader.audio();
  FilePublisher publisher(context, reader, std::move(request));
  LiveLine line(stderr);
  asio::co_spawn(context, publish(context, publisher, report), asio::detached);
  asio::co_spawn(context, stopOnSignal(signals, publisher), asio::detached);
  asio::co_spawn(context, showProgress(line, publisher), asio::detached);
  context.run();
  line.clear();
  report.progress = publisher.progress();
}

int finish(const PublishReport& report, const Redaction& redaction, bool json) {
  const std::string text = json ? reportJson(report, redaction) : reportText(report);
  if (!text.empty()) std::printf("%s\n", text.c_str());
  std::fflush(stdout);
  const auto& failed = report.outcome.failure;
  return failed ? complain(Failed, printable(*failed, redaction)) : int{Done};
}

}  // namespace

int runPublish(int argc, char** argv) {
  ::signal(SIGPIPE, SIG_IGN);
  const auto arguments = parseArguments({argv + 1, argv + argc});
  if (!arguments) return complain(WrongUsage, "use 'vellora publish FILE URL'");
  auto request = completeRequest(*arguments);
  if (!request) return complain(WrongUsage, request.error());

  Redaction redaction;
  for (const std::string& secret : {request->streamName, request->password, request->server.query}) {
    redaction.add(secret);
  }
  PublishReport report;
  report.file = arguments->file;
  report.server = printableAddress(request->server);
  asio::io_context context(1);
  StopSignals signals(context);
  auto reader = openForStreaming(arguments->file);
  if (reader) {
    publishFile(**reader, std::move(*request), context, signals, report);
  } else {
    report.outcome = {PublishOutcome::State::failed, publishFailure(reader.error())};
  }
  return finish(report, redaction, arguments->json);
}

}  // namespace vellora
