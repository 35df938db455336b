#include "editor/ui/compressor/CompressorDropZone.h"

#include <QKeySequence>
#include <QPainter>
#include <QVBoxLayout>

#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int emblemSide = 72;
constexpr int emblemIcon = 32;
constexpr int widestText = 320;

/// The program's picture of a pile of pictures that gets smaller, in the theme's colors.
class Emblem final : public QWidget {
 public:
  explicit Emblem(QWidget* parent) : QWidget(parent) {
    setFixedSize(emblemSide, emblemSide);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    repaintOnThemeChange(*this);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColors& colors = Theme::shared().palette();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.selection);
    painter.drawEllipse(rect());
    QRectF icon(0, 0, emblemIcon, emblemIcon);
    icon.moveCenter(QRectF(rect()).center());
    paintIcon(painter, QStringLiteral("compress"), snapped(painter, icon), colors.accent);
  }
};

void strokeDashed(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QPen pen(color, width);
  pen.setDashPattern({5, 4});
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(rect.adjusted(width / 2, width / 2, -width / 2, -width / 2), radius, radius);
  painter.restore();
}

}  // namespace

CompressorDropZone::CompressorDropZone(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(0);
  column->addStretch(1);
  column->addWidget(new Emblem(this), 0, Qt::AlignHCenter);
  column->addSpacing(tokens::space4);
  //% "Drop images or folders here"
  auto* title = new TextLabel(TextLabel::Role::Heading, qtTrId("compress.drop.hint"), this);
  title->setAlignment(Qt::AlignHCenter);
  column->addWidget(title);
  column->addSpacing(tokens::space1);
  //% "or paste them with %1. Originals are never changed, and results are never larger."
  const QString more =
      qtTrId("compress.drop.more").arg(QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText));
  auto* hint = new TextLabel(TextLabel::Role::Secondary, more, this);
  hint->setAlignment(Qt::AlignHCenter);
  hint->setFixedSize(widestText, hint->heightForWidth(widestText));
  column->addWidget(hint, 0, Qt::AlignHCenter);
  column->addSpacing(tokens::space4);
  //% "Choose Images…"
  auto* choose = new SecondaryButton(qtTrId("compress.drop.choose"), this);
  connect(choose, &QPushButton::clicked, this, &CompressorDropZone::chooseRequested);
  column->addWidget(choose, 0, Qt::AlignHCenter);
  column->addStretch(1);
  repaintOnThemeChange(*this);
}

void CompressorDropZone::setHot(bool hot) {
  if (isHot_ == hot) return;
  isHot_ = hot;
  update();
}

void CompressorDropZone::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& colors = Theme::shared().palette();
  const QRectF zone = QRectF(rect()).adjusted(tokens::space4, tokens::space2, -tokens::space4, -tokens::space4);
  if (isHot_) fillRounded(painter, zone, tokens::windowRadius, colors.selection);
  strokeDashed(painter, snapped(painter, zone), tokens::windowRadius, isHot_ ? colors.accent : colors.controlBorder,
               isHot_ ? 2 : 1.5);
}

DropHighlight::DropHighlight(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void DropHighlight::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& colors = Theme::shared().palette();
  const QRectF zone = QRectF(rect()).adjusted(tokens::space1, tokens::space1, -tokens::space1, -tokens::space1);
  fillRounded(painter, zone, tokens::controlRadius, colors.selection);
  strokeRounded(painter, zone, tokens::controlRadius, colors.accent, 2);
}

}  // namespace vellora
