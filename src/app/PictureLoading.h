#pragma once

#include <functional>

#include "base/Lifetime.h"
#include "base/Result.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "media/codecs/ImageLoader.h"
#include "platform/Pasteboard.h"

namespace vellora {

/// Brings pictures from the clipboard or from files, decoded off the main thread. Main thread.
class PictureLoading {
 public:
  /// The picture, or the localisation key of what was wrong.
  using Outcome = Result<LoadedImage, QString>;
  using Callback = std::function<void(const Outcome&)>;

  PictureLoading(Pasteboard& pasteboard, RunLoop& runLoop) : pasteboard_(pasteboard), runLoop_(runLoop) {}

  void loadFromPasteboard(Callback done);
  void loadFromFile(const QString& path, Callback done);

  /// "*.png *.jpg …", for a file chooser.
  static QString fileNamePatterns();

 private:
  void load(std::function<Result<LoadedImage, ImageLoadError>()> work, Callback done);

  Pasteboard& pasteboard_;
  RunLoop& runLoop_;
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.picture-loading"};
};

}  // namespace vellora
