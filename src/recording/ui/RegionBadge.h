#pragma once

#include <QMenu>
#include <QPointer>

#include "recording/ui/OverlayPanel.h"
#include "recording/ui/RegionModel.h"

class QLabel;

namespace vellora {

class IconButton;

/// The pill beside the region: a grip to move it by, its size, and the presets. Main thread.
class RegionBadge final : public OverlayPanel {
  Q_OBJECT

 public:
  /// `hints` may be null.
  RegionBadge(const DisplayInfo& screen, WindowHints* hints);

  /// Shows the region's size and stands beside its top left corner; inside it where there is no room above.
  void follow(const RegionModel& model);
  void openPresets();

 signals:
  void chosen(const vellora::RegionPreset& preset);
  void pullBegan(vellora::PixelPoint at);
  void pulled(vellora::PixelPoint at);
  void pullEnded();
  void pressed();

 protected:
  void paintPanel(QPainter& painter, const QRect& panel) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QString sizeText(const PixelRect& region) const;
  PixelPoint onDesktop(QPointF global) const;

  DisplayInfo display_;
  const RegionModel* model_ = nullptr;
  QLabel* size_;  // owned by Qt, as the next two
  IconButton* presets_;
  QPointer<QMenu> menu_;
  bool pulling_ = false;
};

}  // namespace vellora
