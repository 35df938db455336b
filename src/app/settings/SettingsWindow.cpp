#include "app/settings/SettingsWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/settings/PageButton.h"
#include "app/settings/ShortcutsPage.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int sidebarWidth = 192;

QString iconOf(SettingsPageId page) {
  switch (page) {
    case SettingsPageId::General:
      return QStringLiteral("gear");
    case SettingsPageId::Shortcuts:
      return QStringLiteral("keyboard");
    case SettingsPageId::About:
      return QStringLiteral("info");
  }
  return {};
}

QString titleOf(SettingsPageId page) {
  switch (page) {
    case SettingsPageId::General:
      return qtTrId("settings.general.title");
    case SettingsPageId::Shortcuts:
      return qtTrId("settings.shortcuts.title");
    case SettingsPageId::About:
      return qtTrId("settings.about.title");
  }
  return {};
}

std::size_t indexOf(SettingsPageId page) {
  return static_cast<std::size_t>(page);
}

}  // namespace

QString identifier(SettingsPageId page) {
  switch (page) {
    case SettingsPageId::General:
      return QStringLiteral("general");
    case SettingsPageId::Shortcuts:
      return QStringLiteral("shortcuts");
    case SettingsPageId::About:
      return QStringLiteral("about");
  }
  return {};
}

SettingsWindow::SettingsWindow(SettingsContext context, QWidget* parent)
    : QWidget(parent, Qt::Window),
      context_(std::move(context)),
      general_(context_.settings, context_.localization, context_.fileNames),
      shortcuts_(context_.hotKeys, context_.settings.preferences(), context_.notices, context_.hotKeyAccess),
      sidebar_(new QWidget(this)),
      stack_(new QStackedWidget(this)) {
  followTheme(*this);
  setWindowIcon(icon(QStringLiteral("vellora")));
  setMinimumSize(640, 440);
  resize(800, 680);
  auto* const entries = new QVBoxLayout(sidebar_);
  entries->setContentsMargins(tokens::space3, tokens::space4, tokens::space3, tokens::space4);
  entries->setSpacing(2);
  for (const SettingsPageId page : allSettingsPages) {
    auto* const button = new PageButton(iconOf(page), sidebar_);
    connect(button, &QPushButton::toggled, this, [this, page](bool on) {
      if (on) showPage(page);
    });
    entries->addWidget(button);
    buttons_[indexOf(page)] = button;
  }
  entries->addStretch(1);
  sidebar_->setFixedWidth(sidebarWidth);
  auto* const columns = new QHBoxLayout(this);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(0);
  columns->addWidget(sidebar_);
  columns->addWidget(stack_, 1);

  const auto command = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  command(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
  command(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { step(1); });
  command(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), [this] { step(-1); });

  languageChanged_ = context_.notices.observe(notice::languageChanged, [this] { retranslate(); });
  retranslate();
  showPage(SettingsPageId::General);
}

// The pages go before the models they watch.
SettingsWindow::~SettingsWindow() {
  for (RetranslatablePage* const made : pages_) delete made;
}

RetranslatablePage* SettingsWindow::page(SettingsPageId id) {
  RetranslatablePage*& made = pages_[indexOf(id)];
  if (made != nullptr) return made;
  switch (id) {
    case SettingsPageId::General:
      made = new GeneralPage(general_, context_.folderChooser);
      break;
    case SettingsPageId::Shortcuts:
      made = new ShortcutsPage(shortcuts_);
      break;
    case SettingsPageId::About:
      made = new AboutPage(context_.about, context_.open);
      break;
  }
  stack_->addWidget(made);
  return made;
}

void SettingsWindow::showPage(SettingsPageId id) {
  current_ = id;
  stack_->setCurrentWidget(page(id));
  buttons_[indexOf(id)]->setChecked(true);
}

void SettingsWindow::step(int by) {
  const auto count = static_cast<int>(allSettingsPages.size());
  showPage(allSettingsPages[static_cast<std::size_t>((static_cast<int>(indexOf(current_)) + by + count) % count)]);
}

void SettingsWindow::present() {
  if (isMinimized()) {
    showNormal();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void SettingsWindow::refresh() {
  for (RetranslatablePage* const made : pages_) {
    if (made != nullptr) made->refresh();
  }
}

void SettingsWindow::retranslate() {
  //% "Vellora Settings"
  setWindowTitle(qtTrId("settings.title"));
  //% "Settings pages"
  sidebar_->setAccessibleName(qtTrId("settings.pages"));
  for (const SettingsPageId id : allSettingsPages) {
    buttons_[indexOf(id)]->setText(titleOf(id));
    buttons_[indexOf(id)]->setToolTip(titleOf(id));
    if (pages_[indexOf(id)] != nullptr) pages_[indexOf(id)]->retranslate();
  }
}

void SettingsWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.surface);
  painter.fillRect(sidebar_->geometry(), palette.sunken);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  const double edge = mirrored ? sidebar_->x() : sidebar_->geometry().right();
  QRectF line = snapped(painter, QRectF(edge, 0, 1, height()));
  line.setWidth(hairline(painter));
  painter.fillRect(line, palette.line);
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

void SettingsWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
  QWidget::changeEvent(event);
}

void SettingsWindow::closeEvent(QCloseEvent* event) {
  shortcuts_.stopRecording();
  event->accept();
  emit closed();
}

}  // namespace vellora
