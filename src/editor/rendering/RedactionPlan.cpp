#include "editor/rendering/RedactionPlan.h"

#include <array>
#include <optional>

#include "editor/rendering/RenderGeometry.h"

namespace vellora {
namespace {

/// A colour with components 0 to 255.
struct Tone {
  double red = 0;
  double green = 0;
  double blue = 0;
};

constexpr Tone unknownTone{128, 128, 128};

Tone mixed(const Tone& a, const Tone& b, double weightOfB) {
  return {std::lerp(a.red, b.red, weightOfB), std::lerp(a.green, b.green, weightOfB),
          std::lerp(a.blue, b.blue, weightOfB)};
}

std::uint32_t packed(const Tone& tone) {
  const auto byte = [](double value) { return static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0)); };
  return 0xFF000000U | byte(tone.red) << 16 | byte(tone.green) << 8 | byte(tone.blue);
}

/// A colour of the document that may be used, by a bin of which the most frequent is sought.
struct Sample {
  std::uint32_t bin;
  Tone tone;
};

/// The average of the most frequent bin's samples; nothing without samples.
std::optional<Tone> prevailing(std::vector<Sample>& samples) {
  if (samples.empty()) return std::nullopt;
  std::ranges::sort(samples, {}, &Sample::bin);
  std::size_t bestBegin = 0;
  std::size_t bestCount = 0;
  for (std::size_t begin = 0; begin < samples.size();) {
    std::size_t end = begin;
    while (end < samples.size() && samples[end].bin == samples[begin].bin) ++end;
    if (end - begin > bestCount) {
      bestBegin = begin;
      bestCount = end - begin;
    }
    begin = end;
  }
  Tone sum;
  for (std::size_t i = bestBegin; i < bestBegin + bestCount; ++i) {
    sum = {sum.red + samples[i].tone.red, sum.green + samples[i].tone.green, sum.blue + samples[i].tone.blue};
  }
  const auto count = static_cast<double>(bestCount);
  return Tone{sum.red / count, sum.green / count, sum.blue / count};
}

/// 16 levels of each colour.
std::uint32_t fineBin(const Tone& tone) {
  const auto level = [](double value) { return static_cast<std::uint32_t>(value) >> 4; };
  return level(tone.red) << 8 | level(tone.green) << 4 | level(tone.blue);
}

/// 5 levels of brightness and of each colour difference (BT.601), and back.
struct CoarseTone {
  static constexpr double brightnessStep = 255.0 / 4;
  static constexpr double differenceStep = 48;

  static double difference(double value) { return std::clamp(std::round(value / differenceStep), -2.0, 2.0); }
  static std::array<double, 3> levels(const Tone& tone) {
    const double brightness = 0.299 * tone.red + 0.587 * tone.green + 0.114 * tone.blue;
    return {std::round(brightness / brightnessStep), difference((tone.blue - brightness) / 1.772),
            difference((tone.red - brightness) / 1.402)};
  }
  static std::uint32_t bin(const Tone& tone) {
    const auto [brightness, blue, red] = levels(tone);
    return static_cast<std::uint32_t>(brightness * 25 + (blue + 2) * 5 + (red + 2));
  }
  static Tone quantised(const Tone& tone) {
    const auto [level, blueLevel, redLevel] = levels(tone);
    const double brightness = level * brightnessStep;
    const double red = brightness + 1.402 * redLevel * differenceStep;
    const double blue = brightness + 1.772 * blueLevel * differenceStep;
    return {red, (brightness - 0.299 * red - 0.114 * blue) / 0.587, blue};
  }
};

/// Reads the document's pixels, and nothing of them that a redaction says not to.
class Surroundings {
 public:
  explicit Surroundings(std::span<const PieceView> pieces) : pieces_(pieces) {}

