#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/ScreenStream.h"
#include "record_editor/PointerTrack.h"

namespace vellora {

/// Writes a recording's pointer track from what the stream tells of the pointer. What it does while nothing is recorded
/// is left out, but where it is afterwards is not. One thread at a time.
class PointerRecorder {
 public:
  explicit PointerRecorder(std::unique_ptr<PointerTrackWriter> track) : track_(std::move(track)) {}

  /// `position`: the recorded second of the sample; nothing before the first frame and in a pause.
  void receive(const PointerSample& sample, std::optional<double> position);
  /// The recording begins, or goes on, at this recorded second.
  void enter(double position);
  /// Hands to the system what was written so far.
  void flush() { track_->flush(); }

 private:
  void write(double position);

  std::unique_ptr<PointerTrackWriter> track_;
  std::optional<PointerSample> sample_;  // the last one
  std::optional<std::uint64_t> shape_;   // written
  std::uint32_t buttons_ = 0;            // written
};

}  // namespace vellora
