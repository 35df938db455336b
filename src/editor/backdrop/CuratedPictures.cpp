#include "editor/backdrop/CuratedPictures.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

#include "editor/backdrop/OkLab.h"

namespace vellora {
namespace {

/// A place in a picture: x and y from 0 to 1 over its width and height.
struct Place {
  float x;
  float y;
};

/// A colour that gathers around a place.
struct Patch {
  Place center;
  float reach;
  OkLab color;
};

/// The greatest whole number not above `value`.
float wholePart(float value) {
  const auto cut = static_cast<float>(static_cast<int>(value));
  return cut > value ? cut - 1 : cut;
}

float smooth(float from, float to, float value) {
  const float t = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
  return t * t * (3 - 2 * t);
}

/// e to the power of -x for x from 0, to about one part in ten thousand.
float decay(float x) {
  const float power = std::min(x, 80.0F) * -1.44269504F;
  const int whole = static_cast<int>(power) - 1;
  const float part = power - static_cast<float>(whole);
  const float fraction = 1 + part * (0.6959285F + part * (0.2249463F + part * 0.0791252F));
  return std::bit_cast<float>(static_cast<std::uint32_t>(whole + 127) << 23) * fraction;
}

/// The sine of `turns` whole turns, to about one part in a thousand.
float wave(float turns) {
  const float part = turns - wholePart(turns + 0.5F);
  const float parabola = part * (8 - 16 * std::abs(part));
  return parabola * (0.775F + 0.225F * std::abs(parabola));
}

float length(float x, float y) {
  return std::sqrt(x * x + y * y);
}

float bell(float distance, float reach) {
  const float t = distance / reach;
  return decay(t * t);
}

OkLab lighter(OkLab color, float amount) {
  color.lightness += amount;
  return color;
}

/// The patches' colours, each the stronger the nearer.
OkLab blended(std::span<const Patch> patches, Place p) {
  OkLab sum;
  float weights = 1e-6F;
  for (const Patch& patch : patches) {
    const float dx = (p.x - patch.center.x) / patch.reach;
    const float dy = (p.y - patch.center.y) / patch.reach;
    const float distance = dx * dx + dy * dy + 0.06F;
    const float weight = 1 / (distance * distance);
    sum = sum + patch.color * weight;
    weights += weight;
  }
  return sum * (1 / weights);
}

float randomAt(int x, int y) {
  auto h = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(y) * 0x85EBCA77U;
  h = (h ^ (h >> 15)) * 0x2C1B3C6DU;
  h = (h ^ (h >> 12)) * 0x297A2D39U;
  return static_cast<float>((h ^ (h >> 15)) >> 8) / 16777216.0F;
}

/// Random values at whole places, smooth between them; 0 to 1.
float valueNoise(float x, float y) {
  const float left = wholePart(x);
  const float top = wholePart(y);
  const int i = static_cast<int>(left);
  const int j = static_cast<int>(top);
  const auto ease = [](float t) { return t * t * t * (t * (t * 6 - 15) + 10); };
  const float u = ease(x - left);
  const float v = ease(y - top);
  const float above = randomAt(i, j) * (1 - u) + randomAt(i + 1, j) * u;
  const float below = randomAt(i, j + 1) * (1 - u) + randomAt(i + 1, j + 1) * u;
  return above * (1 - v) + below * v;
}

/// Noise on noise, each half as large and half as strong; 0 to 1.
float clouds(float x, float y, int layers) {
  float sum = 0;
  float strength = 0.5F;
  for (int i = 0; i < layers; ++i) {
    sum += strength * valueNoise(x, y);
    // Turned from layer to layer, so that the lattice does not show.
    const float nextX = 1.6F * x + 1.2F * y + 17.3F;
    y = -1.2F * x + 1.6F * y + 5.7F;
    x = nextX;
    strength /= 2;
  }
  return sum;
}

/// The place moved along slow waves: what makes straight fields flow. `phase` in turns.
Place flowing(Place p, float amount, float frequency, float phase) {
  const float x = p.x + amount * wave(frequency * p.y + phase) +
                  amount * 0.5F * wave(frequency * 1.7F * (p.x + p.y) + 2.1F * phase);
  const float y = p.y + amount * wave(frequency * 0.9F * p.x + 1.7F * phase) +
                  amount * 0.5F * wave(frequency * 1.4F * (p.x - p.y) + phase);
  return {x, y};
}

/// Folds of cloth: bright ridges and soft valleys across `direction`, a unit vector; 0 to 1.
float folds(Place p, float count, Place direction, float phase) {
  const Place q = flowing(p, 0.09F, 0.8F, phase);
  const float along = q.x * direction.x + q.y * direction.y;
  const float across = 0.35F * wave(0.65F * (q.x * direction.y - q.y * direction.x) + phase);
  const float ridge = 0.5F + 0.5F * wave(along * count + across);
  return ridge * ridge * (0.6F + 0.4F * ridge);
}

/// The rim of a great sphere in the last light.
OkLab arc(Place p, float aspect) {
  static const OkLab night = okLab(0x0E1030);
  static const OkLab dusk = okLab(0x2F2A7A);
  static const OkLab violet = okLab(0x8A4FC9);
  static const OkLab rose = okLab(0xF0799A);
  static const OkLab gold = okLab(0xFFD9A0);
  static const OkLab body = okLab(0x0B0A20);
  const float shape = std::max(aspect, 1.0F);
  const float x = (p.x - 0.42F) * std::min(shape, 2.2F);
  const float radius = 1.55F;
  const float y = p.y - 0.70F - radius;
  const float height = std::sqrt(x * x + y * y) - radius;
  const float side = bell(x, 1.1F);
  OkLab sky = mix(dusk, night, smooth(0.05F, 0.75F, height));
  sky = mix(sky, violet, 0.85F * decay(std::max(height, 0.0F) * 5.2F) * (0.35F + 0.65F * side));
  sky = mix(sky, rose, 0.95F * decay(std::max(height, 0.0F) * 11.0F) * side);
  sky = mix(sky, gold, 0.95F * decay(std::max(height, 0.0F) * 30.0F) * side * side);
  OkLab ground = mix(body, violet, 0.42F * decay(std::max(-height, 0.0F) * 9.0F) * side);
  ground = mix(ground, rose, 0.35F * decay(std::max(-height, 0.0F) * 34.0F) * side);
  return mix(ground, sky, smooth(-0.012F, 0.010F, height));
}

/// Morning mist over pale hills.
OkLab haze(Place p, float aspect) {
  static const OkLab far = okLab(0xA9B4D6);
  static const OkLab near = okLab(0x7F88B5);
  static const OkLab sunlight = okLab(0xFFF8EA);
  static const std::array<Patch, 5> air{{{{0.10F, 0.02F}, 0.9F, okLab(0xDCE8F5)},
                                         {{0.82F, 0.12F}, 0.8F, okLab(0xFFF1DC)},
                                         {{0.95F, 0.62F}, 0.7F, okLab(0xF7D3CB)},
                                         {{0.05F, 0.75F}, 0.8F, okLab(0xC9D3EA)},
                                         {{0.50F, 1.05F}, 0.8F, okLab(0xB9C3DE)}}};
  OkLab color = blended(air, flowing(p, 0.03F, 0.7F, 0.10F));
  const float stretch = std::clamp(aspect, 0.6F, 2.2F);
  for (int i = 0; i < 4; ++i) {
    const auto layer = static_cast<float>(i);
    const float frequency = (0.9F + 0.55F * layer) * stretch;
    const float crest = 0.56F + 0.125F * layer -
                        (0.17F - 0.015F * layer) * valueNoise(p.x * frequency * 1.5F + 11.7F * layer + 3.1F, layer) -
                        0.02F * wave(p.x * frequency * 0.8F + 0.32F * layer);
    const float depth = p.y - crest;
    // A hill is darkest at its crest and dissolves into the mist at its foot.
    const float body = smooth(-0.006F, 0.012F, depth) * decay(std::max(depth, 0.0F) * 5.5F);
    color = mix(color, mix(far, near, layer / 3), (0.30F + 0.11F * layer) * body);
  }
  const float sun = bell(length((p.x - 0.78F) * stretch, p.y - 0.20F), 0.42F);
  return mix(color, sunlight, 0.55F * sun);
}

/// Silk in violet light.
OkLab lavender(Place p, float aspect) {
  static const std::array<Patch, 6> cloth{{{{0.00F, 0.00F}, 0.8F, okLab(0xE9DDFF)},
                                           {{0.95F, 0.05F}, 0.7F, okLab(0xBFA6F2)},
                                           {{0.45F, 0.45F}, 0.5F, okLab(0xD6B8F0)},
                                           {{1.00F, 0.95F}, 0.8F, okLab(0x7C66D9)},
                                           {{0.05F, 0.95F}, 0.7F, okLab(0xF3C9E4)},
                                           {{0.62F, 0.85F}, 0.4F, okLab(0x9A7BE6)}}};
  const Place q{p.x * std::clamp(aspect, 0.6F, 2.0F) / 1.6F, p.y};
  OkLab color = blended(cloth, flowing(p, 0.06F, 0.6F, 0.30F));
  const float fold = folds(q, 2.1F, {0.814F, 0.581F}, 0.19F);
  const float fine = folds({q.x + 0.1F, q.y}, 3.7F, {0.732F, 0.682F}, 0.41F);
  color = lighter(color, 0.085F * fold - 0.055F * (1 - fold) + 0.03F * fine);
  color.b -= 0.012F * (1 - fold);
  return color;
}

/// Embers glowing through dark smoke.
OkLab ember(Place p, float aspect) {
  static const OkLab plum = okLab(0x4A1F52);
  static const OkLab coal = okLab(0x140B10);
  static const OkLab wine = okLab(0x5A1226);
  static const OkLab red = okLab(0xD9342B);
  static const OkLab orange = okLab(0xFF8A3C);
  static const OkLab yellow = okLab(0xFFD58A);
  const float stretch = std::clamp(aspect, 0.6F, 2.2F);
  const Place q = flowing({p.x * stretch, p.y}, 0.06F, 0.55F, 0.13F);
  const float smoke = clouds(q.x * 1.7F + 4.0F, q.y * 1.7F + 9.0F, 4);
  const float distance = length((q.x - 0.98F * stretch) * 0.72F, q.y - 1.08F);
  const float heat = std::clamp(1.18F - distance * 1.02F + 0.62F * (smoke - 0.5F), 0.0F, 1.3F);
  OkLab color = mix(coal, wine, smooth(0.05F, 0.55F, heat));
  color = mix(color, red, smooth(0.42F, 0.86F, heat));
  color = mix(color, orange, smooth(0.72F, 1.08F, heat));
  color = mix(color, yellow, 0.8F * smooth(0.98F, 1.3F, heat));
  const float far = bell(length((p.x - 0.08F) * stretch, p.y - 0.05F), 0.75F);
  return mix(color, plum, 0.5F * far);
}

/// Light falling through leaves.
OkLab moss(Place p, float aspect) {
  static const OkLab sunlight = okLab(0xF6F5C8);
  static const std::array<Patch, 5> ground{{{{0.00F, 0.05F}, 0.7F, okLab(0xD9E7A6)},
                                            {{0.55F, 0.15F}, 0.6F, okLab(0x8DBB6C)},
                                            {{1.00F, 0.30F}, 0.7F, okLab(0x2F7A57)},
                                            {{0.15F, 0.95F}, 0.7F, okLab(0x2B6B4A)},
                                            {{0.95F, 1.00F}, 0.8F, okLab(0x0E3B36)}}};
  const float stretch = std::clamp(aspect, 0.6F, 2.2F);
  OkLab color = blended(ground, flowing(p, 0.08F, 0.7F, 0.38F));
  const float leaves = clouds(p.x * stretch * 1.5F + 2.0F, p.y * 1.5F + 7.0F, 3);
  color = lighter(color, 0.22F * (leaves - 0.44F));
  color.b += 0.06F * (leaves - 0.44F);
  // Beams that fan out from beyond the upper left corner.
  const float x = p.x * stretch + 0.35F;
  const float y = p.y + 0.45F;
  const float angle = std::atan2(y, x);
  const float beam = valueNoise(angle * 11.0F + 3.0F, 0.5F) * 0.65F + valueNoise(angle * 26.0F, 4.5F) * 0.35F;
  const float fade = decay(0.55F * (x * x + y * y));
  return mix(color, sunlight, 0.62F * smooth(0.42F, 0.85F, beam) * fade + 0.12F * fade);
}

/// Shallow water over sand, deep water beyond.
OkLab lagoon(Place p, float aspect) {
  static const std::array<Patch, 6> water{{{{0.02F, 0.98F}, 0.7F, okLab(0xF2E9CF)},
                                           {{0.22F, 0.72F}, 0.45F, okLab(0xA6E8DA)},
                                           {{0.55F, 0.60F}, 0.5F, okLab(0x45C9C4)},
                                           {{0.98F, 0.80F}, 0.6F, okLab(0x1C95B4)},
                                           {{0.25F, 0.05F}, 0.7F, okLab(0x1E86B8)},
                                           {{0.98F, 0.02F}, 0.8F, okLab(0x0D4C8C)}}};
  const float stretch = std::clamp(aspect, 0.6F, 2.2F);
  OkLab color = blended(water, flowing(p, 0.05F, 0.8F, 0.06F));
  // Caustics: where two moving nets of noise are both near their middle, light gathers.
  const Place q = flowing({p.x * stretch, p.y}, 0.05F, 1.1F, 0.21F);
  const float first = std::abs(valueNoise(q.x * 5.2F, q.y * 5.2F) - 0.5F);
  const float second = std::abs(valueNoise(q.x * 6.1F + 31.0F, q.y * 6.1F + 17.0F) - 0.5F);
  const float net = decay(first * 9.0F) + decay(second * 9.0F);
  const float shallow = smooth(1.25F, 0.15F, length((p.x - 0.12F) * stretch * 0.8F, p.y - 0.86F));
  color = lighter(color, (0.062F * net * net - 0.03F) * shallow);
  return lighter(color, 0.03F * (clouds(p.x * stretch * 2, p.y * 2, 3) - 0.45F));
}

/// A high sky with lit clouds.
OkLab sky(Place p, float aspect) {
  static const OkLab cloudBlue = okLab(0xB3C7E6);
  static const OkLab cloudRose = okLab(0xE8D9E2);
  static const OkLab cloudLight = okLab(0xFFFDF8);
  static const OkLab sunlight = okLab(0xFFF6E2);
  static const OkLab zenith = okLab(0x2E6FD6);
  static const OkLab middle = okLab(0x7DB4F2);
  static const OkLab horizon = okLab(0xE6F1FA);
  const float stretch = std::clamp(aspect, 0.6F, 2.2F);
  OkLab color = mix(zenith, middle, smooth(-0.05F, 0.62F, p.y));
  color = mix(color, horizon, smooth(0.45F, 1.08F, p.y));
  const float x = p.x * stretch;
  // Clouds lie flatter and closer together towards the horizon.
  const float depth = 1 / (0.42F + 0.55F * (1 - p.y));
  const float cloudX = (x - 0.5F * stretch) * depth * 1.25F + 6.0F;
  const float cloudY = depth * 2.6F;
  const float drift = 0.35F * clouds(cloudX * 0.7F + 21.0F, cloudY * 0.7F, 2);
  const float cover = clouds(cloudX + drift, cloudY + drift, 5);
  const float lit = clouds(cloudX + drift + 0.10F, cloudY + drift - 0.16F, 5);
  const float dense = smooth(0.47F, 0.72F, cover);
  const float light = std::clamp(0.55F + 2.4F * (cover - lit), 0.0F, 1.0F);
  const OkLab shade = mix(cloudBlue, cloudRose, p.y);
  color = mix(color, mix(shade, cloudLight, light), 0.9F * dense);
  const float sun = bell(length((p.x - 0.88F) * stretch, p.y - 0.02F), 0.55F);
  return mix(color, sunlight, 0.34F * sun);
}

using Picture = OkLab (*)(Place, float aspect);

Picture pictureOf(const QString& identifier) {
  constexpr std::pair<const char*, Picture> pictures[] = {{"arc", arc},     {"haze", haze}, {"lavender", lavender},
                                                          {"ember", ember}, {"moss", moss}, {"lagoon", lagoon},
                                                          {"sky", sky}};
  for (const auto& [name, picture] : pictures) {
    if (identifier == QLatin1String(name)) return picture;
  }
  return nullptr;
}

}  // namespace

PixelSize curatedPictureNodes(PixelSize size) {
  // As many nodes as the finest detail needs: more would not be seen. Halved for small pictures rather than fitted, so
  // that one field serves many sizes.
  int longest = 480;
  while (longest > 60 && longest * 3 / 2 > std::max(size.width, size.height)) longest /= 2;
  const auto nodes = [&](double part) {
    return std::max(24, static_cast<int>(std::lround(longest * std::min(part, 1.0))));
  };
  const double aspect = static_cast<double>(size.width) / size.height;
  return {nodes(aspect), nodes(1 / aspect)};
}

std::optional<SmoothGrid<Rgba>> curatedPicture(const QString& identifier, PixelSize size) {
  const Picture picture = pictureOf(identifier);
  if (picture == nullptr || size.width <= 0 || size.height <= 0) return std::nullopt;
  const PixelSize nodes = curatedPictureNodes(size);
  const auto aspect = static_cast<float>(static_cast<double>(size.width) / size.height);
  SmoothGrid<Rgba> grid(nodes.width, nodes.height);
  for (int y = 0; y < grid.rows(); ++y) {
    Rgba* row = grid.row(y);
    const float v = static_cast<float>(y) / static_cast<float>(grid.rows() - 1);
    for (int x = 0; x < grid.columns(); ++x) {
      row[x] = toRgba(picture({static_cast<float>(x) / static_cast<float>(grid.columns() - 1), v}, aspect));
    }
  }
  return grid;
}

}  // namespace vellora
