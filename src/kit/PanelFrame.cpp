#include "kit/PanelFrame.h"

#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

PanelFrame::PanelFrame(const QScreen* screen) : composited_(isComposited(screen)), radius_(tokens::panelRadius) {}

bool PanelFrame::refresh(const QScreen* screen) {
  const bool composited = isComposited(screen);
  if (composited == composited_) return false;
  composited_ = composited;
  return true;
}

int PanelFrame::margin() const {
  return composited_ ? PanelShadow::margin() : 0;
}

QRect PanelFrame::panel(const QRect& window) const {
  const int room = margin();
  return window.adjusted(room, room, -room, -room);
}

void PanelFrame::paint(QPainter& painter, const QRect& window) {
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF edge = panel(window);
  const double corner = composited_ ? radius_ : 0;
  if (composited_) shadow_.paint(painter, edge, corner);
  fillRounded(painter, edge, corner, palette.raised);
  // Without a shadow, or with one that dark windows swallow, the edge alone tells the panel from what lies below.
  const bool shadowTells = composited_ && Theme::shared().appearance() == Appearance::Light;
  strokeRounded(painter, edge, corner, shadowTells ? palette.line : palette.controlBorder);
}

}  // namespace vellora
