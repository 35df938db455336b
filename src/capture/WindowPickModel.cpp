#include "capture/WindowPickModel.h"

#include <utility>

#include "capture/SelectionGeometry.h"

namespace vellora {

WindowPickModel::WindowPickModel(ShareableContent content, PixelPoint pointer)
    : content_(std::move(content)), windows_(content_), pointer_(pointer) {
  windows_.pointAt(pointer);
}

void WindowPickModel::pointerMoved(PixelPoint position, KeyModifiers) {
  if (position == pointer_) return;
  pointer_ = position;
  windows_.pointAt(position);
}

void WindowPickModel::pointerPressed(const OverlayPointerEvent& event) {
  pointerMoved(event.position, event.modifiers);
  if (event.button == PointerButton::Secondary) {
    if (outcome_ == OverlayOutcome::Running) outcome_ = OverlayOutcome::Cancelled;
    return;
  }
  pressed_ = true;
}

void WindowPickModel::pointerReleased(const OverlayPointerEvent& event) {
  if (event.button != PointerButton::Primary || !pressed_) return;
  pressed_ = false;
  pointerMoved(event.position, event.modifiers);
  take();
}

void WindowPickModel::keyPressed(OverlayKey key, KeyModifiers) {
  switch (key) {
    case OverlayKey::Tab:
    case OverlayKey::Right:
    case OverlayKey::Down:
      windows_.step(true);
      return;
    case OverlayKey::Backtab:
    case OverlayKey::Left:
    case OverlayKey::Up:
      windows_.step(false);
      return;
    case OverlayKey::Return:
    case OverlayKey::Space:
      take();
      return;
    case OverlayKey::Escape:
      if (outcome_ == OverlayOutcome::Running) outcome_ = OverlayOutcome::Cancelled;
      return;
    case OverlayKey::SelectAll:
      return;
  }
}

void WindowPickModel::take() {
  const WindowInfo* window = windows_.current();
  if (outcome_ != OverlayOutcome::Running || window == nullptr) return;
  taken_ = *window;
  outcome_ = OverlayOutcome::Finished;
}

std::optional<DisplayInfo> WindowPickModel::display() const {
  const WindowInfo* window = windows_.current();
  auto index = window != nullptr ? displayIndexFor(content_.displays, window->frame) : std::nullopt;
  if (!index) index = displayIndexAt(content_.displays, pointer_);
  if (!index) return std::nullopt;
  return content_.displays[*index];
}

OverlayScene WindowPickModel::scene() const {
  OverlayScene scene;
  scene.cursor = OverlayCursor::Pick;
  scene.hintKey = QStringLiteral("overlay.hint.window");
  const auto display = this->display();
  if (!display) return scene;
  scene.display = display->id;
  const WindowInfo* window = windows_.current();
  if (window == nullptr) return scene;
  scene.clear = window->frame;
  scene.frame = OverlayFrame::Highlight;
  scene.showsSize = true;
  scene.title = window->title.isEmpty() ? window->application : window->title;
  return scene;
}

}  // namespace vellora
