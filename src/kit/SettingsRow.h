#pragma once

#include <QWidget>

namespace vellora {

class TextLabel;

/// One setting: its name and help text left, its control right, and room under them for what is wrong with it.
class SettingsRow final : public QWidget {
  Q_OBJECT

 public:
  /// Takes `control` as its child and names it after the row for screen readers.
  explicit SettingsRow(QWidget* control, QWidget* parent = nullptr);

  void setTitle(const QString& title);
  /// A quiet text below the title; empty for none.
  void setHelp(const QString& help);
  /// A small icon before the title; empty for none.
  void setIconName(const QString& name);
  /// What is wrong, shown in place and told to screen readers with the control; empty takes it away.
  void setNotice(const QString& notice);
  /// A remark in the notice's place that is not a fault.
  void setHint(const QString& hint);

  QString notice() const;
  QWidget* control() const { return control_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void describeControl();
  void showUnder(const QString& text, bool fault);

  QWidget* control_;  // the children are owned by Qt
  TextLabel* title_;
  TextLabel* help_;
  TextLabel* notice_;
  QString iconName_;
  QWidget* iconRoom_;
};

}  // namespace vellora
