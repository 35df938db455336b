#include "recording/ui/RecordingBorder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>

#include "kit/Theme.h"
#include "recording/ui/PixelWindow.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr int breathStep = 80;  // ms between two pictures of the breathing

QColor colorOf(RecordingBorder::Look look) {
  const ThemeColors& palette = Theme::shared().palette();
  switch (look) {
    case RecordingBorder::Look::armed:
      return palette.accent;
    case RecordingBorder::Look::recording:
      return palette.record;
    case RecordingBorder::Look::paused:
      break;
  }
  return QColor(0x8B, 0x90, 0x98);
}

/// How far a circle of the radius is from its box's edge at the middle of a row `row` below the box's top.
double arcInset(double radius, double row) {
  const double up = radius - row;
  return radius - std::sqrt(std::max(0.0, radius * radius - up * up));
}

/// The rows of a rounded frame's upper end; `outer` its radius, `line` its width. The rows below are straight.
std::vector<PixelRect> roundedRows(int width, double outer, int line) {
  std::vector<PixelRect> rows;
  const double inner = std::max(0.0, outer - line);
  const int count = static_cast<int>(std::ceil(std::max<double>(outer, line)));
  for (int y = 0; y < count; ++y) {
    const int from = y < outer ? static_cast<int>(std::floor(arcInset(outer, y + 0.5))) : 0;
    if (y < line) {
      rows.push_back({from, y, width - 2 * from, 1});
      continue;
    }
    // Not one pixel of the content: where the inner edge is at its farthest out in this row.
    const int to = std::max(line, line + static_cast<int>(std::floor(arcInset(inner, y - line + 1))));
    rows.push_back({from, y, to - from, 1});
    rows.push_back({width - to, y, to - from, 1});
  }
  return rows;
}

}  // namespace

/// One side of the frame.
class RecordingBorder::Edge final : public PixelWindow {
 public:
  explicit Edge(WindowHints* hints) : PixelWindow(hints, QStringLiteral("Vellora recording border")) {}

  void shape(const PixelRect& whole, double radius, int line) {
    whole_ = whole;
    radius_ = radius;
    line_ = line;
  }
  void setColor(const QColor& color) {
    if (color == color_) return;
    color_ = color;
    repaint();
  }

 protected:
  void paint(QPainter& painter) override {
    if (radius_ <= 0 || !isBlended()) {
      painter.fillRect(QRect(0, 0, frame().width, frame().height), color_);
      return;
    }
    const QRectF outer(whole_.x - frame().x, whole_.y - frame().y, whole_.width, whole_.height);
    QPainterPath ring;
    ring.addRoundedRect(outer, radius_, radius_);
    const double inner = std::max(0.0, radius_ - line_);
    ring.addRoundedRect(outer.adjusted(line_, line_, -line_, -line_), inner, inner);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(ring, color_);
  }

 private:
  PixelRect whole_;
  double radius_ = 0;
  int line_ = 1;
  QColor color_;
};

RecordingBorder::RecordingBorder(WindowHints* hints) : breathing_(new QTimer(this)) {
  for (auto& edge : edges_) edge = std::make_unique<Edge>(hints);
  breathing_->setInterval(breathStep);
  connect(breathing_, &QTimer::timeout, this, &RecordingBorder::paint);
  connect(&Theme::shared(), &Theme::changed, this, &RecordingBorder::paint);
}

RecordingBorder::~RecordingBorder() = default;

double RecordingBorder::opacityAt(double milliseconds) {
  const double wave = (1 + std::cos(2 * M_PI * milliseconds / breath)) / 2;
  return leastOpacity + (1 - leastOpacity) * wave;
}

void RecordingBorder::show(const PixelRect& frame, double cornerRadius, Look look) {
  if (frame != frame_ || cornerRadius != cornerRadius_) arrange(frame, cornerRadius);
  if (look_ != look) setLook(look);
  for (auto& edge : edges_) edge->appear();
}

void RecordingBorder::arrange(const PixelRect& frame, double cornerRadius) {
  const QScreen* const screen = screenAt(frame.center());
  if (screen == nullptr) return;
  const double scale = screen->devicePixelRatio();
  const int line = std::max(1, static_cast<int>(std::lround(lineWidth * scale)));
  const double radius = std::clamp(cornerRadius * scale, 0.0, std::min(frame.width, frame.height) / 2.0);
  const bool resized = frame.size() != frame_.size() || cornerRadius != cornerRadius_;
  frame_ = frame;
  cornerRadius_ = cornerRadius;
  const auto end = static_cast<int>(std::ceil(std::max<double>(line, radius)));
  const int between = std::max(1, frame.height - 2 * end);
  const PixelRect places[] = {{frame.x, frame.y, frame.width, end},
                              {frame.right() - line, frame.y + end, line, between},
                              {frame.x, frame.bottom() - end, frame.width, end},
                              {frame.x, frame.y + end, line, between}};
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    edges_[i]->shape(frame, radius, line);
    edges_[i]->place(places[i]);
  }
  if (!resized) return;
  if (radius <= 0) {
    for (auto& edge : edges_) edge->setVisibleParts(std::nullopt);
    return;
  }
  const auto rows = roundedRows(frame.width, radius, line);
  edges_[0]->setVisibleParts(rows);
  auto mirrored = rows;
  for (PixelRect& row : mirrored) row.y = end - 1 - row.y;
  edges_[2]->setVisibleParts(std::move(mirrored));
}

void RecordingBorder::setLook(Look look) {
  const bool breathes = look == Look::recording && !Theme::shared().reducedMotion();
  if (breathes && !breathing_->isActive()) breathed_.start();
  look_ = look;
  if (breathes) {
    breathing_->start();
  } else {
    breathing_->stop();
  }
  paint();
}

void RecordingBorder::paint() {
  if (!look_) return;
  QColor color = colorOf(*look_);
  if (breathing_->isActive()) {
    const auto opacity = static_cast<float>(opacityAt(static_cast<double>(breathed_.elapsed())));
    if (edges_[0]->isBlended()) {
      color.setAlphaF(opacity);
    } else {
      color = QColor::fromRgbF(color.redF() * opacity, color.greenF() * opacity, color.blueF() * opacity);
    }
  }
  for (auto& edge : edges_) edge->setColor(color);
}

std::vector<WindowId> RecordingBorder::windows() const {
  std::vector<WindowId> result;
  for (const auto& edge : edges_) {
    if (edge->isVisible()) result.push_back(static_cast<WindowId>(edge->winId()));
  }
  return result;
}

}  // namespace vellora
