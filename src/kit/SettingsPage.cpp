#include "kit/SettingsPage.h"

#include <QScrollBar>
#include <QVBoxLayout>

#include "kit/SettingsGroup.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int widestContents = 640;

QString cssColor(const QColor& color) {
  return QStringLiteral("rgba(%1,%2,%3,%4)").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha());
}

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
  applyTheme();
  connect(&Theme::shared(), &Theme::changed, this, &SettingsPage::applyTheme);
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

void SettingsPage::applyTheme() {
  const ThemeColors& colors = Theme::shared().palette();
  verticalScrollBar()->setStyleSheet(
      QStringLiteral("QScrollBar{background:transparent;width:12px;border:none}"
                     "QScrollBar::handle{background:%1;border-radius:3px;min-height:32px;margin:3px}"
                     "QScrollBar::handle:hover{background:%2}"
                     "QScrollBar::add-line,QScrollBar::sub-line{height:0}"
                     "QScrollBar::add-page,QScrollBar::sub-page{background:transparent}")
          .arg(cssColor(colors.controlBorder), cssColor(colors.secondaryText)));
}

}  // namespace vellora
