#pragma once

#include <QWidget>

class QVariantAnimation;

namespace vellora {

/// The place at a window's side that a panel slides into and out of, at once where motion is to be left out. It takes
/// its room in one step, so that what lies beside it is laid out once and not with every frame.
class SidePanel final : public QWidget {
  Q_OBJECT

 public:
  explicit SidePanel(QWidget* parent);

  /// Takes `content` as a child and shows it at its width.
  void setContent(QWidget* content);
  QWidget* content() const { return content_; }

  bool isOpen() const { return open_; }
  void setOpen(bool open);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();

  QWidget* content_ = nullptr;  // owned by Qt
  QVariantAnimation* slide_;    // owned by this as a child
  double shown_ = 0;            // 0 outside to 1 in place
  bool open_ = false;
};

}  // namespace vellora
