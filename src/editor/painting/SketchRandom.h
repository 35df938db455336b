#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

namespace vellora {

/// The chance in a sketch: SplitMix64, so that a seed gives the same shape on every machine.
class SketchRandom {
 public:
  explicit SketchRandom(std::uint64_t seed) : state_(seed) {}

  /// From 0 to below 1.
  double part() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = state_;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    return static_cast<double>((bits ^ (bits >> 31)) >> 11) * 0x1p-53;
  }
  double between(double least, double most) { return least + (most - least) * part(); }
  double around(double reach) { return between(-reach, reach); }
  double sign() { return part() < 0.5 ? -1 : 1; }

 private:
  std::uint64_t state_;
};

/// A slow tremor along a stroke: two waves that do not repeat each other, within -1 to 1.
class Tremor {
 public:
  explicit Tremor(SketchRandom& random)
      : phase1_(random.between(0, 2 * std::numbers::pi)), phase2_(random.between(0, 2 * std::numbers::pi)) {}

  /// `place` in wave lengths.
  double at(double place) const {
    return 0.62 * std::sin(2 * std::numbers::pi * place + phase1_) +
           0.38 * std::sin(2 * std::numbers::pi * 2.3 * place + phase2_);
  }

 private:
  double phase1_;
  double phase2_;
};

}  // namespace vellora
