#include "editor/ui/compressor/CompressorFooter.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "editor/compressor/CompressionRun.h"
#include "editor/ui/compressor/CompressorTexts.h"
#include "kit/Button.h"
#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int badgeHeight = 22;
constexpr int badgePadding = 8;
constexpr int trackHeight = 4;
constexpr int widestBadge = 180;

}  // namespace

/// A row of small texts on rounded grounds.
class CompressorFooter::Badges final : public QWidget {
 public:
  explicit Badges(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    repaintOnThemeChange(*this);
  }

  void setTexts(const QStringList& texts) {
    texts_ = texts;
    setAccessibleName(texts.join(QStringLiteral(", ")));
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& colors = Theme::shared().palette();
    const QFontMetrics metrics(badgeFont());
    painter.setFont(badgeFont());
    int left = 0;
    for (const QString& text : texts_) {
      const int most = std::min(widestBadge, width() - left);
      const int wanted = std::min(metrics.horizontalAdvance(text) + 1 + 2 * badgePadding, most);
      if (wanted < 3 * badgePadding) return;
      const QRect badge =
          QStyle::visualRect(layoutDirection(), rect(), {left, (height() - badgeHeight) / 2, wanted, badgeHeight});
      fillRounded(painter, badge, badgeHeight / 2.0, colors.sunken);
      strokeRounded(painter, badge, badgeHeight / 2.0, colors.line);
      painter.setPen(colors.secondaryText);
      painter.drawText(badge, Qt::AlignCenter | Qt::TextSingleLine,
                       metrics.elidedText(text, Qt::ElideMiddle, wanted - 2 * badgePadding));
      left += wanted + tokens::space2;
    }
  }

 private:
  QStringList texts_;
};

/// How much of a run is over, as a bar.
class CompressorFooter::Track final : public QWidget {
 public:
  explicit Track(QWidget* parent) : QWidget(parent) {
    setFixedHeight(trackHeight);
    repaintOnThemeChange(*this);
  }

  void setPart(double part) {
    part_ = std::clamp(part, 0.0, 1.0);
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& colors = Theme::shared().palette();
    const QRectF whole = rect();
    fillRounded(painter, whole, trackHeight / 2.0, colors.line);
    QRect done = rect();
    done.setWidth(std::max(trackHeight, qRound(width() * part_)));
    if (part_ > 0) {
      fillRounded(painter, QStyle::visualRect(layoutDirection(), rect(), done), trackHeight / 2.0, colors.accentFill);
    }
  }

 private:
  double part_ = 0;
};

CompressorFooter::CompressorFooter(QWidget* parent)
    : QWidget(parent),
      texts_(new QStackedWidget(this)),
      badges_(new Badges(texts_)),
      progressText_(new TextLabel(TextLabel::Role::Secondary)),
      track_(new Track(this)),
      start_(new PrimaryButton({}, this)),
      //% "Cancel"
      cancel_(new SecondaryButton(qtTrId("compress.cancel"), this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(tokens::space4, tokens::space2, tokens::space4 - tokens::focusRingRoom, tokens::space2);
  row->setSpacing(tokens::space4);
  auto* running = new QWidget(texts_);
  auto* column = new QVBoxLayout(running);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(tokens::space1 + 2);
  column->addStretch(1);
  progressText_->setFont(tabularFont(secondaryFont()));
  progressText_->setWordWrap(false);
  column->addWidget(progressText_);
  column->addWidget(track_);
  column->addStretch(1);
  texts_->addWidget(badges_);
  texts_->addWidget(running);
  row->addWidget(texts_, 1);
  row->addWidget(start_);
  row->addWidget(cancel_);
  connect(start_, &QPushButton::clicked, this, &CompressorFooter::startRequested);
  connect(cancel_, &QPushButton::clicked, this, &CompressorFooter::cancelRequested);
  //% "Stop compressing (Esc)"
  cancel_->setToolTip(qtTrId("compress.cancelTip"));
  setOutstanding(0);
  setRunning(false);
  repaintOnThemeChange(*this);
}

void CompressorFooter::setBadges(const QStringList& badges) {
  badges_->setTexts(badges);
}

void CompressorFooter::setOutstanding(std::size_t count) {
  //% "Compress 1 Image"
  const QString one = qtTrId("compress.actionOne");
  //% "Compress %1 Images"
  const QString many = qtTrId("compress.actionMany").arg(QLocale().toString(static_cast<qulonglong>(count)));
  //% "Compress"
  start_->setText(count == 0 ? qtTrId("compress.actionNone") : count == 1 ? one : many);
  start_->setEnabled(count > 0);
}

void CompressorFooter::setProgress(const CompressionProgress& progress) {
  const QLocale locale;
  const auto number = [&](std::size_t count) { return locale.toString(static_cast<qulonglong>(count)); };
  //% "%1 of %2"
  QStringList parts{qtTrId("compress.progress.count").arg(number(progress.finished), number(progress.total))};
  if (progress.failed > 0) {
    //% "%n failed"
    parts << qtTrId("compress.toast.failed", static_cast<int>(progress.failed));
  }
  if (progress.remaining) parts << compressorText::remaining(*progress.remaining);
  progressText_->setText(parts.join(QStringLiteral(" · ")));
  const double total = std::max<double>(1, static_cast<double>(progress.total));
  track_->setPart(static_cast<double>(progress.finished) / total);
  track_->setAccessibleName(progressText_->text());
}

void CompressorFooter::setRunning(bool running) {
  const bool hadFocus = start_->hasFocus() || cancel_->hasFocus();
  texts_->setCurrentIndex(running ? 1 : 0);
  start_->setVisible(!running);
  cancel_->setVisible(running);
  if (hadFocus) (running ? cancel_ : static_cast<Button*>(start_))->setFocus(Qt::OtherFocusReason);
}

void CompressorFooter::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& colors = Theme::shared().palette();
  painter.fillRect(rect(), colors.surface);
  drawHorizontalLine(painter, 0, width(), 0, colors.line);
}

}  // namespace vellora
