#pragma once

#include <functional>
#include <optional>

#include <QColor>
#include <QImage>
#include <QPoint>

#include "base/Color.h"
#include "editor/ui/canvas/PixelLoupe.h"

class QKeyEvent;
class QWidget;

namespace vellora {

/// Picking a colour: holds the pointer of a widget until a colour is taken or the person leaves. Over the widget it
/// sees the widget's own picture (without handles), elsewhere what is on the screen.
class Eyedropper {
 public:
  /// Pixels around a place of the host: a square of that many device pixels.
  using Sample = std::function<QImage(QPointF inHost, int count)>;

  Eyedropper(QWidget& host, Sample sample, std::function<void(ColorComponents)> picked);
  ~Eyedropper();
  Eyedropper(const Eyedropper&) = delete;
  Eyedropper& operator=(const Eyedropper&) = delete;

  void moveTo(QPoint global);
  /// The colour under the pointer; nothing where the screen tells none.
  std::optional<ColorComponents> colorAt(QPoint global) const;
  const std::function<void(ColorComponents)>& picked() const { return picked_; }

 private:
  QImage pixelsAt(QPoint global, int count) const;

  QWidget& host_;
  Sample sample_;
  std::function<void(ColorComponents)> picked_;
  PixelLoupe loupe_;
};

}  // namespace vellora
