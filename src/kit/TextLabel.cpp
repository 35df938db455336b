#include "kit/TextLabel.h"

#include <QEvent>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

QFont fontOf(TextLabel::Role role) {
  switch (role) {
    case TextLabel::Role::Title:
      return titleFont();
    case TextLabel::Role::Heading:
      return headingFont();
    case TextLabel::Role::Strong:
      return bodyStrongFont();
    case TextLabel::Role::Secondary:
    case TextLabel::Role::Error:
      return secondaryFont();
    case TextLabel::Role::Badge:
      return badgeFont();
    case TextLabel::Role::Body:
      break;
  }
  return bodyFont();
}

}  // namespace

TextLabel::TextLabel(Role role, const QString& text, QWidget* parent) : QLabel(text, parent), role_(role) {
  setTextFormat(Qt::PlainText);
  setRole(role);
  connect(&Theme::shared(), &Theme::changed, this, &TextLabel::applyColor);
}

void TextLabel::setRole(Role role) {
  role_ = role;
  setFont(fontOf(role));
  setWordWrap(role == Role::Secondary || role == Role::Error);
  applyColor();
}

void TextLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) applyColor();
  QLabel::changeEvent(event);
}

void TextLabel::applyColor() {
  const ThemeColors& colors = Theme::shared().palette();
  QColor color = colors.text;
  if (!isEnabled()) {
    color = colors.disabledText;
  } else if (role_ == Role::Error) {
    color = colors.errorText;
  } else if (role_ == Role::Secondary || role_ == Role::Badge) {
    color = colors.secondaryText;
  }
  QPalette own = palette();
  own.setColor(QPalette::All, QPalette::WindowText, color);
  setPalette(own);
}

}  // namespace vellora
