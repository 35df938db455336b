#include "platform/linux/camera/v4l2/V4l2Devices.h"

#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>

namespace vellora {
namespace {

namespace fs = std::filesystem;

class Node {
 public:
  explicit Node(const std::string& path) : descriptor_(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {}
  ~Node() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  template <class Argument>
  bool ask(unsigned long request, Argument& argument) const {
    if (descriptor_ < 0) return false;
    int result = 0;
    do {
      result = ::ioctl(descriptor_, request, &argument);
    } while (result < 0 && errno == EINTR);
    return result >= 0;
  }

 private:
  int descriptor_;
};

struct KnownFormat {
  std::uint32_t code;
  std::string_view name;
  bool isCompressed;
};
/// What webcams and capture cards give.
constexpr std::array knownFormats{
    KnownFormat{V4L2_PIX_FMT_YUYV, "yuyv422", false},    KnownFormat{V4L2_PIX_FMT_UYVY, "uyvy422", false},
    KnownFormat{V4L2_PIX_FMT_NV12, "nv12", false},       KnownFormat{V4L2_PIX_FMT_YUV420, "yuv420p", false},
    KnownFormat{V4L2_PIX_FMT_YUV422P, "yuv422p", false}, KnownFormat{V4L2_PIX_FMT_BGR24, "bgr24", false},
    KnownFormat{V4L2_PIX_FMT_RGB24, "rgb24", false},     KnownFormat{V4L2_PIX_FMT_GREY, "gray", false},
    KnownFormat{V4L2_PIX_FMT_MJPEG, "mjpeg", true},      KnownFormat{V4L2_PIX_FMT_JPEG, "mjpeg", true},
};
/// More sizes, rates or formats of a kind no camera has; a broken driver may name them for ever.
constexpr std::uint32_t mostEntries = 256;

std::vector<KnownFormat> formatsOf(const Node& node) {
  std::vector<KnownFormat> formats;
  for (std::uint32_t i = 0; i < mostEntries; ++i) {
    v4l2_fmtdesc format{};
    format.index = i;
    format.type = V4L2_BUF_TYPE_VIDEO_CAPTURE;
    if (!node.ask(VIDIOC_ENUM_FMT, format)) break;
    const auto* known = std::find_if(knownFormats.begin(), knownFormats.end(),
                                     [&](const KnownFormat& each) { return each.code == format.pixelformat; });
    if (known != knownFormats.end()) formats.push_back(*known);
  }
  return formats;
}

double rateOf(const v4l2_fract& interval) {
  return interval.numerator == 0 ? 0 : static_cast<double>(interval.denominator) / interval.numerator;
}

void addRates(const Node& node, CameraMode mode, std::uint32_t code, std::vector<CameraMode>& modes) {
  const std::size_t before = modes.size();
  for (std::uint32_t i = 0; i < mostEntries; ++i) {
    v4l2_frmivalenum interval{};
    interval.index = i;
    interval.pixel_format = code;
    interval.width = static_cast<std::uint32_t>(mode.width);
    interval.height = static_cast<std::uint32_t>(mode.height);
    if (!node.ask(VIDIOC_ENUM_FRAMEINTERVALS, interval)) break;
    const bool isDiscrete = interval.type == V4L2_FRMIVAL_TYPE_DISCRETE;
    // Of a range, 30 a second or what is next to it.
    const double fastest = rateOf(isDiscrete ? interval.discrete : interval.stepwise.min);
    const double slowest = isDiscrete ? fastest : rateOf(interval.stepwise.max);
    mode.rate = std::max(std::min(fastest, 30.0), isDiscrete ? fastest : slowest);
    modes.push_back(mode);
    if (!isDiscrete) break;
  }
  if (modes.size() == before) modes.push_back(mode);
}

int nextSize(int wished, std::uint32_t least, std::uint32_t most, std::uint32_t step) {
  const int lowest = static_cast<int>(least), highest = std::max(lowest, static_cast<int>(most));
  const int steps = std::max(1, static_cast<int>(step));
  return lowest + (std::clamp(wished, lowest, highest) - lowest) / steps * steps;
}

/// "Integrated Camera: Integrated C", as drivers say, is "Integrated Camera".
QString nameOf(const v4l2_capability& capability) {
  const auto* card = reinterpret_cast<const char*>(capability.card);
  const QString name = QString::fromUtf8(card, static_cast<qsizetype>(qstrnlen(card, sizeof capability.card)));
  const qsizetype colon = name.indexOf(QStringLiteral(": "));
  const bool saysItTwice = colon > 0 && name.left(colon).startsWith(name.mid(colon + 2));
  return (saysItTwice ? name.left(colon) : name).trimmed();
}

std::optional<V4l2Device> deviceAt(const std::string& path) {
  const Node node(path);
  v4l2_capability capability{};
  if (!node.ask(VIDIOC_QUERYCAP, capability)) return std::nullopt;
  const bool tellsOfNode = (capability.capabilities & V4L2_CAP_DEVICE_CAPS) != 0;
  const std::uint32_t can = tellsOfNode ? capability.device_caps : capability.capabilities;
  const std::uint32_t needed = V4L2_CAP_VIDEO_CAPTURE | V4L2_CAP_STREAMING;
  if ((can & needed) != needed || formatsOf(node).empty()) return std::nullopt;
  const auto* bus = reinterpret_cast<const char*>(capability.bus_info);
  const auto busLength = static_cast<qsizetype>(qstrnlen(bus, sizeof capability.bus_info));
  return V4l2Device{path, QStringLiteral("v4l2:") + QString::fromUtf8(bus, busLength), nameOf(capability)};
}

}  // namespace

std::vector<V4l2Device> v4l2Devices() {
  static constexpr std::string_view prefix = "video";
  std::map<int, std::string> paths;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator("/dev", error)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(prefix) || name.size() == prefix.size() || name.size() > prefix.size() + 4) continue;
    if (name.find_first_not_of("0123456789", prefix.size()) != std::string::npos) continue;
    paths[std::stoi(name.substr(prefix.size()))] = entry.path().string();
  }
  std::vector<V4l2Device> devices;
  std::map<QString, int> nodesOfDevice;
  for (const auto& [number, path] : paths) {
    auto device = deviceAt(path);
    if (!device) continue;
    if (const int before = nodesOfDevice[device->id]++; before > 0) {
      device->id += QLatin1Char('#') + QString::number(before + 1);
    }
    devices.push_back(std::move(*device));
  }
  return devices;
}

std::vector<CameraMode> modesOf(const V4l2Device& device, int width, int height) {
  const Node node(device.path);
  std::vector<CameraMode> modes;
  for (const KnownFormat& format : formatsOf(node)) {
    for (std::uint32_t i = 0; i < mostEntries; ++i) {
      v4l2_frmsizeenum size{};
      size.index = i;
      size.pixel_format = format.code;
      if (!node.ask(VIDIOC_ENUM_FRAMESIZES, size)) break;
      CameraMode mode{.format = std::string(format.name), .isCompressed = format.isCompressed};
      const bool isDiscrete = size.type == V4L2_FRMSIZE_TYPE_DISCRETE;
      if (isDiscrete) {
        mode.width = static_cast<int>(size.discrete.width);
        mode.height = static_cast<int>(size.discrete.height);
      } else {
        const v4l2_frmsize_stepwise& range = size.stepwise;
        mode.width = nextSize(width, range.min_width, range.max_width, range.step_width);
        mode.height = nextSize(height, range.min_height, range.max_height, range.step_height);
      }
      addRates(node, mode, format.code, modes);
      if (!isDiscrete) break;
    }
  }
  return modes;
}

}  // namespace vellora
