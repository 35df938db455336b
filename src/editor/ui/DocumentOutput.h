#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <span>

#include <QString>

#include "base/Lifetime.h"
#include "base/Result.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "editor/ImageDocument.h"
#include "media/codecs/PictureFormat.h"

namespace vellora {

class SharedPng;

/// Why a document did not become a picture or a file.
enum class DocumentOutputError {
  Cancelled,
  NotRendered,  ///< empty, beyond the limits, or memory is short
  NotEncoded,   ///< the format cannot hold it
  NotWritten,   ///< the file cannot be written
};

/// Makes finished pictures of documents, on a queue of its own: one for all editors. Callbacks come on the main thread,
/// and not at all once this object is gone. Its end waits for what is queued, so that no save is lost.
class DocumentOutput {
 public:
  /// A request under way; may be given up from the main thread.
  class Job {
   public:
    /// The answer becomes Cancelled as soon as the work can stop.
    void cancel() { cancelled_ = true; }
    bool isCancelled() const { return cancelled_; }

   private:
    std::atomic<bool> cancelled_ = false;
  };
  using JobPtr = std::shared_ptr<Job>;
  using Picture = std::shared_ptr<SharedPng>;
  template <class T>
  using Outcome = Result<T, DocumentOutputError>;

  explicit DocumentOutput(RunLoop& runLoop) : runLoop_(runLoop) {}

  /// The document's picture at its own scale. Its PNG form is made when somebody first asks for it, or with
  /// `encoded` at once.
  JobPtr render(const ImageDocument& document, std::function<void(Outcome<Picture>)> done, bool encoded = false);

  /// Writes the document's picture to `path`, replacing what is there in one step. Answers with the path.
  JobPtr save(const ImageDocument& document, const QString& path, PictureFormat format,
              std::function<void(Outcome<QString>)> done);

  /// Gives the picture's PNG form to `done` on the queue itself; nothing when it cannot be made.
  void exportPng(const ImageDocument& document, std::function<void(std::span<const std::byte>)> done);

  /// Runs something else on the queue, after what is under way. Its callback must not touch this object.
  void async(SerialQueue::Task task) { queue_.async(std::move(task)); }

 private:
  template <class T>
  JobPtr run(std::function<Outcome<T>(const Job&)> work, std::function<void(Outcome<T>)> done);

  RunLoop& runLoop_;
  SerialQueue queue_{"dev.orlo.vellora.document-output"};
  Lifetime lifetime_;
};

}  // namespace vellora
