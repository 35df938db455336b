#include "recording/ui/RegionPanel.h"

#include <algorithm>

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include "kit/Theme.h"
#include "recording/ui/PixelWindow.h"
#include "recording/ui/RegionBadge.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr float shadeOpacity = 0.22F;

Qt::CursorShape cursorFor(const RegionGrip& grip) {
  if (grip.isWhole()) return Qt::SizeAllCursor;
  if ((grip.left && grip.top) || (grip.right && grip.bottom)) return Qt::SizeFDiagCursor;
  if ((grip.right && grip.top) || (grip.left && grip.bottom)) return Qt::SizeBDiagCursor;
  if (grip.isNone()) return Qt::ArrowCursor;
  return grip.left || grip.right ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

QRect toQRect(const PixelRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

}  // namespace

/// Darkens the display around the region. It is painted once: what moves is the hole in it.
class RegionPanel::Shade final : public PixelWindow {
 public:
  explicit Shade(WindowHints* hints) : PixelWindow(hints, QStringLiteral("Vellora recording shade")) {}

  void leaveOut(const PixelRect& region) {
    const PixelRect all = frame();
    const PixelRect hole = region.intersected(all).translated(-all.x, -all.y);
    setVisibleParts(std::vector<PixelRect>{{0, 0, all.width, hole.y},
                                           {0, hole.y, hole.x, hole.height},
                                           {hole.right(), hole.y, all.width - hole.right(), hole.height},
                                           {0, hole.bottom(), all.width, all.height - hole.bottom()}});
  }

 protected:
  void paint(QPainter& painter) override {
    QColor shade(Qt::black);
    shade.setAlphaF(shadeOpacity);
    painter.fillRect(QRect(0, 0, frame().width, frame().height), shade);
  }
};

/// The line and its handles.
class RegionPanel::Frame final : public PixelWindow {
 public:
  Frame(RegionPanel& panel, WindowHints* hints)
      : PixelWindow(hints, QStringLiteral("Vellora recording region")), panel_(panel) {}

  void arrange(const PixelRect& region) {
    const RegionFrameLayout layout(region, panel_.screen_.scale);
    // Beyond the display nobody sees it, and on the next one it would be in the way.
    const PixelRect window = layout.window().intersected(panel_.model_.display());
    const auto local = [&](std::vector<PixelRect> parts) {
      for (PixelRect& part : parts) part = part.intersected(window).translated(-window.x, -window.y);
      std::erase_if(parts, [](const PixelRect& part) { return part.isEmpty(); });
      return parts;
    };
    std::vector<PixelRect> parts = layout.inputParts();
    setInputParts(local(parts));
    if (!isBlended()) {
      const auto band = layout.band();
      parts.assign(band.begin(), band.end());
      const auto handles = layout.handles();
      parts.insert(parts.end(), handles.begin(), handles.end());
    }
    setVisibleParts(local(std::move(parts)));
    place(window);
    repaint();
  }

 protected:
  void paint(QPainter& painter) override {
    const ThemeColors& palette = Theme::shared().palette();
    const RegionFrameLayout layout(panel_.model_.region(), panel_.screen_.scale);
    painter.translate(-frame().x, -frame().y);
    if (!isBlended()) {
      const int hair = std::max(1, static_cast<int>(panel_.screen_.scale));
      for (const PixelRect& side : layout.band()) painter.fillRect(toQRect(side), palette.controlBorder);
      const QRect outer = toQRect(layout.band()[0]) | toQRect(layout.band()[2]);
      QRegion ring(outer.adjusted(hair, hair, -hair, -hair));
      ring -= toQRect(panel_.model_.region());
      for (const QRect& part : ring) painter.fillRect(part, palette.raised);
    }
    for (const PixelRect& side : layout.lines()) painter.fillRect(toQRect(side), palette.accent);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double rim = panel_.screen_.scale * 2;
    for (const PixelRect& handle : layout.handles()) {
      const QRectF box = toQRect(handle);
      if (!isBlended()) painter.fillRect(box, palette.accent);
      painter.setBrush(palette.accent);
      painter.drawEllipse(box);
      painter.setBrush(Qt::white);
      painter.drawEllipse(box.adjusted(rim, rim, -rim, -rim));
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    emit panel_.pressed();
    if (event->button() != Qt::LeftButton) return;
    const PixelPoint at = desktopPosition(event->position());
    panel_.model_.beginPull(RegionFrameLayout(panel_.model_.region(), panel_.screen_.scale).gripAt(at), at);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    // The window moves with the region: what counts is the place on the desktop when the event was made.
    const QPointF global = event->globalPosition();
    if (!panel_.model_.isPulled()) {
      const PixelPoint at = desktopPosition(event->position());
      setCursor(cursorFor(RegionFrameLayout(panel_.model_.region(), panel_.screen_.scale).gripAt(at)));
      return;
    }
    const PixelRect before = panel_.model_.region();
    panel_.model_.pullTo(onDesktop(global), event->modifiers().testFlag(Qt::ShiftModifier));
    panel_.changed(before);
  }
  void mouseReleaseEvent(QMouseEvent*) override { panel_.model_.endPull(); }

 private:
  PixelPoint onDesktop(QPointF global) const {
    const QPointF origin = screen()->geometry().topLeft();
    return {qRound(origin.x() + (global.x() - origin.x()) * scale()),
            qRound(origin.y() + (global.y() - origin.y()) * scale())};
  }

  RegionPanel& panel_;
};

RegionPanel::RegionPanel(const PixelRect& region, const DisplayInfo& screen, WindowHints* hints)
    : screen_(screen),
      model_(region, screen.frame),
      frame_(std::make_unique<Frame>(*this, hints)),
      badge_(std::make_unique<RegionBadge>(screen, hints)) {
  if (frame_->isBlended() && hints != nullptr) shade_ = std::make_unique<Shade>(hints);
  connect(badge_.get(), &RegionBadge::pressed, this, &RegionPanel::pressed);
  connect(badge_.get(), &RegionBadge::chosen, this, &RegionPanel::apply);
  connect(badge_.get(), &RegionBadge::pullBegan, this,
          [this](PixelPoint at) { model_.beginPull(RegionGrip::whole(), at); });
  connect(badge_.get(), &RegionBadge::pulled, this, [this](PixelPoint at) {
    const PixelRect before = model_.region();
    model_.pullTo(at);
    changed(before);
  });
  connect(badge_.get(), &RegionBadge::pullEnded, this, [this] { model_.endPull(); });
  connect(&Theme::shared(), &Theme::changed, this, [this] { frame_->repaint(); });
}

RegionPanel::~RegionPanel() = default;

void RegionPanel::show() {
  if (shade_) shade_->place(screen_.frame);
  arrange();
  if (shade_) shade_->appear();
  frame_->appear();
  badge_->appear();
}

void RegionPanel::hide() {
  badge_->hide();
  frame_->hide();
  if (shade_) shade_->hide();
}

void RegionPanel::arrange() {
  if (shade_) shade_->leaveOut(model_.region());
  frame_->arrange(model_.region());
  badge_->follow(model_);
}

void RegionPanel::changed(const PixelRect& before) {
  if (model_.region() == before) return;
  arrange();
  emit regionChanged(model_.region());
}

void RegionPanel::nudge(int dx, int dy) {
  const PixelRect before = model_.region();
  model_.nudge(dx, dy);
  changed(before);
}

void RegionPanel::apply(const RegionPreset& preset) {
  const PixelRect before = model_.region();
  model_.apply(preset);
  changed(before);
}

void RegionPanel::openPresets() {
  badge_->openPresets();
}

std::vector<WindowId> RegionPanel::windows() const {
  std::vector<WindowId> result;
  if (shade_ && shade_->isVisible()) result.push_back(static_cast<WindowId>(shade_->winId()));
  if (frame_->isVisible()) result.push_back(static_cast<WindowId>(frame_->winId()));
  if (badge_->isVisible()) result.push_back(badge_->windowId());
  return result;
}

}  // namespace vellora
