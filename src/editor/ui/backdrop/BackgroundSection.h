#pragma once

#include <vector>

#include "base/SerialQueue.h"
#include "editor/ui/backdrop/ColorPopover.h"
#include "editor/ui/backdrop/PanelSection.h"

namespace vellora {

class BackdropState;
class TileButton;
class TileGrid;
struct BackdropBackground;

/// Chooses what a backdrop is painted with: curated pictures, a picture of the person's own, gradients, colours.
class BackgroundSection final : public PanelSection {
  Q_OBJECT

 public:
  BackgroundSection(BackdropState& state, const ColorSampler& sampler, QWidget* parent = nullptr);

  /// Makes the picture at `path` the background, once it was read on another thread.
  void usePicture(const QString& path);

 private:
  void addPictures();
  void addGradients();
  void addColors();
  /// A tile that offers `background`.
  void offer(TileGrid& grid, const QString& title, const BackdropBackground& background);
  void choose(const BackdropBackground& background);
  void choosePicture();
  void chooseColor();
  void refresh();
  void refreshOwnPicture();
  void refreshOwnColor();

  BackdropState& state_;
  const ColorSampler& sampler_;
  std::vector<BackdropBackground> backgrounds_;
  std::vector<TileButton*> offers_;  ///< one for each background; owned by Qt
  TileButton* ownPicture_ = nullptr;
  TileButton* ownColor_ = nullptr;
  QString shownPath_;
  SerialQueue pictures_{"dev.orlo.vellora.backdrop-picture"};
};

}  // namespace vellora
