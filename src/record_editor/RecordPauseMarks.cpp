#include "record_editor/RecordPauseMarks.h"

#include <algorithm>

#include "base/Json.h"
#include "record_editor/BundleFiles.h"

namespace vellora {

Result<void, FileError> RecordPauseMarks::save(const std::vector<double>& marks, const QString& bundle) {
  Json array = Json::array();
  for (const double mark : marks) {
    if (bundleFiles::isSourceTime(mark)) array.push_back(mark);
  }
  return AtomicFile::write(bundle + u'/' + bundleFiles::pauses, json::serialize(array), Durability::PowerCut);
}

std::vector<double> RecordPauseMarks::load(const QString& bundle) {
  std::vector<double> marks;
  for (const Json& value : bundleFiles::readArray(bundle + u'/' + bundleFiles::pauses)) {
    const auto mark = json::number(value);
    if (mark && bundleFiles::isSourceTime(*mark)) marks.push_back(*mark);
  }
  std::ranges::sort(marks);
  return marks;
}

}  // namespace vellora
