#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

#include <QByteArray>
#include <QString>

#include "base/Bitmap.h"
#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "editor/compressor/CompressionRun.h"
#include "preferences/Settings.h"

namespace vellora {

class CompressorWindow;

/// A capture of the history, to be chosen from a menu.
struct CompressorCapture {
  QString title;
  QString thumbnailFile;  ///< empty when there is none
};

/// The window of the bulk compressor and the run it shows. One per program; opening it again brings it to the front. A
/// run goes on when the window is closed and tells of its end in a toast; without a run closing empties the list. Main
/// thread.
class CompressorWindowController {
 public:
  /// Those that may be empty are left out of the window then.
  struct Services {
    RunLoop& runLoop;
    Settings& settings;
    /// Shows a file in the file manager. May be empty.
    std::function<void(const std::filesystem::path&)> reveal{};
    /// The picture on the clipboard, or a null one. May be empty.
    std::function<void(std::function<void(Bitmap)>)> readClipboard{};
    /// The history, newest first. May be empty.
    std::function<std::vector<CompressorCapture>()> captures{};
    /// The finished picture of an entry of the history with a name for it, or a null one.
    std::function<void(std::size_t index, std::function<void(Bitmap, QString name)>)> readCapture{};
    /// The window was closed, or a run ended. May be empty.
    std::function<void()> changed{};
  };

  explicit CompressorWindowController(Services services);
  ~CompressorWindowController();

  void show();
  bool isVisible() const;
  /// Whether a run goes on, with or without a window.
  bool isRunning() const { return run_.isRunning(); }
  void addFiles(std::vector<std::filesystem::path> files);
  /// A capture, as pixels.
  void addCapture(const Bitmap& picture, const QString& name);

  /// Nothing before it was first shown, and after it was closed without a run.
  CompressorWindow* window() { return window_.get(); }
  CompressionRun& run() { return run_; }

 private:
  CompressorWindow& madeWindow();
  void itemChanged(std::uint64_t id);
  void finished();
  void closed();

  Services services_;
  CompressionRun run_;
  std::unordered_set<std::uint64_t> inRun_;  ///< the pictures of the run
  QByteArray geometry_;                      ///< of the window that was closed last
  std::unique_ptr<CompressorWindow> window_;
  Lifetime lifetime_;
};

}  // namespace vellora
