#include "kit/SettingsRow.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Switch.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int rowMargin = 7;
constexpr int noticeGap = 5;  // below the notice, beside the row's margin
constexpr int leastHeight = 48 - 2 * rowMargin;

}  // namespace

SettingsRow::SettingsRow(QWidget* control, QWidget* parent)
    : QWidget(parent),
      control_(control),
      title_(new TextLabel(TextLabel::Role::Body)),
      help_(new TextLabel(TextLabel::Role::Secondary)),
      notice_(new TextLabel(TextLabel::Role::Error)),
      iconRoom_(new QWidget) {
  iconRoom_->setFixedSize(tokens::menuIcon + tokens::space3, tokens::menuIcon);
  iconRoom_->setAttribute(Qt::WA_TransparentForMouseEvents);
  iconRoom_->hide();
  help_->hide();
  notice_->hide();
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addWidget(title_);
  texts->addWidget(help_);
  auto* const line = new QHBoxLayout;
  line->setSpacing(0);
  line->addStrut(leastHeight);
  line->addWidget(iconRoom_, 0, Qt::AlignVCenter);
  line->addLayout(texts, 1);
  line->addSpacing(tokens::space4);
  line->addWidget(control_, 0, Qt::AlignVCenter);
  auto* const rows = new QVBoxLayout(this);
  // The control's room for its focus ring is part of the margin.
  rows->setContentsMargins(tokens::space4, rowMargin, tokens::space4 - tokens::focusRingRoom, rowMargin);
  rows->setSpacing(tokens::space1);
  rows->addLayout(line, 1);
  rows->addWidget(notice_);
  notice_->setContentsMargins(0, 0, 0, noticeGap);
  repaintOnThemeChange(*this);
}

void SettingsRow::setTitle(const QString& title) {
  title_->setText(title);
  describeControl();
}

void SettingsRow::setHelp(const QString& help) {
  help_->setText(help);
  help_->setVisible(!help.isEmpty());
  describeControl();
}

void SettingsRow::setIconName(const QString& name) {
  iconName_ = name;
  iconRoom_->setVisible(!name.isEmpty());
  const int indent = name.isEmpty() ? 0 : iconRoom_->width();
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  notice_->setContentsMargins(mirrored ? 0 : indent, 0, mirrored ? indent : 0, noticeGap);
  update();
}

void SettingsRow::setNotice(const QString& notice) {
  showUnder(notice, true);
}

void SettingsRow::setHint(const QString& hint) {
  showUnder(hint, false);
}

void SettingsRow::showUnder(const QString& text, bool fault) {
  if (text == notice_->text() && notice_->isVisibleTo(this) == !text.isEmpty()) return;
  notice_->setRole(fault ? TextLabel::Role::Error : TextLabel::Role::Secondary);
  notice_->setText(text);
  notice_->setVisible(!text.isEmpty());
  describeControl();
}

QString SettingsRow::notice() const {
  return notice_->text();
}

void SettingsRow::describeControl() {
  control_->setAccessibleName(title_->text());
  QStringList description;
  for (const TextLabel* const label : {help_, notice_}) {
    if (!label->text().isEmpty()) description << label->text();
  }
  control_->setAccessibleDescription(description.join(QLatin1Char(' ')));
  // A group of controls has tool tips of its own.
  if (control_->focusPolicy() != Qt::NoFocus)
    control_->setToolTip(help_->text().isEmpty() ? title_->text() : help_->text());
}

void SettingsRow::paintEvent(QPaintEvent*) {
  if (iconName_.isEmpty()) return;
  QPainter painter(this);
  const QRect room = iconRoom_->geometry();
  const QRect square(layoutDirection() == Qt::RightToLeft ? room.right() + 1 - tokens::menuIcon : room.left(),
                     room.top(), tokens::menuIcon, tokens::menuIcon);
  paintIcon(painter, iconName_, snapped(painter, square), Theme::shared().palette().secondaryText);
}

void SettingsRow::mouseReleaseEvent(QMouseEvent* event) {
  // The whole row belongs to its switch.
  auto* const toggle = qobject_cast<Switch*>(control_);
  if (toggle != nullptr && toggle->isEnabled() && event->button() == Qt::LeftButton &&
      rect().contains(event->position().toPoint())) {
    toggle->click();
    return;
  }
  QWidget::mouseReleaseEvent(event);
}

}  // namespace vellora
