#include "capture/ui/QtOverlayPresenter.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>

#include "base/Log.h"
#include "capture/ui/OverlayWindow.h"

namespace vellora {
namespace {

// While the hot key is still down its grab keeps the keyboard from us: ask again until it is up.
constexpr int grabInterval = 15;
constexpr int mostGrabAttempts = 400;

KeyModifiers toModifiers(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::AltModifier),
          modifiers.testFlag(Qt::ControlModifier)};
}

std::optional<OverlayKey> toKey(int key, Qt::KeyboardModifiers modifiers) {
  switch (key) {
    case Qt::Key_Left:
      return OverlayKey::Left;
    case Qt::Key_Right:
      return OverlayKey::Right;
    case Qt::Key_Up:
      return OverlayKey::Up;
    case Qt::Key_Down:
      return OverlayKey::Down;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return OverlayKey::Return;
    case Qt::Key_Escape:
      return OverlayKey::Escape;
    case Qt::Key_Space:
      return OverlayKey::Space;
    case Qt::Key_Tab:
      return modifiers.testFlag(Qt::ShiftModifier) ? OverlayKey::Backtab : OverlayKey::Tab;
    case Qt::Key_Backtab:
      return OverlayKey::Backtab;
    case Qt::Key_A:
      if (modifiers.testFlag(Qt::ControlModifier)) return OverlayKey::SelectAll;
      break;
    default:
      break;
  }
  return std::nullopt;
}

/// The modifiers after the event of a modifier key itself, whose own bit Qt may tell late.
Qt::KeyboardModifiers afterModifierKey(int key, Qt::KeyboardModifiers modifiers, bool pressed) {
  switch (key) {
    case Qt::Key_Shift:
      return modifiers.setFlag(Qt::ShiftModifier, pressed);
    case Qt::Key_Control:
      return modifiers.setFlag(Qt::ControlModifier, pressed);
    case Qt::Key_Alt:
      return modifiers.setFlag(Qt::AltModifier, pressed);
    default:
      return modifiers;
  }
}

bool isModifierKey(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt;
}

std::optional<PointerButton> toButton(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return PointerButton::Primary;
  if (button == Qt::RightButton) return PointerButton::Secondary;
  return std::nullopt;
}

}  // namespace

QtOverlayPresenter::QtOverlayPresenter(CaptureEngine& engine, ScreenStillService* stills)
    : engine_(engine), stills_(stills) {}

QtOverlayPresenter::~QtOverlayPresenter() {
  close();
}

void QtOverlayPresenter::prepare(const std::vector<DisplayInfo>& displays) {
  close();
  run_ = std::make_unique<Lifetime>();
  // The windows first: while the server copies displays, everything asked of it waits.
  for (const DisplayInfo& display : displays) {
    windows_.push_back(new OverlayWindow(display));
    connectWindow(*windows_.back());
    windows_.back()->create();
  }
  if (stills_ != nullptr) still_ = stills_->freeze(displays);
  for (OverlayWindow* window : windows_) {
    if (!still_) {
      takePicture(*window);
      continue;
    }
    still_->paintBehind(window->winId(), window->display().id, OverlayPainter::dimmedTo,
                        run_->guard([this, window](bool painted) {
                          if (painted) {
                            grounded(*window, OverlayWindow::Ground::Server);
                          } else {
                            takePicture(*window);
                          }
                        }));
  }
}

/// Without help of the display server the whole picture comes here before the overlay can be shown.
void QtOverlayPresenter::takePicture(OverlayWindow& window) {
  reading_.insert(&window);
  engine_.captureDisplay(window.display(), run_->guard([this, &window](const CaptureEngine::Image& image) {
    if (image) {
      window.setStill(image->image);
    } else {
      log::warning(QStringLiteral("overlay picture failed: ") + QLatin1String(description(image.error())));
    }
    grounded(window, OverlayWindow::Ground::Painted);
  }));
}

void QtOverlayPresenter::grounded(OverlayWindow& window, OverlayWindow::Ground ground) {
  window.setGround(ground);
  reveal();
}

/// Whether something of the scene on that display is painted from its pixels.
bool QtOverlayPresenter::isNeeded(const OverlayWindow& window) const {
  const DisplayInfo& display = window.display();
  return display.id == scene_.display || (scene_.clear && !scene_.clear->intersected(display.frame).isEmpty());
}

/// Fetches the pixels of a display: what is clear and the loupe are painted from them.
void QtOverlayPresenter::readStill(OverlayWindow& window) {
  if (!still_ || window.ground() != OverlayWindow::Ground::Server || !reading_.insert(&window).second) return;
  engine_.readStill(still_, window.display(), run_->guard([&window](const CaptureEngine::Image& image) {
    if (image) return window.setStill(image->image);
    log::warning(QStringLiteral("overlay picture failed: ") + QLatin1String(description(image.error())));
  }));
}

void QtOverlayPresenter::connectWindow(OverlayWindow& window) {
  connect(&window, &OverlayWindow::appeared, this, &QtOverlayPresenter::windowAppeared);
  connect(&window, &OverlayWindow::pointerMoved, this, [this](PixelPoint position, Qt::KeyboardModifiers modifiers) {
    if (input_ != nullptr) input_->pointerMoved(position, toModifiers(modifiers));
  });
  connect(&window, &OverlayWindow::pointerPressed, this,
          [this](Qt::MouseButton button, PixelPoint position, Qt::KeyboardModifiers modifiers, int clicks) {
            const auto which = toButton(button);
            if (input_ != nullptr && which) {
              input_->pointerPressed({*which, position, toModifiers(modifiers), clicks});
            }
          });
  connect(&window, &OverlayWindow::pointerReleased, this,
          [this](Qt::MouseButton button, PixelPoint position, Qt::KeyboardModifiers modifiers) {
            const auto which = toButton(button);
            if (input_ != nullptr && which) input_->pointerReleased({*which, position, toModifiers(modifiers), 1});
          });
}

