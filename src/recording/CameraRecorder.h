#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include <QString>

#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "media/loaded_movies/Movies.h"
#include "platform/CameraCapture.h"

namespace vellora {

/// A camera: shown from the moment it is opened, written into a movie on the time axis of the screen's once that has
/// its first frame. Opening it and closing it take as long as the device does: not on the main thread, which
/// calls the rest. Pictures are handled on the queue "dev.orlo.vellora.camera.output".
class CameraRecorder {
 public:
  /// The size asked of the camera.
  static constexpr int wantedWidth = 1920;
  static constexpr int wantedHeight = 1080;

  struct Callbacks {
    /// Every picture, on the queue.
    std::function<void(std::shared_ptr<const CameraFrame>)> onPreview{};
    /// The camera is gone. On the main thread.
    std::function<void(CameraCaptureError)> onLost{};
  };

  CameraRecorder(RunLoop& runLoop, Callbacks callbacks);
  ~CameraRecorder();

  Result<void, CameraCaptureError> open(CameraCapture& cameras, const QString& deviceID);
  /// Ends the camera; what is written stays open until finishWriting().
  void close() { stream_.reset(); }

  /// Writes into a movie of its own, made with the first picture, whose size it has.
  void startWriting(Movies& movies, const QString& outputURL);
  /// The host time of the screen's first frame, which is the movie's start. Any thread, as the next two.
  void anchor(double at);
  void pause(double at);
  void resume(double at);
  /// Ends the movie where `at`, a host time, falls; `done` comes on the main thread and tells whether there is one.
  void finishWriting(double at, std::function<void(bool hasMovie)> done);

 private:
  struct State;

  void end(double at, const std::function<void(bool)>& done);

  RunLoop& runLoop_;
  Callbacks callbacks_;
  std::unique_ptr<CameraStream> stream_;
  std::shared_ptr<State> state_;
  SerialQueue outputQueue_{"dev.orlo.vellora.camera.output"};
};

}  // namespace vellora
