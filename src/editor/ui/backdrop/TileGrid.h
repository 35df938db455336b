#pragma once

#include <QList>
#include <QWidget>

class QGridLayout;

namespace vellora {

class TileButton;

/// Tiles in rows of a fixed number; the arrow keys move between them.
class TileGrid final : public QWidget {
  Q_OBJECT

 public:
  TileGrid(int columns, const QSize& tile, QWidget* parent = nullptr);

  TileButton* addTile(const QString& title);
  const QList<TileButton*>& tiles() const { return tiles_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int columns_;
  QSize tile_;
  QGridLayout* grid_;
  QList<TileButton*> tiles_;  // owned by Qt
};

}  // namespace vellora
