// moving_scene [--still | --photographs]
//
// Covers $DISPLAY with a busy desktop of which every picture is numbered, 60 a second (see ScenePainter). Says "ready"
// once the first one is shown; ends with SIGTERM and then prints how many pictures it has shown in how many seconds.
// --still shows a single one; with --photographs a third of it is harder to compress.
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>

#include "support/ScenePainter.h"

namespace {

constexpr std::chrono::nanoseconds period(1'000'000'000 / 60);

/// Whether SIGTERM came before `moment`.
bool isEndedBefore(const sigset_t& ends, std::chrono::steady_clock::time_point moment) {
  const auto left = std::max(moment - std::chrono::steady_clock::now(), std::chrono::nanoseconds(0));
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  const timespec wait{seconds.count(), (left - seconds).count()};
  return sigtimedwait(&ends, nullptr, &wait) >= 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view option = argc > 1 ? argv[1] : "";
  const bool isStill = option == "--still";
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGINT);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  using Content = vellora::test::ScenePainter::Content;
  vellora::test::ScenePainter painter("", {}, option == "--photographs" ? Content::textAndPhotographs : Content::text);
  if (!painter.isAlive()) {
    std::fputs("moving_scene: no display\n", stderr);
    return 1;
  }
  int number = 1;
  painter.paint(number);
  std::puts("ready");
  std::fflush(stdout);
  const auto start = std::chrono::steady_clock::now();
  if (isStill) {
    int signal = 0;
    sigwait(&ends, &signal);
    return 0;
  }
  // Without making up for lost time: each picture is to be seen for a while.
  for (auto next = start + period; painter.isAlive() && !isEndedBefore(ends, next);
       next = std::max(next + period, std::chrono::steady_clock::now() + period / 2)) {
    painter.paint(++number);
  }
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  std::printf("%d pictures in %.2f s\n", number, passed.count());
  return 0;
}
