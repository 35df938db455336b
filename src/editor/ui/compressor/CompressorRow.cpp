#include "editor/ui/compressor/CompressorRow.h"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>

#include "editor/ui/compressor/CompressorListModel.h"
#include "editor/ui/compressor/CompressorTexts.h"
#include "editor/ui/compressor/RasterImages.h"
#include "kit/ColorSwatch.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int thumbnailSide = 44;
constexpr int thumbnailRadius = 4;
constexpr int signSide = 14;
constexpr int lineHeight = 20;
constexpr int actionIcon = 16;
constexpr int keptThumbnails = 256;
constexpr int mostFigures = 60;  // percent of the room for texts

QString iconOf(RowAction action) {
  switch (action) {
    case RowAction::Retry:
      return QStringLiteral("reset");
    case RowAction::Reveal:
      return QStringLiteral("folder");
    case RowAction::Remove:
      return QStringLiteral("close");
  }
  return {};
}

/// A text of a row, cut where its room ends.
struct RowText {
  QString text;
  QFont font;
  QColor ink;
  Qt::TextElideMode elide;

  int width() const { return text.isEmpty() ? 0 : QFontMetrics(font).horizontalAdvance(text) + 1; }
  void draw(QPainter& painter, const QRect& rect, Qt::Alignment alignment) const {
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, elide, rect.width()));
  }
};

void paintSpinner(QPainter& painter, const QRectF& rect, double turn) {
  constexpr double width = 2;
  const QRectF circle = rect.adjusted(width / 2, width / 2, -width / 2, -width / 2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Theme::shared().palette().controlBorder, width));
  painter.drawEllipse(circle);
  painter.setPen(QPen(Theme::shared().palette().accent, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(circle, static_cast<int>(-turn * 360 * 16) + 90 * 16, -100 * 16);
}

}  // namespace

RowLayout::RowLayout(const QRect& row, Qt::LayoutDirection direction) {
  ground = row.adjusted(tokens::space2, 1, -tokens::space2, -1);
  const int middle = ground.center().y() + 1;
  thumbnail = {ground.left() + tokens::space2, middle - thumbnailSide / 2, thumbnailSide, thumbnailSide};
  const int hit = tokens::minimumHit;
  remove = {ground.right() + 1 - tokens::space2 - hit, middle - hit / 2, hit, hit};
  mainAction = remove.translated(-hit, 0);
  const int figuresRight = mainAction.left() - tokens::space2;
  const int textLeft = thumbnail.right() + 1 + tokens::space3;
  upper = {textLeft, middle - lineHeight, figuresRight - textLeft, lineHeight};
  lower = upper.translated(0, lineHeight);
  sign = {figuresRight - signSide, lower.center().y() + 1 - signSide / 2, signSide, signSide};
  if (direction != Qt::RightToLeft) return;
  for (QRect* part : {&thumbnail, &upper, &lower, &sign, &mainAction, &remove})
    *part = QStyle::visualRect(direction, row, *part);
}

std::optional<RowAction> mainActionOf(const CompressionItem& item) {
  if (item.state == CompressionState::failed || item.state == CompressionState::cancelled) return RowAction::Retry;
  if (item.lastOutput && item.state != CompressionState::running) return RowAction::Reveal;
  return std::nullopt;
}

CompressorRowDelegate::CompressorRowDelegate(const CompressorListModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model), thumbnails_(keptThumbnails) {}

QSize CompressorRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {320, rowHeight};
}

void CompressorRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  const CompressionItem* item = model_.item(index);
  if (item == nullptr) return;
  const ThemeColors& colors = Theme::shared().palette();
  const RowLayout layout(option.rect, option.direction);
  const bool isTouched = touch_.row == index;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (option.state.testFlag(QStyle::State_Selected)) {
    fillRounded(*painter, layout.ground, tokens::controlRadius, colors.selection);
  } else if (isTouched) {
    fillRounded(*painter, layout.ground, tokens::controlRadius, colors.hover);
  }
  paintThumbnail(*painter, layout.thumbnail, *item);
  paintTexts(*painter, layout, *item, option.direction);
  const bool isActive = isTouched || (option.state.testFlag(QStyle::State_HasFocus) && focusVisible_);
  const auto action = mainActionOf(*item);
  if (action && (isActive || *action == RowAction::Retry)) paintAction(*painter, layout.mainAction, *action, isTouched);
  if (isActive && item->state != CompressionState::running)
    paintAction(*painter, layout.remove, RowAction::Remove, isTouched);
  if (option.state.testFlag(QStyle::State_HasFocus) && focusVisible_)
    strokeRounded(*painter, layout.ground, tokens::controlRadius, colors.accent, tokens::focusRingWidth);
  painter->restore();
}

