#include "base/QtRunLoop.h"

#include <time.h>

#include <cmath>
#include <utility>

#include <QTimer>

namespace vellora {
namespace {

class QtTimer final : public Timer {
 public:
  QtTimer(double seconds, bool repeating, RunLoop::Task task) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(!repeating);
    timer_.setInterval(static_cast<int>(std::ceil(std::max(0.0, seconds) * 1000.0)));
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [task = std::move(task)] {
      const auto kept = task;  // the task may destroy this timer
      kept();
    });
    timer_.start();
  }

 private:
  QTimer timer_;
};

}  // namespace

void QtRunLoop::post(Task task) {
  // The event may outlive the call on the thread that posts. What the task holds must not: it goes on the main thread.
  QMetaObject::invokeMethod(
      &context_, [task = std::move(task)]() mutable { std::exchange(task, nullptr)(); }, Qt::QueuedConnection);
}

TimerHandle QtRunLoop::after(double seconds, Task task) {
  return std::make_unique<QtTimer>(seconds, false, std::move(task));
}

TimerHandle QtRunLoop::every(double seconds, Task task) {
  return std::make_unique<QtTimer>(seconds, true, std::move(task));
}

Date QtRunLoop::now() const {
  return Date::fromDateTime(QDateTime::currentDateTimeUtc());
}

double QtRunLoop::hostTime() const {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace vellora
