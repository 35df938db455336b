#pragma once

#include <cstdint>
#include <optional>

#include <QImage>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "editor/compressor/CompressionRun.h"

namespace vellora {

class ComparisonView;

/// Keeps a comparison showing what a picture of the list would become, a moment after picture or options settle. Main
/// thread.
class ComparisonFeed {
 public:
  ComparisonFeed(RunLoop& runLoop, CompressionRun& run, ComparisonView& view);

  /// Shows the picture `id` as `options` would make it; nothing in particular without one.
  void show(std::optional<std::uint64_t> id, const CompressOptions& options);
  /// Lets go of everything.
  void hide();

 private:
  void request();
  void answered(const Result<CompressionRun::Preview, PictureFailure>& preview);

  RunLoop& runLoop_;
  CompressionRun& run_;
  ComparisonView& view_;
  std::optional<std::uint64_t> id_;
  CompressOptions options_;
  QImage before_;  ///< of `id_`, handed in again so that the view has no work with it
  bool isShown_ = false;
  TimerHandle settling_;
  Lifetime lifetime_;
};

}  // namespace vellora