  /// The colour at a place of the topmost piece there; nothing outside of pieces, where a piece shows nothing, and
  /// where the pixel touches one of `forbidden`.
  std::optional<Tone> at(Point place, std::span<const Rect> forbidden) const {
    for (std::size_t i = pieces_.size(); i-- > 0;) {
      const PieceView& piece = pieces_[i];
      const double column = std::floor((place.x - piece.frame.minX()) / piece.stepX);
      const double row = std::floor((place.y - piece.frame.minY()) / piece.stepY);
      if (!(column >= 0 && row >= 0 && column < piece.pixels.width() && row < piece.pixels.height())) continue;
      const Rect pixel{{piece.frame.minX() + column * piece.stepX, piece.frame.minY() + row * piece.stepY},
                       {piece.stepX, piece.stepY}};
      if (std::ranges::any_of(forbidden, [&](const Rect& rect) { return meet(rect, pixel); })) return std::nullopt;
      const auto tone = toneOf(piece.pixels, static_cast<int>(column), static_cast<int>(row));
      if (tone) return tone;
    }
    return std::nullopt;
  }

 private:
  static std::optional<Tone> toneOf(const Bitmap& pixels, int column, int row) {
    const std::byte* bytes = pixels.pixel(column, row);
    const auto component = [&](int index) { return static_cast<double>(std::to_integer<int>(bytes[index])); };
    if (pixels.alpha() == PixelAlpha::Opaque) return Tone{component(2), component(1), component(0)};
    const double alpha = component(3);
    if (alpha < 128) return std::nullopt;
    const auto plain = [&](int index) { return std::min(component(index) * 255 / alpha, 255.0); };
    return Tone{plain(2), plain(1), plain(0)};
  }

  std::span<const PieceView> pieces_;
};

/// The colours along the border of an area, outside every redaction.
class Border {
 public:
  static constexpr double depth = 4;  ///< how far from the area colours are taken, in points

  Border(const Surroundings& surroundings, const Rect& area, std::span<const Rect> forbidden, int samplesASide) {
    constexpr int partsASide = 4;
    const int samplesAPart = std::max(samplesASide / partsASide, 4);
    std::vector<Sample> all;
    const auto addPart = [&](Point from, Point to, Point outward) {
      std::vector<Sample> samples;
      for (int i = 0; i < samplesAPart; ++i) {
        const double along = (i + 0.5) / samplesAPart;
        for (const double away : {0.3, 0.6, 1.0}) {
          const Point place{std::lerp(from.x, to.x, along) + outward.x * away,
                            std::lerp(from.y, to.y, along) + outward.y * away};
          if (const auto tone = surroundings.at(place, forbidden)) samples.push_back({fineBin(*tone), *tone});
        }
      }
      all.insert(all.end(), samples.begin(), samples.end());
      const auto tone = prevailing(samples);
      if (tone) anchors_.push_back({{(from.x + to.x) / 2, (from.y + to.y) / 2}, *tone});
    };
    for (int part = 0; part < partsASide; ++part) {
      const double left = area.minX() + area.size.width * part / partsASide;
      const double right = area.minX() + area.size.width * (part + 1) / partsASide;
      const double top = area.minY() + area.size.height * part / partsASide;
      const double bottom = area.minY() + area.size.height * (part + 1) / partsASide;
      addPart({left, area.minY()}, {right, area.minY()}, {0, -depth});
      addPart({left, area.maxY()}, {right, area.maxY()}, {0, depth});
      addPart({area.minX(), top}, {area.minX(), bottom}, {-depth, 0});
      addPart({area.maxX(), top}, {area.maxX(), bottom}, {depth, 0});
    }
    prevailing_ = prevailing(all);
  }

  /// The one colour that prevails along the whole border; nothing when all of it is hidden or there is none.
  const std::optional<Tone>& prevailingTone() const { return prevailing_; }

  /// The border's colours, the nearer the stronger.
  Tone spreadAt(Point place) const {
    Tone sum;
    double weights = 0;
    for (const Anchor& anchor : anchors_) {
      const double dx = anchor.place.x - place.x;
      const double dy = anchor.place.y - place.y;
      const double weight = 1 / (dx * dx + dy * dy + 1);
      sum = {sum.red + weight * anchor.tone.red, sum.green + weight * anchor.tone.green,
             sum.blue + weight * anchor.tone.blue};
      weights += weight;
    }
    if (weights <= 0) return unknownTone;
    return {sum.red / weights, sum.green / weights, sum.blue / weights};
  }

