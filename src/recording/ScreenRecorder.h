#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QString>

#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "media/movies/MovieWriter.h"
#include "platform/ScreenStream.h"
#include "record_editor/PointerTrack.h"
#include "recording/KeyboardCueBuffer.h"
#include "recording/KeyboardRecordingCapture.h"
#include "recording/PointerRecorder.h"
#include "recording/RecordedTime.h"
#include "recording/RecordingError.h"
#include "recording/SoundTrack.h"

namespace vellora {

/// What became of a recording's frames and sound.
struct ScreenRecorderReport {
  ScreenStreamCounts stream;
  std::uint64_t written = 0;          ///< frames
  std::uint64_t notReady = 0;         ///< frames the encoder could not take
  double duration = 0;                ///< recorded seconds
  std::uint64_t lostSamples = 0;      ///< of sound, that the encoder could not take
  QString encoder{};                  ///< of the video
  std::vector<SoundReport> sounds{};  ///< as the tracks
};

/// Writes the screen into a movie: the frames of a stream, and the marks and key cues that go with them. The main
/// thread calls it; frames, pauses and keys are handled one after the other on the queue
/// "dev.orlo.vellora.recorder.output", where all callbacks come too.
class ScreenRecorder final : public KeyboardRecorder {
 public:
  struct Callbacks {
    /// The host time of the movie's first frame, once.
    std::function<void(double)> onSessionAnchor{};
    std::function<void(double)> onPauseBoundary{};   ///< host time
    std::function<void(double)> onResumeBoundary{};  ///< host time
    /// The stream ended by itself.
    std::function<void(ScreenCaptureError)> onStreamStopped{};
  };
  struct Outcome {
    std::vector<double> pauseMarks;  ///< recorded seconds
    std::vector<RecordedKeyCue> keyCues;
    ScreenRecorderReport report;
  };

  ScreenRecorder(RunLoop& runLoop, Callbacks callbacks);
  ~ScreenRecorder() override;

  /// The sound, in the order of the movie's tracks, and where the pointer's way goes; before start().
  void setSounds(std::vector<std::shared_ptr<SoundTrack>> sounds);
  void setPointerTrack(std::unique_ptr<PointerTrackWriter> pointerTrack);
  /// Starts writing to `movie` what the stream shows.
  Result<void, RecordingError> start(ScreenStreamService& streams, const ScreenStreamConfiguration& configuration,
                                     std::unique_ptr<MovieWriter> movie);
  void pause();
  void resume();
  void recordKeyboard(const QStringList& keys, double hostTime, double linger) override;
  /// The windows that are not to be seen from now on, in place of those the recording started with.
  void setLeftOut(std::vector<WindowId> windows);
  /// Tells the movie how far the recording is, though the picture stands still and devices give no sound. A few times a
  /// second.
  void advance();
  /// The marks and cues so far, to be kept in case of a kill. `done` comes on the queue.
  void marks(std::function<void(std::vector<double> pauseMarks, std::vector<RecordedKeyCue> keyCues)> done);
  /// Ends stream and movie. `done` comes on the main thread.
  void finish(std::function<void(Result<Outcome, RecordingError>)> done);

 private:
  struct State;
  void receive(const std::shared_ptr<const ScreenFrame>& frame);
  void receive(const PointerSample& sample);
  void writeSounds();

  RunLoop& runLoop_;
  Callbacks callbacks_;
  std::unique_ptr<ScreenStream> stream_;
  std::vector<std::shared_ptr<SoundTrack>> sounds_;
  std::shared_ptr<State> state_;  // of the queue's tasks
  SerialQueue outputQueue_{"dev.orlo.vellora.recorder.output"};
};

}  // namespace vellora
