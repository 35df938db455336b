#include "editor/backdrop/GroundSource.h"

#include <array>
#include <cmath>

#include "editor/backdrop/BackdropPictures.h"
#include "editor/backdrop/CuratedPictures.h"
#include "editor/backdrop/OkLab.h"

namespace vellora {
namespace {

class SolidSource final : public GroundSource {
 public:
  explicit SolidSource(const ColorComponents& color) : color_(premultiplied(color)), opaque_(color.alpha >= 1) {}
  void row(int, int, int count, Rgba* target) override { std::fill_n(target, count, color_); }
  bool isOpaque() const override { return opaque_; }

 private:
  Rgba color_;
  bool opaque_;
};

/// A gradient from corner to corner along its angle, blended in OKLab.
class GradientSource final : public GroundSource {
 public:
  GradientSource(const BackdropBackground::Gradient& gradient, PixelSize size) {
    for (const GradientStop& stop : gradient.stops) opaque_ = opaque_ && stop.color.alpha >= 1;
    fillRamp(gradient.stops);
    const double angle = gradient.angle * M_PI / 180;
    const double length = std::abs(size.width * std::cos(angle)) + std::abs(size.height * std::sin(angle));
    stepX_ = std::cos(angle) / length;
    stepY_ = std::sin(angle) / length;
    start_ = 0.5 - (size.width / 2.0 - 0.5) * stepX_ - (size.height / 2.0 - 0.5) * stepY_;
  }

  void row(int x, int y, int count, Rgba* target) override {
    const double first = (start_ + stepX_ * x + stepY_ * y) * (steps - 1);
    const double step = stepX_ * (steps - 1);
    for (int i = 0; i < count; ++i) {
      const auto place = static_cast<float>(std::clamp(first + step * i, 0.0, steps - 1.001));
      const auto index = static_cast<std::size_t>(place);
      const Rgba& from = ramp_[index];
      target[i] = from + (ramp_[index + 1] - from) * (place - static_cast<float>(index));
    }
  }
  bool isOpaque() const override { return opaque_; }

 private:
  static constexpr int steps = 512;

  void fillRamp(const std::vector<GradientStop>& stops) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < ramp_.size(); ++i) {
      const double place = static_cast<double>(i) / (steps - 1);
      while (next < stops.size() && stops[next].position <= place) ++next;
      const GradientStop& from = stops[next == 0 ? 0 : next - 1];
      const GradientStop& to = stops[std::min(next, stops.size() - 1)];
      const double span = to.position - from.position;
      const auto part = static_cast<float>(span > 0 ? std::clamp((place - from.position) / span, 0.0, 1.0) : 0.0);
      const Rgba opaque = toRgba(mix(toOkLab(from.color), toOkLab(to.color), part));
      const double alpha = from.color.alpha + (to.color.alpha - from.color.alpha) * static_cast<double>(part);
      ramp_[i] = opaque * static_cast<float>(alpha);
    }
  }

  std::array<Rgba, steps> ramp_;
  bool opaque_ = true;
  double start_;
  double stepX_;
  double stepY_;
};

/// A soft field stretched over the document.
class FieldSource final : public GroundSource {
 public:
  FieldSource(std::shared_ptr<const SmoothGrid<Rgba>> field, PixelSize size)
      : field_(std::move(field)),
        stepX_(static_cast<double>(field_->columns() - 1) / size.width),
        stepY_(static_cast<double>(field_->rows() - 1) / size.height) {}

  void row(int x, int y, int count, Rgba* target) override {
    field_->sampleRow((x + 0.5) * stepX_, (y + 0.5) * stepY_, stepX_, count, line_,
                      [target](int i, const Rgba& value) { target[i] = value; });
  }
  bool isOpaque() const override { return true; }

 private:
  std::shared_ptr<const SmoothGrid<Rgba>> field_;
  double stepX_;
  double stepY_;
  std::vector<Rgba> line_;
};

/// A picture that covers the document, cut where it is too wide or too high.
class PictureSource final : public GroundSource {
 public:
  PictureSource(std::shared_ptr<const QImage> picture, PixelSize size)
      : picture_(std::move(picture)), opaque_(!picture_->hasAlphaChannel()) {
    const double scale = std::max(static_cast<double>(size.width) / picture_->width(),
                                  static_cast<double>(size.height) / picture_->height());
    step_ = 1 / scale;
    left_ = (picture_->width() - size.width * step_) / 2 + step_ / 2 - 0.5;
    top_ = (picture_->height() - size.height * step_) / 2 + step_ / 2 - 0.5;
  }

