#pragma once

#include <functional>
#include <optional>

#include <QByteArray>
#include <QString>

#include "base/Bitmap.h"

namespace vellora {

/// What a copy puts on the clipboard. Empty fields are left out.
struct PasteboardContent {
  QByteArray png;    ///< offered as PNG, and as TIFF made from it when a program asks for that
  QString filePath;  ///< absolute; offered as a file URL
};

/// The desktop's clipboard.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;

  /// Takes over the clipboard; false when the desktop has none. What was written goes on pasting after the process
  /// ends. Waits some milliseconds for the desktop, so it is called from a queue. Any thread.
  virtual bool write(PasteboardContent content) = 0;

  /// What the clipboard's picture is: encoded bytes of some image type, or the local file it names.
  struct ImageOffer {
    QByteArray encoded;
    QString filePath;
  };
  /// Asks for a picture; nothing when there is none or its owner does not answer within two seconds. The callback comes
  /// on the main thread, never from inside this call. Main thread.
  virtual void readImage(std::function<void(std::optional<ImageOffer>)> done) = 0;
};

}  // namespace vellora
