#include "cli/compress/CompressProgram.h"

#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <optional>
#include <system_error>

#include "base/QtRunLoop.h"
#include "cli/compress/CompressReport.h"
#include "cli/compress/CompressRequest.h"

namespace vellora {
namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int wrongUsage = 2;
/// How soon a signal is heeded.
constexpr double signalInterval = 0.05;

volatile std::sig_atomic_t wasInterrupted = 0;

void complain(const std::string& message) {
  std::fprintf(stderr, "vellora: %s\n", message.c_str());
}

/// One run from the first line to the last.
class CompressProgram {
 public:
  explicit CompressProgram(CompressRequest request)
      : request_(std::move(request)),
        run_(runLoop_,
             {.onListChanged = [this] { begin(); },
              .onItemChanged = [this](std::uint64_t id) { tellOf(id); },
              .onProgress = [this](const CompressionProgress& progress) { tellProgress(progress); },
              .onFinished = [this](const CompressionProgress& progress) { end(progress); }},
             request_.jobs) {}

  int carryOut() {
    run_.addPaths(request_.paths, request_.isRecursive);
    watch_ = runLoop_.every(signalInterval, [this] {
      if (wasInterrupted != 0) interrupt();
    });
    return QCoreApplication::exec();
  }

 private:
  void begin() {
    if (hasBegun_ || wasInterrupted != 0) return;
    hasBegun_ = true;
    if (run_.items().empty()) {
      complain("there is no picture to compress");
      if (request_.json) std::printf("%s\n", jsonOf(run_, {}, false).c_str());
      QCoreApplication::exit(failed);
      return;
    }
    run_.start(request_.options, request_.destination);
  }

  void interrupt() {
    wasInterrupted = 0;
    isInterrupted_ = true;
    if (!hasBegun_) return QCoreApplication::exit(failed);
    run_.cancel();
  }

  void tellOf(std::uint64_t id) {
    const CompressionItem* item = run_.find(id);
    if (!item) return;
    if (item->state == CompressionState::failed) {
      clearProgress();
      complain(item->sourceURL.string() + ": " + describe(*item->failure));
    } else if (!request_.json &&
               (item->state == CompressionState::done || item->state == CompressionState::unchanged)) {
      clearProgress();
      std::printf("%s\n", lineOf(*item).c_str());
      std::fflush(stdout);
    }
  }

  void tellProgress(const CompressionProgress& progress) {
    if (!isTerminal_) return;
    std::fprintf(stderr, "\r%zu of %zu", progress.finished, progress.total);
    if (progress.remaining)
      std::fprintf(stderr, ", %lld s left", static_cast<long long>(progress.remaining->count() / 1000 + 1));
    std::fprintf(stderr, "\x1b[K");
  }

  void clearProgress() {
    if (isTerminal_) std::fprintf(stderr, "\r\x1b[K");
  }

  void end(const CompressionProgress& progress) {
    clearProgress();
    if (request_.json)
      std::printf("%s\n", jsonOf(run_, progress, isInterrupted_).c_str());
    else if (isInterrupted_)
      complain("interrupted");
    else if (progress.total > 1)
      std::printf("%s\n", summaryOf(progress).c_str());
    QCoreApplication::exit(isInterrupted_ || progress.failed != 0 ? failed : done);
  }

  CompressRequest request_;
  QtRunLoop runLoop_;
  CompressionRun run_;
  TimerHandle watch_;
  const bool isTerminal_ = ::isatty(STDERR_FILENO) != 0;
  bool hasBegun_ = false;
  bool isInterrupted_ = false;
};

}  // namespace

int runCompress(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  auto request = CompressRequest::from({argv + 1, argv + argc});
  if (!request) {
    complain(request.error());
    return wrongUsage;
  }
  if (request->destination.mode == CompressOutputMode::customFolder) {
    std::error_code error;
    std::filesystem::create_directories(request->destination.folder, error);
    if (error) {
      complain(request->destination.folder.string() + ": " + error.message());
      return failed;
    }
  }
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, [](int) { wasInterrupted = 1; });
  return CompressProgram(std::move(*request)).carryOut();
}

}  // namespace vellora
