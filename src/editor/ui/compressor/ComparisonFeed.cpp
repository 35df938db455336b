#include "editor/ui/compressor/ComparisonFeed.h"

#include <utility>

#include "editor/ui/compressor/ComparisonView.h"
#include "editor/ui/compressor/CompressorTexts.h"
#include "editor/ui/compressor/RasterImages.h"

namespace vellora {
namespace {

constexpr double settleSeconds = 0.15;

}  // namespace

ComparisonFeed::ComparisonFeed(RunLoop& runLoop, CompressionRun& run, ComparisonView& view)
    : runLoop_(runLoop), run_(run), view_(view) {}

void ComparisonFeed::show(std::optional<std::uint64_t> id, const CompressOptions& options) {
  if (isShown_ && id == id_ && options == options_) return;
  const bool isOther = !isShown_ || id != id_;
  isShown_ = true;
  id_ = id;
  options_ = options;
  if (isOther) {
    before_ = {};
    view_.clear();
  }
  settling_.reset();
  if (!id_) {
    view_.setBusy(false);
    //% "Select an image to compare it with its result"
    view_.setMessage(qtTrId("compress.compare.selectOne"));
    return;
  }
  view_.setBusy(true);
  settling_ = runLoop_.after(settleSeconds, [this] { request(); });
}

void ComparisonFeed::hide() {
  isShown_ = false;
  id_.reset();
  before_ = {};
  settling_.reset();
  view_.clear();
}

void ComparisonFeed::request() {
  if (!id_) return;
  const auto wanted = std::pair(*id_, options_);
  const auto isWanted = [this, wanted] { return isShown_ && id_ == wanted.first && options_ == wanted.second; };
  run_.preview(*id_, options_, lifetime_.guard([this, isWanted](const Raster& before) {
    if (!isWanted() || !before_.isNull()) return;
    before_ = imageOf(before);
    view_.setBefore(before_);
  }),
               lifetime_.guard([this, isWanted](const Result<CompressionRun::Preview, PictureFailure>& preview) {
                 if (isWanted()) answered(preview);
               }));
}

void ComparisonFeed::answered(const Result<CompressionRun::Preview, PictureFailure>& preview) {
  view_.setBusy(false);
  const CompressionItem* item = run_.find(*id_);
  if (item == nullptr) return;
  if (!preview) {
    before_ = {};
    view_.setMessage(compressorText::failure(preview.error()));
    return;
  }
  view_.setPictures(before_, imageOf(preview->picture));
  const bool isPasted = item->sourceURL.empty();
  const QString change = isPasted ? QString() : compressorText::change(item->originalBytes, preview->bytes);
  //% "Before"
  const QString before = qtTrId("compress.compare.before");
  //% "After"
  QStringList after{qtTrId("compress.compare.after"), compressorText::bytes(preview->bytes)};
  if (!change.isEmpty()) after << change;
  const QString separator = QStringLiteral(" · ");
  view_.setCaptions(isPasted ? before : before + separator + compressorText::bytes(item->originalBytes),
                    after.join(separator));
}

}  // namespace vellora
