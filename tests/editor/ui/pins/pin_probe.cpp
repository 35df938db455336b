// Pins pictures on a real display and says on standard output what becomes of them:
//   pin_probe WIDTHxHEIGHT+X+Y... [--blended] [--texts TEXTS.qm]
// X and Y are where the picture's corner goes. "--blended" takes the display for one that blends windows. A line
// "click-through INDEX", "end-click-through", "close-all" on standard input does that.

#include <unistd.h>

#include <cstdio>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <QTranslator>

#include "PinSpecimen.h"
#include "base/QtRunLoop.h"
#include "editor/ui/pins/PinBoard.h"
#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Compositing.h"
#include "media/SharedPng.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/linux/x11/X11WindowHints.h"
#include "support/FakePreferences.h"

namespace vellora::test {
namespace {

void say(const QString& line) {
  std::printf("%s\n", qPrintable(line));
  std::fflush(stdout);
}

void open(PinBoard& board, const QString& geometry) {
  const QStringList numbers = geometry.split(QRegularExpression(QStringLiteral("[x+]")));
  if (numbers.size() != 4) return;
  const QSize size(numbers[0].toInt(), numbers[1].toInt());
  const QPoint corner(numbers[2].toInt(), numbers[3].toInt());
  PinPlacement placement;
  placement.center = corner + QPoint(size.width() / 2, size.height() / 2);
  const auto* const pin =
      board.open(pinSpecimen(size, qApp->devicePixelRatio(), Theme::palette(Appearance::Light)), placement);
  if (pin != nullptr) say(QStringLiteral("pinned %1").arg(pin->window().winId()));
}

PinActions sayingActions() {
  PinActions actions;
  actions.output = [](auto, Date, bool copy, bool, const auto& done) {
    say(copy ? QStringLiteral("copy") : QStringLiteral("save"));
    done(true);
  };
  actions.edit = [](PinWindowController&) {
    say(QStringLiteral("edit"));
    return true;
  };
  actions.closed = [](PinWindowController& pin) { say(QStringLiteral("closed %1").arg(pin.window().winId())); };
  actions.dragFile = [](const std::shared_ptr<SharedPng>& png, Date) -> std::optional<QString> {
    const auto bytes = png->bytes();
    QFile file(qEnvironmentVariable("HOME") + QStringLiteral("/dragged.png"));
    if (!bytes || !file.open(QIODevice::WriteOnly)) return std::nullopt;
    file.write(reinterpret_cast<const char*>(bytes->data()), static_cast<qint64>(bytes->size()));
    return file.fileName();
  };
  actions.tell = [](QScreen*, const QString&) { say(QStringLiteral("told")); };
  return actions;
}

int run(QStringList arguments) {
  const bool blended = arguments.removeAll(QStringLiteral("--blended")) > 0;
  X11Screens screens;
  setCompositingProbe([&](const QScreen*) { return blended || screens.isComposited(); });
  QTranslator texts;
  if (const auto at = arguments.indexOf(QStringLiteral("--texts")); at >= 0 && at + 1 < arguments.size()) {
    if (texts.load(arguments[at + 1])) QApplication::installTranslator(&texts);
    arguments.remove(at, 2);
  }
  QtRunLoop runLoop;
  FakePreferences preferences;
  X11WindowHints hints;
  PinBoard board(runLoop, preferences, &hints, sayingActions());
  QFile input;
  (void)input.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered);
  QSocketNotifier commands(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&commands, &QSocketNotifier::activated, [&] {
    const QByteArray line = input.readLine().trimmed();
    if (line.isEmpty()) return commands.setEnabled(false);
    const auto pins = board.pins();
    const auto words = line.split(' ');
    const auto index = words.size() > 1 ? words[1].toUInt() : 0;
    if (words[0] == "click-through" && index < pins.size()) pins[index]->setClickThrough(true);
    if (words[0] == "end-click-through") board.endClickThrough();
    if (words[0] == "close-all") board.closeAll();
  });
  for (const QString& geometry : arguments) open(board, geometry);
  return QApplication::exec();
}

}  // namespace
}  // namespace vellora::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return vellora::test::run(QApplication::arguments().mid(1));
}
