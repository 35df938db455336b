#include "kit/Icons.h"

#include <optional>

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include "base/Log.h"
#include "kit/Theme.h"

// The picture files are part of this library; a static library's resources have to be asked for by name.
static void initIconResources() {
  Q_INIT_RESOURCE(icons);
}

namespace vellora {
namespace {

/// More than 3 : 1 on white and on the dark greys of panels.
constexpr QColor readableAnywhere(0x80, 0x86, 0x90);

QString folder() {
  initIconResources();
  return QStringLiteral(":/vellora/icons/");
}

QByteArray drawing(const QString& name, const QColor& color) {
  QFile file(folder() + name + QStringLiteral(".svg"));
  if (!file.open(QIODevice::ReadOnly)) {
    log::warning(QStringLiteral("no icon is named %1").arg(name));
    return {};
  }
  QByteArray svg = file.readAll();
  svg.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
  return svg;
}

class IconEngine final : public QIconEngine {
 public:
  IconEngine(QString name, std::optional<QColor> color) : name_(std::move(name)), color_(color) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    paintIcon(*painter, name_, rect, colorFor(mode));
  }

  // Our own menus and controls paint; a pixmap goes to another process, whose ground may be light or dark.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1.0);
  }

  // Qt hands in the size in device pixels and sets the ratio itself.
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const int side = std::min(size.width(), size.height());
    const QColor ink = mode == QIcon::Disabled ? colorFor(mode) : color_.value_or(readableAnywhere);
    paintIcon(painter, name_, QRect((size.width() - side) / 2, (size.height() - side) / 2, side, side), ink);
    return pixmap;
  }

  // Menus and trays that are drawn by another process ask for these.
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    QList<QSize> sizes;
    for (const int side : {16, 20, 22, 24, 32, 44, 48, 64}) sizes.append(QSize(side, side));
    return sizes;
  }

  QString key() const override { return QStringLiteral("vellora"); }
  QIconEngine* clone() const override { return new IconEngine(*this); }
  bool isNull() override { return false; }

 private:
  QColor colorFor(QIcon::Mode mode) const {
    const ThemeColors& palette = Theme::shared().palette();
    if (mode == QIcon::Disabled) return palette.disabledText;
    return color_.value_or(palette.text);
  }

  QString name_;
  std::optional<QColor> color_;
};

}  // namespace

QIcon icon(const QString& name) {
  return QIcon(new IconEngine(name, std::nullopt));
}
QIcon icon(const QString& name, const QColor& color) {
  return QIcon(new IconEngine(name, color));
}

QPixmap iconPixmap(const QString& name, int sizePt, const QColor& color, qreal dpr) {
  const int side = std::max(1, qRound(sizePt * dpr));
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  {
    QPainter painter(&pixmap);
    paintIcon(painter, name, QRectF(0, 0, side, side), color);
  }
  pixmap.setDevicePixelRatio(dpr);
  return pixmap;
}

void paintIcon(QPainter& painter, const QString& name, const QRectF& rect, const QColor& color) {
  QSvgRenderer renderer;
  const QByteArray svg = drawing(name, color);
  if (svg.isEmpty() || !renderer.load(svg)) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * color.alphaF());
  renderer.render(&painter, rect);
  painter.restore();
}

QStringList iconNames() {
  QStringList names = QDir(folder()).entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
  for (QString& name : names) name.chop(4);
  return names;
}

}  // namespace vellora
