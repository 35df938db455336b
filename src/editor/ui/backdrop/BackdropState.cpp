#include "editor/ui/backdrop/BackdropState.h"

namespace vellora {

void BackdropState::show(const BackdropSettings& settings) {
  settings_ = settings;
  emit shown();
}

void BackdropState::change(const QString& coalescingKey, const std::function<void(BackdropSettings&)>& edit) {
  BackdropSettings next = settings_;
  edit(next);
  next.enabled = true;
  replace(next, coalescingKey);
}

void BackdropState::replace(const BackdropSettings& settings, const QString& coalescingKey) {
  if (settings == settings_) return;
  show(settings);
  emit changed(settings_, coalescingKey);
}

}  // namespace vellora
