#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "platform/linux/x11/X11ScreenCapture.h"

namespace vellora::cli {
namespace {

Json frameJson(const PixelRect& frame) {
  return Json::array({frame.x, frame.y, frame.width, frame.height});
}

QString frameText(const PixelRect& frame) {
  return QStringLiteral("%1,%2,%3,%4").arg(frame.x).arg(frame.y).arg(frame.width).arg(frame.height);
}

std::optional<ShareableContent> readContent() {
  X11ScreenCapture service;
  auto content = service.shareableContent();
  if (content) return std::move(*content);
  printError(QStringLiteral("there is no desktop that can be captured; is DISPLAY set?"));
  return std::nullopt;
}

}  // namespace

int listDisplays(const Invocation& invocation) {
  const auto content = readContent();
  if (!content) return Failed;
  Json list = Json::array();
  for (const DisplayInfo& display : content->displays) {
    list.push_back({{"id", display.id},
                    {"name", display.name.toStdString()},
                    {"frame", frameJson(display.frame)},
                    {"scale", display.scale},
                    {"refreshRate", display.refreshRate},
                    {"primary", display.isPrimary}});
    if (!invocation.json) {
      printLine(QStringLiteral("%1\t%2\t%3\t%4x\t%5 Hz%6")
                    .arg(display.id)
                    .arg(display.name, frameText(display.frame))
                    .arg(display.scale)
                    .arg(display.refreshRate, 0, 'f', 0)
                    .arg(display.isPrimary ? QStringLiteral("\tprimary") : QString()));
    }
  }
  if (invocation.json) printJson({{"displays", list}});
  return Done;
}

int listWindows(const Invocation& invocation) {
  const auto content = readContent();
  if (!content) return Failed;
  Json list = Json::array();
  for (const WindowInfo& window : content->windows) {
    list.push_back({{"id", window.id},
                    {"title", window.title.toStdString()},
                    {"application", window.application.toStdString()},
                    {"processId", window.processId},
                    {"frame", frameJson(window.frame)}});
    if (!invocation.json) {
      QString title = window.title;
      title.replace(u'\n', u' ').replace(u'\t', u' ');
      printLine(
          QStringLiteral("%1\t%2\t%3\t%4").arg(window.id).arg(frameText(window.frame), window.application, title));
    }
  }
  if (invocation.json) printJson({{"windows", list}});
  return Done;
}

}  // namespace vellora::cli
