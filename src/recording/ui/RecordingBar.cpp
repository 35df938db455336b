#include "recording/ui/RecordingBar.h"

#include <algorithm>
#include <cmath>

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include "kit/Button.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/TimeText.h"
#include "kit/Toast.h"
#include "kit/Tokens.h"
#include "recording/ui/BarControls.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr int gapBelow = 16;
constexpr int gapAbove = 52;  // clear of the region's badge
constexpr int insetInside = 24;
constexpr int widestSource = 180;
constexpr int lampSide = 10;
constexpr int lampRoom = 22;

using Mode = RecordingBarModel::Mode;

QString pauseTitle(bool isPaused) {
  //% "Resume"
  if (isPaused) return qtTrId("recording.bar.resume");
  //% "Pause"
  return qtTrId("recording.bar.pause");
}

QString soundTitle(bool isOn) {
  //% "Sound of the computer: on"
  if (isOn) return qtTrId("recording.bar.sound.on");
  //% "Sound of the computer: off"
  return qtTrId("recording.bar.sound.off");
}

QString keysTitle(bool isOn) {
  //% "Keystrokes are recorded"
  if (isOn) return qtTrId("recording.bar.keys.on");
  //% "Keystrokes are not recorded"
  return qtTrId("recording.bar.keys.off");
}

QString startingText(int countdown) {
  //% "Starting in %1"
  if (countdown > 0) return qtTrId("recording.bar.startingIn").arg(countdown);
  //% "Starting…"
  return qtTrId("recording.bar.starting");
}

int clampedStart(int wanted, int length, int from, int to) {
  return std::clamp(wanted, from, std::max(from, to - length));
}

}  // namespace

QRect barPlace(const QSize& bar, const QRect& beside, const QRect& available) {
  const QRect room = available.adjusted(tokens::space2, tokens::space2, -tokens::space2, -tokens::space2);
  int top = beside.bottom() + 1 + gapBelow;
  if (top + bar.height() > room.bottom() + 1) top = beside.top() - gapAbove - bar.height();
  if (top < room.top()) top = beside.bottom() + 1 - insetInside - bar.height();
  const int left = beside.left() + (beside.width() - bar.width()) / 2;
  return {clampedStart(left, bar.width(), room.left(), room.right() + 1),
          clampedStart(top, bar.height(), room.top(), room.bottom() + 1), bar.width(), bar.height()};
}

RecordingBar::RecordingBar(RecordingBarModel& model, WindowHints* hints)
    : OverlayPanel(hints, Keyboard::OnRequest), model_(&model) {
  setRadius(tokens::barHeight / 2.0);
  //% "Recording"
  setAccessibleName(qtTrId("recording.bar"));
  setWindowTitle(accessibleName());
  Toast::keepClearOf(this);
  makeControls();
  model_->onChanged = [this] { refresh(); };
  refresh();
}

RecordingBar::~RecordingBar() {
  detach();
}

void RecordingBar::detach() {
  if (model_ == nullptr) return;
  model_->onChanged = nullptr;
  model_ = nullptr;
}

