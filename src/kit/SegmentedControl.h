#pragma once

#include <QWidget>

class QButtonGroup;

namespace vellora {

/// A row of a few choices of which one holds, as joined buttons with icons or short texts. It shows a choice only once
/// its owner has set it. Arrow keys move along.
class SegmentedControl final : public QWidget {
  Q_OBJECT

 public:
  struct Segment {
    QString iconName;  ///< empty: shows the title
    QString title;     ///< tooltip and accessible name
    QString detail;    ///< a further line of the tooltip; may be empty
  };

  explicit SegmentedControl(const QList<Segment>& segments, QWidget* parent = nullptr);

  /// Shows the segment `index`; -1 for none.
  void setCurrent(int index);
  int current() const;

 signals:
  /// The person picked a segment, another one than the current.
  void chosen(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QButtonGroup* group_;  // owned by this as a child
  int current_ = -1;
};

}  // namespace vellora
