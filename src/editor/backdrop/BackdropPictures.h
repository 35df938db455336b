#pragma once

#include <memory>

#include <QImage>
#include <QString>

namespace vellora {

/// The picture at an absolute path, at most 4096 pixels along its longer side; null when there is none that can be
/// read. The last few are shared by everything that draws, as long as their files stay unchanged. Reading one takes as
/// long as it takes: whoever must not wait asks on another thread first. Any thread.
std::shared_ptr<const QImage> backdropPicture(const QString& path);

}  // namespace vellora
