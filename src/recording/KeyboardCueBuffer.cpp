#include "recording/KeyboardCueBuffer.h"

#include <algorithm>
#include <cmath>

namespace vellora {

void KeyboardCueBuffer::press(const QStringList& keys, double at) {
  if (!std::isfinite(at) || keys.isEmpty()) return;
  if (!cues_.empty()) {
    RecordedKeyCue& last = cues_.back();
    if (isHeld_ && last.keys == keys) return;
    last.end = std::min(at, last.end);
    if (last.end - last.start < shortest) cues_.pop_back();
  }
  cues_.push_back({at, RecordedKeyCue::open, keys});
  isHeld_ = true;
}

void KeyboardCueBuffer::release(double at, double linger) {
  if (!isHeld_ || !std::isfinite(at + linger)) return;
  RecordedKeyCue& last = cues_.back();
  last.end = std::max(last.start, at + linger);
  isHeld_ = false;
}

std::vector<RecordedKeyCue> KeyboardCueBuffer::finished(double at) const {
  std::vector<RecordedKeyCue> result;
  for (RecordedKeyCue cue : cues_) {
    cue.end = std::min(at, cue.end);
    if (cue.start < cue.end) result.push_back(std::move(cue));
  }
  return result;
}

}  // namespace vellora
