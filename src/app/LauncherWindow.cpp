#include "app/LauncherWindow.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int rowHeight = 32;
constexpr int windowWidth = 320;

/// One command: icon, title, and its hot key or an arrow at the right.
class CommandRow final : public QAbstractButton {
 public:
  CommandRow(const MenuEntry& entry, QWidget* parent) : QAbstractButton(parent), entry_(entry) {
    setText(entry.titleKey.isEmpty() ? entry.title : qtTrId(entry.titleKey.toLatin1().constData()));
    setEnabled(entry.isEnabled);
    setAccessibleName(text());
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setFixedHeight(rowHeight);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const ThemeColors& colors = Theme::shared().palette();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ground = rect();
    painter.setPen(Qt::NoPen);
    if (isEnabled() && (underMouse() || isDown())) {
      painter.setBrush(isDown() ? colors.pressed : colors.hover);
      painter.drawRoundedRect(ground, tokens::controlRadius, tokens::controlRadius);
    }
    const QColor ink = isEnabled() ? colors.text : colors.disabledText;
    const QRect inner = rect().adjusted(tokens::space2, 0, -tokens::space2, 0);
    const int iconTop = (height() - tokens::menuIcon) / 2;
    paintIcon(painter, entry_.iconName, QRectF(inner.left(), iconTop, tokens::menuIcon, tokens::menuIcon), ink);
    painter.setPen(ink);
    painter.setFont(bodyFont());
    const QRect textRect = inner.adjusted(tokens::menuIcon + tokens::space3, 0, -80, 0);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, textRect.width()));
    painter.setPen(isEnabled() ? colors.secondaryText : colors.disabledText);
    if (entry_.kind == MenuEntry::Kind::Submenu) {
      paintIcon(painter, QStringLiteral("chevron.right"),
                QRectF(inner.right() - tokens::menuIcon, iconTop, tokens::menuIcon, tokens::menuIcon),
                painter.pen().color());
    } else if (!entry_.shortcut.isEmpty()) {
      painter.setFont(secondaryFont());
      painter.drawText(
          inner, Qt::AlignVCenter | Qt::AlignRight,
          QKeySequence::fromString(entry_.shortcut, QKeySequence::PortableText).toString(QKeySequence::NativeText));
    }
    if (hasFocus()) {
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(colors.accent, tokens::focusRingWidth));
      const double inset = tokens::focusRingWidth / 2;
      painter.drawRoundedRect(ground.adjusted(inset, inset, -inset, -inset), tokens::controlRadius,
                              tokens::controlRadius);
    }
  }

 private:
  MenuEntry entry_;
};

class Hairline final : public QWidget {
 public:
  explicit Hairline(QWidget* parent) : QWidget(parent) { setFixedHeight(tokens::space2 + 1); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(QRect(tokens::space2, height() / 2, width() - 2 * tokens::space2, 1),
                     Theme::shared().palette().line);
  }
};

}  // namespace

LauncherWindow::LauncherWindow(StateReader state, Handler handler)
    : state_(std::move(state)), handler_(std::move(handler)), rows_(new QVBoxLayout(this)) {
  setWindowTitle(QStringLiteral("Vellora"));
  setWindowIcon(icon(QStringLiteral("vellora")));
  setAttribute(Qt::WA_QuitOnClose, false);
  rows_->setContentsMargins(tokens::space2, tokens::space2, tokens::space2, tokens::space2);
  rows_->setSpacing(0);
  rows_->setSizeConstraint(QLayout::SetFixedSize);
  followTheme(*this);
}

void LauncherWindow::present() {
  refresh();
  show();
  raise();
  activateWindow();
}

void LauncherWindow::refresh() {
  while (QLayoutItem* item = rows_->takeAt(0)) {
    if (item->widget()) item->widget()->deleteLater();
    delete item;
  }
  for (const MenuEntry& entry : statusMenu(state_())) {
    if (entry.isVisible) addEntry(entry);
  }
}

void LauncherWindow::addEntry(const MenuEntry& entry) {
  if (entry.kind == MenuEntry::Kind::Separator) {
    rows_->addWidget(new Hairline(this));
    return;
  }
  auto* row = new CommandRow(entry, this);
  row->setMinimumWidth(windowWidth - 2 * tokens::space2);
  rows_->addWidget(row);
  connect(row, &QAbstractButton::clicked, this, [this, row, entry] {
    if (entry.kind == MenuEntry::Kind::Item) return perform(entry.command, entry.index);
    QMenu menu;
    styleMenu(menu);
    for (const MenuEntry& child : entry.children) {
      if (child.kind == MenuEntry::Kind::Separator) {
        menu.addSeparator();
        continue;
      }
      const QString title = child.titleKey.isEmpty() ? QString(child.title).replace(u'&', QStringLiteral("&&"))
                                                     : qtTrId(child.titleKey.toLatin1().constData());
      QAction* action = menu.addAction(child.iconName.isEmpty() ? QIcon() : icon(child.iconName), title);
      action->setEnabled(child.isEnabled);
      connect(action, &QAction::triggered, this, [this, child] { perform(child.command, child.index); });
    }
    menu.exec(row->mapToGlobal(QPoint(row->width(), 0)));
  });
}

void LauncherWindow::perform(Command command, int index) {
  hide();
  handler_(command, index);
}

void LauncherWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
    close();
  } else if (event->key() == Qt::Key_Down) {
    focusNextChild();
  } else if (event->key() == Qt::Key_Up) {
    focusPreviousChild();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (auto* row = qobject_cast<QAbstractButton*>(focusWidget())) row->click();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void LauncherWindow::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Theme::shared().palette().surface);
}

}  // namespace vellora
