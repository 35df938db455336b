#include "capture/SelectionModel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vellora {
namespace {

constexpr int step = 1;
constexpr int wideStep = 10;
constexpr int widestStep = 100;

/// A desktop without a display cannot be selected on; the model still must not fall over it.
ShareableContent withDisplay(ShareableContent content) {
  if (content.displays.empty()) {
    DisplayInfo nowhere;
    nowhere.frame = {0, 0, 1, 1};
    content.displays.push_back(nowhere);
  }
  return content;
}

int pixels(double points, double scale) {
  return std::max(1, static_cast<int>(std::lround(points * scale)));
}

OverlayCursor cursorFor(Handle handle) {
  switch (handle) {
    case Handle::TopLeft:
    case Handle::BottomRight:
      return OverlayCursor::DiagonalDown;
    case Handle::TopRight:
    case Handle::BottomLeft:
      return OverlayCursor::DiagonalUp;
    case Handle::Left:
    case Handle::Right:
      return OverlayCursor::Horizontal;
    case Handle::Top:
    case Handle::Bottom:
      return OverlayCursor::Vertical;
    case Handle::Inside:
      break;
  }
  return OverlayCursor::Move;
}

}  // namespace

SelectionModel::SelectionModel(ShareableContent content, SelectionOptions options, PixelPoint pointer,
                               KeyModifiers held)
    : content_(withDisplay(std::move(content))),
      options_(std::move(options)),
      windows_(content_),
      stale_(held),
      pointer_(pointer),
      cross_(pointer) {
  point(pointer);
}

/// Puts the cross hair somewhere while nothing is being dragged.
void SelectionModel::point(PixelPoint position) {
  display_ = *displayIndexAt(content_.displays, position);
  cross_ = clampedTo(display().frame, position);
  windows_.pointAt(cross_);
}

/// Lets the cross hair go with the pointer. One that keys moved away keeps its distance, so that keys can aim while a
/// button is held.
void SelectionModel::follow(PixelPoint position) {
  const PixelPoint to =
      keyboardMoved_ ? PixelPoint{cross_.x + position.x - pointer_.x, cross_.y + position.y - pointer_.y} : position;
  pointer_ = position;
  cross_ = clampedTo(display().frame, to);
}

KeyModifiers SelectionModel::live(KeyModifiers modifiers) {
  stale_ = {stale_.shift && modifiers.shift, stale_.alt && modifiers.alt, stale_.control && modifiers.control};
  return {modifiers.shift && !stale_.shift, modifiers.alt && !stale_.alt, modifiers.control && !stale_.control};
}

bool SelectionModel::beyondThreshold(PixelPoint from, PixelPoint to) const {
  const int threshold = pixels(dragThreshold, display().scale);
  return std::abs(to.x - from.x) >= threshold || std::abs(to.y - from.y) >= threshold;
}

int SelectionModel::handleReachInPixels() const {
  return pixels(handleReach, display().scale);
}

void SelectionModel::stretch() {
  rect_ = rectangleBetween(anchor_, cross_, shape_, display().frame);
}

/// Moves the drawn rectangle and the corners it hangs on together.
void SelectionModel::shiftSelection(int dx, int dy) {
  const PixelRect moved = movedWithin(rect_, dx, dy, display().frame);
  const int movedX = moved.x - rect_.x;
  const int movedY = moved.y - rect_.y;
  anchor_ = {anchor_.x + movedX, anchor_.y + movedY};
  cross_ = {cross_.x + movedX, cross_.y + movedY};
  rect_ = moved;
}

