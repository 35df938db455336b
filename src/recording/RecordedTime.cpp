#include "recording/RecordedTime.h"

#include <algorithm>

namespace vellora {

void RecordedTime::pause(double now) {
  if (!pauseStarted_) pauseStarted_ = std::max(now, resumeFloor_.value_or(now));
}

void RecordedTime::resume(double now) {
  if (!pauseStarted_) return;
  resumeFloor_ = std::max(now, *pauseStarted_);
  pauseOffset_ += *resumeFloor_ - *pauseStarted_;
  pauseStarted_.reset();
}

std::optional<double> RecordedTime::retimed(double time) const {
  if (pauseStarted_ && time >= *pauseStarted_) return std::nullopt;
  if (resumeFloor_ && time < *resumeFloor_) return std::nullopt;
  return time - pauseOffset_;
}

}  // namespace vellora
