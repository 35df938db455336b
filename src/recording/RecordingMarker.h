#pragma once

#include <memory>

#include <QString>
#include <QStringList>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// Says that a bundle is being recorded into: a file ".recording" in it, locked by the recording program for as long as
/// it lives. A marker nobody holds is one of a program that was killed. Destroying the object leaves the file; `remove`
/// says that the recording is whole. Any thread.
class RecordingMarker {
 public:
  /// Whether a bundle is being recorded into, or was when its program was killed.
  static bool isPresent(const QString& bundle);
  static Result<RecordingMarker, FileError> place(const QString& bundle);
  /// Takes over the marker of a bundle whose program is gone; nothing when there is none, or it lives.
  static std::unique_ptr<RecordingMarker> takeAbandoned(const QString& bundle);

  RecordingMarker(RecordingMarker&& other) noexcept;
  RecordingMarker& operator=(RecordingMarker&& other) noexcept;
  ~RecordingMarker();
  void remove();

 private:
  RecordingMarker(int fd, QString path) : fd_(fd), path_(std::move(path)) {}

  int fd_ = -1;
  QString path_;
};

}  // namespace vellora
