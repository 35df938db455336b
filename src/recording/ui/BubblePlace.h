#pragma once

#include "base/Geometry.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// Where the camera's picture stands on a display and how large it is, and what a person's pulling makes of it. Points;
/// `area` is the part of the display that is free for windows.
struct BubblePlace {
  static constexpr double leastSide = 96;
  static constexpr double mostSide = 480;
  static constexpr double usualSide = 176;
  /// From the edge of the display when it snaps there, and how near it has to be for that.
  static constexpr double margin = 20;
  static constexpr double snapReach = 24;

  double side = usualSide;
  /// Of the free room between the margins: 0 at the left or upper edge, 1 at the other one.
  double x = 1;
  double y = 1;

  Rect frameIn(const Rect& area) const;
  /// Stands where a person has pulled its corner: near an edge of the display it snaps to it.
  void moveTo(Point corner, const Rect& area);
  /// Another size, about its middle; at an edge it stays there.
  void resize(double wanted, const Rect& area);

  /// As it was left, "record.cameraBubble"; the usual place when nothing usable is stored.
  static BubblePlace load(const PreferenceStore& preferences);
  void store(PreferenceStore& preferences) const;
  friend bool operator==(const BubblePlace&, const BubblePlace&) = default;
};

}  // namespace vellora
