#pragma once

#include <QString>

namespace vellora {

/// Hands folders, files and web addresses to the program the desktop uses for them. Main thread.
class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  virtual bool openFile(const QString& path) = 0;
  virtual bool openUrl(const QString& url) = 0;
  /// Shows a file where it lies, selected in the file manager where that can be.
  virtual bool reveal(const QString& path) = 0;
};

}  // namespace vellora