void RecordingBar::makeControls() {
  source_ = new TextLabel(TextLabel::Role::Secondary);
  source_->setAttribute(Qt::WA_TransparentForMouseEvents);
  //% "Microphone"
  mic_ = new DeviceButton({qtTrId("recording.bar.mic"),
                           //% "No microphone"
                           qtTrId("recording.bar.mic.none"), QStringLiteral("mic"), QStringLiteral("mic.slash")});
  meter_ = new LevelMeter;
  systemSound_ = new IconButton(QStringLiteral("speaker"), {});
  //% "Camera"
  camera_ =
      new DeviceButton({qtTrId("recording.bar.camera"),
                        //% "No camera"
                        qtTrId("recording.bar.camera.none"), QStringLiteral("video"), QStringLiteral("video.slash")});
  keyboard_ = new IconButton(QStringLiteral("keyboard"), {});
  start_ = new StartButton;
  hint_ = new TextLabel(TextLabel::Role::Body);
  hint_->setFont(tabularFont());
  hint_->setContentsMargins(0, 0, tokens::space3, 0);
  //% "Cancel"
  cancel_ = new Button(Button::Role::Secondary, qtTrId("recording.bar.cancel"));
  clock_ = new TextLabel(TextLabel::Role::Strong);
  clock_->setFont(tabularFont(bodyStrongFont()));
  //% "Recorded time"
  clock_->setToolTip(qtTrId("recording.bar.elapsed"));
  keys_ = new IconButton(QStringLiteral("keyboard"), {});
  pause_ = new IconButton(QStringLiteral("pause"), {});
  //% "Stop and keep the recording"
  stop_ = new IconButton(QStringLiteral("stop.fill"), qtTrId("recording.bar.stop"));
  //% "Close"
  close_ = new IconButton(QStringLiteral("close"), qtTrId("recording.bar.close"), QStringLiteral("Esc"));
  close_->setIconSide(tokens::menuIcon);
  keys_->setFocusPolicy(Qt::NoFocus);  // it tells and does nothing
  keys_->setAttribute(Qt::WA_TransparentForMouseEvents, false);

  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  // The meter stands beside the microphone before the start, and after the clock while recording.
  for (QWidget* const control :
       std::initializer_list<QWidget*>{source_, mic_, clock_, hint_, meter_, keys_, systemSound_, camera_, keyboard_,
                                       cancel_, pause_, stop_, start_, close_}) {
    row->addWidget(control);
    control->installEventFilter(this);
  }

  connect(mic_, &DeviceButton::chosen, this, [this](const std::optional<QString>& id) {
    if (model_ != nullptr && model_->onSelectMic) model_->onSelectMic(id);
  });
  connect(camera_, &DeviceButton::chosen, this, [this](const std::optional<QString>& id) {
    if (model_ != nullptr && model_->onSelectCamera) model_->onSelectCamera(id);
  });
  connect(systemSound_, &QPushButton::clicked, this, [this] {
    if (model_ != nullptr && model_->onSelectSystemSound) model_->onSelectSystemSound(!model_->systemSoundEnabled);
  });
  connect(keyboard_, &QPushButton::clicked, this, [this] {
    if (model_ != nullptr && model_->onSelectKeyboard) model_->onSelectKeyboard(!model_->keyboardEnabled);
  });
  connect(start_, &QPushButton::clicked, this, [this] {
    if (model_ != nullptr && model_->onStart) model_->onStart();
  });
  connect(pause_, &QPushButton::clicked, this, [this] {
    if (model_ != nullptr && model_->onPauseToggle) model_->onPauseToggle();
  });
  for (QPushButton* const button : std::initializer_list<QPushButton*>{stop_, close_, cancel_}) {
    connect(button, &QPushButton::clicked, this, &RecordingBar::leave);
  }
  connect(&Theme::shared(), &Theme::changed, this, &RecordingBar::refresh);
}

bool RecordingBar::isBeforeStart() const {
  return model_ != nullptr && (model_->mode == Mode::preStart || model_->mode == Mode::arming);
}

void RecordingBar::leave() {
  if (model_ != nullptr && model_->onStop) model_->onStop();
}

void RecordingBar::setCountdown(int number) {
  if (countdown_ == number) return;
  countdown_ = number;
  refresh();
}

void RecordingBar::refresh() {
  if (model_ == nullptr) return;
  if (shown_ != model_->mode) showControls();
  meter_->setLevel(model_->selectedMicID ? model_->micLevel : 0);
  switch (model_->mode) {
    case Mode::preStart:
      refreshBeforeStart();
      break;
    case Mode::arming: {
      const QString text = startingText(countdown_);
      if (hint_->text() != text) {
        hint_->setText(text);
        fit();
      }
      break;
    }
    case Mode::recording:
    case Mode::paused:
      refreshRunning();
      break;
  }
}

