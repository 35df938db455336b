#include "kit/MenuButton.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QStyle>

#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int sidePadding = 12;
constexpr int chevronSide = 14;

}  // namespace

MenuButton::MenuButton(QWidget* parent) : QPushButton(parent) {
  setFont(bodyFont());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  repaintOnThemeChange(*this);
  connect(this, &QPushButton::clicked, this, &MenuButton::openMenu);
}

void MenuButton::setChoices(QList<Choice> choices) {
  choices_ = std::move(choices);
  setText(currentTitle());
  updateGeometry();
  update();
}

void MenuButton::setCurrent(const QVariant& value) {
  current_ = value;
  setText(currentTitle());  // drawn by us; screen readers say it
  update();
}

QString MenuButton::currentTitle() const {
  for (const Choice& choice : choices_) {
    if (choice.value == current_) return choice.title;
  }
  return {};
}

void MenuButton::openMenu() {
  if (choices_.isEmpty() || open_) return;
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* currentAction = nullptr;
  for (const Choice& choice : choices_) {
    QAction* const action = menu->addAction(choice.title);
    action->setCheckable(true);
    action->setChecked(choice.value == current_);
    if (action->isChecked()) currentAction = action;
    connect(action, &QAction::triggered, this, [this, value = choice.value] {
      if (value != current_) emit chosen(value);
    });
  }
  styleMenu(*menu);
  menu->setMinimumWidth(width() - 2 * tokens::focusRingRoom);
  connect(menu, &QMenu::aboutToHide, this, [this] {
    open_ = false;
    update();
  });
  open_ = true;
  update();
  // Below the button, as a field's list; Qt moves it into the screen.
  menu->popup(mapToGlobal(QPoint(tokens::focusRingRoom, height() - tokens::focusRingRoom + tokens::space1)));
  if (currentAction != nullptr) menu->setActiveAction(currentAction);
}

QSize MenuButton::sizeHint() const {
  const QFontMetrics metrics(bodyFont());
  int widest = 0;
  for (const Choice& choice : choices_) widest = std::max(widest, metrics.horizontalAdvance(choice.title));
  const int room = 2 * tokens::focusRingRoom;
  return {std::max(120, widest + 2 * sidePadding + chevronSide + tokens::space2) + room, tokens::controlHeight + room};
}

void MenuButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const int room = tokens::focusRingRoom;
  const QRectF edge = QRectF(rect()).adjusted(room, room, -room, -room);
  fillRounded(painter, edge, tokens::controlRadius, palette.raised);
  if (isEnabled() && (open_ || isDown() || underMouse())) {
    fillRounded(painter, edge, tokens::controlRadius, open_ || isDown() ? palette.pressed : palette.hover);
  }
  strokeRounded(painter, edge, tokens::controlRadius, palette.controlBorder);
  const QRect inner = edge.toRect().adjusted(sidePadding, 0, -sidePadding + 2, 0);
  const auto place = [&](const QRect& logical) { return QStyle::visualRect(layoutDirection(), inner, logical); };
  const QRect chevron =
      place({inner.right() + 1 - chevronSide, inner.center().y() + 1 - chevronSide / 2, chevronSide, chevronSide});
  paintIcon(painter, QStringLiteral("chevron"), snapped(painter, chevron),
            isEnabled() ? palette.secondaryText : palette.disabledText);
  painter.setFont(bodyFont());
  painter.setPen(isEnabled() ? palette.text : palette.disabledText);
  const QRect text = place(inner.adjusted(0, 0, -chevronSide - tokens::space2, 0));
  const QString shown = QFontMetrics(bodyFont()).elidedText(currentTitle(), Qt::ElideRight, text.width());
  painter.drawText(text, static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter),
                   shown);
  if (focus_.visible()) drawFocusRing(painter, edge, tokens::controlRadius);
}

void MenuButton::mousePressEvent(QMouseEvent* event) {
  // A list opens on press, so that press, drag, release chooses.
  if (event->button() == Qt::LeftButton) {
    openMenu();
    return;
  }
  QPushButton::mousePressEvent(event);
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Down:
    case Qt::Key_Up:
      openMenu();
      return;
    default:
      QPushButton::keyPressEvent(event);
  }
}

void MenuButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void MenuButton::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
