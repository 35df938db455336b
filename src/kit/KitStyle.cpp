#include "kit/KitStyle.h"

#include <algorithm>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include "kit/Compositing.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int itemHeight = 30;
constexpr int separatorHeight = 9;
constexpr int panelInset = 5;
constexpr int itemPadding = 10;
constexpr int iconGap = 10;
constexpr QSize pictureSize{48, 30};
constexpr int pictureRowHeight = 38;
constexpr double pictureRadius = 3;
constexpr int menuRadius = 8;
constexpr int leastWidth = 160;
constexpr int shortcutGap = 32;
constexpr int arrowRoom = 20;
constexpr int tipRadius = 5;
constexpr int tipMargin = 6;

/// Whether a menu's icon is a small picture of something, shown larger than a symbol. Symbols come in many sizes.
bool isPicture(const QIcon& icon) {
  const auto sizes = icon.isNull() ? QList<QSize>() : icon.availableSizes();
  return sizes.size() == 1 && sizes.first().width() > sizes.first().height();
}

bool hasPictures(const QWidget* menu) {
  return menu != nullptr &&
         std::ranges::any_of(menu->actions(), [](const QAction* action) { return isPicture(action->icon()); });
}

/// Draws menus and tool tips; everything else stays with the base style.
class KitStyle final : public QProxyStyle {
 public:
  KitStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    switch (metric) {
      case PM_MenuHMargin:
      case PM_MenuVMargin:
        return panelInset;
      case PM_MenuPanelWidth:
      case PM_MenuDesktopFrameWidth:
      case PM_SubMenuOverlap:
        return 0;
      case PM_ToolTipLabelFrameWidth:
        return tipMargin;
      case PM_SmallIconSize:
        return tokens::menuIcon;
      default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr) return QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (item->menuItemType == QStyleOptionMenuItem::Separator) return {leastWidth, separatorHeight};
    const QString title = item->text.section(QLatin1Char('\t'), 0, 0);
    const QString shortcut = item->text.section(QLatin1Char('\t'), 1);
    const QFontMetrics metrics(bodyFont());
    int width = 2 * itemPadding + metrics.size(Qt::TextShowMnemonic, title).width() + iconColumn(*item, widget);
    if (!shortcut.isEmpty()) width += shortcutGap + metrics.horizontalAdvance(shortcut);
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) width += arrowRoom;
    return {std::max(width, leastWidth), isPicture(item->icon) ? pictureRowHeight : itemHeight};
  }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_FrameMenu) return;
    if (element == PE_PanelTipLabel) {
      drawPanel(*painter, option->rect, widget, tipRadius);
      return;
    }
    if (element != PE_PanelMenu) {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      return;
    }
    drawPanel(*painter, option->rect, widget, menuRadius);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_MenuEmptyArea) return;
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || item == nullptr) {
      QProxyStyle::drawControl(element, option, painter, widget);
      return;
    }
    drawItem(*painter, *item, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    switch (hint) {
      case SH_Menu_SubMenuPopupDelay:
        return 150;
      case SH_Menu_MouseTracking:
      case SH_Menu_Scrollable:
        return 1;
      case SH_ToolTip_Mask:
      case SH_UnderlineShortcut:
        return 0;
      default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
  }

 private:
  static void drawPanel(QPainter& painter, const QRect& rect, const QWidget* widget, double rounding) {
    const ThemeColors& palette = Theme::shared().palette();
    const double radius = widget != nullptr && widget->testAttribute(Qt::WA_TranslucentBackground) ? rounding : 0;
    fillRounded(painter, rect, radius, palette.raised);
    strokeRounded(painter, rect, radius, palette.controlBorder);
  }

  static int iconColumn(const QStyleOptionMenuItem& item, const QWidget* menu) {
    if (hasPictures(menu)) return pictureSize.width() + iconGap;
    return item.maxIconWidth > 0 || item.menuHasCheckableItems ? tokens::menuIcon + iconGap : 0;
  }

  static void drawPicture(QPainter& painter, const QIcon& picture, const QRect& rect) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rect, pictureRadius, pictureRadius);
    painter.setClipPath(outline);
    picture.paint(&painter, rect);
    painter.restore();
    strokeRounded(painter, rect, pictureRadius, Theme::shared().palette().line);
  }

  static void drawItem(QPainter& painter, const QStyleOptionMenuItem& item, const QWidget* menu) {
    const ThemeColors& palette = Theme::shared().palette();
    const QRect rect = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
      drawHorizontalLine(painter, rect.left() + itemPadding, rect.right() + 1 - itemPadding, rect.center().y(),
                         palette.line);
      return;
    }
    const bool enabled = item.state.testFlag(State_Enabled);
    if (enabled && item.state.testFlag(State_Selected)) {
      fillRounded(painter, rect, menuRadius - 3, palette.selection);
    }
    const QColor ink = enabled ? palette.text : palette.disabledText;
    const bool mirrored = item.direction == Qt::RightToLeft;
    const auto place = [&](const QRect& logical) { return QStyle::visualRect(item.direction, rect, logical); };
    int x = rect.left() + itemPadding;
    if (const int column = iconColumn(item, menu); column > 0) {
      const int indent = (column - iconGap - tokens::menuIcon) / 2;
      const QRect icon =
          place({x + indent, rect.center().y() + 1 - tokens::menuIcon / 2, tokens::menuIcon, tokens::menuIcon});
      if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.icon.isNull()) {
        if (item.checked) paintIcon(painter, QStringLiteral("check"), icon, enabled ? palette.accent : ink);
      } else if (isPicture(item.icon)) {
        drawPicture(painter, item.icon,
                    place({QPoint(x, rect.center().y() + 1 - pictureSize.height() / 2), pictureSize}));
      } else if (!item.icon.isNull()) {
        item.icon.paint(&painter, icon, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
      }
      x += column;
    }
    int right = rect.right() + 1 - itemPadding;
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
      const QRect arrow = place({right - 14, rect.center().y() + 1 - 7, 14, 14});
      painter.save();
      if (mirrored) {
        painter.translate(2 * arrow.center().x() + 1, 0);
        painter.scale(-1, 1);
      }
      paintIcon(painter, QStringLiteral("chevron.right"), arrow, enabled ? palette.secondaryText : ink);
      painter.restore();
      right -= arrowRoom;
    }
    painter.setFont(bodyFont());
    const Qt::Alignment leading = mirrored ? Qt::AlignRight : Qt::AlignLeft;
    const Qt::Alignment trailing = mirrored ? Qt::AlignLeft : Qt::AlignRight;
    const QRect text = place({x, rect.top(), right - x, rect.height()});
    const QString shortcut = item.text.section(QLatin1Char('\t'), 1);
    painter.setPen(ink);
    painter.drawText(text, static_cast<int>(leading | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     item.text.section(QLatin1Char('\t'), 0, 0));
    if (!shortcut.isEmpty()) {
      painter.setPen(enabled ? palette.secondaryText : ink);
      painter.drawText(text, static_cast<int>(trailing | Qt::AlignVCenter) | Qt::TextSingleLine, shortcut);
    }
  }
};

}  // namespace

QStyle* kitStyle() {
  static QStyle* style = nullptr;  // goes with the application object
  if (style == nullptr) {
    style = new KitStyle;
    style->setParent(qApp);
    QObject::connect(style, &QObject::destroyed, [] { style = nullptr; });
  }
  return style;
}

void styleToolTip(QLabel& tip) {
  tip.setStyle(kitStyle());
  tip.setAttribute(Qt::WA_TranslucentBackground, isComposited(tip.screen()));
}

}  // namespace vellora
