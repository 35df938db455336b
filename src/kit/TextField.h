#pragma once

#include <QLineEdit>

namespace vellora {

/// A one-line text field with the kit's look.
class TextField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextField(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  /// Shows that what stands in it cannot be used.
  void setInvalid(bool invalid);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool invalid_ = false;
};

}  // namespace vellora
