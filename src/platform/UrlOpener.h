#pragma once

#include <QString>

namespace vellora {

/// Hands folders, files and web addresses to the program the desktop uses for them. Main thread.
class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  virtual bool openFile(const QString& path) = 0;
  virtual bool openUrl(const QString& url) = 0;
};

}  // namespace vellora
