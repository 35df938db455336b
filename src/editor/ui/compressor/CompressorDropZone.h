#pragma once

#include <QWidget>

namespace vellora {

/// What the compressor's window shows while it has no pictures: where to drop them, and the other ways to add some.
class CompressorDropZone final : public QWidget {
  Q_OBJECT

 public:
  explicit CompressorDropZone(QWidget* parent = nullptr);

  /// Something that can be dropped is over the window.
  void setHot(bool hot);

 signals:
  void chooseRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isHot_ = false;
};

/// Lies over a window's contents while something that can be dropped is over them; lets everything through.
class DropHighlight final : public QWidget {
  Q_OBJECT

 public:
  explicit DropHighlight(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vellora
