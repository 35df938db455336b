#include <QCoreApplication>

#include "base/QtRunLoop.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/camera/LoadedCameraCapture.h"
#include "platform/linux/desktop/SessionBus.h"

namespace vellora::cli {
namespace {

Json deviceList(const std::vector<CaptureDeviceInfo>& devices) {
  Json list = Json::array();
  for (const CaptureDeviceInfo& device : devices) {
    list.push_back({{"id", device.uniqueID.toStdString()}, {"name", device.displayName.toStdString()}});
  }
  return list;
}

void printDevices(const QString& kind, const std::vector<CaptureDeviceInfo>& devices) {
  for (const CaptureDeviceInfo& device : devices) {
    QString name = device.displayName;
    name.replace(u'\n', u' ').replace(u'\t', u' ');
    printLine(QStringLiteral("%1\t%2\t%3").arg(kind, device.uniqueID, name));
  }
}

}  // namespace

int listDevices(const Invocation& invocation) {
  sessionBus::forbidAutolaunch();
  int argc = 1;
  char name[] = "vellora";
  char* argv[] = {name, nullptr};
  const QCoreApplication application(argc, argv);
  QtRunLoop runLoop;
  LoadedAudioCapture audio(runLoop);
  LoadedCameraCapture cameras;
  const auto found = audio.microphones();
  if (!found) printError(QStringLiteral("there is no sound server"));
  const std::vector<CaptureDeviceInfo> microphones = found ? *found : std::vector<CaptureDeviceInfo>();
  const std::vector<CaptureDeviceInfo> cameraDevices = cameras.cameras();
  if (invocation.json) {
    printJson({{"microphones", deviceList(microphones)},
               {"cameras", deviceList(cameraDevices)},
               {"systemSound", found.has_value()}});
    return Done;
  }
  printDevices(QStringLiteral("microphone"), microphones);
  printDevices(QStringLiteral("camera"), cameraDevices);
  return Done;
}

}  // namespace vellora::cli
