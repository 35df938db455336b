#include "record_editor/RecordProjectState.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "record_editor/BundleFiles.h"
#include "record_editor/TimelineElementRecords.h"

namespace vellora {
namespace {

constexpr std::array<const char*, 5> resolutionNames{"original", "uhd4k", "qhd1440", "fhd1080", "hd720"};

constexpr std::array<std::string_view, 20> documentKeys{
    "version",      "name",           "exportResolution", "disabledKinds", "trims", "videoCuts",
    "textCards",    "zooms",          "speeds",           "layouts",       "masks", "keyboardEnabled",
    "micEnabled",   "cameraEnabled",  "backdrop",         "camera",        "pose",  "captions",
    "captionStyle", "transcriptWords"};

template <class Enum, std::size_t Count>
std::optional<Enum> named(const std::array<const char*, Count>& names, const Json& value) {
  const auto name = json::string(value);
  const auto found = std::ranges::find_if(names, [&](const char* each) { return name == QLatin1StringView(each); });
  if (found == names.end()) return std::nullopt;
  return static_cast<Enum>(found - names.begin());
}

template <class Element>
Json encodedAll(const std::vector<Element>& elements) {
  Json array = Json::array();
  for (const Element& element : elements) array.push_back(encodeElement(element));
  return array;
}

/// Reads the members of a document, counting what cannot be read.
class DocumentReader {
 public:
  explicit DocumentReader(const Json& document) : document_(document) {}

  template <class T, class Reader>
  void into(T& field, const char* key, Reader reader) {
    const Json* value = json::member(document_, key);
    if (!value) return;
    if (auto result = reader(*value)) {
      field = std::move(*result);
    } else {
      ++skipped_;
    }
  }

  /// Calls `take` for each element of an array; false means it could not be read.
  template <class Take>
  void each(const char* key, Take take) {
    const Json* array = json::member(document_, key);
    if (!array) return;
    if (!array->is_array()) {
      ++skipped_;
      return;
    }
    std::size_t index = 0;
    for (const Json& value : *array) {
      if (index++ >= bundleFiles::mostEntries || !take(value)) ++skipped_;
    }
  }

  template <class Element>
  void elements(std::vector<Element>& target, const char* key) {
    each(key, [&](const Json& record) {
      auto element = decodeElement<Element>(record);
      if (element) target.push_back(std::move(*element));
      return element.has_value();
    });
  }

  std::size_t skipped() const { return skipped_; }

 private:
  const Json& document_;
  std::size_t skipped_ = 0;
};

}  // namespace

QByteArray RecordProjectState::encode() const {
  Json disabled = Json::array();
  for (const TimelineElementKind kind : disabledKinds) {
    disabled.push_back(timelineElementKindNames[static_cast<std::size_t>(kind)]);
  }
  Json document{{"version", version},
                {"name", json::fromString(name)},
                {"exportResolution", resolutionNames[static_cast<std::size_t>(exportResolution)]},
                {"disabledKinds", std::move(disabled)},
                {"trims", encodedAll(trims)},
                {"videoCuts", Json(videoCuts)},
                {"textCards", encodedAll(textCards)},
                {"zooms", encodedAll(zooms)},
                {"speeds", encodedAll(speeds)},
                {"layouts", encodedAll(layouts)},
                {"masks", encodedAll(masks)},
                {"keyboardEnabled", keyboardEnabled},
                {"micEnabled", micEnabled},
                {"cameraEnabled", cameraEnabled},
                {"backdrop", encodeRecordBackdrop(backdrop)},
                {"camera", encodeRecordCamera(camera)}};
  if (pose) document["pose"] = encodePose(*pose);
  document["captions"] = encodedAll(captions);
  document["captionStyle"] = encodeCaptionStyle(captionStyle);
  document["transcriptWords"] = encodedAll(transcriptWords);
  for (const auto& [key, value] : foreign.items()) document[key] = value;
  return json::serialize(document);
}

Result<RecordProjectState::Decoded, RecordProjectState::DecodeError> RecordProjectState::decode(
    const QByteArray& text) {
  auto document = json::parse(text);
  if (!document) return failure(DecodeError::Malformed);
  const Json* storedName = json::member(*document, "name");
  const auto name = storedName ? json::string(*storedName) : std::nullopt;
  if (!name) return failure(DecodeError::NoProject);

  RecordProjectState state;
  state.name = *name;
  DocumentReader reader(*document);
  reader.into(state.exportResolution, "exportResolution",
              [](const Json& value) { return named<ExportResolution>(resolutionNames, value); });
  reader.each("disabledKinds", [&](const Json& value) {
    const auto kind = named<TimelineElementKind>(timelineElementKindNames, value);
    if (kind) state.disabledKinds.insert(*kind);
    return kind.has_value();
  });
  reader.elements(state.trims, "trims");
  reader.each("videoCuts", [&](const Json& value) {
    const auto cut = json::number(value);
    if (!cut || !bundleFiles::isSourceTime(*cut)) return false;
    state.videoCuts.push_back(*cut);
    return true;
  });
  reader.elements(state.textCards, "textCards");
  reader.elements(state.zooms, "zooms");
  reader.elements(state.speeds, "speeds");
  reader.elements(state.layouts, "layouts");
  reader.elements(state.masks, "masks");
  reader.into(state.keyboardEnabled, "keyboardEnabled", json::boolean);
  reader.into(state.micEnabled, "micEnabled", json::boolean);
  reader.into(state.cameraEnabled, "cameraEnabled", json::boolean);
  reader.into(state.backdrop, "backdrop", decodeRecordBackdrop);
  reader.into(state.camera, "camera", decodeRecordCamera);
  reader.into(state.pose, "pose", decodePose);
  reader.elements(state.captions, "captions");
  reader.into(state.captionStyle, "captionStyle", decodeCaptionStyle);
  reader.elements(state.transcriptWords, "transcriptWords");
  for (const auto& [key, value] : document->items()) {
    if (std::ranges::find(documentKeys, key) == documentKeys.end()) state.foreign[key] = value;
  }
  return Decoded{std::move(state), reader.skipped()};
}

}  // namespace vellora