 private:
  struct Anchor {
    Point place;
    Tone tone;
  };
  std::vector<Anchor> anchors_;
  std::optional<Tone> prevailing_;
};

/// What a mosaic tells of the pixels it hides: nothing for most fields, a coarse tone for some.
class Fields {
 public:
  Fields(const Surroundings& surroundings, const Rect& area, const Border& border, std::span<const Rect> forbidden,
         int samplesASide) {
    constexpr double smallest = 64;
    constexpr int mostAlong = 32;
    const double edge = std::max({smallest, std::min(area.size.width, area.size.height),
                                  std::max(area.size.width, area.size.height) / mostAlong});
    // Hands are not exact: the rim of an area often shows what lies around it.
    const Rect inner = grown(area, -0.08 * std::min(area.size.width, area.size.height));
    columns_ = std::max(static_cast<int>(area.size.width / edge), 1);
    rows_ = std::max(static_cast<int>(area.size.height / edge), 1);
    for (int row = 0; row < rows_; ++row) {
      for (int column = 0; column < columns_; ++column) {
        const Size size{inner.size.width / columns_, inner.size.height / rows_};
        const Rect field{{inner.minX() + column * size.width, inner.minY() + row * size.height}, size};
        tones_.push_back(toneOf(surroundings, field, border, forbidden, samplesASide));
      }
    }
  }

  /// The tone at a place given as fractions of the area; nothing where the border's colours hold.
  const std::optional<Tone>& at(double x, double y) const {
    const int column = std::min(static_cast<int>(x * columns_), columns_ - 1);
    const int row = std::min(static_cast<int>(y * rows_), rows_ - 1);
    return tones_[static_cast<std::size_t>(row * columns_ + column)];
  }

 private:
  static std::optional<Tone> toneOf(const Surroundings& surroundings, const Rect& field, const Border& border,
                                    std::span<const Rect> forbidden, int samplesASide) {
    constexpr double nearby = 48;
    constexpr double enough = 0.45;
    std::vector<Sample> samples;
    std::size_t asExpected = 0;
    for (int row = 0; row < samplesASide; ++row) {
      for (int column = 0; column < samplesASide; ++column) {
        const Point place{field.minX() + field.size.width * (column + 0.5) / samplesASide,
                          field.minY() + field.size.height * (row + 0.5) / samplesASide};
        const auto tone = surroundings.at(place, forbidden);
        if (!tone) continue;
        samples.push_back({CoarseTone::bin(*tone), *tone});
        const Tone expected = border.spreadAt(place);
        if (std::abs(tone->red - expected.red) <= nearby && std::abs(tone->green - expected.green) <= nearby &&
            std::abs(tone->blue - expected.blue) <= nearby) {
          ++asExpected;
        }
      }
    }
    if (border.prevailingTone() && static_cast<double>(asExpected) >= enough * static_cast<double>(samples.size())) {
      return std::nullopt;
    }
    const auto tone = prevailing(samples);
    if (!tone) return std::nullopt;
    return CoarseTone::quantised(*tone);
  }

  int columns_ = 1;
  int rows_ = 1;
  std::vector<std::optional<Tone>> tones_;
};

