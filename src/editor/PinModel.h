#pragma once

#include <optional>
#include <span>
#include <vector>

#include <QString>

#include "editor/PinGeometry.h"
#include "editor/PinStyle.h"

namespace vellora {

/// A screen pins may be on. All in the desktop's points.
struct PinScreen {
  QString name;
  Rect frame;
  Rect visibleFrame;  ///< without panels and docks
  friend bool operator==(const PinScreen&, const PinScreen&) = default;
};

/// The sides of a pin that are being pulled.
struct PinEdges {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;
  bool any() const { return left || top || right || bottom; }
  friend bool operator==(const PinEdges&, const PinEdges&) = default;
};

/// Where and how one pinned picture is shown: every rule of it, without a window. `frame` is the picture's place, in
/// the desktop's points; shadow and controls are not its business.
class PinModel {
 public:
  static constexpr double leastOpacity = 0.2;

  PinModel(Size imageSize, PinStyle style) : imageSize_(imageSize), style_(style) {}

  Size imageSize() const { return imageSize_; }
  double scale() const { return scale_; }
  const Rect& frame() const { return frame_; }
  PinGeometry::ChromeTier chromeTier() const { return PinGeometry::chromeTier(frame_.size.width); }
  /// The screen the pin is on; null while there is none.
  const PinScreen* screen() const;

  // Placing

  /// Shows the picture for the first time: at most as large as the visible frame of the screen named `screen` (the
  /// first one when there is none of the name), inside it, around `center` or in its middle.
  void place(std::vector<PinScreen> screens, const QString& screen, double requestedScale, std::optional<Point> center);
  /// Follows a change of the screens. A pin whose screen has gone waits on another one and returns with its screen,
  /// unless it was moved meanwhile.
  void screensChanged(std::vector<PinScreen> screens);

  // Scale

  /// The scales this pin may have now: never larger than its screen.
  PinGeometry::ScaleBounds scaleBounds() const;
  /// Shows the picture at another scale around its centre, inside the visible frame.
  void setScale(double scale);
  /// Multiplies the scale. Small steps add up across the places where the scale snaps.
  void zoomBy(double factor);
  /// Changes between the picture's own size and the scale it had before.
  void toggleActualSize();

  void beginPinch();
  /// `magnification`: how much a part of the gesture enlarges, 0 for nothing.
  void pinch(double magnification);
  void endPinch();
  bool isPinching() const { return pinch_.has_value(); }

  void beginResize(PinEdges edges);
  /// `pulled`: how far the pointer has moved since the beginning.
  void resize(Point pulled);
  void endResize() { resize_.reset(); }
  bool isLiveResizing() const { return resize_.has_value(); }

  // Moving

  /// Moves the picture's corner to `origin`, or, when `snapping`, to an edge near it: of the screens' visible frames or
  /// of the pictures in `others`.
  void moveTo(Point origin, std::span<const Rect> others, bool snapping);
  /// Moves the picture by a little; some of it stays in view.
  void nudge(Point by);
  /// The window manager has moved the window. `settling`: in answer to a change of the screens, not to a person.
  void movedElsewhere(Point origin, bool settling);

  // Look

  PinStyle style() const { return style_; }
  void toggleShadow() { style_.shadow = !style_.shadow; }
  void toggleRoundedCorners() { style_.roundedCorners = !style_.roundedCorners; }
  double opacity() const { return opacity_; }
  /// Between the least opacity and 1.
  void setOpacity(double opacity);
  bool isClickThrough() const { return clickThrough_; }
  void setClickThrough(bool on) { clickThrough_ = on; }

 private:
  struct Pinch {
    Point center;
    std::optional<double> snapTarget;
  };
  struct Resize {
    PinEdges edges;
    Rect frame;
    double scale;
  };
  /// Where a pin whose screen has gone was, and where it waits.
  struct Away {
    PinScreen screen;
    Rect frame;
    double scale;
    Rect waiting;
  };

  const PinScreen* screenNamed(const QString& name) const;
  Rect visibleFrame() const;
  void setFrame(const Rect& frame);
  void applyScale(double scale, const PinGeometry::ScaleBounds& bounds);
  void leaveLostScreen(const PinScreen& lost);
  bool comeHome();
  void followScreen(const PinScreen& before, const PinScreen& now);

  const Size imageSize_;
  PinStyle style_;
  std::vector<PinScreen> screens_;
  QString screenName_;
  double scale_ = 1;
  Rect frame_;
  double otherScale_ = 1;           // what toggleActualSize() goes back to
  std::optional<double> rawScale_;  // the scale before it snapped
  std::optional<Pinch> pinch_;
  std::optional<Resize> resize_;
  std::optional<Away> away_;
  double opacity_ = 1;
  bool clickThrough_ = false;
};

}  // namespace vellora
