#pragma once

#include <optional>

#include <QColor>
#include <QObject>

class QWidget;

namespace vellora {

enum class Appearance { Light, Dark };

/// The colours of one appearance. Everything drawn takes its colour from here.
struct ThemeColors {
  QColor surface;  ///< window content
  QColor raised;   ///< floating panels, menus, cards
  QColor sunken;   ///< sidebars, canvases, wells
  QColor text;
  QColor secondaryText;
  QColor disabledText;
  QColor line;    ///< hairlines and borders
  QColor accent;  ///< selection, focus ring, links
  QColor record;
  QColor success;
  QColor warning;
  QColor accentFill;  ///< ground of a primary button or a switch that is on; `onFill` is readable on it
  QColor dangerFill;  ///< ground of a button that destroys; `onFill` is readable on it
  QColor onFill;
  QColor errorText;      ///< `record`, dark or light enough to be read as text
  QColor hover;          ///< laid over any ground under the pointer
  QColor pressed;        ///< laid over any ground while it is pressed
  QColor selection;      ///< ground of the chosen row
  QColor controlBorder;  ///< border of fields, buttons and switches that are off
};

/// Light or dark, and who decides: an override, else what the desktop told, else the lightness of the application
/// palette. One for the program, made on first use; main thread.
class Theme final : public QObject {
  Q_OBJECT

 public:
  static Theme& shared();

  Appearance appearance() const { return appearance_; }
  const ThemeColors& palette() const { return palette(appearance_); }
  static const ThemeColors& palette(Appearance appearance);

  /// Holds one appearance, whatever the desktop says; nothing follows the desktop again.
  void setAppearanceOverride(std::optional<Appearance> appearance);
  std::optional<Appearance> appearanceOverride() const { return override_; }
  /// What the desktop's settings service told; nothing when there is none or it has no preference.
  void setDesktopAppearance(std::optional<Appearance> appearance);

  /// Whether motion is to be left out.
  bool reducedMotion() const;
  /// What the desktop's settings service told; nothing falls back to the widget style's animation hint.
  void setReducedMotion(std::optional<bool> reduced) { reducedMotion_ = reduced; }

 signals:
  /// The palette is another one. Widgets of the kit repaint by themselves.
  void changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Theme();
  void refresh();

  Appearance appearance_ = Appearance::Light;
  std::optional<Appearance> override_;
  std::optional<Appearance> desktop_;
  std::optional<bool> reducedMotion_;
};

/// Gives a window and the standard widgets in it the theme's palette and the body font, now and at every change.
void followTheme(QWidget& window);

}  // namespace vellora
