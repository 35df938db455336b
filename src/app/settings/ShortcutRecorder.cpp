#include "app/settings/ShortcutRecorder.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include "app/settings/KeyCapture.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "platform/KeyCodes.h"

namespace vellora {
namespace {

constexpr int fieldWidth = 212;
constexpr int capHeight = 22;
constexpr int capPadding = 6;
constexpr int capGap = 3;

/// What stands on the keys of a PC keyboard; no keyboard here shows the glyphs of the short form.
QStringList caps(std::uint32_t modifiers, const QString& label) {
  QStringList result;
  if (modifiers & carbonModifier::control) result << QStringLiteral("Ctrl");
  if (modifiers & carbonModifier::option) result << QStringLiteral("Alt");
  if (modifiers & carbonModifier::shift) result << QStringLiteral("Shift");
  if (modifiers & carbonModifier::command) result << QStringLiteral("Super");
  if (!label.isEmpty()) result << label;
  return result;
}

void drawCaps(QPainter& painter, const QRectF& field, const QStringList& texts) {
  const ThemeColors& palette = Theme::shared().palette();
  const QFontMetrics metrics(secondaryFont());
  const auto capWidth = [&](const QString& text) {
    return std::max(capHeight, metrics.horizontalAdvance(text) + 2 * capPadding);
  };
  double total = -capGap;
  for (const QString& text : texts) total += capWidth(text) + capGap;
  double x = field.center().x() - total / 2;
  painter.setFont(secondaryFont());
  for (const QString& text : texts) {
    const QRectF cap = snapped(painter, QRectF(x, field.center().y() - capHeight / 2.0, capWidth(text), capHeight));
    fillRounded(painter, cap, 5, palette.sunken);
    strokeRounded(painter, cap, 5, palette.line);
    painter.setPen(palette.text);
    painter.drawText(cap, Qt::AlignCenter, text);
    x += capWidth(text) + capGap;
  }
}

}  // namespace

ShortcutRecorder::ShortcutRecorder(ShortcutsModel& model, HotKeyAction action,
                                   std::function<void(std::optional<QString>)> onConflict, QWidget* parent)
    : QPushButton(parent), model_(model), action_(action), onConflict_(std::move(onConflict)) {
  setFont(bodyFont());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  repaintOnThemeChange(*this);
  connect(this, &QPushButton::clicked, this, &ShortcutRecorder::toggleRecording);
  refresh();
}

bool ShortcutRecorder::isRecording() const {
  return model_.recording() == action_;
}

void ShortcutRecorder::refresh() {
  const auto binding = model_.row(action_).binding;
  const bool recording = isRecording();
  if (recording) {
    //% "Press the keys…"
    setText(qtTrId("shortcut.recording"));
    //% "Press the new combination. Esc stops, Delete goes back to the default."
    setToolTip(qtTrId("shortcut.recordingHelp"));
  } else {
    //% "None"
    setText(binding ? displayText(*binding) : qtTrId("shortcut.none"));
    //% "Click to record another combination"
    const QString help = qtTrId("shortcut.startHelp");
    setToolTip(binding ? QStringLiteral("%1\n%2").arg(writtenShortcut(*binding), help) : help);
  }
  if (recording != grabbing_) {
    // A grab, so that combinations the window manager or other programs hold arrive here.
    grabbing_ = recording;
    heldModifiers_ = 0;
    if (recording) {
      grabKeyboard();
    } else {
      releaseKeyboard();
      if (onConflict_) onConflict_(std::nullopt);
    }
  }
  update();
}

void ShortcutRecorder::toggleRecording() {
  if (isRecording()) {
    model_.stopRecording();
  } else {
    setFocus(Qt::OtherFocusReason);
    model_.startRecording(action_);
  }
}

void ShortcutRecorder::record(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  const auto key = capturedKey(event);
  if (!key) return;
  const auto reply = model_.press(key->keyCode, key->carbonModifiers, key->characters);
  if (reply.answer == ShortcutsModel::Answer::Conflict && onConflict_) {
    //% "%1 already belongs to “%2”."
    const QString message = qtTrId("settings.shortcuts.conflict");
    onConflict_(message.arg(writtenShortcut(*reply.binding), qtTrId(titleKey(*reply.owner))));
  }
}

bool ShortcutRecorder::event(QEvent* event) {
  // Ctrl+W and the like are combinations here, not commands of the window.
  if (event->type() == QEvent::ShortcutOverride && isRecording()) {
    event->accept();
    return true;
  }
  return QPushButton::event(event);
}

void ShortcutRecorder::keyPressEvent(QKeyEvent* event) {
  if (isRecording()) {
    heldModifiers_ = carbonModifiersFrom(event->modifiers()) | modifierOfKey(*event);
    record(*event);
    update();
    event->accept();
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QPushButton::keyPressEvent(event);
}

void ShortcutRecorder::keyReleaseEvent(QKeyEvent* event) {
  if (isRecording()) {
    heldModifiers_ = carbonModifiersFrom(event->modifiers()) & ~modifierOfKey(*event);
    update();
    event->accept();
    return;
  }
  QPushButton::keyReleaseEvent(event);
}

bool ShortcutRecorder::focusNextPrevChild(bool next) {
  return !isRecording() && QPushButton::focusNextPrevChild(next);
}

void ShortcutRecorder::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void ShortcutRecorder::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  if (isRecording()) model_.stopRecording();
  QPushButton::focusOutEvent(event);
  update();
}

void ShortcutRecorder::hideEvent(QHideEvent* event) {
  if (isRecording()) model_.stopRecording();
  QPushButton::hideEvent(event);
}

QSize ShortcutRecorder::sizeHint() const {
  const int room = 2 * tokens::focusRingRoom;
  return {fieldWidth + room, tokens::controlHeight + room};
}

void ShortcutRecorder::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const int room = tokens::focusRingRoom;
  const QRectF edge = QRectF(rect()).adjusted(room, room, -room, -room);
  const bool recording = isRecording();
  fillRounded(painter, edge, tokens::controlRadius, palette.raised);
  if (recording) {
    fillRounded(painter, edge, tokens::controlRadius, palette.selection);
    strokeRounded(painter, edge, tokens::controlRadius, palette.accent, tokens::focusRingWidth);
  } else {
    if (underMouse() || isDown()) {
      fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
    }
    strokeRounded(painter, edge, tokens::controlRadius, palette.controlBorder);
  }
  const auto binding = model_.row(action_).binding;
  if (recording && heldModifiers_ != 0) {
    drawCaps(painter, edge, caps(heldModifiers_, QStringLiteral("…")));
  } else if (!recording && binding) {
    drawCaps(painter, edge, caps(binding->carbonModifiers, binding->keyLabel));
  } else {
    painter.setFont(font());
    painter.setPen(recording ? palette.text : palette.secondaryText);
    painter.drawText(edge, Qt::AlignCenter, text());
  }
  if (focus_.visible() && !recording) drawFocusRing(painter, edge, tokens::controlRadius);
}

}  // namespace vellora
