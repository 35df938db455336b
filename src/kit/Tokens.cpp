#include "kit/Tokens.h"

#include <QFontDatabase>
#include <QStringList>

static void initFigureResources() {
  Q_INIT_RESOURCE(figures);
}

namespace vellora {
namespace {

QFont inter(int pixels, QFont::Weight weight) {
  QFont font;
  // A desktop without Inter shows its own sans.
  font.setFamilies(QStringList{QStringLiteral("Inter"), QStringLiteral("sans-serif")});
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

/// The family of the figures, loaded when the first clock or size is shown; empty when it cannot be loaded.
QString figuresFamily() {
  static const QString family = [] {
    initFigureResources();
    QString name;
    for (const char* face : {"Regular", "Medium", "SemiBold"}) {
      const int id = QFontDatabase::addApplicationFont(
          QStringLiteral(":/vellora/figures/VelloraFigures-%1.otf").arg(QLatin1String(face)));
      if (const QStringList families = QFontDatabase::applicationFontFamilies(id);
          name.isEmpty() && !families.isEmpty()) {
        name = families.first();
      }
    }
    return name;
  }();
  return family;
}

}  // namespace

QFont bodyFont() {
  return inter(13, QFont::Normal);
}
QFont bodyStrongFont() {
  return inter(13, QFont::DemiBold);
}
QFont secondaryFont() {
  return inter(12, QFont::Normal);
}
QFont badgeFont() {
  return inter(11, QFont::Medium);
}
QFont headingFont() {
  return inter(15, QFont::DemiBold);
}
QFont titleFont() {
  return inter(20, QFont::DemiBold);
}

QFont tabularFont(const QFont& base) {
  QStringList families = base.families();
  if (families.isEmpty()) families << base.family();
  if (const QString figures = figuresFamily(); !figures.isEmpty()) families.prepend(figures);
  QFont font = base;
  font.setFamilies(families);
  return font;
}

QFont tabularFont() {
  return tabularFont(bodyFont());
}

}  // namespace vellora