void QtOverlayPresenter::show(const OverlayScene& scene, OverlayInput& input) {
  input_ = &input;
  scene_ = scene;
  for (OverlayWindow* window : windows_) window->setScene(scene);
  reveal();
}

/// Brings the overlays up, all together, once each has something to show.
void QtOverlayPresenter::reveal() {
  if (input_ == nullptr || revealed_ || windows_.empty()) return;
  if (!std::ranges::all_of(windows_,
                           [](const OverlayWindow* window) { return window->ground() != OverlayWindow::Ground::None; }))
    return;
  revealed_ = true;
  for (OverlayWindow* window : windows_) {
    window->setVisible(true);
    if (isNeeded(*window)) readStill(*window);
  }
  qGuiApp->installEventFilter(this);
  watchDisplays(true);
  const auto active = std::ranges::find_if(
      windows_, [&](const OverlayWindow* window) { return window->display().id == scene_.display; });
  grabber_ = active != windows_.end() ? *active : windows_.front();
  grabAttempts_ = 0;
  grab();
}

/// One window more has its first frame; the hint comes after the last of them, because fonts may have to be read from
/// disk.
void QtOverlayPresenter::windowAppeared() {
  if (!std::ranges::all_of(windows_, [](const OverlayWindow* window) { return window->hasAppeared(); })) return;
  emit shown();
  QTimer::singleShot(0, this, run_->guard([this] {
    for (OverlayWindow* window : windows_) window->enableHints();
  }));
}

void QtOverlayPresenter::grab() {
  if (grabber_ == nullptr) return;
  const bool keyboard = grabber_->setKeyboardGrabEnabled(true);
  const bool pointer = grabber_->setMouseGrabEnabled(true);
  if ((keyboard && pointer) || ++grabAttempts_ > mostGrabAttempts) return;
  QTimer::singleShot(grabInterval, this, run_->guard([this] { grab(); }));
}

void QtOverlayPresenter::releaseGrabs() {
  if (grabber_ == nullptr) return;
  grabber_->setKeyboardGrabEnabled(false);
  grabber_->setMouseGrabEnabled(false);
  grabber_ = nullptr;
}

void QtOverlayPresenter::update(const OverlayScene& scene) {
  scene_ = scene;
  for (OverlayWindow* window : windows_) {
    window->setScene(scene);
    if (revealed_ && isNeeded(*window)) readStill(*window);
  }
}

void QtOverlayPresenter::hide() {
  if (!revealed_) return;
  releaseGrabs();
  watchDisplays(false);
  qGuiApp->removeEventFilter(this);
  for (OverlayWindow* window : windows_) window->setVisible(false);
  revealed_ = false;
}

void QtOverlayPresenter::close() {
  hide();
  input_ = nullptr;
  run_.reset();
  still_.reset();
  reading_.clear();
  for (OverlayWindow* window : windows_) {
    window->setGround(OverlayWindow::Ground::None);
    window->setStill({});
    window->deleteLater();
  }
  windows_.clear();
}

KeyModifiers QtOverlayPresenter::modifiers() const {
  return toModifiers(QGuiApplication::queryKeyboardModifiers());
}

void QtOverlayPresenter::watchDisplays(bool watch) {
  for (const QMetaObject::Connection& connection : displayWatch_) disconnect(connection);
  displayWatch_.clear();
  if (!watch) return;
  const auto changed = [this] {
    if (input_ != nullptr) input_->displaysChanged();
  };
  displayWatch_.push_back(connect(qGuiApp, &QGuiApplication::screenAdded, this, changed));
  displayWatch_.push_back(connect(qGuiApp, &QGuiApplication::screenRemoved, this, changed));
  for (const QScreen* screen : QGuiApplication::screens()) {
    displayWatch_.push_back(connect(screen, &QScreen::geometryChanged, this, changed));
  }
}

/// Every key goes to the overlays while they are up, whichever of our windows has the focus.
bool QtOverlayPresenter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();  // no shortcut of a window may fire
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto* key = static_cast<QKeyEvent*>(event);
      handleKey(key->key(), key->modifiers(), event->type() == QEvent::KeyPress, key->isAutoRepeat());
      return true;
    }
    default:
      return QObject::eventFilter(watched, event);
  }
}

void QtOverlayPresenter::handleKey(int key, Qt::KeyboardModifiers modifiers, bool pressed, bool repeated) {
  if (input_ == nullptr) return;
  if (isModifierKey(key)) {
    input_->modifiersChanged(toModifiers(afterModifierKey(key, modifiers, pressed)));
    return;
  }
  const auto known = toKey(key, modifiers);
  if (!known ||
      (repeated && (*known == OverlayKey::Space || *known == OverlayKey::Return || *known == OverlayKey::Escape))) {
    return;
  }
  if (pressed) {
    input_->keyPressed(*known, toModifiers(modifiers));
  } else if (!repeated) {
    input_->keyReleased(*known, toModifiers(modifiers));
  }
}

}  // namespace vellora
