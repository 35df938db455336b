#include "kit/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPalette>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

#include "kit/KitStyle.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

ThemeColors lightPalette() {
  ThemeColors p;
  p.surface = QColor(0xFFFFFF);
  p.raised = QColor(0xFFFFFF);
  p.sunken = QColor(0xF4F5F7);
  p.text = QColor(0x1C2024);
  p.secondaryText = QColor(0x60646C);
  p.disabledText = QColor(0xB0B4BA);
  p.line = QColor(0xE3E5E9);
  p.accent = QColor(0x2F6FED);
  p.record = QColor(0xE5484D);
  p.success = QColor(0x30A46C);
  p.warning = QColor(0xF76B15);
  p.accentFill = QColor(0x2F6FED);
  p.dangerFill = QColor(0xCE2C31);
  p.onFill = QColor(0xFFFFFF);
  p.errorText = QColor(0xC62A2F);
  p.hover = QColor(28, 32, 36, 13);
  p.pressed = QColor(28, 32, 36, 26);
  p.selection = QColor(47, 111, 237, 28);
  p.controlBorder = QColor(0xC9CDD3);
  return p;
}

ThemeColors darkPalette() {
  ThemeColors p;
  p.surface = QColor(0x1E1F22);
  p.raised = QColor(0x2A2C30);
  p.sunken = QColor(0x17181A);
  p.text = QColor(0xEDEEF0);
  p.secondaryText = QColor(0xA9ADB5);
  p.disabledText = QColor(0x5A5F66);
  p.line = QColor(0x35383D);
  p.accent = QColor(0x4C86FF);
  p.record = QColor(0xFF5A5F);
  p.success = QColor(0x3DB97D);
  p.warning = QColor(0xFF7F32);
  p.accentFill = QColor(0x2F6FED);
  p.dangerFill = QColor(0xCE2C31);
  p.onFill = QColor(0xFFFFFF);
  p.errorText = QColor(0xFF9592);
  p.hover = QColor(237, 238, 240, 15);
  p.pressed = QColor(237, 238, 240, 28);
  p.selection = QColor(76, 134, 255, 46);
  p.controlBorder = QColor(0x4B4F56);
  return p;
}

Appearance paletteAppearance() {
  const QPalette palette = QApplication::palette();
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
             ? Appearance::Dark
             : Appearance::Light;
}

QPalette widgetPalette(const ThemeColors& colors) {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, const QColor& color) { palette.setColor(role, color); };
  set(QPalette::Window, colors.surface);
  set(QPalette::WindowText, colors.text);
  set(QPalette::Base, colors.surface);
  set(QPalette::AlternateBase, colors.sunken);
  set(QPalette::Text, colors.text);
  set(QPalette::PlaceholderText, colors.secondaryText);
  set(QPalette::Button, colors.raised);
  set(QPalette::ButtonText, colors.text);
  set(QPalette::Highlight, colors.accentFill);
  set(QPalette::HighlightedText, colors.onFill);
  set(QPalette::Link, colors.accent);
  set(QPalette::LinkVisited, colors.accent);
  set(QPalette::Mid, colors.line);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, colors.disabledText);
  }
  return palette;
}

}  // namespace

Theme::Theme() {
  appearance_ = paletteAppearance();
  // The palette's change is told to the application object only; QGuiApplication's signal for it is on its way out.
  if (qApp != nullptr) qApp->installEventFilter(this);
}

Theme& Theme::shared() {
  static Theme theme;
  return theme;
}

const ThemeColors& Theme::palette(Appearance appearance) {
  static const ThemeColors light = lightPalette();
  static const ThemeColors dark = darkPalette();
  return appearance == Appearance::Dark ? dark : light;
}

void Theme::setAppearanceOverride(std::optional<Appearance> appearance) {
  override_ = appearance;
  refresh();
}

void Theme::setDesktopAppearance(std::optional<Appearance> appearance) {
  desktop_ = appearance;
  refresh();
}

bool Theme::reducedMotion() const {
  if (reducedMotion_) return *reducedMotion_;
  return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) <= 0;
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp) refresh();
  // Qt makes the label of tool tips itself and lets nobody hand one in.
  if (event->type() == QEvent::Polish && watched->inherits("QTipLabel")) styleToolTip(static_cast<QLabel&>(*watched));
  return false;
}

void Theme::refresh() {
  const Appearance wanted = override_.value_or(desktop_.value_or(paletteAppearance()));
  if (wanted == appearance_) return;
  appearance_ = wanted;
  emit changed();
}

void followTheme(QWidget& window) {
  const auto apply = [&window] {
    const ThemeColors& colors = Theme::shared().palette();
    window.setPalette(widgetPalette(colors));
    QPalette tip = QToolTip::palette();
    tip.setColor(QPalette::ToolTipBase, colors.raised);
    tip.setColor(QPalette::ToolTipText, colors.text);
    QToolTip::setPalette(tip);
    QToolTip::setFont(secondaryFont());
    window.update();
  };
  apply();
  // A menu may be styled once more with the menu it is part of.
  constexpr char followed[] = "velloraFollowsTheme";
  if (window.property(followed).toBool()) return;
  window.setProperty(followed, true);
  window.setFont(bodyFont());
  QObject::connect(&Theme::shared(), &Theme::changed, &window, apply);
}

}  // namespace vellora
