#include "editor/ui/backdrop/BackgroundSection.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStandardPaths>

#include "editor/backdrop/BackdropPainter.h"
#include "editor/backdrop/BackdropPictures.h"
#include "editor/ui/backdrop/BackdropState.h"
#include "editor/ui/backdrop/GradientEditor.h"
#include "editor/ui/backdrop/TileButton.h"
#include "editor/ui/backdrop/TileGrid.h"
#include "kit/ColorSwatch.h"
#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr QSize pictureTile(40, 38);
constexpr QSize colorTile(28, 28);
constexpr double chequer = 5;

/// Keys in the order of curatedPictures, backdropGradientPresets() and backdropPresets.
constexpr const char* curatedKeys[] = {
    //% "Arc"
    QT_TRID_NOOP("backdrop.curated.arc"),
    //% "Haze"
    QT_TRID_NOOP("backdrop.curated.haze"),
    //% "Lavender"
    QT_TRID_NOOP("backdrop.curated.lavender"),
    //% "Ember"
    QT_TRID_NOOP("backdrop.curated.ember"),
    //% "Moss"
    QT_TRID_NOOP("backdrop.curated.moss"),
    //% "Lagoon"
    QT_TRID_NOOP("backdrop.curated.lagoon"),
    //% "Sky"
    QT_TRID_NOOP("backdrop.curated.sky"),
};

constexpr const char* gradientKeys[] = {
    //% "Dawn"
    QT_TRID_NOOP("backdrop.gradient.dawn"),
    //% "Peach"
    QT_TRID_NOOP("backdrop.gradient.peach"),
    //% "Coral"
    QT_TRID_NOOP("backdrop.gradient.coral"),
    //% "Dusk"
    QT_TRID_NOOP("backdrop.gradient.dusk"),
    //% "Iris"
    QT_TRID_NOOP("backdrop.gradient.iris"),
    //% "Indigo"
    QT_TRID_NOOP("backdrop.gradient.indigo"),
    //% "Ocean"
    QT_TRID_NOOP("backdrop.gradient.ocean"),
    //% "Mist"
    QT_TRID_NOOP("backdrop.gradient.mist"),
    //% "Mint"
    QT_TRID_NOOP("backdrop.gradient.mint"),
    //% "Forest"
    QT_TRID_NOOP("backdrop.gradient.forest"),
    //% "Slate"
    QT_TRID_NOOP("backdrop.gradient.slate"),
    //% "Night"
    QT_TRID_NOOP("backdrop.gradient.night"),
};

constexpr const char* colorKeys[] = {
    //% "White"
    QT_TRID_NOOP("backdrop.color.white"),
    //% "Gray"
    QT_TRID_NOOP("backdrop.color.gray"),
    //% "Black"
    QT_TRID_NOOP("backdrop.color.black"),
    //% "Blue"
    QT_TRID_NOOP("backdrop.color.blue"),
    //% "Purple"
    QT_TRID_NOOP("backdrop.color.purple"),
    //% "Pink"
    QT_TRID_NOOP("backdrop.color.pink"),
    //% "Red"
    QT_TRID_NOOP("backdrop.color.red"),
    //% "Orange"
    QT_TRID_NOOP("backdrop.color.orange"),
    //% "Green"
    QT_TRID_NOOP("backdrop.color.green"),
    //% "Teal"
    QT_TRID_NOOP("backdrop.color.teal"),
};

static_assert(std::size(curatedKeys) == curatedPictures.size() && std::size(colorKeys) == backdropPresets.size());

TileButton::Preview previewOf(const BackdropBackground& background) {
  return [background](QPainter& painter, const QRectF& rect) {
    paintChequers(painter, rect, chequer);
    BackdropPainter().drawBackground(painter, rect, background);
  };
}

}  // namespace

BackgroundSection::BackgroundSection(BackdropState& state, const ColorSampler& sampler, QWidget* parent)
    //% "Background"
    : PanelSection(qtTrId("backdrop.background"), parent), state_(state), sampler_(sampler) {
  addPictures();
  addGradients();
  add(new GradientEditor(state_, sampler_, this));
  addColors();
  connect(&state_, &BackdropState::shown, this, &BackgroundSection::refresh);
  refresh();
}

void BackgroundSection::offer(TileGrid& grid, const QString& title, const BackdropBackground& background) {
  TileButton* const tile = grid.addTile(title);
  tile->setPreview(previewOf(background));
  connect(tile, &QAbstractButton::clicked, this, [this, background] { choose(background); });
  backgrounds_.push_back(background);
  offers_.push_back(tile);
}

void BackgroundSection::addPictures() {
  auto* grid = new TileGrid(4, pictureTile, this);
  for (std::size_t i = 0; i < curatedPictures.size(); ++i) {
    offer(*grid, qtTrId(curatedKeys[i]), {BackdropBackground::BuiltInImage{QString::fromLatin1(curatedPictures[i])}});
  }
  //% "A picture of your own…"
  ownPicture_ = grid->addTile(qtTrId("backdrop.ownPicture"));
  ownPicture_->setIconName(QStringLiteral("folder"));
  connect(ownPicture_, &QAbstractButton::clicked, this, &BackgroundSection::choosePicture);
  add(grid);
}

