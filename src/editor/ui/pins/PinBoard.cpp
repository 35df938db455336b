#include "editor/ui/pins/PinBoard.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"

namespace vellora {
namespace {

constexpr int screensCalm = 100;  // after which changes of the screens are taken as one, in ms

Rect toRect(const QRect& rect) {
  return {{double(rect.x()), double(rect.y())}, {double(rect.width()), double(rect.height())}};
}

bool canBeShown(const PinContent& content) {
  return !content.image.isNull() && content.image.width() > 0 && content.image.height() > 0 && content.scale > 0 &&
         std::isfinite(content.scale);
}

}  // namespace

PinBoard::PinBoard(RunLoop& runLoop, PreferenceStore& preferences, WindowHints* hints, PinActions actions)
    : runLoop_(runLoop),
      preferences_(preferences),
      hints_(hints),
      actions_(std::move(actions)),
      screensTimer_(std::make_unique<QTimer>()) {
  screensTimer_->setSingleShot(true);
  screensTimer_->setInterval(screensCalm);
  QTimer* const timer = screensTimer_.get();
  QObject::connect(timer, &QTimer::timeout, timer, [this] { screensChanged(); });
  const auto changed = [timer] { timer->start(); };
  const auto observe = [timer, changed](QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, timer, changed);
    QObject::connect(screen, &QScreen::availableGeometryChanged, timer, changed);
  };
  for (QScreen* screen : QGuiApplication::screens()) observe(screen);
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, timer, changed);
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, timer, [observe, changed](QScreen* screen) {
    observe(screen);
    changed();
  });
}

PinBoard::~PinBoard() {
  closeAll();
}

std::vector<PinScreen> PinBoard::screens() {
  std::vector<PinScreen> result;
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (screen->geometry().isEmpty()) continue;  // what stands in while there is no screen at all
    result.push_back({screen->name(), toRect(screen->geometry()), toRect(screen->availableGeometry())});
  }
  return result;
}

PinWindowController* PinBoard::open(PinContent content, const PinPlacement& placement) {
  if (!canBeShown(content)) return nullptr;
  pins_.push_back(std::make_unique<PinWindowController>(*this, std::move(content)));
  PinWindowController* const pin = pins_.back().get();
  pin->show(placement);
  changed();
  return pin;
}

std::vector<PinWindowController*> PinBoard::pins() const {
  std::vector<PinWindowController*> result;
  for (const auto& pin : pins_) result.push_back(pin.get());
  return result;
}

std::vector<Rect> PinBoard::picturesBeside(const PinWindowController& pin) const {
  std::vector<Rect> result;
  for (const auto& other : pins_) {
    if (other.get() != &pin && !other->model().isClickThrough()) result.push_back(other->model().frame());
  }
  return result;
}

void PinBoard::closeAll() {
  for (PinWindowController* pin : pins()) pin->close();
}

bool PinBoard::hasClickThrough() const {
  return std::ranges::any_of(pins_, [](const auto& pin) { return pin->model().isClickThrough(); });
}

void PinBoard::endClickThrough() {
  for (PinWindowController* pin : pins()) pin->setClickThrough(false);
}

void PinBoard::remove(PinWindowController* pin) {
  const auto found = std::ranges::find(pins_, pin, [](const auto& entry) { return entry.get(); });
  if (found == pins_.end()) return;
  leaving_.push_back(std::move(*found));
  pins_.erase(found);
  deleteLeaving();
  changed();
}

void PinBoard::deleteLeaving() {
  // One of its own signals may be under way: a pin goes when the event loop comes round, and no drag runs one inside.
  runLoop_.post(lifetime_.guard([this] { std::erase_if(leaving_, [](const auto& pin) { return !pin->dragging_; }); }));
}

void PinBoard::changed() {
  if (actions_.changed) actions_.changed();
}

void PinBoard::screensChanged() {
  const auto now = screens();
  for (const auto& pin : pins_) pin->followScreens(now);
}

}  // namespace vellora
