#pragma once

#include <optional>

#include <QString>

#include "capture/OverlayModel.h"
#include "capture/SelectionGeometry.h"
#include "capture/WindowOrder.h"

namespace vellora {

struct SelectionOptions {
  bool adjustAfterRelease =
      false;  ///< a drag ends with handles instead of taking; Control at the release turns it round
  QString hintKey = QStringLiteral("overlay.hint.area");
};

/// The rules of selecting an area, in device pixels of the desktop.
///
/// With the pointer: the window under it is highlighted, and a click takes it. A drag draws a rectangle on the display
/// where it began and takes it on release. While dragging Shift makes it square, Alt grows it from the middle, Space
/// held moves it. With Control at the release (or adjustAfterRelease) it stays, with eight handles, until Return or a
/// double click takes it. A double click on the bare desktop takes the display. The right button goes back one step, as
/// Escape does.
///
/// With keys: arrows move a cross hair (Shift by 10, Control by 100), Space puts down the first corner, arrows stretch,
/// Tab changes to the other corner, Return takes (with Control: adjusts). Before that Tab goes through the windows and
/// Return takes the highlighted one. Control+A selects the display. While adjusting arrows move the rectangle, with
/// Control its lower right.
class SelectionModel final : public OverlayModel {
 public:
  /// `held`: modifiers still down from the hot key; they mean nothing until they have been released once.
  SelectionModel(ShareableContent content, SelectionOptions options, PixelPoint pointer, KeyModifiers held = {});

  void pointerMoved(PixelPoint position, KeyModifiers modifiers) override;
  void pointerPressed(const OverlayPointerEvent& event) override;
  void pointerReleased(const OverlayPointerEvent& event) override;
  void keyPressed(OverlayKey key, KeyModifiers modifiers) override;
  void keyReleased(OverlayKey key, KeyModifiers modifiers) override;
  void modifiersChanged(KeyModifiers modifiers) override;

  OverlayScene scene() const override;
  OverlayOutcome outcome() const override;

  /// What was selected, within `display()`. Meaningful once the outcome is Finished.
  PixelRect rect() const { return rect_; }
  const DisplayInfo& display() const { return content_.displays[display_]; }

  /// How far the pointer moves before a press becomes a drag, in points.
  static constexpr double dragThreshold = 3;
  /// How near a handle is taken, in points.
  static constexpr double handleReach = 14;

 private:
  enum class Phase { Hovering, Pressed, Dragging, Adjusting, Grabbed, Finished, Cancelled };

  void point(PixelPoint position);
  void follow(PixelPoint position);
  void stretch();
  void shiftSelection(int dx, int dy);
  void press(const OverlayPointerEvent& event);
  void release(const OverlayPointerEvent& event);
  void click(const OverlayPointerEvent& event);
  void endDrag(bool adjust);
  void startFrom(PixelPoint corner, bool byKeyboard);
  void arrow(int dx, int dy, KeyModifiers modifiers);
  void takeWindow(bool adjust);
  void selectDisplay();
  void stepBack();
  std::optional<PixelRect> highlighted() const;
  KeyModifiers live(KeyModifiers modifiers);
  bool beyondThreshold(PixelPoint from, PixelPoint to) const;
  int handleReachInPixels() const;
  OverlayCursor cursor() const;

  const ShareableContent content_;
  const SelectionOptions options_;
  WindowOrder windows_;
  Phase phase_ = Phase::Hovering;
  KeyModifiers stale_;
  DragShape shape_;
  PixelPoint pointer_;       // where the pointer is
  PixelPoint cross_;         // what it means: moved away from it by the keys
  std::size_t display_ = 0;  // of the cross hair, fixed while dragging
  PixelPoint anchor_;        // the press, or the corner put down
  PixelRect rect_;
  PixelRect grabbedRect_;  // as it was when a handle was taken
  Handle grabbed_ = Handle::Inside;
  bool keyboardMoved_ = false;  // the cross hair stands away from the pointer
  bool byKeyboard_ = false;     // a drag without a button
  bool moving_ = false;         // Space is held
  bool fromAdjusting_ = false;  // a press outside an adjusted rectangle
};

}  // namespace vellora
