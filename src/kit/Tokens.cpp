#include "kit/Tokens.h"

#include <QStringList>

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
  return base;
}
QFont tabularFont() {
  return tabularFont(bodyFont());
}

}  // namespace vellora
