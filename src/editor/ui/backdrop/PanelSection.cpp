#include "editor/ui/backdrop/PanelSection.h"

#include <QGuiApplication>
#include <QPainter>
#include <QVBoxLayout>

#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

PanelSection::PanelSection(const QString& title, QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
  // The scroll bar takes the rest of the margin at the end.
  const int end = tokens::space4 - panelScrollBarWidth;
  const bool mirrored = QGuiApplication::isRightToLeft();
  column_->setContentsMargins(mirrored ? end : tokens::space4, tokens::space3, mirrored ? tokens::space4 : end,
                              tokens::space4);
  column_->setSpacing(tokens::space2);
  column_->addWidget(new TextLabel(TextLabel::Role::Strong, title, this));
  setAccessibleName(title);
  repaintOnThemeChange(*this);
}

void PanelSection::add(QWidget* widget, bool apart) {
  if (apart) column_->addSpacing(tokens::space1);
  column_->addWidget(widget);
}

void PanelSection::addCaption(const QString& text) {
  column_->addWidget(new TextLabel(TextLabel::Role::Secondary, text, this));
}

void PanelSection::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawHorizontalLine(painter, 0, width(), 0, Theme::shared().palette().line);
}

}  // namespace vellora
