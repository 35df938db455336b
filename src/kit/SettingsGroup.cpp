#include "kit/SettingsGroup.h"

#include <QPainter>
#include <QVBoxLayout>

#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

class Card final : public QWidget {
 public:
  Card() { repaintOnThemeChange(*this); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    fillRounded(painter, rect(), tokens::panelRadius, palette.raised);
    strokeRounded(painter, rect(), tokens::panelRadius, palette.line);
    bool first = true;
    for (int i = 0; i < layout()->count(); ++i) {
      const QWidget* const row = layout()->itemAt(i)->widget();
      if (row == nullptr || row->isHidden()) continue;
      if (!first) drawHorizontalLine(painter, tokens::space4, width() - tokens::space4, row->y(), palette.line);
      first = false;
    }
  }
};

}  // namespace

SettingsGroup::SettingsGroup(QWidget* parent)
    : QWidget(parent),
      title_(new TextLabel(TextLabel::Role::Strong)),
      info_(new TextLabel(TextLabel::Role::Secondary)),
      card_(new Card),
      rows_(new QVBoxLayout(card_)) {
  rows_->setContentsMargins(0, 1, 0, 1);
  rows_->setSpacing(0);
  title_->hide();
  info_->hide();
  title_->setContentsMargins(2, 0, 2, 0);
  info_->setContentsMargins(2, 0, 2, 0);
  auto* const parts = new QVBoxLayout(this);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(tokens::space2);
  parts->addWidget(title_);
  parts->addWidget(card_);
  parts->addWidget(info_);
}

void SettingsGroup::setTitle(const QString& title) {
  title_->setText(title);
  title_->setVisible(!title.isEmpty());
  setAccessibleName(title);
}

void SettingsGroup::setInfo(const QString& info) {
  info_->setText(info);
  info_->setVisible(!info.isEmpty());
}

void SettingsGroup::addRow(QWidget* row) {
  rows_->addWidget(row);
}

}  // namespace vellora
