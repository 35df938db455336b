#include "editor/ui/pins/PinDrag.h"

#include <utility>

#include <QUrl>

#include "base/SerialQueue.h"
#include "media/SharedPng.h"

namespace vellora {
namespace {

const QString pngFormat = QStringLiteral("image/png");
const QString filesFormat = QStringLiteral("text/uri-list");

}  // namespace

PinDrag::PinDrag(std::shared_ptr<SharedPng> png, WriteFile writeFile, SerialQueue& queue) : png_(std::move(png)) {
  if (!writeFile) {
    queue.async([png = png_] { png->bytes(); });
    return;
  }
  auto written = std::make_shared<std::promise<std::optional<QString>>>();
  file_ = written->get_future().share();
  queue.async([png = png_, written, writeFile = std::move(writeFile)] { written->set_value(writeFile(png)); });
}

QStringList PinDrag::formats() const {
  return file_.valid() ? QStringList{filesFormat, pngFormat} : QStringList{pngFormat};
}

QVariant PinDrag::retrieveData(const QString& format, QMetaType) const {
  if (format == filesFormat && file_.valid()) {
    const std::optional<QString>& path = file_.get();
    return path ? QVariant(QUrl::fromLocalFile(*path).toEncoded() + "\r\n") : QVariant();
  }
  if (format != pngFormat) return {};
  const auto bytes = png_->bytes();
  return bytes ? QVariant(QByteArray(reinterpret_cast<const char*>(bytes->data()), static_cast<int>(bytes->size())))
               : QVariant();
}

}  // namespace vellora
