#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QStringList>

#include "media/loaded_movies/Movies.h"
#include "platform/linux/audio/LoadedAudioPlayback.h"
#include "record_editor/ui/PlayerWindow.h"

namespace vellora {

struct AppServices;

/// The windows that show recordings, at most one for each. Main thread.
class PlayerHost {
 public:
  /// `changed` hears that a window came or went. `movies` outlives this.
  PlayerHost(AppServices& services, Movies& movies, std::function<void()> changed);
  ~PlayerHost();

  /// Shows a project in its window, which it may have already.
  void open(const RecordProjectBundle& bundle);
  /// The folders of the projects that are shown.
  QStringList openBundles() const;
  bool hasOpenWindows() const { return !windows_.empty(); }
  /// Closes all of them.
  void close() { windows_.clear(); }

 private:
  AppServices& services_;
  Movies& movies_;
  const std::function<void()> changed_;
  LoadedAudioPlayback playback_;
  std::vector<std::unique_ptr<PlayerWindow>> windows_;
  Lifetime lifetime_;
};

}  // namespace vellora
