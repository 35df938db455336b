#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include <QString>
#include <QUuid>

#include "editor/Annotation.h"
#include "record_editor/ScenePose.h"

namespace vellora {

// The elements of a recording project. Every one has an identity and a range in source seconds, `start` before `end`.

/// A removed range of the footage.
struct TrimElement {
  QUuid id;
  double start = 0;
  double end = 0;
  std::optional<QString> note{};  ///< the reason, as "cuts.txt" shows it
  friend bool operator==(const TrimElement&, const TrimElement&) = default;
};

/// A closer look at a place of the frame.
struct ZoomElement {
  static constexpr double leastAmount = 1;
  static constexpr double greatestAmount = 3;
  static constexpr double leastEase = 0.1;
  /// Of a zoom a person adds, in seconds.
  static constexpr double newLength = 2;

  QUuid id;
  double start = 0;
  double end = 0;
  double amount = 2;    ///< magnification
  double focusX = 0.5;  ///< as a fraction of the frame's width
  double focusY = 0.5;  ///< as a fraction of the frame's height
  double inDuration = 0.5;
  double outDuration = 0.7;

  /// With every number inside its limits: the focus so that the view stays inside the frame, each ease no longer than
  /// the element.
  ZoomElement clamped() const;
  /// The zoom a person adds at `playhead`, in footage of `duration` seconds.
  static ZoomElement added(double playhead, double duration);
  friend bool operator==(const ZoomElement&, const ZoomElement&) = default;
};

/// A range that plays faster or slower.
struct SpeedElement {
  static constexpr double leastRate = 0.05;
  static constexpr double greatestRate = 100;

  QUuid id;
  double start = 0;
  double end = 0;
  double rate = 1;  ///< source seconds per second shown
  friend bool operator==(const SpeedElement&, const SpeedElement&) = default;
};

/// Annotations drawn over the picture: what is to be hidden, or pointed at.
struct MaskElement {
  QUuid id;
  double start = 0;
  double end = 0;
  std::vector<Annotation> annotations{};
  friend bool operator==(const MaskElement&, const MaskElement&) = default;
};

/// Another arrangement of the pieces.
struct LayoutElement {
  QUuid id;
  double start = 0;
  double end = 0;
  ScenePose pose{};
  friend bool operator==(const LayoutElement&, const LayoutElement&) = default;
};

struct CaptionElement {
  QUuid id;
  double start = 0;
  double end = 0;
  QString text;
  friend bool operator==(const CaptionElement&, const CaptionElement&) = default;
};

/// A spoken word and when it is said.
struct WordStamp {
  QString text;
  double start = 0;
  double end = 0;
  friend bool operator==(const WordStamp&, const WordStamp&) = default;
};

/// A card of text inserted into the story.
struct TextCard {
  QUuid id;
  double anchor = 0;  ///< the source second before which it is inserted
  QString text;
  double duration = 3;  ///< seconds it lasts in the story
  bool dark = false;
  double fontSize = 64;
  double textWidth = 0;  ///< 0: as wide as the text
  bool handwritten = false;
  friend bool operator==(const TextCard&, const TextCard&) = default;
};

/// The kinds of elements that have a lane; stored by name.
enum class TimelineElementKind : std::uint8_t { zoom, trim, speed, layout, caption, mask };

inline constexpr std::array<const char*, 6> timelineElementKindNames{"zoom",   "trim",    "speed",
                                                                     "layout", "caption", "mask"};

}  // namespace vellora
