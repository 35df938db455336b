#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace vellora {

class SettingsGroup;
class TextLabel;

/// A page of the settings window: its title and its groups, scrolled when they are higher than the window.
class SettingsPage : public QScrollArea {
  Q_OBJECT

 public:
  explicit SettingsPage(QWidget* parent = nullptr);

  void setTitle(const QString& title);
  QString title() const;

  /// Adds an empty group at the end; the page owns it.
  SettingsGroup* addGroup();
  /// Adds something else at the end; the page owns it.
  void addContent(QWidget* content);

 private:
  TextLabel* title_;  // the children are owned by Qt
  QVBoxLayout* contents_ = nullptr;
};

}  // namespace vellora