void BackgroundSection::addGradients() {
  const auto& presets = backdropGradientPresets();
  auto* grid = new TileGrid(6, colorTile, this);
  for (std::size_t i = 0; i < presets.size() && i < std::size(gradientKeys); ++i) {
    offer(*grid, qtTrId(gradientKeys[i]), {presets[i].gradient});
  }
  add(grid, true);
}

void BackgroundSection::addColors() {
  auto* grid = new TileGrid(6, colorTile, this);
  for (std::size_t i = 0; i < backdropPresets.size(); ++i) {
    offer(*grid, qtTrId(colorKeys[i]), {BackdropBackground::Solid{backdropPresets[i].color}});
  }
  //% "Another color…"
  ownColor_ = grid->addTile(qtTrId("backdrop.ownColor"));
  connect(ownColor_, &QAbstractButton::clicked, this, &BackgroundSection::chooseColor);
  add(grid, true);
}

void BackgroundSection::choose(const BackdropBackground& background) {
  state_.change({}, [&](BackdropSettings& settings) { settings.background = background; });
  refresh();  // also when nothing changed: the click turned the tile's ring off
}

void BackgroundSection::choosePicture() {
  refresh();
  auto* dialog = new QFileDialog(window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);
  dialog->setFileMode(QFileDialog::ExistingFile);
  //% "Choose a background picture"
  dialog->setWindowTitle(qtTrId("backdrop.ownPicture.title"));
  //% "Pictures"
  dialog->setNameFilter(qtTrId("backdrop.ownPicture.filter") +
                        QStringLiteral(" (*.png *.jpg *.jpeg *.webp *.tif *.tiff *.bmp *.gif *.heic *.heif *.avif)"));
  const QString folder = shownPath_.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
                                              : QFileInfo(shownPath_).absolutePath();
  dialog->setDirectory(folder);
  connect(dialog, &QFileDialog::fileSelected, this, &BackgroundSection::usePicture);
  dialog->open();
}

void BackgroundSection::usePicture(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  pictures_.async([absolute, guard = QPointer(this)] {
    backdropPicture(absolute);  // from here on the painters find it without waiting
    QMetaObject::invokeMethod(
        qApp,
        [absolute, guard] {
          if (guard) guard->choose({BackdropBackground::Image{absolute}});
        },
        Qt::QueuedConnection);
  });
}

void BackgroundSection::chooseColor() {
  refresh();
  const auto* solid = std::get_if<BackdropBackground::Solid>(&state_.settings().background.value);
  openColorChooser(
      ownColor_, ownColor_->accessibleName(), solid != nullptr ? solid->color : backdropPresets[3].color, sampler_,
      [this](const ColorComponents& color) {
        state_.change(QStringLiteral("backdrop.color"), [&](BackdropSettings& settings) {
          settings.background.value = BackdropBackground::Solid{color};
        });
      },
      [this] { state_.finish(); });
}

void BackgroundSection::refresh() {
  const BackdropBackground& current = state_.settings().background;
  for (std::size_t i = 0; i < offers_.size(); ++i) {
    offers_[i]->setChecked(state_.settings().enabled && backgrounds_[i] == current);
  }
  refreshOwnPicture();
  refreshOwnColor();
}

void BackgroundSection::refreshOwnPicture() {
  const auto* image = std::get_if<BackdropBackground::Image>(&state_.settings().background.value);
  ownPicture_->setChecked(state_.settings().enabled && image != nullptr);
  if (image == nullptr || image->path == shownPath_) return;
  shownPath_ = image->path;
  // Reading may take long; the tile shows the picture when it is there.
  pictures_.async([path = shownPath_, guard = QPointer(this)] {
    const auto picture = backdropPicture(path);
    const QImage small =
        picture ? picture->scaled(pictureTile * 4, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation) : QImage();
    QMetaObject::invokeMethod(
        qApp,
        [path, small, guard] {
          if (!guard || guard->shownPath_ != path) return;
          if (small.isNull()) {
            guard->ownPicture_->setPreview({});
            return;
          }
          guard->ownPicture_->setPreview([small](QPainter& painter, const QRectF& rect) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            QRectF part(QPointF(0, 0), rect.size().scaled(small.size(), Qt::KeepAspectRatio));
            part.moveCenter(QRectF(small.rect()).center());
            painter.drawImage(rect, small, part);
          });
        },
        Qt::QueuedConnection);
  });
}

void BackgroundSection::refreshOwnColor() {
  const BackdropBackground& current = state_.settings().background;
  const auto* solid = std::get_if<BackdropBackground::Solid>(&current.value);
  const bool own = solid != nullptr && std::ranges::find(backgrounds_, current) == backgrounds_.end();
  ownColor_->setChecked(state_.settings().enabled && own);
  ownColor_->setIconName(own ? QString() : QStringLiteral("add"));
  ownColor_->setPreview(own ? previewOf(current) : TileButton::Preview());
}

}  // namespace vellora
