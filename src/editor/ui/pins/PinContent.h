#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QPoint>
#include <QString>

#include "base/Bitmap.h"
#include "base/Date.h"
#include "editor/ImageDocument.h"

class QScreen;

namespace vellora {

class PinWindowController;
class SharedPng;

/// What a pin shows and what lies behind it.
struct PinContent {
  Bitmap image;                           ///< the finished picture
  double scale = 1;                       ///< its pixels per point
  std::shared_ptr<SharedPng> png;         ///< of `image`; made when it is first asked for if absent
  std::optional<ImageDocument> document;  ///< the layers, when the picture came from the editor or the history
  Date capturedAt;
};

/// Where a new pin goes.
struct PinPlacement {
  QScreen* screen = nullptr;     ///< null: the one of `center`, else of the pointer
  std::optional<QPoint> center;  ///< in the desktop's points; absent: in the middle of the screen
  double scale = 1;              ///< wanted; less where the picture would not fit the screen
};

/// What pins ask of the program around them. Called on the main thread unless said otherwise.
struct PinActions {
  /// Copies or saves the picture; `done` is told whether that went well, and may be called late or never.
  std::function<void(std::shared_ptr<SharedPng> png, Date capturedAt, bool copy, bool save,
                     std::function<void(bool succeeded)> done)>
      output;
  /// Opens the picture, with its layers where there are any, in an editor. True: the editor has taken the picture over,
  /// and the pin goes without `closed`.
  std::function<bool(PinWindowController& pin)> edit;
  /// The pin is about to go: the moment to push it to the history.
  std::function<void(PinWindowController& pin)> closed;
  /// Writes the picture to a file that outlives the pin, for dragging into other programs. Called on a worker thread;
  /// nothing when it failed.
  std::function<std::optional<QString>(std::shared_ptr<SharedPng> png, Date capturedAt)> dragFile;
  /// Tells the person something, in a toast on `screen`.
  std::function<void(QScreen* screen, const QString& text)> tell;
  /// Pins came or went, or one began or ceased to let clicks through.
  std::function<void()> changed;
};

}  // namespace vellora