  void row(int x, int y, int count, Rgba* target) override {
    const int lastX = picture_->width() - 1;
    const int lastY = picture_->height() - 1;
    const double v = std::clamp(top_ + step_ * y, 0.0, static_cast<double>(lastY));
    const int upper = static_cast<int>(v);
    const uchar* above = picture_->constScanLine(upper);
    const uchar* below = picture_->constScanLine(std::min(upper + 1, lastY));
    const auto down = static_cast<float>(v - upper);
    for (int i = 0; i < count; ++i) {
      const double u = std::clamp(left_ + step_ * (x + i), 0.0, static_cast<double>(lastX));
      const int column = static_cast<int>(u);
      const int next = std::min(column + 1, lastX);
      const auto across = static_cast<float>(u - column);
      const Rgba left = Rgba::fromPixel(above + column * 4) * (1 - down) + Rgba::fromPixel(below + column * 4) * down;
      const Rgba right = Rgba::fromPixel(above + next * 4) * (1 - down) + Rgba::fromPixel(below + next * 4) * down;
      target[i] = left + (right - left) * across;
      if (opaque_) target[i].setAlpha(255);
    }
  }
  bool isOpaque() const override { return opaque_; }

 private:
  std::shared_ptr<const QImage> picture_;
  bool opaque_;
  double step_;
  double left_;
  double top_;
};

}  // namespace

std::unique_ptr<GroundSource> GroundSources::make(const BackdropBackground& background, PixelSize size) {
  if (const auto* solid = std::get_if<BackdropBackground::Solid>(&background.value)) {
    return std::make_unique<SolidSource>(solid->color);
  }
  if (const auto* gradient = std::get_if<BackdropBackground::Gradient>(&background.value)) {
    if (!gradient->stops.empty()) return std::make_unique<GradientSource>(*gradient, size);
  }
  if (const auto* image = std::get_if<BackdropBackground::Image>(&background.value)) {
    if (auto found = picture(image->path, size)) return std::make_unique<PictureSource>(std::move(found), size);
  }
  if (const auto* builtIn = std::get_if<BackdropBackground::BuiltInImage>(&background.value)) {
    if (auto field = curated(builtIn->identifier, size)) return std::make_unique<FieldSource>(std::move(field), size);
  }
  return std::make_unique<SolidSource>(backdropPresets[1].color);
}

std::shared_ptr<const SmoothGrid<Rgba>> GroundSources::curated(const QString& identifier, PixelSize size) {
  const PixelSize nodes = curatedPictureNodes(size);
  // Shapes that differ by less than a pixel in a thousand share a field.
  const QString key = QStringLiteral("%1 %2 %3 %4")
                          .arg(identifier)
                          .arg(nodes.width)
                          .arg(nodes.height)
                          .arg(std::lround(1000.0 * size.width / size.height));
  if (key != curatedKey_) {
    auto field = curatedPicture(identifier, size);
    curated_ = field ? std::make_shared<const SmoothGrid<Rgba>>(std::move(*field)) : nullptr;
    curatedKey_ = key;
  }
  return curated_;
}

std::shared_ptr<const QImage> GroundSources::picture(const QString& path, PixelSize size) {
  if (path != picturePath_ || !picture_) {
    picture_ = backdropPicture(path);
    reduced_ = nullptr;
    picturePath_ = path;
  }
  if (!picture_) return nullptr;
  // Sampling skips pixels when a picture is made much smaller: then it is halved first, as often as needed.
  int factor = 1;
  while (picture_->width() >= size.width * factor * 2 && picture_->height() >= size.height * factor * 2) factor *= 2;
  if (factor == 1) return picture_;
  const QSize wanted = picture_->size() / factor;
  if (!reduced_ || reduced_->size() != wanted) {
    const QImage small =
        picture_->scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(picture_->format());
    if (small.isNull()) return picture_;
    reduced_ = std::make_shared<const QImage>(small);
  }
  return reduced_;
}

}  // namespace vellora
