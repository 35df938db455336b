#pragma once

#include <functional>
#include <future>
#include <memory>
#include <optional>

#include <QMimeData>

namespace vellora {

class SerialQueue;
class SharedPng;

/// A picture on its way into another program: as a PNG file and as PNG data. Encoding and writing begin at once on a
/// worker thread and are waited for when the other program takes the picture.
class PinDrag final : public QMimeData {
 public:
  using WriteFile = std::function<std::optional<QString>(std::shared_ptr<SharedPng>)>;

  /// `writeFile` is called on `queue`; may be empty, then there is no file.
  PinDrag(std::shared_ptr<SharedPng> png, WriteFile writeFile, SerialQueue& queue);

  QStringList formats() const override;
  bool hasFormat(const QString& format) const override { return formats().contains(format); }

 protected:
  QVariant retrieveData(const QString& format, QMetaType type) const override;

 private:
  const std::shared_ptr<SharedPng> png_;
  std::shared_future<std::optional<QString>> file_;  // not valid: no file
};

}  // namespace vellora
