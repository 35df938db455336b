#pragma once

#include <QWidget>

class QVBoxLayout;

namespace vellora {

class TextLabel;

/// Rows that belong together: a title, a card of rows with hairlines between them, an explanation below.
class SettingsGroup final : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsGroup(QWidget* parent = nullptr);

  void setTitle(const QString& title);
  /// The explanation below the card; empty for none.
  void setInfo(const QString& info);

  /// Adds a row at the end and takes it as a child.
  void addRow(QWidget* row);

 private:
  TextLabel* title_;  // the children are owned by Qt
  TextLabel* info_;
  QWidget* card_;
  QVBoxLayout* rows_;
};

}  // namespace vellora
