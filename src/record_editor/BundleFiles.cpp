#include "record_editor/BundleFiles.h"

#include "base/AtomicFile.h"
#include "base/Log.h"

namespace vellora::bundleFiles {

Json readDocument(const QString& path) {
  const auto text = AtomicFile::read(path, largestDocument);
  if (!text) {
    if (text.error().kind != FileError::Kind::NotFound) {
      log::warning(QStringLiteral("project file not read: ") + text.error().description());
    }
    return {};
  }
  auto value = json::parse(*text);
  if (!value) {
    log::warning(QStringLiteral("project file not read: %1: no JSON that can be read").arg(path));
    return {};
  }
  return std::move(*value);
}

Json readArray(const QString& path) {
  Json value = readDocument(path);
  if (!value.is_array()) return Json::array();
  if (value.size() > mostEntries) value.erase(value.begin() + mostEntries, value.end());
  return value;
}

}  // namespace vellora::bundleFiles
