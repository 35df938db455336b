#include "capture/ui/PictureWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "capture/ui/PictureView.h"
#include "kit/Button.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double mostOfScreen = 0.85;
constexpr int leastWidth = 320;
constexpr int leastHeight = 200;
constexpr double zoomStep = 1.25;

}  // namespace

PictureWindow::PictureWindow(CapturedImage picture, const QString& title, Options options)
    : QWidget(nullptr, Qt::Window), picture_(std::move(picture)), view_(new PictureView(picture_, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowFlag(Qt::WindowStaysOnTopHint, options.testFlag(Option::StayOnTop));
  setWindowTitle(title);
  followTheme(*this);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(view_, 1);
  column->addWidget(makeBar());

  const auto shortcut = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_C), [this] { emit copyRequested(); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), [this] { emit saveRequested(); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { close(); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { view_->zoomToFit(); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_1), [this] { view_->zoomTo(1, QRectF(view_->rect()).center()); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_Plus), [this] { view_->zoomBy(zoomStep); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { view_->zoomBy(zoomStep); });
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { view_->zoomBy(1 / zoomStep); });

  connect(view_, &PictureView::zoomChanged, this, &PictureWindow::updateStatus);
  updateStatus();
}

QWidget* PictureWindow::makeBar() {
  auto* bar = new QWidget(this);
  bar->setFixedHeight(tokens::barHeight);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(tokens::space3, 0, tokens::space2, 0);
  row->setSpacing(tokens::space1);
  status_ = new TextLabel(TextLabel::Role::Secondary, {}, bar);
  status_->setFont(tabularFont(secondaryFont()));
  row->addWidget(status_);
  row->addStretch(1);
  //% "Copy"
  auto* copy = new IconButton(QStringLiteral("copy"), qtTrId("picture.copy"), QStringLiteral("Ctrl+C"), bar);
  //% "Save"
  auto* save = new IconButton(QStringLiteral("save"), qtTrId("picture.save"), QStringLiteral("Ctrl+S"), bar);
  //% "Close"
  auto* shut = new IconButton(QStringLiteral("close"), qtTrId("picture.close"), QStringLiteral("Ctrl+W"), bar);
  connect(copy, &IconButton::clicked, this, &PictureWindow::copyRequested);
  connect(save, &IconButton::clicked, this, &PictureWindow::saveRequested);
  connect(shut, &IconButton::clicked, this, &PictureWindow::close);
  for (IconButton* button : {copy, save, shut}) row->addWidget(button);
  return bar;
}

void PictureWindow::updateStatus() {
  const int percent = static_cast<int>(std::lround(view_->zoom() * 100));
  //% "%1 × %2 px  ·  %3 %"
  status_->setText(qtTrId("picture.status").arg(picture_.image.width()).arg(picture_.image.height()).arg(percent));
}

void PictureWindow::present(QScreen* screen, const QPoint* center) {
  QScreen* const target = screen != nullptr ? screen : QGuiApplication::primaryScreen();
  if (target == nullptr) return show();
  setScreen(target);
  const QRect area = target->availableGeometry();
  const QSize most = QSizeF(area.width() * mostOfScreen, area.height() * mostOfScreen).toSize();
  QSize wanted = view_->sizeHint() + QSize(0, tokens::barHeight);
  wanted = wanted.expandedTo({leastWidth, leastHeight}).boundedTo(most);
  QRect place(QPoint(0, 0), wanted);
  place.moveCenter(center != nullptr ? *center : area.center());
  place.moveLeft(std::clamp(place.left(), area.left(), std::max(area.left(), area.right() + 1 - place.width())));
  place.moveTop(std::clamp(place.top(), area.top(), std::max(area.top(), area.bottom() + 1 - place.height())));
  setGeometry(place);
  show();
  raise();
  activateWindow();
}

void PictureWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  emit closed();
}

}  // namespace vellora
