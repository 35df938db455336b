#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QMenu>
#include <QPointer>
#include <QPushButton>

#include "kit/Paint.h"
#include "platform/CaptureDevice.h"

namespace vellora {

/// How loud a microphone is, as a small column.
class LevelMeter final : public QWidget {
  Q_OBJECT

 public:
  explicit LevelMeter(QWidget* parent = nullptr);
  /// From 0 to 1.
  void setLevel(double level);
  double level() const { return level_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double level_ = 0;
};

/// Chooses a microphone or a camera, or none: an icon, struck through when none is chosen, that opens a menu.
class DeviceButton final : public QPushButton {
  Q_OBJECT

 public:
  struct Words {
    QString kind;  ///< "Microphone"
    QString none;  ///< the menu's line for none
    QString on;    ///< icon names
    QString off;
  };
  explicit DeviceButton(Words words, QWidget* parent = nullptr);

  void setDevices(const std::vector<CaptureDeviceInfo>& devices, const std::optional<QString>& selected);
  void openMenu();
  void closeMenu();
  QMenu* menu() const { return menu_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  /// Nothing: off.
  void chosen(const std::optional<QString>& deviceID);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  Words words_;
  std::vector<CaptureDeviceInfo> devices_;
  std::optional<QString> selected_;
  QPointer<QMenu> menu_;
  KeyboardFocus focus_;
};

/// The round-ended button that starts a recording.
class StartButton final : public QPushButton {
  Q_OBJECT

 public:
  explicit StartButton(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  KeyboardFocus focus_;
};

}  // namespace vellora
