#include "media/pictures/Resampler.h"

#include <algorithm>
#include <new>
#include <thread>
#include <vector>

#include "media/pictures/LinearLight.h"
#include "media/pictures/ResamplerKernels.h"
#include "media/pictures/ResamplingFilter.h"

namespace vellora {
namespace {

constexpr int leastRowsOfAThread = 64;

LinearPixel all(float value) {
  return LinearPixel{value, value, value, value};
}

/// One row of the source in linear light, premultiplied, into every other pixel of the result.
template <class Sample, int channels>
void readRow(const Sample* row, int width, const float* lights, LinearPixel* result) {
  constexpr float full = static_cast<float>(static_cast<Sample>(~Sample{0}));
  for (int x = 0; x < width; ++x, row += channels, result += 2) {
    LinearPixel pixel = all(lights[row[0]]);
    if constexpr (channels >= 3) pixel = LinearPixel{lights[row[0]], lights[row[1]], lights[row[2]], 1};
    if constexpr (channels == 2 || channels == 4) {
      pixel[3] = 1;
      pixel *= all(static_cast<float>(row[channels - 1]) / full);
    }
    *result = pixel;
  }
}

template <class Sample, int channels>
void writeRow(const LinearPixel* row, int width, Sample* result) {
  using Places = std::int32_t __attribute__((vector_size(16)));
  constexpr float full = static_cast<float>(static_cast<Sample>(~Sample{0}));
  constexpr int colors = channels <= 2 ? 1 : 3;
  const std::uint8_t* const samples = samplesOfLightSteps();
  for (int x = 0; x < width; ++x, result += channels) {
    LinearPixel pixel = row[x];
    if constexpr (channels == 2 || channels == 4) {
      const float alpha = std::clamp(pixel[3], 0.0F, 1.0F);
      result[channels - 1] = static_cast<Sample>(alpha * full + 0.5F);
      pixel = alpha > 0 ? pixel / all(alpha) : all(0);
    }
    if constexpr (sizeof(Sample) == 1) {
      pixel = pixel < all(1) ? pixel : all(1);
      pixel = pixel > all(0) ? pixel : all(0);
      const Places places = __builtin_convertvector(pixel * all(lightSteps) + all(0.5F), Places);
      for (int i = 0; i < colors; ++i) result[i] = samples[places[i]];
    } else {
      for (int i = 0; i < colors; ++i) result[i] = sampleOf16Bits(pixel[i]);
    }
  }
}

/// Makes rows of the result from top to bottom; source rows are filtered across once, two at a time, and kept while
/// they are needed.
template <class Sample, int channels>
class Band {
 public:
  Band(const Raster& source, Raster& result, const ResamplingFilter& across, const ResamplingFilter& down)
      : source_(source),
        result_(result),
        across_(across),
        down_(down),
        evenWidth_((static_cast<std::size_t>(result.width()) + 1) & ~std::size_t{1}),
        sourceRows_(2 * static_cast<std::size_t>(source.width())),
        resultRow_(evenWidth_),
        keptRows_(static_cast<std::size_t>(down.widest) + 1),
        rows_(keptRows_ * evenWidth_),
        window_(static_cast<std::size_t>(down.widest)) {}

  void make(int firstRow, int endRow) {
    const ResamplerKernels& kernels = ResamplerKernels::ofThisMachine();
    int next = down_.windows[static_cast<std::size_t>(firstRow)].first;
    for (int y = firstRow; y < endRow; ++y) {
      const ResamplingFilter::Window& window = down_.windows[static_cast<std::size_t>(y)];
      for (; next < window.first + window.count; next += 2) {
        read(next, 0);
        read(std::min(next + 1, source_.height() - 1), 1);
        kernels.acrossTwoRows(across_, sourceRows_.data(), kept(next), kept(next + 1));
      }
      for (int i = 0; i < window.count; ++i) window_[static_cast<std::size_t>(i)] = kept(window.first + i);
      kernels.down(window, down_.weights.data() + window.weights, window_.data(), evenWidth_, resultRow_.data());
      writeRow<Sample, channels>(resultRow_.data(), result_.width(), reinterpret_cast<Sample*>(result_.row(y)));
    }
  }

 private:
  /// Into the first or the second place of each pair.
  void read(int y, std::size_t place) {
    const float* lights = sizeof(Sample) == 1 ? linearOf8Bits() : linearOf16Bits();
    readRow<Sample, channels>(reinterpret_cast<const Sample*>(source_.row(y)), source_.width(), lights,
                              sourceRows_.data() + place);
  }

  LinearPixel* kept(int sourceRow) {
    return rows_.data() + static_cast<std::size_t>(sourceRow) % keptRows_ * evenWidth_;
  }

  const Raster& source_;
  Raster& result_;
  const ResamplingFilter& across_;
  const ResamplingFilter& down_;
  const std::size_t evenWidth_;  ///< of the result
  std::vector<LinearPixel> sourceRows_;
  std::vector<LinearPixel> resultRow_;
  const std::size_t keptRows_;
  std::vector<LinearPixel> rows_;
  std::vector<const LinearPixel*> window_;
};

template <class Sample, int channels>
void resample(const Raster& source, Raster& result, int threads) {
  const ResamplingFilter across = ResamplingFilter::lanczos(source.width(), result.width());
  const ResamplingFilter down = ResamplingFilter::lanczos(source.height(), result.height());
  const int bands = std::clamp(result.height() / leastRowsOfAThread, 1, std::max(threads, 1));
  std::vector<Band<Sample, channels>> work;
  for (int i = 0; i < bands; ++i) work.emplace_back(source, result, across, down);
  const auto border = [&](int i) { return static_cast<int>(static_cast<long>(result.height()) * i / bands); };
  std::vector<std::jthread> others;
  for (int i = 1; i < bands; ++i)
    others.emplace_back([&, i] { work[static_cast<std::size_t>(i)].make(border(i), border(i + 1)); });
  work.front().make(0, border(1));
}

template <class Sample>
void resampleOf(const Raster& source, Raster& result, int threads) {
  switch (source.layout()) {
    case RasterLayout::Grey:
      return resample<Sample, 1>(source, result, threads);
    case RasterLayout::GreyAlpha:
      return resample<Sample, 2>(source, result, threads);
    case RasterLayout::Rgb:
      return resample<Sample, 3>(source, result, threads);
    case RasterLayout::Rgba:
      return resample<Sample, 4>(source, result, threads);
  }
}

}  // namespace

std::optional<Raster> resampled(const Raster& raster, int width, int height, int threads) {
  if (raster.isNull()) return std::nullopt;
  std::optional<Raster> result = Raster::create(width, height, raster.layout(), raster.bitsPerSample());
  if (!result) return std::nullopt;
  try {
    if (raster.bitsPerSample() == 16)
      resampleOf<std::uint16_t>(raster, *result, threads);
    else
      resampleOf<std::uint8_t>(raster, *result, threads);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
  return result;
}

}  // namespace vellora
