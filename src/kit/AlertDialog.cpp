#include "kit/AlertDialog.h"

#include <QCursor>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int textWidth = 340;
constexpr int iconSide = 40;

class AlertIcon final : public QWidget {
 public:
  explicit AlertIcon(QString name) : name_(std::move(name)) { setFixedSize(iconSide, iconSide); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const bool logo = name_ == QLatin1String("vellora");
    const double inset = logo ? 0 : 4;
    paintIcon(painter, name_, QRectF(rect()).adjusted(inset, inset, -inset, -inset), Theme::shared().palette().warning);
  }

 private:
  QString name_;
};

}  // namespace

int AlertDialog::run(const Alert& alert, QWidget* parent) {
  AlertDialog dialog(alert, parent);
  return dialog.exec();
}

AlertDialog* AlertDialog::show(const Alert& alert, std::function<void(int)> callback, QWidget* parent) {
  auto* const dialog = new AlertDialog(alert, parent);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  if (callback) connect(dialog, &QDialog::finished, dialog, std::move(callback));
  dialog->open();
  return dialog;
}

AlertDialog::AlertDialog(const Alert& alert, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint), frame_(screen()) {
  setAttribute(Qt::WA_TranslucentBackground);
  setWindowModality(parent != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
  setWindowTitle(alert.title);
  setAccessibleName(alert.title);
  setAccessibleDescription(alert.body);
  frame_.setRadius(tokens::windowRadius);
  followTheme(*this);

  auto* const title = new TextLabel(TextLabel::Role::Heading, alert.title);
  auto* const body = new TextLabel(TextLabel::Role::Body, alert.body);
  for (TextLabel* const label : {title, body}) {
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
  }
  body->setVisible(!alert.body.isEmpty());
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(6);
  texts->addWidget(title);
  texts->addWidget(body);
  texts->addStretch(1);
  auto* const message = new QHBoxLayout;
  message->setSpacing(tokens::space4);
  message->addWidget(new AlertIcon(alert.iconName.isEmpty() ? QStringLiteral("vellora") : alert.iconName), 0,
                     Qt::AlignTop);
  message->addLayout(texts, 1);

  auto* const row = new QHBoxLayout;
  row->setSpacing(tokens::space2 - tokens::focusRingRoom);
  row->addStretch(1);
  for (qsizetype i = 0; i < alert.buttons.size(); ++i) {
    const auto role = i > 0               ? Button::Role::Secondary
                      : alert.destructive ? Button::Role::Destructive
                                          : Button::Role::Primary;
    auto* const button = new Button(role, alert.buttons[i]);
    connect(button, &QPushButton::clicked, this, [this, i] { done(static_cast<int>(i)); });
    row->insertWidget(1, button);  // the default stands last, where the eye ends
    buttons_.append(button);
  }
  auto* const rows = new QVBoxLayout(this);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  rows->setSpacing(tokens::space4);
  rows->addLayout(message);
  rows->addLayout(row);
  updateMargins();
  for (qsizetype i = 1; i < buttons_.size(); ++i) setTabOrder(buttons_[i - 1], buttons_[i]);
  if (buttons_.isEmpty()) return;
  // A stray Return must not lose anything: the way out of a destructive question has the focus.
  Button* const focused = alert.destructive && buttons_.size() > 1 ? buttons_[1] : buttons_.first();
  focused->setFocus(Qt::OtherFocusReason);
}

void AlertDialog::updateMargins() {
  const int room = frame_.margin();
  const int inner = tokens::space6 - tokens::focusRingRoom;
  layout()->setContentsMargins(room + tokens::space6, room + tokens::space6, room + inner, room + inner);
}

void AlertDialog::place() {
  adjustSize();
  const QWidget* const over = parentWidget() != nullptr ? parentWidget()->window() : nullptr;
  const QScreen* const target = over != nullptr ? over->screen() : QGuiApplication::screenAt(QCursor::pos());
  const QScreen* const screenOf = target != nullptr ? target : screen();
  const QRect area = screenOf->availableGeometry();
  QRect place(QPoint(), size());
  place.moveCenter(over != nullptr && over->isVisible() ? over->frameGeometry().center() : area.center());
  const QRect panel = frame_.panel(place);
  place.translate(std::max(0, area.left() - panel.left()) + std::min(0, area.right() - panel.right()),
                  std::max(0, area.top() - panel.top()) + std::min(0, area.bottom() - panel.bottom()));
  move(place.topLeft());
}

void AlertDialog::showEvent(QShowEvent* event) {
  if (frame_.refresh(screen())) updateMargins();
  place();
  QDialog::showEvent(event);
}

void AlertDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  frame_.paint(painter, rect());
}

void AlertDialog::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // A button with the focus takes the key before it comes here.
      if (!buttons_.isEmpty()) buttons_.first()->click();
      return;
    case Qt::Key_Left:
    case Qt::Key_Up:
      focusNextPrevChild(layoutDirection() == Qt::LeftToRight);
      return;
    case Qt::Key_Right:
    case Qt::Key_Down:
      focusNextPrevChild(layoutDirection() == Qt::RightToLeft);
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

void AlertDialog::mousePressEvent(QMouseEvent* event) {
  // There is no title bar: the ground moves the window.
  if (event->button() == Qt::LeftButton && frame_.panel(rect()).contains(event->position().toPoint()) &&
      windowHandle() != nullptr) {
    windowHandle()->startSystemMove();
    return;
  }
  QDialog::mousePressEvent(event);
}

}  // namespace vellora
