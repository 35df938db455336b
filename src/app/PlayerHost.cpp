#include "app/PlayerHost.h"

#include <algorithm>
#include <utility>

#include "app/AppServices.h"
#include "recording/ProjectWaveform.h"

namespace vellora {

PlayerHost::PlayerHost(AppServices& services, Movies& movies, std::function<void()> changed)
    : services_(services), movies_(movies), changed_(std::move(changed)) {}

PlayerHost::~PlayerHost() = default;

void PlayerHost::open(const RecordProjectBundle& bundle) {
  for (const auto& window : windows_) {
    if (window->bundle() == bundle) return window->present();
  }
  PlayerWindow::Services wanted{.runLoop = services_.runLoop, .movies = movies_, .playback = playback_};
  wanted.reveal = [this](const QString& path) { services_.urlOpener.reveal(path); };
  wanted.loudness = [this](const RecordProjectBundle& project, const std::function<bool()>& goesOn) {
    return projectWaveform::load(movies_, project, goesOn).displayLevels;
  };
  auto window = std::make_unique<PlayerWindow>(bundle, std::move(wanted));
  QObject::connect(window.get(), &PlayerWindow::closed, window.get(), [this, shown = window.get()] {
    // A window cannot go while it is telling of its end.
    services_.runLoop.post(lifetime_.guard([this, shown] {
      std::erase_if(windows_, [shown](const auto& open) { return open.get() == shown; });
      changed_();
    }));
  });
  windows_.push_back(std::move(window));
  windows_.back()->present();
  changed_();
}

QStringList PlayerHost::openBundles() const {
  QStringList paths;
  for (const auto& window : windows_) paths << window->bundle().path();
  return paths;
}

}  // namespace vellora