void SelectionModel::pointerMoved(PixelPoint position, KeyModifiers modifiers) {
  const KeyModifiers active = live(modifiers);
  const PixelPoint before = pointer_;
  switch (phase_) {
    case Phase::Hovering:
      // A nudged cross hair stays where the keys put it until the pointer is moved on purpose.
      if (keyboardMoved_ && !beyondThreshold(before, position)) return;
      pointer_ = position;
      keyboardMoved_ = false;
      point(position);
      return;
    case Phase::Pressed:
      follow(position);
      if (!beyondThreshold(anchor_, cross_)) return;
      phase_ = Phase::Dragging;
      byKeyboard_ = false;
      moving_ = false;
      fromAdjusting_ = false;
      shape_ = {active.shift, active.alt};
      stretch();
      return;
    case Phase::Dragging:
      if (byKeyboard_ && !beyondThreshold(before, position)) return;
      if (byKeyboard_) keyboardMoved_ = false;
      shape_ = {active.shift, active.alt};
      if (moving_) {
        pointer_ = position;
        shiftSelection(position.x - before.x, position.y - before.y);
        keyboardMoved_ = keyboardMoved_ || cross_ != position;
      } else {
        follow(position);
        stretch();
      }
      return;
    case Phase::Grabbed:
      follow(position);
      if (grabbed_ == Handle::Inside) {
        rect_ = movedWithin(grabbedRect_, cross_.x - anchor_.x, cross_.y - anchor_.y, display().frame);
      } else {
        rect_ = resized(grabbedRect_, grabbed_, cross_.x - anchor_.x, cross_.y - anchor_.y, display().frame);
      }
      return;
    case Phase::Adjusting:
      pointer_ = position;
      return;
    case Phase::Finished:
    case Phase::Cancelled:
      return;
  }
}

void SelectionModel::pointerPressed(const OverlayPointerEvent& event) {
  if (event.button == PointerButton::Secondary) {
    live(event.modifiers);
    stepBack();
    return;
  }
  press(event);
}

void SelectionModel::press(const OverlayPointerEvent& event) {
  live(event.modifiers);
  switch (phase_) {
    case Phase::Hovering:
      if (!keyboardMoved_ || beyondThreshold(pointer_, event.position)) {
        keyboardMoved_ = false;
        point(event.position);
      }
      pointer_ = event.position;
      anchor_ = cross_;
      fromAdjusting_ = false;
      phase_ = Phase::Pressed;
      return;
    case Phase::Dragging:
      // A button takes over a drag made with keys and ends it on release.
      if (byKeyboard_) {
        pointerMoved(event.position, event.modifiers);
        byKeyboard_ = false;
      }
      return;
    case Phase::Adjusting: {
      pointer_ = event.position;
      const auto handle = handleAt(rect_, event.position, handleReachInPixels());
      if (handle == Handle::Inside && event.clicks >= 2) {
        phase_ = Phase::Finished;
        return;
      }
      if (handle) {
        grabbed_ = *handle;
        grabbedRect_ = rect_;
        anchor_ = cross_ = clampedTo(display().frame, event.position);
        keyboardMoved_ = false;
        phase_ = Phase::Grabbed;
        return;
      }
      keyboardMoved_ = false;
      point(event.position);
      anchor_ = cross_;
      fromAdjusting_ = true;
      phase_ = Phase::Pressed;
      return;
    }
    case Phase::Pressed:
    case Phase::Grabbed:
    case Phase::Finished:
    case Phase::Cancelled:
      return;
  }
}

void SelectionModel::pointerReleased(const OverlayPointerEvent& event) {
  if (event.button != PointerButton::Primary) return;
  release(event);
}

void SelectionModel::release(const OverlayPointerEvent& event) {
  if (phase_ == Phase::Hovering || phase_ == Phase::Adjusting) return;  // the press was undone meanwhile
  if (phase_ == Phase::Dragging && byKeyboard_) return;
  pointerMoved(event.position, event.modifiers);
  const KeyModifiers active = live(event.modifiers);
  if (phase_ == Phase::Pressed) {
    click(event);
  } else if (phase_ == Phase::Dragging) {
    endDrag(options_.adjustAfterRelease != active.control);
  } else if (phase_ == Phase::Grabbed) {
    phase_ = Phase::Adjusting;
  }
}

void SelectionModel::click(const OverlayPointerEvent& event) {
  const KeyModifiers active = live(event.modifiers);
  if (fromAdjusting_) {
    // A click beside an adjusted rectangle must not lose it.
    fromAdjusting_ = false;
    if (const auto index = displayIndexFor(content_.displays, rect_)) display_ = *index;
    phase_ = Phase::Adjusting;
    return;
  }
  phase_ = Phase::Hovering;
  if (windows_.current() != nullptr) {
    takeWindow(active.control);
  } else if (event.clicks >= 2) {
    selectDisplay();
    phase_ = Phase::Finished;
  }
}

