#pragma once

#include <span>

#include <QByteArray>

namespace vellora {

/// The file "waveform.json" of a project, which tells outside programs how loud a recording is and where it is silent.
class WaveformFile {
 public:
  /// An object with "samplesPerSecond", "duration" in seconds, "peaks" (0 to 1) and "silences", an array of {"start",
  /// "end"} in seconds: spans of at least 0.15 s in which no level is above 0.18. `levels` are an envelope's linear
  /// ones; a rate that is not positive stands for windows of 0.02 s.
  static QByteArray serialize(std::span<const float> levels, double samplesPerSecond);
};

}  // namespace vellora
