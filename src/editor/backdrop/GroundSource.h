#pragma once

#include <memory>

#include <QImage>
#include <QString>

#include "editor/BackdropSettings.h"
#include "editor/backdrop/Rgba.h"
#include "editor/backdrop/SmoothGrid.h"

namespace vellora {

/// A background at one size: gives its pixels row by row, before anything is laid over it.
class GroundSource {
 public:
  virtual ~GroundSource() = default;
  /// Writes the `count` pixels that begin at `x` of row `y`.
  virtual void row(int x, int y, int count, Rgba* target) = 0;
  virtual bool isOpaque() const = 0;
};

/// Makes backgrounds and keeps what was costly of the last one: a curated picture's field, a person's picture in the
/// size needed. One thread at a time.
class GroundSources {
 public:
  /// The background for a document of `size` pixels. What cannot be shown becomes the default grey.
  std::unique_ptr<GroundSource> make(const BackdropBackground& background, PixelSize size);

 private:
  std::shared_ptr<const SmoothGrid<Rgba>> curated(const QString& identifier, PixelSize size);
  std::shared_ptr<const QImage> picture(const QString& path, PixelSize size);

  QString curatedKey_;
  std::shared_ptr<const SmoothGrid<Rgba>> curated_;
  QString picturePath_;
  std::shared_ptr<const QImage> picture_;
  std::shared_ptr<const QImage> reduced_;
};

}  // namespace vellora
