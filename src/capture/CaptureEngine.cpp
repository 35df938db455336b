#include "capture/CaptureEngine.h"

#include <cmath>
#include <optional>
#include <utility>

namespace vellora {
namespace {

CaptureEngine::Image withScale(Result<Bitmap, ScreenCaptureError> image, double scale) {
  if (!image) return failure(captureError(image.error()));
  if (image->isNull()) return failure(CaptureError::Failed);
  const double usable = std::isfinite(scale) && scale > 0 ? scale : 1.0;
  return CapturedImage{std::move(*image), usable};
}

CaptureEngine::Content contentOf(ScreenCaptureService& service) {
  auto content = service.shareableContent();
  if (!content) return failure(captureError(content.error()));
  return std::move(*content);
}

}  // namespace

CaptureEngine::CaptureEngine(ScreenCaptureService& service, RunLoop& runLoop) : service_(service), runLoop_(runLoop) {}

template <class T>
void CaptureEngine::run(std::function<T()> work, Callback<T> done) {
  queue_.async([&runLoop = runLoop_, work = std::move(work), deliver = lifetime_.guard(std::move(done))]() mutable {
    // The result is shared because a task of the run loop must be copyable.
    auto result = std::make_shared<T>(work());
    runLoop.post([result = std::move(result), deliver = std::move(deliver)]() mutable { deliver(std::move(*result)); });
  });
}

void CaptureEngine::shareableContent(Callback<Content> done) {
  run<Content>([&service = service_] { return contentOf(service); }, std::move(done));
}

void CaptureEngine::captureDisplay(const DisplayInfo& display, Callback<Image> done) {
  run<Image>([&service = service_, id = display.id,
              scale = display.scale] { return withScale(service.displayImage(id), scale); },
             std::move(done));
}

void CaptureEngine::captureDisplay(const DisplayInfo& display, const PixelRect& part, Callback<Image> done) {
  run<Image>(
      [&service = service_, display, part]() -> Image {
        const PixelRect cut = part.intersected({0, 0, display.frame.width, display.frame.height});
        if (cut.isEmpty()) return failure(CaptureError::CropFailed);
        return withScale(service.regionImage(cut.translated(display.frame.x, display.frame.y)), display.scale);
      },
      std::move(done));
}

void CaptureEngine::captureWindow(WindowId window, double scale, Callback<Image> done) {
  run<Image>([&service = service_, window, scale] { return withScale(service.windowImage(window), scale); },
             std::move(done));
}

void CaptureEngine::captureRegion(const PixelRect& region, double scale, Callback<Image> done) {
  run<Image>([&service = service_, region, scale] { return withScale(service.regionImage(region), scale); },
             std::move(done));
}

void CaptureEngine::readStill(std::shared_ptr<const ScreenStill> still, const DisplayInfo& display,
                              Callback<Image> done) {
  // The still belongs to the main thread: it goes back there to be released.
  auto kept = std::make_shared<std::shared_ptr<const ScreenStill>>(std::move(still));
  run<Image>([kept, id = display.id, scale = display.scale] { return withScale((*kept)->image(id), scale); },
             [kept, done = std::move(done)](Image image) {
               kept->reset();
               done(std::move(image));
             });
}

}  // namespace vellora
