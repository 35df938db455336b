#pragma once

#include <functional>
#include <memory>

#include <QStringList>

#include "app/PictureLoading.h"
#include "base/Date.h"
#include "base/SerialQueue.h"
#include "editor/ImageDocument.h"
#include "editor/ui/compressor/CompressorWindowController.h"

namespace vellora {

struct AppServices;

/// Gives the compressor's window what it needs of the program: the clipboard, the history, the file manager. Main
/// thread.
class CompressorHost {
 public:
  /// `changed` hears that the window went or a run ended.
  CompressorHost(AppServices& services, PictureLoading& pictures, std::function<void()> changed);
  ~CompressorHost();

  /// Shows the window, with these files and folders added to its list.
  void open(const QStringList& paths = {});
  /// Shows it with the finished picture of a document added, once that is drawn.
  void addDocument(const ImageDocument& document, Date capturedAt);
  /// Ends what runs; only whole files stay.
  void close();
  /// Whether there is a window or a run.
  bool isOpen() const;

 private:
  using CaptureReceiver = std::function<void(Bitmap, QString name)>;

  CompressorWindowController& controller();
  std::vector<CompressorCapture> captures();
  void readCapture(std::size_t index, CaptureReceiver receive);

  AppServices& services_;
  PictureLoading& pictures_;
  const std::function<void()> changed_;
  std::unique_ptr<CompressorWindowController> controller_;
  int awaited_ = 0;  ///< documents that are being drawn
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.compressor-captures"};
};

}  // namespace vellora