void SelectionModel::endDrag(bool adjust) {
  // Coming back to where it began is a change of mind, not a tiny picture.
  if (!byKeyboard_ && !keyboardMoved_ && !beyondThreshold(anchor_, cross_)) {
    phase_ = Phase::Hovering;
    point(pointer_);
    return;
  }
  phase_ = adjust ? Phase::Adjusting : Phase::Finished;
  byKeyboard_ = false;
  moving_ = false;
}

std::optional<PixelRect> SelectionModel::highlighted() const {
  const WindowInfo* window = windows_.current();
  if (window == nullptr) return std::nullopt;
  PixelRect part = window->frame.intersected(display().frame);
  if (part.isEmpty())
    part = window->frame.intersected(content_.displays[*displayIndexFor(content_.displays, window->frame)].frame);
  return part;
}

void SelectionModel::takeWindow(bool adjust) {
  const auto part = highlighted();
  if (!part) return;
  rect_ = *part;
  if (const auto index = displayIndexFor(content_.displays, rect_)) display_ = *index;
  phase_ = adjust ? Phase::Adjusting : Phase::Finished;
}

void SelectionModel::selectDisplay() {
  rect_ = display().frame;
  phase_ = Phase::Adjusting;
}

void SelectionModel::startFrom(PixelPoint corner, bool byKeyboard) {
  anchor_ = corner;
  byKeyboard_ = byKeyboard;
  moving_ = false;
  shape_ = {};
  phase_ = Phase::Dragging;
  stretch();
}

/// Escape and the right button: from a drag back to hovering, from there out.
void SelectionModel::stepBack() {
  switch (phase_) {
    case Phase::Grabbed:
      rect_ = grabbedRect_;
      phase_ = Phase::Adjusting;
      return;
    case Phase::Pressed:
    case Phase::Dragging:
    case Phase::Adjusting:
      phase_ = Phase::Hovering;
      byKeyboard_ = moving_ = fromAdjusting_ = keyboardMoved_ = false;
      point(pointer_);
      return;
    case Phase::Hovering:
      phase_ = Phase::Cancelled;
      return;
    case Phase::Finished:
    case Phase::Cancelled:
      return;
  }
}

void SelectionModel::arrow(int dx, int dy, KeyModifiers modifiers) {
  const int distance = modifiers.shift ? wideStep : step;
  switch (phase_) {
    case Phase::Hovering:
    case Phase::Dragging: {
      const int far = modifiers.control ? widestStep : distance;
      if (phase_ == Phase::Dragging && moving_) {
        shiftSelection(dx * far, dy * far);
      } else {
        const PixelPoint to{cross_.x + dx * far, cross_.y + dy * far};
        if (phase_ == Phase::Hovering) {
          point(to);
        } else {
          cross_ = clampedTo(display().frame, to);
          stretch();
        }
      }
      keyboardMoved_ = true;
      return;
    }
    case Phase::Adjusting:
      rect_ = modifiers.control ? resized(rect_, Handle::BottomRight, std::max(dx * distance, 1 - rect_.width),
                                          std::max(dy * distance, 1 - rect_.height), display().frame)
                                : movedWithin(rect_, dx * distance, dy * distance, display().frame);
      return;
    default:
      return;
  }
}

