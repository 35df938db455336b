#include "cli/compress/CompressProgram.h"

#include <malloc.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include <QCoreApplication>

#include "base/QtRunLoop.h"
#include "cli/compress/CompressReport.h"
#include "cli/compress/CompressRequest.h"
#include "cli/compress/ProgressLine.h"
#include "cli/compress/StopSignals.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

/// In bytes; the most that glibc allows.
constexpr int largestFromHeap = 32 << 20;
constexpr int mostKeptFree = 128 << 20;
/// One for each thread would keep as much.
constexpr int heaps = 2;

enum ExitCode : int { Done = 0, Failed = 1, WrongUsage = 2 };

int complain(int code, const std::string& message) {
  std::fprintf(stderr, "vellora: %s\n", message.c_str());
  return code;
}

/// One run, from looking for the pictures to the last line.
class CompressProgram {
 public:
  explicit CompressProgram(CompressRequest request)
      : request_(std::move(request)),
        run_(runLoop_,
             {.onListChanged = [this] { begin(); },
              .onItemChanged = [this](std::uint64_t id) { tellOf(id); },
              .onProgress = [this](const CompressionProgress& progress) { line_.show(progress); },
              .onFinished = [this](const CompressionProgress&) { end(); }},
             request_.jobs) {
    std::error_code ignored;
    folder_ = fs::current_path(ignored);
  }

  /// The exit code.
  int carryOut() {
    run_.addPaths(request_.paths, request_.isRecursive, request_.destination.folder);
    return QCoreApplication::exec();
  }

 private:
  void begin() {
    if (isInterrupted_) return;
    run_.start(request_.options, request_.destination);
    if (run_.isRunning()) return;
    complain(Done, "there are no pictures");
    end();
  }

  void interrupt() {
    isInterrupted_ = true;
    if (run_.isRunning()) {
      run_.cancel();
    } else {
      end();
    }
  }

  void tellOf(std::uint64_t id) {
    const CompressionItem* item = run_.find(id);
    const bool isFailure = item->state == CompressionState::failed;
    const bool isSuccess = item->state == CompressionState::done || item->state == CompressionState::unchanged;
    if (!isFailure && (!isSuccess || request_.json)) return;
    line_.clear();
    if (isFailure) {
      complain(Failed, lineOf(*item, folder_));
    } else {
      std::printf("%s\n", lineOf(*item, folder_).c_str());
      std::fflush(stdout);
    }
    hasFailures_ = hasFailures_ || isFailure;
  }

  void end() {
    line_.clear();
    if (request_.json) {
      std::printf("%s\n", jsonOf(run_.items(), isInterrupted_).c_str());
    } else if (run_.items().size() > 1) {
      std::printf("%s\n", summaryOf(run_.items()).c_str());
    }
    std::fflush(stdout);
    if (isInterrupted_) complain(Failed, "interrupted");
    QCoreApplication::exit(isInterrupted_ || hasFailures_ ? Failed : Done);
  }

  const CompressRequest request_;
  fs::path folder_;  ///< where the user is
  ProgressLine line_{stderr};
  bool isInterrupted_ = false;
  bool hasFailures_ = false;
  QtRunLoop runLoop_;
  CompressionRun run_;
  const StopSignals signals_{[this] { interrupt(); }};
};

}  // namespace

int runCompress(int argc, char** argv) {
  // What one picture gives back, the next one takes: the kernel need not clear the same memory again and again.
  ::mallopt(M_MMAP_THRESHOLD, largestFromHeap);
  ::mallopt(M_TRIM_THRESHOLD, mostKeptFree);
  ::mallopt(M_ARENA_MAX, heaps);
  // The files are what counts; who reads the lines may go, and a file that may not be so large is one that failed.
  ::signal(SIGPIPE, SIG_IGN);
  ::signal(SIGXFSZ, SIG_IGN);
  const QCoreApplication application(argc, argv);
  auto request = CompressRequest::from({argv + 1, argv + argc});
  if (!request) return complain(WrongUsage, request.error());
  const fs::path& folder = request->destination.folder;
  std::error_code error;
  if (!folder.empty() && !fs::is_directory(folder, error)) fs::create_directories(folder, error);
  if (error) return complain(Failed, folder.string() + ": " + error.message());
  return CompressProgram(std::move(*request)).carryOut();
}

}  // namespace vellora
