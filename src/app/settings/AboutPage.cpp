#include "app/settings/AboutPage.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "kit/Icons.h"
#include "kit/LinkRow.h"
#include "kit/SettingsGroup.h"
#include "kit/SettingsRow.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

class Logo final : public QWidget {
 public:
  Logo() { setFixedSize(64, 64); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    // The drawing leaves a sixteenth free on each side.
    const double inset = width() * 8.0 / 112;
    paintIcon(painter, QStringLiteral("vellora"), QRectF(rect()).adjusted(-inset, -inset, inset, inset),
              Theme::shared().palette().text);
  }
};

QString shortAddress(const QString& address) {
  QString text = address;
  if (const qsizetype scheme = text.indexOf(QLatin1String("://")); scheme >= 0) text.remove(0, scheme + 3);
  while (text.endsWith(QLatin1Char('/'))) text.chop(1);
  return text;
}

}  // namespace

AboutPage::AboutPage(AboutInfo info, std::function<void(const QString&)> open, QWidget* parent)
    : RetranslatablePage(parent), info_(std::move(info)), open_(std::move(open)) {
  auto* const name = new TextLabel(TextLabel::Role::Title, QStringLiteral("Vellora"));
  summary_ = new TextLabel(TextLabel::Role::Body);
  summary_->setWordWrap(true);
  version_ = new TextLabel(TextLabel::Role::Secondary);
  version_->setFont(tabularFont(secondaryFont()));
  version_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(3);
  texts->addStretch(1);
  texts->addWidget(name);
  texts->addWidget(summary_);
  texts->addWidget(version_);
  texts->addStretch(1);
  auto* const head = new QWidget;
  auto* const line = new QHBoxLayout(head);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(tokens::space4);
  line->addWidget(new Logo, 0, Qt::AlignVCenter);
  line->addLayout(texts, 1);
  addContent(head);

  group_ = addGroup();
  auto* const licenceName = new TextLabel(TextLabel::Role::Secondary, info_.licence);
  licenceName->setWordWrap(false);
  licenceName->setContentsMargins(0, 0, tokens::focusRingRoom, 0);
  licence_ = new SettingsRow(licenceName);
  licence_->setVisible(!info_.licence.isEmpty());
  group_->addRow(licence_);
  website_ = addLink(QStringLiteral("globe"), info_.website);
  issues_ = addLink(QStringLiteral("info"), info_.issues);
  licences_ = addLink(QStringLiteral("folder"), info_.licencesFolder);
  group_->setVisible(!info_.licence.isEmpty() || !info_.website.isEmpty() || !info_.issues.isEmpty() ||
                     !info_.licencesFolder.isEmpty());
  retranslate();
}

LinkRow* AboutPage::addLink(const QString& iconName, const QString& target) {
  auto* const row = new LinkRow(iconName);
  row->setVisible(!target.isEmpty());
  connect(row, &QPushButton::clicked, this, [this, target] {
    if (open_) open_(target);
  });
  group_->addRow(row);
  return row;
}

void AboutPage::retranslate() {
  //% "About"
  setTitle(qtTrId("settings.about.title"));
  //% "Screenshots, recordings and live streams"
  summary_->setText(qtTrId("settings.about.summary"));
  //% "Version %1"
  version_->setText(qtTrId("settings.about.version").arg(info_.version));
  //% "Licence"
  licence_->setTitle(qtTrId("settings.about.licence"));
  //% "Website"
  website_->setText(qtTrId("settings.about.website"));
  website_->setDetail(shortAddress(info_.website));
  //% "Report a problem"
  issues_->setText(qtTrId("settings.about.issues"));
  issues_->setDetail(shortAddress(info_.issues));
  //% "Licences of fonts, icons and libraries"
  licences_->setText(qtTrId("settings.about.licences"));
}

}  // namespace vellora
