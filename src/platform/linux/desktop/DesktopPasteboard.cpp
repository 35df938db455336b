#include "platform/linux/desktop/DesktopPasteboard.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <memory>

#include <QFile>

#include "base/Log.h"
#include "platform/linux/clipboard/HolderLauncher.h"
#include "platform/linux/clipboard/SelectionReader.h"

namespace vellora {
namespace {

std::span<const std::byte> bytesOf(const QByteArray& data) {
  return {reinterpret_cast<const std::byte*>(data.constData()), static_cast<std::size_t>(data.size())};
}

std::optional<Pasteboard::ImageOffer> offerOf(const std::optional<ClipboardPicture>& picture) {
  if (!picture) return std::nullopt;
  return Pasteboard::ImageOffer{QByteArray(reinterpret_cast<const char*>(picture->encoded.data()),
                                           static_cast<qsizetype>(picture->encoded.size())),
                                QFile::decodeName(QByteArray::fromStdString(picture->filePath))};
}

}  // namespace

DesktopPasteboard::DesktopPasteboard(RunLoop& runLoop) : DesktopPasteboard(runLoop, vellora::holderProgram()) {}

DesktopPasteboard::DesktopPasteboard(RunLoop& runLoop, std::string holderProgram)
    : runLoop_(runLoop), holderProgram_(std::move(holderProgram)), cancel_(::eventfd(0, EFD_CLOEXEC)) {}

DesktopPasteboard::~DesktopPasteboard() {
  ::eventfd_write(cancel_, 1);
  queue_.drain();
  ::close(cancel_);
}

bool DesktopPasteboard::write(PasteboardContent content) {
  const ClipboardParts parts{.png = bytesOf(content.png),
                             .filePath = QFile::encodeName(content.filePath).toStdString()};
  if (parts.png.empty() && parts.filePath.empty()) return false;
  const bool held = holdOnClipboard(parts, holderProgram_);
  if (!held) log::error(QStringLiteral("clipboard not taken over"));
  return held;
}

void DesktopPasteboard::readImage(std::function<void(std::optional<ImageOffer>)> done) {
  auto shared = std::make_shared<std::function<void(std::optional<ImageOffer>)>>(lifetime_.guard(std::move(done)));
  queue_.async([&runLoop = runLoop_, shared, cancel = cancel_] {
    runLoop.post([shared, offer = offerOf(readClipboardPicture(cancel))]() mutable { (*shared)(std::move(offer)); });
  });
}

}  // namespace vellora
