#include "editor/ui/DocumentOutput.h"

#include <utility>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "editor/rendering/DocumentRenderer.h"
#include "media/SharedPng.h"

namespace vellora {
namespace {

DocumentOutput::Outcome<DocumentOutput::Picture> picture(const ImageDocument& document,
                                                         const DocumentOutput::Job& job) {
  if (job.isCancelled()) return failure(DocumentOutputError::Cancelled);
  const std::optional<Bitmap> bitmap = renderDocument(document);
  if (job.isCancelled()) return failure(DocumentOutputError::Cancelled);
  if (!bitmap) return failure(DocumentOutputError::NotRendered);
  return std::make_shared<SharedPng>(*bitmap, document.outputScale());
}

}  // namespace

template <class T>
DocumentOutput::JobPtr DocumentOutput::run(std::function<Outcome<T>(const Job&)> work,
                                           std::function<void(Outcome<T>)> done) {
  auto job = std::make_shared<Job>();
  queue_.async([&loop = runLoop_, job, work = std::move(work),
                answer = std::function<void(Outcome<T>)>(lifetime_.guard(std::move(done)))]() mutable {
    // The answer carries what belongs to the main thread; it is let go there too.
    auto outcome = std::make_shared<Outcome<T>>(work(*job));
    work = nullptr;
    loop.post([answer = std::move(answer), outcome] { answer(std::move(*outcome)); });
  });
  return job;
}

DocumentOutput::JobPtr DocumentOutput::render(const ImageDocument& document, std::function<void(Outcome<Picture>)> done,
                                              bool encoded) {
  return run<Picture>(
      [document, encoded](const Job& job) -> Outcome<Picture> {
        auto made = picture(document, job);
        if (made && encoded && !(*made)->bytes()) return failure(DocumentOutputError::NotEncoded);
        return made;
      },
      std::move(done));
}

DocumentOutput::JobPtr DocumentOutput::save(const ImageDocument& document, const QString& path, PictureFormat format,
                                            std::function<void(Outcome<QString>)> done) {
  return run<QString>(
      [document, path, format](const Job& job) -> Outcome<QString> {
        const auto made = picture(document, job);
        if (!made) return failure(made.error());
        const auto bytes = encodePicture((*made)->image(), document.outputScale(), format);
        if (job.isCancelled()) return failure(DocumentOutputError::Cancelled);
        if (!bytes) return failure(DocumentOutputError::NotEncoded);
        if (const auto written = AtomicFile::write(path, *bytes, Durability::PowerCut); !written) {
          log::warning(QStringLiteral("the picture was not saved: ") + written.error().description());
          return failure(DocumentOutputError::NotWritten);
        }
        return path;
      },
      std::move(done));
}

void DocumentOutput::exportPng(const ImageDocument& document, std::function<void(std::span<const std::byte>)> done) {
  queue_.async([document, done = std::move(done)] {
    const auto made = picture(document, Job());
    done(made ? (*made)->bytes().value_or(std::span<const std::byte>()) : std::span<const std::byte>());
  });
}

}  // namespace vellora
