#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

class QPainter;
class QRectF;

namespace vellora {

/// An icon of the set in assets/icons/ ("capture.area"), drawn when it is shown: sharp at every size and scale, in the
/// theme's text colour of that moment (grey when disabled). Nothing is kept, so it costs memory only while it is drawn.
/// An unknown name draws nothing and is logged.
QIcon icon(const QString& name);

/// The same, always in one colour.
QIcon icon(const QString& name, const QColor& color);

/// The icon as a picture of `sizePt` points at `dpr`, in `color`.
QPixmap iconPixmap(const QString& name, int sizePt, const QColor& color, qreal dpr);

/// Draws the icon into `rect`, which should be square and lie on whole device pixels.
void paintIcon(QPainter& painter, const QString& name, const QRectF& rect, const QColor& color);

/// Every name there is.
QStringList iconNames();

}  // namespace vellora
