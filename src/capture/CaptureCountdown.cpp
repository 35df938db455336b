#include "capture/CaptureCountdown.h"

#include <utility>

namespace vellora {

void CaptureCountdown::start(std::function<void(int)> tick, std::function<void()> fired) {
  cancel();
  tick_ = std::move(tick);
  fired_ = std::move(fired);
  remaining_ = seconds_;
  timer_ = runLoop_.every(1.0, [this] { second(); });
  const auto first = tick_;
  if (first) first(remaining_);
}

void CaptureCountdown::second() {
  --remaining_;
  if (remaining_ > 0) {
    const auto tick = tick_;
    if (tick) tick(remaining_);
    return;
  }
  const auto fired = std::move(fired_);
  cancel();
  if (fired) fired();
}

void CaptureCountdown::cancel() {
  timer_.reset();
  remaining_ = 0;
  tick_ = nullptr;
  fired_ = nullptr;
}

}  // namespace vellora
