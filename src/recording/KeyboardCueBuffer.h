#pragma once

#include <vector>

#include <QStringList>

#include "record_editor/RecordedKeyCue.h"

namespace vellora {

/// Turns key combinations pressed and let go into cues. A plain value; times are recorded seconds.
class KeyboardCueBuffer {
 public:
  /// A combination replaced sooner than this was on the way to another one and is no cue.
  static constexpr double shortest = 0.06;

  const std::vector<RecordedKeyCue>& cues() const { return cues_; }
  /// Whether the keys of the last cue are still down.
  bool isHeld() const { return isHeld_; }

  /// These keys are down now. Ends the cue before; the same keys once more are a key that repeats.
  void press(const QStringList& keys, double at);
  /// All keys are up; the cue stays for `linger` seconds.
  void release(double at, double linger);
  /// What was pressed in a recording that ends at `at`.
  std::vector<RecordedKeyCue> finished(double at) const;

 private:
  std::vector<RecordedKeyCue> cues_;
  bool isHeld_ = false;
};

}  // namespace vellora
