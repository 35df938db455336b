#include "media/pictures/Resampler.h"

#include <algorithm>
#include <new>
#include <thread>
#include <vector>

#include "media/pictures/LinearLight.h"
#include "media/pictures/ResamplingFilter.h"

namespace vellora {
namespace {

constexpr int leastRowsOfAThread = 64;

LinearPixel all(float value) {
  return LinearPixel{value, value, value, value};
}

LinearPixel least(LinearPixel a, LinearPixel b) {
  return a < b ? a : b;
}

LinearPixel greatest(LinearPixel a, LinearPixel b) {
  return a > b ? a : b;
}

/// One row of the source in linear light, premultiplied.
template <class Sample, int channels>
void readRow(const Sample* row, int width, const float* lights, LinearPixel* result) {
  constexpr float full = static_cast<float>(static_cast<Sample>(~Sample{0}));
  for (int x = 0; x < width; ++x, row += channels) {
    if constexpr (channels <= 2) {
      result[x] = all(lights[row[0]]);
    } else {
      result[x] = LinearPixel{lights[row[0]], lights[row[1]], lights[row[2]], 1};
    }
    if constexpr (channels == 2 || channels == 4) {
      const float alpha = static_cast<float>(row[channels - 1]) / full;
      result[x][3] = 1;
      result[x] *= all(alpha);
    }
  }
}

template <class Sample, int channels>
void writeRow(const LinearPixel* row, int width, Sample* result) {
  constexpr float full = static_cast<float>(static_cast<Sample>(~Sample{0}));
  const auto sample = [](float light) -> Sample {
    if constexpr (sizeof(Sample) == 1)
      return sampleOf8Bits(light);
    else
      return sampleOf16Bits(light);
  };
  constexpr int colors = channels <= 2 ? 1 : 3;
  for (int x = 0; x < width; ++x, result += channels) {
    LinearPixel pixel = row[x];
    if constexpr (channels == 2 || channels == 4) {
      const float alpha = std::clamp(pixel[3], 0.0F, 1.0F);
      result[channels - 1] = static_cast<Sample>(alpha * full + 0.5F);
      pixel = alpha > 0 ? pixel / all(alpha) : all(0);
    }
    for (int i = 0; i < colors; ++i) result[i] = sample(pixel[i]);
  }
}

/// The weighted sum of a window, without passing the extremes of what is under the filter's middle.
template <class At>
LinearPixel filtered(const ResamplingFilter::Window& window, const float* weights, At at) {
  LinearPixel sum = all(0);
  int i = 0;
  for (; i < window.middleFirst; ++i) sum += at(i) * all(weights[i]);
  LinearPixel low = at(i);
  LinearPixel high = low;
  for (const int end = window.middleFirst + window.middleCount; i < end; ++i) {
    const LinearPixel pixel = at(i);
    sum += pixel * all(weights[i]);
    low = least(low, pixel);
    high = greatest(high, pixel);
  }
  for (; i < window.count; ++i) sum += at(i) * all(weights[i]);
  return greatest(low, least(high, sum));
}

/// Makes rows of the result from top to bottom; source rows are filtered across once and kept while they are needed.
template <class Sample, int channels>
class Band {
 public:
  Band(const Raster& source, Raster& result, const ResamplingFilter& across, const ResamplingFilter& down)
      : source_(source),
        result_(result),
        across_(across),
        down_(down),
        sourceRow_(static_cast<std::size_t>(source.width())),
        resultRow_(static_cast<std::size_t>(result.width())),
        rows_(static_cast<std::size_t>(down.widest) * static_cast<std::size_t>(result.width())) {}

  void make(int firstRow, int endRow) {
    int next = down_.windows[static_cast<std::size_t>(firstRow)].first;
    for (int y = firstRow; y < endRow; ++y) {
      const ResamplingFilter::Window& window = down_.windows[static_cast<std::size_t>(y)];
      for (; next < window.first + window.count; ++next) filterAcross(next);
      const float* weights = down_.weights.data() + window.weights;
      for (int x = 0; x < result_.width(); ++x)
        resultRow_[static_cast<std::size_t>(x)] =
            filtered(window, weights, [&](int i) { return kept(window.first + i)[x]; });
      writeRow<Sample, channels>(resultRow_.data(), result_.width(), reinterpret_cast<Sample*>(result_.row(y)));
    }
  }

 private:
  LinearPixel* kept(int sourceRow) {
    return rows_.data() +
           static_cast<std::size_t>(sourceRow % down_.widest) * static_cast<std::size_t>(result_.width());
  }

  void filterAcross(int y) {
    const float* lights = sizeof(Sample) == 1 ? linearOf8Bits() : linearOf16Bits();
    readRow<Sample, channels>(reinterpret_cast<const Sample*>(source_.row(y)), source_.width(), lights,
                              sourceRow_.data());
    LinearPixel* row = kept(y);
    for (int x = 0; x < result_.width(); ++x) {
      const ResamplingFilter::Window& window = across_.windows[static_cast<std::size_t>(x)];
      const LinearPixel* pixels = sourceRow_.data() + window.first;
      row[x] = filtered(window, across_.weights.data() + window.weights, [pixels](int i) { return pixels[i]; });
    }
  }

  const Raster& source_;
  Raster& result_;
  const ResamplingFilter& across_;
  const ResamplingFilter& down_;
  std::vector<LinearPixel> sourceRow_;
  std::vector<LinearPixel> resultRow_;
  std::vector<LinearPixel> rows_;
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
