#include "record_editor/RecordedKeyCue.h"

#include <algorithm>

#include "base/Json.h"
#include "record_editor/BundleFiles.h"

namespace vellora {
namespace {

constexpr std::size_t mostKeys = 32;
constexpr qsizetype longestLabel = 64;

std::optional<RecordedKeyCue> decoded(const Json& record) {
  const Json* start = json::member(record, "start");
  const Json* end = json::member(record, "end");
  const Json* keys = json::member(record, "keys");
  if (!start || !end || !keys || !keys->is_array() || keys->empty() || keys->size() > mostKeys) return std::nullopt;
  RecordedKeyCue cue;
  cue.start = json::number(*start).value_or(-1);
  cue.end = std::min(json::number(*end).value_or(-1), bundleFiles::longestSource);
  if (!bundleFiles::isSourceRange(cue.start, cue.end)) return std::nullopt;
  for (const Json& key : *keys) {
    const auto label = json::string(key);
    if (!label || label->isEmpty() || label->size() > longestLabel) return std::nullopt;
    cue.keys.push_back(*label);
  }
  return cue;
}

}  // namespace

const RecordedKeyCue* RecordedKeyCue::visible(const std::vector<RecordedKeyCue>& cues, double time) {
  const auto cue = std::find_if(cues.rbegin(), cues.rend(),
                                [time](const RecordedKeyCue& each) { return each.start <= time && time < each.end; });
  return cue == cues.rend() ? nullptr : &*cue;
}

Result<void, FileError> RecordedKeyCue::save(const std::vector<RecordedKeyCue>& cues, const QString& bundle) {
  Json array = Json::array();
  for (const RecordedKeyCue& cue : cues) {
    Json keys = Json::array();
    for (const QString& key : cue.keys) keys.push_back(json::fromString(key));
    array.push_back(Json{{"start", cue.start}, {"end", cue.end}, {"keys", std::move(keys)}});
  }
  return AtomicFile::write(bundle + u'/' + bundleFiles::keyboard, json::serialize(array), Durability::PowerCut);
}

std::vector<RecordedKeyCue> RecordedKeyCue::load(const QString& bundle) {
  std::vector<RecordedKeyCue> cues;
  for (const Json& record : bundleFiles::readArray(bundle + u'/' + bundleFiles::keyboard)) {
    if (auto cue = decoded(record)) cues.push_back(std::move(*cue));
  }
  std::ranges::stable_sort(cues, {}, &RecordedKeyCue::start);
  return cues;
}

}  // namespace vellora
