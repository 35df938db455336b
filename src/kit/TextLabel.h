#pragma once

#include <QLabel>

namespace vellora {

/// A text in one of the kit's type sizes, in the colour that belongs to it in the theme of the moment.
class TextLabel final : public QLabel {
  Q_OBJECT

 public:
  enum class Role { Title, Heading, Body, Strong, Secondary, Badge, Error };

  explicit TextLabel(Role role, const QString& text = {}, QWidget* parent = nullptr);

  void setRole(Role role);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyColor();

  Role role_;
};

}  // namespace vellora