void RecordingBar::showControls() {
  shown_ = model_->mode;
  const bool before = *shown_ == Mode::preStart;
  const bool arming = *shown_ == Mode::arming;
  const bool running = *shown_ == Mode::recording || *shown_ == Mode::paused;
  mic_->closeMenu();
  camera_->closeMenu();
  mic_->setVisible(before && model_->onSelectMic);
  systemSound_->setVisible(before && model_->onSelectSystemSound);
  camera_->setVisible(before && model_->onSelectCamera);
  keyboard_->setVisible(before && model_->onSelectKeyboard);
  start_->setVisible(before);
  close_->setVisible(before);
  hint_->setVisible(arming);
  cancel_->setVisible(arming);
  clock_->setVisible(running);
  pause_->setVisible(running);
  stop_->setVisible(running);
  if (!before) source_->hide();
  if (!running) keys_->hide();
  meter_->setVisible(false);
  const int lamp = before ? tokens::space3 : lampRoom + tokens::space2;
  setPadding({lamp, 0, before || running ? tokens::space1 : tokens::space2, 0});
  if (running) {
    const bool paused = *shown_ == Mode::paused;
    pause_->setIconName(paused ? QStringLiteral("play") : QStringLiteral("pause"));
    pause_->setTitle(pauseTitle(paused));
    stop_->setIconColor(Theme::shared().palette().record);
  }
  if (before) start_->setFocus();
  fit();
}

void RecordingBar::refreshBeforeStart() {
  bool changed = false;
  const QString source = source_->fontMetrics().elidedText(model_->source, Qt::ElideMiddle, widestSource);
  if (source_->text() != source || source_->isHidden() != source.isEmpty()) {
    source_->setText(source);
    source_->setToolTip(model_->source);
    source_->setVisible(!source.isEmpty());
    source_->setContentsMargins(0, 0, tokens::space2, 0);
    changed = true;
  }
  mic_->setDevices(model_->micDevices, model_->selectedMicID);
  camera_->setDevices(model_->cameraDevices, model_->selectedCameraID);
  const bool hasMeter = model_->selectedMicID && model_->onSelectMic;
  if (meter_->isHidden() == hasMeter) {
    meter_->setVisible(hasMeter);
    changed = true;
  }
  const ThemeColors& palette = Theme::shared().palette();
  const bool sound = model_->systemSoundEnabled;
  systemSound_->setIconName(sound ? QStringLiteral("speaker") : QStringLiteral("speaker.slash"));
  systemSound_->setIconColor(sound ? palette.text : palette.secondaryText);
  systemSound_->setTitle(soundTitle(sound));
  const bool keys = model_->keyboardEnabled;
  keyboard_->setIconName(keys ? QStringLiteral("keyboard") : QStringLiteral("keyboard.slash"));
  keyboard_->setIconColor(keys ? palette.text : palette.secondaryText);
  keyboard_->setDot(keys ? palette.record : QColor());
  keyboard_->setTitle(keysTitle(keys));
  if (changed) fit();
}

void RecordingBar::refreshRunning() {
  bool changed = false;
  const QString time = elapsedText(model_->elapsed);
  if (clock_->text() != time) {
    clock_->setText(time);
    clock_->setAccessibleName(time);
    update();
  }
  if (longestClock_ != time.size()) {
    longestClock_ = static_cast<int>(time.size());
    QString widest = time;
    for (QChar& character : widest) {
      if (character.isDigit()) character = QLatin1Char('0');
    }
    clock_->setFixedWidth(clock_->fontMetrics().horizontalAdvance(widest) + tokens::space2);
    changed = true;
  }
  const ThemeColors& palette = Theme::shared().palette();
  const bool hasMeter = model_->selectedMicID.has_value();
  const bool hasKeys = model_->keyboardEnabled;
  if (meter_->isHidden() == hasMeter || keys_->isHidden() == hasKeys) {
    meter_->setVisible(hasMeter);
    keys_->setVisible(hasKeys);
    changed = true;
  }
  if (hasKeys) {
    const bool hidden = model_->keyboardHidden;
    keys_->setIconName(hidden ? QStringLiteral("lock") : QStringLiteral("keyboard"));
    keys_->setIconColor(hidden ? palette.warning : palette.text);
    keys_->setDot(hidden || *shown_ == Mode::paused ? QColor() : palette.record);
    //% "A password is being typed: keystrokes are not recorded"
    keys_->setTitle(hidden ? qtTrId("recording.bar.keys.hidden") : keysTitle(true));
  }
  if (changed) fit();
}

