#include "kit/Popover.h"

#include <algorithm>

#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>

#include "kit/Tokens.h"

namespace vellora {

Popover::Popover(const QString& name, QWidget* owner) : FloatingPanel(owner, Qt::Popup), owner_(owner) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(name);
  setPadding({tokens::space3, tokens::space3, tokens::space3, tokens::space3});
}

void Popover::open() {
  adjustSize();
  const QRect area = owner_->screen()->availableGeometry();
  const QRect anchor(owner_->mapToGlobal(QPoint(0, 0)), owner_->size());
  const QSize panel = panelRect().size();
  const int left = std::clamp(anchor.center().x() - panel.width() / 2, area.left() + tokens::space1,
                              std::max(area.left() + tokens::space1, area.right() - tokens::space1 - panel.width()));
  int top = anchor.bottom() + 1 + tokens::space1;
  if (top + panel.height() > area.bottom()) top = anchor.top() - tokens::space1 - panel.height();
  movePanel({left, std::max(top, area.top())});
  show();
  focusNextChild();
}

void Popover::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  FloatingPanel::keyPressEvent(event);
}

void Popover::mousePressEvent(QMouseEvent* event) {
  // The shadow is part of the window, but a click on it is one beside the panel.
  if (!panelRect().contains(event->position().toPoint())) close();
}

void Popover::hideEvent(QHideEvent* event) {
  FloatingPanel::hideEvent(event);
  emit closed();
  close();
}

}  // namespace vellora
