#pragma once

#include <QWidget>

namespace vellora {

class EditorCommands;

/// A sheet over the whole window that lists every command with its keys, in as many columns as there is room for.
/// Escape, a click or the key that opened it takes it away; it deletes itself. Belongs to the window.
class ShortcutsSheet final : public QWidget {
  Q_OBJECT

 public:
  ShortcutsSheet(const EditorCommands& commands, QWidget* window);

  /// Shows the sheet in `window`, or takes the one that is there away.
  static void toggle(const EditorCommands& commands, QWidget* window);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Line {
    QString title;
    QStringList keys;  ///< empty: the heading of a group
  };
  struct Column {
    int from;
    int to;  // one past the last line
  };
  void layOut();
  int heightOf(int from, int to) const;
  QRect panel() const;
  void scrollTo(int offset);

  QList<Line> lines_;
  QList<Column> columns_;
  int contentHeight_ = 0;
  int offset_ = 0;
};

}  // namespace vellora
