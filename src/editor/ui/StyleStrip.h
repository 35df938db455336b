#pragma once

#include <functional>
#include <vector>

#include "editor/ui/StyleSection.h"

namespace vellora {

class ColorButton;
class IconButton;

/// The style controls in the middle of the bar: those of what is selected, else of the tool. Where there is little room
/// they fold, one part after the other, into buttons that open them.
class StyleStrip final : public QWidget {
  Q_OBJECT

 public:
  /// How far the strip is folded; each fold includes those before it.
  enum Fold { Open, WidthFolded, ColorsFolded, SwitchesFolded };

  StyleStrip(StyleContext& context, QWidget* parent);

  /// Shows the style of the moment; what the strip needs may be another width afterwards.
  void refresh();

  /// What the strip needs in a fold, in points.
  int widthIn(Fold fold) const;
  /// Shows itself folded so and takes the width it needs.
  void setFold(Fold fold);

 private:
  struct Part {
    StyleSection* section;  // the widgets are owned by Qt
    Fold first;             ///< the part shows in the folds from this one…
    Fold last;              ///< … to this one
    bool applies = false;
  };
  void add(StyleSection* section, Fold first, Fold last);
  void openColors();
  void openSwitches();
  bool shows(const Part& part, Fold fold) const;

  StyleContext& context_;
  std::vector<Part> parts_;
  ColorButton* colors_;
  IconButton* switches_;
  bool colorApplies_ = false;
  bool switchesApply_ = false;
};

}  // namespace vellora
