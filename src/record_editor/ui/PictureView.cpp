#include "record_editor/ui/PictureView.h"

#include <algorithm>

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double cameraPart = 0.24;  // of the picture's shorter edge
constexpr double mostCamera = 220, leastCamera = 72;
constexpr double cameraBorder = 2;

/// The picture without a copy; `picture` outlives it.
QImage imageOf(const ShownPicture& picture) {
  return {reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
          static_cast<qsizetype>(VideoReader::pixelsPerRow(picture.width)) * 4, QImage::Format_RGB32};
}

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(320, 180);
  //% "Picture"
  setAccessibleName(qtTrId("player.picture"));
  repaintOnThemeChange(*this);
}

void PictureView::setMovie(QSize screen, QSize camera) {
  movie_ = screen;
  camera_ = camera;
  tellSizes();
}

void PictureView::setCameraMirrored(bool mirrored) {
  isMirrored_ = mirrored;
  update();
}

void PictureView::showScreen(const ShownPicturePtr& picture) {
  shown_ = picture;
  update(screenRect().toAlignedRect());
}

void PictureView::showCamera(const ShownPicturePtr& picture) {
  shownCamera_ = picture;
  update(cameraRect().toAlignedRect());
}

void PictureView::setMessage(const QString& text) {
  message_ = text;
  update();
}

QRectF PictureView::screenRect() const {
  if (movie_.isEmpty()) return {};
  const QSizeF size = QSizeF(movie_).scaled(this->size(), Qt::KeepAspectRatio);
  const double scale = devicePixelRatioF();
  const auto whole = [&](double length) { return std::max(1.0, std::round(length * scale)) / scale; };
  const QSizeF fitted(whole(size.width()), whole(size.height()));
  const auto start = [&](double room, double length) { return std::floor((room - length) / 2 * scale) / scale; };
  return {QPointF(start(width(), fitted.width()), start(height(), fitted.height())), fitted};
}

QRectF PictureView::cameraRect() const {
  if (camera_.isEmpty()) return {};
  const QRectF screen = screenRect();
  const double side = std::clamp(std::min(screen.width(), screen.height()) * cameraPart, leastCamera, mostCamera);
  const double margin = tokens::space4;
  return {screen.right() - margin - side, screen.bottom() - margin - side, side, side};
}

void PictureView::tellSizes() {
  if (movie_.isEmpty()) return;
  const double scale = devicePixelRatioF();
  const QSize screen = (screenRect().size() * scale).toSize();
  QSize camera;
  if (!camera_.isEmpty())
    camera = camera_.scaled((cameraRect().size() * scale).toSize(), Qt::KeepAspectRatioByExpanding);
  emit sizesWanted(screen, camera);
}

void PictureView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  tellSizes();
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.sunken);
  if (!message_.isEmpty()) {
    painter.setPen(palette.secondaryText);
    painter.setFont(bodyFont());
    const int margin = tokens::space6;
    painter.drawText(rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap, message_);
    return;
  }
  if (!shown_) return;
  const QRectF screen = screenRect();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(screen, imageOf(*shown_));
  if (!shownCamera_) return;
  const QRectF circle = cameraRect();
  QPainterPath clip;
  clip.addEllipse(circle);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  painter.setClipPath(clip);
  const QSizeF size =
      QSizeF(shownCamera_->width, shownCamera_->height).scaled(circle.size(), Qt::KeepAspectRatioByExpanding);
  QRectF place(QPointF(), size);
  place.moveCenter(circle.center());
  if (isMirrored_) {
    painter.translate(2 * circle.center().x(), 0);
    painter.scale(-1, 1);
  }
  painter.drawImage(place, imageOf(*shownCamera_));
  painter.restore();
  painter.setPen(QPen(QColor(255, 255, 255, 230), cameraBorder));
  painter.drawEllipse(circle.adjusted(cameraBorder / 2, cameraBorder / 2, -cameraBorder / 2, -cameraBorder / 2));
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit clicked();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit doubleClicked();
}

}  // namespace vellora
