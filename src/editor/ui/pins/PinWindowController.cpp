#include "editor/ui/pins/PinWindowController.h"

#include <utility>

#include <QCursor>
#include <QDrag>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>

#include "editor/ui/pins/PinBoard.h"
#include "editor/ui/pins/PinChrome.h"
#include "editor/ui/pins/PinDrag.h"
#include "editor/ui/pins/PinMenu.h"
#include "editor/ui/pins/PinWindow.h"
#include "media/SharedPng.h"
#include "platform/WindowHints.h"

namespace vellora {
namespace {

constexpr int dragMiniatureSide = 160;  // in points

Size pointSize(const PinContent& content) {
  return {content.image.width() / content.scale, content.image.height() / content.scale};
}

}  // namespace

PinWindowController::PinWindowController(PinBoard& board, PinContent content)
    : board_(board),
      content_(std::move(content)),
      model_(pointSize(content_), PinStyle::load(board_.preferences_)),
      window_(std::make_unique<PinWindow>(PinWindow::Parts{model_, content_.image, board_.runLoop_, board_.queue_,
                                                           board_.hints_,
                                                           [this] { return board_.picturesBeside(*this); }})) {
  connect(window_.get(), &PinWindow::copyRequested, this, &PinWindowController::copy);
  connect(window_.get(), &PinWindow::saveRequested, this, &PinWindowController::save);
  connect(window_.get(), &PinWindow::editRequested, this, &PinWindowController::edit);
  connect(window_.get(), &PinWindow::closeRequested, this, &PinWindowController::close);
  connect(window_.get(), &PinWindow::dragRequested, this, &PinWindowController::dragOut);
  connect(window_.get(), &PinWindow::menuRequested, this, &PinWindowController::openMenu);
}

PinWindowController::~PinWindowController() = default;

std::shared_ptr<SharedPng> PinWindowController::pngCache() {
  if (!content_.png) content_.png = std::make_shared<SharedPng>(content_.image, content_.scale);
  return content_.png;
}

void PinWindowController::show(const PinPlacement& placement) {
  QScreen* screen = placement.screen;
  if (screen == nullptr) screen = QGuiApplication::screenAt(placement.center.value_or(QCursor::pos()));
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  if (screen != nullptr) window_->setScreen(screen);
  std::optional<Point> center;
  if (placement.center) center = Point{double(placement.center->x()), double(placement.center->y())};
  model_.place(PinBoard::screens(), screen != nullptr ? screen->name() : QString(), placement.scale, center);
  window_->follow();
  WindowHints* const hints = board_.hints_;
  if (hints != nullptr) {
    const WId id = window_->winId();
    QGuiApplication::sync();  // the window has to be there for other connections
    hints->keepEverywhere(id);
    window_->show();
    QGuiApplication::sync();
    hints->keepEverywhere(id);
  } else {
    window_->show();
  }
}

void PinWindowController::setScale(double scale) {
  model_.setScale(scale);
  window_->follow(PinWindow::Describe::Scale);
}

void PinWindowController::copy() {
  output(true, false);
}

void PinWindowController::save() {
  output(false, true);
}

void PinWindowController::output(bool copy, bool save) {
  if (!board_.actions_.output) return;
  board_.actions_.output(pngCache(), content_.capturedAt, copy, save, lifetime_.guard([this, copy](bool succeeded) {
    if (copy && succeeded) window_->chrome().showCopied();
  }));
}

void PinWindowController::edit() {
  if (leaving_ || !board_.actions_.edit || !board_.actions_.edit(*this)) return;
  leave();
}

void PinWindowController::dragOut() {
  if (dragging_ || leaving_) return;
  PinDrag::WriteFile writeFile;
  if (const auto& dragFile = board_.actions_.dragFile) {
    writeFile = [dragFile, capturedAt = content_.capturedAt](std::shared_ptr<SharedPng> png) {
      return dragFile(std::move(png), capturedAt);
    };
  }
  auto* const drag = new QDrag(window_.get());
  drag->setMimeData(new PinDrag(pngCache(), std::move(writeFile), board_.queue_));
  const double ratio = window_->devicePixelRatioF();
  QPixmap seen = QPixmap::fromImage(window_->dragMiniature(static_cast<int>(dragMiniatureSide * ratio)));
  seen.setDevicePixelRatio(ratio);
  drag->setPixmap(seen);
  dragging_ = true;
  window_->holdChrome(true);
  drag->exec(Qt::CopyAction);
  dragging_ = false;
  window_->holdChrome(false);
  if (leaving_) board_.deleteLeaving();  // it was closed while its picture was under way
}

void PinWindowController::toggleShadow() {
  model_.toggleShadow();
  model_.style().store(board_.preferences_);
  window_->followLook();
}

void PinWindowController::toggleRoundedCorners() {
  model_.toggleRoundedCorners();
  model_.style().store(board_.preferences_);
  window_->followLook();
}

void PinWindowController::setOpacity(double opacity) {
  model_.setOpacity(opacity);
  window_->followLook();
}

void PinWindowController::setClickThrough(bool on) {
  if (on == model_.isClickThrough()) return;
  model_.setClickThrough(on);
  window_->followLook();
  if (on && board_.actions_.tell) {
    //% "Clicks now go through the pin. The Vellora menu ends this."
    board_.actions_.tell(window_->screen(), qtTrId("pin.clickThrough.began"));
  }
  board_.changed();
}

void PinWindowController::followScreens(const std::vector<PinScreen>& screens) {
  model_.screensChanged(screens);
  window_->expectSettling();
  window_->follow();
}

void PinWindowController::openMenu(const QPoint& position) {
  QMenu* const menu = makePinMenu(*this).release();  // belongs to the window, and goes when it is closed
  menu->setAttribute(Qt::WA_DeleteOnClose);
  window_->holdChrome(true);
  connect(menu, &QMenu::aboutToHide, window_.get(), [window = window_.get()] { window->holdChrome(false); });
  menu->popup(position);
}

void PinWindowController::close() {
  if (leaving_) return;
  leaving_ = true;
  if (board_.actions_.closed) board_.actions_.closed(*this);
  leave();
}

void PinWindowController::leave() {
  leaving_ = true;
  window_->hide();
  board_.remove(this);
}

void PinWindowController::closeAll() {
  board_.closeAll();
}

}  // namespace vellora
