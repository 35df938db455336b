#pragma once

#include <QWidget>

#include "record_editor/playback/PictureFeed.h"

namespace vellora {

/// The stage of a player: the picture in the middle, as large as it fits, the camera's in a circle over its corner.
class PictureView final : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent = nullptr);

  /// Pixels of the movie's pictures; an empty size for none.
  void setMovie(QSize screen, QSize camera);
  /// Whether the camera's picture is seen as in a looking-glass.
  void setCameraMirrored(bool mirrored);
  void showScreen(const ShownPicturePtr& picture);
  void showCamera(const ShownPicturePtr& picture);
  /// Says something instead of showing pictures; an empty text ends that.
  void setMessage(const QString& text);

  QSize sizeHint() const override { return {960, 540}; }

 signals:
  /// Device pixels in which pictures are to be drawn; an empty camera without one.
  void sizesWanted(QSize screen, QSize camera);
  void clicked();
  void doubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QRectF screenRect() const;
  QRectF cameraRect() const;
  void tellSizes();

  QSize movie_;
  QSize camera_;
  bool isMirrored_ = true;
  ShownPicturePtr shown_;
  ShownPicturePtr shownCamera_;
  QString message_;
};

}  // namespace vellora
