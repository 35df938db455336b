// moving_scene [--still | --photographs] [--rate R] [--times FILE]
//
// Covers $DISPLAY with a busy desktop of which every picture is numbered (see ScenePainter), R a second, otherwise 60.
// Says "ready" once the first one is shown; ends with SIGTERM and then prints how many pictures it has shown in how
// many seconds. --still shows a single one; with --photographs a third of it is harder to compress. FILE gets a line
// for each picture: its number and the second of CLOCK_MONOTONIC at which it was on the screen.
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "support/ScenePainter.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Whether SIGTERM came before `moment`.
bool isEndedBefore(const sigset_t& ends, Clock::time_point moment) {
  const auto left = std::max(moment - Clock::now(), std::chrono::nanoseconds(0));
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  const timespec wait{seconds.count(), (left - seconds).count()};
  return sigtimedwait(&ends, nullptr, &wait) >= 0;
}

}  // namespace

int main(int argc, char** argv) {
  using Content = vellora::test::ScenePainter::Content;
  bool isStill = false;
  Content content = Content::text;
  double rate = 60;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> times(nullptr, std::fclose);
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--still") isStill = true;
    if (option == "--photographs") content = Content::textAndPhotographs;
    if (option == "--rate" && i + 1 < argc) rate = std::max(1.0, std::atof(argv[++i]));
    if (option == "--times" && i + 1 < argc) times.reset(std::fopen(argv[++i], "we"));
  }
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGINT);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  vellora::test::ScenePainter painter("", {}, content);
  if (!painter.isAlive()) {
    std::fputs("moving_scene: no display\n", stderr);
    return 1;
  }
  int number = 0;
  const auto show = [&] {
    painter.paint(++number);
    const std::chrono::duration<double> now = Clock::now().time_since_epoch();
    if (times) std::fprintf(times.get(), "%d %.6f\n", number, now.count());
  };
  show();
  std::puts("ready");
  std::fflush(stdout);
  const auto start = Clock::now();
  if (isStill) {
    int signal = 0;
    sigwait(&ends, &signal);
    return 0;
  }
  const std::chrono::nanoseconds period(static_cast<std::chrono::nanoseconds::rep>(1e9 / rate));
  // Without making up for lost time: each picture is to be seen for a while.
  for (auto next = start + period; painter.isAlive() && !isEndedBefore(ends, next);
       next = std::max(next + period, Clock::now() + period / 2)) {
    show();
  }
  const std::chrono::duration<double> passed = Clock::now() - start;
  std::printf("%d pictures in %.2f s\n", number, passed.count());
  return 0;
}
