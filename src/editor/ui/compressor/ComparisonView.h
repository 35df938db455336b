#pragma once

#include <memory>

#include <QFutureWatcher>
#include <QImage>
#include <QWidget>

#include "editor/ui/compressor/ComparisonPicture.h"
#include "editor/ui/compressor/ComparisonViewport.h"
#include "kit/Paint.h"

namespace vellora {

class ComparisonBusySign;
class ComparisonZoomBar;

/// Lays what a picture was before over what it is after, with a divider to drag between them. 100 % (a pixel of the
/// picture is one of the screen) unless the person zooms; larger pixels stay hard, so that what compression did to them
/// shows. The view holds the place, the zoom and the divider as long as pictures `before` of the same size come, until
/// clear().
///
/// Keys: the arrows move the divider (with Shift further, Home and End to the ends) and with Ctrl the picture,
/// + - 0 1 zoom, B held shows the picture before. The wheel and two fingers zoom, dragging moves the picture, a double
/// click changes between all of it and 100 %. Main thread.
class ComparisonView final : public QWidget {
  Q_OBJECT

 public:
  explicit ComparisonView(QWidget* parent = nullptr);
  ~ComparisonView() override;

  /// Shows both, once they are ready to be drawn; what is shown stays until then. An `after` of another size is laid
  /// onto `before`. Handing in the same QImage as `before` again costs nothing. Takes away a message.
  void setPictures(const QImage& before, const QImage& after);
  /// Shows only the picture before, while there is no other yet. Takes away a message.
  void setBefore(const QImage& before);
  /// Tells calmly that the picture after is being made; a short wait shows nothing.
  void setBusy(bool busy);
  /// Says why there is nothing to compare, in place of the pictures.
  void setMessage(const QString& message);
  /// What stands in the lower corners ("Before 2.4 MB"); empty for nothing.
  void setCaptions(const QString& before, const QString& after);
  /// Takes pictures and message away; the next pictures start at 100 % with the divider in the middle.
  void clear();

  /// Where the divider is, from 0 (all after) to 1 (all before), of the picture's visible width.
  double divider() const { return divider_; }
  void setDivider(double divider);

  /// Whether the pictures handed in last are the ones that are shown.
  bool isSettled() const { return !waiting_; }

  QSize sizeHint() const override { return {560, 400}; }
  QSize minimumSizeHint() const override { return {240, 160}; }

 signals:
  void dividerMoved(double divider);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  enum class Drag { None, Divider, Picture };
  enum class Side { Before, After };

  void prepare(const QImage& before, const QImage& after);
  void take(const ComparisonPair& pair);
  void followScreen();
  void zoomChanged();
  void zoomBySteps(double steps, QPoint atPixel);
  void zoomTo(double zoom, QPoint atPixel);
  void zoomToFit();
  void pan(QPoint pixels);
  bool panByKey(int key);
  void setPeeking(bool peeking);
  void placeParts();
  void updateCursor(QPointF position);
  void updateAround(double dividerX);

  bool hasPictures() const { return pair_.before && message_.isEmpty(); }
  bool isDivided() const { return hasPictures() && pair_.after && !peeking_; }
  QPoint pixelAt(QPointF position) const;
  QPoint middlePixel() const;
  /// The first pixel right of the divider.
  int dividerPixel() const;
  double dividerX() const;  // in points
  QRectF handleRect() const;
  bool isOnDivider(QPointF position) const;
  QRectF captionRect(Side side) const;

  void paintPictures(QPainter& painter, const QRect& part);
  void paintDivider(QPainter& painter);
  void paintCaptions(QPainter& painter);
  void paintMessage(QPainter& painter);

  ComparisonViewport viewport_;
  ComparisonPair pair_;
  QFutureWatcher<ComparisonPair> preparing_;
  bool waiting_ = false;  // for the pictures handed in last
  QString message_;
  QString captionBefore_;
  QString captionAfter_;
  double divider_ = 0.5;
  bool started_ = false;  // the viewport holds a place of a picture
  bool peeking_ = false;
  Drag drag_ = Drag::None;
  Qt::MouseButton dragButton_ = Qt::NoButton;
  double grabOffset_ = 0;
  QPoint lastPixel_;
  double wheelSteps_ = 0;  // less than one, left over
  KeyboardFocus focus_;
  ComparisonZoomBar* zoomBar_;    // owned by this as a child
  ComparisonBusySign* busySign_;  // owned by this as a child
};

}  // namespace vellora