void RecordingBar::fit() {
  layout()->invalidate();
  layout()->activate();
  const QSize around = size() - panelRect().size();
  const QSize next(layout()->totalSizeHint().width(), tokens::barHeight + around.height());
  if (next == size()) return;
  const QPoint middle = geometry().center();
  setFixedSize(next);
  const QScreen* const at = screen();
  if (!isFollowing_ || at == nullptr) return;
  // It grows and shrinks about its middle and stays on the screen.
  QRect panel = panelRect();
  panel.moveCenter(middle);
  const QRect area = at->availableGeometry();
  movePanel({clampedStart(panel.left(), panel.width(), area.left(), area.right() + 1),
             clampedStart(panel.top(), panel.height(), area.top(), area.bottom() + 1)});
}

void RecordingBar::placeBeside(const PixelRect& beside, const DisplayInfo& screen) {
  QScreen* const target = screenOf(screen);
  if (target == nullptr || isMoved_) return;
  setScreen(target);
  isFollowing_ = true;
  const QRect place = barPlace(panelRect().size(), toPoints(beside, *target).toRect(), target->availableGeometry());
  movePanel(place.topLeft());
}

void RecordingBar::paintPanel(QPainter& painter, const QRect& panel) {
  if (!shown_ || *shown_ == Mode::preStart) return;
  const ThemeColors& palette = Theme::shared().palette();
  const QColor color = *shown_ == Mode::recording ? palette.record
                       : *shown_ == Mode::arming  ? palette.accent
                                                  : palette.secondaryText;
  const double top = panel.top() + (panel.height() - lampSide) / 2.0;
  const QRectF lamp = snapped(painter, QRectF(panel.left() + lampRoom - lampSide + 2, top, lampSide, lampSide));
  if (*shown_ == Mode::paused) {
    fillRounded(painter, {lamp.left() + 1, lamp.top(), 3, lamp.height()}, 1, color);
    fillRounded(painter, {lamp.left() + 6, lamp.top(), 3, lamp.height()}, 1, color);
  } else {
    fillRounded(painter, lamp, lampSide / 2.0, color);
  }
}

void RecordingBar::keyPressEvent(QKeyEvent* event) {
  const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
  switch (event->key()) {
    case Qt::Key_Escape:
      if (isBeforeStart()) leave();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (model_ != nullptr && model_->mode == Mode::preStart && model_->onStart) model_->onStart();
      return;
    case Qt::Key_Left:
      emit nudged(-step, 0);
      return;
    case Qt::Key_Right:
      emit nudged(step, 0);
      return;
    case Qt::Key_Up:
      emit nudged(0, -step);
      return;
    case Qt::Key_Down:
      emit nudged(0, step);
      return;
    default:
      OverlayPanel::keyPressEvent(event);
  }
}

/// The arrows, Return and Escape mean the same on every control of the bar; Down opens no menu then, Space does.
bool RecordingBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && isBeforeStart()) activateWindow();
  if (event->type() != QEvent::KeyPress) return OverlayPanel::eventFilter(watched, event);
  auto* const key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      keyPressEvent(key);
      return true;
    default:
      return OverlayPanel::eventFilter(watched, event);
  }
}

void RecordingBar::mousePressEvent(QMouseEvent* event) {
  if (isBeforeStart()) activateWindow();
  if (event->button() != Qt::LeftButton) return;
  pressedInside_ = event->globalPosition().toPoint() - pos();
  setCursor(Qt::ClosedHandCursor);
}

void RecordingBar::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  isMoved_ = true;
  move(event->globalPosition().toPoint() - pressedInside_);
}

void RecordingBar::mouseReleaseEvent(QMouseEvent*) {
  unsetCursor();
}

void RecordingBar::closeEvent(QCloseEvent* event) {
  event->ignore();
  leave();
}

void RecordingBar::hideEvent(QHideEvent* event) {
  mic_->closeMenu();
  camera_->closeMenu();
  OverlayPanel::hideEvent(event);
}

}  // namespace vellora
