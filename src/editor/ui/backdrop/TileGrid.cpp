#include "editor/ui/backdrop/TileGrid.h"

#include <QGridLayout>
#include <QKeyEvent>

#include "editor/ui/backdrop/TileButton.h"
#include "kit/Tokens.h"

namespace vellora {

TileGrid::TileGrid(int columns, const QSize& tile, QWidget* parent)
    : QWidget(parent), columns_(columns), tile_(tile), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setSpacing(tokens::space2);
  for (int i = 0; i < columns; ++i) grid_->setColumnStretch(i, 1);
}

TileButton* TileGrid::addTile(const QString& title) {
  auto* tile = new TileButton(tile_, title, this);
  const int index = static_cast<int>(tiles_.size());
  grid_->addWidget(tile, index / columns_, index % columns_);
  tile->installEventFilter(this);
  tiles_ << tile;
  return tile;
}

bool TileGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int mirrored = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  int step = 0;
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Left:
      step = -mirrored;
      break;
    case Qt::Key_Right:
      step = mirrored;
      break;
    case Qt::Key_Up:
      step = -columns_;
      break;
    case Qt::Key_Down:
      step = columns_;
      break;
    default:
      return QWidget::eventFilter(watched, event);
  }
  const qsizetype next = tiles_.indexOf(static_cast<TileButton*>(watched)) + step;
  if (next >= 0 && next < tiles_.size()) tiles_[next]->setFocus(Qt::TabFocusReason);
  return true;
}

}  // namespace vellora
