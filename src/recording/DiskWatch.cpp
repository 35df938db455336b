#include "recording/DiskWatch.h"

#include <algorithm>

namespace vellora {
namespace {

/// What the rate is measured over, in seconds: long enough for a still screen to average with a lively one.
constexpr double window = 60;
constexpr double leastWindow = 10;

}  // namespace

DiskWatch::Advice DiskWatch::look(double time, std::int64_t written, std::int64_t free) {
  looks_.push_back({time, written});
  while (looks_.size() > 2 && looks_[1].time <= time - window) looks_.pop_front();
  remaining_ = static_cast<double>(std::max<std::int64_t>(0, free - reserve)) / rate();
  if (free <= reserve) return Advice::full;
  if (hasWarned_ || remaining_ >= warningTime) return Advice::fine;
  hasWarned_ = true;
  return Advice::low;
}

double DiskWatch::rate() const {
  const double span = looks_.back().time - looks_.front().time;
  if (span < leastWindow) return expectedRate_;
  const double measured = static_cast<double>(looks_.back().written - looks_.front().written) / span;
  // A screen that stood still may move the next moment.
  return std::max(measured, expectedRate_ / 4);
}

}  // namespace vellora
