#include "editor/ui/canvas/CanvasKeys.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QWheelEvent>

namespace vellora {
namespace {

constexpr int notch = 120;            // eighths of a degree
constexpr quint64 sameGesture = 250;  // milliseconds

KeyInput::Key keyOf(int key) {
  using Key = KeyInput::Key;
  switch (key) {
    case Qt::Key_Left:
      return Key::Left;
    case Qt::Key_Right:
      return Key::Right;
    case Qt::Key_Up:
      return Key::Up;
    case Qt::Key_Down:
      return Key::Down;
    case Qt::Key_Home:
      return Key::Home;
    case Qt::Key_End:
      return Key::End;
    case Qt::Key_Backspace:
      return Key::Backspace;
    case Qt::Key_Delete:
      return Key::Delete;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Key::Return;
    case Qt::Key_Tab:
      return Key::Tab;
    case Qt::Key_Backtab:
      return Key::Backtab;
    case Qt::Key_Escape:
      return Key::Escape;
    case Qt::Key_Space:
      return Key::Space;
    default:
      return Key::Other;
  }
}

}  // namespace

Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::AltModifier),
          modifiers.testFlag(Qt::ControlModifier)};
}

KeyInput keyInputOf(const QKeyEvent& event, double pointsPerScreenPoint) {
  KeyInput input;
  input.key = event.matches(QKeySequence::SelectAll) ? KeyInput::Key::SelectAll : keyOf(event.key());
  input.modifiers = modifiersOf(event.modifiers());
  // A control character is a key's name, not text.
  if (!event.text().isEmpty() && event.text().front().isPrint()) input.text = event.text();
  input.pointsPerScreenPoint = pointsPerScreenPoint;
  return input;
}

bool isTextKey(const QKeyEvent& event) {
  for (const auto key : {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste, QKeySequence::SelectAll}) {
    if (event.matches(key)) return true;
  }
  if (keyOf(event.key()) != KeyInput::Key::Other) return true;
  const bool commands = event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !commands && !event.text().isEmpty() && event.text().front().isPrint();
}

bool WheelKind::isScrolling(const QWheelEvent& event) {
  const QPoint angle = event.angleDelta();
  const bool wholeNotches = angle.x() % notch == 0 && angle.y() % notch == 0 && (angle.x() == 0 || angle.y() == 0);
  const bool goesOn = lastScroll_ != 0 && event.timestamp() - lastScroll_ < sameGesture;
  const bool touchpad =
      event.pointingDevice() != nullptr && event.pointingDevice()->type() == QInputDevice::DeviceType::TouchPad;
  if (wholeNotches && !goesOn && !touchpad && event.phase() == Qt::NoScrollPhase) return false;
  lastScroll_ = event.timestamp();
  return true;
}

}  // namespace vellora
