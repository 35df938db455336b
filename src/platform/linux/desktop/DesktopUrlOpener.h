#pragma once

#include "platform/UrlOpener.h"

namespace vellora {

/// Opens through xdg-open, or gio where that is missing. True means that the opener was started, not that it found a
/// program.
class DesktopUrlOpener final : public UrlOpener {
 public:
  /// A file or folder that exists.
  bool openFile(const QString& path) override;
  /// Web and mail addresses, and addresses of local files.
  bool openUrl(const QString& url) override;
  /// Through the file manager on the session bus (freedesktop.org FileManager1); opens the folder where none answers.
  bool reveal(const QString& path) override;
};

}  // namespace vellora
