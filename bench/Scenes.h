#pragma once

#include "base/Bitmap.h"

namespace vellora::bench {

/// Pictures that stand for what is captured; the same on every run.
enum class Scene { Desktop, Text, Photo, Flat, Noise };

/// An opaque picture of 3840 × 2160 pixels, made once.
const Bitmap& scene(Scene kind);

const char* nameOf(Scene kind);

}  // namespace vellora::bench
