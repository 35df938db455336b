#pragma once

#include <string>
#include <vector>

#include <QString>

#include "platform/linux/camera/CameraModes.h"

namespace vellora {

/// A device node that gives pictures.
struct V4l2Device {
  std::string path;  ///< "/dev/video0"
  QString id;        ///< where it is plugged in, so that it stays the same when nodes are numbered anew
  QString name;
};

/// The nodes there are at the moment, by their numbers; a camera may have others, for its metadata, which are left out.
std::vector<V4l2Device> v4l2Devices();

/// The ways a device gives pictures that can be decoded; where it takes any size, the one next to the wish. Empty when
/// it does not tell.
std::vector<CameraMode> modesOf(const V4l2Device& device, int width, int height);

}  // namespace vellora
