#include "kit/SettingsPage.h"

#include <QVBoxLayout>

#include "kit/ScrollBars.h"
#include "kit/SettingsGroup.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int widestContents = 640;

}  // namespace

SettingsPage::SettingsPage(QWidget* parent) : QScrollArea(parent), title_(new TextLabel(TextLabel::Role::Title)) {
  auto* const column = new QWidget;
  column->setMaximumWidth(widestContents);
  contents_ = new QVBoxLayout(column);
  contents_->setContentsMargins(tokens::space6, tokens::space6, tokens::space6, tokens::space6);
  contents_->setSpacing(tokens::space6);
  contents_->addWidget(title_);
  contents_->addStretch(1);
  setWidget(column);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  // The window's surface shows through.
  viewport()->setAutoFillBackground(false);
  column->setAutoFillBackground(false);
  styleScrollBars(*this);
}

void SettingsPage::setTitle(const QString& title) {
  title_->setText(title);
  setAccessibleName(title);
}

QString SettingsPage::title() const {
  return title_->text();
}

SettingsGroup* SettingsPage::addGroup() {
  auto* const group = new SettingsGroup;
  addContent(group);
  return group;
}

void SettingsPage::addContent(QWidget* content) {
  contents_->insertWidget(contents_->count() - 1, content);
}

}  // namespace vellora
