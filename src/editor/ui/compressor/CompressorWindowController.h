#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include <QString>

#include "base/Bitmap.h"
#include "base/RunLoop.h"
#include "preferences/Settings.h"

namespace vellora {

/// The window of the bulk compressor: a list of pictures, options, a comparison of before and after. Shows a
/// CompressionRun and calls it back. One per program; opening it again brings it to the front. Main thread.
class CompressorWindowController {
 public:
  struct Services {
    RunLoop& runLoop;
    Settings& settings;
    /// Shows a file in the file manager.
    std::function<void(const std::filesystem::path&)> reveal;
    /// The picture on the clipboard, or nothing.
    std::function<void(std::function<void(Bitmap)>)> readClipboard;
  };

  explicit CompressorWindowController(Services services);
  ~CompressorWindowController();

  void show();
  bool isVisible() const;
  void addFiles(std::vector<std::filesystem::path> files);
  /// A capture, as pixels.
  void addCapture(const Bitmap& picture, const QString& name);

 private:
  class Window;
  Services services_;
  std::unique_ptr<Window> window_;
};

}  // namespace vellora