void SelectionModel::keyPressed(OverlayKey key, KeyModifiers modifiers) {
  const KeyModifiers active = live(modifiers);
  switch (key) {
    case OverlayKey::Left:
      return arrow(-1, 0, active);
    case OverlayKey::Right:
      return arrow(1, 0, active);
    case OverlayKey::Up:
      return arrow(0, -1, active);
    case OverlayKey::Down:
      return arrow(0, 1, active);
    case OverlayKey::Escape:
      return stepBack();
    case OverlayKey::Return:
      if (phase_ == Phase::Hovering && windows_.current() != nullptr && !keyboardMoved_)
        return takeWindow(active.control);
      if (phase_ == Phase::Hovering) return startFrom(cross_, true);
      if (phase_ == Phase::Dragging) return endDrag(active.control);
      if (phase_ == Phase::Adjusting) phase_ = Phase::Finished;
      return;
    case OverlayKey::Space:
      if (phase_ == Phase::Hovering) return startFrom(cross_, true);
      if (phase_ == Phase::Dragging) moving_ = true;
      return;
    case OverlayKey::Tab:
    case OverlayKey::Backtab:
      if (phase_ == Phase::Hovering) {
        windows_.step(key == OverlayKey::Tab);
        keyboardMoved_ = false;
        if (const auto part = highlighted()) display_ = *displayIndexFor(content_.displays, *part);
      } else if (phase_ == Phase::Dragging && byKeyboard_) {
        std::swap(anchor_, cross_);
        stretch();
      }
      return;
    case OverlayKey::SelectAll:
      if (phase_ == Phase::Hovering || phase_ == Phase::Adjusting) selectDisplay();
      return;
  }
}

void SelectionModel::keyReleased(OverlayKey key, KeyModifiers modifiers) {
  live(modifiers);
  if (key == OverlayKey::Space) moving_ = false;
}

void SelectionModel::modifiersChanged(KeyModifiers modifiers) {
  const KeyModifiers active = live(modifiers);
  if (phase_ != Phase::Dragging || byKeyboard_ || moving_) return;
  shape_ = {active.shift, active.alt};
  stretch();
}

OverlayCursor SelectionModel::cursor() const {
  if (phase_ == Phase::Grabbed) return cursorFor(grabbed_);
  if (phase_ == Phase::Adjusting) {
    const auto handle = handleAt(rect_, pointer_, handleReachInPixels());
    return handle ? cursorFor(*handle) : OverlayCursor::Cross;
  }
  return keyboardMoved_ ? OverlayCursor::Hidden : OverlayCursor::Cross;
}

OverlayScene SelectionModel::scene() const {
  OverlayScene scene;
  scene.display = display().id;
  scene.cursor = cursor();
  scene.hintKey = options_.hintKey;
  switch (phase_) {
    case Phase::Hovering:
    case Phase::Pressed:
      if (fromAdjusting_) {
        scene.clear = rect_.intersected(display().frame);
        scene.frame = OverlayFrame::Adjusting;
        scene.showsSize = true;
        scene.hintKey = QStringLiteral("overlay.hint.adjust");
        break;
      }
      // A cross hair moved by keys is about to draw, not to take a window.
      scene.clear = keyboardMoved_ ? std::nullopt : highlighted();
      scene.frame = scene.clear ? OverlayFrame::Highlight : OverlayFrame::None;
      scene.showsSize = scene.clear.has_value();
      scene.loupe = cross_;
      break;
    case Phase::Dragging:
      scene.clear = rect_;
      scene.frame = OverlayFrame::Selection;
      scene.showsSize = true;
      scene.loupe = cross_;
      scene.anchor = anchor_;
      scene.hintKey.clear();  // it would lie over what is being drawn
      break;
    case Phase::Grabbed:
    case Phase::Adjusting:
    case Phase::Finished:
      scene.clear = rect_;
      scene.frame = OverlayFrame::Adjusting;
      scene.showsSize = true;
      scene.hintKey = QStringLiteral("overlay.hint.adjust");
      if (phase_ == Phase::Grabbed && grabbed_ != Handle::Inside) {
        scene.loupe = cross_;
        scene.anchor = rect_.center();
      }
      break;
    case Phase::Cancelled:
      break;
  }
  if (scene.loupe && keyboardMoved_) scene.marker = cross_;
  return scene;
}

OverlayOutcome SelectionModel::outcome() const {
  if (phase_ == Phase::Finished) return OverlayOutcome::Finished;
  if (phase_ == Phase::Cancelled) return OverlayOutcome::Cancelled;
  return OverlayOutcome::Running;
}

}  // namespace vellora
