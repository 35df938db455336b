#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "base/Date.h"
#include "base/SerialQueue.h"

namespace vellora {

/// The files behind "file" copies: a folder that holds the twenty newest of them. Any thread.
class ClipboardFiles {
 public:
  static constexpr int keptFiles = 20;

  /// `applicationSupport`: the user's folder of that name; the files live in "Vellora/Clipboard" below it.
  explicit ClipboardFiles(const QString& applicationSupport);

  QString directory() const { return directory_; }

  /// Writes one capture's PNG data under its capture time and returns the path, or nothing (the log says why). Older
  /// files are removed later, on the queue "dev.orlo.vellora.clipboard-files".
  std::optional<QString> write(const QByteArray& data, Date capturedAt);

  /// Removes all but the newest files, later, on the queue. Called once at start.
  void sweep();

  /// Waits until the removals asked for so far are done.
  void waitForPendingWork() { queue_.drain(); }

 private:
  void prune(const QString& keep);

  const QString directory_;
  SerialQueue queue_{"dev.orlo.vellora.clipboard-files"};
};

}  // namespace vellora
