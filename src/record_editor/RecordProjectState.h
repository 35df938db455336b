#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include <QByteArray>
#include <QString>

#include "base/Json.h"
#include "base/Result.h"
#include "record_editor/RecordAppearance.h"
#include "record_editor/ScenePose.h"
#include "record_editor/TimelineElements.h"

namespace vellora {

/// The size of an exported movie; stored by name.
enum class ExportResolution : std::uint8_t { original, uhd4k, qhd1440, fhd1080, hd720 };

/// The whole edit state of a recording project, "project.json". Times are source seconds. A plain value.
struct RecordProjectState {
  static constexpr int formatVersion = 1;

  int version = formatVersion;
  QString name;
  ExportResolution exportResolution = ExportResolution::original;
  std::set<TimelineElementKind> disabledKinds{};  ///< kinds switched off as a whole
  std::vector<TrimElement> trims{};
  std::vector<double> videoCuts{};  ///< where the footage is split
  std::vector<TextCard> textCards{};
  std::vector<ZoomElement> zooms{};
  std::vector<SpeedElement> speeds{};
  std::vector<LayoutElement> layouts{};
  std::vector<MaskElement> masks{};
  bool keyboardEnabled = true;  ///< shows recorded keystrokes
  bool micEnabled = true;
  bool cameraEnabled = true;
  RecordBackdropSettings backdrop{};
  RecordCameraSettings camera{};
  std::optional<ScenePose> pose{};  ///< none: screen and camera as a new project arranges them
  std::vector<CaptionElement> captions{};
  CaptionStyle captionStyle{};
  std::vector<WordStamp> transcriptWords{};
  /// Members of a document that mean nothing to this version, written back as they were.
  Json foreign = Json::object();

  /// The document, its keys in the order above.
  QByteArray encode() const;

  enum class DecodeError {
    Malformed,  ///< no JSON that can be read
    NoProject,  ///< no object, or one without a name
  };
  struct Decoded;
  /// Reads a document from outside. A missing key has its default; a key or an element that cannot be read is skipped
  /// and counted; numbers outside their limits are brought inside.
  static Result<Decoded, DecodeError> decode(const QByteArray& text);

  friend bool operator==(const RecordProjectState&, const RecordProjectState&) = default;
};

struct RecordProjectState::Decoded {
  RecordProjectState state;
  std::size_t skipped = 0;  ///< keys and elements that could not be read
};

}  // namespace vellora