void CompressorRowDelegate::paintTexts(QPainter& painter, const RowLayout& layout, const CompressionItem& item,
                                       Qt::LayoutDirection direction) const {
  const ThemeColors& colors = Theme::shared().palette();
  const auto leading = QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignVCenter;
  const auto trailing = QStyle::visualAlignment(direction, Qt::AlignRight) | Qt::AlignVCenter;
  const bool isFailed = item.state == CompressionState::failed;
  const QColor quiet = isFailed ? colors.errorText : colors.secondaryText;
  const QString state = compressorText::state(item);
  const RowText name{compressorText::name(item), bodyFont(), colors.text, Qt::ElideMiddle};
  const RowText sizes{compressorText::sizes(item), tabularFont(), colors.text, Qt::ElideLeft};
  const RowText detail{compressorText::detail(item), secondaryFont(), quiet, Qt::ElideRight};
  const RowText outcome{state, tabularFont(secondaryFont()), quiet, Qt::ElideRight};
  const int signRoom = state.isEmpty() ? 0 : signSide + tokens::space1 + 2;
  // What became of the picture comes first, its name gets the rest.
  const int figures =
      std::min(std::max(sizes.width(), outcome.width() + signRoom), layout.upper.width() * mostFigures / 100);
  const auto part = [&](const QRect& line, int left, int width) {
    return QStyle::visualRect(direction, line, {line.left() + left, line.top(), width, line.height()});
  };
  const int textWidth = layout.upper.width() - figures - tokens::space4;
  const int figuresLeft = layout.upper.width() - figures;
  name.draw(painter, part(layout.upper, 0, textWidth), leading);
  detail.draw(painter, part(layout.lower, 0, textWidth), leading);
  outcome.draw(painter, part(layout.lower, figuresLeft, figures - signRoom), trailing);
  const QRect sizesLine = state.isEmpty() ? layout.upper.united(layout.lower) : layout.upper;
  sizes.draw(painter, part(sizesLine, figuresLeft, figures), trailing);
  paintSign(painter, layout.sign, item);
}

QPixmap CompressorRowDelegate::thumbnailOf(const CompressionItem& item, double ratio) const {
  const auto side = static_cast<int>(std::lround(thumbnailSide * ratio));
  if (const QPixmap* kept = thumbnails_.object(item.id); kept != nullptr && kept->width() == side) return *kept;
  const QImage image = imageOf(item.thumbnail);
  if (image.isNull()) return {};
  // Filled, so that every row has the same outline.
  const int part = std::min(image.width(), image.height());
  const QImage square = image.copy((image.width() - part) / 2, (image.height() - part) / 2, part, part);
  auto* pixmap = new QPixmap(side, side);
  pixmap->fill(Qt::transparent);
  {
    QPainter painter(pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath outline;
    outline.addRoundedRect(0, 0, side, side, thumbnailRadius * ratio, thumbnailRadius * ratio);
    painter.setClipPath(outline);
    if (image.hasAlphaChannel()) paintChequers(painter, QRectF(0, 0, side, side), 4 * ratio);
    painter.drawImage(QRectF(0, 0, side, side),
                      square.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  thumbnails_.insert(item.id, pixmap);
  return *pixmap;
}

void CompressorRowDelegate::paintThumbnail(QPainter& painter, const QRect& rect, const CompressionItem& item) const {
  const ThemeColors& colors = Theme::shared().palette();
  const QPixmap picture = thumbnailOf(item, painter.device()->devicePixelRatioF());
  if (picture.isNull()) {
    fillRounded(painter, rect, thumbnailRadius, colors.sunken);
    constexpr int side = 20;
    const QRect icon(rect.center() - QPoint(side / 2 - 1, side / 2 - 1), QSize(side, side));
    paintIcon(painter, QStringLiteral("load.file"), snapped(painter, icon), colors.disabledText);
  } else {
    painter.drawPixmap(snapped(painter, rect), picture, QRectF(picture.rect()));
  }
  strokeRounded(painter, rect, thumbnailRadius, colors.line);
}

void CompressorRowDelegate::paintSign(QPainter& painter, const QRect& rect, const CompressionItem& item) const {
  const ThemeColors& colors = Theme::shared().palette();
  switch (item.state) {
    case CompressionState::running:
      return paintSpinner(painter, rect, turn_);
    case CompressionState::done:
      return paintIcon(painter, QStringLiteral("checkmark.circle.fill"), snapped(painter, rect), colors.success);
    case CompressionState::unchanged:
      return paintIcon(painter, QStringLiteral("check"), snapped(painter, rect), colors.secondaryText);
    case CompressionState::failed:
      return paintIcon(painter, QStringLiteral("exclamationmark.triangle.fill"), snapped(painter, rect),
                       colors.warning);
    case CompressionState::cancelled:
      return paintIcon(painter, QStringLiteral("stop.circle"), snapped(painter, rect), colors.secondaryText);
    case CompressionState::waiting:
      return;
  }
}

void CompressorRowDelegate::paintAction(QPainter& painter, const QRect& rect, RowAction action, bool isHere) const {
  const ThemeColors& colors = Theme::shared().palette();
  const bool isTouched = isHere && touch_.action == action;
  if (isTouched) fillRounded(painter, rect, tokens::controlRadius, touch_.isPressed ? colors.pressed : colors.hover);
  QRectF icon(0, 0, actionIcon, actionIcon);
  icon.moveCenter(QRectF(rect).center());
  paintIcon(painter, iconOf(action), snapped(painter, icon), isTouched ? colors.text : colors.secondaryText);
}

}  // namespace vellora
