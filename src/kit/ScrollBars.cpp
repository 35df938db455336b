#include "kit/ScrollBars.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

#include "kit/Theme.h"

namespace vellora {
namespace {

QString cssColor(const QColor& color) {
  return QStringLiteral("rgba(%1,%2,%3,%4)").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha());
}

constexpr int handleMargin = 3;

void apply(const QAbstractScrollArea& area, int width) {
  const ThemeColors& colors = Theme::shared().palette();
  area.verticalScrollBar()->setStyleSheet(
      QStringLiteral("QScrollBar{background:transparent;width:%3px;border:none}"
                     "QScrollBar::handle{background:%1;border-radius:%4px;min-height:32px;margin:%5px}"
                     "QScrollBar::handle:hover{background:%2}"
                     "QScrollBar::add-line,QScrollBar::sub-line{height:0}"
                     "QScrollBar::add-page,QScrollBar::sub-page{background:transparent}")
          .arg(cssColor(colors.controlBorder), cssColor(colors.secondaryText))
          .arg(width)
          .arg(width / 2 - handleMargin)
          .arg(handleMargin));
}

}  // namespace

void styleScrollBars(QAbstractScrollArea& area, int width) {
  apply(area, width);
  QObject::connect(&Theme::shared(), &Theme::changed, &area, [&area, width] { apply(area, width); });
}

}  // namespace vellora
