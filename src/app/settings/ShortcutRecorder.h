#pragma once

#include <functional>
#include <optional>

#include <QPushButton>

#include "app/settings/ShortcutsModel.h"
#include "kit/Paint.h"

namespace vellora {

/// The field of one action's shortcut. A click (or Space, Return) starts recording, Escape and another click stop it,
/// as does leaving the field. While it records, every key is its own.
class ShortcutRecorder final : public QPushButton {
  Q_OBJECT

 public:
  /// `onConflict` gets the message when the combination pressed belongs to another action, and nothing when that is
  /// over.
  ShortcutRecorder(ShortcutsModel& model, HotKeyAction action, std::function<void(std::optional<QString>)> onConflict,
                   QWidget* parent = nullptr);

  HotKeyAction action() const { return action_; }
  bool isRecording() const;

  /// Reads the model and the texts anew.
  void refresh();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  void toggleRecording();
  void record(const QKeyEvent& event);

  ShortcutsModel& model_;
  HotKeyAction action_;
  std::function<void(std::optional<QString>)> onConflict_;
  std::uint32_t heldModifiers_ = 0;
  bool grabbing_ = false;
  KeyboardFocus focus_;
};

}  // namespace vellora
