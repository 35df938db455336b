#pragma once

#include <QLabel>

namespace vellora {

/// A quiet text of one line whose middle gives way where there is no room, as for paths.
class ElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override { return {24, QLabel::sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vellora