/// A well-mixed number (the finaliser of SplitMix64).
std::uint64_t scrambled(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15U;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

CellGrid mosaic(const Annotation& annotation, const Rect& area, const Border& border, const Fields& fields) {
  constexpr double smallestCell = 8;
  constexpr double cellRange = 20;
  constexpr int mostCells = 160;
  constexpr double noiseShare = 0.16;
  constexpr double tint = 36;  // how far the noise strays from grey
  const double strength = annotation.blurStrength >= 0 ? std::min(annotation.blurStrength, 1.0) : 0;
  const double edge = smallestCell + cellRange * strength;
  const auto count = [&](double length) {
    return static_cast<int>(std::clamp(std::round(length / edge), 1.0, static_cast<double>(mostCells)));
  };
  CellGrid grid{area, count(area.size.width), count(area.size.height), {}};
  for (int row = 0; row < grid.rows; ++row) {
    for (int column = 0; column < grid.columns; ++column) {
      const double x = (column + 0.5) / grid.columns;
      const double y = (row + 0.5) / grid.rows;
      Tone tone = border.spreadAt({area.minX() + area.size.width * x, area.minY() + area.size.height * y});
      if (const auto& own = fields.at(x, y)) tone = mixed(tone, *own, border.prevailingTone() ? 0.8 : 1);
      const std::uint64_t noise =
          scrambled(annotation.sketchSeed ^ scrambled(static_cast<std::uint64_t>(row) << 32 | column));
      const auto part = [&](int shift) { return static_cast<double>(noise >> shift & 0xFF); };
      const double grey = part(0);
      const auto tinted = [&](int shift) { return grey + tint * (part(shift) / 128 - 1); };
      tone = mixed(tone, {tinted(8), tinted(16), tinted(24)}, noiseShare);
      grid.cells.push_back(packed(tone));
    }
  }
  return grid;
}

Tone chosenTone(const ColorComponents& color) {
  const auto component = [](double value) { return value > 0 ? std::min(value, 1.0) * 255 : 0; };
  return {component(color.red), component(color.green), component(color.blue)};
}

/// `near`: all redactions around the area, itself among them.
CellGrid gridOf(const Annotation& annotation, const Surroundings& surroundings, std::span<const AnnotationPtr> near,
                bool few) {
  const Rect area = spannedRect(annotation);
  const bool isErased = annotation.blurStyle == BlurStyle::Erase;
  if (isErased && annotation.eraseFillColor) return {area, 1, 1, {packed(chosenTone(*annotation.eraseFillColor))}};
  std::vector<Rect> redacted;
  std::vector<Rect> erased;
  for (const AnnotationPtr& other : near) {
    redacted.push_back(spannedRect(*other));
    if (other->blurStyle == BlurStyle::Erase) erased.push_back(spannedRect(*other));
  }
  const Border border(surroundings, area, redacted, few ? 96 : 16);
  if (isErased) return {area, 1, 1, {packed(border.prevailingTone().value_or(unknownTone))}};
  return mosaic(annotation, area, border, Fields(surroundings, area, border, erased, few ? 40 : 12));
}

bool sameView(const PieceView& a, const PieceView& b) {
  return a.pixels.row(0) == b.pixels.row(0) && a.pixels.size() == b.pixels.size() &&
         a.pixels.alpha() == b.pixels.alpha() && a.frame == b.frame;
}

}  // namespace

std::vector<Redaction> RedactionPlanner::plan(std::span<const PieceView> pieces,
                                              std::span<const AnnotationPtr> annotations) {
  std::vector<Redaction> plan;
  for (const AnnotationPtr& annotation : annotations) {
    if (isRedaction(*annotation) && isPlausible(spannedRect(*annotation))) plan.push_back({annotation, nullptr});
  }
  // Thousands of overlapping redactions are no person's work and must not take minutes: they get colours of their own.
  constexpr std::size_t mostExamined = 1000;
  const Surroundings surroundings(plan.size() <= mostExamined ? pieces : std::span<const PieceView>());
  const bool few = plan.size() <= 64;
  if (few != few_ || known_.size() > 4 * plan.size() + 64 || !std::ranges::equal(pieces, pieces_, sameView)) {
    known_.clear();
    few_ = few;
    pieces_.assign(pieces.begin(), pieces.end());
  }
  double pixelEdge = 0;
  for (const PieceView& piece : pieces) pixelEdge = std::max({pixelEdge, piece.stepX, piece.stepY});

  for (Redaction& redaction : plan) {
    const Rect area = spannedRect(*redaction.annotation);
    std::vector<AnnotationPtr> near;
    for (const Redaction& other : plan) {
      const bool counts = meet(spannedRect(*other.annotation), grown(area, Border::depth + pixelEdge));
      if (counts && plan.size() <= mostExamined) near.push_back(other.annotation);
    }
    Known& known = known_[redaction.annotation];
    if (!known.grid || known.near != near) {
      known = {near, std::make_shared<CellGrid>(gridOf(*redaction.annotation, surroundings, near, few))};
    }
    redaction.grid = known.grid;
  }
  return plan;
}

}  // namespace vellora
