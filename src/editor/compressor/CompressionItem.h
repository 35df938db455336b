#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "editor/compressor/ImageCompressor.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/Raster.h"

namespace vellora {

enum class CompressionState : std::uint8_t { waiting, running, done, unchanged, failed, cancelled };

struct CompressionOutput {
  std::filesystem::path file;
  PictureType type = PictureType::Png;
  std::uintmax_t bytes = 0;
  int width = 0;
  int height = 0;
  bool isFlattened = false;  ///< transparency became white
  int frames = 1;            ///< of an animation, or pages, which have passed through as they are
};

/// One picture of a run.
struct CompressionItem {
  std::uint64_t id = 0;
  std::filesystem::path sourceURL;  ///< empty for pasted pixels
  std::string displayName;
  Raster image;  ///< pasted pixels; null for files, which are read when their turn comes
  std::optional<PictureType> sourceUTType{};
  std::uintmax_t originalBytes = 0;
  ImageCompressor::Size pixelSize;  ///< 0 × 0 until known
  Raster thumbnail;                 ///< null until made
  CompressionState state = CompressionState::waiting;
  std::optional<CompressionOutput> lastOutput{};
  std::optional<PictureFailure> failure{};
};

}  // namespace vellora
