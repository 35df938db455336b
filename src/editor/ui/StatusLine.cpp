#include "editor/ui/StatusLine.h"

#include <cmath>

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>
#include <QTimerEvent>

#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int lineHeight = 32;
constexpr int chevronSide = 12;
constexpr int progressHeight = 2;
constexpr int progressInterval = 16;
constexpr double progressStep = 0.012;
constexpr double progressPart = 0.3;

}  // namespace

/// A flat button with a text, as wide as its widest one.
class StatusButton final : public QAbstractButton {
 public:
  explicit StatusButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setFont(tabularFont(secondaryFont()));
    repaintOnThemeChange(*this);
  }
  QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(QStringLiteral("800 %")) + 2 * tokens::space2 + chevronSide + 4,
            tokens::minimumHit - 2};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    if (isDown() || underMouse()) {
      fillRounded(painter, rect(), tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
    }
    painter.setPen(palette.text);
    painter.setFont(font());
    const QRect inner = rect().adjusted(tokens::space2, 0, -tokens::space2, 0);
    painter.drawText(inner.adjusted(0, 0, -chevronSide - 2, 0), Qt::AlignRight | Qt::AlignVCenter, text());
    const QRectF chevron(inner.right() + 1 - chevronSide + 2, inner.center().y() + 1 - chevronSide / 2.0, chevronSide,
                         chevronSide);
    paintIcon(painter, QStringLiteral("chevron"), snapped(painter, chevron), palette.secondaryText);
    if (hasFocus()) strokeRounded(painter, rect(), tokens::controlRadius, palette.accent, tokens::focusRingWidth);
  }
};

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
  setFixedHeight(lineHeight);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(tokens::space3, 1, tokens::space2, 0);
  row->setSpacing(tokens::space3);
  const auto label = [this](bool figures) {
    auto* text = new TextLabel(TextLabel::Role::Secondary, {}, this);
    text->setWordWrap(false);
    if (figures) text->setFont(tabularFont(secondaryFont()));
    return text;
  };
  hint_ = label(true);
  // A long hint is cut rather than making the window wider.
  hint_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(hint_, 1);
  progress_ = label(false);
  row->addWidget(progress_);
  //% "Cancel"
  cancel_ = new IconButton(QStringLiteral("close"), qtTrId("editor.cancel"), {}, this);
  cancel_->setIconSide(14);
  cancel_->setFocusPolicy(Qt::TabFocus);
  connect(cancel_, &IconButton::clicked, this, [this] {
    if (cancelled_) cancelled_();
  });
  row->addWidget(cancel_);
  progress_->hide();
  cancel_->hide();
  selection_ = label(true);
  row->addWidget(selection_);
  size_ = label(true);
  row->addWidget(size_);
  zoom_ = new StatusButton(this);
  //% "Zoom"
  zoom_->setAccessibleName(qtTrId("editor.zoom"));
  zoom_->setToolTip(zoom_->accessibleName());
  connect(zoom_, &QAbstractButton::clicked, this, &StatusLine::zoomMenuRequested);
  row->addWidget(zoom_);
  repaintOnThemeChange(*this);
}

void StatusLine::setHint(const QString& hint) {
  hint_->setText(hint);
}

void StatusLine::setSelection(const QString& text) {
  selection_->setText(text);
  selection_->setVisible(!text.isEmpty());
}

void StatusLine::setSizeText(const QString& text) {
  size_->setText(text);
}

void StatusLine::setZoom(double zoom) {
  //% "%1 %"
  zoom_->setText(qtTrId("editor.zoomPercent").arg(std::lround(zoom * 100)));
  zoom_->update();
}

void StatusLine::showProgress(const QString& text, std::function<void()> cancel) {
  cancelled_ = std::move(cancel);
  progress_->setText(text);
  progress_->show();
  cancel_->show();
  if (timer_ == 0) timer_ = startTimer(progressInterval);
}

void StatusLine::hideProgress() {
  cancelled_ = nullptr;
  progress_->hide();
  cancel_->hide();
  if (timer_ != 0) killTimer(timer_);
  timer_ = 0;
  update();
}

bool StatusLine::showsProgress() const {
  return timer_ != 0;
}

QWidget* StatusLine::zoomButton() const {
  return zoom_;
}

void StatusLine::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_) return QWidget::timerEvent(event);
  phase_ = std::fmod(phase_ + progressStep, 1.0);
  update(0, 0, width(), progressHeight);
}

void StatusLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.surface);
  drawHorizontalLine(painter, 0, width(), 0, palette.line);
  if (timer_ == 0) return;
  // Without motion the bar is there as a whole.
  const bool still = Theme::shared().reducedMotion();
  const double from = still ? 0 : (phase_ * (1 + progressPart) - progressPart) * width();
  painter.fillRect(QRectF(from, 0, still ? width() : progressPart * width(), progressHeight), palette.accent);
}

}  // namespace vellora
